#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "canvas/canvas.h"
#include "platform/dialogs.h"
#include "platform/settings_store.h"

namespace orvent::testkit {

/// How a double reports a fault. The standard one is GoogleTest's; a program of another framework gives its own.
using Fail = std::function<void(const std::string&)>;

inline void failGoogleTest(const std::string& words) {
    ADD_FAILURE() << words;
}

/// Answers in the order of the script. A question beside the script is a failure, and so is a step that is left over
/// when the script is verified or ends.
template <class Question, class Reply>
class Script {
  public:
    Script(std::string port, Fail fail) : port_(std::move(port)), fail_(std::move(fail)) {}
    ~Script() { verify(); }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    void expect(Question question, Reply reply) { steps_.emplace_back(std::move(question), std::move(reply)); }

    Reply answer(const Question& asked, Reply otherwise) {
        if (steps_.empty()) {
            fail_(port_ + ": unexpected " + asked.words());
            return otherwise;
        }
        auto [question, reply] = std::move(steps_.front());
        steps_.pop_front();
        if (!(question == asked)) {
            fail_(port_ + ": expected " + question.words() + "\n but got " + asked.words());
            return otherwise;
        }
        return reply;
    }

    /// Fails for every step that was not used, and forgets them.
    void verify() {
        for (const auto& [question, reply] : std::exchange(steps_, {})) {
            fail_(port_ + ": never asked " + question.words());
        }
    }

  private:
    std::string port_;
    Fail fail_;
    std::deque<std::pair<Question, Reply>> steps_;
};

class ScriptedMessageBox : public platform::MessageBox {
  public:
    explicit ScriptedMessageBox(Fail fail = failGoogleTest) : script_("message box", std::move(fail)) {}

    void expect(std::string text, std::string title = "", platform::Icon icon = platform::Icon::none,
                platform::Buttons buttons = platform::Buttons::ok, platform::Answer answer = platform::Answer::ok) {
        script_.expect({std::move(text), std::move(title), icon, buttons}, answer);
    }
    void verify() { script_.verify(); }

    /// Answers whatever is asked, when it is set: for walks whose questions nobody knows before.
    std::function<platform::Answer(const std::string& text)> anyway;

    platform::Answer show(const std::string& text, const std::string& title, platform::Icon icon,
                          platform::Buttons buttons) override {
        if (anyway) {
            return anyway(text);
        }
        using enum platform::Answer;
        static constexpr platform::Answer kClosed[] = {ok, cancel, no, cancel, cancel, no, cancel};
        return script_.answer({text, title, icon, buttons}, kClosed[static_cast<std::size_t>(buttons)]);
    }

  private:
    struct Question {
        std::string text, title;
        platform::Icon icon;
        platform::Buttons buttons;

        // An expected text of "*" stands for any, where a driver has the words.
        bool operator==(const Question& asked) const {
            return (text == "*" || text == asked.text) && title == asked.title && icon == asked.icon &&
                   buttons == asked.buttons;
        }
        std::string words() const {
            return "\"" + text + "\", title \"" + title + "\", icon " + std::to_string(static_cast<int>(icon)) +
                   ", buttons " + std::to_string(static_cast<int>(buttons));
        }
    };
    Script<Question, platform::Answer> script_;
};

class ScriptedInputBox : public platform::InputBox {
  public:
    explicit ScriptedInputBox(Fail fail = failGoogleTest) : script_("input box", std::move(fail)) {}

    void expect(std::string prompt, std::string title, std::string proposal, std::string answer) {
        script_.expect({std::move(prompt), std::move(title), std::move(proposal)}, std::move(answer));
    }
    void verify() { script_.verify(); }

    std::string ask(const std::string& prompt, const std::string& title, const std::string& proposal) override {
        return script_.answer({prompt, title, proposal}, "");
    }

  private:
    struct Question {
        std::string prompt, title, proposal;

        bool operator==(const Question&) const = default;
        std::string words() const {
            return "\"" + prompt + "\", title \"" + title + "\", proposal \"" + proposal + "\"";
        }
    };
    Script<Question, std::string> script_;
};

class ScriptedFileDialog : public platform::FileDialog {
  public:
    explicit ScriptedFileDialog(Fail fail = failGoogleTest) : script_("file dialog", std::move(fail)) {}

    void expect(std::string filter, std::string path) { script_.expect({std::move(filter)}, std::move(path)); }
    void verify() { script_.verify(); }

    std::string openFile(const std::string& filter) override { return script_.answer({filter}, ""); }

  private:
    struct Question {
        std::string filter;

        bool operator==(const Question&) const = default;
        std::string words() const { return "filter \"" + filter + "\""; }
    };
    Script<Question, std::string> script_;
};

class MemorySettings : public platform::SettingsStore {
  public:
    std::map<std::pair<std::string, std::string>, std::string> values;  ///< by section and key

    std::string value(const std::string& section, const std::string& key, const std::string& standard) override {
        const auto found = values.find({section, key});
        return found == values.end() ? standard : found->second;
    }
    void setValue(const std::string& section, const std::string& key, const std::string& value) override {
        values[{section, key}] = value;
    }
};

/// Takes everything and keeps what a test may ask about.
class QuietProgress : public platform::Progress {
  public:
    int pointerShape = 1;
    std::vector<std::string> statuses;

    void pointer(int shape) override { pointerShape = shape; }
    void status(const std::string& text) override { statuses.push_back(text); }
    void step(std::size_t, std::size_t) override {}
};

/// What a canvas needs, for one test: strict messages and the standard settings.
struct CanvasPorts {
    ScriptedMessageBox messages;
    canvas::CanvasSettings settings;

    canvas::CanvasServices services() { return {messages, settings}; }
};

/// A test fixture with the ports of a canvas.
class CanvasTest : public ::testing::Test {
  protected:
    CanvasPorts ports;
};

}  // namespace orvent::testkit
