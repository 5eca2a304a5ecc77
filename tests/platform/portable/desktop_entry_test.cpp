#include "platform/portable/desktop_entry.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include "platform/portable/user_folders.h"
#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

/// A user with folders and a program of their own; both commands that refresh the desktop's lists
/// write down what they were told.
class AssociationTest : public testing::Test {
 protected:
  AssociationTest() {
    for (const char* name : {"KESTRUNE_STORE", "KESTRUNE_MACHINE", "KESTRUNE_PROGRAM_FOLDER"}) {
      unsetenv(name);
    }
    setenv("XDG_DATA_HOME", (folder_ / "home").c_str(), 1);
    setenv("XDG_DATA_DIRS", ((folder_ / "none") + ":" + (folder_ / "usr")).c_str(), 1);
    setenv("PATH", ((folder_ / "bin") + ":" + path_).c_str(), 1);
    for (const char* command : {"bin/update-mime-database", "bin/update-desktop-database"}) {
      Lay(command, "#!/bin/sh\necho \"$1\" > \"$0.tmp\"\nmv \"$0.tmp\" \"$0.told\"\n");
    }
    Lay("bin/kestrune", "");
    Lay("bin/other", "");
  }
  ~AssociationTest() override { setenv("PATH", path_.c_str(), 1); }

  void Lay(const char* name, std::string_view bytes) {
    std::filesystem::permissions(folder_.Write(name, bytes), std::filesystem::perms(0755));
  }
  bool IsWritten() const {
    const bool has_entry = std::filesystem::exists(Entry());
    EXPECT_EQ(has_entry, std::filesystem::exists(Mime()));
    return has_entry;
  }
  std::string Told(const char* command) {
    const std::string file = (folder_ / "bin/") + command + ".told";
    for (int i = 0; i < 500 && !std::filesystem::exists(file); ++i) usleep(10000);
    std::string told = ReadAll(file);
    std::filesystem::remove(file);
    return told;
  }
  std::string Entry() const { return folder_ / "home/applications/kestrune.desktop"; }
  std::string Mime() const { return folder_ / "home/mime/packages/kestrune.xml"; }

  TempFolder folder_;
  const std::string path_ = getenv("PATH");
  const std::string program_ = folder_ / "bin/kestrune";
};

TEST_F(AssociationTest, FoldersComeFromTheEnvironmentElseFromTheirDefaults) {
  setenv("XDG_DATA_DIRS", "/a:relative::/b", 1);
  EXPECT_EQ(DataFolders(), (std::vector<std::string>{"/a", "/b"}));
  for (const char* none : {"", static_cast<const char*>(nullptr)}) {
    none != nullptr ? setenv("XDG_DATA_DIRS", none, 1) : unsetenv("XDG_DATA_DIRS");
    EXPECT_EQ(DataFolders(), (std::vector<std::string>{"/usr/local/share", "/usr/share"}));
  }
}

TEST_F(AssociationTest, IsWrittenOnceAndAgainWhenItDiffers) {
  AssociateProfiles(program_);
  EXPECT_EQ(ReadAll(Entry()), DesktopEntry(program_));
  EXPECT_NE(ReadAll(Mime()).find("<glob pattern=\"*.ksp\" weight=\"80\"/>"), std::string::npos);
  EXPECT_NE(ReadAll(Entry()).find("\nMimeType=application/x-kestrune-profile;\n"),
            std::string::npos);
  EXPECT_NE(ReadAll(Mime()).find("type=\"application/x-kestrune-profile\""), std::string::npos);
  EXPECT_EQ(Told("update-mime-database"), (folder_ / "home/mime\n"));
  EXPECT_EQ(Told("update-desktop-database"), (folder_ / "home/applications\n"));

  const auto entry_time = std::filesystem::last_write_time(Entry());
  AssociateProfiles(program_);
  EXPECT_EQ(std::filesystem::last_write_time(Entry()), entry_time);
  folder_.Write("home/mime/packages/kestrune.xml", "old");
  AssociateProfiles(program_);
  EXPECT_NE(ReadAll(Mime()), "old");
  EXPECT_EQ(std::filesystem::last_write_time(Entry()), entry_time);
  Told("update-mime-database");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "bin/update-desktop-database.told"));
  AssociateProfiles(folder_ / "bin/other");
  EXPECT_EQ(ReadAll(Entry()), DesktopEntry(folder_ / "bin/other"));
  Told("update-desktop-database");
}

TEST_F(AssociationTest, IsLeftToWhoeverGivesPlacesOrIsNotThere) {
  for (const char* name : {"KESTRUNE_STORE", "KESTRUNE_MACHINE", "KESTRUNE_PROGRAM_FOLDER"}) {
    setenv(name, "x", 1);
    AssociateProfiles(program_);
    EXPECT_FALSE(IsWritten()) << name;
    unsetenv(name);
  }
  AssociateProfiles(folder_ / "bin/gone");
  AssociateProfiles("");
  EXPECT_FALSE(IsWritten());
  folder_.Write("home", "no folder");
  AssociateProfiles(program_);
  EXPECT_EQ(ReadAll(folder_ / "home"), "no folder");
}

TEST_F(AssociationTest, IsLeftToAnInstalledEntryThatStartsTheSameProgram) {
  std::filesystem::create_symlink(program_, folder_ / "bin/a link");
  struct Case {
    const char* file;
    std::string entry;
    bool is_written;
  };
  for (const Case& c : {
           Case{"x.desktop", "[Desktop Entry]\nExec=kestrune %f\n", false},
           Case{"x.desktop", "Exec=" + program_, false},
           Case{"x.desktop", "Exec=\"" + (folder_ / "bin/a link") + "\" %U", false},
           Case{"x.desktop", DesktopEntry(program_), false},
           Case{"x.desktop", "Exec=other\nExec=kestrune --new\n", false},
           Case{"x.desktop", "Exec=other kestrune\nTryExec=kestrune\n#Exec=kestrune", true},
           Case{"x.desktop", "Exec=\nExec=\"\nExec=%\nExec=\\", true},
           Case{"x.txt", "Exec=kestrune %f\n", true},
       }) {
    std::filesystem::remove_all(folder_ / "home");
    std::filesystem::remove_all(folder_ / "usr");
    folder_.Write("usr/applications/" + std::string(c.file), c.entry);
    AssociateProfiles(program_);
    EXPECT_EQ(IsWritten(), c.is_written) << c.entry;
    if (!c.is_written) continue;
    Told("update-mime-database");
    Told("update-desktop-database");
  }
}

TEST_F(AssociationTest, TheProgramIsQuotedByTheRulesOfDesktopEntries) {
  struct Case {
    const char* program;
    const char* exec;
  };
  for (const Case& c : {
           Case{"/usr/bin/kestrune", R"("/usr/bin/kestrune" %f)"},
           Case{"/my games/k", R"("/my games/k" %f)"},
           Case{"/a\"b`c$d\\e", R"("/a\\"b\\`c\\$d\\\\e" %f)"},
           Case{"/50%f", R"("/50%%f" %f)"},
           Case{"/a\nb\tc", R"("/a\nb\tc" %f)"},
       }) {
    const std::string entry = DesktopEntry(c.program);
    EXPECT_NE(entry.find("\nExec=" + std::string(c.exec) + "\n"), std::string::npos) << entry;
  }
  // Such an entry is recognised when it is installed.
  for (const char* name : {"odd/a\"b`c$d\\e", "odd/50%f", "odd/a\nb\tc", "odd/two words"}) {
    Lay(name, "");
    folder_.Write("usr/applications/odd.desktop", DesktopEntry(folder_ / name));
    AssociateProfiles(folder_ / name);
    EXPECT_FALSE(IsWritten()) << name;
  }
}

}  // namespace
}  // namespace kestrune::platform::portable
