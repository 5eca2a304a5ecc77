#include "cli/clock_commands.h"

#include <algorithm>
#include <iterator>

#include "cli/script.h"
#include "platform/plain_text.h"
#include "ui/forms/overclocking_page.h"

namespace kestrune::cli {

namespace {

constexpr std::string_view kLines[] = {
    "overclocking.default-core-speed", "overclocking.default-memory-speed",
    "overclocking.current-core-speed", "overclocking.current-memory-speed"};
constexpr std::string_view kNumbers[] = {"DefaultCoreMHz", "DefaultMemoryMHz", "CoreMHz",
                                         "MemoryMHz"};

Step SetStep(std::string_view id, const std::string& value) {
  return {.kind = Step::Kind::kSet, .id = std::string(id), .value = value};
}

Step PageStep() { return {.kind = Step::Kind::kPage, .id = "overclocking"}; }

/// Shows the page and chooses the pair that is asked for, as its options do. A card that has one
/// pair has none but the 2D pair, whatever an earlier card has left behind.
Status ChoosePair(Run& run, forms::Program& program, Script& script) {
  if (const Status status = script.Run({PageStep()}); status != Status::kDone) return status;
  const bool wants_2d = run.arguments.Flag("--2d");
  const bool wants_3d = run.arguments.Flag("--3d");
  const bool has_choice = program.Find("overclocking.3d-speed")->Enabled();
  if (has_choice && wants_2d) return script.Run({SetStep("overclocking.2d-speed", "on")});
  if (has_choice && wants_3d) return script.Run({SetStep("overclocking.3d-speed", "on")});
  if (!wants_3d) return Status::kDone;
  run.streams.Complain("this card has one pair of clocks, so there is no 3D pair to choose.");
  return Status::kImpossible;
}

/// Whether a box holds text that the page refuses. A clock beyond the card's range is marked and
/// set all the same.
bool IsRefused(forms::Program& program, std::string_view id) {
  return !forms::TypedClock(program.Find(id)->ValueText());
}

}  // namespace

Status ShowClocks(Run& run, forms::Program& program) {
  Script script(program, run.out, run.streams, run.has_failed);
  if (const Status status = ChoosePair(run, program, script); status != Status::kDone) {
    return status;
  }
  for (const std::string_view id : kLines)
    run.out.Line(platform::PlainText(program.Find(id)->Caption()));
  run.out.BeginObject();
  for (const auto& [name, value] : program.State()) {
    if (std::find(std::begin(kNumbers), std::end(kNumbers), name) == std::end(kNumbers)) continue;
    run.out.Member(name, std::get<int>(value));
  }
  return Status::kDone;
}

Status SetClocks(Run& run, forms::Program& program) {
  Script script(program, run.out, run.streams, run.has_failed);
  if (const Status status = ChoosePair(run, program, script); status != Status::kDone) {
    return status;
  }
  std::vector<Step> steps = {SetStep("overclocking.core-clock", run.arguments.Word("CORE"))};
  // While the page shows the 3D pair the memory's box is disabled: only its own number goes along.
  const std::string& memory = run.arguments.Word("MEMORY");
  if (program.Find("overclocking.memory-clock")->ValueText() != memory) {
    steps.push_back(SetStep("overclocking.memory-clock", memory));
  }
  steps.push_back({.kind = Step::Kind::kPress, .id = "overclocking.apply"});
  const Status status = script.Run(steps);
  const bool refused = IsRefused(program, "overclocking.core-clock") ||
                       IsRefused(program, "overclocking.memory-clock");
  if (!refused) return status;
  run.streams.Complain("the clocks can't be set to \"" + run.arguments.Word("CORE") + "\" and \"" +
                       memory + "\".");
  return Status::kImpossible;
}

Status ResetClocks(Run& run, forms::Program& program) {
  Script script(program, run.out, run.streams, run.has_failed);
  if (const Status status = ChoosePair(run, program, script); status != Status::kDone) {
    return status;
  }
  return script.Run({{.kind = Step::Kind::kPress, .id = "overclocking.default"}});
}

}  // namespace kestrune::cli
