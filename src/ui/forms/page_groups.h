#pragma once

#include "ui/forms/control_panel_pages.h"
#include "ui/forms/direct3d_pages.h"
#include "ui/forms/directx_page.h"
#include "ui/forms/driver_settings.h"
#include "ui/forms/information_pages.h"
#include "ui/forms/monitoring_page.h"
#include "ui/forms/opengl_pages.h"
#include "ui/forms/overclocking_page.h"
#include "ui/forms/processes_page.h"
#include "ui/forms/resolution_page.h"

namespace kestrune::forms {

/// The pages' own logic, a part for each group of pages that has some. All of it works on shared
/// state that outlives it.
struct PageGroups {
  explicit PageGroups(const Shared& shared)
      : driver(shared),
        direct3d(shared, driver),
        opengl(shared, driver, direct3d),
        control_panel(shared),
        resolution(shared),
        overclocking(shared),
        information(shared),
        monitoring(shared),
        directx(shared),
        processes(shared) {}

  DriverSettings driver;
  Direct3DPages direct3d;
  OpenGLPages opengl;
  ControlPanelPages control_panel;
  ResolutionPage resolution;
  OverclockingPage overclocking;
  InformationPages information;
  MonitoringPage monitoring;
  DirectXPage directx;
  ProcessesPage processes;
};

}  // namespace kestrune::forms
