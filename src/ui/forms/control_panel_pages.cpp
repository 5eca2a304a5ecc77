#include "ui/forms/control_panel_pages.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kSettings = "control-panel.settings";

constexpr ControlRow kSettingsRows[] = {
    Row(Kind::kCheck, "control-panel.settings.enable-coolbits-overclocking", kSettings,
        {150, 300, 4500, 315}, 60),
    Row(Kind::kCheck, "control-panel.settings.enable-agp-settings-page", kSettings,
        {150, 615, 4500, 315}, 61),
    Row(Kind::kCheck, "control-panel.settings.enable-additional-info-page", kSettings,
        {150, 930, 4500, 315}, 62),
    Row(Kind::kCheck, "control-panel.settings.enable-troubleshooting-page", kSettings,
        {150, 1245, 4500, 315}, 63),
    Row(Kind::kCheck, "control-panel.settings.enable-application-profile-page", kSettings,
        {150, 1560, 4500, 315}, 64),
    Row(Kind::kCheck, "control-panel.settings.override-nview-capable", kSettings,
        {150, 1875, 4500, 315}, 66),
    Row(Kind::kCheck, "control-panel.settings.enable-overlay-control-in-span-mode", kSettings,
        {150, 2190, 7260, 315}, 67),
    Row(Kind::kCheck, "control-panel.settings.enable-thermal-settings-page", kSettings,
        {150, 2505, 7260, 315})
        .Design("Enable Thermal settings page")
        .Disabled(),
    Row(Kind::kCheck, "control-panel.settings.enable-heat-indicator-warning", kSettings,
        {150, 2820, 7260, 315})
        .Design("Enable Heat indicator warning")
        .Disabled(),
    Row(Kind::kCheck, "control-panel.settings.display-core-temperature-in-system-tray-area",
        kSettings, {150, 3135, 7260, 315})
        .Design("Display Core Temperature in system tray area")
        .Disabled(),
    Row(Kind::kCheck, "control-panel.settings.enable-direct3d-refreh-rate-page", kSettings,
        {150, 3450, 7260, 315}, 65),
    Row(Kind::kPicture, "control-panel.settings.picture", kSettings, {4740, 420, 2670, 1736})
        .Tip(69)
        .Hidden()
        .Does(Action::Kind::kOpenControlPanelItem, "desk.cpl"),
    Row(Kind::kLink, "control-panel.settings.registry-editor-note", kSettings,
        {150, 3840, 7260, 270}, 68)
        .Does(Action::Kind::kOpenWindow, "registry-editor"),
};

/// A switch and the picture of the page that it reveals; the temperature boxes have none.
struct RevealedRow {
  std::string_view box;
  std::string_view tag;
};

constexpr RevealedRow kRevealed[] = {
    {"control-panel.settings.enable-coolbits-overclocking", "oc"},
    {"control-panel.settings.enable-agp-settings-page", "agp"},
    {"control-panel.settings.enable-additional-info-page", "additional"},
    {"control-panel.settings.enable-troubleshooting-page", "debug"},
    {"control-panel.settings.enable-application-profile-page", "app"},
    {"control-panel.settings.override-nview-capable", "nview"},
    {"control-panel.settings.enable-overlay-control-in-span-mode", "ovl"},
    {"control-panel.settings.enable-thermal-settings-page", ""},
    {"control-panel.settings.enable-heat-indicator-warning", ""},
    {"control-panel.settings.display-core-temperature-in-system-tray-area", ""},
    {"control-panel.settings.enable-direct3d-refreh-rate-page", "refresh"},
};

std::string RevealedPicture(std::string_view tag) { return std::string(tag) + ".jpg"; }

}  // namespace

std::vector<std::string> RevealedPictures() {
  std::vector<std::string> names;
  for (const RevealedRow& row : kRevealed) {
    if (!row.tag.empty()) names.push_back(RevealedPicture(row.tag));
  }
  return names;
}

const std::span<const ControlRow> kControlPanelControls = kSettingsRows;

ControlPanelPages::ControlPanelPages(const Shared& shared)
    : state_(shared.state),
      files_(shared.services.files),
      options_(shared.registry, shared.hardware, shared.LangText(), shared.controls),
      picture_(shared.controls.Get<controls::PictureBox>("control-panel.settings.picture")) {
  for (const settings::Binding& binding : options_.Bindings()) {
    dynamic_cast<controls::CheckBox&>(*binding.control).on_change = [this, &binding] {
      options_.OptionChanged(binding);
    };
  }
  for (const RevealedRow& row : kRevealed) {
    shared.controls.Get<controls::CheckBox>(row.box).on_hover = [this, &row] {
      ShowRevealed(row.tag);
    };
  }
}

void ControlPanelPages::ReadOptions() {
  const core::FlagScope starting(state_.IsStart);
  options_.ReadControlPanelOptions();
}

void ControlPanelPages::ShowRevealed(std::string_view tag) {
  picture_.SetVisible(true);
  if (tag.empty() || tag == shown_tag_) return;
  shown_tag_ = tag;
  const std::string file = std::string(kRevealedFolder) + RevealedPicture(tag);
  if (files_.IsPicture(file)) picture_.ShowFile(file);
}

}  // namespace kestrune::forms
