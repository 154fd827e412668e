#include "statements/ldl_records.h"

#include "platform/fault.h"

namespace orvent::statements {

LDLRecItem& LDLRecordSet::Add(const std::string& caption, const std::string& key) {
    const std::int16_t position = platform::checkedI16(Count() + 1, "The number of attributes");
    return append(std::make_unique<LDLRecItem>(LDLRecItem{position, 0, caption, key}), key);
}

const LDLRecItem& LDLRecordSet::known(const std::string& key) const {
    const LDLRecItem* item = Item(key);
    if (!item) {
        throw platform::Fault("\"" + RSName + "\" has no attribute \"" + key + "\"");
    }
    return *item;
}

std::int16_t LDLRecordSet::GetItemPos(const std::string& key) const {
    return known(key).Position;
}

const std::string& LDLRecordSet::MarkAndGetItem(const std::string& key) {
    const std::string& caption = known(key).Caption;
    Item(key)->Selected = 1;
    return caption;
}

LDLRecordSet& LDLRecCollection::Add(const std::string& name) {
    auto recordSet = std::make_unique<LDLRecordSet>();
    recordSet->RSName = name;
    return append(std::move(recordSet), name);
}

}  // namespace orvent::statements
