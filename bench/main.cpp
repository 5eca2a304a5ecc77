// kestrune_bench: what the program costs beside what it stands on. Each row compares two ways of
// doing the same, measured in turn in this one run. Status 1: a limit was missed.
#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"
#include "failure.h"
#include "monitoring.h"
#include "processes.h"
#include "profiles.h"
#include "registry.h"
#include "whole_programs.h"

namespace {

using namespace kestrune::bench;

/// A folder for one run, gone with it.
class WorkFolder {
 public:
  WorkFolder() {
    path_ = (std::filesystem::temp_directory_path() / "kestrune-bench-XXXXXX").string();
    if (mkdtemp(path_.data()) == nullptr) GiveUp(path_ + " can't be made.");
  }
  ~WorkFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

int Print(const std::vector<Row>& rows) {
  int missed = 0;
  std::printf("%-66s %10s %10s %6s %6s %6s\n", "medians: what : against what", "ours", "bare",
              "ratio", "aim", "limit");
  for (const Row& row : rows) {
    const bool is_missed = row.Ratio() > row.limit.most;
    const double scale = row.unit == Unit::kMicroseconds ? 1e6 : 1.0 / 1024;
    std::printf("%-66s %10.2f %10.2f %6.2f %6.2f %6.2f%s\n", row.what.c_str(), row.ours * scale,
                row.bare * scale, row.Ratio(), row.limit.aim, row.limit.most,
                is_missed ? "  missed" : "");
    if (is_missed) ++missed;
  }
  std::printf(
      "Microseconds of processor time, user and system (for create + set + close of time that went "
      "by);\nmemory in KB at its highest.\n");
  return missed;
}

}  // namespace

int main(int argument_count, char** arguments) {
  const bool quick = argument_count == 2 && std::string_view(arguments[1]) == "--quick";
  if (argument_count > 1 && !quick) {
    std::fprintf(stderr, "usage: kestrune_bench [--quick]\n");
    return 2;
  }
  // A quick run tells that everything works, and nothing about speed.
  const WorkFolder folder;
  std::vector<Row> memory = CompareMemory(folder.Path(), quick ? 2 : 5);
  std::vector<Row> rows = CompareTimes(folder.Path(), quick ? 2 : 61, quick ? 2000 : 1000000);
  memory.push_back(CompareLongSampling(folder.Path()));
  for (const Row& row : CompareSampling(folder.Path(), quick ? 1 : 7)) rows.push_back(row);
  for (const Row& row : memory) rows.push_back(row);
  for (const Row& row : CompareRegistry(folder.Path(), quick ? 2 : 301)) rows.push_back(row);
  for (const Row& row : CompareProfiles(folder.Path(), quick ? 2 : 101)) rows.push_back(row);
  for (const Row& row : CompareImport(folder.Path(), quick ? 2 : 15)) rows.push_back(row);
  for (const Row& row : CompareProcesses(folder.Path(), quick ? 2 : 31, quick ? 20 : 3000)) {
    rows.push_back(row);
  }
  for (const Row& row : CompareCheck(folder.Path(), quick ? 1 : 31)) rows.push_back(row);
  const int missed = Print(rows);
  return missed > 0 && !quick ? 1 : 0;
}
