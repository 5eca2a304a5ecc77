#include "cli/program_commands.h"

#include "cli/control_text.h"
#include "platform/plain_text.h"
#include "ui/forms/main_form.h"

namespace kestrune::cli {

Status Pages(Run& run, forms::Program& program) {
  run.out.BeginList();
  for (int page = 0; page < forms::PageCount(); ++page) {
    const controls::Control& frame = program.Main().Page(page);
    run.out.Item({{"index", page}, {"id", frame.Id()}, {"caption", frame.Caption()}});
    run.out.Line(std::to_string(page) + '\t' + frame.Id() + '\t' +
                 platform::PlainText(frame.Caption()));
  }
  return Status::kDone;
}

Status State(Run& run, forms::Program& program) {
  run.out.BeginObject();
  for (const auto& [name, value] : program.State()) {
    const auto* number = std::get_if<int>(&value);
    const std::string text =
        number != nullptr ? std::to_string(*number) : std::get<std::string>(value);
    run.out.Member(name, number != nullptr ? Json(*number) : Json(text));
    run.out.Line(std::string(name) + '=' + platform::PlainText(text));
  }
  return Status::kDone;
}

Status Languages(Run& run, forms::Program& program) {
  run.out.BeginList();
  for (const std::string& name : program.Languages()) {
    run.out.Item({{"name", name}});
    run.out.Line(platform::PlainText(name));
  }
  return Status::kDone;
}

}  // namespace kestrune::cli
