#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace kestrune::platform {

/// Why something could not be done; what Fail() makes and a Result takes.
template <class E>
struct Failure {
  E reason;
};

/// A failure told in one sentence that a person can read.
inline Failure<std::string> Fail(std::string sentence) { return {std::move(sentence)}; }

/// A failure told in another form.
template <class E>
Failure<E> FailWith(E reason) {
  return {std::move(reason)};
}

/// What an operation that can fail gives back: its value, or the reason why there is none. Unless
/// E says otherwise the reason is one sentence for a person. Value() needs Ok(), Reason() needs
/// the opposite.
template <class T, class E = std::string>
class [[nodiscard]] Result {
 public:
  Result(T value) : content_(std::in_place_index<0>, std::move(value)) {}
  Result(Failure<E> failure) : content_(std::in_place_index<1>, std::move(failure.reason)) {}

  [[nodiscard]] bool Ok() const { return content_.index() == 0; }
  explicit operator bool() const { return Ok(); }

  T& Value() & { return std::get<0>(content_); }
  const T& Value() const& { return std::get<0>(content_); }
  T&& Value() && { return std::get<0>(std::move(content_)); }
  const E& Reason() const { return std::get<1>(content_); }

 private:
  std::variant<T, E> content_;
};

/// The same of an operation that gives nothing back: `return {};` says that it was done.
template <class E>
class [[nodiscard]] Result<void, E> {
 public:
  Result() = default;
  Result(Failure<E> failure) : reason_(std::move(failure.reason)) {}

  [[nodiscard]] bool Ok() const { return !reason_; }
  explicit operator bool() const { return Ok(); }

  const E& Reason() const { return *reason_; }

 private:
  std::optional<E> reason_;
};

}  // namespace kestrune::platform
