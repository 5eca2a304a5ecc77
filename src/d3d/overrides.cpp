#include "d3d/overrides.h"

#include <algorithm>

#include "core/number.h"
#include "core/outcome.h"

namespace kestrune::d3d {

using settings::Choice;

namespace texts = lang::texts;

namespace {

constexpr std::int16_t kTexturesCode = 96;
constexpr std::int16_t kTexturesDeleteCode = 33;

constexpr int kDesignTextures = 8;
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

const settings::Binding& BindingOf(const Direct3DContext& context, std::string_view id) {
  return *std::find_if(context.bindings.begin(), context.bindings.end(),
                       [id](const settings::Binding& binding) { return binding.Id() == id; });
}

}  // namespace

CapabilityOverrides::Shader::Shader(const settings::Binding& binding, std::string_view limit_table)
    : row(*binding.setting),
      slider(dynamic_cast<controls::Slider&>(*binding.control)),
      label(dynamic_cast<controls::Label&>(*binding.label)),
      table(limit_table),
      versions(Offered(row, 0)) {}

CapabilityOverrides::CapabilityOverrides(const Direct3DContext& context,
                                         const controls::ControlSet& controls,
                                         Direct3DWriter& writer, core::basRegistry& registry,
                                         detect::CardData& cards, platform::ShellApi& shell)
    : context_(context),
      writer_(writer),
      options_(registry),
      cards_(cards),
      shell_(shell),
      multitexture_page_(controls.Get<controls::Frame>("direct3d.multitexturing")),
      shader_page_(controls.Get<controls::Frame>("direct3d.shaders")),
      textures_(
          controls.Get<controls::Slider>("direct3d.multitexturing.max-simultaneous-textures")),
      textures_label_(
          controls.Get<controls::Label>("direct3d.multitexturing.max-simultaneous-textures-label")),
      override_textures_(controls.Get<controls::CheckBox>(
          "direct3d.multitexturing.override-multitexturing-settings")),
      override_shaders_(
          controls.Get<controls::CheckBox>("direct3d.shaders.override-shaders-settings")),
      apply_textures_(controls.Get<controls::Button>("direct3d.multitexturing.apply-setting-now")),
      apply_shaders_(controls.Get<controls::Button>("direct3d.shaders.apply-settings-now")),
      pixel_(BindingOf(context, "direct3d.shaders.pixel-shader"), "ps"),
      vertex_(BindingOf(context, "direct3d.shaders.vertex-shader"), "vs") {
  ConnectHandlers();
}

void CapabilityOverrides::ConnectHandlers() {
  textures_.on_change = [this] { TexturesMoved(); };
  for (const Shader* shader : {&pixel_, &vertex_}) {
    shader->slider.on_change = [this, shader] { ShaderMoved(*shader); };
  }
  override_textures_.on_change = [this] { OverrideTexturesClicked(); };
  override_shaders_.on_change = [this] { OverrideShadersClicked(); };
  for (controls::Button* button : {&apply_textures_, &apply_shaders_}) {
    button->on_click = [this, button] { ApplyClicked(*button); };
  }
}

void CapabilityOverrides::Reload() {
  core::Ignore(shell_.StartCommand(core::kReloadCommand, platform::WindowState::kMinimised));
}

void CapabilityOverrides::OfferApply(controls::Button& button) {
  if (context_.hardware.program.IsLoading != 1) button.SetEnabled(true);
}

void CapabilityOverrides::ApplyClicked(controls::Button& button) {
  Reload();
  button.SetEnabled(false);
}

void CapabilityOverrides::ShowTextures(std::optional<int> count) {
  textures_label_.SetCaption(
      context_.lang_text[texts::kMaxTextures] +
      (count ? std::to_string(*count) : context_.lang_text[texts::kDefault]));
}

void CapabilityOverrides::InitMultitexturePage() {
  multitexture_page_.SetEnabled(!context_.IsLegacyDriver());
  if (context_.IsLegacyDriver()) return;
  int& stored = context_.state.MaxSimultaneousTextures;
  const std::optional<int> limit = core::ParseInt32(cards_.GetCardData("mt", false));
  override_textures_.Show(options_.Read(core::kOverrideMultiTextureValue).NumberOr(0));
  if (override_textures_.Checked()) {
    textures_.SetRange(kFewestTextures, kMostTextures);
  } else {
    textures_.SetRange(kFewestTextures, limit.value_or(kDesignTextures));
    if (limit && stored != -1 && stored > *limit) {
      writer_.WriteDirect3DSetting(kTexturesDeleteCode, 0);
      Reload();
      stored = -1;
    }
  }
  textures_.PassOn(stored == -1 ? textures_.Maximum() : stored);
  // The slider's own handler may have taken the card's highest count for the driver's default.
  ShowTextures(stored == -1 ? std::nullopt : std::optional<int>(stored));
}

void CapabilityOverrides::TexturesMoved() {
  int& stored = context_.state.MaxSimultaneousTextures;
  stored = textures_.Value();
  if (stored == textures_.Maximum()) {
    stored = -1;
    writer_.WriteDirect3DSetting(kTexturesDeleteCode, 0);
    ShowTextures(std::nullopt);
  } else {
    writer_.WriteDirect3DSetting(kTexturesCode, stored);
    ShowTextures(stored);
  }
  OfferApply(apply_textures_);
}

void CapabilityOverrides::OverrideTexturesClicked() {
  options_.Write(core::kOverrideMultiTextureValue, override_textures_.State());
  InitMultitexturePage();
}

std::optional<CapabilityOverrides::ShaderLimit> CapabilityOverrides::CardLimit(
    const Shader& shader) {
  const std::string version = cards_.GetCardData(std::string(shader.table), true);
  const std::optional<int> position = core::ParseInt32(cards_.CardDataExtra);
  if (version.empty() || !position) return std::nullopt;
  const bool is_old_vertex = !IsPixel(shader) && version == "1.1";
  return ShaderLimit{is_old_vertex ? kOldVertexVersion : VersionTenths(version), *position};
}

void CapabilityOverrides::InitShaderPage() {
  shader_page_.SetEnabled(!context_.IsLegacyDriver());
  if (context_.IsLegacyDriver()) return;
  override_shaders_.Show(options_.Read(core::kOverrideShadersValue).NumberOr(0));
  InitShader(pixel_);
  InitShader(vertex_);
}

void CapabilityOverrides::InitShader(const Shader& shader) {
  const std::optional<ShaderLimit> limit = CardLimit(shader);
  const std::string& version_text = context_.state.VersionText(shader.row);
  const std::string& default_text = context_.lang_text[texts::kEnabled];
  const bool overridden = override_shaders_.Checked();
  shader.slider.SetEnabled(overridden || !limit || limit->version > 0);
  if (overridden) {
    shader.slider.SetRange(0, static_cast<int>(shader.versions.size()) - 1);
  } else {
    shader.slider.SetRange(0, limit ? limit->position : kDesignShaderPosition);
    if (limit && version_text != default_text && VersionTenths(version_text) > limit->version) {
      RemoveShader(shader);
    }
  }
  if (version_text == default_text) {
    shader.slider.PassOn(shader.slider.Maximum());
    return;
  }
  const auto named = [&version_text](const Choice* each) {
    return each->text.word == version_text;
  };
  const auto version = std::find_if(shader.versions.begin(), shader.versions.end(), named);
  if (version == shader.versions.end()) return;
  shader.slider.PassOn(static_cast<int>(version - shader.versions.begin()));
}

void CapabilityOverrides::RemoveShader(const Shader& shader) {
  writer_.WriteDirect3DSetting(shader.versions.back()->call->code, 0);
  // The vertex shader's label then names no version at all.
  const std::string suffix = IsPixel(shader) ? context_.lang_text[texts::kDefault] : std::string();
  shader.label.SetCaption(shader.row.prefix.In(context_.lang_text) + suffix);
  Reload();
  context_.state.VersionText(shader.row) = context_.lang_text[texts::kEnabled];
}

void CapabilityOverrides::ShaderMoved(const Shader& shader) {
  const int position = shader.slider.Value();
  const int default_position = static_cast<int>(shader.versions.size()) - 1;
  const std::string prefix = shader.row.prefix.In(context_.lang_text);
  std::string& version_text = context_.state.VersionText(shader.row);
  if (position > 0 && (position == shader.slider.Maximum() || position == default_position)) {
    writer_.WriteDirect3DSetting(shader.versions.back()->call->code, 0);
    shader.label.SetCaption(prefix + context_.lang_text[texts::kDefault]);
    version_text = context_.lang_text[texts::kEnabled];
  } else if (position < default_position) {
    const Choice& version = *shader.versions[static_cast<std::size_t>(position)];
    writer_.WriteDirect3DSetting(version.call->code, 0);
    version_text = version.text.word;
    shader.label.SetCaption(prefix +
                            (position == 0 ? context_.lang_text[texts::kDisabled] : version_text));
  }
  OfferApply(apply_shaders_);
}

void CapabilityOverrides::OverrideShadersClicked() {
  options_.Write(core::kOverrideShadersValue, override_shaders_.State());
  InitShaderPage();
}

}  // namespace kestrune::d3d
