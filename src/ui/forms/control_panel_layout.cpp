#include "ui/forms/pages.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kSettings = "control-panel.settings";
constexpr std::string_view kResolution = "control-panel.resolution";

constexpr ControlSpec kSpecs[] = {
    PageSpec(kSettings, "Control Panel settings"),
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-coolbits-overclocking", .parent = kSettings, .bounds = {150, 300, 4275, 315}, .caption = "Enable CoolBits (overclocking)"},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-agp-settings-page", .parent = kSettings, .bounds = {150, 615, 4275, 315}, .caption = "Enable AGP settings page"},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-additional-info-page", .parent = kSettings, .bounds = {150, 930, 4275, 315}, .caption = "Enable additional info page"},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-troubleshooting-page", .parent = kSettings, .bounds = {150, 1245, 4275, 315}, .caption = "Enable Troubleshooting page"},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-application-profile-page", .parent = kSettings, .bounds = {150, 1560, 4275, 315}, .caption = "Enable application profile page"},
    {.kind = Kind::kCheck, .id = "control-panel.settings.override-nview-capable", .parent = kSettings, .bounds = {150, 1875, 4275, 315}, .caption = "Override nView capable"},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-overlay-control-in-span-mode", .parent = kSettings, .bounds = {150, 2190, 4275, 315}, .caption = "Enable Overlay control in Span mode"},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-thermal-settings-page", .parent = kSettings, .bounds = {150, 2505, 7260, 315}, .caption = "Enable Thermal settings page", .enabled = false},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-heat-indicator-warning", .parent = kSettings, .bounds = {150, 2820, 7260, 315}, .caption = "Enable Heat indicator warning", .enabled = false},
    {.kind = Kind::kCheck, .id = "control-panel.settings.display-core-temperature-in-system-tray-area", .parent = kSettings, .bounds = {150, 3135, 7260, 315}, .caption = "Display Core Temperature in system tray area", .enabled = false},
    {.kind = Kind::kCheck, .id = "control-panel.settings.enable-direct3d-refreh-rate-page", .parent = kSettings, .bounds = {150, 3450, 7260, 315}, .caption = "Enable Direct3D refreh rate page"},
    {.kind = Kind::kPicture, .id = "control-panel.settings.picture", .parent = kSettings, .bounds = {4470, 420, 2940, 1911}, .caption = "", .visible = false},
    {Kind::kLabel, "control-panel.settings.registry-editor-note", kSettings, {150, 3840, 7260, 270},
     "You can find more options in Kestrune Registry editor."},

    PageSpec(kResolution, "Resolution setting"),
    {Kind::kLabel, "control-panel.resolution.select-from-list-label", kResolution, {150, 375, 3000, 255}, "Select from list ..."},
    // Disabled until display modes can be changed.
    {.kind = Kind::kCombo, .id = "control-panel.resolution.select-from-list", .parent = kResolution, .bounds = {150, 630, 3000, 390}, .caption = "", .enabled = false},
};

}  // namespace

const std::span<const ControlSpec> kControlPanelPages = kSpecs;

}  // namespace kestrune::forms
