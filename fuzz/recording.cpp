// A recording that can be read has samples of whole numbers, each written down as a line of its
// own.
#include "monitor/recording.h"

#include <algorithm>

#include "input.h"

using namespace kestrune;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto recording = monitor::ReadRecording(fuzz::Text(data, size));
  if (!recording) return 0;
  const std::string table = monitor::CsvOf(*recording);
  const auto lines = static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n'));
  const auto left_out = static_cast<std::size_t>(recording->LeftOut());
  fuzz::Require(lines == 1 + recording->samples.size() - left_out);
  return 0;
}
