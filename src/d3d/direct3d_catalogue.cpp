#include "d3d/direct3d_catalogue.h"

#include <algorithm>

namespace kestrune::d3d {

namespace {

using C = Direct3DControls;

/// A driver's bit pattern as the signed number that the registry gives.
constexpr std::int32_t Bits(std::uint32_t pattern) { return static_cast<std::int32_t>(pattern); }

constexpr CheckRow<C> kChecks[] = {
    {&C::z_compression,
     "D3d_46205529",
     Bits(0x88204955),
     Bits(0x86752318),
     Bits(0x88204955),
     Otherwise::kClear,
     {16},
     {15}},
    {&C::disable_mipmap_filtering,
     "D3D_36759435",
     0x48391723,
     0x24829101,
     0x24829101,
     Otherwise::kCheck,
     {34},
     {35}},
    {&C::low_mip_level, "D3D_69109016", 1, 0, 0, Otherwise::kLeave, {109}, {108}},
    {&C::negative_lod, "D3D_16579523", 0, 1, 0, Otherwise::kLeave, {126, 0}, {126, 1}},
    {&C::trilinear, "D3D_94118636", 0, 1, 0, Otherwise::kLeave, {115}, {114}},
    {&C::aniso_mip, "D3D_40792312", 1, 0, 0, Otherwise::kLeave, {116}, {117}},
    {&C::aniso_sample, "D3D_30913648", 1, 0, 1, Otherwise::kLeave, {120}, {121}},
    {&C::fog_table,
     "D3d_20466189",
     0x31259154,
     0x78176879,
     0x31259154,
     Otherwise::kClear,
     {123},
     {122}},
};

constexpr Choice kImageSettings[] = {
    {Ui(129), 20, {67}}, {Ui(128), 10, {68}}, {Ui(127), 0, {69}}, {Ui(130), -10, {113}, 6100}};

constexpr Choice kMipmaps[] = {{Ui(134), 0, {105}}, {Ui(135), 1, {106}}, {Ui(136), 2, {107}}};

constexpr Choice kSynchronization[] = {
    {Ui(137), 0x60925292, {45}}, {Ui(146), 0x47814940, {44}}, {Ui(145), 0x08416747, {43}}};

constexpr ChoiceRow<C> kChoices[] = {
    {&C::image_settings, nullptr, "D3D_QualityEnhancements", 0, std::nullopt, kImageSettings},
    {&C::mipmaps, &C::opengl_mipmaps, "D3DOGL_03385531", 0, std::nullopt, kMipmaps},
    {&C::synchronization, nullptr, "D3D_60461791", 0x47814940, Ui(146), kSynchronization},
};

constexpr CountRow<C> kCounts[] = {{&C::prerender_limit, "D3D_98764205", 2, 0, 66}};

constexpr SliderRow<C> kSliders[] = {
    {&C::lod_bias, &C::lod_bias_label, Ui(118), "D3D_88481200", 0, 30}};

constexpr CodeRow kCodes[] = {
    {126, {"D3D_16579523", 0}, true},
    {62, {"D3D_98764205", 2}},
    {63, {"D3D_98764205", 3}},
    {64, {"D3D_98764205", 5}},
    {65, {"D3D_98764205", 7}},
    {kMaxTexturesCode, {kMaxTexturesValue, 0}, true},
    {kMaxTexturesDeleteCode, {kMaxTexturesValue, std::nullopt}},
};

constexpr std::int32_t kMode = 0x10000000;

constexpr AaMode kModes[] = {
    {Ui(137), Ui(137), "", 0, 0, 0},
    {Ui(145), Ui(145), "", kMode, 128, -1},
    {Word("2x1"), Ui(145), "", kMode + 0x01, -1, -1},
    {Word("1x2"), Ui(145), "", kMode + 0x02, -1, -1},
    {Word("2x enh"), Ui(145), "", kMode + 0x07, -1, -1},
    {Word("2x"), Word("2x"), "SLI 4x", kMode + 0x0E, 1, 2},
    {Word("Quincunx"), Word("Quincunx"), "SLI 4xQ", kMode + 0x0F, 2, 1},
    {Word("4x"), Word("4x"), "SLI 8x", kMode + 0x10, 3, 3},
    {Word("4x 9-tap"), Word("4x 9-tap"), "SLI 8xG", kMode + 0x12, 4, 60},
    {Word("4xS"), Word("4xS"), "SLI 8xS", kMode + 0x13, 5, -1},
    {Word("6x"), Ui(145), "", kMode + 0x16, 100, -1},
    {Word("6xS"), Word("6xS"), "SLI 12xS", kMode + 0x17, 6, -1},
    {Word("8xS"), Word("8xS"), "SLI 16x", kMode + 0x18, 101, -1},
    {Word("8x"), Word("8x"), "", kMode + 0x19, 7, 61},
    {Word("16x"), Word("16x"), "SLI 32x", kMode + 0x1A, 8, 62},
};

constexpr AaFlagRow kFlagRows[] = {
    {9, "26948", kAaGammaFlag, 1, 0},
    {9, "26850", kAaMultisamplingFlag, 0, 1},
    {9, "26954", kAaGammaFlag + kAaMultisamplingFlag, 1, 1},
    {10, "13421", kAaSupersamplingFlag, 0, 2},
    {10, "13432", kAaSupersamplingFlag + kAaGammaFlag, 1, 2},
};

constexpr ShownText kOldTexts[] = {Ui(137),           Word("2x"),  Word("Quincunx"), Word("4x"),
                                   Word("4x 9-tap"),  Word("4xS"), Word("6x"),       Word("8x"),
                                   Word("6xS (12x)"), Word("8xS"), Word("4xSS")};

constexpr AnisoLevel kLevels[] = {
    {Word("Point s."), 1, 0, -1, 9, -1},    {Ui(135), 0x10000001, 1, 0, 10, -1},
    {Word("2x"), 0x10000002, 2, 1, 11, 4},  {Word("4x"), 0x10000004, 4, 2, 60, 31},
    {Word("8x"), 0x10000008, 8, 3, 61, 32}, {Word("16x"), 0x10000010, 16, 4, 112, -1},
};

constexpr std::int32_t kPixelToken = Bits(0xFFFF0000);
constexpr std::int32_t kVertexToken = Bits(0xFFFE0000);

constexpr ShaderVersion kPixelVersions[] = {
    {kPixelToken, kShaderOffName, 0, 37},  {kPixelToken + 0x0101, "1.1", 1, 86},
    {kPixelToken + 0x0103, "1.3", 2, 87},  {kPixelToken + 0x0104, "1.4", 3, 88},
    {kPixelToken + 0x0105, "1.5", -1, -1}, {kPixelToken + 0x0106, "1.6", -1, -1},
    {kPixelToken + 0x0200, "2.0", 4, 89},  {kPixelToken + 0x0201, "2.1", -1, -1},
    {kPixelToken + 0x0204, "2.4", -1, -1}, {kPixelToken + 0x0300, "3.0", 5, 125},
};

constexpr ShaderVersion kVertexVersions[] = {
    {kVertexToken, kShaderOffName, 0, 90},
    {kVertexToken + 0x0101, "1.1", 1, 91},
    {kVertexToken + 0x0200, "2.0", 2, 92},
    {kVertexToken + 0x0300, "3.0", 3, 124},
};

constexpr LegacyRow kLegacy[] = {
    {0, "ANTIALIASENABLE", 0},   {0, "ANTIALIASQUALITY", 0},  {0, "ANTIALIASFORCEENABLE", 0},
    {1, "ANTIALIASENABLE", 1},   {1, "ANTIALIASQUALITY", 1},  {1, "ANTIALIASFORCEENABLE", 4},
    {3, "ANTIALIASENABLE", 1},   {3, "ANTIALIASQUALITY", 3},  {3, "ANTIALIASFORCEENABLE", 4},
    {9, "ANISOTROPICLEVEL", 0},  {10, "ANISOTROPICLEVEL", 1}, {11, "ANISOTROPICLEVEL", 2},
    {60, "ANISOTROPICLEVEL", 4}, {61, "ANISOTROPICLEVEL", 8}, {15, "ZCOMPRESSENABLE", 0},
    {16, "ZCOMPRESSENABLE", 1},  {30, "LODBIASADJUST", 10},   {33, "Z24ENABLE", 1},
    {34, "USERMIPMAPENABLE", 0}, {35, "USERMIPMAPENABLE", 1}, {37, "FOGTABLEENABLE", 0},
    {38, "FOGTABLEENABLE", 1},
};

}  // namespace

const Catalogue<Direct3DControls> kDirect3DCatalogue = {kChecks, kChoices, kCounts, kSliders,
                                                        kCodes};
const std::span<const AaMode> kAaModes = kModes;
const std::span<const AaFlagRow> kAaFlagRows = kFlagRows;
const std::span<const ShownText> kOldAaTexts = kOldTexts;
const std::span<const AnisoLevel> kAnisoLevels = kLevels;
const ShaderRow kPixelShaderRow = {"D3d_59954021", "D3d_59954021", 168, 6, 38, kPixelVersions};
const ShaderRow kVertexShaderRow = {"D3D_59954023", "D3d_59954023", 169, 4, 93, kVertexVersions};
const std::span<const LegacyRow> kLegacyRows = kLegacy;

const AaMode* FindAaMode(std::string_view text, const lang::LangTable& lang_text) {
  const auto found = std::find_if(kAaModes.begin(), kAaModes.end(), [&](const AaMode& mode) {
    if (mode.code < 0) return false;
    return mode.text.In(lang_text) == text || (!mode.sli.empty() && mode.sli == text);
  });
  return found == kAaModes.end() ? nullptr : &*found;
}

const AaMode* FindAaModeByCode(int code) {
  const auto found = std::find_if(kAaModes.begin(), kAaModes.end(), [code](const AaMode& mode) {
    return mode.code >= 0 && mode.code == code;
  });
  return found == kAaModes.end() ? nullptr : &*found;
}

}  // namespace kestrune::d3d
