#pragma once

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>
#include <sstream>
#include <string>

#include "canvas/node_moves.h"
#include "shell/readings.h"
#include "testkit/model_text.h"
#include "testkit/state_text.h"
#include "testkit/test_frame.h"
#include "zoom/zoom_form.h"

namespace orvent::testkit {

using platform::Answer;
using shell::Command;

/// Random use of a scenario in a frame without windows: gestures, dialogs, zooms with Apply, commands and saves.
/// Whoever derives hears of each moment at which the program is idle.
class ScenarioWalk {
  public:
    ScenarioWalk(TestRepository& repositoryOfAll, unsigned seed) : repository(repositoryOfAll), random_(seed) {
        EXPECT_TRUE(stage.frame.start());
        frame.run(Command::loadTestGraph);
        form = &stage.active();
        stage.host.atActivity = [this](editors::SetActProp& dialog) { editActivity(dialog); };
        stage.host.atRecordSet = [this](editors::RecordSetProp& dialog) { editRecordSet(dialog); };
        stage.host.atEdgeChanges = [](auto&) {};
        stage.host.atConnect = [this](editors::ConnectByName& dialog) { connect(dialog); };
        stage.host.atSelection = [this](editors::SelectionProp& dialog) {
            dialog.Type = pick(static_cast<int>(dialog.Types.size()));
            dialog.txtWidth = pick(2) == 0 ? "" : std::to_string(20 + 3 * pick(40));
            say("  " + dialog.Types[static_cast<std::size_t>(dialog.Type)] + " " + dialog.txtWidth);
            pick(4) > 0 ? dialog.OK() : dialog.mayClose();
        };
        stage.host.atTakeOver = [this](editors::TakeOverForm& dialog) {
            dialog.Source_Click(pick(static_cast<int>(dialog.Sources.size())));
            dialog.Pasted_Change(freshName() + " varchar2\n" + freshName() + " date,");
            pick(4) > 0 && dialog.mayTake() ? dialog.OK() : dialog.mayClose();
        };
        repository.messages.anyway = [this](const std::string& text) {
            say("  told: " + text);
            return text.find("DO YOU WANT TO APPLY") != std::string::npos ? zoomAnswer_ : Answer::ok;
        };
    }
    virtual ~ScenarioWalk() = default;
    ScenarioWalk(const ScenarioWalk&) = delete;
    ScenarioWalk& operator=(const ScenarioWalk&) = delete;

    /// The program is idle.
    virtual void idle() { goIdle(); }
    /// The same for long, or for a moment. Whether it has written all that it has to.
    bool goIdle() {
        int times = pick(4) == 0 ? 1 : std::numeric_limits<int>::max();
        while (frame.idle()) {
            if (--times == 0) {
                return false;
            }
        }
        return true;
    }
    /// A command of several that one action takes has ended.
    virtual void ended() {}

    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    std::string freshName() { return "N" + std::to_string(++names_); }
    void say(const std::string& words) { log_ << words << '\n'; }
    canvas::LabelsD& anyNode() { return *form->Labels.at(1 + pick(form->Labels.Count())); }
    canvas::LabelsD* anyActivity() {
        for (int tries = 0; tries < 20; ++tries) {
            if (canvas::LabelsD& node = anyNode(); node.activity() && node.activity()->Act_Type != -1) {
                return &node;
            }
        }
        return nullptr;
    }

    void select(int most) {
        form->SelectedLines.Clear();
        form->SelectedLabels.Clear();
        for (int at = 1 + pick(most); at > 0; --at) {
            form->SelectedLabels.Add(anyNode().Index());
        }
        idle();
    }
    std::string selected() {
        std::string names;
        for (const canvas::NodeNumber node : form->SelectedLabels.members()) {
            names += canvas::textOf(node) + " ";
        }
        return names;
    }

    void editActivity(editors::SetActProp& dialog) {
        for (int round = pick(3); round >= 0; --round) {
            if (pick(2) == 0) {
                dialog.txtName_Change(freshName());
                dialog.txtName_Leave();
            }
            if (pick(2) == 0) {
                dialog.txtDescr_Change(freshName());
            }
            dialog.TabStrip1_Click(pick(3));
            if (const canvas::LabelsD& other = anyNode();
                pick(2) == 0 && other.recordSet() && other.recordSet()->RecordSet_Outputs.count() > 0) {
                const entities::AttributeProperties& column = *other.recordSet()->RecordSet_Outputs.peek()->Item(1);
                say("  drops " + other.Caption() + "." + column.Key);
                dialog.Drop({"DB." + other.Caption() + "." + column.Key}, 0);
            }
            if (const int rows = dialog.frontList().Count(); rows > 0) {
                dialog.frontList().select(1 + pick(rows));
                pick(3) == 0 ? dialog.Move2Tree_Click() : dialog.MoveRows({1 + pick(rows)}, pick(rows + 1));
            }
            idle();  // the windows go on while it is open
            if (round > 0) {
                say("  apply");
                dialog.Apply();
            }
        }
        const bool ok = pick(4) > 0;
        say(ok ? "  ok" : "  cancel");
        ok ? dialog.OK() : dialog.mayClose();
        dialog.end();
    }

    void connect(editors::ConnectByName& dialog) {
        for (std::size_t row = 0; row < dialog.Rows.size(); ++row) {
            dialog.Row_Check(row, pick(4) > 0);
            say("  " + dialog.Rows[row].from + " and " + dialog.Rows[row].to);
        }
        pick(4) > 0 && dialog.mayConnect() ? dialog.OK() : dialog.mayClose();
    }

    void editRecordSet(editors::RecordSetProp& dialog) {
        if (pick(3) == 0) {
            dialog.txtColumnName = freshName();
            dialog.ColumnType = pick(static_cast<int>(dialog.ColumnTypes.size()));
            dialog.AddColumn_Click();
        } else if (pick(3) == 0) {
            dialog.TakeOver_Click();
        }
        if (pick(2) == 0) {
            dialog.txtRecordSetName_Change(freshName());
        }
        if (const int rows = dialog.AttList.Count(); rows > 1) {
            const int row = 1 + pick(rows);
            if (pick(2) == 0 && (dialog.AttList.select(row), dialog.ListItemEditM())) {
                dialog.AfterLabelEdit(row, freshName());
            } else if (pick(2) == 0) {
                dialog.MoveRows({row}, pick(rows + 1));
            } else {
                dialog.AttList.select(row);
                dialog.Move2Tree_Click();
            }
        }
        pick(4) > 0 ? dialog.OK() : dialog.mayClose();
        dialog.end();
    }

    /// Of a node that is in the outline, if that is shown.
    void renameMember(const canvas::LabelsD& node) {
        shell::OutlineForm& list = frame.lists().outline();
        analysis::Outline* outline = list.outline();
        const auto* root = outline ? outline->rootOf(node.Index()) : nullptr;
        const auto* rows = root ? &outline->rowsOf(*outline->rootOf(node.Index())) : nullptr;
        if (rows && !rows->empty()) {
            auto& row = *(*rows)[static_cast<std::size_t>(pick(static_cast<int>(rows->size())))];
            const std::string name = pick(3) > 0 ? freshName() : outline->wordsOf(*rows->front()).name;
            say("  " + node.Caption() + ": " + outline->wordsOf(row).name + " becomes " + name);
            list.rename(row, name);
        }
    }

    /// False where the node has no name that is edited there.
    bool renameInPlace(canvas::CanvasForm& canvas, canvas::LabelsD& node) {
        canvas::CanvasWindows& windows = frame.pointerPorts().windows;
        const bool named = windows.nameInPlace(canvas, node).has_value();
        if (named) {
            const std::string name = pick(5) > 0 ? freshName() : anyNode().Caption();
            say("  " + node.KeyName() + " becomes " + name);
            windows.rename(canvas, node, name);
        }
        return named;
    }

    void zoomSession() {
        canvas::LabelsD* activity = anyActivity();
        if (!activity) {
            return;
        }
        form->SelectedLabels.Clear();
        form->SelectedLabels.Add(activity->Index());
        idle();
        frame.run(Command::activityZoom);
        auto* view = dynamic_cast<zoom::ZoomForm*>(stage.desk.active());
        ASSERT_TRUE(view);
        for (int edits = 1 + pick(4); edits > 0; --edits) {
            for (canvas::LabelsD& node : view->Labels) {
                if (pick(4) == 0 && renameInPlace(*view, node)) {
                    break;
                }
            }
            if (pick(3) == 0) {
                view->SelectedLabels.Clear();
                view->SelectedLabels.Add(view->Labels.at(1 + pick(view->Labels.Count()))->Index());
                if (pick(2) == 0) {
                    frame.run(Command::typeAndSize);
                    continue;
                }
                canvas::DeleteSelectedNodes(*view, canvas::kEveryNodeType, frame.pointerPorts().links, view->rules());
            }
            idle();
        }
        zoomAnswer_ = pick(3) == 0 ? Answer::no : Answer::yes;
        say(zoomAnswer_ == Answer::yes ? "  applied" : "  dropped");
        frame.close(*view);
    }

    void save() {
        if (form->ScenarioID == 0) {
            stage.saveAs("Walk" + freshName());
        } else {
            frame.run(Command::saveScenario);
        }
    }

    /// The model, whatever the order of nodes: one that comes back after its row was deleted gets a row behind the
    /// others.
    static std::multiset<std::string> nodesSorted(canvas::Canvas& canvas) { return blocksOf(modelText(canvas)); }
    static std::multiset<std::string> blocksOf(const std::string& model) {
        std::multiset<std::string> blocks;
        std::istringstream text(model);
        std::string block;
        for (std::string line; std::getline(text, line);) {
            if (!line.starts_with(" ")) {
                blocks.insert(std::exchange(block, ""));
            }
            block += line + "\n";
        }
        blocks.insert(block);
        return blocks;
    }

    /// What was saved is what comes back.
    void saveAndLoad() {
        save();
        if (!form->unstorable().empty()) {
            return;
        }
        EXPECT_FALSE(form->stored.changed);
        canvas::DrawForm* own = form;
        stage.load(own->Caption());
        EXPECT_NE(&stage.active(), own);
        EXPECT_EQ(nodesSorted(stage.active()), nodesSorted(*own));
        frame.close(stage.active());
        EXPECT_EQ(&stage.active(), own);
    }

    void takeOffer() {
        if (const auto offer = form->offer()) {
            idle();
            say("  " + offer->words);
            form->answerOffer(pick(4) > 0);
        }
    }

    void draw() {
        const canvas::LabelsD& from = anyNode();
        canvas::LabelsD& to = anyNode();
        if (&from != &to && form->rules().mayRelate(*form, canvas::EdgeTypeProvider, from, to)) {
            if (canvas::LinesD* edge = form->Lines.addFullLine(from.Index(), 3, to.Index(), 1, canvas::EdgeTypeProvider,
                                                               static_cast<canvas::AngleCode>(pick(4)), 0)) {
                form->rules().edgeCompleted(*form, *edge);
                form->edgeDrawn(*edge);
                takeOffer();
            }
        }
    }

    /// A node of the list of types is dropped on the picture, or on an edge.
    void placeType() {
        const entities::NameTable& types = frame.catalogue().tables.activityTypes;
        const char* plain[] = {"RecordSet", "Comment", "Log"};
        const std::string key =
            pick(4) == 0 ? plain[pick(3)]
                         : "Activity:" + types.name(static_cast<std::int16_t>(pick(static_cast<int>(types.size()))));
        canvas::Hit hit;
        std::string from, to;
        if (const int edges = form->Lines.Count(); edges > 0 && pick(3) > 0) {
            const canvas::LinesD& edge = *form->Lines.at(1 + pick(edges));
            hit = canvas::Hit::onLine(edge.Index());
            from = form->Labels.byIndex(edge.FromLabel())->KeyName();
            to = form->Labels.byIndex(edge.ToLabel())->KeyName();
        }
        const std::vector<std::string> read = readings(*form, to, from);
        const bool stands = !from.empty() && key.starts_with("Activity:") &&
                            frame.pointerPorts().windows.whyNotPlaced(*form, key, hit).empty() &&
                            form->Lines.byIndex(hit.edge)->EdgeType() == canvas::EdgeTypeProvider;
        say("  " + key + " between " + from + " and " + to);
        frame.pointerPorts().windows.place(*form, key, hit, {100.F * static_cast<float>(pick(99)), 2000});
        if (stands) {
            EXPECT_EQ(readings(*form, to, from, form->Labels.byIndex(form->LabelsNo)->KeyName()), read);
        }
    }

    void act() {
        using canvas::EditAction;
        const int action = form->Labels.Count() < 4 ? 12 : pick(19);
        say("action " + std::to_string(action));
        switch (action) {
            case 0:
                select(4);
                return canvas::moveNodes(*form, form->SelectedLabels.members(), 100.F * static_cast<float>(pick(9)),
                                         300);
            case 1:
                return canvas::reshape(*form, anyNode(), {100, 200, 1000, 300.F + 50.F * static_cast<float>(pick(9))});
            case 2:
                select(3);
                return canvas::DeleteSelectedNodes(*form, canvas::kEveryNodeType, frame.pointerPorts().links,
                                                   form->rules());
            case 3:
                select(3);
                return frame.run(Command::duplicateNodes);
            case 4:
                select(3);
                frame.run(pick(2) == 0 ? Command::cutNodes : Command::copyNodes);
                idle();
                ended();
                return frame.run(Command::pasteNodes);
            case 5:
                return draw();
            case 6:
                if (form->Lines.Count() > 0) {
                    form->SelectedLines.Add(form->Lines.at(1 + pick(form->Lines.Count()))->Index());
                    form->ClearCrop();
                    idle();
                    canvas::DeleteSelectedEdges(*form, form->rules());
                }
                return;
            case 7:
            case 8:
                if (canvas::LabelsD& node = anyNode(); pick(3) == 0) {
                    renameInPlace(*form, node);
                } else if (pick(3) == 0) {
                    renameMember(node);
                } else if (node.activity() || node.recordSet()) {
                    say("  dialog of " + node.Caption());
                    frame.pointerPorts().windows.openProperties(*form, node);
                    takeOffer();
                }
                return;
            case 9:
                return zoomSession();
            case 10:
                return frame.run(Command::checkConsistency);
            case 11:
                return saveAndLoad();
            case 12:
                form->Labels.Add({100, 100, 900, 400}, "Comment" + freshName(), canvas::NodeTypeComment)
                    .setComment(freshName());
                return;
            case 13:
                select(1 + 3 * pick(2));
                return frame.run(pick(2) == 0 ? Command::straighten : Command::tidyUp);
            case 14:
                return save();
            case 15:
                select(1);
                form->SelectedLabels.Add(anyNode().Index());
                idle();
                return frame.run(Command::connectByName);
            case 16:
                return placeType();
            case 17:
                select(4);
                return frame.run(Command::typeAndSize);
            default:
                if (form->Lines.Count() > 0) {
                    canvas::LinesD& edge = *form->Lines.at(1 + pick(form->Lines.Count()));
                    pick(2) == 0 && edge.Angle() == canvas::AngleNone
                        ? edge.placeMiddle({500, 100.F * static_cast<float>(pick(50))})
                        : edge.setAngle(static_cast<canvas::AngleCode>(pick(4)));
                }
        }
    }

    TestRepository& repository;
    TestFrame stage{repository};
    shell::MDIForm1& frame = stage.frame;
    canvas::DrawForm* form = nullptr;

  protected:
    std::mt19937 random_;
    std::ostringstream log_;
    int names_ = 0;
    Answer zoomAnswer_ = Answer::yes;
};

}  // namespace orvent::testkit
