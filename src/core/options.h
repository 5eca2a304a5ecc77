#pragma once

#include <string>
#include <string_view>

#include "core/registry.h"

namespace kestrune::core {

/// The program's own version: 3.5.3.
inline constexpr int kMajorVersion = 3;
inline constexpr int kMinorVersion = 5;
inline constexpr int kRevision = 3;
/// The version as it is written, its parts separated by dots.
std::string VersionText();

/// The page that tells people how to use the program, in the program folder.
inline constexpr std::string_view kDocumentation = "DATA/doc/index.html";

/// The title of the program's messages.
inline constexpr std::string_view kProgramTitle = "Kestrune";

/// The key of the program's own options, below HKEY_CURRENT_USER, and its values.
inline constexpr std::string_view kOptionsKey = "Software\\Kestrune";
inline constexpr std::string_view kVersionValue = "Version";
inline constexpr std::string_view kLastUpdateValue = "LastUpDate35";
inline constexpr std::string_view kHelpSystemValue = "HelpSystem";
inline constexpr std::string_view kLastVisitedPageValue = "LVP";
inline constexpr std::string_view kLanguageValue = "Language";
inline constexpr std::string_view kOverrideMultiTextureValue = "OverrideMultiTexture";
inline constexpr std::string_view kOverrideShadersValue = "OverrideShaders";

/// The program's own options. They are never stored in binary, whatever was written before.
class OwnOptions {
 public:
  explicit OwnOptions(basRegistry& registry) : registry_(registry) {}

  RegValue Read(std::string_view name) {
    return registry_.ReadRegValue(RegRoot::kCurrentUser, kOptionsKey, name);
  }
  [[nodiscard]] platform::ReadScope Reading() { return registry_.Reading(); }
  void Write(std::string_view name, const RegInput& value);
  void Delete(std::string_view name) {
    registry_.DeleteRegValue(RegRoot::kCurrentUser, kOptionsKey, name);
  }

 private:
  basRegistry& registry_;
};

/// The key of the commands that are started at every log-on.
inline constexpr std::string_view kLogOnKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";

/// Makes the driver's control-panel library start anew, so that it picks up changed values.
inline constexpr std::string_view kReloadCommand = "rundll32 NvCpl.dll,NvStartup";

}  // namespace kestrune::core
