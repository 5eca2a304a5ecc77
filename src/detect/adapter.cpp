#include "detect/adapter.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "core/number.h"
#include "lang/texts.h"
#include "platform/case_fold.h"
#include "platform/clock_word.h"
#include "platform/driver_keys.h"

namespace kestrune::detect {

namespace {

using core::RegRoot;
using platform::kRevisionMark;

constexpr std::string_view kNvidiaVendor = "10DE";
/// Where the vendor, the device and the whole identifier stand in
/// PCI\VEN_vvvv&DEV_dddd&SUBSYS_ssssssss&REV_rr.
constexpr std::size_t kVendorAt = 8;
constexpr std::size_t kDeviceAt = 17;
constexpr std::size_t kIdDigits = 4;
constexpr std::size_t kInstanceAt = 4;
constexpr std::size_t kInstanceLength = 40;
constexpr std::size_t kPrefixLength = 3;

/// The cards with a 2D and a 3D pair of clocks, and those known to have one.
constexpr std::string_view kTwoPairPrefixes[] = {"033", "030", "034", "004", "00C", "009"};
constexpr std::string_view kTwoPairIds[] = {"00F1", "00FB", "00F9", "0140"};
constexpr std::string_view kOnePairPrefixes[] = {"014"};

constexpr std::string_view kServiceKey = "SYSTEM\\CurrentControlSet\\Services\\nv4\\Device0";
constexpr std::string_view kClassKey = "System\\CurrentControlSet\\Services\\Class\\Display\\0000";
constexpr std::string_view kVideoKey = "SYSTEM\\CurrentControlSet\\Control\\Video\\";
/// The adapter's key name in braces and "\0000".
constexpr std::size_t kVideoKeyTail = 43;

std::string Part(std::string_view text, std::size_t at, std::size_t length) {
  return at < text.size() ? std::string(text.substr(at, length)) : std::string();
}

std::string_view UntilNul(std::string_view text) { return text.substr(0, text.find('\0')); }

/// A driver key as the system reports it, without what stands before its "System" level.
std::string_view BelowRoot(std::string_view driver_key) {
  const std::size_t at = driver_key.find("\\System");
  return at == std::string_view::npos ? driver_key : driver_key.substr(at + 1);
}

std::int16_t HexNumber(std::string_view digits) {
  std::uint16_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return static_cast<std::int16_t>(number);
}

}  // namespace

bool AdapterState::IsOneOf(std::span<const std::string_view> prefixes,
                           std::span<const std::string_view> ids) const {
  return std::find(prefixes.begin(), prefixes.end(), DeviceIdPrefix) != prefixes.end() ||
         std::find(ids.begin(), ids.end(), DeviceId) != ids.end();
}

AdapterState AdapterState::InCapitals() const {
  AdapterState card = *this;
  card.DeviceId = platform::FoldCase(DeviceId);
  card.DeviceIdPrefix = platform::FoldCase(DeviceIdPrefix);
  return card;
}

std::optional<std::string> NvidiaDeviceOf(std::string_view hardware_id) {
  const std::string_view id = core::TrimBlanks(hardware_id);
  if (Part(id, kVendorAt, kIdDigits) != kNvidiaVendor) return std::nullopt;
  return Part(id, kDeviceAt, kIdDigits);
}

void Adapter::FindVideoKey() {
  if (versions_.OSFamily == kWindows9x) {
    state.PureKey = kClassKey;
  } else if (versions_.OSFamily <= kWindows2000) {
    state.PureKey = kServiceKey;
  } else {
    const std::string video =
        registry_
            .ReadRegValue(RegRoot::kLocalMachine, "HARDWARE\\DEVICEMAP\\VIDEO", "\\Device\\Video0")
            .Text();
    const std::size_t tail = video.size() > kVideoKeyTail ? video.size() - kVideoKeyTail : 0;
    state.PureKey = std::string(kVideoKey) + video.substr(tail);
  }
}

void Adapter::FindDisplayAdapter() {
  std::optional<std::string> first_key;
  for (int index = 0;; ++index) {
    const std::optional<platform::DisplayDevice> device = display_.DeviceAt(index);
    if (!device) break;
    if (!NvidiaDeviceOf(device->hardware_id)) continue;
    TakeIdentity(core::TrimBlanks(device->hardware_id));
    if (!first_key) first_key = BelowRoot(UntilNul(device->driver_key));
  }
  state.PureKey = first_key.value_or("");
}

void Adapter::TakeIdentity(std::string_view hardware_id) {
  state.DeviceId = Part(hardware_id, kDeviceAt, kIdDigits);
  state.DeviceIdNumber = HexNumber(state.DeviceId);
  state.DeviceIdPrefix = state.DeviceId.substr(0, kPrefixLength);
  state.VendorId = Part(hardware_id, kVendorAt, kIdDigits);
  const std::string instance = Part(hardware_id, kInstanceAt, kInstanceLength);
  state.DeviceInstanceKey = platform::DeviceInstanceKeyOf(core::TrimBlanks(instance));
  state.HardwareKey = ClockKey();
}

std::string Adapter::ClockKey() const {
  const bool is_shared =
      versions_.OSFamily == kWindows9x && versions_.DrvVer < platform::kFirstInstanceClockDriver;
  return platform::ClockKeyOf(is_shared ? "" : state.DeviceInstanceKey);
}

void Adapter::ReadCardName() {
  const std::string_view value =
      versions_.OSFamily == kWindows9x ? "DriverDesc" : "Device Description";
  std::string name = registry_.ReadRegValue(RegRoot::kLocalMachine, state.PureKey, value).Text();
  if (name.empty()) name = "Unknown card";
  card_line_.SetCaption(LangText[lang::texts::kVgaDevice] + name);
}

void Adapter::IdentifyGpu() {
  const AdapterState card = state.InCapitals();
  if (card.IsOneOf(kTwoPairPrefixes, kTwoPairIds)) {
    state.CardVar = 1;
  } else {
    state.CardVar = card.IsOneOf(kOnePairPrefixes) ? 2 : 0;
  }
}

void Adapter::ReadGpuRevision() {
  const std::size_t mark = state.HardwareKey.find(kRevisionMark);
  if (mark == std::string::npos) return;
  const std::string revision = Part(state.HardwareKey, mark + kRevisionMark.size(), 2);
  state.GpuRevision = core::TrimBlanks(revision);
}

}  // namespace kestrune::detect
