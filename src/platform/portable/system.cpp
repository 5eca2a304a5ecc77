#include "platform/portable/system.h"

#include <time.h>

#include <algorithm>

#include "platform/parse_number.h"
#include "platform/portable/load_counters.h"
#include "platform/portable/processes.h"
#include "platform/portable/whole_file.h"

namespace kestrune::platform::portable {

namespace {

/// A line's number of kilobytes, such as that of "MemTotal:", in bytes; 0 where there is none.
std::int64_t BytesOf(std::string_view memory_info, std::string_view name) {
  constexpr std::int64_t kKilobyte = 1024;
  const std::size_t at = memory_info.find(name);
  if (at == memory_info.npos || (at > 0 && memory_info[at - 1] != '\n')) return 0;
  std::string_view rest = memory_info.substr(at + name.size());
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  return ParseWhole<std::int64_t>(rest.substr(0, rest.find_first_not_of("0123456789")))
             .value_or(0) *
         kKilobyte;
}

}  // namespace

MemoryStatus ReadMemory(std::string_view memory_info) {
  return {BytesOf(memory_info, "MemTotal:"), BytesOf(memory_info, "MemAvailable:")};
}

std::int64_t DescribedSystem::Milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

void DescribedSystem::Pause(int milliseconds) {
  const timespec time{milliseconds / 1000, milliseconds % 1000 * 1000000L};
  nanosleep(&time, nullptr);
}

ProcessorInfo DescribedSystem::Processors() {
  constexpr int kUsualType = 586;
  const DescribedProcessor processor = processor_();
  return {processor.count.value_or(0), processor.type.value_or(kUsualType)};
}

MemoryStatus DescribedSystem::Memory() {
  const DescribedMemory& described = machine_.memory;
  if (described.total || described.available) {
    return {described.total.value_or(0), described.available.value_or(0)};
  }
  const auto memory_info = ReadWholeFile("/proc/meminfo");
  return memory_info ? ReadMemory(memory_info.Value()) : MemoryStatus();
}

std::unique_ptr<LoadCounters> DescribedSystem::OpenLoadCounters() {
  if (machine_.processor.load) return std::make_unique<DescribedLoad>(*machine_.processor.load);
  return std::make_unique<MeasuredLoad>();
}

std::optional<std::vector<ProcessRecord>> DescribedSystem::Processes() {
  if (!machine_.processes) return ReadProcesses("/proc");
  std::vector<ProcessRecord> records = {IdleProcess()};
  records.insert(records.end(), machine_.processes->begin(), machine_.processes->end());
  return records;
}

}  // namespace kestrune::platform::portable
