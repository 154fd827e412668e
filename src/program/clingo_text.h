#pragma once

#include <map>
#include <string>

#include "entities/name_tables.h"
#include "entities/node_facts.h"
#include "program/checked_program.h"

namespace orvent::program {

/// The program in the language of clingo. Names are spelt with its letters; NULL is the constant `null`, and conditions
/// keep it from matching where it must not. What is given, and the functions that are called, come as facts from
/// elsewhere; they are named in comments. Its numbers are whole, so other ones stand as texts, and an average is cut.
/// `rows` are those of a node that are written as facts; columns are told by their names.
std::string clingoText(const Program& program, const entities::CatalogueTables& catalogue,
                       const std::map<canvas::NodeNumber, entities::NodeFacts>& rows = {});

}  // namespace orvent::program
