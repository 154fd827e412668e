#pragma once

#include <cstdint>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "canvas/draw_form.h"

namespace orvent::repository {

/// Makes every record of the window new to the next save: all identifiers become 0, the inputs are marked for writing,
/// and `DeletedNodes` is emptied, since its entries name rows of what the window showed before. A full write begins
/// with this, so that whatever it does not reach is still told from what it has written.
void forgetStoredRows(canvas::DrawForm& form);

/// Makes all records of one node new.
void forgetStoredRows(canvas::LabelsD& node);

/// Makes a function and its parameters new.
void forgetStoredRows(entities::FunctionProperties& function);

/// Which rows of which scenario a window and its records stand for, kept to be put back.
class StoredIdentity {
  public:
    explicit StoredIdentity(canvas::DrawForm& form);

    /// Puts all identifiers back. The window must hold the same records as before.
    void restore(canvas::DrawForm& form) const;

  private:
    std::int16_t ScenarioID_;
    std::vector<std::int16_t> identifiers_;
    std::vector<std::pair<canvas::DeletedNode, std::string>> deletedNodes_;
};

/// How many identifiers of each sequence a full write of the window draws, at most.
struct IdentifierNeed {
    long long nodes = 0;
    long long subNodes = 0;
    long long functions = 0;
};
IdentifierNeed identifierNeed(const canvas::DrawForm& form);

/// How many of them the next plain save draws.
IdentifierNeed newRows(canvas::DrawForm& form);

/// The identifiers of all nodes of the window that have a row.
std::unordered_set<long long> storedNodes(const canvas::DrawForm& form);

/// Makes those nodes new whose row is not among `rows`, by their identifiers.
void forgetNodesWithoutRow(canvas::DrawForm& form, const std::unordered_set<long long>& rows);

}  // namespace orvent::repository
