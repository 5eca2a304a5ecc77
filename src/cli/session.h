#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/standing_load.h"
#include "cli/status.h"
#include "cli/terminal_dialog.h"
#include "platform/change_recorder.h"
#include "platform/machine.h"
#include "platform/plain_text.h"
#include "platform/tracing.h"
#include "ui/forms/program.h"

namespace kestrune::cli {

enum class Trace { kOff, kAfterStart, kAll };

/// What stands before the command.
struct GlobalOptions {
  platform::MachineOptions machine;
  bool json = false;
  Trace trace = Trace::kOff;
  std::optional<platform::Answer> answer = {};  ///< to messages; absent: what each presets
  bool records_changes = false;  ///< what ends up different is told instead of each step
};

/// Where a run prints.
struct Streams {
  std::ostream& out;
  std::ostream& err;

  /// Says in one sentence why something could not be done.
  void Complain(const std::string& sentence) const {
    err << "kestrunectl: " << platform::PlainText(sentence) << '\n';
  }
  /// Says what was odd about something that was done all the same.
  void Note(const std::string& sentence) const {
    err << "note: " << platform::PlainText(sentence) << '\n';
  }
  void Warn(const std::vector<std::string>& warnings) const {
    for (const std::string& warning : warnings)
      err << "warning: " << platform::PlainText(warning) << '\n';
  }
};

/// An opened machine, with wrappers that tell what is done to it where that is asked for, and the
/// program when the command needs it.
class Session {
 public:
  /// Null when the machine can't be opened, after the sentence that says why.
  static std::unique_ptr<Session> Open(platform::MachineSource& machines,
                                       const GlobalOptions& options, const Streams& streams);

  /// Runs the program's whole start-up.
  forms::Program& Start();
  platform::RegistryApi& Registry() { return services_.registry; }
  platform::FilesApi& Files() { return services_.files; }
  /// The computer as it is in real time, which the program's own clock doesn't follow.
  platform::SystemApi& System() { return system_; }
  /// Null unless changes are recorded.
  platform::ChangeRecorder* Recorder() { return recorder_ ? &*recorder_ : nullptr; }
  /// The run's status: that of the command, unless something failed that it wasn't told of.
  Status Finish(Status status);
  bool HasFailed() const { return machine_->FirstFailure().has_value(); }

 private:
  Session(std::unique_ptr<platform::Machine> machine, const GlobalOptions& options,
          const Streams& streams);

  platform::Services Traced(const platform::Services& services);
  void Print(platform::TraceKind kind, const std::string& line) const;

  const GlobalOptions& options_;
  Streams streams_;
  std::unique_ptr<platform::Machine> machine_;
  TerminalDialog dialog_;
  platform::SystemApi& system_;
  StandingLoad standing_load_;
  bool tracing_ = false;
  platform::Trace trace_;
  std::optional<platform::ChangeRecorder> recorder_;
  std::optional<platform::TracingRegistry> registry_;
  std::optional<platform::TracingDisplay> display_;
  std::optional<platform::TracingShell> shell_;
  std::optional<platform::TracingFiles> files_;
  platform::Services services_;
  std::unique_ptr<forms::Program> program_;
};

}  // namespace kestrune::cli
