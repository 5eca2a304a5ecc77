#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/driver.h"
#include "platform/shell_api.h"

namespace kestrune::platform::portable {

/// Starts programs of the running machine. Reload commands go to the driver stand-in instead, and
/// have ended when it has done its work; without one they are accepted and nothing happens.
class ProcessShell : public ShellApi {
 public:
  /// In a dry run nothing is started, and every command counts as started.
  explicit ProcessShell(bool dry_run = false) : dry_run_(dry_run) {}

  /// The stand-in must outlive this; null for none.
  void SetDriverStandIn(DriverStandIn* driver) { driver_ = driver; }
  /// What is started to be waited for, by its file and its words, in the place of the program that
  /// a whole command line names.
  void SetHelper(std::string command_line, std::vector<std::string> words) {
    helper_command_ = std::move(command_line);
    helper_ = std::move(words);
  }

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
  std::string helper_command_;
  std::vector<std::string> helper_;  ///< empty: there is none
};

}  // namespace kestrune::platform::portable
