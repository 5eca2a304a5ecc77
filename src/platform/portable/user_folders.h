#pragma once

#include <string>
#include <vector>

namespace kestrune::platform::portable {

/// A variable of the environment; empty when it isn't set.
std::string Environment(const char* name);

/// The folder for what the user's programs keep (XDG_DATA_HOME); empty when the user has none.
std::string DataHome();

/// The folders for what programs bring along (XDG_DATA_DIRS), the most important first.
std::vector<std::string> DataFolders();

/// The file of the running program; empty when it can't be told.
std::string ExecutablePath();

}  // namespace kestrune::platform::portable
