#pragma once

#include "d3d/direct3d_settings.h"
#include "settings/setting.h"

namespace kestrune::ogl {

/// Every value of the OpenGL pages, in the order in which it is read, but for those that are one
/// row for both pages: these are rows of Direct3D.
extern const std::span<const settings::Setting> kOpenGLSettings;
/// The operations that no control uses, or whose argument is stored as it is.
extern const std::span<const settings::CodeRow> kOpenGLCodes;

/// An operation that the driver's shared values, from release 50.00 on, leave to a Direct3D code.
struct Relay {
  std::int16_t operation;
  std::int16_t direct3d_code;
};
extern const std::span<const Relay> kRelays;
inline constexpr std::int16_t kAnisoOffOperation = 5;

/// The two bits of the S3TC value, and the operation for each of their four states.
inline constexpr std::int32_t kS3tcEnabled = 1;
inline constexpr std::int32_t kS3tcNoDithering = 2;
inline constexpr std::int16_t kS3tcOperations[] = {11, 10, 54, 55};

/// The trilinear quality: a number from 1 to 31, whose presence is the box's state.
inline constexpr std::int32_t kHighestTrilinear = 31;
inline constexpr std::int16_t kTrilinearOperation = 66;
/// The caption of the label for a number.
std::string TrilinearCaption(std::int32_t number, const lang::LangTable& lang_text);

/// The number of a version override: a text of three characters, lowest byte first.
constexpr std::int32_t PackedVersion(std::string_view version) {
  std::int32_t packed = 0;
  for (std::size_t i = version.size(); i > 0; --i) packed = packed * 256 + version[i - 1];
  return packed;
}

/// Before release 60.00 four values hold the chip family that the driver plays, and a fifth is
/// written with them. The operations' writes, in order.
struct OldEmulationWrite {
  std::int16_t operation;
  std::string_view name;
  std::int32_t number;
};
extern const std::span<const OldEmulationWrite> kOldEmulationWrites;
/// What the older values show, first match first: the place of the family among the choices.
struct OldEmulationRead {
  std::string_view name;
  std::int32_t number;
  std::size_t family;
};
extern const std::span<const OldEmulationRead> kOldEmulationReads;
inline constexpr std::string_view kOldEmulationValues[] = {"MaxNVACCEL", "NV20Emulate",
                                                           "NV25Emulate", "NV30Emulate"};

/// On Windows 9x the anisotropic choice and the texture colour bit are parts of one number.
inline constexpr std::string_view kQualityFlags = "RenderQualityFlags";
struct QualityFlagRow {
  std::int16_t operation;
  std::int32_t lowest;  ///< stored numbers that the operation changes, both ends included
  std::int32_t highest;
  std::int32_t added;
  bool rewrites_others;  ///< stores other numbers again as they are
};
extern const std::span<const QualityFlagRow> kQualityFlagRows;

}  // namespace kestrune::ogl
