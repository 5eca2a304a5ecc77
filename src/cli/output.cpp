#include "cli/output.h"

#include <string>
#include <utility>

namespace kestrune::cli {

void Output::Text(std::string_view text) {
  if (!is_json_) out_ << text;
}

void Output::Line(std::string_view text) {
  if (!is_json_) out_ << text << '\n';
}

void Output::Item(Json item) {
  if (is_json_) document_.push_back(std::move(item));
}

void Output::Member(std::string_view name, Json value) {
  if (is_json_) document_[std::string(name)] = std::move(value);
}

void Output::Finish() const {
  if (!is_json_ || document_.is_null()) return;
  out_ << document_.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace kestrune::cli
