#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fake_machine.h"
#include "platform/machine.h"

namespace kestrune::test {

/// What a card's clocks depend on.
struct ClockSetup {
  std::string title;
  int family = 3;  ///< 0 Windows 98, 2 Windows 2000, 3 XP
  int driver = 8178;
  std::string device = "0281";
  std::string clocks = "core = 300\nmemory = 650\nhomer = 1000\n";
};

/// A described machine whose driver answers, with a program that has been started on it.
class ClockMachine : public platform::DialogApi {
 public:
  explicit ClockMachine(const ClockSetup& setup);

  forms::Program& Program() { return *program_; }
  /// Starts the program again, as the next day.
  void Restart();
  void Type(std::string_view box, std::string_view text);
  void Press(std::string_view button);
  void Choose(std::string_view option);
  void Tick(std::string_view box, bool on);
  std::string Text(std::string_view id);
  int State(std::string_view name);
  std::string StateText(std::string_view name);

  void Store(const std::string& key, std::string_view name, std::int32_t number);
  std::string Stored(const std::string& key, std::string_view name);
  /// The clock key with its root.
  std::string ClockKey();

  /// The changes since the last call: "write U Marge 1", "delete L Krusty", "run ...". U and L are
  /// the clock keys below the two roots; another key is written out.
  std::vector<std::string> TakeTrace();

  platform::Answer ShowMessage(std::string_view, std::string_view text, platform::Buttons) override;
  void RunPendingEvents() override {}

  std::vector<std::string> messages;

 private:
  controls::Control& Find(std::string_view id);

  platform::TempFolder folder_;
  std::unique_ptr<platform::Machine> machine_;
  platform::Trace tracing_;
  std::unique_ptr<platform::TracingRegistry> registry_;
  std::unique_ptr<platform::TracingShell> shell_;
  std::unique_ptr<forms::Program> program_;
  std::vector<std::string> trace_;
};

}  // namespace kestrune::test
