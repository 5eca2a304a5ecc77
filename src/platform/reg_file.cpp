#include "platform/reg_file.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/case_fold.h"
#include "platform/dword.h"
#include "platform/key_address.h"
#include "platform/open_key.h"
#include "platform/registry_limits.h"
#include "platform/utf8.h"
#include "platform/value_text.h"

namespace kestrune::platform {
namespace {

constexpr std::string_view kVersion4 = "REGEDIT4";
constexpr std::string_view kVersion5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view kBlanks = " \t";

std::string_view TrimStart(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

std::string_view Trim(std::string_view text) {
  text = TrimStart(text);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

bool IsBlankOrComment(std::string_view text) {
  text = TrimStart(text);
  return text.empty() || text.front() == ';';
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
  if (!SameWithoutCase(text.substr(0, prefix.size()), prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

/// Reads the hexadecimal digits at the start of a text, as many as stand there.
bool TakeHex(std::string_view& text, std::size_t most_digits, std::uint32_t& number) {
  const char* end = text.data() + std::min(text.size(), most_digits);
  const auto [rest, error] = std::from_chars(text.data(), end, number, 16);
  if (error != std::errc()) return false;
  text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
  return true;
}

/// An odd byte at the end, and half a pair of surrogates, stay as they are.
std::string FromUtf16(std::string_view bytes) {
  std::string text;
  const auto unit = [bytes](std::size_t at) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[at]) |
                                 static_cast<unsigned char>(bytes[at + 1]) << 8);
  };
  std::size_t at = 0;
  for (; at + 1 < bytes.size(); at += 2) {
    const char32_t first = unit(at);
    const bool is_high = first >= 0xD800 && first < 0xDC00 && at + 3 < bytes.size();
    const char32_t second = is_high ? unit(at + 2) : 0;
    if (second >= 0xDC00 && second < 0xE000) {
      AppendCharacter(text, 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00));
      at += 2;
    } else {
      AppendCharacter(text, first);
    }
  }
  return text.append(bytes.substr(at));
}

bool IsUtf8(std::string_view text) {
  const auto is_ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(text.begin(), text.end(), is_ascii)) return true;
  for (std::size_t position = 0; position < text.size();) {
    if (NextCharacter(text, position) == kNoCharacter) return false;
  }
  return true;
}

/// Text that was printed byte by byte, as some exporters of version 5 do.
std::string FromLatin1(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) AppendCharacter(text, static_cast<unsigned char>(byte));
  return text;
}

std::vector<std::byte> ToBytes(std::string_view text) {
  const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
  return {bytes, bytes + text.size()};
}

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// Takes a text in quotes, which `line` begins with.
Result<void> TakeQuoted(std::string_view& line, std::string& text) {
  for (std::size_t at = 1; at < line.size(); ++at) {
    if (line[at] == '"') {
      line.remove_prefix(at + 1);
      return {};
    }
    if (line[at] == '\\') {
      ++at;
      if (at == line.size() || (line[at] != '\\' && line[at] != '"')) {
        return Fail("\"\\\" is followed by neither \"\\\" nor a quote");
      }
    }
    text.push_back(line[at]);
  }
  return Fail("the closing quote is missing");
}

Result<void> ExpectEnd(std::string_view rest) {
  if (IsBlankOrComment(rest)) return {};
  return Fail("something follows the data");
}

}  // namespace

RegFileReader::RegFileReader(std::string_view bytes, FilesApi& files) : files_(files) {
  if (const auto header = ReadHeader(bytes); !header) {
    fault_ = RegFileFault{line_number_, header.Reason()};
  }
}

const RegFileChange* RegFileReader::Next() {
  while (!fault_ && !rest_.empty()) {
    const std::string_view line = NextLine();
    if (IsBlankOrComment(line)) continue;
    const auto read = ReadLine(Trim(line));
    if (read) return &change_;
    fault_ = RegFileFault{line_number_, read.Reason()};
  }
  return nullptr;
}

Result<void> RegFileReader::ReadHeader(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) {
    text_ = FromUtf16(bytes.substr(2));
    encoding_ = Encoding::kUtf16;
    rest_ = text_;
  } else {
    has_mark_ = bytes.starts_with("\xEF\xBB\xBF");
    if (has_mark_) bytes.remove_prefix(3);
    std::string_view rest = bytes;
    const bool is_utf8 = has_mark_ || Trim(TakeLine(rest)) == kVersion5;
    if (is_utf8) encoding_ = Encoding::kUtf8;
    if (!is_utf8) text_ = files_.DecodeText(bytes, 0);
    rest_ = is_utf8 ? bytes : text_;
  }
  const std::string_view header = Trim(NextLine());
  is_version5_ = header == kVersion5;
  if (is_version5_ || header == kVersion4) return {};
  return Fail("the first line is that of no registry file");
}

std::string_view RegFileReader::NextLine() {
  ++line_number_;
  return TakeLine(rest_);
}

Result<void> RegFileReader::ReadLine(std::string_view line) {
  if (encoding_ == Encoding::kUtf8 && !IsUtf8(line)) {
    if (has_mark_) return Fail("this isn't valid UTF-8");
    line_ = FromLatin1(line);
    line = line_;
  }
  return line.front() == '[' ? ReadKey(line) : ReadValue(line);
}

Result<void> RegFileReader::ReadKey(std::string_view line) {
  std::size_t end = line.rfind(']');
  if (end == line.npos || !IsBlankOrComment(line.substr(end + 1))) return Fail("\"]\" is missing");
  line = line.substr(1, end - 1);
  if (line.starts_with('-')) return Fail("keys can't be deleted");
  const std::size_t root_end = std::min(line.find('\\'), line.size());
  const std::optional<RegRoot> root = RootNamed(line.substr(0, root_end));
  if (!root) return Fail(std::string(line.substr(0, root_end)) + " is no root");
  line.remove_prefix(std::min(root_end + 1, line.size()));
  if (line.ends_with('\\')) line.remove_suffix(1);
  if (line.starts_with('\\') || line.ends_with('\\') || line.find("\\\\") != line.npos) {
    return Fail("a part of the key's path is empty");
  }
  if (const char* fault = KeyFault(line)) return Fail(fault);
  change_.kind = RegFileChange::Kind::kCreateKey;
  change_.root = *root;
  change_.key = line;
  has_key_ = true;
  return {};
}

Result<void> RegFileReader::ReadValue(std::string_view line) {
  if (!has_key_) return Fail("a value stands before the first key");
  change_.kind = RegFileChange::Kind::kSetValue;
  change_.name.clear();
  if (line.front() == '@') {
    line.remove_prefix(1);
  } else if (line.front() != '"') {
    return Fail("this is neither a key nor a value");
  } else if (auto name = TakeQuoted(line, change_.name); !name) {
    return name;
  }
  line = TrimStart(line);
  if (!TakePrefix(line, "=")) return Fail("\"=\" is missing after the value's name");
  if (change_.key.empty()) return Fail("a root holds no values");
  if (const char* fault = ValueNameFault(change_.name)) return Fail(fault);
  if (auto data = ReadData(TrimStart(line)); !data) return data;
  const char* fault = DataFault(change_.data.size());
  return fault != nullptr ? Result<void>(Fail(fault)) : Result<void>();
}

Result<void> RegFileReader::ReadData(std::string_view data) {
  if (data.starts_with('"')) return ReadText(data);
  if (TakePrefix(data, "dword:")) return ReadDword(data);
  if (TakePrefix(data, "hex")) return ReadHex(data);
  if (!TakePrefix(data, "-")) return Fail("the data is of no known form");
  change_.kind = RegFileChange::Kind::kDeleteValue;
  return ExpectEnd(data);
}

Result<void> RegFileReader::ReadText(std::string_view data) {
  std::string text;
  if (auto quoted = TakeQuoted(data, text); !quoted) return quoted;
  change_.type = RegType::kSz;
  change_.data = TextData(text);
  return ExpectEnd(data);
}

Result<void> RegFileReader::ReadDword(std::string_view data) {
  data = TrimStart(data);
  std::uint32_t number = 0;
  if (!TakeHex(data, 8, number)) return Fail("a dword has one to eight hexadecimal digits");
  change_.type = RegType::kDword;
  const auto bytes = DwordBytes(static_cast<std::int32_t>(number));
  change_.data.assign(bytes.begin(), bytes.end());
  if (!IsBlankOrComment(data)) return Fail("a dword has one to eight hexadecimal digits");
  return {};
}

Result<void> RegFileReader::ReadHex(std::string_view data) {
  std::uint32_t type = static_cast<std::uint32_t>(RegType::kBinary);
  if (TakePrefix(data, "(") && (!TakeHex(data, 8, type) || !TakePrefix(data, ")"))) {
    return Fail("the type in \"hex(...)\" is a hexadecimal number");
  }
  if (!TakePrefix(data, ":")) return Fail("\":\" is missing after \"hex\"");
  std::string bytes;
  if (auto read = ReadHexBytes(data, bytes); !read) return read;
  change_.type = static_cast<RegType>(type);
  if (change_.type == RegType::kSz) {
    if (is_version5_ && bytes.size() % 2 != 0) return Fail("half a character ends the text");
    bytes = is_version5_ ? FromUtf16(bytes) : files_.DecodeText(bytes, 0);
  }
  change_.data = ToBytes(bytes);
  return {};
}

/// Reads pairs of digits with commas between them, which a backslash carries on to the next line.
Result<void> RegFileReader::ReadHexBytes(std::string_view data, std::string& bytes) {
  for (data = TrimStart(data); !IsBlankOrComment(data); data = TrimStart(data)) {
    if (data.front() == '\\') {
      if (!IsBlankOrComment(data.substr(1))) return Fail("something follows the \"\\\"");
      if (rest_.empty()) return Fail("the line that \"\\\" announces is missing");
      data = NextLine();
      continue;
    }
    std::uint32_t byte = 0;
    if (!TakeHex(data, 2, byte)) return Fail("a byte is one or two hexadecimal digits");
    bytes.push_back(static_cast<char>(byte));
    data = TrimStart(data);
    if (TakePrefix(data, ",") || IsBlankOrComment(data) || data.front() == '\\') continue;
    return Fail("\",\" is missing between two bytes");
  }
  return {};
}

namespace {

RegStatus Apply(const RegFileChange& change, RegistryApi& registry, OpenKey& key) {
  switch (change.kind) {
    case RegFileChange::Kind::kCreateKey:
      return key.Create(change.root, change.key);
    case RegFileChange::Kind::kSetValue:
      return registry.SetValue(key.Handle(), change.name, change.type, change.data);
    case RegFileChange::Kind::kDeleteValue:
      break;
  }
  const RegStatus status = registry.DeleteValue(key.Handle(), change.name);
  return status == RegStatus::kNotFound ? RegStatus::kSuccess : status;
}

}  // namespace

Result<void> ImportRegFile(std::string_view bytes, const std::string& file, FilesApi& files,
                           RegistryApi& registry) {
  if (bytes.empty()) return Fail(file + " is empty.");
  RegFileReader reader(bytes, files);
  ChangeScope import(registry);
  if (import.Status() != RegStatus::kSuccess) return Fail("The registry can't be written.");
  OpenKey key(registry);
  while (const RegFileChange* change = reader.Next()) {
    if (Apply(*change, registry, key) != RegStatus::kSuccess) {
      return Fail(KeyText(change->root, change->key) + " can't be written.");
    }
  }
  if (const auto& fault = reader.Fault()) {
    return Fail(file + ":" + std::to_string(fault->line) + ": " + fault->reason);
  }
  if (import.Commit() != RegStatus::kSuccess) return Fail("The registry can't be written.");
  return {};
}

}  // namespace kestrune::platform
