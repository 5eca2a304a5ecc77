#include "ui/forms/pages.h"

#include <algorithm>

#include "ui/forms/page_groups.h"

namespace kestrune::forms {

namespace {

/// Where every page stands in the main window, in twips.
constexpr controls::Rect kPageBounds = {120, 840, 7560, 4260};

void ReadControlPanel(PageGroups& pages) { pages.control_panel.ReadOptions(); }
void FillDirectXReport(PageGroups& pages) { pages.directx.PageShown(); }
void PrepareOverclocking(PageGroups& pages) { pages.overclocking.PageShown(); }

const PageRow kRows[] = {
    {"control-panel.settings", 31, Group::kControlPanel, 1, "main.nvcpl1", kControlPanelControls,
     ReadControlPanel},
    {"direct3d.antialiasing", 32, Group::kDirect3D, 1, "main.aa2", kDirect3DAntialiasingControls},
    {"opengl.antialiasing", 33, Group::kOpenGL, 1, "main.aa", kOpenGLAntialiasingControls},
    {"overclocking", 34, Group::kNone, 0, "main.oc", kOverclockingControls, PrepareOverclocking},
    {"info.basic", 35, Group::kInformation, 1, "main.basic", kBasicInformationControls},
    {"opengl.filtering", 36, Group::kOpenGL, 2, "main.tf", kOpenGLFilteringControls},
    {"direct3d.filtering", 37, Group::kDirect3D, 2, "main.tf2", kDirect3DFilteringControls},
    {"opengl.misc", 38, Group::kOpenGL, 3, "main.ms", kOpenGLMiscControls},
    {"direct3d.misc", 39, Group::kDirect3D, 3, "main.ms2", kDirect3DMiscControls},
    {"info.directx", 40, Group::kInformation, 2, "main.basicdx", kDirectXControls,
     FillDirectXReport},
    {"control-panel.resolution", 41, Group::kControlPanel, 2, "main.nvcpl2", kResolutionControls},
    {"direct3d.multitexturing", 42, Group::kDirect3D, 4, "main.mt", kMultitexturingControls},
    {"direct3d.shaders", 43, Group::kDirect3D, 5, "main.psvs", kShaderControls},
    {"opengl.compatibility", 44, Group::kOpenGL, 4, "main.oglcs", kOpenGLCompatibilityControls},
    {"info.monitoring", 45, Group::kInformation, 3, "main.sys", kMonitoringControls},
    {"info.processes", 254, Group::kInformation, 4, "main.proc", kProcessControls},
};

}  // namespace

const std::span<const PageRow> kPages = kRows;

ControlRow PageRow::Frame() const {
  return Row(Kind::kFrame, id, "main", kPageBounds, text).Hidden();
}

bool IsPage(int index) { return index >= 0 && index < PageCount(); }

int PageIndex(std::string_view id) {
  const auto found = std::find_if(kPages.begin(), kPages.end(),
                                  [id](const PageRow& page) { return page.id == id; });
  return found == kPages.end() ? -1 : static_cast<int>(found - kPages.begin());
}

int SizeOf(Group group) {
  return static_cast<int>(std::count_if(
      kPages.begin(), kPages.end(), [group](const PageRow& page) { return page.group == group; }));
}

}  // namespace kestrune::forms
