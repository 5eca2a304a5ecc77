#include "ui/forms/processes_page.h"

#include <algorithm>
#include <cstdint>

#include "lang/texts.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

using controls::Label;

constexpr std::string_view kPage = "info.processes";
constexpr std::string_view kDetails = "info.processes.process-details-frame";
constexpr std::string_view kBarFrame = "info.processes.priority-bar-frame";

/// How many lines have details.
constexpr std::size_t kMostDetails = 201;
constexpr int kTwipsPerPixel = 15;

constexpr ControlRow kRows[] = {
    Row(Kind::kLabel, "info.processes.total-processes", kPage, {150, 330, 3000, 255}, 262)
        .Names("info.processes.processes"),
    Row(Kind::kList, "info.processes.processes", kPage, {150, 615, 3000, 3495}),
    Row(Kind::kFrame, kDetails, kPage, {3300, 330, 4110, 2760}, 256),
    Row(Kind::kLabel, "info.processes.process-name", kDetails, {150, 360, 3810, 255}, 257),
    Row(Kind::kLabel, "info.processes.process-id", kDetails, {150, 750, 3810, 255}, 258),
    Row(Kind::kLabel, "info.processes.parent-process-id", kDetails, {150, 1140, 3810, 255}, 259),
    Row(Kind::kLabel, "info.processes.number-of-threads", kDetails, {150, 1530, 3810, 255}, 260),
    Row(Kind::kLabel, "info.processes.process-priority", kDetails, {150, 1920, 3810, 255}, 261)
        .Names("info.processes.priority-bar"),
    Row(Kind::kFrame, kBarFrame, kDetails, {150, 2265, 3810, 300}, kFilledText),
    Row(Kind::kBar, "info.processes.priority-bar", kBarFrame, {0, 0, 3810, 300}, kFilledText),
    Row(Kind::kButton, "info.processes.refresh", kPage, {5385, 3675, 2025, 435}, 255),
};

/// The details that are told by a line each, and the beginning of it.
struct DetailRow {
  std::string_view label;
  int text;
};

constexpr DetailRow kDetailRows[] = {
    {"info.processes.process-name", texts::kProcessName},
    {"info.processes.process-id", texts::kProcessId},
    {"info.processes.parent-process-id", texts::kParentProcess},
    {"info.processes.number-of-threads", texts::kThreadCount},
};

}  // namespace

const std::span<const ControlRow> kProcessControls = kRows;

ProcessesPage::ProcessesPage(const Shared& shared)
    : system_(shared.services.system),
      LangText(shared.LangText()),
      controls_(shared.controls),
      list_(controls_.Get<controls::ListBox>("info.processes.processes")),
      bar_(controls_.Get<controls::Bar>("info.processes.priority-bar")) {
  ShowPriority(0);
  controls_.Get<controls::Button>("info.processes.refresh").on_click = [this] { Refresh(); };
  list_.on_change = [this] { ShowDetails(); };
}

void ProcessesPage::Refresh() {
  table_.clear();
  list_.ShowPosition(-1);
  ShowDetails();
  auto found = system_.Processes();
  if (!found) {
    list_.SetItems({});
    return;
  }
  // The first one stands for no program.
  if (!found->empty()) found->erase(found->begin());
  std::vector<std::string> names;
  names.reserve(found->size());
  for (const platform::ProcessRecord& each : *found) names.push_back(each.name);
  list_.RefreshItems(std::move(names));
  found->resize(std::min(found->size(), kMostDetails));
  table_ = std::move(*found);
  controls_.Get<Label>("info.processes.total-processes")
      .SetCaption(LangText[texts::kTotalProcesses] + std::to_string(list_.Items().size()));
}

void ProcessesPage::ShowDetails() {
  const auto line = static_cast<std::size_t>(list_.Position());
  const bool has_details = list_.Position() >= 0 && line < table_.size();
  std::string details[std::size(kDetailRows)];
  if (has_details) {
    const platform::ProcessRecord& process = table_[line];
    details[0] = process.name;
    details[1] = std::to_string(process.id);
    details[2] = ParentText(process.parent);
    details[3] = std::to_string(process.threads);
  }
  for (std::size_t i = 0; i < std::size(kDetailRows); ++i) {
    controls_.Get<Label>(kDetailRows[i].label)
        .SetCaption(LangText[kDetailRows[i].text] + details[i]);
  }
  ShowPriority(has_details ? table_[line].priority : 0);
}

std::string ProcessesPage::ParentText(int parent) const {
  const auto found =
      std::find_if(table_.begin(), table_.end(),
                   [parent](const platform::ProcessRecord& each) { return each.id == parent; });
  return std::to_string(parent) + (found == table_.end() ? "" : " - " + found->name);
}

void ProcessesPage::ShowPriority(int priority) {
  const int room = controls_.Get<controls::Frame>(kBarFrame).Bounds().width;
  const std::int64_t width = std::int64_t{priority} * (room / kTwipsPerPixel);
  bar_.ShowWidth(static_cast<int>(std::min<std::int64_t>(width, room)));
}

}  // namespace kestrune::forms
