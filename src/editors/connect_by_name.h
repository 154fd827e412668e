#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "entities/attributes.h"
#include "entities/name_tables.h"
#include "forms/editor.h"
#include "links/name_pairs.h"
#include "zoom/zoom_view.h"

namespace orvent::editors {

/// A pair that is proposed.
struct ConnectRow {
    std::string from, to, type;
    bool checked = true;
    std::string remark = {};
    bool possible = true;  ///< the rules would let the two be joined
    links::NamePair pair;
};

/// Joins members by their names: on a design window those of two selected nodes, in a zoom view all that have no
/// provider yet. Pairs are proposed, and only those that are checked are joined.
class ConnectByName : public forms::Editor {
  public:
    ConnectByName(platform::MessageBox& messages, const entities::CatalogueTables& catalogue, canvas::CanvasForm& form);

    std::string Caption;  ///< what is joined
    std::string whyNot;   ///< why nothing is proposed; empty when something is
    std::vector<ConnectRow> Rows;
    int connected = 0;  ///< by OK

    void Row_Check(std::size_t row, bool on);
    bool mayConnect() const;

  protected:
    bool apply() override;

  private:
    /// An end in the graph.
    struct Member {
        canvas::LabelsD* owner = nullptr;
        canvas::LabelsD* node = nullptr;  ///< of its own, in a zoom view
        entities::AttributeProperties* attribute = nullptr;
    };
    struct Side {
        std::vector<Member> members;
        std::vector<links::NamedEnd> names;
        std::map<const canvas::LabelsD*, std::set<std::string>> read;  ///< the names of what an owner reads
        void add(const Member& member);
    };

    void proposeForNodes();
    void proposeForView(zoom::ZoomView& view);
    void propose(const std::function<bool(std::size_t, std::size_t)>& mayJoin);
    bool suits(const Member& source, const Member& target) const;
    void joinInView(zoom::ZoomView& view, const Member& source, const Member& target);
    void joinNodes(const Member& source, const Member& target);
    void drawEdge(const canvas::LabelsD& from, const canvas::LabelsD& to);

    canvas::CanvasForm& form_;
    const entities::CatalogueTables& catalogue_;
    Side sources_, targets_;
};

}  // namespace orvent::editors
