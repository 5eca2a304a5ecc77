#include "ui/forms/information_pages.h"

#include "core/options.h"
#include "lang/texts.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

constexpr std::string_view kBasic = "info.basic";

// The lines are filled by detection; one that it can't fill stays as designed.
constexpr ControlRow kBasicRows[] = {
    Row(Kind::kLabel, "info.basic.vga-device", kBasic, {210, 480, 7200, 270}).Design("VGA Device:"),
    Row(Kind::kLabel, "info.basic.display-driver-version", kBasic, {210, 870, 7200, 270})
        .Design("Display driver version:"),
    Row(Kind::kLabel, "info.basic.os-version", kBasic, {210, 1260, 7200, 270})
        .Design("OS version:"),
    Row(Kind::kLabel, "info.basic.directx-version", kBasic, {210, 1650, 7200, 270})
        .Design("DirectX version:"),
    Row(Kind::kLabel, "info.basic.kestrune-se-version", kBasic, {210, 2040, 7200, 270})
        .Design("Kestrune SE version:"),
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
