#include "platform/driver.h"

#include <algorithm>
#include <array>
#include <random>
#include <span>

#include "platform/case_fold.h"
#include "platform/command_words.h"
#include "platform/driver_keys.h"
#include "platform/dword.h"
#include "platform/parse_number.h"

namespace kestrune::platform {

namespace {

constexpr std::string_view kDeviceMark = "DEV_";
constexpr std::string_view kLibraries[] = {"NVCPL", "NVQTWK"};
constexpr std::string_view kEntryPoints[] = {"NVSTARTUP", "NVXTINIT", "NVHWCTL"};

/// The text behind a mark, or nothing.
std::optional<std::size_t> Behind(std::string_view text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  return at == std::string_view::npos ? std::nullopt : std::optional(at + mark.size());
}

/// The part of the identifier from the vendor to the two digits of the revision, with the revision
/// that the driver really uses.
std::string InstanceOf(const DescribedCard& card) {
  const std::string& id = card.hardware_id;
  const std::optional<std::size_t> revision = Behind(id, kRevisionMark);
  if (!revision) return {};
  const std::size_t begin = id.find(kVendorMark);
  const std::string used = card.clocks->key_revision.value_or(id.substr(*revision, 2));
  return id.substr(begin, *revision - begin) + used;
}

bool HasShortKey(const DescribedCard& card) {
  return card.is_9x && card.driver < kFirstInstanceClockDriver;
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

DescribedDriver::DescribedDriver(const DescribedCard& card, RegistryApi& registry,
                                 MachineMemory& memory)
    : registry_(registry), memory_(memory), roots_({RegRoot::kCurrentUser}) {
  if (card.hardware_id.empty() || !card.clocks) return;
  const DescribedClocks& clocks = *card.clocks;
  device_ = DeviceNumber(card.hardware_id);
  homer_ = clocks.homer;
  clock_key_ = ClockKeyOf(HasShortKey(card) ? "" : DeviceInstanceKeyOf(InstanceOf(card)));
  if (card.is_9x) roots_.push_back(RegRoot::kLocalMachine);
  const auto add = [this](std::string bart, std::string krusty, std::optional<int> core,
                          std::optional<int> memory_clock) {
    if (!core && !memory_clock) return;
    pairs_.push_back({std::move(bart),
                      std::move(krusty),
                      {static_cast<std::int16_t>(core.value_or(0)),
                       static_cast<std::int16_t>(memory_clock.value_or(0))}});
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

  ChangeScope changes(registry_);
  if (changes.Status() != RegStatus::kSuccess) return;
  for (const RegRoot root : roots_) AnswerIn(root);
  // The registry remembers what failed.
  (void)changes.Commit();
}

void DescribedDriver::AnswerIn(RegRoot root) {
  OpenKey key(registry_);
  if (key.Create(root, clock_key_) != RegStatus::kSuccess) return;
  const std::optional<std::int32_t> marge = Read(key, "Marge");
  const std::optional<std::int32_t> stored_homer = Read(key, "Homer");
  const std::int32_t homer = stored_homer.value_or(OwnHomer());
  if (!stored_homer) Write(key, "Homer", homer);
  for (const Pair& pair : pairs_) AnswerPair(key, pair, homer, marge);
}

void DescribedDriver::AnswerPair(const OpenKey& key, const Pair& pair, std::int32_t homer,
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
  if (homer_) return *homer_;
  const std::string kept = memory_.MachineState(kName).value_or("");
  std::int32_t homer = ParseWhole<std::int32_t>(kept).value_or(0);
  if (homer == 0) {
    std::random_device random;
    homer = std::uniform_int_distribution<std::int32_t>(1, 0x7FFFFFFF)(random);
    (void)memory_.SetMachineState(kName, std::to_string(homer));
  }
  return homer;
}

ClockPair DescribedDriver::InForce(const Pair& pair) {
  const std::optional<std::string> kept = memory_.MachineState(pair.krusty);
  if (!kept) return pair.defaults;
  const std::string_view text = *kept;
  const std::size_t comma = std::min(text.find(','), text.size());
  return {ParseWhole<std::int16_t>(text.substr(0, comma)).value_or(0),
          ParseWhole<std::int16_t>(text.substr(std::min(comma + 1, text.size()))).value_or(0)};
}

void DescribedDriver::PutInForce(const Pair& pair, const ClockPair& clocks) {
  (void)memory_.SetMachineState(pair.krusty,
                                std::to_string(clocks.core) + "," + std::to_string(clocks.memory));
}

std::optional<std::int32_t> DescribedDriver::Read(const OpenKey& key, std::string_view name) {
  std::array<std::byte, kDwordSize> data{};
  RegType type = RegType::kNone;
  std::size_t size = 0;
  if (registry_.QueryValue(key.Handle(), name, type, size, data) != RegStatus::kSuccess)
    return std::nullopt;
  if (type != RegType::kDword && type != RegType::kBinary) return std::nullopt;
  return DwordOf(data);
}

void DescribedDriver::Write(const OpenKey& key, std::string_view name, std::int32_t number) {
  (void)registry_.SetValue(key.Handle(), name, RegType::kDword, DwordBytes(number));
}

}  // namespace kestrune::platform
