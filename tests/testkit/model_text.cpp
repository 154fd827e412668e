#include "testkit/model_text.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "platform/codes.h"

namespace orvent::testkit {

namespace {

using namespace entities;
using platform::numberOf;

class Writer {
  public:
    void node(const canvas::LabelsD& node) {
        out_ << "node " << numberOf(node.NodeType()) << " '" << node.Caption() << "' " << node.Left() << ' '
             << node.Top() << ' ' << node.Width() << ' ' << node.Height() << '\n';
        if (const ActivityProperties* activity = node.activity()) {
            write(*activity);
        } else if (const RecordSetProperties* recordSet = node.recordSet()) {
            write(*recordSet);
        } else if (const auto* comment = node.entity<CommentProperties>()) {
            out_ << "  comment '" << comment->Comment << "'\n";
        }
    }

    void edge(const canvas::Canvas& form, const canvas::LinesD& edge) {
        out_ << "edge '" << form.Labels.byIndex(edge.FromLabel())->Caption() << "' " << edge.FromGrabbingPoint() << " '"
             << form.Labels.byIndex(edge.ToLabel())->Caption() << "' " << edge.ToGrabbingPoint() << " type "
             << numberOf(edge.EdgeType()) << " angle " << numberOf(edge.Angle()) << '\n';
    }

    std::string text() const { return out_.str(); }

  private:
    void write(const ActivityProperties& activity) {
        out_ << "  activity '" << activity.Act_Name << "' type " << activity.Act_Type << " schema "
             << activity.Act_SchemaNo << " sql '" << activity.Act_SQL << "' ldl '" << activity.Act_LDL << "' log '"
             << activity.Act_Log << "' description '" << activity.Act_Description << "'\n";
        attributes("in", activity.Act_Inputs.peek());
        attributes("out", activity.Act_Outputs.peek());
        parameters("param", activity.Act_Parameters.peek());
        if (const auto* functions = activity.Act_Functions.peek()) {
            for (const FunctionProperties& function : *functions) {
                out_ << "  function '" << function.Function_Key << "' type " << function.Function_Type << " source "
                     << numberOf(function.Function_Source) << " parent '" << function.ParentKeyName() << "'\n";
                parameters("  in", function.Function_Inputs.peek());
                parameters("  out", function.Function_Outputs.peek());
            }
        }
    }

    void write(const RecordSetProperties& recordSet) {
        out_ << "  record set '" << recordSet.RecordSet_Name << "' sql '" << recordSet.RecordSet_SQL << "'\n";
        attributes("attribute", recordSet.RecordSet_Outputs.peek());
        if (const auto* attributes = recordSet.RecordSet_Outputs.peek()) {
            for (const AttributeProperties& attribute : *attributes) {
                out_ << "    db '" << recordSet.dbKey(attribute.Key) << "'\n";
            }
        }
    }

    void attributes(const char* word, const AttributeCollection* list) {
        if (!list) {
            return;
        }
        for (const AttributeProperties& each : *list) {
            out_ << "  " << word << " '" << each.Key << "' name '" << each.Attribute_Name << "' kind "
                 << numberOf(each.NodeKind) << " type " << each.Attribute_Type << " tag " << numberOf(each.Tag)
                 << " parent '" << each.ParentKeyName << "'\n";
            links("provided from", each.ProvidedFrom);
            links("provider for", each.ProviderFor);
            links("regulated from", each.RegulatedFrom);
            links("regulator for", each.RegulatorFor);
        }
    }

    void parameters(const char* word, const ParameterCollection* list) {
        if (!list) {
            return;
        }
        for (const ParameterProperties& each : *list) {
            out_ << "  " << word << " '" << each.Key << "' name '" << each.Parameter_Name << "' kind "
                 << numberOf(each.NodeKind) << " type " << each.Parameter_Type << " tag " << numberOf(each.Tag)
                 << " parent '" << each.ParentKeyName << "' of '" << each.ParentFunctionActivity << "'\n";
            links("regulated from", each.RegulatedFrom);
            links("regulator for", each.RegulatorFor);
        }
    }

    template <class Links>
    void links(const char* word, const Lazy<Links>& held) {
        std::vector<std::string> lines;
        if (const Links* list = held.peek()) {
            for (const auto& link : *list) {
                lines.push_back("'" + link.name() + "' " + std::to_string(numberOf(link.type())) + " '" + link.key() +
                                "'");
            }
        }
        std::sort(lines.begin(), lines.end());
        for (const std::string& line : lines) {
            out_ << "      " << word << ' ' << line << '\n';
        }
    }

    std::ostringstream out_;
};

}  // namespace

std::string modelText(const canvas::Canvas& form) {
    Writer writer;
    for (const canvas::LabelsD& node : form.Labels) {
        writer.node(node);
    }
    for (const canvas::LinesD& edge : form.Lines) {
        writer.edge(form, edge);
    }
    return writer.text();
}

}  // namespace orvent::testkit
