#include "catalogue/catalogue.h"

#include <algorithm>

#include "cpl/control_panel.h"
#include "d3d/direct3d_settings.h"
#include "ogl/opengl_settings.h"
#include "settings/own_settings.h"

namespace kestrune::catalogue {

using settings::Setting;

const std::vector<const Setting*>& AllSettings() {
  static const std::vector<const Setting*> kAll = [] {
    std::vector<const Setting*> all;
    for (const std::span<const Setting> rows :
         {d3d::kDirect3DSettings, ogl::kOpenGLSettings, cpl::kControlPanelSettings,
          settings::kOwnSettings}) {
      for (const Setting& row : rows) all.push_back(&row);
    }
    return all;
  }();
  return kAll;
}

const Setting* SettingOf(std::string_view id) {
  const auto found =
      std::find_if(AllSettings().begin(), AllSettings().end(),
                   [id](const Setting* row) { return row->id == id || row->twin == id; });
  return found == AllSettings().end() ? nullptr : *found;
}

}  // namespace kestrune::catalogue
