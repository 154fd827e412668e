#include "analysis/text_export.h"

#include <regex>
#include <string>
#include <tuple>
#include <vector>

#include "platform/fault.h"
#include "testkit/file_text.h"
#include "testkit/graph_builder.h"
#include "testkit/temporary_folder.h"

namespace orvent::analysis {
namespace {

class TextExportTest : public testkit::GraphTest {
  public:
    TextExportTest() {
        form.setCaption("Sales");
        catalogue.activityTypes.add("Copy");
        catalogue.activityTypes.add("Not null check");
    }

    testkit::TemporaryFolder scratch;
    platform::ProgramFolder folder{scratch.path()};
    testkit::QuietProgress progress;
    entities::CatalogueTables catalogue;
    TextExport exporter{progress, catalogue};
};

TEST_F(TextExportTest, NodesInFlowOrderAndThenTheFlowsOfTheirAttributes) {
    graph.recordSet("EMPTY");
    graph.activity("First", {}, {"First.Mark"}).Act_Type = 1;
    graph.activity("Second", {"IN1", "First.Mark"}, {"OUT1"});
    graph.recordSet("OUT", {"A", "B"});
    graph.node("Remark", canvas::NodeTypeComment);
    graph.edge("First", "Second");
    graph.edge("First", "OUT");
    graph.edge("Remark", "OUT");
    graph.feed("OUT.A", "Second.IN.IN1");
    graph.feed("First.OUT.First.Mark", "Second.IN.First.Mark");
    graph.feed("First.OUT.First.Mark", "OUT.B");
    graph.pass("Second", "IN1", "OUT1");
    graph.attribute("Second.IN.First.Mark").ProviderFor->Add("Second", entities::LinkInput, ".OUT.GONE");
    const std::string text =
        "4;11\n"
        "RS;EMPTY;{};};5;db_table\n"
        "\n"
        "A;Second;{IN1,First.Mark};{OUT1};4;Copy\n"
        "\n"
        "RS;OUT;{};{A,B};3;db_table\n"
        "\n"
        "A;First;};{First.Mark};1;Not null check\n"
        "\n"
        "\n"
        "Second.IN1:Second.OUT1\n"
        "Second.First.Mark:Second.\n"
        "\n"
        "OUT.A:Second.IN1\n"
        "\n"
        "First.First.Mark:Second.First.Mark\n"
        "First.First.Mark:OUT.B\n"
        "\n";
    EXPECT_EQ(exporter.ExportText(form), std::regex_replace(text, std::regex("\n"), "\r\n"));
}

TEST_F(TextExportTest, WhatIsMissingLeavesItsNameEmpty) {
    graph.activity("Untyped", {}, {"X"}).Act_Type = -1;
    graph.attribute("Untyped.OUT.X").ProviderFor->Add("GONE", entities::LinkRecordSet, "GONE.IN.A");
    EXPECT_EQ(exporter.ExportText(form), "1;2\r\nA;Untyped;};{X};1;\r\n\r\nUntyped.X:GONE.\r\n\r\n");
}

TEST_F(TextExportTest, EmptyScenarioWritesOneLine) {
    EXPECT_EQ(exporter.ExportText(form), "0;0\r\n");
}

TEST_F(TextExportTest, WhatDoesNotFitTogetherIsAFault) {
    const std::vector<std::tuple<const char*, const char*, void (*)(TextExportTest&)>> cases = {
        {"type beyond the catalogue", "\"Odd\"", [](TextExportTest& t) { t.graph.activity("Odd").Act_Type = 2; }},
        {"far node without attributes", "\"Remark\"",
         [](TextExportTest& t) {
             t.graph.node("Remark", canvas::NodeTypeComment);
             t.graph.attribute("RS.A").ProviderFor->Add("Remark", entities::LinkRecordSet, "Remark.A");
         }},
    };
    for (const auto& [title, names, spoil] : cases) {
        SCOPED_TRACE(title);
        form.clear();
        form.setCaption("Sales");
        graph.recordSet("RS", {"A"});
        spoil(*this);
        try {
            exporter.ExportText(form);
            ADD_FAILURE() << "no fault";
        } catch (const platform::Fault& fault) {
            EXPECT_NE(fault.description().find(names), std::string::npos) << fault.description();
        }
    }
}

}  // namespace
}  // namespace orvent::analysis
