#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "canvas/canvas.h"
#include "entities/name_tables.h"

namespace orvent::program {

/// How values of a data type are compared.
enum class Family : std::uint8_t { unknown, text, number, date };

/// The family of a data type by its name.
Family familyOf(std::string_view typeName);

/// The day, and the time behind it, of a text such as "2024-02-29", "2024-02-29 18:00:00" or with a "T" between, and
/// with parts of a second; "" for any other text, and for a day or a time that there is not.
std::string timestampIn(std::string_view text);

/// The data types of a catalogue, and the types that columns have by their sources.
class Types {
  public:
    Types(const canvas::Canvas& form, const entities::CatalogueTables& catalogue);

    Family family(std::int16_t type) const;
    /// The type of an attribute; where its source defines it, that of whatever provides it. -1 when nothing tells.
    std::int16_t typeOf(const entities::AttributeProperties& attribute) const;

  private:
    const canvas::Canvas& form_;
    const entities::NameTable& names_;
    int bySource_;
};

}  // namespace orvent::program
