#include "cli/profile_commands.h"

#include <algorithm>

#include "cli/control_text.h"
#include "cli/script.h"
#include "platform/case_fold.h"
#include "platform/driver_keys.h"
#include "platform/plain_text.h"
#include "platform/value_text.h"
#include "profiles/profile_file.h"

namespace kestrune::cli {

using platform::Fail;
using platform::Result;

namespace {

constexpr std::string_view kClocks = "--clocks=CORE,MEMORY";
constexpr std::string_view kApplication = "--app=FILE";

Step SetStep(std::string_view control, std::string value) {
  return {.kind = Step::Kind::kSet,
          .id = std::string("profile-manager.").append(control),
          .value = std::move(value)};
}

/// What browsing to a file does.
Result<void> ChooseApplication(Run& run, forms::Program& program) {
  const std::string& file = run.arguments.Word(kApplication);
  if (file.empty()) return {};
  platform::FilesApi& files = run.session->Files();
  const std::string path = files.WholePath(file);
  const std::string folder = files.PathOf(path, "..");
  const auto listing = files.ListFolder(folder);
  const std::string name = path.substr(std::min(files.PathOf(folder, "").size(), path.size()));
  if (!listing || std::find(listing->programs.begin(), listing->programs.end(), name) ==
                      listing->programs.end()) {
    return Fail(file + " is no program that can be browsed to.");
  }
  program.Profiles().ChooseApplication(folder, name);
  return {};
}

std::vector<Step> BoxSteps(const Arguments& arguments) {
  std::vector<Step> steps;
  if (arguments.Flag("--clean")) {
    steps.push_back(SetStep("delete-all-registry-keys-before-applying-preset", "on"));
  }
  if (arguments.Flag("--restore-clocks")) {
    steps.push_back(SetStep("restore-clock-speed-after-terminating-associated-application", "on"));
  }
  const std::string& clocks = arguments.Word(kClocks);
  if (!clocks.empty()) {
    const std::size_t comma = clocks.find(',');
    steps.push_back(SetStep("preset-clock-speed", "on"));
    steps.push_back(SetStep("core-clock", clocks.substr(0, comma)));
    steps.push_back(SetStep("memory-clock", clocks.substr(comma + 1)));
  }
  return steps;
}

std::string Told(const std::optional<platform::StoredValue>& value) {
  return value ? platform::ValueText(value->type, value->data) : "-";
}

std::string Told(const platform::ClockPair& clocks) {
  return std::to_string(clocks.core) + "," + std::to_string(clocks.memory);
}

/// Whether a value is one of those that make up the clocks.
bool IsClockValue(const platform::ChangedValue& value) {
  const std::string path = platform::FoldCase(value.key.path);
  const std::string tweak = platform::FoldCase(platform::kTweakKey);
  if (!path.starts_with(tweak)) return false;
  return path.ends_with("\\HARDWARE") ||
         (path == tweak && platform::SameWithoutCase(value.name, "CoolBits"));
}

/// A line of a comparison, with the words before the old and the new state.
void PrintChange(Output& out, Json item, const std::string& words, const std::string& before,
                 const std::string& after) {
  item["old"] = before;
  item["new"] = after;
  out.Item(std::move(item));
  out.Line(words + '\t' + before + '\t' + after);
}

/// Whether anything differs.
bool PrintChanges(Output& out, std::vector<platform::ChangedValue> changes,
                  const profiles::ProfileState& state) {
  std::erase_if(changes, IsClockValue);
  for (const platform::ChangedValue& change : changes) {
    const std::string key = platform::KeyText(change.key.root, change.key.path);
    PrintChange(out, {{"key", key}, {"name", change.name.empty() ? "@" : change.name}},
                platform::PlainText(key) + '\t' + platform::ValueNameText(change.name),
                Told(change.before), Told(change.after));
  }
  const bool has_clocks = state.clocks_before != state.clocks_after;
  if (has_clocks) {
    PrintChange(out, {{"kind", "clocks"}}, "clocks", Told(*state.clocks_before),
                Told(*state.clocks_after));
  }
  const bool has_command = !state.command.empty();
  if (has_command) {
    out.Item({{"kind", "run"}, {"new", state.command}});
    out.Line("run\t" + platform::PlainText(state.command));
  }
  return !changes.empty() || has_clocks || has_command;
}

}  // namespace

Result<std::vector<Step>> CheckClocksWord(const Arguments& arguments) {
  const std::string& clocks = arguments.Word(kClocks);
  if (clocks.empty() || clocks.find(',') != clocks.npos) return std::vector<Step>();
  return Fail("\"" + clocks + "\" is no CORE,MEMORY.");
}

Status SaveProfile(Run& run, forms::Program& program) {
  Script script(program, run.out, run.streams, run.has_failed);
  const std::string& name = run.arguments.Word("NAME");
  const Status opened = script.Run(
      {{.kind = Step::Kind::kOpen, .id = "profile-manager"}, SetStep("profile-name", name)});
  if (opened != Status::kDone) return opened;
  // A name that is refused is refused before the clocks are read for their boxes.
  if (profiles::IsProfileName(run.session->Files(), name)) {
    const Status set = script.Run(BoxSteps(run.arguments));
    if (set != Status::kDone) return set;
    if (const auto chosen = ChooseApplication(run, program); !chosen) {
      run.streams.Complain(chosen.Reason());
      return Status::kImpossible;
    }
  }
  const Status saved = script.Run({{.kind = Step::Kind::kPress, .id = "profile-manager.save"}});
  return program.Profiles().state.done ? saved : Status::kImpossible;
}

Status ApplyProfile(Run& run, forms::Program& program) {
  const std::string path = profiles::PathOf(run.session->Files(), run.arguments.Word("FILE"));
  return program.ApplyProfile(path) ? Status::kDone : Status::kImpossible;
}

Status ListProfiles(Run& run, forms::Program& /*program*/) {
  run.out.BeginList();
  for (const std::string& name : profiles::ListProfiles(run.session->Files())) {
    run.out.Item({{"name", name}});
    run.out.Line(platform::PlainText(name));
  }
  return Status::kDone;
}

Status DiffProfile(Run& run) {
  GlobalOptions options = run.options;
  options.machine.dry_run = true;
  options.records_changes = true;
  const auto session = Session::Open(run.machines, options, run.streams);
  if (!session) return Status::kImpossible;
  forms::Program& program = session->Start();
  if (session->HasFailed()) return session->Finish(Status::kImpossible);
  session->Recorder()->Forget();
  const bool done =
      program.ApplyProfile(profiles::PathOf(session->Files(), run.arguments.Word("FILE")));
  run.out.BeginList();
  const bool differs =
      PrintChanges(run.out, session->Recorder()->Changes(), program.Profiles().state);
  if (!done) return session->Finish(Status::kImpossible);
  return session->Finish(differs ? Status::kNo : Status::kDone);
}

}  // namespace kestrune::cli
