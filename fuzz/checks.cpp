// Data files of any content are checked to their end, and what is found stands in their lines, in
// order.
#include <algorithm>

#include "input.h"
#include "lang/check_language.h"
#include "monitor/check_recording.h"
#include "ogl/check_card_table.h"
#include "platform/check_reg_file.h"
#include "platform/picture_size.h"
#include "platform/portable/files.h"
#include "platform/portable/machine_description.h"
#include "wizard/check_tuning.h"

using namespace kestrune;

namespace {

void RequireInOrder(const platform::Findings& findings, std::size_t size) {
  const auto comes_before = [](const auto& a, const auto& b) { return a.line < b.line; };
  fuzz::Require(std::is_sorted(findings.begin(), findings.end(), comes_before));
  for (const platform::Finding& finding : findings) {
    fuzz::Require(!finding.reason.empty() && finding.line >= 0 &&
                  finding.line <= static_cast<int>(size) + 1);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::Text(data, size);
  platform::portable::FolderFiles files({}, 1252);
  RequireInOrder(lang::CheckLanguage("a.dat", text, {}, files), size);
  for (const char* table : {"mt", "ps", "vs", "af", "aa"}) {
    RequireInOrder(ogl::CheckCardTable(table, text), size);
  }
  const auto files_of = [](const std::string&) { return std::vector<std::string>{"04.dat"}; };
  RequireInOrder(wizard::CheckIndex(text, {"04", "14"}, files_of), size);
  RequireInOrder(wizard::CheckTuning(text), size);
  RequireInOrder(monitor::CheckRecording(text), size);
  RequireInOrder(platform::CheckRegFile(text, files), size);
  const auto sound = [](const std::string&) { return platform::Findings(); };
  RequireInOrder(platform::portable::CheckMachineDescription(text, "a.toml", sound).findings, size);
  (void)platform::SizeOfPicture(text);
  return 0;
}
