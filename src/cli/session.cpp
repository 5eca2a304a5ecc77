#include "cli/session.h"

#include "core/outcome.h"

namespace kestrune::cli {

std::unique_ptr<Session> Session::Open(const GlobalOptions& options, const Streams& streams) {
  auto machine = platform::portable::PortableMachine::Open(options.machine);
  if (!machine.Ok()) {
    streams.Complain(machine.Reason());
    return nullptr;
  }
  for (const std::string& warning : machine.Value()->Warnings()) {
    streams.err << "warning: " << warning << '\n';
  }
  return std::unique_ptr<Session>(new Session(std::move(machine).Value(), options, streams));
}

Session::Session(std::unique_ptr<platform::portable::PortableMachine> machine,
                 const GlobalOptions& options, const Streams& streams)
    : options_(options),
      streams_(streams),
      machine_(std::move(machine)),
      tracing_(options.trace != Trace::kOff),
      registry_(machine_->Registry(),
                [this](const std::string& line) {
                  if (tracing_) streams_.err << line << '\n';
                }),
      shell_(machine_->Shell(),
             [this](const std::string& line) {
               // A dry run starts nothing, so it always says what it would have started.
               if (tracing_ || options_.machine.dry_run) streams_.err << line << '\n';
             }),
      dialog_(streams.err, options.answer) {}

forms::Program& Session::Start() {
  tracing_ = options_.trace == Trace::kAll;
  program_ = std::make_unique<forms::Program>(platform::Services{
      registry_, machine_->Display(), machine_->Version(), shell_, machine_->Files(), dialog_});
  core::Ignore(program_->Start(""));
  tracing_ = options_.trace != Trace::kOff;
  return *program_;
}

Status Session::Finish(Status status) {
  if (!machine_->FirstFailure()) return status;
  streams_.Complain(*machine_->FirstFailure());
  return Status::kImpossible;
}

}  // namespace kestrune::cli
