// A program that is killed at any moment: what was done until the last command is brought back, saves and loads.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <thread>

#include "history/kept_state.h"
#include "shell/scenario_walk.h"

using namespace orvent;
using platform::Answer;
using shell::Command;

namespace {

/// The walk of a program that is going to be killed. It tells by a pipe what a command has made before the program is
/// idle, and when it has been.
class DoomedWalk : public testkit::ScenarioWalk {
  public:
    DoomedWalk(testkit::TestRepository& itsRepository, unsigned seed, int pipe)
        : ScenarioWalk(itsRepository, seed), pipe_(pipe) {
        stage.host.atCommands = [this] { tell('S' + testkit::modelText(*form)); };
    }

    void idle() override {
        if (!form->Enabled() && stage.desk.active() == form) {
            return ScenarioWalk::idle();  // a dialog has a part of it
        }
        tell('P' + testkit::modelText(*form));
        if (goIdle()) {
            tell("D");
        }
    }

    [[noreturn]] void run() {
        for (;;) {
            act();
            idle();
            if (::testing::Test::HasFailure()) {
                tell('F' + log_.str());
                ::_exit(EXIT_FAILURE);
            }
        }
    }

  private:
    void tell(std::string words) const {
        words += '\0';
        for (std::string_view rest = words; !rest.empty();) {
            const ssize_t written = ::write(pipe_, rest.data(), rest.size());
            if (written < 0) {
                ::_exit(EXIT_FAILURE);
            }
            rest.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    int pipe_;
};

/// What the killed program has told.
struct Told {
    std::string before;           ///< the scenario as a command had left it for sure
    std::string perhaps;          ///< as one had made it that may have ended
    std::set<std::string> steps;  ///< as the steps of it had made it
};

/// `begun` runs when the first command has ended.
Told readAll(int pipe, std::function<void()> begun) {
    std::string all;
    char part[1 << 16];
    for (ssize_t got = 0; (got = ::read(pipe, part, sizeof part)) > 0;) {
        all.append(part, static_cast<std::size_t>(got));
        if (begun && all.find(std::string("\0D\0", 3)) != std::string::npos) {
            std::exchange(begun, nullptr)();
        }
    }
    Told told;
    for (std::size_t at = 0, end = 0; (end = all.find('\0', at)) != std::string::npos; at = end + 1) {
        const std::string words = all.substr(at, end - at);
        EXPECT_NE(words.front(), 'F') << words;
        if (words.front() == 'S') {
            told.steps.insert(words.substr(1));
        } else if (words.front() == 'P') {
            told.steps.insert(std::exchange(told.perhaps, words.substr(1)));
        } else {
            told.before = told.perhaps;
            told.steps.clear();
        }
    }
    return told;
}

class Recovery : public ::testing::Test {
  protected:
    Told killOne(const std::filesystem::path& folder, unsigned seed, std::chrono::milliseconds after) {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            ::close(ends[0]);
            testkit::TestRepository repository(folder);
            DoomedWalk(repository, seed, ends[1]).run();
        }
        ::close(ends[1]);
        std::thread killer;
        Told told = readAll(ends[0], [&killer, child, after] {
            killer = std::thread([child, after] {
                std::this_thread::sleep_for(after);
                ::kill(child, SIGKILL);
            });
        });
        if (killer.joinable()) {
            killer.join();
        }
        ::close(ends[0]);
        ::waitpid(child, nullptr, 0);
        return told;
    }

    /// Starts the program again and brings back what was left.
    void check(const std::filesystem::path& folder, const Told& told) {
        testkit::TestRepository repository(folder);
        repository.messages.anyway = [](const std::string&) { return Answer::ok; };
        testkit::TestFrame stage(repository);
        stage.host.atRecovery = [&](shell::RecoveryForm& dialog) {
            EXPECT_EQ(dialog.words(), "ORVENT II did not end properly. 1 scenario can be brought back.");
            dialog.cmdBringBack_Click({0});
            EXPECT_TRUE(dialog.rows().empty());
        };
        ASSERT_TRUE(stage.frame.start());
        if (!stage.desk.active()) {
            ++nothingUnsaved_;
            return checkStored(stage, repository, told);
        }
        canvas::DrawForm& form = stage.active();
        const std::string back = testkit::modelText(form);
        EXPECT_TRUE(back == told.before || back == told.perhaps || told.steps.contains(back))
            << back << "\nis neither\n"
            << told.before << "\nnor\n"
            << told.perhaps;
        EXPECT_TRUE(form.stored.changed);
        if (!form.unstorable().empty()) {
            return;
        }
        form.ScenarioID == 0 ? stage.saveAs("Recovered") : stage.frame.run(Command::saveScenario);
        EXPECT_FALSE(form.stored.changed);
        stage.load(form.Caption());
        EXPECT_EQ(DoomedWalk::nodesSorted(stage.active()), DoomedWalk::nodesSorted(form));
        repository::Services services = repository.services();
        if (testkit::rowsIn(services, {"Scenarios"}) == 1) {
            EXPECT_EQ(testkit::rowsIn(services, {"ScenarioNodes"}), form.Labels.Count());
        }
        ++broughtBack_;
    }

    /// Nothing was left: it is stored.
    static void checkStored(testkit::TestFrame& stage, testkit::TestRepository& repository, const Told& told) {
        repository::Services services = repository.services();
        repository::StatementCache open = repository::openRepository(services);
        platform::Statement& names = open.run("SELECT Scenario_Name FROM Scenarios");
        bool found = false;
        while (names.fetch()) {
            stage.load(names.text(1));
            const auto stored = DoomedWalk::nodesSorted(stage.active());
            const auto is = [&stored](const std::string& model) { return stored == DoomedWalk::blocksOf(model); };
            found = found || is(told.before) || is(told.perhaps) || std::ranges::any_of(told.steps, is);
        }
        EXPECT_TRUE(found) << "neither stored nor left\n"
                           << told.before << "\nnor\n"
                           << told.perhaps << "\n"
                           << told.steps.size() << " steps";
    }

    int broughtBack_ = 0, nothingUnsaved_ = 0;
};

TEST_F(Recovery, NothingIsLostThatHadEnded) {
    const char* wanted = std::getenv("ORVENT_KILLS");
    const int kills = wanted ? std::atoi(wanted) : 12;
    std::mt19937 random(7);
    for (int round = 0; round < kills && !HasFailure(); ++round) {
        const testkit::TemporaryFolder folder;
        const std::chrono::milliseconds after(std::uniform_int_distribution<int>(0, 600)(random));
        SCOPED_TRACE("round " + std::to_string(round) + ", killed after " + std::to_string(after.count()) + " ms");
        const Told told = killOne(folder.path(), static_cast<unsigned>(round), after);
        if (!told.before.empty()) {
            check(folder.path(), told);
        }
    }
    EXPECT_GT(broughtBack_, kills / 3);
    std::printf("%d brought back, %d with nothing unsaved\n", broughtBack_, nothingUnsaved_);
}

/// No file of this process grows beyond some bytes while one lives, as on a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit full{bytes, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit former_{};
    void (*handler_)(int);
};

/// What cannot be kept is told once, leaves nothing half done and hinders nothing; it is kept as soon as that goes.
TEST(RecoveryFolder, IsFullOrNotThere) {
    testkit::TestRepository repository;
    testkit::TestFrame stage(repository);
    const std::filesystem::path folder = repository.file().parent_path() / "states";
    const auto moveOne = [&stage] {
        canvas::moveNodes(stage.active(), {stage.active().Labels.at(1)->Index()}, 300, 0);
        while (stage.frame.idle()) {
        }
    };
    const auto files = [&stage] {
        std::vector<std::string> names = stage.states.list({});
        std::erase_if(names, [](const std::string& name) { return name.ends_with(".lock"); });
        return names.size();
    };
    const auto told = [&repository] {
        return std::ranges::count_if(repository.progress.statuses, [](const std::string& status) {
            return status.starts_with("Unsaved work is not kept for a crash: ");
        });
    };
    std::ofstream(folder) << "a file where the folder belongs";
    ASSERT_TRUE(stage.frame.start());
    stage.frame.run(Command::loadTestGraph);
    moveOne();
    moveOne();
    EXPECT_EQ(told(), 1);
    std::filesystem::remove(folder);
    moveOne();
    EXPECT_EQ(files(), 1U);
    const std::string kept = stage.states.list({}).front();
    moveOne();
    moveOne();  // a whole is shorter now
    {
        const FullDisk full(std::filesystem::file_size(folder / kept) + 10);
        moveOne();
        EXPECT_EQ(files(), 0U) << "half a step";
        moveOne();
        EXPECT_EQ(files(), 1U) << "anew there is room";
        history::readState(stage.states.read(kept));
    }
    {
        const FullDisk full(std::filesystem::file_size(folder / kept) / 2);
        moveOne();
        moveOne();
        EXPECT_EQ(files(), 0U) << "half a file";
    }
    EXPECT_EQ(told(), 1);
    moveOne();
    EXPECT_EQ(files(), 1U);
    EXPECT_EQ(history::readState(stage.states.read(kept)).nodes.size(),
              static_cast<std::size_t>(stage.active().Labels.Count()));
    repository.messages.anyway = [](const std::string&) { return Answer::ok; };
    stage.saveAs("Whole");
    while (stage.frame.idle()) {
    }
    EXPECT_EQ(files(), 0U);
    stage.frame.close(stage.active());
}

/// A step of many nodes waits for the next whole; what was written before is not mixed with what follows.
TEST(RecoveryFolder, HoldsBackWhatIsBehindALargeStep) {
    testkit::TestRepository repository;
    testkit::TestFrame stage(repository);
    ASSERT_TRUE(stage.frame.start());
    stage.frame.run(Command::loadTestGraph);
    canvas::DrawForm& form = stage.active();
    const auto move = [&form] { canvas::moveNodes(form, {form.Labels.at(1)->Index()}, 300, 0); };
    const auto kept = [&stage] {
        for (const std::string& name : stage.states.list({})) {
            if (name.ends_with(".state")) {
                const history::KeptState state = history::readState(stage.states.read(name));
                return std::pair(static_cast<int>(state.nodes.size()), state.nodes.front().box.Left);
            }
        }
        return std::pair(0, 0.0F);
    };
    move();
    while (stage.frame.idle()) {
    }
    const auto before = kept();
    EXPECT_EQ(before, std::pair(form.Labels.Count(), form.Labels.at(1)->Left()));
    for (int node = 0; node < 1200; ++node) {
        form.Labels.Add({0, 3000, 1500, 750}, "Comment" + std::to_string(node), canvas::NodeTypeComment);
    }
    EXPECT_TRUE(stage.frame.idle());
    move();
    EXPECT_TRUE(stage.frame.idle());
    EXPECT_EQ(kept(), before);
    while (stage.frame.idle()) {
    }
    EXPECT_EQ(kept(), std::pair(form.Labels.Count(), form.Labels.at(1)->Left()));
    repository.messages.anyway = [](const std::string&) { return Answer::ok; };
    stage.frame.close(form);
}

/// A save that writes although nothing is unsaved may be killed, too.
TEST(RecoveryFolder, HasTheScenarioWhileItIsSaved) {
    testkit::TestRepository repository;
    testkit::TestFrame stage(repository);
    ASSERT_TRUE(stage.frame.start());
    repository.messages.anyway = [](const std::string&) { return Answer::ok; };
    stage.frame.run(Command::loadTestGraph);
    stage.saveAs("Saved");
    const auto settled = [&stage] {
        while (stage.frame.idle()) {
        }
        return stage.states.list({}).size();  // the lock
    };
    EXPECT_EQ(settled(), 1U);
    canvas::DrawForm& form = stage.active();
    const std::string model = testkit::modelText(form);
    std::string kept;
    const auto look = [&] {
        for (const std::string& name : stage.states.list({})) {
            if (name.ends_with(".state")) {
                kept += history::readState(stage.states.read(name)).name;
            }
        }
    };
    form.nodeNamed("Activity2")->activity()->Changed = true;
    repository.hooked.after(1, look);
    stage.frame.run(Command::saveScenario);
    EXPECT_EQ(kept, "Saved");
    EXPECT_EQ(settled(), 1U);
    stage.host.atScenarios = [&look](repository::ViewScenarios&) { look(); };  // and is left again
    stage.frame.run(Command::saveScenarioAs);
    EXPECT_EQ(kept, "SavedSaved");
    EXPECT_EQ(settled(), 1U);
    EXPECT_EQ(testkit::modelText(form), model);
    stage.frame.close(form);
}

/// What is told of a file is what can be read of it, wherever it was cut off.
TEST(RecoveryFile, TellsOfItselfWhatIsInIt) {
    testkit::TestRepository repository;
    testkit::TestFrame stage(repository);
    ASSERT_TRUE(stage.frame.start());
    stage.frame.run(Command::loadTestGraph);
    canvas::DrawForm& form = stage.active();
    for (int node = 0; node < 400; ++node) {
        form.Labels.Add({0, 3000, 1500, 750}, "Comment" + std::to_string(node), canvas::NodeTypeComment);
    }
    const history::ScenarioHistory history(form);
    entities::CatalogueTables tables;
    history::StateWriter writer("source", tables);
    writer.begin(form, history.remembered());
    std::string file;
    for (std::string part; !(part = writer.nextPart(history.remembered(), 10000)).empty();) {
        file += part;
    }
    ASSERT_GT(file.size(), 20000U);  // more than is looked at in one go
    file += writer.end(form, history.remembered(), {}, {{1, "First"}});
    for (const char* words : {"Second", "Third"}) {
        form.setScenarioName(words);
        file += writer.step(form, history.remembered(), {}, {2, std::string(words) + std::string(9000, '.')});
    }
    for (std::size_t size = file.size(); size > 0; size = size > 30000 ? size - 499 : size / 2) {
        std::string read, told;
        try {
            const history::KeptState state = history::readState(std::string_view(file).substr(0, size));
            read = state.name + std::to_string(state.told.size()) + state.told.back().words;
        } catch (const history::BadBytes&) {
        }
        try {
            const history::StateSummary summary = history::readSummary(
                [&](std::uint64_t from, std::size_t most) { return file.substr(from, std::min(most, size - from)); },
                size);
            told = summary.name + std::to_string(summary.told.size()) + summary.told.back().words;
        } catch (const history::BadBytes&) {
        }
        ASSERT_EQ(told, read) << size;
    }
}

}  // namespace
