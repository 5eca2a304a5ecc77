#include "platform/win32/file_calls.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/code_page.h"
#include "platform/win32/library.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {

namespace {

/// A path as both kinds of calls take it.
class NativePath {
 public:
  explicit NativePath(std::string_view path)
      : wide_(IsNt() ? Wide(path) : std::wstring()),
        bytes_(IsNt() ? std::string() : CodePages(SystemCodePage()).Encode(path).bytes) {}

  const wchar_t* WideText() const { return wide_.c_str(); }
  const char* Bytes() const { return bytes_.c_str(); }

 private:
  std::wstring wide_;
  std::string bytes_;
};

std::string FromBytes(std::string_view bytes) { return CodePages(SystemCodePage()).Decode(bytes); }

DWORD AttributesOf(const std::string& path) {
  const NativePath native(path);
  return IsNt() ? GetFileAttributesW(native.WideText()) : GetFileAttributesA(native.Bytes());
}

/// An open file that is closed when this goes out of scope.
class OpenFile {
 public:
  OpenFile(const std::string& path, DWORD access, DWORD sharing, DWORD manner, DWORD flags = 0) {
    const NativePath native(path);
    handle_ = IsNt()
                  ? CreateFileW(native.WideText(), access, sharing, nullptr, manner, flags, nullptr)
                  : CreateFileA(native.Bytes(), access, sharing, nullptr, manner, flags, nullptr);
    error_ = IsOpen() ? 0 : GetLastError();
  }
  ~OpenFile() { Close(); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  DWORD Error() const { return error_; }
  HANDLE Handle() const { return handle_; }
  void Close() {
    if (IsOpen()) CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

  /// 0, or the error that kept some of the bytes from being written.
  DWORD Put(std::string_view bytes) const {
    while (!bytes.empty()) {
      constexpr std::size_t kMostAtOnce = 1 << 20;
      const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
      DWORD written = 0;
      if (!WriteFile(handle_, bytes.data(), size, &written, nullptr)) return GetLastError();
      if (written == 0) return ERROR_DISK_FULL;
      bytes.remove_prefix(written);
    }
    return 0;
  }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
  DWORD error_ = 0;
};

FileFault FaultOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      return FileFault::kNoFile;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
      return FileFault::kNoFolder;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_NOT_READY:
      return FileFault::kNotUsable;
    default:
      return FileFault::kOther;
  }
}

Failure<FileFailure> FailedAs(DWORD error) {
  return FailWith(FileFailure{FaultOf(error), ErrorText(error)});
}

Failure<FileFailure> TooLong(std::size_t size, std::size_t longest) {
  return FailWith(FileFailure{FileFault::kOther, "it has " + std::to_string(size) +
                                                     " bytes, and at most " +
                                                     std::to_string(longest) + " are read"});
}

DWORD Delete(const std::string& path) {
  const NativePath native(path);
  const BOOL is_done = IsNt() ? DeleteFileW(native.WideText()) : DeleteFileA(native.Bytes());
  return is_done ? 0 : GetLastError();
}

/// Gives a file another name, also where that is taken.
DWORD Rename(const std::string& from, const std::string& to) {
  const NativePath old_name(from);
  const NativePath new_name(to);
  if (IsNt()) {
    const BOOL is_done = MoveFileExW(old_name.WideText(), new_name.WideText(),
                                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    return is_done ? 0 : GetLastError();
  }
  // Windows 9x has no single step for it.
  if (const DWORD error = Delete(to); error != 0 && error != ERROR_FILE_NOT_FOUND) return error;
  return MoveFileA(old_name.Bytes(), new_name.Bytes()) ? 0 : GetLastError();
}

/// A file beside another, which is deleted with this unless it took that one's place.
class NewFile {
 public:
  explicit NewFile(const std::string& path)
      : path_(path + ".new" + std::to_string(GetCurrentProcessId())),
        file_(path_, GENERIC_WRITE, 0, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL) {}
  ~NewFile() {
    const bool is_made = file_.Error() == 0;
    file_.Close();
    if (is_made && !is_named_) Delete(path_);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  DWORD Fill(std::string_view bytes) const {
    if (!file_.IsOpen()) return file_.Error();
    const DWORD error = file_.Put(bytes);
    if (error != 0) return error;
    return FlushFileBuffers(file_.Handle()) ? 0 : GetLastError();
  }
  DWORD Name(const std::string& path) {
    file_.Close();
    const DWORD error = Rename(path_, path);
    is_named_ = error == 0;
    return error;
  }

 private:
  std::string path_;
  OpenFile file_;
  bool is_named_ = false;
};

template <class Data>
void AddEntry(std::vector<FolderEntry>& entries, const Data& data, std::string name) {
  if (name == "." || name == "..") return;
  const bool is_folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool is_link = (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  entries.push_back({std::move(name), is_folder, is_link});
}

std::string ModuleFileName() {
  std::wstring wide(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, wide.data(), static_cast<DWORD>(wide.size()));
    if (length == 0) return {};
    if (length < wide.size()) return Narrow({wide.data(), length});
    wide.resize(wide.size() * 2);
  }
}

class PlainOutput : public OutputFile {
 public:
  explicit PlainOutput(const std::string& path)
      : file_(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL) {}

  DWORD Error() const { return file_.Error(); }
  Result<void> Put(std::string_view bytes) override {
    const DWORD error = file_.Put(bytes);
    return error == 0 ? Result<void>() : Result<void>(Fail(ErrorText(error)));
  }

 private:
  OpenFile file_;
};

}  // namespace

FileKind KindOf(const std::string& path) {
  const DWORD attributes = AttributesOf(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return FileKind::kNothing;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::kFolder : FileKind::kFile;
}

std::optional<std::vector<FolderEntry>> EntriesOf(const std::string& folder) {
  const NativePath all(folder + "\\*");
  std::vector<FolderEntry> entries;
  HANDLE search = INVALID_HANDLE_VALUE;
  if (IsNt()) {
    WIN32_FIND_DATAW data{};
    search = FindFirstFileW(all.WideText(), &data);
    if (search == INVALID_HANDLE_VALUE) return std::nullopt;
    do {
      AddEntry(entries, data, Narrow(data.cFileName));
    } while (FindNextFileW(search, &data));
  } else {
    WIN32_FIND_DATAA data{};
    search = FindFirstFileA(all.Bytes(), &data);
    if (search == INVALID_HANDLE_VALUE) return std::nullopt;
    do {
      AddEntry(entries, data, FromBytes(data.cFileName));
    } while (FindNextFileA(search, &data));
  }
  FindClose(search);
  return entries;
}

std::string WholePathOf(const std::string& path) {
  const NativePath native(path);
  constexpr DWORD kLongest = 4096;
  if (IsNt()) {
    std::wstring whole(kLongest, L'\0');
    const DWORD length = GetFullPathNameW(native.WideText(), kLongest, whole.data(), nullptr);
    return length == 0 || length >= kLongest ? path : Narrow({whole.data(), length});
  }
  std::string whole(kLongest, '\0');
  const DWORD length = GetFullPathNameA(native.Bytes(), kLongest, whole.data(), nullptr);
  return length == 0 || length >= kLongest ? path : FromBytes({whole.data(), length});
}

std::string ProgramFile() {
  if (IsNt()) return ModuleFileName();
  char path[MAX_PATH];
  return FromBytes({path, GetModuleFileNameA(nullptr, path, sizeof path)});
}

std::string UserDataFolder() {
  using FolderPath = BOOL WINAPI(HWND, char*, int, BOOL);
  constexpr int kApplicationData = 0x1A;
  const Library shell("shell32.dll");
  auto* const folder_path = shell.Find<FolderPath>("SHGetSpecialFolderPathA");
  char path[MAX_PATH] = {};
  if (folder_path == nullptr || !folder_path(nullptr, path, kApplicationData, TRUE)) return {};
  return FromBytes(path);
}

Result<std::string, FileFailure> ReadWholeFile(const std::string& path, std::size_t longest,
                                               bool pipes_too) {
  if (path.find('\0') != path.npos) return FailedAs(ERROR_INVALID_NAME);
  const OpenFile file(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING,
                      FILE_FLAG_SEQUENTIAL_SCAN);
  if (!file.IsOpen()) return FailedAs(file.Error());
  const DWORD kind = GetFileType(file.Handle());
  if (kind != FILE_TYPE_DISK && !(pipes_too && kind == FILE_TYPE_PIPE)) {
    return FailWith(FileFailure{FileFault::kNotUsable, "it is no ordinary file"});
  }
  DWORD high = 0;
  const DWORD low = kind == FILE_TYPE_DISK ? GetFileSize(file.Handle(), &high) : 0;
  const unsigned long long size = static_cast<unsigned long long>(high) << 32 | low;
  if (size > longest) return TooLong(static_cast<std::size_t>(size), longest);
  // One byte more than the file has tells that it has ended.
  constexpr std::size_t kLeast = 4096;
  std::string bytes(std::max(static_cast<std::size_t>(size) + 1, kLeast), '\0');
  std::size_t end = 0;
  DWORD count = 0;
  do {
    if (end == bytes.size()) bytes.resize(2 * end);
    const auto room = static_cast<DWORD>(bytes.size() - end);
    if (!ReadFile(file.Handle(), bytes.data() + end, room, &count, nullptr)) {
      const DWORD error = GetLastError();
      if (error != ERROR_BROKEN_PIPE) return FailedAs(error);
      count = 0;
    }
    end += count;
    if (end > longest) return TooLong(end, longest);
  } while (count > 0);
  bytes.resize(end);
  return bytes;
}

unsigned long MakeFolders(const std::string& path) {
  if (path.empty() || KindOf(path) == FileKind::kFolder) return 0;
  const std::size_t separator = path.find_last_of("\\/");
  if (separator != path.npos && separator > 0 && path[separator - 1] != ':') {
    if (const DWORD error = MakeFolders(path.substr(0, separator))) return error;
  }
  const NativePath native(path);
  const BOOL is_done = IsNt() ? CreateDirectoryW(native.WideText(), nullptr)
                              : CreateDirectoryA(native.Bytes(), nullptr);
  return is_done ? 0 : GetLastError();
}

Result<void, FileFailure> ReplaceFile(const std::string& path, std::string_view bytes) {
  if (KindOf(path) == FileKind::kFolder) return FailedAs(ERROR_ACCESS_DENIED);
  NewFile file(path);
  DWORD error = file.Fill(bytes);
  if (error == 0) error = file.Name(path);
  if (error != 0) return FailedAs(error);
  return {};
}

Result<void, FileFailure> ReplaceFileOrPut(const std::string& path, std::string_view bytes) {
  {
    const OpenFile there(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    if (there.IsOpen() && GetFileType(there.Handle()) != FILE_TYPE_DISK) {
      const DWORD error = there.Put(bytes);
      return error == 0 ? Result<void, FileFailure>() : FailedAs(error);
    }
  }
  return ReplaceFile(path, bytes);
}

Result<void, FileFailure> AppendToFile(const std::string& path, std::string_view bytes) {
  const OpenFile file(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING);
  if (!file.IsOpen()) return FailedAs(file.Error());
  const DWORD end = SetFilePointer(file.Handle(), 0, nullptr, FILE_END);
  const DWORD error = file.Put(bytes);
  if (error == 0) return {};
  SetFilePointer(file.Handle(), static_cast<LONG>(end), nullptr, FILE_BEGIN);
  SetEndOfFile(file.Handle());
  return FailedAs(error);
}

Result<void, FileFailure> DeleteOneFile(const std::string& path) {
  if (const DWORD error = Delete(path)) return FailedAs(error);
  return {};
}

Result<std::unique_ptr<OutputFile>> CreateOutputFile(const std::string& path) {
  auto output = std::make_unique<PlainOutput>(path);
  if (output->Error() != 0) return Fail(ErrorText(output->Error()));
  return std::unique_ptr<OutputFile>(std::move(output));
}

}  // namespace kestrune::platform::win32
