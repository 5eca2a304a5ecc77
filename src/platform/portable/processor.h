#pragma once

#include <string_view>

#include "platform/portable/machine_description.h"

namespace kestrune::platform::portable {

/// The processors of the running machine, from text in the form of /proc/cpuinfo. What the text
/// doesn't say stays absent.
DescribedProcessor ReadProcessors(std::string_view cpu_info);

/// A described processor with everything that it leaves out filled in from another one.
DescribedProcessor Completed(const DescribedProcessor& described, const DescribedProcessor& other);

}  // namespace kestrune::platform::portable
