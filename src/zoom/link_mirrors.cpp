#include "zoom/link_mirrors.h"

#include "zoom/mirror_lists.h"

namespace orvent::zoom {

using namespace entities;

namespace {

bool comesFromFarEnd(Direction direction) {
    return direction == Direction::ProvidedFrom || direction == Direction::RegulatedFrom;
}

/// The edge of that number when it joins the two nodes. A number may be left over from a zoom view of former days,
/// and then means nothing.
const canvas::LinesD* edgeBetween(const canvas::Canvas& Form, std::int32_t number, std::int32_t a, std::int32_t b) {
    const canvas::LinesD* edge = Form.Lines.byIndex(number);
    const bool joins =
        edge && ((edge->FromLabel() == a && edge->ToLabel() == b) || (edge->FromLabel() == b && edge->ToLabel() == a));
    return joins ? edge : nullptr;
}

template <class Link>
void addEdge(canvas::Canvas& Form, std::int32_t FromLabel, std::int32_t ToLabel, canvas::EdgeTypeCode edgeType,
             Link& link, Link& mirror) {
    const canvas::LinesD* edge = Form.Lines.addFullLine(FromLabel, 3, ToLabel, 1, edgeType, canvas::AngleStraight, 0);
    link.LineIndex = mirror.LineIndex = edge ? edge->Index() : -1;
}

template <class Link>
void draw(canvas::Canvas& Form, Direction direction, std::int32_t near, std::int32_t far, Link& link, Link& mirror) {
    if (edgeBetween(Form, mirror.LineIndex, near, far)) {
        link.LineIndex = mirror.LineIndex;
        return;
    }
    const std::int32_t from = comesFromFarEnd(direction) ? far : near;
    const std::int32_t to = comesFromFarEnd(direction) ? near : far;
    if constexpr (std::is_same_v<Link, ProviderProperties>) {
        AddProviderEdge(Form, from, to, link, mirror);
    } else {
        AddRegulatorEdge(Form, from, to, link, mirror);
    }
}

template <class Link>
void mirror(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near, Link& link,
            ActivityProperties* InDialog) {
    const FarEnd far = findFarEnd(Form, direction, near, {link.name(), link.type(), link.key()}, InDialog);
    Lazy<LinkCollection<Link>>* mirrors = mirrorsOf<Link>(far, direction);
    if (!mirrors) {
        return;
    }
    const std::int32_t nearLabel = far.node ? near.labelIn(Form) : 0;
    if (work == Work::Write) {
        Link& written = (*mirrors)->Add(near.owner(), link.type(), near.keyAs(far.mirror));
        if (far.node) {
            draw(Form, direction, nearLabel, far.node->Index(), link, written);
        }
        return;
    }
    if (LinkCollection<Link>* present = mirrors->peek()) {
        present->Remove(near.keyAs(far.mirror));
    }
    if (far.node && edgeBetween(Form, link.LineIndex, nearLabel, far.node->Index())) {
        Form.Lines.RemoveFull(link.LineIndex);
    }
}

/// A mirror goes into a list of the opposite direction, so the list that is walked stays as it is even when a link
/// leads back to its holder.
template <class Links>
void walk(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near, Lazy<Links>& links,
          ActivityProperties* InDialog) {
    if (Links* present = links.peek()) {
        for (auto& link : *present) {
            mirror(work, Form, direction, near, link, InDialog);
        }
    }
}

}  // namespace

void AddProviderEdge(canvas::Canvas& Form, std::int32_t FromLabel, std::int32_t ToLabel, ProviderProperties& Link,
                     ProviderProperties& Mirror) {
    addEdge(Form, FromLabel, ToLabel, canvas::EdgeTypeProvider, Link, Mirror);
}

void AddRegulatorEdge(canvas::Canvas& Form, std::int32_t FromLabel, std::int32_t ToLabel, RegulatorProperties& Link,
                      RegulatorProperties& Mirror) {
    addEdge(Form, FromLabel, ToLabel, canvas::EdgeTypeRegulator, Link, Mirror);
}

void mirrorLink(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near, ProviderProperties& link,
                ActivityProperties* InDialog) {
    mirror(work, Form, direction, near, link, InDialog);
}

void mirrorLink(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near, RegulatorProperties& link,
                ActivityProperties* InDialog) {
    mirror(work, Form, direction, near, link, InDialog);
}

void mirrorLinks(Work work, canvas::Canvas& Form, AttributeProperties& attribute, ActivityProperties* InDialog) {
    walk(work, Form, Direction::ProvidedFrom, attribute, attribute.ProvidedFrom, InDialog);
    walk(work, Form, Direction::ProviderFor, attribute, attribute.ProviderFor, InDialog);
    walk(work, Form, Direction::RegulatedFrom, attribute, attribute.RegulatedFrom, InDialog);
    walk(work, Form, Direction::RegulatorFor, attribute, attribute.RegulatorFor, InDialog);
}

void mirrorLinks(Work work, canvas::Canvas& Form, ParameterProperties& parameter, ActivityProperties* InDialog) {
    walk(work, Form, Direction::RegulatedFrom, parameter, parameter.RegulatedFrom, InDialog);
    walk(work, Form, Direction::RegulatorFor, parameter, parameter.RegulatorFor, InDialog);
}

}  // namespace orvent::zoom
