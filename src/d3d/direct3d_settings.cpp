#include "d3d/direct3d_settings.h"

#include <array>

namespace kestrune::d3d {

namespace {

using namespace settings;
namespace texts = lang::texts;

// ---- Boxes: the number and code of each state.

constexpr Choice kSli[] = {{kOff, 0x51621660, Call{127, 0}}, {kOn, 0x29060797, Call{127, 1}}};
constexpr Choice kZCompression[] = {{kOff, Bits(0x86752318), Call{15}},
                                    {kOn, Bits(0x88204955), Call{16}}};
constexpr Choice kNoMipmapFiltering[] = {{kOff, 0x24829101, Call{35}}, {kOn, 0x48391723, Call{34}}};
constexpr Choice kLowMipLevel[] = {{kOff, 0, Call{108}}, {kOn, 1, Call{109}}};
constexpr Choice kNegativeLod[] = {{kOff, 1, Call{126, 1}}, {kOn, 0, Call{126, 0}}};
constexpr Choice kTrilinear[] = {{kOff, 1, Call{114}}, {kOn, 0, Call{115}}};
constexpr Choice kAnisoMip[] = {{kOff, 0, Call{117}}, {kOn, 1, Call{116}}};
constexpr Choice kAnisoSample[] = {{kOff, 0, Call{121}}, {kOn, 1, Call{120}}};
constexpr Choice kFogTable[] = {{kOff, 0x78176879, Call{122}}, {kOn, 0x31259154, Call{123}}};

// ---- Lists, in their order.

constexpr Choice kImageSettings[] = {{Ui(texts::kHighPerformance), 20, Call{67}},
                                     {Ui(texts::kPerformance), 10, Call{68}},
                                     {Ui(texts::kQuality), 0, Call{69}},
                                     {Ui(texts::kHighQuality), -10, Call{113}, 6100}};
constexpr Choice kMipmaps[] = {{Ui(texts::kNone), 0, Call{105}},
                               {Ui(texts::kBilinear), 1, Call{106}},
                               {Ui(texts::kTrilinear), 2, Call{107}}};
constexpr Choice kSynchronization[] = {{Ui(texts::kAuto), 0x60925292, Call{45}},
                                       {Ui(texts::kEnabled), 0x47814940, Call{44}},
                                       {Ui(texts::kDisabled), 0x08416747, Call{43}}};

// ---- Antialiasing: transparency and gamma correction are flags in the mode's value and are stored
// by the mode's codes.

constexpr auto kModes = [] {
  std::array<Choice, std::size(kAaModes)> choices{};
  for (std::size_t i = 0; i < choices.size(); ++i) {
    const AaMode& mode = kAaModes[i];
    choices[i] = {.text = mode.text,
                  .number = mode.number,
                  .above_driver = mode.above_driver,
                  .card_level = mode.card_level,
                  .also = mode.sli};
    if (mode.code >= 0) choices[i].call = Call{mode.code};
  }
  return choices;
}();

/// What the older value's numbers show, and the codes that store them.
constexpr Choice kOldModes[] = {
    {Ui(texts::kAuto), 0, Call{0}},
    {Word("2x"), 1, Call{1}},
    {Word("Quincunx"), 2, Call{2}},
    {Word("4x"), 3, Call{3}},
    {Word("4x 9-tap"), 4, Call{4}},
    {Word("4xS"), 5, Call{5}},
    {Word("6x"), 6, Call{6}},
    {Word("8x"), 7, Call{7}},
    {Word("6xS (12x)"), 8, Call{8}},
    {Word("8xS"), 9},
    {Word("4xSS"), 10},
};

constexpr Setting kOldMode = {.id = "direct3d.antialiasing.antialiasing-mode",
                              .writer = Writer::kDirect3D,
                              .shape = Shape::kList,
                              .name = "D3d_70835937",
                              .not_set = 0,
                              .choices = kOldModes,
                              .special = Special::kOldMode};

constexpr Choice kTransparency[] = {{Ui(texts::kDisabled), 0},
                                    {Word("Multisampling"), kAaMultisamplingFlag},
                                    {Word("Supersampling"), kAaSupersamplingFlag}};
constexpr Choice kGamma[] = {{kOff, 0}, {kOn, kAaGammaFlag}};

// ---- Anisotropic filtering. Its numbers changed with releases 41.03 and 50.00. What lets the
// program decide deletes the value; point sampling is stored for other parts and never listed.

constexpr Choice kAniso[] = {
    {Ui(texts::kAuto), {}, Call{36}},
    {Ui(texts::kAuto), 0},
    {Ui(texts::kAuto), 1, Call{kPointCode}, 0, kNeverListed},
    {Ui(texts::kDisabled), 0x10000001},
    {Ui(texts::kBilinear), 0x10000001, Call{kBilinearCode}, 0, 2},
    {Word("2x"), 0x10000002, Call{11}, 0, 2},
    {Word("4x"), 0x10000004, Call{60}, 0, 8},
    {Word("8x"), 0x10000008, Call{61}, 0, 8},
    {Word("16x"), 0x10000010, Call{kHighestLevelCode}, 0, 16},
};

constexpr Choice kMiddleAniso[] = {
    {Ui(texts::kAuto), {}, Call{36}},
    {Ui(texts::kAuto), -1, Call{kPointCode}},
    {Ui(texts::kBilinear), 0, Call{kBilinearCode}},
    {Word("2x"), 1, Call{11}},
    {Word("4x"), 2, Call{60}},
    {Word("8x"), 3, Call{61}},
    {Word("16x"), 4, Call{kHighestLevelCode}},
};

constexpr Choice kFirstAniso[] = {
    {Ui(texts::kAuto), {}, Call{36}},
    {Ui(texts::kAuto), -1},
    {Word("Point s."), 0, Call{kPointCode}},
    {Ui(texts::kBilinear), 1, Call{kBilinearCode}},
    {Word("2x"), 2, Call{11}},
    {Word("4x"), 4, Call{60}},
    {Word("8x"), 8, Call{61}},
    {Word("16x"), 16, Call{kHighestLevelCode}},
};

constexpr Setting AnisoRow(std::string_view name, std::span<const Choice> choices) {
  return {.id = "direct3d.filtering.anisotropic-filtering",
          .writer = Writer::kDirect3D,
          .shape = Shape::kList,
          .name = name,
          .choices = choices,
          .special = Special::kAnisotropy};
}

constexpr Setting kFirstAnisoRow = AnisoRow("D3d_74095213", kFirstAniso);
constexpr Setting kMiddleAnisoRow = [] {
  Setting row = AnisoRow("D3d_74095213", kMiddleAniso);
  row.from_driver = 4103;
  row.older = &kFirstAnisoRow;
  return row;
}();

// ---- Shaders: a version's slider position is its place among those that are written.

constexpr std::int32_t kPixelToken = Bits(0xFFFF0000);
constexpr std::int32_t kVertexToken = Bits(0xFFFE0000);

constexpr Choice kPixelVersions[] = {
    {Word(kShaderOffName), kPixelToken, Call{37}}, {Word("1.1"), kPixelToken + 0x0101, Call{86}},
    {Word("1.3"), kPixelToken + 0x0103, Call{87}}, {Word("1.4"), kPixelToken + 0x0104, Call{88}},
    {Word("1.5"), kPixelToken + 0x0105},           {Word("1.6"), kPixelToken + 0x0106},
    {Word("2.0"), kPixelToken + 0x0200, Call{89}}, {Word("2.1"), kPixelToken + 0x0201},
    {Word("2.4"), kPixelToken + 0x0204},           {Word("3.0"), kPixelToken + 0x0300, Call{125}},
    {Ui(texts::kDefault), {}, Call{38}},           {Ui(texts::kDefault), 0},
};

constexpr Choice kVertexVersions[] = {
    {Word(kShaderOffName), kVertexToken, Call{90}},
    {Word("1.1"), kVertexToken + 0x0101, Call{91}},
    {Word("2.0"), kVertexToken + 0x0200, Call{92}},
    {Word("3.0"), kVertexToken + 0x0300, Call{124}},
    {Ui(texts::kDefault), {}, Call{93}},
    {Ui(texts::kDefault), 0},
};

constexpr Choice kTextures[] = {{Ui(texts::kDefault), {}, Call{33}}};

constexpr std::string_view kSliPrefixes[] = {"014", "004", "00C", "009"};
constexpr std::string_view kTransparencyPrefixes[] = {"009"};
constexpr std::string_view kTransparencyIds[] = {"00F5"};

constexpr Setting kRows[] = {
    {.id = "direct3d.antialiasing.enable-sli-antialiasing",
     .twin = "opengl.antialiasing.enable-sli-antialiasing",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3DOGL_12677978",
     .not_set = 0x51621660,
     .choices = kSli,
     .needs = {.only_on = &kSliCards},
     .special = Special::kSli},
    {.id = "direct3d.antialiasing.antialiasing-mode",
     .writer = Writer::kDirect3D,
     .shape = Shape::kList,
     .name = "D3DOGL_70835937",
     .not_set = 0,
     .choices = kModes,
     .otherwise = Otherwise::kText,
     .otherwise_text = Ui(texts::kUnknown),
     .special = Special::kMode,
     .from_driver = kFirstSharedDriver,
     .older = &kOldMode},
    {.id = "direct3d.antialiasing.transparency-antialiasing",
     .twin = "opengl.antialiasing.transparency-antialiasing",
     .label = "direct3d.antialiasing.transparency-antialiasing-label",
     .twin_label = "opengl.antialiasing.transparency-antialiasing-label",
     .writer = Writer::kDirect3D,
     .shape = Shape::kList,
     .name = "D3DOGL_70835937",
     .choices = kTransparency,
     .needs = {.only_on = &kTransparencyCards},
     .special = Special::kModeFlags},
    {.id = "direct3d.antialiasing.gamma-correct-antialiasing",
     .twin = "opengl.antialiasing.gamma-correct-antialiasing",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3DOGL_70835937",
     .choices = kGamma,
     .needs = {.only_on = &kTransparencyCards},
     .special = Special::kModeFlags},
    [] {
      Setting row = AnisoRow("D3DOGL_74095213", kAniso);
      row.from_driver = kFirstSharedDriver;
      row.older = &kMiddleAnisoRow;
      return row;
    }(),
    {.id = "direct3d.shaders.pixel-shader",
     .label = "direct3d.shaders.pixel-shader-label",
     .writer = Writer::kDirect3D,
     .shape = Shape::kSlider,
     .name = "D3d_59954021",
     .choices = kPixelVersions,
     .prefix = Ui(texts::kPixelShader),
     .special = Special::kShader},
    {.id = "direct3d.shaders.vertex-shader",
     .label = "direct3d.shaders.vertex-shader-label",
     .writer = Writer::kDirect3D,
     .shape = Shape::kSlider,
     .name = "D3D_59954023",
     .choices = kVertexVersions,
     .prefix = Ui(texts::kVertexShader),
     .special = Special::kShader,
     .deleted_name = "D3d_59954023"},
    {.id = "direct3d.multitexturing.max-simultaneous-textures",
     .label = "direct3d.multitexturing.max-simultaneous-textures-label",
     .writer = Writer::kDirect3D,
     .shape = Shape::kSlider,
     .name = "D3D_59954022",
     .choices = kTextures,
     .number_code = 96,
     .prefix = Ui(texts::kMaxTextures),
     .special = Special::kTextures},
    {.id = "direct3d.misc.enable-z-buffer-compression",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3d_46205529",
     .not_set = Bits(0x88204955),
     .choices = kZCompression,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff,
     .needs = {.low_texture_units = true}},
    {.id = "direct3d.filtering.disable-mipmap-filtering",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3D_36759435",
     .not_set = 0x24829101,
     .choices = kNoMipmapFiltering,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOn},
    {.id = "direct3d.filtering.force-textures-to-low-mip-level",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3D_69109016",
     .not_set = 0,
     .choices = kLowMipLevel},
    {.id = "direct3d.filtering.allow-negative-lod-bias",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3D_16579523",
     .not_set = 0,
     .choices = kNegativeLod,
     .needs = {.from_driver = 7000}},
    {.id = "direct3d.filtering.trilinear-optimization",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3D_94118636",
     .not_set = 0,
     .choices = kTrilinear},
    {.id = "direct3d.filtering.aniso-mip-filter-optimization",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3D_40792312",
     .not_set = 0,
     .choices = kAnisoMip},
    {.id = "direct3d.filtering.aniso-sample-optimization",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3D_30913648",
     .not_set = 1,
     .choices = kAnisoSample},
    {.id = "direct3d.misc.enable-fog-table-emulation",
     .writer = Writer::kDirect3D,
     .shape = Shape::kBox,
     .name = "D3d_20466189",
     .not_set = 0x31259154,
     .choices = kFogTable,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff},
    {.id = "direct3d.filtering.intellisample-image-settings",
     .writer = Writer::kDirect3D,
     .shape = Shape::kList,
     .name = "D3D_QualityEnhancements",
     .not_set = 0,
     .choices = kImageSettings},
    {.id = "direct3d.filtering.force-mipmaps",
     .twin = "opengl.filtering.force-mipmaps",
     .writer = Writer::kDirect3D,
     .shape = Shape::kList,
     .name = "D3DOGL_03385531",
     .not_set = 0,
     .choices = kMipmaps},
    {.id = "direct3d.misc.synchronization-mode",
     .writer = Writer::kDirect3D,
     .shape = Shape::kList,
     .name = "D3D_60461791",
     .not_set = 0x47814940,
     .choices = kSynchronization,
     .otherwise = Otherwise::kText,
     .otherwise_text = Ui(texts::kEnabled)},
    {.id = "direct3d.misc.prerender-limit",
     .writer = Writer::kDirect3D,
     .shape = Shape::kCount,
     .name = "D3D_98764205",
     .not_set = 2,
     .number_code = 66,
     .first = 0},
    {.id = "direct3d.filtering.texture-lod-bias",
     .label = "direct3d.filtering.texture-lod-bias-label",
     .writer = Writer::kDirect3D,
     .shape = Shape::kSlider,
     .name = "D3D_88481200",
     .not_set = 0,
     .number_code = 30,
     .prefix = Ui(texts::kLodBias)},
};

constexpr CodeRow kCodes[] = {
    {.code = 126, .name = "D3D_16579523", .stores_argument = true},
    {.code = 62, .name = "D3D_98764205", .number = 2},
    {.code = 63, .name = "D3D_98764205", .number = 3},
    {.code = 64, .name = "D3D_98764205", .number = 5},
    {.code = 65, .name = "D3D_98764205", .number = 7},
};

constexpr AaFlagRow kFlagRows[] = {
    {9, "26948", kAaGammaFlag, 1, 0},
    {9, "26850", kAaMultisamplingFlag, 0, 1},
    {9, "26954", kAaGammaFlag + kAaMultisamplingFlag, 1, 1},
    {10, "13421", kAaSupersamplingFlag, 0, 2},
    {10, "13432", kAaSupersamplingFlag + kAaGammaFlag, 1, 2},
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

const Cards kSliCards = {kSliPrefixes};
const Cards kTransparencyCards = {kTransparencyPrefixes, kTransparencyIds};
const std::span<const Setting> kDirect3DSettings = kRows;
const std::span<const CodeRow> kDirect3DCodes = kCodes;
const std::span<const AaFlagRow> kAaFlagRows = kFlagRows;
const std::span<const LegacyRow> kLegacyRows = kLegacy;

}  // namespace kestrune::d3d
