#include "app/cli_ports.h"

#include <termios.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

namespace orvent::app {

namespace {

using platform::Answer;

struct QuestionRow {
    std::string_view title;
    std::string_view option;  ///< empty: the answer harms nothing here
    Answer answer;
};

constexpr QuestionRow kQuestions[] = {
    {"DATA TYPE NOT RPOPERLY SET", "--add-types", Answer::ok},
    {"Types Are Gone", "--add-types", Answer::ok},
    {"Overwrite Scenario", "--replace", Answer::yes},
    {"Embedded Repository", "--make-repository", Answer::ok},
    {"Checking Consistency", "", Answer::ok},  // of a scenario that nobody stores afterwards
};

/// The terminal shows nothing of what is typed while it lives.
class Unseen {
  public:
    Unseen() {
        if (::tcgetattr(STDIN_FILENO, &old_) == 0) {
            termios unseen = old_;
            unseen.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &unseen);
        }
    }
    ~Unseen() { ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &old_); }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

  private:
    termios old_{};
};

}  // namespace

Answer AnsweredBox::show(const std::string& text, const std::string& title, platform::Icon icon,
                         platform::Buttons buttons) {
    if (buttons != platform::Buttons::ok) {
        for (const QuestionRow& row : kQuestions) {
            if (row.title != title) {
                continue;
            }
            if (row.option.empty() || given_.contains(std::string(row.option))) {
                return row.answer;
            }
            stop(text + "\nGive " + std::string(row.option) + " to have it so.");
        }
        stop(text + "\nNo option answers this.");
    }
    if (icon == platform::Icon::critical) {
        if (!unanswered_.empty()) {  // told by a step that catches all faults
            throw WrongUse(unanswered_);
        }
        throw platform::Fault(text);
    }
    if (icon == platform::Icon::warning) {
        warnings_.push_back(text);
    }
    errors_ << text << "\n";
    return Answer::ok;
}

void AnsweredBox::stop(const std::string& question) {
    unanswered_ = question;
    throw WrongUse(question);
}

std::string askedPassword() {
    if (const char* given = std::getenv("ORVENT_PASSWORD")) {
        return given;
    }
    if (::isatty(STDIN_FILENO) == 0) {
        throw WrongUse("Give the password in the environment variable ORVENT_PASSWORD.");
    }
    std::cerr << "Password: " << std::flush;
    const Unseen unseen;
    std::string password;
    std::getline(std::cin, password);
    std::cerr << "\n";
    return password;
}

}  // namespace orvent::app
