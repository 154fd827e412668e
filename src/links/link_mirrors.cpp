#include "links/link_mirrors.h"

namespace orvent::links {

using namespace entities;

namespace {

bool comesFromFarEnd(Direction direction) {
    return direction == Direction::ProvidedFrom || direction == Direction::RegulatedFrom;
}

/// The edge of that number when it joins the two nodes. A number may be left over from a zoom view of former days,
/// and then means nothing.
const canvas::LinesD* edgeBetween(const canvas::Canvas& Form, canvas::EdgeNumber number, canvas::NodeNumber a,
                                  canvas::NodeNumber b) {
    const canvas::LinesD* edge = Form.Lines.byIndex(number);
    const bool joins =
        edge && ((edge->FromLabel() == a && edge->ToLabel() == b) || (edge->FromLabel() == b && edge->ToLabel() == a));
    return joins ? edge : nullptr;
}

template <class Link>
void addEdge(canvas::Canvas& Form, canvas::NodeNumber FromLabel, canvas::NodeNumber ToLabel,
             canvas::EdgeTypeCode edgeType, Link& link, Link& mirror) {
    const canvas::LinesD* edge = Form.Lines.addFullLine(FromLabel, 3, ToLabel, 1, edgeType, canvas::AngleStraight, 0);
    link.LineIndex = mirror.LineIndex = edge ? edge->Index() : canvas::kNoEdge;
}

template <class Link>
void draw(canvas::Canvas& Form, Direction direction, canvas::NodeNumber near, canvas::NodeNumber far, Link& link,
          Link& mirror) {
    if (edgeBetween(Form, mirror.LineIndex, near, far)) {
        link.LineIndex = mirror.LineIndex;
        return;
    }
    const canvas::NodeNumber from = comesFromFarEnd(direction) ? far : near;
    const canvas::NodeNumber to = comesFromFarEnd(direction) ? near : far;
    if constexpr (std::is_same_v<Link, ProviderProperties>) {
        AddProviderEdge(Form, from, to, link, mirror);
    } else {
        AddRegulatorEdge(Form, from, to, link, mirror);
    }
}

template <class Link>
Link& write(canvas::Canvas& Form, Link& link, Lazy<LinkCollection<Link>>& mirrors, const MirrorEnds& ends) {
    Link& written = mirrors->Add(ends.near.owner(), link.type(), ends.near.keyAs(ends.far.mirror));
    if (ends.far.node) {
        draw(Form, ends.direction, ends.near.labelIn(Form), ends.far.node->Index(), link, written);
    }
    return written;
}

template <class Link>
void work(Work work, canvas::Canvas& Form, Link& link, Lazy<LinkCollection<Link>>& mirrors, const MirrorEnds& ends) {
    if (work == Work::Write) {
        write(Form, link, mirrors, ends);
        return;
    }
    if (LinkCollection<Link>* present = mirrors.peek()) {
        present->Remove(ends.near.keyAs(ends.far.mirror));
    }
    const canvas::LabelsD* far = ends.far.node;
    if (far && edgeBetween(Form, link.LineIndex, ends.near.labelIn(Form), far->Index())) {
        Form.Lines.RemoveFull(link.LineIndex);
    }
}

template <class Link>
void one(Work what, canvas::Canvas& Form, Direction direction, const NearEnd& near, Link& link,
         ActivityProperties* InDialog) {
    const FarEnd far = findFarEnd(Form, direction, near, {link.name(), link.type(), link.key()}, InDialog);
    if (Lazy<LinkCollection<Link>>* mirrors = mirrorsOf<Link>(far, direction)) {
        work(what, Form, link, *mirrors, {direction, near, far});
    }
}

template <class Entity>
void all(Work what, canvas::Canvas& Form, Entity& entity, ActivityProperties* InDialog) {
    eachMirrorList(Form, entity, InDialog,
                   [&](auto& link, auto& mirrors, const MirrorEnds& ends) { work(what, Form, link, mirrors, ends); });
}

}  // namespace

void AddProviderEdge(canvas::Canvas& Form, canvas::NodeNumber FromLabel, canvas::NodeNumber ToLabel,
                     ProviderProperties& Link, ProviderProperties& Mirror) {
    addEdge(Form, FromLabel, ToLabel, canvas::EdgeTypeProvider, Link, Mirror);
}

void AddRegulatorEdge(canvas::Canvas& Form, canvas::NodeNumber FromLabel, canvas::NodeNumber ToLabel,
                      RegulatorProperties& Link, RegulatorProperties& Mirror) {
    addEdge(Form, FromLabel, ToLabel, canvas::EdgeTypeRegulator, Link, Mirror);
}

ProviderProperties& writeMirror(canvas::Canvas& Form, ProviderProperties& link, Lazy<ProviderLinks>& mirrors,
                                const MirrorEnds& ends) {
    return write(Form, link, mirrors, ends);
}

RegulatorProperties& writeMirror(canvas::Canvas& Form, RegulatorProperties& link, Lazy<RegulatorLinks>& mirrors,
                                 const MirrorEnds& ends) {
    return write(Form, link, mirrors, ends);
}

void mirrorLink(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near, ProviderProperties& link,
                ActivityProperties* InDialog) {
    one(work, Form, direction, near, link, InDialog);
}

void mirrorLink(Work work, canvas::Canvas& Form, Direction direction, const NearEnd& near, RegulatorProperties& link,
                ActivityProperties* InDialog) {
    one(work, Form, direction, near, link, InDialog);
}

void mirrorLinks(Work work, canvas::Canvas& Form, AttributeProperties& attribute, ActivityProperties* InDialog) {
    all(work, Form, attribute, InDialog);
}

void mirrorLinks(Work work, canvas::Canvas& Form, ParameterProperties& parameter, ActivityProperties* InDialog) {
    all(work, Form, parameter, InDialog);
}

}  // namespace orvent::links
