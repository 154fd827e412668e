#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "exchange/document.h"
#include "exchange/value_reader.h"
#include "links/members.h"

namespace orvent::exchange {

/// Reads what the nodes of a document stand for, and gathers the names of types in the document's tables.
class EntityReader {
  public:
    using Place = JsonTree::Place;

    EntityReader(const ValueReader& in, Document& document)
        : in_(in),
          data_{document.dataTypes, {}},
          functions_{document.functionTypes, {}},
          activities_{document.activityTypes, {}} {}

    /// The entity of a node whose other fields are read already.
    canvas::NodeProperties read(Place at, const Document::Node& node);

  private:
    /// A table of type names with the index of each.
    struct Names {
        std::vector<std::string>& names;
        std::unordered_map<std::string_view, std::int16_t> indices;
    };

    canvas::NodeProperties readActivity(Place at, const std::string& caption);
    canvas::NodeProperties readRecordSet(Place at, const std::string& caption);
    std::int16_t typeIn(Names& table, Place at) const;
    template <class List>
    links::EntityOf<List>& addMember(List& list, Place at, const std::string& owner, std::uint64_t keys);
    void addFunction(entities::ActivityProperties& activity, Place at);
    template <class Links>
    void readLinks(entities::Lazy<Links>& links, Place member, Key key) const;
    template <class Member>
    void readAllLinks(Member& member, Place at) const;

    const ValueReader& in_;
    Names data_, functions_, activities_;
};

}  // namespace orvent::exchange
