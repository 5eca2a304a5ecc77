#include "ui/forms/pages.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kAa = "opengl.antialiasing";
constexpr std::string_view kFiltering = "opengl.filtering";
constexpr std::string_view kOptimizations = "opengl.filtering.filtering-optimizations-frame";
constexpr std::string_view kMisc = "opengl.misc";
constexpr std::string_view kCompatibility = "opengl.compatibility";

constexpr ControlSpec kSpecs[] = {
    PageSpec(kAa, "OpenGL AA settings"),
    {Kind::kLabel, "opengl.antialiasing.antialiasing-mode-label", kAa, {150, 375, 3510, 255},
     "Antialiasing mode:"},
    {Kind::kEditableCombo, "opengl.antialiasing.antialiasing-mode", kAa, {150, 630, 3510, 390},
     "", "Auto"},
    {Kind::kLabel, "opengl.antialiasing.transparency-antialiasing-label", kAa,
     {3810, 375, 3510, 255}, "Transparency antialiasing:"},
    {Kind::kCombo, "opengl.antialiasing.transparency-antialiasing", kAa, {3810, 630, 3510, 390},
     "", "Disabled"},
    {Kind::kCheck, "opengl.antialiasing.enable-sli-antialiasing", kAa, {150, 1185, 3510, 330},
     "Enable SLI Antialiasing"},
    {Kind::kCheck, "opengl.antialiasing.gamma-correct-antialiasing", kAa,
     {3810, 1185, 3600, 330}, "Gamma correct antialiasing"},
    {Kind::kCheck, "opengl.antialiasing.texture-sharpening", kAa, {150, 1620, 3510, 330},
     "Texture sharpening"},

    PageSpec(kFiltering, "OpenGL texture filtering settings"),
    {Kind::kLabel, "opengl.filtering.anisotropic-filtering-label", kFiltering,
     {150, 315, 2700, 255}, "Anisotropic filtering:"},
    {Kind::kEditableCombo, "opengl.filtering.anisotropic-filtering", kFiltering,
     {150, 570, 2700, 390}, "", "Auto"},
    {Kind::kLabel, "opengl.filtering.image-settings-label", kFiltering, {150, 1050, 2700, 255},
     "Image settings:"},
    {Kind::kCombo, "opengl.filtering.image-settings", kFiltering, {150, 1305, 2700, 390}, "",
     "Quality"},
    {Kind::kLabel, "opengl.filtering.force-mipmaps-label", kFiltering, {150, 1785, 2700, 255},
     "Force Mipmaps:"},
    {Kind::kCombo, "opengl.filtering.force-mipmaps", kFiltering, {150, 2040, 2700, 390}, "",
     "None"},
    {Kind::kLabel, "opengl.filtering.texture-lod-bias-label", kFiltering, {150, 2520, 2700, 255},
     "Texture LOD bias:"},
    {.kind = Kind::kSlider, .id = "opengl.filtering.texture-lod-bias", .parent = kFiltering,
     .bounds = {150, 2790, 2700, 390}, .caption = "", .minimum = -48, .maximum = 48},
    {Kind::kHeading, "opengl.filtering.intellisample-settings", kFiltering,
     {3060, 315, 4380, 270}, "Intellisample settings"},
    {Kind::kCheck, "opengl.filtering.manual-intellisample-trilinear-configuration", kFiltering,
     {3060, 600, 4425, 330}, "Manual Intellisample trilinear configuration"},
    {Kind::kLabel, "opengl.filtering.trilinear-quality-label", kFiltering,
     {3330, 945, 4080, 255}, "Trilinear quality:"},
    {.kind = Kind::kSlider, .id = "opengl.filtering.trilinear-quality", .parent = kFiltering,
     .bounds = {3330, 1200, 4080, 345}, .caption = "", .minimum = 1, .maximum = 31, .value = 1},
    {Kind::kCheck, "opengl.filtering.manual-intellisample-texture-compression-configuration",
     kFiltering, {3060, 1590, 4425, 330}, "Manual Intellisample texture compression configuration"},
    {Kind::kOption, "opengl.filtering.texture-compression-by-application", kFiltering,
     {3330, 1920, 2100, 330}, "By application"},
    {Kind::kOption, "opengl.filtering.texture-compression-enabled", kFiltering,
     {5460, 1920, 1980, 330}, "Enabled"},
    {Kind::kFrame, kOptimizations, kFiltering, {3060, 2355, 4380, 1620},
     "Filtering optimizations"},
    {Kind::kCheck, "opengl.filtering.trilinear-optimization", kOptimizations,
     {150, 345, 4080, 330}, "Trilinear optimization"},
    {Kind::kCheck, "opengl.filtering.aniso-mip-filter-optimization", kOptimizations,
     {150, 735, 4080, 330}, "Aniso mip filter optimization"},
    {Kind::kCheck, "opengl.filtering.aniso-sample-optimization", kOptimizations,
     {150, 1125, 4080, 330}, "Aniso sample optimization"},

    PageSpec(kMisc, "OpenGL miscellanous settings"),
    {Kind::kHeading, "opengl.misc.s3tc-settings", kMisc, {150, 375, 3450, 270}, "S3TC settings"},
    {Kind::kCheck, "opengl.misc.enable-s3tc-texture-compression", kMisc, {150, 705, 3510, 330},
     "Enable S3TC texture compression"},
    {Kind::kCheck, "opengl.misc.disable-dithering-for-dxt1-textures", kMisc,
     {150, 1095, 3510, 330}, "Disable dithering for DXT1 textures"},
    {Kind::kLabel, "opengl.misc.textures-color-depth-label", kMisc, {150, 1665, 3300, 255},
     "Textures color depth:"},
    {Kind::kCombo, "opengl.misc.textures-color-depth", kMisc, {150, 1920, 3300, 390}, ""},
    {Kind::kHeading, "opengl.misc.vertical-synchronization", kMisc, {3810, 375, 3600, 270},
     "Vertical synchronization"},
    {Kind::kLabel, "opengl.misc.synchronization-mode-label", kMisc, {3810, 705, 3300, 255},
     "Synchronization mode:"},
    {Kind::kCombo, "opengl.misc.synchronization-mode", kMisc, {3810, 960, 3300, 390}, ""},
    {Kind::kHeading, "opengl.misc.other-settings", kMisc, {3810, 1665, 3600, 270},
     "Other settings"},
    {Kind::kCheck, "opengl.misc.triple-buffering", kMisc, {3810, 1995, 3600, 330},
     "Triple buffering"},
    {Kind::kLabel, "opengl.misc.prerender-limit-label", kMisc, {3810, 2430, 3300, 255},
     "Prerender limit:"},
    {Kind::kCombo, "opengl.misc.prerender-limit", kMisc, {3810, 2685, 3300, 390}, ""},

    PageSpec(kCompatibility, "OpenGL compatibility settings"),
    {Kind::kLabel, "opengl.compatibility.opengl-version-override-label", kCompatibility,
     {150, 375, 4200, 255}, "OpenGL version override:"},
    {Kind::kCombo, "opengl.compatibility.opengl-version-override", kCompatibility,
     {150, 630, 4200, 390}, "", "No override"},
    {Kind::kLabel, "opengl.compatibility.compatibility-emulation-mode-label", kCompatibility,
     {150, 1155, 4200, 255}, "Compatibility / emulation mode:"},
    {Kind::kCombo, "opengl.compatibility.compatibility-emulation-mode", kCompatibility,
     {150, 1410, 4200, 390}, ""},
    {Kind::kCheck, "opengl.compatibility.nv4x-glsl-support", kCompatibility,
     {150, 2010, 6000, 330}, "NV4x GLSL support"},
    {Kind::kCheck, "opengl.compatibility.force-software-rasterization", kCompatibility,
     {150, 2445, 6000, 330}, "Force software rasterization"},
    {Kind::kCheck, "opengl.compatibility.enhanced-cpu-instructions-sets-support", kCompatibility,
     {150, 2880, 6000, 330}, "Enhanced CPU instructions sets support"},
};

}  // namespace

const std::span<const ControlSpec> kOpenGLPages = kSpecs;

}  // namespace kestrune::forms
