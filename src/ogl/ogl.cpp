#include "ogl/ogl.h"

#include <algorithm>

namespace kestrune::ogl {

using settings::Binding;
using settings::Change;
using settings::CodeMatch;
using settings::Place;
using settings::Special;
using settings::Writer;

void OpenGLWriter::WriteOpenGLSetting(int operation, std::int32_t argument) {
  Write(operation, argument);
  // The anisotropic level follows after every operation.
  if (context_.IsWindows9x()) {
    WriteQualityFlags(operation);
  } else {
    WriteAnisotropy(operation);
  }
  context_.key.SetBinary(0);
}

void OpenGLWriter::Write(int operation, std::int32_t argument) const {
  WriteOldEmulation(operation);
  const CodeMatch match =
      FindCode(kOpenGLSettings, Writer::kOpenGL, operation, argument, context_.Driver());
  if (match) {
    WriteMatch(match, operation, argument);
  } else if (const std::optional<Change> change = ChangeOf(kOpenGLCodes, operation, argument)) {
    context_.key.Apply(*change);
  }
}

void OpenGLWriter::WriteMatch(const CodeMatch& match, int operation, std::int32_t argument) const {
  const Special special = match.row->special;
  if (special == Special::kMode) RelayToDirect3D(operation);
  const bool is_elsewhere = special == Special::kMode || special == Special::kAnisotropy ||
                            special == Special::kOldEmulation;
  if (is_elsewhere) return;
  context_.key.Apply(ChangeOf(match, argument, context_.Driver()));
  ShowWritten(match, argument);
}

void OpenGLWriter::ShowWritten(const CodeMatch& match, std::int32_t argument) const {
  for (const Binding& binding : context_.bindings) {
    if (binding.setting != match.row) continue;
    if (match.row->special == Special::kNone) {
      ShowStored(binding, match, argument, context_.lang_text);
    } else if (match.row->number_code == kTrilinearOperation) {
      binding.label->SetCaption(TrilinearCaption(argument, context_.lang_text));
    }
  }
}

void OpenGLWriter::WriteOldEmulation(int operation) const {
  for (const OldEmulationWrite& row : kOldEmulationWrites) {
    if (row.operation == operation) context_.key.Apply({row.name, row.number});
  }
}

void OpenGLWriter::RelayToDirect3D(int operation) const {
  const auto relay = std::find_if(kRelays.begin(), kRelays.end(), [operation](const Relay& each) {
    return each.operation == operation;
  });
  if (relay != kRelays.end()) context_.write_direct3d(relay->direct3d_code);
}

void OpenGLWriter::WriteAnisotropy(int operation) const {
  const CodeMatch match =
      FindCode(kOpenGLSettings, Writer::kOpenGL, operation, 0, context_.Driver());
  if (!match || match.row->special != Special::kAnisotropy) return;
  if (context_.HasSharedValues()) {
    RelayToDirect3D(operation);
  } else {
    context_.key.Apply(ChangeOf(match, 0, context_.Driver()));
  }
}

void OpenGLWriter::WriteQualityFlags(int operation) const {
  std::optional<std::int32_t> changed;
  for (const QualityFlagRow& row : kQualityFlagRows) {
    if (row.operation != operation) continue;
    const std::int32_t flags = context_.key.Read(kQualityFlags, Place::kSettings).value_or(0);
    if (flags >= row.lowest && flags <= row.highest) {
      // The ranges leave room for the sum.
      changed = flags + row.added;
      break;
    }
    if (row.rewrites_others) changed = flags;
  }
  if (changed) context_.key.Apply({kQualityFlags, *changed});
}

}  // namespace kestrune::ogl
