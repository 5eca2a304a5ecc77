#include "d3d/d3ddet.h"

#include <algorithm>

#include "core/program_state.h"

namespace kestrune::d3d {

using controls::ComboBox;
using settings::Special;

namespace texts = lang::texts;

namespace {

/// The flags of a shared antialiasing number are told by its decimal text; other numbers have none.
const AaFlagRow* FlagsOf(std::int32_t number) {
  const std::string text = std::to_string(number);
  const auto found =
      std::find_if(kAaFlagRows.begin(), kAaFlagRows.end(), [&text](const AaFlagRow& row) {
        return text.size() == row.digits && text.starts_with(row.begins);
      });
  return found == kAaFlagRows.end() ? nullptr : &*found;
}

const AaMode* ModeOf(std::int32_t number) {
  const auto found = std::find_if(std::begin(kAaModes), std::end(kAaModes),
                                  [number](const AaMode& mode) { return mode.number == number; });
  return found == std::end(kAaModes) ? nullptr : &*found;
}

}  // namespace

OpenGLTwins::OpenGLTwins(const controls::ControlSet& controls)
    : mode(controls.Get<ComboBox>("opengl.antialiasing.antialiasing-mode")),
      anisotropic(controls.Get<ComboBox>("opengl.filtering.anisotropic-filtering")) {}

void Direct3DReader::ReadDirect3DSettings() {
  const core::FlagScope busy(context_.state.D3dReaderBusy);
  if (context_.IsLegacyDriver()) return;
  const platform::ReadScope reading = context_.key.Reading();
  for (const Binding& binding : context_.bindings) Show(binding);
}

void Direct3DReader::Show(const Binding& binding) {
  const Setting& row = context_.hardware.RowOf(*binding.setting);
  switch (row.special) {
    case Special::kSli:
      ShowSli(binding);
      break;
    case Special::kMode:
      ShowSharedMode(binding, row);
      break;
    case Special::kModeFlags:
      // What enables these is seen to where the lists that depend on the card are filled.
      if (context_.HasSharedValues()) ShowFlags(binding);
      return;
    case Special::kOldMode:
      ShowOldMode(binding, row);
      break;
    case Special::kAnisotropy:
      ShowAnisotropy(binding, row);
      break;
    case Special::kShader:
      ShowShader(binding);
      return;
    case Special::kTextures:
      context_.state.MaxSimultaneousTextures = Read(row).value_or(-1);
      return;
    default:
      ShowNumber(binding, row, Read(row), context_.lang_text);
  }
  ApplyNeeds(binding, context_.hardware);
}

void Direct3DReader::ShowSli(const Binding& binding) {
  const std::optional<std::int32_t> number = Read(*binding.setting);
  ShowNumber(binding, *binding.setting, number, context_.lang_text);
  if (const settings::Choice* choice = ShownChoice(*binding.setting, number)) {
    context_.state.SliAaOn = choice->text == settings::kOn ? 1 : 0;
  }
}

void Direct3DReader::ShowSharedMode(const Binding& binding, const Setting& row) {
  Direct3DState& state = context_.state;
  std::int32_t number = Read(row).value_or(0);
  flags_ = FlagsOf(number);
  if (flags_ != nullptr) number -= flags_->flags;
  state.AaTransparencyMode = flags_ != nullptr ? flags_->transparency : 0;
  state.AaGammaOn = flags_ != nullptr ? flags_->gamma : 0;

  auto& combo = dynamic_cast<ComboBox&>(*binding.control);
  const AaMode* mode = ModeOf(number);
  if (mode == nullptr) {
    combo.ShowText(Text(texts::kUnknown));
    opengl_.mode.ShowText(Text(texts::kUnknown));
  } else if (state.SliAaOn == 1 && !mode->sli.empty()) {
    combo.ShowText(std::string(mode->sli));
    opengl_.mode.ShowText(std::string(mode->sli));
  } else {
    combo.ShowText(mode->text.In(context_.lang_text));
    opengl_.mode.ShowText(mode->opengl.In(context_.lang_text));
  }
  state.CurrentAaModeText = combo.Text();
}

void Direct3DReader::ShowFlags(const Binding& binding) {
  const std::int32_t flags = flags_ != nullptr ? flags_->flags : 0;
  // Of the row's flags the one that is set, else none.
  std::int32_t number = 0;
  for (const settings::Choice& choice : binding.setting->choices) {
    if ((flags & choice.number.value_or(0)) != 0) number = *choice.number;
  }
  ShowNumber(binding, *binding.setting, number, context_.lang_text);
}

void Direct3DReader::ShowOldMode(const Binding& binding, const Setting& row) {
  ShowNumber(binding, row, Read(row), context_.lang_text);
  if (context_.key.Read(kOldAaSwitch, row.place) == kOldAaOff) {
    dynamic_cast<ComboBox&>(*binding.control).ShowText(Text(texts::kDisabled));
  }
}

void Direct3DReader::ShowAnisotropy(const Binding& binding, const Setting& row) {
  const std::optional<std::int32_t> number = Read(row);
  ShowNumber(binding, row, number, context_.lang_text);
  const settings::Choice* choice = ShownChoice(row, number);
  if (context_.HasSharedValues() && choice != nullptr) {
    opengl_.anisotropic.ShowText(choice->text.In(context_.lang_text));
  }
}

void Direct3DReader::ShowShader(const Binding& binding) {
  const Setting& row = *binding.setting;
  std::string& version_text = context_.state.VersionText(row);
  const settings::Choice* choice = ShownChoice(row, Read(row));
  const bool is_default = choice != nullptr && choice->text.number == texts::kDefault;
  version_text = is_default          ? Text(texts::kEnabled)
                 : choice == nullptr ? std::string(kShaderOffName)
                                     : std::string(choice->text.word);
  const bool is_off = version_text == kShaderOffName;
  const std::string shown = is_off       ? Text(texts::kDisabled)
                            : is_default ? Text(texts::kDefault)
                                         : version_text;
  binding.label->SetCaption(row.prefix.In(context_.lang_text) + shown);
}

}  // namespace kestrune::d3d
