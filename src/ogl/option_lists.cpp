#include "ogl/option_lists.h"

#include <algorithm>

#include "core/number.h"

namespace kestrune::ogl {

namespace {

using d3d::ShownText;
using d3d::Ui;
using d3d::Word;

/// An antialiasing entry that a card's class offers, on drivers above a release.
struct AaEntry {
  ShownText text;
  int above_driver;
};

/// The entries of a class of antialiasing, while SLI antialiasing is off or on.
struct AaClass {
  std::string_view name;
  std::span<const AaEntry> entries;
  std::span<const AaEntry> sli_entries;
};

constexpr AaEntry kNone[] = {{Ui(137), 0}};
constexpr AaEntry kOrdered[] = {{Ui(137), 0}, {Word("2x"), 0}, {Word("4x"), 0}};
constexpr AaEntry kQuincunx[] = {
    {Ui(137), 0}, {Word("2x"), 0}, {Word("Quincunx"), 0}, {Word("4x"), 0}};
constexpr AaEntry kFull[] = {{Ui(137), 0},        {Word("2x"), 0},          {Word("Quincunx"), 0},
                             {Word("4x"), 0},     {Word("4x 9-tap"), 5000}, {Word("4xS"), 5000},
                             {Word("6xS"), 5000}, {Word("8xS"), 5000},      {Word("8x"), 5000},
                             {Word("16x"), 6000}};
constexpr AaEntry kSli[] = {{Ui(137), 0},          {Word("SLI 4x"), 0},  {Word("SLI 4xQ"), 0},
                            {Word("SLI 8x"), 0},   {Word("SLI 8xG"), 0}, {Word("SLI 8xS"), 0},
                            {Word("SLI 12xS"), 0}, {Word("SLI 16x"), 0}, {Word("SLI 32x"), 0}};

constexpr AaClass kAaClasses[] = {{"0", kNone, kNone},
                                  {"4", kOrdered, kOrdered},
                                  {"q", kQuincunx, kQuincunx},
                                  {"8", kFull, kSli}};

/// An anisotropic entry and the lowest level of a card that offers it.
struct AnisoEntry {
  ShownText text;
  int level;
};
constexpr AnisoEntry kAnisoEntries[] = {{Ui(137), 0},    {Ui(135), 2},    {Word("2x"), 2},
                                        {Word("4x"), 8}, {Word("8x"), 8}, {Word("16x"), 16}};
constexpr int kAnisoLevelsOfCards[] = {0, 2, 8, 16};
/// The OpenGL list has the bilinear entry above this release alone.
constexpr int kLastDriverWithoutBilinear = 5000;
constexpr int kBilinearText = 135;

constexpr std::string_view kResolutions[] = {"640x480",  "800x600",   "1024x768",
                                             "1152x864", "1280x1024", "1600x1200"};

std::vector<std::string> CountItems(int first) {
  std::vector<std::string> items;
  for (int count = first; count <= d3d::kLastCount; ++count) items.push_back(std::to_string(count));
  return items;
}

template <typename C>
void FillCatalogueLists(const d3d::Catalogue<C>& catalogue, const C& controls, int driver,
                        const lang::LangTable& lang_text) {
  for (const auto& row : catalogue.choices) {
    (controls.*row.combo)->SetItems(ListOf(row.choices, driver, lang_text));
    if (row.twin != nullptr) {
      (controls.*row.twin)->SetItems(ListOf(row.choices, driver, lang_text));
    }
  }
  for (const auto& row : catalogue.counts) {
    (controls.*row.combo)->SetItems(CountItems(row.first));
  }
}

}  // namespace

std::vector<std::string> OptionLists::AnisotropicItems(bool for_opengl) {
  // A card that isn't listed counts as one without anisotropic filtering.
  const int level = core::ParseInt32(cards_.GetCardData("af", false)).value_or(0);
  std::vector<std::string> items;
  if (std::find(std::begin(kAnisoLevelsOfCards), std::end(kAnisoLevelsOfCards), level) ==
      std::end(kAnisoLevelsOfCards)) {
    return items;
  }
  for (const AnisoEntry& entry : kAnisoEntries) {
    const bool left_out = for_opengl && entry.text.number == kBilinearText &&
                          versions_.DrvVer <= kLastDriverWithoutBilinear;
    if (entry.level <= level && !left_out) items.push_back(entry.text.In(LangText));
  }
  return items;
}

std::vector<std::string> OptionLists::AntialiasingItems() {
  std::vector<std::string> items;
  if (versions_.DrvVer > d3d::kFirstSharedDriver) items.push_back(LangText[145]);
  const std::string name = cards_.GetCardData("aa", false);
  for (const AaClass& each : kAaClasses) {
    if (each.name != name) continue;
    for (const AaEntry& entry : direct3d_.SliAaOn == 1 ? each.sli_entries : each.entries) {
      if (entry.above_driver == 0 || versions_.DrvVer > entry.above_driver) {
        items.push_back(entry.text.In(LangText));
      }
    }
  }
  return items;
}

void OptionLists::FillCapabilityLists() {
  const d3d::Direct3DControls& controls = direct3d_controls_;
  controls.opengl_anisotropic->SetItems(AnisotropicItems(true));
  controls.anisotropic->SetItems(AnisotropicItems(false));
  const std::vector<std::string> modes = AntialiasingItems();
  controls.opengl_mode->SetItems(modes);
  controls.mode->SetItems(modes);

  const bool has_transparency = adapter_.IsOneOf({"009"}, {"00F5"});
  for (controls::Control* control :
       {static_cast<controls::Control*>(controls.transparency_label),
        static_cast<controls::Control*>(controls.transparency),
        static_cast<controls::Control*>(controls.gamma),
        static_cast<controls::Control*>(controls.opengl_transparency_label),
        static_cast<controls::Control*>(controls.opengl_transparency),
        static_cast<controls::Control*>(controls.opengl_gamma)}) {
    control->SetEnabled(has_transparency);
  }
}

void OptionLists::FillOptionLists() {
  FillCapabilityLists();
  if (program_.IsStart != 1) return;
  FillCatalogueLists(d3d::kDirect3DCatalogue, direct3d_controls_, versions_.DrvVer, LangText);
  FillCatalogueLists(kOpenGLCatalogue, opengl_controls_, versions_.DrvVer, LangText);

  resolutions_->SetItems({std::begin(kResolutions), std::end(kResolutions)});

  std::vector<std::string> overrides = {LangText[180]};
  overrides.insert(overrides.end(), std::begin(kVersions), std::end(kVersions));
  opengl_controls_.version_override->SetItems(std::move(overrides));

  std::vector<std::string> families;
  const bool all = versions_.DrvVer > kFirstEmulationDriver;
  for (const Emulation& each : kEmulations.first(all ? kEmulations.size() : kOldEmulations)) {
    families.push_back(each.text.In(LangText));
  }
  opengl_controls_.emulation->SetItems(std::move(families));

  std::vector<std::string> kinds;
  for (const ShownText& text : d3d::kTransparencyTexts) kinds.push_back(text.In(LangText));
  direct3d_controls_.transparency->SetItems(kinds);
  direct3d_controls_.opengl_transparency->SetItems(kinds);
}

}  // namespace kestrune::ogl
