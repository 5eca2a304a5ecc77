#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrune::platform {

/// UTF-8 text with every letter as its capital, one character for one, as Windows compares the
/// names of keys, values and files. Bytes that are no UTF-8 stay as they are.
std::string FoldCase(std::string_view text);
bool SameWithoutCase(std::string_view left, std::string_view right);
void SortWithoutCase(std::vector<std::string>& names);

}  // namespace kestrune::platform
