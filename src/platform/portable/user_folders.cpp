#include "platform/portable/user_folders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace kestrune::platform::portable {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string DataHome() {
  std::string data = Environment("XDG_DATA_HOME");
  if (data.starts_with('/')) return data;
  const std::string home = Environment("HOME");
  return home.empty() ? "" : home + "/.local/share";
}

std::vector<std::string> DataFolders() {
  const std::string given = Environment("XDG_DATA_DIRS");
  std::string_view list = "/usr/local/share:/usr/share";
  if (!given.empty()) list = given;
  std::vector<std::string> folders;
  while (!list.empty()) {
    const std::string_view folder = list.substr(0, list.find(':'));
    if (folder.starts_with('/')) folders.emplace_back(folder);
    list.remove_prefix(std::min(folder.size() + 1, list.size()));
  }
  return folders;
}

std::string ExecutablePath() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

}  // namespace kestrune::platform::portable
