#include "ui/forms/monitoring_page.h"

#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace {

using controls::Button;
using controls::OptionButton;

constexpr std::string_view kPage = "info.monitoring";
constexpr std::string_view kNothingYet = "0%";

constexpr ControlRow kRows[] = {
    Row(Kind::kLabel, "info.monitoring.cpu-usage", kPage, {150, 315, 2070, 270}, 46),
    Row(Kind::kLabel, "info.monitoring.cpu-1", kPage, {2310, 315, 1110, 270})
        .Design(kNothingYet)
        .Tip(51),
    Row(Kind::kBar, "info.monitoring.cpu-1-bar", kPage, {3510, 345, 0, 210}, 51).Tip(51),
    Row(Kind::kLabel, "info.monitoring.cpu-2", kPage, {4800, 315, 1110, 270})
        .Design(kNothingYet)
        .Tip(52),
    Row(Kind::kBar, "info.monitoring.cpu-2-bar", kPage, {6000, 345, 0, 210}, 52).Tip(52),
    Row(Kind::kGraph, "info.monitoring.cpu-graph", kPage, {150, 615, 7260, 1140}, 46),
    Row(Kind::kLabel, "info.monitoring.free-physics-memory", kPage, {150, 1860, 3270, 270}, 47),
    Row(Kind::kLabel, "info.monitoring.free-memory", kPage, {3510, 1860, 3900, 270})
        .Design(kNothingYet),
    Row(Kind::kGraph, "info.monitoring.memory-graph", kPage, {150, 2160, 7260, 1140}, 47),
    Row(Kind::kLabel, "info.monitoring.monitoring-speed", kPage, {150, 3420, 2640, 270}, 48),
    Row(Kind::kOption, "info.monitoring.fast", kPage, {2880, 3390, 1200, 330}, 49),
    Row(Kind::kOption, "info.monitoring.normal", kPage, {4170, 3390, 1500, 330}, 50),
    Row(Kind::kOption, "info.monitoring.slow", kPage, {5760, 3390, 1650, 330}, 57).Chosen(),
    Row(Kind::kButton, "info.monitoring.rec", kPage, {4170, 3765, 1575, 405}, 58),
    Row(Kind::kButton, "info.monitoring.stop", kPage, {5835, 3765, 1575, 405}, 59).Disabled(),
};

}  // namespace

const std::span<const ControlRow> kMonitoringControls = kRows;

MonitoringPage::MonitoringPage(const Shared& shared)
    : monitoring_(shared.services, shared.timers, shared.state, shared.versions, shared.LangText(),
                  shared.controls) {
  std::vector<OptionButton*> options;
  for (const auto& [id, interval_ms] : monitor::kSpeeds) {
    auto& option = shared.controls.Get<OptionButton>(id);
    option.on_click = [this, ms = interval_ms] { monitoring_.SetInterval(ms); };
    options.push_back(&option);
  }
  OptionButton::Group(options);
  shared.controls.Get<Button>("info.monitoring.rec").on_click = [this] {
    monitoring_.StartRecording();
  };
  shared.controls.Get<Button>("info.monitoring.stop").on_click = [this, &windows = shared.windows] {
    monitoring_.StopRecording();
    windows.Open("monitoring");
  };
}

}  // namespace kestrune::forms
