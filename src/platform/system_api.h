#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kestrune::platform {

/// The processors as GetSystemInfo reports them.
struct ProcessorInfo {
  int count = 0;
  int type = 0;  ///< such as 586
};

/// Physical memory in bytes (GlobalMemoryStatus).
struct MemoryStatus {
  std::int64_t total = 0;
  std::int64_t available = 0;
};

/// How busy the processors 0 and 1 were, each in percent.
using ProcessorLoads = std::array<std::optional<double>, 2>;

/// Counts what the processors 0 and 1 do (PdhCollectQueryData, PerfStats\StatData).
class LoadCounters {
 public:
  virtual ~LoadCounters() = default;

  /// The loads since the last collection; the first one begins to count. Nothing for a processor
  /// that isn't there or can't be read, and while no time has passed.
  virtual ProcessorLoads Collect() = 0;
};

/// One process of a snapshot.
struct ProcessRecord {
  std::string name;  ///< of its program's file, in one line
  int id = 0;
  int parent = 0;  ///< identifier
  int threads = 0;
  int priority = 0;  ///< base priority of its threads, such as 8
};

/// What the operating system says of the computer at this moment. A call that fails gives zeros.
class SystemApi {
 public:
  virtual ~SystemApi() = default;

  virtual ProcessorInfo Processors() = 0;
  virtual MemoryStatus Memory() = 0;
  /// Opens counters for many collections (PdhOpenQuery, PdhAddCounter). Never null; what can't be
  /// opened is never there.
  virtual std::unique_ptr<LoadCounters> OpenLoadCounters() = 0;
  /// Milliseconds of real time that have gone by since some moment (GetTickCount).
  virtual std::int64_t Milliseconds() = 0;
  /// Lets so much real time pass (Sleep). A signal may cut it short.
  virtual void Pause(int milliseconds) = 0;
  /// All processes of this moment, first that of number 0 (CreateToolhelp32Snapshot,
  /// Process32First, Process32Next); nothing when it fails.
  virtual std::optional<std::vector<ProcessRecord>> Processes() = 0;
};

}  // namespace kestrune::platform
