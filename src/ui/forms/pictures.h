#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrune::forms {

/// The help system's pictures: what level-of-detail bias does, from sharp to smooth, what mipmaps
/// do, and that of the lower panel.
inline constexpr std::string_view kHelpFolder = "DATA/hs/pic/";
inline constexpr std::string_view kLodPictures[] = {"high_lod.jpg", "normal_lod.jpg",
                                                    "low_lod.jpg"};
inline constexpr std::string_view kMipmapPicture = "mipmap.jpg";
inline constexpr std::string_view kPanelPicture = "ps.jpg";

inline std::string HelpPicture(std::string_view name) {
  return std::string(kHelpFolder).append(name);
}

/// Pictures that are shown in one place, one instead of the other, so that they have one size.
struct PictureFrame {
  std::string_view folder;         ///< in the program folder, with a slash at its end
  std::vector<std::string> names;  ///< of all files that can be asked for
};

/// All pictures that the program can ask for.
std::vector<PictureFrame> PictureFrames();

}  // namespace kestrune::forms
