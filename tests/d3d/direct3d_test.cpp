// What the Direct3D pages show for what the driver keeps, and what they store for each choice.

#include <gtest/gtest.h>

#include "d3d/direct3d_settings.h"
#include "fake_machine.h"
#include "setting_rows.h"

namespace kestrune::d3d {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;
using Number = std::optional<std::uint32_t>;

constexpr std::uint32_t kUnknownMinusOne = 0xFFFFFFFF;
constexpr std::string_view kMode = "direct3d.antialiasing.antialiasing-mode";
constexpr std::string_view kGlMode = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kTransparency = "direct3d.antialiasing.transparency-antialiasing";
constexpr std::string_view kGlTransparency = "opengl.antialiasing.transparency-antialiasing";
constexpr std::string_view kGamma = "direct3d.antialiasing.gamma-correct-antialiasing";
constexpr std::string_view kGlGamma = "opengl.antialiasing.gamma-correct-antialiasing";
constexpr std::string_view kSli = "direct3d.antialiasing.enable-sli-antialiasing";
constexpr std::string_view kGlSli = "opengl.antialiasing.enable-sli-antialiasing";
constexpr std::string_view kAniso = "direct3d.filtering.anisotropic-filtering";
constexpr std::string_view kGlAniso = "opengl.filtering.anisotropic-filtering";

/// The systems and drivers whose rows differ only in place and form.
const std::vector<MachineKind> kSetups = {{0, 2281}, {0, 8000}, {1, 4500},
                                          {2, 5000}, {3, 8000}, {4, 9700}};

constexpr std::string_view kReads = R"(
direct3d.misc.enable-z-buffer-compression D3d_46205529
  - on; 0x86752318 off; 0x88204955 on; 7 off
direct3d.filtering.disable-mipmap-filtering D3D_36759435
  - off; 0x48391723 on; 0x24829101 off; 0 on
direct3d.filtering.force-textures-to-low-mip-level D3D_69109016
  - off; 1 on; 2 on; 0 off; -1 off
direct3d.filtering.allow-negative-lod-bias D3D_16579523
  - on; 1 off; 2 off; 0 on; 5 on
direct3d.filtering.trilinear-optimization D3D_94118636
  - on; 1 off; 2 off; 0 on; 5 on
direct3d.filtering.aniso-mip-filter-optimization D3D_40792312
  - off; 1 on; 3 on; 0 off
direct3d.filtering.aniso-sample-optimization D3D_30913648
  - on; 0 off; 9 off; 1 on
direct3d.misc.enable-fog-table-emulation D3d_20466189
  - on; 0x78176879 off; 0x31259154 on; 0 off
direct3d.filtering.intellisample-image-settings D3D_QualityEnhancements
  - Quality; 10 Performance; 15 Performance; 20 High performance; -10 High quality; 0 Quality
direct3d.filtering.force-mipmaps D3DOGL_03385531
  - None; 1 Bilinear; 3 Bilinear; 2 Trilinear; 0 None
opengl.filtering.force-mipmaps D3DOGL_03385531
  2 Trilinear; 1 Bilinear
direct3d.misc.synchronization-mode D3D_60461791
  - Enabled; 0x08416747 Disabled; 0x60925292 Auto; 0x47814940 Enabled; 0x60925292 Auto; 1 Enabled
direct3d.misc.prerender-limit D3D_98764205
  - 2; 0 0; 9 9; 12 12; -1 -1
direct3d.filtering.texture-lod-bias D3D_88481200
  - 0; 24 24; 40 24; -24 -24; -25 -24
direct3d.filtering.texture-lod-bias-label D3D_88481200
  - Texture LOD bias: 0; 40 Texture LOD bias: 40; -7 Texture LOD bias: -7
direct3d.shaders.pixel-shader-label D3d_59954021
  - Pixel Shader: Default; 0xFFFF0101 Pixel Shader: 1.1; 0xFFFF0103 Pixel Shader: 1.3
  0xFFFF0104 Pixel Shader: 1.4; 0xFFFF0105 Pixel Shader: 1.5; 0xFFFF0106 Pixel Shader: 1.6
  0xFFFF0200 Pixel Shader: 2.0; 0xFFFF0201 Pixel Shader: 2.1; 0xFFFF0204 Pixel Shader: 2.4
  0xFFFF0300 Pixel Shader: 3.0; 0xFFFF0000 Pixel Shader: Disabled; 0 Pixel Shader: Default
  3 Pixel Shader: Disabled
direct3d.shaders.vertex-shader-label D3d_59954023
  - Vertex Shader: Default; 0xFFFE0101 Vertex Shader: 1.1; 0xFFFE0200 Vertex Shader: 2.0
  0xFFFE0300 Vertex Shader: 3.0; 0xFFFE0000 Vertex Shader: Disabled; 0 Vertex Shader: Default
  0xFFFF0300 Vertex Shader: Disabled
direct3d.antialiasing.enable-sli-antialiasing D3DOGL_12677978
  - off; 0x51621660 off
)";

TEST(Direct3DReadTest, EachRowShowsEachNumberOnEverySystem) {
  test::CheckReads(test::Interface::kDirect3D, kReads, kSetups);
}

TEST(Direct3DReadTest, ReadingWritesNothing) {
  for (const MachineKind& setup : kSetups) {
    FakeMachine machine(setup);
    for (const test::SettingRow& row : test::ParseRows(kReads)) {
      // What the shader sliders are moved to is stored again.
      if (row.id.starts_with("direct3d.shaders.")) continue;
      machine.StoreDirect3D(row.name, row.pairs.back().first);
    }
    machine.TakeTrace();
    const Driven driven(machine);
    EXPECT_EQ(Joined(machine.TakeTrace()), R"(write HKCU\Software\Kestrune Version REG_DWORD 353)");
  }
}

TEST(Direct3DReadTest, KeepsTheVersionsOfShadersForTheOverrides) {
  FakeMachine machine;
  Driven driven(machine);
  const std::tuple<Number, Number, Number, std::string> cases[] = {
      {Number(), Number(), Number(), "Enabled Enabled -1"},
      {0xFFFF0105, 0xFFFE0200, 3, "1.5 2.0 3"},
      {7, 7, 0, "0.0 0.0 0"}};
  for (const auto& [pixel, vertex, textures, kept] : cases) {
    machine.StoreDirect3D("D3d_59954021", pixel);
    machine.StoreDirect3D("D3d_59954023", vertex);
    machine.StoreDirect3D("D3D_59954022", textures);
    driven.ReadAgain();
    EXPECT_EQ(driven.State("PixelShaderVersionText") + " " +
                  driven.State("VertexShaderVersionText") + " " +
                  driven.State("MaxSimultaneousTextures"),
              kept);
  }
}

constexpr std::string_view kWrites = R"(
direct3d.misc.enable-z-buffer-compression D3d_46205529
  0x86752318 off; 0x88204955 on
direct3d.filtering.disable-mipmap-filtering D3D_36759435
  0x48391723 on; 0x24829101 off
direct3d.filtering.force-textures-to-low-mip-level D3D_69109016
  1 on; 0 off
direct3d.filtering.allow-negative-lod-bias D3D_16579523
  1 off; 0 on
direct3d.filtering.trilinear-optimization D3D_94118636
  1 off; 0 on
direct3d.filtering.aniso-mip-filter-optimization D3D_40792312
  1 on; 0 off
direct3d.filtering.aniso-sample-optimization D3D_30913648
  0 off; 1 on
direct3d.misc.enable-fog-table-emulation D3d_20466189
  0x78176879 off; 0x31259154 on
direct3d.filtering.intellisample-image-settings D3D_QualityEnhancements
  20 High performance; 10 Performance; 0 Quality; 0 Quality
direct3d.filtering.force-mipmaps D3DOGL_03385531
  0 None; 1 Bilinear; 2 Trilinear
opengl.filtering.force-mipmaps D3DOGL_03385531
  2 Trilinear; 1 Bilinear; 0 None
direct3d.misc.synchronization-mode D3D_60461791
  0x60925292 Auto; 0x47814940 Enabled; 0x08416747 Disabled
direct3d.misc.prerender-limit D3D_98764205
  0 0; 9 9; 2 2
direct3d.filtering.texture-lod-bias D3D_88481200
  -7 -7; 24 24; -24 -24
)";

TEST(Direct3DWriteTest, EachUseOfAControlIsOneWriteThatOthersReadBack) {
  test::CheckWrites(test::Interface::kDirect3D, kWrites, kSetups);
}

TEST(Direct3DWriteTest, TheBiasStandsInItsCaption) {
  FakeMachine machine;
  Driven driven(machine);
  driven.Move("direct3d.filtering.texture-lod-bias", -7);
  EXPECT_EQ(driven.Caption("direct3d.filtering.texture-lod-bias-label"), "Texture LOD bias: -7");
}

TEST(Direct3DWriteTest, TheHighestQualityIsListedAboveRelease6100) {
  for (const auto& [driver, listed] : {std::pair(6100, false), std::pair(6101, true)}) {
    FakeMachine machine({.driver = driver});
    Driven driven(machine);
    constexpr std::string_view kId = "direct3d.filtering.intellisample-image-settings";
    EXPECT_EQ(driven.Items(kId).size(), listed ? 4U : 3U);
    if (!listed) continue;
    machine.TakeTrace();
    driven.Choose(kId, "High quality");
    EXPECT_EQ(Joined(machine.TakeTrace()),
              "write K D3D_QualityEnhancements REG_BINARY F6 FF FF FF");
  }
}

/// A mode of the shared value: its number and its names.
struct ModeRow {
  std::uint32_t number;
  std::string direct3d;
  std::string opengl;
  std::string sli;  ///< on both pages; empty: the same as without
};

const ModeRow kModes[] = {{0x10000000, "Disabled", "Disabled", ""},
                          {0x10000001, "2x1", "Disabled", ""},
                          {0x10000002, "1x2", "Disabled", ""},
                          {0x10000007, "2x enh", "Disabled", ""},
                          {0x1000000E, "2x", "2x", "SLI 4x"},
                          {0x1000000F, "Quincunx", "Quincunx", "SLI 4xQ"},
                          {0x10000010, "4x", "4x", "SLI 8x"},
                          {0x10000012, "4x 9-tap", "4x 9-tap", "SLI 8xG"},
                          {0x10000013, "4xS", "4xS", "SLI 8xS"},
                          {0x10000016, "6x", "Disabled", ""},
                          {0x10000017, "6xS", "6xS", "SLI 12xS"},
                          {0x10000018, "8xS", "8xS", "SLI 16x"},
                          {0x10000019, "8x", "8x", ""},
                          {0x1000001A, "16x", "16x", "SLI 32x"}};

/// What the antialiasing pages show, in one line.
std::string AaShown(const Driven& driven) {
  EXPECT_EQ(driven.Text(kTransparency), driven.Text(kGlTransparency));
  EXPECT_EQ(driven.Text(kGamma), driven.Text(kGlGamma));
  return driven.Text(kMode) + "/" + driven.Text(kGlMode) + " " + driven.Text(kTransparency) +
         " gamma " + driven.Text(kGamma) + " " + driven.State("AaGammaOn") +
         driven.State("AaTransparencyMode");
}

TEST(SharedAntialiasingTest, EachModeIsReadWithEachFlagThatItsDecimalTextTells) {
  struct Flags {
    std::uint32_t number;
    std::string shown;
  };
  const Flags flags[] = {{0, "Disabled gamma off 00"},
                         {0x00100000, "Disabled gamma on 10"},
                         {0x00010000, "Multisampling gamma off 01"},
                         {0x00110000, "Multisampling gamma on 11"},
                         {0x40000000, "Supersampling gamma off 02"},
                         {0x40100000, "Supersampling gamma on 12"}};
  for (const bool sli : {false, true}) {
    FakeMachine machine;
    machine.StoreDirect3D("D3DOGL_12677978", sli ? 0x29060797 : 0x51621660);
    Driven driven(machine);
    for (const ModeRow& mode : kModes) {
      for (const Flags& flag : flags) {
        machine.StoreDirect3D("D3DOGL_70835937", mode.number + flag.number);
        driven.ReadAgain();
        const bool renamed = sli && !mode.sli.empty();
        const std::string modes =
            renamed ? mode.sli + "/" + mode.sli : mode.direct3d + "/" + mode.opengl;
        EXPECT_EQ(AaShown(driven), modes + " " + flag.shown) << mode.number << " " << flag.number;
        EXPECT_EQ(driven.State("CurrentAaModeText"), driven.Text(kMode));
      }
    }
  }
}

TEST(SharedAntialiasingTest, OtherNumbersAreUnknownAndNoneIsAuto) {
  const std::pair<Number, std::string> cases[] = {
      {Number(), "Auto/Auto Disabled gamma off 00"},
      {0, "Auto/Auto Disabled gamma off 00"},
      {0x10000014, "Unknown/Unknown Disabled gamma off 00"},
      {0x00100000, "Unknown/Unknown Disabled gamma off 00"},
      {0x40010010, "Unknown/Unknown Disabled gamma off 00"},
      {0x90000010, "Unknown/Unknown Disabled gamma off 00"},
      {0x10100000 + 63, "Unknown/Unknown Disabled gamma on 10"},
      {26948, "Unknown/Unknown Disabled gamma off 00"},
      {269480000, "Unknown/Unknown Disabled gamma on 10"}};
  FakeMachine machine;
  Driven driven(machine);
  for (const auto& [number, shown] : cases) {
    machine.StoreDirect3D("D3DOGL_70835937", number);
    driven.ReadAgain();
    EXPECT_EQ(AaShown(driven), shown) << number.value_or(0);
  }
}

TEST(SharedAntialiasingTest, AChoiceOnEitherPageIsOneWriteWithTheFlags) {
  const char* kAuto = "Auto";
  for (const std::string_view page : {kMode, kGlMode}) {
    for (const auto& [driver, mirrors] : {std::pair(5000, false), std::pair(8000, true)}) {
      FakeMachine machine({.driver = driver});
      machine.StoreDirect3D("D3DOGL_70835937", 0x50100010);
      Driven driven(machine);
      for (const ModeRow& mode : kModes) {
        // Typed, so that it doesn't depend on the card's list; what is never written stays.
        machine.TakeTrace();
        driven.Type(page, mode.direct3d);
        const bool written = mode.opengl == mode.direct3d || mode.direct3d == "6x";
        EXPECT_EQ(Joined(machine.TakeTrace()),
                  written ? machine.Direct3DLine("D3DOGL_70835937", mode.number + 0x40100000) : "")
            << page << " " << mode.direct3d;
        EXPECT_EQ(driven.Text(page == kMode ? kGlMode : kMode), mirrors ? mode.direct3d : "4x");
        if (mode.sli.empty()) continue;
        driven.Type(page, mode.sli);
        EXPECT_EQ(Joined(machine.TakeTrace()),
                  machine.Direct3DLine("D3DOGL_70835937", mode.number + 0x40100000));
      }
      driven.Choose(page, kAuto);
      EXPECT_EQ(Joined(machine.TakeTrace()), machine.Direct3DLine("D3DOGL_70835937", 0));
      EXPECT_EQ(driven.State("AaGammaOn") + driven.State("AaTransparencyMode"), "00");
    }
  }
}

TEST(SharedAntialiasingTest, FlagsRewriteTheCurrentModeOnce) {
  FakeMachine machine({.driver = 8195});
  Driven driven(machine);
  machine.TakeTrace();
  struct Step {
    std::string_view id;
    std::string_view use;
    std::string trace;
  };
  const std::string write = "write K D3DOGL_70835937 REG_BINARY ";
  const Step steps[] = {
      {kTransparency, "Multisampling", write + "00 00 00 00"},  // Auto carries no flags
      {kMode, "4x", write + "10 00 01 10"},
      {kMode, "4x", write + "10 00 01 10"},
      {kGamma, "on", write + "10 00 11 10"},
      {kGlTransparency, "Supersampling", write + "10 00 10 50"},
      {kGlTransparency, "Supersampling", write + "10 00 10 50"},
      {kTransparency, "Supersampling", ""},  // the twin shows it already
      {kGlGamma, "off", write + "10 00 00 50"},
      {kGlMode, "8xS", write + "18 00 00 50"},
      {kTransparency, "Disabled", write + "18 00 00 10"},
      {kMode, "Disabled", write + "00 00 00 10"},
      {kGamma, "on", ""},
      {kTransparency, "Multisampling", write + "00 00 11 10"},
      {kGlMode, "Auto", write + "00 00 00 00"},
      {kGlGamma, "off", ""}};  // the flags went with the mode
  for (const Step& step : steps) {
    driven.Use(step.id, step.use);
    EXPECT_EQ(Joined(machine.TakeTrace()), step.trace) << step.id << "=" << step.use;
    EXPECT_EQ(driven.Text(kTransparency), driven.Text(kGlTransparency)) << step.id;
    EXPECT_EQ(driven.Text(kGamma), driven.Text(kGlGamma)) << step.id;
    EXPECT_EQ(driven.Text(kMode), driven.Text(kGlMode)) << step.id;
  }
}

TEST(SharedAntialiasingTest, SliIsWrittenOnceFollowedByItsTwinAndRenamesTheModes) {
  for (const auto& [box, twin] : {std::pair(kSli, kGlSli), std::pair(kGlSli, kSli)}) {
    FakeMachine machine({.driver = 7800});
    machine.StoreDirect3D("D3DOGL_70835937", 0x10000010);
    Driven driven(machine);
    machine.TakeTrace();
    driven.Tick(box);
    EXPECT_EQ(Joined(machine.TakeTrace()), "write K D3DOGL_12677978 REG_BINARY 97 07 06 29");
    EXPECT_EQ(driven.Text(twin) + driven.State("SliAaOn"), "on1");
    EXPECT_EQ(driven.Text(kMode) + "/" + driven.Text(kGlMode), "SLI 8x/SLI 8x");
    EXPECT_EQ(driven.State("IsStart"), "0");
    driven.Tick(box, false);
    EXPECT_EQ(Joined(machine.TakeTrace()), "write K D3DOGL_12677978 REG_BINARY 60 16 62 51");
    EXPECT_EQ(driven.Text(kMode), "4x");
  }
}

TEST(SharedAntialiasingTest, SliIsOfferedByDeviceAndOtherNumbersLeaveIt) {
  const std::pair<const char*, bool> devices[] = {{"0141", true}, {"0045", true},  {"00C1", true},
                                                  {"0092", true}, {"0221", false}, {"0161", false}};
  for (const auto& [device, offered] : devices) {
    FakeMachine machine({.device = device});
    machine.StoreDirect3D("D3DOGL_12677978", 0x29060797);
    Driven driven(machine);
    EXPECT_EQ(driven.Enabled(kSli) && driven.Enabled(kGlSli), offered) << device;
    EXPECT_EQ(driven.Text(kSli) + driven.Text(kGlSli), "onon");
  }
  FakeMachine machine;
  machine.StoreDirect3D("D3DOGL_12677978", 5);
  const Driven driven(machine);
  EXPECT_EQ(driven.Text(kSli) + driven.State("SliAaOn"), "off0");
}

TEST(OldAntialiasingTest, ShowsItsModeOnTheDirect3DPageUnlessItIsForcedOff) {
  const char* texts[] = {"Auto", "2x", "Quincunx",  "4x",  "4x 9-tap", "4xS",
                         "6x",   "8x", "6xS (12x)", "8xS", "4xSS"};
  for (const MachineKind& setup :
       {MachineKind{0, 2281}, MachineKind{0, 4500}, MachineKind{3, 4999}}) {
    for (std::uint32_t number = 0; number < 12; ++number) {
      FakeMachine machine(setup);
      machine.StoreDirect3D("D3d_70835937", number);
      machine.StoreDirect3D("D3DOGL_70835937", 0x10000010);
      EXPECT_EQ(Driven(machine).Text(kMode), number < 11 ? texts[number] : "Auto") << number;
      EXPECT_EQ(Driven(machine).State("CurrentAaModeText"), "");
      machine.StoreDirect3D("D3D_08285629", 0x57015990);
      EXPECT_EQ(Driven(machine).Text(kMode), number < 11 ? texts[number] : "Auto");
      machine.StoreDirect3D("D3D_08285629", 0x06326293);
      EXPECT_EQ(Driven(machine).Text(kMode), "Disabled");
    }
  }
}

TEST(OldAntialiasingTest, WritesTheSwitchBeforeTheMode) {
  const std::pair<const char*, int> modes[] = {{"2x", 1},       {"Quincunx", 2}, {"4x", 3},
                                               {"4x 9-tap", 4}, {"4xS", 5},      {"6xS", 6},
                                               {"8x", 7},       {"16x", 8},      {"Auto", 0}};
  for (const MachineKind& setup :
       {MachineKind{0, 2281}, MachineKind{0, 4500}, MachineKind{3, 4999}}) {
    FakeMachine machine(setup);
    Driven driven(machine);
    for (const auto& [text, number] : modes) {
      machine.TakeTrace();
      driven.Type(kMode, text);
      EXPECT_EQ(Joined(machine.TakeTrace()),
                machine.Direct3DLine("D3D_08285629", number == 0 ? 0x06326293 : 0x57015990) + ", " +
                    machine.Direct3DLine("D3d_70835937", number))
          << text;
    }
    const std::pair<const char*, std::uint32_t> always_shared[] = {
        {"6x", 0x10000016}, {"8xS", 0x10000018}, {"Disabled", 0x10000000}};
    for (const auto& [text, number] : always_shared) {
      driven.Type(kMode, text);
      EXPECT_EQ(Joined(machine.TakeTrace()), machine.Direct3DLine("D3DOGL_70835937", number));
    }
    EXPECT_EQ(driven.Text(kGlMode), "Auto");
  }
}

TEST(AnisotropyTest, ReadsTheSharedValueOnBothPages) {
  const std::pair<Number, std::string> cases[] = {{Number(), "Auto"},  {0x10000001, "Disabled"},
                                                  {0x10000002, "2x"},  {0x10000004, "4x"},
                                                  {3, "4x"},           {0x10000008, "8x"},
                                                  {0x10000010, "16x"}, {1, "Auto"},
                                                  {0x10000002, "2x"},  {0, "Auto"}};
  for (const MachineKind& setup :
       {MachineKind{0, 5000}, MachineKind{3, 5000}, MachineKind{4, 9700}}) {
    FakeMachine machine(setup);
    Driven driven(machine);
    for (const auto& [number, text] : cases) {
      machine.StoreDirect3D("D3DOGL_74095213", number);
      driven.ReadAgain();
      EXPECT_EQ(driven.Text(kAniso) + "/" + driven.Text(kGlAniso), text + "/" + text)
          << number.value_or(0);
    }
  }
}

TEST(AnisotropyTest, ReadsAndWritesTheOldValueByRelease) {
  const char* items[] = {"Point s.", "Bilinear", "2x", "4x", "8x", "16x"};
  const int numbers[][6] = {{0, 1, 2, 4, 8, 16}, {-1, 0, 1, 2, 3, 4}};
  for (const auto& [driver, column] :
       {std::pair(2281, 0), std::pair(4102, 0), std::pair(4103, 1), std::pair(4999, 1)}) {
    for (const int family : {0, 3}) {
      FakeMachine machine({.family = family, .driver = driver});
      Driven driven(machine);
      EXPECT_EQ(driven.Text(kAniso), "Auto");
      for (int i = 0; i < 6; ++i) {
        const auto number = static_cast<std::uint32_t>(numbers[column][i]);
        machine.StoreDirect3D("D3d_74095213", number);
        driven.ReadAgain();
        EXPECT_EQ(driven.Text(kAniso), number == kUnknownMinusOne ? "Auto" : items[i]) << number;
        if (i == 0) continue;
        machine.TakeTrace();
        driven.Type(kAniso, "");
        driven.Choose(kAniso, items[i]);
        EXPECT_EQ(Joined(machine.TakeTrace()), machine.Direct3DLine("D3d_74095213", number));
        EXPECT_EQ(driven.Text(kAniso), items[i]);
      }
      machine.StoreDirect3D("D3d_74095213", 77);
      driven.ReadAgain();
      EXPECT_EQ(driven.Text(kAniso), "16x");
      machine.TakeTrace();
      driven.Choose(kAniso, "Auto");
      EXPECT_EQ(Joined(machine.TakeTrace()), machine.Direct3DLine("D3d_74095213", Number()));
    }
  }
}

TEST(AnisotropyTest, ASharedChoiceIsOneWriteAndAutoDeletes) {
  const std::pair<const char*, Number> choices[] = {{"2x", 0x10000002},
                                                    {"4x", 0x10000004},
                                                    {"8x", 0x10000008},
                                                    {"Bilinear", 0x10000001},
                                                    {"16x", 0x10000010}};
  for (const int driver : {5000, 5001, 8000}) {
    for (const std::string_view page : {kAniso, kGlAniso}) {
      FakeMachine machine({.driver = driver});
      Driven driven(machine);
      for (const auto& [item, number] : choices) {
        machine.TakeTrace();
        driven.Type(page, item);
        EXPECT_EQ(Joined(machine.TakeTrace()), machine.Direct3DLine("D3DOGL_74095213", number));
        const bool same = driven.Text(kAniso) == driven.Text(kGlAniso);
        EXPECT_EQ(same, driver > 5000 || std::string(item) != "16x") << driver << item;
      }
      driven.Choose(page, "Auto");
      // The OpenGL page leaves it to the program in a way of its own.
      EXPECT_EQ(Joined(machine.TakeTrace()),
                machine.Direct3DLine("D3DOGL_74095213", page == kAniso ? Number() : Number(1)));
      EXPECT_EQ(driven.Text(kAniso) + driven.Text(kGlAniso), "AutoAuto");
      EXPECT_EQ(Driven(machine).Text(kAniso), "Auto");
    }
  }
}

TEST(Direct3DReadTest, BoxesAreOfferedByDriverAndCard) {
  constexpr std::string_view kLod = "direct3d.filtering.allow-negative-lod-bias";
  constexpr std::string_view kZ = "direct3d.misc.enable-z-buffer-compression";
  for (const auto& [driver, on] :
       {std::pair(6600, false), std::pair(6999, false), std::pair(7000, true)}) {
    FakeMachine machine({.driver = driver});
    EXPECT_EQ(Driven(machine).Enabled(kLod), on) << driver;
  }
  const std::pair<const char*, bool> mt[] = {{"91,1", true}, {"09,1", true}, {"09,2", false},
                                             {"09,x", true}, {"09", true},   {"", true}};
  for (const auto& [table, low] : mt) {
    FakeMachine machine;
    machine.Lay("DATA/mt.dat", table);
    const Driven driven(machine);
    EXPECT_EQ(driven.Enabled(kZ), low) << table;
    EXPECT_EQ(driven.State("LowTextureUnits"), low ? "1" : "0") << table;
  }
}

TEST(LegacyDriverTest, ShowsNothingAndStoresWordedValues) {
  struct Step {
    std::string_view id;
    std::string use;
    std::vector<std::pair<std::string_view, std::uint32_t>> stored;
  };
  const Step steps[] = {
      {kMode, "2x", {{"ANTIALIASENABLE", 1}, {"ANTIALIASQUALITY", 1}, {"ANTIALIASFORCEENABLE", 4}}},
      {kMode, "Quincunx", {}},
      {kMode, "4x", {{"ANTIALIASENABLE", 1}, {"ANTIALIASQUALITY", 3}, {"ANTIALIASFORCEENABLE", 4}}},
      {kMode, "8xS", {}},
      {kMode,
       "Auto",
       {{"ANTIALIASENABLE", 0}, {"ANTIALIASQUALITY", 0}, {"ANTIALIASFORCEENABLE", 0}}},
      {kAniso, "Bilinear", {{"ANISOTROPICLEVEL", 1}}},
      {kAniso, "2x", {{"ANISOTROPICLEVEL", 2}}},
      {kAniso, "4x", {{"ANISOTROPICLEVEL", 4}}},
      {kAniso, "8x", {{"ANISOTROPICLEVEL", 8}}},
      {kAniso, "16x", {}},
      {"direct3d.misc.enable-z-buffer-compression", "on", {{"ZCOMPRESSENABLE", 1}}},
      {"direct3d.misc.enable-z-buffer-compression", "off", {{"ZCOMPRESSENABLE", 0}}},
      {"direct3d.filtering.texture-lod-bias", "-7", {{"LODBIASADJUST", 10}}},
      {"direct3d.filtering.disable-mipmap-filtering", "on", {{"USERMIPMAPENABLE", 0}}},
      {"direct3d.filtering.disable-mipmap-filtering", "off", {{"USERMIPMAPENABLE", 1}}},
      {"direct3d.misc.prerender-limit", "3", {}},
      {kSli, "on", {}},
      {"direct3d.filtering.force-mipmaps", "Trilinear", {}}};
  FakeMachine machine({.family = 0, .driver = 2280, .device = "0028"});
  machine.StoreDirect3D("D3D_88481200", 5);
  machine.StoreDirect3D("D3D_98764205", 7);
  machine.StoreDirect3D("D3d_74095213", 2);
  machine.StoreDirect3D("D3DOGL_12677978", 0x29060797);
  Driven driven(machine);
  EXPECT_EQ(driven.Text("direct3d.filtering.texture-lod-bias") +
                driven.Text("direct3d.misc.prerender-limit") + driven.Text(kAniso) +
                driven.Text(kSli),
            "00Autooff");
  for (const Step& step : steps) {
    machine.TakeTrace();
    const bool typed = step.id == kMode || step.id == kAniso;
    typed ? driven.Type(step.id, step.use) : driven.Use(step.id, step.use);
    std::vector<std::string> lines;
    for (const auto& [name, number] : step.stored) {
      lines.push_back(machine.Direct3DLine(name, number));
    }
    EXPECT_EQ(Joined(machine.TakeTrace()), Joined(lines)) << step.id << "=" << step.use;
  }
}

TEST(Direct3DWriteTest, NothingIsWrittenForADriverWithoutACard) {
  for (const MachineKind& setup :
       {MachineKind{0, 2200, ""}, MachineKind{0, 8000, ""}, MachineKind{3, 8000, ""}}) {
    FakeMachine machine(setup);
    Driven driven(machine);
    machine.TakeTrace();
    for (const auto& row : test::ParseRows(kWrites)) driven.Use(row.id, row.pairs[0].second);
    driven.Type(kMode, "4x");
    driven.Type(kAniso, "8x");
    driven.Type(kGlMode, "2x");
    driven.Type(kGlAniso, "4x");
    EXPECT_EQ(driven.Text("direct3d.misc.prerender-limit"), "0");  // the choice is shown anyway
    driven.Tick(kSli);
    EXPECT_EQ(Joined(machine.TakeTrace()), "");
  }
}

TEST(Direct3DReadTest, ValuesOfAnyTypeAndSizeCountAsNotSetOrByTheirNumber) {
  const std::pair<const char*, const char*> prerender[] = {
      {"REG_SZ 5", "5"},
      {"REG_SZ five", "2"},
      {"REG_SZ", "2"},
      {"REG_DWORD 4", "4"},
      {"REG_BINARY", "0"},
      {"REG_BINARY 03", "3"},
      {"REG_BINARY 03 00", "3"},
      {"REG_BINARY 01 00 00", "1"},
      {"TYPE_2 35 00", "2"},
      {"REG_BINARY 06 00 00 00 00", "6"},
      {"REG_BINARY 07 00 00 00 00 00", "7"},
      {"REG_BINARY 07 00 00 00 00 00 00 00", "2"},
      {"TYPE_0", "2"},
      {"REG_SZ 99999999999", "2"}};
  for (const auto& [value, shown] : prerender) {
    FakeMachine machine;
    for (const auto& row : test::ParseRows(kReads)) {
      machine.Store(machine.Direct3DKey(), row.name, value);
    }
    for (const std::string_view name :
         {"D3DOGL_70835937", "D3DOGL_74095213", "D3D_59954022", "OGL_95282304"}) {
      machine.Store(machine.Direct3DKey(), name, value);
    }
    EXPECT_EQ(Driven(machine).Text("direct3d.misc.prerender-limit"), shown) << value;
  }
}

}  // namespace
}  // namespace kestrune::d3d
