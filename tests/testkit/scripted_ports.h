#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "canvas/canvas.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/save_dialog.h"
#include "platform/settings_store.h"

namespace orvent::testkit {

/// How a double reports a fault. The standard one is GoogleTest's; a program of another framework gives its own.
using Fail = std::function<void(const std::string&)>;

inline void failGoogleTest(const std::string& words) {
    ADD_FAILURE() << words;
}

/// Answers in the order of the script. A question beside the script is a failure, and so is a step that is left over
/// when the script is verified or ends. In an expected question "*" stands for any text, where a driver has the words.
template <class Reply>
class Script {
  public:
    Script(std::string port, Fail fail) : port_(std::move(port)), fail_(std::move(fail)) {}
    ~Script() { verify(); }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    void expect(std::string question, Reply reply) { steps_.emplace_back(std::move(question), std::move(reply)); }

    Reply answer(const std::string& asked, Reply otherwise) {
        if (steps_.empty()) {
            fail_(port_ + ": unexpected " + asked);
            return otherwise;
        }
        const auto [question, reply] = std::move(steps_.front());
        steps_.pop_front();
        if (question.starts_with("\"*\"") ? asked.ends_with(question.substr(2)) : asked == question) {
            return reply;
        }
        fail_(port_ + ": expected " + question + "\n but got " + asked);
        return otherwise;
    }

    bool isAwaited() const { return !steps_.empty(); }

    /// Fails for every step that was not used, and forgets them.
    void verify() {
        for (const auto& [question, reply] : std::exchange(steps_, {})) {
            fail_(port_ + ": never asked " + question);
        }
    }

  private:
    std::string port_;
    Fail fail_;
    std::deque<std::pair<std::string, Reply>> steps_;
};

class ScriptedMessageBox : public platform::MessageBox {
  public:
    explicit ScriptedMessageBox(Fail fail = failGoogleTest) : script_("message box", std::move(fail)) {}

    void expect(const std::string& text, const std::string& title = "", platform::Icon icon = platform::Icon::none,
                platform::Buttons buttons = platform::Buttons::ok, platform::Answer answer = platform::Answer::ok) {
        script_.expect(words(text, title, icon, buttons), answer);
    }
    void verify() { script_.verify(); }
    bool isAwaited() const { return script_.isAwaited(); }  ///< a box of the script has not been shown yet

    /// Answers whatever is asked, when it is set: for walks whose questions nobody knows before.
    std::function<platform::Answer(const std::string& text)> anyway;

    std::string smaller;  ///< below the text of the last box, if it has that

    platform::Answer showWith(const std::string& below, const std::string& text, const std::string& title,
                              platform::Icon icon, platform::Buttons buttons) override {
        smaller = below;
        return show(text, title, icon, buttons);
    }
    platform::Answer show(const std::string& text, const std::string& title, platform::Icon icon,
                          platform::Buttons buttons) override {
        if (anyway) {
            return anyway(text);
        }
        using enum platform::Answer;
        static constexpr platform::Answer kClosed[] = {ok, cancel, no, cancel, cancel, no, cancel, cancel};
        return script_.answer(words(text, title, icon, buttons), kClosed[static_cast<std::size_t>(buttons)]);
    }

  private:
    static std::string words(const std::string& text, const std::string& title, platform::Icon icon,
                             platform::Buttons buttons) {
        return "\"" + text + "\", title \"" + title + "\", icon " + std::to_string(static_cast<int>(icon)) +
               ", buttons " + std::to_string(static_cast<int>(buttons));
    }
    Script<platform::Answer> script_;
};

class ScriptedInputBox : public platform::InputBox {
  public:
    explicit ScriptedInputBox(Fail fail = failGoogleTest) : script_("input box", std::move(fail)) {}

    void expect(const std::string& prompt, const std::string& title, const std::string& proposal, std::string answer) {
        script_.expect(words(prompt, title, proposal), std::move(answer));
    }
    void verify() { script_.verify(); }
    std::string ask(const std::string& prompt, const std::string& title, const std::string& proposal) override {
        return script_.answer(words(prompt, title, proposal), "");
    }

  private:
    static std::string words(const std::string& prompt, const std::string& title, const std::string& proposal) {
        return "\"" + prompt + "\", title \"" + title + "\", proposal \"" + proposal + "\"";
    }
    Script<std::string> script_;
};

class ScriptedFileDialog : public platform::FileDialog {
  public:
    void expect(const std::string& filter, std::string path) { script_.expect(filter, std::move(path)); }
    std::string openFile(const std::string& filter) override { return script_.answer(filter, ""); }

  private:
    Script<std::string> script_{"file dialog", failGoogleTest};
};

/// A clipboard of this run alone.
class OwnClipboard : public platform::Clipboard {
  public:
    std::string content, mime;

    void put(const std::string& text, const std::string& type) override {
        content = text;
        mime = type;
    }
    std::string text(const std::string&) const override { return content; }
};

/// Chooses the file of `path`, or none, and keeps what it was asked.
class ChosenFile : public platform::SaveDialog {
  public:
    std::string path;
    std::string asked;  ///< title, filter and folder, with "?" where an older file is asked about

    std::string saveFile(const std::string& title, const std::string& filter, const std::string& folder,
                         platform::OldFile oldFile) override {
        asked = title + "|" + filter + "|" + folder + (oldFile == platform::OldFile::askedAbout ? "?" : "");
        return path;
    }
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
    platform::PointerShape pointerShape = platform::PointerShape::ordinary;
    std::vector<std::string> statuses;
    std::function<void()> openStatus;  ///< the list of the last one

    void pointer(platform::PointerShape shape) override { pointerShape = shape; }
    void status(const std::string& text) override { statusWith(text, {}); }
    void statusWith(const std::string& text, const std::function<void()>& open) override {
        statuses.push_back(text);
        openStatus = open;
    }
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
