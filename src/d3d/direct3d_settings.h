#pragma once

#include <iterator>

#include "lang/texts.h"
#include "settings/setting.h"

namespace kestrune::d3d {

/// Every value of the Direct3D pages, in the order in which it is read. From release 50.00 on some
/// of them are shared with OpenGL; those that are one row for both pages name the OpenGL control as
/// their twin.
extern const std::span<const settings::Setting> kDirect3DSettings;
/// The codes that no control uses, or whose argument is stored as it is.
extern const std::span<const settings::CodeRow> kDirect3DCodes;

/// The driver's oldest layout ends with this release of Windows 9x: worded values, never shown.
inline constexpr int kLastLegacyDriver = 2280;
/// From this release on antialiasing and anisotropic filtering are shared by both interfaces.
inline constexpr int kFirstSharedDriver = 5000;

/// The levels of a card's antialiasing table: none, ordered, with Quincunx, all.
inline constexpr int kFullAntialiasing = 3;

inline constexpr std::int32_t kAaMode = 0x10000000;

/// An antialiasing mode, under all its numbers and names.
struct AaMode {
  settings::ShownText text;    ///< on the Direct3D page
  settings::ShownText opengl;  ///< on the OpenGL page
  std::string_view sli;        ///< on both pages while SLI antialiasing is on; empty: the same
  std::int32_t number;         ///< mode code in the shared value, without the flag bits
  std::int16_t code;           ///< Direct3D write code; -1: never written
  std::int16_t opengl_code;    ///< OpenGL operation; -1: the OpenGL page writes `code`
  int card_level;              ///< listed from this level of the card's antialiasing table on
  int above_driver;            ///< listed only above this release
};

/// In the order of the lists.
inline constexpr AaMode kAaModes[] = {
    {settings::Ui(lang::texts::kDisabled), settings::Ui(lang::texts::kDisabled), "", kAaMode, 128,
     -1, settings::kAnyCard, kFirstSharedDriver},
    {settings::Ui(lang::texts::kAuto), settings::Ui(lang::texts::kAuto), "", 0, 0, 0, 0, 0},
    {settings::Word("2x1"), settings::Ui(lang::texts::kDisabled), "", kAaMode + 0x01, -1, -1,
     settings::kNeverListed, 0},
    {settings::Word("1x2"), settings::Ui(lang::texts::kDisabled), "", kAaMode + 0x02, -1, -1,
     settings::kNeverListed, 0},
    {settings::Word("2x enh"), settings::Ui(lang::texts::kDisabled), "", kAaMode + 0x07, -1, -1,
     settings::kNeverListed, 0},
    {settings::Word("2x"), settings::Word("2x"), "SLI 4x", kAaMode + 0x0E, 1, 2, 1, 0},
    {settings::Word("Quincunx"), settings::Word("Quincunx"), "SLI 4xQ", kAaMode + 0x0F, 2, 1, 2, 0},
    {settings::Word("4x"), settings::Word("4x"), "SLI 8x", kAaMode + 0x10, 3, 3, 1, 0},
    {settings::Word("4x 9-tap"), settings::Word("4x 9-tap"), "SLI 8xG", kAaMode + 0x12, 4, 60,
     kFullAntialiasing, 5000},
    {settings::Word("4xS"), settings::Word("4xS"), "SLI 8xS", kAaMode + 0x13, 5, -1,
     kFullAntialiasing, 5000},
    {settings::Word("6x"), settings::Ui(lang::texts::kDisabled), "", kAaMode + 0x16, 100, -1,
     settings::kNeverListed, 0},
    {settings::Word("6xS"), settings::Word("6xS"), "SLI 12xS", kAaMode + 0x17, 6, -1,
     kFullAntialiasing, 5000},
    {settings::Word("8xS"), settings::Word("8xS"), "SLI 16x", kAaMode + 0x18, 101, -1,
     kFullAntialiasing, 5000},
    {settings::Word("8x"), settings::Word("8x"), "", kAaMode + 0x19, 7, 61, kFullAntialiasing,
     5000},
    {settings::Word("16x"), settings::Word("16x"), "SLI 32x", kAaMode + 0x1A, 8, 62,
     kFullAntialiasing, 6000},
};

/// Flag bits of the shared antialiasing value.
inline constexpr std::int32_t kAaGammaFlag = 0x00100000;
inline constexpr std::int32_t kAaMultisamplingFlag = 0x00010000;
inline constexpr std::int32_t kAaSupersamplingFlag = 0x40000000;

/// What the flags of a shared antialiasing number are is told by its decimal text.
struct AaFlagRow {
  std::size_t digits;
  std::string_view begins;
  std::int32_t flags;
  int gamma;         ///< AaGammaOn
  int transparency;  ///< AaTransparencyMode
};
extern const std::span<const AaFlagRow> kAaFlagRows;

/// Before release 50.00: the switch that forces the mode off.
inline constexpr std::string_view kOldAaSwitch = "D3D_08285629";
inline constexpr std::int32_t kOldAaForced = 0x57015990;
inline constexpr std::int32_t kOldAaOff = 0x06326293;

/// Codes of the anisotropic levels that show more, or less, than their own text when written.
inline constexpr std::int16_t kPointCode = 9;
inline constexpr std::int16_t kBilinearCode = 10;
inline constexpr std::int16_t kHighestLevelCode = 112;

/// Shader version 0.0, which turns shaders off.
inline constexpr std::string_view kShaderOffName = "0.0";

/// What the oldest drivers of Windows 9x take: worded values, by code.
struct LegacyRow {
  std::int16_t code;
  std::string_view name;
  std::int32_t number;
};
extern const std::span<const LegacyRow> kLegacyRows;

/// The cards that can join in SLI antialiasing, and those with transparency antialiasing and gamma
/// correction.
extern const settings::Cards kSliCards;
extern const settings::Cards kTransparencyCards;

}  // namespace kestrune::d3d
