// Speed profiles in the terminal.

#include <sys/stat.h>

#include "cli/command_line_run.h"
#include "cli/output.h"
#include "cli/saved_profiles.h"

namespace kestrune::cli {
namespace {

/// Writes profiles beside the shipped data.
struct ProfileCommandTest : CommandLineTest {
  ProfileCommandTest() {
    // What is saved goes to the user's folder, which stands before the installed one.
    setenv("XDG_DATA_HOME", (folder / "home").c_str(), 1);
    program_folder = "";
  }
  ~ProfileCommandTest() override { unsetenv("XDG_DATA_HOME"); }

  std::string Profile(const std::string& name) {
    return platform::ReadAll(folder / ("home/kestrune/DATA/Presets/" + name + ".ksp"));
  }
  std::string Key() {
    const std::string state = Run({"state"}).out;
    const std::size_t at = state.find("PureKey=") + 8;
    return "HKLM\\" + state.substr(at, state.find('\n', at) - at);
  }
};

TEST_F(ProfileCommandTest, AProfileIsSavedListedComparedAndApplied) {
  EXPECT_EQ(Out({"profile", "list"}), "");
  ASSERT_EQ(Run({"registry", "write", Key(), "OGL_TripleBuffer", "REG_BINARY", "01"}).status, 0);
  const Outcome saved = Run({"--trace", "profile", "save", "--clean", "Fast one"});
  EXPECT_EQ(saved.status, 0);
  EXPECT_EQ(saved.err,
            "file\twrite\tDATA/Presets/Fast one.ksp\nmessage: Saving the profile has finished.\n");
  EXPECT_EQ(Profile("Fast one"),
            "\"ksp\"\r\n\"0091\"\r\n\"1\"\r\n\"0\"\r\n\"OGL_TripleBuffer\"\r\n\"1\"\r\n");
  EXPECT_EQ(Out({"profile", "list"}), "Fast one\n");
  EXPECT_EQ(Out({"--json", "profile", "list"}), "[\n  {\n    \"name\": \"Fast one\"\n  }\n]\n");

  // The number is the same, and what it was stored as isn't.
  const std::string line = Key() + "\tOGL_TripleBuffer\tREG_BINARY 01\tREG_BINARY 01 00 00 00\n";
  EXPECT_EQ(Run({"profile", "diff", "Fast one"}).out, line);
  EXPECT_EQ(Run({"profile", "diff", "Fast one"}).status, 1);
  const Json diff = Json::parse(Run({"--json", "profile", "diff", "Fast one"}).out);
  EXPECT_EQ(diff.at(0).at("new"), "REG_BINARY 01 00 00 00");
  EXPECT_EQ(Run({"--trace", "profile", "apply", "Fast one"}).err,
            "delete\t" + Key() + "\tOGL_TripleBuffer\nwrite\t" + Key() +
                "\tOGL_TripleBuffer\tREG_BINARY 01 00 00 00\n");
  EXPECT_EQ(Out({"profile", "diff", "Fast one"}), "");
}

TEST_F(ProfileCommandTest, ClocksAndApplicationsAreLinesOfTheirOwn) {
  const std::string game = folder.Write("games/play.exe", "#!/bin/sh\n");
  chmod(game.c_str(), 0755);
  EXPECT_EQ(
      Run({"profile", "save", "--restore-clocks", "--clocks=300,1250", "--app=" + game, "Game"})
          .err,
      "message: Saving the profile has finished.\n");
  const std::string text = Profile("Game");
  EXPECT_NE(text.find("\"1\"\r\n\"Clock speed\"\r\n\"300,1250\"\r\n\"App to run\"\r\n\"" +
                      (folder / "games") + "\"\r\n\"" + game + "\"\r\n"),
            std::string::npos)
      << text;
  // Restored clocks are no difference.
  EXPECT_EQ(Run({"profile", "diff", "Game"}).out, "run\t" + game + "\n");
  const std::string other = folder.Write("other.ksp", "ksp,999,0,0,\"Clock speed\",\"300,1250\"");
  EXPECT_EQ(Run({"profile", "diff", other}).out, "clocks\t275,1200\t300,1250\n");
  EXPECT_EQ(Run({"--dry-run", "profile", "apply", "Game"}).status, 0);
  EXPECT_EQ(Run({"profile", "apply", other}).status, 0);
  EXPECT_EQ(Out({"profile", "diff", other}), "");
  EXPECT_NE(Out({"clocks", "show"}).find("Current Core speed: 300 MHz"), std::string::npos);
}

TEST_F(ProfileCommandTest, WhatIsRefusedSavesNothing) {
  struct Case {
    std::vector<std::string> words;
    int status;
    std::string part;
  };
  const std::string text = folder.Write("read me.txt", "");
  const Case cases[] = {
      {{"a/b"}, 3, "message: This name cannot be used for a profile."},
      {{"--clocks=1,2", "a."}, 3, "message: This name cannot be used for a profile."},
      {{"--clocks=fast,2", "a"}, 3, "message: Type the clock speed as a whole number"},
      {{"--clocks=400", "a"}, 2, "\"400\" is no CORE,MEMORY."},
      {{"--app=" + text, "a"}, 3, "is no program that can be browsed to."},
      {{"--app=/none/none.exe", "a"}, 3, "is no program that can be browsed to."}};
  for (const auto& [words, status, part] : cases) {
    std::vector<std::string> command = {"profile", "save"};
    command.insert(command.end(), words.begin(), words.end());
    const Outcome outcome = Run(command);
    EXPECT_EQ(outcome.status, status) << testing::PrintToString(words) << outcome.err;
    EXPECT_NE(outcome.err.find(part), std::string::npos) << outcome.err;
    EXPECT_EQ(Out({"profile", "list"}), "");
  }
}

TEST_F(ProfileCommandTest, AProfileThatCantBeAppliedEndsWithThree) {
  const std::string half = folder.Write("half.ksp", "ksp,999,0,0,OGL_a,1,OGL_b");
  const std::pair<std::string, const char*> cases[] = {
      {"none", "message: Error: Path not found 76\n"},
      {folder / "none.ksp", "message: Error: File not found 53\n"},
      {folder.Write("text.ksp", "words"), "message: This file is not a speed profile.\n"},
      {half, "message: Error: Input past end of file 62\n"}};
  for (const auto& [file, message] : cases) {
    const Outcome outcome = Run({"profile", "diff", file});
    EXPECT_EQ(outcome.status, 3) << file;
    EXPECT_EQ(outcome.err, message);
    // What stands before the fault would be changed.
    EXPECT_EQ(outcome.out,
              file == half ? Key() + "\tOGL_a\t-\tREG_BINARY 01 00 00 00\n" : std::string());
    EXPECT_EQ(Run({"profile", "apply", file}).status, 3) << file;
  }
}

TEST_F(ProfileCommandTest, ACheckKnowsTheMachine) {
  const std::string good = folder.Write("good.ksp", "ksp,999,0,0,D3DOGL_a,1");
  const std::string bad = folder.Write("bad.ksp", "ksp\n999\n0\n0\na\nb\n");
  EXPECT_EQ(Out({"profile", "check"}), "");
  EXPECT_EQ(Out({"profile", "check", good}), "");
  const Outcome on_98 = Run({"profile", "check", good}, "win98-tnt2");
  EXPECT_EQ(on_98.status, 0);
  EXPECT_EQ(on_98.out, good + ":1: note: D3DOGL_a goes to the OpenGL key on this system\n");
  const Outcome wrong = Run({"profile", "check", bad});
  EXPECT_EQ(wrong.status, 1);
  EXPECT_EQ(wrong.out, bad + ":5: \"b\", the value of a, is no whole number\n");
}

TEST_F(ProfileCommandTest, TheSavedBytesAreThoseThatEverySystemReads) {
  for (const SavedProfile& saved : {kSavedOnNt, kSavedOn9x}) {
    Run({"set", std::string(kLimit) + "=5", std::string(kTripleBuffering) + "=on"}, saved.machine);
    Run({"profile", "save", "--clocks=" + std::string(saved.clocks), saved.machine}, saved.machine);
    EXPECT_EQ(Profile(saved.machine), saved.bytes) << saved.machine;
  }
}

}  // namespace
}  // namespace kestrune::cli
