#include "platform/portable/reg_file.h"

#include <charconv>
#include <cstdint>
#include <utility>

#include "platform/portable/case_fold.h"

namespace kestrune::platform::portable {
namespace {

using Changes = std::vector<RegFileChange>;
using Fault = std::optional<std::string>;

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
  for (std::size_t position = 0; position < text.size();) {
    if (NextCharacter(text, position) == kNoCharacter) return false;
  }
  return true;
}

std::vector<std::byte> ToBytes(std::string_view text) {
  const auto* bytes = reinterpret_cast<const std::byte*>(text.data());
  return {bytes, bytes + text.size()};
}

/// What the bytes of a file are, told by their mark or their first line.
enum class Encoding { kCodePage, kUtf8, kUtf16 };

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

class Parser {
 public:
  explicit Parser(CodePages& code_pages) : code_pages_(code_pages) {}

  Result<Changes, RegFileFault> Parse(std::string_view bytes) {
    if (Fault fault = ReadHeader(bytes)) return FailWith(RegFileFault{line_number_, *fault});
    while (!rest_.empty()) {
      const std::string_view line = NextLine();
      if (IsBlankOrComment(line)) continue;
      if (Fault fault = ReadLine(Trim(line))) {
        return FailWith(RegFileFault{line_number_, *fault});
      }
    }
    return std::move(changes_);
  }

 private:
  Fault ReadHeader(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
      text_ = FromUtf16(bytes.substr(2));
      encoding_ = Encoding::kUtf16;
    } else {
      if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
        encoding_ = Encoding::kUtf8;
      }
      std::string_view rest = bytes;
      if (Trim(TakeLine(rest)) == kVersion5) encoding_ = Encoding::kUtf8;
      text_ = encoding_ == Encoding::kUtf8 ? std::string(bytes) : code_pages_.Decode(bytes);
    }
    rest_ = text_;
    const std::string_view header = Trim(NextLine());
    is_version5_ = header == kVersion5;
    if (is_version5_ || header == kVersion4) return std::nullopt;
    return "the first line is that of no registry file";
  }

  std::string_view NextLine() {
    ++line_number_;
    return TakeLine(rest_);
  }

  Fault ReadLine(std::string_view line) {
    if (encoding_ == Encoding::kUtf8 && !IsUtf8(line)) return "this isn't valid UTF-8";
    if (line.front() == '[') return ReadKey(line);
    if (!has_key_) return "a value stands before the first key";
    RegFileChange change = Change(RegFileChange::Kind::kSetValue);
    if (line.front() == '@') {
      line.remove_prefix(1);
    } else if (line.front() != '"') {
      return "this is neither a key nor a value";
    } else if (Fault fault = TakeQuoted(line, change.name)) {
      return fault;
    }
    line = TrimStart(line);
    if (!TakePrefix(line, "=")) return "\"=\" is missing after the value's name";
    if (key_.empty()) return "a root holds no values";
    if (Fault fault = ReadData(TrimStart(line), change)) return fault;
    changes_.push_back(std::move(change));
    return std::nullopt;
  }

  Fault ReadKey(std::string_view line) {
    std::size_t end = line.rfind(']');
    if (end == line.npos || !IsBlankOrComment(line.substr(end + 1))) return "\"]\" is missing";
    line = line.substr(1, end - 1);
    if (line.starts_with('-')) return "keys can't be deleted";
    const std::size_t root_end = std::min(line.find('\\'), line.size());
    if (!FindRoot(line.substr(0, root_end))) {
      return std::string(line.substr(0, root_end)) + " is no root";
    }
    line.remove_prefix(std::min(root_end + 1, line.size()));
    if (line.ends_with('\\')) line.remove_suffix(1);
    if (line.starts_with('\\') || line.ends_with('\\') || line.find("\\\\") != line.npos) {
      return "a part of the key's path is empty";
    }
    key_ = line;
    has_key_ = true;
    changes_.push_back(Change(RegFileChange::Kind::kCreateKey));
    return std::nullopt;
  }

  bool FindRoot(std::string_view name) {
    constexpr std::pair<std::string_view, RegRoot> kRoots[] = {
        {"HKEY_LOCAL_MACHINE", RegRoot::kLocalMachine},
        {"HKEY_CURRENT_USER", RegRoot::kCurrentUser},
        {"HKEY_CLASSES_ROOT", RegRoot::kClassesRoot},
    };
    for (const auto& [root_name, root] : kRoots) {
      if (!SameWithoutCase(name, root_name)) continue;
      root_ = root;
      return true;
    }
    return false;
  }

  /// Takes a text in quotes, which `line` begins with.
  static Fault TakeQuoted(std::string_view& line, std::string& text) {
    for (std::size_t at = 1; at < line.size(); ++at) {
      if (line[at] == '"') {
        line.remove_prefix(at + 1);
        return std::nullopt;
      }
      if (line[at] == '\\') {
        ++at;
        if (at == line.size() || (line[at] != '\\' && line[at] != '"')) {
          return "\"\\\" is followed by neither \"\\\" nor a quote";
        }
      }
      text.push_back(line[at]);
    }
    return "the closing quote is missing";
  }

  Fault ReadData(std::string_view data, RegFileChange& change) {
    if (data.starts_with('"')) return ReadText(data, change);
    if (TakePrefix(data, "dword:")) return ReadDword(data, change);
    if (TakePrefix(data, "hex")) return ReadHex(data, change);
    if (!TakePrefix(data, "-")) return "the data is of no known form";
    change.kind = RegFileChange::Kind::kDeleteValue;
    return ExpectEnd(data);
  }

  static Fault ExpectEnd(std::string_view rest) {
    if (IsBlankOrComment(rest)) return std::nullopt;
    return "something follows the data";
  }

  static Fault ReadText(std::string_view data, RegFileChange& change) {
    std::string text;
    if (Fault fault = TakeQuoted(data, text)) return fault;
    text.push_back('\0');
    change.type = RegType::kSz;
    change.data = ToBytes(text);
    return ExpectEnd(data);
  }

  static Fault ReadDword(std::string_view data, RegFileChange& change) {
    data = TrimStart(data);
    std::uint32_t number = 0;
    if (!TakeHex(data, 8, number)) return "a dword has one to eight hexadecimal digits";
    change.type = RegType::kDword;
    for (int shift = 0; shift < 32; shift += 8) {
      change.data.push_back(static_cast<std::byte>(number >> shift & 0xFF));
    }
    if (!IsBlankOrComment(data)) return "a dword has one to eight hexadecimal digits";
    return std::nullopt;
  }

  Fault ReadHex(std::string_view data, RegFileChange& change) {
    std::uint32_t type = static_cast<std::uint32_t>(RegType::kBinary);
    if (TakePrefix(data, "(") && (!TakeHex(data, 8, type) || !TakePrefix(data, ")"))) {
      return "the type in \"hex(...)\" is a hexadecimal number";
    }
    if (!TakePrefix(data, ":")) return "\":\" is missing after \"hex\"";
    std::string bytes;
    if (Fault fault = ReadHexBytes(data, bytes)) return fault;
    change.type = static_cast<RegType>(type);
    if (change.type == RegType::kSz) {
      if (is_version5_ && bytes.size() % 2 != 0) return "half a character ends the text";
      bytes = is_version5_ ? FromUtf16(bytes) : code_pages_.Decode(bytes);
    }
    change.data = ToBytes(bytes);
    return std::nullopt;
  }

  /// Reads pairs of digits with commas between them, which a backslash carries on to the next line.
  Fault ReadHexBytes(std::string_view data, std::string& bytes) {
    for (data = TrimStart(data); !IsBlankOrComment(data); data = TrimStart(data)) {
      if (data.front() == '\\') {
        if (!IsBlankOrComment(data.substr(1))) return "something follows the \"\\\"";
        if (rest_.empty()) return "the line that \"\\\" announces is missing";
        data = NextLine();
        continue;
      }
      std::uint32_t byte = 0;
      if (!TakeHex(data, 2, byte)) return "a byte is one or two hexadecimal digits";
      bytes.push_back(static_cast<char>(byte));
      data = TrimStart(data);
      if (TakePrefix(data, ",") || IsBlankOrComment(data) || data.front() == '\\') continue;
      return "\",\" is missing between two bytes";
    }
    return std::nullopt;
  }

  RegFileChange Change(RegFileChange::Kind kind) const {
    RegFileChange change;
    change.kind = kind;
    change.root = root_;
    change.key = key_;
    return change;
  }

  CodePages& code_pages_;
  std::string text_;
  std::string_view rest_;
  Encoding encoding_ = Encoding::kCodePage;
  bool is_version5_ = false;
  int line_number_ = 0;
  RegRoot root_ = RegRoot::kLocalMachine;
  std::string key_;
  bool has_key_ = false;
  Changes changes_;
};

}  // namespace

Result<Changes, RegFileFault> ParseRegFile(std::string_view bytes, CodePages& code_pages) {
  return Parser(code_pages).Parse(bytes);
}

std::optional<std::string> ApplyRegFile(const Changes& changes, Store& store,
                                        RegistryApi& registry) {
  const auto failure = [&store] {
    return store.FirstFailure().value_or("The store " + store.Path() + " can't be written.");
  };
  Transaction import(store);
  if (!import.IsOpen()) return failure();
  OpenKey key(registry);
  for (const RegFileChange& change : changes) {
    RegStatus status = RegStatus::kSuccess;
    switch (change.kind) {
      case RegFileChange::Kind::kCreateKey:
        status = key.Create(change.root, change.key);
        break;
      case RegFileChange::Kind::kSetValue:
        status = registry.SetValue(key.Handle(), change.name, change.type, change.data);
        break;
      case RegFileChange::Kind::kDeleteValue:
        status = registry.DeleteValue(key.Handle(), change.name);
        if (status == RegStatus::kNotFound) status = RegStatus::kSuccess;
        break;
    }
    if (status != RegStatus::kSuccess) return failure();
  }
  if (!import.Commit()) return failure();
  return std::nullopt;
}

}  // namespace kestrune::platform::portable
