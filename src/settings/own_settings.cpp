#include "settings/own_settings.h"

#include "core/options.h"

namespace kestrune::settings {

namespace {

constexpr Choice kState[] = {{kOff, 0}, {kOn, 1}};

constexpr Setting Option(std::string_view id, std::string_view name, std::int32_t not_set) {
  return {.id = id,
          .writer = Writer::kProgram,
          .shape = Shape::kBox,
          .name = name,
          .place = Place::kOptionsKey,
          .not_set = not_set,
          .choices = kState,
          .otherwise = Otherwise::kState};
}

constexpr Setting kRows[] = {
    Option("main.enable-help-system", core::kHelpSystemValue, 1),
    {.id = "main.remember-last-visited-page",
     .writer = Writer::kProgram,
     .shape = Shape::kBox,
     .name = core::kLastVisitedPageValue,
     .place = Place::kOptionsKey,
     .special = Special::kPresence},
    {.id = "main.language",
     .label = "main.language-label",
     .writer = Writer::kProgram,
     .shape = Shape::kList,
     .name = core::kLanguageValue,
     .place = Place::kOptionsKey,
     .special = Special::kPresence},
    Option("direct3d.multitexturing.override-multitexturing-settings",
           core::kOverrideMultiTextureValue, 0),
    Option("direct3d.shaders.override-shaders-settings", core::kOverrideShadersValue, 0),
};

}  // namespace

const std::span<const Setting> kOwnSettings = kRows;

}  // namespace kestrune::settings
