#include "ui/forms/controls_of.h"

namespace kestrune::forms {

namespace {

using controls::Button;
using controls::CheckBox;
using controls::ComboBox;
using controls::Frame;
using controls::Label;
using controls::OptionButton;
using controls::PictureBox;
using controls::Slider;

/// Finds controls by the end of their id, below one page.
class PageOf {
 public:
  PageOf(const MainForm& form, std::string_view page) : form_(form), page_(page) {}

  template <typename T>
  T* Get(std::string_view name) const {
    return &form_.Get<T>(page_ + "." + std::string(name));
  }
  CheckBox* Check(std::string_view name) const { return Get<CheckBox>(name); }
  ComboBox* Combo(std::string_view name) const { return Get<ComboBox>(name); }

 private:
  const MainForm& form_;
  std::string page_;
};

d3d::TwinControls TwinControlsOf(const MainForm& form) {
  const PageOf aa(form, "direct3d.antialiasing");
  const PageOf opengl_aa(form, "opengl.antialiasing");
  const PageOf filtering(form, "direct3d.filtering");
  const PageOf opengl_filtering(form, "opengl.filtering");
  return {
      .mode = aa.Combo("antialiasing-mode"),
      .opengl_mode = opengl_aa.Combo("antialiasing-mode"),
      .transparency = aa.Combo("transparency-antialiasing"),
      .opengl_transparency = opengl_aa.Combo("transparency-antialiasing"),
      .transparency_label = aa.Get<Label>("transparency-antialiasing-label"),
      .opengl_transparency_label = opengl_aa.Get<Label>("transparency-antialiasing-label"),
      .gamma = aa.Check("gamma-correct-antialiasing"),
      .opengl_gamma = opengl_aa.Check("gamma-correct-antialiasing"),
      .sli = aa.Check("enable-sli-antialiasing"),
      .opengl_sli = opengl_aa.Check("enable-sli-antialiasing"),
      .anisotropic = filtering.Combo("anisotropic-filtering"),
      .opengl_anisotropic = opengl_filtering.Combo("anisotropic-filtering"),
      .mipmaps = filtering.Combo("force-mipmaps"),
      .opengl_mipmaps = opengl_filtering.Combo("force-mipmaps"),
  };
}

}  // namespace

d3d::Direct3DControls Direct3DControlsOf(const MainForm& form) {
  const PageOf filtering(form, "direct3d.filtering");
  const PageOf misc(form, "direct3d.misc");
  const PageOf shaders(form, "direct3d.shaders");
  return {
      TwinControlsOf(form),
      filtering.Combo("intellisample-image-settings"),
      filtering.Get<Slider>("texture-lod-bias"),
      filtering.Get<Label>("texture-lod-bias-label"),
      filtering.Check("force-textures-to-low-mip-level"),
      filtering.Check("trilinear-optimization"),
      filtering.Check("aniso-mip-filter-optimization"),
      filtering.Check("aniso-sample-optimization"),
      filtering.Check("disable-mipmap-filtering"),
      filtering.Check("allow-negative-lod-bias"),
      misc.Check("enable-z-buffer-compression"),
      misc.Check("enable-fog-table-emulation"),
      misc.Combo("synchronization-mode"),
      misc.Combo("prerender-limit"),
      shaders.Get<Label>("pixel-shader-label"),
      shaders.Get<Label>("vertex-shader-label"),
  };
}

ogl::OpenGLControls OpenGLControlsOf(const MainForm& form) {
  const PageOf aa(form, "opengl.antialiasing");
  const PageOf filtering(form, "opengl.filtering");
  const PageOf misc(form, "opengl.misc");
  const PageOf compatibility(form, "opengl.compatibility");
  return {
      TwinControlsOf(form),
      aa.Check("texture-sharpening"),
      filtering.Combo("image-settings"),
      filtering.Check("manual-intellisample-trilinear-configuration"),
      filtering.Get<Label>("trilinear-quality-label"),
      filtering.Get<Slider>("trilinear-quality"),
      filtering.Check("manual-intellisample-texture-compression-configuration"),
      filtering.Get<OptionButton>("texture-compression-by-application"),
      filtering.Get<OptionButton>("texture-compression-enabled"),
      filtering.Get<Label>("texture-lod-bias-label"),
      filtering.Get<Slider>("texture-lod-bias"),
      filtering.Check("trilinear-optimization"),
      filtering.Check("aniso-mip-filter-optimization"),
      filtering.Check("aniso-sample-optimization"),
      misc.Check("enable-s3tc-texture-compression"),
      misc.Check("disable-dithering-for-dxt1-textures"),
      misc.Combo("textures-color-depth"),
      misc.Combo("synchronization-mode"),
      misc.Check("triple-buffering"),
      misc.Combo("prerender-limit"),
      compatibility.Combo("opengl-version-override"),
      compatibility.Combo("compatibility-emulation-mode"),
      compatibility.Check("nv4x-glsl-support"),
      compatibility.Check("force-software-rasterization"),
      compatibility.Check("enhanced-cpu-instructions-sets-support"),
  };
}

d3d::PreviewControls PreviewControlsOf(const MainForm& form) {
  const PageOf aa(form, "direct3d.antialiasing");
  return {aa.Combo("antialiasing-mode"), aa.Get<OptionButton>("zoom"),
          aa.Get<PictureBox>("no-antialiasing"), aa.Get<PictureBox>("selected-antialiasing")};
}

d3d::OverrideControls OverrideControlsOf(const MainForm& form) {
  const PageOf textures(form, "direct3d.multitexturing");
  const PageOf shaders(form, "direct3d.shaders");
  return {
      .multitexture_page = &form.Get<Frame>("direct3d.multitexturing"),
      .textures = textures.Get<Slider>("max-simultaneous-textures"),
      .textures_label = textures.Get<Label>("max-simultaneous-textures-label"),
      .override_textures = textures.Check("override-multitexturing-settings"),
      .apply_textures = textures.Get<Button>("apply-setting-now"),
      .shader_page = &form.Get<Frame>("direct3d.shaders"),
      .pixel = {shaders.Get<Slider>("pixel-shader"), shaders.Get<Label>("pixel-shader-label")},
      .vertex = {shaders.Get<Slider>("vertex-shader"), shaders.Get<Label>("vertex-shader-label")},
      .override_shaders = shaders.Check("override-shaders-settings"),
      .apply_shaders = shaders.Get<Button>("apply-settings-now"),
  };
}

cpl::ControlPanelControls ControlPanelControlsOf(const MainForm& form) {
  const PageOf page(form, "control-panel.settings");
  return {
      .options = {page.Check("enable-coolbits-overclocking"),
                  page.Check("enable-agp-settings-page"), page.Check("enable-additional-info-page"),
                  page.Check("enable-troubleshooting-page"),
                  page.Check("enable-application-profile-page"),
                  page.Check("override-nview-capable"),
                  page.Check("enable-overlay-control-in-span-mode"),
                  page.Check("enable-thermal-settings-page"),
                  page.Check("enable-heat-indicator-warning"),
                  page.Check("display-core-temperature-in-system-tray-area"),
                  page.Check("enable-direct3d-refreh-rate-page")},
      .picture = page.Get<PictureBox>("picture"),
  };
}

detect::VersionControls VersionControlsOf(const MainForm& form) {
  const PageOf page(form, "info.basic");
  return {page.Get<Label>("display-driver-version"), page.Get<Label>("os-version"),
          page.Get<Label>("directx-version")};
}

}  // namespace kestrune::forms
