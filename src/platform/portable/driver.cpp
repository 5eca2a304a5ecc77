#include "platform/portable/driver.h"

#include <algorithm>
#include <array>
#include <random>

#include "platform/case_fold.h"
#include "platform/driver_keys.h"
#include "platform/dword.h"
#include "platform/parse_number.h"
#include "platform/portable/versions.h"
#include "platform/release_number.h"

namespace kestrune::platform::portable {

namespace {

constexpr std::string_view kVendorMark = "VEN_10DE";
constexpr std::string_view kDeviceMark = "DEV_";
constexpr int kPlatform9x = 1;
constexpr std::string_view kLibraries[] = {"NVCPL", "NVQTWK"};
constexpr std::string_view kEntryPoints[] = {"NVSTARTUP", "NVXTINIT", "NVHWCTL"};

/// The text behind a mark, or nothing.
std::optional<std::size_t> Behind(std::string_view text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  return at == std::string_view::npos ? std::nullopt : std::optional(at + mark.size());
}

/// The hardware identifier of the card: that of the last NVIDIA device.
std::string CardId(const MachineDescription& machine) {
  std::string id;
  if (!machine.display_devices) return id;
  for (const DisplayDevice& device : *machine.display_devices) {
    if (device.hardware_id.find(kVendorMark) != std::string::npos) id = device.hardware_id;
  }
  return id;
}

/// The part of the identifier from the vendor to the two digits of the revision, with the revision
/// that the driver really uses.
std::string InstanceOf(const std::string& card, const MachineDescription& machine) {
  const std::optional<std::size_t> revision = Behind(card, kRevisionMark);
  if (!revision) return {};
  const std::size_t begin = card.find(kVendorMark);
  const std::string used = machine.clocks->key_revision.value_or(card.substr(*revision, 2));
  return card.substr(begin, *revision - begin) + used;
}

bool HasShortKey(const MachineDescription& machine) {
  if (machine.os.platform != kPlatform9x) return false;
  DescribedVersions versions(machine);
  const std::optional<std::string> version = versions.FileVersionText("NvCpl.dll");
  return (version ? ReleaseNumber(*version).value_or(0) : 0) < kFirstInstanceClockDriver;
}

std::int16_t DeviceNumber(const std::string& card) {
  const std::optional<std::size_t> at = Behind(card, kDeviceMark);
  const std::string_view digits = at ? std::string_view(card).substr(*at, 4) : std::string_view();
  return static_cast<std::int16_t>(ParseWhole<std::uint16_t>(digits, 16).value_or(0));
}

bool IsOneOf(std::string_view word, std::span<const std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

DescribedDriver::DescribedDriver(const MachineDescription& machine, Store& store)
    : machine_(machine), store_(store) {
  const std::string card = CardId(machine);
  if (card.empty() || !machine.clocks) return;
  device_ = DeviceNumber(card);
  clock_key_ =
      ClockKeyOf(HasShortKey(machine) ? "" : DeviceInstanceKeyOf(InstanceOf(card, machine)));
  const DescribedClocks& clocks = *machine.clocks;
  const auto add = [this](std::string bart, std::string krusty, std::optional<int> core,
                          std::optional<int> memory) {
    if (!core && !memory) return;
    pairs_.push_back({std::move(bart),
                      std::move(krusty),
                      {static_cast<std::int16_t>(core.value_or(0)),
                       static_cast<std::int16_t>(memory.value_or(0))}});
  };
  add("Bart", "Krusty", clocks.core, clocks.memory);
  add("Bart3D", "Krusty3D", clocks.core_3d, clocks.memory_3d);
}

void DescribedDriver::Reload(std::string_view command_line) {
  if (pairs_.empty()) return;
  // rundll32 LIBRARY[.dll],ENTRY
  const std::vector<std::string> words = SplitCommandLine(command_line);
  std::string target;
  for (std::size_t i = 1; i < words.size(); ++i) target += FoldCase(words[i]);
  const std::size_t comma = target.find(',');
  if (comma == std::string::npos) return;
  std::string library = target.substr(0, comma);
  if (library.ends_with(".DLL")) library.resize(library.size() - 4);
  if (!IsOneOf(library, kLibraries) || !IsOneOf(target.substr(comma + 1), kEntryPoints)) return;

  Transaction transaction(store_);
  AnswerIn(RegRoot::kCurrentUser);
  if (machine_.os.platform == kPlatform9x) AnswerIn(RegRoot::kLocalMachine);
  // The store remembers what failed.
  (void)transaction.Commit();
}

void DescribedDriver::AnswerIn(RegRoot root) {
  KeyId key = 0;
  if (store_.CreateKey(root, clock_key_, key) != RegStatus::kSuccess) return;
  const std::optional<std::int32_t> marge = Read(key, "Marge");
  const std::optional<std::int32_t> stored_homer = Read(key, "Homer");
  const std::int32_t homer = stored_homer.value_or(OwnHomer());
  if (!stored_homer) Write(key, "Homer", homer);
  for (const Pair& pair : pairs_) AnswerPair(key, pair, homer, marge);
}

void DescribedDriver::AnswerPair(KeyId key, const Pair& pair, std::int32_t homer,
                                 std::optional<std::int32_t> marge) {
  const ClockKeys keys{device_, homer};
  const std::optional<std::int32_t> krusty = Read(key, pair.krusty);
  if (marge == 1 && krusty.value_or(0) != 0) PutInForce(pair, DecodeClockWord(*krusty, keys));
  if (marge == 0) PutInForce(pair, pair.defaults);
  if (!Read(key, pair.bart)) Write(key, pair.bart, EncodeClockWord(pair.defaults, keys));
  const ClockPair in_force = InForce(pair);
  if (in_force != pair.defaults && !krusty) {
    Write(key, pair.krusty, EncodeClockWord(in_force, keys));
  }
}

std::int32_t DescribedDriver::OwnHomer() {
  constexpr std::string_view kName = "homer";
  if (machine_.clocks->homer) return *machine_.clocks->homer;
  const std::string kept = store_.MachineState(kName).value_or("");
  std::int32_t homer = ParseWhole<std::int32_t>(kept).value_or(0);
  if (homer == 0) {
    std::random_device random;
    homer = std::uniform_int_distribution<std::int32_t>(1, 0x7FFFFFFF)(random);
    (void)store_.SetMachineState(kName, std::to_string(homer));
  }
  return homer;
}

ClockPair DescribedDriver::InForce(const Pair& pair) {
  const std::optional<std::string> kept = store_.MachineState(pair.krusty);
  if (!kept) return pair.defaults;
  const std::string_view text = *kept;
  const std::size_t comma = std::min(text.find(','), text.size());
  return {ParseWhole<std::int16_t>(text.substr(0, comma)).value_or(0),
          ParseWhole<std::int16_t>(text.substr(std::min(comma + 1, text.size()))).value_or(0)};
}

void DescribedDriver::PutInForce(const Pair& pair, const ClockPair& clocks) {
  (void)store_.SetMachineState(pair.krusty,
                               std::to_string(clocks.core) + "," + std::to_string(clocks.memory));
}

std::optional<std::int32_t> DescribedDriver::Read(KeyId key, std::string_view name) {
  std::array<std::byte, kDwordSize> data{};
  RegType type = RegType::kNone;
  std::size_t size = 0;
  if (store_.QueryValue(key, name, type, size, data) != RegStatus::kSuccess) return std::nullopt;
  if (type != RegType::kDword && type != RegType::kBinary) return std::nullopt;
  return DwordOf(data);
}

void DescribedDriver::Write(KeyId key, std::string_view name, std::int32_t number) {
  (void)store_.SetValue(key, name, RegType::kDword, DwordBytes(number));
}

}  // namespace kestrune::platform::portable
