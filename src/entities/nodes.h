#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "entities/attributes.h"
#include "entities/functions.h"
#include "platform/dialogs.h"

namespace orvent::entities {

/// The plain fields of `ActivityProperties`.
struct ActivityFields {
    std::string Act_LDL;            ///< LDL statement
    std::string statementDoubt;     ///< why it may mean others since it was copied, until it is made anew; never stored
    std::int16_t Act_SchemaNo = 0;  ///< schemata, copied from the type; 1 joins the node's two input points
    bool Changed = false;           ///< the stored row must be rewritten at the next save
    std::int16_t NodeID = 0;        ///< repository identifier, 0 while never saved
    std::int16_t ZoomPosition = 0;  ///< place in the zoom view; never stored
    std::string Act_SQL;
    std::string Act_Log;
    std::string Act_Description;
    std::int16_t Act_Type = -1;  ///< activity type index, -1 while none is chosen
    std::string Act_Name;        ///< equals caption and key name of its node
};

/// An activity of a scenario: what a node of kind 8 means.
struct ActivityProperties : ActivityFields {
    Lazy<Act_ParametersCollection> Act_Parameters;
    Lazy<Act_OutputsCollection> Act_Outputs;
    Lazy<Act_InputsCollection> Act_Inputs;
    Lazy<Act_FunctionsCollection> Act_Functions;

    ActivityProperties() { Act_Inputs->Changed = true; }

    /// A deep copy with the same repository identity. What a zoom view shows (`Expanded`) stays with the original, and
    /// each function bears its key as its name.
    std::shared_ptr<ActivityProperties> Clone() const;
};

/// What `RenameRecordSetOutPut` needs of the canvas that shows the record set.
class NameOwner {
  public:
    virtual ~NameOwner() = default;
    virtual bool isNameTaken(const std::string& name) const = 0;
    virtual platform::MessageBox& messages() = 0;
};

/// The plain fields of `RecordSetProperties`.
struct RecordSetFields {
    bool Changed = false;
    std::int16_t NodeID = 0;
    std::int16_t ZoomPosition = 0;
    std::string RecordSet_SQL;  ///< the SELECT that defines it
    std::string RecordSet_Name;
};

/// A record set of a scenario: a table or file with its attributes; what a node of kind 5 means.
struct RecordSetProperties : RecordSetFields {
    /// Each attribute's source in the database under its `Key`, as `<alias>.<table>.<column>`.
    Lazy<KeyedCollection<std::string>> DB2Key;
    Lazy<RecordSet_OutputsCollection> RecordSet_Outputs;

    /// The `DB2Key` entry under `key`, empty when there is none.
    std::string dbKey(const std::string& key) const;
    void addDbKey(const std::string& key, const std::string& dbKey);

    /// A deep copy with the same repository identity. What a zoom view shows (`Expanded`) stays with the original, and
    /// so do sources of attributes that are gone.
    std::shared_ptr<RecordSetProperties> Clone() const;

    /// Renames one attribute, by bare keys; it moves to the last place. A taken name shows the message and changes
    /// nothing. True when the rename was carried out.
    bool RenameRecordSetOutPut(const std::string& OldKey, const std::string& NewKey, NameOwner& Owner);
};

/// A comment on the canvas; what a node of kind 10 means.
struct CommentProperties {
    std::string Comment;
    bool Changed = false;
    std::int16_t NodeID = 0;

    std::shared_ptr<CommentProperties> Clone() const { return std::make_shared<CommentProperties>(*this); }
};

}  // namespace orvent::entities
