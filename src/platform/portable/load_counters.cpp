#include "platform/portable/load_counters.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

#include "platform/parse_number.h"

namespace kestrune::platform::portable {

namespace {

/// The number in front of a text, which loses it and the blanks before it; nothing for another.
std::optional<std::int64_t> TakeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  const auto number = ParseWhole<std::int64_t>(text.substr(0, end));
  text.remove_prefix(end);
  return number;
}

std::optional<ProcessorTimes> TimesIn(std::string_view line) {
  // User, nice, system, idle, waiting, interrupts, soft interrupts, stolen. What follows, the time
  // of guests, is a part of the user's.
  constexpr int kFields = 8;
  constexpr int kIdle = 3;
  constexpr int kWaiting = 4;
  ProcessorTimes times;
  for (int field = 0; field < kFields; ++field) {
    const auto ticks = TakeNumber(line);
    // An older system counts fewer kinds.
    if (!ticks && field > kIdle) break;
    if (!ticks) return std::nullopt;
    times.total += *ticks;
    if (field != kIdle && field != kWaiting) times.busy += *ticks;
  }
  return times;
}

/// The load between two moments; nothing where there is no time between them.
std::optional<double> LoadBetween(const std::optional<ProcessorTimes>& from,
                                  const std::optional<ProcessorTimes>& to) {
  if (!from || !to || to->total <= from->total) return std::nullopt;
  const double share =
      static_cast<double>(to->busy - from->busy) / static_cast<double>(to->total - from->total);
  return 100 * std::clamp(share, 0.0, 1.0);
}

}  // namespace

DescribedLoad::DescribedLoad(const std::vector<int>& percent) {
  for (std::size_t i = 0; i < loads_.size(); ++i) loads_[i] = i < percent.size() ? percent[i] : 0;
}

TimesOfProcessors ReadTimes(std::string_view stat) {
  constexpr std::string_view kNames[] = {"\ncpu0 ", "\ncpu1 "};
  TimesOfProcessors times;
  for (std::size_t i = 0; i < times.size(); ++i) {
    const std::size_t line = stat.find(kNames[i]);
    if (line != stat.npos) times[i] = TimesIn(stat.substr(line + kNames[i].size()));
  }
  return times;
}

MeasuredLoad::MeasuredLoad(const std::string& file)
    : descriptor_(open(file.c_str(), O_RDONLY | O_CLOEXEC)) {}

MeasuredLoad::~MeasuredLoad() {
  if (descriptor_ >= 0) close(descriptor_);
}

ProcessorLoads MeasuredLoad::Collect() {
  // The sum of all processors and the first two of them stand at the beginning.
  std::array<char, 1024> bytes;
  const ssize_t size = pread(descriptor_, bytes.data(), bytes.size(), 0);
  const TimesOfProcessors now =
      ReadTimes({bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))});
  ProcessorLoads loads;
  for (std::size_t i = 0; i < loads.size(); ++i) loads[i] = LoadBetween(former_[i], now[i]);
  former_ = now;
  return loads;
}

}  // namespace kestrune::platform::portable
