#include "settings/binding.h"

namespace kestrune::settings {

namespace {

using controls::CheckBox;
using controls::ComboBox;
using controls::Control;
using controls::Slider;

template <typename T>
T& As(Control* control) {
  return dynamic_cast<T&>(*control);
}

void ShowState(const Binding& binding, int state) {
  for (Control* control : binding.Controls()) As<CheckBox>(control).Show(state);
}

void ShowText(const Binding& binding, const std::string& text) {
  for (Control* control : binding.Controls()) As<ComboBox>(control).ShowText(text);
}

void ShowBox(const Binding& binding, const Setting& row, std::optional<std::int32_t> number) {
  if (const Choice* choice = ShownChoice(row, number)) {
    ShowState(binding, choice->text == kOn ? 1 : 0);
  } else if (row.otherwise == Otherwise::kText) {
    ShowState(binding, row.otherwise_text == kOn ? 1 : 0);
  } else if (row.otherwise == Otherwise::kState) {
    ShowState(binding, number.value_or(row.not_set.value_or(0)));
  }
}

void ShowList(const Binding& binding, const Setting& row, std::optional<std::int32_t> number,
              const lang::LangTable& lang_text) {
  if (const Choice* choice = ShownChoice(row, number)) {
    ShowText(binding, choice->text.In(lang_text));
  } else if (row.otherwise == Otherwise::kText) {
    ShowText(binding, row.otherwise_text.In(lang_text));
  }
}

void ShowSlider(const Binding& binding, const Setting& row, std::optional<std::int32_t> number,
                const lang::LangTable& lang_text) {
  if (!number) number = row.not_set;
  if (number) As<Slider>(binding.control).Show(*number);
  const std::string shown = number ? std::to_string(*number) : "";
  binding.label->SetCaption(row.prefix.In(lang_text) + shown);
}

}  // namespace

std::vector<Control*> Binding::Controls() const {
  if (twin == nullptr) return {control};
  return {control, twin};
}

std::vector<Binding> Bind(std::span<const Setting> settings, const controls::ControlSet& controls) {
  std::vector<Binding> bindings;
  bindings.reserve(settings.size());
  const auto find = [&controls](std::string_view id) {
    return id.empty() ? nullptr : &controls.Get<Control>(id);
  };
  for (const Setting& setting : settings) {
    bindings.push_back({&setting, find(setting.id), find(setting.twin), find(setting.label),
                        find(setting.twin_label)});
  }
  return bindings;
}

void ShowNumber(const Binding& binding, const Setting& row, std::optional<std::int32_t> number,
                const lang::LangTable& lang_text) {
  switch (row.shape) {
    case Shape::kBox:
    case Shape::kOption:
      ShowBox(binding, row, number);
      break;
    case Shape::kList:
      ShowList(binding, row, number, lang_text);
      break;
    case Shape::kCount:
      ShowText(binding, std::to_string(number.value_or(row.not_set.value_or(0))));
      break;
    case Shape::kSlider:
      ShowSlider(binding, row, number, lang_text);
      break;
  }
}

void ShowStored(const Binding& binding, const CodeMatch& match, std::int32_t argument,
                const lang::LangTable& lang_text) {
  if (match.row->shape == Shape::kSlider && binding.label != nullptr) {
    binding.label->SetCaption(match.row->prefix.In(lang_text) + std::to_string(argument));
  } else if (match.row->shape == Shape::kList && binding.twin != nullptr) {
    ShowText(binding, match.choice->text.In(lang_text));
  }
}

void ApplyNeeds(const Binding& binding, const Hardware& hardware) {
  const bool enabled = hardware.Meets(binding.setting->needs);
  for (Control* control : {binding.control, binding.twin, binding.label, binding.twin_label}) {
    if (control != nullptr) control->SetEnabled(enabled);
  }
  if (!enabled && binding.setting->cleared_without) ShowState(binding, 0);
}

void FillList(const Binding& binding, const std::vector<const Choice*>& offered,
              const lang::LangTable& lang_text) {
  std::vector<std::string> items;
  items.reserve(offered.size());
  for (const Choice* choice : offered) items.push_back(choice->text.In(lang_text));
  for (Control* control : binding.Controls()) As<ComboBox>(control).SetItems(items);
}

}  // namespace kestrune::settings
