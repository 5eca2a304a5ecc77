#include "ui/forms/setting_handlers.h"

namespace kestrune::forms {

using controls::CheckBox;
using controls::ComboBox;
using controls::ComboChange;
using d3d::AaMode;

namespace {

constexpr int kAaDisabledCode = 128;

/// The level that a page's text names; "Point s." is read and never chosen.
const d3d::AnisoLevel* FindAnisoLevel(const std::string& text, const lang::LangTable& lang_text) {
  for (const d3d::AnisoLevel& level : d3d::kAnisoLevels) {
    if (level.code != d3d::kPointCode && level.text.In(lang_text) == text) return &level;
  }
  return nullptr;
}

}  // namespace

SettingHandlers::SettingHandlers(const core::ProgramState& program,
                                 const detect::VersionState& versions,
                                 const lang::LangTable& lang_text, d3d::Direct3DState& state,
                                 const d3d::Direct3DControls& direct3d_controls,
                                 const ogl::OpenGLControls& opengl_controls,
                                 d3d::Direct3DWriter& direct3d, ogl::OpenGLWriter& opengl,
                                 Hooks hooks)
    : program_(program),
      versions_(versions),
      LangText(lang_text),
      state_(state),
      direct3d_controls_(direct3d_controls),
      opengl_controls_(opengl_controls),
      direct3d_(direct3d),
      opengl_(opengl),
      hooks_(std::move(hooks)) {
  ConnectCatalogue(d3d::kDirect3DCatalogue, direct3d_controls_,
                   [this](int code, std::int32_t value) { WriteDirect3D(code, value); });
  ConnectCatalogue(ogl::kOpenGLCatalogue, opengl_controls_,
                   [this](int operation, std::int32_t value) { WriteOpenGL(operation, value); });
  ConnectTwins();
  ConnectOpenGLOnly();
}

template <typename C, typename Write>
void SettingHandlers::ConnectCatalogue(const d3d::Catalogue<C>& catalogue, const C& controls,
                                       Write write) {
  for (const auto& row : catalogue.checks) {
    CheckBox* box = controls.*row.box;
    box->on_change = Guarded([box, &row, write] {
      const d3d::Call& call = box->Checked() ? row.check : row.clear;
      write(call.code, call.argument.value_or(0));
    });
  }
  for (const auto& row : catalogue.choices) {
    for (ComboBox* C::*member : {row.combo, row.twin}) {
      if (member == nullptr) continue;
      ComboBox* combo = controls.*member;
      combo->on_change = Guarded([combo, &row, write](ComboChange) {
        const int position = combo->Position();
        if (position < 0 || static_cast<std::size_t>(position) >= row.choices.size()) return;
        const d3d::Call& call = row.choices[static_cast<std::size_t>(position)].call;
        write(call.code, call.argument.value_or(0));
      });
    }
  }
  for (const auto& row : catalogue.counts) {
    ComboBox* combo = controls.*row.combo;
    combo->on_change = Guarded([combo, &row, write](ComboChange) {
      if (combo->Position() >= 0) write(row.code, combo->Position() + row.first);
    });
  }
  for (const auto& row : catalogue.sliders) {
    controls::Slider* slider = controls.*row.slider;
    slider->on_change = Guarded([slider, &row, write] { write(row.code, slider->Value()); });
  }
}

void SettingHandlers::ConnectTwins() {
  const d3d::TwinControls& twins = direct3d_controls_;
  twins.mode->on_change = Guarded([this](ComboChange change) { Direct3DModeChanged(change); });
  twins.opengl_mode->on_change = Guarded([this](ComboChange change) { OpenGLModeChanged(change); });
  twins.transparency->on_change = Guarded([this, &twins](ComboChange) {
    if (state_.D3dReaderBusy == 1) return;
    twins.opengl_transparency->PassOn(twins.transparency->Position());
  });
  twins.opengl_transparency->on_change =
      Guarded([this](ComboChange change) { OpenGLTransparencyChanged(change); });
  twins.gamma->on_change = Guarded([this, &twins] {
    if (state_.D3dReaderBusy != 1) twins.opengl_gamma->PassOn(twins.gamma->State());
  });
  twins.opengl_gamma->on_change = Guarded([this] { OpenGLGammaChanged(); });
  twins.sli->on_change = Guarded([this, &twins] { SliChanged(*twins.sli, *twins.opengl_sli); });
  twins.opengl_sli->on_change =
      Guarded([this, &twins] { SliChanged(*twins.opengl_sli, *twins.sli); });
  twins.anisotropic->on_change = Guarded([this](ComboChange) { Direct3DAnisotropyChanged(); });
  twins.opengl_anisotropic->on_change = Guarded([this](ComboChange) { OpenGLAnisotropyChanged(); });
}

void SettingHandlers::ForgetFlags() {
  state_.AaGammaOn = 0;
  state_.AaTransparencyMode = 0;
}

void SettingHandlers::Direct3DModeChanged(ComboChange change) {
  const std::string text = direct3d_controls_.mode->Text();
  if (const AaMode* mode = d3d::FindAaMode(text, LangText)) {
    if (mode->code == 0) ForgetFlags();
    WriteDirect3D(mode->code);
  }
  if (MirrorsTwins()) direct3d_controls_.opengl_mode->ShowText(text);
  state_.CurrentAaModeText = text;
  if (change == ComboChange::kText || MirrorsTwins()) hooks_.show_preview();
}

void SettingHandlers::WriteOpenGLMode(const AaMode& mode) {
  if (mode.opengl_code >= 0) {
    WriteOpenGL(mode.opengl_code);
  } else {
    WriteDirect3D(mode.code);
  }
}

void SettingHandlers::OpenGLModeChanged(ComboChange change) {
  const std::string text = direct3d_controls_.opengl_mode->Text();
  if (const AaMode* mode = d3d::FindAaMode(text, LangText)) {
    if (mode->code == 0) ForgetFlags();
    WriteOpenGLMode(*mode);
  }
  if (MirrorsTwins()) {
    // Both pages show one value, so this is the current mode for the flags that follow it, too.
    direct3d_controls_.mode->ShowText(text);
    state_.CurrentAaModeText = text;
  }
  if (change == ComboChange::kText || MirrorsTwins()) hooks_.show_preview();
}

void SettingHandlers::OpenGLTransparencyChanged(ComboChange change) {
  if (state_.D3dReaderBusy == 1) return;
  if (change == ComboChange::kChosen) {
    const int position = direct3d_controls_.opengl_transparency->Position();
    direct3d_controls_.transparency->ShowPosition(position);
    state_.AaTransparencyMode = position;
  }
  // The current mode is written again, so that the shared value carries the new flags.
  if (const AaMode* mode = d3d::FindAaMode(state_.CurrentAaModeText, LangText)) {
    WriteOpenGLMode(*mode);
  }
}

void SettingHandlers::OpenGLGammaChanged() {
  if (state_.D3dReaderBusy == 1) return;
  const int on = direct3d_controls_.opengl_gamma->State();
  direct3d_controls_.gamma->Show(on);
  state_.AaGammaOn = on;
  const AaMode* mode = d3d::FindAaMode(state_.CurrentAaModeText, LangText);
  if (mode == nullptr || mode->code == kAaDisabledCode) return;
  if (mode->code == 0) ForgetFlags();
  WriteDirect3D(mode->code);
}

void SettingHandlers::SliChanged(CheckBox& box, CheckBox& twin) {
  WriteDirect3D(d3d::kSliAaCode, box.State());
  twin.Show(box.State());
  state_.SliAaOn = box.State();
  hooks_.fill_capability_lists();
  hooks_.read_settings();
}

void SettingHandlers::Direct3DAnisotropyChanged() {
  const std::string text = direct3d_controls_.anisotropic->Text();
  if (text == LangText[137]) {
    WriteDirect3D(d3d::kAnisoDeleteCode);
  } else if (const d3d::AnisoLevel* level = FindAnisoLevel(text, LangText)) {
    WriteDirect3D(level->code);
  }
  if (MirrorsTwins()) direct3d_controls_.opengl_anisotropic->ShowText(text);
}

void SettingHandlers::OpenGLAnisotropyChanged() {
  const std::string text = direct3d_controls_.opengl_anisotropic->Text();
  const d3d::AnisoLevel* level = FindAnisoLevel(text, LangText);
  if (text == LangText[137]) {
    WriteOpenGL(d3d::kAnisoOffOperation);
  } else if (level != nullptr && level->opengl_code >= 0) {
    WriteOpenGL(level->opengl_code);
  } else if (level != nullptr) {
    WriteDirect3D(level->code);
  }
  if (MirrorsTwins()) direct3d_controls_.anisotropic->ShowText(text);
}

void SettingHandlers::ConnectOpenGLOnly() {
  const ogl::OpenGLControls& controls = opengl_controls_;
  controls.manual_trilinear->on_change = Guarded([this] { ManualTrilinearChanged(); });
  controls.trilinear_quality->on_change = Guarded([this, &controls] {
    WriteOpenGL(ogl::kTrilinearOperation, controls.trilinear_quality->Value());
  });
  controls.manual_compression->on_change = Guarded([this] { ManualCompressionChanged(); });
  controls.compression_by_application->on_click =
      Guarded([this] { WriteOpenGL(ogl::kCompressionByApplicationOperation); });
  controls.compression_enabled->on_click =
      Guarded([this] { WriteOpenGL(ogl::kCompressionEnabledOperation); });
  for (CheckBox* box : {controls.s3tc, controls.no_dxt1_dithering}) {
    box->on_change = Guarded([this] { S3tcChanged(); });
  }
  controls.version_override->on_change = Guarded([this](ComboChange) { VersionOverrideChanged(); });
  controls.emulation->on_change = Guarded([this](ComboChange) { EmulationChanged(); });
}

void SettingHandlers::ManualTrilinearChanged() {
  const ogl::OpenGLControls& controls = opengl_controls_;
  const bool on = controls.manual_trilinear->Checked();
  controls.trilinear_quality_label->SetEnabled(on);
  controls.trilinear_quality->SetEnabled(on);
  if (on) {
    WriteOpenGL(ogl::kTrilinearOperation, controls.trilinear_quality->Minimum());
  } else {
    WriteOpenGL(ogl::kTrilinearDeleteOperation);
    controls.trilinear_quality->Show(controls.trilinear_quality->Minimum());
  }
}

void SettingHandlers::ManualCompressionChanged() {
  const ogl::OpenGLControls& controls = opengl_controls_;
  const bool on = controls.manual_compression->Checked();
  controls.compression_by_application->SetEnabled(on);
  controls.compression_enabled->SetEnabled(on);
  if (on) controls.compression_by_application->Show(true);
  WriteOpenGL(on ? ogl::kCompressionByApplicationOperation : ogl::kCompressionOffOperation);
}

void SettingHandlers::S3tcChanged() {
  const int bits = (opengl_controls_.s3tc->Checked() ? ogl::kS3tcEnabled : 0) |
                   (opengl_controls_.no_dxt1_dithering->Checked() ? ogl::kS3tcNoDithering : 0);
  WriteOpenGL(ogl::kS3tcOperations[bits]);
}

void SettingHandlers::VersionOverrideChanged() {
  const int position = opengl_controls_.version_override->Position();
  if (position == 0) WriteOpenGL(ogl::kVersionDeleteOperation);
  if (position < 1 || position > static_cast<int>(std::size(ogl::kVersions))) return;
  WriteOpenGL(ogl::kVersionOperation, ogl::PackedVersion(ogl::kVersions[position - 1]));
}

void SettingHandlers::EmulationChanged() {
  const int position = opengl_controls_.emulation->Position();
  if (position < 0) return;
  const ogl::Emulation& emulation = ogl::kEmulations[static_cast<std::size_t>(position)];
  if (versions_.DrvVer >= ogl::kFirstEmulationDriver) {
    WriteOpenGL(ogl::kEmulationOperation, emulation.number);
  } else {
    WriteOpenGL(emulation.old_operation);
  }
}

}  // namespace kestrune::forms
