#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "links/far_end.h"
#include "testkit/numbers.h"
#include "zoom/link_graph.h"
#include "zoom/waiting_functions.h"
#include "zoom/zoom_form.h"

namespace orvent::testkit {

/// What does not hold together on a canvas: links without their mirror; and in a zoom view edges without link, links
/// without edge, and members that are not the objects of their collection.
class CanvasFaults {
  public:
    using Lines = std::vector<std::string>;

    static Lines ofScenario(canvas::Canvas& form) {
        CanvasFaults found(form);
        for (canvas::LabelsD& node : form.Labels) {
            found.seeOwner(node);
        }
        return found.faults_;
    }

    static Lines ofZoom(zoom::ZoomForm& form) {
        zoom::bringUpAll(form);  // as Apply does; till then an activity's list knows its waiting functions as they were
        CanvasFaults found(form);
        for (canvas::LabelsD& node : form.Labels) {
            if (form.bearsName(node)) {
                found.seeOwner(node);
                found.seeShown(form, node);
                found.seeExpanded(form, node);
            }
        }
        for (const canvas::LinesD& edge : form.Lines) {
            const bool stands =
                edge.EdgeType() == canvas::EdgeTypeProvider || edge.EdgeType() == canvas::EdgeTypeRegulator;
            if (stands && !found.drawn_.count(edge.Index())) {
                found.fault("edge without link", form.Labels.byIndex(edge.FromLabel())->KeyName(),
                            form.Labels.byIndex(edge.ToLabel())->KeyName());
            }
        }
        return found.faults_;
    }

  private:
    explicit CanvasFaults(canvas::Canvas& form) : form_(form) {}

    void fault(const std::string& what, const std::string& who, const std::string& more) {
        faults_.push_back(what + ": " + who + " " + more);
    }

    void seeOwner(canvas::LabelsD& node) {
        if (auto* activity = node.activity()) {
            for (const LinkGraph::Entity& entity : LinkGraph::holdersOf(*activity)) {
                std::visit([&](auto* each) { seeLinks(*each); }, entity);
            }
        } else if (auto* recordSet = node.recordSet()) {
            for (auto& attribute : recordSet->RecordSet_Outputs) {
                seeLinks(attribute);
            }
        }
    }

    /// A node of the view whose entity is a member, or stands free.
    void seeShown(zoom::ZoomForm& form, canvas::LabelsD& node) {
        if (auto* attribute = node.entity<entities::AttributeProperties>()) {
            seeMember(form, node, *attribute);
            seeLinks(*attribute);
        } else if (auto* parameter = node.entity<entities::ParameterProperties>()) {
            seeMember(form, node, *parameter);
            seeLinks(*parameter);
        } else if (auto* function = node.entity<entities::FunctionProperties>()) {
            canvas::LabelsD* owner = form.nodeNamed(function->ParentKeyName());
            auto* functions = owner && owner->activity() ? owner->activity()->Act_Functions.peek() : nullptr;
            if (functions && functions->Item(function->Function_Key) != function) {
                fault("not the function of its activity", node.KeyName(), function->ParentKeyName());
            }
        }
    }

    /// Functions that are shown one by one are shown all, each at its owner.
    void seeExpanded(zoom::ZoomForm& form, const canvas::LabelsD& owner) {
        const auto* functions = owner.activity() ? owner.activity()->Act_Functions.peek() : nullptr;
        for (int at = 1; functions && functions->Expanded && at <= functions->Count(); ++at) {
            const canvas::LabelsD* node = form.nodeNamed(functions->Item(at)->Function_Key);
            if (!node || node->entity<entities::FunctionProperties>() != functions->Item(at) ||
                !form.Lines.FindConnectingLine(owner.Index(), node->Index(), canvas::EdgeTypePartOf, false)) {
                fault("not at its activity", functions->Item(at)->Function_Key, owner.KeyName());
            }
        }
    }

    template <class Entity>
    void seeMember(zoom::ZoomForm& form, const canvas::LabelsD& node, Entity& entity) {
        canvas::LabelsD* owner = form.nodeNamed(entity.ParentKeyName);
        if (entity.LabelIndex != node.Index() && (owner || entity.LabelIndex != 0_node)) {
            fault("another label", node.KeyName(), canvas::textOf(entity.LabelIndex));
        }
        if (!owner || entity.ParentKeyName.empty() || entity.NodeKind == entities::KindConstant) {
            return;
        }
        const std::string whole = entities::wholeKey(entity.ParentKeyName, entity.NodeKind, entity.Key);
        bool held = false;
        const auto look = [&](auto& list) {
            for (auto& item : list) {
                held = held || static_cast<const void*>(&item) == static_cast<const void*>(&entity);
            }
        };
        if (auto* activity = owner->activity()) {
            look(activity->Act_Inputs);
            look(activity->Act_Outputs);
            look(activity->Act_Parameters);
        } else if (auto* recordSet = owner->recordSet()) {
            look(recordSet->RecordSet_Outputs);
        } else if (auto* function = owner->entity<entities::FunctionProperties>()) {
            look(function->Function_Inputs);
            look(function->Function_Outputs);
        }
        if (!held || whole != node.KeyName()) {
            fault(held ? "another name" : "not in its collection", node.KeyName(), whole);
        }
    }

    template <class Entity>
    void seeLinks(Entity& entity) {
        if constexpr (requires { entity.ProvidedFrom; }) {
            see(links::Direction::ProvidedFrom, entity, entity.ProvidedFrom);
            see(links::Direction::ProviderFor, entity, entity.ProviderFor);
        }
        see(links::Direction::RegulatedFrom, entity, entity.RegulatedFrom);
        see(links::Direction::RegulatorFor, entity, entity.RegulatorFor);
        if constexpr (requires { entity.ParentFunctionActivity; }) {
            if (entity.NodeKind == entities::KindFunctionInput && entity.RegulatedFrom.count() > 1) {
                fault("regulated twice", entity.ParentFunctionActivity, entity.ParentKeyName + " " + entity.Key);
            }
            for (const auto* links : {&entity.RegulatedFrom, &entity.RegulatorFor}) {
                for (const auto& link : *links) {
                    const bool inside =
                        link.type() == entities::LinkInputFunction || link.type() == entities::LinkFunctionOutput;
                    if (inside && link.name() != entity.ParentFunctionActivity) {
                        fault("linked to another activity", entity.ParentFunctionActivity,
                              entity.ParentKeyName + " " + entity.Key + " to " + link.name());
                    }
                }
            }
        }
    }

    template <class Entity, class Links>
    void see(links::Direction direction, Entity& entity, Links& links) {
        using enum links::Direction;
        for (auto& link : links) {
            const links::NearEnd near(entity);
            const links::FarEnd far =
                links::findFarEnd(form_, direction, near, {link.name(), link.type(), link.key()}, nullptr);
            const std::string who = near.keyAs(links::KeyForm::whole), where = link.name() + " " + link.key();
            // A constant is known by its name alone, and a folded end does not know yet that it has a node.
            const bool folded = far.parameter && far.parameter->NodeKind == entities::KindConstant &&
                                !canvas::isGiven(near.labelIn(form_));
            if (folded) {
                continue;
            }
            const bool toConstant =
                link.type() == entities::LinkConstant || link.type() == entities::LinkConstantFunction;
            if (!form_.isZoom() && !far.attribute && !far.parameter && !(direction == RegulatedFrom && toConstant)) {
                fault("leads nowhere", who, where);
            }
            const auto mirrored = [&](auto& mirrors) {
                if (!mirrors.peek() || !mirrors.peek()->Item(near.keyAs(far.mirror))) {
                    fault("no mirror", who, where + " as " + near.keyAs(far.mirror));
                }
            };
            if constexpr (requires { links.peek()->Item(1)->Provider_Name; }) {
                if (far.attribute) {
                    direction == ProvidedFrom ? mirrored(far.attribute->ProviderFor)
                                              : mirrored(far.attribute->ProvidedFrom);
                }
            } else if (far.attribute) {
                direction == RegulatedFrom ? mirrored(far.attribute->RegulatorFor)
                                           : mirrored(far.attribute->RegulatedFrom);
            } else if (far.parameter) {
                direction == RegulatedFrom ? mirrored(far.parameter->RegulatorFor)
                                           : mirrored(far.parameter->RegulatedFrom);
            }
            if (form_.isZoom() && far.node && canvas::isGiven(near.labelIn(form_))) {
                if (form_.Lines.byIndex(link.LineIndex)) {
                    drawn_.insert(link.LineIndex);
                } else {
                    fault("link without edge", who, where);
                }
            }
        }
    }

    canvas::Canvas& form_;
    Lines faults_;
    std::set<canvas::EdgeNumber> drawn_;
};

}  // namespace orvent::testkit
