#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/files_api.h"

namespace kestrune::platform::portable {

class CodePage;

/// Turns bytes in Windows code pages into UTF-8 and back. A byte that the page doesn't define
/// becomes the character U+F700 + byte, which turns back into that byte, so nothing is lost on a
/// round trip. Code page 0, and any number that isn't known, stands for the system's.
class CodePages {
 public:
  /// A system code page that isn't known counts as 1252.
  explicit CodePages(int system_page);
  ~CodePages();

  std::string Decode(std::string_view bytes, int page = 0);
  EncodedText Encode(std::string_view text, int page = 0);

  static bool IsKnown(int page);

 private:
  const CodePage& Page(int page);

  int system_page_;
  std::map<int, std::unique_ptr<CodePage>> pages_;
};

}  // namespace kestrune::platform::portable
