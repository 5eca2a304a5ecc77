#include "ui/forms/main_form.h"

#include <algorithm>

#include "ui/forms/pages.h"

namespace kestrune::forms {

const std::array<std::string_view, kPageCount> kPageIds = {"control-panel.settings",
                                                           "direct3d.antialiasing",
                                                           "opengl.antialiasing",
                                                           "overclocking",
                                                           "info.basic",
                                                           "opengl.filtering",
                                                           "direct3d.filtering",
                                                           "opengl.misc",
                                                           "direct3d.misc",
                                                           "info.directx",
                                                           "control-panel.resolution",
                                                           "direct3d.multitexturing",
                                                           "direct3d.shaders",
                                                           "opengl.compatibility",
                                                           "info.monitoring",
                                                           "info.processes"};

namespace {

constexpr controls::Rect kItem = {0, 0, 0, 0};

/// Disabled as long as the window that the key opens isn't part of the program.
constexpr ControlSpec Missing(ControlSpec spec) {
  spec.enabled = false;
  return spec;
}

constexpr ControlSpec kWindow[] = {
    {Kind::kWindow, "main", "", {0, 0, kMainWidth, kLowHeight}, "Kestrune SE"},

    {Kind::kKey, "main.nvcpl", "main", {90, 60, 960, 735}, "nVidia"},
    {Kind::kKey, "main.nvcpl1", "main.nvcpl", kItem, "Control Panel settings"},
    {Kind::kKey, "main.nvcpl2", "main.nvcpl", kItem, "Resolution setting"},
    {Kind::kKey, "main.nvcpl3", "main.nvcpl", kItem, "Display properties ..."},
    {Kind::kKey, "main.nvcpl4", "main.nvcpl", kItem, "nVidia overlay applet ..."},
    {Kind::kKey, "main.nvcpl5", "main.nvcpl", kItem, "nVidia TV applet ..."},
    Missing({Kind::kKey, "main.regedit", "main.nvcpl", kItem, "Registry editor"}),
    Missing({Kind::kKey, "main.pedit", "main.nvcpl", kItem, "Profile manager"}),
    Missing({Kind::kKey, "main.abouti", "main.nvcpl", kItem, "About ..."}),
    {Kind::kKey, "main.dx", "main", {1050, 60, 1080, 735}, "Direct3D"},
    {Kind::kKey, "main.aa2", "main.dx", kItem, "Antialiasing"},
    {Kind::kKey, "main.tf2", "main.dx", kItem, "Texture filtering"},
    {Kind::kKey, "main.ms2", "main.dx", kItem, "Miscellanous"},
    {Kind::kKey, "main.mt", "main.dx", kItem, "Multitexturing"},
    {Kind::kKey, "main.psvs", "main.dx", kItem, "Shaders settings"},
    {Kind::kKey, "main.ogl", "main", {2130, 60, 1050, 735}, "OpenGL"},
    {Kind::kKey, "main.aa", "main.ogl", kItem, "Antialiasing"},
    {Kind::kKey, "main.tf", "main.ogl", kItem, "Texture filtering"},
    {Kind::kKey, "main.ms", "main.ogl", kItem, "Miscellanous"},
    {Kind::kKey, "main.oglcs", "main.ogl", kItem, "Compatibility settings"},
    {Kind::kKey, "main.oc", "main", {3180, 60, 1215, 735}, "Overclocking"},
    {Kind::kKey, "main.info", "main", {4395, 60, 840, 735}, "Info"},
    {Kind::kKey, "main.basic", "main.info", kItem, "Basic informations"},
    {Kind::kKey, "main.basicdx", "main.info", kItem, "DirectX informations"},
    {Kind::kKey, "main.sys", "main.info", kItem, "System monitoring"},
    {Kind::kKey, "main.proc", "main.info", kItem, "Processes informations"},
    Missing({Kind::kKey, "main.pw", "main", {5235, 60, 2100, 735}, "Performance Wizard"}),
    {Kind::kKey, "main.qorv", "main", {7335, 60, 750, 735}, "Web"},

    {.kind = Kind::kSlider,
     .id = "main.group-scroll-bar",
     .parent = "main",
     .bounds = {7755, 840, 270, 4260},
     .caption = "",
     .minimum = 1,
     .maximum = 1,
     .value = 1,
     .visible = false},
};

constexpr ControlSpec kLowerPanel[] = {
    {Kind::kLabel, "main.lower-panel-edge", "main", {120, 5190, 7905, 330}, ""},
    {.kind = Kind::kCheck,
     .id = "main.enable-help-system",
     .parent = "main",
     .bounds = {150, 5640, 3150, 330},
     .caption = "Enable help system",
     .value = 1},
    {Kind::kCheck,
     "main.remember-last-visited-page",
     "main",
     {150, 5985, 3150, 330},
     "Remember last visited page"},
    {Kind::kLabel, "main.language-label", "main", {3420, 5670, 1500, 270}, "Language:"},
    {Kind::kCombo, "main.language", "main", {4935, 5640, 2190, 375}, ""},
    {Kind::kLabel, "main.language-header", "main", {3420, 6045, 3705, 270}, ""},
    {Kind::kPicture, "main.help-system-picture", "main", {7275, 5640, 720, 720}, ""},
};

}  // namespace

MainForm::MainForm() {
  Add(kWindow);
  Add(kControlPanelPages);
  Add(kDirect3DPages);
  Add(kOpenGLPages);
  Add(kOverclockingPages);
  Add(kInformationPages);
  Add(kLowerPanel);
}

bool IsPageId(std::string_view id) {
  return std::find(kPageIds.begin(), kPageIds.end(), id) != kPageIds.end();
}

controls::Frame& MainForm::Page(int index) const {
  return Get<controls::Frame>(kPageIds[static_cast<std::size_t>(index)]);
}

}  // namespace kestrune::forms
