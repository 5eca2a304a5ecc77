#include "profiles/associate.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/outcome.h"
#include "platform/open_key.h"
#include "platform/value_text.h"

namespace kestrune::profiles {

namespace {

using platform::RegistryApi;
using platform::RegRoot;
using platform::RegStatus;
using platform::RegType;

struct DefaultValue {
  std::string_view key;
  std::string text;
};

bool Stands(RegistryApi& registry, const DefaultValue& value) {
  platform::OpenKey key(registry);
  if (key.Open(RegRoot::kClassesRoot, value.key) != RegStatus::kSuccess) return false;
  const std::vector<std::byte> wanted = platform::TextData(value.text);
  std::vector<std::byte> stored(wanted.size());
  RegType type = RegType::kNone;
  std::size_t size = 0;
  return registry.QueryValue(key.Handle(), "", type, size, stored) == RegStatus::kSuccess &&
         type == RegType::kSz && size == wanted.size() && stored == wanted;
}

}  // namespace

void RegisterFileType(RegistryApi& registry, std::string_view program_folder) {
  const std::string program = std::string(program_folder) + "\\KestruneSE.exe";
  const DefaultValue values[] = {
      {"KestruneSE", "KestruneSE secure preset file"},
      {".ksp", "KestruneSE"},
      {"KestruneSE\\Shell\\open\\command", program + " %1"},
      {"KestruneSE\\DefaultIcon", program + ",0"},
  };
  // A group waits for whoever holds the store; where nothing changes there is nothing to wait for.
  std::optional<platform::ChangeScope> group;
  const bool all_stand = std::all_of(std::begin(values), std::end(values),
                                     [&](const auto& value) { return Stands(registry, value); });
  if (!all_stand) {
    group.emplace(registry);
    if (group->Status() != RegStatus::kSuccess) return;
  }
  for (const DefaultValue& value : values) {
    core::Ignore(registry.SetDefaultValue(RegRoot::kClassesRoot, value.key, value.text));
  }
  if (group) core::Ignore(group->Commit());
}

}  // namespace kestrune::profiles
