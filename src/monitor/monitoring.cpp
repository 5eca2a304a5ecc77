#include "monitor/monitoring.h"

#include "lang/texts.h"
#include "monitor/chart.h"
#include "monitor/recording.h"

namespace kestrune::monitor {

namespace texts = lang::texts;

namespace {

using controls::Bar;
using controls::Graph;
using controls::GraphLine;
using controls::GraphPoint;
using controls::Label;

constexpr int kSlowest = 1000;
constexpr int kPercent = 10;  // twips for one, in bars and graphs
constexpr int kStep = 60;     // twips from sample to sample
constexpr int kLineWidth = 30;

/// What can't be used while samples are recorded.
constexpr std::string_view kStartsOrPaces[] = {"info.monitoring.rec", "info.monitoring.fast",
                                               "info.monitoring.normal", "info.monitoring.slow",
                                               "info.monitoring.monitoring-speed"};
constexpr std::string_view kStop = "info.monitoring.stop";

}  // namespace

Monitoring::Monitoring(const platform::Services& services, controls::Scheduler& timers,
                       core::ProgramState& program, const detect::VersionState& versions,
                       const lang::LangTable& lang_text, const controls::ControlSet& controls)
    : files_(services.files),
      dialog_(services.dialog),
      program_(program),
      versions_(versions),
      LangText(lang_text),
      controls_(controls),
      sampler_(services.system, versions, program),
      timer_(timers, kSlowest),
      cpu1_(controls.Get<Label>("info.monitoring.cpu-1")),
      cpu2_(controls.Get<Label>("info.monitoring.cpu-2")),
      free_memory_(controls.Get<Label>("info.monitoring.free-memory")),
      cpu1_bar_(controls.Get<Bar>("info.monitoring.cpu-1-bar")),
      cpu2_bar_(controls.Get<Bar>("info.monitoring.cpu-2-bar")),
      cpu_graph_(controls.Get<Graph>("info.monitoring.cpu-graph")),
      memory_graph_(controls.Get<Graph>("info.monitoring.memory-graph")) {
  timer_.on_tick = [this] { Tick(); };
}

void Monitoring::Start() {
  cpu2_.SetVisible(program_.TwoCPU == 1);
  cpu2_bar_.SetVisible(program_.TwoCPU == 1);
  timer_.SetEnabled(true);
}

void Monitoring::End() { timer_.SetEnabled(false); }

void Monitoring::Tick() {
  const Sample& sample = sampler_.Take();
  ShowBars(sample);
  ShowTexts(sample);
  if (program_.Recording == 1) Record(sample);
  Draw(sample);
}

void Monitoring::ShowBars(const Sample& sample) {
  cpu1_bar_.ShowWidth(sample.cpu1 * kPercent);
  if (versions_.OSFamily != detect::kWindows9x) cpu2_bar_.ShowWidth(sample.cpu2 * kPercent);
}

void Monitoring::ShowTexts(const Sample& sample) {
  cpu1_.SetCaption("CPU1 " + std::to_string(sample.cpu1) + "%");
  if (program_.TwoCPU == 1) cpu2_.SetCaption("CPU2 " + std::to_string(sample.cpu2) + "%");
  free_memory_.SetCaption(std::to_string(sample.free_percent) + "%    (" +
                          std::to_string(sample.free_mb) + " MB " + LangText[texts::kFreeMemory] +
                          ")");
}

void Monitoring::Record(const Sample& sample) {
  const std::string fields = kMonitoringFormat.sample(sample, 0, program_.TwoCPU == 1);
  if (files_.AppendFile(kRecordingFile, fields)) return;
  StopRecording();
  dialog_.Notify(LangText[texts::kRecordingStopped]);
}

void Monitoring::Draw(const Sample& sample) {
  x_ += kStep;
  DrawLoad(x_, sample.cpu1, kFirstColour);
  if (program_.TwoCPU == 1) DrawLoad(x_ + kStep / 2, sample.cpu2, kSecondColour);
  // The loads that reach the edge go with the full graph; the memory begins the new one.
  if (x_ >= cpu_graph_.Bounds().width) {
    cpu_graph_.Clear();
    memory_graph_.Clear();
    x_ = 0;
  }
  const int bottom = memory_graph_.Bounds().height;
  memory_graph_.Draw(GraphLine{x_, bottom, x_, HeightOf(sample.free_percent, bottom, kPercent),
                               kMemoryColour, kLineWidth});
}

void Monitoring::DrawLoad(int x, int load, const char* colour) {
  constexpr int kGround = 100;  // twips below the line of 0 percent
  constexpr int kRoot = 90;
  const int height = cpu_graph_.Bounds().height;
  if (load < 1) {
    cpu_graph_.Draw(GraphPoint{x, height - kGround, colour, kLineWidth});
  } else {
    cpu_graph_.Draw(GraphLine{x, height - kRoot, x, HeightOf(load, height - kGround, kPercent),
                              colour, kLineWidth});
  }
}

void Monitoring::ShowRecording(bool records) {
  program_.Recording = records ? 1 : 0;
  for (const std::string_view id : kStartsOrPaces) controls_.Find(id)->SetEnabled(!records);
  controls_.Find(kStop)->SetEnabled(records);
}

void Monitoring::StartRecording() {
  const std::string beginning = kMonitoringFormat.beginning(program_.TwoCPU == 1);
  if (files_.WriteFile(kRecordingFile, beginning)) {
    ShowRecording(true);
  } else {
    dialog_.Notify(LangText[texts::kRecordingNotStarted]);
  }
}

void Monitoring::StopRecording() { ShowRecording(false); }

}  // namespace kestrune::monitor
