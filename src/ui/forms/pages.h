#pragma once

#include <span>
#include <string_view>

#include "ui/forms/form.h"

/// The layout of the main window's pages, a table for each group of pages.
namespace kestrune::forms {

/// Where every page stands in the main window, in twips.
inline constexpr controls::Rect kPageBounds = {120, 840, 7560, 4260};

/// A page's own row.
constexpr ControlSpec PageSpec(std::string_view id, std::string_view caption) {
  return {.kind = Kind::kFrame,
          .id = id,
          .parent = "main",
          .bounds = kPageBounds,
          .caption = caption,
          .visible = false};
}

extern const std::span<const ControlSpec> kControlPanelPages;
extern const std::span<const ControlSpec> kDirect3DPages;
extern const std::span<const ControlSpec> kOpenGLPages;
extern const std::span<const ControlSpec> kOverclockingPages;
extern const std::span<const ControlSpec> kInformationPages;

}  // namespace kestrune::forms
