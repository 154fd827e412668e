#include "editors/list_rows.h"

#include <array>

#include "editors/schema_trees.h"
#include "entities/link_types.h"

namespace orvent::editors {

using namespace entities;

namespace {

/// Names, kinds and whole keys of the far ends of an entity's links, each joined by ", ". A key within the entity's
/// owner does not name that.
struct FarEnds {
    explicit FarEnds(const std::string& ofOwner) : owner(ofOwner) {}

    const std::string& owner;
    std::string names;
    std::string kinds;
    std::string keys;

    void add(const std::string& name, std::string_view kind, const std::string& key) {
        names += (names.empty() ? "" : ", ") + name;
        kinds += std::string(first ? "" : ", ") + std::string(kind);
        keys += (first ? "" : ", ") + (key.starts_with(".") ? owner : std::string()) + key;
        first = false;
    }

    template <class Links>
    void addAll(const Links& links, const std::array<std::string_view, 16>& labels) {
        for (const auto& link : links) {
            const auto code = static_cast<std::size_t>(link.type());
            add(link.name(), code < labels.size() ? labels[code] : std::string_view(), link.key());
        }
    }

    bool first = true;
};

void put(forms::ListRow& row, const std::string& type, const FarEnds& sources, const FarEnds& targets) {
    row.SubItems = {type, sources.names, sources.kinds, targets.names, targets.kinds};
    row.Tip = linksTip(sources.keys, targets.keys);
}

}  // namespace

std::string linksTip(const std::string& sources, const std::string& targets) {
    const std::string from = sources.empty() ? "" : "From " + sources;
    const std::string to = targets.empty() ? "" : "To " + targets;
    return from + (from.empty() || to.empty() ? "" : "\n") + to;
}

void setKind(forms::ListRow& row, RowKind kind) {
    constexpr std::array<const char*, 5> kImages = {"AttIn", "AttOut", "Param", "Const", "Func"};
    row.Kind = static_cast<std::int16_t>(kind);
    row.Image = kImages[static_cast<std::size_t>(kind)];
    row.Editable = kind != RowKind::function;
}

forms::ListRow newRow(const std::string& key, const std::string& text, TagCode tag, RowKind kind) {
    forms::ListRow row;
    row.Key = key;
    row.Text = text;
    row.Tag = static_cast<std::int16_t>(tag);
    setKind(row, kind);
    return row;
}

void RefreshAttributeRow(const AttributeProperties& attribute, forms::ListRow& row, const CatalogueTables& tables) {
    FarEnds sources(attribute.ParentKeyName);
    sources.addAll(attribute.ProvidedFrom, kFromLabels);
    sources.addAll(attribute.RegulatedFrom, kFromLabels);
    FarEnds targets(attribute.ParentKeyName);
    for (const ProviderProperties& link : attribute.ProviderFor) {
        targets.add(link.Provider_Name, link.Provider_Name + std::string(kProviderForSuffix), link.Provider_Key());
    }
    targets.addAll(attribute.RegulatorFor, kForLabels);
    put(row, tables.dataTypes.shown(attribute.Attribute_Type), sources, targets);
}

void RefreshParameterRow(const ParameterProperties& parameter, forms::ListRow& row, const CatalogueTables& tables) {
    FarEnds sources(parameter.ParentKeyName);
    sources.addAll(parameter.RegulatedFrom, kFromLabels);
    FarEnds targets(parameter.ParentKeyName);
    targets.addAll(parameter.RegulatorFor, kForLabels);
    put(row, tables.dataTypes.shown(parameter.Parameter_Type), sources, targets);
}

void refreshFunctionRow(const FunctionProperties& function, std::int16_t activityType, forms::ListRow& row,
                        const CatalogueTables& tables) {
    const bool brought = function.Function_Source == SourceActivityType;
    row.SubItems = {tables.functionTypes.shown(function.Function_Type),
                    brought ? tables.activityTypes.shown(activityType) : function.Function_Name,
                    std::string(kFromLabels[brought ? 9 : 5]), "", ""};
}

}  // namespace orvent::editors
