#include "exchange/words.h"

#include <array>

namespace orvent::exchange {

namespace {

template <class Code>
struct Word {
    Code code;
    std::string_view word;
};

constexpr std::array<Word<canvas::NodeTypeCode>, 10> kNodeWords = {{
    {canvas::NodeTypeDataType, "dataType"},
    {canvas::NodeTypeFunctionType, "functionType"},
    {canvas::NodeTypeConstant, "constant"},
    {canvas::NodeTypeAttribute, "attribute"},
    {canvas::NodeTypeRecordSet, "recordSet"},
    {canvas::NodeTypeFunction, "function"},
    {canvas::NodeTypeParameter, "parameter"},
    {canvas::NodeTypeActivity, "activity"},
    {canvas::NodeTypeLog, "log"},
    {canvas::NodeTypeComment, "comment"},
}};

constexpr std::array<Word<canvas::EdgeTypeCode>, 6> kEdgeWords = {{
    {canvas::EdgeTypeProvider, "provider"},
    {canvas::EdgeTypePartOf, "partOf"},
    {canvas::EdgeTypeReserved, "reserved"},
    {canvas::EdgeTypeRegulator, "regulator"},
    {canvas::EdgeTypeDescription, "description"},
    {canvas::EdgeTypeDerived, "derived"},
}};

constexpr std::array<Word<canvas::AngleCode>, 4> kAngleWords = {{
    {canvas::AngleNone, "none"},
    {canvas::AngleVerticalUp, "verticalUp"},
    {canvas::AngleVerticalDown, "verticalDown"},
    {canvas::AngleStraight, "straight"},
}};

constexpr std::array<Word<entities::NodeKindCode>, 13> kMemberWords = {{
    {entities::KindFree, "free"},
    {entities::KindInput, "input"},
    {entities::KindOutput, "output"},
    {entities::KindParameter, "parameter"},
    {entities::KindRecordSetAttribute, "recordSetAttribute"},
    {entities::KindFunctionOutput, "functionOutput"},
    {entities::KindFunctionInput, "functionInput"},
    {entities::KindFunction, "function"},
    {entities::KindConstant, "constant"},
    {entities::DeletedActivity, "deletedActivity"},
    {entities::DeletedRecordSet, "deletedRecordSet"},
    {entities::DeletedComment, "deletedComment"},
    {entities::DeletedLog, "deletedLog"},
}};

constexpr std::array<Word<entities::LinkType>, 15> kLinkWords = {{
    {entities::LinkUnset, "unset"},
    {entities::LinkRecordSet, "recordSet"},
    {entities::LinkActivity, "activity"},
    {entities::LinkInput, "input"},
    {entities::LinkActivityInput, "activityInput"},
    {entities::LinkFunction, "function"},
    {entities::LinkConstant, "constant"},
    {entities::LinkTypeOutput, "typeOutput"},
    {entities::LinkTypeParameter, "typeParameter"},
    {entities::LinkTypeFunction, "typeFunction"},
    {entities::LinkParameterOutput, "parameterOutput"},
    {entities::LinkFunctionOutput, "functionOutput"},
    {entities::LinkRecordSetFunction, "recordSetFunction"},
    {entities::LinkInputFunction, "inputFunction"},
    {entities::LinkConstantFunction, "constantFunction"},
}};

template <class Code, std::size_t count>
std::string_view wordIn(const std::array<Word<Code>, count>& words, Code code) {
    for (const auto& [each, word] : words) {
        if (each == code) {
            return word;
        }
    }
    return {};
}

template <class Code, std::size_t count>
std::optional<Code> codeIn(const std::array<Word<Code>, count>& words, std::string_view word) {
    for (const auto& [code, each] : words) {
        if (each == word) {
            return code;
        }
    }
    return std::nullopt;
}

}  // namespace

std::string_view wordOf(canvas::NodeTypeCode code) {
    return wordIn(kNodeWords, code);
}
std::string_view wordOf(canvas::EdgeTypeCode code) {
    return wordIn(kEdgeWords, code);
}
std::string_view wordOf(canvas::AngleCode code) {
    return wordIn(kAngleWords, code);
}
std::string_view wordOf(entities::NodeKindCode code) {
    return wordIn(kMemberWords, code);
}
std::string_view wordOf(entities::LinkType code) {
    return wordIn(kLinkWords, code);
}

template <>
std::optional<canvas::NodeTypeCode> codeOf(std::string_view word) {
    return codeIn(kNodeWords, word);
}
template <>
std::optional<canvas::EdgeTypeCode> codeOf(std::string_view word) {
    return codeIn(kEdgeWords, word);
}
template <>
std::optional<canvas::AngleCode> codeOf(std::string_view word) {
    return codeIn(kAngleWords, word);
}
template <>
std::optional<entities::NodeKindCode> codeOf(std::string_view word) {
    return codeIn(kMemberWords, word);
}
template <>
std::optional<entities::LinkType> codeOf(std::string_view word) {
    return codeIn(kLinkWords, word);
}

}  // namespace orvent::exchange
