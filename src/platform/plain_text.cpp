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

struct LetterRow {
  char32_t control;
  std::string_view escaped;
};

constexpr LetterRow kLetters[] = {{'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}};

void AppendEscaped(std::string& text, char32_t control, Escapes escapes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto* letter =
      std::find_if(std::begin(kLetters), std::end(kLetters),
                   [control](const LetterRow& row) { return row.control == control; });
  if (escapes == Escapes::kLetters && letter != std::end(kLetters)) {
    text += letter->escaped;
  } else {
    text.append("\\x").append(1, kDigits[control >> 4]).append(1, kDigits[control & 15]);
  }
}

}  // namespace

std::string PlainText(std::string_view text, Escapes escapes) {
  const auto odd = std::find_if_not(text.begin(), text.end(), IsOrdinary);
  auto position = static_cast<std::size_t>(odd - text.begin());
  std::string plain(text.substr(0, position));
  while (position < text.size()) {
    const char32_t character = NextCharacter(text, position);
    if (character == kNoCharacter) {
      AppendCharacter(plain, kReplacement);
    } else if (IsControl(character)) {
      AppendEscaped(plain, character, escapes);
    } else {
      AppendCharacter(plain, character);
    }
  }
  return plain;
}

}  // namespace kestrune::platform
