#include "platform/portable/shell.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "platform/case_fold.h"

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

bool IsInstalled(std::string_view program) {
  const char* variable = std::getenv("PATH");
  std::string_view folders = variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin";
  while (!folders.empty()) {
    const std::size_t end = std::min(folders.find(':'), folders.size());
    const std::string file = std::string(folders.substr(0, end)).append("/").append(program);
    if (access(file.c_str(), X_OK) == 0) return true;
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return false;
}

/// Becomes the program, or tells through the pipe that it couldn't. Only calls that are safe
/// between fork and exec stand here.
[[noreturn]] void BecomeProgram(char* const* words, int report) {
  const int nothing = open("/dev/null", O_RDONLY);
  if (nothing >= 0) dup2(nothing, STDIN_FILENO);
  execvp(words[0], words);
  const char failed = 1;
  [[maybe_unused]] const ssize_t written = write(report, &failed, 1);
  _exit(127);
}

/// Starts a program that nobody waits for. A child in between, which ends at once, hands it over
/// to the system, so that it never remains as a zombie.
bool Start(std::vector<std::string> words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  int report[2];
  if (words.empty() || pipe2(report, O_CLOEXEC) != 0) return false;
  const pid_t child = fork();
  if (child == 0) {
    setsid();
    const pid_t program = fork();
    if (program == 0) BecomeProgram(pointers.data(), report[1]);
    _exit(program < 0 ? 1 : 0);
  }
  close(report[1]);
  int status = child < 0 ? 1 : 0;
  // Where the whole program ignores its children there is nothing left to wait for.
  while (child > 0 && waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) break;
  }
  char failed = 0;
  ssize_t count = 0;
  do {
    count = read(report[0], &failed, 1);
  } while (count < 0 && errno == EINTR);
  close(report[0]);
  return status == 0 && count == 0;
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view command_line) {
  std::vector<std::string> words;
  bool in_word = false;
  bool in_quotes = false;
  for (const char c : command_line) {
    const bool separates = !in_quotes && (c == ' ' || c == '\t');
    if (separates) {
      in_word = false;
      continue;
    }
    if (!in_word) words.emplace_back();
    in_word = true;
    if (c == '"') {
      in_quotes = !in_quotes;
    } else {
      words.back().push_back(c);
    }
  }
  return words;
}

bool IsReloadCommand(std::string_view command_line) {
  const std::vector<std::string> words = SplitCommandLine(command_line);
  return !words.empty() && (SameWithoutCase(words.front(), "rundll32") ||
                            SameWithoutCase(words.front(), "rundll32.exe"));
}

bool ProcessShell::StartCommand(std::string_view command_line, WindowState) {
  if (IsReloadCommand(command_line)) {
    if (driver_ != nullptr) driver_->Reload(command_line);
    return true;
  }
  std::vector<std::string> words = SplitCommandLine(command_line);
  if (dry_run_) return !words.empty();
  return Start(std::move(words));
}

bool ProcessShell::OpenWebPage(std::string_view address) {
  if (address.empty() || address.starts_with('-')) return false;
  if (dry_run_) return true;
  return IsInstalled("xdg-open") && Start({"xdg-open", std::string(address)});
}

bool ProcessShell::OpenControlPanelItem(std::string_view item) {
  if (dry_run_) return true;
  for (const ControlPanelProgram& program : kControlPanel) {
    if (!SameWithoutCase(item, program.item)) continue;
    std::vector<std::string> words = SplitCommandLine(program.command);
    if (IsInstalled(words.front())) return Start(std::move(words));
  }
  return false;
}

}  // namespace kestrune::platform::portable
