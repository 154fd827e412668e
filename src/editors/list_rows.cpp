#include "editors/list_rows.h"

#include "editors/schema_trees.h"
#include "entities/link_types.h"

namespace orvent::editors {

using namespace entities;

namespace {

/// Names and kinds of the far ends of an entity's links, each joined by ", ".
struct FarEnds {
    std::string names;
    std::string kinds;

    void add(const std::string& name, std::string_view kind) {
        names += (names.empty() ? "" : ", ") + name;
        kinds += std::string(first ? "" : ", ") + std::string(kind);
        first = false;
    }

    template <class Links>
    void addAll(const Links& links, const std::array<std::string_view, 16>& labels) {
        for (const auto& link : links) {
            const auto code = static_cast<std::size_t>(link.type());
            add(link.name(), code < labels.size() ? labels[code] : std::string_view());
        }
    }

    bool first = true;
};

void put(forms::ListRow& row, const std::string& type, const FarEnds& sources, const FarEnds& targets) {
    row.SubItems = {type, sources.names, sources.kinds, targets.names, targets.kinds};
}

}  // namespace

forms::ListRow newRow(const std::string& key, const std::string& text, std::int16_t tag, const char* image) {
    forms::ListRow row;
    row.Key = key;
    row.Text = text;
    row.Tag = tag;
    row.Image = image;
    row.Editable = row.Image != "Func";
    return row;
}

void RefreshAttributeRow(const AttributeProperties& attribute, forms::ListRow& row, const CatalogueTables& tables) {
    FarEnds sources;
    sources.addAll(attribute.ProvidedFrom, kFromLabels);
    sources.addAll(attribute.RegulatedFrom, kFromLabels);
    FarEnds targets;
    for (const ProviderProperties& link : attribute.ProviderFor) {
        targets.add(link.Provider_Name, link.Provider_Name + std::string(kProviderForSuffix));
    }
    targets.addAll(attribute.RegulatorFor, kForLabels);
    put(row, tables.dataTypes.shown(attribute.Attribute_Type), sources, targets);
}

void RefreshParameterRow(const ParameterProperties& parameter, forms::ListRow& row, const CatalogueTables& tables) {
    FarEnds sources;
    sources.addAll(parameter.RegulatedFrom, kFromLabels);
    FarEnds targets;
    targets.addAll(parameter.RegulatorFor, kForLabels);
    put(row, tables.dataTypes.shown(parameter.Parameter_Type), sources, targets);
}

void refreshFunctionRow(const FunctionProperties& function, std::int16_t activityType, forms::ListRow& row,
                        const CatalogueTables& tables) {
    const bool brought = function.Function_Source == kSourceActivityType;
    row.SubItems = {tables.functionTypes.shown(function.Function_Type),
                    brought ? tables.activityTypes.shown(activityType) : function.Function_Name,
                    std::string(kFromLabels[brought ? 9 : 5]), "", ""};
}

}  // namespace orvent::editors
