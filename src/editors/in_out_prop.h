#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entities/name_tables.h"
#include "forms/editor.h"
#include "forms/list.h"

namespace orvent::editors {

/// `InOutProp`: names and types one line of a list in the editors of function and activity types.
class InOutProp : public forms::Editor {
  public:
    /// `kind` is "FUNCTION", "PARAMETER", "OUTPUT" or "INPUT". The new line goes to `target`.
    InOutProp(platform::MessageBox& messages, const entities::CatalogueTables& catalogue, const std::string& kind,
              forms::List& target);

    std::string Caption;
    std::string txtInOutName;
    std::vector<std::string> InOutTypes;  ///< names of the catalogue
    int TypeIndex = -1;                   ///< the chosen one, from 0
    bool added = false;                   ///< the line is in the list

    void changeName(const std::string& name) { txtInOutName = name; }
    void selectType(int index) { TypeIndex = index; }
    /// True when the dialog closes.
    bool cmdOK() { return Apply(); }

  protected:
    bool apply() override;

  private:
    std::string item_;                   ///< what the line is called in messages
    std::vector<std::int16_t> indices_;  ///< of the types, in the catalogue
    forms::List& target_;
};

/// A line of such a list: its text is name, "(", type, ")"; name and type stand beside it.
forms::ListRow inOutRow(const std::string& name, std::int16_t type, const std::string& typeName);

}  // namespace orvent::editors
