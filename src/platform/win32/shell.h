#pragma once

#include <string>

#include "platform/code_page.h"
#include "platform/shell_api.h"

namespace kestrune::platform::win32 {

/// Starts programs of the computer. A command has come as far as WinExec takes it when a call
/// returns: the program waits for input, has ended, or ten seconds have gone by. What a driver's
/// reload command changes is there by then.
class SystemShell : public ShellApi {
 public:
  /// In a dry run nothing is started, and every command counts as started. `pages` must outlive
  /// this.
  SystemShell(CodePages& pages, bool dry_run) : pages_(pages), dry_run_(dry_run) {}

  bool StartCommand(std::string_view command_line, WindowState window) override;
  Result<std::unique_ptr<ChildProcess>, StartFault> StartProgram(std::string_view command_line,
                                                                 WindowState window) override;
  bool SetCurrentFolder(std::string_view folder) override;
  bool OpenWebPage(std::string_view address) override;
  bool OpenControlPanelItem(std::string_view item) override;

 private:
  CodePages& pages_;
  bool dry_run_;
  std::string folder_;  ///< empty: the one of this process
};

}  // namespace kestrune::platform::win32
