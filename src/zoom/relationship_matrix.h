#pragma once

#include <optional>
#include <string>

#include "canvas/labels.h"
#include "entities/attributes.h"
#include "links/far_end.h"

namespace orvent::zoom {

/// One end of a drawn edge, as it is read: an attribute, a parameter or a constant. Only `present` ends may be read.
class RelationEnd {
  public:
    explicit RelationEnd(const canvas::LabelsD& node)
        : attribute_(node.entity<entities::AttributeProperties>()),
          parameter_(node.entity<entities::ParameterProperties>()) {}

    bool present() const { return attribute_ || parameter_; }

    entities::NodeKindCode kind() const { return attribute_ ? attribute_->NodeKind : parameter_->NodeKind; }
    entities::TagCode tag() const { return attribute_ ? attribute_->Tag : parameter_->Tag; }
    const std::string& key() const { return attribute_ ? attribute_->Key : parameter_->Key; }
    const std::string& parentKeyName() const {
        return attribute_ ? attribute_->ParentKeyName : parameter_->ParentKeyName;
    }
    /// The activity that has the end itself, or the function whose parameter it is; empty for a free function's.
    const std::string& activityName() const {
        return isFunctionParameter() ? parameter_->ParentFunctionActivity : parentKeyName();
    }
    bool isFunctionParameter() const {
        return kind() == entities::KindFunctionInput || kind() == entities::KindFunctionOutput;
    }
    /// What a link calls the end's owner: a constant stands for itself.
    const std::string& linkName() const { return kind() == entities::KindConstant ? key() : parentKeyName(); }

    bool isProvided() const { return attribute_ && attribute_->ProvidedFrom.count() > 0; }
    std::int16_t dataType() const { return attribute_ ? attribute_->Attribute_Type : parameter_->Parameter_Type; }
    bool isRegulated() const {
        return (attribute_ ? attribute_->RegulatedFrom.count() : parameter_->RegulatedFrom.count()) > 0;
    }
    links::NearEnd near() const { return attribute_ ? links::NearEnd(*attribute_) : links::NearEnd(*parameter_); }

  private:
    const entities::AttributeProperties* attribute_;
    const entities::ParameterProperties* parameter_;
};

/// One pair of kinds that an edge may join, and what it then means. The edge is `FROM` to `TO` as it was drawn.
struct RelationRow {
    entities::NodeKindCode from, to;
    bool (*allowed)(const RelationEnd& from, const RelationEnd& to);
    entities::LinkType (*type)(const RelationEnd& from, const RelationEnd& to);
    links::KeyForm targetKey;                   ///< of the provided or regulated end, in the list of its source
    links::KeyForm sourceKey;                   ///< of the providing or regulating end, in the list of its target
    bool flip = false;                          ///< the edge was drawn against the direction of regulation
    bool attach = false;                        ///< a free function is tied to the activity of the other end
    std::optional<entities::TagCode> setTag{};  ///< written to `TO`
};

/// The row of two ends, nothing when they may never be joined by an edge of that kind.
const RelationRow* providerRow(const RelationEnd& from, const RelationEnd& to);
const RelationRow* regulatorRow(const RelationEnd& from, const RelationEnd& to);

}  // namespace orvent::zoom
