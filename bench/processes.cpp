#include "processes.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include "failure.h"
#include "platform/portable/portable_machine.h"
#include "platform/windowless_dialog.h"
#include "ui/forms/program.h"
#include "whole_programs.h"

namespace kestrune::bench {

namespace {

constexpr Limit kFilesLimit{1.4, 1.2};
constexpr Limit kPsLimit{1.0 / 3, 0.2};

/// Processes that do nothing, for as long as it lives.
class Sleepers {
 public:
  explicit Sleepers(int count) {
    for (int i = 0; i < count; ++i) {
      const pid_t process = fork();
      if (process == 0) {
        // None is left behind, however this program ends.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        pause();
        _exit(0);
      }
      if (process < 0) GiveUp("No further process can be made.");
      processes_.push_back(process);
    }
  }
  ~Sleepers() {
    for (const pid_t process : processes_) kill(process, SIGKILL);
    for (const pid_t process : processes_) waitpid(process, nullptr, 0);
  }
  Sleepers(const Sleepers&) = delete;
  Sleepers& operator=(const Sleepers&) = delete;

 private:
  std::vector<pid_t> processes_;
};

/// The stat files of all processes.
std::vector<std::string> StatFiles() {
  std::vector<std::string> files;
  const std::unique_ptr<DIR, int (*)(DIR*)> list(opendir("/proc"), closedir);
  while (const dirent* entry = readdir(list.get())) {
    if (entry->d_name[0] < '1' || entry->d_name[0] > '9') continue;
    files.push_back(std::string("/proc/") + entry->d_name + "/stat");
  }
  return files;
}

void ReadFiles(const std::vector<std::string>& files) {
  char buffer[2048];
  for (const std::string& each : files) {
    const int file = open(each.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) continue;  // of a process that has ended meanwhile
    (void)!read(file, buffer, sizeof buffer);
    close(file);
  }
}

}  // namespace

std::vector<Row> CompareProcesses(const std::string& folder, int rounds, int processes) {
  auto machine = platform::portable::PortableMachines().Open(
      {.store = folder + "/processes.store", .machine = "winxp-geforce6800"});
  if (!machine.Ok()) GiveUp(machine.Reason());
  platform::WindowlessDialog dialog;
  const platform::Services services = machine.Value()->ServicesFor(dialog);
  forms::Program program(services);
  if (!program.Start("")) GiveUp("The program can't be started.");
  controls::Control* refresh = program.Find("info.processes.refresh");
  const Sleepers sleepers(processes);
  const std::vector<std::string> files = StatFiles();
  const Measure ours = [refresh] { return ProcessorTimeOf(1, [refresh] { refresh->Click(); }); };
  const std::string among = " among " + std::to_string(processes) + " processes";
  return {Compare("refresh" + among + " : open, read, close as many files", kFilesLimit, rounds,
                  ours, [&files] { return ProcessorTimeOf(1, [&files] { ReadFiles(files); }); }),
          Compare("refresh" + among + " : ps -eo pid,ppid,nlwp,pri,comm", kPsLimit, rounds, ours,
                  ProcessorTime({"ps", "-eo", "pid,ppid,nlwp,pri,comm"}))};
}

}  // namespace kestrune::bench
