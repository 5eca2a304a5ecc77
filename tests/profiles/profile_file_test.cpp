// The profiles' files: what is read, refused and written.

#include "profiles/profile_file.h"

#include <gtest/gtest.h>

#include "fake_machine.h"
#include "profiles/check_profile.h"

namespace kestrune::profiles {
namespace {

using test::FakeMachine;

/// A reader's whole way through a text, in one line; a fault is its number in brackets.
std::string Told(std::string_view text) {
  ProfileReader reader(text);
  if (!reader.ReadSignature()) return "no profile";
  const auto fault = [](ProfileError error) {
    return "(" + std::to_string(static_cast<int>(error)) + ")";
  };
  const auto head = reader.ReadHead();
  if (!head) return fault(head.Reason());
  std::string told = head.Value().card + (head.Value().cleans ? " clean" : "") +
                     (head.Value().restores_clocks ? " restore" : "");
  while (true) {
    const auto record = reader.ReadRecord();
    if (!record) return told + fault(record.Reason());
    if (!record.Value()) return told;
    told += "|" + record.Value()->name + "=" + record.Value()->value;
  }
}

TEST(ProfileFileTest, IsReadFieldByField) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "no profile"},
      {"KSP,0091,0,0", "no profile"},
      {"\"ksp\"\r\n\"0091\"\r\n\"1\"\r\n\"1\"\r\n\"a\"\r\n\"5\"\r\n", "0091 clean restore|a=5"},
      {"ksp,999,0,0,a,1,\"Clock speed\",\"400,500\",b,2", "999|a=1|Clock speed=400,500|b=2"},
      {"ksp\n999\n 1 \n1.0\n", "999 clean restore"},
      {"ksp,999,01,&H1", "999 restore"},
      {"ksp,999,yes,maybe", "999"},
      {"ksp", "(62)"},
      {"ksp,999,1", "(62)"},
      {"ksp,999,1,1,a", "999 clean restore(62)"},
      {"ksp,999,0,0,a,1,b\r\n\r\n", "999|a=1(62)"},
      {"ksp,999,0,0,\"\",7", "999|=7"}};
  for (const auto& [text, told] : cases) EXPECT_EQ(Told(text), told) << text;
}

/// A number's or a pair's text read, or the number of the fault.
template <class Read>
std::string Answer(std::string_view text, const Read& read) {
  const auto result = read(text);
  if (!result) return "fault " + std::to_string(static_cast<int>(result.Reason()));
  return testing::PrintToString(result.Value());
}

TEST(ProfileFileTest, NumbersAreWholeAndOfThirtyTwoBits) {
  const std::pair<const char*, const char*> cases[] = {{"5", "5"},
                                                       {" -7 ", "-7"},
                                                       {"+3", "3"},
                                                       {"&HFFFF", "65535"},
                                                       {"&hffffffff", "-1"},
                                                       {"2147483647", "2147483647"},
                                                       {"2147483648", "fault 6"},
                                                       {"-2147483649", "fault 6"},
                                                       {"&H1FFFFFFFF", "fault 6"},
                                                       {"", "fault 13"},
                                                       {"x", "fault 13"},
                                                       {"1.0", "fault 13"},
                                                       {"1e3", "fault 13"},
                                                       {"--1", "fault 13"},
                                                       {"&HG", "fault 13"}};
  for (const auto& [text, answer] : cases) EXPECT_EQ(Answer(text, ReadNumber), answer) << text;
}

TEST(ProfileFileTest, ClocksAreTwoHalvesOfSixteenBits) {
  const auto read = [](std::string_view text) -> ProfileResult<std::string> {
    const auto clocks = ReadClockText(text);
    if (!clocks) return platform::FailWith(clocks.Reason());
    return std::to_string(clocks.Value().core) + " " + std::to_string(clocks.Value().memory);
  };
  const std::pair<const char*, const char*> cases[] = {
      {"400,500", "\"400 500\""}, {" -1 , 32767", "\"-1 32767\""}, {"400", "fault 13"},
      {"400,", "fault 13"},       {"40000,x", "fault 6"},          {"x,40000", "fault 13"},
      {"1,2,3", "fault 13"}};
  for (const auto& [text, answer] : cases) EXPECT_EQ(Answer(text, read), answer) << text;
}

TEST(ProfileFileTest, OnlyNamesOfFilesAreNames) {
  FakeMachine machine;
  for (const char* name :
       {"a", "Fast one", "3.5 best", "console", "COM", "com0", "\xC3\xA9t\xC3\xA9"}) {
    EXPECT_TRUE(IsProfileName(machine.Files(), name)) << name;
  }
  for (const char* name : {"", " ", "a ", "a.", "a/b", "a\\b", "a:b", "a*", "a?", "a\"", "a<", "a>",
                           "a|b", "a\tb", "con", "NUL.old", "Com1", "lpt9.x", "\xD0\x96"}) {
    EXPECT_FALSE(IsProfileName(machine.Files(), name)) << name;
  }
}

TEST(ProfileFileTest, AWordIsANameOfTheListOrAFile) {
  FakeMachine machine;
  const std::string folder = std::string(KESTRUNE_DATA_FOLDER) + "\\DATA\\Presets\\";
  EXPECT_EQ(PathOf(machine.Files(), "Fast"), folder + "Fast.ksp");
  for (const char* file : {"Fast.KSP", "./Fast", "C:\\Fast"}) {
    EXPECT_EQ(PathOf(machine.Files(), file), file);
  }
}

/// What a check finds, a line each; "all right" for nothing.
std::string Findings(std::string_view text, const detect::VersionState* versions = nullptr) {
  FakeMachine machine;
  std::string lines;
  for (const platform::Finding& finding : CheckProfile(text, machine.Files(), versions)) {
    lines +=
        std::to_string(finding.line) + (finding.is_note ? " note " : " ") + finding.reason + "|";
  }
  return lines.empty() ? "all right" : lines;
}

TEST(ProfileFileTest, ACheckNamesTheLineAndTheReason) {
  const std::pair<const char*, const char*> cases[] = {
      {"ksp\n0091\n0\n0\nD3D_a\n5\nClock speed\n\"400,500\"\n", "all right"},
      {"pdf\n", "1 this is no speed profile: it doesn't begin with \"ksp\"|"},
      {"ksp\n091\n0\n0\n", "2 \"091\" is no card's identifier of four hexadecimal digits|"},
      {"ksp\n999\n", "3 the file ends before its first value|"},
      {"ksp\n999\n0\n0\na\n1.5\nb\n9999999999\nA\n1\n",
       "5 \"1.5\", the value of a, is no whole number|7 \"9999999999\", the value of b, is beyond "
       "32 "
       "bits|9 A stands here a second time|"},
      {"ksp\n999\n0\n0\nClock speed\n400\na",
       "5 \"400\" is no pair of clocks in whole MHz|7 the file "
       "ends in the middle of a record|"},
      {"ksp\n999\n0\n0\nApp to run\n/nowhere at all\n",
       "5 the folder /nowhere at all can't be opened|5 the application has no command line|"},
      {"ksp\n999\n0\n0\nApp to run\n\ngame.exe\nmore\n",
       "8 what follows the application is never read|"}};
  for (const auto& [text, findings] : cases) EXPECT_EQ(Findings(text), findings) << text;
}

TEST(ProfileFileTest, ACheckOnAMachineNotesWhatItTakesOddly) {
  const detect::VersionState on_98 = {.OSFamily = 0, .DrvVer = 8000};
  EXPECT_EQ(
      Findings("ksp\n999\n0\n0\nD3DOGL_1\n1\nabcd\n1\nd3d_x\n1\nOGL_x\n1\n", &on_98),
      "5 note D3DOGL_1 goes to the OpenGL key on this system|7 note abcd is too short a name to "
      "be written on this system|");
  const detect::VersionState old_on_nt = {.OSFamily = 2, .DrvVer = 2960};
  EXPECT_EQ(Findings("ksp\n999\n0\n0\n", &old_on_nt),
            "2 note with this driver a profile saves no Direct3D values|");
}

}  // namespace
}  // namespace kestrune::profiles
