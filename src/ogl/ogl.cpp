#include "ogl/ogl.h"

#include <algorithm>

#include "d3d/direct3d_catalogue.h"

namespace kestrune::ogl {

using d3d::Change;
using d3d::Place;

void OpenGLWriter::WriteOpenGLSetting(int operation, std::int32_t argument) {
  if (!WriteAntialiasing(operation) && !WriteOldEmulation(operation)) {
    WriteRow(operation, argument);
  }
  // The anisotropic level follows after every operation.
  if (context_.versions.OSFamily == detect::kWindows9x) {
    WriteQualityFlags(operation);
  } else {
    WriteAnisotropy(operation);
  }
  context_.key.SetBinary(0);
}

bool OpenGLWriter::WriteAntialiasing(int operation) const {
  const auto row =
      std::find_if(kAaNumbers.begin(), kAaNumbers.end(), [operation](const AaNumber& each) {
        return each.operation >= 0 && each.operation == operation;
      });
  if (row == kAaNumbers.end()) return false;
  if (!context_.HasSharedValues()) {
    context_.key.Apply({kAaValue, row->number});
    return true;
  }
  for (const d3d::AaMode& mode : d3d::kAaModes) {
    if (mode.opengl_code == operation) context_.write_direct3d(mode.code);
  }
  return true;
}

bool OpenGLWriter::WriteOldEmulation(int operation) const {
  bool found = false;
  for (const OldEmulationWrite& row : kOldEmulationWrites) {
    if (row.operation != operation) continue;
    context_.key.Apply({row.name, row.number});
    found = true;
  }
  return found;
}

void OpenGLWriter::WriteRow(int operation, std::int32_t argument) const {
  std::optional<Change> change = ChangeOf(kOpenGLCatalogue, operation, argument);
  if (!change) return;
  if (change->name == kTripleBuffer && context_.versions.DrvVer < kFirstTripleBufferDriver) {
    change->name = kOldTripleBuffer;
  }
  context_.key.Apply(*change);
  ShowWritten(kOpenGLCatalogue, context_.controls, operation, argument, context_.lang_text);
  if (operation == kTrilinearOperation) {
    context_.controls.trilinear_quality_label->SetCaption(
        TrilinearCaption(argument, context_.lang_text));
  }
}

void OpenGLWriter::WriteAnisotropy(int operation) const {
  const auto row =
      std::find_if(kAnisoNumbers.begin(), kAnisoNumbers.end(),
                   [operation](const AnisoNumber& each) { return each.operation == operation; });
  if (row == kAnisoNumbers.end()) return;
  if (!context_.HasSharedValues()) {
    context_.key.Apply({kAnisoValue, row->number, Place::kDriverKey});
    return;
  }
  if (operation == d3d::kAnisoOffOperation) {
    context_.write_direct3d(d3d::kPointCode);
    return;
  }
  for (const d3d::AnisoLevel& level : d3d::kAnisoLevels) {
    if (level.opengl_code == operation) context_.write_direct3d(level.code);
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
