// Random walks over zoom views of a stored scenario: whatever was done, the view, the scenario and the repository
// agree.

#include <random>

#include "../editors/editor_doubles.h"
#include "canvas/deletion.h"
#include "canvas/owners.h"
#include "editors/item_prop.h"
#include "editors/zoom_nodes.h"
#include "links/canvas_links.h"
#include "repository/stored_scenario_fixture.h"
#include "shell/sample_scenario.h"
#include "testkit/zoom_faults.h"
#include "zoom/apply_zoom_changes.h"
#include "zoom/build_view.h"
#include "zoom/relationship_rules.h"
#include "zoom/view_filters.h"

namespace orvent::testkit {

namespace {

using canvas::LabelsD;
using canvas::LinesD;

/// The model as a set of lines that tell their owner, so that two orders of one content are equal.
std::multiset<std::string> contentOf(const std::string& modelText) {
    std::multiset<std::string> lines;
    std::vector<std::pair<std::size_t, std::string>> owners;
    std::istringstream in(modelText);
    for (std::string line; std::getline(in, line);) {
        const std::size_t depth = line.find_first_not_of(' ');
        while (!owners.empty() && owners.back().first >= depth) {
            owners.pop_back();
        }
        std::string whole;
        for (const auto& [_, owner] : owners) {
            whole += owner.substr(0, owner.find('\'', owner.find('\'') + 1) + 1) + " > ";
        }
        owners.emplace_back(depth, line.substr(depth));
        lines.insert(whole + line.substr(depth));
    }
    return lines;
}

std::string difference(const std::multiset<std::string>& a, const std::multiset<std::string>& b) {
    std::vector<std::string> only;
    std::string text;
    for (const auto& [from, to, mark] : {std::tuple(&a, &b, "- "), std::tuple(&b, &a, "+ ")}) {
        only.clear();
        std::set_difference(from->begin(), from->end(), to->begin(), to->end(), std::back_inserter(only));
        for (const std::string& line : only) {
            text += mark + line + "\n";
        }
    }
    return text;
}

class ZoomWalk : public StoredScenarioTest {
  protected:
    ZoomWalk() {
        shell::buildSampleScenario(design, catalogue);
        for (const char* target : {"RS4", "Activity2"}) {  // a neighbour reached twice, and the activity itself
            design.Lines.addFullLine(design.NamesColl.Item("Activity2"), 4, design.NamesColl.Item(target), 1,
                                     canvas::EdgeTypeProvider, canvas::AngleStraight, 0);
        }
        entities::ActivityProperties& loop = *design.nodeNamed("Activity2")->activity();
        loop.Act_Inputs->Add("LOOP", 0, entities::TagActivity, "LOOP").ParentKeyName = "Activity2";
        loop.Act_Inputs->Item("LOOP")->ProvidedFrom->Add("Activity2", entities::LinkActivity, "Activity2.OUT.SONUM");
        loop.Act_Outputs->Item("SONUM")->ProviderFor->Add("Activity2", entities::LinkActivity, "Activity2.IN.LOOP");
        const std::int16_t bySource = *catalogue.tables.dataTypes.indexOf(entities::kDefinedBySource);
        for (LabelsD& node : design.Labels) {  // those without a provider wait for a type
            canvas::withOwner(node, [&](auto& owner) {
                entities::eachList(owner, [&](auto& list, entities::NodeKindCode) {
                    for (auto& member : list) {
                        if constexpr (requires { member.Attribute_Type; }) {
                            member.Attribute_Type = member.ProvidedFrom.count() ? member.Attribute_Type : bySource;
                        }
                    }
                });
            });
        }
        LinkGraph::addNamesake(design, *loop.Act_Functions->Item("MyFun"), "Activity4", "ED_ID");
    }

    /// Steps until the first fault, and says what was done last.
    void run(unsigned seed, int steps) {
        random_.seed(seed);
        open();
        applied_ = modelText(design);
        using Gesture = std::pair<int, void (ZoomWalk::*)()>;
        static constexpr Gesture gestures[] = {
            {300, &ZoomWalk::draw},       {130, &ZoomWalk::redirect},  {110, &ZoomWalk::place},
            {35, &ZoomWalk::deleteNode},  {80, &ZoomWalk::deleteEdge}, {150, &ZoomWalk::toggle},
            {90, &ZoomWalk::edit},        {20, &ZoomWalk::filter},     {20, &ZoomWalk::dialog},
            {35, &ZoomWalk::apply},       {10, &ZoomWalk::save},       {10, &ZoomWalk::closeWithNo},
            {10, &ZoomWalk::closeWithYes}};
        for (int at = 1; at <= steps && !HasFailure(); ++at) {
            const Gesture* gesture = gestures;
            for (int chance = pick(1000); chance >= gesture->first; ++gesture) {
                chance -= gesture->first;
            }
            user.told.clear();
            log_.push_back(std::to_string(at) + " ");
            (this->*gesture->second)();
            log_.back() += user.told.empty() ? "" : " [" + user.told.back() + "]";
            EXPECT_EQ(modelText(design), applied_) << "only Apply gives anything to the scenario";
            expectSound();
        }
        if (HasFailure()) {
            std::string last;
            for (std::size_t at = log_.size() > 12 ? log_.size() - 12 : 0; at < log_.size(); ++at) {
                last += log_[at] + "\n";
            }
            std::cout << "seed " << seed << ", last steps:\n" << last;
        }
    }

  private:
    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    LabelsD& anyNode() { return *form_->Labels.at(1 + pick(form_->Labels.Count())); }
    LinesD& anyEdge() { return *form_->Lines.at(1 + pick(form_->Lines.Count())); }
    void tell(const std::string& words) { log_.back() += words; }
    std::string name(const LabelsD& node) const {
        return node.KeyName() + (form_->bearsName(node) ? "" : "/" + node.Caption());
    }

    void open() {
        std::vector<std::string> activities;
        for (const LabelsD& node : design.Labels) {
            if (node.activity()) {
                activities.push_back(node.KeyName());
            }
        }
        form_.reset();
        form_ = std::make_unique<zoom::ZoomForm>(
            zoom::ZoomServices{{user, canvasSettings}, catalogue.tables, repository.progress, narrow}, design);
        const std::string central =
            pick(3) ? "Activity2" : activities[static_cast<std::size_t>(pick(static_cast<int>(activities.size())))];
        zoom::buildZoomView(*form_, *design.nodeNamed(central));
        if (!log_.empty()) {
            tell(", open " + central);
        }
    }

    void draw() {
        static constexpr canvas::EdgeTypeCode kinds[] = {canvas::EdgeTypeProvider, canvas::EdgeTypeRegulator,
                                                         canvas::EdgeTypePartOf};
        const auto kind = kinds[pick(3)];
        LabelsD *from = &anyNode(), *to = &anyNode();
        // Mostly what may stand, sometimes anything.
        for (int tries = pick(40); tries > 0 && !form_->rules().mayRelate(*form_, kind, *from, *to); --tries) {
            from = &anyNode(), to = &anyNode();
        }
        if (from == to) {
            return;
        }
        tell("draw " + std::to_string(static_cast<int>(kind)) + " " + name(*from) + " to " + name(*to));
        LinesD* edge = form_->Lines.addFullLine(from->Index(), static_cast<std::int16_t>(1 + pick(5)), to->Index(),
                                                static_cast<std::int16_t>(1 + pick(5)), kind, canvas::AngleNone, 0);
        form_->rules().edgeCompleted(*form_, *edge);
    }

    void redirect() {
        if (form_->Lines.Count() == 0) {
            return;
        }
        LinesD& edge = anyEdge();
        const bool atStart = pick(2) == 0;
        LabelsD* target = &anyNode();
        const LabelsD& kept = *form_->Labels.byIndex(atStart ? edge.ToLabel() : edge.FromLabel());
        for (int tries = pick(40); tries > 0; --tries, target = &anyNode()) {
            if (form_->rules().mayRelate(*form_, edge.EdgeType(), atStart ? *target : kept, atStart ? kept : *target)) {
                break;
            }
        }
        tell("redirect " + name(*form_->Labels.byIndex(edge.FromLabel())) + " " +
             std::to_string(static_cast<int>(edge.EdgeType())) + " " + name(*form_->Labels.byIndex(edge.ToLabel())) +
             (atStart ? " from " : " to ") + name(*target));
        if (target->Index() == edge.FromLabel() || target->Index() == edge.ToLabel() ||
            !form_->rules().mayRedirect(*form_, edge, atStart, *target)) {
            return;
        }
        edge.attach(atStart ? canvas::EdgeEnd::start : canvas::EdgeEnd::end, *target,
                    static_cast<std::int16_t>(1 + pick(5)));
        form_->rules().edgeCompleted(*form_, edge);
    }

    void place() {
        static constexpr const char* tools[] = {"Constant", "Attribute", "Function", "Parameter"};
        const char* tool = tools[pick(4)];
        tell(std::string("place ") + tool);
        form_->rules().placeNode(*form_, tool, {1000, 1000});
    }

    void deleteNode() {
        const LabelsD& node = anyNode();
        tell("delete " + name(node));
        form_->SelectedLabels.Clear();
        form_->SelectedLabels.Add(node.Index());
        canvas::DeleteSelectedNodes(*form_, canvas::kEveryNodeType, links_, form_->rules());
    }

    void deleteEdge() {
        if (form_->Lines.Count() == 0) {
            return;
        }
        const LinesD& edge = anyEdge();
        tell("delete edge " + name(*form_->Labels.byIndex(edge.FromLabel())) + " " +
             std::to_string(static_cast<int>(edge.EdgeType())) + " " + name(*form_->Labels.byIndex(edge.ToLabel())));
        form_->SelectedLines.Clear();
        form_->SelectedLines.Add(edge.Index());
        canvas::DeleteSelectedEdges(*form_, form_->rules());
    }

    void toggle() {
        LabelsD* node = &anyNode();
        while (!node->activity() && !node->recordSet() && !node->entity<entities::FunctionProperties>()) {
            node = &anyNode();
        }
        tell("toggle " + name(*node) + (node->Expanded ? " -" : " +"));
        form_->rules().toggleExpanded(*form_, *node);
    }

    /// The dialog of an item: another name, sometimes a taken one, or another type where it may be chosen.
    void edit() {
        LabelsD& node = anyNode();
        if (!editors::ItemProp::edits(*form_, node)) {
            return;
        }
        editors::ItemProp dialog(*form_, node, catalogue);
        if (dialog.TypesInUse && pick(2)) {
            dialog.selectType(pick(static_cast<int>(dialog.Types.size())));
        } else {
            dialog.changeName("N" + std::to_string(pick(60)));
        }
        tell("edit " + name(node) + " to " + dialog.txtName + " " + std::to_string(dialog.TypeIndex));
        dialog.OK_Click();
        dialog.end();
    }

    /// The dialog of an activity, with some rows taken out and some tree nodes clicked.
    void dialog() {
        LabelsD* node = &anyNode();
        while (!node->activity() || !form_->bearsName(*node)) {
            node = &anyNode();
        }
        tell("dialog " + name(*node));
        editors::SetActProp dialog({services, catalogue, wizard_, folder_, chooser_, nodes_, dialogs_}, *form_, *node);
        for (int edits = pick(4); edits > 0; --edits) {
            dialog.TabStrip1_Click(pick(3));
            if (pick(2)) {
                clickTree(dialog);
            } else if (const int rows = dialog.frontList().Count()) {
                dialog.frontList().select(1 + pick(rows));
                tell(", out " + dialog.frontList().Item(dialog.frontList().selected())->Key);
                dialog.Move2Tree_Click();
            }
        }
        dialog.txtDescr_Change("D" + std::to_string(pick(60)));
        user.toQuestions = Answer::no;
        const bool ok = pick(3) > 0;
        tell(ok ? ", OK" : ", No");
        EXPECT_TRUE(ok ? dialog.OK() : dialog.mayClose());
        dialog.end();
    }

    void clickTree(editors::SetActProp& dialog) {
        forms::Tree& tree = pick(2) ? dialog.ActView : dialog.DBView;
        const forms::Tree::Node* at = tree.roots().front().get();
        while (!at->children().empty()) {
            at = at->children()[static_cast<std::size_t>(pick(static_cast<int>(at->children().size())))].get();
        }
        tell(", click " + at->value().Key);
        dialog.NodeClick({tree.find(at->value().Key)});
    }

    void filter() {
        static constexpr bool zoom::ViewMarks::*marks[] = {
            &zoom::ViewMarks::ViewProviderM,   &zoom::ViewMarks::ViewPartOfM,  &zoom::ViewMarks::ViewRegulatorM,
            &zoom::ViewMarks::ViewInstanceOfM, &zoom::ViewMarks::ViewDerivedM, &zoom::ViewMarks::ViewAttributesM};
        const int row = pick(6);
        tell("filter " + std::to_string(row));
        zoom::toggleFilter(*form_, marks[row]);
    }

    void apply() {
        tell("apply");
        zoom::ApplyZoomChanges(*form_, true);
        taken();
        zoom::ApplyZoomChanges(*form_, true);
    }

    void save() {
        tell("save");
        form_->Save();
        form_->Save();
        taken();
        expectEqualWhenLoaded();
    }

    void closeWithNo() {
        tell("no");
        user.toQuestions = Answer::no;
        EXPECT_TRUE(form_->QueryUnload());
        form_.reset();
        EXPECT_EQ(modelText(design), applied_);
        open();
    }

    void closeWithYes() {
        tell("yes");
        user.toQuestions = Answer::yes;
        EXPECT_TRUE(form_->QueryUnload());
        form_.reset();
        taken();
        design.Save();
        expectEqualWhenLoaded();
        open();
    }

    /// The scenario has the changes now.
    void taken() {
        applied_ = modelText(design);
        EXPECT_EQ(CanvasFaults::ofScenario(design), CanvasFaults::Lines{});
    }

    void expectSound() { EXPECT_EQ(CanvasFaults::ofZoom(*form_), CanvasFaults::Lines{}); }

    void expectEqualWhenLoaded() {
        ASSERT_EQ(user.told.back(), "Saved");
        std::vector<TagCode> tags;  // those of a function's parameters are not stored
        eachMember(design, [&](auto& member) {
            tags.push_back(member.Tag);
            if (member.NodeKind == entities::KindFunctionInput || member.NodeKind == entities::KindFunctionOutput) {
                member.Tag = TagNone;
            }
        });
        const std::string expected = modelText(design);
        auto tag = tags.begin();
        eachMember(design, [&](auto& member) { member.Tag = *tag++; });
        EXPECT_EQ(difference(contentOf(modelText(*loaded(design.ScenarioID))), contentOf(expected)), "");
    }

    template <class Step>
    static void eachMember(canvas::DrawForm& form, Step step) {
        for (LabelsD& node : form.Labels) {
            if (node.activity()) {
                for (const LinkGraph::Entity& each : LinkGraph::holdersOf(*node.activity())) {
                    std::visit([&](auto* member) { step(*member); }, each);
                }
            }
        }
    }

    std::unique_ptr<canvas::DrawForm> owned_ = newForm("Walk");
    canvas::DrawForm& design = *owned_;
    links::CanvasLinks links_;
    editors::NoWizard wizard_;
    testkit::ChosenFile chooser_;
    editors::ZoomNodes nodes_;
    forms::Dialogs dialogs_;
    platform::ProgramFolder folder_{"/data"};
    std::unique_ptr<zoom::ZoomForm> form_;
    std::mt19937 random_;
    std::string applied_;  ///< the scenario since changes were applied last
    std::vector<std::string> log_;
};

class ZoomWalkFrom : public ZoomWalk, public ::testing::WithParamInterface<unsigned> {};

TEST_P(ZoomWalkFrom, ViewScenarioAndRepositoryAgree) {
    run(GetParam(), 1000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ZoomWalkFrom, ::testing::Values(2U, 3U, 13U, 23U));

}  // namespace

}  // namespace orvent::testkit
