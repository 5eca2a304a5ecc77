#include "registry.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "bare_store.h"
#include "failure.h"
#include "platform/case_fold.h"
#include "platform/portable/portable_machine.h"
#include "platform/reg_file.h"
#include "platform/registry_wrapper.h"
#include "settings_pages.h"

namespace kestrune::bench {

namespace {

using platform::FoldCase;
using platform::RegHandle;
using platform::RegistryApi;
using platform::RegistryWrapper;
using platform::RegRoot;
using platform::RegStatus;
using platform::RegType;

constexpr Limit kReadLimit{1.3, 1.3};
constexpr Limit kWriteLimit{1.4, 1.4};
constexpr Limit kCatalogueLimit{2.0, 2.0};
constexpr Limit kImportLimit{2.2, 1.5};
constexpr Limit kGrowthLimit{1.3, 1.0};

constexpr int kReadsARound = 200;
constexpr int kWritesARound = 5;
constexpr int kCataloguesARound = 5;
constexpr int kImportedValues = 57000;  // with their keys 60,000 lines
constexpr int kValuesAKey = 19;
constexpr int kParts = 10;  // of an import, each a text of its own

/// A value by the key and the name that say where it is.
struct Address {
  RegRoot root;
  std::string path;
  std::string name;

  bool operator==(const Address&) const = default;

  std::string Key() const {
    return std::string(platform::LongRootName(root)) + "\\" + FoldCase(path);
  }
};

/// Notes which values are asked for, each once.
class NotingRegistry : public RegistryWrapper {
 public:
  using RegistryWrapper::RegistryWrapper;

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override {
    // A key that is missing is made, so that the values in it are asked for.
    return CreateKey(root, path, key);
  }
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override {
    const platform::KeyAddress& open = Opened(key)->address;
    const Address address{open.root, open.path, std::string(name)};
    if (std::find(asked.begin(), asked.end(), address) == asked.end()) asked.push_back(address);
    return RegistryWrapper::QueryValue(key, name, type, size, data);
  }

  std::vector<Address> asked;
};

std::unique_ptr<platform::Machine> OpenMachine(const std::string& store) {
  auto machine =
      platform::portable::PortableMachines().Open({.store = store, .machine = "winxp-geforce7800"});
  if (!machine.Ok()) GiveUp(machine.Reason());
  return std::move(machine).Value();
}

void Write(RegistryApi& registry, const Address& address, std::uint32_t number) {
  RegHandle key = 0;
  const auto data = std::as_bytes(std::span(&number, 1));
  const bool done =
      registry.CreateKey(address.root, address.path, key) == RegStatus::kSuccess &&
      registry.SetValue(key, address.name, RegType::kBinary, data) == RegStatus::kSuccess;
  if (!done) GiveUp("A value can't be written.");
  registry.CloseKey(key);
}

Row CompareReading(RegistryApi& registry, BareStore& bare, const Address& address, int rounds) {
  const auto ours = [&] {
    RegHandle key = 0;
    RegType type = RegType::kNone;
    std::size_t size = 0;
    std::byte data[4];
    registry.OpenKey(address.root, address.path, key);
    if (registry.QueryValue(key, address.name, type, size, data) != RegStatus::kSuccess) {
      GiveUp("A value can't be read.");
    }
    registry.CloseKey(key);
  };
  const std::string path = address.Key();
  const std::string name = FoldCase(address.name);
  std::vector<unsigned char> data;
  const auto plain = [&] {
    if (!bare.GetValue(bare.FindKey(path), name, data)) GiveUp("A row can't be read.");
  };
  return Compare(
      "open + query + close : two prepared SELECTs", kReadLimit, rounds,
      [&] { return ProcessorTimeOf(kReadsARound, ours); },
      [&] { return ProcessorTimeOf(kReadsARound, plain); });
}

Row CompareWriting(RegistryApi& registry, BareStore& bare, const Address& address, int rounds) {
  std::uint32_t number = 0;
  const std::string path = address.Key();
  const std::string name = FoldCase(address.name);
  const auto ours = [&] { Write(registry, address, ++number); };
  const auto plain = [&] {
    bare.BeginChange();
    bare.PutValue(bare.FindKey(path), name, ++number);
    bare.Commit();
  };
  return Compare(
      "create + set + close : SELECT, BEGIN, UPSERT, COMMIT", kWriteLimit, rounds,
      [&] { return ElapsedTimeOf(kWritesARound, ours); },
      [&] { return ElapsedTimeOf(kWritesARound, plain); });
}

Row CompareCatalogues(const std::string& what, SettingsPages& pages, BareStore& bare,
                      const std::vector<Address>& values, int rounds) {
  std::vector<std::pair<std::string, std::string>> rows;
  rows.reserve(values.size());
  for (const Address& value : values) rows.emplace_back(value.Key(), FoldCase(value.name));
  std::vector<unsigned char> data;
  const auto plain = [&] {
    bare.Begin();
    for (const auto& [path, name] : rows) bare.GetValue(bare.FindKey(path), name, data);
    bare.Commit();
  };
  return Compare(
      "catalogues, " + what + " : two prepared SELECTs each, one view", kCatalogueLimit, rounds,
      [&] { return ProcessorTimeOf(kCataloguesARound, [&pages] { pages.Read(); }); },
      [&] { return ProcessorTimeOf(kCataloguesARound, plain); });
}

/// The values of one round of imports, in keys that no other round has.
struct ImportedKey {
  std::string path;
  std::string folded;  ///< with its root
  std::vector<std::string> names;
};

std::vector<ImportedKey> KeysOfRound(const std::string& round, int values) {
  std::vector<ImportedKey> keys;
  for (int i = 0; i < values; ++i) {
    if (i % kValuesAKey == 0) {
      ImportedKey& key = keys.emplace_back();
      key.path = "Imported " + round + " device " + std::to_string(i / kValuesAKey);
      key.folded = "HKEY_LOCAL_MACHINE\\" + FoldCase(key.path);
    }
    keys.back().names.push_back("Setting " + std::to_string(i));
  }
  return keys;
}

std::string RegText(const std::vector<ImportedKey>& keys) {
  std::string text = "Windows Registry Editor Version 5.00\r\n";
  for (const ImportedKey& key : keys) {
    text += "[HKEY_LOCAL_MACHINE\\" + key.path + "]\r\n";
    for (const std::string& name : key.names) text += '"' + name + "\"=dword:000009C4\r\n";
  }
  return text;
}

void ImportBare(BareStore& bare, const std::vector<ImportedKey>& keys) {
  bare.BeginChange();
  const std::int64_t root = bare.FindKey("HKEY_LOCAL_MACHINE");
  for (const ImportedKey& key : keys) {
    const std::int64_t id = bare.AddKey(root, key.folded, key.path);
    for (const std::string& name : key.names) bare.PutValue(id, name, 2500);
  }
  bare.Commit();
}

}  // namespace

std::vector<Row> CompareImport(const std::string& folder, int rounds) {
  const std::string store = folder + "/import.store";
  const std::unique_ptr<platform::Machine> machine = OpenMachine(store);
  platform::WindowlessDialog dialog;
  const platform::Services services = machine->ServicesFor(dialog);
  BareStore bare(store);
  int round = 0;
  const auto import_in = [&](int parts) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(parts));
    for (int i = 0; i < parts; ++i) {
      texts.push_back(RegText(KeysOfRound(std::to_string(++round), kImportedValues / parts)));
    }
    return ProcessorTimeOf(1, [&] {
      for (const std::string& text : texts) {
        const auto imported =
            platform::ImportRegFile(text, "text", services.files, services.registry);
        if (!imported) GiveUp(imported.Reason());
      }
    });
  };
  const auto ours = [&] { return import_in(1); };
  const auto in_parts = [&] { return import_in(kParts); };
  const auto plain = [&] {
    std::vector<ImportedKey> keys = KeysOfRound(std::to_string(++round), kImportedValues);
    for (ImportedKey& key : keys) {
      for (std::string& name : key.names) name = FoldCase(name);
    }
    return ProcessorTimeOf(1, [&] { ImportBare(bare, keys); });
  };
  return {Compare("import of 60,000 lines : their prepared INSERTs in one transaction",
                  kImportLimit, rounds, ours, plain),
          Compare("import of 60,000 lines : ten imports of 6,000", kGrowthLimit, rounds, ours,
                  in_parts)};
}

std::vector<Row> CompareRegistry(const std::string& folder, int rounds) {
  const std::string store = folder + "/registry.store";
  const std::unique_ptr<platform::Machine> machine = OpenMachine(store);
  platform::WindowlessDialog dialog;
  RegistryApi& registry = machine->ServicesFor(dialog).registry;
  BareStore bare(store);

  NotingRegistry noting(registry);
  SettingsPages noted(*machine, noting);
  noting.asked.clear();
  noted.Read();
  const std::vector<Address>& values = noting.asked;
  if (values.empty()) GiveUp("The catalogues have no value.");

  SettingsPages pages(*machine, registry);
  std::vector<Row> rows;
  const std::string count = std::to_string(values.size()) + " values";
  rows.push_back(CompareCatalogues(count + " not set", pages, bare, values, rounds));
  for (const Address& value : values) Write(registry, value, 1);
  rows.push_back(CompareCatalogues(count + " set", pages, bare, values, rounds));
  rows.insert(rows.begin(), CompareWriting(registry, bare, values.front(), rounds));
  rows.insert(rows.begin(), CompareReading(registry, bare, values.front(), rounds));
  return rows;
}

}  // namespace kestrune::bench
