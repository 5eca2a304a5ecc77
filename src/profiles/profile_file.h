#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/field_reader.h"
#include "platform/clock_word.h"
#include "platform/files_api.h"
#include "platform/result.h"
#include "regedit/database.h"

/// The files DATA\Presets\<name>.ksp. Every line is one field in double quotes, in the machine's
/// code page: the signature, the card, two switches, pairs of a value's name and its number, then
/// perhaps a pair of clocks and an application. Hand-made files may put several fields on a line.
namespace kestrune::profiles {

inline constexpr std::string_view kFolder = "DATA/Presets/";
inline constexpr std::string_view kEnding = ".ksp";
inline constexpr std::string_view kSignature = "ksp";
/// The card of a profile whose clocks are meant for all.
inline constexpr std::string_view kAnyCard = "999";
inline constexpr std::string_view kClockRecord = "Clock speed";
inline constexpr std::string_view kApplicationRecord = "App to run";

/// Why a profile can't be applied, by the number that its message gives.
enum class ProfileError {
  kInvalidCall = 5,
  kOverflow = 6,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kInputPastEnd = 62,
  kPathFileAccess = 75,
  kPathNotFound = 76,
};

/// What the error means, in English as its message says it.
std::string_view ErrorText(ProfileError error);
ProfileError ErrorOf(platform::FileFault fault);

template <class T>
using ProfileResult = platform::Result<T, ProfileError>;

/// What stands before the records.
struct ProfileHead {
  std::string card;              ///< a device identifier, or kAnyCard
  bool cleans = false;           ///< all known values are deleted first
  bool restores_clocks = false;  ///< once the application has ended
};

/// A pair of fields. What the second one means depends on the first.
struct ProfileRecord {
  std::string name;
  std::string value;
  int line = 0;  ///< from 1, of the name
};

/// Reads a profile step by step, in the order of these calls.
class ProfileReader {
 public:
  /// The text must outlive the reader.
  explicit ProfileReader(std::string_view text) : fields_(text) {}

  /// Whether this is a profile at all.
  bool ReadSignature();
  ProfileResult<ProfileHead> ReadHead();
  /// The next record; nothing at the end.
  ProfileResult<std::optional<ProfileRecord>> ReadRecord();
  /// A single field, such as the command line behind an application's folder.
  ProfileResult<std::string> ReadField();
  bool AtEnd() const { return fields_.AtEnd(); }
  /// The line, from 1, of the next field.
  int Line() const { return fields_.Line(); }

 private:
  core::FieldReader fields_;
};

/// The number of a value record.
ProfileResult<std::int32_t> ReadNumber(std::string_view text);
/// The interface to which a value of that name belongs on Windows 9x; nothing for a name that is
/// too short to tell.
std::optional<regedit::Category> CategoryOn9x(std::string_view name);
/// The clocks of a clock record, in MHz: "400,500".
ProfileResult<platform::ClockPair> ReadClockText(std::string_view text);

/// Puts the text of a profile together, in UTF-8 with CR LF.
class ProfileWriter {
 public:
  explicit ProfileWriter(const ProfileHead& head);

  void AddField(std::string_view field);
  /// The fields hold no double quote and no line end.
  void AddRecord(std::string_view name, std::string_view value);
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

/// Where a profile stands in the program folder.
std::string PathInProgramFolder(std::string_view name);
/// The same as a whole path, as the program's own texts spell it.
std::string WholePath(platform::FilesApi& files, std::string_view file_name);
/// The path of the profile that a person means: a name of the list, or a file where the text has a
/// separator or ends in kEnding.
std::string PathOf(platform::FilesApi& files, const std::string& text);
/// The names of all profiles, sorted.
std::vector<std::string> ListProfiles(platform::FilesApi& files);
/// Whether a field of a profile can hold the text: without a double quote or a line end, and in the
/// machine's code page.
bool CanHold(platform::FilesApi& files, std::string_view text);
/// Whether a file can have that name: not empty, no device's name, without \ / : * ? " < > | and
/// control characters, without a blank or a point at the end, and in the machine's code page.
bool IsProfileName(platform::FilesApi& files, std::string_view name);

}  // namespace kestrune::profiles
