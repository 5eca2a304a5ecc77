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
#include "platform/code_page.h"
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

/// Where some keys of a description stand, from 1; 0 for one that isn't there.
struct DescriptionLines {
  int registry = 0;
  int code_page = 0;
  std::vector<int> hardware_ids;  ///< one a display device
};

/// What is to be said of a description while it is taken apart: its first fault, its unknown keys,
/// and where some of its keys stand.
class Remarks {
 public:
  void Fault(const toml::source_region& place, std::string reason) {
    if (fault_) return;
    column_ = static_cast<int>(place.begin.column);
    fault_ = {static_cast<int>(place.begin.line), std::move(reason)};
  }
  void Unknown(const toml::key& key) {
    unknown_.push_back(
        {static_cast<int>(key.source().begin.line), "unknown key " + Quoted(key.str())});
  }

  const std::optional<Finding>& FirstFault() const { return fault_; }
  int FaultColumn() const { return column_; }
  const Findings& UnknownKeys() const { return unknown_; }
  DescriptionLines lines;

 private:
  std::optional<Finding> fault_;
  int column_ = 0;
  Findings unknown_;
};

/// Takes the keys of one table. What is missing leaves its target as it was; a wrong type is a
/// fault; keys that nobody took are unknown.
class Table {
 public:
  Table(const toml::table& table, Remarks& remarks) : table_(table), remarks_(remarks) {}
  ~Table() {
    for (const auto& [key, node] : table_) {
      if (!taken_.contains(key.str())) remarks_.Unknown(key);
    }
  }
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  template <class Target>
  void Take(std::string_view key, Target& target, const Range& range = {}) {
    if (const toml::node* node = Find(key)) Read(*node, key, target, range);
  }

  /// The line of what stands under a key; 0 where there is nothing.
  int LineOf(std::string_view key) const {
    const toml::node* node = table_.get(key);
    return node != nullptr ? static_cast<int>(node->source().begin.line) : 0;
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
    remarks_.Fault(node.source(), Quoted(key) + " must be " + wanted);
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
  Remarks& remarks_;
  std::set<std::string_view> taken_;
};

/// Nothing where a table that is there says nothing.
template <class Value>
void FillIn(std::optional<Value>& value) {
  if (!value) value.emplace();
}

void TakeOs(const toml::table& source, Remarks& remarks, MachineDescription& machine) {
  Table table(source, remarks);
  table.Take("major", machine.os.major, kVersionPart);
  table.Take("minor", machine.os.minor, kVersionPart);
  table.Take("platform", machine.os.platform, kPlatform);
  table.Take("system_folder", machine.system_folder);
}

void TakeFileVersions(const toml::table& source, Remarks& remarks, MachineDescription& machine) {
  Table table(source, remarks);
  for (const auto& [key, node] : source) {
    table.Take(key.str(), machine.file_versions[FoldCase(key.str())]);
  }
}

void TakeDisplayDevice(const toml::table& source, Remarks& remarks, DisplayDevice& device) {
  Table table(source, remarks);
  int state = 0;
  table.Take("name", device.name);
  table.Take("description", device.description);
  table.Take("state", state);
  table.Take("hardware_id", device.hardware_id);
  remarks.lines.hardware_ids.push_back(table.LineOf("hardware_id"));
  table.Take("driver_key", device.driver_key);
  device.state = static_cast<unsigned>(state);
}

void TakeDisplay(const toml::table& source, Remarks& remarks, DescribedDisplay& display) {
  Table table(source, remarks);
  table.Take("modes", display.modes);
  table.Take("restart_needed", display.restart_needed);
  table.Take("refused", display.refused);
  FillIn(display.modes);
}

void TakeClocks(const toml::table& source, Remarks& remarks, DescribedClocks& clocks) {
  Table table(source, remarks);
  table.Take("core", clocks.core, kClockMhz);
  table.Take("memory", clocks.memory, kClockMhz);
  table.Take("core_3d", clocks.core_3d, kClockMhz);
  table.Take("memory_3d", clocks.memory_3d, kClockMhz);
  table.Take("homer", clocks.homer);
  table.Take("key_revision", clocks.key_revision);
}

void TakeMemory(const toml::table& source, Remarks& remarks, DescribedMemory& memory) {
  Table table(source, remarks);
  table.Take("total", memory.total, kMemoryBytes);
  table.Take("available", memory.available, kMemoryBytes);
  FillIn(memory.total);
  FillIn(memory.available);
}

void TakeProcessor(const toml::table& source, Remarks& remarks, DescribedProcessor& processor) {
  Table table(source, remarks);
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

void TakeProcess(const toml::table& source, Remarks& remarks, ProcessRecord& process) {
  Table table(source, remarks);
  std::string name;
  table.Take("name", name);
  process.name = ProcessName(name);
  table.Take("id", process.id);
  table.Take("parent", process.parent);
  table.Take("threads", process.threads);
  table.Take("priority", process.priority, kPriority);
}

void TakeMachine(const toml::table& source, Remarks& remarks, MachineDescription& machine) {
  Table table(source, remarks);
  table.Take("name", machine.title);
  table.Take("registry", machine.registry);
  table.Take("codepage", machine.code_page, kCodePage);
  remarks.lines.registry = table.LineOf("registry");
  remarks.lines.code_page = table.LineOf("codepage");
  table.Take("programs", machine.programs);
  table.TakeTable("os", [&](const auto& t) { TakeOs(t, remarks, machine); });
  table.TakeTable("file_versions", [&](const auto& t) { TakeFileVersions(t, remarks, machine); });
  table.TakeTables("display_device", [&](const auto& t) {
    if (!machine.display_devices) machine.display_devices.emplace();
    TakeDisplayDevice(t, remarks, machine.display_devices->emplace_back());
  });
  table.TakeTable("display", [&](const auto& t) { TakeDisplay(t, remarks, machine.display); });
  table.TakeTable("clocks",
                  [&](const auto& t) { TakeClocks(t, remarks, machine.clocks.emplace()); });
  table.TakeTable("memory", [&](const auto& t) { TakeMemory(t, remarks, machine.memory); });
  table.TakeTable("processor",
                  [&](const auto& t) { TakeProcessor(t, remarks, machine.processor); });
  table.TakeTables("process", [&](const auto& t) {
    if (!machine.processes) machine.processes.emplace();
    TakeProcess(t, remarks, machine.processes->emplace_back());
  });
}

void TakeText(std::string_view text, Remarks& remarks, MachineDescription& machine) {
  if (const unsigned line = FirstLineTooDeep(text); line > 0) {
    return remarks.Fault({{line, 1}, {line, 1}, nullptr}, "the line has too many dots");
  }
  const toml::parse_result parsed = toml::parse(text);
  if (parsed.failed()) {
    return remarks.Fault(parsed.error().source(), std::string(parsed.error().description()));
  }
  TakeMachine(parsed.table(), remarks, machine);
}

/// What keeps a description's registry file from being imported, told where it is named.
void CheckRegistryOf(const MachineDescription& machine, int line,
                     const RegistryCheck& check_registry, Findings& findings) {
  const std::string file = RegistryFileOf(machine);
  if (file.empty()) return;
  const std::string what = "the registry file " + machine.registry;
  const auto checked = check_registry(file);
  if (!checked.Ok()) {
    findings.push_back({line, what + " can't be read: " + checked.Reason().reason});
    return;
  }
  for (const Finding& finding : checked.Value()) {
    findings.push_back({line, what + " has a fault in line " + std::to_string(finding.line) + ": " +
                                  finding.reason});
  }
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
  Remarks remarks;
  LoadedDescription loaded;
  loaded.description.file = file;
  TakeText(text, remarks, loaded.description);
  if (const auto& fault = remarks.FirstFault()) {
    return Fail(file + ":" + std::to_string(fault->line) + ":" +
                std::to_string(remarks.FaultColumn()) + ": " + fault->reason);
  }
  for (const Finding& unknown : remarks.UnknownKeys()) {
    loaded.warnings.push_back(file + ":" + std::to_string(unknown.line) + ": " + unknown.reason);
  }
  return loaded;
}

std::string RegistryFileOf(const MachineDescription& machine) {
  if (machine.registry.empty()) return {};
  return std::filesystem::path(machine.file).replace_filename(machine.registry).string();
}

DescriptionCheck CheckMachineDescription(std::string_view text, const std::string& file,
                                         const RegistryCheck& check_registry) {
  Remarks remarks;
  MachineDescription machine;
  machine.file = file;
  TakeText(text, remarks, machine);
  DescriptionCheck check;
  if (remarks.FirstFault()) {
    check.findings.push_back(*remarks.FirstFault());
    return check;
  }
  check.findings = remarks.UnknownKeys();
  if (!CodePages::IsKnown(machine.code_page)) {
    check.findings.push_back({remarks.lines.code_page,
                              "code page " + std::to_string(machine.code_page) + " isn't known"});
  }
  CheckRegistryOf(machine, remarks.lines.registry, check_registry, check.findings);
  SortByLine(check.findings);
  for (std::size_t i = 0; machine.display_devices && i < machine.display_devices->size(); ++i) {
    check.devices.push_back(
        {remarks.lines.hardware_ids[i], (*machine.display_devices)[i].hardware_id});
  }
  return check;
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
