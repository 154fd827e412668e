// What the buttons and the menu of the activity dialog's lists do.

#include <algorithm>

#include "editors/set_act_prop.h"
#include "entities/key_grammar.h"

namespace orvent::editors {

using namespace entities;
using platform::Icon;

void SetActProp::MoveRow_Click(forms::RowMove where) {
    moveSelected(frontList(), where, [this](int row, int to) { moveRowTo(row, to); });
}

void SetActProp::MoveRows(const std::vector<int>& rows, int place) {
    moveRowsTo(frontList(), rows, place, [this](int row, int to) { moveRowTo(row, to); });
}

void SetActProp::Move2Tree_Click() {
    bool refused = false;
    moveMany([&] {
        removeSelected(
            frontList(),
            [&](const forms::ListRow& row) {
                const bool ofType = tagOf(row) >= TagTypeOutput && tagOf(row) != TagWizard;
                refused = refused || ofType;
                return !ofType;
            },
            [this](int row) { RemoveRow(row); });
    });
    if (refused) {
        tell("Activity Type's Members Cannot Be Deleted", Icon::information);
    }
}

void SetActProp::MoveAll2Tree_Click() {
    moveMany([this] {
        for (int row = frontList().Count(); row >= 1; row = std::min(row - 1, frontList().Count())) {
            if (tagOf(*frontList().Item(row)) < TagTypeOutput) {
                RemoveRow(row);
            }
        }
    });
}

/// False when all rows have that name already.
template <class Text>
bool SetActProp::renameRows(Text text) {
    bool other = false;
    for (int row = 1; row <= frontList().Count(); ++row) {
        const std::string name = text(*frontList().Item(row));
        other = other || name != frontList().Item(row)->Text;
        setRowText(row, SelectedList, name);
        renameMember(row, SelectedList);
    }
    return other;
}

void SetActProp::CutFullNamesM_Click() {
    if (!renameRows([](const forms::ListRow& row) { return AfterLastDot(row.Text); })) {
        tell("No name of this list has a dot, behind which it could be cut.", Icon::information);
    }
}

void SetActProp::RestoreNamesM_Click() {
    renameRows([](const forms::ListRow& row) { return row.Key; });
}

}  // namespace orvent::editors
