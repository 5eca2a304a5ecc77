#include "platform/portable/display.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "platform/parse_number.h"
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

}  // namespace kestrune::platform::portable
