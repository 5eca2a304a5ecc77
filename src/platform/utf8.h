#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Steps through UTF-8 text.
namespace kestrune::platform {

inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// The UTF-8 character at `position`, which moves behind it; kNoCharacter for one byte that starts
/// none. Unpaired surrogates count as characters. `position` must lie inside the text.
char32_t NextCharacter(std::string_view text, std::size_t& position);
void AppendCharacter(std::string& text, char32_t character);
/// The byte behind the first `count` characters, or behind them all where there are fewer.
std::size_t OffsetBehind(std::string_view text, std::size_t count);

}  // namespace kestrune::platform
