#include "profiles/check_profile.h"

#include <algorithm>
#include <set>
#include <string>

#include "platform/case_fold.h"
#include "profiles/profile_file.h"
#include "regedit/value_place.h"

namespace kestrune::profiles {

namespace {

bool IsCard(std::string_view card) {
  constexpr std::size_t kDigits = 4;
  return card == kAnyCard ||
         (card.size() == kDigits && card.find_first_not_of("0123456789abcdefABCDEF") == card.npos);
}

class Checker {
 public:
  Checker(std::string_view text, platform::FilesApi& files, const detect::VersionState* versions)
      : reader_(text), files_(files), versions_(versions) {}

  platform::Findings Run() {
    if (!reader_.ReadSignature()) {
      Add(1, "this is no speed profile: it doesn't begin with \"ksp\"");
      return std::move(findings_);
    }
    const int line = reader_.Line();
    const auto head = reader_.ReadHead();
    if (!head) {
      Add(reader_.Line(), "the file ends before its first value");
      return std::move(findings_);
    }
    if (!IsCard(head.Value().card)) {
      Add(line, "\"" + head.Value().card + "\" is no card's identifier of four hexadecimal digits");
    }
    if (versions_ != nullptr && !regedit::SavesDirect3D(*versions_)) {
      Note(line, "with this driver a profile saves no Direct3D values");
    }
    while (CheckRecord()) {
    }
    return std::move(findings_);
  }

 private:
  void Add(int line, std::string reason) { findings_.push_back({line, std::move(reason), false}); }
  void Note(int line, std::string reason) { findings_.push_back({line, std::move(reason), true}); }

  bool CheckRecord() {
    if (reader_.AtEnd()) return false;
    const int line = reader_.Line();
    const auto read = reader_.ReadRecord();
    if (!read) {
      Add(line, "the file ends in the middle of a record");
      return false;
    }
    const ProfileRecord& record = *read.Value();
    if (record.name == kApplicationRecord) {
      CheckApplication(record);
      return false;
    }
    if (record.name == kClockRecord) {
      if (!ReadClockText(record.value)) {
        Add(line, "\"" + record.value + "\" is no pair of clocks in whole MHz");
      }
    } else {
      CheckValue(record);
    }
    return true;
  }

  void CheckApplication(const ProfileRecord& record) {
    if (!record.value.empty() && !files_.ListFolder(record.value)) {
      Add(record.line, "the folder " + record.value + " can't be opened");
    }
    if (const auto command = reader_.ReadField(); !command) {
      Add(record.line, "the application has no command line");
    } else if (!reader_.AtEnd()) {
      Add(reader_.Line(), "what follows the application is never read");
    }
  }

  void CheckValue(const ProfileRecord& record) {
    const auto number = ReadNumber(record.value);
    if (!number) {
      const bool is_long = number.Reason() == ProfileError::kOverflow;
      Add(record.line, "\"" + record.value + "\", the value of " + record.name + ", " +
                           (is_long ? "is beyond 32 bits" : "is no whole number"));
    }
    if (!names_.insert(platform::FoldCase(record.name)).second) {
      Add(record.line, record.name + " stands here a second time");
    }
    if (versions_ == nullptr || versions_->OSFamily != detect::kWindows9x) return;
    const auto category = CategoryOn9x(record.name);
    if (!category) {
      Note(record.line, record.name + " is too short a name to be written on this system");
    } else if (*category == regedit::Category::kOpenGL &&
               platform::FoldCase(record.name).starts_with("D3D")) {
      Note(record.line, record.name + " goes to the OpenGL key on this system");
    }
  }

  ProfileReader reader_;
  platform::FilesApi& files_;
  const detect::VersionState* versions_;
  std::set<std::string> names_;
  platform::Findings findings_;
};

}  // namespace

platform::Findings CheckProfile(std::string_view text, platform::FilesApi& files,
                                const detect::VersionState* versions) {
  return Checker(text, files, versions).Run();
}

}  // namespace kestrune::profiles
