#pragma once

#include "d3d/catalogue.h"

namespace kestrune::d3d {

/// The controls that Direct3D and OpenGL have in common, on the page of each. Both show one value
/// that the driver shares from release 50.00 on.
struct TwinControls {
  controls::ComboBox* mode;
  controls::ComboBox* opengl_mode;
  controls::ComboBox* transparency;
  controls::ComboBox* opengl_transparency;
  controls::Label* transparency_label;
  controls::Label* opengl_transparency_label;
  controls::CheckBox* gamma;
  controls::CheckBox* opengl_gamma;
  controls::CheckBox* sli;
  controls::CheckBox* opengl_sli;
  controls::ComboBox* anisotropic;
  controls::ComboBox* opengl_anisotropic;
  controls::ComboBox* mipmaps;
  controls::ComboBox* opengl_mipmaps;
};

/// What the Direct3D reader fills.
struct Direct3DControls : TwinControls {
  controls::ComboBox* image_settings;
  controls::Slider* lod_bias;
  controls::Label* lod_bias_label;
  controls::CheckBox* low_mip_level;
  controls::CheckBox* trilinear;
  controls::CheckBox* aniso_mip;
  controls::CheckBox* aniso_sample;
  controls::CheckBox* disable_mipmap_filtering;
  controls::CheckBox* negative_lod;
  controls::CheckBox* z_compression;
  controls::CheckBox* fog_table;
  controls::ComboBox* synchronization;
  controls::ComboBox* prerender_limit;
  controls::Label* pixel_shader;
  controls::Label* vertex_shader;
};

/// The values that are a box, a list or a slider and nothing more.
extern const Catalogue<Direct3DControls> kDirect3DCatalogue;

/// The driver's oldest layout ends with this release of Windows 9x: worded values, never shown.
inline constexpr int kLastLegacyDriver = 2280;
/// From this release on antialiasing and anisotropic filtering are shared by both interfaces.
inline constexpr int kFirstSharedDriver = 5000;

/// An antialiasing mode, under all its numbers and names.
struct AaMode {
  ShownText text;            ///< on the Direct3D page
  ShownText opengl;          ///< on the OpenGL page
  std::string_view sli;      ///< on both pages while SLI antialiasing is on; empty: the same
  std::int32_t number;       ///< mode code in the shared value, without the flag bits
  std::int16_t code;         ///< Direct3D write code; -1: never written
  std::int16_t opengl_code;  ///< OpenGL operation; -1: the OpenGL page writes `code`
};

inline constexpr std::string_view kSharedAaValue = "D3DOGL_70835937";
extern const std::span<const AaMode> kAaModes;
/// The mode that a page's text names, by either of its names, among those that are written.
const AaMode* FindAaMode(std::string_view text, const lang::LangTable& lang_text);
/// The mode with this code, or null.
const AaMode* FindAaModeByCode(int code);

/// Flag bits of the shared antialiasing value.
inline constexpr std::int32_t kAaGammaFlag = 0x00100000;
inline constexpr std::int32_t kAaMultisamplingFlag = 0x00010000;
inline constexpr std::int32_t kAaSupersamplingFlag = 0x40000000;

/// Transparency antialiasing: the list's entries by AaTransparencyMode.
inline constexpr ShownText kTransparencyTexts[] = {Ui(145), Word("Multisampling"),
                                                   Word("Supersampling")};

/// What the flags of a shared antialiasing number are is told by its decimal text.
struct AaFlagRow {
  std::size_t digits;
  std::string_view begins;
  std::int32_t flags;
  int gamma;         ///< AaGammaOn
  int transparency;  ///< AaTransparencyMode
};
extern const std::span<const AaFlagRow> kAaFlagRows;

/// Before release 50.00: the mode's own value and the switch that forces it off.
inline constexpr std::string_view kOldAaValue = "D3d_70835937";
inline constexpr std::string_view kOldAaSwitch = "D3D_08285629";
inline constexpr std::int32_t kOldAaForced = 0x57015990;
inline constexpr std::int32_t kOldAaOff = 0x06326293;
/// What the old value's numbers 0 to 10 show.
extern const std::span<const ShownText> kOldAaTexts;

inline constexpr std::string_view kSliAaValue = "D3DOGL_12677978";
inline constexpr std::int32_t kSliAaSet = 0x29060797;
inline constexpr std::int32_t kSliAaCleared = 0x51621660;
/// Stores one of the two, by its value.
inline constexpr std::int16_t kSliAaCode = 127;

inline constexpr int kFirstNewAnisoDriver = 4103;
/// An anisotropic level. The numbers below release 50.00 changed with release 41.03.
struct AnisoLevel {
  ShownText text;
  std::int32_t shared;  ///< number in the shared value
  std::int32_t below_4103;
  std::int32_t below_5000;
  std::int16_t code;         ///< Direct3D write code
  std::int16_t opengl_code;  ///< OpenGL operation; -1: the OpenGL page writes `code`

  /// The number on a driver below release 50.00.
  std::int32_t OldNumber(int driver) const {
    return driver < kFirstNewAnisoDriver ? below_4103 : below_5000;
  }
};
inline constexpr std::string_view kSharedAnisoValue = "D3DOGL_74095213";
inline constexpr std::string_view kOldAnisoValue = "D3d_74095213";
extern const std::span<const AnisoLevel> kAnisoLevels;
/// The code that lets the application decide, by deleting the value, and its OpenGL operation.
inline constexpr std::int16_t kAnisoDeleteCode = 36;
inline constexpr std::int16_t kPointCode = 9;
inline constexpr std::int16_t kBilinearCode = 10;
inline constexpr std::int16_t kHighestLevelCode = 112;
inline constexpr std::int16_t kAnisoOffOperation = 5;

/// A shader version: the driver's token, its name, the slider position and the code that stores it.
/// Versions without a code are shown and never written.
struct ShaderVersion {
  std::int32_t token;
  std::string_view name;
  int position;
  std::int16_t code;
};

/// A shader kind's value and page texts. Deleting may spell the name otherwise: it is one value.
struct ShaderRow {
  std::string_view name;
  std::string_view deleted_name;
  int prefix;            ///< interface text of the label
  int default_position;  ///< slider position of the driver's default, with the override
  std::int16_t delete_code;
  std::span<const ShaderVersion> versions;
};
extern const ShaderRow kPixelShaderRow;
extern const ShaderRow kVertexShaderRow;
inline constexpr std::string_view kShaderOffName = "0.0";

inline constexpr std::string_view kMaxTexturesValue = "D3D_59954022";
inline constexpr std::int16_t kMaxTexturesCode = 96;
inline constexpr std::int16_t kMaxTexturesDeleteCode = 33;

/// What the oldest drivers of Windows 9x take: worded values, by code.
struct LegacyRow {
  std::int16_t code;
  std::string_view name;
  std::int32_t number;
};
extern const std::span<const LegacyRow> kLegacyRows;

}  // namespace kestrune::d3d
