#pragma once

#include <string_view>

namespace kestrune::platform {

enum class WindowState { kNormal, kMinimised };

/// What the shell starts for the program. A call that could not start anything returns false.
class ShellApi {
 public:
  virtual ~ShellApi() = default;

  /// Starts a command line in a window of that state and doesn't wait for it (WinExec, Shell).
  virtual bool StartCommand(std::string_view command_line, WindowState window) = 0;
  /// Opens a page in the user's browser (FindExecutable, ShellExecute).
  virtual bool OpenWebPage(std::string_view address) = 0;
  /// Opens an item of the control panel, such as "desk.cpl" (Shell.Application, ControlPanelItem).
  virtual bool OpenControlPanelItem(std::string_view item) = 0;
};

}  // namespace kestrune::platform
