#pragma once

#include <span>

#include "monitor/monitoring.h"
#include "ui/forms/control_row.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

extern const std::span<const ControlRow> kMonitoringControls;

/// The page that shows what the processors and the memory do: its speeds and its recording.
class MonitoringPage {
 public:
  explicit MonitoringPage(const Shared& shared);
  MonitoringPage(const MonitoringPage&) = delete;
  MonitoringPage& operator=(const MonitoringPage&) = delete;

  monitor::Monitoring& Monitoring() { return monitoring_; }

 private:
  monitor::Monitoring monitoring_;
};

}  // namespace kestrune::forms
