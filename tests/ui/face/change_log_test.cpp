#include "ui/face/change_log.h"

#include <gtest/gtest.h>

namespace kestrune::face {
namespace {

using platform::TraceKind;

TEST(ChangeLogTest, SaysTheFirstChangeAndHowManyMoreThereWere) {
  struct Case {
    std::vector<std::string> changes;
    const char* line;
  };
  const Case cases[] = {
      {{"write\tHKLM\\K\tD3DOGL_70835937\tREG_BINARY 10 00 00 10"},
       "D3DOGL_70835937 = 10 00 00 10"},
      {{"write\tHKCU\\K\tHelpSystem\tREG_DWORD 0", "delete\tHKLM\\K\ta", "delete\tHKLM\\K\tb"},
       "HelpSystem = 0   +2"},
      {{"delete\tHKLM\\K\tD3DOGL_74095213"}, "D3DOGL_74095213 = -"},
      {{"write\tHKCU\\K\tlanguage\tREG_SZ "}, "language = "}};
  ChangeLog log;
  const platform::TraceSink sink = log.Sink();
  for (const Case& each : cases) {
    std::string trace;
    for (const std::string& change : each.changes) {
      sink(TraceKind::kChange, change);
      trace += (trace.empty() ? "" : "\n") + change;
    }
    const std::optional<ChangeNote> note = log.Take();
    ASSERT_TRUE(note);
    EXPECT_EQ(note->line, each.line);
    EXPECT_EQ(note->trace, trace);
  }
  sink(TraceKind::kCommand, "run\trundll32");
  EXPECT_FALSE(log.Take()) << "a command is no change";
}

}  // namespace
}  // namespace kestrune::face
