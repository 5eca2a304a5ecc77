// Whether the tables of the windows hold together.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "fake_machine.h"
#include "ui/forms/help_form.h"
#include "ui/forms/main_form.h"
#include "ui/forms/texts.h"

namespace kestrune::forms {
namespace {

using controls::Control;

/// The page or window whose id stands before a control's own name.
const Control& OwnerOf(const Control& control) {
  const Control* owner = &control;
  while (owner->Parent() != nullptr) {
    if (std::find(kPageIds.begin(), kPageIds.end(), owner->Id()) != kPageIds.end()) break;
    owner = owner->Parent();
  }
  return *owner;
}

/// A caption up to its colon, in lower case, with hyphens for all but letters and digits.
std::string NameOf(const std::string& caption) {
  std::string name;
  for (char c : caption.substr(0, caption.find(':'))) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    const bool kept = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
    if (kept) {
      name += c;
    } else if (!name.empty() && name.back() != '-') {
      name += '-';
    }
  }
  if (!name.empty() && name.back() == '-') name.pop_back();
  return name;
}

/// What no caption names, or what would clash.
const std::set<std::string> kNamedByHand = {"main.group-scroll-bar",
                                            "main.language-header",
                                            "main.lower-panel-edge",
                                            "main.help-system-picture",
                                            "opengl.filtering.texture-compression-by-application",
                                            "opengl.filtering.texture-compression-enabled",
                                            "control-panel.settings.picture",
                                            "control-panel.settings.registry-editor-note",
                                            "control-panel.resolution.select-resolution",
                                            "overclocking.core-clock",
                                            "overclocking.memory-clock",
                                            "overclocking.core-clock-slider",
                                            "overclocking.memory-clock-slider",
                                            "info.directx.report"};

bool IsNamedByRule(const Form& form, const Control& control) {
  if (kNamedByHand.contains(control.Id())) return true;
  if (dynamic_cast<const controls::ToolKey*>(&control) != nullptr) {
    return control.Id().starts_with("main.");
  }
  // Without a caption of its own it takes the name of the label that names it.
  if (control.Caption().empty()) return form.Find(control.Id() + "-label") != nullptr;
  const std::string id = OwnerOf(control).Id() + "." + NameOf(control.Caption());
  if (control.Id() == id) return true;
  if (dynamic_cast<const controls::Frame*>(&control) != nullptr)
    return control.Id() == id + "-frame";
  const auto* label = dynamic_cast<const controls::Label*>(&control);
  return label != nullptr && control.Id() == id + "-label" && form.Find(id) != nullptr;
}

TEST(TablesTest, EveryIdIsUniqueAndFollowsFromItsCaption) {
  const MainForm main;
  const HelpForm help;
  std::set<std::string> ids;
  for (const Form* form : {static_cast<const Form*>(&main), static_cast<const Form*>(&help)}) {
    for (const auto& control : form->Controls()) {
      EXPECT_TRUE(ids.insert(control->Id()).second) << control->Id();
      if (&OwnerOf(*control) == control.get() || form == &help) continue;
      EXPECT_TRUE(IsNamedByRule(*form, *control)) << control->Id() << ": " << control->Caption();
    }
  }
}

TEST(TablesTest, EveryControlStandsInsideItsParent) {
  const MainForm main;
  for (const auto& control : main.Controls()) {
    const Control* parent = control->Parent();
    if (parent == nullptr) {
      EXPECT_EQ(control->Id(), "main");
      continue;
    }
    // Menu items have no place; the window grows over the lower panel.
    if (dynamic_cast<const controls::ToolKey*>(parent) != nullptr) continue;
    const controls::Rect& place = control->Bounds();
    const int height = parent->Id() == "main" ? kFullHeight : parent->Bounds().height;
    EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.width > 0 && place.height > 0)
        << control->Id();
    EXPECT_LE(place.left + place.width, parent->Bounds().width) << control->Id();
    EXPECT_LE(place.top + place.height, height) << control->Id();
  }
}

TEST(TablesTest, EveryTextGoesToAControlAndSaysWhatItsDesignSays) {
  test::FakeMachine machine;
  core::basRegistry registry(machine.Services().registry);
  lang::Language english(registry, machine.Files(), machine);
  english.LoadLanguage();
  const MainForm form;
  std::set<std::pair<std::string, TextPlace>> places;
  for (const TextRow& row : kMainTexts) {
    const Control* control = form.Find(row.id);
    ASSERT_NE(control, nullptr) << row.id;
    EXPECT_TRUE(places.emplace(row.id, row.place).second) << row.id << " has two texts";
    EXPECT_TRUE(row.number >= 0 && row.number <= 273) << row.id;
    std::string text = english.LangText[row.number];
    EXPECT_FALSE(text.empty()) << row.number;
    while (text.ends_with(' ')) text.pop_back();
    const std::string& design = control->Caption();
    if (row.place == TextPlace::kToolTip || design.empty()) continue;
    if (row.id == "opengl.filtering.force-mipmaps-label") continue;  // one text for both pages
    EXPECT_TRUE(design.starts_with(text)) << row.id << ": " << design << " / " << text;
  }
}

TEST(TablesTest, EveryCaptionThatAPersonReadsHasAText) {
  const std::set<std::string> kSameEverywhere = {
      "main.nvcpl", "main.dx", "main.ogl", "main.info", "main.qorv",
      // The temperature boxes keep their design captions.
      "control-panel.settings.enable-thermal-settings-page",
      "control-panel.settings.enable-heat-indicator-warning",
      "control-panel.settings.display-core-temperature-in-system-tray-area"};
  const MainForm form;
  for (const auto& control : form.Controls()) {
    const bool is_filled = control->Id().starts_with("info.basic.") || control->Id() == "main" ||
                           control->Id().find("-speed") != std::string::npos;
    if (control->Caption().empty() || is_filled || kSameEverywhere.contains(control->Id()))
      continue;
    const auto row = std::find_if(kMainTexts.begin(), kMainTexts.end(), [&](const TextRow& each) {
      return each.id == control->Id() && each.place == TextPlace::kCaption;
    });
    EXPECT_NE(row, kMainTexts.end()) << control->Id();
  }
}

}  // namespace
}  // namespace kestrune::forms
