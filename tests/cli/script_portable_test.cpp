// What a step may reach: pages, windows, and what stands behind a modal one.

#include "cli/command_line_run.h"
#include "cli/script.h"

namespace kestrune::cli {
namespace {

/// Any window stands in for a modal one: the gate alone knows which window takes all acts.
TEST(ScriptTest, AModalWindowLeavesOnlyLooksAtTheOthers) {
  struct Case {
    const char* step;
    const char* refusal;  ///< empty for a step that is done
  };
  const Case cases[] = {
      {"direct3d.misc.prerender-limit=5", "direct3d.misc.prerender-limit can't be used while"},
      {"info.basic.vga-device", "info.basic.vga-device can't be used while"},
      {"main.enable-help-system=off", "main.enable-help-system can't be used while"},
      {"main.nvcpl4", "main.nvcpl4 can't be used while"},
      {"page:opengl.misc", "opengl.misc can't be used while"},
      {"page:info.basic", "info.basic can't be used while"},
      {"open:main", "main can't be used while"},
      {"close:main", "main can't be used while"},
      {"?direct3d.misc.prerender-limit", ""},
      {"~direct3d.misc.prerender-limit", ""},
      {"wait:10", ""},
      {"open:help", ""},
      {"help.topic-8", "help.topic-8 is nothing that can be pressed"},
      {"close:help", ""}};
  for (const Case& each : cases) {
    test::FakeMachine machine;
    test::Driven driven(machine);
    driven.Hover("direct3d.misc.prerender-limit");
    driven.program.Gate().SetModal(&driven.program.FormOf("help").TheWindow());
    machine.TakeTrace();
    std::ostringstream text;
    Output out(text, false);
    const Status status =
        Script(driven.program, out, {text, text}).Run({ParseStep(each.step).value()});
    EXPECT_EQ(status == Status::kDone, *each.refusal == '\0') << each.step << ": " << text.str();
    EXPECT_NE(text.str().find(each.refusal), std::string::npos) << each.step << text.str();
    EXPECT_EQ(driven.program.ActivePage(), 4) << each.step;
    EXPECT_EQ(machine.TakeTrace(), std::vector<std::string>()) << each.step;
  }
}

TEST_F(CommandLineTest, APageThatTheWindowCannotReachIsRefused) {
  const std::string vista = "vista-geforce7900";
  const std::string box = "overclocking.core-clock";
  const std::vector<std::string> refused[] = {
      {"do", "page:overclocking"}, {"show", "overclocking"},
      {"get", "overclocking"},     {"get", box},
      {"set", box + "=400"},       {"press", "overclocking.apply"},
      {"do", "?" + box},           {"do", "~" + box},
      {"clocks", "show"},          {"clocks", "set", "400", "700"},
      {"clocks", "reset"}};
  for (const std::vector<std::string>& words : refused) {
    ExpectRefused(3, "can't reach overclocking", words, vista);
  }
  // Its key is disabled too, but the scroll bar of its group leads there.
  EXPECT_EQ(Run({"show", "info.directx"}, vista).status, 0);
  EXPECT_NE(Run({"show"}, vista).out.find("\n" + box), std::string::npos);
  // A page that the window starts with is there without a key.
  EXPECT_EQ(Run({"registry", "write", R"(HKCU\Software\Kestrune)", "LVP", "REG_DWORD", "3"}, vista)
                .status,
            0);
  EXPECT_EQ(Run({"get", box}, vista).status, 0);
}

}  // namespace
}  // namespace kestrune::cli
