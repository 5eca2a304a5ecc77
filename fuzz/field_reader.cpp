// Data files are split into fields to their end, line by line.
#include "core/field_reader.h"

#include "input.h"

using namespace kestrune;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  core::FieldReader reader(fuzz::Text(data, size));
  int line = 1;
  for (std::size_t fields = 0; !reader.AtEnd(); ++fields) {
    fuzz::Require(fields <= size && reader.Line() >= line);
    line = reader.Line();
    fuzz::Require(reader.Next().has_value());
  }
  fuzz::Require(!reader.Next());
  return 0;
}
