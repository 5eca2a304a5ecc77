#pragma once

#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>
#include <utility>

namespace kestrune::cli {

using Json = nlohmann::ordered_json;

/// What a command prints: lines of text at once, or one JSON document at the end. A command says
/// both; the form that wasn't asked for is dropped.
class Output {
 public:
  Output(std::ostream& out, bool is_json) : out_(out), is_json_(is_json) {}

  /// The text form, as it is.
  void Text(std::string_view text);
  /// A line of the text form.
  void Line(std::string_view text);

  /// The document is a list or an object, even when nothing is added, or known as a whole. Without
  /// one of these a command has no document.
  void BeginList() { document_ = Json::array(); }
  void BeginObject() { document_ = Json::object(); }
  void Document(Json whole) { document_ = std::move(whole); }
  void Item(Json item);
  void Member(std::string_view name, Json value);

  /// Prints the document. Text that isn't UTF-8 is shown as U+FFFD.
  void Finish() const;

 private:
  std::ostream& out_;
  bool is_json_;
  Json document_;
};

}  // namespace kestrune::cli
