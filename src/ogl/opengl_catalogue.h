#pragma once

#include "d3d/direct3d_catalogue.h"

namespace kestrune::ogl {

/// What the OpenGL reader fills, beside the controls that Direct3D has too.
struct OpenGLControls : d3d::TwinControls {
  controls::CheckBox* texture_sharpening;
  controls::ComboBox* image_settings;
  controls::CheckBox* manual_trilinear;
  controls::Label* trilinear_quality_label;
  controls::Slider* trilinear_quality;
  controls::CheckBox* manual_compression;
  controls::OptionButton* compression_by_application;
  controls::OptionButton* compression_enabled;
  controls::Label* lod_bias_label;
  controls::Slider* lod_bias;
  controls::CheckBox* trilinear;
  controls::CheckBox* aniso_mip;
  controls::CheckBox* aniso_sample;
  controls::CheckBox* s3tc;
  controls::CheckBox* no_dxt1_dithering;
  controls::ComboBox* color_depth;
  controls::ComboBox* synchronization;
  controls::CheckBox* triple_buffering;
  controls::ComboBox* prerender_limit;
  controls::ComboBox* version_override;
  controls::ComboBox* emulation;
  controls::CheckBox* nv4x_glsl;
  controls::CheckBox* software_rasterization;
  controls::CheckBox* cpu_instructions;
};

/// The values that are a box, a list or a slider and nothing more.
extern const d3d::Catalogue<OpenGLControls> kOpenGLCatalogue;

/// Triple buffering is read under its new name always, and written under the old one on drivers
/// below release 77.01.
inline constexpr std::string_view kTripleBuffer = "TripleBuffer";
inline constexpr std::string_view kOldTripleBuffer = "EnableTripleBuffer";
inline constexpr int kFirstTripleBufferDriver = 7701;

/// The antialiasing mode of drivers below release 50.00: what its numbers show, and which operation
/// stores which number.
inline constexpr std::string_view kAaValue = "FSAAMode";
struct AaNumber {
  std::int32_t number;
  d3d::ShownText text;
  std::int16_t operation;  ///< -1: never written
};
extern const std::span<const AaNumber> kAaNumbers;

/// The two bits of the S3TC value, and the operation for each of their four states.
inline constexpr std::string_view kS3tcValue = "S3TCQuality";
inline constexpr std::int32_t kS3tcEnabled = 1;
inline constexpr std::int32_t kS3tcNoDithering = 2;
inline constexpr std::int16_t kS3tcOperations[] = {11, 10, 54, 55};

/// The trilinear quality: a number from 1 to 31, whose presence is the box's state.
inline constexpr std::string_view kTrilinearValue = "95282304";
inline constexpr std::int32_t kHighestTrilinear = 31;
inline constexpr std::int16_t kTrilinearOperation = 66;
inline constexpr std::int16_t kTrilinearDeleteOperation = 65;
/// The caption of the label for a number.
std::string TrilinearCaption(std::int32_t number, const lang::LangTable& lang_text);

/// The texture compression mode: the operations for the box cleared and for its two options.
inline constexpr std::string_view kCompressionValue = "19723457";
inline constexpr std::int32_t kCompressionByApplication = 0x07368183;
inline constexpr std::int32_t kCompressionEnabled = static_cast<std::int32_t>(0x87508277u);
inline constexpr std::int16_t kCompressionOffOperation = 67;
inline constexpr std::int16_t kCompressionByApplicationOperation = 68;
inline constexpr std::int16_t kCompressionEnabledOperation = 69;

/// The version override: a text of three characters packed into a number, lowest byte first.
inline constexpr std::string_view kVersionValue = "308826";
inline constexpr std::int16_t kVersionOperation = 73;
inline constexpr std::int16_t kVersionDeleteOperation = 74;
/// The versions, in list order after the entry that deletes the value.
inline constexpr std::string_view kVersions[] = {"1.0", "1.1", "1.2", "1.3", "1.4", "1.5", "2.0"};
std::int32_t PackedVersion(std::string_view version);

/// A chip family that the driver can be made to play, in list order. From release 60.00 on one
/// value holds its number; before that four values do, and only the first six are offered.
struct Emulation {
  d3d::ShownText text;
  std::int32_t number;         ///< of NVEmulate
  std::int16_t old_operation;  ///< -1: not on older drivers
};
inline constexpr std::string_view kEmulationValue = "NVEmulate";
inline constexpr std::int16_t kEmulationOperation = 76;
inline constexpr int kFirstEmulationDriver = 6000;
extern const std::span<const Emulation> kEmulations;
inline constexpr std::size_t kOldEmulations = 6;

/// One of the values that an older operation writes, in order.
struct OldEmulationWrite {
  std::int16_t operation;
  std::string_view name;
  std::int32_t number;
};
extern const std::span<const OldEmulationWrite> kOldEmulationWrites;
/// What the older values show, first match first: the entry of kEmulations.
struct OldEmulationRead {
  std::string_view name;
  std::int32_t number;
  std::size_t emulation;
};
extern const std::span<const OldEmulationRead> kOldEmulationReads;
inline constexpr std::string_view kOldEmulationValues[] = {"MaxNVACCEL", "NV20Emulate",
                                                           "NV25Emulate", "NV30Emulate"};

/// The anisotropic level of the NT family below release 50.00, in the driver's key itself: which
/// operation stores which number, and what the number shows.
inline constexpr std::string_view kAnisoValue = "Ogl_DefaultLogAniso";
struct AnisoNumber {
  std::int32_t number;
  std::string_view text;
  std::int16_t operation;
};
extern const std::span<const AnisoNumber> kAnisoNumbers;
inline constexpr std::string_view kAnisoOffText = "Disabled";

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

/// The driver's debug switch for the newer shading language exists from this release on.
inline constexpr int kFirstGlslDriver = 6000;

}  // namespace kestrune::ogl
