#pragma once

#include <string>

#include "entities/name_tables.h"
#include "program/checked_program.h"

namespace orvent::program {

/// The program in the language of clingo. Names are spelt with its letters; NULL is the constant `null`, and conditions
/// keep it from matching where it must not. What is given, and the functions that are called, come as facts from
/// elsewhere; they are named in comments. Its numbers are whole, so other ones stand as texts, and an average is cut.
std::string clingoText(const Program& program, const entities::CatalogueTables& catalogue);

}  // namespace orvent::program
