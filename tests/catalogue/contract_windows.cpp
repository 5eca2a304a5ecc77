// The listing's sections on the windows: pages, keys, help, lists, and what is enabled.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "catalogue/listing.h"
#include "ui/forms/help_window.h"
#include "ui/forms/main_form.h"
#include "ui/forms/pages.h"

namespace kestrune::catalogue {

using controls::Control;
using test::Driven;
using test::FakeMachine;
using test::Joined;

namespace {

/// The controls of the main window that are of a type, in tab order.
template <typename T>
std::vector<const T*> ControlsOf(Driven& driven) {
  std::vector<const T*> found;
  for (const auto& control : driven.program.Main().Controls()) {
    if (const auto* typed = dynamic_cast<const T*>(control.get())) found.push_back(typed);
  }
  return found;
}

std::string RangeOf(const controls::Slider& slider) {
  return std::to_string(slider.Minimum()) + " to " + std::to_string(slider.Maximum());
}

/// The pages that the scroll bar leads to, by position.
std::string GroupOf(Driven& driven) {
  const auto& bar = driven.Get<controls::Slider>("main.group-scroll-bar");
  if (!bar.Visible()) return "none";
  const int place = bar.Value();
  std::string pages;
  for (int position = bar.Maximum(); position >= 1; --position) {
    if (position != bar.Value()) driven.Move(bar.Id(), position);
    pages.insert(0, " " + driven.State("ActivePage"));
  }
  return std::to_string(place) + " of" + pages;
}

}  // namespace

void ListPages(Listing& listing) {
  listing.Section("pages: index, id and key -> caption, place in the group, the group's pages");
  FakeMachine machine;
  Driven driven(machine);
  for (int index = 0; index < forms::PageCount(); ++index) {
    const forms::PageRow& page = forms::kPages[static_cast<std::size_t>(index)];
    driven.Press(page.key);
    EXPECT_EQ(driven.State("ActivePage"), std::to_string(index));
    for (int other = 0; other < forms::PageCount(); ++other) {
      EXPECT_EQ(driven.program.Main().Page(other).Visible(), other == index) << page.id;
    }
    listing.Line(
        std::to_string(index) + " " + std::string(page.id) + " by " + std::string(page.key),
        driven.Caption(page.id) + ", " + GroupOf(driven));
  }
}

void ListKeys(Listing& listing) {
  listing.Section("what clicks start, and the page that is shown then, from page 6");
  FakeMachine machine({.clocks = platform::DescribedClocks{300, 650, {}, {}, 1000, {}}});
  Driven driven(machine);
  for (const Control* control : ControlsOf<Control>(driven)) {
    const bool is_key = dynamic_cast<const controls::ToolKey*>(control) != nullptr;
    const bool is_picture = dynamic_cast<const controls::PictureBox*>(control) != nullptr;
    if (!control->on_click || (!is_key && !is_picture)) continue;
    driven.Press("main.tf2");
    machine.TakeTrace();
    driven.Press(control->Id());
    std::string changes = machine.TakeShortTrace();
    // A program file is one wherever the program stands.
    constexpr std::string_view kFolder = KESTRUNE_DATA_FOLDER "/";
    if (const std::size_t at = changes.find(kFolder); at != changes.npos) {
      changes.erase(at, kFolder.size());
    }
    if (changes.find("run rundll32") != changes.npos) {
      EXPECT_EQ(machine.last_window, platform::WindowState::kMinimised);
    }
    listing.Line(control->Id(), "page " + driven.State("ActivePage") + ", " + changes);
  }
}

void ListHelp(Listing& listing) {
  listing.Section("help topics of a mouse over a control, of those that have one");
  FakeMachine machine;
  Driven driven(machine);
  const auto topic = [&driven](std::string_view before, std::string_view id) {
    driven.Hover(before);
    driven.Hover(id);
    std::string shown;
    for (int each = 0; each < forms::kTopicCount; ++each) {
      const std::string panel = "help.topic-" + std::to_string(each);
      if (driven.Visible(panel)) shown += std::to_string(each) + " " + driven.Caption(panel);
    }
    return shown;
  };
  for (const Control* control : ControlsOf<Control>(driven)) {
    const std::string shown = topic("opengl.misc.textures-color-depth", control->Id());
    // A control without a topic leaves the one before.
    if (shown == topic("opengl.misc.prerender-limit", control->Id())) {
      listing.Line(control->Id(), shown);
    }
  }
}

void ListLists(Listing& listing) {
  listing.Section("lists and ranges");
  Machines all;
  FakeMachine machine;
  Driven driven(machine);
  for (const auto* combo : ControlsOf<controls::ComboBox>(driven)) {
    listing.Line(combo->Id(), all.Each([combo](FakeMachine&, Driven& each) {
      const std::vector<std::string> items = each.Items(combo->Id());
      return items.empty() ? "empty" : Joined(items);
    }),
                 Machines::Names());
  }
  for (const auto* slider : ControlsOf<controls::Slider>(driven)) {
    listing.Line(slider->Id(), all.Each([slider](FakeMachine&, Driven& each) {
      return RangeOf(each.Get<controls::Slider>(slider->Id()));
    }),
                 Machines::Names());
  }
}

void ListEnabled(Listing& listing) {
  FakeMachine machine;
  Driven plain(machine);
  const std::vector<const Control*> controls = ControlsOf<Control>(plain);
  Machines all;
  std::set<const Control*> always;
  listing.Section("what is disabled after the start, with card 0091");
  for (const Control* control : controls) {
    const std::vector<std::string> results = all.Each([control](FakeMachine&, Driven& driven) {
      return driven.Enabled(control->Id()) ? "enabled" : "disabled";
    });
    const auto disabled = std::count(results.begin(), results.end(), "disabled");
    if (disabled > 0) listing.Line(control->Id(), results, Machines::Names());
    if (disabled == std::ssize(results)) always.insert(control);
  }
  listing.Section("what else is disabled after the start, on XP with driver 80.00, by card");
  constexpr const char* kDevices[] = {"0020", "0040", "0045", "0091", "0092", "00C1", "00F5",
                                      "00F6", "00F9", "00FA", "00FB", "00FC", "00FD", "00FE",
                                      "00FF", "0141", "0161", "0221", "0281", ""};
  std::map<const Control*, std::pair<std::string, std::string>> cards;
  for (const std::string device : kDevices) {
    FakeMachine carded({.device = device});
    const Driven driven(carded);
    for (const Control* control : controls) {
      auto& [disabled, enabled] = cards[control];
      (driven.Enabled(control->Id()) ? enabled : disabled) +=
          " " + (device.empty() ? "none" : device);
    }
  }
  for (const Control* control : controls) {
    const auto& [disabled, enabled] = cards[control];
    const bool is_listed = enabled.empty() && always.contains(control);
    if (!disabled.empty() && !is_listed) {
      listing.Line(control->Id(), "disabled:" + disabled + "; enabled:" + enabled);
    }
  }
}

void ListCardTables(Listing& listing) {
  /// A card table, what it says of the card, and what is shown for it.
  struct Table {
    std::string name;
    std::vector<std::string> lines;
    std::function<std::string(Driven&)> shown;
    bool sli = false;
  };
  const std::string textures = "direct3d.multitexturing.max-simultaneous-textures";
  const auto lists = [](std::string_view name) {
    return [name](Driven& driven) {
      const std::string direct3d = Joined(driven.Items("direct3d." + std::string(name)));
      const std::string opengl = Joined(driven.Items("opengl." + std::string(name)));
      return direct3d + (opengl == direct3d ? "" : " | OpenGL " + opengl);
    };
  };
  const auto shader = [](const std::string& id) {
    return [id](Driven& driven) {
      return RangeOf(driven.Get<controls::Slider>(id)) + (driven.Enabled(id) ? "" : ", disabled");
    };
  };
  const Table tables[] = {{"aa",
                           {"09,0", "09,4", "09,q", "09,8", "09,Q", "04,8"},
                           lists("antialiasing.antialiasing-mode")},
                          {"af",
                           {"09,0", "09,2", "09,8", "09,16", "09,4", "04,16"},
                           lists("filtering.anisotropic-filtering")},
                          {"mt",
                           {"09,1", "09,2", "09,4", "09,x", "09", "91,4", ""},
                           [&](Driven& driven) {
                             const bool z =
                                 driven.Enabled("direct3d.misc.enable-z-buffer-compression");
                             return RangeOf(driven.Get<controls::Slider>(textures)) +
                                    ", Z-buffer compression " + (z ? "enabled" : "disabled");
                           }},
                          {"ps",
                           {"09,0.0,0", "09,1.3,2", "09,2.0,4", "09,3.0,5", "04,1.1,1"},
                           shader("direct3d.shaders.pixel-shader")},
                          {"vs",
                           {"09,0.0,0", "09,1.1,1", "09,2.0,2", "04,1.1,1"},
                           shader("direct3d.shaders.vertex-shader")}};
  listing.Section("card 0091 by the lines of its tables");
  for (const Table& table : tables) {
    for (const std::string& line : table.lines) {
      Machines all([&](FakeMachine& machine) {
        machine.Lay("DATA/" + table.name + ".dat", line);
        if (table.sli) machine.StoreDirect3D("D3DOGL_12677978", 0x29060797);
      });
      listing.Line(table.name + ".dat " + line + (table.sli ? " with SLI" : ""),
                   all.Each([&](FakeMachine&, Driven& driven) {
                     const std::string shown = table.shown(driven);
                     return shown.empty() ? "empty" : shown;
                   }),
                   Machines::Names());
    }
  }
}

}  // namespace kestrune::catalogue
