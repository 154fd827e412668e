#include "exchange/clipboard.h"

#include <unordered_map>
#include <unordered_set>

#include "exchange/document_reader.h"
#include "exchange/document_writer.h"
#include "exchange/stored_rows.h"

namespace orvent::exchange {

namespace {

using canvas::LabelsD;
using canvas::LinesD;

bool isSelected(const canvas::DrawForm& form, canvas::NodeNumber label) {
    return form.SelectedLabels.Item(label) != nullptr;
}

/// The selected nodes in the order of the window, and the edges among them.
Extract selectionOf(const canvas::DrawForm& form) {
    Extract extract{form.ScenarioName(), {}, {}, &form.facts, false, {}};
    for (const LabelsD& node : form.Labels) {
        if (isSelected(form, node.Index())) {
            extract.nodes.push_back(&node);
        }
    }
    for (const LinesD& edge : form.Lines) {
        if (isSelected(form, edge.FromLabel()) && isSelected(form, edge.ToLabel())) {
            extract.edges.push_back(&edge);
        }
    }
    return extract;
}

/// The names by which far ends call their owners.
std::unordered_set<std::string> ownersIn(const Extract& extract) {
    std::unordered_set<std::string> owners;
    for (const LabelsD* node : extract.nodes) {
        if (const auto* activity = node->activity()) {
            owners.insert(activity->Act_Name);
        } else if (const auto* recordSet = node->recordSet()) {
            owners.insert(recordSet->RecordSet_Name);
        }
    }
    return owners;
}

/// Copies of the selected nodes and of the edges among them, as nobody has stored them. Gives the copy of each node.
std::unordered_map<canvas::NodeNumber, canvas::NodeNumber> copyInto(canvas::DrawForm& copy, const Extract& extract) {
    std::unordered_map<canvas::NodeNumber, canvas::NodeNumber> numbers;
    copy.quietNames = true;
    for (const LabelsD* node : extract.nodes) {
        LabelsD& added = copy.Labels.addLabel(*node);
        eachRow(added.Properties, [](std::int16_t& id, bool* changed) {
            id = 0;
            if (changed) {
                *changed = false;
            }
        });
        numbers.emplace(node->Index(), added.Index());
        if (const auto kept = extract.facts->find(node->Index()); kept != extract.facts->end()) {
            copy.facts[added.Index()] = kept->second;
        }
    }
    copy.quietNames = false;
    for (const LinesD* edge : extract.edges) {
        copy.Lines.addFullLine(numbers.at(edge->FromLabel()), edge->FromGrabbingPoint(), numbers.at(edge->ToLabel()),
                               edge->ToGrabbingPoint(), edge->EdgeType(), edge->Angle(), 0);
    }
    return numbers;
}

}  // namespace

bool mayBeDocument(std::string_view text) {
    constexpr std::size_t kHead = 256;
    return text.substr(0, kHead).find(std::string("\"") + kFormat + "\"") != std::string_view::npos;
}

std::string copySelection(const canvas::DrawForm& form, TypeCatalogue& catalogue, const std::string& program) {
    Extract extract = selectionOf(form);
    if (extract.nodes.empty()) {
        return {};
    }
    extract.keeps = [&form, owners = ownersIn(extract)](links::Direction direction, const links::NearEnd& near,
                                                        const links::LinkData& link) {
        const links::FarEndView far = links::findFarEnd(form, direction, near, link, nullptr);
        if (far.attribute) {
            return owners.contains(far.attribute->ParentKeyName);
        }
        if (far.parameter && far.parameter->NodeKind != entities::KindConstant) {
            return owners.contains(links::NearEnd(*far.parameter).activity());
        }
        return !meansAMember(link);
    };
    return writeDocument(extract, catalogue.tables(), definitionsFor(extract, catalogue), {program, false});
}

Inserted paste(canvas::DrawForm& form, const CopiedText& copied, std::optional<canvas::Point> at,
               const ExchangePorts& ports) {
    Document document = readDocument(copied.values());
    document.stored.reset();
    const auto types = settleTypes(document, ports);
    if (!types) {
        return {};
    }
    canvas::DrawForm copy({form.messages(), form.settings()});
    CopyRules rules{at, false, fillForm(copy, std::move(document), types->indices), {}};
    Inserted inserted = insertCopy(form, copy, rules);
    inserted.words = types->words;
    return inserted;
}

Inserted duplicateSelection(canvas::DrawForm& form) {
    const Extract extract = selectionOf(form);
    canvas::DrawForm copy({form.messages(), form.settings()});
    const auto numbers = copyInto(copy, extract);
    CopyRules rules{std::nullopt, true, {}, {}};
    for (const LabelsD* node : extract.nodes) {
        rules.leadingOut.push_back(node->Caption());
    }
    for (const LinesD& edge : form.Lines) {
        const LabelsD* from = form.Labels.byIndex(edge.FromLabel());
        const bool provides = from && (from->activity() || from->recordSet());
        if (provides && !isSelected(form, edge.FromLabel()) && isSelected(form, edge.ToLabel())) {
            rules.incoming.push_back({&edge, numbers.at(edge.ToLabel())});
        }
    }
    return insertCopy(form, copy, rules);
}

}  // namespace orvent::exchange
