#include <iconv.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace kestrune::platform {

namespace {

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

class IconvConverter : public CharacterConverter {
 public:
  explicit IconvConverter(const std::string& page) : page_(page), decoder_("UTF-8", page) {}

  std::string ToUtf8(std::string_view bytes) override { return decoder_.Convert(bytes); }
  std::string FromUtf8(std::string_view character) override {
    if (!encoder_) encoder_.emplace(page_, "UTF-8");
    return encoder_->Convert(character);
  }

 private:
  std::string page_;
  Converter decoder_;
  std::optional<Converter> encoder_;  ///< opened when first needed, since few texts need it
};

}  // namespace

std::unique_ptr<CharacterConverter> SystemConverter(int page) {
  return std::make_unique<IconvConverter>("CP" + std::to_string(page));
}

}  // namespace kestrune::platform
