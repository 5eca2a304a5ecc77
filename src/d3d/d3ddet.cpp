#include "d3d/d3ddet.h"

#include <algorithm>

namespace kestrune::d3d {

namespace {

void ShowBoth(controls::ComboBox* first, controls::ComboBox* second, const std::string& text) {
  first->ShowText(text);
  second->ShowText(text);
}

/// The flags of a shared antialiasing number are told by its decimal text; other numbers have none.
const AaFlagRow* FlagsOf(std::int32_t number) {
  const std::string text = std::to_string(number);
  const auto found =
      std::find_if(kAaFlagRows.begin(), kAaFlagRows.end(), [&text](const AaFlagRow& row) {
        return text.size() == row.digits && text.starts_with(row.begins);
      });
  return found == kAaFlagRows.end() ? nullptr : &*found;
}

/// From this release on programs may be allowed a negative level-of-detail bias.
constexpr int kFirstNegativeLodDriver = 7000;

}  // namespace

void Direct3DReader::ReadDirect3DSettings() {
  const core::FlagScope busy(context_.state.D3dReaderBusy);
  if (context_.IsLegacyDriver()) return;
  const platform::ReadScope reading = context_.key.Reading();

  ReadSliAntialiasing();
  if (context_.HasSharedValues()) {
    ReadSharedAntialiasing();
    ReadSharedAnisotropy();
  } else {
    ReadOldAntialiasing();
    ReadOldAnisotropy();
  }
  const Direct3DControls& controls = context_.controls;
  controls.z_compression->SetEnabled(context_.program.LowTextureUnits == 1);
  controls.negative_lod->SetEnabled(context_.versions.DrvVer >= kFirstNegativeLodDriver);
  ReadShader(kPixelShaderRow, *controls.pixel_shader, context_.state.PixelShaderVersionText);
  ReadShader(kVertexShaderRow, *controls.vertex_shader, context_.state.VertexShaderVersionText);
  context_.state.MaxSimultaneousTextures = Read(kMaxTexturesValue).value_or(-1);
  CatalogueReader reader(controls, context_.lang_text, [this](std::string_view name, Place place) {
    return context_.key.Read(name, place);
  });
  reader.Show(kDirect3DCatalogue);
}

void Direct3DReader::ReadSliAntialiasing() {
  const Direct3DControls& controls = context_.controls;
  const std::int32_t number = Read(kSliAaValue).value_or(kSliAaCleared);
  if (number == kSliAaSet || number == kSliAaCleared) {
    const int on = number == kSliAaSet ? 1 : 0;
    controls.sli->Show(on);
    controls.opengl_sli->Show(on);
    context_.state.SliAaOn = on;
  }
  const bool can_join = context_.adapter.IsOneOf({"014", "004", "00C", "009"});
  controls.sli->SetEnabled(can_join);
  controls.opengl_sli->SetEnabled(can_join);
}

void Direct3DReader::ShowTransparency(int mode) {
  context_.state.AaTransparencyMode = mode;
  ShowBoth(context_.controls.transparency, context_.controls.opengl_transparency,
           Text(kTransparencyTexts[mode]));
}

void Direct3DReader::ReadSharedAntialiasing() {
  const Direct3DControls& controls = context_.controls;
  Direct3DState& state = context_.state;
  std::int32_t number = Read(kSharedAaValue).value_or(0);
  const AaFlagRow* flags = FlagsOf(number);
  if (flags != nullptr) number -= flags->flags;
  ShowTransparency(flags != nullptr ? flags->transparency : 0);
  state.AaGammaOn = flags != nullptr ? flags->gamma : 0;
  controls.gamma->Show(state.AaGammaOn);
  controls.opengl_gamma->Show(state.AaGammaOn);

  const auto mode = std::find_if(kAaModes.begin(), kAaModes.end(),
                                 [number](const AaMode& each) { return each.number == number; });
  if (mode == kAaModes.end()) {
    ShowBoth(controls.mode, controls.opengl_mode, Text(Ui(183)));
  } else if (state.SliAaOn == 1 && !mode->sli.empty()) {
    ShowBoth(controls.mode, controls.opengl_mode, std::string(mode->sli));
  } else {
    controls.mode->ShowText(Text(mode->text));
    controls.opengl_mode->ShowText(Text(mode->opengl));
  }
  state.CurrentAaModeText = controls.mode->Text();
}

void Direct3DReader::ReadOldAntialiasing() {
  controls::ComboBox& mode = *context_.controls.mode;
  const std::int32_t number = Read(kOldAaValue).value_or(0);
  if (number >= 0 && static_cast<std::size_t>(number) < kOldAaTexts.size()) {
    mode.ShowText(Text(kOldAaTexts[static_cast<std::size_t>(number)]));
  }
  if (Read(kOldAaSwitch) == kOldAaOff) mode.ShowText(Text(Ui(145)));
}

void Direct3DReader::ReadSharedAnisotropy() {
  const Direct3DControls& controls = context_.controls;
  const std::int32_t number = Read(kSharedAnisoValue).value_or(0);
  std::optional<ShownText> text;
  if (number == 0 || number == 1) text = Ui(137);
  for (const AnisoLevel& level : kAnisoLevels) {
    if (level.code == kBilinearCode && level.shared == number) {
      text = Ui(145);
    } else if (!text && level.shared == number) {
      text = level.text;
    }
  }
  if (text) ShowBoth(controls.anisotropic, controls.opengl_anisotropic, Text(*text));
}

void Direct3DReader::ReadOldAnisotropy() {
  controls::ComboBox& combo = *context_.controls.anisotropic;
  const std::int32_t number = Read(kOldAnisoValue).value_or(-1);
  if (number == -1) {
    combo.ShowText(Text(Ui(137)));
    return;
  }
  for (const AnisoLevel& level : kAnisoLevels) {
    if (level.OldNumber(context_.versions.DrvVer) == number) combo.ShowText(Text(level.text));
  }
}

void Direct3DReader::ReadShader(const ShaderRow& row, controls::Label& label,
                                std::string& version_text) {
  const std::string prefix = Text(Ui(row.prefix));
  const std::int32_t number = Read(row.name).value_or(0);
  if (number == 0) {
    label.SetCaption(prefix + Text(Ui(88)));
    version_text = Text(Ui(146));
    return;
  }
  version_text = kShaderOffName;
  for (const ShaderVersion& version : row.versions) {
    if (version.token == number) version_text = version.name;
  }
  const bool off = version_text == kShaderOffName;
  label.SetCaption(prefix + (off ? Text(Ui(145)) : version_text));
}

}  // namespace kestrune::d3d
