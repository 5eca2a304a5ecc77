#pragma once

#include <memory>
#include <string_view>

#include "platform/result.h"

namespace kestrune::platform {

enum class WindowState { kNormal, kMinimised };

/// What became of a program while it was waited for.
enum class ChildState {
  kRuns,
  kEnded,
  kInterrupted,  ///< the waiting program itself was told to end; the other one goes on
};

/// A started program that can be waited for (OpenProcess, WaitForSingleObject, CloseHandle). It
/// goes on when this is destroyed.
class ChildProcess {
 public:
  virtual ~ChildProcess() = default;

  /// Waits up to `milliseconds`, 0 only looks. The first call begins to take the requests to end
  /// this program, which kInterrupted tells of then; they end it as usual when this is destroyed.
  virtual ChildState Wait(int milliseconds) = 0;
  /// Ends it, whatever it is doing (TerminateProcess).
  virtual void End() = 0;
};

/// The child of a program that was never started, or that had ended before anybody could wait.
class EndedChild : public ChildProcess {
 public:
  ChildState Wait(int /*milliseconds*/) override { return ChildState::kEnded; }
  void End() override {}
};

/// Why a program was not started.
enum class StartFault {
  kNotFound,       ///< no such program, and the folder that its text names is there
  kNoFolder,       ///< that folder isn't there
  kNotExecutable,  ///< there is such a file, but it can't be run
};

/// What the shell starts for the program. A call that could not start anything returns false.
class ShellApi {
 public:
  virtual ~ShellApi() = default;

  /// Starts a command line in a window of that state and doesn't wait for it (WinExec, Shell).
  virtual bool StartCommand(std::string_view command_line, WindowState window) = 0;
  /// Starts a program by its command line, in the folder that was made current, as a process that
  /// survives this one. Where the whole text names a file, that is the program; otherwise the
  /// shortest beginning up to a blank outside double quotes that names one, else the first word,
  /// looked for along PATH. A relative name counts from the folder. No command interpreter sees the
  /// text.
  virtual Result<std::unique_ptr<ChildProcess>, StartFault> StartProgram(
      std::string_view command_line, WindowState window) = 0;
  /// Makes a folder current for the programs that are started later (ChDrive, ChDir); the folder of
  /// this program never changes, and an empty text changes nothing. False when there is no such
  /// folder.
  virtual bool SetCurrentFolder(std::string_view folder) = 0;
  /// Opens a page in the user's browser (FindExecutable, ShellExecute).
  virtual bool OpenWebPage(std::string_view address) = 0;
  /// Opens an item of the control panel, such as "desk.cpl" (Shell.Application, ControlPanelItem).
  virtual bool OpenControlPanelItem(std::string_view item) = 0;
};

}  // namespace kestrune::platform
