#include "cli/monitor_command.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <memory>

#include "monitor/recording.h"
#include "platform/case_fold.h"
#include "platform/parse_number.h"

namespace kestrune::cli {

namespace {

using monitor::Sample;

constexpr std::string_view kInterval = "--interval=MS";
constexpr std::string_view kCount = "--count=N";
constexpr std::string_view kRecord = "--record=FILE";

constexpr int kUsualInterval = 1000;
constexpr int kShortestInterval = 50;

// All that a handler may touch.
std::atomic<bool> is_interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

/// Takes the interruption from the keyboard for as long as it lives, unless it was ignored before.
class Interruption {
 public:
  Interruption() {
    is_interrupted = false;
    former_ = std::signal(SIGINT, [](int) { is_interrupted = true; });
    if (former_ == SIG_IGN) std::signal(SIGINT, SIG_IGN);
  }
  ~Interruption() { std::signal(SIGINT, former_); }
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  static bool WasTaken() { return is_interrupted; }

 private:
  void (*former_)(int);
};

/// Real time in steps from a beginning. A step that has gone by is not made up for.
class Pace {
 public:
  Pace(platform::SystemApi& system, int interval_ms)
      : system_(system), interval_ms_(interval_ms), start_(system.Milliseconds()) {}

  std::int64_t Elapsed() const { return system_.Milliseconds() - start_; }
  /// Waits for the next step; false when that was interrupted.
  bool WaitForNext() const {
    const std::int64_t due = (Elapsed() / interval_ms_ + 1) * interval_ms_;
    while (!Interruption::WasTaken()) {
      const std::int64_t left = due - Elapsed();
      if (left <= 0) return true;
      // A signal need not end a pause.
      constexpr std::int64_t kLongestPause = 50;
      system_.Pause(static_cast<int>(std::min(left, kLongestPause)));
    }
    return false;
  }

 private:
  platform::SystemApi& system_;
  int interval_ms_;
  std::int64_t start_;
};

/// A file that each sample reaches in one write.
class RecordingFile {
 public:
  RecordingFile(const std::string& path, bool two_processors)
      : two_processors_(two_processors),
        format_(IsCsv(path) ? monitor::kCsvFormat : monitor::kMonitoringFormat) {}

  platform::Result<void> Begin(platform::FilesApi& files, const std::string& path) {
    auto file = files.CreateAnyFile(path);
    if (!file) return platform::Fail(file.Reason());
    file_ = std::move(file).Value();
    return file_->Put(format_.beginning(two_processors_));
  }
  platform::Result<void> Add(const Sample& sample) {
    return file_->Put(format_.sample(sample, ++number_, two_processors_));
  }

 private:
  static bool IsCsv(const std::string& path) {
    return platform::FoldCase(path).ends_with(platform::FoldCase(".csv"));
  }

  bool two_processors_;
  const monitor::RecordingFormat& format_;
  std::unique_ptr<platform::OutputFile> file_;
  int number_ = 0;
};

/// The number behind an option, 0 where it was left out; nothing for what is none or too low.
std::optional<int> NumberOf(const Arguments& arguments, std::string_view option, int least) {
  const std::string& word = arguments.Word(option);
  if (word.empty()) return 0;
  const auto number = platform::ParseWhole<int>(word);
  return number && *number >= least ? number : std::nullopt;
}

void Print(Run& run, std::int64_t milliseconds, const Sample& sample, bool two_processors) {
  const auto tab = [](int number) { return '\t' + std::to_string(number); };
  Json item = {{"milliseconds", milliseconds}, {"cpu1", sample.cpu1}};
  if (two_processors) item["cpu2"] = sample.cpu2;
  item["free"] = sample.free_percent;
  item["free_mb"] = sample.free_mb;
  run.out.Item(std::move(item));
  run.out.Line(std::to_string(milliseconds) + tab(sample.cpu1) +
               (two_processors ? tab(sample.cpu2) : "") + tab(sample.free_percent) +
               tab(sample.free_mb));
  run.streams.out.flush();
}

Status CannotRecord(Run& run, const std::string& reason) {
  run.streams.Complain(run.arguments.Word(kRecord) + " can't be written: " + reason + ".");
  return Status::kImpossible;
}

}  // namespace

platform::Result<std::vector<Step>> CheckMonitorWords(const Arguments& arguments) {
  if (!NumberOf(arguments, kInterval, kShortestInterval)) {
    return platform::Fail("\"" + arguments.Word(kInterval) +
                          "\" is no number of milliseconds from " +
                          std::to_string(kShortestInterval) + " on.");
  }
  if (!NumberOf(arguments, kCount, 1)) {
    return platform::Fail("\"" + arguments.Word(kCount) + "\" is no number from 1 on.");
  }
  return std::vector<Step>();
}

Status Monitor(Run& run, forms::Program& program) {
  const int given = NumberOf(run.arguments, kInterval, kShortestInterval).value_or(0);
  const int count = NumberOf(run.arguments, kCount, 1).value_or(0);
  const std::string& path = run.arguments.Word(kRecord);
  const bool two_processors = program.RunState().TwoCPU == 1;
  run.out.BeginList();
  std::optional<RecordingFile> recording;
  if (!path.empty() && !run.options.machine.dry_run) {
    recording.emplace(path, two_processors);
    const auto begun = recording->Begin(run.session->Files(), path);
    if (!begun) return CannotRecord(run, begun.Reason());
  }
  const Interruption interruption;
  monitor::Sampler sampler(run.session->System(), program.Versions(), program.RunState());
  sampler.Take();
  const Pace pace(run.session->System(), given == 0 ? kUsualInterval : given);
  for (int i = 0; (count == 0 || i < count) && pace.WaitForNext(); ++i) {
    const Sample& sample = sampler.Take();
    Print(run, pace.Elapsed(), sample, two_processors);
    if (!recording) continue;
    if (const auto added = recording->Add(sample); !added) return CannotRecord(run, added.Reason());
  }
  return Status::kDone;
}

}  // namespace kestrune::cli
