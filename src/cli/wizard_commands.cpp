#include "cli/wizard_commands.h"

#include "cli/script.h"
#include "core/number.h"
#include "platform/case_fold.h"
#include "platform/plain_text.h"
#include "wizard/tuning.h"

namespace kestrune::cli {

using platform::Fail;
using platform::Result;

namespace {

constexpr std::string_view kFine = "--fine=AA,TF";

Step SetStep(std::string_view control, std::string value) {
  return {.kind = Step::Kind::kSet,
          .id = std::string("performance-wizard.").append(control),
          .value = std::move(value)};
}

/// Both words of the fine adjustment, where it is asked for.
std::vector<std::string> FineWords(const Arguments& arguments) {
  const std::string& fine = arguments.Word(kFine);
  if (fine.empty()) return {};
  const std::size_t comma = fine.find(',');
  if (comma == fine.npos) return {fine, ""};
  return {fine.substr(0, comma), fine.substr(comma + 1)};
}

std::vector<Step> SliderSteps(const Arguments& arguments) {
  std::vector<Step> steps = {SetStep("quality", arguments.Word("QUALITY"))};
  if (const std::vector<std::string> fine = FineWords(arguments); !fine.empty()) {
    steps.push_back(SetStep("fine-adjust", "on"));
    steps.push_back(SetStep("antialiasing", fine[0]));
    steps.push_back(SetStep("texture-filtering", fine[1]));
  }
  return steps;
}

/// Without an index the combo's own text is offered, though no item.
bool IsOfferedWithoutIndex(Run& run, const std::string& entry) {
  return platform::SameWithoutCase(entry, wizard::kDefaultEntry) &&
         !wizard::ReadIndex(run.session->Files());
}

}  // namespace

Result<std::vector<Step>> CheckWizardWords(const Arguments& arguments) {
  const std::string& quality = arguments.Word("QUALITY");
  if (!core::ParseNumber(quality)) return Fail("\"" + quality + "\" is no number.");
  for (const std::string& word : FineWords(arguments)) {
    if (!core::ParseNumber(word)) return Fail("\"" + arguments.Word(kFine) + "\" is no AA,TF.");
  }
  return std::vector<Step>();
}

Status RunWizard(Run& run, forms::Program& program) {
  Script script(program, run.out, run.streams, run.has_failed);
  std::vector<Step> steps = {{.kind = Step::Kind::kOpen, .id = "performance-wizard"}};
  const std::string& entry = run.arguments.Word("ENTRY");
  if (!IsOfferedWithoutIndex(run, entry)) steps.push_back(SetStep("auto-settings-for", entry));
  for (Step& step : SliderSteps(run.arguments)) steps.push_back(std::move(step));
  if (const Status set = script.Run(steps); set != Status::kDone) return set;
  const std::vector<std::string> preview = program.FormOf("performance-wizard")
                                               .Get<controls::ListBox>("performance-wizard.preview")
                                               .Items();
  const Status done =
      script.Run({{.kind = Step::Kind::kPress, .id = "performance-wizard.optimize"}});
  run.out.BeginList();
  for (const std::string& line : preview) {
    run.out.Item({{"line", line}});
    run.out.Line(platform::PlainText(line));
  }
  return done;
}

}  // namespace kestrune::cli
