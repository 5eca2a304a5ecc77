#include "platform/reg_file.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "fake_files.h"

namespace kestrune::platform {
namespace {

/// The changes as text: "+KEY", "NAME:TYPE=hex" and "-NAME", one a line.
std::string Told(std::string_view bytes, int code_page = 1252) {
  test::FakeFiles files(false, code_page);
  RegFileReader reader(bytes, files);
  std::string told;
  while (const RegFileChange* step = reader.Next()) {
    const RegFileChange& change = *step;
    const bool is_deleted = change.kind == RegFileChange::Kind::kDeleteKey;
    if (is_deleted || change.kind == RegFileChange::Kind::kCreateKey) {
      const char root = "CUM"[static_cast<std::uint32_t>(change.root) & 3];
      told += std::string(is_deleted ? "-" : "+") + root + ":" + change.key;
    } else if (change.kind == RegFileChange::Kind::kDeleteValue) {
      told += "-" + change.name;
    } else {
      told += change.name + ":" + std::to_string(static_cast<std::uint32_t>(change.type)) + "=";
      char digits[3];
      for (const std::byte byte : change.data) {
        std::snprintf(digits, sizeof(digits), "%02x", std::to_integer<unsigned>(byte));
        told += digits;
      }
    }
    told += "\n";
  }
  const auto& fault = reader.Fault();
  return fault ? std::to_string(fault->line) + ": " + fault->reason : told;
}

std::string Utf16(std::u16string_view text) {
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : text) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
  }
  return bytes;
}

constexpr const char* kV5 = "Windows Registry Editor Version 5.00\r\n";

TEST(RegFileTest, EveryFormOfDataIsTaken) {
  struct Case {
    const char* lines;
    const char* told;
  };
  for (const auto& [lines, told] : {
           Case{"", ""},
           Case{"; comment\r\n\r\n \t; another", ""},
           Case{"\"n\"=\"a\\\\b\\\"c\"", "n:1=615c62226300\n"},
           Case{"@=\"\"", ":1=00\n"},
           Case{"  \"q\\\"\\\\\"  =  \"x\" ; comment", "q\"\\:1=7800\n"},
           Case{"\"n\"=dword:000009C4", "n:4=c4090000\n"},
           Case{"\"n\"=DWORD:fFFFffff", "n:4=ffffffff\n"},
           Case{"\"n\"=hex:10,00, 10,5", "n:3=10001005\n"},
           Case{"\"n\"=hex:", "n:3=\n"},
           Case{"\"n\"=hex:01,\\\r\n  02,03,\\\r\n04 ; comment", "n:3=01020304\n"},
           Case{"\"n\"=hex(0):25,00", "n:0=2500\n"},
           Case{"\"n\"=hex(1):\n\"m\"=hex(7):", "n:1=\nm:7=\n"},
           Case{"\"two\nlines\"=\"and\r\n two \n\" ; x\n@=-",
                "two\nlines:1=616e640d0a2074776f200a00\n-\n"},
           Case{"[-HKEY_LOCAL_MACHINE\\K\\L] ; x\n[HKEY_LOCAL_MACHINE\\A]\n@=-",
                "-M:K\\L\n+M:A\n-\n"},
           Case{"\"n\"=hex(b):01\r\n@=-\r\n\"x\"=-", "n:11=01\n-\n-x\n"},
           Case{"\"a;b]=\"=\"[;\"", "a;b]=:1=5b3b00\n"},
       }) {
    const std::string key = "[HKEY_LOCAL_MACHINE\\K]\r\n";
    EXPECT_EQ(Told("REGEDIT4\r\n\r\n" + key + lines), std::string("+M:K\n") + told) << lines;
    EXPECT_EQ(Told(kV5 + key + lines), std::string("+M:K\n") + told) << lines;
  }
}

TEST(RegFileTest, TextIsDecodedAsTheFileSays) {
  const char16_t* wide =
      u"Windows Registry Editor Version 5.00\n[hkey_current_user\\Ä]\n\"ö\"=\"€😀\"\n"
      u"\"t\"=hex(1):e4,00,00,00";
  EXPECT_EQ(Told(Utf16(wide)), "+U:Ä\nö:1=e282acf09f988000\nt:1=c3a400\n");
  EXPECT_EQ(Told(std::string("\xEF\xBB\xBF") + kV5 + "[HKEY_CLASSES_ROOT\\Ä]\n@=\"€\""),
            "+C:Ä\n:1=e282ac00\n");
  EXPECT_EQ(Told("REGEDIT4\n[HKEY_CURRENT_USER\\\xC4]\n\"n\"=\"\x80\"\n\"t\"=hex(1):e4,00"),
            "+U:Ä\nn:1=e282ac00\nt:1=c3a400\n");
  EXPECT_EQ(Told("REGEDIT4\n[HKEY_CURRENT_USER\\\xC4]", 1251), "+U:Д\n");
  // Some exporters print each name in the narrowest form that has its characters.
  const std::string mixed =
      std::string(kV5) + "[HKEY_CURRENT_USER\\\xC4]\n\"\xD0\x94\"=hex(1):e4,00,00,00";
  EXPECT_EQ(Told(mixed, 1251), "+U:Ä\nД:1=c3a400\n");
  EXPECT_EQ(Told("\xEF\xBB\xBF" + mixed), "2: this isn't valid UTF-8");
  EXPECT_EQ(Told("REGEDIT4\n[HKEY_CURRENT_USER]\n[HKEY_CURRENT_USER\\a]b\\] ; x"), "+U:\n+U:a]b\n");
}

TEST(RegFileTest, TheFirstFaultIsToldWithItsLine) {
  struct Case {
    const char* text;
    const char* fault;
  };
  for (const auto& [text, fault] : {
           Case{"", "1: the first line is that of no registry file"},
           Case{"\nREGEDIT4", "1: the first line is that of no registry file"},
           Case{"REGEDIT5\n", "1: the first line is that of no registry file"},
           Case{"REGEDIT4\n@=-", "2: a value stands before the first key"},
           Case{"REGEDIT4\n[-HKEY_CURRENT_USER]", "2: a root can't be deleted"},
           Case{"REGEDIT4\n[-HKEY_USERS\\K]", "2: HKEY_USERS is no root"},
           Case{"REGEDIT4\n[]", "2: the key has no root"},
           Case{"REGEDIT4\n[-\\K]", "2: the key has no root"},
           Case{"REGEDIT4\r[HKEY_CURRENT_USER\\K]\r",
                "1: the first line is that of no registry file"},
           Case{"REGEDIT4\n[HKEY_CURRENT_USER\\K]\n[-HKEY_CURRENT_USER\\L]\n\"a\"=\"b\"",
                "4: a value stands behind a key that is deleted"},
           Case{"REGEDIT4\n[HKEY_CURRENT_USER\\K", "2: \"]\" is missing"},
           Case{"REGEDIT4\n[HKEY_USERS\\K]", "2: HKEY_USERS is no root"},
           Case{"REGEDIT4\n[HKEY_CURRENT_USER\\\\K]", "2: a part of the key's path is empty"},
           Case{"REGEDIT4\n[HKEY_CURRENT_USER]\n@=\"\"", "3: a root holds no values"},
       }) {
    EXPECT_EQ(Told(text), fault) << text;
  }
  for (const auto& [text, fault] : {
           Case{"word", "4: this is neither a key nor a value"},
           Case{"\"n\"", "4: \"=\" is missing after the value's name"},
           Case{"\"n=1", "4: the closing quote is missing"},
           Case{"\"n=1\n\n\"m\"=dword:2", "4: \"=\" is missing after the value's name"},
           Case{"@=\"n\n\"m\"=\"o\"", "4: something follows the data"},
           Case{"@=hex(2):01", "4: half a character ends the text"},
           Case{"@=hex(7):01,00,02", "4: half a character ends the text"},
           Case{"@=\"C:\\dir\"", "4: \"\\\" is followed by neither \"\\\" nor a quote"},
           Case{"@=\"a\" b", "4: something follows the data"},
           Case{"@=text", "4: the data is of no known form"},
           Case{"@=dword:", "4: a dword has one to eight hexadecimal digits"},
           Case{"@=dword:123456789", "4: a dword has one to eight hexadecimal digits"},
           Case{"@=dword:-1", "4: a dword has one to eight hexadecimal digits"},
           Case{"@=hex:1g", "4: \",\" is missing between two bytes"},
           Case{"@=hex:01,\\\n02 03", "5: \",\" is missing between two bytes"},
           Case{"@=hex:01,\\", "4: the line that \"\\\" announces is missing"},
           Case{"@=hex:01,\\\n\n02", "6: this is neither a key nor a value"},
           Case{"@=hex:01\\\n,02", "5: a byte is one or two hexadecimal digits"},
           Case{"@=hex(100000000):01", "4: the type in \"hex(...)\" is a hexadecimal number"},
           Case{"@=-1", "4: something follows the data"},
           Case{"@=hex:,01", "4: a byte is one or two hexadecimal digits"},
           Case{"@=hex(x):01", "4: the type in \"hex(...)\" is a hexadecimal number"},
           Case{"@=hex01", "4: \":\" is missing after \"hex\""},
           Case{"@=hex(1):01", "4: half a character ends the text"},
       }) {
    EXPECT_EQ(Told(std::string(kV5) + "\n[HKEY_CURRENT_USER\\K]\n" + text), fault) << text;
  }
}

TEST(RegFileTest, TheRegistrysLimitsAreFaultsOfTheirLine) {
  const auto names = [](int count) {
    std::string path;
    for (int i = 0; i < count; ++i) path += "\\k";
    return "\n[HKEY_CURRENT_USER" + path + "]";
  };
  const auto value = [](std::size_t length) {
    return "\n[HKEY_CURRENT_USER\\K]\n\"" + std::string(length, 'x') + "\"=dword:1";
  };
  const auto data = [](std::size_t length) {
    return "\n[HKEY_CURRENT_USER\\K]\n@=\"" + std::string(length - 1, 'x') + "\"";
  };
  const auto long_key = [](const std::string& name, int count) {
    std::string key = "\n[HKEY_CURRENT_USER\\a\\";
    for (int i = 0; i < count; ++i) key += name;
    return key + "]";
  };
  struct Case {
    std::string lines;
    const char* fault;
  };
  for (const Case& c : {
           Case{names(512), ""},
           Case{names(513), "2: keys have at most 512 levels"},
           Case{long_key("Ä", 255), ""},
           Case{long_key("😀", 127), ""},
           Case{long_key("😀", 128), "2: a key's name has at most 255 characters"},
           Case{long_key("Ä", 256), "2: a key's name has at most 255 characters"},
           Case{long_key(std::string(1, '\0'), 1), "2: a key's name has no NUL"},
           Case{value(16383), ""},
           Case{value(16384), "3: a value's name has at most 16383 characters"},
           Case{data(1 << 20), ""},
           Case{data((1 << 20) + 1), "3: a value has at most 1048576 bytes"},
       }) {
    const std::string told = Told("Windows Registry Editor Version 5.00" + c.lines);
    EXPECT_EQ(told.starts_with('+') ? "" : told, c.fault);
  }
}

TEST(RegFileTest, TextGivenAsBytesIsThatOfTheForm) {
  for (const char* type : {"1", "2", "7"}) {
    const std::string lines = std::string("[HKEY_CURRENT_USER\\K]\n\"t\"=hex(") + type + "):e4,00";
    EXPECT_EQ(Told("REGEDIT4\n" + lines), "+U:K\nt:" + std::string(type) + "=c3a400\n");
    EXPECT_EQ(Told(kV5 + lines + ",00,00"), "+U:K\nt:" + std::string(type) + "=c3a400\n");
  }
  const std::string marked = Utf16(u"REGEDIT4\n[HKEY_CURRENT_USER\\\u00C4]");
  EXPECT_EQ(Told(marked), "+U:\u00C4\n");
  EXPECT_EQ(Told(marked.substr(2)), "+U:\u00C4\n");
  for (const std::string& text : {marked, marked.substr(2)}) {
    EXPECT_EQ(Told(text.substr(0, text.size() - 1)), "2: half a character ends the file");
  }
}

TEST(RegFileTest, AFaultDeepInALongFileIsToldWithItsLine) {
  std::string text = "REGEDIT4\n[HKEY_CURRENT_USER\\K]\n";
  for (int line = 3; line <= 60000; ++line) {
    text += "\"v" + std::to_string(line) + (line == 30000 ? "=dword:1\n" : "\"=dword:1\n");
  }
  EXPECT_TRUE(Told(text).starts_with("30000: ")) << Told(text).substr(0, 100);
}

}  // namespace
}  // namespace kestrune::platform
