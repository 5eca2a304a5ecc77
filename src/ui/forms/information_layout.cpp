#include "ui/forms/pages.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kBasic = "info.basic";

constexpr ControlSpec kSpecs[] = {
    PageSpec(kBasic, "Basic informations"),
    {Kind::kLabel, "info.basic.vga-device", kBasic, {210, 480, 7200, 270}, "VGA Device:"},
    {Kind::kLabel,
     "info.basic.display-driver-version",
     kBasic,
     {210, 870, 7200, 270},
     "Display driver version:"},
    {Kind::kLabel, "info.basic.os-version", kBasic, {210, 1260, 7200, 270}, "OS version:"},
    {Kind::kLabel,
     "info.basic.directx-version",
     kBasic,
     {210, 1650, 7200, 270},
     "DirectX version:"},
    {Kind::kLabel,
     "info.basic.kestrune-se-version",
     kBasic,
     {210, 2040, 7200, 270},
     "Kestrune SE version:"},

    PageSpec("info.directx", "DirectX informations"),
    PageSpec("info.monitoring", "System monitoring"),
    PageSpec("info.processes", "Processes informations"),
};

}  // namespace

const std::span<const ControlSpec> kInformationPages = kSpecs;

}  // namespace kestrune::forms
