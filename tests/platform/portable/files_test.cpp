#include "platform/portable/files.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <thread>

#include "platform/portable/plain_user.h"
#include "platform/portable/whole_file.h"
#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

using Names = std::vector<std::string>;

TEST(FilesTest, PathsAreFoundWithoutRegardToCase) {
  TempFolder folder;
  folder.Write("DATA/mt.dat", "mt");
  folder.Write("data/only lower/Ünicode.DAT", "u");
  folder.Write("data/MT.dat", "MT");
  folder.Write("secret", "s");
  std::filesystem::create_directory(folder / "program");
  folder.Write("program/x/y.dat", "y");
  FolderFiles files({folder / ""}, 1252);
  struct Case {
    std::string path;
    std::optional<std::string> bytes;
  };
  for (const Case& c : {
           Case{"\\DATA\\mt.dat", "mt"},
           Case{"data/MT.DAT", "MT"},
           Case{"Data\\Mt.Dat", "mt"},
           Case{"\\DATA\\ONLY LOWER\\üNICODE.dat", "u"},
           Case{"//data//.\\mt.dat", "MT"},
           Case{"DATA\\none.dat", std::nullopt},
           Case{"DATA\\mt.dat\\more", std::nullopt},
           Case{"DATA", std::nullopt},
           Case{"", std::nullopt},
           Case{"DATA\\..\\secret", std::nullopt},
           Case{std::string("DATA\\mt.dat\0x", 13), std::nullopt},
       }) {
    EXPECT_EQ(files.ReadBytes(c.path), c.bytes) << c.path;
    EXPECT_EQ(files.Locate(c.path).has_value(), c.bytes.has_value()) << c.path;
  }
  FolderFiles inner({folder / "program"}, 1252);
  EXPECT_EQ(inner.ReadBytes("../secret"), std::nullopt);
  EXPECT_EQ(inner.ReadBytes("X/Y.dat"), "y");
}

TEST(FilesTest, TheFirstFolderHidesTheOthers) {
  TempFolder folder;
  folder.Write("user/data/A.dat", "mine");
  folder.Write("user/data/folder.dat/x", "");
  folder.Write("installed/DATA/a.DAT", "theirs");
  folder.Write("installed/DATA/B.dat", "b");
  folder.Write("installed/DATA/Ä.dat", "");
  folder.Write("installed/DATA/c.txt", "");
  FolderFiles files({folder / "user", folder / "missing", folder / "installed"}, 1252);
  EXPECT_EQ(files.ReadBytes("DATA\\a.dat"), "mine");
  EXPECT_EQ(files.ReadBytes("DATA\\b.dat"), "b");
  EXPECT_EQ(files.ListFiles("\\Data\\", ".DAT"), (Names{"A.dat", "B.dat", "Ä.dat"}));
  EXPECT_EQ(files.ListFiles("..", ""), Names{});
  EXPECT_EQ(files.ListFiles("nowhere", ""), Names{});
}

TEST(FilesTest, PicturesAreToldByTheirContents) {
  const std::string frame("\xFF\xC0\x00\x11\x08\x00\x10\x00\x20\x03\1\x22\0\2\x11\1\3\x11\1", 19);
  const std::string tables("\xFF\xE0\x00\x04\xFF\xD9", 6);
  const std::string scan("\xFF\xDA\x00\x02xyz", 7);
  const std::string start = "\xFF\xD8";
  const std::string end = "\xFF\xD9";
  struct Case {
    const char* name;
    std::string bytes;
    bool is_picture;
  };
  TempFolder folder;
  FolderFiles files({folder / ""}, 1252);
  for (const Case& c : {
           Case{"jpeg", start + tables + frame + scan + end, true},
           Case{"jpeg with bytes behind", start + frame + scan + end + "more", true},
           Case{"jpeg cut short", start + frame + scan, false},
           Case{"jpeg without frame", start + tables + scan + end, false},
           Case{"jpeg without data", start + frame + end, false},
           Case{"jpeg of rubbish", start + "rubbish" + end, false},
           Case{"png", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR....IEND", 24), true},
           Case{"png cut short", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR....", 20), false},
           Case{"bmp", std::string("BM\0\0\0\0\0\0\0\0\x1A\0\0\0", 14) + std::string(20, 'x'),
                true},
           Case{"bmp cut short", "BM", false},
           Case{"empty", "", false},
       }) {
    folder.Write("picture", c.bytes);
    EXPECT_EQ(files.IsPicture("PICTURE"), c.is_picture) << c.name;
  }
  EXPECT_FALSE(files.IsPicture("missing.jpg"));
}

/// All that stands in a folder, each name with its bytes.
std::string Everything(const std::string& folder) {
  std::map<std::string, std::string> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder);
    if (entry.is_regular_file()) found[name] = "=" + ReadAll(entry.path());
    if (entry.is_directory() && std::filesystem::is_empty(entry.path())) found[name] = "/";
  }
  std::string text;
  for (const auto& [name, bytes] : found) text += (text.empty() ? "" : " ") + name + bytes;
  return text;
}

TEST(FilesTest, AWrittenFileTakesItsNamesakesPlaceInTheFirstFolder) {
  struct Case {
    std::vector<std::string> laid;
    const char* path;
    const char* then;
  };
  for (const Case& c : {
           Case{{}, "DATA/Presets/x.ksp", "DATA/Presets/x.ksp=new"},
           Case{{}, "\\DATA\\Presets\\x.ksp", "DATA/Presets/x.ksp=new"},
           Case{{"data/PRESETS/other"},
                "\\DATA\\Presets\\x",
                "data/PRESETS/other=old data/PRESETS/x=new"},
           Case{{"DATA/x", "data/y"}, "data/X", "DATA/x=old data/X=new data/y=old"},
           Case{{"x.ksp"}, "X.KSP", "X.KSP=new"},
           Case{{"x.ksp", "X.ksp", "x.KSP"}, "x.Ksp", "x.Ksp=new"},
           Case{{"x.ksp", "X.ksp"}, "X.ksp", "X.ksp=new"},
           Case{{"ä", "b"}, "Ä", "b=old Ä=new"},
       }) {
    TempFolder folder;
    for (const std::string& file : c.laid) folder.Write("user/" + file, "old");
    folder.Write("installed/DATA/Presets/X.KSP", "installed");
    FolderFiles files({folder / "user", folder / "installed"}, 1252);
    const auto written = files.WriteFile(c.path, "new");
    EXPECT_TRUE(written) << c.path;
    EXPECT_EQ(Everything(folder / "user"), c.then) << c.path;
    EXPECT_EQ(files.ReadBytes(c.path), "new") << c.path;
    EXPECT_EQ(Everything(folder / "installed"), "DATA/Presets/X.KSP=installed");
  }
}

std::string TextOf(const FileFailure& failure) {
  constexpr const char* kFaults[] = {"no file", "no folder", "not usable", "other"};
  return std::string(kFaults[static_cast<int>(failure.fault)]) + ": " + failure.reason;
}

template <class T>
std::string TextOf(const Result<T, FileFailure>& result) {
  return result ? "done" : TextOf(result.Reason());
}

TEST(FilesTest, AFileThatCannotBeWrittenStaysAsItWas) {
  TempFolder folder;
  folder.Write("user/file", "old");
  folder.Write("user/folder/x", "x");
  folder.Write("user/shut/file", "old");
  ASSERT_EQ(mkfifo((folder / "user/Pipe").c_str(), 0600), 0);
  std::filesystem::permissions(folder / "user/shut", std::filesystem::perms(0555));
  std::filesystem::permissions(folder / "user", std::filesystem::perms(0777));
  FolderFiles files({folder / "user"}, 1252);
  const std::string before = Everything(folder / "user");
  PlainUser user;
  if (!user.Works()) GTEST_SKIP() << "this user can't give up its rights";
  const std::string long_name(300, 'x');
  struct Case {
    std::string path;
    const char* failure;
  };
  for (const Case& c : {
           Case{"FOLDER", "not usable: it is no ordinary file"},
           Case{"pipe", "not usable: it is no ordinary file"},
           Case{"file/x", "no folder: Not a directory"},
           Case{"shut/file", "not usable: Permission denied"},
           Case{"shut/new/file", "not usable: Permission denied"},
           Case{long_name, "other: File name too long"},
           Case{"", "other: Invalid argument"},
           Case{"../x", "other: Invalid argument"},
           Case{std::string("a\0b", 3), "other: Invalid argument"},
       }) {
    EXPECT_EQ(TextOf(files.WriteFile(c.path, "new")), c.failure) << c.path;
    EXPECT_EQ(Everything(folder / "user"), before) << c.path;
  }
}

/// No file of this process grows beyond a size while this lives.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit small{bytes, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &former_);
    signal(SIGXFSZ, SIG_DFL);
  }

 private:
  rlimit former_{};
};

TEST(FilesTest, AFullDiskLeavesTheOldFileWhole) {
  TempFolder folder;
  folder.Write("x.ksp", "old");
  FolderFiles files({folder / ""}, 1252);
  {
    const SmallDisk disk(1000);
    EXPECT_EQ(TextOf(files.WriteFile("X.ksp", std::string(1001, 'x'))), "other: File too large");
  }
  EXPECT_EQ(Everything(folder / ""), "x.ksp=old");
}

TEST(FilesTest, AWrittenFileGrowsAndIsDeleted) {
  TempFolder folder;
  folder.Write("user/Log", "a");
  folder.Write("user/folder/x", "x");
  folder.Write("installed/only", "o");
  FolderFiles files({folder / "user", folder / "installed"}, 1252);
  EXPECT_EQ(TextOf(files.AppendFile("\\LOG", "bc")), "done");
  EXPECT_EQ(files.ReadBytes("log"), "abc");
  {
    const SmallDisk disk(5);
    EXPECT_EQ(TextOf(files.AppendFile("log", "def")), "other: No space left on device");
    EXPECT_EQ(files.ReadBytes("log"), "abc");
    EXPECT_EQ(TextOf(files.AppendFile("log", "de")), "done");
    EXPECT_EQ(TextOf(files.AppendFile("log", "f")), "other: File too large");
  }
  EXPECT_EQ(files.ReadBytes("log"), "abcde");
  EXPECT_EQ(TextOf(files.RemoveFile("log")), "done");
  EXPECT_EQ(files.ReadBytes("log"), std::nullopt);
  for (const char* path : {"log", "only", "folder"}) {
    EXPECT_EQ(TextOf(files.AppendFile(path, "x")), "no file: No such file or directory") << path;
    EXPECT_EQ(TextOf(files.RemoveFile(path)), "no file: No such file or directory") << path;
  }
  EXPECT_EQ(TextOf(files.AppendFile("none/x", "x")), "no folder: No such file or directory");
  EXPECT_EQ(TextOf(files.AppendFile("../user/log", "x")), "other: Invalid argument");
  EXPECT_EQ(TextOf(files.RemoveFile("")), "other: Invalid argument");
  EXPECT_EQ(files.ReadBytes("only"), "o");
}

TEST(FilesTest, APathThatBeginsWithTheProgramFolderIsAProgramFile) {
  TempFolder folder;
  folder.Write("user/data/X.ksp", "mine");
  folder.Write("home/DATA/x.ksp", "theirs");
  folder.Write("home/data/folder.ksp/x", "");
  folder.Write("home2/x.ksp", "own");
  folder.Write("big", std::string(kLongestDataFile + 1, 'x'));
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  ASSERT_EQ(mkfifo((folder / "home/pipe").c_str(), 0600), 0);
  ASSERT_EQ(symlink("loop", (folder / "loop").c_str()), 0);
  ASSERT_EQ(symlink("/no/where", (folder / "link").c_str()), 0);
  FolderFiles files({folder / "user", folder / "home//"}, 1252);
  EXPECT_EQ(files.ProgramFolder(), folder / "home");
  struct Case {
    std::string path;
    std::string then;
  };
  for (const Case& c : {
           Case{"home\\DATA\\x.ksp", "mine"},
           Case{"home/data/X.KSP", "mine"},
           Case{"home/../home2/x.ksp", "own"},
           Case{"home2/x.ksp", "own"},
           Case{"home/data/folder.ksp", "not usable: Is a directory"},
           Case{"home/PIPE", "not usable: it is no ordinary file"},
           Case{"home\\data\\none", "no file: No such file or directory"},
           Case{"home\\none\\x.ksp", "no folder: No such file or directory"},
           Case{"home\\data\\x.ksp\\y", "no folder: No such file or directory"},
           Case{"none", "no file: No such file or directory"},
           Case{"link", "no file: No such file or directory"},
           Case{"none/x", "no folder: No such file or directory"},
           Case{"big/x", "no folder: Not a directory"},
           Case{"home2", "not usable: Is a directory"},
           Case{"pipe", "not usable: it is no ordinary file"},
           Case{"loop", "other: Too many levels of symbolic links"},
           Case{"big", "other: it has 16777217 bytes, and at most 16777216 are read"},
           Case{std::string(300, 'x'), "other: File name too long"},
           Case{std::string("home2/x.ksp\0y", 13), "other: Invalid argument"},
       }) {
    const auto read = files.ReadFile(folder / c.path);
    EXPECT_EQ(read ? read.Value() : TextOf(read), c.then) << c.path;
  }
  EXPECT_EQ(TextOf(files.ReadFile("/dev/zero")), "not usable: it is no ordinary file");
}

TEST(FolderListingTest, ProgramsAreToldByTheirRightsOrTheirNames) {
  TempFolder folder;
  folder.Write("b.exe", "");
  folder.Write("A.EXE", "");
  folder.Write("Äx", "");
  folder.Write("äa", "");
  folder.Write("exe", "");
  folder.Write(".hidden.exe", "");
  folder.Write("z/x", "");
  folder.Write("B/x", "");
  folder.Write(".config/x", "");
  folder.Write("folder.exe/x", "");
  for (const char* name : {"Äx", "äa", "A.EXE", ".hidden.exe"}) {
    std::filesystem::permissions(folder / name, std::filesystem::perms(0755));
  }
  ASSERT_EQ(mkfifo((folder / "pipe.exe").c_str(), 0777), 0);
  ASSERT_EQ(symlink("z", (folder / "link").c_str()), 0);
  ASSERT_EQ(symlink("äa", (folder / "run.exe").c_str()), 0);
  ASSERT_EQ(symlink("none", (folder / "gone.exe").c_str()), 0);
  const Names folders = {".config", "B", "folder.exe", "link", "z"};
  FolderFiles by_name({}, 1252);
  EXPECT_EQ(by_name.ListFolder(folder / "")->folders, folders);
  EXPECT_EQ(by_name.ListFolder(folder / "")->programs, (Names{"A.EXE", "b.exe", "run.exe"}));
  FolderFiles by_right({}, 1252, ProgramNames::kExecutable);
  EXPECT_EQ(by_right.ListFolder(folder / "")->folders, folders);
  EXPECT_EQ(by_right.ListFolder(folder / "")->programs, (Names{"A.EXE", "run.exe", "äa", "Äx"}));
  for (const char* none : {"none", "exe", "pipe.exe", "gone.exe"}) {
    EXPECT_FALSE(by_name.ListFolder(folder / none)) << none;
  }
  EXPECT_FALSE(by_name.ListFolder(std::string("/\0x", 3)));
}

TEST(FolderListingTest, DrivesAreTheRootAndWhatIsMountedForPeople) {
  EXPECT_EQ(DrivesAmong(""), Names{"/"});
  EXPECT_EQ(DrivesAmong("/dev/sda1 / ext4 rw 0 0\n"
                        "tmpfs /mnt tmpfs rw 0 0\n"
                        "tmpfs /run tmpfs rw 0 0\n"
                        "/dev/sdc1 /run/media/a/My\\040Disk\\134x vfat rw 0 0\n"
                        "/dev/sdb1 /mnt/usb vfat rw 0 0\n"
                        "/dev/sdb1 /mnt/usb vfat rw 0 0\n"
                        "/dev/sr0 /media/cd\\9 iso9660 ro 0 0\n"
                        "tmpfs /mediation/x tmpfs rw 0 0\n"
                        "/dev/sdd1 /media/last"),
            (Names{"/", "/media/cd\\9", "/media/last", "/mnt/usb", "/run/media/a/My Disk\\x"}));
  FolderFiles files({}, 1252);
  EXPECT_EQ(files.Drives().front(), "/");
  for (const auto& [folder, path] : {std::pair{"/", "/x"}, {"/a", "/a/x"}, {"/a/", "/a/x"}}) {
    EXPECT_EQ(files.PathOf(folder, "x"), path);
  }
}

TEST(WholeFileTest, OnlyOrdinaryFilesUpToTheirLimitAreRead) {
  TempFolder folder;
  const auto told = [](const std::string& path, PipesToo pipes = PipesToo::kNo) {
    const auto read = ReadWholeFile(path, 10000, pipes);
    return read.Ok() ? std::to_string(read.Value().size()) : read.Reason().reason;
  };
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(told(folder.Write("empty", "")), "0");
  EXPECT_EQ(told(folder.Write("most", std::string(10000, 'x'))), "10000");
  EXPECT_EQ(told(folder.Write("more", std::string(10001, 'x'))),
            "it has 10001 bytes, and at most 10000 are read");
  EXPECT_NE(told("/proc/self/status"), "0");
  EXPECT_EQ(told("/dev/zero"), "it is no ordinary file");
  EXPECT_EQ(told("/dev/zero", PipesToo::kYes), "it is no ordinary file");
  EXPECT_EQ(told(pipe), "it is no ordinary file");
  EXPECT_EQ(told("/proc"), "Is a directory");
  for (const std::size_t size : {0U, 10000U, 10001U}) {
    std::thread writer([&] { std::ofstream(pipe) << std::string(size, 'x'); });
    const std::string expected =
        size > 10000 ? "it has more than the 10000 bytes that are read" : std::to_string(size);
    EXPECT_EQ(told(pipe, PipesToo::kYes), expected);
    writer.join();
  }
}

}  // namespace
}  // namespace kestrune::platform::portable
