#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "cli/status.h"
#include "cli/terminal_dialog.h"
#include "platform/portable/portable_machine.h"
#include "platform/tracing.h"
#include "ui/forms/program.h"

namespace kestrune::cli {

enum class Trace { kOff, kAfterStart, kAll };

/// What stands before the command.
struct GlobalOptions {
  platform::portable::MachineOptions machine;
  bool json = false;
  Trace trace = Trace::kOff;
  platform::Answer answer = platform::Answer::kOk;
};

/// Where a run prints.
struct Streams {
  std::ostream& out;
  std::ostream& err;

  /// Says in one sentence why something could not be done.
  void Complain(const std::string& sentence) const { err << "kestrunectl: " << sentence << '\n'; }
};

/// An opened machine with the wrappers that tell what is done to it, and the program when the
/// command needs it.
class Session {
 public:
  /// Null when the machine can't be opened, after the sentence that says why.
  static std::unique_ptr<Session> Open(const GlobalOptions& options, const Streams& streams);

  /// Runs the program's whole start-up.
  forms::Program& Start();
  platform::RegistryApi& Registry() { return registry_; }
  platform::portable::PortableMachine& Machine() { return *machine_; }
  /// The run's status: that of the command, unless the store failed meanwhile.
  Status Finish(Status status);

 private:
  Session(std::unique_ptr<platform::portable::PortableMachine> machine,
          const GlobalOptions& options, const Streams& streams);

  const GlobalOptions& options_;
  Streams streams_;
  std::unique_ptr<platform::portable::PortableMachine> machine_;
  bool tracing_ = false;
  platform::TracingRegistry registry_;
  platform::TracingShell shell_;
  TerminalDialog dialog_;
  std::unique_ptr<forms::Program> program_;
};

}  // namespace kestrune::cli
