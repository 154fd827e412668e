#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "entities/key_grammar.h"
#include "entities/lazy.h"
#include "entities/links.h"
#include "entities/numbers.h"
#include "entities/tags.h"
#include "entities/type_records.h"

namespace orvent::entities {

// The plain fields of a record stand apart from its lists, so that `Clone` copies them as a whole and none can be
// forgotten. A list is never copied but by `Clone`.

/// The plain fields of `AttributeProperties`.
struct AttributeFields {
    bool Changed = false;              ///< the stored row must be rewritten at the next save
    std::int16_t SubNode_ID = 0;       ///< repository identifier, 0 while never saved
    NodeKindCode NodeKind = KindFree;  ///< KindInput, KindOutput, KindRecordSetAttribute; KindFree on a free node
    TagCode Tag = TagNone;             ///< how it came to its list, stored as `SubNode_Tag`
    std::string ParentKeyName;         ///< name of the owning activity or record set
    NodeNumber LabelIndex{};           ///< node that shows it while a zoom view is open; never stored
    std::string Key;
    std::int16_t Attribute_Type = 0;  ///< data type index
    std::string Attribute_Name;
};

/// A column that an activity reads or writes, or that a record set holds. `Key` is bare ("AU_ID", or
/// "Activity1.Output12" for a brought member); key_grammar.h makes the whole key.
struct AttributeProperties : AttributeFields {
    Lazy<ProviderLinks> ProvidedFrom;
    Lazy<RegulatorLinks> RegulatedFrom;
    Lazy<RegulatorLinks> RegulatorFor;
    Lazy<ProviderLinks> ProviderFor;

    /// A deep copy that keeps the identity of its row, so that a copy put in its place is an update.
    std::shared_ptr<AttributeProperties> Clone() const;
};

/// The plain fields of `ParameterProperties`.
struct ParameterFields {
    bool Changed = false;
    std::int16_t SubNode_ID = 0;
    std::string ParentFunctionActivity;  ///< for a function's parameter: the activity that owns the function
    NodeKindCode NodeKind = KindFree;    ///< KindParameter, KindFunctionOutput, KindFunctionInput, KindConstant
    TagCode Tag = TagNone;               ///< stored only for KindParameter
    std::string ParentKeyName;           ///< name of the owning activity, or key of the owning function
    NodeNumber LabelIndex{};
    std::string Key;
    std::string Parameter_Name;
    std::int16_t Parameter_Type = 0;  ///< data type index
};

/// A parameter of an activity, or an input or output of a function. It has no provider links: it is only ever
/// regulated or regulating.
struct ParameterProperties : ParameterFields {
    Lazy<RegulatorLinks> RegulatedFrom;
    Lazy<RegulatorLinks> RegulatorFor;

    std::shared_ptr<ParameterProperties> Clone() const;
};

/// A keyed collection of entities that a node of a canvas may hold too.
template <class T>
class EntityCollection : public KeyedCollection<T, std::shared_ptr<T>> {
  public:
    /// The 1-based position of the first item whose `Key` equals `key`, 0 when there is none.
    std::int16_t Key2Index(const std::string& key) const {
        int position = 0;
        for (const T& item : *this) {
            ++position;
            if (item.Key == key) {
                return static_cast<std::int16_t>(position);
            }
        }
        return 0;
    }

  protected:
    /// The one insertion rule: a clone of `record`, under `newKey` unless that is empty; at the front when `reversed`,
    /// before `index` when that lies in 1..Count, else at the end.
    T& addFull(const T& record, const std::string& newKey, bool reversed, int index) {
        std::shared_ptr<T> clone = record.Clone();
        if (!newKey.empty()) {
            clone->Key = newKey;
        }
        const std::string key = clone->Key;
        int position = this->Count() + 1;
        if (reversed) {
            position = 1;
        } else if (index >= 1 && index <= this->Count()) {
            position = index;
        }
        return this->insert(position, std::move(clone), key);
    }
};

/// Attributes of one kind: `Act_Inputs`, `Act_Outputs`, `RecordSet_Outputs`.
class AttributeCollection : public EntityCollection<AttributeProperties> {
  public:
    explicit AttributeCollection(NodeKindCode nodeKind) : nodeKind_(nodeKind) {}

    /// What `Add` makes its members.
    NodeKindCode nodeKind() const { return nodeKind_; }

    bool Expanded = false;  ///< its items are shown one by one in the zoom view

    AttributeProperties& Add(const std::string& Attribute_Name, std::int16_t Attribute_Type, TagCode Tag,
                             const std::string& sKey);
    AttributeProperties& AddFullAttribute(const AttributeProperties& AttrProps, const std::string& Newkey,
                                          bool Reversed, int Index) {
        return addFull(AttrProps, Newkey, Reversed, Index);
    }

  private:
    NodeKindCode nodeKind_;
};

/// Parameters of one owner: `Act_Parameters`, `Function_Inputs`, `Function_Outputs`.
class ParameterCollection : public EntityCollection<ParameterProperties> {
  public:
    explicit ParameterCollection(NodeKindCode nodeKind) : nodeKind_(nodeKind) {}

    /// What `Add` makes its members.
    NodeKindCode nodeKind() const { return nodeKind_; }

    bool Expanded = false;

    ParameterProperties& Add(const std::string& Parameter_Name, std::int16_t Parameter_Type, TagCode Tag,
                             const std::string& sKey);
    ParameterProperties& AddFullParameter(const ParameterProperties& ParamProps, const std::string& Newkey,
                                          bool Reversed, int Index = 0) {
        return addFull(ParamProps, Newkey, Reversed, Index);
    }

  private:
    NodeKindCode nodeKind_;
};

struct Act_InputsCollection : AttributeCollection {
    Act_InputsCollection() : AttributeCollection(KindInput) {}
    bool Changed = false;  ///< the inputs must be written at the next save
};
struct Act_OutputsCollection : AttributeCollection {
    Act_OutputsCollection() : AttributeCollection(KindOutput) {}
};
struct RecordSet_OutputsCollection : AttributeCollection {
    RecordSet_OutputsCollection() : AttributeCollection(KindRecordSetAttribute) {}
    AttributeProperties& Add(const std::string& Attribute_Name, std::int16_t Attribute_Type, const std::string& sKey) {
        return AttributeCollection::Add(Attribute_Name, Attribute_Type, TagNone, sKey);
    }
};
struct Act_ParametersCollection : ParameterCollection {
    Act_ParametersCollection() : ParameterCollection(KindParameter) {}
};

/// Inputs or outputs of a function. `Add` sets no `NodeKind`; its callers do.
struct FunctionParameters : ParameterCollection {
    FunctionParameters() : ParameterCollection(KindFree) {}
    ParameterProperties& Add(const std::string& Parameter_Name, std::int16_t Parameter_Type, const std::string& sKey) {
        return ParameterCollection::Add(Parameter_Name, Parameter_Type, TagNone, sKey);
    }
};

}  // namespace orvent::entities
