#include "cli/program_commands.h"

#include "cli/control_text.h"
#include "cli/script.h"
#include "platform/plain_text.h"
#include "ui/forms/main_form.h"

namespace kestrune::cli {

namespace {

/// A number of a process, by its name in a document.
struct NumberRow {
  const char* name;
  int platform::ProcessRecord::*number;
};

constexpr NumberRow kProcessNumbers[] = {{"id", &platform::ProcessRecord::id},
                                         {"parent", &platform::ProcessRecord::parent},
                                         {"threads", &platform::ProcessRecord::threads},
                                         {"priority", &platform::ProcessRecord::priority}};

Status PrintNames(Run& run, const std::vector<std::string>& names) {
  run.out.BeginList();
  for (const std::string& name : names) {
    run.out.Item({{"name", name}});
    run.out.Line(platform::PlainText(name));
  }
  return Status::kDone;
}

}  // namespace

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

Status Languages(Run& run, forms::Program& program) { return PrintNames(run, program.Languages()); }

Status Modes(Run& run, forms::Program& program) {
  const auto* list =
      dynamic_cast<controls::ListBox*>(program.Find("control-panel.resolution.select-resolution"));
  return PrintNames(run, list->Items());
}

Status Processes(Run& run, forms::Program& program) {
  Script script(program, run.out, run.streams, run.has_failed);
  const Status status = script.Run({{.kind = Step::Kind::kPage, .id = "info.processes"},
                                    {.kind = Step::Kind::kPress, .id = "info.processes.refresh"}});
  if (status != Status::kDone) return status;
  const auto& list = dynamic_cast<controls::ListBox&>(*program.Find("info.processes.processes"));
  const std::vector<platform::ProcessRecord>& table = program.Processes();
  run.out.BeginList();
  for (std::size_t i = 0; i < list.Items().size(); ++i) {
    const std::string& name = list.Items()[i];
    Json item = {{"name", name}};
    for (const NumberRow& row : kProcessNumbers) {
      item[row.name] = i < table.size() ? Json(table[i].*row.number) : Json();
    }
    run.out.Item(std::move(item));
    run.out.Line(platform::PlainText(name));
  }
  return Status::kDone;
}

}  // namespace kestrune::cli
