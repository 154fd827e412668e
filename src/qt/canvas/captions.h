#pragma once

#include <QFont>
#include <QStaticText>
#include <QStringList>
#include <cstdint>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "canvas/numbers.h"

namespace orvent::qt {

/// Height of the letters of a paragraph, in pixels at scale 1.
inline constexpr double kParagraphPixels = 10;

/// How a caption is laid out in its box.
enum class CaptionForm { line, strongLine, paragraph };

/// Laid out captions of the nodes that were painted lately. A caption is laid out anew when its text, its room or the
/// scale changed, so nobody has to tell the cache of changes.
class CaptionCache {
  public:
    struct Caption {
        QStaticText text;
        QFont font;
        bool elided = false;
        int first = 0;  ///< the first line shown of a paragraph
        int shown = 1;  ///< how many lines its room holds
        int lines = 1;  ///< how many it has
        bool scrolls() const { return lines > shown; }
    };

    explicit CaptionCache(const QFont& base) : base_(base) {}

    void setFont(const QFont& base);

    /// How wide a text is in one line of a form, in pixels at scale 1.
    double widthOf(std::string_view text, CaptionForm form);

    /// The caption of the node with that number for a room of that size in pixels.
    const Caption& caption(canvas::NodeNumber index, std::string_view text, CaptionForm form, QSizeF room,
                           double scale);

    /// What was laid out for that node, or nothing.
    const Caption* laidOut(canvas::NodeNumber index) const;
    /// Shows the paragraph of that node from another line on, within its bounds. False when it stays as it is.
    bool scrollTo(canvas::NodeNumber index, int first);

    void forget(canvas::NodeNumber index) { entries_.erase(index); }
    /// Drops everything once the cache holds more captions than a screen shows.
    void trim();

  private:
    struct Entry {
        Caption caption;
        std::size_t textHash = 0;
        QSizeF room;
        double scale = 0;
        QStringList lines;
    };

    void fitName(Entry& entry, QString name, CaptionForm form);
    static void showLines(Entry& entry);

    /// The font of a form at that size. Captions share it, since the toolkit looks a font up once for all its copies.
    const QFont& fontFor(CaptionForm form, double size);

    QFont base_;
    std::map<std::pair<CaptionForm, int>, QFont> fonts_;
    std::unordered_map<canvas::NodeNumber, Entry> entries_;
};

}  // namespace orvent::qt
