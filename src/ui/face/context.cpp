#include "ui/face/context.h"

#include "core/outcome.h"

namespace kestrune::face {

void Context::Act(const controls::Control& control, const std::function<bool()>& act) {
  core::Ignore(gate_.Act(control, act));
  AfterAct();
}

void Context::Press(controls::Control& control) {
  Act(control, [&control] {
    control.Click();
    return true;
  });
}

void Context::UseText(controls::ComboBox& combo, const std::string& text) {
  if (combo.ItemFor(text) < 0 && !(combo.knows && combo.knows(text))) return;
  Act(combo, [&] { return combo.UseText(text) != controls::TextUse::kRefused; });
}

void Context::Use(const controls::Shortcut& shortcut) {
  core::Ignore(gate_.Act(shortcut));
  AfterAct();
}

void Context::Hover(controls::Control& control) {
  if (!control.on_hover || (panel_ && panel_->Silences(control))) return;
  const bool was_hovering = std::exchange(hovering_, true);
  control.Hover();
  AfterAct();
  hovering_ = was_hovering;
}

void Context::Focused(controls::Control& control, bool by_keyboard) {
  if (panel_) panel_->Focused(control);
  controls::Control* cares = by_keyboard ? &control : nullptr;
  while (cares != nullptr && !cares->on_hover) cares = cares->Parent();
  if (cares != nullptr) Hover(*cares);
}

std::string Context::TitleOf(const controls::Window& window) const {
  if (window.Owner() != nullptr || machine_title_.empty()) return window.Caption();
  return window.Caption() + " - " + machine_title_;
}

void Context::AfterAct() const {
  if (after_act_) after_act_();
}

}  // namespace kestrune::face
