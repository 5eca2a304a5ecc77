#include "cli/file_checks.h"
#include "cli/profile_commands.h"
#include "platform/plain_text.h"
#include "profiles/check_profile.h"
#include "profiles/profile_file.h"

namespace kestrune::cli {

namespace {

/// Prints what was found in files, at most so much of each.
class Report {
 public:
  explicit Report(Run& run) : run_(run) { run_.out.BeginList(); }

  void Tell(const std::string& file, const platform::Findings& findings) {
    constexpr std::size_t kMost = 100;
    for (std::size_t i = 0; i < findings.size() && i < kMost; ++i) Tell(file, findings[i]);
    if (findings.size() > kMost) {
      Tell(file, {0, "and " + std::to_string(findings.size() - kMost) + " more", false});
    }
  }

  Status Answer() const { return has_fault_ ? Status::kNo : Status::kDone; }

 private:
  void Tell(const std::string& file, const platform::Finding& finding) {
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
  bool has_fault_ = false;
};

platform::Findings CheckOwnProfile(forms::Program& program, platform::FilesApi& files,
                                   const std::string& file) {
  const auto bytes = files.ReadFile(file);
  if (!bytes) return Unreadable(bytes.Reason().reason);
  return profiles::CheckProfile(files.DecodeText(bytes.Value(), 0), files, &program.Versions());
}

void CheckAll(platform::Inspection& inspection, FileChecks& checks, Report& report) {
  for (const platform::FoundFile& found : inspection.AllFiles()) {
    if (!found.remark.empty()) {
      const bool counts = found.is_folder || FileChecks::IsToldByPlace(found.path);
      if (counts) report.Tell(found.path, {{0, found.remark, !found.is_fault}});
    } else if (const auto findings = checks.CheckByPlace(found.path)) {
      report.Tell(found.path, *findings);
    }
  }
  for (const std::string& picture : checks.MissingPictures()) {
    report.Tell(picture, {{0, "it can be asked for and isn't there"}});
  }
}

}  // namespace

Status CheckProfiles(Run& run, forms::Program& program) {
  platform::FilesApi& files = run.session->Files();
  Report report(run);
  const std::string& file = run.arguments.Word("FILE");
  std::vector<std::string> paths;
  if (!file.empty()) {
    paths.push_back(profiles::PathOf(files, file));
  } else {
    for (const std::string& name : files.ListFiles(profiles::kFolder, profiles::kEnding)) {
      if (auto path = files.Locate(std::string(profiles::kFolder) + name)) {
        paths.push_back(std::move(*path));
      }
    }
  }
  for (const std::string& path : paths) report.Tell(path, CheckOwnProfile(program, files, path));
  return report.Answer();
}

Status CheckFiles(Run& run) {
  const auto inspection = run.machines.Inspect(run.options.machine);
  if (!inspection.Ok()) {
    run.streams.Complain(inspection.Reason());
    return Status::kImpossible;
  }
  FileChecks checks(*inspection.Value());
  Report report(run);
  const std::vector<std::string>& files = run.arguments.List("FILE");
  if (files.empty()) CheckAll(*inspection.Value(), checks, report);
  bool all_told = true;
  for (const std::string& file : files) {
    if (const auto findings = checks.Check(file)) {
      report.Tell(file, *findings);
    } else {
      run.streams.Complain("what " + file +
                           " is for can't be told from its place, its ending or "
                           "its first field.");
      all_told = false;
    }
  }
  return all_told ? report.Answer() : Status::kWrongUsage;
}

}  // namespace kestrune::cli
