#include "platform/portable/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>

#include "platform/utf8.h"

namespace kestrune::platform::portable {
namespace {

constexpr int kUtf8 = 65001;

// The pages whose first half is ASCII, so that most texts need no table at all.
constexpr int kKnownPages[] = {437,  720,  737,  775,  850,  852,  855,  857,  858, 860, 861,
                               862,  863,  864,  865,  866,  869,  874,  932,  936, 949, 950,
                               1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsKeptByte(char32_t character) {
  return character >= kKeptByte && character <= kKeptByte + 0xFF;
}

char32_t KeptByte(char byte) { return kKeptByte + static_cast<unsigned char>(byte); }

/// One of the C library's converters.
class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {}
  ~Converter() {
    if (IsOpen()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  /// A whole character converted; empty when it doesn't exist over there or isn't whole.
  std::string Convert(std::string_view text) const {
    if (!IsOpen()) return {};
    char buffer[16];
    char* out = buffer;
    char* in = const_cast<char*>(text.data());
    std::size_t in_left = text.size();
    std::size_t out_left = sizeof(buffer);
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    const auto failed = static_cast<std::size_t>(-1);
    bool converted = iconv(handle_, &in, &in_left, &out, &out_left) != failed && in_left == 0;
    // Pages with combining marks hold a letter back until they are told that nothing follows.
    converted = converted && iconv(handle_, nullptr, nullptr, &out, &out_left) != failed;
    return converted ? std::string(buffer, out) : std::string();
  }

 private:
  iconv_t handle_;
};

char32_t OnlyCharacter(const std::string& text) {
  std::size_t position = 0;
  const char32_t character = text.empty() ? kNoCharacter : NextCharacter(text, position);
  return position == text.size() ? character : kNoCharacter;
}

}  // namespace

/// One code page: a table for its single bytes, and the library's converters for pairs of bytes.
class CodePage {
 public:
  explicit CodePage(int number)
      : decoder_("UTF-8", "CP" + std::to_string(number)), number_(number) {
    for (unsigned byte = 0; byte < 256; ++byte) {
      const char bytes[] = {static_cast<char>(byte)};
      const char32_t character = OnlyCharacter(decoder_.Convert({bytes, 1}));
      table_[byte] = character;
      if (character != kNoCharacter) bytes_.emplace(character, bytes[0]);
    }
  }

  std::string Decode(std::string_view bytes) const {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (std::size_t position = 0; position < bytes.size();) {
      const auto first = static_cast<unsigned char>(bytes[position]);
      if (first < 0x80 && table_[first] == first) {
        text.push_back(bytes[position++]);
      } else {
        AppendCharacter(text, Next(bytes, position));
      }
    }
    return text;
  }

  EncodedText Encode(std::string_view text) const {
    EncodedText encoded;
    for (std::size_t position = 0; position < text.size();) {
      const std::size_t start = position;
      const char32_t character = NextCharacter(text, position);
      Append(encoded, character, text.substr(start, position - start));
    }
    return encoded;
  }

 private:
  char32_t Next(std::string_view bytes, std::size_t& position) const {
    const char first = bytes[position++];
    const char32_t single = table_[static_cast<unsigned char>(first)];
    if (single != kNoCharacter) return single;
    if (position == bytes.size()) return KeptByte(first);
    const char32_t pair = OnlyCharacter(decoder_.Convert(bytes.substr(position - 1, 2)));
    if (pair == kNoCharacter || IsKeptByte(pair)) return KeptByte(first);
    ++position;
    return pair;
  }

  void Append(EncodedText& encoded, char32_t character, std::string_view utf8) const {
    if (const auto found = bytes_.find(character); found != bytes_.end()) {
      encoded.bytes.push_back(found->second);
    } else if (IsKeptByte(character)) {
      encoded.bytes.push_back(static_cast<char>(character - kKeptByte));
    } else if (const std::string pair = Encoder().Convert(utf8); !pair.empty()) {
      encoded.bytes.append(pair);
    } else {
      encoded.bytes.push_back('?');
      ++encoded.lost;
    }
  }

  const Converter& Encoder() const {
    if (!encoder_) encoder_.emplace("CP" + std::to_string(number_), "UTF-8");
    return *encoder_;
  }

  Converter decoder_;
  int number_;
  mutable std::optional<Converter> encoder_;  ///< opened when it is first needed
  std::array<char32_t, 256> table_{};
  std::unordered_map<char32_t, char> bytes_;
};

namespace {

std::string DecodeUtf8(std::string_view bytes) {
  std::string text;
  for (std::size_t position = 0; position < bytes.size();) {
    const char first = bytes[position];
    const char32_t character = NextCharacter(bytes, position);
    AppendCharacter(text, character == kNoCharacter ? KeptByte(first) : character);
  }
  return text;
}

EncodedText EncodeUtf8(std::string_view text) {
  EncodedText encoded;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = position;
    const char32_t character = NextCharacter(text, position);
    if (IsKeptByte(character)) {
      encoded.bytes.push_back(static_cast<char>(character - kKeptByte));
    } else {
      encoded.bytes.append(text.substr(start, position - start));
    }
  }
  return encoded;
}

}  // namespace

CodePages::CodePages(int system_page) : system_page_(IsKnown(system_page) ? system_page : 1252) {}

CodePages::~CodePages() = default;

bool CodePages::IsKnown(int page) {
  return page == kUtf8 ||
         std::find(std::begin(kKnownPages), std::end(kKnownPages), page) != std::end(kKnownPages);
}

std::string CodePages::Decode(std::string_view bytes, int page) {
  if (IsAscii(bytes)) return std::string(bytes);
  if (!IsKnown(page)) page = system_page_;
  return page == kUtf8 ? DecodeUtf8(bytes) : Page(page).Decode(bytes);
}

EncodedText CodePages::Encode(std::string_view text, int page) {
  if (IsAscii(text)) return {std::string(text), 0};
  if (!IsKnown(page)) page = system_page_;
  return page == kUtf8 ? EncodeUtf8(text) : Page(page).Encode(text);
}

const CodePage& CodePages::Page(int page) {
  std::unique_ptr<CodePage>& slot = pages_[page];
  if (slot == nullptr) slot = std::make_unique<CodePage>(page);
  return *slot;
}

}  // namespace kestrune::platform::portable
