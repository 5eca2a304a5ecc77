#include "ui/forms/driver_settings.h"

namespace kestrune::forms {

using settings::Binding;
using settings::Choice;
using settings::Setting;
using settings::Shape;
using settings::Special;
using settings::Writer;

DriverSettings::DriverSettings(const Shared& shared)
    : LangText(shared.LangText()),
      hardware_(shared.hardware),
      direct3d_bindings_(Bind(d3d::kDirect3DSettings, shared.controls)),
      opengl_bindings_(Bind(ogl::kOpenGLSettings, shared.controls)),
      direct3d_key_(shared.registry, shared.versions, shared.adapter, "\\NVidia\\Direct3D", ""),
      opengl_key_(shared.registry, shared.versions, shared.adapter, "\\NVidia\\OpenGL", "OGL_"),
      direct3d_context_{direct3d_key_, hardware_, LangText, direct3d_bindings_, direct3d_state_},
      direct3d_reader_(direct3d_context_, shared.controls),
      direct3d_writer_(direct3d_context_, shared.controls),
      opengl_context_{opengl_key_,
                      hardware_,
                      LangText,
                      opengl_bindings_,
                      [this] { direct3d_reader_.ReadDirect3DSettings(); },
                      [this](int code) { WriteDirect3D(code); }},
      opengl_reader_(opengl_context_, shared.controls),
      opengl_writer_(opengl_context_),
      lists_(shared.cards, hardware_, direct3d_state_, LangText, direct3d_bindings_,
             opengl_bindings_) {
  for (const Binding& binding : direct3d_bindings_) Connect(binding);
  for (const Binding& binding : opengl_bindings_) Connect(binding);
}

void DriverSettings::Read() {
  direct3d_reader_.ReadDirect3DSettings();
  opengl_reader_.ReadOpenGLSettings();
}

void DriverSettings::WriteOpenGL(const settings::Call& call) {
  if (call.through == Writer::kDirect3D) {
    WriteDirect3D(call.code);
  } else {
    WriteOpenGL(call.code, call.argument.value_or(0));
  }
}

void DriverSettings::Write(const Setting& row, const Choice& choice) {
  if (!choice.call) return;
  if (row.writer == Writer::kDirect3D) {
    WriteDirect3D(choice.call->code, choice.call->argument.value_or(0));
  } else {
    WriteOpenGL(*choice.call);
  }
}

void DriverSettings::WriteNumber(const Setting& row, std::int32_t number) {
  if (!row.number_code) return;
  if (row.writer == Writer::kDirect3D) {
    WriteDirect3D(*row.number_code, number);
  } else {
    WriteOpenGL(*row.number_code, number);
  }
}

void DriverSettings::ShowNoModeFlags() {
  for (const Binding& binding : direct3d_bindings_) {
    if (binding.setting->special != Special::kModeFlags) continue;
    ShowNumber(binding, *binding.setting, 0, LangText);
  }
}

void DriverSettings::Connect(const Binding& binding) {
  for (controls::Control* control : binding.Controls()) Connect(binding, *control);
}

void DriverSettings::Connect(const Binding& binding, controls::Control& control) {
  const Setting& newest = *binding.setting;
  if (auto* box = dynamic_cast<controls::CheckBox*>(&control)) {
    box->on_change = Guarded([this, &newest, box] { BoxChanged(newest, *box); });
  } else if (auto* option = dynamic_cast<controls::OptionButton*>(&control)) {
    option->on_click = Guarded([this, &newest] { Write(newest, newest.choices.front()); });
  } else if (auto* slider = dynamic_cast<controls::Slider*>(&control)) {
    slider->on_change = Guarded([this, &newest, slider] { WriteNumber(newest, slider->Value()); });
  } else if (auto* combo = dynamic_cast<controls::ComboBox*>(&control)) {
    combo->on_change =
        Guarded([this, &binding, combo](controls::ComboChange) { ComboChanged(binding, *combo); });
    combo->knows = [this, &newest](const std::string& text) {
      return settings::FindChoice(newest, text, LangText) != nullptr;
    };
  }
}

void DriverSettings::BoxChanged(const Setting& newest, const controls::CheckBox& box) {
  const Setting& row = hardware_.RowOf(newest);
  const settings::ShownText state = box.Checked() ? settings::kOn : settings::kOff;
  for (const Choice& choice : row.choices) {
    if (choice.text == state) Write(row, choice);
  }
}

void DriverSettings::ComboChanged(const Binding& binding, const controls::ComboBox& combo) {
  if (combo.Position() < 0) return;
  const Setting& row = hardware_.RowOf(*binding.setting);
  if (row.shape == Shape::kCount) {
    WriteNumber(row, combo.Position() + row.first);
    return;
  }
  const std::vector<const Choice*> offered = Offered(row, hardware_.versions.DrvVer);
  const auto position = static_cast<std::size_t>(combo.Position());
  if (position >= offered.size()) return;
  Write(row, *offered[position]);
  // Whatever the driver took, both pages show one choice.
  for (controls::Control* each : binding.Controls()) {
    dynamic_cast<controls::ComboBox&>(*each).ShowText(combo.Text());
  }
}

const Choice* DriverSettings::FindChoice(std::string_view id, std::string_view text) const {
  for (const std::vector<Binding>* bindings : {&direct3d_bindings_, &opengl_bindings_}) {
    for (const Binding& binding : *bindings) {
      if (binding.Id() == id) return settings::FindChoice(*binding.setting, text, LangText);
    }
  }
  return nullptr;
}

}  // namespace kestrune::forms
