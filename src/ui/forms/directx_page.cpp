#include "ui/forms/directx_page.h"

#include <algorithm>

#include "lang/texts.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

using platform::ChildState;

constexpr ControlRow kRows[] = {
    Row(Kind::kList, "info.directx.report", "info.directx", {150, 330, 7260, 3780}),
};

constexpr std::string_view kProgram = "\\data\\d3dinfo.exe";
constexpr std::string_view kReport = "\\DATA\\d3d_adapter_info.txt";

constexpr int kWaitMs = 20;
constexpr int kMostWaits = 30 * 1000 / kWaitMs;

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

}  // namespace

const std::span<const ControlRow> kDirectXControls = kRows;

DirectXPage::DirectXPage(const Shared& shared)
    : services_(shared.services),
      LangText(shared.LangText()),
      report_(shared.controls.Get<controls::ListBox>("info.directx.report")) {}

void DirectXPage::PageShown() {
  if (was_shown_) return;
  was_shown_ = true;
  FillDirectXReport();
}

void DirectXPage::FillDirectXReport() {
  const std::string awaited = LangText[texts::kReportAwaited];
  report_.SetItems({awaited});
  services_.dialog.RunPendingEvents();
  if (!MakeReport()) {
    report_.SetItems({awaited, LangText[texts::kNoReport]});
    return;
  }
  const auto report = services_.files.ReadBytes(kReport);
  if (report) report_.SetItems(Lines(services_.files.DecodeText(*report, 0)));
}

bool DirectXPage::MakeReport() {
  const std::string command = services_.files.ProgramFolder() + std::string(kProgram);
  const auto child = services_.shell.StartProgram(command, platform::WindowState::kNormal);
  if (!child) return true;
  ChildState state = ChildState::kRuns;
  int waits = 0;
  services_.dialog.WaitWhile([&] {
    state = child.Value()->Wait(kWaitMs);
    return state == ChildState::kRuns && ++waits < kMostWaits;
  });
  if (state == ChildState::kRuns) child.Value()->End();
  return state != ChildState::kRuns;
}

}  // namespace kestrune::forms
