#include "platform/win32/display.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "platform/open_key.h"
#include "platform/win32/card_names.h"
#include "platform/win32/library.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

using EnumDevices = BOOL WINAPI(LPCSTR, DWORD, DISPLAY_DEVICEA*, DWORD);

constexpr std::string_view kDriverKey = R"(SYSTEM\CurrentControlSet\Services\nv4\Device0)";
/// What a driver's own key is told as, like those that the system tells.
constexpr std::string_view kRegistryRoot = R"(\Registry\Machine\)";
/// On a machine that lists devices without end.
constexpr DWORD kMostDevices = 64;

/// A text that need not end within its field.
template <std::size_t kSize>
std::string_view FieldText(const CHAR (&field)[kSize]) {
  return {field, static_cast<std::size_t>(std::find(field, field + kSize, '\0') - field)};
}

/// A text value, without what follows its first NUL; empty when it isn't set.
std::string TextOf(RegistryApi& registry, std::string_view path, std::string_view name) {
  OpenKey key(registry);
  RegType type{};
  std::size_t size = 0;
  if (key.Open(RegRoot::kLocalMachine, path) != RegStatus::kSuccess) return {};
  if (registry.QueryValue(key.Handle(), name, type, size, {}) != RegStatus::kSuccess) return {};
  std::string text(size + 1, '\0');
  if (registry.QueryValue(key.Handle(), name, type, size,
                          std::as_writable_bytes(std::span(text))) != RegStatus::kSuccess) {
    return {};
  }
  return text.c_str();
}

DEVMODEA EmptyMode() {
  DEVMODEA mode{};
  mode.dmSize = sizeof mode;
  return mode;
}

/// Takes the right to restart the computer, which everybody may hold and nobody uses unasked.
void TakeShutdownRight() {
  HANDLE token = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token)) return;
  TOKEN_PRIVILEGES rights{};
  rights.PrivilegeCount = 1;
  rights.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (LookupPrivilegeValueA(nullptr, "SeShutdownPrivilege", &rights.Privileges[0].Luid)) {
    AdjustTokenPrivileges(token, FALSE, &rights, 0, nullptr, nullptr);
  }
  CloseHandle(token);
}

}  // namespace

std::optional<DisplayDevice> SystemDisplays::DeviceAt(int index) {
  if (!devices_) devices_ = ListDevices();
  const auto at = static_cast<std::size_t>(index);
  if (index < 0 || at >= devices_->size()) return std::nullopt;
  return (*devices_)[at];
}

std::vector<DisplayDevice> SystemDisplays::ListDevices() {
  std::vector<DisplayDevice> devices;
  const Library user("user32.dll");
  auto* const enum_devices = user.Find<EnumDevices>("EnumDisplayDevicesA");
  DISPLAY_DEVICEA device{};
  device.cb = sizeof device;
  for (DWORD i = 0; enum_devices != nullptr && i < kMostDevices; ++i) {
    if (!enum_devices(nullptr, i, &device, 0)) break;
    devices.push_back({pages_.Decode(FieldText(device.DeviceName)),
                       pages_.Decode(FieldText(device.DeviceString)), device.StateFlags,
                       pages_.Decode(FieldText(device.DeviceID)),
                       pages_.Decode(FieldText(device.DeviceKey))});
    device = {};
    device.cb = sizeof device;
  }
  const bool is_told = std::any_of(devices.begin(), devices.end(), [](const DisplayDevice& each) {
    return !each.hardware_id.empty();
  });
  if (is_told || !IsNt()) return devices;
  if (auto driver = DriverDevice(registry_)) devices.insert(devices.begin(), *std::move(driver));
  return devices;
}

std::optional<DisplayDevice> DriverDevice(RegistryApi& registry) {
  const std::string name = TextOf(registry, kDriverKey, "Device Description");
  const std::optional<unsigned> id = DeviceNamed(name);
  if (!id) return std::nullopt;
  char hardware_id[64];
  std::snprintf(hardware_id, sizeof hardware_id, "PCI\\VEN_10DE&DEV_%04X&SUBSYS_00000000&REV_00",
                *id);
  DisplayDevice device;
  device.name = R"(\\.\DISPLAY1)";
  device.description = name;
  device.state = DISPLAY_DEVICE_ATTACHED_TO_DESKTOP | DISPLAY_DEVICE_PRIMARY_DEVICE;
  device.hardware_id = hardware_id;
  device.driver_key = std::string(kRegistryRoot).append("System").append(kDriverKey.substr(6));
  return device;
}

std::optional<DisplayMode> SystemDisplays::ModeAt(int number) {
  DEVMODEA mode = EmptyMode();
  if (number < 0 || !EnumDisplaySettingsA(nullptr, static_cast<DWORD>(number), &mode)) {
    return std::nullopt;
  }
  return DisplayMode{static_cast<int>(mode.dmPelsWidth), static_cast<int>(mode.dmPelsHeight),
                     static_cast<int>(mode.dmBitsPerPel),
                     static_cast<int>(mode.dmDisplayFrequency)};
}

ModeChange SystemDisplays::ChangeMode(const ModeRequest& request) {
  if (dry_run_) return ModeChange::kDone;
  DEVMODEA mode = EmptyMode();
  mode.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT;
  mode.dmPelsWidth = static_cast<DWORD>(request.width);
  mode.dmPelsHeight = static_cast<DWORD>(request.height);
  if (request.depth) {
    mode.dmFields |= DM_BITSPERPEL;
    mode.dmBitsPerPel = static_cast<DWORD>(*request.depth);
  }
  if (request.refresh) {
    mode.dmFields |= DM_DISPLAYFREQUENCY;
    mode.dmDisplayFrequency = static_cast<DWORD>(*request.refresh);
  }
  switch (ChangeDisplaySettingsA(&mode, request.is_saved ? CDS_UPDATEREGISTRY : 0)) {
    case DISP_CHANGE_SUCCESSFUL:
      return ModeChange::kDone;
    case DISP_CHANGE_RESTART:
      return ModeChange::kRestartNeeded;
    default:
      return ModeChange::kFailed;
  }
}

void SystemDisplays::RestartComputer() {
  if (dry_run_) return;
  if (IsNt()) TakeShutdownRight();
  ExitWindowsEx(EWX_REBOOT, 0);
}

}  // namespace kestrune::platform::win32
