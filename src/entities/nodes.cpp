#include "entities/nodes.h"

namespace orvent::entities {

namespace {

static_assert(isFieldsAndLists<ActivityProperties, ActivityFields, 4>);
static_assert(isFieldsAndLists<RecordSetProperties, RecordSetFields, 2>);

}  // namespace

std::shared_ptr<ActivityProperties> ActivityProperties::Clone() const {
    auto copy = std::make_shared<ActivityProperties>();
    static_cast<ActivityFields&>(*copy) = *this;
    copy->Act_Inputs.replace(nullptr);
    if (const auto* inputs = Act_Inputs.peek()) {
        for (const AttributeProperties& input : *inputs) {
            copy->Act_Inputs->AddFullAttribute(input, input.Key, false, 0);
        }
        copy->Act_Inputs->Changed = inputs->Changed;
    }
    if (const auto* outputs = Act_Outputs.peek()) {
        for (const AttributeProperties& output : *outputs) {
            copy->Act_Outputs->AddFullAttribute(output, output.Key, false, 0);
        }
    }
    if (const auto* parameters = Act_Parameters.peek()) {
        for (const ParameterProperties& parameter : *parameters) {
            copy->Act_Parameters->AddFullParameter(parameter, parameter.Key, false, 0);
        }
    }
    if (const auto* functions = Act_Functions.peek()) {
        for (const FunctionProperties& function : *functions) {
            copy->Act_Functions->AddFunctionProps(function, function.Function_Key, 0);
        }
    }
    return copy;
}

std::string RecordSetProperties::dbKey(const std::string& key) const {
    const auto* entries = DB2Key.peek();
    const std::string* entry = entries ? entries->Item(key) : nullptr;
    return entry ? *entry : std::string();
}

void RecordSetProperties::addDbKey(const std::string& key, const std::string& entry) {
    if (!entry.empty()) {
        DB2Key->append(std::make_unique<std::string>(entry), key);
    }
}

std::shared_ptr<RecordSetProperties> RecordSetProperties::Clone() const {
    auto copy = std::make_shared<RecordSetProperties>();
    static_cast<RecordSetFields&>(*copy) = *this;
    if (const auto* attributes = RecordSet_Outputs.peek()) {
        for (const AttributeProperties& attribute : *attributes) {
            copy->RecordSet_Outputs->AddFullAttribute(attribute, "", false, 0);
            copy->addDbKey(attribute.Key, dbKey(attribute.Key));
        }
    }
    return copy;
}

bool RecordSetProperties::RenameRecordSetOutPut(const std::string& OldKey, const std::string& NewKey,
                                                NameOwner& Owner) {
    if (OldKey == NewKey) {
        return true;
    }
    // Attribute keys are not kept among the canvas' names, so the record set's own list is asked as well.
    if (Owner.isNameTaken(RecordSet_Name + "." + NewKey) || RecordSet_Outputs->Item(NewKey)) {
        Owner.messages().tell("A NODE WITH THE SAME NAME ALLREADY EXISTS!!", "DUPLICATE NAME",
                              platform::Icon::critical);
        return false;
    }
    if (std::unique_ptr<std::string> entry = DB2Key->Remove(OldKey)) {
        DB2Key->append(std::move(entry), NewKey);
    }
    const AttributeProperties* old = RecordSet_Outputs->Item(OldKey);
    if (!old) {
        return false;
    }
    AttributeProperties& renamed = RecordSet_Outputs->AddFullAttribute(*old, NewKey, false, 0);
    renamed.Attribute_Name = NewKey;
    renamed.Changed = true;
    RecordSet_Outputs->Remove(OldKey);
    return true;
}

}  // namespace orvent::entities
