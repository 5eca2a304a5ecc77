#include "platform/portable/processor.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace kestrune::platform::portable {
namespace {

std::string_view Trim(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  if (start == text.npos) return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

template <class Value>
void Complete(std::optional<Value>& value, const std::optional<Value>& other) {
  if (!value) value = other;
}

}  // namespace

DescribedProcessor ReadProcessors(std::string_view cpu_info) {
  std::map<std::string, std::string, std::less<>> first;  // what is said of the first processor
  std::vector<std::string> names;
  int count = 0;
  while (!cpu_info.empty()) {
    const std::string_view line = cpu_info.substr(0, cpu_info.find('\n'));
    cpu_info.remove_prefix(std::min(line.size() + 1, cpu_info.size()));
    const std::size_t colon = line.find(':');
    if (colon == line.npos) continue;
    const std::string_view key = Trim(line.substr(0, colon));
    if (key == "processor") ++count;
    if (key == "model name") {
      names.resize(static_cast<std::size_t>(std::max(count, 1)));
      names.back() = Trim(line.substr(colon + 1));
    }
    if (count <= 1) first.emplace(key, Trim(line.substr(colon + 1)));
  }
  DescribedProcessor processor;
  const auto text = [&first](std::string_view key) -> std::optional<std::string> {
    const auto found = first.find(key);
    if (found == first.end()) return std::nullopt;
    return found->second;
  };
  if (count > 0) processor.count = count;
  if (!names.empty()) processor.names = std::move(names);
  processor.vendor = text("vendor_id");
  if (const auto mhz = text("cpu MHz")) {
    const double value = std::strtod(mhz->c_str(), nullptr);
    if (value > 0 && value < 1e6) processor.mhz = static_cast<int>(std::lround(value));
  }
  const auto family = text("cpu family");
  const auto model = text("model");
  const auto stepping = text("stepping");
  if (family && model && stepping) {
    processor.identifier = "x86 Family " + *family + " Model " + *model + " Stepping " + *stepping;
  }
  return processor;
}

DescribedProcessor Completed(const DescribedProcessor& described, const DescribedProcessor& other) {
  DescribedProcessor whole = described;
  Complete(whole.count, other.count);
  Complete(whole.type, other.type);
  Complete(whole.mhz, other.mhz);
  Complete(whole.names, other.names);
  Complete(whole.identifier, other.identifier);
  Complete(whole.vendor, other.vendor);
  return whole;
}

}  // namespace kestrune::platform::portable
