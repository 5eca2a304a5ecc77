#include <algorithm>
#include <filesystem>
#include <optional>

#include "cli/profile_commands.h"
#include "platform/case_fold.h"
#include "platform/plain_text.h"
#include "profiles/check_profile.h"
#include "profiles/profile_file.h"
#include "regedit/check_database.h"

namespace kestrune::cli {

namespace {

/// A file that is checked: what a person calls it, and what it is for.
class FileCheck {
 public:
  FileCheck(Run& run, platform::FilesApi& files, const detect::VersionState* versions)
      : run_(run), files_(files), versions_(versions) {
    run_.out.BeginList();
  }

  /// One file by its path.
  void Check(const std::string& file) {
    const auto bytes = files_.ReadFile(file);
    if (!bytes) return Tell(file, {0, "it can't be read: " + bytes.Reason().reason});
    const std::string text = files_.DecodeText(bytes.Value(), 0);
    for (const core::Finding& finding : FindingsOf(file, text)) Tell(file, finding);
  }

  /// All files of a folder in the program folder.
  void CheckFolder(std::string_view folder, std::string_view ending) {
    for (const std::string& name : files_.ListFiles(folder, ending)) {
      if (const auto file = files_.Locate(std::string(folder) + name)) Check(*file);
    }
  }

  Status Answer() const { return has_fault_ ? Status::kNo : Status::kDone; }

 private:
  core::Findings FindingsOf(const std::string& file, const std::string& text) const {
    const std::filesystem::path path(file);
    const bool is_database =
        platform::SameWithoutCase(path.parent_path().filename().string(), "Database") &&
        platform::SameWithoutCase(path.extension().string(), ".dat");
    if (is_database) return regedit::CheckDatabase(path.stem().string(), text);
    const bool is_profile =
        platform::SameWithoutCase(path.extension().string(), profiles::kEnding) ||
        core::FieldReader(text).Next() == profiles::kSignature;
    if (is_profile) return profiles::CheckProfile(text, files_, versions_);
    return {{0, "it is neither a speed profile nor a database of values"}};
  }

  void Tell(const std::string& file, const core::Finding& finding) {
    has_fault_ = has_fault_ || !finding.is_note;
    std::string line = platform::PlainText(file);
    if (finding.line > 0) line += ":" + std::to_string(finding.line);
    run_.out.Line(line + (finding.is_note ? ": note: " : ": ") +
                  platform::PlainText(finding.reason));
    Json item = {{"file", file}, {"line", finding.line}, {"reason", finding.reason}};
    if (finding.is_note) item["note"] = true;
    run_.out.Item(std::move(item));
  }

  Run& run_;
  platform::FilesApi& files_;
  const detect::VersionState* versions_;
  bool has_fault_ = false;
};

}  // namespace

Status CheckProfiles(Run& run, forms::Program& program) {
  platform::FilesApi& files = run.session->Files();
  FileCheck check(run, files, &program.Versions());
  const std::string& file = run.arguments.Word("FILE");
  if (file.empty()) {
    check.CheckFolder(profiles::kFolder, profiles::kEnding);
  } else {
    check.Check(profiles::PathOf(files, file));
  }
  return check.Answer();
}

Status CheckFiles(Run& run, Session& session) {
  FileCheck check(run, session.Files(), nullptr);
  const std::vector<std::string>& files = run.arguments.List("FILE");
  if (files.empty()) {
    check.CheckFolder(regedit::kDatabaseFolder, ".dat");
    check.CheckFolder(profiles::kFolder, profiles::kEnding);
  }
  for (const std::string& file : files) check.Check(file);
  return check.Answer();
}

}  // namespace kestrune::cli
