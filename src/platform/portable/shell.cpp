#include "platform/portable/shell.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/case_fold.h"
#include "platform/command_words.h"
#include "platform/portable/spawn.h"

namespace kestrune::platform::portable {
namespace {

struct ControlPanelProgram {
  std::string_view item;
  std::string_view command;
};

// In the order in which they are tried; the first program that is installed serves.
constexpr ControlPanelProgram kControlPanel[] = {
    {"desk.cpl", "gnome-control-center display"}, {"desk.cpl", "systemsettings kcm_kscreen"},
    {"desk.cpl", "systemsettings5 kcm_kscreen"},  {"desk.cpl", "cinnamon-settings display"},
    {"desk.cpl", "mate-display-properties"},      {"desk.cpl", "xfce4-display-settings"},
    {"desk.cpl", "lxqt-config-monitor"},          {"desk.cpl", "arandr"},
};

bool IsFile(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

bool IsFolder(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error);
}

/// A program as it is to be started; its words begin with its own name.
struct Program {
  std::string file;
  std::vector<std::string> words;
};

class StartedChild : public ChildProcess {
 public:
  explicit StartedChild(pid_t process) : process_(process) {}

  ChildState Wait(int milliseconds) override {
    if (!requests_) requests_.emplace();
    pollfd events[] = {{process_.Descriptor(), POLLIN, 0}, {requests_->Descriptor(), POLLIN, 0}};
    if (!process_.HasEnded()) poll(events, std::size(events), milliseconds);
    if (requests_->AnyTaken()) return ChildState::kInterrupted;
    return process_.HasEnded() ? ChildState::kEnded : ChildState::kRuns;
  }
  void End() override { process_.Kill(); }

 private:
  WatchedProcess process_;
  std::optional<EndRequests> requests_;
};

/// The program of a command line whose first word names it.
std::optional<Program> FindByWords(std::vector<std::string> words, const std::string& folder) {
  if (words.empty() || words.front().empty()) return std::nullopt;
  const std::string name = words.front();
  if (name.find('/') != name.npos) return Program{PathFrom(folder, name), std::move(words)};
  std::optional<std::string> file = FindAlongPath(name, folder);
  if (!file) return std::nullopt;
  return Program{std::move(*file), std::move(words)};
}

/// The whole text as a program, else its shortest beginning that names one, else its first word.
/// What is found need not be executable.
Result<Program, StartFault> FindProgram(std::string_view text, const std::string& folder) {
  if (text.find('\0') != text.npos) return FailWith(StartFault::kNotFound);
  const std::string whole = PathFrom(folder, std::string(text));
  if (IsFile(whole)) return Program{whole, {std::string(text)}};
  for (const auto& [name, rest] : BeginningsOf(text, PATH_MAX)) {
    const std::string file = PathFrom(folder, name);
    if (!IsFile(file)) continue;
    std::vector<std::string> words = SplitCommandLine(rest);
    words.insert(words.begin(), name);
    return Program{file, std::move(words)};
  }
  std::optional<Program> program = FindByWords(SplitCommandLine(text), folder);
  if (!program) return FailWith(StartFault::kNotFound);
  if (access(program->file.c_str(), F_OK) == 0) return std::move(*program);
  const std::string parent = program->file.substr(0, program->file.rfind('/') + 1);
  return FailWith(IsFolder(parent) ? StartFault::kNotFound : StartFault::kNoFolder);
}

}  // namespace

bool ProcessShell::TakenByDriver(std::string_view command_line) {
  if (!IsReloadCommand(command_line)) return false;
  if (driver_ != nullptr) driver_->Reload(command_line);
  return true;
}

bool ProcessShell::Start(std::vector<std::string> words) {
  if (dry_run_) return !words.empty();
  std::optional<Program> program = FindByWords(std::move(words), folder_);
  return program && Spawn(program->file, std::move(program->words), folder_);
}

bool ProcessShell::StartCommand(std::string_view command_line, WindowState) {
  return TakenByDriver(command_line) || Start(SplitCommandLine(command_line));
}

Result<std::unique_ptr<ChildProcess>, StartFault> ProcessShell::StartProgram(
    std::string_view command_line, WindowState) {
  using Child = std::unique_ptr<ChildProcess>;
  if (TakenByDriver(command_line)) return Child(std::make_unique<EndedChild>());
  const bool is_helper = !helper_.empty() && SameWithoutCase(command_line, helper_command_);
  Result<Program, StartFault> found =
      is_helper ? Program{helper_.front(), helper_} : FindProgram(command_line, folder_);
  if (!found) return FailWith(found.Reason());
  Program& program = found.Value();
  if (!IsFile(program.file) || access(program.file.c_str(), X_OK) != 0) {
    return FailWith(StartFault::kNotExecutable);
  }
  if (dry_run_) return Child(std::make_unique<EndedChild>());
  const std::optional<pid_t> process = Spawn(program.file, std::move(program.words), folder_);
  if (!process) return FailWith(StartFault::kNotExecutable);
  return Child(std::make_unique<StartedChild>(*process));
}

bool ProcessShell::SetCurrentFolder(std::string_view folder) {
  if (folder.empty()) return true;
  if (folder.find('\0') != folder.npos) return false;
  std::error_code error;
  const std::string path =
      std::filesystem::absolute(PathFrom(folder_, std::string(folder)), error).string();
  if (error || !IsFolder(path) || access(path.c_str(), X_OK) != 0) return false;
  folder_ = path;
  return true;
}

bool ProcessShell::OpenWebPage(std::string_view address) {
  if (address.empty() || address.starts_with('-')) return false;
  if (dry_run_) return true;
  return Start({"xdg-open", std::string(address)});
}

bool ProcessShell::OpenControlPanelItem(std::string_view item) {
  if (dry_run_) return true;
  for (const ControlPanelProgram& program : kControlPanel) {
    if (!SameWithoutCase(item, program.item)) continue;
    std::vector<std::string> words = SplitCommandLine(program.command);
    if (FindAlongPath(words.front(), folder_)) return Start(std::move(words));
  }
  return false;
}

}  // namespace kestrune::platform::portable
