// Whether the rows of the windows hold together.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "fake_machine.h"
#include "ui/forms/main_form.h"
#include "ui/forms/pages.h"
#include "ui/forms/window_table.h"

namespace kestrune::forms {
namespace {

using controls::Control;
using test::Driven;
using test::FakeMachine;

/// A started program in English, whose windows are walked.
class TablesTest : public testing::Test {
 protected:
  /// Calls `check` with each row, its control and its form.
  template <typename Check>
  void ForEachRow(Check check) {
    for (const Form* form : driven.program.Forms()) {
      for (std::size_t i = 0; i < form->Rows().size(); ++i) {
        check(form->Rows()[i], *form->Controls()[i], *form);
      }
    }
  }

  /// The interface text that English has for a row's caption, else its design caption.
  std::string CaptionOf(const ControlRow& row) {
    return row.text >= 0 ? english.LangText[row.text] : std::string(row.design);
  }

  FakeMachine machine;
  Driven driven{machine};
  core::basRegistry registry{machine.Services().registry};
  lang::Language english = [this] {
    lang::Language language(registry, machine.Files(), machine);
    language.LoadLanguage();
    return language;
  }();
};

/// The page or window whose id stands before a control's own name.
std::string_view OwnerOf(const Control& control) {
  const Control* owner = &control;
  while (owner->Parent() != nullptr && !IsPageId(owner->Id())) owner = owner->Parent();
  return owner->Id();
}

/// A caption up to its colon, in lower case, with hyphens for all but letters and digits.
std::string NameOf(std::string_view caption) {
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
const std::set<std::string_view> kNamedByHand = {
    "main.group-scroll-bar",
    "main.language-header",
    "main.lower-panel-edge",
    "main.help-system-picture",
    "opengl.filtering.texture-compression-by-application",
    "opengl.filtering.texture-compression-enabled",
    "control-panel.settings.picture",
    "control-panel.settings.registry-editor-note",
    "about.version",
    "about.page-link",
    "about.show-intro",
    "intro.picture",
    "intro.text",
    "profile-manager.browse",
    "profile-manager.application-folder",
    "profile-manager.core-clock",
    "profile-manager.memory-clock",
    "associated-application.drives",
    "associated-application.folders",
    "associated-application.folders-label",
    "associated-application.files",
    "associated-application.path",
    "associated-application.cancel",
    "associated-application.confirm",
    "registry-editor.category",
    "registry-editor.values",
    "registry-editor.available-values",
    "registry-editor.key-description",
    "registry-editor.typed-value",
    "registry-editor.actual-value",
    "registry-editor.actual-value-frame",
    "info.monitoring.cpu-1",
    "info.monitoring.cpu-1-bar",
    "info.monitoring.cpu-2",
    "info.monitoring.cpu-2-bar",
    "info.monitoring.cpu-graph",
    "info.monitoring.free-memory",
    "info.monitoring.memory-graph",
    "monitoring.cpu",
    "monitoring.memory",
    "monitoring.first-sample",
    "monitoring.last-sample",
    "monitoring.note",
    "monitoring.next",
    "monitoring.save-recording",
    "performance-wizard.quality",
    "performance-wizard.quality-low",
    "performance-wizard.quality-high",
    "performance-wizard.antialiasing-low",
    "performance-wizard.antialiasing-high",
    "performance-wizard.texture-filtering-low",
    "performance-wizard.texture-filtering-high",
    "performance-wizard.preview",
    "performance-wizard.preview-label",
    "info.directx.report",
    "info.processes.processes",
    "info.processes.priority-bar",
    "info.processes.priority-bar-frame",
    "overclocking.core-clock",
    "overclocking.memory-clock",
    "overclocking.core-clock-slider",
    "overclocking.memory-clock-slider"};

TEST_F(TablesTest, EveryIdFollowsFromItsCaption) {
  ForEachRow([this](const ControlRow& row, const Control& control, const Form& form) {
    const std::string_view owner = OwnerOf(control);
    if (owner == row.id || owner == "help" || kNamedByHand.contains(row.id)) return;
    if (row.kind == Kind::kKey) {
      EXPECT_TRUE(row.id.starts_with("main.")) << row.id;
      return;
    }
    const std::string caption = CaptionOf(row);
    // Without a caption of its own it takes the name of the label that names it.
    if (caption.empty()) {
      EXPECT_NE(form.Find(std::string(row.id) + "-label"), nullptr) << row.id;
      return;
    }
    const std::string id = std::string(owner) + "." + NameOf(caption);
    const bool is_label = row.kind == Kind::kLabel && row.id != id && form.Find(id) != nullptr;
    const std::string expected = row.kind == Kind::kFrame ? id + "-frame"
                                 : is_label               ? id + "-label"
                                                          : id;
    EXPECT_EQ(row.id, expected) << caption;
  });
}

TEST_F(TablesTest, EveryControlStandsInsideItsParent) {
  ForEachRow([](const ControlRow& row, const Control& control, const Form& form) {
    const Control* parent = control.Parent();
    if (parent == nullptr) {
      EXPECT_EQ(&control, &form.TheWindow()) << row.id;
      return;
    }
    // Menu items have no place; the main window grows over its lower panel.
    if (dynamic_cast<const controls::ToolKey*>(parent) != nullptr) return;
    const controls::Rect& place = row.bounds;
    const int height = parent->Id() == "main" ? kFullHeight : parent->Bounds().height;
    // A bar shows nothing at first.
    const int least = row.kind == Kind::kBar ? 0 : 1;
    EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.width >= least && place.height > 0)
        << row.id;
    EXPECT_LE(place.left + place.width, parent->Bounds().width) << row.id;
    EXPECT_LE(place.top + place.height, height) << row.id;
  });
}

TEST_F(TablesTest, EveryCaptionHasATextOrSaysThatItHasNone) {
  constexpr Kind kCaptionless[] = {Kind::kCombo,  Kind::kEditableCombo, Kind::kList,
                                   Kind::kPlaces, Kind::kText,          Kind::kReadOnlyText,
                                   Kind::kSlider, Kind::kScrollBar,     Kind::kPicture};
  ForEachRow([&](const ControlRow& row, const Control&, const Form&) {
    for (const int number : {row.text, row.tip}) {
      if (number >= 0) {
        EXPECT_FALSE(english.LangText[number].empty()) << row.id << " " << number;
      }
    }
    if (std::find(std::begin(kCaptionless), std::end(kCaptionless), row.kind) !=
        std::end(kCaptionless)) {
      EXPECT_TRUE(row.text == kNoText && row.design.empty()) << row.id;
    } else {
      EXPECT_TRUE(row.text != kNoText || !row.design.empty()) << row.id << " has no caption";
      EXPECT_TRUE(row.text < 0 || row.design.empty()) << row.id << " has two captions";
    }
  });
}

TEST_F(TablesTest, EveryKeyHasAnActionAndEveryPageAGroupAndAKey) {
  std::set<std::string_view> page_keys;
  std::set<std::pair<Group, int>> places;
  for (const PageRow& page : kPages) {
    EXPECT_NE(page.group, Group::kUnsaid) << page.id;
    EXPECT_TRUE(page_keys.insert(page.key).second) << page.key << " leads to two pages";
    if (page.group == Group::kNone) continue;
    EXPECT_TRUE(page.place >= 1 && page.place <= SizeOf(page.group)) << page.id;
    EXPECT_TRUE(places.emplace(page.group, page.place).second) << page.id;
  }
  ForEachRow([&](const ControlRow& row, const Control&, const Form& form) {
    const Action& action = row.action;
    if (row.kind == Kind::kKey) {
      EXPECT_NE(action.kind, Action::Kind::kNone) << row.id;
    }
    EXPECT_EQ(action.kind == Action::Kind::kShowOwnPage, page_keys.erase(row.id) == 1) << row.id;
    if (action.kind == Action::Kind::kShowPage) {
      EXPECT_TRUE(IsPageId(action.target)) << row.id;
    }
    if (action.kind == Action::Kind::kOpenWindow) {
      EXPECT_NE(driven.program.Find(action.target), nullptr) << row.id;
    }
    for (const std::string_view key :
         {form.WindowsRow().default_key, form.WindowsRow().cancel_key}) {
      if (!key.empty()) {
        EXPECT_NE(form.Find(key), nullptr) << key;
      }
    }
  });
  EXPECT_TRUE(page_keys.empty()) << *page_keys.begin() << " is no key";
}

TEST_F(TablesTest, EveryWindowButTheMainOneHasAnOwner) {
  for (const WindowRow* row : kWindows) {
    EXPECT_NE(driven.program.Find(row->owner), nullptr) << row->window.id;
    for (const std::string_view id : {row->opened_by, row->opened_beside}) {
      if (!id.empty()) {
        EXPECT_NE(driven.program.Find(id), nullptr) << row->window.id;
      }
    }
  }
}

}  // namespace
}  // namespace kestrune::forms
