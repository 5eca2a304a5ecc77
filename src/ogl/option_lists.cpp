#include "ogl/option_lists.h"

#include <algorithm>

#include "core/number.h"
#include "ogl/card_levels.h"

namespace kestrune::ogl {

using settings::Binding;
using settings::Choice;
using settings::Setting;
using settings::Shape;
using settings::Special;

namespace {

void ShowItems(const Binding& binding, const std::vector<std::string>& items) {
  for (controls::Control* control : binding.Controls()) {
    dynamic_cast<controls::ComboBox&>(*control).SetItems(items);
  }
}

}  // namespace

void OptionLists::FillModes(const Binding& binding) {
  const std::string name = cards_.GetCardData("aa", false);
  const auto found = std::find(std::begin(kAaLevels), std::end(kAaLevels), name);
  const int level = found == std::end(kAaLevels) ? settings::kAnyCard
                                                 : static_cast<int>(found - std::begin(kAaLevels));
  const bool joined = direct3d_.SliAaOn == 1 && level == d3d::kFullAntialiasing;
  if (!joined) {
    FillList(binding, Offered(*binding.setting, hardware_.versions.DrvVer, level), LangText);
    return;
  }
  // Two cards that join have their modes under other names, whatever the driver.
  std::vector<std::string> items;
  for (const Choice* choice : Offered(*binding.setting, hardware_.versions.DrvVer, 0)) {
    items.push_back(choice->text.In(LangText));
  }
  for (const Choice& choice : binding.setting->choices) {
    if (!choice.also.empty()) items.emplace_back(choice.also);
  }
  ShowItems(binding, items);
}

void OptionLists::FillAnisotropy(const Binding& binding) {
  // A card that isn't listed counts as one without anisotropic filtering.
  const int level = core::ParseInt32(cards_.GetCardData("af", false)).value_or(0);
  const bool is_known =
      std::find(std::begin(kAnisoLevels), std::end(kAnisoLevels), level) != std::end(kAnisoLevels);
  FillList(
      binding,
      Offered(*binding.setting, hardware_.versions.DrvVer, is_known ? level : settings::kAnyCard),
      LangText);
}

void OptionLists::FillCapabilityLists() {
  const auto each = [this](Special special, auto fill) {
    for (const auto& bindings : bindings_) {
      for (const Binding& binding : bindings) {
        if (binding.setting->special == special) fill(binding);
      }
    }
  };
  each(Special::kAnisotropy, [this](const Binding& binding) { FillAnisotropy(binding); });
  each(Special::kMode, [this](const Binding& binding) { FillModes(binding); });
  each(Special::kModeFlags, [this](const Binding& binding) { ApplyNeeds(binding, hardware_); });
}

void OptionLists::FillFixed(const Binding& binding) {
  const Setting& row = hardware_.RowOf(*binding.setting);
  const Special special = binding.setting->special;
  const bool depends_on_card = special == Special::kMode || special == Special::kAnisotropy;
  if (row.shape == Shape::kList && !depends_on_card) {
    FillList(binding, Offered(row, hardware_.versions.DrvVer), LangText);
  } else if (row.shape == Shape::kCount) {
    std::vector<std::string> items;
    for (int count = row.first; count <= settings::kLastCount; ++count) {
      items.push_back(std::to_string(count));
    }
    ShowItems(binding, items);
  }
}

void OptionLists::FillOptionLists() {
  FillCapabilityLists();
  if (hardware_.program.IsStart != 1) return;
  for (const auto& bindings : bindings_) {
    for (const Binding& binding : bindings) FillFixed(binding);
  }
}

}  // namespace kestrune::ogl
