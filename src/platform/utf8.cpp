#include "platform/utf8.h"

namespace kestrune::platform {

char32_t NextCharacter(std::string_view text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position]);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0 || length > text.size() - position) return ++position, kNoCharacter;
  char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[position + i]);
    if ((byte & 0xC0) != 0x80) return ++position, kNoCharacter;
    character = character << 6 | (byte & 0x3Fu);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[length] || character > 0x10FFFF) return ++position, kNoCharacter;
  position += length;
  return character;
}

void AppendCharacter(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  const auto append_rest = [&](int shift) { append(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) return append(character);
  if (character < 0x800) return append(0xC0 | character >> 6), append_rest(0);
  if (character < 0x10000) {
    return append(0xE0 | character >> 12), append_rest(6), append_rest(0);
  }
  append(0xF0 | character >> 18), append_rest(12), append_rest(6), append_rest(0);
}

std::size_t OffsetBehind(std::string_view text, std::size_t count) {
  std::size_t position = 0;
  for (; count > 0 && position < text.size(); --count) (void)NextCharacter(text, position);
  return position;
}

}  // namespace kestrune::platform
