// What `check` prints: nothing of what is shipped, the reason and the line of each fault of what is
// broken, and an end on whatever else there may be.

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>

#include "command_line_run.h"
#include "platform/portable/plain_user.h"

namespace kestrune::cli {
namespace {

namespace fs = std::filesystem;
using platform::ReadAll;
using Json = nlohmann::ordered_json;

constexpr std::string_view kShipped = KESTRUNE_DATA_FOLDER;
constexpr const char* kHost = KESTRUNE_DATA_FOLDER "/machines/host.toml";

/// A variable of the environment, put back at the end.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    setenv(name, value.c_str(), 1);
  }
  ~Variable() {
    if (before_) {
      setenv(name_, before_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

/// Everything below a folder, with what tells whether it was touched.
std::string Snapshot(const std::string& folder) {
  std::map<std::string, std::string> entries;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    struct stat status {};
    lstat(entry.path().c_str(), &status);
    entries[entry.path().string()] = std::to_string(status.st_mode) + ' ' +
                                     std::to_string(status.st_size) + ' ' +
                                     std::to_string(status.st_mtim.tv_nsec);
  }
  return testing::PrintToString(entries);
}

/// The shipped English file with some of its lines written otherwise; 0 stands for one behind the
/// last.
std::string English(const std::vector<std::pair<int, std::string>>& lines) {
  std::istringstream shipped(ReadAll(std::string(kShipped) + "/DATA/LANGUAGE/en.dat"));
  std::string text;
  std::string line;
  for (int number = 1; std::getline(shipped, line); ++number) {
    for (const auto& [place, other] : lines) {
      if (place == number) line = other;
    }
    text += line + '\n';
  }
  for (const auto& [place, other] : lines) {
    if (place == 0) text += other + '\n';
  }
  return text;
}

std::string Repeated(std::string_view line, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += line;
  return text;
}

std::string Entries(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "OGL_" + std::to_string(i) + ",What it does,1,x\n";
  return text;
}

/// On the shipped program folder, with a user's folder of the test's own.
struct CheckTest : CommandLineTest {
  CheckTest() { program_folder = kShipped; }

  std::string UserFile(const std::string& path) const { return folder / ("user/kestrune/" + path); }

  Variable user{"XDG_DATA_HOME", folder / "user"};
};

TEST_F(CheckTest, WhatIsShippedHasNoFault) {
  EXPECT_EQ(Out({"check"}), "");
  EXPECT_EQ(Run({"--json", "check"}).out, "[]\n");
  EXPECT_FALSE(fs::exists(folder / "winxp-geforce7800.store"));
  EXPECT_FALSE(fs::exists(folder / "user"));
}

struct Sample {
  std::string file;
  std::string bytes;
  std::string lines;  ///< that it must print, without the path
};

// The numbers and lines of the shipped English file are those of its texts.
const std::vector<Sample>& Samples() {
  static const std::vector<Sample> samples = {
      // Languages.
      {"LANGUAGE/a.dat", English({}), ""},
      {"LANGUAGE/b.dat", "Name",
       ":1: the language's name and the text beside the choice are missing"},
      {"LANGUAGE/c.dat", "Name\nHeader\n- codepage 9999\n",
       ":3: code page 9999 isn't known\n:4: the texts from 0 to 280 are missing"},
      {"LANGUAGE/d.dat", English({{14, "- codepage 1250"}}),
       ":14: a code page counts only right after the two header fields"},
      {"LANGUAGE/e.dat", English({{4, "\"\x81\""}}),
       ":4: code page 1252 has no character for the byte 81"},
      {"LANGUAGE/f.dat", English({{0, Repeated("\"\"\n", 19) + "x"}}),
       ":337: there are more than 300 texts"},
      {"LANGUAGE/g.dat", English({{4, "\"\""}, {11, "\"new\""}}),
       ":4: text 0 is empty\n:11: nothing shows text 7, \"new\""},
      {"LANGUAGE/h.dat", English({{143, "\"Same\""}, {145, "\"Same\""}}),
       ":145: text 129 must differ from text 127, \"Same\""},
      {"LANGUAGE/i.dat", English({{104, "\"Default Core speed:\""}}),
       ":104: text 92 must end with a blank, as in English"},
      {"LANGUAGE/j.dat", English({{316, "\"open"}}), ":316: the closing quote is missing"},
      {"LANGUAGE/k_old.dat", English({}),
       ": a language whose file has \"_\" in its name is never offered"},
      {"LANGUAGE/l.dat", English({{15, "- 10: twice"}}),
       ":15: a comment behind a comment is taken for text 10"},
      // Tables of cards.
      {"mt.dat", "04,4\n0041,0\n0141,2\n14,18\n1x,2\n1D",
       ":2: \"0\" is no number of textures from 1 to 17\n"
       ":3: \"0141\" is no card: two hexadecimal digits, or four for 004x\n"
       ":4: \"18\" is no number of textures from 1 to 17\n"
       ":5: \"1x\" is no card: two hexadecimal digits, or four for 004x\n"
       ":6: the file ends in the middle of a record"},
      {"PS.DAT", "04,3.0,5\n0a,2.0,4\n04,1.2,1\n1D,1.3,7\n21,2.0,5\n22,Enabled,6\n24,3.0",
       ":2: the card \"0a\" is looked up as \"0A\"\n"
       ":3: 04 stands here a second time\n:3: \"1.2\" is no shader version of the page\n"
       ":4: \"7\" is no slider position from 0 to 6\n"
       ":5: position 5 isn't that of 2.0, which is 4\n"
       ":7: the file ends in the middle of a record"},
      {"vs.dat", "04,1.3,1", ":1: \"1.3\" is no shader version of the page"},
      {"af.dat", "04,16\n14,4", ":2: \"4\" is none of 0, 2, 8 and 16"},
      {"aa.dat", "04,q\n0041,8\n14,Q",
       ":2: \"0041\" is no card: two hexadecimal digits\n:3: \"Q\" is none of 0, 4, q and 8"},
      // Databases.
      {"Database/0453ogl.dat",
       "OGL_a,Does it,1,2,3,4,5,6,7,8,9,10,x\nOGL_A,?,n,x\nabc,Does,&H10,x\n,Does,x\nOGL_c",
       ": a driver above that release looks for 453ogl.dat instead\n"
       ":1: OGL_a has more than 9 numbers\n"
       ":2: OGL_A stands here a second time\n:2: OGL_A has no description\n"
       ":2: \"n\" is no whole number of 32 bits\n"
       ":3: abc doesn't begin with OGL_\n"
       ":4: a value without a name\n"
       ":5: OGL_c ends without its \"x\""},
      {"Database/6177D3D.dat", "D3D_a,Does,x",
       ": no driver chooses it, since D3D isn't spelled d3d"},
      {"Database/617d3d.dat", "D3D_a,Does,x",
       ": its name isn't four digits and then d3d, ogl or sys, so no driver is sure to choose it"},
      {"Database/6177ogl.dat", Entries(102),
       ":102: profiles save no more than the first 101 values"},
      {"Database/6177sys.dat", "CoolBits,Shows a page,0,3,x", ""},
      // The performance wizard's files.
      {"PW/index.dat", "Good\nBare\nNone,../x\n\"\"\nGood",
       ":2: the entry \"Bare\" has no file for the cards 04\n"
       ":3: the entry \"None\" has no folder with files\n"
       ":3: the entry \"../x\" leads out of the folder\n:4: an entry without a name\n"
       ":5: the entry \"Good\" stands here a second time"},
      {"PW/Good/04.dat", "1,2,3,4", ""},
      {"PW/Good/14.dat", "1,2\n3", ":2: there are fewer than four numbers"},
      {"PW/Good/1D.dat", "1,2,3,4,5,6", ":1: there are more than four numbers"},
      {"PW/Good/21.dat", "1,2,a,4.5",
       ":1: \"a\" is no whole number of 32 bits\n:1: \"4.5\" is no whole number of 32 bits"},
      // Profiles.
      {"bad.ksp", "ksp\n33\n0\n0\na\nb\na\n99999999999\nClock speed\nfast",
       ":2: \"33\" is no card's identifier of four hexadecimal digits\n"
       ":5: \"b\", the value of a, is no whole number\n"
       ":7: \"99999999999\", the value of a, is beyond 32 bits\n:7: a stands here a second time\n"
       ":9: \"fast\" is no pair of clocks in whole MHz"},
      {"words.ksp", "words", ":1: this is no speed profile: it doesn't begin with \"ksp\""},
      {"by its first field", "ksp,999,0,0,OGL_a", ":1: the file ends in the middle of a record"},
      // Recordings.
      {"recording", "\"Monitoring file\"\n\"2\"\n\"1\"\n\"x\"\n\"3\"",
       ":2: \"2\" is neither 0 nor 1, for one or two processors\n:4: \"x\" is no whole number\n"
       ":5: the file ends in the middle of a sample"},
      {"sm.dat", "a", ":1: this is no recording: it doesn't begin with \"Monitoring file\""},
      // Machines and their registries.
      {"a.toml", "name = \"a\"\ncolour = 1\ncodepage = 99\nregistry = \"none.reg\"\n",
       ":2: unknown key \"colour\"\n:3: code page 99 isn't known\n"
       ":4: the registry file none.reg can't be read: No such file or directory"},
      {"b.toml",
       "registry = \"bad.reg\"\n[[display_device]]\nhardware_id = 'PCI\\VEN_10DE&DEV_0FE1&SUBSYS'\n"
       "[[display_device]]\nhardware_id = 'PCI\\VEN_1002&DEV_0FE1&SUBSYS'\n",
       ":1: the registry file bad.reg has a fault in line 3: \"]\" is missing\n"
       ":3: no table of cards has the device 0FE1"},
      {"c.toml", "[clocks]\ncore = \"fast\"",
       ":2: \"core\" must be a whole number from 1 to 32767"},
      {"d.toml", "a = [", ":1: Error while parsing array: encountered end-of-file"},
      {"bad.reg", "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\a\n", ":3: \"]\" is missing"},
      {"words.reg", "words", ":1: the first line is that of no registry file"},
      // Pictures and stores.
      {"a.jpg", "\xFF\xD8\xFF\xE0 cut", ": it is no whole picture"},
      {"a.store", "words", ": it isn't a registry store"},
  };
  return samples;
}

TEST_F(CheckTest, EachFaultIsToldWithItsLine) {
  // A program whose tables list one card, for which the wizard's entries need a file.
  program_folder = folder / "one card";
  folder.Write("one card/DATA/aa.dat", "04,4");
  folder.Write("one card/DATA/LANGUAGE/en.dat", English({}));
  folder.Write("samples/PW/Bare/14.dat", "1,2,3,4");
  std::vector<std::string> command = {"check"};
  std::string golden;
  for (const auto& [name, bytes, lines] : Samples()) {
    const std::string file = folder.Write("samples/" + name, bytes);
    command.push_back(file);
    std::istringstream each(lines);
    for (std::string line; std::getline(each, line);) golden += file + line + '\n';
  }
  const std::string before = Snapshot(folder / "samples");
  const Outcome outcome = Run(command, kHost);
  EXPECT_EQ(outcome.out, golden);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(Snapshot(folder / "samples"), before);
}

TEST_F(CheckTest, APictureIsComparedWithThoseShownInItsPlace) {
  const std::string small = ReadAll(std::string(kShipped) + "/DATA/hs/pic/ps.jpg");
  const std::string usual = ReadAll(std::string(kShipped) + "/DATA/aa/1/2x.jpg");
  for (const char* name : {"2x", "4x", "8x"}) {
    folder.Write(std::string("aa/1/") + name + ".jpg", usual);
  }
  const std::string odd = folder.Write("aa/1/16x.jpg", small);
  const std::string typed = folder.Write("aa/1/6x.jpg", small);
  const std::string elsewhere = folder.Write("holiday.jpg", small);
  const std::string told =
      ": it has 96 x 96 points, and the others that are shown there have "
      "468 x 276\n";
  EXPECT_EQ(Run({"check", odd, typed, elsewhere, folder / "aa/1/2x.jpg"}).out,
            odd + told + typed + told);
}

TEST_F(CheckTest, WhatCantBeToldIsRefusedAndTheRestChecked) {
  const std::string text = folder.Write("text", "words");
  const std::string bad = folder.Write("bad.ksp", "ksp\n999\n0\n0\na\nb\n");
  const Outcome outcome = Run({"--json", "check", text, bad, folder / "none"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "kestrunectl: what " + text +
                             " is for can't be told from its place, its ending or its first "
                             "field.\n");
  const Json found = Json::parse(outcome.out);
  EXPECT_EQ(
      found.at(0),
      Json({{"file", bad}, {"line", 5}, {"reason", "\"b\", the value of a, is no whole number"}}));
  EXPECT_EQ(found.at(1).at("reason"), "it can't be read: No such file or directory");
}

TEST_F(CheckTest, OddFilesEndACheckToo) {
  const std::vector<std::string> names = {"LANGUAGE/x.dat", "Database/6177ogl.dat",
                                          "PW/index.dat",   "PW/a/04.dat",
                                          "aa.dat",         "ps.dat",
                                          "x.ksp",          "x.toml",
                                          "x.reg",          "x.jpg",
                                          "x.store",        "sm.dat"};
  constexpr std::uintmax_t kHuge = 100 << 20;
  const auto check = [this](const std::string& file) {
    const Outcome outcome = Run({"check", file});
    EXPECT_TRUE(outcome.status == 0 || outcome.status == 1) << file << outcome.err;
    return outcome.out;
  };
  for (const std::string& name : names) {
    const std::string folder_there = folder / ("folder/" + name);
    fs::create_directories(folder_there);
    EXPECT_TRUE(check(folder_there).starts_with(folder_there + ": ")) << name;
    const std::string pipe = folder.Write("pipe/" + name, "");
    fs::remove(pipe);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_NE(check(pipe).find("it is no ordinary file"), std::string::npos) << name;
    const std::string huge = folder.Write("huge/" + name, "");
    fs::resize_file(huge, kHuge);
    EXPECT_TRUE(check(huge).starts_with(huge + ":")) << name;
    check(folder.Write("empty/" + name, ""));
    for (const std::string& bytes :
         {std::string("a,b"), std::string("a\rb\r"), std::string("a\0b\n\0", 5),
          std::string("ksp\rksp\r\r\r"), std::string("\"")}) {
      check(folder.Write("text/" + name, bytes));
    }
  }
  const std::string pipe = folder / "pipe/unknown";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(check(pipe), pipe + ": it can't be read: it is no ordinary file\n");
  // Lines are counted at each kind of line end.
  EXPECT_EQ(check(folder.Write("r.ksp", "ksp\r999\r0\r0\ra\rb")),
            folder / "r.ksp:5: \"b\", the value of a, is no whole number\n");
}

TEST_F(CheckTest, OfManyFindingsTheFirstHundredArePrinted) {
  const std::string file = folder.Write("aa.dat", Repeated("xx,8\n", 5000));
  const std::string out = Run({"check", file}).out;
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 101);
  EXPECT_TRUE(out.ends_with(file + ": and 9899 more\n")) << out.substr(out.size() - 100);
}

TEST_F(CheckTest, GoesThroughTheUsersFolderAndLooksAtStores) {
  program_folder.clear();
  const Variable program("KESTRUNE_PROGRAM_FOLDER", "");
  const std::string good = UserFile("a.store");
  ASSERT_EQ(RunCommandLine({"--store", good, "registry", "write", "HKCU\\Software", "a", "REG_SZ",
                            std::string(20000, 'a')},
                           machines, {std::cout, std::cerr}),
            0);
  const std::string sound = ReadAll(good);
  std::string damaged = sound;
  constexpr std::size_t kPage = 4096;
  damaged.replace(damaged.size() - 2 * kPage, kPage, kPage, '\x55');
  const std::string bad = folder.Write("user/kestrune/b.store", damaged);
  const std::string profile = folder.Write("user/kestrune/DATA/Presets/p.ksp", "ksp");
  const std::string language = folder.Write("user/kestrune/DATA/LANGUAGE/xx.dat", "a");
  const std::string recording = folder.Write("user/kestrune/sm.dat", "a");
  const std::string machine = folder.Write("user/kestrune/machines/m.toml", "a");
  const std::string covered = folder.Write("user/kestrune/DATA/af.dat", "14,3");
  const std::string before = Snapshot(folder / "user");
  const Outcome outcome = Run({"check"});
  const std::string golden =
      language + ":1: the language's name and the text beside the choice are missing\n" + profile +
      ":1: the file ends before its first value\n" + covered +
      ":1: \"3\" is none of 0, 2, 8 and 16\n" + bad + ": it is damaged\n" + machine +
      ":1: " + outcome.out.substr(outcome.out.find("m.toml:1: ") + 10);
  EXPECT_EQ(outcome.out, golden);
  EXPECT_TRUE(outcome.out.ends_with(
      recording + ":1: this is no recording: it doesn't begin with \"Monitoring file\"\n"));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(Snapshot(folder / "user"), before);
  EXPECT_EQ(Run({"check", good}).out, "");
}

TEST_F(CheckTest, LeavesAStoreThatOthersUseOrLeftAsItIs) {
  const std::string store = folder / "live.store";
  const auto write = [&](const char* name) {
    return RunCommandLine(
        {"--store", store, "registry", "write", "HKCU\\Software", name, "REG_SZ", "b"}, machines,
        {std::cout, std::cerr});
  };
  ASSERT_EQ(write("a"), 0);
  fs::create_directories(folder / "left");
  {
    const auto open = machines.Open({.store = store, .machine = "winxp-geforce6800"});
    ASSERT_TRUE(open.Ok()) << open.Reason();
    ASSERT_EQ(write("b"), 0);
    EXPECT_EQ(Run({"check", store}).out, "");
    for (const char* end : {"", "-wal", "-shm"}) {
      fs::copy_file(store + end, folder / ("left/live.store") + end);
    }
  }
  ASSERT_GT(fs::file_size(folder / "left/live.store-wal"), 0U);
  const std::string before = Snapshot(folder / "left");
  EXPECT_EQ(Run({"check", folder / "left/live.store"}).out, "");
  EXPECT_EQ(Snapshot(folder / "left"), before);
}

/// The examples of a document: each is a block behind a line with its path. Where one ends with
/// "...", the lines of `whole` from there on belong to it.
std::map<std::string, std::string> ExamplesOf(const std::string& document,
                                              const std::string& whole) {
  std::map<std::string, std::string> examples;
  std::istringstream lines(document);
  std::string path;
  for (std::string line; std::getline(lines, line);) {
    if (line != "```") {
      const bool is_path = line.size() > 2 && line.find('`', 1) == line.size() - 1;
      path = is_path && line.front() == '`' ? line.substr(1, line.size() - 2) : "";
      continue;
    }
    std::string& text = examples[path];
    std::size_t at = 0;
    while (std::getline(lines, line) && line != "```") {
      text += line == "..." ? whole.substr(at) : line + '\n';
      at = whole.find('\n', at) + 1;
    }
  }
  return examples;
}

TEST_F(CheckTest, TheExamplesOfTheDocumentHaveNoFault) {
  program_folder.clear();
  const Variable program("KESTRUNE_PROGRAM_FOLDER", "");
  const auto examples =
      ExamplesOf(ReadAll(std::string(kShipped) + "/../docs/data-formats.md"), English({}));
  std::vector<std::string> command = {"check"};
  std::string paths;
  for (const auto& [path, text] : examples) {
    command.push_back(folder.Write("user/kestrune/" + path, text));
    paths += path + '\n';
  }
  EXPECT_EQ(paths,
            "DATA/Database/6177ogl.dat\nDATA/LANGUAGE/eo.dat\nDATA/PW/Racing/14.dat\n"
            "DATA/PW/index.dat\nDATA/Presets/Sharp.ksp\nDATA/mt.dat\nDATA/ps.dat\n"
            "machines/attic.reg\nmachines/attic.toml\nsm.dat\n");
  EXPECT_EQ(Out(command), "");
  EXPECT_EQ(Out({"check"}), "");
  // They are used, too.
  EXPECT_EQ(
      Run({"registry", "read", R"(HKLM\SOFTWARE\NVIDIA Corporation\Global\NVTweak)", "CoolBits"},
          "attic")
          .out,
      "REG_DWORD 3\n");
  EXPECT_NE(Out({"languages"}).find("Esperanto\n"), std::string::npos);
}

TEST_F(CheckTest, FollowsNoLinkOutOfTheFoldersThatItWalks) {
  const std::string data = folder / "own/DATA";
  fs::create_directories(data);
  const std::string outside = folder.Write("outside/LANGUAGE/xx.dat", "broken");
  fs::create_directory_symlink(folder / "outside/LANGUAGE", data + "/LANGUAGE");
  const std::string away = folder.Write("outside/b.ksp", "broken");
  fs::create_directories(data + "/Presets");
  fs::create_symlink(away, data + "/Presets/away.ksp");
  fs::create_symlink("nowhere", data + "/Presets/dangling.ksp");
  fs::create_directory_symlink("..", data + "/Presets/above");
  const std::string inside = folder.Write("own/DATA/Presets/in.ksp", "broken");
  fs::create_symlink("in.ksp", data + "/Presets/link.ksp");
  fs::create_directories(folder / "own/machines");
  program_folder = folder / "own";
  const Outcome outcome = Run({"check"}, kHost);
  const std::string note = ": note: this link leads out of its folder and isn't followed\n";
  const std::string words = ":1: this is no speed profile: it doesn't begin with \"ksp\"\n";
  const std::string presets = data + "/Presets/";
  EXPECT_TRUE(
      outcome.out.starts_with(data + "/LANGUAGE" + note + presets + "away.ksp" + note + presets +
                              "dangling.ksp: it can't be read: No such file or directory\n" +
                              inside + words + presets + "link.ksp" + words + program_folder +
                              "/DATA/aa/1/auto.jpg: it can be asked for and isn't there\n"))
      << outcome.out;
}

TEST_F(CheckTest, NamesALanguageThatCantBeReadWhileItIsChosen) {
  const Variable program("KESTRUNE_PROGRAM_FOLDER", "");
  program_folder.clear();
  EXPECT_EQ(
      Run({"registry", "write", "HKCU\\Software\\Kestrune", "Language", "REG_SZ", "xx"}).status, 0);
  const std::string file = folder.Write("user/kestrune/DATA/LANGUAGE/xx.dat", English({}));
  fs::permissions(file, fs::perms::none);
  const platform::PlainUser plain;
  if (!plain.Works()) GTEST_SKIP() << "every user of this system is an administrator";
  const Outcome shown = Run({"--dry-run", "get", "control-panel.settings"});
  EXPECT_EQ(shown.status, 0) << shown.err;
  EXPECT_EQ(shown.out, "\n");
  EXPECT_EQ(shown.err, "");
  const Outcome outcome = Run({"check"});
  EXPECT_EQ(outcome.out, file + ": it can't be read: Permission denied\n");
  EXPECT_EQ(outcome.status, 1);
}

}  // namespace
}  // namespace kestrune::cli
