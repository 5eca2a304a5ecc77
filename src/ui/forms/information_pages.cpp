#include "ui/forms/information_pages.h"

#include "core/options.h"
#include "lang/texts.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

constexpr std::string_view kBasic = "info.basic";

/// A line that detection fills; one that it can't fill stays as designed. The processor's name may
/// need two, so it stands last.
constexpr ControlRow Line(int place, std::string_view id, std::string_view design, int lines = 1) {
  return Row(Kind::kLabel, id, kBasic, {210, 285 + 330 * place, 7200, 270 * lines}).Design(design);
}

constexpr ControlRow kBasicRows[] = {
    Line(0, "info.basic.vga-device", "VGA Device:"),
    Line(1, "info.basic.gpu-id", "GPU ID:"),
    Line(2, "info.basic.revision", "Revision:"),
    Line(3, "info.basic.display-driver-version", "Display driver version:"),
    Line(4, "info.basic.os-version", "OS version:"),
    Line(5, "info.basic.directx-version", "DirectX version:"),
    Line(6, "info.basic.total-physics-memory", "Total physics memory:"),
    Line(7, "info.basic.kestrune-se-version", "Kestrune SE version:"),
    Line(8, "info.basic.identifier", "Identifier:"),
    Line(9, "info.basic.real-cpu-speed", "Real CPU speed:"),
    Line(10, "info.basic.cpu", "CPU:", 2),
};

}  // namespace

const std::span<const ControlRow> kBasicInformationControls = kBasicRows;

InformationPages::InformationPages(const Shared& shared)
    : LangText(shared.LangText()),
      version_line_(shared.controls.Get<controls::Label>("info.basic.kestrune-se-version")) {}

void InformationPages::ShowVersion(int last_update) {
  std::string line = "Kestrune SE " + LangText[texts::kProgramVersion] +
                     std::to_string(core::kMajorVersion) + "." +
                     std::to_string(core::kMinorVersion);
  if (last_update > 0) line += LangText[texts::kLastUpdate] + std::to_string(last_update);
  version_line_.SetCaption(line);
}

}  // namespace kestrune::forms
