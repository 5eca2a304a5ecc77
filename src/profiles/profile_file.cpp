#include "profiles/profile_file.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "core/number.h"
#include "platform/case_fold.h"
#include "platform/utf8.h"

namespace kestrune::profiles {

using platform::FailWith;

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kOn = "1";
constexpr std::string_view kOff = "0";

struct ErrorRow {
  ProfileError error;
  std::string_view text;
};

constexpr ErrorRow kErrors[] = {
    {ProfileError::kInvalidCall, "Invalid procedure call or argument"},
    {ProfileError::kOverflow, "Overflow"},
    {ProfileError::kTypeMismatch, "Type mismatch"},
    {ProfileError::kFileNotFound, "File not found"},
    {ProfileError::kInputPastEnd, "Input past end of file"},
    {ProfileError::kPathFileAccess, "Path/File access error"},
    {ProfileError::kPathNotFound, "Path not found"},
};

ProfileError ErrorOf(core::NumberFault fault) {
  return fault == core::NumberFault::kOverflow ? ProfileError::kOverflow
                                               : ProfileError::kTypeMismatch;
}

ProfileResult<std::int16_t> ReadClock(std::string_view text) {
  using Limits = std::numeric_limits<std::int16_t>;
  const auto mhz = core::ParseWholeNumber(text, Limits::min(), Limits::max());
  if (!mhz) return FailWith(ErrorOf(mhz.Reason()));
  return static_cast<std::int16_t>(mhz.Value());
}

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

/// What Windows keeps for its devices, whatever ending follows.
bool IsDevice(std::string_view name) {
  const std::string_view stem = core::TrimBlanks(name.substr(0, name.find('.')));
  for (const std::string_view device :
       {"CON", "PRN", "AUX", "NUL", "CLOCK$", "CONIN$", "CONOUT$"}) {
    if (platform::SameWithoutCase(stem, device)) return true;
  }
  const bool is_numbered = stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9';
  return is_numbered && (platform::SameWithoutCase(stem.substr(0, 3), "COM") ||
                         platform::SameWithoutCase(stem.substr(0, 3), "LPT"));
}

}  // namespace

std::string_view ErrorText(ProfileError error) {
  return std::find_if(std::begin(kErrors), std::end(kErrors),
                      [error](const ErrorRow& row) { return row.error == error; })
      ->text;
}

ProfileError ErrorOf(platform::FileFault fault) {
  switch (fault) {
    case platform::FileFault::kNoFile:
      return ProfileError::kFileNotFound;
    case platform::FileFault::kNoFolder:
      return ProfileError::kPathNotFound;
    case platform::FileFault::kNotUsable:
      return ProfileError::kPathFileAccess;
    case platform::FileFault::kOther:
      break;
  }
  return ProfileError::kInvalidCall;
}

bool ProfileReader::ReadSignature() { return fields_.Next() == kSignature; }

ProfileResult<std::string> ProfileReader::ReadField() {
  std::optional<std::string> field = fields_.Next();
  if (!field) return FailWith(ProfileError::kInputPastEnd);
  return *std::move(field);
}

ProfileResult<ProfileHead> ProfileReader::ReadHead() {
  std::optional<std::string> card = fields_.Next();
  const std::optional<std::string> cleans = fields_.Next();
  const std::optional<std::string> restores = fields_.Next();
  if (!card || !cleans || !restores) return FailWith(ProfileError::kInputPastEnd);
  return ProfileHead{*std::move(card), *cleans == kOn, core::ParseNumber(*restores) == 1.0};
}

ProfileResult<std::optional<ProfileRecord>> ProfileReader::ReadRecord() {
  const int line = fields_.Line();
  std::optional<std::string> name = fields_.Next();
  if (!name) return std::optional<ProfileRecord>();
  std::optional<std::string> value = fields_.Next();
  if (!value) return FailWith(ProfileError::kInputPastEnd);
  return std::optional(ProfileRecord{*std::move(name), *std::move(value), line});
}

ProfileResult<std::int32_t> ReadNumber(std::string_view text) {
  const auto number = core::ParseWholeNumber(text);
  if (!number) return FailWith(ErrorOf(number.Reason()));
  return number.Value();
}

std::optional<regedit::Category> CategoryOn9x(std::string_view name) {
  constexpr std::size_t kPrefixSize = 4;
  const std::size_t prefix = platform::OffsetBehind(name, kPrefixSize);
  if (name.size() == prefix) return std::nullopt;
  const bool is_direct3d = platform::SameWithoutCase(name.substr(0, prefix), "d3d_");
  return is_direct3d ? regedit::Category::kDirect3D : regedit::Category::kOpenGL;
}

ProfileResult<platform::ClockPair> ReadClockText(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == text.npos) return FailWith(ProfileError::kTypeMismatch);
  const auto core = ReadClock(text.substr(0, comma));
  if (!core) return FailWith(core.Reason());
  const auto memory = ReadClock(text.substr(comma + 1));
  if (!memory) return FailWith(memory.Reason());
  return platform::ClockPair{core.Value(), memory.Value()};
}

ProfileWriter::ProfileWriter(const ProfileHead& head) {
  AddField(kSignature);
  AddField(head.card);
  AddField(head.cleans ? kOn : kOff);
  AddField(head.restores_clocks ? kOn : kOff);
}

void ProfileWriter::AddField(std::string_view field) {
  text_.append("\"").append(field).append("\"").append(kLineEnd);
}

void ProfileWriter::AddRecord(std::string_view name, std::string_view value) {
  AddField(name);
  AddField(value);
}

std::string PathInProgramFolder(std::string_view name) {
  return std::string(kFolder).append(name).append(kEnding);
}

std::string WholePath(platform::FilesApi& files, std::string_view file_name) {
  return (files.ProgramFolder() + "\\DATA\\Presets\\").append(file_name);
}

std::string PathOf(platform::FilesApi& files, const std::string& text) {
  const bool is_file = text.find_first_of("/\\") != text.npos ||
                       platform::FoldCase(text).ends_with(platform::FoldCase(kEnding));
  return is_file ? text : WholePath(files, text + std::string(kEnding));
}

std::vector<std::string> ListProfiles(platform::FilesApi& files) {
  std::vector<std::string> names = files.ListFiles(kFolder, kEnding);
  for (std::string& name : names) name.resize(name.size() - kEnding.size());
  return names;
}

bool CanHold(platform::FilesApi& files, std::string_view text) {
  return text.find_first_of("\"\r\n") == text.npos && files.EncodeText(text, 0).lost == 0;
}

bool IsProfileName(platform::FilesApi& files, std::string_view name) {
  constexpr std::string_view kForbidden = "/\\:*?\"<>|";
  return !name.empty() && name.find_first_of(kForbidden) == name.npos &&
         std::none_of(name.begin(), name.end(), IsControl) && !name.ends_with(' ') &&
         !name.ends_with('.') && !IsDevice(name) && files.EncodeText(name, 0).lost == 0;
}

}  // namespace kestrune::profiles
