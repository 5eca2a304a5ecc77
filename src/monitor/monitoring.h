#pragma once

#include <string>
#include <string_view>

#include "controls/control_set.h"
#include "controls/controls.h"
#include "controls/timer.h"
#include "core/program_state.h"
#include "detect/versions.h"
#include "lang/language.h"
#include "monitor/sampler.h"
#include "platform/services.h"

namespace kestrune::monitor {

/// An option of the monitoring page and the milliseconds from sample to sample.
struct Speed {
  std::string_view option;
  int interval_ms;
};

inline constexpr Speed kSpeeds[] = {
    {"info.monitoring.fast", 200}, {"info.monitoring.normal", 400}, {"info.monitoring.slow", 1000}};

/// Samples the processors and the memory while the program runs, whatever page is shown; shows each
/// sample as texts, bars and graphs on the monitoring page, and records it when asked.
class Monitoring {
 public:
  Monitoring(const platform::Services& services, controls::Scheduler& timers,
             core::ProgramState& program, const detect::VersionState& versions,
             const lang::LangTable& lang_text, const controls::ControlSet& controls);
  Monitoring(const Monitoring&) = delete;
  Monitoring& operator=(const Monitoring&) = delete;

  /// Begins to sample. Needs `TwoCPU` and the operating-system family.
  void Start();
  /// Samples no more; a recording stays as it is.
  void End();
  /// Starts a new whole interval of that length.
  void SetInterval(int milliseconds) { timer_.SetInterval(milliseconds); }

  /// Begins the recording anew. Where its file can't be made nothing changes, and a sentence says
  /// so.
  void StartRecording();
  void StopRecording();

 private:
  void Tick();
  void ShowBars(const Sample& sample);
  void ShowTexts(const Sample& sample);
  void Record(const Sample& sample);
  void Draw(const Sample& sample);
  void DrawLoad(int x, int load, const char* colour);
  void ShowRecording(bool records);

  platform::FilesApi& files_;
  platform::DialogApi& dialog_;
  core::ProgramState& program_;
  const detect::VersionState& versions_;
  const lang::LangTable& LangText;
  const controls::ControlSet& controls_;
  Sampler sampler_;
  controls::Timer timer_;
  controls::Label& cpu1_;
  controls::Label& cpu2_;
  controls::Label& free_memory_;
  controls::Bar& cpu1_bar_;
  controls::Bar& cpu2_bar_;
  controls::Graph& cpu_graph_;
  controls::Graph& memory_graph_;
  int x_ = 0;  ///< where the graphs have got to, in twips
};

}  // namespace kestrune::monitor
