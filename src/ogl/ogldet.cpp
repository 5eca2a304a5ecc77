#include "ogl/ogldet.h"

#include <algorithm>

namespace kestrune::ogl {

using d3d::Place;
using d3d::Ui;

void OpenGLReader::ReadOpenGLSettings() {
  const platform::ReadScope reading = context_.key.Reading();
  context_.key.SetBinary(context_.key.StoredAsBinary());
  const OpenGLControls& controls = context_.controls;

  if (!context_.HasSharedValues()) ReadAntialiasing();
  ReadS3tc();
  ReadTrilinearQuality();
  ReadTextureCompression();
  ReadVersionOverride();
  if (context_.versions.DrvVer >= kFirstEmulationDriver) {
    ReadEmulation();
  } else {
    ReadOldEmulation();
  }
  d3d::CatalogueReader reader(
      controls, context_.lang_text,
      [this](std::string_view name, Place place) { return context_.key.Read(name, place); });
  reader.Show(kOpenGLCatalogue);
  const bool has_glsl = context_.versions.DrvVer >= kFirstGlslDriver;
  controls.nv4x_glsl->SetEnabled(has_glsl);
  if (!has_glsl) controls.nv4x_glsl->Show(0);

  if (context_.versions.OSFamily == detect::kWindows9x) return;
  if (context_.HasSharedValues()) {
    context_.read_direct3d();
  } else {
    ReadAnisotropy();
  }
}

void OpenGLReader::ReadAntialiasing() {
  const std::int32_t number = Read(kAaValue).value_or(0);
  std::string text = Text(Ui(183));
  for (const AaNumber& row : kAaNumbers) {
    if (row.number == number) text = Text(row.text);
  }
  context_.controls.opengl_mode->ShowText(text);
}

void OpenGLReader::ReadS3tc() {
  const std::int32_t bits = Read(kS3tcValue).value_or(0);
  if (bits < 0 || bits > (kS3tcEnabled | kS3tcNoDithering)) return;
  context_.controls.s3tc->Show((bits & kS3tcEnabled) != 0 ? 1 : 0);
  context_.controls.no_dxt1_dithering->Show((bits & kS3tcNoDithering) != 0 ? 1 : 0);
}

void OpenGLReader::ReadTrilinearQuality() {
  const OpenGLControls& controls = context_.controls;
  constexpr std::int32_t kNotSet = -1;
  std::int32_t number = Read(kTrilinearValue).value_or(kNotSet);
  if (number > kHighestTrilinear) number = 0;
  const bool is_set = number != kNotSet;
  controls.manual_trilinear->Show(is_set ? 1 : 0);
  controls.trilinear_quality_label->SetEnabled(is_set);
  controls.trilinear_quality->SetEnabled(is_set);
  if (is_set) controls.trilinear_quality->Show(number);
  controls.trilinear_quality_label->SetCaption(TrilinearCaption(number, context_.lang_text));
}

void OpenGLReader::ReadTextureCompression() {
  const OpenGLControls& controls = context_.controls;
  const std::int32_t number = Read(kCompressionValue).value_or(0);
  const bool is_set = number == kCompressionByApplication || number == kCompressionEnabled;
  controls.manual_compression->Show(is_set ? 1 : 0);
  controls.compression_by_application->SetEnabled(is_set);
  controls.compression_enabled->SetEnabled(is_set);
  if (number == kCompressionByApplication) controls.compression_by_application->Show(true);
  if (number == kCompressionEnabled) controls.compression_enabled->Show(true);
}

void OpenGLReader::ReadVersionOverride() {
  controls::ComboBox& combo = *context_.controls.version_override;
  constexpr std::int32_t kNotSet = -1;
  const std::int32_t number = Read(kVersionValue).value_or(kNotSet);
  if (number == kNotSet) combo.ShowText(Text(Ui(180)));
  for (const std::string_view version : kVersions) {
    if (number == PackedVersion(version)) combo.ShowText(std::string(version));
  }
}

void OpenGLReader::ReadEmulation() {
  const std::int32_t number = Read(kEmulationValue).value_or(0);
  std::string text = Text(Ui(183));
  for (const Emulation& emulation : kEmulations) {
    if (emulation.number == number) text = Text(emulation.text);
  }
  context_.controls.emulation->ShowText(text);
}

void OpenGLReader::ReadOldEmulation() {
  controls::ComboBox& combo = *context_.controls.emulation;
  for (const OldEmulationRead& row : kOldEmulationReads) {
    if (Read(row.name).value_or(0) != row.number) continue;
    combo.ShowText(Text(kEmulations[row.emulation].text));
    return;
  }
  const bool off =
      std::all_of(std::begin(kOldEmulationValues), std::end(kOldEmulationValues),
                  [this](std::string_view name) { return Read(name).value_or(0) == 0; });
  combo.ShowText(Text(off ? kEmulations[0].text : Ui(183)));
}

void OpenGLReader::ReadAnisotropy() {
  const std::int32_t number =
      context_.key.Read(kAnisoValue, Place::kDriverKey).value_or(kAnisoNumbers[0].number);
  std::string_view text = kAnisoOffText;
  for (const AnisoNumber& row : kAnisoNumbers) {
    if (row.number == number) text = row.text;
  }
  context_.controls.opengl_anisotropic->ShowText(std::string(text));
}

}  // namespace kestrune::ogl
