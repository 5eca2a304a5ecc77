// Whether the rows of all settings hold together.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "catalogue/catalogue.h"
#include "catalogue/listing.h"
#include "d3d/direct3d_settings.h"
#include "fake_machine.h"
#include "ogl/opengl_settings.h"

namespace kestrune::catalogue {
namespace {

using settings::Choice;
using settings::CodeRow;
using settings::Place;
using settings::Setting;
using settings::Shape;
using settings::Special;
using settings::Writer;
using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;

std::vector<const Setting*> WithOlder(const Setting& newest) {
  std::vector<const Setting*> rows;
  for (const Setting* row = &newest; row != nullptr; row = row->older) rows.push_back(row);
  return rows;
}

TEST(SettingsTest, EachIsFoundByItsControlOfItsShape) {
  FakeMachine machine;
  Driven driven(machine);
  for (const Setting* row : AllSettings()) {
    EXPECT_EQ(SettingOf(row->id), row) << row->id << " stands behind two rows";
    for (const std::string_view id : {row->id, row->twin}) {
      if (id.empty()) continue;
      controls::Control* control = driven.program.Find(id);
      ASSERT_NE(control, nullptr) << id;
      const bool is_list = row->shape == Shape::kList || row->shape == Shape::kCount;
      EXPECT_EQ(dynamic_cast<controls::CheckBox*>(control) != nullptr, row->shape == Shape::kBox);
      EXPECT_EQ(dynamic_cast<controls::ComboBox*>(control) != nullptr, is_list) << id;
      EXPECT_EQ(dynamic_cast<controls::Slider*>(control) != nullptr, row->shape == Shape::kSlider);
    }
    for (const Setting* each : WithOlder(*row)) {
      EXPECT_TRUE(each->id == row->id && each->shape == row->shape) << row->id;
      if (each->older != nullptr) {
        EXPECT_GT(each->from_driver, each->older->from_driver);
      }
      EXPECT_EQ(each->name.empty(), each->special == Special::kOldEmulation) << row->id;
    }
  }
  EXPECT_EQ(SettingOf("direct3d.antialiasing.compare-pictures"), nullptr);
  EXPECT_EQ(SettingOf("opengl.filtering.force-mipmaps"),
            SettingOf("direct3d.filtering.force-mipmaps"));
}

/// The shared mode's numbers and texts on one page differ where the other page has no name.
bool ReadsBack(const Setting& row, const Choice& choice) {
  const Choice* shown = ChoiceOf(row, choice.number);
  return shown != nullptr && (shown == &choice || shown->text == choice.text);
}

TEST(SettingsTest, EveryWrittenNumberReadsBackAsItsOwnChoice) {
  for (const Setting* newest : AllSettings()) {
    for (const Setting* row : WithOlder(*newest)) {
      // Bilinear filtering is shown as it is on the driver's own page.
      if (row->special == Special::kAnisotropy || row->special == Special::kOldEmulation) continue;
      for (const Choice& choice : row->choices) {
        EXPECT_TRUE(ReadsBack(*row, choice)) << row->id << " " << choice.text.word;
      }
      if (row->not_set && row->shape != Shape::kCount && row->shape != Shape::kSlider &&
          row->special != Special::kS3tc && row->shape != Shape::kOption) {
        EXPECT_NE(ChoiceOf(*row, row->not_set), nullptr) << row->id;
      }
    }
  }
}

TEST(SettingsTest, NoWriterHasACodeTwiceOnADriver) {
  for (const Writer writer : {Writer::kDirect3D, Writer::kOpenGL}) {
    const bool is_direct3d = writer == Writer::kDirect3D;
    for (const int driver : {2281, 4102, 4500, 5500, 9700}) {
      std::set<std::pair<int, std::int32_t>> calls;
      for (const Setting& newest : is_direct3d ? d3d::kDirect3DSettings : ogl::kOpenGLSettings) {
        // One value with a control for each of its parts has their codes more than once.
        const bool is_shared =
            newest.special == Special::kCompression || newest.special == Special::kTrilinearQuality;
        for (const Choice& choice : newest.For(driver).choices) {
          if (!choice.call || choice.call->through || is_shared) continue;
          EXPECT_TRUE(calls.emplace(choice.call->code, choice.call->argument.value_or(-99)).second)
              << newest.id << " " << choice.call->code;
        }
      }
      for (const CodeRow& row : is_direct3d ? d3d::kDirect3DCodes : ogl::kOpenGLCodes) {
        EXPECT_TRUE(calls.emplace(row.code, -99).second) << row.code;
      }
    }
  }
}

TEST(SettingsTest, ListAndHandlerCountAlikeWhateverIsLeftOut) {
  static constexpr Choice kChoices[] = {{settings::Word("new"), 3, settings::Call{1}, 6100},
                                        {settings::Word("unwritten"), 4},
                                        {settings::Word("old"), 5, settings::Call{2}},
                                        {settings::Word("rich"), 6, settings::Call{3}, 0, 8}};
  static constexpr Setting kRow = {.id = "x",
                                   .writer = Writer::kDirect3D,
                                   .shape = Shape::kList,
                                   .name = "x",
                                   .choices = kChoices};
  const auto names = [&](int driver, int level) {
    std::string text;
    for (const Choice* choice : Offered(kRow, driver, level)) {
      text += std::string(choice->text.word) + " ";
    }
    return text;
  };
  EXPECT_EQ(names(6100, 2), "old ");
  EXPECT_EQ(names(6101, 8), "new old rich ");
  const lang::LangTable texts;
  EXPECT_EQ(FindChoice(kRow, "unwritten", texts), nullptr);
  EXPECT_EQ(FindChoice(kRow, "rich", texts), &kChoices[3]);
}

/// Types and chooses the first item, moves to the lowest end, or changes the state.
void UseSomehow(Driven& driven, std::string_view id) {
  const auto& control = driven.Get<controls::Control>(id);
  if (const auto* combo = dynamic_cast<const controls::ComboBox*>(&control)) {
    if (combo->TakesTyping()) driven.Type(id, "4x");
    if (!combo->Items().empty()) driven.Choose(id, 0);
  } else if (const auto* slider = dynamic_cast<const controls::Slider*>(&control)) {
    driven.Move(id, slider->Minimum());
  } else {
    driven.Use(id, control.ValueText() == "on" ? "off" : "on");
  }
}

TEST(SettingsTest, NothingOfADriverIsWrittenWithoutACard) {
  for (const MachineKind& setup : {MachineKind{0, 2200, ""}, MachineKind{0, 8000, ""},
                                   MachineKind{3, 4500, ""}, MachineKind{3, 8000, ""}}) {
    FakeMachine machine(setup);
    Driven driven(machine);
    machine.TakeTrace();
    for (const Setting* row : AllSettings()) {
      const bool is_driver_key = row->place == Place::kSettings || row->place == Place::kDriverKey;
      if (!is_driver_key) continue;
      for (const std::string_view id : {row->id, row->twin}) {
        if (!id.empty()) UseSomehow(driven, id);
      }
    }
    EXPECT_EQ(Joined(machine.TakeTrace()), "");
    EXPECT_EQ(driven.Text("direct3d.misc.prerender-limit"), "0");  // the choice is shown anyway
  }
}

void StoreEverything(FakeMachine& machine, const std::string& value) {
  for (const Setting* row : AllSettings()) {
    const auto [key, name] = AddressOf(machine, *row);
    if (row->place == Place::kSettings) machine.Store(key, name, value);
  }
}

TEST(SettingsTest, ReadingWritesNothing) {
  for (const MachineKind& setup : {MachineKind{0, 2280}, MachineKind{0, 8000}, MachineKind{1, 4500},
                                   MachineKind{3, 5000}, MachineKind{4, 9700}}) {
    FakeMachine machine(setup);
    StoreEverything(machine, machine.Kept(1));
    // What the sliders of capabilities are moved to is stored again.
    for (const char* name : {"D3d_59954021", "D3D_59954023", "D3D_59954022"}) {
      machine.StoreDirect3D(name, {});
    }
    machine.TakeTrace();
    const Driven driven(machine);
    EXPECT_EQ(Joined(machine.TakeTrace()), test::kStartUpTrace);
  }
}

TEST(SettingsTest, ValuesOfAnyTypeAndSizeCountAsNotSetOrByTheirNumber) {
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
    StoreEverything(machine, value);
    EXPECT_EQ(Driven(machine).Text("direct3d.misc.prerender-limit"), shown) << value;
  }
}

}  // namespace
}  // namespace kestrune::catalogue
