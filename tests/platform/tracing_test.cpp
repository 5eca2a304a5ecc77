#include "platform/tracing.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fake_files.h"
#include "platform/memory_registry.h"
#include "platform/value_text.h"

namespace kestrune::platform {
namespace {

constexpr RegRoot kUser = RegRoot::kCurrentUser;

class SilentShell : public ShellApi {
 public:
  bool StartCommand(std::string_view, WindowState) override { return true; }
  Result<std::unique_ptr<ChildProcess>, StartFault> StartProgram(std::string_view,
                                                                 WindowState) override {
    return FailWith(StartFault::kNotFound);
  }
  bool SetCurrentFolder(std::string_view) override { return true; }
  bool OpenWebPage(std::string_view) override { return true; }
  bool OpenControlPanelItem(std::string_view) override { return true; }
};

struct TracingTest : testing::Test {
  /// The lines since the last call, with a slash for each tab.
  std::string Lines() {
    std::string text;
    for (const std::string& line : std::exchange(lines, {})) text += line + "\n";
    std::replace(text.begin(), text.end(), '\t', '/');
    return text;
  }
  RegHandle Key(std::string_view path) {
    RegHandle key = 0;
    EXPECT_EQ(registry.CreateKey(kUser, path, key), RegStatus::kSuccess);
    return key;
  }

  std::vector<std::string> lines;
  MemoryRegistry untraced_registry;
  Trace trace{[this](TraceKind, const std::string& line) { lines.push_back(line); }};
  TracingRegistry registry{untraced_registry, trace};
  SilentShell silent;
  TracingShell shell{silent, trace};
  test::FakeFiles untraced{false};
  TracingFiles files{untraced, trace};
};

TEST_F(TracingTest, TellsWhatReachedTheRegistry) {
  const RegHandle key = Key("K");
  registry.SetValue(key, "a", RegType::kSz, TextData("x"));
  registry.SetValue(key, "a", RegType::kSz, TextData("x"));
  registry.DeleteValue(key, "a");
  registry.DeleteValue(key, "a");
  registry.SetDefaultValue(kUser, "K\\L", "y");
  registry.SetDefaultValue(kUser, "", "y");
  EXPECT_EQ(Lines(),
            "write/HKCU\\K/a/REG_SZ x\nwrite/HKCU\\K/a/REG_SZ x\ndelete/HKCU\\K/a\n"
            "write/HKCU\\K\\L/@/REG_SZ y\n");
}

TEST_F(TracingTest, TellsChangesOfModeThatHappenAndRestarts) {
  class Screen : public DisplayApi {
   public:
    std::optional<DisplayDevice> DeviceAt(int) override { return std::nullopt; }
    std::optional<DisplayMode> ModeAt(int) override { return std::nullopt; }
    ModeChange ChangeMode(const ModeRequest&) override { return change; }
    bool MustConfirm() override { return false; }
    void RestartComputer() override {}
    ModeChange change = ModeChange::kDone;
  } screen;
  TracingDisplay display(screen, trace);
  EXPECT_EQ(display.ChangeMode({640, 480, 16, 60, true}), ModeChange::kDone);
  EXPECT_EQ(display.ChangeMode({640, 480}), ModeChange::kDone);
  screen.change = ModeChange::kRestartNeeded;
  EXPECT_EQ(display.ChangeMode({800, 600, 32, {}, true}), ModeChange::kRestartNeeded);
  screen.change = ModeChange::kFailed;
  EXPECT_EQ(display.ChangeMode({1024, 768}), ModeChange::kFailed);
  display.RestartComputer();
  EXPECT_EQ(Lines(),
            "mode/640x480x16/saved\nmode/640x480/unsaved\nmode/800x600x32/saved\nrestart\n");
}

TEST_F(TracingTest, TellsEachValueOfADeletedKey) {
  for (const char* path : {"K", "K\\b\\x", "K\\b", "K\\A"}) {
    const RegHandle key = Key(path);
    for (const char* name : {"n", "", "M"}) registry.SetValue(key, name, RegType::kNone, {});
  }
  Lines();
  EXPECT_EQ(registry.DeleteKey(kUser, "K\\"), RegStatus::kSuccess);
  std::string expected;
  for (const char* path : {"K", "K\\A", "K\\b", "K\\b\\x"}) {
    for (const char* name : {"@", "M", "n"}) {
      expected += std::string("delete/HKCU\\") + path + "/" + name + "\n";
    }
  }
  EXPECT_EQ(Lines(), expected);
  EXPECT_EQ(registry.DeleteKey(kUser, "K"), RegStatus::kNotFound);
  EXPECT_EQ(Lines(), "");
}

TEST_F(TracingTest, TellsAGroupAtItsEndAndOnlyTheCommandsOfOneThatIsTakenBack) {
  const RegHandle key = Key("K");
  const auto group = [&](bool keep) {
    ChangeScope outer(registry);
    registry.SetValue(key, "a", RegType::kNone, {});
    shell.StartCommand("first", WindowState::kNormal);
    {
      ChangeScope inner(registry);
      registry.DeleteValue(key, "a");
      EXPECT_EQ(inner.Commit(), RegStatus::kSuccess);
    }
    shell.OpenControlPanelItem("second");
    EXPECT_TRUE(files.WriteFile("\\Data\\.\\x\ty.ksp", "bytes"));
    EXPECT_FALSE(files.WriteFile("..\\x", "bytes"));
    EXPECT_FALSE(shell.StartProgram("third", WindowState::kNormal));
    EXPECT_EQ(Lines(), "");
    if (keep) {
      EXPECT_EQ(outer.Commit(), RegStatus::kSuccess);
    }
  };
  group(true);
  EXPECT_EQ(Lines(),
            "write/HKCU\\K/a/TYPE_0\nrun/first\ndelete/HKCU\\K/a\nopen/second\n"
            "file/write/Data/x\\ty.ksp\nrun/third\n");
  group(false);
  EXPECT_EQ(Lines(), "run/first\nopen/second\nfile/write/Data/x\\ty.ksp\nrun/third\n");
}

TEST_F(TracingTest, TellsAFileWhenItIsBegunAndWhenItIsGone) {
  EXPECT_FALSE(files.AppendFile("a", "x"));
  EXPECT_FALSE(files.RemoveFile("a"));
  EXPECT_TRUE(files.WriteFile("a", "x"));
  EXPECT_TRUE(files.AppendFile("a", "y"));
  EXPECT_TRUE(files.RemoveFile("A"));
  EXPECT_EQ(Lines(), "file/write/a\nfile/delete/A\n");
}

}  // namespace
}  // namespace kestrune::platform
