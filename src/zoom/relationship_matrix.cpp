// Which attributes, parameters and constants may be joined, and by which links.

#include "zoom/relationship_matrix.h"

#include <array>
#include <span>

namespace orvent::zoom {

using namespace links;

using namespace entities;
using End = RelationEnd;

namespace {

using enum KeyForm;

// Conditions

bool always(const End&, const End&) {
    return true;
}
bool sameOwner(const End& from, const End& to) {
    return from.parentKeyName() == to.parentKeyName();
}
bool freshInputOfAnother(const End& from, const End& to) {
    return !sameOwner(from, to) && !to.isProvided();
}
bool targetUnprovided(const End&, const End& to) {
    return !to.isProvided();
}
bool targetUnregulated(const End&, const End& to) {
    return !to.isRegulated();
}
bool sourceUnregulated(const End& from, const End&) {
    return !from.isRegulated();
}
bool openParameterOfOwner(const End& from, const End& to) {
    const bool open = to.tag() == tagOf(LinkTypeParameter) || to.tag() == TagNone;
    return open && sameOwner(from, to) && !to.isRegulated();
}
bool typeParameterUnregulated(const End& from, const End&) {
    return from.tag() == tagOf(LinkTypeParameter) && !from.isRegulated();
}
bool typeParameterOfOwner(const End& from, const End& to) {
    return typeParameterUnregulated(from, to) && sameOwner(from, to);
}
/// A function's parameter joins members of its own activity; a free function joins those of any.
bool sameActivity(const End& from, const End& to) {
    const End& ofFunction = from.isFunctionParameter() ? from : to;
    return ofFunction.activityName().empty() || from.activityName() == to.activityName();
}
bool inputToFunction(const End& from, const End& to) {
    return targetUnregulated(from, to) && sameActivity(from, to);
}
bool functionToInput(const End& from, const End& to) {
    return sourceUnregulated(from, to) && sameActivity(from, to);
}

// Link types

template <LinkType type>
LinkType fixed(const End&, const End&) {
    return type;
}
/// Inside one activity the type tells where the input comes from.
LinkType byOriginOfSource(const End& from, const End&) {
    return innerLink(from.tag());
}
LinkType byOriginOfTarget(const End&, const End& to) {
    return innerLink(to.tag());
}

constexpr auto kProvider = std::to_array<RelationRow>({
    {KindInput, KindOutput, sameOwner, byOriginOfSource, relative, relative},
    {KindOutput, KindInput, freshInputOfAnother, fixed<LinkActivity>, whole, whole, false, false, TagActivity},
    {KindOutput, KindRecordSetAttribute, always, fixed<LinkRecordSet>, whole, whole},
    {KindRecordSetAttribute, KindInput, targetUnprovided, fixed<LinkRecordSet>, whole, whole, false, false,
     TagRecordSet},
});

// In a row that flips, `TO` regulates.
constexpr auto kRegulator = std::to_array<RelationRow>({
    {KindInput, KindParameter, openParameterOfOwner, byOriginOfSource, relative, relative},
    {KindInput, KindFunctionInput, inputToFunction, fixed<LinkInputFunction>, whole, relative, false, true},
    {KindOutput, KindParameter, sameOwner, fixed<LinkParameterOutput>, relative, relative, true},
    {KindOutput, KindFunctionOutput, sameActivity, fixed<LinkFunctionOutput>, relative, whole, true, true},
    {KindParameter, KindInput, typeParameterOfOwner, byOriginOfTarget, relative, relative, true},
    {KindParameter, KindOutput, sameOwner, fixed<LinkParameterOutput>, relative, relative},
    {KindParameter, KindRecordSetAttribute, typeParameterUnregulated, fixed<LinkRecordSet>, whole, whole, true},
    {KindParameter, KindConstant, sourceUnregulated, fixed<LinkConstant>, whole, bare, true},
    {KindConstant, KindParameter, targetUnregulated, fixed<LinkConstant>, whole, bare},
    {KindConstant, KindFunctionInput, targetUnregulated, fixed<LinkConstantFunction>, whole, bare},
    {KindFunctionInput, KindInput, functionToInput, fixed<LinkInputFunction>, whole, relative, true, true},
    {KindFunctionInput, KindRecordSetAttribute, sourceUnregulated, fixed<LinkConstantFunction>, forRecordSet, whole,
     true},
    {KindFunctionInput, KindConstant, sourceUnregulated, fixed<LinkConstantFunction>, whole, bare, true},
    {KindFunctionOutput, KindOutput, sameActivity, fixed<LinkFunctionOutput>, relative, whole, false, true},
    {KindRecordSetAttribute, KindFunctionInput, targetUnregulated, fixed<LinkRecordSetFunction>, forRecordSet, whole},
    {KindRecordSetAttribute, KindParameter, targetUnregulated, fixed<LinkRecordSet>, whole, whole},
});

const RelationRow* find(std::span<const RelationRow> rows, const End& from, const End& to) {
    for (const RelationRow& row : rows) {
        if (row.from == from.kind() && row.to == to.kind()) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

const RelationRow* providerRow(const RelationEnd& from, const RelationEnd& to) {
    return find(kProvider, from, to);
}

const RelationRow* regulatorRow(const RelationEnd& from, const RelationEnd& to) {
    return find(kRegulator, from, to);
}

}  // namespace orvent::zoom
