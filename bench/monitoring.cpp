#include "monitoring.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "controls/controls.h"
#include "failure.h"
#include "monitor/monitoring.h"
#include "platform/portable/portable_machine.h"
#include "platform/windowless_dialog.h"
#include "ui/forms/program.h"
#include "whole_programs.h"

namespace kestrune::bench {

namespace {

constexpr Limit kSampleLimit{1.0, 1.0};
constexpr Limit kLongLimit{1.02, 1.0};
constexpr monitor::Speed kFastest = monitor::kSpeeds[0];

/// The program on this computer, sampling and recording at its fastest.
class Sampling {
 public:
  explicit Sampling(const std::string& folder) {
    auto opened = platform::portable::PortableMachines().Open(
        {.store = folder + "/sampling.store", .machine = "host"});
    if (!opened) GiveUp(opened.Reason());
    machine_ = std::move(opened).Value();
    program_ = std::make_unique<forms::Program>(machine_->ServicesFor(dialog_));
    if (!program_->Start("")) GiveUp("the program doesn't start.");
    dynamic_cast<controls::OptionButton&>(*program_->Find(kFastest.option)).Use();
    program_->Find("info.monitoring.rec")->Click();
    if (program_->RunState().Recording != 1) GiveUp("nothing is recorded.");
  }

  void TakeSamples(int count) {
    program_->Timers().Advance(static_cast<long long>(count) * kFastest.interval_ms);
  }

 private:
  platform::WindowlessDialog dialog_;
  std::unique_ptr<platform::Machine> machine_;
  std::unique_ptr<forms::Program> program_;
};

/// What this process has in memory now, in bytes.
double Resident() {
  std::ifstream file("/proc/self/statm");
  double all = 0;
  double resident = 0;
  file >> all >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

auto OpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

}  // namespace

std::vector<Row> CompareSampling(const std::string& folder, int rounds) {
  if (std::system("command -v top > /dev/null") != 0) return {};
  Sampling sampling(folder);
  const auto top = [](const char* count) {
    return ProcessorTime({"top", "-b", "-d", "0.2", "-n", count});
  };
  constexpr int kSamples = 500;
  constexpr int kTopSamples = 5;  // between its first one and its last one
  constexpr int kShare = 50;
  return {Compare(
      "one sample : a fiftieth of one of top", kSampleLimit, rounds,
      [&] { return ProcessorTimeOf(kSamples, [&] { sampling.TakeSamples(1); }); },
      [&] { return (top("6")() - top("1")()) / kTopSamples / kShare; })};
}

Row CompareLongSampling(const std::string& folder) {
  constexpr int kSamplesAMinute = 60 * 1000 / kFastest.interval_ms;
  Sampling sampling(folder);
  sampling.TakeSamples(kSamplesAMinute);
  const auto files_before = OpenFiles();
  const double before = Resident();
  sampling.TakeSamples(19 * kSamplesAMinute);
  if (OpenFiles() != files_before) GiveUp("sampling leaves files open.");
  return {"memory after 20 minutes of sampling : after the first one", Resident(), before,
          kLongLimit, Unit::kKilobytes};
}

}  // namespace kestrune::bench
