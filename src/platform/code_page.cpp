#include "platform/code_page.h"

#include <algorithm>
#include <iterator>

#include "platform/utf8.h"

namespace kestrune::platform {
namespace {

constexpr int kUtf8 = 65001;

// The pages whose first half is ASCII, so that most texts need no table at all.
constexpr int kKnownPages[] = {437,  720,  737,  775,  850,  852,  855,  857,  858, 860, 861,
                               862,  863,  864,  865,  866,  869,  874,  932,  936, 949, 950,
                               1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

/// Where the pages begin to differ from ASCII.
constexpr unsigned kFirstOwn = 0x80;

bool IsAscii(char c) { return static_cast<unsigned char>(c) < kFirstOwn; }

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return IsAscii(c); });
}

bool IsKeptByte(char32_t character) {
  return character >= kKeptByte && character <= kKeptByte + 0xFF;
}

char32_t KeptByte(char byte) { return kKeptByte + static_cast<unsigned char>(byte); }

char32_t OnlyCharacter(const std::string& text) {
  std::size_t position = 0;
  const char32_t character = text.empty() ? kNoCharacter : NextCharacter(text, position);
  return position == text.size() ? character : kNoCharacter;
}

}  // namespace

/// One code page: a table for its single bytes, and the system's converter for pairs of bytes.
class CodePage {
 public:
  explicit CodePage(int number) : converter_(SystemConverter(number)) {
    for (unsigned byte = 0; byte < kFirstOwn; ++byte) table_[byte] = byte;
    for (unsigned byte = kFirstOwn; byte < 256; ++byte) {
      const char bytes[] = {static_cast<char>(byte)};
      const char32_t character = OnlyCharacter(converter_->ToUtf8({bytes, 1}));
      table_[byte] = character;
      if (character != kNoCharacter) bytes_.emplace(character, bytes[0]);
    }
  }

  std::string Decode(std::string_view bytes) const {
    std::string text;
    text.reserve(bytes.size() * 2);
    for (std::size_t position = 0; position < bytes.size();) {
      const std::size_t start = position;
      while (position < bytes.size() && IsAscii(bytes[position])) ++position;
      text.append(bytes, start, position - start);
      if (position < bytes.size()) AppendCharacter(text, Next(bytes, position));
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
    const char32_t pair = OnlyCharacter(converter_->ToUtf8(bytes.substr(position - 1, 2)));
    if (pair == kNoCharacter || IsKeptByte(pair)) return KeptByte(first);
    ++position;
    return pair;
  }

  void Append(EncodedText& encoded, char32_t character, std::string_view utf8) const {
    if (character < kFirstOwn) {
      encoded.bytes.push_back(static_cast<char>(character));
    } else if (const auto found = bytes_.find(character); found != bytes_.end()) {
      encoded.bytes.push_back(found->second);
    } else if (IsKeptByte(character)) {
      encoded.bytes.push_back(static_cast<char>(character - kKeptByte));
    } else if (const std::string pair = converter_->FromUtf8(utf8); !pair.empty()) {
      encoded.bytes.append(pair);
    } else {
      encoded.bytes.push_back('?');
      ++encoded.lost;
    }
  }

  std::unique_ptr<CharacterConverter> converter_;
  std::array<char32_t, 256> table_{};
  std::unordered_map<char32_t, char> bytes_;  ///< of the page's own characters
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

}  // namespace kestrune::platform
