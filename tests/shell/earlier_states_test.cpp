// States that outlive a run: which are kept, and that a copy is what the scenario was.

#include <gtest/gtest.h>

#include "canvas/node_moves.h"
#include "testkit/state_text.h"
#include "testkit/test_frame.h"

using namespace orvent;
using platform::Answer;
using shell::Command;

namespace {

struct Expected {
    std::string words, text;
};

class EarlierStates : public ::testing::Test {
  protected:
    EarlierStates() {
        repository.messages.anyway = [](const std::string&) { return Answer::ok; };
    }

    static void idle(testkit::TestFrame& stage) {
        while (stage.frame.idle()) {
        }
    }

    static void steps(testkit::TestFrame& stage, std::size_t count) {
        for (; count > 0; --count) {
            canvas::moveNodes(stage.active(), {stage.active().Labels.at(1)->Index()}, 10, 0);
            stage.frame.idle();  // for a moment: not all of a state is written
        }
    }

    /// All states of the scenario in front are the expected ones, also their copies.
    static void check(testkit::TestFrame& stage, const std::vector<Expected>& expected) {
        idle(stage);
        std::vector<std::string> copies;
        stage.host.atEarlier = [&](shell::EarlierForm& dialog) {
            ASSERT_EQ(dialog.rows().size(), expected.size());
            for (std::size_t row = 0; row < expected.size(); ++row) {
                EXPECT_EQ(dialog.rows()[row].words, expected[expected.size() - 1 - row].words);
            }
            ASSERT_TRUE(dialog.pictureOf(0));
            EXPECT_EQ(dialog.pictureOf(0)->Labels.Count(), dialog.pictureOf(1)->Labels.Count());
        };
        stage.frame.run(Command::earlierStates);
        for (std::size_t row = 0; row < expected.size(); ++row) {
            canvas::DrawForm& original = stage.active();
            const std::string before = testkit::stateText(original);
            stage.host.atEarlier = [row](shell::EarlierForm& dialog) { EXPECT_TRUE(dialog.cmdOpen_Click(row)); };
            stage.frame.run(Command::earlierStates);
            canvas::DrawForm& copy = stage.active();
            ASSERT_NE(&copy, &original);
            EXPECT_TRUE(testkit::stateText(copy) == expected[expected.size() - 1 - row].text)
                << row << " is " << testkit::stateText(copy).substr(0, 30) << ", not "
                << expected[expected.size() - 1 - row].text.substr(0, 30);
            EXPECT_EQ(copy.ScenarioID, 0);
            EXPECT_TRUE(copy.Caption().starts_with(original.Caption() + " 2")) << copy.Caption();
            EXPECT_EQ(testkit::stateText(original), before);
            stage.frame.close(copy);
            idle(stage);
        }
    }

    testkit::TestRepository repository;
};

TEST_F(EarlierStates, AreThoseOfOpeningSavingAndTwentySteps) {
    std::vector<Expected> expected;
    {
        testkit::TestFrame stage(repository);
        ASSERT_TRUE(stage.frame.start());
        stage.frame.run(Command::loadTestGraph);
        const auto expect = [&](const std::string& words) {
            expected.push_back({words, testkit::stateText(stage.active())});
        };
        expect("Opened");
        steps(stage, 20);
        expect("Moved " + stage.active().Labels.at(1)->Caption());
        steps(stage, 19);
        stage.saveAs("Kept");
        expect("Saved");
        steps(stage, 1);
        expect("Moved " + stage.active().Labels.at(1)->Caption());
        steps(stage, 1);
        check(stage, expected);
        stage.frame.close(stage.active());
    }
    testkit::TestFrame stage(repository);
    ASSERT_TRUE(stage.frame.start());
    stage.host.atEarlier = [&](shell::EarlierForm& dialog) {
        EXPECT_EQ(dialog.scenarios().front(), "Kept");  // its copies stand behind
        ASSERT_EQ(dialog.rows().size(), expected.size());
        dialog.cmdRemove_Click({1});
        EXPECT_EQ(dialog.rows().size(), expected.size() - 1);
    };
    stage.frame.run(Command::earlierStates);
    stage.load("Kept");
    expected.erase(expected.end() - 2);
    expected.push_back({"Opened", testkit::stateText(stage.active())});
    check(stage, expected);
    steps(stage, 20 * shell::EarlierStates::kMost);
    const std::string newest = testkit::stateText(stage.active());
    idle(stage);
    stage.host.atEarlier = [&](shell::EarlierForm& dialog) {
        EXPECT_EQ(dialog.rows().size(), shell::EarlierStates::kMost);
        EXPECT_TRUE(dialog.cmdOpen_Click(0));
    };
    stage.frame.run(Command::earlierStates);
    EXPECT_EQ(testkit::stateText(stage.active()), newest) << "not the oldest went";
}

}  // namespace
