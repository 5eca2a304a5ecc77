#include "ogl/ogldet.h"

#include <algorithm>

namespace kestrune::ogl {

using settings::Binding;
using settings::Place;
using settings::Setting;
using settings::Shape;
using settings::Special;

CompositeControls::CompositeControls(const controls::ControlSet& controls)
    : s3tc(controls.Get<controls::CheckBox>("opengl.misc.enable-s3tc-texture-compression")),
      no_dxt1_dithering(
          controls.Get<controls::CheckBox>("opengl.misc.disable-dithering-for-dxt1-textures")),
      manual_trilinear(controls.Get<controls::CheckBox>(
          "opengl.filtering.manual-intellisample-trilinear-configuration")),
      trilinear_quality(controls.Get<controls::Slider>("opengl.filtering.trilinear-quality")),
      trilinear_quality_label(
          controls.Get<controls::Label>("opengl.filtering.trilinear-quality-label")),
      manual_compression(controls.Get<controls::CheckBox>(
          "opengl.filtering.manual-intellisample-texture-compression-configuration")),
      compression_by_application(controls.Get<controls::OptionButton>(
          "opengl.filtering.texture-compression-by-application")),
      compression_enabled(
          controls.Get<controls::OptionButton>("opengl.filtering.texture-compression-enabled")) {}

void OpenGLReader::ReadOpenGLSettings() {
  const platform::ReadScope reading = context_.key.Reading();
  context_.key.SetBinary(context_.key.StoredAsBinary());
  for (const Binding& binding : context_.bindings) Show(binding);
  if (!context_.IsWindows9x() && context_.HasSharedValues()) context_.read_direct3d();
}

void OpenGLReader::Show(const Binding& binding) {
  const Setting& row = context_.hardware.RowOf(*binding.setting);
  switch (row.special) {
    case Special::kMode:
      // The Direct3D reader shows the shared values.
      return;
    case Special::kAnisotropy:
      if (context_.HasSharedValues() || context_.IsWindows9x()) return;
      ShowNumber(binding, row, Read(row), context_.lang_text);
      return;
    case Special::kS3tc:
      if (binding.control == &controls_.s3tc) ShowS3tc(binding);
      return;
    case Special::kTrilinearQuality:
      if (row.shape == Shape::kSlider) ShowTrilinearQuality(binding);
      return;
    case Special::kCompression:
      if (row.shape == Shape::kBox) ShowCompression(binding);
      return;
    case Special::kOldEmulation:
      ShowOldEmulation(binding, row);
      return;
    default:
      ShowNumber(binding, row, Read(row), context_.lang_text);
      ApplyNeeds(binding, context_.hardware);
  }
}

void OpenGLReader::ShowS3tc(const Binding& binding) {
  const std::int32_t bits = Read(*binding.setting).value_or(0);
  if (bits < 0 || bits > (kS3tcEnabled | kS3tcNoDithering)) return;
  controls_.s3tc.Show((bits & kS3tcEnabled) != 0 ? 1 : 0);
  controls_.no_dxt1_dithering.Show((bits & kS3tcNoDithering) != 0 ? 1 : 0);
}

void OpenGLReader::ShowTrilinearQuality(const Binding& binding) {
  constexpr std::int32_t kNotSet = -1;
  std::int32_t number = Read(*binding.setting).value_or(kNotSet);
  if (number > kHighestTrilinear) number = 0;
  const bool is_set = number != kNotSet;
  controls_.manual_trilinear.Show(is_set ? 1 : 0);
  controls_.trilinear_quality_label.SetEnabled(is_set);
  controls_.trilinear_quality.SetEnabled(is_set);
  if (is_set) controls_.trilinear_quality.Show(number);
  controls_.trilinear_quality_label.SetCaption(TrilinearCaption(number, context_.lang_text));
}

void OpenGLReader::ShowCompression(const Binding& binding) {
  const std::optional<std::int32_t> number = Read(*binding.setting);
  bool is_set = false;
  for (const Binding& option : context_.bindings) {
    if (option.setting->special != Special::kCompression) continue;
    if (option.setting->shape != Shape::kOption) continue;
    if (option.setting->choices.front().number != number) continue;
    dynamic_cast<controls::OptionButton&>(*option.control).Show(true);
    is_set = true;
  }
  controls_.manual_compression.Show(is_set ? 1 : 0);
  controls_.compression_by_application.SetEnabled(is_set);
  controls_.compression_enabled.SetEnabled(is_set);
}

void OpenGLReader::ShowOldEmulation(const Binding& binding, const Setting& row) {
  const auto read = [this](std::string_view name) {
    return context_.key.Read(name, Place::kSettings).value_or(0);
  };
  auto& combo = dynamic_cast<controls::ComboBox&>(*binding.control);
  for (const OldEmulationRead& each : kOldEmulationReads) {
    if (read(each.name) != each.number) continue;
    combo.ShowText(row.choices[each.family].text.In(context_.lang_text));
    return;
  }
  const bool is_off = std::all_of(std::begin(kOldEmulationValues), std::end(kOldEmulationValues),
                                  [&read](std::string_view name) { return read(name) == 0; });
  combo.ShowText(is_off ? row.choices.front().text.In(context_.lang_text)
                        : context_.lang_text[lang::texts::kUnknown]);
}

}  // namespace kestrune::ogl
