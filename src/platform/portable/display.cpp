#include "platform/portable/display.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "platform/parse_number.h"
#include "platform/portable/display_server.h"
#include "platform/portable/whole_file.h"

namespace kestrune::platform::portable {
namespace {

constexpr unsigned kDisplayClass = 0x03;  // the first byte of a PCI device's class
constexpr unsigned kAttached = 1;
constexpr unsigned kPrimary = 4;

/// A number such as "0x10de" from a device's file; 0 when there is none.
unsigned ReadNumber(const std::string& file) {
  const auto content = ReadWholeFile(file);
  if (!content.Ok()) return 0;
  const std::string_view text = content.Value();
  const bool is_hex = text.starts_with("0x");
  const std::string_view digits = text.substr(0, text.find('\n')).substr(is_hex ? 2 : 0);
  return ParseWhole<unsigned>(digits, is_hex ? 16 : 10).value_or(0);
}

DisplayDevice ReadDevice(const std::string& folder, std::size_t number) {
  const unsigned vendor = ReadNumber(folder + "/vendor");
  const unsigned device = ReadNumber(folder + "/device");
  char text[64];
  DisplayDevice display;
  display.name = "\\\\.\\DISPLAY" + std::to_string(number);
  std::snprintf(text, sizeof(text), "Display adapter %04X:%04X", vendor, device);
  display.description = text;
  std::snprintf(text, sizeof(text), "PCI\\VEN_%04X&DEV_%04X&SUBSYS_%04X%04X&REV_%02X", vendor,
                device, ReadNumber(folder + "/subsystem_device"),
                ReadNumber(folder + "/subsystem_vendor"), ReadNumber(folder + "/revision"));
  display.hardware_id = text;
  display.state = ReadNumber(folder + "/boot_vga") == 1 ? kAttached | kPrimary : 0;
  return display;
}

/// Whether a request is for one of some sizes; what has no depth goes with every depth.
bool IsAmong(const std::vector<DescribedSize>& sizes, const ModeRequest& request) {
  return std::any_of(sizes.begin(), sizes.end(), [&request](const DescribedSize& size) {
    return size.width == request.width && size.height == request.height &&
           (!size.depth || !request.depth || size.depth == request.depth);
  });
}

}  // namespace

std::vector<DisplayDevice> ReadPciDisplayDevices(const std::string& devices_folder) {
  std::vector<std::string> folders;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(devices_folder, error), end;
       !error && entry != end; entry.increment(error)) {
    folders.push_back(entry->path().string());
  }
  std::sort(folders.begin(), folders.end());
  std::vector<DisplayDevice> devices;
  for (const std::string& folder : folders) {
    if (ReadNumber(folder + "/class") >> 16 != kDisplayClass) continue;
    devices.push_back(ReadDevice(folder, devices.size() + 1));
  }
  return devices;
}

std::optional<DisplayDevice> DescribedDisplays::DeviceAt(int index) {
  if (!machine_.display_devices && !host_) host_ = ReadPciDisplayDevices("/sys/bus/pci/devices");
  const std::vector<DisplayDevice>& devices =
      machine_.display_devices ? *machine_.display_devices : *host_;
  if (index < 0 || static_cast<std::size_t>(index) >= devices.size()) return std::nullopt;
  return devices[static_cast<std::size_t>(index)];
}

const std::vector<DisplayMode>& DescribedDisplays::Modes() {
  return machine_.display.modes ? *machine_.display.modes : host_modes_;
}

std::optional<DisplayMode> DescribedDisplays::ModeAt(int number) {
  // Whoever asks for the mode in force wants it as it is now.
  if (number == 0 && !machine_.display.modes) host_modes_ = ReadDisplayModes();
  const std::vector<DisplayMode>& modes = Modes();
  if (number < 0 || static_cast<std::size_t>(number) >= modes.size()) return std::nullopt;
  return modes[static_cast<std::size_t>(number)];
}

ModeChange DescribedDisplays::ChangeMode(const ModeRequest& request) {
  const std::vector<DisplayMode>& modes = Modes();
  const bool is_listed = std::any_of(modes.begin(), modes.end(), [&](const DisplayMode& mode) {
    return mode.width == request.width && mode.height == request.height &&
           request.depth.value_or(mode.depth) == mode.depth;
  });
  if (!is_listed || IsAmong(machine_.display.refused, request)) return ModeChange::kFailed;
  if (IsAmong(machine_.display.restart_needed, request)) return ModeChange::kRestartNeeded;
  if (machine_.display.modes || dry_run_) return ModeChange::kDone;
  return ChangeDisplayMode(request) ? ModeChange::kDone : ModeChange::kFailed;
}

}  // namespace kestrune::platform::portable
