#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/shell_api.h"

namespace kestrune::platform::portable {

/// What acts as the driver when it is told to load its settings again.
class DriverStandIn {
 public:
  virtual ~DriverStandIn() = default;

  /// A reload command, whole. What it changes has been changed when this returns.
  virtual void Reload(std::string_view command_line) = 0;
};

/// Whether a command line is one for the driver: its first word is "rundll32", in any case, with
/// or without ".exe".
bool IsReloadCommand(std::string_view command_line);

/// The words of a command line: blanks separate them, except between double quotes.
std::vector<std::string> SplitCommandLine(std::string_view command_line);

/// Starts programs of the running machine. Reload commands go to the driver stand-in instead, and
/// have ended when it has done its work; without one they are accepted and nothing happens.
class ProcessShell : public ShellApi {
 public:
  /// In a dry run nothing is started, and every command counts as started.
  explicit ProcessShell(bool dry_run = false) : dry_run_(dry_run) {}

  /// The stand-in must outlive this; null for none.
  void SetDriverStandIn(DriverStandIn* driver) { driver_ = driver; }

  bool StartCommand(std::string_view command_line, WindowState window) override;
  Result<std::unique_ptr<ChildProcess>, StartFault> StartProgram(std::string_view command_line,
                                                                 WindowState window) override;
  bool SetCurrentFolder(std::string_view folder) override;
  bool OpenWebPage(std::string_view address) override;
  bool OpenControlPanelItem(std::string_view item) override;

 private:
  bool TakenByDriver(std::string_view command_line);
  bool Start(std::vector<std::string> words);

  bool dry_run_;
  std::string folder_;  ///< empty: the one of this process
  DriverStandIn* driver_ = nullptr;
};

}  // namespace kestrune::platform::portable
