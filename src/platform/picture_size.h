#pragma once

#include <optional>
#include <string_view>

namespace kestrune::platform {

/// The width and height of a picture, in its own points.
struct PictureSize {
  unsigned width = 0;
  unsigned height = 0;

  bool operator==(const PictureSize&) const = default;
};

/// The size of a whole JPEG, PNG or BMP picture; nothing for anything else, or for half a picture.
std::optional<PictureSize> SizeOfPicture(std::string_view bytes);

}  // namespace kestrune::platform
