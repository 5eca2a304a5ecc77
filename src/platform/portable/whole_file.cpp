#include "platform/portable/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

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

bool IsFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string FolderOf(const std::string& path) {
  const std::size_t end = path.find_last_of('/');
  if (end == std::string::npos) return ".";
  return end == 0 ? "/" : path.substr(0, end);
}

FileFault FaultOf(int error, const std::string& path) {
  switch (error) {
    case ENOENT:
      return IsFolder(FolderOf(path)) ? FileFault::kNoFile : FileFault::kNoFolder;
    case ENOTDIR:
      return FileFault::kNoFolder;
    case EISDIR:
    case EACCES:
    case EPERM:
    case EROFS:
    case ENXIO:
    case ENODEV:
      return FileFault::kNotUsable;
    default:
      return FileFault::kOther;
  }
}

Failure<FileFailure> FailedAs(int error, const std::string& path) {
  return FailWith(FailureOf(error, path));
}

Failure<FileFailure> FailedFor(FileFault fault, std::string reason) {
  return FailWith(FileFailure{fault, std::move(reason)});
}

bool IsPipe(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
}

/// A new file beside the one that it will become. It is gone with this unless it was given a name.
class NewFile {
 public:
  explicit NewFile(const std::string& folder) {
    const std::string start = folder + "/.kestrune-" + std::to_string(getpid()) + "-";
    // A program that was killed may have left a name that is taken now.
    constexpr int kMostNames = 100;
    for (int i = 0; i < kMostNames && (i == 0 || error_ == EEXIST); ++i) {
      path_ = start + std::to_string(i);
      number_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      error_ = number_ < 0 ? errno : 0;
    }
  }
  ~NewFile() {
    if (number_ >= 0) close(number_);
    if (number_ >= 0 && !is_named_) unlink(path_.c_str());
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// 0, or the error that kept the bytes from reaching the disk.
  int Fill(std::string_view bytes) {
    if (error_ != 0) return error_;
    while (!bytes.empty()) {
      const ssize_t count = write(number_, bytes.data(), bytes.size());
      if (count < 0 && errno != EINTR) return errno;
      bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return fsync(number_) != 0 ? errno : 0;
  }
  int Rename(const std::string& path) {
    if (rename(path_.c_str(), path.c_str()) != 0) return errno;
    path_ = path;
    is_named_ = true;
    return 0;
  }

 private:
  std::string path_;
  int number_ = -1;
  int error_ = 0;
  bool is_named_ = false;
};

}  // namespace

FileFailure FailureOf(int error, const std::string& path) {
  return {FaultOf(error, path), std::generic_category().message(error)};
}

Result<void, FileFailure> ReplaceFiles(const std::string& folder,
                                       const std::vector<std::string>& names,
                                       std::string_view bytes) {
  NewFile file(folder);
  if (const int error = file.Fill(bytes)) return FailedAs(error, folder + "/");
  for (const std::string& name : names) {
    const std::string path = std::string(folder).append(1, '/').append(name);
    if (const int error = file.Rename(path)) return FailedAs(error, path);
  }
  const OpenFile names_of_folder(folder, O_RDONLY | O_DIRECTORY);
  if (names_of_folder.Number() >= 0) fsync(names_of_folder.Number());
  return {};
}

Result<void, FileFailure> AppendToFile(const std::string& path, std::string_view bytes) {
  const OpenFile file(path, O_WRONLY | O_APPEND);
  struct stat status {};
  if (file.Number() < 0 || fstat(file.Number(), &status) != 0) return FailedAs(errno, path);
  const ssize_t count = write(file.Number(), bytes.data(), bytes.size());
  if (count == static_cast<ssize_t>(bytes.size())) return {};
  const int error = count < 0 ? errno : ENOSPC;
  // Where that fails too there is nothing left to try.
  [[maybe_unused]] const int kept = count > 0 ? ftruncate(file.Number(), status.st_size) : 0;
  return FailedAs(error, path);
}

Result<std::string, FileFailure> ReadWholeFile(const std::string& path, std::size_t longest,
                                               PipesToo pipes) {
  if (path.find('\0') != path.npos) return FailedAs(EINVAL, path);
  const bool is_pipe = pipes == PipesToo::kYes && IsPipe(path);
  // Opening what turns out to be a pipe or a device may not wait for its other end.
  const OpenFile file(path, is_pipe ? O_RDONLY : O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (file.Number() < 0 || fstat(file.Number(), &status) != 0) return FailedAs(errno, path);
  if (S_ISDIR(status.st_mode)) return FailedAs(EISDIR, path);
  if (!S_ISREG(status.st_mode) && !is_pipe)
    return FailedFor(FileFault::kNotUsable, "it is no ordinary file");
  const auto size = static_cast<std::size_t>(status.st_size);
  const std::string most = std::to_string(longest);
  if (size > longest) {
    return FailedFor(FileFault::kOther, "it has " + std::to_string(size) + " bytes, and at most " +
                                            most + " are read");
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
    if (end > longest) {
      return FailedFor(FileFault::kOther, "it has more than the " + most + " bytes that are read");
    }
  } while (count > 0 || (count < 0 && errno == EINTR));
  if (count < 0) return FailedAs(errno, path);
  bytes.resize(end);
  return bytes;
}

}  // namespace kestrune::platform::portable
