// What every page and window shows on every shipped machine in every shipped language.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "core/options.h"
#include "core/outcome.h"
#include "fake_machine.h"
#include "platform/portable/machine_description.h"
#include "platform/portable/portable_machine.h"
#include "platform/temp_folder.h"
#include "platform/utf8.h"
#include "platform/windowless_dialog.h"
#include "ui/forms/main_form.h"
#include "ui/forms/window_table.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {
namespace {

constexpr const char* kEnglish = "en";

/// Answers every message with its preset button, and remembers what it said.
struct RememberingDialog : platform::WindowlessDialog {
  platform::Answer Ask(std::string_view title, std::string_view text,
                       const platform::Question& question) override {
    messages.emplace_back(text);
    return WindowlessDialog::Ask(title, text, question);
  }

  std::vector<std::string> messages;
};

/// A shipped machine, of which nothing is kept.
class ShippedMachine {
 public:
  explicit ShippedMachine(const std::string& name)
      : machine_(platform::portable::PortableMachines()
                     .Open({.store = folder_ / "a.store",
                            .machine = name,
                            .program_folder = KESTRUNE_DATA_FOLDER,
                            .dry_run = true})
                     .Value()) {}

  void ChooseLanguage(const std::string& language) {
    core::basRegistry registry(Services().registry);
    core::OwnOptions(registry).Write(core::kLanguageValue, language);
  }
  platform::Services Services() { return machine_->ServicesFor(dialog); }
  const platform::Machine& TheMachine() const { return *machine_; }

  RememberingDialog dialog;

 private:
  platform::TempFolder folder_;
  std::unique_ptr<platform::Machine> machine_;
};

std::vector<std::string> MachineNames() {
  std::vector<std::string> names;
  for (const platform::MachineInfo& machine :
       platform::portable::PortableMachines().List({.program_folder = KESTRUNE_DATA_FOLDER})) {
    names.push_back(machine.name);
  }
  return names;
}

/// The shipped languages, English first.
std::vector<std::string> LanguageNames() {
  std::vector<std::string> names;
  for (const auto& file :
       std::filesystem::directory_iterator(KESTRUNE_DATA_FOLDER "/DATA/LANGUAGE")) {
    if (file.path().extension() == ".dat") names.push_back(file.path().stem());
  }
  std::sort(names.begin(), names.end());
  std::stable_partition(names.begin(), names.end(), [](auto& name) { return name == kEnglish; });
  return names;
}

/// What is read of one control, by what it is.
using Texts = std::map<std::string, std::string>;

Texts TextsOf(const controls::Control& control) {
  Texts texts = {
      {"caption", control.Caption()}, {"value", control.ValueText()}, {"tip", control.ToolTip()}};
  const auto add = [&texts](const std::vector<std::string>& items) {
    for (const std::string& item : items) texts["item " + std::to_string(texts.size())] = item;
  };
  if (const auto* combo = dynamic_cast<const controls::ComboBox*>(&control)) add(combo->Items());
  if (const auto* list = dynamic_cast<const controls::ListBox*>(&control)) add(list->Items());
  return texts;
}

/// A shared value, as text.
std::string StateOf(const Program& program, std::string_view wanted) {
  for (const auto& [name, value] : program.State()) {
    if (name != wanted) continue;
    const auto* number = std::get_if<int>(&value);
    return number != nullptr ? std::to_string(*number) : std::get<std::string>(value);
  }
  return "";
}

/// Everything that a started program shows, by the ids of the controls: each as it stands while its
/// page or window is open.
class Tour {
 public:
  explicit Tour(ShippedMachine& machine) : program_(machine.Services()) {
    core::Ignore(program_.Start(""));
    Look(program_.Main(), kOnNoPage);
    for (int page = 0; page < PageCount(); ++page) {
      if (program_.Main().WayTo(page) != nullptr) program_.GoToPage(page);
      Look(program_.Main(), page);
    }
    for (const WindowRow* window : kWindows) LookAtWindow(*window);
    for (std::size_t i = 0; i < machine.dialog.messages.size(); ++i) {
      shown_["message " + std::to_string(i)]["text"] = machine.dialog.messages[i];
    }
    machine.dialog.messages.clear();
  }

  std::string LanguageName() const { return StateOf(program_, "LanguageName"); }
  const std::map<std::string, Texts>& Shown() const { return shown_; }
  /// The texts that an interface text is put into when the program starts, yet are empty.
  const std::vector<std::string>& Empty() const { return empty_; }

 private:
  static constexpr int kOnNoPage = -1;

  void LookAtWindow(const WindowRow& row) {
    const std::string_view owner = row.owner;
    const bool is_owned_by_another = owner != program_.Main().TheWindow().Id();
    if (!owner.empty() && is_owned_by_another) program_.TheWindows().Open(owner);
    program_.TheWindows().Open(row.window.id);
    const Form& form = program_.FormOf(row.window.id);
    Look(form, kOnNoPage);
    program_.TheWindows().Close(form.TheWindow());
    if (!owner.empty() && is_owned_by_another) {
      program_.TheWindows().Close(program_.FormOf(owner).TheWindow());
    }
  }

  void Look(const Form& form, int page) {
    for (std::size_t i = 0; i < form.Controls().size(); ++i) {
      const controls::Control& control = *form.Controls()[i];
      if (program_.PageOf(control) != page) continue;
      shown_[control.Id()] = TextsOf(control);
      const ControlRow& row = form.Rows()[i];
      if (row.text >= 0 && control.Caption().empty()) empty_.push_back(control.Id());
      if (row.tip >= 0 && control.ToolTip().empty()) empty_.push_back(control.Id() + " (tip)");
    }
  }

  Program program_;
  std::map<std::string, Texts> shown_;
  std::vector<std::string> empty_;
};

/// Whether a text has something that is drawn as a stand-in: no UTF-8, the replacement character,
/// or a byte that its code page doesn't define.
bool HasStandIn(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = platform::NextCharacter(text, position);
    const bool is_kept_byte = character >= 0xF700 && character <= 0xF7FF;
    if (character == platform::kNoCharacter || character == 0xFFFD || is_kept_byte) return true;
  }
  return false;
}

/// What is wrong with a language's text, beside the same in English; empty when nothing is.
std::string FaultOf(const std::string& text, const std::string& english) {
  if (HasStandIn(text)) return "shows a stand-in for a character";
  if (std::count(text.begin(), text.end(), '?') > std::count(english.begin(), english.end(), '?')) {
    return "shows a \"?\" that English hasn't";
  }
  return text.empty() && !english.empty() ? "is empty" : "";
}

void ExpectShown(const Tour& tour, const Tour& english, const std::string& where) {
  for (const std::string& id : tour.Empty()) ADD_FAILURE() << where << id << " is empty";
  EXPECT_EQ(tour.Shown().size(), english.Shown().size()) << where;
  for (const auto& [id, texts] : tour.Shown()) {
    const auto same = english.Shown().find(id);
    const Texts& in_english = same != english.Shown().end() ? same->second : texts;
    for (const auto& [what, text] : texts) {
      const auto counterpart = in_english.find(what);
      const std::string fault =
          FaultOf(text, counterpart != in_english.end() ? counterpart->second : "");
      if (!fault.empty()) {
        ADD_FAILURE() << where << id << ", its " << what << ": \"" << text << "\" " << fault;
      }
    }
  }
}

TEST(ShippedMachinesTest, EveryPageAndWindowIsReadableInEveryLanguage) {
  const std::vector<std::string> languages = LanguageNames();
  ASSERT_EQ(languages.at(0), kEnglish);
  for (const std::string& name : MachineNames()) {
    ShippedMachine machine(name);
    EXPECT_EQ(machine.TheMachine().Warnings(), std::vector<std::string>{}) << name;
    std::optional<Tour> english;
    for (const std::string& language : languages) {
      machine.ChooseLanguage(language);
      const Tour tour(machine);
      if (!english) english.emplace(machine);
      ASSERT_EQ(tour.LanguageName(), language);
      ExpectShown(tour, *english, name + ", " + language + ": ");
    }
    EXPECT_EQ(machine.TheMachine().FirstFailure(), std::nullopt) << name;
  }
}

/// The digits of the driver's release in a machine's title, as its file version has room for them.
std::string ReleaseIn(const std::string& title) {
  constexpr std::string_view kMark = "driver ";
  const std::size_t at = title.rfind(kMark);
  std::string digits = at == title.npos ? "" : title.substr(at + kMark.size());
  std::erase(digits, '.');
  return digits.size() > 4 ? digits.substr(digits.size() - 4) : digits;
}

/// The two default clocks that the overclocking page shows of the chosen pair.
std::string DefaultClocks(const Program& program) {
  return StateOf(program, "DefaultCoreMHz") + "," + StateOf(program, "DefaultMemoryMHz");
}

/// What the system calls the first NVIDIA card.
std::string CardIn(const std::vector<platform::DisplayDevice>& devices) {
  const auto card = std::find_if(devices.begin(), devices.end(), [](const auto& device) {
    return device.hardware_id.starts_with(R"(PCI\VEN_10DE)");
  });
  return card != devices.end() ? card->description : "";
}

std::string Both(std::optional<int> core, std::optional<int> memory) {
  return std::to_string(core.value_or(0)) + "," + std::to_string(memory.value_or(0));
}

TEST(ShippedMachinesTest, TheProgramFindsTheCardTheDriverAndTheClocksThatAreDescribed) {
  for (const std::string& name : MachineNames()) {
    const auto loaded = platform::portable::LoadMachineDescription(
        KESTRUNE_DATA_FOLDER "/machines/" + name + ".toml");
    ASSERT_TRUE(loaded.Ok()) << loaded.Reason();
    const platform::portable::MachineDescription& described = loaded.Value().description;
    if (!described.clocks) continue;  // no NVIDIA card
    ShippedMachine machine(name);
    Program program(machine.Services());
    ASSERT_TRUE(program.Start(""));
    EXPECT_EQ(machine.dialog.messages, std::vector<std::string>{}) << name;
    EXPECT_EQ(program.Find("info.basic.vga-device")->Caption(),
              "VGA Device: " + CardIn(*described.display_devices))
        << name;
    EXPECT_EQ(StateOf(program, "DrvVer"), std::to_string(std::stoi(ReleaseIn(described.title))))
        << name;
    const controls::Control& page = *program.Find("overclocking");
    if (program.Main().WayTo(program.PageOf(page)) == nullptr) continue;
    program.GoToPage(program.PageOf(page));
    const platform::DescribedClocks& clocks = *described.clocks;
    EXPECT_EQ(DefaultClocks(program), Both(clocks.core, clocks.memory)) << name;
    auto& second = dynamic_cast<controls::OptionButton&>(*program.Find("overclocking.3d-speed"));
    EXPECT_EQ(second.Usable(), clocks.core_3d.has_value()) << name;
    if (!second.Usable()) continue;
    second.Use();
    EXPECT_EQ(DefaultClocks(program), Both(clocks.core_3d, clocks.memory_3d)) << name;
  }
}

TEST(ShippedMachinesTest, RareCasesAreAmongThem) {
  struct Case {
    const char* machine;
    const char* state;
  };
  for (const auto& [name, state] : {
           Case{"winme-geforce256", "0 650 0101 0"},
           Case{"win98-geforcefx5700", "0 8198 0342 1"},
           Case{"winxp-geforcefx5200", "3 6177 0322 0"},
           Case{"winxp64-geforce6600", "3 8198 0141 2"},
           Case{"winxp-geforce6800ultra", "3 7184 00F9 1"},
           Case{"vista-geforce8800", "4 5822 0191 0"},
           Case{"winxp-radeon9600", "3 0  0"},
       }) {
    ShippedMachine machine(name);
    Program program(machine.Services());
    ASSERT_TRUE(program.Start(""));
    EXPECT_EQ(StateOf(program, "OSFamily") + " " + StateOf(program, "DrvVer") + " " +
                  StateOf(program, "DeviceId") + " " + StateOf(program, "CardVar"),
              state)
        << name;
  }
}

TEST(ShippedMachinesTest, WithoutAnNvidiaCardNothingIsKnownAndTheClocksAreSaidToBeUnreal) {
  ShippedMachine machine("winxp-radeon9600");
  Program program(machine.Services());
  ASSERT_TRUE(program.Start(""));
  EXPECT_EQ(program.Find("info.basic.vga-device")->Caption(), "VGA Device: Unknown card");
  EXPECT_EQ(program.Find("info.basic.gpu-id")->Caption(), "GPU ID: ");
  EXPECT_EQ(program.Find("info.basic.display-driver-version")->Caption(),
            "Display driver version:");
  EXPECT_EQ(StateOf(program, "PureKey") + StateOf(program, "HardwareKey"), "");
  EXPECT_EQ(machine.dialog.messages, std::vector<std::string>{});
  program.GoToPage(program.PageOf(*program.Find("overclocking")));
  ASSERT_EQ(machine.dialog.messages.size(), 1u);
  EXPECT_TRUE(machine.dialog.messages[0].starts_with("The driver reports no plausible clock"));
  EXPECT_EQ(machine.TheMachine().FirstFailure(), std::nullopt);
}

}  // namespace
}  // namespace kestrune::forms
