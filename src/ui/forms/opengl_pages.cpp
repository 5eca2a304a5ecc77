#include "ui/forms/opengl_pages.h"

namespace kestrune::forms {

using controls::CheckBox;
using controls::ComboBox;
using controls::ComboChange;
using settings::Choice;

namespace {

constexpr std::string_view kAa = "opengl.antialiasing";
constexpr std::string_view kFiltering = "opengl.filtering";
constexpr std::string_view kOptimizations = "opengl.filtering.filtering-optimizations-frame";
constexpr std::string_view kMisc = "opengl.misc";
constexpr std::string_view kCompatibility = "opengl.compatibility";

constexpr ControlRow kAaRows[] = {
    Row(Kind::kLabel, "opengl.antialiasing.antialiasing-mode-label", kAa, {150, 375, 3510, 255},
        138)
        .Names("opengl.antialiasing.antialiasing-mode"),
    Row(Kind::kEditableCombo, "opengl.antialiasing.antialiasing-mode", kAa, {150, 630, 3510, 390})
        .Initial("Auto"),
    Row(Kind::kLabel, "opengl.antialiasing.transparency-antialiasing-label", kAa,
        {3810, 375, 3600, 255}, 139)
        .Names("opengl.antialiasing.transparency-antialiasing"),
    Row(Kind::kCombo, "opengl.antialiasing.transparency-antialiasing", kAa, {3810, 630, 3510, 390})
        .Initial("Disabled"),
    Row(Kind::kCheck, "opengl.antialiasing.enable-sli-antialiasing", kAa, {150, 1185, 3510, 330},
        140),
    Row(Kind::kCheck, "opengl.antialiasing.gamma-correct-antialiasing", kAa,
        {3810, 1140, 3600, 420}, 141),
    Row(Kind::kCheck, "opengl.antialiasing.texture-sharpening", kAa, {150, 1620, 3510, 330}, 149),
};

constexpr ControlRow kFilteringRows[] = {
    Row(Kind::kLabel, "opengl.filtering.anisotropic-filtering-label", kFiltering,
        {150, 315, 2760, 255}, 114)
        .Names("opengl.filtering.anisotropic-filtering"),
    Row(Kind::kEditableCombo, "opengl.filtering.anisotropic-filtering", kFiltering,
        {150, 570, 2760, 390})
        .Initial("Auto")
        .Help(6),
    Row(Kind::kLabel, "opengl.filtering.image-settings-label", kFiltering, {150, 1050, 2760, 255},
        116)
        .Names("opengl.filtering.image-settings"),
    Row(Kind::kCombo, "opengl.filtering.image-settings", kFiltering, {150, 1305, 2760, 390})
        .Initial("Quality")
        .Help(3),
    Row(Kind::kLabel, "opengl.filtering.force-mipmaps-label", kFiltering, {150, 1785, 2760, 255},
        117)
        .Names("opengl.filtering.force-mipmaps"),
    Row(Kind::kCombo, "opengl.filtering.force-mipmaps", kFiltering, {150, 2040, 2760, 390})
        .Initial("None")
        .Help(2),
    Row(Kind::kLabel, "opengl.filtering.texture-lod-bias-label", kFiltering, {150, 2520, 2760, 255},
        118)
        .Names("opengl.filtering.texture-lod-bias"),
    Row(Kind::kSlider, "opengl.filtering.texture-lod-bias", kFiltering, {150, 2790, 2760, 390})
        .Help(1)
        .Range(-48, 48, 0),
    Row(Kind::kHeading, "opengl.filtering.intellisample-settings", kFiltering,
        {3000, 300, 4440, 270}, 126),
    Row(Kind::kCheck, "opengl.filtering.manual-intellisample-trilinear-configuration", kFiltering,
        {3000, 570, 4500, 420}, 150)
        .Help(14),
    Row(Kind::kLabel, "opengl.filtering.trilinear-quality-label", kFiltering,
        {3270, 1020, 4170, 255}, 123)
        .Names("opengl.filtering.trilinear-quality"),
    Row(Kind::kSlider, "opengl.filtering.trilinear-quality", kFiltering, {3270, 1275, 4170, 345})
        .Range(1, 31, 1),
    Row(Kind::kFrame, kOptimizations, kFiltering, {3000, 1695, 4500, 1545}, 153).Help(5),
    Row(Kind::kCheck, "opengl.filtering.trilinear-optimization", kOptimizations,
        {150, 345, 4200, 330}, 120),
    Row(Kind::kCheck, "opengl.filtering.aniso-mip-filter-optimization", kOptimizations,
        {150, 705, 4200, 330}, 121),
    Row(Kind::kCheck, "opengl.filtering.aniso-sample-optimization", kOptimizations,
        {150, 1065, 4200, 330}, 122),
    Row(Kind::kCheck, "opengl.filtering.manual-intellisample-texture-compression-configuration",
        kFiltering, {150, 3285, 7260, 420}, 151)
        .Help(14),
    Row(Kind::kOption, "opengl.filtering.texture-compression-by-application", kFiltering,
        {420, 3720, 2490, 330}, 152),
    Row(Kind::kOption, "opengl.filtering.texture-compression-enabled", kFiltering,
        {3000, 3720, 2400, 330}, 146),
};

constexpr ControlRow kMiscRows[] = {
    Row(Kind::kHeading, "opengl.misc.s3tc-settings", kMisc, {150, 375, 3450, 270}, 162),
    Row(Kind::kCheck, "opengl.misc.enable-s3tc-texture-compression", kMisc, {150, 690, 3510, 420},
        163)
        .Help(11),
    Row(Kind::kCheck, "opengl.misc.disable-dithering-for-dxt1-textures", kMisc,
        {150, 1155, 3510, 420}, 164)
        .Help(12),
    Row(Kind::kLabel, "opengl.misc.textures-color-depth-label", kMisc, {150, 1665, 3300, 255}, 174)
        .Names("opengl.misc.textures-color-depth"),
    Row(Kind::kCombo, "opengl.misc.textures-color-depth", kMisc, {150, 1920, 3300, 390}).Help(13),
    Row(Kind::kHeading, "opengl.misc.vertical-synchronization", kMisc, {3810, 375, 3690, 270}, 154),
    Row(Kind::kLabel, "opengl.misc.synchronization-mode-label", kMisc, {3810, 705, 3300, 255}, 155)
        .Names("opengl.misc.synchronization-mode"),
    Row(Kind::kCombo, "opengl.misc.synchronization-mode", kMisc, {3810, 960, 3300, 390}).Help(7),
    Row(Kind::kHeading, "opengl.misc.other-settings", kMisc, {3810, 1665, 3600, 270}, 175),
    Row(Kind::kCheck, "opengl.misc.triple-buffering", kMisc, {3810, 1995, 3600, 330}, 176),
    Row(Kind::kLabel, "opengl.misc.prerender-limit-label", kMisc, {3810, 2430, 3300, 255}, 156)
        .Names("opengl.misc.prerender-limit"),
    Row(Kind::kCombo, "opengl.misc.prerender-limit", kMisc, {3810, 2685, 3300, 390}).Help(8),
};

constexpr ControlRow kCompatibilityRows[] = {
    Row(Kind::kLabel, "opengl.compatibility.opengl-version-override-label", kCompatibility,
        {150, 375, 4200, 255}, 177)
        .Names("opengl.compatibility.opengl-version-override"),
    Row(Kind::kCombo, "opengl.compatibility.opengl-version-override", kCompatibility,
        {150, 630, 4200, 390})
        .Initial("No override"),
    Row(Kind::kLabel, "opengl.compatibility.compatibility-emulation-mode-label", kCompatibility,
        {150, 1155, 4380, 255}, 178)
        .Names("opengl.compatibility.compatibility-emulation-mode"),
    Row(Kind::kCombo, "opengl.compatibility.compatibility-emulation-mode", kCompatibility,
        {150, 1410, 4200, 390}),
    Row(Kind::kCheck, "opengl.compatibility.nv4x-glsl-support", kCompatibility,
        {150, 2010, 6000, 330}, 179),
    Row(Kind::kCheck, "opengl.compatibility.force-software-rasterization", kCompatibility,
        {150, 2445, 6000, 330}, 184),
    Row(Kind::kCheck, "opengl.compatibility.enhanced-cpu-instructions-sets-support", kCompatibility,
        {150, 2880, 6000, 330}, 185),
};

constexpr std::string_view kMode = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kDirect3DMode = "direct3d.antialiasing.antialiasing-mode";
constexpr std::string_view kAnisotropic = "opengl.filtering.anisotropic-filtering";

/// Leave the mode to the program, and turn antialiasing off.
constexpr int kAutoCode = 0;
constexpr int kDisabledCode = 128;

constexpr int kCompressionOffOperation = 67;
constexpr int kCompressionByApplicationOperation = 68;
constexpr int kTrilinearDeleteOperation = 65;

}  // namespace

const std::span<const ControlRow> kOpenGLAntialiasingControls = kAaRows;
const std::span<const ControlRow> kOpenGLFilteringControls = kFilteringRows;
const std::span<const ControlRow> kOpenGLMiscControls = kMiscRows;
const std::span<const ControlRow> kOpenGLCompatibilityControls = kCompatibilityRows;

OpenGLPages::OpenGLPages(const Shared& shared, DriverSettings& driver, Direct3DPages& direct3d)
    : driver_(driver),
      direct3d_(direct3d),
      mode_(shared.controls.Get<ComboBox>(kMode)),
      direct3d_mode_(shared.controls.Get<ComboBox>(kDirect3DMode)),
      transparency_(shared.controls.Get<ComboBox>("opengl.antialiasing.transparency-antialiasing")),
      direct3d_transparency_(
          shared.controls.Get<ComboBox>("direct3d.antialiasing.transparency-antialiasing")),
      gamma_(shared.controls.Get<CheckBox>("opengl.antialiasing.gamma-correct-antialiasing")),
      direct3d_gamma_(
          shared.controls.Get<CheckBox>("direct3d.antialiasing.gamma-correct-antialiasing")),
      anisotropic_(shared.controls.Get<ComboBox>(kAnisotropic)),
      direct3d_anisotropic_(
          shared.controls.Get<ComboBox>("direct3d.filtering.anisotropic-filtering")),
      composites_(shared.controls) {
  ConnectTwins();
  ConnectComposites();
}

void OpenGLPages::ConnectTwins() {
  mode_.on_change = driver_.Guarded([this](ComboChange change) { ModeChanged(change); });
  transparency_.on_change =
      driver_.Guarded([this](ComboChange change) { TransparencyChanged(change); });
  gamma_.on_change = driver_.Guarded([this] { GammaChanged(); });
  anisotropic_.on_change = driver_.Guarded([this](ComboChange) { AnisotropyChanged(); });
}

void OpenGLPages::ConnectComposites() {
  controls::OptionButton::Group(
      {&composites_.compression_by_application, &composites_.compression_enabled});
  composites_.manual_trilinear.on_change = driver_.Guarded([this] { ManualTrilinearChanged(); });
  composites_.manual_compression.on_change =
      driver_.Guarded([this] { ManualCompressionChanged(); });
  for (CheckBox* box : {&composites_.s3tc, &composites_.no_dxt1_dithering}) {
    box->on_change = driver_.Guarded([this] { S3tcChanged(); });
  }
}

void OpenGLPages::ModeChanged(ComboChange change) {
  const std::string text = mode_.Text();
  if (const Choice* mode = driver_.FindChoice(kMode, text)) {
    if (mode->call->code == kAutoCode) direct3d_.ForgetFlags();
    driver_.WriteOpenGL(*mode->call);
  }
  // One value holds the mode of both pages, so the flags that follow go with this one.
  if (driver_.HasSharedValues()) driver_.State().CurrentAaModeText = text;
  if (driver_.MirrorsTwins()) direct3d_mode_.ShowText(text);
  if (change == ComboChange::kText || driver_.MirrorsTwins()) direct3d_.ShowPreview();
}

void OpenGLPages::TransparencyChanged(ComboChange change) {
  if (driver_.State().D3dReaderBusy == 1) return;
  if (change == ComboChange::kChosen) {
    const int position = transparency_.Position();
    direct3d_transparency_.ShowPosition(position);
    driver_.State().AaTransparencyMode = position;
  }
  // The current mode is written again, so that the shared value carries the new flags.
  if (const Choice* mode = driver_.FindChoice(kMode, driver_.State().CurrentAaModeText)) {
    driver_.WriteOpenGL(*mode->call);
  }
}

void OpenGLPages::GammaChanged() {
  if (driver_.State().D3dReaderBusy == 1) return;
  direct3d_gamma_.Show(gamma_.State());
  driver_.State().AaGammaOn = gamma_.State();
  const Choice* mode = driver_.FindChoice(kDirect3DMode, driver_.State().CurrentAaModeText);
  if (mode == nullptr || mode->call->code == kDisabledCode) return;
  if (mode->call->code == kAutoCode) direct3d_.ForgetFlags();
  driver_.WriteDirect3D(mode->call->code);
}

void OpenGLPages::AnisotropyChanged() {
  const std::string text = anisotropic_.Text();
  if (const Choice* level = driver_.FindChoice(kAnisotropic, text)) {
    driver_.WriteOpenGL(*level->call);
  }
  if (driver_.MirrorsTwins()) direct3d_anisotropic_.ShowText(text);
}

void OpenGLPages::ManualTrilinearChanged() {
  const bool on = composites_.manual_trilinear.Checked();
  controls::Slider& quality = composites_.trilinear_quality;
  composites_.trilinear_quality_label.SetEnabled(on);
  quality.SetEnabled(on);
  if (on) {
    driver_.WriteOpenGL(ogl::kTrilinearOperation, quality.Minimum());
  } else {
    driver_.WriteOpenGL(kTrilinearDeleteOperation);
    quality.Show(quality.Minimum());
  }
}

void OpenGLPages::ManualCompressionChanged() {
  const bool on = composites_.manual_compression.Checked();
  composites_.compression_by_application.SetEnabled(on);
  composites_.compression_enabled.SetEnabled(on);
  if (on) composites_.compression_by_application.Show(true);
  driver_.WriteOpenGL(on ? kCompressionByApplicationOperation : kCompressionOffOperation);
}

void OpenGLPages::S3tcChanged() {
  const int bits = (composites_.s3tc.Checked() ? ogl::kS3tcEnabled : 0) |
                   (composites_.no_dxt1_dithering.Checked() ? ogl::kS3tcNoDithering : 0);
  driver_.WriteOpenGL(ogl::kS3tcOperations[bits]);
}

}  // namespace kestrune::forms
