#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace kestrune::platform::portable {

/// Where a path leads from a folder; an empty folder is the one of this process.
std::string PathFrom(const std::string& folder, const std::string& path);

/// The executable file of a program along PATH, whose own paths count from a folder.
std::optional<std::string> FindAlongPath(const std::string& name, const std::string& folder);

/// Starts a program's file with its words, the first of which is its own name, in a folder (empty:
/// the one of this process). It is no child of this process: it has a session of its own, goes on
/// when this one ends, and leaves no zombie; signals and their mask are as at a log-on, and it
/// reads nothing. No command interpreter is involved. Nothing when it couldn't be started.
std::optional<pid_t> Spawn(const std::string& file, std::vector<std::string> words,
                           const std::string& folder);

/// A process, which need be no child, that can be waited for.
class WatchedProcess {
 public:
  explicit WatchedProcess(pid_t process);
  ~WatchedProcess();
  WatchedProcess(const WatchedProcess&) = delete;
  WatchedProcess& operator=(const WatchedProcess&) = delete;

  /// Readable once the process has ended; -1 where the system has no such thing.
  int Descriptor() const { return descriptor_; }
  bool HasEnded() const;
  /// Ends it at once.
  void Kill() const;

 private:
  pid_t process_;
  int descriptor_;
  bool was_gone_ = false;
};

/// Takes the requests to end this program (SIGINT, SIGTERM, SIGHUP, but for those that were ignored
/// before) for as long as it lives. At its end they are answered as before, beginning with the last
/// one that was taken.
class EndRequests {
 public:
  EndRequests();
  ~EndRequests();
  EndRequests(const EndRequests&) = delete;
  EndRequests& operator=(const EndRequests&) = delete;

  bool AnyTaken() const;
  /// Readable once one was taken.
  int Descriptor() const { return descriptor_; }

 private:
  struct Former;

  int descriptor_;
  int outer_descriptor_;
  std::vector<Former> former_;
};

}  // namespace kestrune::platform::portable
