#include "entities/attributes.h"

namespace orvent::entities {

namespace {

static_assert(isFieldsAndLists<AttributeProperties, AttributeFields, 4>);
static_assert(isFieldsAndLists<ParameterProperties, ParameterFields, 2>);

template <class Links>
void copyLinks(const Lazy<Links>& from, Lazy<Links>& to) {
    if (const Links* links = from.peek()) {
        for (const auto& link : *links) {
            to->Add(link);
        }
    }
}

}  // namespace

std::shared_ptr<AttributeProperties> AttributeProperties::Clone() const {
    auto copy = std::make_shared<AttributeProperties>();
    static_cast<AttributeFields&>(*copy) = *this;
    copyLinks(ProvidedFrom, copy->ProvidedFrom);
    copyLinks(ProviderFor, copy->ProviderFor);
    copyLinks(RegulatedFrom, copy->RegulatedFrom);
    copyLinks(RegulatorFor, copy->RegulatorFor);
    return copy;
}

std::shared_ptr<ParameterProperties> ParameterProperties::Clone() const {
    auto copy = std::make_shared<ParameterProperties>();
    static_cast<ParameterFields&>(*copy) = *this;
    copyLinks(RegulatedFrom, copy->RegulatedFrom);
    copyLinks(RegulatorFor, copy->RegulatorFor);
    return copy;
}

AttributeProperties& AttributeCollection::Add(const std::string& Attribute_Name, std::int16_t Attribute_Type,
                                              TagCode Tag, const std::string& sKey) {
    auto attribute = std::make_shared<AttributeProperties>();
    attribute->Attribute_Name = Attribute_Name;
    attribute->Attribute_Type = Attribute_Type;
    attribute->Tag = Tag;
    attribute->Key = sKey;
    attribute->NodeKind = nodeKind_;
    return append(std::move(attribute), sKey);
}

ParameterProperties& ParameterCollection::Add(const std::string& Parameter_Name, std::int16_t Parameter_Type,
                                              TagCode Tag, const std::string& sKey) {
    auto parameter = std::make_shared<ParameterProperties>();
    parameter->Parameter_Name = Parameter_Name;
    parameter->Parameter_Type = Parameter_Type;
    parameter->Tag = Tag;
    parameter->Key = sKey;
    parameter->NodeKind = nodeKind_;
    return append(std::move(parameter), sKey);
}

}  // namespace orvent::entities
