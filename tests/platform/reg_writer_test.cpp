#include "platform/reg_writer.h"

#include <gtest/gtest.h>

#include "fake_files.h"
#include "platform/memory_registry.h"
#include "platform/open_key.h"
#include "platform/reg_file.h"
#include "platform/utf16.h"

namespace kestrune::platform {
namespace {

constexpr RegRoot kUser = RegRoot::kCurrentUser;

/// A registry of its own and the machine's code page.
struct RegWriterTest : testing::Test {
  void Set(std::string_view path, std::string_view name, int type, std::string_view bytes) {
    OpenKey key(registry);
    ASSERT_EQ(key.Create(kUser, path), RegStatus::kSuccess);
    const auto data = std::as_bytes(std::span(bytes.data(), bytes.size()));
    ASSERT_EQ(registry.SetValue(key.Handle(), name, static_cast<RegType>(type), data),
              RegStatus::kSuccess);
  }
  std::string Written(RegTextForm form, std::string_view path = "T") {
    const auto text = WriteRegText(registry, kUser, path, form, files);
    return text ? text.Value() : "fault: " + text.Reason();
  }
  void ImportAnew(const std::string& bytes) {
    ASSERT_EQ(registry.DeleteKey(kUser, "T"), RegStatus::kSuccess);
    const auto done = ImportRegFile(bytes, "x.reg", files, registry);
    ASSERT_TRUE(done) << done.Reason();
  }

  MemoryRegistry registry;
  test::FakeFiles files{false};
};

TEST_F(RegWriterTest, ParentsAndDefaultValuesComeFirst) {
  Set("T\\b\\c", "", 1, std::string_view("x\0", 2));
  Set("T", "z", 4, "\x01\x02\x03\xFF");
  Set("T", "", 1, std::string_view("a\\\"\0", 4));
  Set("T\\A", "n", 3, "");
  Set("T\\a\\deep", "m", 2, std::string_view("%\0", 2));
  EXPECT_EQ(Written(RegTextForm::kVersion4),
            "REGEDIT4\r\n\r\n"
            "[HKEY_CURRENT_USER\\T]\r\n@=\"a\\\\\\\"\"\r\n\"z\"=dword:ff030201\r\n\r\n"
            "[HKEY_CURRENT_USER\\T\\A]\r\n\"n\"=hex:\r\n\r\n"
            "[HKEY_CURRENT_USER\\T\\A\\deep]\r\n\"m\"=hex(2):25,00\r\n\r\n"
            "[HKEY_CURRENT_USER\\T\\b]\r\n\r\n"
            "[HKEY_CURRENT_USER\\T\\b\\c]\r\n@=\"x\"\r\n\r\n");
  EXPECT_NE(Written(RegTextForm::kVersion5).find("\"m\"=hex(2):25,00,00,00\r\n"),
            std::string::npos);
}

TEST_F(RegWriterTest, WhatIsWrittenReadsBackTheSame) {
  std::string bytes;
  for (int i = 0; i < 300; ++i) bytes.push_back(static_cast<char>(i));
  Set("T\\empty", "x", 1, "");
  Set("T\\odd ] [-; name", "q\"\\=;[", 3, bytes);
  for (const int type : {0, 3, 4, 5, 11, 255}) Set("T", "t" + std::to_string(type), type, bytes);
  for (const int type : {1, 2, 7}) {
    const std::string name = std::to_string(type);
    Set("T", "none" + name, type, "");
    Set("T", "open" + name, type, "open");
    Set("T", "lines" + name, type, std::string_view("a\r\nb\tc\0", 7));
    Set("T", "two" + name, type, std::string_view("a\0\xC3\xA4\0\0", 6));
    Set("T", "euro" + name, type, std::string_view("\xE2\x82\xAC\0", 4));
  }
  Set("T", "dword", 4, std::string_view("\0\0\0\x80", 4));
  Set("T", "two\r\nlines\n", 1, std::string_view("\xC3\xA4\0", 3));
  Set("T", "\xC3\x84", 1, std::string_view("\0", 1));
  const std::string version5 = Written(RegTextForm::kVersion5);
  const std::string version4 = Written(RegTextForm::kVersion4);
  for (const std::string& text :
       {version5, "\xFF\xFE" + ToUtf16(version5), ToUtf16(version5), version4}) {
    ImportAnew(text);
    EXPECT_EQ(Written(RegTextForm::kVersion5), version5);
  }
  for (std::size_t at = 0; (at = version4.find('\n', at)) != std::string::npos; ++at) {
    const std::size_t next = version4.find('\n', at + 1);
    EXPECT_LE(next == std::string::npos ? 0 : next - at, 82u) << version4.substr(at, next - at);
  }
}

TEST_F(RegWriterTest, HalfACharacterIsGivenAsBytes) {
  Set("T", "n", 1, std::string_view("a\xED\xA0\xBD\0", 5));
  const std::string text = Written(RegTextForm::kVersion5);
  EXPECT_NE(text.find("\"n\"=hex(1):61,00,3d,d8,00,00\r\n"), std::string::npos) << text;
  ImportAnew(text);
  EXPECT_EQ(Written(RegTextForm::kVersion5), text);
}

TEST_F(RegWriterTest, WhatAFormCannotSayIsNamed) {
  Set("T\\a", "n", 1, std::string_view("\xD0\x94\0", 3));
  const std::string version5 = Written(RegTextForm::kVersion5);
  EXPECT_EQ(Written(RegTextForm::kVersion4),
            "fault: The value n of HKCU\\T\\a can't be written in REGEDIT4.");
  ImportAnew(version5);
  EXPECT_EQ(Written(RegTextForm::kVersion5), version5);
  Set("T\\a", "n", 2, "\xFF");
  EXPECT_EQ(Written(RegTextForm::kVersion5),
            "fault: The value n of HKCU\\T\\a can't be written in version 5.");
  Set("T\\a", "n", 3, "\xFF");
  EXPECT_TRUE(Written(RegTextForm::kVersion4).ends_with("\"n\"=hex:ff\r\n\r\n"));
  Set("T\\\xD0\x94", "n", 3, "");
  EXPECT_EQ(Written(RegTextForm::kVersion4),
            "fault: The name of HKCU\\T\\\xD0\x94 can't be written in REGEDIT4.");
  Set("T\\line\nend", "n", 3, "");
  EXPECT_TRUE(Written(RegTextForm::kVersion5).starts_with("fault: The name of HKCU\\T\\line"));
}

TEST_F(RegWriterTest, TheHardwareIsNeitherWrittenNorImported) {
  const auto import = [this](const std::string& lines) {
    const auto done = ImportRegFile("REGEDIT4\n" + lines, "x.reg", files, registry);
    EXPECT_TRUE(done) << done.Reason();
    return std::to_string(done.Value().keys) + "/" + std::to_string(done.Value().values);
  };
  const auto all = [this] {
    return WriteRegText(registry, RegRoot::kLocalMachine, "hardware", RegTextForm::kVersion4, files)
        .Value();
  };
  EXPECT_EQ(import("[HKEY_LOCAL_MACHINE\\Hardware\\DeviceMap]\n\"a\"=\"b\"\n\"c\"=-\n"
                   "[HKEY_LOCAL_MACHINE\\HARDWARE\\description\\System]\n\"x\"=\"y\"\n"
                   "[HKEY_LOCAL_MACHINE\\HARDWARE\\DescriptionS]\n[-HKEY_LOCAL_MACHINE\\none]\n"),
            "3/2");
  const std::string before = all();
  EXPECT_EQ(before.find("System"), std::string::npos);
  EXPECT_NE(before.find("DescriptionS"), std::string::npos);
  OpenKey key(registry);
  ASSERT_EQ(key.Create(RegRoot::kLocalMachine, "HARDWARE\\DESCRIPTION\\System"),
            RegStatus::kSuccess);
  EXPECT_EQ(all(), before);
  EXPECT_EQ(import("[-HKEY_LOCAL_MACHINE\\HARDWARE\\DESCRIPTION]\n[-HKEY_LOCAL_MACHINE\\HARDWARE]"),
            "1/0");
  EXPECT_EQ(all(), "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\hardware]\r\n\r\n");
  EXPECT_EQ(key.Open(RegRoot::kLocalMachine, "HARDWARE\\DESCRIPTION\\System"), RegStatus::kSuccess);
}

}  // namespace
}  // namespace kestrune::platform
