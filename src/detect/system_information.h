#pragma once

#include <string>
#include <string_view>

#include "controls/control_set.h"
#include "controls/controls.h"
#include "core/program_state.h"
#include "core/registry.h"
#include "detect/adapter.h"
#include "lang/language.h"
#include "platform/system_api.h"

namespace kestrune::detect {

/// Shows the graphics processor's identity, the processor and the memory. What the machine doesn't
/// say leaves its line at the design caption.
class SystemInformation {
 public:
  SystemInformation(platform::SystemApi& system, core::basRegistry& registry,
                    const AdapterState& adapter, core::ProgramState& program,
                    const lang::LangTable& lang_text, const controls::ControlSet& controls);

  /// Needs the adapter's identity and revision. Finds `Mhz` and `TwoCPU`.
  void FillSystemInfo();

 private:
  void ShowGraphicsProcessor();
  void ShowMemory();
  void ShowSpeed();
  void ShowIdentifier(bool hyper_threading);
  void ShowName(int type);
  /// Gives a line of the page its text's beginning and what follows.
  void Show(std::string_view line, int text, const std::string& rest);
  std::string ReadProcessor(std::string_view number, std::string_view name);
  /// Whether the value read last is there at all.
  bool WasThere() const;

  platform::SystemApi& system_;
  core::basRegistry& registry_;
  const AdapterState& adapter_;
  core::ProgramState& program_;
  const lang::LangTable& LangText;
  const controls::ControlSet& controls_;
};

}  // namespace kestrune::detect
