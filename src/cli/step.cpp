#include "cli/step.h"

#include <algorithm>

#include "cli/suggestion.h"
#include "platform/parse_number.h"
#include "ui/forms/pages.h"

namespace kestrune::cli {

namespace {

struct Prefix {
  std::string_view text;
  Step::Kind kind;
};

constexpr Prefix kPrefixes[] = {{"?", Step::Kind::kPrint},    {"~", Step::Kind::kHover},
                                {"open:", Step::Kind::kOpen}, {"close:", Step::Kind::kClose},
                                {"page:", Step::Kind::kPage}, {"wait:", Step::Kind::kWait}};

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

bool IsWindow(const forms::ControlRow* row) {
  return row != nullptr && row->kind == forms::Kind::kWindow;
}

/// The sort of thing that a step is for.
std::string_view SortOf(Step::Kind kind) {
  switch (kind) {
    case Step::Kind::kPage:
      return "page";
    case Step::Kind::kShow:
      return "page or window";
    case Step::Kind::kOpen:
    case Step::Kind::kClose:
      return "window";
    default:
      return "control";
  }
}

}  // namespace

std::optional<Step> ParseStep(const std::string& text) {
  for (const Prefix& prefix : kPrefixes) {
    if (!text.starts_with(prefix.text)) continue;
    Step step{.kind = prefix.kind,
              .id = std::string(WithoutBlanks(std::string_view(text).substr(prefix.text.size())))};
    if (step.id.empty()) return std::nullopt;
    if (prefix.kind != Step::Kind::kWait) return step;
    const auto wait_ms = platform::ParseWhole<long long>(step.id);
    if (!wait_ms || *wait_ms < 0) return std::nullopt;
    step.wait_ms = *wait_ms;
    return step;
  }
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos) return Step{.kind = Step::Kind::kPress, .id = text};
  return Step{
      .kind = Step::Kind::kSet, .id = text.substr(0, equals), .value = text.substr(equals + 1)};
}

const forms::ControlRow* KnownIds::Find(std::string_view id) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(),
                                  [id](const forms::ControlRow& row) { return row.id == id; });
  return found == rows_.end() ? nullptr : &*found;
}

bool KnownIds::Knows(Step::Kind kind, std::string_view id) const {
  switch (kind) {
    case Step::Kind::kWait:
      return true;
    case Step::Kind::kPage:
      return forms::IsPageId(id);
    case Step::Kind::kShow:
      return id.empty() || forms::IsPageId(id) || IsWindow(Find(id));
    case Step::Kind::kOpen:
    case Step::Kind::kClose:
      return IsWindow(Find(id));
    default:
      return Find(id) != nullptr;
  }
}

platform::Result<void> KnownIds::Check(const Step& step) const {
  if (Knows(step.kind, step.id)) return {};
  return platform::Fail("there is no " + std::string(SortOf(step.kind)) + " \"" + step.id + '"' +
                        Suggestion(step.id, Candidates(step)));
}

/// What a step with an unknown id may be meant for.
std::vector<std::string_view> KnownIds::Candidates(const Step& step) const {
  // A control where its page or window is wanted leaves no doubt.
  for (const forms::ControlRow* each = Find(step.id); each != nullptr; each = Find(each->parent)) {
    if (Knows(step.kind, each->id)) return {each->id};
  }
  const bool is_act = step.kind == Step::Kind::kSet || step.kind == Step::Kind::kPress;
  std::vector<std::string_view> ids;
  for (const forms::ControlRow& row : rows_) {
    const bool holds_others = forms::IsPageId(row.id) || IsWindow(&row);
    if (Knows(step.kind, row.id) && !(is_act && holds_others)) ids.push_back(row.id);
  }
  return ids;
}

}  // namespace kestrune::cli
