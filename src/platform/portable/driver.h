#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/clock_word.h"
#include "platform/portable/machine_description.h"
#include "platform/portable/shell.h"
#include "platform/portable/store.h"

namespace kestrune::platform::portable {

/// What the described card's driver does when it is told to reload: it takes over the requested
/// clocks and answers with its own clock values, in the clock key below HKEY_CURRENT_USER and on
/// Windows 9x below HKEY_LOCAL_MACHINE as well.
///
/// The clocks in force and the driver's "Homer" live as long as the store, outside every root. A
/// description without clocks makes a driver that never answers. Both must outlive this.
class DescribedDriver : public DriverStandIn {
 public:
  DescribedDriver(const MachineDescription& machine, Store& store);

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
  void AnswerPair(KeyId key, const Pair& pair, std::int32_t homer,
                  std::optional<std::int32_t> marge);
  std::int32_t OwnHomer();
  ClockPair InForce(const Pair& pair);
  void PutInForce(const Pair& pair, const ClockPair& clocks);
  std::optional<std::int32_t> Read(KeyId key, std::string_view name);
  void Write(KeyId key, std::string_view name, std::int32_t number);

  const MachineDescription& machine_;
  Store& store_;
  std::string clock_key_;  ///< empty: there is no NVIDIA card
  std::int16_t device_ = 0;
  std::vector<Pair> pairs_;
};

}  // namespace kestrune::platform::portable
