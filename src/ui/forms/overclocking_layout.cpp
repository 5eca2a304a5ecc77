#include "ui/forms/pages.h"

namespace kestrune::forms {

namespace {

constexpr std::string_view kPage = "overclocking";

/// Disabled until the page is prepared, when it is first shown.
constexpr ControlSpec Waiting(ControlSpec spec) {
  spec.enabled = false;
  return spec;
}

constexpr ControlSpec kSpecs[] = {
    PageSpec(kPage, "Overclocking"),
    {.kind = Kind::kCheck,
     .id = "overclocking.enable-overclocking",
     .parent = kPage,
     .bounds = {150, 345, 3510, 330},
     .caption = "Enable Overclocking",
     .value = 1},
    Waiting({Kind::kCheck,
             "overclocking.apply-settings-at-startup",
             kPage,
             {3810, 345, 3600, 330},
             "Apply settings at startup"}),
    Waiting({Kind::kHeading, "overclocking.settings", kPage, {150, 780, 2400, 270}, "Settings:"}),
    Waiting({Kind::kOption, "overclocking.2d-speed", kPage, {2700, 750, 2250, 330}, "2D speed"}),
    Waiting({Kind::kOption, "overclocking.3d-speed", kPage, {5010, 750, 2400, 330}, "3D speed"}),
    Waiting({Kind::kLabel,
             "overclocking.default-core-speed",
             kPage,
             {150, 1230, 3510, 255},
             "Default Core speed: 350 MHz"}),
    Waiting({Kind::kLabel,
             "overclocking.current-core-speed",
             kPage,
             {3810, 1230, 3600, 255},
             "Current Core speed: 370 MHz"}),
    Waiting({.kind = Kind::kSlider,
             .id = "overclocking.core-clock-slider",
             .parent = kPage,
             .bounds = {150, 1545, 5850, 390},
             .caption = "",
             .minimum = 0,
             .maximum = 1000,
             .value = 370}),
    Waiting({Kind::kText, "overclocking.core-clock", kPage, {6150, 1545, 1260, 390}, "", "370"}),
    Waiting({Kind::kLabel,
             "overclocking.default-memory-speed",
             kPage,
             {150, 2130, 3510, 255},
             "Default Memory speed: 700 MHz"}),
    Waiting({Kind::kLabel,
             "overclocking.current-memory-speed",
             kPage,
             {3810, 2130, 3600, 255},
             "Current Memory speed: 760 MHz"}),
    Waiting({.kind = Kind::kSlider,
             .id = "overclocking.memory-clock-slider",
             .parent = kPage,
             .bounds = {150, 2445, 5850, 390},
             .caption = "",
             .minimum = 0,
             .maximum = 2000,
             .value = 760}),
    Waiting({Kind::kText, "overclocking.memory-clock", kPage, {6150, 2445, 1260, 390}, "", "760"}),
    Waiting({Kind::kButton, "overclocking.apply", kPage, {3210, 3300, 2025, 435}, "Apply"}),
    Waiting({Kind::kButton, "overclocking.default", kPage, {5385, 3300, 2025, 435}, "Default"}),
};

}  // namespace

const std::span<const ControlSpec> kOverclockingPages = kSpecs;

}  // namespace kestrune::forms
