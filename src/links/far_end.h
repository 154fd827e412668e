#pragma once

#include <cstdint>
#include <string>

#include "canvas/canvas.h"
#include "entities/attributes.h"
#include "entities/nodes.h"

namespace orvent::links {

/// The four link collections that an entity may have. A link in one is mirrored at its far end in the opposite one.
enum class Direction { ProvidedFrom, ProviderFor, RegulatedFrom, RegulatorFor };

/// How a link spells the key of an entity.
enum class KeyForm { relative, whole, bare, forRecordSet };

/// The entity whose links are walked, be it an attribute or a parameter. It refers to the entity and must not outlive
/// it.
class NearEnd {
  public:
    NearEnd(const entities::AttributeProperties& attribute)  // NOLINT: an entity is the near end
        : attribute_(&attribute),
          owner_(attribute.ParentKeyName),
          key_(attribute.Key),
          kind_(attribute.NodeKind),
          label_(attribute.LabelIndex) {}
    NearEnd(const entities::ParameterProperties& parameter)  // NOLINT
        : parameter_(&parameter),
          owner_(parameter.ParentKeyName),
          key_(parameter.Key),
          kind_(parameter.NodeKind),
          label_(parameter.LabelIndex) {}

    /// The name that a mirror gets: the owning record set or activity, or the key of the owning function.
    const std::string& owner() const { return owner_; }

    /// The activity that has it, also as a parameter of a function; empty for one of a free function.
    const std::string& activity() const { return isOfFunction() ? parameter_->ParentFunctionActivity : owner_; }
    bool isOfFunction() const {
        return parameter_ && (kind_ == entities::KindFunctionInput || kind_ == entities::KindFunctionOutput);
    }
    bool isAttribute() const { return attribute_ != nullptr; }

    /// The key under which a link at the far end stands. A record set names an input of a function that was drawn by
    /// itself `<function>.<activity>.<input>`, and every other entity by its whole key.
    std::string keyAs(KeyForm form) const;

    /// The node of the canvas that shows this very entity, 0 when there is none.
    canvas::NodeNumber labelIn(const canvas::Canvas& Form) const;

  private:
    const entities::AttributeProperties* attribute_ = nullptr;
    const entities::ParameterProperties* parameter_ = nullptr;
    const std::string& owner_;
    const std::string& key_;
    entities::NodeKindCode kind_;
    canvas::NodeNumber label_;
};

/// Where a link leads. Neither attribute nor parameter: the far end is not within reach and is left alone.
template <class Attribute, class Parameter>
struct FarEndOf {
    Attribute* attribute = nullptr;
    Parameter* parameter = nullptr;
    const canvas::LabelsD* node = nullptr;  ///< the node of its own, when it has one; then the link is drawn
    KeyForm mirror = KeyForm::whole;        ///< what the mirror link calls the near end
};

/// A far end that may be written, and one that is only read.
using FarEnd = FarEndOf<entities::AttributeProperties, entities::ParameterProperties>;
using FarEndView = FarEndOf<const entities::AttributeProperties, const entities::ParameterProperties>;

/// A link as the search for its far end needs it.
struct LinkData {
    const std::string& name;
    entities::LinkType type;
    const std::string& key;
};

// The last step of the walk, for those that know the node already.

/// The attribute of the record set that a link's key names, or nothing.
const entities::AttributeProperties* attributeUnder(const entities::RecordSetProperties& recordSet,
                                                    const std::string& key);
/// The attribute in one of an activity's two lists (`KindInput`, `KindOutput`) that a link's key names, or nothing.
const entities::AttributeProperties* attributeUnder(const entities::ActivityProperties& activity,
                                                    entities::NodeKindCode list, const std::string& key);

/// Finds the far end of one of the near end's links, by table lookups only. `InDialog` is the working activity of the
/// open dialog that the near end belongs to, or null: then far ends in the same activity are looked up in it, and
/// those beyond it are out of reach.
FarEndView findFarEnd(const canvas::Canvas& Form, Direction direction, const NearEnd& near, const LinkData& link,
                      const entities::ActivityProperties* InDialog);
FarEnd findFarEnd(canvas::Canvas& Form, Direction direction, const NearEnd& near, const LinkData& link,
                  entities::ActivityProperties* InDialog);

}  // namespace orvent::links
