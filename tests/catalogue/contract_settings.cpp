// The listing's sections on the settings: what is shown for what is stored, and the reverse.

#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/catalogue.h"
#include "catalogue/listing.h"
#include "d3d/direct3d_settings.h"

namespace kestrune::catalogue {

using settings::Choice;
using settings::Place;
using settings::Setting;
using settings::Shape;
using settings::Special;
using settings::Writer;
using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::NumberText;
using Number = std::optional<std::int32_t>;

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

namespace {

constexpr std::string_view kMode = "direct3d.antialiasing.antialiasing-mode";
constexpr std::string_view kGlMode = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kAniso = "direct3d.filtering.anisotropic-filtering";
constexpr std::string_view kGlAniso = "opengl.filtering.anisotropic-filtering";
constexpr std::int32_t kFourTimes = d3d::kAaMode + 0x10;

template <typename T>
void AddNew(std::vector<T>& list, const T& item) {
  if (std::find(list.begin(), list.end(), item) == list.end()) list.push_back(item);
}

/// A card with every capability but texture units, and no limits on what it reports.
void PrepareCard(FakeMachine& machine) {
  machine.Lay("DATA/mt.dat", "09,1");
  machine.Store(test::kOptionsKey, "OverrideMultiTexture", "REG_DWORD 1");
  machine.Store(test::kOptionsKey, "OverrideShaders", "REG_DWORD 1");
}

void Store(FakeMachine& machine, const Setting& row, Number number) {
  const auto [key, name] = AddressOf(machine, row);
  const bool as_kept = row.place == Place::kSettings || row.place == Place::kDriverKey;
  if (!number) {
    machine.Unset(key, name);
  } else {
    machine.Store(key, name,
                  as_kept ? machine.Kept(static_cast<std::uint32_t>(*number))
                          : "REG_DWORD " + std::to_string(*number));
  }
}

/// What a setting's control shows, its label, its twin where that differs, and what is greyed.
std::vector<std::string> PartsShown(const Driven& driven, const Setting& row) {
  std::vector<std::string> parts = {driven.Text(row.id)};
  if (!row.label.empty() && row.shape == Shape::kSlider) {
    parts.push_back("\"" + driven.Caption(row.label) + "\"");
  }
  if (!row.twin.empty() && driven.Text(row.twin) != driven.Text(row.id)) {
    parts.push_back("twin " + driven.Text(row.twin));
  }
  if (!driven.Enabled(row.id)) parts.emplace_back("disabled");
  if (!row.label.empty() && driven.Enabled(row.label) != driven.Enabled(row.id)) {
    parts.emplace_back("label otherwise");
  }
  return parts;
}

void ReadAgain(Driven& driven) {
  driven.ReadAgain();
  driven.Press("main.nvcpl");
}

/// Whether a value is seen by a program that starts alone: reading it again passes it by or writes
/// it first.
bool IsReadAtStart(const Setting& row) {
  return row.special == Special::kSli || row.special == Special::kShader ||
         row.special == Special::kTextures || row.writer == Writer::kProgram;
}

/// What the start makes of a value, beside what is shown.
std::string StateOf(const Driven& driven, const Setting& row) {
  const std::pair<std::string_view, const char*> states[] = {
      {"D3DOGL_12677978", "SliAaOn"},
      {"D3d_59954021", "PixelShaderVersionText"},
      {"D3D_59954023", "VertexShaderVersionText"},
      {"D3D_59954022", "MaxSimultaneousTextures"},
      {"Language", "LanguageName"}};
  for (const auto& [name, state] : states) {
    if (row.name == name) return ", " + std::string(state) + " " + driven.State(state);
  }
  return "";
}

std::string ReadAtStart(FakeMachine& machine, const Setting& row, Number number) {
  Store(machine, row, number);
  const Driven fresh(machine);
  return Joined(PartsShown(fresh, row)) + StateOf(fresh, row);
}

/// Two numbers that show different things, one to come from before each number that is read.
std::pair<std::int32_t, std::int32_t> MarksOf(const Setting& row) {
  if (row.shape == Shape::kCount || row.shape == Shape::kSlider) return {3, 5};
  if (row.special == Special::kS3tc) return {0, 3};
  if (row.special == Special::kTrilinearQuality) return {1, -1};
  if (row.shape == Shape::kOption) return {0x07368183, settings::Bits(0x87508277)};
  std::vector<const Choice*> set;
  for (const Choice& choice : row.choices) {
    if (choice.number) set.push_back(&choice);
  }
  return {*set.front()->number, *set.back()->number};
}

std::string ReadAfterMarks(FakeMachine& machine, Driven& driven, const Setting& newest,
                           Number number) {
  const Setting& row = newest.For(machine.Kind().driver);
  if (row.name.empty()) return "not read";
  const auto shown = [&](Number stored) {
    Store(machine, row, stored);
    ReadAgain(driven);
    return PartsShown(driven, newest);
  };
  const auto [first, second] = MarksOf(row);
  const std::vector<std::string> before = shown(first);
  const std::vector<std::string> after = shown(number);
  bool changes = true;
  for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
    changes = changes && before[i] != after[i];
  }
  if (changes) return Joined(after);
  // What is the same may be what the number shows, or what it leaves.
  const std::vector<std::string> other = shown(second);
  std::vector<std::string> again = shown(number);
  if (before == other && after == before && again == before) return "not read";
  for (std::size_t i = 0; i < again.size(); ++i) {
    if (i >= after.size() || again[i] != after[i]) again[i] = "as before";
  }
  return Joined(again);
}

/// The numbers of a row on any driver, and some that no row has.
std::vector<Number> NumbersOf(const Setting& newest) {
  std::vector<Number> numbers = {std::nullopt, 0, 1, 2, -1, 40};
  const auto add = [&numbers](Number number) { AddNew(numbers, number); };
  for (const Setting* row = &newest; row != nullptr; row = row->older) {
    for (const Choice& choice : row->choices) {
      const bool is_flag = row->special == Special::kModeFlags && choice.number.value_or(0) != 0;
      add(is_flag ? *choice.number + kFourTimes : choice.number);
    }
  }
  if (newest.special == Special::kS3tc) add(3);
  if (newest.special == Special::kCompression) {
    for (const std::uint32_t number : {0x07368183U, 0x87508277U}) add(settings::Bits(number));
  }
  if (newest.special == Special::kTrilinearQuality) {
    for (const int number : {10, 11, 20, 21, 31, 32}) add(number);
  }
  if (newest.prefix == settings::Ui(lang::texts::kLodBias)) {
    for (const int number : {24, 25, 48, 49, -24, -25, -48, -49}) add(number);
  }
  return numbers;
}

/// What has the same results on every machine, and these results.
using Group = std::pair<std::string, std::vector<std::string>>;

void AddTo(std::vector<Group>& groups, const std::string& what,
           const std::vector<std::string>& results) {
  const auto same = std::find_if(groups.begin(), groups.end(),
                                 [&](const Group& group) { return group.second == results; });
  if (same == groups.end()) {
    groups.emplace_back(what, results);
  } else {
    same->first += ", " + what;
  }
}

/// Lists groups: first the machines where all of them have the same result, then the others.
void ListGroups(Listing& listing, std::string_view id, std::vector<Group> groups) {
  listing.Head(id);
  std::vector<std::pair<std::string, std::string>> same;  // machines, result
  std::size_t last = 0;
  for (std::size_t i = 0; groups.size() > 1 && i < Machines::Names().size(); ++i) {
    const std::string result = groups.front().second[i];
    const bool is_same = std::all_of(groups.begin(), groups.end(),
                                     [&](const Group& group) { return group.second[i] == result; });
    if (!is_same) continue;
    for (Group& group : groups) group.second[i].clear();
    const std::string& name = Machines::Names()[i];
    if (same.empty() || last + 1 != i || same.back().second != result) {
      same.emplace_back(name, result);
    } else {
      same.back().first =
          same.back().first.substr(0, same.back().first.find(" to ")) + " to " + name;
    }
    last = i;
  }
  for (const auto& [machines, result] : same) listing.Line("  all, " + machines, result);
  for (const auto& [what, results] : groups) {
    listing.Line("  " + what, results, Machines::Names());
  }
}

}  // namespace

std::set<std::string_view> ListReads(Listing& listing) {
  listing.Section("what is shown for which stored number; \"as before\" is what was shown already");
  std::set<std::string_view> listed;
  Machines all(PrepareCard);
  for (const Setting* row : AllSettings()) {
    std::vector<Group> groups;
    for (const Number number : NumbersOf(*row)) {
      const std::vector<std::string> results = all.Each([&](FakeMachine& machine, Driven& driven) {
        return IsReadAtStart(*row) ? ReadAtStart(machine, *row, number)
                                   : ReadAfterMarks(machine, driven, *row, number);
      });
      AddTo(groups, NumberText(number), results);
    }
    ListGroups(listing, row->id, groups);
    if (groups.size() > 1) listed.insert(row->id);
    all.Each([row](FakeMachine& machine, Driven& driven) {
      const Setting& own = row->For(machine.Kind().driver);
      if (!own.name.empty()) Store(machine, own, std::nullopt);
      ReadAgain(driven);
      return "";
    });
  }
  return listed;
}

void ListFlags(Listing& listing) {
  listing.Section(
      "the shared antialiasing value: both modes, transparency, gamma, AaGammaOn "
      "AaTransparencyMode");
  constexpr std::uint32_t kFlags[] = {0,          0x00100000, 0x00010000,
                                      0x00110000, 0x40000000, 0x40100000};
  std::vector<std::uint32_t> numbers;
  for (const d3d::AaMode& mode : d3d::kAaModes) {
    for (const std::uint32_t flags : kFlags) {
      numbers.push_back(static_cast<std::uint32_t>(mode.number) + flags);
    }
  }
  // Flags and modes that the decimal text doesn't tell, and texts that look alike.
  for (const std::uint32_t odd : {0x10000014U, 0x40010010U, 0x90000010U, 0x1010003FU, 26948U,
                                  269480000U, 268500000U, 0xFFFFFFFFU}) {
    numbers.push_back(odd);
  }
  FakeMachine machines[2];
  machines[1].StoreDirect3D("D3DOGL_12677978", 0x29060797);
  Driven programs[] = {Driven(machines[0]), Driven(machines[1])};
  for (const std::uint32_t number : numbers) {
    std::string modes[2];
    std::string flags[2];
    for (int sli = 0; sli < 2; ++sli) {
      Driven& driven = programs[sli];
      machines[sli].StoreDirect3D("D3DOGL_70835937", number);
      driven.ReadAgain();
      const auto twins = [&driven](const std::string& name) {
        std::string direct3d = driven.Text("direct3d.antialiasing." + name);
        EXPECT_EQ(driven.Text("opengl.antialiasing." + name), direct3d) << name;
        return direct3d;
      };
      modes[sli] = driven.Text(kMode) + "/" + driven.Text(kGlMode);
      flags[sli] = "; " + twins("transparency-antialiasing") + ", gamma " +
                   twins("gamma-correct-antialiasing") + ", " + driven.State("AaGammaOn") + " " +
                   driven.State("AaTransparencyMode");
      EXPECT_EQ(driven.State("CurrentAaModeText"), driven.Text(kMode));
    }
    EXPECT_EQ(flags[0], flags[1]) << number;
    const std::string with_sli = modes[1] == modes[0] ? "" : ", with SLI " + modes[1];
    listing.Line(NumberText(static_cast<std::int32_t>(number)), modes[0] + with_sli + flags[0]);
  }
}

void ListOldEmulation(Listing& listing) {
  listing.Section("emulation before release 60.00, with NVEmulate = 47 stored");
  using Values = std::vector<std::pair<std::string, int>>;
  const Values cases[] = {{},
                          {{"MaxNVACCEL", 1}},
                          {{"MaxNVACCEL", 5}},
                          {{"MaxNVACCEL", 10}},
                          {{"MaxNVACCEL", 2}},
                          {{"NV20Emulate", 1}},
                          {{"NV20Emulate", 2}},
                          {{"NV25Emulate", 1}},
                          {{"NV30Emulate", 1}},
                          {{"MaxNVACCEL", 10}, {"NV20Emulate", 1}},
                          {{"MaxNVACCEL", 2}, {"NV20Emulate", 1}, {"NV25Emulate", 1}},
                          {{"NV25Emulate", 1}, {"NV30Emulate", 1}},
                          {{"NV25Emulate", 2}, {"NV30Emulate", 1}}};
  for (const Values& values : cases) {
    std::vector<std::string> what;
    std::vector<std::string> results;
    for (const test::MachineKind& kind : {test::MachineKind{0, 4500}, {3, 5999}, {3, 6000}}) {
      FakeMachine machine(kind);
      machine.StoreOpenGL("NVEmulate", 47);
      what.clear();
      for (const auto& [name, number] : values) {
        machine.StoreOpenGL(name, static_cast<std::uint32_t>(number));
        what.push_back(name + " " + std::to_string(number));
      }
      results.push_back(Driven(machine).Text("opengl.compatibility.compatibility-emulation-mode"));
    }
    listing.Line(what.empty() ? "none set" : Joined(what), results,
                 {"98-4500", "XP-5999", "XP-6000"});
  }
}

namespace {

/// Everything that a person can choose on a control; of a slider's positions, ends and limits.
std::vector<std::string> UsesOf(const controls::Control& control) {
  if (dynamic_cast<const controls::CheckBox*>(&control) != nullptr) return {"on", "off"};
  if (dynamic_cast<const controls::OptionButton*>(&control) != nullptr) return {"on"};
  if (const auto* combo = dynamic_cast<const controls::ComboBox*>(&control)) return combo->Items();
  const auto& slider = dynamic_cast<const controls::Slider&>(control);
  const int lowest = slider.Minimum();
  const int highest = slider.Maximum();
  std::vector<std::string> positions;
  for (int at = lowest; at <= highest; ++at) {
    const bool is_limit = lowest == 1 && (at == 10 || at == 11 || at == 20 || at == 21);
    if (highest - lowest <= 6 || is_limit || at < lowest + 2 || at > highest - 2) {
      positions.push_back(std::to_string(at));
    }
  }
  return positions;
}

/// Makes the use a change, of mode 4x where a mode is written again, with something to delete and
/// the flag for binary values as reading leaves it.
void PrepareUse(FakeMachine& machine, Driven& driven, const Setting& row, std::string_view id,
                const std::string& use) {
  controls::Control& control = *driven.program.Find(id);
  if (row.special == Special::kModeFlags) driven.Type(kMode, "4x");
  if (control.ValueText() == use) {
    if (dynamic_cast<controls::CheckBox*>(&control) != nullptr) {
      driven.Tick(id, use != "on");
    } else if (auto* slider = dynamic_cast<controls::Slider*>(&control)) {
      driven.Move(id, slider->Value() == slider->Minimum() ? slider->Maximum() : slider->Minimum());
    } else if (auto* combo = dynamic_cast<controls::ComboBox*>(&control)) {
      driven.Choose(id, combo->Position() == 0 ? 1 : 0);
    }
  }
  if (row.writer == Writer::kControlPanel || row.writer == Writer::kProgram) driven.ReadAgain();
  const Setting& own = row.For(machine.Kind().driver);
  if (!own.name.empty() && row.special != Special::kModeFlags) Store(machine, own, 5);
  if (row.special == Special::kAnisotropy) machine.StoreOpenGL("RenderQualityFlags", 1);
}

std::string UseOf(FakeMachine& machine, Driven& driven, const Setting& row, std::string_view id,
                  const std::string& use) {
  const std::vector<std::string> uses = UsesOf(driven.Get<controls::Control>(id));
  if (std::find(uses.begin(), uses.end(), use) == uses.end()) return "";
  PrepareUse(machine, driven, row, id, use);
  machine.TakeTrace();
  driven.Use(id, use);
  std::vector<std::string> parts = PartsShown(driven, row);
  std::erase(parts, "disabled");
  const std::string shown = Joined(parts);
  return machine.TakeShortTrace() + (shown == use ? "" : ", shows " + shown);
}

}  // namespace

std::set<std::string_view> ListUses(Listing& listing) {
  listing.Section("what choosing stores; RenderQualityFlags is 1 before an anisotropic level");
  std::set<std::string_view> listed;
  Machines all(PrepareCard);
  for (const Setting* row : AllSettings()) {
    for (const std::string_view id : {row->id, row->twin}) {
      if (id.empty()) continue;
      std::vector<std::string> uses;
      all.Each([&](FakeMachine&, Driven& driven) {
        for (const std::string& use : UsesOf(driven.Get<controls::Control>(id))) AddNew(uses, use);
        return "";
      });
      std::vector<Group> groups;
      for (const std::string& use : uses) {
        const std::vector<std::string> results =
            all.Each([&](FakeMachine& machine, Driven& driven) {
              return UseOf(machine, driven, *row, id, use);
            });
        groups.emplace_back(use, results);
        const bool stores = std::any_of(results.begin(), results.end(), [](const auto& each) {
          return each.find(" = ") != std::string::npos || each.starts_with("delete ");
        });
        if (stores) listed.insert(id);
      }
      ListGroups(listing, id, groups);
    }
  }
  return listed;
}

void ListTyped(Listing& listing) {
  listing.Section(
      "what typing a text stores, with 0x50100010 stored for antialiasing, 3 as "
      "RenderQualityFlags");
  const std::pair<std::string_view, std::string_view> pairs[] = {{kMode, kGlMode},
                                                                 {kAniso, kGlAniso}};
  Machines all(PrepareCard);
  FakeMachine machine;
  core::basRegistry registry(machine.Services().registry);
  lang::Language english(registry, machine.Files(), machine);
  english.LoadLanguage();
  for (const auto& [direct3d, opengl] : pairs) {
    std::vector<std::string> names;
    for (const std::string_view id : {direct3d, opengl}) {
      for (const Setting* row = SettingOf(id); row != nullptr; row = row->older) {
        for (const Choice& choice : row->choices) {
          AddNew(names, choice.text.In(english.LangText));
          if (!choice.also.empty()) AddNew(names, std::string(choice.also));
        }
      }
    }
    for (const char* unknown : {"4X", "made up"}) AddNew<std::string>(names, unknown);
    for (const std::string_view id : {direct3d, opengl}) {
      const std::string_view twin = id == direct3d ? opengl : direct3d;
      std::vector<Group> groups;
      for (const std::string& name : names) {
        AddTo(groups, name, all.Each([&](FakeMachine& each, Driven& driven) {
          each.StoreDirect3D("D3DOGL_70835937", 0x50100010);
          driven.ReadAgain();
          Store(each, SettingOf(kAniso)->For(each.Kind().driver), 5);
          each.StoreOpenGL("RenderQualityFlags", 3);
          driven.Type(twin, "before");
          driven.Type(id, "and then");
          each.TakeTrace();
          driven.Type(id, name);
          return each.TakeShortTrace() + (driven.Text(twin) == name ? ", on both pages" : "");
        }));
      }
      ListGroups(listing, id, groups);
    }
  }
}

}  // namespace kestrune::catalogue
