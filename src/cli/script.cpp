#include "cli/script.h"

#include <algorithm>

#include "platform/parse_number.h"
#include "ui/forms/main_form.h"

namespace kestrune::cli {

namespace {

using controls::Control;

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

bool Script::IsWindow(std::string_view id) const {
  return dynamic_cast<controls::Window*>(program_.Find(id)) != nullptr;
}

bool Script::KnowsTarget(const Step& step) const {
  switch (step.kind) {
    case Step::Kind::kWait:
      return true;
    case Step::Kind::kPage:
      return forms::IsPageId(step.id);
    case Step::Kind::kOpen:
    case Step::Kind::kClose:
      return IsWindow(step.id);
    default:
      return program_.Find(step.id) != nullptr;
  }
}

std::string Script::Nearest(std::string_view id) const {
  std::vector<std::pair<std::size_t, std::string_view>> candidates;
  for (const forms::Form* form : program_.Forms()) {
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

bool Script::CheckIds(const std::vector<Step>& steps) const {
  bool all_known = true;
  for (const Step& step : steps) {
    if (KnowsTarget(step)) continue;
    const bool wants_page = step.kind == Step::Kind::kPage;
    const bool wants_window = step.kind == Step::Kind::kOpen || step.kind == Step::Kind::kClose;
    const std::string what = wants_page ? "page" : wants_window ? "window" : "control";
    streams_.Complain("there is no " + what + " \"" + OneLine(step.id) +
                      "\"; nearest: " + Nearest(step.id));
    all_known = false;
  }
  return all_known;
}

Status Script::Run(const std::vector<Step>& steps) {
  if (!CheckIds(steps)) return Status::kWrongUsage;
  std::optional<std::string> refusal;
  for (const Step& step : steps) {
    refusal = Do(step);
    if (refusal) break;
  }
  if (!refusal) return Status::kDone;
  streams_.Complain(*refusal);
  return Status::kImpossible;
}

void Script::PrintDocument() const {
  if (options_.json) streams_.out << printed_.dump(2) << '\n';
}

void Script::GoTo(const Control& control) {
  const int page = program_.PageOf(control);
  if (page >= 0 && page != program_.ActivePage()) program_.GoToPage(page);
}

std::optional<std::string> Script::Do(const Step& step) {
  if (step.kind == Step::Kind::kWait) {
    program_.Timers().Advance(step.wait_ms);
    return std::nullopt;
  }
  if (program_.Ended()) return "the program has ended, so " + step.id + " can't be used.";
  Control& control = *program_.Find(step.id);
  if (step.kind == Step::Kind::kOpen) return Open(step.id);
  if (step.kind == Step::Kind::kClose) return Close(step.id);
  GoTo(control);
  switch (step.kind) {
    case Step::Kind::kPrint:
      Print(control);
      return std::nullopt;
    case Step::Kind::kHover:
      control.Hover();
      return std::nullopt;
    case Step::Kind::kSet:
      return UseValue(control, step.value);
    case Step::Kind::kPress:
      return Press(control);
    default:
      return std::nullopt;
  }
}

std::optional<std::string> Script::Open(const std::string& window) {
  if (program_.Find(window)->Visible()) return std::nullopt;
  return window + " can't be opened by name; it opens when the mouse moves over a setting.";
}

std::optional<std::string> Script::Close(const std::string& window) {
  auto& target = dynamic_cast<controls::Window&>(*program_.Find(window));
  if (!target.Visible()) return window + " isn't open.";
  target.UseClose();
  return std::nullopt;
}

void Script::Print(Control& control) {
  if (options_.json) {
    printed_.push_back(ControlJson(control));
  } else {
    streams_.out << OneLine(control.ValueText()) << '\n';
  }
}

Status Script::Show(const std::string& id) {
  if (!id.empty() && !forms::IsPageId(id) && !IsWindow(id)) {
    return CheckIds({{.kind = Step::Kind::kPage, .id = id}}) ? Status::kDone : Status::kWrongUsage;
  }
  std::vector<Control*> shown;
  const auto collect = [&](const forms::Form& form, const auto& wanted) {
    for (const auto& control : form.Controls()) {
      if (wanted(*control)) shown.push_back(control.get());
    }
  };
  if (IsWindow(id)) {
    for (const forms::Form* form : program_.Forms()) {
      if (form->Controls().front()->Id() != id) continue;
      collect(*form, [this](const Control& control) { return program_.PageOf(control) < 0; });
    }
  }
  if (forms::IsPageId(id)) GoTo(*program_.Find(id));
  for (int page = 0; page < forms::kPageCount; ++page) {
    if (IsWindow(id) || (forms::IsPageId(id) && page != program_.ActivePage())) continue;
    collect(program_.Main(),
            [this, page](const Control& control) { return program_.PageOf(control) == page; });
  }
  Json json = Json::array();
  for (Control* control : shown) {
    if (options_.json) {
      json.push_back(ControlJson(*control));
    } else {
      streams_.out << ShowLine(*control) << '\n';
    }
  }
  if (options_.json) streams_.out << json.dump(2) << '\n';
  return Status::kDone;
}

}  // namespace kestrune::cli
