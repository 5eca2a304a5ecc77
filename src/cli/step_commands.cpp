#include "cli/step_commands.h"

#include <optional>

#include "cli/script.h"

namespace kestrune::cli {

using platform::Fail;
using platform::Result;

namespace {

/// Every word is the id of a step of that kind, whose window is opened for it.
std::vector<Step> StepsOf(Step::Kind kind, const std::vector<std::string>& ids) {
  std::vector<Step> steps;
  steps.reserve(ids.size());
  for (const std::string& id : ids) {
    steps.push_back({.kind = kind, .id = id, .opens_window = true});
  }
  return steps;
}

}  // namespace

Result<std::vector<Step>> ShowSteps(const Arguments& arguments) {
  return StepsOf(Step::Kind::kShow, {arguments.Word("PAGE|WINDOW")});
}

Result<std::vector<Step>> GetSteps(const Arguments& arguments) {
  return StepsOf(Step::Kind::kPrint, arguments.List("ID"));
}

Result<std::vector<Step>> SetSteps(const Arguments& arguments) {
  std::vector<Step> steps;
  for (const std::string& word : arguments.List("ID=VALUE")) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos) return Fail("\"" + word + "\" is no ID=VALUE.");
    steps.push_back({.kind = Step::Kind::kSet,
                     .id = word.substr(0, equals),
                     .value = word.substr(equals + 1),
                     .opens_window = true});
  }
  return steps;
}

Result<std::vector<Step>> PressSteps(const Arguments& arguments) {
  return StepsOf(Step::Kind::kPress, arguments.List("ID"));
}

Result<std::vector<Step>> WrittenSteps(const Arguments& arguments) {
  std::vector<Step> steps;
  for (const std::string& word : arguments.List("STEP")) {
    std::optional<Step> step = ParseStep(word);
    if (!step) return Fail("\"" + word + "\" is no step.");
    steps.push_back(std::move(*step));
  }
  return steps;
}

Status DoSteps(Run& run, forms::Program& program) {
  return Script(program, run.out, run.streams, run.has_failed).Run(run.steps);
}

Status PrintSteps(Run& run, forms::Program& program) {
  run.out.BeginList();
  return DoSteps(run, program);
}

}  // namespace kestrune::cli
