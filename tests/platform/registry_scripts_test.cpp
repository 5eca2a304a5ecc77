// Random calls, carried out on every kind of registry and compared with the model call by call.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "platform/registry_kinds.h"
#include "platform/value_text.h"

namespace kestrune::platform {
namespace {

/// Ten thousand scripts, in parts that can run at a time.
constexpr unsigned kParts = 5;
constexpr unsigned kScriptsInPart = 2000;
constexpr int kCalls = 40;
constexpr RegRoot kMachine = RegRoot::kLocalMachine;
const std::string kBase = "Software\\Scripts";

const std::string kPaths[] = {"",
                              "a",
                              "A",
                              "a\\B",
                              "A\\b\\",
                              "a\\b\\c\\d",
                              "a!",
                              "a b\\c",
                              "a]",
                              "ä",
                              "Ä\\x",
                              MachineHoldsEveryCharacter() ? "Ключ" : "Key",
                              "a\\\\b",
                              "b\\\\",
                              "a/b",
                              std::string("a\0b", 3),
                              std::string(255, 'k'),
                              std::string(256, 'k')};
const std::string kNames[] = {"",
                              "a",
                              "A",
                              "b",
                              "a\\b",
                              "Wert-ä",
                              "WERT-Ä",
                              "\xEF\x9E\x81",
                              "@",
                              " ",
                              std::string("a\0", 2),
                              std::string(16384, 'v')};
const std::string kTexts[] = {"",     std::string(1, '\0'),   "a",
                              "text", std::string("a\0", 2),  std::string("a\0b\0", 4),
                              "ä",    std::string("\0\0", 2), std::string("  12 \0", 6)};
constexpr RegType kTypes[] = {RegType::kNone,     RegType::kSz,     RegType::kSz,
                              RegType::kExpandSz, RegType::kBinary, RegType::kDword,
                              RegType{5},         RegType{7},       RegType{0xFFFFFFFF}};
constexpr std::size_t kSizes[] = {0, 1, 2, 3, 4, 6, 7, 8, 65536};

/// A script is the numbers that a seed gives; it asks for them in the same order whatever the
/// registry answers.
class Script {
 public:
  Script(unsigned seed, RegistryUnderTest& subject)
      : random_(seed), subject_(subject), is_filled_(Below(2) == 0) {}

  /// Carries it out and tells what each call gave, one line each. Nothing is left behind.
  std::vector<std::string> Run() {
    subject_.Fill([this](RegistryApi& registry) {
      registry_ = &registry;
      for (int i = 0; i < (is_filled_ ? kCalls / 4 : 0); ++i) Call();
      EndAll();
    });
    registry_ = &subject_.Registry();
    for (std::size_t i = 0; i < slots_.size(); ++i) Create();
    for (int i = 0; i < kCalls; ++i) Call();
    for (Slot& slot : slots_) List(slot.key);
    EndAll();
    Tell("all " + Tree(kBase));
    registry_->DeleteKey(kMachine, "Software");
    return std::move(lines_);
  }

 private:
  struct Slot {
    RegHandle key = 0;
  };

  std::size_t Below(std::size_t bound) { return random_() % bound; }
  template <class Table>
  const auto& OneOf(const Table& table) {
    return table[Below(std::size(table))];
  }
  std::string Path() {
    const std::string& below = OneOf(kPaths);
    // The odd one out is a whole path that begins with a backslash.
    if (Below(40) == 0) return "\\" + kBase;
    return below.empty() ? kBase : kBase + "\\" + below;
  }
  std::string Data(RegType type) {
    if (type == RegType::kSz || type == RegType::kExpandSz) return OneOf(kTexts);
    std::string data(OneOf(kSizes), '\0');
    for (std::size_t i = 0; i < std::min<std::size_t>(data.size(), 8); ++i) {
      data[i] = static_cast<char>(random_() & 0xFF);
    }
    return data;
  }
  Slot& AnySlot() { return slots_[Below(slots_.size())]; }

  /// Control characters and long runs as numbers.
  static std::string Shown(std::string_view text) {
    if (text.size() > 40) return "<" + std::to_string(text.size()) + ">";
    std::string shown;
    for (const char c : text) {
      const auto byte = static_cast<unsigned char>(c);
      shown += byte < 0x20 ? "<" + std::to_string(byte) + ">" : std::string(1, c);
    }
    return "'" + shown + "'";
  }
  static std::string Shown(const StoredValue& value) {
    return Shown(value.name) + "=" + Shown(value.type, value.data);
  }
  static std::string Shown(RegType type, std::span<const std::byte> data) {
    const std::size_t first = std::min<std::size_t>(data.size(), 8);
    return std::to_string(static_cast<std::uint32_t>(type)) + ":" + std::to_string(data.size()) +
           ":" + DataText(RegType::kBinary, data.first(first));
  }
  void Tell(std::string line) { lines_.push_back(std::move(line)); }
  void Tell(const std::string& call, RegStatus status, const std::string& more = "") {
    Tell(call + " -> " + std::to_string(static_cast<std::int32_t>(status)) + " " + more);
  }

  void Call() {
    using Act = void (Script::*)();
    static constexpr Act kActs[] = {
        &Script::Open,       &Script::Open,        &Script::Create,       &Script::Create,
        &Script::Create,     &Script::Close,       &Script::Set,          &Script::Set,
        &Script::Set,        &Script::Set,         &Script::Query,        &Script::Query,
        &Script::Query,      &Script::DeleteValue, &Script::SetDefault,   &Script::DeleteKey,
        &Script::ListAny,    &Script::ListAny,     &Script::BeginChanges, &Script::EndChanges,
        &Script::BeginReads, &Script::EndReads};
    (this->*OneOf(kActs))();
  }

  void Put(Slot& slot, RegStatus status, RegHandle key, const std::string& call) {
    const bool is_left_alone = status == RegStatus::kSuccess || key == kUntouched;
    Tell(call, status, is_left_alone ? "" : "changed its output");
    if (status != RegStatus::kSuccess) return;
    registry_->CloseKey(slot.key);
    slot.key = key;
  }
  void Open() {
    const std::string path = Path();
    RegHandle key = kUntouched;
    const RegStatus status = registry_->OpenKey(kMachine, path, key);
    Put(AnySlot(), status, key, "open " + Shown(path));
  }
  void Create() {
    const std::string path = Path();
    RegHandle key = kUntouched;
    const RegStatus status = registry_->CreateKey(kMachine, path, key);
    Put(AnySlot(), status, key, "create " + Shown(path));
  }
  void Close() {
    Slot& slot = AnySlot();
    registry_->CloseKey(slot.key);
    slot.key = 0;
  }
  void EndAll() {
    while (groups_ > 0) EndChanges();
    while (reads_ > 0) EndReads();
    for (Slot& slot : slots_) {
      registry_->CloseKey(slot.key);
      slot.key = 0;
    }
  }
  void Set() {
    const std::string& name = OneOf(kNames);
    const RegType type = OneOf(kTypes);
    const std::string text = Data(type);
    const auto data = std::as_bytes(std::span(text));
    Tell("set " + Shown(name) + " " + Shown(type, data),
         registry_->SetValue(AnySlot().key, name, type, data));
  }
  void Query() {
    const std::string& name = OneOf(kNames);
    const bool has_room = Below(3) > 0;
    std::vector<std::byte> room(OneOf(kSizes) + 1, std::byte{0xEE});
    RegType type{77};
    std::size_t size = 77;
    const std::span<std::byte> data =
        has_room ? std::span(room).first(room.size() - 1) : std::span<std::byte>();
    const RegStatus status = registry_->QueryValue(AnySlot().key, name, type, size, data);
    // Twelve bytes show where the data end, or that nothing was touched.
    Tell("query " + Shown(name) + (has_room ? " into " + std::to_string(data.size()) : ""), status,
         std::to_string(static_cast<std::uint32_t>(type)) + " " + std::to_string(size) + " " +
             DataText(RegType::kBinary,
                      std::span(room).first(std::min<std::size_t>(room.size(), 12))));
  }
  void DeleteValue() {
    const std::string& name = OneOf(kNames);
    Tell("delete value " + Shown(name), registry_->DeleteValue(AnySlot().key, name));
  }
  void SetDefault() {
    const std::string path = Path();
    Tell("set default " + Shown(path), registry_->SetDefaultValue(kMachine, path, "default"));
  }
  void DeleteKey() {
    const std::string path = Path();
    Tell("delete key " + Shown(path), registry_->DeleteKey(kMachine, path));
  }
  void ListAny() { List(AnySlot().key); }
  void List(RegHandle key) {
    std::vector<std::string> names = {"untouched"};
    std::vector<StoredValue> values(1);
    const RegStatus of_keys = registry_->ListKeys(key, names);
    const RegStatus of_values = registry_->ListValues(key, values);
    std::string listed;
    for (const std::string& name : names) listed += Shown(name) + "\\ ";
    for (const StoredValue& value : values) listed += Shown(value) + " ";
    Tell("list keys", of_keys);
    Tell("list values", of_values, listed);
  }
  void BeginChanges() {
    if (groups_ == 3) return;
    const RegStatus status = registry_->BeginChanges();
    Tell("begin changes", status);
    if (status == RegStatus::kSuccess) ++groups_;
  }
  void EndChanges() {
    const bool keep = Below(3) > 0;
    if (groups_ == 0) return;
    --groups_;
    Tell(keep ? "keep changes" : "take changes back", registry_->EndChanges(keep));
  }
  void BeginReads() {
    registry_->BeginReads();
    ++reads_;
  }
  void EndReads() {
    if (reads_ == 0) return;
    registry_->EndReads();
    --reads_;
  }
  std::string Tree(const std::string& path) {
    RegHandle key = 0;
    if (registry_->OpenKey(kMachine, path, key) != RegStatus::kSuccess) return "(no key)";
    std::vector<std::string> names;
    std::vector<StoredValue> values;
    EXPECT_EQ(registry_->ListKeys(key, names), RegStatus::kSuccess);
    EXPECT_EQ(registry_->ListValues(key, values), RegStatus::kSuccess);
    registry_->CloseKey(key);
    std::string tree;
    for (const StoredValue& value : values) tree += Shown(value) + " ";
    for (const std::string& name : names) {
      tree += Shown(name) + "{" + Tree(std::string(path).append(1, '\\').append(name)) + "} ";
    }
    return tree;
  }

  static constexpr RegHandle kUntouched = 0x5A5A5A5A;

  std::mt19937 random_;
  RegistryUnderTest& subject_;
  bool is_filled_;
  RegistryApi* registry_ = nullptr;
  std::array<Slot, 3> slots_{};
  int groups_ = 0;
  int reads_ = 0;
  std::vector<std::string> lines_;
};

/// The lines up to the first one that differs, and both forms of that.
std::string Difference(const std::vector<std::string>& model,
                       const std::vector<std::string>& other) {
  const auto [at, there] = std::mismatch(model.begin(), model.end(), other.begin(), other.end());
  std::string text;
  for (auto line = model.begin(); line != at; ++line) text += *line + "\n";
  return text + "model: " + (at == model.end() ? "(end)" : *at) +
         "\nhere:  " + (there == other.end() ? "(end)" : *there);
}

class RegistryScriptsTest : public testing::TestWithParam<unsigned> {};

INSTANTIATE_TEST_SUITE_P(Part, RegistryScriptsTest, testing::Range(0U, kParts));

TEST_P(RegistryScriptsTest, EveryKindAnswersAsTheModel) {
  const std::vector<RegistryKind> kinds = RegistryKinds();
  std::vector<std::unique_ptr<RegistryUnderTest>> subjects;
  subjects.reserve(kinds.size());
  for (const RegistryKind& kind : kinds) subjects.push_back(kind.make());
  std::array<int, 2> seen{};
  const unsigned first = GetParam() * kScriptsInPart + 1;
  for (unsigned seed = first; seed < first + kScriptsInPart; ++seed) {
    const std::vector<std::string> model = Script(seed, *subjects.front()).Run();
    seen[model.back() == "all (no key)"] += 1;
    for (std::size_t i = 1; i < kinds.size(); ++i) {
      const std::vector<std::string> other = Script(seed, *subjects[i]).Run();
      ASSERT_TRUE(model == other) << kinds[i].name << ", seed " << seed << "\n"
                                  << Difference(model, other);
    }
  }
  // Scripts that leave nothing behind show little.
  EXPECT_GT(seen[0], seen[1] * 2);
}

}  // namespace
}  // namespace kestrune::platform
