#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace kestrune::platform {

/// Text turned into the bytes of a code page. A character that the page lacks became "?" and is
/// counted as lost.
struct EncodedText {
  std::string bytes;
  int lost = 0;
};

/// What a byte of no character becomes, with the byte added to it.
inline constexpr char32_t kKeptByte = 0xF700;

/// What is wrong with a file that can't be read or written.
enum class FileFault {
  kNoFile,     ///< there is none, and its folder is there
  kNoFolder,   ///< its folder isn't there
  kNotUsable,  ///< it is a folder, a device or a pipe, or there is no right to it
  kOther,      ///< too long, a full disk, and so on
};

struct FileFailure {
  FileFault fault = FileFault::kOther;
  std::string reason;  ///< what the system says of it, without a full stop, or its size
};

/// What stands in a folder, by name without regard to case in order.
struct FolderListing {
  std::vector<std::string> folders;  ///< without "." and ".."
  std::vector<std::string> programs;
};

/// A file that is being written. It is closed when this is destroyed.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  /// Adds bytes in one write. The reason of a failure is what the system says of it.
  virtual Result<void> Put(std::string_view bytes) = 0;
};

/// The program folder and its data files, any other file, and the machine's code page.
///
/// Paths are relative to the program folder unless told otherwise, with backslashes or slashes and
/// with or without a leading one ("\DATA\mt.dat"); names are matched without regard to letter
/// case. A path that leaves the folder ("..") names nothing.
class FilesApi {
 public:
  virtual ~FilesApi() = default;

  /// A file's bytes as they are, up to 16 MB; nothing when it can't be read or has more.
  virtual std::optional<std::string> ReadBytes(std::string_view path) = 0;
  /// The names of the files in a folder that end in `ending` (".dat"), sorted, without folders.
  virtual std::vector<std::string> ListFiles(std::string_view folder, std::string_view ending) = 0;
  /// Where a file stands on this machine, to be handed to a face or another program; nothing when
  /// there is no such file.
  virtual std::optional<std::string> Locate(std::string_view path) = 0;
  /// Whether a file is a picture that a face can show.
  virtual bool IsPicture(std::string_view path) = 0;
  /// The bytes of any ordinary file or pipe of the machine, by the path that its own programs use,
  /// up to 256 MB. The reason of a failure is what the system says of it, or its size.
  virtual Result<std::string> ReadAnyFile(const std::string& path) = 0;

  /// Writes any file of the machine. It takes the place of the old one, with its rights, only when
  /// it is whole; a link stays and what it leads to is replaced. What is no ordinary file, such as
  /// a pipe, is written as it is. A failure leaves the old file as it was.
  virtual Result<void> ReplaceAnyFile(const std::string& path, std::string_view bytes) = 0;
  /// Opens any file of the machine to be written from its beginning on, for what others may read
  /// while it grows.
  virtual Result<std::unique_ptr<OutputFile>> CreateAnyFile(const std::string& path) = 0;
  /// A path as it leads from the folder that the program was started in, without "." and "..".
  virtual std::string WholePath(const std::string& path) = 0;

  /// The program folder as text, as the machine spells it, without a separator at the end.
  virtual std::string ProgramFolder() = 0;
  /// The bytes of an ordinary file, up to 16 MB, by a whole path. One that begins with the text of
  /// the program folder is a program file; any other is the machine's own.
  virtual Result<std::string, FileFailure> ReadFile(const std::string& path) = 0;
  /// Stores a program file: as a new file that takes the old one's place once it is whole on the
  /// disk, under the given spelling of its name. Missing folders are made; files that were
  /// installed stay as they are and are covered.
  virtual Result<void, FileFailure> WriteFile(std::string_view path, std::string_view bytes) = 0;
  /// Adds to a program file that WriteFile stored, in one write; a failure leaves the file as it
  /// was. For what grows while others may read it.
  virtual Result<void, FileFailure> AppendFile(std::string_view path, std::string_view bytes) = 0;
  /// Deletes a program file that WriteFile stored; one that was installed stays.
  virtual Result<void, FileFailure> RemoveFile(std::string_view path) = 0;
  /// The places where a person's search for a program begins.
  virtual std::vector<std::string> Drives() = 0;
  /// The folders and the programs in any folder of the machine, by its whole path; nothing when it
  /// can't be opened.
  virtual std::optional<FolderListing> ListFolder(const std::string& path) = 0;
  /// A name in a folder as a whole path, with the separator that the machine's paths have; ".." is
  /// the folder above, or the folder itself where there is none.
  virtual std::string PathOf(const std::string& folder, const std::string& name) = 0;

  /// Turns single-byte text into UTF-8. `code_page` 0 is the system's. A byte that the code page
  /// doesn't define is kept as the character kKeptByte + byte, so that EncodeText gives it back; a
  /// code page that isn't known counts as the system's.
  virtual std::string DecodeText(std::string_view bytes, int code_page) = 0;
  /// Whether DecodeText knows a code page by its number.
  virtual bool HasCodePage(int code_page) = 0;
  /// Turns UTF-8 into single-byte text, as DecodeText turns it back.
  virtual EncodedText EncodeText(std::string_view text, int code_page) = 0;
};

}  // namespace kestrune::platform
