#pragma once

#include <string>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "platform/dialogs.h"
#include "platform/program_folder.h"

namespace orvent::analysis {

/// Writes the structure of a scenario as lines of text for outside tools: a count line, a line for each activity and
/// record set in flow order, then a line for each flow between attributes. Line ends are CR LF.
class TextExport {
  public:
    TextExport(platform::MessageBox& messages, const platform::ProgramFolder& folder, platform::Progress& progress,
               const entities::CatalogueTables& catalogue)
        : messages_(messages), folder_(folder), progress_(progress), catalogue_(catalogue) {}

    /// Writes "\<caption>.txt" of the program's folder and tells so. Throws a `Fault` when the file cannot be written,
    /// or when a node's data do not fit together (a type that the catalogue does not have, a link to a comment); then
    /// nothing is written. An activity without a type, and a link to a node that is gone, leave their names empty.
    void ExportText(const canvas::DrawForm& Window);

    /// What `ExportText` writes.
    std::string text(const canvas::DrawForm& Window);

  private:
    platform::MessageBox& messages_;
    const platform::ProgramFolder& folder_;
    platform::Progress& progress_;
    const entities::CatalogueTables& catalogue_;
};

}  // namespace orvent::analysis
