#include "analysis/attribute_walks.h"

#include "links/far_end.h"

namespace orvent::analysis {

using namespace entities;

namespace {

template <class Entity, class Link>
links::FarEndView farEnd(const canvas::Canvas& form, links::Direction direction, const Entity& near, const Link& link) {
    return links::findFarEnd(form, direction, near, {link.name(), link.type(), link.key()}, nullptr);
}

bool isInner(LinkType type) {
    return type == LinkInput || type == LinkActivityInput;
}

/// Data of another entity or of the same activity; functions and constants give no attribute to go on from.
bool leadsOn(LinkType type) {
    return type == LinkRecordSet || type == LinkActivity || isInner(type);
}

bool regulatesByAttribute(LinkType type) {
    return type == LinkRecordSet || isInner(type);
}

}  // namespace

void AttributeWalks::include(const AttributeProperties& attribute) {
    vertexOf(&attribute);
    while (graph_.vertices() < attributes_.size()) {
        addSteps(*attributes_[graph_.vertices()]);
    }
    walk_.reset();
}

std::int32_t AttributeWalks::count(const AttributeProperties& attribute, std::int32_t budget) {
    if (!walk_) {
        walk_ = std::make_unique<BudgetedWalk>(graph_);
    }
    return walk_->count(static_cast<std::size_t>(vertices_.at(&attribute)), budget);
}

std::int32_t AttributeWalks::vertexOf(const AttributeProperties* attribute) {
    if (!attribute) {
        return WalkGraph::kNone;
    }
    const auto [place, isNew] = vertices_.try_emplace(attribute, static_cast<std::int32_t>(attributes_.size()));
    if (isNew) {
        attributes_.push_back(attribute);
    }
    return place->second;
}

/// All direct texts, then the regulations with what lies behind them, then the walk along each provider link.
void AttributeWalks::addSteps(const AttributeProperties& attribute) {
    graph_.begin();
    const bool in = direction_ == Direction::In;
    const auto& links = in ? attribute.ProvidedFrom : attribute.ProviderFor;
    for (const ProviderProperties& link : links) {
        graph_.add(textOf(link.name() + link.key()), WalkGraph::kNone);
    }
    addRegulations(attribute);
    for (const ProviderProperties& link : links) {
        if (leadsOn(link.type())) {
            const auto direction = in ? links::Direction::ProvidedFrom : links::Direction::ProviderFor;
            graph_.add(WalkGraph::kNone, vertexOf(farEnd(form_, direction, attribute, link).attribute));
        }
    }
}

void AttributeWalks::addRegulations(const AttributeProperties& attribute) {
    const auto follow = [&](links::Direction direction, const ParameterProperties& parameter, const auto& link) {
        graph_.add(textOf(link.name() + link.key()), vertexOf(farEnd(form_, direction, parameter, link).attribute));
    };
    if (direction_ == Direction::In && attribute.NodeKind == KindOutput) {
        for (const RegulatorProperties& link : attribute.RegulatedFrom) {
            const links::FarEndView far = link.type() == LinkParameterOutput
                                              ? farEnd(form_, links::Direction::RegulatedFrom, attribute, link)
                                              : links::FarEndView{};
            if (far.parameter) {
                for (const RegulatorProperties& source : far.parameter->RegulatedFrom) {
                    if (regulatesByAttribute(source.type())) {
                        follow(links::Direction::RegulatedFrom, *far.parameter, source);
                    }
                }
            }
        }
    } else if (direction_ == Direction::Out && attribute.NodeKind != KindOutput) {
        for (const RegulatorProperties& link : attribute.RegulatorFor) {
            const links::FarEndView far = regulatesByAttribute(link.type())
                                              ? farEnd(form_, links::Direction::RegulatorFor, attribute, link)
                                              : links::FarEndView{};
            if (far.parameter) {
                for (const RegulatorProperties& target : far.parameter->RegulatorFor) {
                    if (target.type() == LinkParameterOutput) {
                        follow(links::Direction::RegulatorFor, *far.parameter, target);
                    }
                }
            }
        }
    }
}

std::int64_t AttributeWalks::local(const AttributeProperties& attribute) const {
    if (direction_ == Direction::In) {
        std::int64_t count = attribute.ProvidedFrom.count();
        if (attribute.NodeKind != KindOutput) {
            return count;
        }
        for (const RegulatorProperties& link : attribute.RegulatedFrom) {
            if (link.type() != LinkParameterOutput) {
                continue;
            }
            if (const auto* parameter = farEnd(form_, links::Direction::RegulatedFrom, attribute, link).parameter) {
                for (const RegulatorProperties& source : parameter->RegulatedFrom) {
                    count += source.type() != LinkConstant ? 1 : 0;
                }
            }
        }
        return count;
    }
    std::int64_t count = attribute.ProviderFor.count();
    if (attribute.NodeKind == KindOutput) {
        return count;
    }
    for (const RegulatorProperties& link : attribute.RegulatorFor) {
        if (!regulatesByAttribute(link.type())) {
            continue;
        }
        if (const auto* parameter = farEnd(form_, links::Direction::RegulatorFor, attribute, link).parameter) {
            count += parameter->RegulatorFor.count();
        }
    }
    return count;
}

}  // namespace orvent::analysis
