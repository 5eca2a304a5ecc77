#include "ui/forms/form.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kestrune::forms {

namespace {

using controls::Control;

std::unique_ptr<Control> MakeCheck(const ControlSpec& spec, std::string id, Control* parent) {
  auto box = std::make_unique<controls::CheckBox>(std::move(id), parent);
  box->Show(spec.value);
  return box;
}

std::unique_ptr<Control> MakeOption(const ControlSpec& spec, std::string id, Control* parent) {
  auto option = std::make_unique<controls::OptionButton>(std::move(id), parent);
  option->Show(spec.value == 1);
  return option;
}

std::unique_ptr<Control> MakeCombo(const ControlSpec& spec, std::string id, Control* parent) {
  auto combo = std::make_unique<controls::ComboBox>(std::move(id), parent);
  combo->SetTakesTyping(spec.kind == Kind::kEditableCombo);
  combo->ShowText(std::string(spec.text));
  return combo;
}

std::unique_ptr<Control> MakeText(const ControlSpec& spec, std::string id, Control* parent) {
  auto box = std::make_unique<controls::TextBox>(std::move(id), parent);
  box->ShowText(std::string(spec.text));
  return box;
}

std::unique_ptr<Control> MakeSlider(const ControlSpec& spec, std::string id, Control* parent) {
  auto slider = std::make_unique<controls::Slider>(std::move(id), parent);
  slider->SetRange(spec.minimum, spec.maximum);
  slider->Show(spec.value);
  return slider;
}

std::unique_ptr<Control> Make(const ControlSpec& spec, Control* parent) {
  std::string id(spec.id);
  switch (spec.kind) {
    case Kind::kCheck:
      return MakeCheck(spec, std::move(id), parent);
    case Kind::kOption:
      return MakeOption(spec, std::move(id), parent);
    case Kind::kCombo:
    case Kind::kEditableCombo:
      return MakeCombo(spec, std::move(id), parent);
    case Kind::kList:
      return std::make_unique<controls::ListBox>(std::move(id), parent);
    case Kind::kSlider:
      return MakeSlider(spec, std::move(id), parent);
    case Kind::kText:
      return MakeText(spec, std::move(id), parent);
    case Kind::kLabel:
      return std::make_unique<controls::Label>(std::move(id), parent);
    case Kind::kHeading:
      return std::make_unique<controls::Label>(std::move(id), parent,
                                               controls::LabelRole::kHeading);
    case Kind::kButton:
      return std::make_unique<controls::Button>(std::move(id), parent);
    case Kind::kPicture:
      return std::make_unique<controls::PictureBox>(std::move(id), parent);
    case Kind::kFrame:
      return std::make_unique<controls::Frame>(std::move(id), parent);
    case Kind::kKey:
      return std::make_unique<controls::ToolKey>(std::move(id), parent);
    case Kind::kWindow:
      return std::make_unique<controls::Window>(std::move(id), parent);
  }
  std::abort();
}

}  // namespace

void Form::Add(std::span<const ControlSpec> specs) {
  for (const ControlSpec& spec : specs) {
    std::unique_ptr<Control> control = Make(spec, Find(spec.parent));
    control->SetCaption(std::string(spec.caption));
    control->SetBounds(spec.bounds);
    control->SetEnabled(spec.enabled);
    control->SetVisible(spec.visible);
    controls_.push_back(std::move(control));
  }
}

Control* Form::Find(std::string_view id) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [id](const auto& control) { return control->Id() == id; });
  return found == controls_.end() ? nullptr : found->get();
}

void Form::MissingControl(std::string_view id) {
  std::fprintf(stderr, "no control of that kind: %.*s\n", static_cast<int>(id.size()), id.data());
  std::abort();
}

}  // namespace kestrune::forms
