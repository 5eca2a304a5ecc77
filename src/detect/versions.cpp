#include "detect/versions.h"

#include "core/options.h"
#include "core/outcome.h"
#include "lang/texts.h"
#include "platform/release_number.h"

namespace kestrune::detect {

namespace texts = lang::texts;

namespace {

using core::RegRoot;
using platform::kPlatform9x;
using platform::kPlatformNt;
using platform::OsVersion;
using platform::ReleaseNumber;

constexpr int kAny = -1;

/// The first row that fits a version record names the family.
struct FamilyRow {
  int major;
  int minor;
  int platform;
  int family;
  std::string_view name;
};

constexpr FamilyRow kFamilies[] = {
    {5, 0, kAny, kWindows2000, "Windows 2000"},
    {4, kAny, kPlatformNt, kWindowsNt4, "Windows NT"},
    {4, kAny, kPlatform9x, kWindows9x, "Windows 9x/Me"},
    {6, kAny, kAny, kWindowsVista, "Windows Vista"},
    {kAny, kAny, kAny, kWindowsXp, "Windows XP "},
};

const FamilyRow& FamilyOf(const OsVersion& version) {
  const auto fits = [](int wanted, int found) { return wanted == kAny || wanted == found; };
  for (const FamilyRow& row : kFamilies) {
    if (fits(row.major, version.major) && fits(row.minor, version.minor) &&
        fits(row.platform, version.platform)) {
      return row;
    }
  }
  return kFamilies[std::size(kFamilies) - 1];
}

/// The files that carry the versions, by family.
constexpr std::string_view kDriverFiles[] = {"NvCpl.dll", "nv4_disp.dll", "nv4_disp.dll",
                                             "nv4_disp.dll", "nvd3dum.dll"};
constexpr std::string_view kDirect3DFiles[] = {"d3d8.dll", "d3d9.dll", "d3d9.dll", "d3d9.dll",
                                               "d3d10.dll"};

/// The longest Direct3D version text that counts.
constexpr std::size_t kDirect3DTextLength = 15;
/// Drivers below this release were never made for the NT family's key layout.
constexpr int kFirstNtDriver = 2300;

constexpr int kBuild10 = 6386;

std::string_view DirectXName(int build) {
  if (build == 90) return "9.0c";
  if (build < 900) return "8 or low";
  if (build == 900) return "9.0";
  if (build == 901) return "9.0a";
  if (build == 902) return "9.0b";
  if (build == 904 || build == 2180) return "9.0c";
  return build < kBuild10 ? "9.0 or higher" : "10 or higher";
}

}  // namespace

Versions::Versions(platform::VersionApi& version, platform::DialogApi& dialog,
                   core::basRegistry& registry, const lang::LangTable& lang_text,
                   const controls::ControlSet& controls)
    : version_(version),
      dialog_(dialog),
      registry_(registry),
      LangText(lang_text),
      driver_line_(controls.Get<controls::Label>("info.basic.display-driver-version")),
      os_line_(controls.Get<controls::Label>("info.basic.os-version")),
      directx_line_(controls.Get<controls::Label>("info.basic.directx-version")) {}

void Versions::DetectOSAndDirectX() {
  const FamilyRow& family = FamilyOf(version_.SystemVersion());
  state.OSFamily = family.family;
  ShowOperatingSystem(family.name);
  GetDirectXBuild();
  ShowDirectX();
}

void Versions::ShowOperatingSystem(std::string_view name) {
  std::string line = LangText[texts::kOsVersion] + std::string(name);
  const std::string service_pack =
      registry_
          .ReadRegValue(RegRoot::kLocalMachine, "Software\\Microsoft\\Windows NT\\CurrentVersion",
                        "CSDVersion")
          .Text();
  if (!service_pack.empty()) line += " with " + service_pack;
  os_line_.SetCaption(line);
}

void Versions::GetDirectXBuild() {
  const std::optional<std::string> text = version_.FileVersionText(kDirect3DFiles[state.OSFamily]);
  if (!text) return;
  state.DirectXBuild =
      ReleaseNumber(text->substr(0, kDirect3DTextLength)).value_or(state.DirectXBuild);
}

void Versions::ShowDirectX() {
  std::string line =
      LangText[texts::kDirectXVersion] + std::string(DirectXName(state.DirectXBuild));
  if (state.OSFamily != kWindowsVista) {
    const std::string version =
        registry_.ReadRegValue(RegRoot::kLocalMachine, "Software\\Microsoft\\DirectX", "Version")
            .Text();
    if (!version.empty()) line += " (" + version + ")";
  }
  directx_line_.SetCaption(line);
}

void Versions::ReadDriverVersion() {
  const std::optional<std::string> text = version_.FileVersionText(kDriverFiles[state.OSFamily]);
  if (!text) return;
  state.DrvVer = ReleaseNumber(*text).value_or(state.DrvVer);
  std::string line = LangText[texts::kDriverVersion] + *text;
  line.resize(line.find_last_not_of(' ') + 1);
  driver_line_.SetCaption(line);
  if (state.DrvVer < kFirstNtDriver && state.OSFamily != kWindows9x) {
    core::Ignore(dialog_.ShowMessage(core::kProgramTitle,
                                     "This driver is not supported under WinXP/2k.",
                                     platform::Buttons::kOk));
  }
}

}  // namespace kestrune::detect
