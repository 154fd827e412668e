#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "canvas/labels.h"
#include "entities/key_grammar.h"
#include "entities/tags.h"

namespace orvent::shell::sample {

using canvas::NodeTypeCode;
using entities::LinkType;
using entities::NodeKindCode;
using enum canvas::NodeTypeCode;
using enum entities::LinkType;
using enum entities::NodeKindCode;

/// The sample scenario as plain data: nodes, edges, members and links. `%O` in a key stands for the name that the first
/// activity type gives its first output; `%1` and `%2` for the inputs and outputs of the sample's two functions, which
/// are looked up by position (a digit follows: `%1i2` is the second input of MyFun, `%2o1` the first output of the
/// type's function), and `%F` for the key of the type's function.
struct Node {
    std::string_view name;
    NodeTypeCode nodeType;
    float left, top;
    std::int16_t activityType;
};

struct Edge {
    std::string_view from, to;
};

struct RecordSet {
    std::string_view name, attribute, dbKey, sql;
};

/// A member of an activity; `nodeKind` tells the collection.
struct Member {
    std::string_view activity;
    NodeKindCode nodeKind;
    std::string_view name;
    entities::TagCode tag;
};

enum class List { providedFrom, providerFor, regulatedFrom, regulatorFor };

/// One end of a link: the holder by its whole key, the far end by name, type code and key.
struct Link {
    std::string_view holder;
    List list;
    std::string_view name;
    LinkType type;
    std::string_view key;
};

inline constexpr std::array<Node, 9> kNodes = {{
    {"RS1", NodeTypeRecordSet, 200, 2000, -1},
    {"RS2", NodeTypeRecordSet, 12000, 100, -1},
    {"RS3", NodeTypeRecordSet, 5500, 6000, -1},
    {"RS4", NodeTypeRecordSet, 5000, 100, -1},
    {"RS5", NodeTypeRecordSet, 12000, 4500, -1},
    {"Activity3", NodeTypeActivity, 2000, 200, 2},
    {"Activity1", NodeTypeActivity, 3500, 3500, 0},
    {"Activity2", NodeTypeActivity, 9000, 100, 1},
    {"Activity4", NodeTypeActivity, 12000, 5500, 2},
}};

inline constexpr std::array<Edge, 9> kEdges = {{
    {"RS1", "Activity1"},
    {"RS1", "Activity3"},
    {"Activity3", "Activity2"},
    {"Activity1", "Activity2"},
    {"Activity2", "Activity4"},
    {"RS3", "Activity2"},
    {"RS4", "Activity2"},
    {"Activity2", "RS2"},
    {"Activity2", "RS5"},
}};

inline constexpr std::array<RecordSet, 5> kRecordSets = {{
    {"RS1", "AU_ID", "DEMO_ORCL.AUTHORS.AU_ID", "SELECT a.AU_ID FROM AUTHORS a;"},
    {"RS2", "ED_ID", "DEMO_ORCL.EDITORS.ED_ID", "SELECT a.ED_ID FROM EDITORS a"},
    {"RS3", "PUB_ID", "DEMO_ORCL.PUBLISHERS.PUB_ID", "SELECT a.PUB_ID FROM PUBLISHERS a"},
    {"RS4", "SONUM", "DEMO_ORCL.SALES.SONUM", "SELECT a.SONUM FROM SALES a"},
    {"RS5", "ED_ID", "DEMO_ORCL.EDITORS.ED_ID", "SELECT a.ED_ID FROM EDITORS a"},
}};

inline constexpr std::array<Member, 19> kMembers = {{
    {"Activity3", KindInput, "AU_ID", entities::TagRecordSet},
    {"Activity3", KindOutput, "AU_ID", entities::TagRecordSetMirror},
    {"Activity1", KindInput, "AU_ID", entities::TagRecordSet},
    {"Activity1", KindOutput, "AU_ID", entities::TagRecordSetMirror},
    {"Activity2", KindInput, "SONUM", entities::TagRecordSet},
    {"Activity2", KindInput, "AU_ID", entities::TagActivity},
    {"Activity2", KindInput, "%O", entities::TagActivity},
    {"Activity2", KindOutput, "ED_ID", entities::TagRecordSet},
    {"Activity2", KindOutput, "SONUM", entities::TagRecordSetMirror},
    {"Activity2", KindOutput, "AU_ID", entities::TagActivityMirror},
    {"Activity2", KindOutput, "%O", entities::TagActivityMirror},
    {"Activity2", KindParameter, "Constant1", entities::TagConstant},
    {"Activity2", KindParameter, "PUB_ID", entities::TagRecordSet},
    {"Activity2", KindParameter, "SONUM", entities::TagRecordSetMirror},
    {"Activity2", KindParameter, "AU_ID", entities::TagActivityMirror},
    {"Activity4", KindInput, "AU_ID", entities::TagActivity},
    {"Activity4", KindInput, "ED_ID", entities::TagActivity},
    {"Activity4", KindOutput, "AU_ID", entities::TagActivityMirror},
    {"Activity4", KindOutput, "ED_ID", entities::TagActivityMirror},
}};

inline constexpr std::array<Link, 47> kLinks = {{
    {"RS1.AU_ID", List::providerFor, "Activity3", LinkRecordSet, "Activity3.IN.AU_ID"},
    {"RS1.AU_ID", List::providerFor, "Activity1", LinkRecordSet, "Activity1.IN.AU_ID"},
    {"RS2.ED_ID", List::providedFrom, "Activity2", LinkRecordSet, "Activity2.OUT.ED_ID"},
    {"RS3.PUB_ID", List::regulatorFor, "Activity2", LinkRecordSet, "Activity2.PARAM.PUB_ID"},
    {"RS3.PUB_ID", List::regulatorFor, "MyFun", LinkRecordSetFunction, "MyFun.Activity2.%1i2"},
    {"RS3.PUB_ID", List::regulatorFor, "%F", LinkRecordSetFunction, "%F.IN.%2i2"},
    {"RS4.SONUM", List::providerFor, "Activity2", LinkRecordSet, "Activity2.IN.SONUM"},
    {"RS5.ED_ID", List::providedFrom, "Activity2", LinkRecordSet, "Activity2.OUT.ED_ID"},

    {"Activity3.IN.AU_ID", List::providedFrom, "RS1", LinkRecordSet, "RS1.AU_ID"},
    {"Activity3.IN.AU_ID", List::providerFor, "Activity3", LinkInput, ".OUT.AU_ID"},
    {"Activity3.OUT.AU_ID", List::providedFrom, "Activity3", LinkInput, ".IN.AU_ID"},
    {"Activity3.OUT.AU_ID", List::providerFor, "Activity2", LinkActivity, "Activity2.IN.AU_ID"},

    {"Activity1.IN.AU_ID", List::providedFrom, "RS1", LinkRecordSet, "RS1.AU_ID"},
    {"Activity1.IN.AU_ID", List::providerFor, "Activity1", LinkInput, ".OUT.AU_ID"},
    {"Activity1.OUT.AU_ID", List::providedFrom, "Activity1", LinkInput, ".IN.AU_ID"},
    {"Activity1.OUT.AU_ID", List::providerFor, "Activity2", LinkActivity, "Activity2.IN.AU_ID"},
    {"Activity1.OUT.%O", List::providerFor, "Activity2", LinkActivity, "Activity2.IN.%O"},

    {"Activity2.IN.SONUM", List::providedFrom, "RS4", LinkRecordSet, "RS4.SONUM"},
    {"Activity2.IN.SONUM", List::providerFor, "Activity2", LinkInput, ".OUT.SONUM"},
    {"Activity2.IN.SONUM", List::regulatorFor, "Activity2", LinkInput, ".PARAM.SONUM"},
    {"Activity2.IN.AU_ID", List::providedFrom, "Activity1", LinkActivity, "Activity1.OUT.AU_ID"},
    {"Activity2.IN.AU_ID", List::providedFrom, "Activity3", LinkActivity, "Activity3.OUT.AU_ID"},
    {"Activity2.IN.AU_ID", List::providerFor, "Activity2", LinkActivityInput, ".OUT.AU_ID"},
    {"Activity2.IN.%O", List::providedFrom, "Activity1", LinkActivity, "Activity1.OUT.%O"},
    {"Activity2.IN.%O", List::providerFor, "Activity2", LinkActivityInput, ".OUT.%O"},
    {"Activity2.IN.%O", List::regulatorFor, "MyFun", LinkInputFunction, "MyFun.IN.%1i1"},
    {"Activity2.IN.%O", List::regulatorFor, "%F", LinkInputFunction, "%F.IN.%2i1"},
    {"Activity2.OUT.ED_ID", List::providerFor, "RS2", LinkRecordSet, "RS2.ED_ID"},
    {"Activity2.OUT.ED_ID", List::providerFor, "RS5", LinkRecordSet, "RS5.ED_ID"},
    {"Activity2.OUT.ED_ID", List::providerFor, "Activity4", LinkActivity, "Activity4.IN.ED_ID"},
    {"Activity2.OUT.ED_ID", List::regulatedFrom, "Activity2", LinkParameterOutput, ".PARAM.Constant1"},
    {"Activity2.OUT.SONUM", List::providedFrom, "Activity2", LinkInput, ".IN.SONUM"},
    {"Activity2.OUT.AU_ID", List::providedFrom, "Activity2", LinkActivityInput, ".IN.AU_ID"},
    {"Activity2.OUT.AU_ID", List::providerFor, "Activity4", LinkActivity, "Activity4.IN.AU_ID"},
    {"Activity2.OUT.AU_ID", List::regulatedFrom, "Activity2", LinkParameterOutput, ".PARAM.AU_ID"},
    {"Activity2.OUT.%O", List::providedFrom, "Activity2", LinkActivityInput, ".IN.%O"},
    {"Activity2.OUT.%O", List::regulatedFrom, "MyFun", LinkFunctionOutput, "MyFun.OUT.%1o1"},
    {"Activity2.OUT.%O", List::regulatedFrom, "%F", LinkFunctionOutput, "%F.OUT.%2o1"},
    {"Activity2.PARAM.Constant1", List::regulatorFor, "Activity2", LinkParameterOutput, ".OUT.ED_ID"},
    {"Activity2.PARAM.PUB_ID", List::regulatedFrom, "RS3", LinkRecordSet, "RS3.PUB_ID"},
    {"Activity2.PARAM.SONUM", List::regulatedFrom, "Activity2", LinkInput, ".IN.SONUM"},
    {"Activity2.PARAM.AU_ID", List::regulatedFrom, "Activity2", LinkActivityInput, ".IN.AU_ID"},
    {"Activity2.PARAM.AU_ID", List::regulatorFor, "Activity2", LinkParameterOutput, ".OUT.AU_ID"},

    {"Activity4.IN.AU_ID", List::providedFrom, "Activity2", LinkActivity, "Activity2.OUT.AU_ID"},
    {"Activity4.IN.ED_ID", List::providedFrom, "Activity2", LinkActivity, "Activity2.OUT.ED_ID"},
    {"Activity4.OUT.AU_ID", List::providedFrom, "Activity4", LinkActivityInput, ".IN.AU_ID"},
    {"Activity4.OUT.ED_ID", List::providedFrom, "Activity4", LinkActivityInput, ".IN.ED_ID"},
}};

/// The links of a function of the sample, the same for both: `position` among inputs or outputs, 1-based.
struct FunctionLink {
    bool output;
    int position;
    List list;
    std::string_view name;
    LinkType type;
    std::string_view key;
};

inline constexpr std::array<FunctionLink, 4> kFunctionLinks = {{
    {true, 1, List::regulatorFor, "Activity2", LinkFunctionOutput, ".OUT.%O"},
    {false, 1, List::regulatedFrom, "Activity2", LinkInputFunction, ".IN.%O"},
    {false, 2, List::regulatedFrom, "RS3", LinkRecordSetFunction, "RS3.PUB_ID"},
    {false, 3, List::regulatedFrom, "Constant1", LinkConstantFunction, "Constant1"},
}};

}  // namespace orvent::shell::sample
