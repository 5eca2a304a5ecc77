#include "cli/step.h"

#include <algorithm>
#include <span>
#include <utility>

#include "cli/control_text.h"
#include "platform/parse_number.h"
#include "ui/forms/main_form.h"
#include "ui/forms/window_table.h"

namespace kestrune::cli {

namespace {

constexpr std::size_t kMostSuggestions = 3;

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

/// How many letters it takes to turn one text into another.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row.back();
}

/// The sort of thing that a step is for.
std::string_view SortOf(Step::Kind kind) {
  switch (kind) {
    case Step::Kind::kPage:
    case Step::Kind::kShow:
      return "page";
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

bool IsWindow(const controls::Control* control) {
  return dynamic_cast<const controls::Window*>(control) != nullptr;
}

KnownIds::KnownIds() {
  forms_.push_back(std::make_unique<forms::MainForm>());
  for (const forms::WindowRow* row : forms::kWindows) {
    forms_.push_back(std::make_unique<forms::Form>(*row));
  }
}

const controls::Control* KnownIds::Find(std::string_view id) const {
  for (const auto& form : forms_) {
    if (const controls::Control* control = form->Find(id)) return control;
  }
  return nullptr;
}

bool KnownIds::Knows(const Step& step) const {
  switch (step.kind) {
    case Step::Kind::kWait:
      return true;
    case Step::Kind::kPage:
      return forms::IsPageId(step.id);
    case Step::Kind::kShow:
      return step.id.empty() || forms::IsPageId(step.id) || IsWindow(Find(step.id));
    case Step::Kind::kOpen:
    case Step::Kind::kClose:
      return IsWindow(Find(step.id));
    default:
      return Find(step.id) != nullptr;
  }
}

platform::Result<void> KnownIds::Check(const Step& step) const {
  if (Knows(step)) return {};
  return platform::Fail("there is no " + std::string(SortOf(step.kind)) + " \"" + OneLine(step.id) +
                        "\"; nearest: " + Nearest(step.id));
}

std::string KnownIds::Nearest(std::string_view id) const {
  std::vector<std::pair<std::size_t, std::string_view>> candidates;
  for (const auto& form : forms_) {
    for (const auto& control : form->Controls()) {
      candidates.emplace_back(Distance(id, control->Id()), control->Id());
    }
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::string text;
  for (const auto& [distance, candidate] :
       std::span(candidates).first(std::min(kMostSuggestions, candidates.size()))) {
    text += (text.empty() ? "" : ", ") + std::string(candidate);
  }
  return text;
}

}  // namespace kestrune::cli
