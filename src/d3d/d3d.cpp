#include "d3d/d3d.h"

#include <algorithm>
#include <limits>

namespace kestrune::d3d {

using settings::Change;
using settings::CodeMatch;
using settings::Special;
using settings::Writer;

namespace texts = lang::texts;

namespace {

/// The codes that store a mode of their own on drivers before release 50.00; the others store the
/// shared value on every driver.
constexpr int kLastOldModeCode = 8;
/// Leaves the mode to the program.
constexpr int kAutoCode = 0;

}  // namespace

void Direct3DWriter::WriteDirect3DSetting(int code, std::int32_t value) {
  context_.key.SetBinary(0);
  if (context_.IsLegacyDriver()) {
    WriteLegacy(code);
    return;
  }
  // The driver takes the mode only when the switch is there before it.
  if (!context_.HasSharedValues()) WriteOldAntialiasingSwitch(code);
  const int driver = context_.Driver();
  if (const CodeMatch match = FindCode(kDirect3DSettings, Writer::kDirect3D, code, value, driver)) {
    Write(match, value);
  } else if (const std::optional<Change> change = ChangeOf(kDirect3DCodes, code, value)) {
    context_.key.Apply(*change);
  }
}

void Direct3DWriter::WriteLegacy(int code) const {
  for (const LegacyRow& row : kLegacyRows) {
    if (row.code == code) context_.key.Apply({row.name, row.number});
  }
}

void Direct3DWriter::WriteOldAntialiasingSwitch(int code) const {
  if (code < 0 || code > kLastOldModeCode) return;
  context_.key.Apply({kOldAaSwitch, code == kAutoCode ? kOldAaOff : kOldAaForced});
}

void Direct3DWriter::Write(const CodeMatch& match, std::int32_t value) const {
  if (match.row->special == Special::kMode) {
    WriteMode(match);
    return;
  }
  context_.key.Apply(ChangeOf(match, value, context_.Driver()));
  if (match.row->special == Special::kAnisotropy) ShowAnisotropy(match);
  if (match.row->special == Special::kNone) {
    ShowStored(BindingOf(*match.row), match, value, context_.lang_text);
  }
}

std::int32_t Direct3DWriter::FlagWord() const {
  constexpr std::int32_t kTransparencyFlags[] = {0, kAaMultisamplingFlag, kAaSupersamplingFlag};
  const int transparency = std::clamp(context_.state.AaTransparencyMode, 0, 2);
  return kTransparencyFlags[transparency] + (context_.state.AaGammaOn == 1 ? kAaGammaFlag : 0);
}

void Direct3DWriter::WriteMode(const CodeMatch& match) const {
  // Leaving the choice to the program leaves the flags out as well.
  const bool is_auto = match.choice->call->code == kAutoCode;
  const std::int64_t number = is_auto ? 0 : std::int64_t{FlagWord()} + *match.choice->number;
  if (number <= std::numeric_limits<std::int32_t>::max()) {
    context_.key.Apply({match.row->name, static_cast<std::int32_t>(number)});
  }
}

void Direct3DWriter::ShowAnisotropy(const CodeMatch& match) const {
  const int code = match.choice->call->code;
  if (code == kHighestLevelCode) return;
  std::string text = match.choice->text.In(context_.lang_text);
  if (code == kPointCode) text = context_.lang_text[texts::kAuto];
  if (code == kBilinearCode && !context_.HasSharedValues()) text = "Bilinear";
  dynamic_cast<controls::ComboBox&>(*BindingOf(*match.row).control).ShowText(text);
  if (context_.HasSharedValues()) opengl_.anisotropic.ShowText(text);
}

const settings::Binding& Direct3DWriter::BindingOf(const settings::Setting& row) const {
  return *std::find_if(context_.bindings.begin(), context_.bindings.end(),
                       [&row](const settings::Binding& binding) { return binding.Id() == row.id; });
}

}  // namespace kestrune::d3d
