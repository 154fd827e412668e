#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace orvent::platform {

/// The picture of a message box.
enum class Icon { none, information, question, warning, critical };

/// The buttons of a message box. Return presses the first, but where something would be destroyed: there it presses
/// Cancel, No where there is no Cancel, or Go On beside Discard.
enum class Buttons { ok, okCancel, yesNo, yesNoCancel, destroyOkCancel, destroyYesNo, destroyYesNoCancel, discardGoOn };

/// The button that was pressed; Discard is `ok`, and Go On is `cancel`. Closing the box counts as `cancel`, or `no`
/// where there is no Cancel, or `ok`.
enum class Answer { ok, cancel, yes, no };

/// Modal message boxes.
class MessageBox {
  public:
    virtual ~MessageBox() = default;

    /// Shows the box and waits for the answer. An empty title shows the program's name.
    virtual Answer show(const std::string& text, const std::string& title, Icon icon, Buttons buttons) = 0;

    /// The same with a smaller line below the text, where the box has one.
    virtual Answer showWith(const std::string& smaller, const std::string& text, const std::string& title, Icon icon,
                            Buttons buttons) {
        static_cast<void>(smaller);
        return show(text, title, icon, buttons);
    }

    void tell(const std::string& text, const std::string& title = {}, Icon icon = Icon::none) {
        show(text, title, icon, Buttons::ok);
    }
};

/// A modal box that asks for one line of text.
class InputBox {
  public:
    virtual ~InputBox() = default;

    /// The text given; Cancel gives the empty text.
    virtual std::string ask(const std::string& prompt, const std::string& title, const std::string& proposal) = 0;
};

/// Choosing a file.
class FileDialog {
  public:
    virtual ~FileDialog() = default;

    /// The path of an existing file, or empty when none was chosen. `filter` is "words|pattern", as in
    /// "SQL Files (*.sql)|*.sql".
    virtual std::string openFile(const std::string& filter) = 0;
};

/// Choosing a colour.
class ColourDialog {
  public:
    virtual ~ColourDialog() = default;

    /// 24-bit colours with blue in the high byte; empty when the dialog was cancelled.
    virtual std::optional<std::int32_t> choose(std::int32_t present) = 0;
};

/// Shapes of the pointer over the whole program, by their codes.
enum class PointerShape { ordinary = 1, busy = 11 };

/// What the frame shows of a step under way.
class Progress {
  public:
    virtual ~Progress() = default;

    /// The pointer's shape over the program.
    virtual void pointer(PointerShape shape) = 0;

    /// The single text of the status bar.
    virtual void status(const std::string& text) = 0;

    /// The same with a button behind it that opens what the text tells of, until the next text.
    virtual void statusWith(const std::string& text, const std::function<void()>& open) {
        static_cast<void>(open);
        status(text);
    }

    /// How far a long step is, 0 to `total`; `total` 0 ends the display. May paint, but takes no user input.
    virtual void step(std::size_t done, std::size_t total) = 0;
};

/// The help viewer.
class HelpViewer {
  public:
    virtual ~HelpViewer() = default;

    /// Opens the file of that path in the system's viewer; throws a `Fault` when it cannot.
    virtual void open(const std::string& path) = 0;
};

/// Busy pointer while it lives.
class Busy {
  public:
    explicit Busy(Progress& progress) : progress_(progress) { progress_.pointer(PointerShape::busy); }
    ~Busy() { progress_.pointer(PointerShape::ordinary); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    Progress& progress_;
};

}  // namespace orvent::platform
