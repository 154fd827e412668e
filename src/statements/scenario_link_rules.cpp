#include "statements/scenario_link_rules.h"

#include <initializer_list>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "entities/link_types.h"
#include "links/far_end.h"
#include "platform/fault.h"
#include "statements/ldl_sources.h"

namespace orvent::statements {

namespace {

using entities::AttributeCollection;
using entities::AttributeProperties;
using entities::ProviderProperties;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kUnused = "_";

[[noreturn]] void refuse(const std::string& owner, const std::string& key) {
    throw platform::Fault("\"" + owner + "\" has no attribute \"" + key + "\"");
}

/// Finds the first link of an attribute to a consumer of a given name. A source that feeds many nodes is asked once for
/// each of them, so its links get a table; walking them every time would take the square of their number.
class ConsumerLinks {
  public:
    const ProviderProperties* find(const AttributeProperties& attribute, const std::string& consumer) {
        if (attribute.ProviderFor.count() <= kWalk) {
            for (const ProviderProperties& link : attribute.ProviderFor) {
                if (link.Provider_Name == consumer) {
                    return &link;
                }
            }
            return nullptr;
        }
        auto [entry, isNew] = tables_.try_emplace(&attribute);
        if (isNew) {
            for (const ProviderProperties& link : attribute.ProviderFor) {
                entry->second.try_emplace(link.Provider_Name, &link);
            }
        }
        const auto found = entry->second.find(consumer);
        return found == entry->second.end() ? nullptr : found->second;
    }

  private:
    static constexpr int kWalk = 8;
    std::unordered_map<const AttributeProperties*, std::unordered_map<std::string_view, const ProviderProperties*>>
        tables_;
};

class RuleWriter {
  public:
    explicit RuleWriter(const canvas::DrawForm& form) : form_(form) {
        // Room for ordinary rules, so that the text seldom moves while it grows.
        text_.reserve(512 * static_cast<std::size_t>(form.Labels.Count()));
    }

    void writeActivity(const entities::ActivityProperties& activity);
    void writeRecordSet(const entities::RecordSetProperties& recordSet);
    std::string text_;

  private:
    const canvas::LabelsD& node(const std::string& name) const;
    const entities::ActivityProperties& activityNamed(const std::string& name) const;
    const entities::RecordSetProperties& recordSetNamed(const std::string& name) const;

    /// In the provider's order, the consumer's variable for each column, or "_" where it uses none. `variable` gives
    /// the name of the consumer's attribute that a link leads to.
    template <class Variable>
    void writeColumns(const AttributeCollection* columns, const std::string& consumer, const std::string& prefix,
                      Variable variable);

    void write(std::initializer_list<std::string_view> parts) {
        for (const std::string_view part : parts) {
            text_ += part;
        }
    }

    const canvas::DrawForm& form_;
    ConsumerLinks links_;
};

const canvas::LabelsD& RuleWriter::node(const std::string& name) const {
    const canvas::LabelsD* found = form_.nodeNamed(name);
    if (!found) {
        throw platform::Fault("There is no node \"" + name + "\"");
    }
    return *found;
}

const entities::ActivityProperties& RuleWriter::activityNamed(const std::string& name) const {
    const entities::ActivityProperties* activity = node(name).activity();
    if (!activity) {
        throw platform::Fault("\"" + name + "\" is no activity");
    }
    return *activity;
}

const entities::RecordSetProperties& RuleWriter::recordSetNamed(const std::string& name) const {
    const entities::RecordSetProperties* recordSet = node(name).recordSet();
    if (!recordSet) {
        throw platform::Fault("\"" + name + "\" is no record set");
    }
    return *recordSet;
}

template <class Variable>
void RuleWriter::writeColumns(const AttributeCollection* columns, const std::string& consumer,
                              const std::string& prefix, Variable variable) {
    if (!columns) {
        return;
    }
    std::string_view comma;
    for (const AttributeProperties& column : *columns) {
        text_ += comma;
        comma = ",";
        if (const ProviderProperties* link = links_.find(column, consumer)) {
            write({prefix, variable(link->Provider_Key())});
        } else {
            text_ += kUnused;
        }
    }
}

void RuleWriter::writeActivity(const entities::ActivityProperties& activity) {
    const std::string& name = activity.Act_Name;
    const auto inputName = [&](const std::string& key) -> std::string_view {
        const AttributeProperties* input = links::attributeUnder(activity, entities::KindInput, key);
        if (!input) {
            refuse(name, entities::AfterSecondDot(key));
        }
        return input->Attribute_Name;
    };
    int number = 0;
    for (const LDLSource& source : sourcesOf(activity)) {
        const std::string head = name + "_IN" + std::to_string(++number);
        const std::string prefix = head + "_";
        write({head, "("});
        std::string_view comma;
        for (const AttributeProperties& input : source) {
            write({comma, prefix, input.Attribute_Name});
            comma = ",";
        }
        write({")<-", kLineEnd});
        if (source.SourceType == entities::LinkRecordSet) {
            const entities::RecordSetProperties& provider = recordSetNamed(source.Source);
            write({provider.RecordSet_Name, "("});
            writeColumns(provider.RecordSet_Outputs.peek(), name, prefix, inputName);
        } else {
            const entities::ActivityProperties& provider = activityNamed(source.Source);
            write({provider.Act_Name, "_OUT("});
            writeColumns(provider.Act_Outputs.peek(), name, prefix, inputName);
        }
        write({").", kLineEnd, kLineEnd});
    }
}

void RuleWriter::writeRecordSet(const entities::RecordSetProperties& recordSet) {
    const std::string& name = recordSet.RecordSet_Name;
    std::vector<std::string_view> providers;
    std::unordered_set<std::string_view> known;
    for (const AttributeProperties& attribute : recordSet.RecordSet_Outputs) {
        for (const ProviderProperties& link : attribute.ProvidedFrom) {
            if (known.insert(link.Provider_Name).second) {
                providers.push_back(link.Provider_Name);
            }
        }
    }
    if (providers.empty()) {
        return;
    }
    const std::string prefix = name + "_";
    write({name, "("});
    std::string_view comma;
    for (const AttributeProperties& attribute : recordSet.RecordSet_Outputs) {
        write({comma, prefix, attribute.Attribute_Name});
        comma = ",";
    }
    write({")<-", kLineEnd});
    for (const std::string_view& provider : providers) {
        // Unlike in an activity's rule, the providing activity stands by its bare name.
        const entities::ActivityProperties& activity = activityNamed(std::string(provider));
        write({activity.Act_Name, "("});
        writeColumns(activity.Act_Outputs.peek(), name, prefix, [&](const std::string& key) -> std::string_view {
            const AttributeProperties* attribute = links::attributeUnder(recordSet, key);
            if (!attribute) {
                refuse(name, entities::AfterFirstDot(key));
            }
            return attribute->Attribute_Name;
        });
        write({&provider == &providers.back() ? ")." : "),", kLineEnd});
    }
}

}  // namespace

std::string ScenarioLinkRules(const canvas::DrawForm& form) {
    RuleWriter writer(form);
    for (const canvas::LabelsD& node : form.Labels) {
        if (const entities::ActivityProperties* activity = node.activity()) {
            writer.writeActivity(*activity);
        } else if (const entities::RecordSetProperties* recordSet = node.recordSet()) {
            writer.writeRecordSet(*recordSet);
        }
    }
    return std::move(writer.text_);
}

}  // namespace orvent::statements
