// Random walks with steps back and forward between them: wherever the history leads, the scenario is what it was there,
// to the last link and its order. The list of problems goes along.

#include <gtest/gtest.h>

#include <cstdlib>

#include "repository/stored_content.h"
#include "shell/scenario_walk.h"
#include "testkit/zoom_faults.h"

using namespace orvent;
using platform::Answer;
using shell::Command;

namespace {

struct OwnRepository {
    testkit::TestRepository own_;
};

class HistoryWalk : public ::testing::TestWithParam<unsigned>, private OwnRepository, public testkit::ScenarioWalk {
  protected:
    HistoryWalk() : ScenarioWalk(own_, GetParam()) {
        states_.push_back({testkit::stateText(*form), selected(), selected(), false});
        frame.run(Command::findText);
        frame.run(Command::viewOutline);
        frame.frontChanged();
    }

    void idle() override {
        ScenarioWalk::idle();
        if (history().position() == position_) {
            selected_ = selected();
        }
        if (std::exchange(times_, form->stored.times) != form->stored.times && form->unstorable().empty()) {
            savedText_ = testkit::stateText(*form);
        }
    }
    void ended() override { mayHaveStepped(); }

    const history::ScenarioHistory& history() { return *frame.histories().of(*form); }

    /// Without readiness, which alone is no step.
    static std::string unready(std::string text) {
        for (std::size_t at = 0; (at = text.find(" ready", at)) != std::string::npos;) {
            text.erase(at, 7);
        }
        return text;
    }

    /// A change is a step, and what is no change is none.
    void mayHaveStepped() {
        const std::string now = testkit::stateText(*form);
        const std::size_t position = history().position();
        if (position == position_) {
            EXPECT_EQ(unready(now), unready(states_[position_].text)) << "a change that is no step";
            for (std::size_t at = position_; now != states_[position_].text && at < states_.size(); ++at) {
                states_[at].loose = true;  // those that lie ahead do not know of it
            }
            states_[position_].text = now;
            selected_ = selected();
            return;
        }
        EXPECT_GT(position, position_);
        EXPECT_NE(unready(now), unready(states_[position_].text)) << "a step without a change";
        states_[position_].left = selected_;
        states_.resize(position_ + 1);
        states_.resize(position);  // of what a dialog has applied before, the graph is not whole while it is open
        selected_ = selected();
        states_.push_back({now, selected_, selected_, false});
        position_ = position;
        EXPECT_EQ(history().steps().size(), position);
    }

    void travel() {
        const std::size_t to = static_cast<std::size_t>(pick(static_cast<int>(states_.size())));
        say("go to " + std::to_string(to));
        if (pick(3) == 0) {
            frame.run(Command::stepBack);
            EXPECT_EQ(history().position(), position_ == 0 ? 0 : position_ - 1);
        } else {
            frame.goToStep(to);
            EXPECT_EQ(history().position(), to);
        }
        const std::size_t former = std::exchange(position_, history().position());
        State& state = states_[position_];
        if (state.text.empty()) {
            state = {testkit::stateText(*form), selected(), selected(), false};
        }
        const std::string now = testkit::stateText(*form);
        EXPECT_EQ(state.loose ? unready(now) : now, state.loose ? unready(state.text) : state.text);
        if (position_ != former) {
            EXPECT_EQ(selected(), position_ < former ? state.left : state.arrived) << former << " " << position_;
        }
        selected_ = selected();
        EXPECT_EQ(testkit::CanvasFaults::ofScenario(*form), testkit::CanvasFaults::Lines{});
        if (position_ != former && !form->stored.forced) {
            EXPECT_TRUE(form->stored.changed || repository::contentMark(*form) == form->stored.mark);
            EXPECT_TRUE(!form->stored.changed || now != savedText_) << "nothing is unsaved";
        }
        frame.idle();
        EXPECT_EQ(history().position(), position_) << "a way back is no step";
    }

    /// The list of problems that goes along with all changes is the one that a look at the whole scenario gives.
    void expectProblems() {
        frame.noticeChanges(*form);
        const auto whole = shell::problemLines(*form, frame.catalogue().tables, analysis::everyProblem());
        EXPECT_EQ(lines(frame.lists().problems()), lines(whole));
        expectHits();
        expectOutline();
    }
    /// All rows of an outline.
    static void addRows(std::vector<std::string>& lines, const analysis::Outline& outline,
                        const std::vector<std::unique_ptr<analysis::Outline::Row>>& rows) {
        for (const auto& row : rows) {
            const analysis::Outline::Words words = outline.wordsOf(*row);
            lines.push_back(words.what + ": " + words.name + ": " + words.type);
            addRows(lines, outline, outline.rowsOf(*row));
        }
    }
    void expectOutline() {
        std::vector<std::string> known, now;
        const analysis::Outline& kept = *frame.lists().outline().outline();
        const analysis::Outline whole(*form, frame.catalogue().tables);
        addRows(known, kept, kept.roots());
        addRows(now, whole, whole.roots());
        EXPECT_EQ(known, now);
    }
    /// The hits of a search that goes along are those of a new one.
    void expectHits() {
        shell::FindForm& find = frame.lists().find();
        while (frame.lists().idle()) {
        }
        std::vector<std::string> known;
        for (int row = 1; row <= find.Count(); ++row) {
            known.push_back(find.row(row).place + find.row(row).what + find.row(row).text);
        }
        find.show(false);
        find.show(true);
        while (frame.lists().idle()) {
        }
        std::vector<std::string> now;
        for (int row = 1; row <= find.Count(); ++row) {
            now.push_back(find.row(row).place + find.row(row).what + find.row(row).text);
        }
        EXPECT_EQ(known, now) << find.txtFind();
        const char* texts[] = {"a", "is:free", "type:a", "out", "is:unfinished", "kind:i 1"};
        find.txtFind_Change(texts[pick(6)]);
    }
    static std::vector<std::string> lines(const std::vector<shell::ProblemLine>& problems) {
        std::vector<std::string> lines;
        for (const shell::ProblemLine& row : problems) {
            lines.push_back(analysis::wordsOf(row.kind).word + (": " + row.place + ": " + row.words));
        }
        return lines;
    }

    /// The scenario, and what was selected when a step had led there and when the next one began.
    struct State {
        std::string text, arrived, left;
        bool loose = false;  ///< readiness has changed there by itself
    };
    std::vector<State> states_;  ///< one for each position in the history
    std::size_t position_ = 0;
    std::uint32_t times_ = 0;
    std::string selected_;   ///< as the frame was idle last
    std::string savedText_;  ///< as it was saved last
};

TEST_P(HistoryWalk, EachStepIsWhatItWas) {
    for (int round = 0; round < 60 && !HasFailure(); ++round) {
        act();
        idle();
        mayHaveStepped();
        expectProblems();
        if (pick(3) == 0) {
            travel();
            expectProblems();
        }
    }
    EXPECT_FALSE(HasFailure()) << "seed " << GetParam() << "\n" << log_.str();
    saveAndLoad();
    repository.messages.anyway = [](const std::string&) { return Answer::ok; };
    while (!stage.desk.windows.empty()) {
        frame.close(*stage.desk.windows.back());
    }
}

unsigned walks() {
    const char* wanted = std::getenv("ORVENT_WALKS");
    return wanted ? static_cast<unsigned>(std::atoi(wanted)) : 12;
}

INSTANTIATE_TEST_SUITE_P(Seeds, HistoryWalk, ::testing::Range(0U, walks()));

}  // namespace
