#pragma once

#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/fault.h"

namespace orvent::app {

/// The program was called wrongly: what is missing or wrong among its words is told.
class WrongUse : public platform::Fault {
  public:
    using Fault::Fault;
};

/// Without windows a question is answered by an option that was given when the program was called. One that none
/// answers is a `WrongUse` that names the option. What is only told goes to `errors`; what would be told as an error is
/// thrown as a `Fault`.
class AnsweredBox : public platform::MessageBox {
  public:
    explicit AnsweredBox(std::ostream& errors) : errors_(errors) {}

    /// "--replace": answers the questions that stand for it.
    void give(const std::string& option) { given_.insert(option); }
    bool isGiven(const std::string& option) const { return given_.contains(option); }
    /// The warnings so far.
    const std::vector<std::string>& warnings() const { return warnings_; }

    platform::Answer show(const std::string& text, const std::string& title, platform::Icon icon,
                          platform::Buttons buttons) override;

  private:
    [[noreturn]] void stop(const std::string& question);

    std::ostream& errors_;
    std::set<std::string> given_;
    std::vector<std::string> warnings_;
    std::string unanswered_;  ///< the question on which the step stops
};

/// Nobody is there to type, to choose a file, or to look at how far a step is.
class NobodyThere : public platform::InputBox, public platform::FileDialog, public platform::Progress {
  public:
    std::string ask(const std::string& prompt, const std::string&, const std::string&) override {
        throw WrongUse(prompt);
    }
    std::string openFile(const std::string&) override { return {}; }
    void pointer(platform::PointerShape) override {}
    void status(const std::string&) override {}
    void step(std::size_t, std::size_t) override {}
};

/// The password of the variable ORVENT_PASSWORD, or typed at the terminal without being seen. Throws a `WrongUse` when
/// there is neither.
std::string askedPassword();

}  // namespace orvent::app
