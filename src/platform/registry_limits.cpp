#include "platform/registry_limits.h"

#include <algorithm>

#include "platform/utf8.h"

namespace kestrune::platform {

namespace {

bool IsLonger(std::string_view name, std::size_t longest) {
  if (name.size() <= longest) return false;
  std::size_t length = 0;
  for (std::size_t position = 0; position < name.size();) {
    const char32_t character = NextCharacter(name, position);
    length += character != kNoCharacter && character > 0xFFFF ? 2 : 1;
  }
  return length > longest;
}

bool HasNul(std::string_view name) { return name.find('\0') != name.npos; }

}  // namespace

const char* KeyFault(std::string_view path) {
  if (HasNul(path)) return "a key's name has no NUL";
  std::size_t levels = 0;
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find('\\'));
    if (IsLonger(name, kLongestKeyName)) return "a key's name has at most 255 characters";
    path.remove_prefix(std::min(name.size() + 1, path.size()));
    if (++levels > kMostLevels) return "keys have at most 512 levels";
  }
  return nullptr;
}

const char* ValueNameFault(std::string_view name) {
  if (HasNul(name)) return "a value's name has no NUL";
  return IsLonger(name, kLongestValueName) ? "a value's name has at most 16383 characters"
                                           : nullptr;
}

const char* DataFault(std::size_t size) {
  return size > kLargestData ? "a value has at most 1048576 bytes" : nullptr;
}

}  // namespace kestrune::platform
