#include "cli/clock_commands.h"

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

/// Shows the page and chooses the pair, unless it is the one that the page shows.
Status ChoosePair(Script& script, forms::Program& program, bool is_3d) {
  if (const Status status = script.Run({PageStep()}); status != Status::kDone) return status;
  const std::string_view id = is_3d ? "overclocking.3d-speed" : "overclocking.2d-speed";
  if (program.Find(id)->ValueText() == "on") return Status::kDone;
  return script.Run({SetStep(id, "on")});
}

/// Whether a box holds text that was refused.
bool IsMarked(forms::Program& program, std::string_view id) {
  const auto* box = dynamic_cast<const controls::TextBox*>(program.Find(id));
  return box != nullptr && box->Marked();
}

}  // namespace

Status ShowClocks(forms::Program& program, const GlobalOptions& options, const Streams& streams,
                  bool is_3d) {
  Script script(program, options, streams);
  if (const Status status = ChoosePair(script, program, is_3d); status != Status::kDone) {
    return status;
  }
  if (!options.json) {
    for (const std::string_view id : kLines) {
      streams.out << OneLine(program.Find(id)->Caption()) << '\n';
    }
    return Status::kDone;
  }
  Json json = Json::object();
  for (const auto& [name, value] : program.State()) {
    for (const std::string_view wanted : kNumbers) {
      if (name == wanted) json[std::string(name)] = std::get<int>(value);
    }
  }
  streams.out << json.dump(2) << '\n';
  return Status::kDone;
}

Status SetClocks(forms::Program& program, const GlobalOptions& options, const Streams& streams,
                 bool is_3d, const std::string& core, const std::string& memory) {
  Script script(program, options, streams);
  if (const Status status = ChoosePair(script, program, is_3d); status != Status::kDone) {
    return status;
  }
  std::vector<Step> steps = {SetStep("overclocking.core-clock", core)};
  // With the 3D pair the memory's box is disabled: only its own number goes along.
  if (program.Find("overclocking.memory-clock")->ValueText() != memory) {
    steps.push_back(SetStep("overclocking.memory-clock", memory));
  }
  steps.push_back({.kind = Step::Kind::kPress, .id = "overclocking.apply"});
  const Status status = script.Run(steps);
  const bool refused = IsMarked(program, "overclocking.core-clock") ||
                       IsMarked(program, "overclocking.memory-clock");
  return refused ? Status::kImpossible : status;
}

Status ResetClocks(forms::Program& program, const GlobalOptions& options, const Streams& streams,
                   bool is_3d) {
  Script script(program, options, streams);
  if (const Status status = ChoosePair(script, program, is_3d); status != Status::kDone) {
    return status;
  }
  return script.Run({{.kind = Step::Kind::kPress, .id = "overclocking.default"}});
}

}  // namespace kestrune::cli
