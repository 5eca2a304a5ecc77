#include "platform/portable/processes.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/parse_number.h"
#include "platform/plain_text.h"

namespace kestrune::platform::portable {

namespace {

/// What the numbers behind the name in a process's stat file are, counted from 1 with the
/// identifier and the name.
enum StatField { kParent = 4, kFlags = 9, kNice = 19, kThreads = 20, kPolicy = 41, kStatFields };

constexpr unsigned kKernelThread = 0x00200000;
/// SCHED_FIFO, SCHED_RR and SCHED_DEADLINE.
constexpr std::int64_t kRealTimePolicies[] = {1, 2, 6};

/// The base priority of a class, for all niceness up to the row's.
struct PriorityRow {
  std::int64_t nice;
  int priority;
};

constexpr PriorityRow kPriorities[] = {{-10, 13}, {-1, 10}, {0, 8}, {9, 6}, {19, 4}};
constexpr int kRealTimePriority = 24;

struct FoundProcess {
  ProcessRecord record;
  bool is_of_kernel = false;
};

int PriorityOf(std::int64_t nice, std::int64_t policy) {
  if (std::find(std::begin(kRealTimePolicies), std::end(kRealTimePolicies), policy) !=
      std::end(kRealTimePolicies)) {
    return kRealTimePriority;
  }
  const auto* row = std::find_if(std::begin(kPriorities), std::end(kPriorities) - 1,
                                 [nice](const PriorityRow& each) { return nice <= each.nice; });
  return row->priority;
}

/// Takes the text of a stat file apart; nothing when it isn't of that form.
std::optional<FoundProcess> ParseStat(int id, std::string_view text) {
  const std::size_t name = text.find('(');
  const std::size_t end = text.rfind(')');
  if (name == text.npos || end == text.npos || end < name) return std::nullopt;
  std::int64_t fields[kStatFields] = {};
  std::string_view rest = text.substr(end + 1);
  for (int field = 2; field < kStatFields && !rest.empty(); ++field) {
    const std::size_t blank = rest.find_first_of(" \n");
    fields[field] = ParseWhole<std::int64_t>(rest.substr(0, blank)).value_or(0);
    rest.remove_prefix(blank == rest.npos ? rest.size() : blank + 1);
  }
  return FoundProcess{
      {ProcessName(text.substr(name + 1, end - name - 1)), id, static_cast<int>(fields[kParent]),
       static_cast<int>(fields[kThreads]), PriorityOf(fields[kNice], fields[kPolicy])},
      (fields[kFlags] & kKernelThread) != 0};
}

/// The beginning of a file that a system makes up while it is read, as one read gives it.
std::string_view ReadOnce(int folder, const char* path, char* buffer, std::size_t size) {
  const int file = openat(folder, path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return {};
  const ssize_t length = read(file, buffer, size);
  close(file);
  return {buffer, length < 0 ? 0 : static_cast<std::size_t>(length)};
}

std::optional<FoundProcess> ReadProcess(int folder, std::string_view number) {
  // The longest line there is has some 1,000 characters.
  constexpr std::size_t kLongestStat = 2048;
  const std::optional<int> id = ParseWhole<int>(number);
  if (!id) return std::nullopt;
  char buffer[kLongestStat];
  const std::string path = std::string(number).append("/stat");
  return ParseStat(*id, ReadOnce(folder, path.c_str(), buffer, sizeof buffer));
}

}  // namespace

ProcessRecord IdleProcess() { return {"[System Process]", 0, 0, 1, 0}; }

std::string ProcessName(std::string_view bytes) { return PlainText(bytes, Escapes::kNumbersOnly); }

std::optional<std::vector<ProcessRecord>> ReadProcesses(const std::string& folder) {
  const std::unique_ptr<DIR, int (*)(DIR*)> list(opendir(folder.c_str()), closedir);
  if (!list) return std::nullopt;
  std::vector<FoundProcess> found;
  while (const dirent* entry = readdir(list.get())) {
    if (auto process = ReadProcess(dirfd(list.get()), entry->d_name)) {
      found.push_back(std::move(*process));
    }
  }
  std::sort(found.begin(), found.end(), [](const FoundProcess& left, const FoundProcess& right) {
    return std::pair(left.is_of_kernel, left.record.id) <
           std::pair(right.is_of_kernel, right.record.id);
  });
  std::vector<ProcessRecord> records = {IdleProcess()};
  records.reserve(found.size() + 1);
  for (FoundProcess& each : found) records.push_back(std::move(each.record));
  return records;
}

}  // namespace kestrune::platform::portable
