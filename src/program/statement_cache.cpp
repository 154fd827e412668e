#include "program/statement_cache.h"

#include "links/far_end.h"

namespace orvent::program {

namespace {

using entities::AttributeProperties;
using entities::ParameterProperties;

/// Writes down what a statement's reading depends on: texts with their lengths, so that no two states look alike.
class DependencyText {
  public:
    explicit DependencyText(const ProgramSources& sources) : sources_(sources) {}

    std::string of(const canvas::LabelsD& node, const std::vector<std::string>& asked) {
        const entities::ActivityProperties& activity = *node.activity();
        number(static_cast<int>(node.Index()));
        text(activity.Act_Name);
        text(activity.Act_LDL);
        members(activity.Act_Inputs);
        members(activity.Act_Outputs);
        parameters(activity.Act_Parameters);
        for (const entities::FunctionProperties& function : activity.Act_Functions) {
            text(function.Function_Name);
            parameters(function.Function_Inputs);
            parameters(function.Function_Outputs);
        }
        for (const std::string& name : asked) {
            text(name);
            elsewhere(sources_.form.nodeNamed(name));
        }
        return std::move(all_);
    }

  private:
    void number(int value) { all_.append(reinterpret_cast<const char*>(&value), sizeof value); }
    void text(const std::string& value) {
        number(static_cast<int>(value.size()));
        all_ += value;
    }
    void end() { number(-1); }

    template <class Links>
    void links(const Links& list) {
        for (const auto& link : list) {
            number(static_cast<int>(link.type()));
            text(link.name());
            text(link.key());
        }
        end();
    }

    template <class List>
    void members(const List& list) {
        for (const AttributeProperties& member : list) {
            text(member.Key);
            column(member);
            number(static_cast<int>(member.Tag));
            links(member.ProvidedFrom);
        }
        end();
    }

    void column(const AttributeProperties& attribute) {
        text(attribute.Attribute_Name);
        number(sources_.types.typeOf(attribute));
    }

    template <class List>
    void parameters(const List& list) {
        for (const ParameterProperties& parameter : list) {
            text(parameter.Parameter_Name);
            number(parameter.Parameter_Type);
            links(parameter.RegulatedFrom);
            for (const entities::RegulatorProperties& link : parameter.RegulatedFrom) {
                const canvas::LabelsD* from =
                    link.type() == entities::LinkRecordSet || link.type() == entities::LinkRecordSetFunction
                        ? sources_.form.nodeNamed(link.name())
                        : nullptr;
                const AttributeProperties* field =
                    from && from->recordSet() ? links::attributeUnder(*from->recordSet(), link.key()) : nullptr;
                if (field) {
                    column(*field);
                }
                end();
            }
        }
        end();
    }

    void elsewhere(const canvas::LabelsD* node) {
        if (node && (node->recordSet() || node->activity())) {
            number(static_cast<int>(node->Index()));
            number(node->recordSet() ? 1 : 0);
            const auto columns = [this](const auto& list) {
                for (const AttributeProperties& attribute : list) {
                    column(attribute);
                }
            };
            node->recordSet() ? columns(node->recordSet()->RecordSet_Outputs) : columns(node->activity()->Act_Outputs);
        }
        end();
    }

    const ProgramSources& sources_;
    std::string all_;
};

}  // namespace

void StatementCache::begin(const entities::CatalogueTables& catalogue) {
    std::string types;
    for (const entities::NameTable* table : {&catalogue.dataTypes, &catalogue.functionTypes}) {
        for (std::size_t at = 0; at < table->size(); ++at) {
            const auto index = static_cast<std::int16_t>(at);
            types += table->name(index) + (table->isGone(index) ? "\n-" : "\n");
        }
        types += '\n';
    }
    if (types != types_) {
        known_.clear();
        types_ = std::move(types);
    }
}

ActivityProgram StatementCache::read(const ProgramSources& sources, const canvas::LabelsD& node) {
    const auto known = known_.find(node.Index());
    if (known != known_.end() &&
        known->second.dependencies == DependencyText(sources).of(node, known->second.program.asked)) {
        ++kept_;
        return known->second.program;
    }
    ActivityProgram program = activityProgram(sources, node);
    if (program.plain) {
        known_[node.Index()] = {DependencyText(sources).of(node, program.asked), program};
    }
    return program;
}

}  // namespace orvent::program
