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
#include "platform/reg_text.h"
#include "platform/registry_limits.h"
#include "platform/utf16.h"
#include "platform/utf8.h"
#include "platform/value_text.h"

namespace kestrune::platform {
namespace {

constexpr const char* kBeforeFirstKey = "a value stands before the first key";
constexpr const char* kBehindDeletedKey = "a value stands behind a key that is deleted";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
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

std::string_view TakeLineOf(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// Whether text without a mark is UTF-16: its first character is one byte and a NUL.
bool LooksLikeUtf16(std::string_view bytes) {
  return bytes.size() >= 2 && bytes[0] != '\0' && bytes[1] == '\0';
}

Result<void> ExpectEnd(std::string_view rest) {
  if (IsBlankOrComment(rest)) return {};
  return Fail("something follows the data");
}

}  // namespace

RegFileReader::RegFileReader(std::string_view bytes, FilesApi& files)
    : files_(files), no_key_(kBeforeFirstKey) {
  if (const auto header = ReadHeader(bytes); !header) {
    fault_ = RegFileFault{line_number_, header.Reason()};
  }
}

const RegFileChange* RegFileReader::Next() {
  while (!fault_ && !rest_.empty()) {
    first_line_ = 0;
    std::string_view ahead = rest_;
    if (IsBlankOrComment(TakeLineOf(ahead))) {
      TakeLine();
      continue;
    }
    const auto read = ReadLine();
    if (read) return &change_;
    fault_ = RegFileFault{first_line_ > 0 ? first_line_ : line_number_, read.Reason()};
  }
  return nullptr;
}

Result<void> RegFileReader::ReadHeader(std::string_view bytes) {
  const bool has_utf16_mark = bytes.starts_with(kUtf16Mark);
  if (has_utf16_mark || LooksLikeUtf16(bytes)) {
    text_ = FromUtf16(bytes.substr(has_utf16_mark ? kUtf16Mark.size() : 0));
    encoding_ = Encoding::kUtf16;
    rest_ = text_;
    if (bytes.size() % 2 != 0) {
      line_number_ = static_cast<int>(std::count(text_.begin(), text_.end(), '\n')) + 1;
      return Fail("half a character ends the file");
    }
  } else {
    has_mark_ = bytes.starts_with("\xEF\xBB\xBF");
    if (has_mark_) bytes.remove_prefix(3);
    std::string_view rest = bytes;
    const bool is_utf8 = has_mark_ || Trim(TakeLineOf(rest)) == kRegVersion5;
    if (is_utf8) encoding_ = Encoding::kUtf8;
    if (!is_utf8) text_ = files_.DecodeText(bytes, 0);
    rest_ = is_utf8 ? bytes : text_;
  }
  const std::string_view header = Trim(TakeLine());
  is_version5_ = header == kRegVersion5;
  if (is_version5_ || header == kRegVersion4) return {};
  return Fail("the first line is that of no registry file");
}

std::string_view RegFileReader::TakeLine() {
  ++line_number_;
  return TakeLineOf(rest_);
}

/// The next line in UTF-8, good until the one after it.
Result<std::string_view> RegFileReader::NextLine() {
  const std::string_view line = TakeLine();
  if (encoding_ != Encoding::kUtf8 || IsUtf8(line)) return line;
  if (has_mark_) return Fail("this isn't valid UTF-8");
  line_ = FromLatin1(line);
  return std::string_view(line_);
}

/// Takes a text in quotes, which `line` begins with; behind it is what is left of its last line.
Result<void> RegFileReader::TakeQuoted(std::string_view& line, std::string& text) {
  text.clear();
  line.remove_prefix(1);
  while (true) {
    const std::size_t end = std::min(line.find_first_of("\"\\"), line.size());
    text.append(line.substr(0, end));
    line.remove_prefix(end);
    if (line.starts_with('"')) {
      line.remove_prefix(1);
      return {};
    }
    if (line.empty()) {
      if (first_line_ == 0) first_line_ = line_number_;
      if (rest_.empty()) return Fail("the closing quote is missing");
      text.append(rest_.data()[-2] == '\r' ? "\r\n" : "\n");
      const auto next = NextLine();
      if (!next) return Fail(next.Reason());
      line = next.Value();
      continue;
    }
    const std::string_view escaped = line.substr(1, 1);
    if (escaped != "\\" && escaped != "\"") {
      return Fail("\"\\\" is followed by neither \"\\\" nor a quote");
    }
    text.append(escaped);
    line.remove_prefix(2);
  }
}

Result<void> RegFileReader::ReadLine() {
  const auto next = NextLine();
  if (!next) return Fail(next.Reason());
  const std::string_view line = TrimStart(next.Value());
  return line.front() == '[' ? ReadKey(line) : ReadValue(line);
}

Result<void> RegFileReader::ReadKey(std::string_view line) {
  std::size_t end = line.rfind(']');
  if (end == line.npos || !IsBlankOrComment(line.substr(end + 1))) return Fail("\"]\" is missing");
  line = line.substr(1, end - 1);
  const bool is_deleted = line.starts_with('-');
  if (is_deleted) line.remove_prefix(1);
  const std::size_t root_end = std::min(line.find('\\'), line.size());
  const std::optional<RegRoot> root = RootNamed(line.substr(0, root_end));
  if (!root && root_end == 0) return Fail("the key has no root");
  if (!root) return Fail(std::string(line.substr(0, root_end)) + " is no root");
  line.remove_prefix(std::min(root_end + 1, line.size()));
  if (line.ends_with('\\')) line.remove_suffix(1);
  if (line.starts_with('\\') || line.ends_with('\\') || line.find("\\\\") != line.npos) {
    return Fail("a part of the key's path is empty");
  }
  if (const char* fault = KeyFault(line)) return Fail(fault);
  if (is_deleted && line.empty()) return Fail("a root can't be deleted");
  change_.kind = is_deleted ? RegFileChange::Kind::kDeleteKey : RegFileChange::Kind::kCreateKey;
  change_.root = *root;
  change_.key = line;
  no_key_ = is_deleted ? kBehindDeletedKey : nullptr;
  return {};
}

Result<void> RegFileReader::ReadValue(std::string_view line) {
  if (no_key_ != nullptr) return Fail(no_key_);
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
  if (IsText(change_.type)) {
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
      data = TakeLine();
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

RegStatus PassOver(RegStatus status) {
  return status == RegStatus::kNotFound ? RegStatus::kSuccess : status;
}

/// Deletes what may be deleted of the key above the hardware's description.
RegStatus DeleteAround(RegistryApi& registry, RegRoot root, const std::string& path) {
  OpenKey key(registry);
  std::vector<StoredValue> values;
  std::vector<std::string> below;
  RegStatus status = key.Open(root, path);
  if (status == RegStatus::kSuccess) status = registry.ListValues(key.Handle(), values);
  if (status == RegStatus::kSuccess) status = registry.ListKeys(key.Handle(), below);
  for (const StoredValue& value : values) {
    if (status != RegStatus::kSuccess) break;
    status = registry.DeleteValue(key.Handle(), value.name);
  }
  for (const std::string& name : below) {
    if (status != RegStatus::kSuccess) break;
    const std::string each = path + "\\" + name;
    if (!IsHardwareDescription(root, each)) status = registry.DeleteKey(root, each);
  }
  return PassOver(status);
}

RegStatus DeleteKey(RegistryApi& registry, RegRoot root, const std::string& path) {
  if (root == RegRoot::kLocalMachine && SameWithoutCase(path, "HARDWARE")) {
    return DeleteAround(registry, root, path);
  }
  return PassOver(registry.DeleteKey(root, path));
}

RegStatus Apply(const RegFileChange& change, RegistryApi& registry, OpenKey& key) {
  switch (change.kind) {
    case RegFileChange::Kind::kCreateKey:
      return key.Create(change.root, change.key);
    case RegFileChange::Kind::kDeleteKey:
      return DeleteKey(registry, change.root, change.key);
    case RegFileChange::Kind::kSetValue:
      return registry.SetValue(key.Handle(), change.name, change.type, change.data);
    case RegFileChange::Kind::kDeleteValue:
      break;
  }
  return PassOver(registry.DeleteValue(key.Handle(), change.name));
}

bool IsKeyLine(const RegFileChange& change) {
  return change.kind == RegFileChange::Kind::kCreateKey ||
         change.kind == RegFileChange::Kind::kDeleteKey;
}

}  // namespace

Result<ImportedLines> ImportRegFile(std::string_view bytes, const std::string& file,
                                    FilesApi& files, RegistryApi& registry) {
  if (bytes.empty()) return Fail(file + " is empty.");
  RegFileReader reader(bytes, files);
  ChangeScope import(registry);
  if (import.Status() != RegStatus::kSuccess) return Fail("The registry can't be written.");
  OpenKey key(registry);
  ImportedLines done;
  while (const RegFileChange* change = reader.Next()) {
    if (IsHardwareDescription(change->root, change->key)) continue;
    if (Apply(*change, registry, key) != RegStatus::kSuccess) {
      return Fail(KeyText(change->root, change->key) + " can't be written.");
    }
    ++(IsKeyLine(*change) ? done.keys : done.values);
  }
  if (const auto& fault = reader.Fault()) {
    return Fail(file + ":" + std::to_string(fault->line) + ": " + fault->reason);
  }
  if (import.Commit() != RegStatus::kSuccess) return Fail("The registry can't be written.");
  return done;
}

}  // namespace kestrune::platform
