#pragma once

#include <string_view>

namespace kestrune::platform {

/// Whether the bytes are a JPEG, PNG or BMP file that isn't cut short, as far as its frame tells.
bool IsPictureData(std::string_view bytes);

}  // namespace kestrune::platform
