#pragma once

#include <string>

#include "controls/control_set.h"
#include "controls/controls.h"
#include "core/registry.h"
#include "lang/language.h"
#include "platform/dialog_api.h"
#include "platform/version_api.h"

namespace kestrune::detect {

/// The operating-system families, as the code that the whole program compares.
inline constexpr int kWindows9x = 0;
inline constexpr int kWindowsNt4 = 1;
inline constexpr int kWindows2000 = 2;
inline constexpr int kWindowsXp = 3;
inline constexpr int kWindowsVista = 4;

struct VersionState {
  /// Operating-system family, 0 to 4 as above.
  int OSFamily = 0;
  /// Driver release times 100, such as 8178; 0 when it isn't known.
  int DrvVer = 0;
  /// Build number of the Direct3D runtime; 0 when it isn't known.
  int DirectXBuild = 0;
};

/// Finds the versions of the operating system, DirectX and the display driver and shows them.
class Versions {
 public:
  Versions(platform::VersionApi& version, platform::DialogApi& dialog, core::basRegistry& registry,
           const lang::LangTable& lang_text, const controls::ControlSet& controls);

  void DetectOSAndDirectX();
  /// Needs the operating-system family. A driver below 23.00 outside Windows 9x gives a message.
  void ReadDriverVersion();

  VersionState state;

 private:
  void GetDirectXBuild();
  void ShowOperatingSystem(std::string_view name);
  void ShowDirectX();

  platform::VersionApi& version_;
  platform::DialogApi& dialog_;
  core::basRegistry& registry_;
  const lang::LangTable& LangText;
  controls::Label& driver_line_;
  controls::Label& os_line_;
  controls::Label& directx_line_;
};

}  // namespace kestrune::detect
