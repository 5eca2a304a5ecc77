#include "platform/plain_text.h"

#include <algorithm>
#include <cstdint>

#include "platform/utf8.h"

namespace kestrune::platform {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsOrdinary(char c) { return c >= ' ' && c < '\x7F'; }

bool IsControl(char32_t character) {
  return character < ' ' || (character >= 0x7F && character < 0xA0);
}

void AppendEscaped(std::string& text, char32_t control) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  switch (control) {
    case '\n':
      text += "\\n";
      break;
    case '\r':
      text += "\\r";
      break;
    case '\t':
      text += "\\t";
      break;
    default:
      text.append("\\x").append(1, kDigits[control >> 4]).append(1, kDigits[control & 15]);
  }
}

}  // namespace

std::string PlainText(std::string_view text) {
  const auto odd = std::find_if_not(text.begin(), text.end(), IsOrdinary);
  auto position = static_cast<std::size_t>(odd - text.begin());
  std::string plain(text.substr(0, position));
  while (position < text.size()) {
    const char32_t character = NextCharacter(text, position);
    if (character == kNoCharacter) {
      AppendCharacter(plain, kReplacement);
    } else if (IsControl(character)) {
      AppendEscaped(plain, character);
    } else {
      AppendCharacter(plain, character);
    }
  }
  return plain;
}

}  // namespace kestrune::platform
