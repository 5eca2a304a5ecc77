#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock_word.h"
#include "platform/machine_memory.h"
#include "platform/open_key.h"
#include "platform/registry_api.h"

namespace kestrune::platform {

/// What acts as the driver when it is told to load its settings again.
class DriverStandIn {
 public:
  virtual ~DriverStandIn() = default;

  /// A reload command, whole. What it changes has been changed when this returns.
  virtual void Reload(std::string_view command_line) = 0;
};

/// The clocks that the driver stand-in holds as a card's defaults, in MHz.
struct DescribedClocks {
  std::optional<int> core;
  std::optional<int> memory;
  std::optional<int> core_3d;
  std::optional<int> memory_3d;
  std::optional<int> homer;                 ///< absent: chosen when first needed
  std::optional<std::string> key_revision;  ///< absent: the card's
};

/// The card, its driver and the system, as far as the stand-in has to know them.
struct DescribedCard {
  std::string hardware_id;                ///< empty: there is no NVIDIA card
  int driver = 0;                         ///< its release times 100; 0 where it isn't known
  bool is_9x = false;                     ///< whether the system is Windows 9x
  std::optional<DescribedClocks> clocks;  ///< absent: the driver never answers
};

/// What the described card's driver does when it is told to reload: it takes over the requested
/// clocks and answers with its own clock values, in the clock key below HKEY_CURRENT_USER and on
/// Windows 9x below HKEY_LOCAL_MACHINE as well.
///
/// The clocks in force and the driver's "Homer" stand in the machine's memory, which belongs to the
/// registry; both must outlive this. What is changed is one group of changes.
class DescribedDriver : public DriverStandIn {
 public:
  DescribedDriver(const DescribedCard& card, RegistryApi& registry, MachineMemory& memory);

  /// Answers the entry points NvStartup, NvXTInit and NvHWCtl of NvCpl and NvQTwk, in any case and
  /// with or without ".dll"; other commands aren't the driver's.
  void Reload(std::string_view command_line) override;

 private:
  /// A pair of clocks: its values in the key, and what the card has by default.
  struct Pair {
    std::string bart;
    std::string krusty;
    ClockPair defaults;
  };

  void AnswerIn(RegRoot root);
  void AnswerPair(const OpenKey& key, const Pair& pair, std::int32_t homer,
                  std::optional<std::int32_t> marge);
  std::int32_t OwnHomer();
  ClockPair InForce(const Pair& pair);
  void PutInForce(const Pair& pair, const ClockPair& clocks);
  std::optional<std::int32_t> Read(const OpenKey& key, std::string_view name);
  void Write(const OpenKey& key, std::string_view name, std::int32_t number);

  RegistryApi& registry_;
  MachineMemory& memory_;
  std::string clock_key_;
  std::int16_t device_ = 0;
  std::optional<std::int32_t> homer_;  ///< absent: chosen when first needed
  std::vector<RegRoot> roots_;         ///< where it answers
  std::vector<Pair> pairs_;            ///< empty: it never answers
};

}  // namespace kestrune::platform
