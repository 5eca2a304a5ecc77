// The performance wizard, driven as a person at it does.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "catalogue/catalogue.h"
#include "controls/gate.h"
#include "fake_machine.h"
#include "ui/forms/pages.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;

const std::string kWizard = "performance-wizard.";

void Lay(FakeMachine& machine, std::string_view index, std::string_view tuning) {
  machine.Lay("DATA/PW/index.dat", index);
  machine.Lay("DATA/PW/Default/09.dat", tuning);
}

/// Which of the wizard's controls are enabled, by the ends of their ids.
std::string Enabled(const Driven& driven) {
  std::string enabled;
  for (const char* name :
       {"quality-low", "quality", "fine-adjust", "antialiasing-label", "antialiasing-low",
        "antialiasing-high", "antialiasing", "texture-filtering-label", "texture-filtering-low",
        "texture-filtering-high", "texture-filtering", "optimize"}) {
    if (driven.Enabled(kWizard + name)) enabled += std::string(name) + " ";
  }
  return enabled;
}

std::vector<std::string> Preview(const Driven& driven) {
  return driven.Get<controls::ListBox>(kWizard + "preview").Items();
}

TEST(PerformanceWizardTest, OpensModalFromItsDesignState) {
  FakeMachine machine;
  Lay(machine, "Default,Racing", "0,0,0,0");
  Driven driven(machine);
  machine.TakeTrace();
  for (int time = 0; time < 2; ++time) {
    driven.Press("main.pw");
    EXPECT_EQ(driven.Caption("performance-wizard"), "Performance Wizard");
    EXPECT_EQ(driven.program.Gate().Check(*driven.program.Find("main.oc")),
              controls::Refusal::kBehindModal);
    EXPECT_EQ(driven.Text(kWizard + "auto-settings-for"), "Default");
    EXPECT_EQ(Joined(driven.Items(kWizard + "auto-settings-for")), "Default, Racing");
    EXPECT_EQ(driven.Text(kWizard + "quality"), "2");
    EXPECT_EQ(driven.Text(kWizard + "texture-filtering"), "2");
    EXPECT_EQ(
        Enabled(driven),
        "quality-low quality fine-adjust antialiasing-label texture-filtering-label optimize ");
    driven.Tick(kWizard + "fine-adjust");
    driven.Move(kWizard + "quality", 9);
    driven.Move(kWizard + "texture-filtering", 4);
    driven.Choose(kWizard + "auto-settings-for", "Racing");
    driven.Press(kWizard + "close");
    EXPECT_FALSE(driven.Visible("performance-wizard"));
  }
  EXPECT_EQ(machine.TakeShortTrace(), "nothing");
}

TEST(PerformanceWizardTest, OptimizeWaitsForTheNextChange) {
  FakeMachine machine;
  Lay(machine, "Default", "0,0,0,0");
  Driven driven(machine);
  driven.Press("main.pw");
  const std::function<void()> changes[] = {
      [&] { driven.Choose(kWizard + "auto-settings-for", "Default"); },
      [&] { driven.Move(kWizard + "quality", 3); },
      [&] { driven.Tick(kWizard + "fine-adjust"); },
      [&] { driven.Move(kWizard + "antialiasing", 1); },
      [&] { driven.Move(kWizard + "texture-filtering", 1); },
      [&] { driven.Tick(kWizard + "fine-adjust", false); },
  };
  for (const auto& change : changes) {
    driven.Press(kWizard + "optimize");
    EXPECT_FALSE(driven.Enabled(kWizard + "optimize"));
    change();
    EXPECT_TRUE(driven.Enabled(kWizard + "optimize"));
  }
  driven.Tick(kWizard + "fine-adjust");
  EXPECT_EQ(Enabled(driven),
            "quality-low quality fine-adjust antialiasing-label antialiasing-low antialiasing-high "
            "antialiasing texture-filtering-label texture-filtering-low texture-filtering-high "
            "texture-filtering optimize ");
}

/// What a machine keeps of a run at the slider's end, and what was said of it before.
struct MachineRun {
  MachineKind kind;
  const char* factors;  ///< those of a card whose power outweighs the slowest processor
  bool fine;            ///< with both fine sliders at their ends
  const char* trace;
  const char* preview;
};

TEST(PerformanceWizardTest, EachDriverKeepsItsOwn) {
  const MachineRun runs[] = {
      {{.family = 3, .driver = 8000},
       "0,30,9,5",
       true,
       "D3D D3DOGL_70835937 = 0x10000010, D3D D3DOGL_70835937 = 0x10000010, "
       "D3D D3DOGL_74095213 = 0x10000002, D3D D3D_QualityEnhancements = -10, "
       "GL QualityEnhancements = -10, GL 95282304 = 0, GL TexLODBias = -23, "
       "D3D D3D_88481200 = -23, D3D D3D_69109016 = 0, D3D D3D_94118636 = 1, "
       "D3D D3D_40792312 = 0, D3D D3D_30913648 = 0",
       "Direct3D AA settings: Antialiasing mode = 4x\n"
       "OpenGL AA settings: Antialiasing mode = 4x\n"
       "Direct3D texture filtering settings: Anisotropic filtering = 2x\n"
       "Direct3D texture filtering settings: Intellisample image settings = High quality\n"
       "OpenGL texture filtering settings: Image settings = High quality\n"
       "OpenGL texture filtering settings: Trilinear quality = High\n"
       "OpenGL texture filtering settings: Texture LOD bias = -23\n"
       "Direct3D texture filtering settings: Texture LOD bias = -23\n"
       "Direct3D texture filtering settings: Force textures to low MIP level = off\n"
       "Direct3D texture filtering settings: Trilinear optimization = off\n"
       "Direct3D texture filtering settings: Aniso mip filter optimization = off\n"
       "Direct3D texture filtering settings: Aniso sample optimization = off"},
      {{.family = 2, .driver = 4523},
       "0,0,0,0",
       false,
       "D3D D3D_08285629 = 0x06326293, D3D D3d_70835937 = 0, GL FSAAMode = 0, "
       "D3D D3D_QualityEnhancements = 0, GL QualityEnhancements = 0, GL TexLODBias = -2, "
       "D3D D3D_88481200 = -2, D3D D3D_69109016 = 0, D3D D3D_94118636 = 1, "
       "D3D D3D_40792312 = 0, D3D D3D_30913648 = 0",
       "Direct3D AA settings: Antialiasing mode = Disabled\n"
       "OpenGL AA settings: Antialiasing mode = Auto\n"
       "Direct3D texture filtering settings: Anisotropic filtering = Auto\n"
       "Direct3D texture filtering settings: Intellisample image settings = Quality\n"
       "OpenGL texture filtering settings: Image settings = Quality\n"
       "OpenGL texture filtering settings: Manual Intellisample trilinear configuration = off\n"
       "OpenGL texture filtering settings: Texture LOD bias = -2\n"
       "Direct3D texture filtering settings: Texture LOD bias = -2\n"
       "Direct3D texture filtering settings: Force textures to low MIP level = off\n"
       "Direct3D texture filtering settings: Trilinear optimization = off\n"
       "Direct3D texture filtering settings: Aniso mip filter optimization = off\n"
       "Direct3D texture filtering settings: Aniso sample optimization = off"},
      {{.family = 0, .driver = 2280},
       "0,30,9,5",
       true,
       "D3D ANTIALIASENABLE = 1, D3D ANTIALIASQUALITY = 3, D3D ANTIALIASFORCEENABLE = 4, "
       "GL FSAAMode = 4, D3D ANISOTROPICLEVEL = 2, GL QualityEnhancements = -10, "
       "GL 95282304 = 0, GL TexLODBias = -23, D3D LODBIASADJUST = 10",
       "Direct3D AA settings: Antialiasing mode = 4x\n"
       "OpenGL AA settings: Antialiasing mode = 4x\n"
       "Direct3D texture filtering settings: Anisotropic filtering = 2x\n"
       "OpenGL texture filtering settings: Image settings = High quality\n"
       "OpenGL texture filtering settings: Trilinear quality = High\n"
       "OpenGL texture filtering settings: Texture LOD bias = -23\n"
       "Direct3D texture filtering settings: Texture LOD bias = 10"},
  };
  for (const MachineRun& run : runs) {
    FakeMachine machine(run.kind);
    Lay(machine, "Default", run.factors);
    Driven driven(machine);
    driven.Press("main.pw");
    driven.Move(kWizard + "quality", 9);
    driven.Tick(kWizard + "fine-adjust", run.fine);
    driven.Move(kWizard + "antialiasing", 4);
    driven.Move(kWizard + "texture-filtering", 4);
    machine.TakeTrace();
    const std::string preview = Joined(Preview(driven), "\n");
    driven.Press(kWizard + "optimize");
    EXPECT_EQ(machine.TakeShortTrace(), run.trace) << run.kind.driver;
    EXPECT_EQ(preview, run.preview) << run.kind.driver;
    EXPECT_EQ(driven.State("IsStart"), "0");
  }
}

/// What the pages show of every value, as the preview words it.
std::set<std::string> ShownOnPages(const Driven& driven) {
  std::set<std::string> lines;
  for (const settings::Setting* setting : catalogue::AllSettings()) {
    const controls::Control& control = driven.Get<controls::Control>(setting->id);
    const controls::Control* page = &control;
    while (page->Parent() != nullptr && !IsPageId(page->Id())) page = page->Parent();
    const std::string label_id = std::string(setting->id) + "-label";
    const controls::Control* label = driven.program.Find(label_id);
    std::string line = label != nullptr ? label->Caption() : control.Caption();
    const bool is_slider = dynamic_cast<const controls::Slider*>(&control) != nullptr;
    const std::size_t colon = line.find(':');
    // The label of a slider says its value itself.
    if (is_slider && colon != line.npos) {
      line.replace(colon, 1, " =");
    } else {
      line = line.substr(0, colon) + " = " + control.ValueText();
    }
    lines.insert(page->Caption() + ": " + line);
  }
  return lines;
}

TEST(PerformanceWizardTest, ThePreviewSaysWhatThePagesThenShow) {
  struct Fine {
    bool on;
    int antialiasing;
    int filtering;
  };
  constexpr Fine kFine[] = {{false, 0, 2}, {true, 0, 0}, {true, 3, 1}, {true, 4, 4}};
  const MachineKind kinds[] = {
      {.family = 4, .driver = 9700}, {.family = 3, .driver = 8000}, {.family = 3, .driver = 5499},
      {.family = 2, .driver = 4999}, {.family = 2, .driver = 4103}, {.family = 2, .driver = 4102},
      {.family = 1, .driver = 4040}, {.family = 0, .driver = 5001}, {.family = 0, .driver = 2281}};
  for (const MachineKind& kind : kinds) {
    for (const bool is_sli : {false, true}) {
      FakeMachine machine(kind);
      Lay(machine, "Default", "0,9,20,20");
      if (is_sli) machine.StoreDirect3D("D3DOGL_12677978", 0x29060797);
      machine.StoreDirect3D("D3DOGL_70835937", 0x5010000E);
      // A fast processor, so that every quality is asked for.
      machine.Store(R"(HKLM\HARDWARE\DESCRIPTION\System\CentralProcessor\0)", "~MHz",
                    "REG_DWORD 3000");
      Driven driven(machine);
      driven.Press("main.pw");
      for (int quality = 0; quality <= 9; ++quality) {
        for (const Fine& fine : kFine) {
          driven.Move(kWizard + "quality", quality);
          driven.Tick(kWizard + "fine-adjust", fine.on);
          driven.Move(kWizard + "antialiasing", fine.antialiasing);
          driven.Move(kWizard + "texture-filtering", fine.filtering);
          const std::vector<std::string> preview = Preview(driven);
          EXPECT_GE(preview.size(), 10U);
          driven.Press(kWizard + "optimize");
          const std::set<std::string> shown = ShownOnPages(driven);
          for (const std::string& line : preview) {
            EXPECT_TRUE(shown.contains(line))
                << kind.driver << (is_sli ? " with SLI: " : ": ") << line;
          }
        }
      }
    }
  }
}

TEST(PerformanceWizardTest, WithoutAFileTheFactorsOfTheLastRunCount) {
  FakeMachine machine;
  Lay(machine, "Default,Other,None", "0,30,9,5");
  machine.Lay("DATA/PW/Other/09.dat", "0,10,9,5");
  Driven driven(machine);
  driven.Press("main.pw");
  const auto bias = [&driven](std::string_view entry) {
    driven.Choose(kWizard + "auto-settings-for", entry);
    const std::vector<std::string> preview = Preview(driven);
    const auto line = std::find_if(preview.begin(), preview.end(), [](const std::string& each) {
      return each.find("LOD") != each.npos;
    });
    return line == preview.end() ? "" : line->substr(line->find('='));
  };
  // Five steps from the middle, by a fifth of the factor and one.
  EXPECT_EQ(bias("None"), "= 5");
  EXPECT_EQ(bias("Default"), "= 35");
  EXPECT_EQ(bias("None"), "= 5");
  driven.Choose(kWizard + "auto-settings-for", "Default");
  driven.Press(kWizard + "optimize");
  EXPECT_EQ(bias("Other"), "= 15");
  EXPECT_EQ(bias("None"), "= 35");
  driven.Press(kWizard + "close");
  driven.Press("main.pw");
  EXPECT_EQ(bias("None"), "= 5");
}

TEST(PerformanceWizardTest, GoesOnWithoutAnIndexAFileOrACard) {
  FakeMachine bare({.ships_files = false});
  Driven without_files(bare);
  without_files.Press("main.pw");
  EXPECT_EQ(without_files.Text(kWizard + "auto-settings-for"), "Default");
  EXPECT_TRUE(without_files.Items(kWizard + "auto-settings-for").empty());
  bare.TakeTrace();
  without_files.Press(kWizard + "optimize");
  EXPECT_NE(bare.TakeShortTrace(), "nothing");

  FakeMachine cardless({.device = ""});
  Driven without_card(cardless);
  without_card.Press("main.pw");
  EXPECT_TRUE(Preview(without_card).empty());
  cardless.TakeTrace();
  without_card.Press(kWizard + "optimize");
  EXPECT_EQ(cardless.TakeShortTrace(), "nothing");
}

}  // namespace
}  // namespace kestrune::forms
