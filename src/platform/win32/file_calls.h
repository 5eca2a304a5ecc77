#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files_api.h"

/// The system's calls for files, by paths in UTF-8: those for Unicode on Windows NT, and those in
/// the system code page on Windows 9x.
namespace kestrune::platform::win32 {

enum class FileKind { kNothing, kFile, kFolder };

struct FolderEntry {
  std::string name;
  bool is_folder = false;
  bool is_link = false;  ///< what stands there leads elsewhere
};

FileKind KindOf(const std::string& path);
/// What stands in a folder, without "." and ".."; nothing when it can't be opened.
std::optional<std::vector<FolderEntry>> EntriesOf(const std::string& folder);
/// A path from its drive on, without "." and "..".
std::string WholePathOf(const std::string& path);
/// The file of the running program.
std::string ProgramFile();
/// The folder for the user's own data; empty where the system has none.
std::string UserDataFolder();

/// The bytes of a file on a disk, or with `pipes_too` of a pipe.
Result<std::string, FileFailure> ReadWholeFile(const std::string& path, std::size_t longest,
                                               bool pipes_too = false);
/// Makes a folder with all that lead to it; 0, or the error that kept it from that.
unsigned long MakeFolders(const std::string& path);
/// Stores bytes as a new file beside `path`, which it replaces once it has reached the disk. A
/// failure leaves the old file as it was, and nothing else behind.
Result<void, FileFailure> ReplaceFile(const std::string& path, std::string_view bytes);
/// The same, but a pipe or a device that `path` names takes the bytes as they are.
Result<void, FileFailure> ReplaceFileOrPut(const std::string& path, std::string_view bytes);
/// Adds bytes to a file in one write, and takes back what a full disk left of them.
Result<void, FileFailure> AppendToFile(const std::string& path, std::string_view bytes);
Result<void, FileFailure> DeleteOneFile(const std::string& path);
/// Opens a file, a pipe or a device to be written from its beginning on.
Result<std::unique_ptr<OutputFile>> CreateOutputFile(const std::string& path);

}  // namespace kestrune::platform::win32
