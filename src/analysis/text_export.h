#pragma once

#include <string>

#include "canvas/draw_form.h"
#include "entities/name_tables.h"
#include "platform/dialogs.h"

namespace orvent::analysis {

/// The structure of a scenario as lines of text for outside tools: a count line, a line for each activity and record
/// set in flow order, then a line for each flow between attributes. Line ends are CR LF.
class TextExport {
  public:
    TextExport(platform::Progress& progress, const entities::CatalogueTables& catalogue)
        : progress_(progress), catalogue_(catalogue) {}

    /// Throws a `Fault` when a node's data do not fit together (a type that the catalogue does not have, a link to a
    /// comment). An activity without a type, and a link to a node that is gone, leave their names empty.
    std::string ExportText(const canvas::DrawForm& Window);

  private:
    platform::Progress& progress_;
    const entities::CatalogueTables& catalogue_;
};

}  // namespace orvent::analysis
