#include "platform/unwritten_files.h"

#include <gtest/gtest.h>

#include "fake_files.h"

namespace kestrune::platform {
namespace {

using Names = std::vector<std::string>;

/// What became of a call: "done", or the fault's number and its reason.
template <class T>
std::string TextOf(const Result<T, FileFailure>& result) {
  if (result) return "done";
  return std::to_string(static_cast<int>(result.Reason().fault)) + ": " + result.Reason().reason;
}

const std::string kNoFile = "0: No such file or directory";

class UnwrittenFilesTest : public testing::Test {
 protected:
  UnwrittenFilesTest() {
    files_.Lay("Data/a.ksp", "old");
    files_.Lay("Data/b.ksp", "b");
  }
  ~UnwrittenFilesTest() override {
    EXPECT_EQ(files_.ListFiles("data", ""), (Names{"a.ksp", "b.ksp"}));
    EXPECT_EQ(files_.ListFiles("", ""), Names{});
    EXPECT_EQ(files_.ReadBytes("data/a.ksp"), "old");
    EXPECT_EQ(files_.ReadBytes("data/b.ksp"), "b");
  }

  test::FakeFiles files_{false};
  UnwrittenFiles dry_{files_};
};

TEST_F(UnwrittenFilesTest, WhatIsWrittenIsReadAndListedAndNowhereElse) {
  EXPECT_TRUE(dry_.WriteFile("\\DATA\\A.ksp", "new"));
  EXPECT_TRUE(dry_.WriteFile("data/c.KSP", "c"));
  EXPECT_TRUE(dry_.WriteFile("data/sub/d.ksp", "d"));
  EXPECT_TRUE(dry_.WriteFile("e.ksp", "e"));
  EXPECT_FALSE(dry_.WriteFile("../x", "x"));
  EXPECT_EQ(dry_.ListFiles("\\data\\", ".ksp"), (Names{"A.ksp", "b.ksp", "c.KSP"}));
  EXPECT_EQ(dry_.ListFiles("data/SUB", ""), Names{"d.ksp"});
  EXPECT_EQ(dry_.ListFiles("", ".KSP"), Names{"e.ksp"});
  EXPECT_EQ(dry_.ReadBytes("data/a.ksp"), "new");
  EXPECT_EQ(dry_.ReadBytes("data\\b.ksp"), "b");
  EXPECT_EQ(dry_.ReadFile(dry_.ProgramFolder() + "\\DATA\\C.ksp").Value(), "c");
  EXPECT_EQ(dry_.ReadFile(dry_.ProgramFolder() + "/Data/b.ksp").Value(), "b");
  EXPECT_EQ(dry_.Locate("data/a.ksp"), std::nullopt);
  EXPECT_EQ(TextOf(dry_.AppendFile("data/c.ksp", "more")), "done");
  EXPECT_EQ(dry_.ReadBytes("data/c.ksp"), "c");
  EXPECT_EQ(TextOf(dry_.AppendFile("none", "x")), kNoFile);
}

TEST_F(UnwrittenFilesTest, ADeletedFileIsGoneForThisRunAlone) {
  EXPECT_TRUE(dry_.WriteFile("Data/c.ksp", "c"));
  for (const char* path : {"data/b.KSP", "Data/C.ksp"}) {
    EXPECT_EQ(TextOf(dry_.RemoveFile(path)), "done") << path;
    EXPECT_EQ(TextOf(dry_.RemoveFile(path)), kNoFile) << path;
    EXPECT_EQ(dry_.ReadBytes(path), std::nullopt) << path;
    EXPECT_EQ(dry_.Locate(path), std::nullopt) << path;
    EXPECT_EQ(TextOf(dry_.ReadFile(dry_.ProgramFolder() + "/" + path)), kNoFile) << path;
  }
  EXPECT_EQ(dry_.ListFiles("data", ".ksp"), Names{"a.ksp"});
  EXPECT_TRUE(dry_.WriteFile("data/B.ksp", "new"));
  EXPECT_EQ(dry_.ListFiles("data", ".ksp"), (Names{"a.ksp", "B.ksp"}));
}

}  // namespace
}  // namespace kestrune::platform
