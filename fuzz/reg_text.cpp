// Registry text gives steps within the registry's limits, up to its end or a fault with its line.
#include "input.h"
#include "platform/portable/files.h"
#include "platform/reg_file.h"
#include "platform/registry_limits.h"

using namespace kestrune;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  platform::portable::FolderFiles files({}, 1252);
  platform::RegFileReader reader(fuzz::Text(data, size), files);
  while (const platform::RegFileChange* change = reader.Next()) {
    fuzz::Require(platform::KeyFault(change->key) == nullptr);
    if (change->kind == platform::RegFileChange::Kind::kCreateKey) continue;
    fuzz::Require(platform::ValueNameFault(change->name) == nullptr);
    fuzz::Require(platform::DataFault(change->data.size()) == nullptr);
  }
  if (reader.Fault()) fuzz::Require(reader.Fault()->line > 0 && !reader.Fault()->reason.empty());
  return 0;
}
