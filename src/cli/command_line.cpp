#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>

#include "cli/command.h"
#include "core/options.h"

namespace kestrune::cli {

namespace {

/// Builds the options and commands of a machine from their rows and runs the chosen one.
class CommandLine {
 public:
  CommandLine(platform::MachineSource& machines, const Streams& streams)
      : machines_(machines), streams_(streams) {
    app_.name("kestrunectl");
    app_.require_subcommand(1);
    AddGlobalOptions();
    for (const Command& command : Commands()) {
      if (command.offered == nullptr || (machines_.*command.offered)()) Add(command);
    }
  }

  Status Run(std::vector<std::string> arguments);

 private:
  void AddGlobalOptions();
  void Add(const Command& command);
  CLI::App& AddWord(CLI::App& parent, std::string_view name, std::string_view help);
  CLI::App& GroupOf(std::string_view name);
  void AddArgument(CLI::App& command, std::string_view argument);
  Status RunChosen();
  bool PrepareSteps(std::vector<Step>& steps);

  platform::MachineSource& machines_;
  const Streams& streams_;
  GlobalOptions options_;
  std::string trace_;
  std::string answer_ = "ok";
  Arguments arguments_;
  const Command* chosen_ = nullptr;
  std::map<std::string_view, CLI::App*> groups_;
  CLI::App app_{"Kestrune in a terminal: shows and changes the display driver's settings."};
};

void CommandLine::AddGlobalOptions() {
  platform::MachineOptions& machine = options_.machine;
  if (machines_.HasStores()) {
    app_.add_option("--store", machine.store, "The registry's file")->type_name("FILE");
  }
  if (machines_.HasDescriptions()) {
    app_.add_option("--machine", machine.machine, "The machine's description: its name or its file")
        ->type_name("NAME|FILE");
  }
  app_.add_option("--program-folder", machine.program_folder, "The only folder for program files")
      ->type_name("DIR");
  app_.add_flag("--json", options_.json, "Print one JSON document");
  app_.add_flag("--trace{on}", trace_,
                "Print each change and each started command; =all from the first step on")
      ->check(CLI::IsMember({"on", "all"}));
  app_.add_flag("--dry-run", machine.dry_run, "Keep nothing and start nothing");
  app_.add_option("--answer", answer_, "The button that answers messages")
      ->check(CLI::IsMember({"ok", "cancel"}))
      ->type_name("ok|cancel");
  app_.set_version_flag("--version", "kestrunectl " + std::to_string(core::kMajorVersion) + "." +
                                         std::to_string(core::kMinorVersion) + "." +
                                         std::to_string(core::kRevision));
}

void CommandLine::Add(const Command& command) {
  const std::size_t blank = command.name.find(' ');
  const bool is_in_group = blank != std::string_view::npos;
  CLI::App& parent = is_in_group ? GroupOf(command.name.substr(0, blank)) : app_;
  CLI::App& word =
      AddWord(parent, is_in_group ? command.name.substr(blank + 1) : command.name, command.help);
  for (std::string_view rest = command.arguments; !rest.empty();) {
    const std::string_view argument = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(argument.size() + 1, rest.size()));
    AddArgument(word, argument);
  }
  word.callback([this, &command] { chosen_ = &command; });
}

CLI::App& CommandLine::AddWord(CLI::App& parent, std::string_view name, std::string_view help) {
  CLI::App& word = *parent.add_subcommand(std::string(name), std::string(help));
  word.fallthrough();
  return word;
}

/// A group comes into being with the first of its commands.
CLI::App& CommandLine::GroupOf(std::string_view name) {
  CLI::App*& made = groups_[name];
  if (made != nullptr) return *made;
  const auto groups = CommandGroups();
  const auto row = std::find_if(groups.begin(), groups.end(),
                                [name](const CommandGroup& group) { return group.name == name; });
  CLI::App& group = AddWord(app_, row->name, row->help);
  made = &group;
  group.require_subcommand(1);
  if (!row->flag.empty()) {
    group.add_flag(std::string(row->flag), arguments_.flags[row->flag],
                   std::string(row->flag_help));
  }
  return group;
}

/// An argument of a row, such as "[DATA...]".
void CommandLine::AddArgument(CLI::App& command, std::string_view argument) {
  constexpr std::string_view kMany = "...";
  const bool is_required = !argument.starts_with('[');
  if (!is_required) argument = argument.substr(1, argument.size() - 2);
  const bool is_list = argument.ends_with(kMany);
  if (is_list) argument.remove_suffix(kMany.size());
  const std::string name(argument);
  CLI::Option* option = is_list ? command.add_option(name, arguments_.lists[argument])
                                : command.add_option(name, arguments_.words[argument]);
  option->required(is_required);
}

Status CommandLine::Run(std::vector<std::string> arguments) {
  // The parser takes the arguments last first.
  std::reverse(arguments.begin(), arguments.end());
  try {
    app_.parse(std::move(arguments));
  } catch (const CLI::Success& asked) {
    return static_cast<Status>(app_.exit(asked, streams_.out, streams_.err));
  } catch (const CLI::ParseError& fault) {
    app_.exit(fault, streams_.err, streams_.err);
    return Status::kWrongUsage;
  }
  if (trace_ == "on") options_.trace = Trace::kAfterStart;
  if (trace_ == "all") options_.trace = Trace::kAll;
  if (answer_ == "cancel") options_.answer = platform::Answer::kCancel;
  return RunChosen();
}

/// Opens what the chosen command needs and runs it.
Status CommandLine::RunChosen() {
  Output out(streams_.out, options_.json);
  cli::Run run{options_, arguments_, streams_, machines_, out};
  if (!PrepareSteps(run.steps)) return Status::kWrongUsage;
  Status status = Status::kDone;
  if (const auto* bare = std::get_if<0>(&chosen_->function)) {
    status = (*bare)(run);
  } else {
    const std::unique_ptr<Session> session = Session::Open(machines_, options_, streams_);
    if (!session) return Status::kImpossible;
    const auto* on_machine = std::get_if<1>(&chosen_->function);
    status = on_machine != nullptr ? (*on_machine)(run, *session)
                                   : std::get<2>(chosen_->function)(run, session->Start());
    status = session->Finish(status);
  }
  out.Finish();
  return status;
}

/// False, after a sentence for each, when there is something that no step can mean.
bool CommandLine::PrepareSteps(std::vector<Step>& steps) {
  if (chosen_->steps == nullptr) return true;
  auto read = chosen_->steps(arguments_);
  if (!read.Ok()) {
    streams_.Complain(read.Reason());
    return false;
  }
  steps = std::move(read).Value();
  bool all_known = true;
  const KnownIds ids;
  for (const Step& step : steps) {
    const auto known = ids.Check(step);
    if (!known) streams_.Complain(known.Reason());
    all_known = all_known && known.Ok();
  }
  return all_known;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, platform::MachineSource& machines,
                   const Streams& streams) {
  return static_cast<int>(CommandLine(machines, streams).Run(arguments));
}

}  // namespace kestrune::cli
