#include "registry.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "bare_store.h"
#include "failure.h"
#include "platform/portable/case_fold.h"
#include "platform/portable/portable_machine.h"
#include "settings_pages.h"

namespace kestrune::bench {

namespace {

using platform::RegHandle;
using platform::RegistryApi;
using platform::RegRoot;
using platform::RegStatus;
using platform::RegType;
using platform::portable::FoldCase;
using platform::portable::PortableMachine;

constexpr double kReadLimit = 1.3;
constexpr double kWriteLimit = 1.4;
constexpr double kCatalogueLimit = 2.0;

constexpr int kReadsARound = 200;
constexpr int kWritesARound = 5;
constexpr int kCataloguesARound = 5;

/// A value by the key and the name that say where it is.
struct Address {
  RegRoot root;
  std::string path;
  std::string name;

  bool operator==(const Address&) const = default;

  std::string Key() const {
    return (root == RegRoot::kCurrentUser ? "HKEY_CURRENT_USER\\" : "HKEY_LOCAL_MACHINE\\") +
           FoldCase(path);
  }
};

/// Notes which values are asked for, each once.
class NotingRegistry : public RegistryApi {
 public:
  explicit NotingRegistry(RegistryApi& inner) : inner_(inner) {}

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override {
    // A key that is missing is made, so that the values in it are asked for.
    const RegStatus status = inner_.CreateKey(root, path, key);
    if (status == RegStatus::kSuccess) open_[key] = {root, std::string(path), {}};
    return status;
  }
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override {
    return inner_.CreateKey(root, path, key);
  }
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override {
    Address address = open_[key];
    address.name = name;
    if (std::find(asked.begin(), asked.end(), address) == asked.end()) asked.push_back(address);
    return inner_.QueryValue(key, name, type, size, data);
  }
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override {
    return inner_.SetValue(key, name, type, data);
  }
  RegStatus DeleteValue(RegHandle key, std::string_view name) override {
    return inner_.DeleteValue(key, name);
  }
  void CloseKey(RegHandle key) override { inner_.CloseKey(key); }
  void BeginReads() override { inner_.BeginReads(); }
  void EndReads() override { inner_.EndReads(); }

  std::vector<Address> asked;

 private:
  RegistryApi& inner_;
  std::map<RegHandle, Address> open_;
};

std::unique_ptr<PortableMachine> OpenMachine(const std::string& folder) {
  platform::portable::MachineOptions options;
  options.machine = "winxp-geforce7800";
  options.store = folder + "/registry.store";
  auto machine = PortableMachine::Open(options);
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

}  // namespace

std::vector<Row> CompareRegistry(const std::string& folder, int rounds) {
  const std::unique_ptr<PortableMachine> machine = OpenMachine(folder);
  RegistryApi& registry = machine->Registry();
  BareStore bare(machine->RegistryStore().Path());

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
