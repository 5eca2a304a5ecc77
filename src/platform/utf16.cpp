#include "platform/utf16.h"

#include "platform/utf8.h"

namespace kestrune::platform {

std::string FromUtf16(std::string_view bytes) {
  std::string text;
  const auto unit = [bytes](std::size_t at) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[at]) |
                                 static_cast<unsigned char>(bytes[at + 1]) << 8);
  };
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const char32_t first = unit(at);
    const bool is_high = first >= 0xD800 && first < 0xDC00 && at + 3 < bytes.size();
    const char32_t second = is_high ? unit(at + 2) : 0;
    if (second >= 0xDC00 && second < 0xE000) {
      AppendCharacter(text, 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00));
      at += 2;
    } else {
      AppendCharacter(text, first);
    }
  }
  return text;
}

std::string ToUtf16(std::string_view text) {
  constexpr char32_t kReplacement = 0xFFFD;
  std::string bytes;
  const auto append = [&bytes](char32_t unit) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
  };
  for (std::size_t position = 0; position < text.size();) {
    char32_t character = NextCharacter(text, position);
    if (character == kNoCharacter) character = kReplacement;
    if (character < 0x10000) {
      append(character);
    } else {
      append(0xD800 + ((character - 0x10000) >> 10));
      append(0xDC00 + ((character - 0x10000) & 0x3FF));
    }
  }
  return bytes;
}

}  // namespace kestrune::platform
