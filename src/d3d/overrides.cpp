#include "d3d/overrides.h"

#include "core/number.h"
#include "core/options.h"
#include "core/outcome.h"

namespace kestrune::d3d {

namespace {

constexpr int kFewestTextures = 1;
constexpr int kDesignTextures = 8;
constexpr int kOverrideTextures = 17;
constexpr int kDesignShaderPosition = 8;

/// Shader versions in tenths; whatever isn't listed counts as the highest.
struct VersionNumber {
  std::string_view name;
  int tenths;
};
constexpr VersionNumber kVersionNumbers[] = {
    {"0.0", 0}, {"1.1", 11}, {"1.3", 13}, {"1.4", 14}, {"2.0", 20}};
constexpr int kHighestVersion = 30;
/// What a card's vertex shader version 1.1 counts as.
constexpr int kOldVertexVersion = 10;

int VersionTenths(std::string_view name) {
  for (const VersionNumber& each : kVersionNumbers) {
    if (each.name == name) return each.tenths;
  }
  return kHighestVersion;
}

}  // namespace

int CapabilityOverrides::ReadOption(std::string_view name) {
  return registry_.ReadRegValue(core::RegRoot::kCurrentUser, core::kOptionsKey, name).NumberOr(0);
}

void CapabilityOverrides::StoreOption(std::string_view name, const controls::CheckBox& box) {
  registry_.WriteAsBinary = 0;
  core::Ignore(
      registry_.WriteRegValue(core::RegRoot::kCurrentUser, core::kOptionsKey, name, box.State()));
}

void CapabilityOverrides::Reload() {
  core::Ignore(shell_.StartCommand(core::kReloadCommand, platform::WindowState::kMinimised));
}

void CapabilityOverrides::OfferApply(controls::Button& button) {
  if (context_.program.IsLoading != 1) button.SetEnabled(true);
}

void CapabilityOverrides::ApplyClicked(controls::Button& button) {
  Reload();
  button.SetEnabled(false);
}

void CapabilityOverrides::ShowTextures(std::optional<int> count) {
  controls_.textures_label->SetCaption(context_.lang_text[165] +
                                       (count ? std::to_string(*count) : context_.lang_text[88]));
}

void CapabilityOverrides::InitMultitexturePage() {
  controls_.multitexture_page->SetEnabled(!context_.IsLegacyDriver());
  if (context_.IsLegacyDriver()) return;
  int& stored = context_.state.MaxSimultaneousTextures;
  const std::optional<int> limit = core::ParseInt32(cards_.GetCardData("mt", false));
  controls_.override_textures->Show(ReadOption(core::kOverrideMultiTextureValue));
  if (controls_.override_textures->Checked()) {
    controls_.textures->SetRange(kFewestTextures, kOverrideTextures);
  } else {
    controls_.textures->SetRange(kFewestTextures, limit.value_or(kDesignTextures));
    if (limit && stored != -1 && stored > *limit) {
      writer_.WriteDirect3DSetting(kMaxTexturesDeleteCode, 0);
      Reload();
      stored = -1;
    }
  }
  const std::optional<int> count = stored == -1 ? std::nullopt : std::optional<int>(stored);
  controls_.textures->PassOn(count.value_or(controls_.textures->Maximum()));
  ShowTextures(count);
}

void CapabilityOverrides::TexturesMoved() {
  int& stored = context_.state.MaxSimultaneousTextures;
  stored = controls_.textures->Value();
  if (stored == controls_.textures->Maximum()) {
    stored = -1;
    writer_.WriteDirect3DSetting(kMaxTexturesDeleteCode, 0);
    ShowTextures(std::nullopt);
  } else {
    writer_.WriteDirect3DSetting(kMaxTexturesCode, stored);
    ShowTextures(stored);
  }
  OfferApply(*controls_.apply_textures);
}

void CapabilityOverrides::OverrideTexturesClicked() {
  StoreOption(core::kOverrideMultiTextureValue, *controls_.override_textures);
  InitMultitexturePage();
}

std::optional<CapabilityOverrides::ShaderLimit> CapabilityOverrides::CardLimit(
    const std::string& table, bool is_vertex) {
  const std::string version = cards_.GetCardData(table, true);
  const std::optional<int> position = core::ParseInt32(cards_.CardDataExtra);
  if (version.empty() || !position) return std::nullopt;
  const int tenths = is_vertex && version == "1.1" ? kOldVertexVersion : VersionTenths(version);
  return ShaderLimit{tenths, *position};
}

void CapabilityOverrides::InitShaderPage() {
  controls_.shader_page->SetEnabled(!context_.IsLegacyDriver());
  if (context_.IsLegacyDriver()) return;
  controls_.override_shaders->Show(ReadOption(core::kOverrideShadersValue));
  InitShader(kPixelShaderRow, controls_.pixel, PixelText(), CardLimit("ps", false));
  InitShader(kVertexShaderRow, controls_.vertex, VertexText(), CardLimit("vs", true));
}

void CapabilityOverrides::InitShader(const ShaderRow& row, const ShaderControls& controls,
                                     std::string& version_text,
                                     const std::optional<ShaderLimit>& limit) {
  const std::string default_text = context_.lang_text[146];
  const bool overridden = controls_.override_shaders->Checked();
  controls.slider->SetEnabled(overridden || !limit || limit->version > 0);
  if (overridden) {
    controls.slider->SetRange(0, row.default_position);
  } else {
    controls.slider->SetRange(0, limit ? limit->position : kDesignShaderPosition);
    if (limit && version_text != default_text && VersionTenths(version_text) > limit->version) {
      RemoveShader(row, *controls.label, version_text);
    }
  }
  if (version_text == default_text) {
    controls.slider->PassOn(controls.slider->Maximum());
    return;
  }
  for (const ShaderVersion& version : row.versions) {
    if (version.name == version_text) controls.slider->PassOn(version.position);
  }
}

void CapabilityOverrides::RemoveShader(const ShaderRow& row, controls::Label& label,
                                       std::string& version_text) {
  writer_.WriteDirect3DSetting(row.delete_code, 0);
  // The vertex shader's label then names no version at all.
  const std::string suffix = &row == &kPixelShaderRow ? context_.lang_text[88] : std::string();
  label.SetCaption(context_.lang_text[row.prefix] + suffix);
  Reload();
  version_text = context_.lang_text[146];
}

void CapabilityOverrides::ShaderMoved(const ShaderRow& row, const ShaderControls& controls,
                                      std::string& version_text) {
  const int position = controls.slider->Value();
  const std::string prefix = context_.lang_text[row.prefix];
  const bool is_default =
      position > 0 && (position == controls.slider->Maximum() || position == row.default_position);
  if (is_default) {
    writer_.WriteDirect3DSetting(row.delete_code, 0);
    controls.label->SetCaption(prefix + context_.lang_text[88]);
    version_text = context_.lang_text[146];
  }
  for (const ShaderVersion& version : row.versions) {
    if (is_default || version.position != position) continue;
    writer_.WriteDirect3DSetting(version.code, 0);
    version_text = version.name;
    controls.label->SetCaption(prefix + (position == 0 ? context_.lang_text[145] : version_text));
  }
  OfferApply(*controls_.apply_shaders);
}

void CapabilityOverrides::OverrideShadersClicked() {
  StoreOption(core::kOverrideShadersValue, *controls_.override_shaders);
  InitShaderPage();
}

}  // namespace kestrune::d3d
