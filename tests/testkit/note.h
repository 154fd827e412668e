#pragma once

#include <optional>

#include "forms/editor.h"

namespace orvent::testkit {

/// The logic of a dialog that does what a test sets, and counts.
class Note : public forms::Editor {
  public:
    using Editor::Editor;

    bool applies = true;
    bool complete = true;
    std::optional<forms::ClosingQuestion> question;
    int applied = 0;
    int ended = 0;

  protected:
    bool apply() override {
        applied += applies ? 1 : 0;
        return applies;
    }
    bool isComplete() const override { return complete; }
    std::optional<forms::ClosingQuestion> closingQuestion() const override { return question; }
    void closing() override { ++ended; }
};

}  // namespace orvent::testkit
