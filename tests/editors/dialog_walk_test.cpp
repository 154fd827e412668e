// Random walks over the dialogs of activities and record sets, over the scenario and over zoom views of it: whatever is
// renamed, moved, taken or removed, the links between what stays are the same ones, in the same order.

#include <map>
#include <random>
#include <set>

#include "editors/zoom_dialogs_fixture.h"
#include "testkit/zoom_faults.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/expand_collapse.h"
#include "zoom/rename_node.h"

namespace orvent::testkit {

namespace {

using namespace entities;
using canvas::LabelsD;
using editors::RecordSetProp;
using editors::SetActProp;

template <class Step>
void eachMember(canvas::Canvas& canvas, Step step) {
    for (LabelsD& node : canvas.Labels) {
        const auto* zoom = dynamic_cast<const zoom::ZoomForm*>(&canvas);
        if (zoom && !zoom->bearsName(node)) {
            continue;  // a second copy is only to be looked at
        }
        if (auto* activity = node.activity()) {
            for (const LinkGraph::Entity& each : LinkGraph::holdersOf(*activity)) {
                std::visit([&](auto* member) { step(*member); }, each);
            }
        } else if (auto* recordSet = node.recordSet()) {
            for (AttributeProperties& attribute : recordSet->RecordSet_Outputs) {
                step(attribute);
            }
        }
    }
}

/// All links of a canvas, list by list in their order. A stored member goes by its identifier, which nothing changes; a
/// far end that is not there goes by its key.
class Links {
  public:
    explicit Links(canvas::Canvas& form) : form_(form) {
        if (auto* zoom = dynamic_cast<zoom::ZoomForm*>(&form); zoom && zoom->Enabled()) {
            zoom::bringUpAll(*zoom);  // as Apply does; till then a folded activity knows its functions as they were
        }
        eachMember(form, [&](auto& member) { see(member); });
    }

    /// What the links have become that is not right: one between two members that both stay is lost, or stands in
    /// another order.
    static std::string fault(const Links& before, const Links& after) {
        std::string words;
        for (const auto& [holder, list] : before.lists_) {
            const auto now = after.lists_.find(holder);
            if (now == after.lists_.end()) {
                continue;  // the member is gone
            }
            std::vector<std::string> kept;
            for (const std::string& far : list) {
                if (std::count(now->second.begin(), now->second.end(), far)) {
                    kept.push_back(far);
                } else if (after.members_.count(far)) {
                    words += holder + " has lost " + far + "\n";
                }
            }
            // One that was removed and taken again stands where it stood.
            std::vector<std::string> order;
            std::copy_if(now->second.begin(), now->second.end(), std::back_inserter(order),
                         [&](const std::string& far) { return std::count(kept.begin(), kept.end(), far) > 0; });
            if (order != kept) {
                words += holder + " has its links in another order\n";
            }
        }
        return words;
    }

    /// The same links, in the same order.
    bool operator==(const Links& other) const { return lists_ == other.lists_; }

  private:
    template <class Member>
    static std::string idOf(const Member& member) {
        return member.SubNode_ID ? std::to_string(member.SubNode_ID) : LinkGraph::keyOf(const_cast<Member*>(&member));
    }

    template <class Member>
    void see(Member& member) {
        using enum links::Direction;
        const std::string id = idOf(member);
        members_.insert(id);
        const auto each = [&](const char* word, links::Direction direction, auto& links) {
            std::vector<std::string>& list = lists_[id + word];
            for (auto& link : links) {
                const links::FarEnd far =
                    links::findFarEnd(form_, direction, member, {link.name(), link.type(), link.key()}, nullptr);
                list.push_back(far.attribute   ? idOf(*far.attribute)
                               : far.parameter ? idOf(*far.parameter)
                                               : link.key());
            }
        };
        if constexpr (requires { member.ProvidedFrom; }) {
            each(" <-", ProvidedFrom, member.ProvidedFrom);
            each(" ->", ProviderFor, member.ProviderFor);
        }
        each(" <~", RegulatedFrom, member.RegulatedFrom);
        each(" ~>", RegulatorFor, member.RegulatorFor);
    }

    canvas::Canvas& form_;
    std::map<std::string, std::vector<std::string>> lists_;
    std::set<std::string> members_;
};

class DialogWalk : public ZoomDialogs, public ::testing::WithParamInterface<unsigned> {
  protected:
    DialogWalk() {
        // Several writers and several readers of one column, of which some are outside every view of A2.
        design.Labels.Add({0, 0, 1050, 450}, "A4", canvas::NodeTypeActivity);
        for (const char* line :
             {"RS2.ED_ID <- 1 A1 A1.OUT.AU_ID", "A1.OUT.AU_ID -> 1 RS2 RS2.ED_ID", "RS2.ED_ID <- 1 A4 A4.OUT.ED_ID",
              "A4.OUT.ED_ID -> 1 RS2 RS2.ED_ID", "RS2.ED_ID <- 1 A3 A3.OUT.AU_ID", "A3.OUT.AU_ID -> 1 RS2 RS2.ED_ID",
              "RS4.SONUM -> 1 A4 A4.IN.SONUM", "A4.IN.SONUM <- 1 RS4 RS4.SONUM", "RS4.SONUM -> 1 A3 A3.IN.SONUM",
              "A3.IN.SONUM <- 1 RS4 RS4.SONUM", "A1.OUT.A1.O12 -> 2 A4 A4.IN.A1.O12",
              "A4.IN.A1.O12 <- 2 A1 A1.OUT.A1.O12", "A2.OUT.A1.O12 -> 2 A4 A4.IN.FED",
              "A4.IN.FED <- 2 A2 A2.OUT.A1.O12", "A1.OUT.A1.O12 -> 2 A3 A3.IN.A1.O12",
              "A3.IN.A1.O12 <- 2 A1 A1.OUT.A1.O12", "A4.OUT.ED_ID -> 2 A1 A1.IN.BACK",
              "A1.IN.BACK <- 2 A4 A4.OUT.ED_ID"}) {
            graph.add(line);
        }
        ports.messages.anyway = [](const std::string&) { return platform::Answer::no; };
        edge("A2", "RS4");
        storeAll(design);
    }

    /// What is new gets its identifier, as a save gives it.
    void storeAll(canvas::Canvas& canvas) {
        eachMember(canvas, [&](auto& member) {
            member.SubNode_ID = member.SubNode_ID ? member.SubNode_ID : static_cast<std::int16_t>(++lastId_);
        });
    }

    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    std::string freshName() { return "N" + std::to_string(++names_); }
    void say(const std::string& words) { log_ += words + "\n"; }

    template <class Kept>
    static bool hasNode(canvas::Canvas& canvas, Kept kept) {
        bool has = false;
        for (const LabelsD& node : canvas.Labels) {
            has = has || kept(node);
        }
        return has;
    }

    template <class Kept>
    LabelsD& anyNode(canvas::Canvas& canvas, Kept kept) {
        std::vector<LabelsD*> nodes;
        for (LabelsD& node : canvas.Labels) {
            if (kept(node)) {
                nodes.push_back(&node);
            }
        }
        return *nodes[static_cast<std::size_t>(pick(static_cast<int>(nodes.size())))];
    }

    void check(canvas::Canvas& canvas, const Links& before) {
        EXPECT_EQ(Links::fault(before, Links(canvas)), "");
        if (!canvas.isZoom()) {
            EXPECT_EQ(CanvasFaults::ofScenario(canvas), CanvasFaults::Lines{});
        } else if (form->Enabled()) {  // no node is folded for a dialog
            EXPECT_EQ(CanvasFaults::ofZoom(*form), CanvasFaults::Lines{});
        }
    }

    /// The tree offers what the canvas has, and what it shows as used is what the copy's links lead to.
    static void checkTree(const SetActProp& dialog) {
        std::multiset<std::string> offered, expected;
        std::set<std::string> used, linked;
        for (const forms::Tree* tree : {&dialog.ActView, &dialog.DBView}) {
            for (const auto& owner : tree->roots().front()->children()) {
                for (const auto& leaf : owner->children()) {
                    offered.insert(leaf->value().Key + " " + leaf->value().Text);
                    if (leaf->value().Checked) {
                        used.insert(leaf->value().Key);
                    }
                }
            }
        }
        const auto expect = [&](const std::string& owner, const auto& members) {
            for (const AttributeProperties& member : members) {
                expected.insert(owner + "." + member.Key + " " + member.Attribute_Name);
            }
        };
        for (const LabelsD& node : dialog.ParForm.Labels) {
            if (dialog.ParForm.NamesColl.Item(node.KeyName()) != node.Index()) {
                continue;  // a second copy offers nothing
            }
            if (node.activity() && &node != &dialog.ActiveNode) {
                expect("GRAPH." + node.Caption(), node.activity()->Act_Outputs);
            } else if (node.recordSet()) {
                expect("DB." + node.Caption(), node.recordSet()->RecordSet_Outputs);
            }
        }
        EXPECT_EQ(offered, expected);
        const auto lead = [&](const auto& link, bool counts) {
            const std::string key = editors::treeKey(link.type(), link.key());
            if (counts && (dialog.ActView.find(key) || dialog.DBView.find(key))) {
                linked.insert(key);
            }
        };
        for (const AttributeProperties& input : dialog.tempProp->Act_Inputs) {
            for (const ProviderProperties& link : input.ProvidedFrom) {
                lead(link, true);
            }
        }
        for (const AttributeProperties& output : dialog.tempProp->Act_Outputs) {
            for (const ProviderProperties& link : output.ProviderFor) {
                lead(link, link.type() == LinkRecordSet);
            }
        }
        for (const ParameterProperties& parameter : dialog.tempProp->Act_Parameters) {
            for (const RegulatorProperties& link : parameter.RegulatedFrom) {
                lead(link, link.type() == LinkRecordSet);
            }
        }
        EXPECT_EQ(used, linked);
    }

    void editActivity(SetActProp& dialog) {
        switch (pick(6)) {
            case 0:
            case 1: {
                const std::string name = freshName();
                say("  name " + name);
                dialog.txtName_Change(name);
                return dialog.txtName_Leave();
            }
            case 2:
                say("  description");
                return dialog.txtDescr_Change(freshName());
            case 3:
                dialog.TabStrip1_Click(pick(3));
                if (const int rows = dialog.frontList().Count()) {
                    const int row = 1 + pick(rows);
                    say("  move " + dialog.frontList().Item(row)->Key);
                    dialog.MoveRows({row}, pick(rows + 1));
                }
                return;
            case 4:
                dialog.TabStrip1_Click(editors::tabOf(editors::kInputs));
                if (const int rows = dialog.frontList().Count(); rows > 1) {
                    const int row = 1 + pick(rows);
                    say("  remove " + dialog.frontList().Item(row)->Key);
                    dialog.frontList().select(row);
                    dialog.Move2Tree_Click();
                }
                return;
            default:
                take(dialog);
        }
    }

    /// Ticks something that is not used yet, as an input.
    void take(SetActProp& dialog) {
        dialog.TabStrip1_Click(editors::tabOf(editors::kInputs));
        forms::Tree& tree = pick(2) ? dialog.ActView : dialog.DBView;
        std::vector<forms::Tree::Node*> leaves;
        for (const auto& owner : tree.roots().front()->children()) {
            for (const auto& leaf : owner->children()) {
                if (!leaf->value().Checked && !dialog.frontList().Item(dialog.rowKeyOf(*leaf))) {
                    leaves.push_back(leaf.get());
                }
            }
        }
        if (!leaves.empty()) {
            forms::Tree::Node& leaf = *leaves[static_cast<std::size_t>(pick(static_cast<int>(leaves.size())))];
            say("  tick " + leaf.value().Key);
            dialog.NodeClick({&leaf});
        }
    }

    void editRecordSet(RecordSetProp& dialog) {
        const int rows = dialog.AttList.Count();
        const int row = 1 + pick(rows);
        const std::string former = dialog.AttList.Item(row)->Text;
        switch (pick(5)) {
            case 0:
                say("  record set's name");
                return dialog.txtRecordSetName_Change(freshName());
            case 1:
                if (dialog.ListItemEditM()) {
                    const std::string name = freshName();
                    say("  " + former + " becomes " + name);
                    dialog.AfterLabelEdit(row, name);
                }
                return;
            case 2:
                if (rows > 1 && dialog.ListItemEditM()) {  // two columns exchange their names
                    const std::string other = dialog.AttList.Item(row == 1 ? 2 : 1)->Text;
                    say("  " + former + " and " + other + " exchange their names");
                    const auto name = [&](const std::string& from, const std::string& to) {
                        for (int at = 1; at <= rows; ++at) {
                            if (dialog.AttList.Item(at)->Text == from) {
                                EXPECT_TRUE(dialog.AfterLabelEdit(at, to));
                                return;
                            }
                        }
                    };
                    name(former, "swap");
                    name(other, former);
                    name("swap", other);
                }
                return;
            case 3:
                say("  move " + former);
                return dialog.MoveRows({row}, pick(rows + 1));
            default:
                if (rows > 1) {
                    say("  remove " + former);
                    dialog.AttList.select(row);
                    dialog.Move2Tree_Click();
                }
        }
    }

    void activityDialog(canvas::CanvasForm& over, LabelsD& node) {
        const auto dialog = openOn<SetActProp>(node.Caption(), over);
        dialog->ActTypes = 0;
        for (int round = pick(3); round >= 0 && !HasFailure(); --round) {
            for (int edits = pick(3); edits >= 0; --edits) {
                editActivity(*dialog);
            }
            if (round > 0) {
                say("  apply");
                EXPECT_TRUE(dialog->Apply());
                stale_ = over.isZoom() && !form->waiting.empty();  // an activity knows its functions as they were
                if (!stale_) {
                    compare(over);
                }
                checkTree(*dialog);
                EXPECT_EQ(LinkGraph::lines(LinkGraph::holdersOf(*dialog->tempProp)),
                          LinkGraph::lines(LinkGraph::holdersOf(*node.activity())));
            }
        }
        close(*dialog, over);
    }

    void close(forms::Editor& dialog, canvas::CanvasForm& over) {
        if (HasFailure()) {
            return dialog.end();
        }
        const bool ok = pick(4) > 0;
        say(ok ? "  ok" : "  cancel");
        EXPECT_TRUE(ok ? dialog.OK() : dialog.mayClose());
        dialog.end();
        if (!ok && !stale_) {
            EXPECT_TRUE(*last_ == Links(over)) << "what was not applied changes nothing";
        }
        compare(over);
        keep(over);
    }

    /// Against what was applied last.
    void compare(canvas::Canvas& over) {
        check(over, *last_);
        last_.emplace(over);
    }
    void keep(canvas::Canvas& over) {
        storeAll(over);
        last_.emplace(over);
        stale_ = false;
    }

    void anyDialog(canvas::CanvasForm& over) {
        LabelsD& node = anyNode(over, [&](const LabelsD& each) {
            return (each.activity() || each.recordSet()) && (!over.isZoom() || form->bearsName(each));
        });
        say("dialog of " + node.Caption());
        if (node.activity()) {
            return activityDialog(over, node);
        }
        const auto dialog = openOn<RecordSetProp>(node.Caption(), over);
        for (int edits = pick(4); edits > 0; --edits) {
            editRecordSet(*dialog);
        }
        close(*dialog, over);
    }

    void renameInView() {
        const auto isMember = [&](const LabelsD& each) {
            const bool member = each.entity<AttributeProperties>() || each.entity<ParameterProperties>() ||
                                each.entity<FunctionProperties>();
            return member && form->bearsName(each);
        };
        if (!hasNode(*form, isMember)) {
            return;  // all is folded
        }
        LabelsD& node = anyNode(*form, isMember);
        const std::string name = freshName();
        say("rename " + node.KeyName() + " to " + name);
        EXPECT_TRUE(zoom::RenameNode(*form, node, name));
        compare(*form);
    }

    void foldInView() {
        LabelsD& node = anyNode(*form, [&](const LabelsD& each) { return each.activity() && form->bearsName(each); });
        say("fold or unfold " + node.Caption());
        node.Expanded ? zoom::CollapseActivity(*form, node.Index()) : zoom::ExpandByPlace(*form, node);
        keep(*form);
    }

    void zoomSession() {
        const std::string central = anyNode(design, [](const LabelsD& each) { return each.activity(); }).Caption();
        say("zoom " + central);
        open(central);
        std::optional<Links> scenario(std::in_place, design);
        keep(*form);
        for (int steps = 1 + pick(5); steps > 0 && !HasFailure(); --steps) {
            switch (pick(5)) {
                case 0:
                    foldInView();
                    break;
                case 1:
                case 2:
                    renameInView();
                    break;
                case 3:
                    say("apply the view");
                    zoom::ApplyZoomChanges(*form, true);
                    check(design, *scenario);
                    scenario.emplace(design);
                    compare(*form);
                    break;
                default:
                    anyDialog(*form);
            }
        }
        say("close the view");
        zoom::ApplyZoomChanges(*form, false);
        check(design, *scenario);
        form.reset();
        storeAll(design);
    }

    void run(unsigned seed, int steps) {
        random_.seed(seed);
        for (int step = 0; step < steps && !HasFailure(); ++step) {
            log_.clear();
            if (pick(3) == 0) {
                zoomSession();
            } else {
                keep(design);
                anyDialog(design);
            }
        }
        if (HasFailure()) {
            std::cout << "seed " << seed << ", last steps:\n" << log_;
        }
    }

  private:
    std::mt19937 random_;
    std::int16_t lastId_ = 0;
    int names_ = 0;
    std::optional<Links> last_;
    bool stale_ = false;  ///< something was applied that `last_` does not know
    std::string log_;
};

TEST_P(DialogWalk, WhatStaysKeepsItsLinksAndTheirOrder) {
    run(GetParam(), 60);
}

INSTANTIATE_TEST_SUITE_P(Seeds, DialogWalk, ::testing::Range(1U, 25U));

}  // namespace

}  // namespace orvent::testkit
