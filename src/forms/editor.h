#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/dialogs.h"

namespace orvent::forms {

/// What a dialog asks when it is closed with changes that were not applied.
struct ClosingQuestion {
    /// What a "Yes" means.
    enum class Yes { appliesAndCloses, dropsAndCloses };

    std::string text = {};
    std::string title = {};
    platform::Icon icon = platform::Icon::question;
    platform::Buttons buttons = platform::Buttons::yesNoCancel;
    Yes yes = Yes::appliesAndCloses;
};

/// What the logic of every dialog is: something that is saved or not, can be applied, and may be closed or not. A
/// dialog derives and fills in the protected part; its window calls `Apply`, `OK`, `mayClose` and, whatever the route,
/// `end` when it goes.
class Editor {
  public:
    explicit Editor(platform::MessageBox& messages) : messages_(messages) {}
    virtual ~Editor() = default;
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    bool Saved = true;  ///< nothing was changed since the last time it was applied

    /// Set by the window: shows the whole state again. The logic calls `changed` when it changes outside of a handler.
    std::function<void()> show;

    /// Takes the changes over. False when a check refused them, which was told; the dialog stays.
    bool Apply();

    /// The OK button: applies what is not applied yet. True when the dialog closes.
    bool OK();

    /// A request to close in any other way. Asks when changes would be lost. True when the dialog closes.
    bool mayClose();

    /// The dialog goes. What must be put back is put back, once.
    void end();
    bool hasEnded() const { return ended_; }

  protected:
    /// Checks and takes over; true when it was done.
    virtual bool apply() { return true; }
    /// Whether OK closes when nothing is left to apply.
    virtual bool isComplete() const { return true; }
    /// What is asked when the dialog is closed with unsaved changes. Nothing: it is closed without a question.
    virtual std::optional<ClosingQuestion> closingQuestion() const { return std::nullopt; }
    virtual void closing() {}

    void changed() const {
        if (show) {
            show();
        }
    }
    platform::MessageBox& messages() const { return messages_; }

  private:
    bool applyAndClose() { return Apply() && isComplete(); }

    platform::MessageBox& messages_;
    bool ended_ = false;
};

}  // namespace orvent::forms
