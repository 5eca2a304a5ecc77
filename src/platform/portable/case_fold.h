#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kestrune::platform::portable {

/// UTF-8 text with every letter as its capital, one character for one, as Windows compares the
/// names of keys, values and files. Bytes that are no UTF-8 stay as they are.
std::string FoldCase(std::string_view text);
bool SameWithoutCase(std::string_view left, std::string_view right);

inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// The UTF-8 character at `position`, which moves behind it; kNoCharacter for one byte that starts
/// none. Unpaired surrogates count as characters. `position` must lie inside the text.
char32_t NextCharacter(std::string_view text, std::size_t& position);
void AppendCharacter(std::string& text, char32_t character);

}  // namespace kestrune::platform::portable
