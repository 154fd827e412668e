#include "forms/editor.h"

namespace orvent::forms {

using platform::Answer;

bool Editor::Apply() {
    const bool done = apply();
    Saved = Saved || done;
    if (!done) {
        changed();  // a refusal may empty or put back what was typed
    }
    return done;
}

bool Editor::OK() {
    return Saved ? isComplete() : applyAndClose();
}

bool Editor::mayClose() {
    const std::optional<ClosingQuestion> question = Saved ? std::nullopt : closingQuestion();
    if (!question) {
        return true;
    }
    const bool yesApplies = question->yes == ClosingQuestion::Yes::appliesAndCloses;
    switch (messages_.show(question->text, question->title, question->icon, question->buttons)) {
        case Answer::yes:
        case Answer::ok:
            return yesApplies ? applyAndClose() : true;
        case Answer::no:
            return yesApplies;
        case Answer::cancel:
            return false;
    }
    return false;
}

void Editor::end() {
    if (!ended_) {
        ended_ = true;
        closing();
    }
}

}  // namespace orvent::forms
