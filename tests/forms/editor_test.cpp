#include <gtest/gtest.h>

#include "forms/name_check.h"
#include "testkit/note.h"
#include "testkit/scripted_ports.h"

namespace orvent::forms {
namespace {

using platform::Answer;
using testkit::Note;

TEST(Editor, OkAppliesOnlyWhatIsUnsavedAndStaysWhenRefused) {
    testkit::ScriptedMessageBox messages;
    Note note(messages);
    EXPECT_TRUE(note.OK());
    EXPECT_EQ(note.applied, 0);

    note.applies = false;
    EXPECT_FALSE(note.Apply()) << "refused, although nothing was unsaved";
    note.Saved = false;
    EXPECT_FALSE(note.OK());
    EXPECT_FALSE(note.Saved);
    note.applies = true;
    EXPECT_TRUE(note.OK());
    EXPECT_TRUE(note.Saved);

    note.complete = false;
    EXPECT_FALSE(note.OK());
}

TEST(Editor, TheClosingQuestionIsAskedOnlyOfUnsavedChanges) {
    struct Row {
        ClosingQuestion::Yes yes;
        Answer answer;
        bool applies;
        bool closes;
        int applied;
    };
    using Yes = ClosingQuestion::Yes;
    const Row rows[] = {
        {Yes::appliesAndCloses, Answer::yes, true, true, 1}, {Yes::appliesAndCloses, Answer::yes, false, false, 0},
        {Yes::appliesAndCloses, Answer::no, true, true, 0},  {Yes::appliesAndCloses, Answer::cancel, true, false, 0},
        {Yes::dropsAndCloses, Answer::yes, true, true, 0},   {Yes::dropsAndCloses, Answer::no, true, false, 0},
    };
    for (const Row& row : rows) {
        testkit::ScriptedMessageBox messages;
        Note note(messages);
        note.question = ClosingQuestion{.text = "Save?", .title = "Note", .yes = row.yes};
        note.applies = row.applies;
        EXPECT_TRUE(note.mayClose());
        note.Saved = false;
        messages.expect("Save?", "Note", platform::Icon::question, platform::Buttons::yesNoCancel, row.answer);
        EXPECT_EQ(note.mayClose(), row.closes);
        EXPECT_EQ(note.applied, row.applied);
        note.end();
        note.end();
        EXPECT_EQ(note.ended, 1);
    }
}

TEST(NameCheck, TellsTheFirstFaultInTheDialogsOrder) {
    constexpr NameRule rules[] = {{NameFault::empty, "EMPTY", platform::Icon::critical},
                                  {NameFault::numeric, "NUMERIC"},
                                  {NameFault::dot, "DOT"}};
    struct Row {
        const char* name;
        const char* words;
    };
    const Row rows[] = {{"", "EMPTY"},  {"  ", "EMPTY"},  {"12", "NUMERIC"}, {"-1.5", "NUMERIC"}, {" 7 ", "NUMERIC"},
                        {"a.b", "DOT"}, {"1.2.3", "DOT"}, {"12a", nullptr},  {"1e5", nullptr},    {"Straße", nullptr}};
    for (const Row& row : rows) {
        testkit::ScriptedMessageBox messages;
        if (row.words) {
            const bool critical = std::string_view(row.words) == "EMPTY";
            messages.expect(row.words, "", critical ? platform::Icon::critical : platform::Icon::warning,
                            platform::Buttons::ok, Answer::ok);
        }
        EXPECT_EQ(checkName(row.name, rules, messages), row.words == nullptr) << row.name;
    }
}

}  // namespace
}  // namespace orvent::forms
