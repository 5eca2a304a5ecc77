#include "platform/portable/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace kestrune::platform::portable {

Result<std::string> ReadWholeFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return Fail(std::generic_category().message(errno));
  std::string bytes;
  char block[16384];
  ssize_t count = 0;
  do {
    count = read(file, block, sizeof(block));
    if (count > 0) bytes.append(block, static_cast<std::size_t>(count));
  } while (count > 0 || (count < 0 && errno == EINTR));
  const int error = errno;
  close(file);
  if (count < 0) return Fail(std::generic_category().message(error));
  return bytes;
}

}  // namespace kestrune::platform::portable
