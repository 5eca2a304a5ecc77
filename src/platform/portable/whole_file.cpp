#include "platform/portable/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace kestrune::platform::portable {
namespace {

/// A file that is closed when this goes out of scope.
class OpenFile {
 public:
  OpenFile(const std::string& path, int flags) : file_(open(path.c_str(), flags | O_CLOEXEC)) {}
  ~OpenFile() {
    if (file_ >= 0) close(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int Number() const { return file_; }

 private:
  int file_;
};

Failure<std::string> FailedAs(int error) { return Fail(std::generic_category().message(error)); }

bool IsPipe(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
}

}  // namespace

Result<std::string> ReadWholeFile(const std::string& path, std::size_t longest, PipesToo pipes) {
  const bool is_pipe = pipes == PipesToo::kYes && IsPipe(path);
  // Opening what turns out to be a pipe or a device may not wait for its other end.
  const OpenFile file(path, is_pipe ? O_RDONLY : O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (file.Number() < 0 || fstat(file.Number(), &status) != 0) return FailedAs(errno);
  if (S_ISDIR(status.st_mode)) return FailedAs(EISDIR);
  if (!S_ISREG(status.st_mode) && !is_pipe) return Fail("it is no ordinary file");
  const auto size = static_cast<std::size_t>(status.st_size);
  const std::string most = std::to_string(longest);
  if (size > longest) {
    return Fail("it has " + std::to_string(size) + " bytes, and at most " + most + " are read");
  }

  // One byte more than the file has tells that it has ended. Some files don't know their size.
  constexpr std::size_t kLeast = 4096;
  std::string bytes(std::max(size + 1, kLeast), '\0');
  std::size_t end = 0;
  ssize_t count = 0;
  do {
    if (end == bytes.size()) bytes.resize(2 * end);
    count = read(file.Number(), bytes.data() + end, bytes.size() - end);
    if (count > 0) end += static_cast<std::size_t>(count);
    if (end > longest) return Fail("it has more than the " + most + " bytes that are read");
  } while (count > 0 || (count < 0 && errno == EINTR));
  if (count < 0) return FailedAs(errno);
  bytes.resize(end);
  return bytes;
}

}  // namespace kestrune::platform::portable
