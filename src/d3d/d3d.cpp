#include "d3d/d3d.h"

#include <algorithm>
#include <limits>

namespace kestrune::d3d {

namespace {

/// The codes that store a mode of their own on drivers before release 50.00; the others store the
/// shared value on every driver.
constexpr int kLastOldModeCode = 8;

}  // namespace

void Direct3DWriter::WriteDirect3DSetting(int code, std::int32_t value) {
  context_.key.SetBinary(0);
  if (context_.IsLegacyDriver()) {
    WriteLegacy(code);
    return;
  }
  // The driver takes the mode only when the switch is there before it.
  if (!context_.HasSharedValues()) WriteOldAntialiasingSwitch(code);
  if (WriteAntialiasing(code) || WriteSli(code, value) || WriteAnisotropy(code) ||
      WriteShader(code)) {
    return;
  }
  const std::optional<Change> change = ChangeOf(kDirect3DCatalogue, code, value);
  if (!change) return;
  context_.key.Apply(*change);
  ShowWritten(kDirect3DCatalogue, context_.controls, code, value, context_.lang_text);
}

void Direct3DWriter::WriteLegacy(int code) const {
  for (const LegacyRow& row : kLegacyRows) {
    if (row.code == code) context_.key.Apply({row.name, row.number});
  }
}

void Direct3DWriter::WriteOldAntialiasingSwitch(int code) const {
  if (code < 0 || code > kLastOldModeCode) return;
  context_.key.Apply({kOldAaSwitch, code == 0 ? kOldAaOff : kOldAaForced});
}

std::int32_t Direct3DWriter::FlagWord() const {
  constexpr std::int32_t kTransparencyFlags[] = {0, kAaMultisamplingFlag, kAaSupersamplingFlag};
  const int transparency = std::clamp(context_.state.AaTransparencyMode, 0, 2);
  return kTransparencyFlags[transparency] + (context_.state.AaGammaOn == 1 ? kAaGammaFlag : 0);
}

bool Direct3DWriter::WriteAntialiasing(int code) const {
  const AaMode* mode = FindAaModeByCode(code);
  if (mode == nullptr) return false;
  if (!context_.HasSharedValues() && code <= kLastOldModeCode) {
    context_.key.Apply({kOldAaValue, code});
    return true;
  }
  // Leaving the choice to the program leaves the flags out as well.
  const std::int64_t number = code == 0 ? 0 : std::int64_t{FlagWord()} + mode->number;
  if (number <= std::numeric_limits<std::int32_t>::max()) {
    context_.key.Apply({kSharedAaValue, static_cast<std::int32_t>(number)});
  }
  return true;
}

bool Direct3DWriter::WriteSli(int code, std::int32_t value) const {
  if (code != kSliAaCode) return false;
  if (value == 0 || value == 1) {
    context_.key.Apply({kSliAaValue, value == 1 ? kSliAaSet : kSliAaCleared});
  }
  return true;
}

bool Direct3DWriter::WriteAnisotropy(int code) const {
  const bool shared = context_.HasSharedValues();
  const std::string_view name = shared ? kSharedAnisoValue : kOldAnisoValue;
  if (code == kAnisoDeleteCode) {
    context_.key.Apply({name, std::nullopt});
    ShowAnisotropy(Ui(137), Ui(137));
    return true;
  }
  for (const AnisoLevel& level : kAnisoLevels) {
    if (level.code != code) continue;
    context_.key.Apply({name, shared ? level.shared : level.OldNumber(context_.versions.DrvVer)});
    if (code == kPointCode) {
      ShowAnisotropy(Ui(137), Ui(137));
    } else if (code == kBilinearCode) {
      ShowAnisotropy(level.text, Word("Bilinear"));
    } else if (code != kHighestLevelCode) {
      ShowAnisotropy(level.text, level.text);
    }
    return true;
  }
  return false;
}

void Direct3DWriter::ShowAnisotropy(const ShownText& text, const ShownText& old_text) const {
  const bool shared = context_.HasSharedValues();
  const std::string shown = (shared ? text : old_text).In(context_.lang_text);
  context_.controls.anisotropic->ShowText(shown);
  if (shared) context_.controls.opengl_anisotropic->ShowText(shown);
}

bool Direct3DWriter::WriteShader(int code) const {
  for (const ShaderRow* row : {&kPixelShaderRow, &kVertexShaderRow}) {
    if (code == row->delete_code) {
      context_.key.Apply({row->deleted_name, std::nullopt});
      return true;
    }
    for (const ShaderVersion& version : row->versions) {
      if (version.code != code || code < 0) continue;
      context_.key.Apply({row->name, version.token});
      return true;
    }
  }
  return false;
}

}  // namespace kestrune::d3d
