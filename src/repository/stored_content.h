#pragma once

#include <cstdint>

#include "canvas/draw_form.h"
#include "platform/fault.h"
#include "repository/statement_cache.h"

namespace orvent::repository {

/// Throws a `Fault` that names the field and its node when a text that a save would write holds a null character: it
/// would be cut there without a word.
void refuseNullCharacters(const canvas::DrawForm& form);

/// A text is longer than the repository keeps.
class TextTooLong : public platform::Fault {
  public:
    using Fault::Fault;
};

/// Throws `TextTooLong`, which names the field and its node, for the first name or key that the repository cannot keep.
void refuseLongTexts(const canvas::DrawForm& form, const StatementCache& repository);

/// A number that stands for all that a save would write of nodes and edges; 0 for an empty window. A walk without
/// copies, some milliseconds for tens of thousands of nodes.
std::uint64_t contentMark(const canvas::DrawForm& form);

/// The window was just saved or loaded: nothing in it is unsaved.
void markStored(canvas::DrawForm& form);

/// The window is not what is stored any more, whatever it shows, until it is saved.
void markUnsaved(canvas::DrawForm& form);

/// A save begins to write: until its last statement is through nobody knows what is stored.
void markBroken(canvas::DrawForm& form);

/// Whether anything that a save would write has changed since the window was made, saved or loaded. Once it is so it
/// stays so until the next save or a step back, and is answered without a walk. The window's listeners are told when it
/// becomes so.
bool isUnsaved(canvas::DrawForm& form);

}  // namespace orvent::repository
