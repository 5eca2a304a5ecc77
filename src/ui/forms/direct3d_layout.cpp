#include "ui/forms/pages.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kAa = "direct3d.antialiasing";
constexpr std::string_view kFiltering = "direct3d.filtering";
constexpr std::string_view kMisc = "direct3d.misc";
constexpr std::string_view kTextures = "direct3d.multitexturing";
constexpr std::string_view kShaders = "direct3d.shaders";

constexpr ControlSpec kSpecs[] = {
    PageSpec(kAa, "Direct3D AA settings"),
    {Kind::kLabel, "direct3d.antialiasing.antialiasing-mode-label", kAa, {150, 315, 3510, 255},
     "Antialiasing mode:"},
    {Kind::kEditableCombo, "direct3d.antialiasing.antialiasing-mode", kAa, {150, 570, 3510, 390},
     "", "Auto"},
    {Kind::kLabel, "direct3d.antialiasing.transparency-antialiasing-label", kAa,
     {3810, 315, 3510, 255}, "Transparency antialiasing:"},
    {Kind::kCombo, "direct3d.antialiasing.transparency-antialiasing", kAa,
     {3810, 570, 3510, 390}, "", "Disabled"},
    {Kind::kCheck, "direct3d.antialiasing.enable-sli-antialiasing", kAa, {150, 1020, 3510, 330},
     "Enable SLI Antialiasing"},
    {Kind::kCheck, "direct3d.antialiasing.gamma-correct-antialiasing", kAa,
     {3810, 1020, 3600, 330}, "Gamma correct antialiasing"},
    {Kind::kHeading, "direct3d.antialiasing.compare-pictures", kAa, {150, 1410, 2700, 270},
     "Compare pictures:"},
    {.kind = Kind::kOption, .id = "direct3d.antialiasing.normal-size", .parent = kAa,
     .bounds = {2900, 1380, 2200, 330}, .caption = "Normal size", .value = 1},
    {Kind::kOption, "direct3d.antialiasing.zoom", kAa, {5160, 1380, 2250, 330}, "Zoom"},
    {Kind::kPicture, "direct3d.antialiasing.no-antialiasing", kAa, {150, 1755, 3510, 2070}, ""},
    {Kind::kLabel, "direct3d.antialiasing.no-antialiasing-label", kAa, {150, 3855, 3510, 270},
     "No antialiasing"},
    {Kind::kPicture, "direct3d.antialiasing.selected-antialiasing", kAa,
     {3810, 1755, 3510, 2070}, ""},
    {Kind::kLabel, "direct3d.antialiasing.selected-antialiasing-label", kAa,
     {3810, 3855, 3510, 270}, "Selected antialiasing"},

    PageSpec(kFiltering, "Direct3D texture filtering settings"),
    {Kind::kLabel, "direct3d.filtering.anisotropic-filtering-label", kFiltering,
     {150, 375, 3000, 255}, "Anisotropic filtering:"},
    {Kind::kEditableCombo, "direct3d.filtering.anisotropic-filtering", kFiltering,
     {150, 630, 3000, 390}, "", "Auto"},
    {Kind::kLabel, "direct3d.filtering.intellisample-image-settings-label", kFiltering,
     {150, 1155, 3000, 255}, "Intellisample image settings:"},
    {Kind::kCombo, "direct3d.filtering.intellisample-image-settings", kFiltering,
     {150, 1410, 3000, 390}, "", "Quality"},
    {Kind::kLabel, "direct3d.filtering.force-mipmaps-label", kFiltering, {150, 1935, 3000, 255},
     "Force mipmaps:"},
    {Kind::kCombo, "direct3d.filtering.force-mipmaps", kFiltering, {150, 2190, 3000, 390}, "",
     "None"},
    {Kind::kLabel, "direct3d.filtering.texture-lod-bias-label", kFiltering,
     {150, 2745, 3000, 255}, "Texture LOD bias: 0"},
    {.kind = Kind::kSlider, .id = "direct3d.filtering.texture-lod-bias", .parent = kFiltering,
     .bounds = {150, 3015, 3000, 390}, .caption = "", .minimum = -24, .maximum = 24},
    {Kind::kCheck, "direct3d.filtering.force-textures-to-low-mip-level", kFiltering,
     {3450, 600, 3960, 330}, "Force textures to low MIP level"},
    {Kind::kCheck, "direct3d.filtering.trilinear-optimization", kFiltering,
     {3450, 1035, 3960, 330}, "Trilinear optimization"},
    {Kind::kCheck, "direct3d.filtering.aniso-mip-filter-optimization", kFiltering,
     {3450, 1470, 3960, 330}, "Aniso mip filter optimization"},
    {Kind::kCheck, "direct3d.filtering.aniso-sample-optimization", kFiltering,
     {3450, 1905, 3960, 330}, "Aniso sample optimization"},
    {Kind::kCheck, "direct3d.filtering.disable-mipmap-filtering", kFiltering,
     {3450, 2340, 3960, 330}, "Disable mipmap filtering"},
    {Kind::kCheck, "direct3d.filtering.allow-negative-lod-bias", kFiltering,
     {3450, 2775, 3960, 330}, "Allow negative LOD bias"},

    PageSpec(kMisc, "Direct3D miscellanous settings"),
    {Kind::kHeading, "direct3d.misc.vertical-synchronization", kMisc, {150, 375, 3300, 270},
     "Vertical synchronization"},
    {Kind::kLabel, "direct3d.misc.synchronization-mode-label", kMisc, {150, 750, 3300, 255},
     "Synchronization mode:"},
    {Kind::kCombo, "direct3d.misc.synchronization-mode", kMisc, {150, 1005, 3300, 390}, "",
     "Off"},
    {Kind::kLabel, "direct3d.misc.prerender-limit-label", kMisc, {150, 1530, 3300, 255},
     "Prerender limit:"},
    {Kind::kCombo, "direct3d.misc.prerender-limit", kMisc, {150, 1785, 3300, 390}, "", "0"},
    {Kind::kCheck, "direct3d.misc.enable-z-buffer-compression", kMisc, {3750, 1035, 3660, 330},
     "Enable Z-buffer compression"},
    {Kind::kCheck, "direct3d.misc.enable-fog-table-emulation", kMisc, {3750, 1470, 3660, 330},
     "Enable fog-table emulation"},

    PageSpec(kTextures, "Direct3D Multitexturing settings"),
    {Kind::kLabel, "direct3d.multitexturing.max-simultaneous-textures-label", kTextures,
     {150, 480, 5400, 255}, "Max simultaneous textures: 0"},
    {.kind = Kind::kSlider, .id = "direct3d.multitexturing.max-simultaneous-textures",
     .parent = kTextures, .bounds = {150, 780, 5400, 390}, .caption = "", .minimum = 1,
     .maximum = 8, .value = 1},
    {Kind::kCheck, "direct3d.multitexturing.override-multitexturing-settings", kTextures,
     {150, 1395, 5400, 330}, "Override multitexturing settings"},
    {.kind = Kind::kButton, .id = "direct3d.multitexturing.apply-setting-now",
     .parent = kTextures, .bounds = {150, 1950, 2700, 435}, .caption = "Apply setting now",
     .enabled = false},

    PageSpec(kShaders, "Direct3D Pixel and Vertex Shaders settings"),
    {Kind::kLabel, "direct3d.shaders.compatibility", kShaders, {150, 405, 2550, 255},
     "Compatibility"},
    {Kind::kLabel, "direct3d.shaders.image-quality", kShaders, {3000, 405, 2550, 255},
     "Image Quality"},
    {Kind::kLabel, "direct3d.shaders.pixel-shader-label", kShaders, {150, 765, 5400, 255},
     "Pixel Shader:"},
    {.kind = Kind::kSlider, .id = "direct3d.shaders.pixel-shader", .parent = kShaders,
     .bounds = {150, 1050, 5400, 390}, .caption = "", .minimum = 0, .maximum = 8},
    {Kind::kLabel, "direct3d.shaders.vertex-shader-label", kShaders, {150, 1590, 5400, 255},
     "Vertex Shader:"},
    {.kind = Kind::kSlider, .id = "direct3d.shaders.vertex-shader", .parent = kShaders,
     .bounds = {150, 1875, 5400, 390}, .caption = "", .minimum = 0, .maximum = 8},
    {Kind::kCheck, "direct3d.shaders.override-shaders-settings", kShaders,
     {150, 2475, 5400, 330}, "Override Shaders settings"},
    {.kind = Kind::kButton, .id = "direct3d.shaders.apply-settings-now", .parent = kShaders,
     .bounds = {150, 3000, 2700, 435}, .caption = "Apply settings now", .enabled = false},
};

}  // namespace

const std::span<const ControlSpec> kDirect3DPages = kSpecs;

}  // namespace kestrune::forms
