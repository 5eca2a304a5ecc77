#include "cli/database_commands.h"

#include "platform/plain_text.h"
#include "regedit/database.h"

namespace kestrune::cli {

namespace {

using regedit::CategoryRow;
using regedit::DatabaseEntry;

void PrintEntry(Output& out, Json& list, const DatabaseEntry& entry) {
  std::string values;
  for (const std::int32_t value : entry.values) {
    values += (values.empty() ? "" : " ") + std::to_string(value);
  }
  out.Line(platform::PlainText(entry.name) + '\t' + platform::PlainText(entry.description) + '\t' +
           values);
  list.push_back(
      {{"name", entry.name}, {"description", entry.description}, {"values", entry.values}});
}

bool PrintCategory(Output& out, forms::Program& program, const CategoryRow& row) {
  const auto [file, entries] = program.DatabaseOf(row.category);
  out.Line(file);
  Json list = Json::array();
  if (entries) {
    for (const DatabaseEntry& entry : *entries) PrintEntry(out, list, entry);
  }
  out.Item({{"file", file}, {"entries", std::move(list)}});
  return entries.has_value();
}

constexpr std::string_view kTag = "d3d|ogl|sys";

bool IsAsked(const Arguments& arguments, const CategoryRow& row) {
  const std::string& tag = arguments.Word(kTag);
  return tag.empty() || tag == row.tag;
}

}  // namespace

platform::Result<std::vector<Step>> CheckTag(const Arguments& arguments) {
  for (const CategoryRow& row : regedit::kCategories) {
    if (IsAsked(arguments, row)) return std::vector<Step>();
  }
  return platform::Fail("\"" + arguments.Word(kTag) + "\" is none of d3d, ogl and sys.");
}

Status PrintDatabase(Run& run, forms::Program& program) {
  run.out.BeginList();
  bool all_opened = true;
  for (const CategoryRow& row : regedit::kCategories) {
    if (!IsAsked(run.arguments, row)) continue;
    all_opened = PrintCategory(run.out, program, row) && all_opened;
  }
  return all_opened ? Status::kDone : Status::kNo;
}

}  // namespace kestrune::cli
