#include "fake_machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <stdexcept>

#include "platform/command_words.h"
#include "platform/value_text.h"

namespace kestrune::test {

namespace {

using namespace platform;

constexpr std::int32_t kPatterns = 10000;  ///< from here on numbers are bit patterns

constexpr std::string_view kCardKey =
    R"(System\CurrentControlSet\Control\Video\{0F1F3A6C-6F3A-4B5E-9C59-0D3E5A6B7C8D}\0000)";

constexpr OsVersion kSystems[] = {{4, 10, 1}, {4, 0, 2}, {5, 0, 2}, {5, 1, 2}, {6, 0, 2}};

/// Logs each value that is asked for.
class LoggingRegistry : public TracingRegistry {
 public:
  LoggingRegistry(RegistryApi& inner, Trace& trace, std::vector<std::string>& log)
      : TracingRegistry(inner, trace), log_(log) {}

  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override {
    log_.push_back("read " + std::string(name));
    return TracingRegistry::QueryValue(key, name, type, size, data);
  }

 private:
  std::vector<std::string>& log_;
};

/// Logs each file that is read.
class LoggingFiles : public FakeFiles {
 public:
  LoggingFiles(bool ships_files, std::vector<std::string>& log)
      : FakeFiles(ships_files), log_(log) {}

  std::optional<std::string> ReadBytes(std::string_view path) override {
    log_.push_back("file " + std::string(path));
    return FakeFiles::ReadBytes(path);
  }

 private:
  std::vector<std::string>& log_;
};

/// A program that is found as the machine says.
class FakeChild : public ChildProcess {
 public:
  explicit FakeChild(FakeMachine& machine) : machine_(machine) {}

  ChildState Wait(int /*milliseconds*/) override {
    machine_.log.emplace_back("wait");
    std::vector<ChildState>& states = machine_.child_states;
    if (states.empty()) return ChildState::kEnded;
    const ChildState state = states.front();
    states.erase(states.begin());
    return state;
  }
  void End() override { machine_.log.emplace_back("end"); }

 private:
  FakeMachine& machine_;
};

/// Counters that give what the machine says.
class FakeCounters : public LoadCounters {
 public:
  explicit FakeCounters(FakeMachine& machine) : machine_(machine) {}

  ProcessorLoads Collect() override {
    machine_.log.emplace_back("collect");
    return machine_.loads;
  }

 private:
  FakeMachine& machine_;
};

std::string DriverText(int driver) {
  if (driver == 0) return "";
  char text[32];
  std::snprintf(text, sizeof text, "6.14.10.%04d", driver);
  return text;
}

std::string BytesText(std::uint32_t number) {
  char text[32];
  std::snprintf(text, sizeof text, "%02X %02X %02X %02X", number & 255, number >> 8 & 255,
                number >> 16 & 255, number >> 24);
  return text;
}

KeyAddress AddressOf(std::string_view key) { return ParseKey(key).value(); }

/// The number that a value's data stand for; nothing for other data.
std::optional<std::int32_t> NumberOf(const std::string& data) {
  unsigned bytes[4];
  int number = 0;
  char rest = 0;
  if (std::sscanf(data.c_str(), "REG_DWORD %d%c", &number, &rest) == 1) return number;
  if (std::sscanf(data.c_str(), "REG_BINARY %x %x %x %x%c", &bytes[0], &bytes[1], &bytes[2],
                  &bytes[3], &rest) != 4) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16 | bytes[3] << 24);
}

/// Key and name of a value, the key in short where it is one of the driver's or the program's.
std::string ShortPlace(const FakeMachine& machine, const std::string& key,
                       const std::string& name) {
  const bool is_9x = machine.Kind().family == 0;
  if (is_9x && key == R"(K\NVidia\Direct3D)") return "D3D " + name;
  if (is_9x && key == R"(K\NVidia\OpenGL)") return "GL " + name;
  if (!is_9x && key == "K" && name.starts_with("OGL_")) return "GL " + name.substr(4);
  if (!is_9x && key == "K" && (name.starts_with("D3D") || name.starts_with("D3d_"))) {
    return "D3D " + name;
  }
  if (key == kTweakKey) return "Tweak " + name;
  if (key == kDebugKey) return "Debug " + name;
  if (key == kOptionsKey) return "Options " + name;
  return key + " " + name;
}

std::string ShortChange(const FakeMachine& machine, const std::string& line) {
  const bool is_write = line.starts_with("write ");
  if (!is_write && !line.starts_with("delete ")) {
    const std::string in_folder = "run " KESTRUNE_DATA_FOLDER "\\";
    return line.starts_with(in_folder) ? "run P\\" + line.substr(in_folder.size()) : line;
  }
  const std::size_t type = is_write ? line.find(" REG_") : line.size();
  const std::size_t name = line.rfind(' ', type - 1) + 1;
  const std::size_t key = line.find(' ') + 1;
  const std::string place =
      ShortPlace(machine, line.substr(key, name - 1 - key), line.substr(name, type - name));
  if (!is_write) return "delete " + place;
  const std::string data = line.substr(type + 1);
  const std::optional<std::int32_t> number = NumberOf(data);
  const bool is_drivers =
      place.starts_with("D3D ") || place.starts_with("GL ") || place.starts_with("K ");
  const bool as_kept =
      number && data == (is_drivers ? machine.Kept(static_cast<std::uint32_t>(*number))
                                    : "REG_DWORD " + std::to_string(*number));
  return place + " = " + (as_kept ? NumberText(*number) : data);
}

}  // namespace

FakeMachine::FakeMachine(MachineKind setup)
    : os(kSystems[setup.family]),
      driver_version(DriverText(setup.driver)),
      direct3d_version("5.3.2600.2180"),
      setup_(std::move(setup)),
      trace_([this](TraceKind, const std::string& line) { log.push_back(line); }),
      display_(*this, trace_),
      shell_(*this, trace_) {
  tracing_ = std::make_unique<LoggingRegistry>(registry_, trace_, log);
  files_ = std::make_unique<LoggingFiles>(setup_.ships_files, log);
  if (setup_.device.empty()) return;
  devices = {{R"(\\.\DISPLAY1)", "NVIDIA card", 5,
              R"(PCI\VEN_10DE&DEV_)" + setup_.device + "&SUBSYS_C5201458&REV_A1",
              R"(\Registry\Machine\)" + std::string(kCardKey)}};
  driver_.emplace(DescribedCard{.hardware_id = devices.front().hardware_id,
                                .driver = setup_.driver,
                                .is_9x = setup_.family == 0,
                                .clocks = setup_.clocks},
                  registry_, registry_);
}

Services FakeMachine::Services() {
  return {*tracing_, display_, *this, *this, shell_, *files_, *this};
}

std::string FakeMachine::DriverKey() const { return R"(HKLM\)" + std::string(kCardKey); }

std::string FakeMachine::InterfaceKey(std::string_view name) const {
  return DriverKey() + (setup_.family == 0 ? R"(\NVidia\)" + std::string(name) : "");
}

void FakeMachine::Store(std::string_view key, std::string_view name, std::string_view value) {
  std::istringstream words{std::string(value)};
  std::string type;
  words >> type;
  std::vector<std::string> data;
  for (std::string word; words >> word;) data.push_back(word);
  const KeyAddress address = AddressOf(key);
  RegHandle handle = 0;
  ASSERT_EQ(registry_.CreateKey(address.root, address.path, handle), RegStatus::kSuccess);
  const auto bytes = ParseData(type, data);
  ASSERT_TRUE(bytes) << value;
  EXPECT_EQ(registry_.SetValue(handle, name, ParseType(type).value(), *bytes), RegStatus::kSuccess);
  registry_.CloseKey(handle);
}

std::string FakeMachine::Stored(std::string_view key, std::string_view name) {
  const KeyAddress address = AddressOf(key);
  RegHandle handle = 0;
  if (registry_.OpenKey(address.root, address.path, handle) != RegStatus::kSuccess) return "";
  RegType type = RegType::kNone;
  std::size_t size = 0;
  std::string text;
  if (registry_.QueryValue(handle, name, type, size, {}) == RegStatus::kSuccess) {
    std::vector<std::byte> data(size);
    registry_.QueryValue(handle, name, type, size, data);
    text = ValueText(type, data);
  }
  registry_.CloseKey(handle);
  return text;
}

std::string FakeMachine::Kept(std::uint32_t number) const {
  return setup_.family == 0 ? "REG_DWORD " + std::to_string(static_cast<std::int32_t>(number))
                            : "REG_BINARY " + BytesText(number);
}

void FakeMachine::Unset(std::string_view key, std::string_view name) {
  const KeyAddress address = AddressOf(key);
  RegHandle handle = 0;
  if (registry_.OpenKey(address.root, address.path, handle) != RegStatus::kSuccess) return;
  registry_.DeleteValue(handle, name);
  registry_.CloseKey(handle);
}

std::string FakeMachine::Prefixed(std::string_view name) const {
  return (setup_.family == 0 ? "" : "OGL_") + std::string(name);
}

void FakeMachine::StoreDirect3D(std::string_view name, std::optional<std::uint32_t> number) {
  number ? Store(Direct3DKey(), name, Kept(*number)) : Unset(Direct3DKey(), name);
}

void FakeMachine::StoreOpenGL(std::string_view name, std::optional<std::uint32_t> number) {
  const std::string prefixed = Prefixed(name);
  number ? Store(OpenGLKey(), prefixed, Kept(*number)) : Unset(OpenGLKey(), prefixed);
}

std::vector<std::string> FakeMachine::TakeTrace() {
  std::vector<std::string> lines;
  for (std::string line : log) {
    if (line.find('\t') == std::string::npos) continue;
    if (const std::size_t at = line.find(DriverKey()); at != std::string::npos) {
      line.replace(at, DriverKey().size(), "K");
    }
    std::replace(line.begin(), line.end(), '\t', ' ');
    lines.push_back(std::move(line));
  }
  log.clear();
  return lines;
}

std::string FakeMachine::TakeShortTrace() {
  std::vector<std::string> changes;
  for (const std::string& line : TakeTrace()) changes.push_back(ShortChange(*this, line));
  return changes.empty() ? "nothing" : Joined(changes);
}

std::optional<DisplayDevice> FakeMachine::DeviceAt(int index) {
  log.push_back("device " + std::to_string(index));
  const auto at = static_cast<std::size_t>(index);
  return at < devices.size() ? std::optional(devices[at]) : std::nullopt;
}

OsVersion FakeMachine::SystemVersion() {
  log.push_back("system version");
  return os;
}

std::optional<std::string> FakeMachine::FileVersionText(std::string_view file_name) {
  log.push_back("version " + std::string(file_name));
  const std::string& text = file_name.starts_with("d3d") ? direct3d_version : driver_version;
  return text.empty() ? std::nullopt : std::optional(text);
}

std::unique_ptr<LoadCounters> FakeMachine::OpenLoadCounters() {
  log.emplace_back("open counters");
  return std::make_unique<FakeCounters>(*this);
}

bool FakeMachine::StartCommand(std::string_view command_line, WindowState window) {
  last_window = window;
  if (driver_ && IsReloadCommand(command_line)) driver_->Reload(command_line);
  return true;
}

Result<std::unique_ptr<ChildProcess>, StartFault> FakeMachine::StartProgram(std::string_view,
                                                                            WindowState window) {
  last_window = window;
  if (start_fault) return FailWith(*start_fault);
  return std::unique_ptr<ChildProcess>(std::make_unique<FakeChild>(*this));
}

std::optional<DisplayMode> FakeMachine::ModeAt(int number) {
  log.push_back("mode " + std::to_string(number));
  const auto at = static_cast<std::size_t>(number);
  return at < modes.size() ? std::optional(modes[at]) : std::nullopt;
}

ModeChange FakeMachine::ChangeMode(const ModeRequest&) { return mode_change; }

bool FakeMachine::SetCurrentFolder(std::string_view folder) {
  log.push_back("folder " + std::string(folder));
  return has_folders;
}

void FakeMachine::WaitWhile(const std::function<bool()>& goes_on) {
  while (goes_on()) log.push_back("goes on");
}

Answer FakeMachine::Ask(std::string_view /*title*/, std::string_view text,
                        const Question& question) {
  log.push_back("message " + std::string(text));
  messages.emplace_back(text);
  last_question = question;
  return answer.value_or(question.preset);
}

Driven::Driven(FakeMachine& machine, std::string_view command_line)
    : program(machine.Services()), started(program.Start(command_line)) {}

controls::Control& Driven::Find(std::string_view id) const {
  controls::Control* control = program.Find(id);
  if (control == nullptr) throw std::runtime_error("no control " + std::string(id));
  return *control;
}

std::vector<std::string> Driven::Items(std::string_view id) const {
  return Get<controls::ComboBox>(id).Items();
}

void Driven::Choose(std::string_view id, int position) {
  EXPECT_TRUE(Get<controls::ComboBox>(id).Choose(position)) << id << " #" << position;
}

void Driven::Choose(std::string_view id, std::string_view item) {
  const std::vector<std::string> items = Items(id);
  const auto found = std::find(items.begin(), items.end(), item);
  ASSERT_NE(found, items.end()) << id << " has no " << item << ": " << Joined(items);
  Choose(id, static_cast<int>(found - items.begin()));
}

void Driven::Type(std::string_view id, std::string_view text) {
  auto* box = dynamic_cast<controls::TextBox*>(&Find(id));
  EXPECT_TRUE(box != nullptr ? box->Type(std::string(text))
                             : Get<controls::ComboBox>(id).Type(std::string(text)))
      << id;
}

void Driven::Tick(std::string_view id, bool on) {
  EXPECT_TRUE(Get<controls::CheckBox>(id).Use(on ? 1 : 0)) << id;
}

void Driven::Move(std::string_view id, int value) {
  EXPECT_TRUE(Get<controls::Slider>(id).Use(value)) << id << " to " << value;
}

void Driven::Press(std::string_view id) {
  if (auto* option = dynamic_cast<controls::OptionButton*>(&Find(id))) {
    option->Use();
  } else {
    Find(id).Click();
  }
}

void Driven::Hover(std::string_view id) { Find(id).Hover(); }

void Driven::Use(std::string_view id, std::string_view value) {
  controls::Control& control = Find(id);
  if (dynamic_cast<controls::ComboBox*>(&control) != nullptr) {
    Choose(id, value);
  } else if (dynamic_cast<controls::CheckBox*>(&control) != nullptr) {
    Tick(id, value == "on");
  } else if (dynamic_cast<controls::Slider*>(&control) != nullptr) {
    Move(id, std::stoi(std::string(value)));
  } else {
    Press(id);
  }
}

void Driven::ReadAgain() {
  auto& box = Get<controls::CheckBox>("direct3d.antialiasing.enable-sli-antialiasing");
  const bool on = box.Checked();
  Tick(box.Id(), !on);
  Tick(box.Id(), on);
}

std::string Driven::State(std::string_view name) const {
  for (const auto& [each, value] : program.State()) {
    if (each != name) continue;
    const auto* number = std::get_if<int>(&value);
    return number != nullptr ? std::to_string(*number) : std::get<std::string>(value);
  }
  throw std::runtime_error("no shared value " + std::string(name));
}

std::string NumberText(std::int32_t number) {
  if (number > -kPatterns && number < kPatterns) return std::to_string(number);
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(number));
  return text;
}

std::string NumberText(std::optional<std::int32_t> number) {
  return number ? NumberText(*number) : "not set";
}

std::string Joined(const std::vector<std::string>& lines, std::string_view between) {
  std::string text;
  for (const std::string& line : lines) {
    text += (text.empty() ? "" : std::string(between)) + line;
  }
  return text;
}

}  // namespace kestrune::test
