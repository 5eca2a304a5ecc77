#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <functional>

#include "cli/clock_commands.h"
#include "cli/control_text.h"
#include "cli/registry_commands.h"
#include "cli/script.h"
#include "core/options.h"
#include "ui/forms/main_form.h"

namespace kestrune::cli {

namespace {

/// What a command line asks for. The arguments of one command at a time are filled.
struct Request {
  GlobalOptions options;
  std::string trace;
  std::string answer = "ok";
  std::vector<std::string> words;
  std::string key;
  std::string name;
  std::string type;
  std::string core;
  std::string memory;
  bool is_3d = false;
  std::function<Status()> run;
};

/// Builds the commands over one request and runs the chosen one.
class CommandLine {
 public:
  CommandLine(platform::MachineSource& machines, const Streams& streams)
      : machines_(machines), streams_(streams) {
    AddGlobalOptions();
    AddProgramCommands();
    AddClockCommands();
    AddRegistryCommands();
    if (machines_.HasDescriptions()) AddMachineCommand();
  }

  int Run(std::vector<std::string> arguments);

 private:
  CLI::App* Add(CLI::App& parent, const std::string& name, const std::string& what,
                std::function<Status()> run);
  void AddGlobalOptions();
  void AddProgramCommands();
  void AddClockCommands();
  void AddRegistryCommands();
  void AddMachineCommand();

  /// Runs something in a started program.
  Status InProgram(const std::function<Status(forms::Program&)>& work);
  /// Runs something in an opened machine.
  Status InSession(const std::function<Status(Session&)>& work);
  Status RunSteps(Step::Kind kind);
  /// Steps of a command that prints end with their document.
  Status RunScript(const std::vector<Step>& steps, bool prints);
  Status Pages(forms::Program& program) const;
  Status State(forms::Program& program) const;
  Status Languages(forms::Program& program) const;
  Status Machines() const;

  platform::MachineSource& machines_;
  Streams streams_;
  Request request_;
  CLI::App app_{"Kestrune in a terminal: shows and changes the display driver's settings."};
};

CLI::App* CommandLine::Add(CLI::App& parent, const std::string& name, const std::string& what,
                           std::function<Status()> run) {
  CLI::App* command = parent.add_subcommand(name, what);
  command->fallthrough();
  if (run) command->callback([this, run = std::move(run)] { request_.run = run; });
  return command;
}

void CommandLine::AddGlobalOptions() {
  platform::MachineOptions& machine = request_.options.machine;
  if (machines_.HasStores()) {
    app_.add_option("--store", machine.store, "The registry's file")->type_name("FILE");
  }
  if (machines_.HasDescriptions()) {
    app_.add_option("--machine", machine.machine, "The machine's description: its name or its file")
        ->type_name("NAME|FILE");
  }
  app_.add_option("--program-folder", machine.program_folder, "The only folder for program files")
      ->type_name("DIR");
  app_.add_flag("--json", request_.options.json, "Print one JSON document");
  app_.add_flag("--trace{on}", request_.trace,
                "Print each change and each started command; =all from the first step on")
      ->check(CLI::IsMember({"on", "all"}));
  app_.add_flag("--dry-run", machine.dry_run, "Keep nothing and start nothing");
  app_.add_option("--answer", request_.answer, "The button that answers messages")
      ->check(CLI::IsMember({"ok", "cancel"}))
      ->type_name("ok|cancel");
  app_.set_version_flag("--version", "kestrunectl " + std::to_string(core::kMajorVersion) + "." +
                                         std::to_string(core::kMinorVersion) + "." +
                                         std::to_string(core::kRevision));
  app_.require_subcommand(1);
  app_.name("kestrunectl");
}

Status CommandLine::InSession(const std::function<Status(Session&)>& work) {
  const std::unique_ptr<Session> session = Session::Open(machines_, request_.options, streams_);
  if (!session) return Status::kImpossible;
  return session->Finish(work(*session));
}

Status CommandLine::InProgram(const std::function<Status(forms::Program&)>& work) {
  return InSession([&work](Session& session) { return work(session.Start()); });
}

Status CommandLine::RunScript(const std::vector<Step>& steps, bool prints) {
  return InProgram([&](forms::Program& program) {
    Script script(program, request_.options, streams_);
    const Status status = script.Run(steps);
    if (prints && status != Status::kWrongUsage) script.PrintDocument();
    return status;
  });
}

/// Every word is a step of that kind.
Status CommandLine::RunSteps(Step::Kind kind) {
  std::vector<Step> steps;
  for (const std::string& word : request_.words) {
    Step step{.kind = kind, .id = word};
    if (kind == Step::Kind::kSet) {
      const std::size_t equals = word.find('=');
      if (equals == std::string::npos) {
        streams_.Complain("\"" + word + "\" is no ID=VALUE.");
        return Status::kWrongUsage;
      }
      step.id = word.substr(0, equals);
      step.value = word.substr(equals + 1);
    }
    steps.push_back(std::move(step));
  }
  return RunScript(steps, kind == Step::Kind::kPrint);
}

void CommandLine::AddProgramCommands() {
  Add(app_, "pages", "Print the pages: index, id, caption",
      [this] { return InProgram([this](forms::Program& program) { return Pages(program); }); });
  Add(app_, "show", "Print every control of a page or window, or of all pages", [this] {
    return InProgram([this](forms::Program& program) {
      return Script(program, request_.options, streams_).Show(request_.name);
    });
  })->add_option("PAGE|WINDOW", request_.name);
  Add(app_, "get", "Print the values of controls", [this] { return RunSteps(Step::Kind::kPrint); })
      ->add_option("ID", request_.words)
      ->required();
  Add(app_, "set", "Change controls as a person would, in order",
      [this] { return RunSteps(Step::Kind::kSet); })
      ->add_option("ID=VALUE", request_.words)
      ->required();
  Add(app_, "press", "Press buttons and keys", [this] { return RunSteps(Step::Kind::kPress); })
      ->add_option("ID", request_.words)
      ->required();
  Add(app_, "do",
      "Carry out steps: ID=VALUE sets, ID presses, ?ID prints, ~ID moves the mouse over, "
      "open:WINDOW, close:WINDOW, page:PAGE, wait:MS",
      [this] {
        std::vector<Step> steps;
        for (const std::string& word : request_.words) {
          std::optional<Step> step = ParseStep(word);
          if (!step) {
            streams_.Complain("\"" + word + "\" is no step.");
            return Status::kWrongUsage;
          }
          steps.push_back(std::move(*step));
        }
        return RunScript(steps, true);
      })
      ->add_option("STEP", request_.words)
      ->required();
  Add(app_, "state", "Print the shared values",
      [this] { return InProgram([this](forms::Program& program) { return State(program); }); });
  Add(app_, "languages", "Print the languages that can be chosen",
      [this] { return InProgram([this](forms::Program& program) { return Languages(program); }); });
}

void CommandLine::AddClockCommands() {
  CLI::App& clocks = *Add(app_, "clocks", "The overclocking page in one word", nullptr);
  clocks.require_subcommand(1);
  clocks.add_flag("--3d", request_.is_3d, "The 3D pair of a card that has two");
  const auto add = [&](const std::string& name, const std::string& what, auto work) {
    return Add(clocks, name, what, [this, work] {
      return InProgram([&](forms::Program& program) {
        return work(program, request_.options, streams_, request_.is_3d);
      });
    });
  };
  add("show", "Print the default and the current clocks", ShowClocks);
  CLI::App* set =
      add("set", "Set the clocks, in MHz",
          [this](forms::Program& program, const GlobalOptions& options, const Streams& streams,
                 bool is_3d) {
            return SetClocks(program, options, streams, is_3d, request_.core, request_.memory);
          });
  set->add_option("CORE", request_.core)->required();
  set->add_option("MEMORY", request_.memory)->required();
  add("reset", "Go back to the driver's default clocks", ResetClocks);
}

void CommandLine::AddRegistryCommands() {
  CLI::App& registry =
      *Add(app_, "registry", "Work on the registry itself, without the driver's rules", nullptr);
  registry.require_subcommand(1);
  const auto add = [&](const std::string& name, const std::string& what, auto work) {
    return Add(registry, name, what,
               [this, work] { return InSession([&](Session& session) { return work(session); }); });
  };
  const auto add_key = [this](CLI::App* command) {
    command->add_option("KEY", request_.key)->required();
    return command;
  };
  add_key(add("read", "Print one value, as TYPE DATA", [this](Session& session) {
    return ReadRegistry(session, request_.options, streams_, request_.key, request_.name);
  }))->add_option("NAME", request_.name);
  CLI::App* write = add_key(add("write", "Store one value", [this](Session& session) {
    return WriteRegistry(session, streams_, request_.key, request_.name, request_.type,
                         request_.words);
  }));
  write->add_option("NAME", request_.name)->required();
  write->add_option("TYPE", request_.type)->required();
  write->add_option("DATA", request_.words);
  add_key(add("delete", "Delete one value",
              [this](Session& session) {
                return DeleteRegistry(session, streams_, request_.key, request_.name);
              }))
      ->add_option("NAME", request_.name)
      ->required();
  add_key(add("list", "Print the keys below a key and its values", [this](Session& session) {
    return ListRegistry(session, request_.options, streams_, request_.key);
  }));
  add("import", "Make the changes of a registry file",
      [this](Session& session) { return ImportRegistry(session, streams_, request_.name); })
      ->add_option("FILE", request_.name)
      ->required();
}

void CommandLine::AddMachineCommand() {
  Add(app_, "machine", "Print the machine descriptions, or one of them", [this] {
    return Machines();
  })->add_option("NAME", request_.name);
}

Status CommandLine::Pages(forms::Program& program) const {
  Json json = Json::array();
  for (int page = 0; page < forms::kPageCount; ++page) {
    const controls::Control& frame = program.Main().Page(page);
    json.push_back({{"index", page}, {"id", frame.Id()}, {"caption", frame.Caption()}});
    if (request_.options.json) continue;
    streams_.out << page << '\t' << frame.Id() << '\t' << OneLine(frame.Caption()) << '\n';
  }
  if (request_.options.json) streams_.out << json.dump(2) << '\n';
  return Status::kDone;
}

Status CommandLine::State(forms::Program& program) const {
  Json json = Json::object();
  for (const auto& [name, value] : program.State()) {
    const auto* number = std::get_if<int>(&value);
    const auto* text = std::get_if<std::string>(&value);
    if (number != nullptr) json[std::string(name)] = *number;
    if (text != nullptr) json[std::string(name)] = *text;
    if (request_.options.json) continue;
    streams_.out << name << '=' << (text != nullptr ? OneLine(*text) : std::to_string(*number))
                 << '\n';
  }
  if (request_.options.json) streams_.out << json.dump(2) << '\n';
  return Status::kDone;
}

Status CommandLine::Languages(forms::Program& program) const {
  Json json = Json::array();
  for (const std::string& name : program.Languages()) {
    json.push_back({{"name", name}});
    if (!request_.options.json) streams_.out << OneLine(name) << '\n';
  }
  if (request_.options.json) streams_.out << json.dump(2) << '\n';
  return Status::kDone;
}

Status CommandLine::Machines() const {
  std::vector<platform::MachineInfo> machines;
  if (request_.name.empty()) {
    machines = machines_.List(request_.options.machine);
  } else {
    const auto described = machines_.Describe(request_.name, request_.options.machine);
    if (!described.Ok()) {
      streams_.Complain(described.Reason());
      return Status::kImpossible;
    }
    for (const std::string& warning : described.Value().warnings) {
      streams_.err << "warning: " << warning << '\n';
    }
    machines = {described.Value()};
  }
  Json json = Json::array();
  for (const platform::MachineInfo& machine : machines) {
    json.push_back({{"name", machine.name}, {"title", machine.title}, {"file", machine.file}});
    if (!request_.options.json) {
      streams_.out << machine.name << '\t' << OneLine(machine.title) << '\t' << machine.file
                   << '\n';
    }
  }
  if (request_.options.json) streams_.out << json.dump(2) << '\n';
  return Status::kDone;
}

int CommandLine::Run(std::vector<std::string> arguments) {
  // The parser takes the arguments last first.
  std::reverse(arguments.begin(), arguments.end());
  try {
    app_.parse(std::move(arguments));
  } catch (const CLI::Success& asked) {
    return app_.exit(asked, streams_.out, streams_.err);
  } catch (const CLI::ParseError& fault) {
    app_.exit(fault, streams_.err, streams_.err);
    return static_cast<int>(Status::kWrongUsage);
  }
  if (request_.trace == "on") request_.options.trace = Trace::kAfterStart;
  if (request_.trace == "all") request_.options.trace = Trace::kAll;
  if (request_.answer == "cancel") request_.options.answer = platform::Answer::kCancel;
  return static_cast<int>(request_.run());
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, platform::MachineSource& machines,
                   const Streams& streams) {
  return CommandLine(machines, streams).Run(arguments);
}

}  // namespace kestrune::cli
