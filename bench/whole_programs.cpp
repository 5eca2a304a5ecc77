#include "whole_programs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "bare_store.h"
#include "failure.h"

namespace kestrune::bench {

namespace {

constexpr Limit kStateLimit{3.0, 3.0};
constexpr Limit kPaintLimit{1.5, 1.25};
constexpr Limit kManyValuesLimit{1.2, 1.2};
constexpr Limit kQueryLimit{1.6, 1.3};
constexpr Limit kGetMemoryLimit{2.0, 1.7};
constexpr Limit kWindowMemoryLimit{1.3, 1.3};

constexpr const char* kControl = "direct3d.antialiasing.antialiasing-mode";

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// Runs a program to its end, without its output, and gives what it took.
rusage Run(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
  }
  pid_t child = 0;
  const int error =
      posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) GiveUp(words.front() + " can't be started.");
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0) GiveUp(words.front() + " failed.");
  return usage;
}

Measure Memory(std::vector<std::string> words) {
  return [words = std::move(words)] { return static_cast<double>(Run(words).ru_maxrss) * 1024; };
}

/// The command lines of the programs to measure, in a folder and an environment of their own.
class Programs {
 public:
  explicit Programs(const std::string& folder)
      : folder_(folder),
        programs_(std::filesystem::read_symlink("/proc/self/exe").parent_path().string() + "/") {
    setenv("XDG_DATA_HOME", folder.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    setenv("KESTRUNE_STORE", Store("whole").c_str(), 1);
    setenv("KESTRUNE_MACHINE", "winxp-geforce7800", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // It makes the store.
    ::kestrune::bench::Run(Get("whole"));
  }

  using Words = std::vector<std::string>;
  std::string Store(const std::string& name) const { return folder_ + "/" + name + ".store"; }
  Words Get(const std::string& store) const {
    return {programs_ + "kestrunectl", "--store", Store(store), "get", kControl};
  }
  Words Query(const std::string& store) const {
    return {"sqlite3", Store(store),
            "SELECT data FROM registry_value WHERE key = 3 AND folded = 'VERSION'"};
  }
  Words State() const { return {programs_ + "kestrunectl", "state"}; }
  Words BareOpen() const { return {programs_ + "bench_bare_open", Store("whole")}; }
  Words Window() const { return {programs_ + "bench_window"}; }
  Words OneWord() const { return {programs_ + "bench_empty_window"}; }

  /// A copy of the store with so many values more.
  void MakeStore(const std::string& name, int values) const {
    std::filesystem::copy_file(Store("whole"), Store(name));
    BareStore store(Store(name));
    store.BeginChange();
    const std::int64_t root = store.FindKey("HKEY_LOCAL_MACHINE");
    std::int64_t key = 0;
    for (int i = 0; i < values; ++i) {
      const std::string number = std::to_string(i);
      if (i % 100 == 0)
        key = store.AddKey(root, "HKEY_LOCAL_MACHINE\\MANY" + number, "Many" + number);
      store.PutValue(key, "VALUE" + number, 1);
    }
    store.Commit();
  }

 private:
  std::string folder_;
  std::string programs_;
};

bool HasQueryProgram() { return std::system("command -v sqlite3 > /dev/null") == 0; }

}  // namespace

Measure ProcessorTime(std::vector<std::string> words) {
  return [words = std::move(words)] {
    const rusage usage = Run(words);
    return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
  };
}

std::vector<Row> CompareMemory(const std::string& folder, int rounds) {
  const Programs programs(folder);
  std::vector<Row> rows = {
      Compare("memory of kestrunectl get : of opening the store, one row", kGetMemoryLimit, rounds,
              Memory(programs.Get("whole")), Memory(programs.BareOpen())),
      Compare("memory of the window : of a window with one word", kWindowMemoryLimit, rounds,
              Memory(programs.Window()), Memory(programs.OneWord()))};
  for (Row& row : rows) row.unit = Unit::kKilobytes;
  return rows;
}

std::vector<Row> CompareTimes(const std::string& folder, int rounds, int many) {
  const Programs programs(folder);
  programs.MakeStore("few", 1000);
  programs.MakeStore("many", many);
  std::vector<Row> rows = {
      Compare("first paint : of a window with one word", kPaintLimit, rounds,
              ProcessorTime(programs.Window()), ProcessorTime(programs.OneWord())),
      Compare("kestrunectl state : open the store, read one row", kStateLimit, rounds,
              ProcessorTime(programs.State()), ProcessorTime(programs.BareOpen())),
      Compare("kestrunectl get with a million values : with a thousand", kManyValuesLimit, rounds,
              ProcessorTime(programs.Get("many")), ProcessorTime(programs.Get("few")))};
  if (HasQueryProgram()) {
    rows.push_back(Compare("kestrunectl get : sqlite3 selecting a value", kQueryLimit, rounds,
                           ProcessorTime(programs.Get("whole")),
                           ProcessorTime(programs.Query("whole"))));
  }
  return rows;
}

}  // namespace kestrune::bench
