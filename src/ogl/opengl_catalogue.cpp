#include "ogl/opengl_catalogue.h"

#include <limits>

namespace kestrune::ogl {

namespace {

using C = OpenGLControls;
using d3d::Catalogue;
using d3d::CheckRow;
using d3d::Choice;
using d3d::ChoiceRow;
using d3d::CodeRow;
using d3d::CountRow;
using d3d::Otherwise;
using d3d::Place;
using d3d::SliderRow;
using d3d::Ui;
using d3d::Word;

constexpr std::int32_t Bits(std::uint32_t pattern) { return static_cast<std::int32_t>(pattern); }

constexpr CheckRow<C> kChecks[] = {
    {&C::trilinear,
     "563A95F1",
     0x413ABD43,
     0x34198CB4,
     0x413ABD43,
     Otherwise::kClear,
     {79, 1},
     {79, 0}},
    {&C::aniso_mip, "01887890", 1, 0, 0, Otherwise::kClear, {80, 1}, {80, 0}},
    {&C::aniso_sample,
     "1190801A",
     Bits(0xA95300C4),
     0,
     Bits(0xA95300C4),
     Otherwise::kClear,
     {81, 1},
     {81, 0}},
    {&C::texture_sharpening, "TexSharpen", 1, 0, 0, Otherwise::kClear, {22}, {23}},
    {&C::cpu_instructions, "ForceGenericCPU", 0, 1, 0, Otherwise::kLeave, {72}, {71}},
    {&C::triple_buffering, kTripleBuffer, 1, 0, 0, Otherwise::kLeave, {12}, {13}},
    {&C::nv4x_glsl,
     "NV4xGLSLFunctionality",
     1,
     0,
     0,
     Otherwise::kState,
     {77, 1},
     {77, 0},
     Place::kDebugKey},
    {&C::software_rasterization,
     "Renderer",
     1,
     0,
     0,
     Otherwise::kState,
     {78, 1},
     {78, 0},
     Place::kDebugKey},
};

constexpr Choice kImageSettings[] = {
    {Ui(129), 20, {58}}, {Ui(128), 10, {57}}, {Ui(127), 0, {56}}, {Ui(130), -10, {64}, 6100}};

constexpr Choice kColorDepth[] = {
    {Ui(161), 0, {19}}, {Word("16-bit"), 4, {20}}, {Word("32-bit"), 8, {21}}};

constexpr Choice kSynchronization[] = {{Ui(145), -1, {24}}, {Ui(159), 1, {26}}, {Ui(160), 0, {25}}};

constexpr ChoiceRow<C> kChoices[] = {
    {&C::image_settings, nullptr, "QualityEnhancements", 0, std::nullopt, kImageSettings},
    {&C::color_depth, nullptr, kQualityFlags, 0, Ui(161), kColorDepth},
    {&C::synchronization, nullptr, "DefaultSwapInterval", 0, Ui(160), kSynchronization},
};

constexpr CountRow<C> kCounts[] = {{&C::prerender_limit, "MaxFramesAllowed", 0, 1, 70}};

constexpr SliderRow<C> kSliders[] = {
    {&C::lod_bias, &C::lod_bias_label, Ui(118), "TexLODBias", std::nullopt, 63}};

constexpr CodeRow kCodes[] = {
    {6, {"ForceMultiTexture", 0}},
    {7, {"ForceMultiTexture", 1}},
    {10, {kS3tcValue, 1}},
    {11, {kS3tcValue, 0}},
    {54, {kS3tcValue, 2}},
    {55, {kS3tcValue, 3}},
    {14, {"EnableForce16BitZ", 1}},
    {15, {"EnableForce16BitZ", 0}},
    {16, {"TexLODBias", -18}},
    {17, {"TexLODBias", -2}},
    {18, {"TexLODBias", 10}},
    {28, {"EnableSingleBackDepthBuffer", 1}},
    {29, {"EnableSingleBackDepthBuffer", 0}},
    {38, {"AnisoQuality", 0}},
    {50, {"AnisoQuality", 0}},
    {39, {"AnisoQuality", 1}},
    {51, {"AnisoQuality", 1}},
    {52, {"NV15Alines", 1}},
    {53, {"NV15Alines", 0}},
    {kTrilinearDeleteOperation, {kTrilinearValue, std::nullopt}},
    {kTrilinearOperation, {kTrilinearValue, 0}, true},
    {kCompressionOffOperation, {kCompressionValue, 0}},
    {kCompressionByApplicationOperation, {kCompressionValue, kCompressionByApplication}},
    {kCompressionEnabledOperation, {kCompressionValue, kCompressionEnabled}},
    {kVersionOperation, {kVersionValue, 0}, true},
    {kVersionDeleteOperation, {kVersionValue, std::nullopt}},
    {kEmulationOperation, {kEmulationValue, 0}, true},
    {77, {"NV4xGLSLFunctionality", 0, Place::kDebugKey}, true},
    {78, {"Renderer", 0, Place::kDebugKey}, true},
};

constexpr AaNumber kNumbers[] = {
    {0, Ui(137), 0},          {1, Word("2x"), 2},   {2, Word("Quincunx"), 1},
    {3, Word("Value 3"), -1}, {4, Word("4x"), 3},   {5, Word("4x 9tap"), 60},
    {6, Word("8xS"), 61},     {7, Word("16x"), 62},
};

constexpr Emulation kFamilies[] = {
    {Ui(181), 0, 33},
    {Word("NVx  (Riva TNT family)"), 1, 34},
    {Word("NV1x (GeForce2 family)"), 10, 75},
    {Word("NV20 (GeForce3 family)"), 20, 35},
    {Word("NV25 (GeForce4 Ti family)"), 25, 36},
    {Word("NV30 (GeForce FX 5800)"), 30, 37},
    {Word("NV31 (GeForce FX 5600)"), 31, -1},
    {Word("NV34 (GeForce FX 5200)"), 34, -1},
    {Word("NV35 (GeForce FX 5700/5900)"), 35, -1},
    {Word("NV40 (GeForce 6600/6800)"), 40, -1},
    {Word("NV44 (GeForce 6200)"), 44, -1},
    {Word("G70 (GeForce 7800)"), 47, -1},
    {Ui(182), -1, -1},
};

constexpr OldEmulationWrite kOldWrites[] = {
    {33, "MaxNVACCEL", 0},  {33, "NV20Emulate", 0}, {33, "NV30Emulate", 0},
    {33, "NV25Emulate", 0}, {33, "NVEmulate", 0},

    {34, "MaxNVACCEL", 1},  {34, "NV30Emulate", 0}, {34, "NV20Emulate", 0},
    {34, "NV25Emulate", 0}, {34, "NVEmulate", 0},

    {75, "MaxNVACCEL", 10}, {75, "NV30Emulate", 0}, {75, "NV20Emulate", 0},
    {75, "NV25Emulate", 0}, {75, "NVEmulate", 0},

    {35, "MaxNVACCEL", 0},  {35, "NV30Emulate", 0}, {35, "NV20Emulate", 1},
    {35, "NV25Emulate", 0}, {35, "NVEmulate", 0},

    {36, "MaxNVACCEL", 0},  {36, "NV25Emulate", 1}, {36, "NV20Emulate", 0},
    {36, "NV30Emulate", 0}, {36, "NVEmulate", 0},

    {37, "MaxNVACCEL", 0},  {37, "NV25Emulate", 0}, {37, "NV30Emulate", 1},
    {37, "NV20Emulate", 0}, {37, "NVEmulate", 0},
};

constexpr OldEmulationRead kOldReads[] = {
    {"MaxNVACCEL", 1, 1},  {"MaxNVACCEL", 5, 1},  {"MaxNVACCEL", 10, 2},
    {"NV20Emulate", 1, 3}, {"NV25Emulate", 1, 4}, {"NV30Emulate", 1, 5},
};

constexpr AnisoNumber kAnisos[] = {
    {0, kAnisoOffText, 5}, {1, "2x", 4}, {2, "4x", 31}, {3, "8x", 32}};

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
constexpr QualityFlagRow kFlagRows[] = {
    {4, kLowest, 1, 2, false}, {5, 2, kHighest, -2, false}, {8, 1, 1, -1, true},
    {8, 3, 3, -1, true},       {9, 0, 0, 1, true},          {9, 2, 2, 1, true},
};

/// The last numbers of the finest and of the middle trilinear quality.
constexpr std::int32_t kLastFine = 10;
constexpr std::int32_t kLastMiddle = 20;

}  // namespace

const Catalogue<OpenGLControls> kOpenGLCatalogue = {kChecks, kChoices, kCounts, kSliders, kCodes};
const std::span<const AaNumber> kAaNumbers = kNumbers;
const std::span<const Emulation> kEmulations = kFamilies;
const std::span<const OldEmulationWrite> kOldEmulationWrites = kOldWrites;
const std::span<const OldEmulationRead> kOldEmulationReads = kOldReads;
const std::span<const AnisoNumber> kAnisoNumbers = kAnisos;
const std::span<const QualityFlagRow> kQualityFlagRows = kFlagRows;

std::string TrilinearCaption(std::int32_t number, const lang::LangTable& lang_text) {
  const int quality = number <= kLastFine ? 131 : number <= kLastMiddle ? 132 : 133;
  return lang_text[123] + lang_text[quality];
}

std::int32_t PackedVersion(std::string_view version) {
  std::int32_t packed = 0;
  for (std::size_t i = version.size(); i > 0; --i) packed = packed * 256 + version[i - 1];
  return packed;
}

}  // namespace kestrune::ogl
