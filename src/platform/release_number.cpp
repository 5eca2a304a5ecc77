#include "platform/release_number.h"

#include "platform/parse_number.h"

namespace kestrune::platform {

std::optional<int> ReleaseNumber(std::string_view version_text) {
  std::string_view text = version_text.substr(0, version_text.find_last_not_of(' ') + 1);
  if (text.size() > 4) text.remove_prefix(text.size() - 4);
  if (text.size() == 4 && text.front() == '.') text.remove_prefix(1);
  return ParseWhole<int>(text);
}

}  // namespace kestrune::platform
