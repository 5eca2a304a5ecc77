#include "whole_programs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "failure.h"

namespace kestrune::bench {

namespace {

constexpr double kStateLimit = 3.0;
constexpr double kPaintLimit = 1.5;

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// Runs a program to its end, without its output, and gives its processor time.
double ProcessorTime(const std::vector<std::string>& words) {
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
  const int error = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) GiveUp(words.front() + " can't be started.");
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0) GiveUp(words.front() + " failed.");
  return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

}  // namespace

std::vector<Row> CompareWholePrograms(const std::string& folder, int rounds) {
  const std::string programs = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  const std::string store = folder + "/whole.store";
  setenv("XDG_DATA_HOME", folder.c_str(), 1);
  setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
  setenv("KESTRUNE_STORE", store.c_str(), 1);
  setenv("KESTRUNE_MACHINE", "winxp-geforce7800", 1);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const auto run = [&programs](const std::string& program, const std::string& argument = {}) {
    std::vector<std::string> words = {programs + "/" + program};
    if (!argument.empty()) words.push_back(argument);
    return [words] { return ProcessorTime(words); };
  };
  // A window without a word in it doesn't even load the fonts, so there are two comparisons.
  return {Compare("kestrunectl state : open the store, read one row", kStateLimit, rounds,
                  run("kestrunectl", "state"), run("bench_bare_open", store)),
          Compare("first paint : of an empty window", kPaintLimit, rounds, run("bench_window"),
                  run("bench_empty_window")),
          Compare("first paint : of a window with one word", kPaintLimit, rounds,
                  run("bench_window"), run("bench_empty_window", "Settings"))};
}

}  // namespace kestrune::bench
