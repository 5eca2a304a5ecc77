#include "platform/win32/system.h"

#include <windows.h>
#include <tlhelp32.h>

#include "platform/win32/library.h"
#include "platform/win32/load_counters.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

/// GlobalMemoryStatusEx and its record, which the oldest headers lack.
struct LargeMemory {
  DWORD length;
  DWORD load;
  DWORDLONG total;
  DWORDLONG available;
  DWORDLONG others[5];
};
using MemoryStatusEx = BOOL WINAPI(LargeMemory*);
using Snapshot = HANDLE WINAPI(DWORD, DWORD);
using NextProcess = BOOL WINAPI(HANDLE, PROCESSENTRY32*);

/// On Windows 9x a program is told with its whole path.
std::string_view NameIn(std::string_view path) {
  const std::size_t separator = path.rfind('\\');
  return path.substr(separator == path.npos ? 0 : separator + 1);
}

std::string_view TextIn(const CHAR* field, std::size_t size) {
  const std::string_view whole(field, size);
  return whole.substr(0, whole.find('\0'));
}

}  // namespace

ProcessorInfo SystemState::Processors() {
  SYSTEM_INFO info{};
  GetSystemInfo(&info);
  return {static_cast<int>(info.dwNumberOfProcessors), static_cast<int>(info.dwProcessorType)};
}

MemoryStatus SystemState::Memory() {
  const Library kernel("kernel32.dll");
  if (auto* const status_ex = kernel.Find<MemoryStatusEx>("GlobalMemoryStatusEx")) {
    LargeMemory large{};
    large.length = sizeof large;
    if (status_ex(&large)) {
      return {static_cast<std::int64_t>(large.total), static_cast<std::int64_t>(large.available)};
    }
  }
  MEMORYSTATUS status{};
  status.dwLength = sizeof status;
  GlobalMemoryStatus(&status);
  return {static_cast<std::int64_t>(status.dwTotalPhys),
          static_cast<std::int64_t>(status.dwAvailPhys)};
}

std::unique_ptr<LoadCounters> SystemState::OpenLoadCounters() { return OpenCounters(); }

std::int64_t SystemState::Milliseconds() { return static_cast<std::int64_t>(GetTickCount()); }

void SystemState::Pause(int milliseconds) { Sleep(static_cast<DWORD>(milliseconds)); }

std::optional<std::vector<ProcessRecord>> SystemState::Processes() {
  const Library kernel("kernel32.dll");
  auto* const take_snapshot = kernel.Find<Snapshot>("CreateToolhelp32Snapshot");
  auto* const first = kernel.Find<NextProcess>("Process32First");
  auto* const next = kernel.Find<NextProcess>("Process32Next");
  if (take_snapshot == nullptr || first == nullptr || next == nullptr) return std::nullopt;
  const HANDLE snapshot = take_snapshot(TH32CS_SNAPPROCESS, 0);
  if (snapshot == INVALID_HANDLE_VALUE) return std::nullopt;
  std::vector<ProcessRecord> processes;
  PROCESSENTRY32 entry{};
  entry.dwSize = sizeof entry;
  for (BOOL is_there = first(snapshot, &entry); is_there; is_there = next(snapshot, &entry)) {
    const std::string_view path = TextIn(entry.szExeFile, sizeof entry.szExeFile);
    processes.push_back({pages_.Decode(NameIn(path)), static_cast<int>(entry.th32ProcessID),
                         static_cast<int>(entry.th32ParentProcessID),
                         static_cast<int>(entry.cntThreads),
                         static_cast<int>(entry.pcPriClassBase)});
  }
  CloseHandle(snapshot);
  return processes;
}

}  // namespace kestrune::platform::win32
