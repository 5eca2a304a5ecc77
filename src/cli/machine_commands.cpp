#include "cli/machine_commands.h"

#include "cli/control_text.h"
#include "platform/plain_text.h"

namespace kestrune::cli {

namespace {

void Print(Output& out, const platform::MachineInfo& machine) {
  out.Item({{"name", machine.name}, {"title", machine.title}, {"file", machine.file}});
  out.Line(machine.name + '\t' + platform::PlainText(machine.title) + '\t' + machine.file);
}

}  // namespace

Status Machines(Run& run) {
  const std::string& name = run.arguments.Word("NAME");
  const platform::MachineOptions& options = run.options.machine;
  if (name.empty()) {
    run.out.BeginList();
    for (const auto& machine : run.machines.List(options)) Print(run.out, machine);
    return Status::kDone;
  }
  const auto machine = run.machines.Describe(name, options);
  if (!machine.Ok()) {
    run.streams.Complain(machine.Reason());
    return Status::kImpossible;
  }
  run.streams.Warn(machine.Value().warnings);
  run.out.BeginList();
  Print(run.out, machine.Value());
  return Status::kDone;
}

}  // namespace kestrune::cli
