// Speed profiles and databases of any content are checked to their end, and what a profile's reader
// takes for a number is one.
#include "input.h"
#include "platform/portable/files.h"
#include "profiles/check_profile.h"
#include "profiles/profile_file.h"
#include "regedit/check_database.h"

using namespace kestrune;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::Text(data, size);
  platform::portable::FolderFiles files({}, 1252);
  const detect::VersionState versions{.OSFamily = 0, .DrvVer = 4523};
  const auto fits = [size](const platform::Findings& findings) {
    // No file has more lines than bytes, and no line more than a few findings.
    for (const platform::Finding& finding : findings) {
      fuzz::Require(finding.line >= 0 && finding.line <= static_cast<int>(size) + 1);
    }
  };
  fits(profiles::CheckProfile(text, files, &versions));
  fits(regedit::CheckDatabase("4523ogl", text));
  profiles::ProfileReader reader(text);
  if (!reader.ReadSignature() || !reader.ReadHead()) return 0;
  for (auto record = reader.ReadRecord(); record && record.Value(); record = reader.ReadRecord()) {
    (void)profiles::ReadNumber(record.Value()->value);
    (void)profiles::ReadClockText(record.Value()->value);
  }
  return 0;
}
