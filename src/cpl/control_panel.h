#pragma once

#include <string>

#include "core/registry.h"
#include "settings/binding.h"

namespace kestrune::cpl {

/// The switches of the control-panel page, in their order. The temperature boxes have no value: no
/// supported driver switches those pages this way.
extern const std::span<const settings::Setting> kControlPanelSettings;

/// The switches that make the driver's own control panel show its hidden pages.
class ControlPanelOptions {
 public:
  ControlPanelOptions(core::basRegistry& registry, const settings::Hardware& hardware,
                      const lang::LangTable& lang_text, const controls::ControlSet& controls)
      : registry_(registry),
        hardware_(hardware),
        LangText(lang_text),
        bindings_(Bind(kControlPanelSettings, controls)) {}

  /// Shows what is stored and disables what the card or the driver hasn't. The caller holds
  /// IsStart at 1.
  void ReadControlPanelOptions();
  /// A box was ticked or cleared.
  void OptionChanged(const settings::Binding& binding);
  std::span<const settings::Binding> Bindings() const { return bindings_; }

 private:
  std::string KeyFor(const settings::Setting& row) const;

  core::basRegistry& registry_;
  const settings::Hardware& hardware_;
  const lang::LangTable& LangText;
  std::vector<settings::Binding> bindings_;
};

}  // namespace kestrune::cpl
