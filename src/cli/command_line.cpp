#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <set>

#include "cli/command.h"
#include "cli/control_text.h"
#include "cli/suggestion.h"
#include "core/options.h"
#include "platform/thrown.h"

namespace kestrune::cli {

namespace {

/// Keeps the parser from its own ideas of a word: one in brackets would be a list, and behind an
/// option with nothing after its "=" the next word would be its value. No word of a command line
/// holds this mark.
constexpr char kMark = '\0';

std::string Marked(const std::string& word) {
  if (word.starts_with('[')) return kMark + word;
  return word.starts_with("--") && word.ends_with('=') ? word + kMark : word;
}

std::string Unmarked(std::string word) {
  std::erase(word, kMark);
  return word;
}

/// The name of a command in a group, or of one without, which stand behind the program itself.
std::string NameBehind(const CLI::App& word, const std::string& name) {
  return word.get_parent() == nullptr ? name : word.get_name() + ' ' + name;
}

std::vector<std::string> NamesBehind(const CLI::App& word) {
  std::vector<std::string> names;
  for (const CLI::App* each : word.get_subcommands({})) {
    names.push_back(NameBehind(word, each->get_name()));
  }
  return names;
}

/// The options that may stand behind a word.
std::set<std::string> OptionsOf(const CLI::App& word) {
  std::set<std::string> names;
  for (const CLI::App* each = &word; each != nullptr; each = each->get_parent()) {
    for (const CLI::Option* option : each->get_options()) {
      if (option->nonpositional()) names.insert(option->get_name());
    }
  }
  return names;
}

// Options that not every kind of machine has.
constexpr const char* kStore = "--store";
constexpr const char* kMachine = "--machine";

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
  void AddText(const std::string& name, std::string& text, const std::string& help,
               const std::string& type);
  void AddArguments(CLI::App& word, const Command& command);
  void AddArgument(CLI::App& command, std::string_view argument);
  const CLI::App& LastWord() const;
  std::string UsageOf(const CLI::App& word) const;
  std::string Complaint(const CLI::ParseError& fault) const;
  std::string Unexpected(const std::string& given) const;
  bool IsOfOtherMachines(const std::string& given) const;
  std::string Missing() const;
  Status RunChosen();
  bool PrepareSteps(std::vector<Step>& steps);

  platform::MachineSource& machines_;
  const Streams& streams_;
  GlobalOptions options_;
  std::string trace_;
  std::string answer_;
  Arguments arguments_;
  const Command* chosen_ = nullptr;
  std::map<std::string_view, CLI::App*> groups_;
  std::map<const CLI::App*, const Command*> commands_;
  CLI::App app_{"Kestrune in a terminal: shows and changes the display driver's settings."};
};

void CommandLine::AddGlobalOptions() {
  platform::MachineOptions& machine = options_.machine;
  if (machines_.HasStores()) AddText(kStore, machine.store, "The registry's file", "FILE");
  if (machines_.HasDescriptions()) {
    AddText(kMachine, machine.machine, "The machine's description: its name or its file",
            "NAME|FILE");
  }
  AddText("--program-folder", machine.program_folder, "The only folder for program files", "DIR");
  app_.add_flag("--json", options_.json, "Print one JSON document");
  app_.add_flag("--trace{on}", trace_,
                "Print each change and each started command; =all from the first step on")
      ->check(CLI::IsMember({"on", "all"}));
  app_.add_flag("--dry-run", machine.dry_run, "Keep nothing and start nothing");
  app_.add_option("--answer", answer_, "The button that answers messages")
      ->check(CLI::IsMember({"ok", "cancel"}))
      ->type_name("ok|cancel");
  app_.set_version_flag("--version", "kestrunectl " + core::VersionText());
}

void CommandLine::Add(const Command& command) {
  const std::size_t blank = command.name.find(' ');
  const bool is_in_group = blank != std::string_view::npos;
  CLI::App& parent = is_in_group ? GroupOf(command.name.substr(0, blank)) : app_;
  CLI::App& word =
      AddWord(parent, is_in_group ? command.name.substr(blank + 1) : command.name, command.help);
  // A run needs the arguments of one command alone, and each costs as much as many small steps.
  word.preparse_callback([this, &word, &command](std::size_t) { AddArguments(word, command); });
  word.positionals_at_end(command.takes_all_words);
  commands_[&word] = &command;
}

void CommandLine::AddArguments(CLI::App& word, const Command& command) {
  for (std::string_view rest = command.arguments; !rest.empty();) {
    const std::string_view argument = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(argument.size() + 1, rest.size()));
    AddArgument(word, argument);
  }
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
  std::vector<CLI::Option*> others;
  for (const Flag& flag : row->flags) {
    CLI::Option* option =
        group.add_flag(std::string(flag.name), arguments_.flags[flag.name], std::string(flag.help));
    for (CLI::Option* other : others) option->excludes(other);
    others.push_back(option);
  }
  return group;
}

/// A global option that takes a text, which may not be empty.
void CommandLine::AddText(const std::string& name, std::string& text, const std::string& help,
                          const std::string& type) {
  const auto take = [&text](const CLI::results_t& words) {
    text = Unmarked(words.back());
    return true;
  };
  app_.add_option(name, take, help)
      ->check([type](const std::string& given) {
        return Unmarked(given).empty() ? type + " is empty" : std::string();
      })
      ->type_name(type);
}

/// An argument of a row, such as "[DATA...]", "[--flag]" or "[--option=WORD]".
void CommandLine::AddArgument(CLI::App& command, std::string_view argument) {
  constexpr std::string_view kMany = "...";
  const bool is_required = !argument.starts_with('[');
  if (!is_required) argument = argument.substr(1, argument.size() - 2);
  const std::size_t equals = argument.find('=');
  if (argument.starts_with("--") && equals == argument.npos) {
    command.add_flag(std::string(argument), arguments_.flags[argument]);
    return;
  }
  const bool is_list = argument.ends_with(kMany);
  if (is_list) argument.remove_suffix(kMany.size());
  const auto take = [this, argument, is_list](const CLI::results_t& words) {
    if (is_list) {
      std::transform(words.begin(), words.end(), std::back_inserter(arguments_.lists[argument]),
                     Unmarked);
    } else {
      arguments_.words[argument] = Unmarked(words.front());
    }
    return true;
  };
  arguments_.words[argument] = {};
  arguments_.lists[argument] = {};
  CLI::Option* option = command.add_option(std::string(argument.substr(0, equals)), take);
  if (is_list) option->expected(1, CLI::detail::expected_max_vector_size)->allow_extra_args();
  option->required(is_required);
}

Status CommandLine::Run(std::vector<std::string> arguments) {
  std::transform(arguments.begin(), arguments.end(), arguments.begin(), Marked);
  // The parser takes the arguments last first.
  std::reverse(arguments.begin(), arguments.end());
  try {
    app_.parse(std::move(arguments));
  } catch (const CLI::Success& asked) {
    return static_cast<Status>(app_.exit(asked, streams_.out, streams_.err));
  } catch (const CLI::ParseError& fault) {
    streams_.Complain(Complaint(fault));
    return Status::kWrongUsage;
  }
  chosen_ = commands_.at(&LastWord());
  if (trace_ == "on") options_.trace = Trace::kAfterStart;
  if (trace_ == "all") options_.trace = Trace::kAll;
  if (!answer_.empty()) {
    options_.answer = answer_ == "cancel" ? platform::Answer::kCancel : platform::Answer::kOk;
  }
  return RunChosen();
}

/// The command that was given, or the group of commands as far as that goes.
const CLI::App& CommandLine::LastWord() const {
  const CLI::App* word = &app_;
  while (!word->get_subcommands().empty()) word = word->get_subcommands().front();
  return *word;
}

/// A command as it is written, with its arguments.
std::string CommandLine::UsageOf(const CLI::App& word) const {
  const Command& command = *commands_.at(&word);
  return std::string(command.name) + (command.arguments.empty() ? "" : " ") +
         std::string(command.arguments);
}

/// What is wrong with the command line, in one sentence.
std::string CommandLine::Complaint(const CLI::ParseError& fault) const {
  const std::vector<std::string> unexpected = app_.remaining(true);
  if (!unexpected.empty()) return Unexpected(Unmarked(unexpected.front()));
  if (dynamic_cast<const CLI::RequiredError*>(&fault) != nullptr) return Missing();
  return std::string(fault.what()) + ".";
}

std::string CommandLine::Unexpected(const std::string& given) const {
  const CLI::App& word = LastWord();
  const std::string quoted = '"' + given + '"';
  if (IsOfOtherMachines(given)) return quoted + " is of no use: the machine is this computer.";
  if (given.starts_with('-')) {
    const std::set<std::string> names = OptionsOf(word);
    return "there is no option " + quoted + Suggestion(given, {names.begin(), names.end()});
  }
  if (commands_.contains(&word)) return quoted + " is more than \"" + UsageOf(word) + "\" takes.";
  const std::string command = NameBehind(word, given);
  const std::vector<std::string> names = NamesBehind(word);
  return "there is no command \"" + command + '"' +
         Suggestion(command, {names.begin(), names.end()});
}

/// Whether an option or a command is one that only other kinds of machines have.
bool CommandLine::IsOfOtherMachines(const std::string& given) const {
  const std::string option = given.substr(0, given.find('='));
  if (option == kStore) return !machines_.HasStores();
  if (option == kMachine) return !machines_.HasDescriptions();
  const auto commands = Commands();
  return app_.get_subcommands().empty() &&
         std::any_of(commands.begin(), commands.end(), [&](const Command& command) {
           return command.name == given && command.offered != nullptr &&
                  !(machines_.*command.offered)();
         });
}

std::string CommandLine::Missing() const {
  const CLI::App& word = LastWord();
  if (!commands_.contains(&word)) {
    std::string names;
    for (const std::string& name : NamesBehind(word)) names += (names.empty() ? " " : ", ") + name;
    return "a command is missing; there are" + names + '.';
  }
  for (const CLI::Option* option : word.get_options()) {
    if (option->get_required() && option->count() == 0) {
      return option->get_name() + " is missing; write \"" + UsageOf(word) + "\".";
    }
  }
  return "an argument is missing.";
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
    run.has_failed = [&session] { return session->HasFailed(); };
    run.session = session.get();
    if (const auto* on_machine = std::get_if<1>(&chosen_->function)) {
      status = (*on_machine)(run, *session);
    } else if (forms::Program& program = session->Start(); !session->HasFailed()) {
      status = std::get<2>(chosen_->function)(run, program);
    }
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
  try {
    return static_cast<int>(CommandLine(machines, streams).Run(arguments));
  } catch (...) {
    streams.Complain(platform::ThrownSentence());
    return static_cast<int>(Status::kImpossible);
  }
}

}  // namespace kestrune::cli
