#pragma once

#include "core/options.h"
#include "d3d/d3d.h"
#include "detect/card_data.h"
#include "platform/shell_api.h"

namespace kestrune::d3d {

/// What the multitexturing slider can be set to at all.
inline constexpr int kFewestTextures = 1;
inline constexpr int kMostTextures = 17;

/// Lets the driver report fewer capabilities than the card has or, with an override, more. What is
/// stored above the card's own limit is removed while the override is off. A card that its table
/// doesn't list has no limit. Drivers of the oldest layout have none of this: the pages are
/// disabled, and nothing is written or started.
class CapabilityOverrides {
 public:
  CapabilityOverrides(const Direct3DContext& context, const controls::ControlSet& controls,
                      Direct3DWriter& writer, core::basRegistry& registry, detect::CardData& cards,
                      platform::ShellApi& shell);

  /// Set the pages up from the stored values. Sliders that this moves run their handlers.
  void InitMultitexturePage();
  void InitShaderPage();

 private:
  using Setting = settings::Setting;

  /// The slider of a shader kind with its row, the label that names it, and the table of the cards'
  /// limits.
  struct Shader {
    Shader(const settings::Binding& binding, std::string_view limit_table);

    const Setting& row;
    controls::Slider& slider;
    controls::Label& label;
    std::string_view table;
    std::vector<const settings::Choice*> versions;  ///< by position; the last is the default
  };
  /// A card's highest shader version, times ten, and the slider position that stands for it.
  struct ShaderLimit {
    int version;
    int position;
  };

  void ConnectHandlers();
  void TexturesMoved();
  void OverrideTexturesClicked();
  void OverrideShadersClicked();
  void InitShader(const Shader& shader);
  void RemoveShader(const Shader& shader);
  void ShaderMoved(const Shader& shader);
  std::optional<ShaderLimit> CardLimit(const Shader& shader);
  bool IsPixel(const Shader& shader) const { return &shader == &pixel_; }
  void ShowTextures(std::optional<int> count);
  void OfferApply(controls::Button& button);
  void ApplyClicked(controls::Button& button);
  void Reload();

  Direct3DContext context_;
  Direct3DWriter& writer_;
  core::OwnOptions options_;
  detect::CardData& cards_;
  platform::ShellApi& shell_;
  controls::Frame& multitexture_page_;
  controls::Frame& shader_page_;
  controls::Slider& textures_;
  controls::Label& textures_label_;
  controls::CheckBox& override_textures_;
  controls::CheckBox& override_shaders_;
  controls::Button& apply_textures_;
  controls::Button& apply_shaders_;
  Shader pixel_;
  Shader vertex_;
};

}  // namespace kestrune::d3d
