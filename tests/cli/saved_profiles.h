#pragma once

namespace kestrune::cli {

/// A profile with a prerender limit of 5 and triple buffering, as the program saves it for a card
/// on any system that runs it.
struct SavedProfile {
  const char* machine;  ///< the shipped description whose card it is for
  const char* clocks;
  const char* bytes;
};

inline constexpr const char* kTripleBuffering = "opengl.misc.triple-buffering";

inline constexpr SavedProfile kSavedOnNt = {
    "winxp-geforce7800", "300,1250",
    "\"ksp\"\r\n\"0091\"\r\n\"0\"\r\n\"0\"\r\n\"D3D_98764205\"\r\n\"5\"\r\n"
    "\"OGL_TripleBuffer\"\r\n\"1\"\r\n\"Clock speed\"\r\n\"300,1250\"\r\n"};
inline constexpr SavedProfile kSavedOn9x = {
    "win98-geforcefx5700", "300,520",
    "\"ksp\"\r\n\"0342\"\r\n\"0\"\r\n\"0\"\r\n\"D3D_98764205\"\r\n\"5\"\r\n"
    "\"TripleBuffer\"\r\n\"1\"\r\n\"Clock speed\"\r\n\"300,520\"\r\n"};

}  // namespace kestrune::cli
