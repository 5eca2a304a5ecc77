#include "ogl/opengl_settings.h"

#include <array>
#include <limits>

namespace kestrune::ogl {

namespace {

using namespace settings;
namespace texts = lang::texts;

/// A choice that goes to the Direct3D writer.
constexpr Call Direct3D(std::int16_t code) { return {code, {}, Writer::kDirect3D}; }

// ---- Boxes: the number and operation of each state.

constexpr Choice kTrilinear[] = {{kOff, 0x34198CB4, Call{79, 0}}, {kOn, 0x413ABD43, Call{79, 1}}};
constexpr Choice kAnisoMip[] = {{kOff, 0, Call{80, 0}}, {kOn, 1, Call{80, 1}}};
constexpr Choice kAnisoSample[] = {{kOff, 0, Call{81, 0}}, {kOn, Bits(0xA95300C4), Call{81, 1}}};
constexpr Choice kSharpening[] = {{kOff, 0, Call{23}}, {kOn, 1, Call{22}}};
constexpr Choice kCpuInstructions[] = {{kOff, 1, Call{71}}, {kOn, 0, Call{72}}};
constexpr Choice kTripleBuffering[] = {{kOff, 0, Call{13}}, {kOn, 1, Call{12}}};
constexpr Choice kGlsl[] = {{kOff, 0, Call{77, 0}}, {kOn, 1, Call{77, 1}}};
constexpr Choice kRasterization[] = {{kOff, 0, Call{78, 0}}, {kOn, 1, Call{78, 1}}};

// ---- Lists, in their order.

constexpr Choice kImageSettings[] = {{Ui(texts::kHighPerformance), 20, Call{58}},
                                     {Ui(texts::kPerformance), 10, Call{57}},
                                     {Ui(texts::kQuality), 0, Call{56}},
                                     {Ui(texts::kHighQuality), -10, Call{64}, 6100}};
constexpr Choice kColorDepth[] = {{Ui(texts::kDesktopColorDepth), 0, Call{19}},
                                  {Word("16-bit"), 4, Call{20}},
                                  {Word("32-bit"), 8, Call{21}}};
constexpr Choice kSynchronization[] = {{Ui(texts::kDisabled), -1, Call{24}},
                                       {Ui(texts::kOnByDefault), 1, Call{26}},
                                       {Ui(texts::kOffByDefault), 0, Call{25}}};

constexpr Choice Version(std::string_view version) {
  return {Word(version), PackedVersion(version), Call{73, PackedVersion(version)}};
}
constexpr Choice kVersions[] = {
    {Ui(texts::kNoOverride), {}, Call{74}},
    {Ui(texts::kNoOverride), -1},
    Version("1.0"),
    Version("1.1"),
    Version("1.2"),
    Version("1.3"),
    Version("1.4"),
    Version("1.5"),
    Version("2.0"),
};

// ---- Antialiasing and anisotropic filtering: values of their own before release 50.00, and then
// shown by the reader of the shared ones.

constexpr auto kModes = [] {
  std::array<Choice, std::size(d3d::kAaModes)> choices{};
  for (std::size_t i = 0; i < choices.size(); ++i) {
    const d3d::AaMode& mode = d3d::kAaModes[i];
    choices[i] = {.text = mode.code >= 0 ? mode.text : mode.opengl,
                  .number = mode.number,
                  .above_driver = mode.above_driver,
                  .card_level = mode.card_level,
                  .also = mode.sli};
    if (mode.opengl_code >= 0) {
      choices[i].call = Call{mode.opengl_code};
    } else if (mode.code >= 0) {
      choices[i].call = Direct3D(mode.code);
    }
  }
  return choices;
}();

constexpr Choice kOldModes[] = {
    {Ui(texts::kAuto), 0, Call{0}}, {Word("2x"), 1, Call{2}},   {Word("Quincunx"), 2, Call{1}},
    {Word("Value 3"), 3},           {Word("4x"), 4, Call{3}},   {Word("4x 9tap"), 5, Call{60}},
    {Word("8xS"), 6, Call{61}},     {Word("16x"), 7, Call{62}},
};

constexpr std::string_view kModeId = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kAnisoId = "opengl.filtering.anisotropic-filtering";

constexpr Setting kOldMode = {.id = kModeId,
                              .writer = Writer::kOpenGL,
                              .shape = Shape::kList,
                              .name = "FSAAMode",
                              .not_set = 0,
                              .choices = kOldModes,
                              .otherwise = Otherwise::kText,
                              .otherwise_text = Ui(texts::kUnknown)};

constexpr Choice kAniso[] = {
    {Ui(texts::kAuto), {}, Call{kAnisoOffOperation}},
    {Ui(texts::kBilinear), 0x10000001, Direct3D(d3d::kBilinearCode), 5000, 2},
    {Word("2x"), 0x10000002, Call{4}, 0, 2},
    {Word("4x"), 0x10000004, Call{31}, 0, 8},
    {Word("8x"), 0x10000008, Call{32}, 0, 8},
    {Word("16x"), 0x10000010, Direct3D(d3d::kHighestLevelCode), 0, 16},
};

constexpr Choice kOldAniso[] = {{Word("Disabled"), 0, Call{kAnisoOffOperation}},
                                {Word("2x"), 1, Call{4}},
                                {Word("4x"), 2, Call{31}},
                                {Word("8x"), 3, Call{32}}};

/// On the NT family alone: Windows 9x keeps the level in the quality flags and never shows it.
constexpr Setting kOldAnisoRow = {.id = kAnisoId,
                                  .writer = Writer::kOpenGL,
                                  .shape = Shape::kList,
                                  .name = "Ogl_DefaultLogAniso",
                                  .place = Place::kDriverKey,
                                  .not_set = 0,
                                  .choices = kOldAniso,
                                  .otherwise = Otherwise::kText,
                                  .otherwise_text = Word("Disabled"),
                                  .special = Special::kAnisotropy};

// ---- Values whose presence or bits are the state of several controls.

constexpr Choice kTrilinearConfiguration[] = {{kOff, {}, Call{65}},
                                              {kOn, 1, Call{kTrilinearOperation, 1}}};
constexpr std::int32_t kByApplication = 0x07368183;
constexpr std::int32_t kCompressionEnabled = Bits(0x87508277);
constexpr Choice kCompression[] = {{kOff, 0, Call{67}}, {kOn, kByApplication, Call{68}}};
constexpr Choice kCompressionByApplication[] = {{kOn, kByApplication, Call{68}}};
constexpr Choice kCompressionAlways[] = {{kOn, kCompressionEnabled, Call{69}}};

// ---- The chip families that the driver can be made to play, in list order.

constexpr Choice Family(ShownText text, std::int32_t number, int above_driver = 0) {
  return {text, number, Call{76, number}, above_driver};
}
constexpr int kFirstEmulationDriver = 6000;
constexpr Choice kFamilies[] = {
    Family(Ui(texts::kEmulationOff), 0),
    Family(Word("NVx  (Riva TNT family)"), 1),
    Family(Word("NV1x (GeForce2 family)"), 10),
    Family(Word("NV20 (GeForce3 family)"), 20),
    Family(Word("NV25 (GeForce4 Ti family)"), 25),
    Family(Word("NV30 (GeForce FX 5800)"), 30),
    Family(Word("NV31 (GeForce FX 5600)"), 31, kFirstEmulationDriver),
    Family(Word("NV34 (GeForce FX 5200)"), 34, kFirstEmulationDriver),
    Family(Word("NV35 (GeForce FX 5700/5900)"), 35, kFirstEmulationDriver),
    Family(Word("NV40 (GeForce 6600/6800)"), 40, kFirstEmulationDriver),
    Family(Word("NV44 (GeForce 6200)"), 44, kFirstEmulationDriver),
    Family(Word("G70 (GeForce 7800)"), 47, kFirstEmulationDriver),
    Family(Ui(texts::kEmulationReference), -1, kFirstEmulationDriver),
};
/// The operations that store the first families on older drivers.
constexpr std::int16_t kOldEmulationOperations[] = {33, 34, 75, 35, 36, 37};
constexpr auto kOldFamilies = [] {
  std::array<Choice, std::size(kOldEmulationOperations)> choices{};
  for (std::size_t i = 0; i < choices.size(); ++i) {
    choices[i] = {.text = kFamilies[i].text, .call = Call{kOldEmulationOperations[i]}};
  }
  return choices;
}();
constexpr Setting kOldEmulation = {.id = "opengl.compatibility.compatibility-emulation-mode",
                                   .writer = Writer::kOpenGL,
                                   .shape = Shape::kList,
                                   .choices = kOldFamilies,
                                   .special = Special::kOldEmulation};

constexpr Setting kRows[] = {
    {.id = kModeId,
     .writer = Writer::kOpenGL,
     .shape = Shape::kList,
     .name = "D3DOGL_70835937",
     .choices = kModes,
     .special = Special::kMode,
     .from_driver = d3d::kFirstSharedDriver,
     .older = &kOldMode},
    {.id = "opengl.misc.enable-s3tc-texture-compression",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "S3TCQuality",
     .not_set = 0,
     .special = Special::kS3tc},
    {.id = "opengl.misc.disable-dithering-for-dxt1-textures",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "S3TCQuality",
     .not_set = 0,
     .special = Special::kS3tc},
    {.id = "opengl.filtering.image-settings",
     .writer = Writer::kOpenGL,
     .shape = Shape::kList,
     .name = "QualityEnhancements",
     .not_set = 0,
     .choices = kImageSettings},
    {.id = "opengl.filtering.trilinear-quality",
     .label = "opengl.filtering.trilinear-quality-label",
     .writer = Writer::kOpenGL,
     .shape = Shape::kSlider,
     .name = "95282304",
     .number_code = kTrilinearOperation,
     .prefix = Ui(texts::kTrilinearQuality),
     .special = Special::kTrilinearQuality},
    {.id = "opengl.filtering.manual-intellisample-trilinear-configuration",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "95282304",
     .choices = kTrilinearConfiguration,
     .special = Special::kTrilinearQuality},
    {.id = "opengl.filtering.manual-intellisample-texture-compression-configuration",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "19723457",
     .not_set = 0,
     .choices = kCompression,
     .special = Special::kCompression},
    {.id = "opengl.filtering.texture-compression-by-application",
     .writer = Writer::kOpenGL,
     .shape = Shape::kOption,
     .name = "19723457",
     .not_set = 0,
     .choices = kCompressionByApplication,
     .special = Special::kCompression},
    {.id = "opengl.filtering.texture-compression-enabled",
     .writer = Writer::kOpenGL,
     .shape = Shape::kOption,
     .name = "19723457",
     .not_set = 0,
     .choices = kCompressionAlways,
     .special = Special::kCompression},
    {.id = "opengl.filtering.trilinear-optimization",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "563A95F1",
     .not_set = 0x413ABD43,
     .choices = kTrilinear,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff},
    {.id = "opengl.filtering.aniso-mip-filter-optimization",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "01887890",
     .not_set = 0,
     .choices = kAnisoMip,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff},
    {.id = "opengl.filtering.aniso-sample-optimization",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "1190801A",
     .not_set = Bits(0xA95300C4),
     .choices = kAnisoSample,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff},
    {.id = "opengl.filtering.texture-lod-bias",
     .label = "opengl.filtering.texture-lod-bias-label",
     .writer = Writer::kOpenGL,
     .shape = Shape::kSlider,
     .name = "TexLODBias",
     .number_code = 63,
     .prefix = Ui(texts::kLodBias)},
    {.id = "opengl.antialiasing.texture-sharpening",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "TexSharpen",
     .not_set = 0,
     .choices = kSharpening,
     .otherwise = Otherwise::kText,
     .otherwise_text = kOff},
    {.id = "opengl.misc.textures-color-depth",
     .writer = Writer::kOpenGL,
     .shape = Shape::kList,
     .name = kQualityFlags,
     .not_set = 0,
     .choices = kColorDepth,
     .otherwise = Otherwise::kText,
     .otherwise_text = Ui(texts::kDesktopColorDepth)},
    {.id = "opengl.compatibility.enhanced-cpu-instructions-sets-support",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "ForceGenericCPU",
     .not_set = 0,
     .choices = kCpuInstructions},
    {.id = "opengl.misc.triple-buffering",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "TripleBuffer",
     .not_set = 0,
     .choices = kTripleBuffering,
     .old_name = "EnableTripleBuffer",
     .old_name_below = 7701},
    {.id = "opengl.compatibility.opengl-version-override",
     .writer = Writer::kOpenGL,
     .shape = Shape::kList,
     .name = "308826",
     .choices = kVersions},
    {.id = "opengl.misc.synchronization-mode",
     .writer = Writer::kOpenGL,
     .shape = Shape::kList,
     .name = "DefaultSwapInterval",
     .not_set = 0,
     .choices = kSynchronization,
     .otherwise = Otherwise::kText,
     .otherwise_text = Ui(texts::kOffByDefault)},
    {.id = "opengl.misc.prerender-limit",
     .writer = Writer::kOpenGL,
     .shape = Shape::kCount,
     .name = "MaxFramesAllowed",
     .not_set = 0,
     .number_code = 70,
     .first = 1},
    {.id = "opengl.compatibility.compatibility-emulation-mode",
     .writer = Writer::kOpenGL,
     .shape = Shape::kList,
     .name = "NVEmulate",
     .not_set = 0,
     .choices = kFamilies,
     .otherwise = Otherwise::kText,
     .otherwise_text = Ui(texts::kUnknown),
     .from_driver = kFirstEmulationDriver,
     .older = &kOldEmulation},
    {.id = "opengl.compatibility.nv4x-glsl-support",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "NV4xGLSLFunctionality",
     .place = Place::kDebugKey,
     .not_set = 0,
     .choices = kGlsl,
     .otherwise = Otherwise::kState,
     .needs = {.from_driver = kFirstEmulationDriver},
     .cleared_without = true},
    {.id = "opengl.compatibility.force-software-rasterization",
     .writer = Writer::kOpenGL,
     .shape = Shape::kBox,
     .name = "Renderer",
     .place = Place::kDebugKey,
     .not_set = 0,
     .choices = kRasterization,
     .otherwise = Otherwise::kState},
    {.id = kAnisoId,
     .writer = Writer::kOpenGL,
     .shape = Shape::kList,
     .name = "D3DOGL_74095213",
     .choices = kAniso,
     .special = Special::kAnisotropy,
     .from_driver = d3d::kFirstSharedDriver,
     .older = &kOldAnisoRow},
};

constexpr CodeRow kCodes[] = {
    {.code = 6, .name = "ForceMultiTexture", .number = 0},
    {.code = 7, .name = "ForceMultiTexture", .number = 1},
    {.code = 10, .name = "S3TCQuality", .number = kS3tcEnabled},
    {.code = 11, .name = "S3TCQuality", .number = 0},
    {.code = 54, .name = "S3TCQuality", .number = kS3tcNoDithering},
    {.code = 55, .name = "S3TCQuality", .number = kS3tcEnabled | kS3tcNoDithering},
    {.code = 14, .name = "EnableForce16BitZ", .number = 1},
    {.code = 15, .name = "EnableForce16BitZ", .number = 0},
    {.code = 16, .name = "TexLODBias", .number = -18},
    {.code = 17, .name = "TexLODBias", .number = -2},
    {.code = 18, .name = "TexLODBias", .number = 10},
    {.code = 28, .name = "EnableSingleBackDepthBuffer", .number = 1},
    {.code = 29, .name = "EnableSingleBackDepthBuffer", .number = 0},
    {.code = 38, .name = "AnisoQuality", .number = 0},
    {.code = 50, .name = "AnisoQuality", .number = 0},
    {.code = 39, .name = "AnisoQuality", .number = 1},
    {.code = 51, .name = "AnisoQuality", .number = 1},
    {.code = 52, .name = "NV15Alines", .number = 1},
    {.code = 53, .name = "NV15Alines", .number = 0},
    {.code = 73, .name = "308826", .stores_argument = true},
    {.code = 76, .name = "NVEmulate", .stores_argument = true},
    {.code = 77,
     .name = "NV4xGLSLFunctionality",
     .place = Place::kDebugKey,
     .stores_argument = true},
    {.code = 78, .name = "Renderer", .place = Place::kDebugKey, .stores_argument = true},
};

constexpr Relay kRelayRows[] = {{0, 0},   {1, 2},  {2, 1},
                                {3, 3},   {60, 4}, {61, 7},
                                {62, 8},  {4, 11}, {kAnisoOffOperation, d3d::kPointCode},
                                {31, 60}, {32, 61}};

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

const std::span<const Setting> kOpenGLSettings = kRows;
const std::span<const CodeRow> kOpenGLCodes = kCodes;
const std::span<const Relay> kRelays = kRelayRows;
const std::span<const OldEmulationWrite> kOldEmulationWrites = kOldWrites;
const std::span<const OldEmulationRead> kOldEmulationReads = kOldReads;
const std::span<const QualityFlagRow> kQualityFlagRows = kFlagRows;

std::string TrilinearCaption(std::int32_t number, const lang::LangTable& lang_text) {
  const int quality = number <= kLastFine     ? texts::kFineTrilinear
                      : number <= kLastMiddle ? texts::kMiddleTrilinear
                                              : texts::kCoarseTrilinear;
  return lang_text[texts::kTrilinearQuality] + lang_text[quality];
}

}  // namespace kestrune::ogl
