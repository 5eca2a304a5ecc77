#pragma once

#include <string>
#include <vector>

#include "lang/language.h"

/// Makes the database files that are installed below data/DATA/Database from the settings' rows
/// and from what value_descriptions.cpp says of each value.
namespace kestrune::databases {

struct DatabaseFile {
  std::string name;  ///< "8198ogl.dat"
  std::string text;
};

/// Every file of every release. `english` gives the names of choices.
std::vector<DatabaseFile> MakeDatabases(const lang::LangTable& english);

}  // namespace kestrune::databases
