#include "ui/forms/direct3d_pages.h"

namespace kestrune::forms {

using controls::CheckBox;
using controls::ComboBox;
using controls::ComboChange;
using settings::Choice;

namespace {

constexpr std::string_view kAa = "direct3d.antialiasing";
constexpr std::string_view kFiltering = "direct3d.filtering";
constexpr std::string_view kMisc = "direct3d.misc";
constexpr std::string_view kTextures = "direct3d.multitexturing";
constexpr std::string_view kShaders = "direct3d.shaders";

constexpr ControlRow kAaRows[] = {
    Row(Kind::kLabel, "direct3d.antialiasing.antialiasing-mode-label", kAa, {150, 300, 3510, 255},
        138)
        .Names("direct3d.antialiasing.antialiasing-mode"),
    Row(Kind::kEditableCombo, "direct3d.antialiasing.antialiasing-mode", kAa, {150, 555, 3510, 390})
        .Initial("Auto"),
    Row(Kind::kLabel, "direct3d.antialiasing.transparency-antialiasing-label", kAa,
        {3810, 300, 3600, 255}, 139)
        .Names("direct3d.antialiasing.transparency-antialiasing"),
    Row(Kind::kCombo, "direct3d.antialiasing.transparency-antialiasing", kAa,
        {3810, 555, 3510, 390})
        .Initial("Disabled"),
    Row(Kind::kCheck, "direct3d.antialiasing.enable-sli-antialiasing", kAa, {150, 1005, 3510, 330},
        140),
    Row(Kind::kCheck, "direct3d.antialiasing.gamma-correct-antialiasing", kAa,
        {3810, 960, 3600, 420}, 141),
    Row(Kind::kHeading, "direct3d.antialiasing.compare-pictures", kAa, {150, 1440, 2790, 270}, 142),
    Row(Kind::kOption, "direct3d.antialiasing.normal-size", kAa, {3030, 1410, 2130, 330}, 143)
        .Chosen(),
    Row(Kind::kOption, "direct3d.antialiasing.zoom", kAa, {5250, 1410, 2190, 330}, 144),
    Row(Kind::kPicture, "direct3d.antialiasing.no-antialiasing", kAa, {150, 1770, 3510, 2070}),
    Row(Kind::kLabel, "direct3d.antialiasing.no-antialiasing-label", kAa, {150, 3870, 3510, 270},
        147)
        .Names("direct3d.antialiasing.no-antialiasing"),
    Row(Kind::kPicture, "direct3d.antialiasing.selected-antialiasing", kAa,
        {3810, 1770, 3510, 2070}),
    Row(Kind::kLabel, "direct3d.antialiasing.selected-antialiasing-label", kAa,
        {3810, 3870, 3510, 270}, 148)
        .Names("direct3d.antialiasing.selected-antialiasing"),
};

constexpr ControlRow kFilteringRows[] = {
    Row(Kind::kLabel, "direct3d.filtering.anisotropic-filtering-label", kFiltering,
        {150, 375, 3915, 255}, 114)
        .Names("direct3d.filtering.anisotropic-filtering"),
    Row(Kind::kEditableCombo, "direct3d.filtering.anisotropic-filtering", kFiltering,
        {150, 630, 3600, 390})
        .Initial("Auto")
        .Help(0),
    Row(Kind::kLabel, "direct3d.filtering.intellisample-image-settings-label", kFiltering,
        {150, 1155, 3915, 255}, 115)
        .Names("direct3d.filtering.intellisample-image-settings"),
    Row(Kind::kCombo, "direct3d.filtering.intellisample-image-settings", kFiltering,
        {150, 1410, 3600, 390})
        .Initial("Quality")
        .Help(3),
    Row(Kind::kLabel, "direct3d.filtering.force-mipmaps-label", kFiltering, {150, 1935, 3915, 255},
        117)
        .Names("direct3d.filtering.force-mipmaps"),
    Row(Kind::kCombo, "direct3d.filtering.force-mipmaps", kFiltering, {150, 2190, 3600, 390})
        .Initial("None")
        .Help(2),
    Row(Kind::kLabel, "direct3d.filtering.texture-lod-bias-label", kFiltering,
        {150, 2745, 3915, 255}, 118)
        .Names("direct3d.filtering.texture-lod-bias"),
    Row(Kind::kSlider, "direct3d.filtering.texture-lod-bias", kFiltering, {150, 3015, 3600, 390})
        .Help(1)
        .Range(-24, 24, 0),
    Row(Kind::kCheck, "direct3d.filtering.force-textures-to-low-mip-level", kFiltering,
        {4200, 555, 3240, 420}, 119),
    Row(Kind::kCheck, "direct3d.filtering.trilinear-optimization", kFiltering,
        {4200, 1050, 3240, 420}, 120)
        .Help(5),
    Row(Kind::kCheck, "direct3d.filtering.aniso-mip-filter-optimization", kFiltering,
        {4200, 1545, 3240, 420}, 121)
        .Help(5),
    Row(Kind::kCheck, "direct3d.filtering.aniso-sample-optimization", kFiltering,
        {4200, 2040, 3240, 420}, 122)
        .Help(5),
    Row(Kind::kCheck, "direct3d.filtering.disable-mipmap-filtering", kFiltering,
        {4200, 2535, 3240, 420}, 124)
        .Help(4),
    Row(Kind::kCheck, "direct3d.filtering.allow-negative-lod-bias", kFiltering,
        {4200, 3030, 3240, 420}, 125),
};

constexpr ControlRow kMiscRows[] = {
    Row(Kind::kHeading, "direct3d.misc.vertical-synchronization", kMisc, {150, 375, 3690, 270},
        154),
    Row(Kind::kLabel, "direct3d.misc.synchronization-mode-label", kMisc, {150, 750, 3300, 255}, 155)
        .Names("direct3d.misc.synchronization-mode"),
    Row(Kind::kCombo, "direct3d.misc.synchronization-mode", kMisc, {150, 1005, 3300, 390})
        .Initial("Off")
        .Help(7),
    Row(Kind::kLabel, "direct3d.misc.prerender-limit-label", kMisc, {150, 1530, 3300, 255}, 156)
        .Names("direct3d.misc.prerender-limit"),
    Row(Kind::kCombo, "direct3d.misc.prerender-limit", kMisc, {150, 1785, 3300, 390})
        .Initial("0")
        .Help(8),
    Row(Kind::kCheck, "direct3d.misc.enable-z-buffer-compression", kMisc, {3750, 990, 3660, 420},
        157)
        .Help(9),
    Row(Kind::kCheck, "direct3d.misc.enable-fog-table-emulation", kMisc, {3750, 1425, 3660, 420},
        158)
        .Help(10),
};

constexpr ControlRow kTextureRows[] = {
    Row(Kind::kLabel, "direct3d.multitexturing.max-simultaneous-textures-label", kTextures,
        {150, 480, 5400, 255}, 165)
        .Names("direct3d.multitexturing.max-simultaneous-textures"),
    Row(Kind::kSlider, "direct3d.multitexturing.max-simultaneous-textures", kTextures,
        {150, 780, 5400, 390})
        .Range(1, 8, 1),
    Row(Kind::kCheck, "direct3d.multitexturing.override-multitexturing-settings", kTextures,
        {150, 1395, 5400, 330}, 166),
    Row(Kind::kButton, "direct3d.multitexturing.apply-setting-now", kTextures,
        {150, 1950, 2700, 435}, 167)
        .Disabled(),
};

constexpr ControlRow kShaderRows[] = {
    Row(Kind::kLabel, "direct3d.shaders.compatibility", kShaders, {150, 405, 2550, 255}, 170),
    Row(Kind::kLabel, "direct3d.shaders.image-quality", kShaders, {4230, 405, 1950, 255}, 171),
    Row(Kind::kLabel, "direct3d.shaders.pixel-shader-label", kShaders, {150, 765, 5400, 255}, 168)
        .Names("direct3d.shaders.pixel-shader"),
    Row(Kind::kSlider, "direct3d.shaders.pixel-shader", kShaders, {150, 1050, 5400, 390})
        .Range(0, 8, 0),
    Row(Kind::kLabel, "direct3d.shaders.vertex-shader-label", kShaders, {150, 1590, 5400, 255}, 169)
        .Names("direct3d.shaders.vertex-shader"),
    Row(Kind::kSlider, "direct3d.shaders.vertex-shader", kShaders, {150, 1875, 5400, 390})
        .Range(0, 8, 0),
    Row(Kind::kCheck, "direct3d.shaders.override-shaders-settings", kShaders,
        {150, 2475, 5400, 330}, 172),
    Row(Kind::kButton, "direct3d.shaders.apply-settings-now", kShaders, {150, 3000, 2700, 435}, 173)
        .Disabled(),
};

constexpr std::string_view kMode = "direct3d.antialiasing.antialiasing-mode";
constexpr std::string_view kAnisotropic = "direct3d.filtering.anisotropic-filtering";

/// Leaves the mode to the program.
constexpr int kAutoCode = 0;
/// Stores whether two cards join for antialiasing, by the box's state.
constexpr int kSliCode = 127;

}  // namespace

const std::span<const ControlRow> kDirect3DAntialiasingControls = kAaRows;
const std::span<const ControlRow> kDirect3DFilteringControls = kFilteringRows;
const std::span<const ControlRow> kDirect3DMiscControls = kMiscRows;
const std::span<const ControlRow> kMultitexturingControls = kTextureRows;
const std::span<const ControlRow> kShaderControls = kShaderRows;

Direct3DPages::Direct3DPages(const Shared& shared, DriverSettings& driver)
    : state_(shared.state),
      driver_(driver),
      mode_(shared.controls.Get<ComboBox>(kMode)),
      opengl_mode_(shared.controls.Get<ComboBox>("opengl.antialiasing.antialiasing-mode")),
      anisotropic_(shared.controls.Get<ComboBox>(kAnisotropic)),
      opengl_anisotropic_(shared.controls.Get<ComboBox>("opengl.filtering.anisotropic-filtering")),
      preview_(shared.controls, shared.services.files, shared.LangText()),
      overrides_(driver.Direct3D(), shared.controls, driver.TheDirect3DWriter(), shared.registry,
                 shared.cards, shared.services.shell) {
  const controls::ControlSet& controls = shared.controls;
  auto& normal = controls.Get<controls::OptionButton>("direct3d.antialiasing.normal-size");
  auto& zoom = controls.Get<controls::OptionButton>("direct3d.antialiasing.zoom");
  controls::OptionButton::Group({&normal, &zoom});
  for (controls::OptionButton* size : {&normal, &zoom}) {
    size->on_click = [this] { ShowPreview(); };
  }

  mode_.on_change = driver_.Guarded([this](ComboChange change) { ModeChanged(change); });
  anisotropic_.on_change = driver_.Guarded([this](ComboChange) { AnisotropyChanged(); });

  // The OpenGL page's twins of these two do the writing.
  auto& transparency = controls.Get<ComboBox>("direct3d.antialiasing.transparency-antialiasing");
  auto& opengl_transparency =
      controls.Get<ComboBox>("opengl.antialiasing.transparency-antialiasing");
  transparency.on_change =
      driver_.Guarded([this, &transparency, &opengl_transparency](ComboChange) {
        if (driver_.State().D3dReaderBusy == 1) return;
        opengl_transparency.PassOn(transparency.Position());
      });
  auto& gamma = controls.Get<CheckBox>("direct3d.antialiasing.gamma-correct-antialiasing");
  auto& opengl_gamma = controls.Get<CheckBox>("opengl.antialiasing.gamma-correct-antialiasing");
  gamma.on_change = driver_.Guarded([this, &gamma, &opengl_gamma] {
    if (driver_.State().D3dReaderBusy != 1) opengl_gamma.PassOn(gamma.State());
  });

  auto& sli = controls.Get<CheckBox>("direct3d.antialiasing.enable-sli-antialiasing");
  auto& opengl_sli = controls.Get<CheckBox>("opengl.antialiasing.enable-sli-antialiasing");
  sli.on_change = driver_.Guarded([this, &sli, &opengl_sli] { SliChanged(sli, opengl_sli); });
  opengl_sli.on_change =
      driver_.Guarded([this, &sli, &opengl_sli] { SliChanged(opengl_sli, sli); });
}

void Direct3DPages::InitOverrides() {
  overrides_.InitMultitexturePage();
  overrides_.InitShaderPage();
}

void Direct3DPages::ForgetFlags() {
  driver_.State().AaGammaOn = 0;
  driver_.State().AaTransparencyMode = 0;
  driver_.ShowNoModeFlags();
}

void Direct3DPages::ModeChanged(ComboChange change) {
  const std::string text = mode_.Text();
  if (const Choice* mode = driver_.FindChoice(kMode, text)) {
    if (mode->call->code == kAutoCode) ForgetFlags();
    driver_.WriteDirect3D(mode->call->code);
  }
  if (driver_.MirrorsTwins()) opengl_mode_.ShowText(text);
  driver_.State().CurrentAaModeText = text;
  if (change == ComboChange::kText || driver_.MirrorsTwins()) ShowPreview();
}

void Direct3DPages::SliChanged(CheckBox& box, CheckBox& twin) {
  driver_.WriteDirect3D(kSliCode, box.State());
  twin.Show(box.State());
  driver_.State().SliAaOn = box.State();
  driver_.Lists().FillCapabilityLists();
  const core::FlagScope starting(state_.IsStart);
  driver_.Read();
}

void Direct3DPages::AnisotropyChanged() {
  const std::string text = anisotropic_.Text();
  if (const Choice* level = driver_.FindChoice(kAnisotropic, text)) {
    driver_.WriteDirect3D(level->call->code);
  }
  if (driver_.MirrorsTwins()) opengl_anisotropic_.ShowText(text);
}

}  // namespace kestrune::forms
