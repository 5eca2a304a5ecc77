#include "ui/forms/information_pages.h"

namespace kestrune::forms {

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

}  // namespace kestrune::forms
