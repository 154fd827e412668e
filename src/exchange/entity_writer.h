#pragma once

#include <string>

#include "entities/name_tables.h"
#include "exchange/extract.h"
#include "exchange/member_text.h"

namespace orvent::exchange {

/// Writes what the nodes of a document stand for, each behind the members that all nodes have.
class EntityWriter {
  public:
    EntityWriter(JsonText& out, const Extract& extract, const entities::CatalogueTables& tables)
        : out_(out), extract_(extract), tables_(tables) {}

    void write(const canvas::LabelsD& node);

  private:
    void write(const entities::ActivityProperties& activity, const std::string& caption);
    void write(const entities::RecordSetProperties& recordSet, const std::string& caption);
    void writeFunction(const entities::FunctionProperties& function);

    template <class List, class More>
    void writeList(Key key, const entities::Lazy<List>& members, entities::NodeKindCode kind, More more);
    template <class List>
    void writeList(Key key, const entities::Lazy<List>& members, entities::NodeKindCode kind) {
        writeList(key, members, kind, [](const auto&) {});
    }
    template <class Links>
    void writeLinks(Key key, links::Direction direction, const links::NearEnd& near, const Links& links);

    void writeLines(Key key, const std::string& text);

    JsonText& out_;
    const Extract& extract_;
    const entities::CatalogueTables& tables_;
};

}  // namespace orvent::exchange
