#pragma once

#include <functional>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace kestrune::cli {

/// A stream whose text a function takes: in parts of some size and when it is flushed, or as it
/// comes. The function says whether it could.
class FunctionStream {
 public:
  using Take = std::function<bool(std::string_view)>;

  FunctionStream(Take take, bool keeps) : buffer_(std::move(take), keeps), stream_(&buffer_) {}
  ~FunctionStream() { stream_.flush(); }
  FunctionStream(const FunctionStream&) = delete;
  FunctionStream& operator=(const FunctionStream&) = delete;

  std::ostream& Stream() { return stream_; }

 private:
  class Buffer : public std::streambuf {
   public:
    Buffer(Take take, bool keeps) : take_(std::move(take)), keeps_(keeps) {}

   protected:
    int_type overflow(int_type c) override {
      if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
      const char byte = traits_type::to_char_type(c);
      return xsputn(&byte, 1) == 1 ? c : traits_type::eof();
    }
    std::streamsize xsputn(const char* text, std::streamsize size) override {
      constexpr std::size_t kMostKept = 1 << 16;
      kept_.append(text, static_cast<std::size_t>(size));
      return (keeps_ && kept_.size() < kMostKept) || sync() == 0 ? size : 0;
    }
    int sync() override {
      const bool is_taken = kept_.empty() || take_(kept_);
      kept_.clear();
      return is_taken ? 0 : -1;
    }

   private:
    Take take_;
    bool keeps_;
    std::string kept_;
  };

  Buffer buffer_;
  std::ostream stream_;
};

}  // namespace kestrune::cli
