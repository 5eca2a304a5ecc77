#pragma once

#include "d3d/d3d.h"
#include "detect/card_data.h"
#include "platform/shell_api.h"

namespace kestrune::d3d {

/// The slider of a shader kind with the label that names it.
struct ShaderControls {
  controls::Slider* slider;
  controls::Label* label;
};

/// The controls of the multitexturing and shader pages.
struct OverrideControls {
  controls::Frame* multitexture_page;
  controls::Slider* textures;
  controls::Label* textures_label;
  controls::CheckBox* override_textures;
  controls::Button* apply_textures;
  controls::Frame* shader_page;
  ShaderControls pixel;
  ShaderControls vertex;
  controls::CheckBox* override_shaders;
  controls::Button* apply_shaders;
};

/// Lets the driver report fewer capabilities than the card has or, with an override, more. What is
/// stored above the card's own limit is removed while the override is off. A card that its table
/// doesn't list has no limit. Drivers of the oldest layout have none of this: the pages are
/// disabled, and nothing is written or started.
class CapabilityOverrides {
 public:
  CapabilityOverrides(const Direct3DContext& context, Direct3DWriter& writer,
                      core::basRegistry& registry, detect::CardData& cards,
                      platform::ShellApi& shell, const OverrideControls& controls)
      : context_(context),
        writer_(writer),
        registry_(registry),
        cards_(cards),
        shell_(shell),
        controls_(controls) {}

  /// Set the pages up from the stored values. Sliders that this moves run their handlers.
  void InitMultitexturePage();
  void InitShaderPage();

  /// The handlers of the pages' controls.
  void TexturesMoved();
  void PixelShaderMoved() { ShaderMoved(kPixelShaderRow, controls_.pixel, PixelText()); }
  void VertexShaderMoved() { ShaderMoved(kVertexShaderRow, controls_.vertex, VertexText()); }
  void OverrideTexturesClicked();
  void OverrideShadersClicked();
  /// Makes the driver reload its values, once for each time the button was enabled.
  void ApplyClicked(controls::Button& button);

 private:
  /// A card's highest shader version, times ten, and the slider position that stands for it.
  struct ShaderLimit {
    int version;
    int position;
  };
  std::optional<ShaderLimit> CardLimit(const std::string& table, bool is_vertex);
  void InitShader(const ShaderRow& row, const ShaderControls& controls, std::string& version_text,
                  const std::optional<ShaderLimit>& limit);
  void RemoveShader(const ShaderRow& row, controls::Label& label, std::string& version_text);
  void ShaderMoved(const ShaderRow& row, const ShaderControls& controls, std::string& version_text);
  void ShowTextures(std::optional<int> count);
  int ReadOption(std::string_view name);
  void StoreOption(std::string_view name, const controls::CheckBox& box);
  void OfferApply(controls::Button& button);
  void Reload();
  std::string& PixelText() { return context_.state.PixelShaderVersionText; }
  std::string& VertexText() { return context_.state.VertexShaderVersionText; }

  Direct3DContext context_;
  Direct3DWriter& writer_;
  core::basRegistry& registry_;
  detect::CardData& cards_;
  platform::ShellApi& shell_;
  OverrideControls controls_;
};

}  // namespace kestrune::d3d
