// What the OpenGL pages show for what the driver keeps, and what they store for each choice.

#include <gtest/gtest.h>

#include <map>

#include "fake_machine.h"
#include "ogl/ogl.h"
#include "setting_rows.h"
#include "ui/forms/main_form.h"

namespace kestrune::ogl {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;
using Number = std::optional<std::uint32_t>;

constexpr std::uint32_t kMinusOne = 0xFFFFFFFF;
constexpr std::string_view kMode = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kAniso = "opengl.filtering.anisotropic-filtering";
constexpr std::string_view kEmulation = "opengl.compatibility.compatibility-emulation-mode";
constexpr std::string_view kGlsl = "opengl.compatibility.nv4x-glsl-support";
constexpr std::string_view kSoftware = "opengl.compatibility.force-software-rasterization";
constexpr std::string_view kManualTrilinear =
    "opengl.filtering.manual-intellisample-trilinear-configuration";
constexpr std::string_view kTrilinear = "opengl.filtering.trilinear-quality";
constexpr std::string_view kTrilinearLabel = "opengl.filtering.trilinear-quality-label";
constexpr std::string_view kManualCompression =
    "opengl.filtering.manual-intellisample-texture-compression-configuration";
constexpr std::string_view kByApplication = "opengl.filtering.texture-compression-by-application";
constexpr std::string_view kCompressed = "opengl.filtering.texture-compression-enabled";
constexpr std::string_view kTriple = "opengl.misc.triple-buffering";

const std::vector<MachineKind> kSetups = {{0, 2200}, {0, 8000}, {1, 4500},
                                          {2, 5000}, {3, 8000}, {4, 9700}};

constexpr std::string_view kReads = R"(
opengl.misc.enable-s3tc-texture-compression S3TCQuality
  - off; 1 on; 7 on; 2 off; 3 on; 0 off; -1 off
opengl.misc.disable-dithering-for-dxt1-textures S3TCQuality
  - off; 2 on; 7 on; 1 off; 3 on
opengl.filtering.image-settings QualityEnhancements
  - Quality; 10 Performance; 11 Performance; 20 High performance; -10 High quality; 0 Quality
opengl.filtering.manual-intellisample-trilinear-configuration 95282304
  - off; 15 on; -1 off; 40 on
opengl.filtering.trilinear-quality 95282304
  - 1; 15 15; 40 15; 31 31; 0 31
opengl.filtering.trilinear-quality-label 95282304
  - Trilinear quality: High; 15 Trilinear quality: Medium; 10 Trilinear quality: High
  11 Trilinear quality: Medium; 20 Trilinear quality: Medium; 21 Trilinear quality: Low
  31 Trilinear quality: Low; 40 Trilinear quality: High
opengl.filtering.manual-intellisample-texture-compression-configuration 19723457
  - off; 0x07368183 on; 1 off; 0x87508277 on; 0 off
opengl.filtering.texture-compression-by-application 19723457
  0x07368183 on; 0x87508277 off
opengl.filtering.texture-compression-enabled 19723457
  0x87508277 on; 0x07368183 off
opengl.filtering.trilinear-optimization 563A95F1
  - on; 0x34198CB4 off; 0x413ABD43 on; 1 off
opengl.filtering.aniso-mip-filter-optimization 01887890
  - off; 1 on; 2 off
opengl.filtering.aniso-sample-optimization 1190801A
  - on; 0 off; 0xA95300C4 on; 1 off
opengl.filtering.texture-lod-bias TexLODBias
  - 0; 48 48; 49 48; -48 -48; - -48
opengl.filtering.texture-lod-bias-label TexLODBias
  - Texture LOD bias: ; 49 Texture LOD bias: 49
opengl.antialiasing.texture-sharpening TexSharpen
  - off; 1 on; 2 off
opengl.misc.textures-color-depth RenderQualityFlags
  - Desktop default; 4 16-bit; 8 32-bit; 2 Desktop default
opengl.compatibility.enhanced-cpu-instructions-sets-support ForceGenericCPU
  - on; 1 off; 2 off; 0 on; 2 on
opengl.misc.triple-buffering TripleBuffer
  - off; 1 on; 2 on; 0 off
opengl.misc.triple-buffering EnableTripleBuffer
  1 off
opengl.compatibility.opengl-version-override 308826
  - No override; 0x00302E31 1.0; 0x00312E31 1.1; 0x00322E31 1.2; 0x00332E31 1.3; 0x00342E31 1.4
  0x00352E31 1.5; 0x00302E32 2.0; 0x00312E32 2.0; -1 No override
opengl.misc.synchronization-mode DefaultSwapInterval
  - Off by default; 1 On by default; -1 Disabled; 0 Off by default; 1 On by default
  7 Off by default
opengl.misc.prerender-limit MaxFramesAllowed
  - 0; 3 3; 12 12
)";

TEST(OpenGLReadTest, EachRowShowsEachNumberOnEverySystem) {
  test::CheckReads(test::Interface::kOpenGL, kReads, kSetups);
}

TEST(OpenGLReadTest, DependentControlsAreEnabledByWhatIsStored) {
  FakeMachine machine;
  Driven driven(machine);
  for (const bool stored : {false, true, false}) {
    machine.StoreOpenGL("95282304", stored ? Number(15) : Number());
    machine.StoreOpenGL("19723457", stored ? Number(0x87508277) : Number());
    driven.ReadAgain();
    for (const std::string_view id : {kTrilinear, kTrilinearLabel, kByApplication, kCompressed}) {
      EXPECT_EQ(driven.Enabled(id), stored) << id;
    }
  }
}

TEST(OpenGLReadTest, DebugSwitchesAreTheSameOnEverySystem) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"", "off", "off"},
      {"REG_DWORD 1", "on", "on"},
      {"REG_DWORD 2", "mixed", "mixed"},
      {"REG_DWORD 3", "off", "off"},
      {"REG_BINARY 01", "on", "on"},
      {"REG_SZ 1", "on", "on"}};
  for (const MachineKind& setup :
       {MachineKind{0, 8000}, MachineKind{2, 5800}, MachineKind{3, 5999}, MachineKind{3, 6000}}) {
    for (const auto& [value, glsl, software] : cases) {
      FakeMachine machine(setup);
      if (!value.empty()) machine.Store(test::kDebugKey, "NV4xGLSLFunctionality", value);
      if (!value.empty()) machine.Store(test::kDebugKey, "Renderer", value);
      const Driven driven(machine);
      const bool offered = setup.driver >= 6000;
      EXPECT_EQ(driven.Text(kGlsl), offered ? glsl : "off") << value;
      EXPECT_EQ(driven.Enabled(kGlsl), offered);
      EXPECT_EQ(driven.Text(kSoftware), software) << value;
    }
  }
}

TEST(OpenGLReadTest, TheOldAntialiasingValueCountsBelowRelease5000) {
  const char* texts[] = {"Auto",    "2x",  "Quincunx", "Value 3", "4x",
                         "4x 9tap", "8xS", "16x",      "Unknown"};
  for (const auto& [setup, counts] :
       {std::pair(MachineKind{0, 2200}, true), std::pair(MachineKind{3, 4999}, true),
        std::pair(MachineKind{3, 5000}, false)}) {
    FakeMachine machine(setup);
    for (std::uint32_t number = 0; number < 9; ++number) {
      machine.StoreOpenGL("FSAAMode", number);
      EXPECT_EQ(Driven(machine).Text(kMode), counts ? texts[number] : "Auto") << number;
    }
  }
}

TEST(OpenGLReadTest, AnisotropyOfTheNtFamilyBelowRelease5000) {
  const std::pair<Number, std::string> cases[] = {
      {Number(), "Disabled"}, {0, "Disabled"}, {1, "2x"}, {2, "4x"}, {3, "8x"}, {4, "Disabled"}};
  for (const auto& [number, text] : cases) {
    FakeMachine machine({.family = 3, .driver = 4999});
    machine.StoreDirect3D("Ogl_DefaultLogAniso", number);
    EXPECT_EQ(Driven(machine).Text(kAniso), text);
  }
  FakeMachine newer({.family = 3, .driver = 5000});
  newer.StoreDirect3D("Ogl_DefaultLogAniso", 3);
  EXPECT_EQ(Driven(newer).Text(kAniso), "Auto");
  FakeMachine windows98({.family = 0, .driver = 4500});
  windows98.Store(windows98.DriverKey(), "Ogl_DefaultLogAniso", "REG_DWORD 3");
  windows98.StoreOpenGL("RenderQualityFlags", 2);
  EXPECT_EQ(Driven(windows98).Text(kAniso), "Auto");
}

TEST(OpenGLReadTest, EmulationIsOneValueFromRelease6000) {
  const std::pair<Number, std::string> cases[] = {{Number(), "Disabled (no emulation)"},
                                                  {0, "Disabled (no emulation)"},
                                                  {1, "NVx  (Riva TNT family)"},
                                                  {10, "NV1x (GeForce2 family)"},
                                                  {20, "NV20 (GeForce3 family)"},
                                                  {25, "NV25 (GeForce4 Ti family)"},
                                                  {30, "NV30 (GeForce FX 5800)"},
                                                  {31, "NV31 (GeForce FX 5600)"},
                                                  {34, "NV34 (GeForce FX 5200)"},
                                                  {35, "NV35 (GeForce FX 5700/5900)"},
                                                  {40, "NV40 (GeForce 6600/6800)"},
                                                  {44, "NV44 (GeForce 6200)"},
                                                  {47, "G70 (GeForce 7800)"},
                                                  {kMinusOne, "No limit (-1)"},
                                                  {12, "Unknown"}};
  for (const int driver : {6000, 7000}) {
    FakeMachine machine({.driver = driver});
    machine.StoreOpenGL("MaxNVACCEL", 1);
    Driven driven(machine);
    for (const auto& [number, text] : cases) {
      machine.StoreOpenGL("NVEmulate", number);
      driven.ReadAgain();
      EXPECT_EQ(driven.Text(kEmulation), text);
    }
  }
}

TEST(OpenGLReadTest, EmulationIsFourValuesBeforeOfWhichTheFirstMatchWins) {
  struct Case {
    std::vector<std::uint32_t> values;  // MaxNVACCEL, NV20Emulate, NV25Emulate, NV30Emulate
    std::string text;
  };
  const Case cases[] = {{{0, 0, 0, 0}, "Disabled (no emulation)"},
                        {{1, 0, 0, 0}, "NVx  (Riva TNT family)"},
                        {{5, 1, 1, 1}, "NVx  (Riva TNT family)"},
                        {{10, 0, 1, 0}, "NV1x (GeForce2 family)"},
                        {{2, 1, 1, 0}, "NV20 (GeForce3 family)"},
                        {{0, 0, 1, 1}, "NV25 (GeForce4 Ti family)"},
                        {{0, 0, 0, 1}, "NV30 (GeForce FX 5800)"},
                        {{2, 0, 0, 0}, "Unknown"},
                        {{0, 0, 2, 0}, "Unknown"},
                        {{}, "Disabled (no emulation)"}};
  const char* names[] = {"MaxNVACCEL", "NV20Emulate", "NV25Emulate", "NV30Emulate"};
  for (const MachineKind& setup : {MachineKind{0, 4500}, MachineKind{3, 5999}}) {
    for (const Case& each : cases) {
      FakeMachine machine(setup);
      machine.StoreOpenGL("NVEmulate", 47);
      for (std::size_t i = 0; i < each.values.size(); ++i) {
        machine.StoreOpenGL(names[i], each.values[i]);
      }
      EXPECT_EQ(Driven(machine).Text(kEmulation), each.text);
    }
  }
}

constexpr std::string_view kWrites = R"(
opengl.filtering.image-settings QualityEnhancements
  20 High performance; 10 Performance; 0 Quality
opengl.misc.textures-color-depth RenderQualityFlags
  4 16-bit; 8 32-bit; 0 Desktop default
opengl.misc.synchronization-mode DefaultSwapInterval
  -1 Disabled; 1 On by default; 0 Off by default
opengl.misc.prerender-limit MaxFramesAllowed
  1 1; 9 9
opengl.compatibility.opengl-version-override 308826
  3157553 1.0; 3223089 1.1; 3288625 1.2; 3354161 1.3; 3419697 1.4; 3485233 1.5; 3157554 2.0
  - No override
opengl.filtering.texture-lod-bias TexLODBias
  -48 -48; 48 48; 0 0
opengl.antialiasing.texture-sharpening TexSharpen
  1 on; 0 off
opengl.compatibility.enhanced-cpu-instructions-sets-support ForceGenericCPU
  1 off; 0 on
opengl.filtering.trilinear-optimization 563A95F1
  0x34198CB4 off; 0x413ABD43 on
opengl.filtering.aniso-mip-filter-optimization 01887890
  1 on; 0 off
opengl.filtering.aniso-sample-optimization 1190801A
  0 off; 0xA95300C4 on
opengl.filtering.manual-intellisample-trilinear-configuration 95282304
  1 on; - off; 1 on
opengl.filtering.trilinear-quality 95282304
  10 10; 11 11; 31 31
opengl.filtering.manual-intellisample-texture-compression-configuration 19723457
  0x07368183 on; 0 off; 0x07368183 on
opengl.filtering.texture-compression-enabled 19723457
  0x87508277 on; 0x87508277 on
opengl.filtering.texture-compression-by-application 19723457
  0x07368183 on
opengl.misc.enable-s3tc-texture-compression S3TCQuality
  1 on
opengl.misc.disable-dithering-for-dxt1-textures S3TCQuality
  3 on
opengl.misc.enable-s3tc-texture-compression S3TCQuality
  2 off
opengl.misc.disable-dithering-for-dxt1-textures S3TCQuality
  0 off
)";

TEST(OpenGLWriteTest, EachUseOfAControlIsOneWriteThatOthersReadBack) {
  test::CheckWrites(test::Interface::kOpenGL, kWrites, kSetups);
}

TEST(OpenGLWriteTest, ManualTrilinearOpensItsSliderAndPutsItBack) {
  FakeMachine machine;
  Driven driven(machine);
  driven.Tick(kManualTrilinear);
  EXPECT_TRUE(driven.Enabled(kTrilinear) && driven.Enabled(kTrilinearLabel));
  driven.Move(kTrilinear, 25);
  EXPECT_EQ(driven.Caption(kTrilinearLabel), "Trilinear quality: Low");
  machine.TakeTrace();
  driven.Tick(kManualTrilinear, false);
  EXPECT_EQ(Joined(machine.TakeTrace()), "delete K OGL_95282304");
  EXPECT_FALSE(driven.Enabled(kTrilinear) || driven.Enabled(kTrilinearLabel));
  EXPECT_EQ(driven.Text(kTrilinear), "1");
}

TEST(OpenGLWriteTest, ManualCompressionStartsByApplication) {
  FakeMachine machine;
  Driven driven(machine);
  driven.Tick(kManualCompression);
  EXPECT_EQ(driven.Text(kByApplication) + driven.Text(kCompressed), "onoff");
  driven.Press(kCompressed);
  driven.Tick(kManualCompression, false);
  EXPECT_FALSE(driven.Enabled(kByApplication) || driven.Enabled(kCompressed));
  driven.Tick(kManualCompression);
  EXPECT_EQ(driven.Text(kByApplication) + driven.Text(kCompressed), "onoff");
}

TEST(OpenGLWriteTest, TripleBufferingChangedItsNameWithRelease7701) {
  for (const auto& [driver, name] :
       {std::pair(4500, "EnableTripleBuffer"), std::pair(7700, "EnableTripleBuffer"),
        std::pair(7701, "TripleBuffer")}) {
    for (const int family : {0, 3}) {
      FakeMachine machine({.family = family, .driver = driver});
      Driven driven(machine);
      machine.TakeTrace();
      driven.Tick(kTriple);
      driven.Tick(kTriple, false);
      EXPECT_EQ(Joined(machine.TakeTrace()),
                machine.OpenGLLine(name, 1) + ", " + machine.OpenGLLine(name, 0));
    }
  }
}

TEST(OpenGLWriteTest, DebugSwitchesAreDwordsOnEverySystem) {
  for (const int family : {0, 1, 4}) {
    FakeMachine machine({.family = family, .driver = 6000});
    Driven driven(machine);
    machine.TakeTrace();
    driven.Tick(kGlsl);
    driven.Tick(kSoftware);
    driven.Tick(kSoftware, false);
    const std::string key = "write " + std::string(test::kDebugKey);
    EXPECT_EQ(Joined(machine.TakeTrace()), key + " NV4xGLSLFunctionality REG_DWORD 1, " + key +
                                               " Renderer REG_DWORD 1, " + key +
                                               " Renderer REG_DWORD 0");
  }
}

TEST(OpenGLWriteTest, EmulationIsStoredByListPosition) {
  const std::uint32_t numbers[] = {0, 1, 10, 20, 25, 30, 31, 34, 35, 40, 44, 47, kMinusOne};
  for (const auto& [driver, entries] :
       {std::pair(6000, 6), std::pair(6001, 13), std::pair(7000, 13)}) {
    FakeMachine machine({.driver = driver});
    Driven driven(machine);
    ASSERT_EQ(driven.Items(kEmulation).size(), static_cast<std::size_t>(entries));
    for (int position = 0; position < entries; ++position) {
      machine.TakeTrace();
      driven.Choose(kEmulation, position);
      EXPECT_EQ(Joined(machine.TakeTrace()), machine.OpenGLLine("NVEmulate", numbers[position]));
      EXPECT_EQ(Driven(machine).Text(kEmulation), driven.Text(kEmulation));
    }
  }
}

TEST(OpenGLWriteTest, OldEmulationStoresAllFiveValuesEachTime) {
  // In the order of each operation: M MaxNVACCEL, 2 NV20, 5 NV25, 3 NV30, E NVEmulate.
  const std::map<char, const char*> names = {{'M', "MaxNVACCEL"},
                                             {'2', "NV20Emulate"},
                                             {'5', "NV25Emulate"},
                                             {'3', "NV30Emulate"},
                                             {'E', "NVEmulate"}};
  struct Case {
    std::string order;
    std::vector<std::uint32_t> numbers;
  };
  const Case cases[] = {{"M235E", {0, 0, 0, 0, 0}},  {"M325E", {1, 0, 0, 0, 0}},
                        {"M325E", {10, 0, 0, 0, 0}}, {"M325E", {0, 0, 1, 0, 0}},
                        {"M523E", {0, 1, 0, 0, 0}},  {"M532E", {0, 0, 1, 0, 0}}};
  for (const MachineKind& setup : {MachineKind{0, 4500}, MachineKind{3, 5999}}) {
    FakeMachine machine(setup);
    Driven driven(machine);
    for (int position = 0; position < 6; ++position) {
      std::vector<std::string> lines;
      for (std::size_t i = 0; i < 5; ++i) {
        lines.push_back(
            machine.OpenGLLine(names.at(cases[position].order[i]), cases[position].numbers[i]));
      }
      machine.TakeTrace();
      driven.Choose(kEmulation, position);
      EXPECT_EQ(Joined(machine.TakeTrace()), Joined(lines)) << position;
      EXPECT_EQ(Driven(machine).Text(kEmulation), driven.Text(kEmulation));
    }
  }
}

TEST(OpenGLWriteTest, AntialiasingHasAValueOfItsOwnBelowRelease5000) {
  const std::pair<const char*, std::uint32_t> modes[] = {
      {"2x", 1}, {"SLI 4x", 1}, {"Quincunx", 2}, {"SLI 4xQ", 2},
      {"4x", 4}, {"SLI 8x", 4}, {"4x 9-tap", 5}, {"SLI 8xG", 5},
      {"8x", 6}, {"16x", 7},    {"SLI 32x", 7},  {"Auto", 0}};
  for (const MachineKind& setup :
       {MachineKind{0, 2200}, MachineKind{0, 4500}, MachineKind{3, 4999}}) {
    FakeMachine machine(setup);
    Driven driven(machine);
    for (const auto& [text, number] : modes) {
      machine.TakeTrace();
      driven.Type(kMode, text);
      EXPECT_EQ(Joined(machine.TakeTrace()), machine.OpenGLLine("FSAAMode", number)) << text;
    }
    EXPECT_EQ(driven.Text("direct3d.antialiasing.antialiasing-mode"), "Auto");
  }
}

TEST(OpenGLWriteTest, AnisotropyOfTheNtFamilyBelowRelease5000) {
  FakeMachine machine({.driver = 4999});
  Driven driven(machine);
  const std::pair<const char*, int> levels[] = {{"2x", 1}, {"4x", 2}, {"8x", 3}, {"Auto", 0}};
  for (const auto& [item, number] : levels) {
    machine.TakeTrace();
    driven.Choose(kAniso, item);
    EXPECT_EQ(Joined(machine.TakeTrace()),
              "write K Ogl_DefaultLogAniso REG_BINARY 0" + std::to_string(number) + " 00 00 00");
  }
  EXPECT_EQ(driven.Text("direct3d.filtering.anisotropic-filtering"), "Auto");
}

TEST(OpenGLWriteTest, AnisotropyOfWindows9xIsAPartOfTheQualityFlags) {
  const std::string write = R"(write K\NVidia\OpenGL RenderQualityFlags REG_DWORD )";
  struct Step {
    const char* item;
    std::string trace;
  };
  const Step steps[] = {{"2x", write + "3"}, {"2x", ""}, {"Auto", write + "1"},
                        {"Auto", ""},        {"4x", ""}, {"8x", ""}};
  for (const int driver : {2200, 4500, 8000}) {
    FakeMachine machine({.family = 0, .driver = driver});
    machine.StoreOpenGL("RenderQualityFlags", 1);
    Driven driven(machine);
    for (const Step& step : steps) {
      machine.TakeTrace();
      driven.Choose(kAniso, step.item);
      EXPECT_EQ(Joined(machine.TakeTrace()), step.trace) << driver << " " << step.item;
    }
  }
}

TEST(OpenGLWriteTest, NothingIsWrittenForADriverWithoutACard) {
  for (const MachineKind& setup :
       {MachineKind{0, 8000, ""}, MachineKind{3, 4500, ""}, MachineKind{3, 8000, ""}}) {
    FakeMachine machine(setup);
    Driven driven(machine);
    machine.TakeTrace();
    for (const auto& row : test::ParseRows(kWrites)) driven.Use(row.id, row.pairs[0].second);
    driven.Type(kMode, "4x");
    driven.Type(kAniso, "2x");
    driven.Choose(kEmulation, 2);
    EXPECT_EQ(Joined(machine.TakeTrace()), "");
  }
}

/// A writer that stands alone, so that every operation can be asked of it.
struct Writer {
  explicit Writer(MachineKind setup) : machine(std::move(setup)) {
    versions.OSFamily = machine.Kind().family;
    versions.DrvVer = machine.Kind().driver;
    adapter.PureKey = machine.DriverKey().substr(5);
  }

  std::string Trace(int operation, std::int32_t argument) {
    machine.TakeTrace();
    direct3d.clear();
    writer.WriteOpenGLSetting(operation, argument);
    return Joined(machine.TakeTrace()) + direct3d;
  }

  FakeMachine machine;
  std::string direct3d;
  core::basRegistry registry{machine.Services().registry};
  detect::VersionState versions;
  detect::AdapterState adapter;
  core::ProgramState program;
  const settings::Hardware hardware{versions, adapter, program};
  lang::LangTable texts;
  forms::MainForm form;
  controls::ControlSet controls = [this] {
    controls::ControlSet set;
    form.AddTo(set);
    return set;
  }();
  const std::vector<settings::Binding> bindings = Bind(kOpenGLSettings, controls);
  const settings::SettingsKey key{registry, versions, adapter, R"(\NVidia\OpenGL)", "OGL_"};
  OpenGLWriter writer{{key, hardware, texts, bindings, [] {},
                       [this](int code) { direct3d += "D3D " + std::to_string(code); }}};
};

struct Operation {
  int number;
  std::int32_t argument;
  std::string_view name;
  Number stored;
};

TEST(OpenGLOperationsTest, EachStoresItsValueAndTheRestNothing) {
  const Operation operations[] = {{6, 9, "ForceMultiTexture", 0},
                                  {7, 9, "ForceMultiTexture", 1},
                                  {10, 9, "S3TCQuality", 1},
                                  {11, 9, "S3TCQuality", 0},
                                  {54, 9, "S3TCQuality", 2},
                                  {55, 9, "S3TCQuality", 3},
                                  {12, 9, "TripleBuffer", 1},
                                  {13, 9, "TripleBuffer", 0},
                                  {14, 9, "EnableForce16BitZ", 1},
                                  {15, 9, "EnableForce16BitZ", 0},
                                  {16, 9, "TexLODBias", 0xFFFFFFEE},
                                  {17, 9, "TexLODBias", 0xFFFFFFFE},
                                  {18, 9, "TexLODBias", 10},
                                  {63, -3, "TexLODBias", 0xFFFFFFFD},
                                  {19, 9, "RenderQualityFlags", 0},
                                  {20, 9, "RenderQualityFlags", 4},
                                  {21, 9, "RenderQualityFlags", 8},
                                  {22, 9, "TexSharpen", 1},
                                  {23, 9, "TexSharpen", 0},
                                  {24, 9, "DefaultSwapInterval", kMinusOne},
                                  {25, 9, "DefaultSwapInterval", 0},
                                  {26, 9, "DefaultSwapInterval", 1},
                                  {28, 9, "EnableSingleBackDepthBuffer", 1},
                                  {29, 9, "EnableSingleBackDepthBuffer", 0},
                                  {76, 47, "NVEmulate", 47},
                                  {76, 3, "NVEmulate", 3},
                                  {38, 9, "AnisoQuality", 0},
                                  {50, 9, "AnisoQuality", 0},
                                  {39, 9, "AnisoQuality", 1},
                                  {51, 9, "AnisoQuality", 1},
                                  {52, 9, "NV15Alines", 1},
                                  {53, 9, "NV15Alines", 0},
                                  {56, 9, "QualityEnhancements", 0},
                                  {57, 9, "QualityEnhancements", 10},
                                  {58, 9, "QualityEnhancements", 20},
                                  {64, 9, "QualityEnhancements", 0xFFFFFFF6},
                                  {65, 9, "95282304", {}},
                                  {66, 9, "95282304", 9},
                                  {67, 9, "19723457", 0},
                                  {68, 9, "19723457", 0x07368183},
                                  {69, 9, "19723457", 0x87508277},
                                  {70, 9, "MaxFramesAllowed", 9},
                                  {71, 9, "ForceGenericCPU", 1},
                                  {72, 9, "ForceGenericCPU", 0},
                                  {73, 77, "308826", 77},
                                  {74, 9, "308826", {}},
                                  {79, 0, "563A95F1", 0x34198CB4},
                                  {79, 1, "563A95F1", 0x413ABD43},
                                  {80, 0, "01887890", 0},
                                  {80, 1, "01887890", 1},
                                  {81, 0, "1190801A", 0},
                                  {81, 1, "1190801A", 0xA95300C4}};
  for (const MachineKind& setup : {MachineKind{0, 7701}, MachineKind{3, 8000}}) {
    Writer writer(setup);
    for (const Operation& each : operations) {
      if (!each.stored) writer.machine.StoreOpenGL(each.name, 1);
      EXPECT_EQ(writer.Trace(each.number, each.argument),
                writer.machine.OpenGLLine(each.name, each.stored))
          << each.number;
      EXPECT_EQ(writer.registry.WriteAsBinary, 0);
    }
    for (const int number : {-1, 27, 30, 40, 49, 59, 82, 100, 128}) {
      EXPECT_EQ(writer.Trace(number, 1), "") << number;
    }
    for (const int number : {79, 80, 81}) EXPECT_EQ(writer.Trace(number, 2), "") << number;
    const std::string debug = "write " + std::string(test::kDebugKey);
    EXPECT_EQ(writer.Trace(77, 5), debug + " NV4xGLSLFunctionality REG_DWORD 5");
    EXPECT_EQ(writer.Trace(78, -1), debug + " Renderer REG_DWORD -1");
  }
}

TEST(OpenGLOperationsTest, SharedChoicesAreHandedOnFromRelease5000) {
  // operation, Direct3D code, value and number before release 50.00
  const std::tuple<int, int, const char*, std::uint32_t> rows[] = {
      {0, 0, "OGL_FSAAMode", 0},         {1, 2, "OGL_FSAAMode", 2},
      {2, 1, "OGL_FSAAMode", 1},         {3, 3, "OGL_FSAAMode", 4},
      {60, 4, "OGL_FSAAMode", 5},        {61, 7, "OGL_FSAAMode", 6},
      {62, 8, "OGL_FSAAMode", 7},        {4, 11, "Ogl_DefaultLogAniso", 1},
      {5, 9, "Ogl_DefaultLogAniso", 0},  {31, 60, "Ogl_DefaultLogAniso", 2},
      {32, 61, "Ogl_DefaultLogAniso", 3}};
  Writer old_driver({.driver = 4999});
  Writer new_driver({.driver = 5000});
  for (const auto& [operation, code, name, number] : rows) {
    EXPECT_EQ(old_driver.Trace(operation, 0), old_driver.machine.Direct3DLine(name, number));
    EXPECT_EQ(new_driver.Trace(operation, 0), "D3D " + std::to_string(code)) << operation;
  }
}

TEST(OpenGLOperationsTest, QualityFlagsOfWindows9xChangeByTheirNumber) {
  // operation, stored, written; 99 writes nothing
  constexpr std::int32_t kNothing = 99;
  const std::tuple<int, Number, std::int32_t> rows[] = {{4, Number(), 2},
                                                        {4, 0, 2},
                                                        {4, 1, 3},
                                                        {4, 2, kNothing},
                                                        {4, 8, kNothing},
                                                        {4, kMinusOne, 1},
                                                        {4, 0x80000000, -2147483647 + 1},
                                                        {5, Number(), kNothing},
                                                        {5, 1, kNothing},
                                                        {5, 2, 0},
                                                        {5, 3, 1},
                                                        {5, 10, 8},
                                                        {8, 0, 0},
                                                        {8, 1, 0},
                                                        {8, 2, 2},
                                                        {8, 3, 2},
                                                        {8, 9, 9},
                                                        {8, Number(), 0},
                                                        {9, 0, 1},
                                                        {9, 1, 1},
                                                        {9, 2, 3},
                                                        {9, 3, 3},
                                                        {9, Number(), 1},
                                                        {31, 1, kNothing},
                                                        {32, 1, kNothing},
                                                        {6, 3, kNothing}};
  for (const auto& [operation, stored, written] : rows) {
    Writer writer({.family = 0, .driver = 8000});
    writer.machine.StoreOpenGL("RenderQualityFlags", stored);
    const std::string trace = writer.Trace(operation, 0);
    const std::string line =
        R"(write K\NVidia\OpenGL RenderQualityFlags REG_DWORD )" + std::to_string(written);
    if (operation == 6) {
      EXPECT_EQ(trace, writer.machine.OpenGLLine("ForceMultiTexture", 0));
    } else {
      EXPECT_EQ(trace, written == kNothing ? "" : line) << operation << " " << stored.value_or(0);
    }
  }
  Writer nt({.family = 3, .driver = 8000});
  EXPECT_EQ(nt.Trace(8, 0) + nt.Trace(9, 0), "");
}

TEST(OpenGLCatalogueTest, PackedVersionsAndRowsAreWellFormed) {
  EXPECT_EQ(PackedVersion("1.4"), 0x00342E31);
  EXPECT_EQ(PackedVersion("2.0"), 0x00302E32);
}

}  // namespace
}  // namespace kestrune::ogl
