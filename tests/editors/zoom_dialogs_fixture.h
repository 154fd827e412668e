#pragma once

#include <regex>

#include "editors/editor_doubles.h"
#include "editors/record_set_prop.h"
#include "editors/zoom_nodes.h"
#include "repository/catalogue_statements.h"
#include "zoom/member_ties.h"
#include "zoom/zoom_fixture.h"

namespace orvent::testkit {

/// The dialogs of activities and record sets over a scenario with links of every kind, and over its zoom view.
class ZoomDialogs : public ZoomTest {
  protected:
    ZoomDialogs() {
        namespace sql = repository::sql;
        database.answer(sql::kActivityTypes, {{"Filter", "", ""}});
        database.answer(sql::kFunctionTypes, {{"SUM"}});
        database.answer(sql::kDataTypes, {{"NUMBER"}, {"VARCHAR2(20)"}});
        graph.activity("A2").Act_Type = 0;
        design.setCaption("Sales");
    }

    template <class Dialog>
    std::unique_ptr<Dialog> openOn(const std::string& name, canvas::CanvasForm& over) {
        return std::make_unique<Dialog>(
            editors::EditorServices{services, types, wizard, folder, saveDialog, zoomNodes, dialogs}, over,
            *over.nodeNamed(name));
    }
    /// Over the zoom view.
    template <class Dialog>
    std::unique_ptr<Dialog> openOn(const std::string& name) {
        return openOn<Dialog>(name, *form);
    }

    /// Draws a member at an activity, whose list is folded.
    canvas::LabelsD& drawAt(const std::string& owner, const char* name, canvas::NodeTypeCode kind) {
        canvas::LabelsD& member = form->Labels.Add({100, 200, 300, 400}, name, kind);
        const std::int16_t grab = kind == canvas::NodeTypeAttribute ? 1 : 5;
        canvas::EdgeNumber edge =
            form->Lines
                .addFullLine(index(owner), grab, member.Index(), 2, canvas::EdgeTypePartOf, canvas::AngleVerticalUp, 0)
                ->Index();
        zoom::makeMember(*form, edge, node(owner), member);
        return member;
    }

    /// The scenario's links with the name of a node replaced.
    static Texts renamed(Texts lines, const std::string& former, const std::string& now) {
        const std::regex word("(^|[ .])" + former + "(?=[ .]|$)");
        for (std::string& line : lines) {
            line = std::regex_replace(line, word, "$1" + now);
        }
        return sorted(lines);
    }

    /// The lines of the view's model, sorted, since nodes that come back are the last ones.
    Texts model() const {
        std::istringstream in(modelText(*form));
        Texts lines;
        for (std::string line; std::getline(in, line);) {
            lines.push_back(line);
        }
        return sorted(lines);
    }

    ScriptedInputBox inputBox;
    ScriptedFileDialog files;
    MemorySettings store;
    ScriptedDatabase database;
    ListedSources sources;
    repository::RepositorySettings settings{{"REPO", "scott", "tiger", "ann"}, ""};
    repository::Services services{database, sources, ports.messages, inputBox, files, store, progress, settings};
    repository::Catalogue types{services, [] {}};
    editors::NoWizard wizard;
    testkit::ChosenFile saveDialog;
    editors::ZoomNodes zoomNodes;
    forms::Dialogs dialogs;
    platform::ProgramFolder folder{"/data"};
};

}  // namespace orvent::testkit
