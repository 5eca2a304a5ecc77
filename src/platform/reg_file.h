#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files_api.h"
#include "platform/registry_api.h"
#include "platform/result.h"

namespace kestrune::platform {

/// One step of a registry file. A value belongs to the key that was created last.
struct RegFileChange {
  enum class Kind { kCreateKey, kDeleteKey, kSetValue, kDeleteValue };

  Kind kind = Kind::kCreateKey;
  RegRoot root = RegRoot::kLocalMachine;
  std::string key = {};   ///< below the root
  std::string name = {};  ///< empty for the default value
  RegType type = RegType::kNone;
  std::vector<std::byte> data = {};  ///< texts as UTF-8 with their closing NUL
};

/// The first fault of a registry file.
struct RegFileFault {
  int line = 0;  ///< from 1
  std::string reason;
};

/// Reads registry text step by step: REGEDIT4 in the system's code page, or version 5 in UTF-16
/// or in UTF-8, where a line without a mark that is no UTF-8 is taken as Latin-1. Text given as
/// hex(1), hex(2) or hex(7) becomes UTF-8 like quoted text, which may span lines; other bytes are
/// taken as they are. What breaks the registry's limits is a fault. The bytes and the files must
/// outlive this.
class RegFileReader {
 public:
  RegFileReader(std::string_view bytes, FilesApi& files);

  /// The next step, good until the one after it; null at the end, and at a fault.
  const RegFileChange* Next();
  const std::optional<RegFileFault>& Fault() const { return fault_; }

 private:
  enum class Encoding { kCodePage, kUtf8, kUtf16 };

  Result<void> ReadHeader(std::string_view bytes);
  std::string_view TakeLine();
  Result<std::string_view> NextLine();
  Result<void> TakeQuoted(std::string_view& line, std::string& text);
  Result<void> ReadLine();
  Result<void> ReadKey(std::string_view line);
  Result<void> ReadValue(std::string_view line);
  Result<void> ReadData(std::string_view data);
  Result<void> ReadText(std::string_view data);
  Result<void> ReadDword(std::string_view data);
  Result<void> ReadHex(std::string_view data);
  Result<void> ReadHexBytes(std::string_view data, std::string& bytes);

  FilesApi& files_;
  std::string text_;  ///< where the bytes aren't UTF-8 as they stand
  std::string line_;  ///< where a line isn't
  std::string_view rest_;
  Encoding encoding_ = Encoding::kCodePage;
  bool has_mark_ = false;
  bool is_version5_ = false;
  int line_number_ = 0;
  int first_line_ = 0;            ///< of the step, where quoted text spans lines; else 0
  const char* no_key_ = nullptr;  ///< why no value may stand here; null where one may
  RegFileChange change_;
  std::optional<RegFileFault> fault_;
};

/// The lines of a registry file that were carried out.
struct ImportedLines {
  int keys = 0;
  int values = 0;
};

/// Makes all the changes that registry text names as one group, or none, and passes over what
/// describes the machine's hardware. `file` is what a person calls it; the reason of a failure is a
/// sentence, or "FILE:LINE: " and the fault.
Result<ImportedLines> ImportRegFile(std::string_view bytes, const std::string& file,
                                    FilesApi& files, RegistryApi& registry);

}  // namespace kestrune::platform
