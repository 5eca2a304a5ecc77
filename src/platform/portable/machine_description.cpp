#include "platform/portable/machine_description.h"

#include <algorithm>
#include <concepts>
#include <filesystem>
#include <limits>
#include <set>
#include <system_error>
#include <utility>

#define TOML_HEADER_ONLY 1
#define TOML_EXCEPTIONS 0
// A broken file is a fault of the file, in every build.
#define TOML_ASSERT(expr) static_assert(true)
// Lists of tables of lists are all that a description has.
#define TOML_MAX_NESTED_VALUES 8
#include <toml++/toml.h>

#include "platform/case_fold.h"
#include "platform/parse_number.h"
#include "platform/portable/processes.h"
#include "platform/portable/whole_file.h"

namespace kestrune::platform::portable {
namespace {

constexpr std::string_view kEnding = ".toml";

std::string Quoted(std::string_view text) {
  std::string quoted(1, '"');
  return quoted.append(text).append(1, '"');
}

/// The numbers that a key takes.
struct Range {
  std::int64_t least = 0;
  std::int64_t most = std::numeric_limits<int>::max();
};

constexpr Range kClockMhz{1, 32767};
constexpr Range kMemoryBytes{0, std::int64_t{1} << 50};
constexpr Range kProcessorCount{1, 64};
constexpr Range kProcessorMhz{0, 1000000};
constexpr Range kLoadPercent{0, 100};
constexpr Range kPriority{0, 31};
constexpr Range kPlatform{1, 2};
constexpr Range kVersionPart{0, 65535};
constexpr Range kCodePage{0, 65535};

/// The library descends once more for each dot of a key's name, without a limit of its own. No line
/// of a description has more of them, whatever they stand for.
constexpr std::ptrdiff_t kMostDotsInALine = 256;

/// The words of a key that chooses among a few.
struct ProgramNamesWord {
  std::string_view word;
  ProgramNames names;
};

constexpr ProgramNamesWord kProgramNames[] = {
    {"executable", ProgramNames::kExecutable},
    {"exe", ProgramNames::kExe},
};

/// The first line that may name too many levels; 0 when there is none.
unsigned FirstLineTooDeep(std::string_view text) {
  unsigned number = 0;
  while (!text.empty()) {
    ++number;
    const std::string_view line = text.substr(0, text.find('\n'));
    if (std::count(line.begin(), line.end(), '.') > kMostDotsInALine) return number;
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return 0;
}

/// The numbers between the x of a size: from 2 to 3 of them, none above 65535.
std::vector<int> SizeNumbers(std::string_view text) {
  std::vector<int> numbers;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = std::min(rest.find('x'), rest.size());
    numbers.push_back(ParseWhole<std::uint16_t>(rest.substr(0, end)).value_or(0));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  const bool is_size = !text.ends_with('x') && (numbers.size() == 2 || numbers.size() == 3) &&
                       std::find(numbers.begin(), numbers.end(), 0) == numbers.end();
  return is_size ? numbers : std::vector<int>();
}

std::optional<DescribedSize> ParseSize(std::string_view text) {
  const std::vector<int> numbers = SizeNumbers(text);
  if (numbers.empty()) return std::nullopt;
  DescribedSize size{numbers[0], numbers[1], std::nullopt};
  if (numbers.size() == 3) size.depth = numbers[2];
  return size;
}

std::optional<DisplayMode> ParseMode(std::string_view text) {
  constexpr std::string_view kUnit = "Hz";
  const std::size_t blank = text.find(' ');
  if (blank == text.npos || !text.ends_with(kUnit)) return std::nullopt;
  const auto size = ParseSize(text.substr(0, blank));
  text.remove_suffix(kUnit.size());
  const auto refresh = ParseWhole<std::uint16_t>(text.substr(std::min(blank + 1, text.size())));
  if (!size || !size->depth || !refresh) return std::nullopt;
  return DisplayMode{size->width, size->height, *size->depth, *refresh};
}

/// What went wrong while a description was taken apart: its first fault, and its unknown keys.
class Findings {
 public:
  explicit Findings(std::string file) : file_(std::move(file)) {}

  void Fault(const toml::source_region& place, const std::string& reason) {
    if (fault_) return;
    fault_ = file_ + ":" + std::to_string(place.begin.line) + ":" +
             std::to_string(place.begin.column) + ": " + reason;
  }
  void Unknown(const toml::key& key) {
    warnings_.push_back(file_ + ":" + std::to_string(key.source().begin.line) + ": unknown key " +
                        Quoted(key.str()));
  }

  const std::optional<std::string>& FirstFault() const { return fault_; }
  std::vector<std::string>& Warnings() { return warnings_; }

 private:
  std::string file_;
  std::optional<std::string> fault_;
  std::vector<std::string> warnings_;
};

/// Takes the keys of one table. What is missing leaves its target as it was; a wrong type is a
/// fault; keys that nobody took are unknown.
class Table {
 public:
  Table(const toml::table& table, Findings& findings) : table_(table), findings_(findings) {}
  ~Table() {
    for (const auto& [key, node] : table_) {
      if (!taken_.contains(key.str())) findings_.Unknown(key);
    }
  }
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  template <class Target>
  void Take(std::string_view key, Target& target, const Range& range = {}) {
    if (const toml::node* node = Find(key)) Read(*node, key, target, range);
  }

  /// A text stands for `count` names that are alike.
  void TakeNames(std::string_view key, std::optional<std::vector<std::string>>& names, int count) {
    const toml::node* node = Find(key);
    if (node == nullptr) return;
    if (const auto* text = node->as_string()) {
      names.emplace(static_cast<std::size_t>(count), text->get());
    } else {
      Read(*node, key, names, {});
    }
  }

  template <class Reader>
  void TakeTable(std::string_view key, Reader read) {
    const toml::node* node = Find(key);
    if (node == nullptr) return;
    if (!node->is_table()) return Wrong(*node, key, "a table");
    read(*node->as_table());
  }

  template <class Reader>
  void TakeTables(std::string_view key, Reader read) {
    const toml::node* node = Find(key);
    if (node == nullptr) return;
    const toml::array* array = node->as_array();
    if (array == nullptr) return Wrong(*node, key, "an array of tables");
    for (const toml::node& element : *array) {
      if (!element.is_table()) return Wrong(element, key, "an array of tables");
      read(*element.as_table());
    }
  }

 private:
  const toml::node* Find(std::string_view key) {
    taken_.insert(key);
    return table_.get(key);
  }

  void Wrong(const toml::node& node, std::string_view key, const std::string& wanted) {
    findings_.Fault(node.source(), Quoted(key) + " must be " + wanted);
  }

  /// The text that it is; empty for anything else.
  static std::string_view TextOf(const toml::node& node) {
    return node.is_string() ? std::string_view(node.as_string()->get()) : std::string_view();
  }

  void Read(const toml::node& node, std::string_view key, std::string& target, const Range&) {
    if (!node.is_string()) return Wrong(node, key, "a text");
    target = node.as_string()->get();
  }
  void Read(const toml::node& node, std::string_view key, ProgramNames& target, const Range&) {
    const std::string_view word = TextOf(node);
    std::string words;
    for (const ProgramNamesWord& known : kProgramNames) {
      if (known.word == word) {
        target = known.names;
        return;
      }
      words += (words.empty() ? "" : " or ") + Quoted(known.word);
    }
    Wrong(node, key, words);
  }
  void Read(const toml::node& node, std::string_view key, DisplayMode& target, const Range&) {
    const auto mode = ParseMode(TextOf(node));
    if (!mode) return Wrong(node, key, "texts such as \"1024x768x32 85Hz\"");
    target = *mode;
  }
  void Read(const toml::node& node, std::string_view key, DescribedSize& target, const Range&) {
    const auto size = ParseSize(TextOf(node));
    if (!size) return Wrong(node, key, "texts such as \"1024x768x32\" or \"1024x768\"");
    target = *size;
  }
  template <std::integral Number>
  void Read(const toml::node& node, std::string_view key, Number& target, const Range& range) {
    const std::int64_t number = node.is_integer() ? node.as_integer()->get() : range.least - 1;
    if (number < range.least || number > range.most) {
      return Wrong(node, key,
                   "a whole number from " + std::to_string(range.least) + " to " +
                       std::to_string(range.most));
    }
    target = static_cast<Number>(number);
  }
  template <class Element>
  void Read(const toml::node& node, std::string_view key, std::vector<Element>& target,
            const Range& range) {
    if (!node.is_array()) return Wrong(node, key, "an array");
    target.clear();
    for (const toml::node& element : *node.as_array()) {
      Read(element, key, target.emplace_back(), range);
    }
  }
  template <class Target>
  void Read(const toml::node& node, std::string_view key, std::optional<Target>& target,
            const Range& range) {
    Read(node, key, target.emplace(), range);
  }

  const toml::table& table_;
  Findings& findings_;
  std::set<std::string_view> taken_;
};

/// Nothing where a table that is there says nothing.
template <class Value>
void FillIn(std::optional<Value>& value) {
  if (!value) value.emplace();
}

void TakeOs(const toml::table& source, Findings& findings, MachineDescription& machine) {
  Table table(source, findings);
  table.Take("major", machine.os.major, kVersionPart);
  table.Take("minor", machine.os.minor, kVersionPart);
  table.Take("platform", machine.os.platform, kPlatform);
  table.Take("system_folder", machine.system_folder);
}

void TakeFileVersions(const toml::table& source, Findings& findings, MachineDescription& machine) {
  Table table(source, findings);
  for (const auto& [key, node] : source) {
    table.Take(key.str(), machine.file_versions[FoldCase(key.str())]);
  }
}

void TakeDisplayDevice(const toml::table& source, Findings& findings, DisplayDevice& device) {
  Table table(source, findings);
  int state = 0;
  table.Take("name", device.name);
  table.Take("description", device.description);
  table.Take("state", state);
  table.Take("hardware_id", device.hardware_id);
  table.Take("driver_key", device.driver_key);
  device.state = static_cast<unsigned>(state);
}

void TakeDisplay(const toml::table& source, Findings& findings, DescribedDisplay& display) {
  Table table(source, findings);
  table.Take("modes", display.modes);
  table.Take("restart_needed", display.restart_needed);
  table.Take("refused", display.refused);
  FillIn(display.modes);
}

void TakeClocks(const toml::table& source, Findings& findings, DescribedClocks& clocks) {
  Table table(source, findings);
  table.Take("core", clocks.core, kClockMhz);
  table.Take("memory", clocks.memory, kClockMhz);
  table.Take("core_3d", clocks.core_3d, kClockMhz);
  table.Take("memory_3d", clocks.memory_3d, kClockMhz);
  table.Take("homer", clocks.homer);
  table.Take("key_revision", clocks.key_revision);
}

void TakeMemory(const toml::table& source, Findings& findings, DescribedMemory& memory) {
  Table table(source, findings);
  table.Take("total", memory.total, kMemoryBytes);
  table.Take("available", memory.available, kMemoryBytes);
  FillIn(memory.total);
  FillIn(memory.available);
}

void TakeProcessor(const toml::table& source, Findings& findings, DescribedProcessor& processor) {
  Table table(source, findings);
  table.Take("count", processor.count, kProcessorCount);
  table.Take("type", processor.type);
  table.Take("mhz", processor.mhz, kProcessorMhz);
  table.TakeNames("name", processor.names, processor.count.value_or(1));
  table.Take("identifier", processor.identifier);
  table.Take("vendor", processor.vendor);
  table.Take("load", processor.load, kLoadPercent);
  FillIn(processor.count);
  FillIn(processor.type);
  FillIn(processor.mhz);
  FillIn(processor.names);
  FillIn(processor.identifier);
  FillIn(processor.vendor);
}

void TakeProcess(const toml::table& source, Findings& findings, ProcessRecord& process) {
  Table table(source, findings);
  std::string name;
  table.Take("name", name);
  process.name = ProcessName(name);
  table.Take("id", process.id);
  table.Take("parent", process.parent);
  table.Take("threads", process.threads);
  table.Take("priority", process.priority, kPriority);
}

void TakeMachine(const toml::table& source, Findings& findings, MachineDescription& machine) {
  Table table(source, findings);
  table.Take("name", machine.title);
  table.Take("registry", machine.registry);
  table.Take("codepage", machine.code_page, kCodePage);
  table.Take("programs", machine.programs);
  table.TakeTable("os", [&](const auto& t) { TakeOs(t, findings, machine); });
  table.TakeTable("file_versions", [&](const auto& t) { TakeFileVersions(t, findings, machine); });
  table.TakeTables("display_device", [&](const auto& t) {
    if (!machine.display_devices) machine.display_devices.emplace();
    TakeDisplayDevice(t, findings, machine.display_devices->emplace_back());
  });
  table.TakeTable("display", [&](const auto& t) { TakeDisplay(t, findings, machine.display); });
  table.TakeTable("clocks",
                  [&](const auto& t) { TakeClocks(t, findings, machine.clocks.emplace()); });
  table.TakeTable("memory", [&](const auto& t) { TakeMemory(t, findings, machine.memory); });
  table.TakeTable("processor",
                  [&](const auto& t) { TakeProcessor(t, findings, machine.processor); });
  table.TakeTables("process", [&](const auto& t) {
    if (!machine.processes) machine.processes.emplace();
    TakeProcess(t, findings, machine.processes->emplace_back());
  });
}

std::vector<std::string> DescriptionFiles(const std::string& folder) {
  std::vector<std::string> files;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == kEnding) files.push_back(entry->path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

Result<LoadedDescription> LoadMachineDescription(const std::string& file) {
  const auto text = ReadWholeFile(file);
  if (!text.Ok()) {
    return Fail("The machine description " + file + " can't be read: " + text.Reason().reason +
                ".");
  }
  return ParseMachineDescription(text.Value(), file);
}

Result<LoadedDescription> ParseMachineDescription(std::string_view text, const std::string& file) {
  Findings findings(file);
  if (const unsigned line = FirstLineTooDeep(text); line > 0) {
    findings.Fault({{line, 1}, {line, 1}, nullptr}, "the line has too many dots");
    return Fail(*findings.FirstFault());
  }
  const toml::parse_result parsed = toml::parse(text, file);
  if (parsed.failed()) {
    findings.Fault(parsed.error().source(), std::string(parsed.error().description()));
    return Fail(*findings.FirstFault());
  }
  LoadedDescription loaded;
  loaded.description.file = file;
  TakeMachine(parsed.table(), findings, loaded.description);
  if (findings.FirstFault()) return Fail(*findings.FirstFault());
  loaded.warnings = std::move(findings.Warnings());
  return loaded;
}

Result<std::string> FindMachineDescription(const std::string& machine,
                                           const std::vector<std::string>& folders) {
  std::error_code error;
  if (machine.find('/') != machine.npos || machine.ends_with(kEnding)) {
    if (std::filesystem::exists(machine, error)) return machine;
    return Fail("There is no machine description " + machine + ".");
  }
  for (const std::string& folder : folders) {
    std::string file = std::string(folder).append(1, '/').append(machine).append(kEnding);
    if (std::filesystem::exists(file, error)) return file;
  }
  std::string known;
  for (const MachineInfo& available : ListMachineDescriptions(folders)) {
    known += (known.empty() ? "" : ", ") + available.name;
  }
  return Fail("There is no machine \"" + machine + "\"; " +
              (known.empty() ? "none is described." : "there are " + known + "."));
}

std::vector<MachineInfo> ListMachineDescriptions(const std::vector<std::string>& folders) {
  std::map<std::string, MachineInfo> machines;
  for (const std::string& folder : folders) {
    for (const std::string& file : DescriptionFiles(folder)) {
      const std::string name = std::filesystem::path(file).stem().string();
      if (machines.contains(name)) continue;
      const auto loaded = LoadMachineDescription(file);
      machines[name] = {name, loaded.Ok() ? loaded.Value().description.title : loaded.Reason(),
                        file};
    }
  }
  std::vector<MachineInfo> list;
  list.reserve(machines.size());
  for (auto& [name, machine] : machines) list.push_back(std::move(machine));
  return list;
}

}  // namespace kestrune::platform::portable
