#include "platform/portable/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

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
