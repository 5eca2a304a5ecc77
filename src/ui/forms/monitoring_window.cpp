#include "ui/forms/monitoring_window.h"

#include <algorithm>
#include <string>

#include "core/options.h"
#include "core/outcome.h"
#include "lang/texts.h"
#include "monitor/chart.h"
#include "monitor/recording.h"
#include "platform/case_fold.h"
#include "ui/forms/shared.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

using controls::Button;
using controls::Graph;
using controls::GraphLine;
using controls::Label;
using monitor::Recording;
using monitor::Sample;

constexpr std::string_view kWindow = "monitoring";

constexpr ControlRow kRows[] = {
    Row(Kind::kLabel, "monitoring.cpu-usage-progress", kWindow, {150, 120, 10050, 270}, 188),
    Row(Kind::kGraph, "monitoring.cpu", kWindow, {150, 420, 10050, 2100}, 188),
    Row(Kind::kLabel, "monitoring.free-memory-progress", kWindow, {150, 2640, 10050, 270}, 189),
    Row(Kind::kGraph, "monitoring.memory", kWindow, {150, 2940, 10050, 2100}, 189),
    // The numbers of the first and the last sample that are drawn.
    Row(Kind::kLabel, "monitoring.first-sample", kWindow, {150, 5070, 750, 270}, kFilledText),
    Row(Kind::kLabel, "monitoring.last-sample", kWindow, {9450, 5070, 750, 270}, kFilledText),
    Row(Kind::kLabel, "monitoring.note", kWindow, {150, 5415, 10050, 270}, kFilledText),
    Row(Kind::kButton, "monitoring.save-recording", kWindow, {150, 5805, 3450, 435}, 264),
    Row(Kind::kButton, "monitoring.next", kWindow, {6450, 5805, 1350, 435})
        .Design(">>>")
        .Disabled(),
    Row(Kind::kButton, "monitoring.close", kWindow, {7950, 5805, 2250, 435}, 204),
};

constexpr int kThin = 15;
constexpr int kThick = 30;

constexpr int kSegment = 50;     // twips
constexpr int kPageEnd = 10000;  // twips

/// A segment of a chart, from percent to percent.
GraphLine Segment(int x, int from, int to, const char* colour, int width) {
  constexpr int kGround = 2050;
  constexpr int kPercent = 20;
  return {x,
          monitor::HeightOf(from, kGround, kPercent),
          x + kSegment,
          monitor::HeightOf(to, kGround, kPercent),
          colour,
          width};
}

class MonitoringWindow : public WindowPart {
 public:
  explicit MonitoringWindow(const Shared& shared);

  void Load() override;

 private:
  /// Nothing for a file of another type; a missing one is an empty recording.
  std::optional<Recording> Read() const;
  void DrawPage();
  void DrawSegments(const Recording& recording);
  void ShowAxis(const std::string& first, const std::string& last, int end);
  void DrawSegment(int x, const Sample& from, const Sample& to, bool two_processors);
  void ShowNote(const Recording& recording, const std::string& saved);
  void Save();
  void Discard();

  const Shared& shared_;
  controls::Window& window_;
  Graph& cpu_;
  Graph& memory_;
  Label& first_;
  Label& last_;
  Label& note_;
  Button& next_;
  std::size_t drawn_ = 0;  ///< samples on the pages before the next one
};

MonitoringWindow::MonitoringWindow(const Shared& shared)
    : shared_(shared),
      window_(shared.controls.Get<controls::Window>(kWindow)),
      cpu_(shared.controls.Get<Graph>("monitoring.cpu")),
      memory_(shared.controls.Get<Graph>("monitoring.memory")),
      first_(shared.controls.Get<Label>("monitoring.first-sample")),
      last_(shared.controls.Get<Label>("monitoring.last-sample")),
      note_(shared.controls.Get<Label>("monitoring.note")),
      next_(shared.controls.Get<Button>("monitoring.next")) {
  window_.on_close = [this] { Discard(); };
  next_.on_click = [this] { DrawPage(); };
  shared.controls.Get<Button>("monitoring.close").on_click = [this] { Discard(); };
  shared.controls.Get<Button>("monitoring.save-recording").on_click = [this] { Save(); };
}

void MonitoringWindow::Load() {
  drawn_ = 0;
  DrawPage();
}

std::optional<Recording> MonitoringWindow::Read() const {
  const auto bytes = shared_.services.files.ReadBytes(monitor::kRecordingFile);
  return bytes ? monitor::ReadRecording(*bytes) : Recording();
}

void MonitoringWindow::DrawPage() {
  cpu_.Clear();
  memory_.Clear();
  const std::optional<Recording> recording = Read();
  if (!recording) {
    shared_.services.dialog.ShowMessage(core::kProgramTitle, "Unknown file type",
                                        platform::Buttons::kOk);
    shared_.windows.Close(window_);
    return;
  }
  DrawSegments(*recording);
  const bool has_more = drawn_ < recording->samples.size();
  if (!has_more) drawn_ = 0;
  next_.SetEnabled(has_more);
  ShowNote(*recording, "");
}

void MonitoringWindow::DrawSegments(const Recording& recording) {
  const Sample* former = nullptr;
  std::size_t first = 0;
  int x = 0;
  ShowAxis("", "", 0);
  while (drawn_ < recording.samples.size() && x < kPageEnd) {
    const std::optional<Sample>& sample = recording.samples[drawn_++];
    if (!sample) continue;
    if (former == nullptr) {
      first = drawn_;
    } else {
      DrawSegment(x, *former, *sample, recording.two_processors);
      x += kSegment;
      ShowAxis(std::to_string(first), std::to_string(drawn_), x);
    }
    former = &*sample;
  }
}

/// Puts the last sample's number where the line ends, but for the room that both numbers need.
void MonitoringWindow::ShowAxis(const std::string& first, const std::string& last, int end) {
  first_.SetCaption(first);
  last_.SetCaption(last);
  controls::Rect place = last_.Bounds();
  const int left = first_.Bounds().left;
  const int right = left + cpu_.Bounds().width;
  place.left =
      std::clamp(left + end - place.width / 2, left + first_.Bounds().width, right - place.width);
  last_.SetBounds(place);
}

void MonitoringWindow::DrawSegment(int x, const Sample& from, const Sample& to,
                                   bool two_processors) {
  cpu_.Draw(Segment(x, from.cpu1, to.cpu1, monitor::kFirstColour, kThin));
  if (two_processors) cpu_.Draw(Segment(x, from.cpu2, to.cpu2, monitor::kSecondColour, kThin));
  memory_.Draw(Segment(x, from.free_percent, to.free_percent, monitor::kMemoryColour, kThick));
}

void MonitoringWindow::ShowNote(const Recording& recording, const std::string& saved) {
  const int left_out = recording.LeftOut();
  std::string note =
      left_out == 0 ? "" : shared_.LangText()[texts::kSamplesLeftOut] + std::to_string(left_out);
  if (!note.empty() && !saved.empty()) note += "   ";
  note_.SetCaption(note + saved);
}

/// Saves the recording beside its own file, under a name that nothing has yet.
void MonitoringWindow::Save() {
  const std::optional<Recording> recording = Read();
  if (!recording) return;
  platform::FilesApi& files = shared_.services.files;
  constexpr std::string_view kEnding = ".csv";
  const std::vector<std::string> taken = files.ListFiles("", kEnding);
  std::string name;
  int number = 1;
  do {
    name = "recording" + (number == 1 ? "" : "-" + std::to_string(number)) + std::string(kEnding);
    ++number;
  } while (std::any_of(taken.begin(), taken.end(), [&name](const std::string& other) {
    return platform::SameWithoutCase(name, other);
  }));
  const auto written = files.WriteFile(name, monitor::CsvOf(*recording));
  const std::string place = files.Locate(name).value_or(name);
  ShowNote(*recording, written ? place : name + ": " + written.Reason().reason);
}

void MonitoringWindow::Discard() {
  core::Ignore(shared_.services.files.RemoveFile(monitor::kRecordingFile));
  shared_.windows.Close(window_);
}

}  // namespace

const WindowRow kMonitoringWindow = {
    .window = Row(Kind::kWindow, kWindow, "", {0, 0, 10350, 6390}, 187).Hidden(),
    .controls = kRows,
    .owner = "main",
    .modal = true,
    .default_key = "monitoring.next",
    .cancel_key = "monitoring.close",
    .opened_beside = "info.monitoring.rec",
    .make = [](const Shared& shared) -> std::unique_ptr<WindowPart> {
      return std::make_unique<MonitoringWindow>(shared);
    }};

}  // namespace kestrune::forms
