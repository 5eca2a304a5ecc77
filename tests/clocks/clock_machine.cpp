#include "clocks/clock_machine.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>

#include "core/registry.h"
#include "platform/portable/portable_machine.h"
#include "platform/value_text.h"

namespace kestrune::test {

namespace {

constexpr std::string_view kSystems[] = {
    "major = 4\nminor = 10\nplatform = 1\n", "major = 4\nminor = 0\nplatform = 2\n",
    "major = 5\nminor = 0\nplatform = 2\n", "major = 5\nminor = 1\nplatform = 2\n"};

std::string Description(const ClockSetup& setup) {
  char version[32];
  std::snprintf(version, sizeof version, "6.14.10.%04d", setup.driver);
  const std::string driver_file = setup.family == 0 ? "NvCpl.dll" : "nv4_disp.dll";
  return "[os]\n" + std::string(kSystems[setup.family]) + "[file_versions]\n\"" + driver_file +
         "\" = \"" + version +
         "\"\n[[display_device]]\nname = 'D'\nhardware_id = " + "'PCI\\VEN_10DE&DEV_" +
         setup.device + "&SUBSYS_00000000&REV_A1'\n" +
         "driver_key = '\\Registry\\Machine\\System\\Card'\n" +
         (setup.clocks.empty() ? "" : "[clocks]\n" + setup.clocks);
}

void Replace(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
    text.replace(at, what.size(), with);
    at += with.size();
  }
}

}  // namespace

ClockMachine::ClockMachine(const ClockSetup& setup)
    : tracing_([this](platform::TraceKind, const std::string& line) { trace_.push_back(line); }) {
  auto opened = platform::portable::PortableMachines().Open(
      {.store = folder_ / "registry.store",
       .machine = folder_.Write("m.toml", Description(setup)),
       .program_folder = KESTRUNE_DATA_FOLDER});
  if (!opened.Ok()) throw std::runtime_error(opened.Reason());
  machine_ = std::move(opened).Value();
  const platform::Services services = machine_->ServicesFor(*this);
  registry_ = std::make_unique<platform::TracingRegistry>(services.registry, tracing_);
  shell_ = std::make_unique<platform::TracingShell>(services.shell, tracing_);
  Restart();
}

void ClockMachine::Restart() {
  const platform::Services services = machine_->ServicesFor(*this);
  program_ = std::make_unique<forms::Program>(platform::Services{
      *registry_, services.display, services.version, *shell_, services.files, *this});
  EXPECT_TRUE(program_->Start(""));
  trace_.clear();
}

controls::Control& ClockMachine::Find(std::string_view id) {
  return *program_->Find("overclocking." + std::string(id));
}

void ClockMachine::Type(std::string_view box, std::string_view text) {
  dynamic_cast<controls::TextBox&>(Find(box)).Type(std::string(text));
}

void ClockMachine::Press(std::string_view button) { Find(button).Click(); }

void ClockMachine::Choose(std::string_view option) {
  dynamic_cast<controls::OptionButton&>(Find(option)).Use();
}

void ClockMachine::Tick(std::string_view box, bool on) {
  EXPECT_TRUE(dynamic_cast<controls::CheckBox&>(Find(box)).Use(on ? 1 : 0));
}

std::string ClockMachine::Text(std::string_view id) { return Find(id).ValueText(); }

int ClockMachine::State(std::string_view name) {
  for (const auto& [each, value] : program_->State()) {
    if (each == name) return std::get<int>(value);
  }
  throw std::runtime_error("no such shared value");
}

std::string ClockMachine::StateText(std::string_view name) {
  for (const auto& [each, value] : program_->State()) {
    if (each == name) return std::get<std::string>(value);
  }
  throw std::runtime_error("no such shared value");
}

std::string ClockMachine::ClockKey() { return StateText("HardwareKey"); }

void ClockMachine::Store(const std::string& key, std::string_view name, std::int32_t number) {
  const auto address = platform::ParseKey(key);
  core::basRegistry registry(machine_->ServicesFor(*this).registry);
  EXPECT_EQ(registry.WriteRegValue(address->root, address->path, name, number),
            core::WriteResult::kDone);
}

std::string ClockMachine::Stored(const std::string& key, std::string_view name) {
  const auto address = platform::ParseKey(key);
  core::basRegistry registry(machine_->ServicesFor(*this).registry);
  return registry.ReadRegValue(address->root, address->path, name).Text();
}

std::vector<std::string> ClockMachine::TakeTrace() {
  std::vector<std::string> lines = std::exchange(trace_, {});
  for (std::string& line : lines) {
    Replace(line, "HKCU\\" + ClockKey(), "U");
    Replace(line, "HKLM\\" + ClockKey(), "L");
    Replace(line, "\t", " ");
    Replace(line, "REG_DWORD ", "");
    Replace(line, "REG_SZ ", "");
  }
  return lines;
}

platform::Answer ClockMachine::ShowMessage(std::string_view, std::string_view text,
                                           platform::Buttons) {
  messages.emplace_back(text);
  return platform::Answer::kOk;
}

}  // namespace kestrune::test
