// A machine's description is read, or refused with its place.
#include "platform/portable/machine_description.h"

#include "input.h"

using namespace kestrune;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto loaded =
      platform::portable::ParseMachineDescription(fuzz::Text(data, size), "machine");
  fuzz::Require(loaded.Ok() || loaded.Reason().starts_with("machine:"));
  return 0;
}
