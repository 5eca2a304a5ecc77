#include "cli/session.h"

#include "core/outcome.h"

namespace kestrune::cli {

std::unique_ptr<Session> Session::Open(platform::MachineSource& machines,
                                       const GlobalOptions& options, const Streams& streams) {
  auto machine = machines.Open(options.machine);
  if (!machine.Ok()) {
    streams.Complain(machine.Reason());
    return nullptr;
  }
  streams.Warn(machine.Value()->Warnings());
  return std::unique_ptr<Session>(new Session(std::move(machine).Value(), options, streams));
}

Session::Session(std::unique_ptr<platform::Machine> machine, const GlobalOptions& options,
                 const Streams& streams)
    : options_(options),
      streams_(streams),
      machine_(std::move(machine)),
      dialog_(streams.err, options.answer),
      system_(machine_->ServicesFor(dialog_).system),
      standing_load_(system_),
      tracing_(options.trace != Trace::kOff),
      trace_([this](platform::TraceKind kind, const std::string& line) { Print(kind, line); }),
      services_(Traced(machine_->ServicesFor(dialog_))) {}

/// The services behind the wrappers that this run needs.
platform::Services Session::Traced(const platform::Services& services) {
  if (options_.records_changes) recorder_.emplace(services.registry);
  platform::RegistryApi& registry = recorder_ ? *recorder_ : services.registry;
  if (tracing_) registry_.emplace(registry, trace_);
  if (tracing_ || options_.machine.dry_run) {
    display_.emplace(services.display, trace_);
    shell_.emplace(services.shell, trace_);
    files_.emplace(services.files, trace_);
  }
  return {registry_ ? *registry_ : registry,
          display_ ? *display_ : services.display,
          services.version,
          standing_load_,
          shell_ ? *shell_ : services.shell,
          files_ ? *files_ : services.files,
          services.dialog};
}

void Session::Print(platform::TraceKind kind, const std::string& line) const {
  // A dry run starts and writes nothing, so it always says what it would have.
  const bool is_always_told = options_.machine.dry_run && !options_.records_changes &&
                              kind == platform::TraceKind::kCommand;
  if (tracing_ || is_always_told) streams_.err << line << '\n';
}

forms::Program& Session::Start() {
  tracing_ = options_.trace == Trace::kAll;
  program_ = std::make_unique<forms::Program>(services_);
  core::Ignore(program_->Start(""));
  tracing_ = options_.trace != Trace::kOff;
  return *program_;
}

Status Session::Finish(Status status) {
  const std::optional<std::string> failure = machine_->FirstFailure();
  if (!failure) return status;
  streams_.Complain(*failure);
  return Status::kImpossible;
}

}  // namespace kestrune::cli
