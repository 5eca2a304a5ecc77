// What the program shows for what is stored and stores for what is chosen, written out and compared
// with a listing that was read against the rules. With KESTRUNE_WRITE_CONTRACT set the listing is
// made anew, to be read again before it is kept.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "catalogue/catalogue.h"
#include "d3d/d3d.h"
#include "fake_machine.h"
#include "ogl/ogl.h"
#include "ui/forms/main_form.h"
#include "ui/forms/pages.h"

namespace kestrune::catalogue {
namespace {

using settings::Choice;
using settings::Place;
using settings::Setting;
using settings::Writer;
using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;

constexpr const char* kListing = KESTRUNE_TEST_FOLDER "/catalogue/contract.txt";

/// Each differs from the one before in something that the rows know: system, oldest layout, the
/// releases at which values changed, cards.
const MachineKind kKinds[] = {{0, 2280, "0020"}, {0, 2281, "0020"}, {0, 4102, "0281"},
                              {1, 4500, "0330"}, {2, 4999, "0330"}, {3, 5000, "0330"},
                              {3, 6000, "0041"}, {3, 7700, "0140"}, {4, 9700, "0091"}};

std::string Named(const MachineKind& kind) {
  return "family " + std::to_string(kind.family) + " driver " + std::to_string(kind.driver) +
         " card " + kind.device;
}

/// The listing, section by section.
class Listing {
 public:
  void Section(const std::string& title) { text_ << "\n== " << title << "\n"; }
  void Line(std::string_view what, const std::string& result) {
    text_ << what << " -> " << (result.empty() ? "nothing" : result) << "\n";
  }
  /// The same with the results of many machines, each told where it differs from the one before.
  void Line(std::string_view what, const std::vector<std::string>& results) {
    text_ << what;
    for (std::size_t i = 0; i < results.size(); ++i) {
      if (i > 0 && results[i] == results[i - 1]) continue;
      text_ << "\n  [" << i << "] " << (results[i].empty() ? "nothing" : results[i]);
    }
    text_ << "\n";
  }
  std::string Text() const { return text_.str(); }

 private:
  std::ostringstream text_;
};

void ListPages(Listing& listing) {
  listing.Section("pages: group place of size, caption, key, and what the page shows first");
  FakeMachine machine;
  Driven driven(machine);
  for (int index = 0; index < forms::kPageCount; ++index) {
    const forms::PageRow& page = forms::kPages[static_cast<std::size_t>(index)];
    driven.Press(page.key);
    const auto& bar = driven.Get<controls::Slider>("main.group-scroll-bar");
    const std::string place =
        bar.Visible() ? std::to_string(bar.Value()) + "/" + std::to_string(bar.Maximum()) : "none";
    listing.Line(
        std::to_string(index) + " " + std::string(page.id) + " by " + std::string(page.key),
        "page " + driven.State("ActivePage") + ", group " + place + ", " + driven.Caption(page.id));
  }
  listing.Section("toolbar and menu keys, and clicks: what they do from page 6");
  for (const auto& control : driven.program.Main().Controls()) {
    const bool is_key = dynamic_cast<controls::ToolKey*>(control.get()) != nullptr;
    if (!control->on_click || dynamic_cast<controls::Button*>(control.get()) != nullptr) continue;
    if (!is_key && dynamic_cast<controls::PictureBox*>(control.get()) == nullptr) continue;
    driven.Press("main.tf2");
    machine.TakeTrace();
    driven.Press(control->Id());
    listing.Line(control->Id(),
                 "page " + driven.State("ActivePage") + " " + Joined(machine.TakeTrace()));
  }
  listing.Section("help topics of a mouse over a control");
  for (const auto& control : driven.program.Main().Controls()) {
    driven.Hover("opengl.misc.textures-color-depth");
    driven.Hover(control->Id());
    const std::string topic = driven.State("LastHelpTopic");
    if (topic != "13") listing.Line(control->Id(), topic);
  }
}

/// A started program on each kind of machine.
struct Machines {
  Machines() {
    for (const MachineKind& kind : kKinds) {
      machines.push_back(std::make_unique<FakeMachine>(kind));
      programs.push_back(std::make_unique<Driven>(*machines.back()));
      machines.back()->TakeTrace();
    }
  }

  /// What an act gives on each kind.
  template <typename Act>
  std::vector<std::string> Each(Act act) {
    std::vector<std::string> results;
    for (std::size_t i = 0; i < machines.size(); ++i) {
      results.push_back(act(*machines[i], *programs[i]));
    }
    return results;
  }

  std::vector<std::unique_ptr<FakeMachine>> machines;
  std::vector<std::unique_ptr<Driven>> programs;
};

/// Where a row's value stands on a kind of machine, and the name that it has there.
std::pair<std::string, std::string> AddressOf(const FakeMachine& machine, const Setting& row) {
  const std::string name(row.name);
  switch (row.place) {
    case Place::kDriverKey:
      return {machine.DriverKey(), name};
    case Place::kDebugKey:
      return {std::string(test::kDebugKey), name};
    case Place::kTweakKey:
      return {std::string(test::kTweakKey), name};
    case Place::kOptionsKey:
      return {std::string(test::kOptionsKey), name};
    case Place::kSettings:
      break;
  }
  if (row.writer == Writer::kDirect3D || name.starts_with("D3DOGL_")) {
    return {machine.Direct3DKey(), name};
  }
  return {machine.OpenGLKey(), (machine.Kind().family == 0 ? "" : "OGL_") + name};
}

/// What a setting's control and its label show.
std::string Shown(const Driven& driven, const Setting& row) {
  std::string text = driven.Text(row.id);
  if (!row.twin.empty() && driven.Text(row.twin) != text) text += " | " + driven.Text(row.twin);
  if (!row.label.empty() && row.shape == settings::Shape::kSlider) {
    text += " | " + driven.Caption(row.label);
  }
  return text + (driven.Enabled(row.id) ? "" : " (disabled)");
}

void ReadAgain(Driven& driven) {
  driven.ReadAgain();
  driven.Press("main.nvcpl");
}

std::string ReadOf(FakeMachine& machine, Driven& driven, const Setting& newest,
                   std::optional<std::int32_t> number) {
  const Setting& row = newest.For(machine.Kind().driver);
  if (row.name.empty()) return "-";
  const auto [key, name] = AddressOf(machine, row);
  const bool is_binary = row.place == Place::kSettings || row.place == Place::kDriverKey;
  const auto bits = static_cast<std::uint32_t>(number.value_or(0));
  if (!number) {
    machine.Unset(key, name);
  } else {
    machine.Store(key, name,
                  is_binary ? machine.Kept(bits) : "REG_DWORD " + std::to_string(*number));
  }
  ReadAgain(driven);
  std::string shown = Shown(driven, newest);
  machine.Unset(key, name);
  return shown;
}

/// The numbers of a row on any driver, and some that no row has.
std::vector<std::optional<std::int32_t>> NumbersOf(const Setting& newest) {
  std::vector<std::optional<std::int32_t>> numbers = {std::nullopt, 0, 1, 2, -1, 40};
  for (const Setting* row = &newest; row != nullptr; row = row->older) {
    for (const Choice& choice : row->choices) {
      if (std::find(numbers.begin(), numbers.end(), choice.number) == numbers.end()) {
        numbers.push_back(choice.number);
      }
    }
  }
  return numbers;
}

void ListReads(Listing& listing) {
  listing.Section("settings: what is shown for what is stored, from one machine to the next");
  Machines all;
  for (const Setting* row : AllSettings()) {
    if (row->writer == Writer::kProgram) continue;
    for (const std::optional<std::int32_t> number : NumbersOf(*row)) {
      listing.Line(std::string(row->id) + " " + (number ? std::to_string(*number) : "not set"),
                   all.Each([&](FakeMachine& machine, Driven& driven) {
                     return ReadOf(machine, driven, *row, number);
                   }));
    }
    all.Each([](FakeMachine&, Driven& driven) {
      ReadAgain(driven);
      return "";
    });
  }
}

/// Everything that a person can choose on a control.
std::vector<std::string> UsesOf(const controls::Control& control) {
  if (dynamic_cast<const controls::CheckBox*>(&control) != nullptr) return {"on", "off"};
  if (dynamic_cast<const controls::OptionButton*>(&control) != nullptr) return {"on"};
  if (const auto* combo = dynamic_cast<const controls::ComboBox*>(&control)) return combo->Items();
  const auto& slider = dynamic_cast<const controls::Slider&>(control);
  std::vector<std::string> positions;
  const int step = std::max(1, (slider.Maximum() - slider.Minimum()) / 6);
  for (int at = slider.Minimum(); at <= slider.Maximum(); at += step) {
    positions.push_back(std::to_string(at));
  }
  return positions;
}

std::string UseOf(FakeMachine& machine, Driven& driven, std::string_view id,
                  const std::string& use) {
  const auto& control = driven.Get<controls::Control>(id);
  if (!control.Enabled()) return "(disabled)";
  const std::vector<std::string> uses = UsesOf(control);
  if (std::find(uses.begin(), uses.end(), use) == uses.end()) return "(not offered)";
  machine.TakeTrace();
  driven.Use(id, use);
  return Joined(machine.TakeTrace());
}

void ListUses(Listing& listing) {
  listing.Section("settings: what choosing stores, from one machine to the next");
  Machines all;
  all.Each([](FakeMachine&, Driven& driven) {
    // Enables what stands below them.
    driven.Tick("opengl.filtering.manual-intellisample-trilinear-configuration");
    driven.Tick("opengl.filtering.manual-intellisample-texture-compression-configuration");
    return "";
  });
  for (const Setting* row : AllSettings()) {
    for (const std::string_view id : {row->id, row->twin}) {
      if (id.empty()) continue;
      std::vector<std::string> uses;
      all.Each([&](FakeMachine&, Driven& driven) {
        for (const std::string& use : UsesOf(driven.Get<controls::Control>(id))) {
          if (std::find(uses.begin(), uses.end(), use) == uses.end()) uses.push_back(use);
        }
        return "";
      });
      for (const std::string& use : uses) {
        listing.Line(std::string(id) + "=" + use,
                     all.Each([&](FakeMachine& machine, Driven& driven) {
                       return UseOf(machine, driven, id, use);
                     }));
      }
    }
  }
}

/// Both writers, standing alone, so that every code can be asked of them.
struct Writers {
  explicit Writers(const MachineKind& kind) : machine(kind) {
    versions.OSFamily = kind.family;
    versions.DrvVer = kind.driver;
    adapter.PureKey = machine.DriverKey().substr(5);
    form.AddTo(controls);
    direct3d_bindings = Bind(d3d::kDirect3DSettings, controls);
    opengl_bindings = Bind(ogl::kOpenGLSettings, controls);
    direct3d.emplace(d3d::Direct3DContext{direct3d_key, hardware, texts, direct3d_bindings, state},
                     controls);
    opengl.emplace(
        ogl::OpenGLContext{opengl_key, hardware, texts, opengl_bindings, [] {},
                           [this](int code) { direct3d->WriteDirect3DSetting(code, 0); }});
  }

  std::string Trace(Writer writer, int code, std::int32_t argument) {
    machine.TakeTrace();
    if (writer == Writer::kDirect3D) {
      direct3d->WriteDirect3DSetting(code, argument);
    } else {
      opengl->WriteOpenGLSetting(code, argument);
    }
    EXPECT_EQ(registry.WriteAsBinary, 0) << code;
    return Joined(machine.TakeTrace());
  }

  FakeMachine machine;
  core::basRegistry registry{machine.Services().registry};
  detect::VersionState versions;
  detect::AdapterState adapter;
  core::ProgramState program;
  const settings::Hardware hardware{versions, adapter, program};
  lang::LangTable texts;
  forms::MainForm form;
  controls::ControlSet controls;
  std::vector<settings::Binding> direct3d_bindings;
  std::vector<settings::Binding> opengl_bindings;
  d3d::Direct3DState state;
  const settings::SettingsKey direct3d_key{registry, versions, adapter, R"(\NVidia\Direct3D)", ""};
  const settings::SettingsKey opengl_key{registry, versions, adapter, R"(\NVidia\OpenGL)", "OGL_"};
  std::optional<d3d::Direct3DWriter> direct3d;
  std::optional<ogl::OpenGLWriter> opengl;
};

/// An argument is listed where it makes a difference.
void ListCodes(Listing& listing, Writer writer, int last_code) {
  std::vector<std::unique_ptr<Writers>> all;
  for (const MachineKind& kind : kKinds) {
    all.push_back(std::make_unique<Writers>(kind));
    // Every deletion then shows.
    all.back()->state.AaGammaOn = 1;
    all.back()->state.AaTransparencyMode = 2;
  }
  for (int code = -1; code <= last_code; ++code) {
    std::vector<std::string> without;
    for (const std::int32_t argument : {0, 1, 15}) {
      std::vector<std::string> results;
      for (const auto& writers : all) {
        for (const char* name :
             {"D3DOGL_74095213", "D3d_74095213", "D3D_59954022", "D3D_59954023", "D3d_59954021"}) {
          writers->machine.StoreDirect3D(name, 5);
        }
        for (const char* name : {"95282304", "308826"}) writers->machine.StoreOpenGL(name, 5);
        writers->machine.StoreOpenGL("RenderQualityFlags", 1);
        results.push_back(writers->Trace(writer, code, argument));
      }
      const bool stores = std::any_of(results.begin(), results.end(),
                                      [](const std::string& each) { return !each.empty(); });
      if (argument == 0) without = results;
      if (argument != 0 ? results == without : !stores) continue;
      listing.Line(std::to_string(code) + "," + std::to_string(argument), results);
    }
  }
}

std::string MakeListing() {
  Listing listing;
  listing.Section("machines");
  for (std::size_t i = 0; i < std::size(kKinds); ++i) {
    listing.Line("[" + std::to_string(i) + "]", Named(kKinds[i]));
  }
  ListPages(listing);
  ListReads(listing);
  ListUses(listing);
  listing.Section("codes of the Direct3D writer, with gamma and supersampling: code,argument");
  ListCodes(listing, Writer::kDirect3D, 130);
  listing.Section("operations of the OpenGL writer: operation,argument");
  ListCodes(listing, Writer::kOpenGL, 130);
  return listing.Text();
}

TEST(ContractTest, TheListingIsWhatTheProgramDoes) {
  const std::string made = MakeListing();
  if (std::getenv("KESTRUNE_WRITE_CONTRACT") != nullptr) {
    std::ofstream(kListing, std::ios::binary) << made;
  }
  std::ifstream file(kListing, std::ios::binary);
  std::istringstream now(made);
  std::string line;
  std::string expected;
  int number = 0;
  for (; std::getline(now, line); ++number) {
    ASSERT_TRUE(std::getline(file, expected)) << "new: " << line;
    ASSERT_EQ(line, expected) << "contract.txt:" << number + 1;
  }
  EXPECT_FALSE(std::getline(file, expected)) << "gone: " << expected;
  for (const Setting* row : AllSettings()) {
    EXPECT_NE(made.find("\n" + std::string(row->id) + "="), std::string::npos) << row->id;
  }
}

}  // namespace
}  // namespace kestrune::catalogue
