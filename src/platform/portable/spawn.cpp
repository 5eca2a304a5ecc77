#include "platform/portable/spawn.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>

namespace kestrune::platform::portable {

struct EndRequests::Former {
  int number;
  struct sigaction action;
};

namespace {

constexpr int kEndRequests[] = {SIGINT, SIGTERM, SIGHUP};

// All that a handler may touch.
std::atomic<int> taken_request = 0;
std::atomic<int> told_descriptor = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void TakeRequest(int number) {
  const int error = errno;
  taken_request = number;
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = write(told_descriptor, &one, sizeof one);
  errno = error;
}

/// No signal arrives while this lives, so none meets a handler in the new process.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &former_);
  }
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;

 private:
  sigset_t former_{};
};

struct NewProgram {
  const char* file;
  char* const* words;
  const char* folder;
  int report;
};

/// Becomes the program after its number was written to the report, or says there that it couldn't.
/// Only calls that are safe between fork and exec stand here.
[[noreturn]] void Become(const NewProgram& program) {
  const pid_t self = getpid();
  [[maybe_unused]] ssize_t written = write(program.report, &self, sizeof self);
  const int nothing = open("/dev/null", O_RDONLY);
  if (nothing >= 0) dup2(nothing, STDIN_FILENO);
  if (nothing > STDERR_FILENO) close(nothing);
  for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  if (*program.folder == '\0' || chdir(program.folder) == 0) execv(program.file, program.words);
  const char failed = 1;
  written = write(program.report, &failed, 1);
  _exit(127);
}

/// A child in between, which ends at once, hands the program over to the system.
pid_t ForkTwice(const NewProgram& program) {
  const BlockedSignals blocked;
  const pid_t between = fork();
  if (between != 0) return between;
  setsid();
  const pid_t process = fork();
  if (process == 0) Become(program);
  _exit(process < 0 ? 1 : 0);
}

/// Reads to the end, at most as much as there is room for.
std::size_t ReadReport(int report, std::span<char> bytes) {
  std::size_t size = 0;
  while (size < bytes.size()) {
    const ssize_t count = read(report, bytes.data() + size, bytes.size() - size);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    size += static_cast<std::size_t>(count);
  }
  return size;
}

}  // namespace

std::string PathFrom(const std::string& folder, const std::string& path) {
  return folder.empty() || path.starts_with('/') ? path : folder + "/" + path;
}

std::optional<std::string> FindAlongPath(const std::string& name, const std::string& folder) {
  const char* variable = std::getenv("PATH");
  std::string_view places = variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin";
  while (!places.empty()) {
    const std::size_t end = std::min(places.find(':'), places.size());
    const std::string place(end == 0 ? "." : places.substr(0, end));
    std::string file = PathFrom(folder, place + "/" + name);
    std::error_code error;
    if (std::filesystem::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0) {
      return file;
    }
    places.remove_prefix(std::min(end + 1, places.size()));
  }
  return std::nullopt;
}

std::optional<pid_t> Spawn(const std::string& file, std::vector<std::string> words,
                           const std::string& folder) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) return std::nullopt;
  const pid_t between = ForkTwice({file.c_str(), pointers.data(), folder.c_str(), report[1]});
  close(report[1]);
  // Where the whole program ignores its children there is nothing left to wait for.
  while (between > 0 && waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
  }
  std::array<char, sizeof(pid_t) + 1> bytes;
  const std::size_t size = ReadReport(report[0], bytes);
  close(report[0]);
  if (size != sizeof(pid_t)) return std::nullopt;
  pid_t process = 0;
  std::memcpy(&process, bytes.data(), sizeof process);
  return process;
}

WatchedProcess::WatchedProcess(pid_t process)
    : process_(process), descriptor_(static_cast<int>(syscall(SYS_pidfd_open, process, 0))) {
  was_gone_ = descriptor_ < 0 && errno == ESRCH;
}

WatchedProcess::~WatchedProcess() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool WatchedProcess::HasEnded() const {
  if (was_gone_) return true;
  if (descriptor_ < 0) return kill(process_, 0) != 0 && errno == ESRCH;
  pollfd ended{descriptor_, POLLIN, 0};
  return poll(&ended, 1, 0) > 0;
}

void WatchedProcess::Kill() const {
  if (HasEnded()) return;
  if (descriptor_ >= 0) {
    syscall(SYS_pidfd_send_signal, descriptor_, SIGKILL, nullptr, 0);
  } else {
    kill(process_, SIGKILL);
  }
}

EndRequests::EndRequests()
    : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      outer_descriptor_(told_descriptor.exchange(descriptor_)) {
  struct sigaction take {};
  take.sa_handler = TakeRequest;
  take.sa_flags = SA_RESTART;
  for (const int number : kEndRequests) {
    Former former{number, {}};
    sigaction(number, nullptr, &former.action);
    if (former.action.sa_handler == SIG_IGN) continue;
    sigaction(number, &take, nullptr);
    former_.push_back(former);
  }
}

EndRequests::~EndRequests() {
  for (const Former& former : former_) sigaction(former.number, &former.action, nullptr);
  told_descriptor = outer_descriptor_;
  if (descriptor_ >= 0) close(descriptor_);
  if (const int number = taken_request.exchange(0)) raise(number);
}

bool EndRequests::AnyTaken() const { return taken_request != 0; }

}  // namespace kestrune::platform::portable
