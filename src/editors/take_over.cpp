#include "editors/take_over.h"

#include <algorithm>
#include <utility>

#include "canvas/owners.h"
#include "editors/column_text.h"
#include "entities/key_grammar.h"
#include "forms/name_check.h"
#include "platform/text.h"

namespace orvent::editors {

using namespace entities;
using canvas::LabelsD;

namespace {

/// What a node gives: the outputs of an activity, or the attributes of a record set.
NodeKindCode givenBy(const LabelsD& node) {
    return node.activity() ? KindOutput : KindRecordSetAttribute;
}

int countOf(const LabelsD& node) {
    int count = 0;
    canvas::withOwner(node, [&](const auto& owner) {
        withList(owner, givenBy(node), [&](const auto& list, NodeKindCode) { count = list.count(); });
    });
    return count;
}

/// The type of that name, whatever the case of its letters.
std::optional<std::int16_t> typeNamed(const NameTable& types, const std::string& name) {
    if (const auto exact = types.indexOf(name)) {
        return exact;
    }
    for (const std::int16_t index : types.listed()) {
        if (platform::equalIgnoringCase(types.name(index), name)) {
            return index;
        }
    }
    return std::nullopt;
}

}  // namespace

TakeOverForm::TakeOverForm(platform::MessageBox& messages, const CatalogueTables& catalogue, const canvas::Canvas& form,
                           const LabelsD& node, TakenName takenName)
    : Editor(messages), catalogue_(catalogue), form_(form), takenName_(std::move(takenName)) {
    Saved = false;
    addSources(node);
    Sources.emplace_back("Lines of text");
    fill();
}

void TakeOverForm::addSources(const LabelsD& node) {
    const auto add = [&](const LabelsD* source) {
        if (source && source != &node && form_.nodeNamed(source->KeyName()) == source && countOf(*source) > 0 &&
            std::find(nodes_.begin(), nodes_.end(), source->Index()) == nodes_.end()) {
            nodes_.push_back(source->Index());
            Sources.push_back(source->Caption());
        }
    };
    for (const canvas::EdgeNumber number : node.EndingLines()) {
        if (const canvas::LinesD* edge = form_.Lines.byIndex(number);
            edge && edge->EdgeType() == canvas::EdgeTypeProvider) {
            add(form_.Labels.byIndex(edge->FromLabel()));
        }
    }
    for (const LabelsD& other : form_.Labels) {
        if (other.activity() || other.recordSet()) {
            add(&other);
        }
    }
}

void TakeOverForm::Source_Click(int index) {
    if (index >= 0 && index < static_cast<int>(Sources.size()) && index != Source) {
        Source = index;
        fill();
    }
}

void TakeOverForm::Pasted_Change(const std::string& text) {
    Pasted = text;
    if (readsLines()) {
        fill();
    }
}

void TakeOverForm::Row_Check(std::size_t row, bool on) {
    if (row < Rows.size() && Rows[row].mayBeTaken()) {
        Rows[row].checked = on;
    }
}

bool TakeOverForm::mayTake() const {
    return std::any_of(Rows.begin(), Rows.end(), [](const TakeOverRow& row) { return row.checked; });
}

void TakeOverForm::fill() {
    Rows.clear();
    if (readsLines()) {
        fillFromLines();
    } else if (const LabelsD* source = form_.Labels.byIndex(nodes_[static_cast<std::size_t>(Source)])) {
        fillFrom(*source);
    }
}

void TakeOverForm::fillFrom(const LabelsD& source) {
    canvas::withOwner(source, [&](const auto& owner) {
        const auto* list = listOf<AttributeProperties>(owner, givenBy(source));
        if (list) {
            for (const AttributeProperties& attribute : *list) {
                add({AfterLastDot(attribute.Attribute_Name), catalogue_.dataTypes.shown(attribute.Attribute_Type),
                     attribute.Attribute_Type});
            }
        }
    });
}

void TakeOverForm::fillFromLines() {
    for (ColumnText& column : readColumns(Pasted)) {
        TakeOverRow row{std::move(column.name), std::move(column.type), std::nullopt};
        row.typeIndex = typeNamed(catalogue_.dataTypes, row.type);
        row.why = row.type.empty() ? "no type" : "";
        add(std::move(row));
    }
}

std::string TakeOverForm::whyNot(const TakeOverRow& row) const {
    const auto words = [](const char* why, const std::string& type, bool other) {
        return why + (other && !type.empty() ? ", as " + type : std::string());
    };
    const auto same =
        std::find_if(Rows.begin(), Rows.end(), [&](const TakeOverRow& other) { return other.name == row.name; });
    if (forms::hasFault(row.name, forms::NameFault::dot)) {
        return "a name with a dot";
    }
    if (const auto type = takenName_(row.name)) {
        return words("is there already", *type < 0 ? std::string() : catalogue_.dataTypes.shown(*type),
                     *type >= 0 && type != row.typeIndex);
    }
    if (same == Rows.end()) {
        return row.why;
    }
    const bool known = same->typeIndex && row.typeIndex;
    return words("stands there twice", same->type, known ? same->typeIndex != row.typeIndex : same->type != row.type);
}

void TakeOverForm::add(TakeOverRow row) {
    row.why = whyNot(row);
    row.checked = row.mayBeTaken();
    Rows.push_back(std::move(row));
}

bool TakeOverForm::apply() {
    taken = mayTake();
    if (!taken) {
        messages().tell("No column is checked.", {}, platform::Icon::warning);
    }
    return taken;
}

}  // namespace orvent::editors
