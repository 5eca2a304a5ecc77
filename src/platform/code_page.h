#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/files_api.h"

namespace kestrune::platform {

class CodePage;

/// Converts characters between one code page and UTF-8, a whole one at a time. What doesn't exist
/// over there, or isn't whole, becomes empty text.
class CharacterConverter {
 public:
  virtual ~CharacterConverter() = default;

  virtual std::string ToUtf8(std::string_view bytes) = 0;
  virtual std::string FromUtf8(std::string_view character) = 0;
};

/// The system's own converter for a code page that CodePages knows (iconv, MultiByteToWideChar);
/// each kind of machine defines this.
std::unique_ptr<CharacterConverter> SystemConverter(int page);

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

}  // namespace kestrune::platform
