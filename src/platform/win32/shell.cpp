#include "platform/win32/shell.h"

#include <windows.h>
#include <shellapi.h>

#include <optional>
#include <vector>

#include "platform/command_words.h"
#include "platform/win32/end_requests.h"
#include "platform/win32/file_calls.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

/// How long a started program is waited for until it waits for input, in milliseconds.
constexpr DWORD kLongestStart = 10000;

/// A handle of the system that is closed with this.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() {
    if (handle_ != nullptr) CloseHandle(handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

WORD ShowOf(WindowState window) {
  return window == WindowState::kMinimised ? SW_SHOWMINNOACTIVE : SW_SHOWNORMAL;
}

/// Starts a command line in a folder (empty: the one of this process); null when that fails, with
/// the system's error. `file` is the program, or empty where the command line is to tell it.
template <class Startup, class Char, class Create>
HANDLE Start(Create create, const Char* file, std::basic_string<Char> command, const Char* folder,
             WindowState window) {
  Startup startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = ShowOf(window);
  PROCESS_INFORMATION started{};
  // The system writes into the command line.
  if (!create(*file != 0 ? file : nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
              *folder != 0 ? folder : nullptr, &startup, &started)) {
    return nullptr;
  }
  CloseHandle(started.hThread);
  return started.hProcess;
}

HANDLE StartProcess(const std::string& file, std::string_view command, const std::string& folder,
                    WindowState window) {
  if (IsNt()) {
    return Start<STARTUPINFOW>(CreateProcessW, Wide(file).c_str(), Wide(command),
                               Wide(folder).c_str(), window);
  }
  CodePages pages(SystemCodePage());
  return Start<STARTUPINFOA>(CreateProcessA, pages.Encode(file).bytes.c_str(),
                             pages.Encode(command).bytes, pages.Encode(folder).bytes.c_str(),
                             window);
}

class StartedChild : public ChildProcess {
 public:
  explicit StartedChild(HANDLE process) : process_(process) {}

  ChildState Wait(int milliseconds) override {
    if (!requests_) requests_.emplace();
    const HANDLE events[] = {process_.Get(), static_cast<HANDLE>(requests_->Event())};
    const DWORD count = events[1] != nullptr ? 2 : 1;
    WaitForMultipleObjects(count, events, FALSE, static_cast<DWORD>(milliseconds));
    if (requests_->AnyTaken()) return ChildState::kInterrupted;
    return WaitForSingleObject(process_.Get(), 0) == WAIT_OBJECT_0 ? ChildState::kEnded
                                                                   : ChildState::kRuns;
  }
  void End() override { TerminateProcess(process_.Get(), 1); }

 private:
  Handle process_;
  std::optional<EndRequests> requests_;
};

std::string WithoutQuotes(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '"');
  return plain;
}

/// A path as it counts from a folder.
std::string PathFrom(const std::string& folder, const std::string& path) {
  const bool is_whole = path.starts_with('\\') || path.starts_with('/') || path.find(':') == 1;
  return is_whole || folder.empty() ? path : folder + '\\' + path;
}

/// The file that a text names, as it stands or without its ".exe"; empty where it names none.
std::string FileNamedBy(std::string_view text, const std::string& folder) {
  const std::string path = PathFrom(folder, WithoutQuotes(text));
  for (const char* ending : {"", ".exe"}) {
    if (KindOf(path + ending) == FileKind::kFile) return path + ending;
  }
  return {};
}

/// A program's file and its whole command line. Without a file the system looks for it.
struct Program {
  std::string file;
  std::string command;
};

/// The whole text as a program, blanks included, else its shortest beginning that names one.
Program FindProgram(std::string_view text, const std::string& folder) {
  if (std::string file = FileNamedBy(text, folder); !file.empty()) return {file, '"' + file + '"'};
  for (const auto& [name, rest] : BeginningsOf(text, MAX_PATH)) {
    const std::string file = FileNamedBy(name, folder);
    if (!file.empty()) return {file, ('"' + file + '"').append(rest)};
  }
  return {"", std::string(text)};
}

/// Why the system didn't start a program that a word names.
StartFault FaultOf(DWORD error, const std::string& word, const std::string& folder) {
  const std::string path = PathFrom(folder, word);
  const std::size_t separator = path.find_last_of("\\/");
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
      return separator == path.npos || KindOf(path.substr(0, separator)) == FileKind::kFolder
                 ? StartFault::kNotFound
                 : StartFault::kNoFolder;
    case ERROR_DIRECTORY:
      return StartFault::kNoFolder;
    default:
      return StartFault::kNotExecutable;
  }
}

}  // namespace

bool SystemShell::StartCommand(std::string_view command_line, WindowState window) {
  if (dry_run_) return !command_line.empty();
  const Handle process(StartProcess("", command_line, folder_, window));
  if (process.Get() == nullptr) return false;
  WaitForInputIdle(process.Get(), kLongestStart);
  return true;
}

Result<std::unique_ptr<ChildProcess>, StartFault> SystemShell::StartProgram(
    std::string_view command_line, WindowState window) {
  using Child = std::unique_ptr<ChildProcess>;
  const std::vector<std::string> words = SplitCommandLine(command_line);
  if (words.empty() || command_line.find('\0') != command_line.npos) {
    return FailWith(StartFault::kNotFound);
  }
  if (dry_run_) return Child(std::make_unique<EndedChild>());
  const Program program = FindProgram(command_line, folder_);
  const HANDLE process = StartProcess(program.file, program.command, folder_, window);
  if (process == nullptr) return FailWith(FaultOf(GetLastError(), words.front(), folder_));
  return Child(std::make_unique<StartedChild>(process));
}

bool SystemShell::SetCurrentFolder(std::string_view folder) {
  if (folder.empty()) return true;
  if (folder.find('\0') != folder.npos) return false;
  const std::string path = WholePathOf(PathFrom(folder_, std::string(folder)));
  if (KindOf(path) != FileKind::kFolder) return false;
  folder_ = path;
  return true;
}

bool SystemShell::OpenWebPage(std::string_view address) {
  if (address.empty() || address.starts_with('-')) return false;
  if (dry_run_) return true;
  // Any greater answer says that it was done.
  constexpr INT_PTR kLastError = 32;
  const auto answer = reinterpret_cast<INT_PTR>(ShellExecuteA(
      nullptr, "open", pages_.Encode(address).bytes.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
  return answer > kLastError;
}

bool SystemShell::OpenControlPanelItem(std::string_view item) {
  return StartCommand("rundll32.exe shell32.dll,Control_RunDLL " + std::string(item),
                      WindowState::kNormal);
}

}  // namespace kestrune::platform::win32
