#include "platform/reg_writer.h"

#include <cstdint>
#include <cstdio>
#include <span>
#include <vector>

#include "platform/dword.h"
#include "platform/key_address.h"
#include "platform/open_key.h"
#include "platform/reg_text.h"
#include "platform/utf16.h"
#include "platform/utf8.h"
#include "platform/value_text.h"

namespace kestrune::platform {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kLineWidth = 78;

/// A text in quotes.
std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\\' || c == '"') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

/// Bytes as pairs of digits behind `line`, which is broken where it gets too long.
std::string WithBytes(std::string line, std::string_view bytes) {
  std::size_t width = line.size();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    char digits[4];
    std::snprintf(digits, sizeof digits, "%02x%s", static_cast<unsigned char>(bytes[i]),
                  i + 1 < bytes.size() ? "," : "");
    if (width + 3 > kLineWidth) {
      line.append("\\").append(kLineEnd).append("  ");
      width = 2;
    }
    line += digits;
    width += 3;
  }
  return line;
}

/// One text with its closing NUL that stands on a line, in whole characters.
bool IsPlain(std::string_view data) {
  if (data.find_first_of(std::string_view("\0\r\n", 3)) + 1 != data.size()) return false;
  for (std::size_t position = 0; position < data.size();) {
    const char32_t character = NextCharacter(data, position);
    if (character >= 0xD800 && character < 0xE000) return false;
  }
  return data.ends_with('\0');
}

class Writer {
 public:
  Writer(RegistryApi& registry, RegTextForm form, FilesApi& files)
      : registry_(registry), form_(form), files_(files) {}

  Result<std::string> Write(RegRoot root, std::string path) {
    text_ = std::string(form_ == RegTextForm::kVersion4 ? kRegVersion4 : kRegVersion5);
    text_.append(kLineEnd).append(kLineEnd);
    // The keys that are still to be written, the next one last.
    std::vector<std::string> waiting = {std::move(path)};
    while (!waiting.empty()) {
      const std::string key = std::move(waiting.back());
      waiting.pop_back();
      if (IsHardwareDescription(root, key)) continue;
      if (auto written = WriteKey({root, key}, waiting); !written) return Fail(written.Reason());
    }
    return std::move(text_);
  }

 private:
  Result<void> WriteKey(const KeyAddress& address, std::vector<std::string>& waiting) {
    OpenKey key(registry_);
    std::vector<StoredValue> values;
    std::vector<std::string> below;
    if (key.Open(address.root, address.path) != RegStatus::kSuccess ||
        registry_.ListValues(key.Handle(), values) != RegStatus::kSuccess ||
        registry_.ListKeys(key.Handle(), below) != RegStatus::kSuccess) {
      return Fail(KeyText(address.root, address.path) + " can't be read.");
    }
    std::string name(LongRootName(address.root));
    if (!address.path.empty()) name.append("\\").append(address.path);
    if (name.find_first_of(kLineEnd) != name.npos || !Append("[" + name + "]")) {
      return Fail("The name of " + KeyText(address.root, address.path) + " can't be written in " +
                  FormName() + ".");
    }
    for (const StoredValue& value : values) {
      if (WriteValue(value)) continue;
      return Fail("The value " + ValueNameText(value.name) + " of " +
                  KeyText(address.root, address.path) + " can't be written in " + FormName() + ".");
    }
    text_ += kLineEnd;
    for (auto each = below.rbegin(); each != below.rend(); ++each) {
      waiting.push_back(address.path.empty() ? *each : address.path + "\\" + *each);
    }
    return {};
  }

  bool WriteValue(const StoredValue& value) {
    const std::string name = value.name.empty() ? "@=" : Quoted(value.name) + "=";
    const auto* bytes = reinterpret_cast<const char*>(value.data.data());
    const std::string_view data(bytes, value.data.size());
    if (value.type == RegType::kSz && IsPlain(data)) {
      return Append(name + Quoted(data.substr(0, data.size() - 1)));
    }
    if (value.type == RegType::kDword && data.size() == kDwordSize) {
      char digits[16];
      std::snprintf(digits, sizeof digits, "dword:%08x",
                    static_cast<std::uint32_t>(DwordOf(value.data)));
      return Append(name + digits);
    }
    if (!IsText(value.type)) return Append(WithBytes(name + HexPrefix(value.type), data));
    std::string encoded;
    return Encode(data, encoded) && Append(WithBytes(name + HexPrefix(value.type), encoded));
  }

  static std::string HexPrefix(RegType type) {
    if (type == RegType::kBinary) return "hex:";
    char prefix[16];
    std::snprintf(prefix, sizeof prefix, "hex(%x):", static_cast<std::uint32_t>(type));
    return prefix;
  }

  /// The bytes of a text value as the form keeps them; false where they would not read back.
  bool Encode(std::string_view text, std::string& bytes) {
    if (form_ == RegTextForm::kVersion4) {
      bytes = files_.EncodeText(text, 0).bytes;
      return files_.DecodeText(bytes, 0) == text;
    }
    bytes = ToUtf16(text);
    return FromUtf16(bytes) == text;
  }

  /// Adds a line; false where what it says would not read back.
  bool Append(std::string_view line) {
    std::string encoded;
    const bool is_sayable = Encode(line, encoded);
    text_.append(form_ == RegTextForm::kVersion4 ? std::string_view(encoded) : line);
    text_ += kLineEnd;
    return is_sayable;
  }

  std::string FormName() const {
    return std::string(form_ == RegTextForm::kVersion4 ? "REGEDIT4" : "version 5");
  }

  RegistryApi& registry_;
  RegTextForm form_;
  FilesApi& files_;
  std::string text_;
};

}  // namespace

Result<std::string> WriteRegText(RegistryApi& registry, RegRoot root, std::string_view path,
                                 RegTextForm form, FilesApi& files) {
  const ReadScope view(registry);
  return Writer(registry, form, files).Write(root, std::string(WithoutLastBackslash(path)));
}

}  // namespace kestrune::platform
