#pragma once

#include <QColor>
#include <QObject>
#include <QPalette>

#include "qt/theme/spacing.h"

class QApplication;

namespace orvent::qt {

enum class ThemeMode { light, dark };

/// Colours of a painted canvas, beside those that the nodes and edges carry themselves.
struct CanvasColours {
    QColor background;
    QColor dot;
    QColor paper;      ///< a node whose colour is plain white
    QColor ink;        ///< a node whose colour is plain black
    QColor line;       ///< an edge whose colour is plain black
    QColor outline;    ///< border of boxes
    QColor darkText;   ///< caption on light fills
    QColor lightText;  ///< caption on dark fills
    QColor accent;     ///< selection and handles
    QColor activity;   ///< input side of an activity
    QColor recordSet;  ///< lid of a record set
    QColor logHeader;
    QColor handleFill;
    QColor found;  ///< around what a search has found
};

/// The one place of the program's look: palette, style and canvas colours, in a light and a dark form.
class Theme : public QObject {
    Q_OBJECT

  public:
    explicit Theme(ThemeMode mode, QObject* parent = nullptr);

    /// The form that goes with a desktop's own palette.
    static ThemeMode modeOf(const QPalette& desktop);

    /// Gives the program this style, palette and icon. Call it once, before the first window.
    void apply(QApplication& application);

    ThemeMode mode() const { return mode_; }
    /// Changes over, also while windows are open.
    void setMode(ThemeMode mode);

    const CanvasColours& canvas() const;
    QPalette palette() const;

  Q_SIGNALS:
    void changed();

  private:
    ThemeMode mode_;
    QApplication* application_ = nullptr;
};

}  // namespace orvent::qt
