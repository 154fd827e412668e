#pragma once

#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <optional>

#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/save_dialog.h"

class QLabel;
class QProgressBar;
class QStatusBar;
class QToolButton;
class QUrl;
class QWidget;

namespace orvent::qt {

/// The name that stands over boxes without a title of their own.
inline constexpr const char* kProgramName = "ORVENT II";

/// The modal boxes below belong to the window that works at the moment.
class QtMessageBox : public platform::MessageBox {
  public:
    platform::Answer show(const std::string& text, const std::string& title, platform::Icon icon,
                          platform::Buttons buttons) override {
        return showWith({}, text, title, icon, buttons);
    }
    platform::Answer showWith(const std::string& smaller, const std::string& text, const std::string& title,
                              platform::Icon icon, platform::Buttons buttons) override;
};

class QtInputBox : public platform::InputBox {
  public:
    std::string ask(const std::string& prompt, const std::string& title, const std::string& proposal) override;
};

class QtFileDialog : public platform::FileDialog {
  public:
    std::string openFile(const std::string& filter) override;
};

class QtSaveDialog : public platform::SaveDialog {
  public:
    std::string saveFile(const std::string& title, const std::string& filter, const std::string& folder,
                         platform::OldFile oldFile) override;
};

/// "SQL Files (*.sql)|*.sql" in the form that the toolkit's file dialog wants; several pairs may follow each other.
QString toolkitFilter(const std::string& filter);

/// The clipboard of the desk.
class QtClipboard : public platform::Clipboard {
  public:
    void put(const std::string& text, const std::string& mime) override;
    std::string text(const std::string& mime) const override;
};

class QtColourDialog : public platform::ColourDialog {
  public:
    std::optional<std::int32_t> choose(std::int32_t present) override;
};

/// Pointer shape over the whole program, and text and progress in the status bar of the frame.
class QtProgress : public platform::Progress {
  public:
    QtProgress() = default;
    ~QtProgress() override;

    /// The status bar to use; it must outlive this object or be taken away with null. Before that, texts go nowhere.
    void attach(QStatusBar* bar);

    void pointer(platform::PointerShape shape) override;
    void status(const std::string& text) override { statusWith(text, {}); }
    void statusWith(const std::string& text, const std::function<void()>& open) override;
    void step(std::size_t done, std::size_t total) override;

  private:
    QWidget* line_ = nullptr;  ///< the text and its button
    QLabel* label_ = nullptr;
    QToolButton* open_ = nullptr;
    std::function<void()> opens_;
    QProgressBar* bar_ = nullptr;
    bool busy_ = false;
    QElapsedTimer sincePaint_;
};

class QtHelpViewer : public platform::HelpViewer {
  public:
    using Opener = std::function<bool(const QUrl&)>;

    QtHelpViewer();
    explicit QtHelpViewer(Opener opener) : opener_(std::move(opener)) {}

    void open(const std::string& path) override;

  private:
    Opener opener_;
};

}  // namespace orvent::qt
