#include "platform/portable/store.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <memory>

#include "platform/portable/files.h"
#include "platform/portable/plain_user.h"
#include "platform/portable/store_registry.h"
#include "platform/reg_file.h"
#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

constexpr RegRoot kMachine = RegRoot::kLocalMachine;
constexpr RegRoot kUser = RegRoot::kCurrentUser;
constexpr std::chrono::milliseconds kShort{100};

std::unique_ptr<Store> OpenStore(const std::string& path) {
  auto store = Store::Open({.path = path, .busy_timeout = kShort});
  EXPECT_TRUE(store.Ok()) << store.Reason();
  return store.Ok() ? std::move(store).Value() : nullptr;
}

std::string Refusal(const StoreOptions& options) {
  const auto store = Store::Open(options);
  return store.Ok() ? "(opened)" : store.Reason();
}

RegStatus Set(Store& store, std::string_view path, std::string_view name, std::string_view text) {
  KeyId key = 0;
  const RegStatus status = store.CreateKey(kMachine, path, key);
  if (status != RegStatus::kSuccess) return status;
  return store.SetValue(key, name, RegType::kSz, std::as_bytes(std::span(text)));
}

std::string Get(Store& store, std::string_view path, std::string_view name) {
  KeyId key = 0;
  RegType type{};
  std::size_t size = 0;
  char text[64] = {};
  if (store.FindKey(kMachine, path, key) != RegStatus::kSuccess) return "(no key)";
  if (store.QueryValue(key, name, type, size, std::as_writable_bytes(std::span(text))) !=
      RegStatus::kSuccess) {
    return "(none)";
  }
  return {text, size};
}

Result<void> FillWithOne(Store& store) {
  Set(store, "K", "v", "filled");
  return {};
}

/// The names of the keys below a key, or of its values.
std::vector<std::string> Names(Store& store, std::string_view path, bool of_values) {
  KeyId key = 0;
  std::vector<std::string> names;
  std::vector<StoredValue> values;
  if (store.FindKey(kMachine, path, key) != RegStatus::kSuccess) return {"(no key)"};
  EXPECT_EQ(of_values ? store.ListValues(key, values) : store.ListKeys(key, names),
            RegStatus::kSuccess);
  for (const StoredValue& value : values) names.push_back(value.name);
  return names;
}

void SetMany(Store& store) {
  Transaction change(store);
  for (int i = 0; i < 400; ++i) Set(store, "K\\" + std::to_string(i), "v", "value");
  EXPECT_TRUE(change.Commit());
}

/// Changes a store's file as anyone's program can.
void RunSql(const std::string& path, const std::string& sql) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(database);
  sqlite3_close(database);
}

/// A store's file and all that may stand beside it.
std::string Bytes(const std::string& path) {
  std::string bytes;
  for (const char* ending : {"", "-wal", "-shm", "-journal"}) {
    const std::string file = path + ending;
    bytes += std::filesystem::exists(file) ? "|" + ReadAll(file) : "|(none)";
  }
  return bytes;
}

TEST(StoreTest, WhatWasWrittenIsThereLaterAndForOthersAtOnce) {
  TempFolder folder;
  const std::string path = folder / "new/folders/a.store";
  {
    const auto first = OpenStore(path);
    EXPECT_TRUE(first->IsNew());
    const auto second = OpenStore(path);
    EXPECT_FALSE(second->IsNew());
    EXPECT_EQ(Set(*first, "K", "v", "1"), RegStatus::kSuccess);
    EXPECT_EQ(Get(*second, "k", "V"), "1");
    EXPECT_EQ(Set(*second, "K", "V", "2"), RegStatus::kSuccess);
    EXPECT_EQ(Get(*first, "K", "v"), "2");
  }
  EXPECT_EQ(Get(*OpenStore(path), "K", "v"), "2");
}

TEST(StoreTest, AViewStaysAsItWasUntilTheStoreIsChanged) {
  TempFolder folder;
  const auto mine = OpenStore(folder / "a.store");
  const auto other = OpenStore(folder / "a.store");
  Set(*mine, "K", "v", "1");
  mine->BeginReads();
  mine->BeginReads();
  EXPECT_EQ(Get(*mine, "K", "v"), "1");
  EXPECT_EQ(Set(*other, "K", "v", "2"), RegStatus::kSuccess);
  mine->EndReads();
  EXPECT_EQ(Get(*mine, "K", "v"), "1");
  // Equal to what the view shows, and still not what the store holds by now.
  EXPECT_EQ(Set(*mine, "K", "v", "1"), RegStatus::kSuccess);
  EXPECT_EQ(Get(*other, "K", "v"), "1");
  // A change opens the view anew.
  EXPECT_EQ(Set(*mine, "K", "w", "1"), RegStatus::kSuccess);
  EXPECT_EQ(Get(*mine, "K", "v"), "1");
  EXPECT_EQ(Set(*other, "K", "v", "2"), RegStatus::kSuccess);
  EXPECT_EQ(Get(*mine, "K", "v"), "1");
  mine->EndReads();
  EXPECT_EQ(Get(*mine, "K", "v"), "2");
  EXPECT_EQ(mine->FirstFailure(), std::nullopt);
}

TEST(StoreTest, WritingTheSameBytesTouchesNoFile) {
  TempFolder folder;
  const auto store = OpenStore(folder / "a.store");
  Set(*store, "K", "v", "1");
  const auto size = std::filesystem::file_size(folder / "a.store-wal");
  const std::string log = ReadAll(folder / "a.store-wal");
  EXPECT_EQ(Set(*store, "k", "V", "1"), RegStatus::kSuccess);
  EXPECT_EQ(ReadAll(folder / "a.store-wal"), log);
  EXPECT_EQ(Set(*store, "K", "v", "2"), RegStatus::kSuccess);
  EXPECT_GT(std::filesystem::file_size(folder / "a.store-wal"), size);
}

TEST(StoreTest, ADryRunKeepsNothing) {
  TempFolder folder;
  const std::string path = folder / "deep/a.store";
  {
    auto missing = Store::Open({.path = path, .dry_run = true, .fill = FillWithOne});
    ASSERT_TRUE(missing.Ok());
    EXPECT_EQ(Get(*missing.Value(), "K", "v"), "filled");
    EXPECT_EQ(Set(*missing.Value(), "K", "w", "1"), RegStatus::kSuccess);
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "deep"));

  const auto kept = OpenStore(path);
  Set(*kept, "K", "v", "kept");
  auto dry = Store::Open({.path = path, .dry_run = true, .fill = FillWithOne});
  ASSERT_TRUE(dry.Ok());
  EXPECT_EQ(Get(*dry.Value(), "K", "v"), "kept");
  EXPECT_EQ(Set(*dry.Value(), "K", "v", "dropped"), RegStatus::kSuccess);
  EXPECT_EQ(Get(*dry.Value(), "K", "v"), "dropped");
  EXPECT_EQ(Get(*kept, "K", "v"), "kept");
}

TEST(StoreTest, ATransactionIsKeptOrTakenBackAsAWhole) {
  TempFolder folder;
  const auto store = OpenStore(folder / "a.store");
  {
    Transaction change(*store);
    EXPECT_EQ(Set(*store, "Kept", "v", "1"), RegStatus::kSuccess);
    store->SetMachineState("clock", "350");
    EXPECT_EQ(Get(*OpenStore(folder / "a.store"), "Kept", "v"), "(no key)");
    EXPECT_TRUE(change.Commit());
  }
  EXPECT_EQ(Get(*store, "Kept", "v"), "1");
  EXPECT_EQ(store->MachineState("clock"), "350");
  {
    Transaction outer(*store);
    { Transaction taken_back(*store); }
    EXPECT_EQ(Set(*store, "Kept", "v", "2"), RegStatus::kWriteFault);
    EXPECT_FALSE(outer.Commit());
  }
  EXPECT_EQ(Get(*store, "Kept", "v"), "1");
}

TEST(StoreTest, AKeyThatAnotherProgramDeletedTakesNothingAndItsNumberIsNotGivenAgain) {
  TempFolder folder;
  const auto mine = OpenStore(folder / "a.store");
  const auto other = OpenStore(folder / "a.store");
  StoreRegistry registry(*mine);
  RegHandle key = 0;
  ASSERT_EQ(registry.CreateKey(kMachine, "A\\Last", key), RegStatus::kSuccess);
  ASSERT_EQ(Set(*mine, "A\\Last", "v", "1"), RegStatus::kSuccess);
  KeyId number = 0;
  mine->FindKey(kMachine, "A\\Last", number);

  ASSERT_EQ(other->DeleteKey(kMachine, "a"), RegStatus::kSuccess);
  ASSERT_EQ(Set(*other, "A", "w", "2"), RegStatus::kSuccess);
  ASSERT_EQ(Set(*other, "A\\Last", "w", "2"), RegStatus::kSuccess);
  KeyId again = 0;
  other->FindKey(kMachine, "A\\Last", again);
  EXPECT_GT(again, number);

  RegType type{};
  std::size_t size = 0;
  std::vector<std::string> names;
  std::vector<StoredValue> values;
  EXPECT_EQ(registry.QueryValue(key, "v", type, size, {}), RegStatus::kKeyDeleted);
  EXPECT_EQ(registry.SetValue(key, "v", RegType::kNone, {}), RegStatus::kKeyDeleted);
  EXPECT_EQ(registry.DeleteValue(key, "v"), RegStatus::kKeyDeleted);
  EXPECT_EQ(registry.ListKeys(key, names), RegStatus::kKeyDeleted);
  EXPECT_EQ(registry.ListValues(key, values), RegStatus::kKeyDeleted);
  EXPECT_EQ(mine->FirstFailure(), std::nullopt);
  EXPECT_EQ(Names(*mine, "A\\Last", true), std::vector<std::string>{"w"});

  // The highest number stays known when everything has gone, and after the next opening.
  ASSERT_EQ(mine->DeleteKey(kMachine, "A"), RegStatus::kSuccess);
  const auto later = OpenStore(folder / "a.store");
  KeyId new_number = 0;
  ASSERT_EQ(later->CreateKey(kUser, "B", new_number), RegStatus::kSuccess);
  EXPECT_GT(new_number, again);
}

TEST(StoreTest, AnInterruptedFirstFillStartsAgain) {
  TempFolder folder;
  const std::string path = folder / "a.store";
  EXPECT_EQ(Refusal({.path = path,
                     .fill =
                         [](Store& store) {
                           Set(store, "Half", "v", "1");
                           return Result<void>(Fail("The rest is missing."));
                         }}),
            "The rest is missing.");
  auto store = Store::Open({.path = path, .fill = FillWithOne});
  ASSERT_TRUE(store.Ok());
  EXPECT_TRUE(store.Value()->IsNew());
  EXPECT_EQ(Get(*store.Value(), "Half", "v"), "(no key)");
  EXPECT_EQ(Get(*store.Value(), "K", "v"), "filled");
  EXPECT_EQ(Refusal({.path = path, .fill = [](Store&) { return Result<void>(Fail("again")); }}),
            "(opened)");
}

TEST(StoreTest, ProgramsThatMeetAtANewStoreFillItOnce) {
  TempFolder folder;
  const std::string path = folder / "a.store";
  constexpr int kPrograms = 8;
  const auto fill = [](Store& store) -> Result<void> {
    const std::string before = store.MachineState("fills").value_or("");
    store.SetMachineState("fills", before + "x");
    return {};
  };
  for (int i = 0; i < kPrograms; ++i) {
    if (fork() != 0) continue;
    auto store = Store::Open({.path = path, .fill = fill});
    _exit(store.Ok() && Set(*store.Value(), "K", std::to_string(i), "1") == RegStatus::kSuccess
              ? 0
              : 1);
  }
  for (int i = 0; i < kPrograms; ++i) {
    int status = 0;
    wait(&status);
    EXPECT_EQ(status, 0);
  }
  const auto store = OpenStore(path);
  EXPECT_EQ(store->MachineState("fills"), "x");
  EXPECT_EQ(Names(*store, "K", true).size(), std::size_t{kPrograms});
}

TEST(StoreFaultTest, FilesThatCanNotBeAStoreAreRefusedUntouched) {
  TempFolder folder;
  const std::string good = folder / "good.store";
  { SetMany(*OpenStore(good)); }
  const std::string bytes = ReadAll(good);
  ASSERT_GT(bytes.size(), 32768u);
  const auto patched = [&bytes](std::size_t at, std::string_view with) {
    return std::string(bytes).replace(at, with.size(), with);
  };
  struct Case {
    const char* name;
    std::string bytes;
    std::string reason;
  };
  for (const Case& c : {
           Case{"text", "REGEDIT4\r\n\r\n", "The file ? isn't a registry store."},
           Case{"long text", std::string(9000, 'x'), "The file ? isn't a registry store."},
           Case{"other program's", patched(68, "\1\2\3\4"), "The file ? isn't a registry store."},
           Case{"newer", patched(60, std::string("\0\0\0\2", 4)),
                "The store ? was written by a newer version of this program."},
           Case{"cut short", bytes.substr(0, 16384), "The store ? is damaged."},
           Case{"bad schema", patched(120, std::string(3900, '\x55')), "The store ? is damaged."},
       }) {
    for (const bool dry_run : {false, true}) {
      const std::string path = folder.Write("bad.store", c.bytes);
      std::string expected = c.reason;
      expected.replace(expected.find('?'), 1, path);
      const std::string before = Bytes(path);
      EXPECT_EQ(Refusal({.path = path, .dry_run = dry_run}), expected) << c.name;
      EXPECT_TRUE(Bytes(path) == before) << c.name;
    }
  }
}

TEST(StoreFaultTest, AStoreWithAnotherSchemaIsRefusedBeforeAnyOfItRuns) {
  struct Case {
    const char* name;
    const char* sql;
  };
  for (const auto& [name, sql] : {
           Case{"endless view",
                "DROP TABLE registry_key; CREATE VIEW registry_key AS WITH RECURSIVE "
                "n(id) AS (SELECT 1 UNION ALL SELECT id + 1 FROM n) "
                "SELECT id, 0 AS parent, 'x' AS path, 'x' AS name FROM n"},
           Case{"large column",
                "ALTER TABLE registry_key ADD COLUMN "
                "large AS (zeroblob(1000000000))"},
           Case{"trigger", "CREATE TRIGGER t AFTER INSERT ON registry_key BEGIN SELECT 1; END"},
           Case{"another index", "CREATE INDEX i ON registry_value(name)"},
           Case{"no index", "DROP INDEX registry_key_by_parent"},
           Case{"no table", "DROP TABLE machine_state"},
           Case{"no number", "PRAGMA user_version = 0"},
       }) {
    TempFolder folder;
    const std::string path = folder / "a.store";
    OpenStore(path);
    RunSql(path, sql);
    const std::string before = Bytes(path);
    EXPECT_EQ(Refusal({.path = path}), "The store " + path + " is damaged.") << name;
    EXPECT_TRUE(Bytes(path) == before) << name;
  }
}

TEST(StoreFaultTest, DamageIsToldWhenItIsComeAcross) {
  TempFolder folder;
  const std::string path = folder / "a.store";
  SetMany(*OpenStore(path));
  std::string bytes = ReadAll(path);
  // The roots of the tables stand on the five pages of 4,096 bytes behind the first.
  folder.Write("a.store", bytes.replace(4096, 20480, std::string(20480, '\x55')));
  const auto store = OpenStore(path);
  EXPECT_EQ(Get(*store, "K\\399", "v"), "(no key)");
  EXPECT_EQ(store->FirstFailure(), "The store " + path + " can't be read: it is damaged.");
}

TEST(StoreFaultTest, ALogThatWasLeftBehindIsCheckedAndFoldedInOnlyWhenItIsSound) {
  for (const bool damaged : {false, true}) {
    TempFolder folder;
    const std::string path = folder / "a.store";
    OpenStore(path);
    if (const pid_t child = fork(); child == 0) {
      const auto store = OpenStore(path);
      SetMany(*store);
      _exit(0);
    }
    wait(nullptr);
    if (damaged) {
      // The frames of a log are signed, so the damage is done to a page that none of them holds:
      // that of the machine's state.
      std::string bytes = ReadAll(path);
      folder.Write("a.store", bytes.replace(4096, 64, std::string(64, '\x55')));
    }
    const std::string before = Bytes(path);
    const std::string told = damaged ? "The store " + path + " is damaged." : "(opened)";
    EXPECT_EQ(Refusal({.path = path, .dry_run = true}), told);
    EXPECT_TRUE(Bytes(path) == before);
    EXPECT_EQ(Refusal({.path = path}), told);
    if (damaged) {
      EXPECT_TRUE(Bytes(path) == before);
    } else {
      EXPECT_FALSE(std::filesystem::exists(path + "-wal"));
      EXPECT_EQ(Get(*OpenStore(path), "K\\399", "v"), "value");
    }
  }
}

TEST(StoreFaultTest, NobodyWaitsToLookAndAfterOneFailureNobodyWaitsAgain) {
  TempFolder folder;
  const std::string path = folder / "a.store";
  const auto other = OpenStore(path);
  Set(*other, "K", "v", "1");
  Transaction held(*other);
  const auto start = std::chrono::steady_clock::now();
  const auto waited = [start] { return std::chrono::steady_clock::now() - start; };
  const auto store = Store::Open({.path = path, .busy_timeout = std::chrono::seconds(1)});
  ASSERT_TRUE(store.Ok());
  EXPECT_EQ(Set(*store.Value(), "K", "v", "1"), RegStatus::kSuccess);
  EXPECT_LT(waited(), std::chrono::milliseconds(900));
  for (int i = 0; i < 5; ++i) EXPECT_EQ(Set(*store.Value(), "K", "v", "2"), RegStatus::kWriteFault);
  EXPECT_LT(waited(), std::chrono::milliseconds(2500));
}

TEST(StoreTest, AKeyDeletedWithinATransactionTakesNoMoreValues) {
  TempFolder folder;
  const auto store = OpenStore(folder / "a.store");
  const auto set = [&store](KeyId key) { return store->SetValue(key, "v", RegType::kNone, {}); };
  Transaction change(*store);
  KeyId key = 0;
  EXPECT_EQ(store->CreateKey(RegRoot::kLocalMachine, "K", key), RegStatus::kSuccess);
  EXPECT_EQ(set(key), RegStatus::kSuccess);
  EXPECT_EQ(store->DeleteKey(RegRoot::kLocalMachine, "K"), RegStatus::kSuccess);
  EXPECT_EQ(set(key), RegStatus::kKeyDeleted);
  EXPECT_TRUE(change.Commit());
}

TEST(StoreFaultTest, WhatIsPassedOverNeitherWaitsNorFailsForOthers) {
  TempFolder folder;
  const std::string path = folder / "a.store";
  const auto other = OpenStore(path);
  Set(*other, "K", "v", "1");
  const auto store = Store::Open({.path = path, .busy_timeout = std::chrono::milliseconds(300)});
  ASSERT_TRUE(store.Ok());
  StoreRegistry registry(*store.Value());
  const auto waited = [&](HeldUp held_up) {
    const auto start = std::chrono::steady_clock::now();
    const UnaskedScope unasked(registry, held_up);
    EXPECT_EQ(Set(*store.Value(), "K", "v", "2"), RegStatus::kWriteFault);
    EXPECT_FALSE(Transaction(*store.Value()).IsOpen());
    return std::chrono::steady_clock::now() - start;
  };
  {
    Transaction held(*other);
    EXPECT_LT(waited(HeldUp::kPassedOver), std::chrono::milliseconds(200));
    EXPECT_EQ(store.Value()->FirstFailure(), std::nullopt);
    EXPECT_GE(waited(HeldUp::kWaits), std::chrono::milliseconds(200));
    EXPECT_NE(store.Value()->FirstFailure(), std::nullopt);
  }
  EXPECT_EQ(Set(*store.Value(), "K", "v", "2"), RegStatus::kSuccess);
}

TEST(StoreFaultTest, PlacesWhereNoStoreCanBe) {
  TempFolder folder;
  const std::string file = folder.Write("file", "x");
  EXPECT_EQ(Refusal({.path = file + "/below/a.store"}),
            "The folder " + file + "/below for the store can't be made: Not a directory.");
  EXPECT_EQ(Refusal({.path = std::filesystem::path(file).parent_path()}),
            "The store " + std::filesystem::path(file).parent_path().string() +
                " can't be opened: it is a folder.");
  EXPECT_EQ(Refusal({.path = ""}), "The store's path is empty.");
  const auto obstacle = [](const std::string& path) {
    const std::string told = Refusal({.path = path});
    const std::string start = "The store " + path + " can't be opened: ";
    return told.starts_with(start) ? told.substr(start.size()) : told;
  };
  EXPECT_EQ(obstacle("/dev/null"), "it is no ordinary file.");
  EXPECT_EQ(obstacle(folder / std::string(300, 'x')), "File name too long.");
  for (const char* name : {"nowhere", "ring"}) {
    const std::string to = folder / (std::string(name) == "ring" ? "ring" : "none");
    std::filesystem::create_symlink(to, folder / name);
  }
  EXPECT_EQ(obstacle(folder / "nowhere"), "it is a link to nowhere.");
  EXPECT_EQ(obstacle(folder / "ring"), "Too many levels of symbolic links.");
  EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST(StoreFaultTest, AnEmptyFileBecomesAStore) {
  TempFolder folder;
  EXPECT_TRUE(OpenStore(folder.Write("a.store", ""))->IsNew());
}

TEST(StoreFaultTest, AStoreThatIsLockedForTooLongFailsAndIsRemembered) {
  TempFolder folder;
  const std::string path = folder / "a.store";
  const auto store = OpenStore(path);
  Set(*store, "K", "v", "1");
  const auto other = OpenStore(path);
  {
    Transaction held(*other);
    ASSERT_TRUE(held.IsOpen());
    EXPECT_EQ(Get(*store, "K", "v"), "1");
    EXPECT_EQ(Set(*store, "K", "v", "1"), RegStatus::kSuccess);
    EXPECT_EQ(store->FirstFailure(), std::nullopt);
    EXPECT_EQ(Set(*store, "K", "v", "2"), RegStatus::kWriteFault);
    EXPECT_FALSE(Transaction(*store).IsOpen());
  }
  EXPECT_EQ(
      store->FirstFailure(),
      "The store " + path + " can't be written: another program has kept it locked for too long.");
  EXPECT_EQ(Set(*store, "K", "v", "2"), RegStatus::kSuccess);
  EXPECT_EQ(Get(*store, "K", "v"), "2");
}

TEST(StoreFaultTest, AStoreThatCanNotBeWrittenStillServesReads) {
  for (const bool folder_too : {true, false}) {
    TempFolder folder;
    const std::string path = folder / "ro #1/a.store";
    Set(*OpenStore(path), "K", "v", "1");
    chmod(path.c_str(), 0444);
    chmod((folder / "ro #1").c_str(), folder_too ? 0555 : 0777);
    PlainUser user;
    if (!user.Works()) GTEST_SKIP() << "this user can't give up its rights";
    const auto store = OpenStore(path);
    ASSERT_NE(store, nullptr);
    EXPECT_TRUE(store->IsReadOnly());
    EXPECT_EQ(Get(*store, "K", "v"), "1");
    EXPECT_EQ(Set(*store, "K", "v", "1"), RegStatus::kSuccess);
    store->BeginUnasked(HeldUp::kWaits);
    EXPECT_EQ(Set(*store, "New", "v", "1"), RegStatus::kWriteFault);
    store->EndUnasked(HeldUp::kWaits);
    EXPECT_EQ(store->FirstFailure(), std::nullopt);
    EXPECT_EQ(Set(*store, "New", "v", "1"), RegStatus::kWriteFault);
    EXPECT_EQ(store->FirstFailure(), "The store " + path + " can't be written: it is read-only.");
    EXPECT_EQ(Get(*store, "K", "v"), "1");
    const auto copy = store->CopyToMemory();
    ASSERT_TRUE(copy.Ok());
    EXPECT_EQ(Set(*copy.Value(), "K", "v", "2"), RegStatus::kSuccess);
  }
}

TEST(StoreFaultTest, MissingRightsAreToldAsSuch) {
  TempFolder folder;
  const std::string unreadable = folder.Write("closed/unreadable.store", "x");
  const std::string missing = folder / "closed/missing.store";
  chmod(unreadable.c_str(), 0);
  chmod((folder / "closed").c_str(), 0555);
  PlainUser user;
  if (!user.Works()) GTEST_SKIP() << "this user can't give up its rights";
  EXPECT_EQ(Refusal({.path = missing}),
            "The store " + missing + " can't be made: Permission denied.");
  EXPECT_EQ(Refusal({.path = unreadable}),
            "The store " + unreadable + " can't be opened: Permission denied.");
}

TEST(StoreFaultTest, AnImportWithAFaultyWriteLeavesNothing) {
  TempFolder folder;
  const auto store = OpenStore(folder / "a.store");
  StoreRegistry registry(*store);
  FolderFiles files({}, 1252);
  const std::string text = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"a\"=\"1\"\n";
  const auto import = [&](const std::string& bytes) {
    const auto done = ImportRegFile(bytes, "a.reg", files, registry);
    return done ? "" : done.Reason();
  };
  const auto other = OpenStore(folder / "a.store");
  {
    Transaction held(*other);
    EXPECT_EQ(import(text), "The registry can't be written.");
    EXPECT_NE(store->FirstFailure(), std::nullopt);
  }
  EXPECT_EQ(Get(*store, "K", "a"), "(no key)");
  EXPECT_EQ(import(text + "x"), "a.reg:4: this is neither a key nor a value");
  EXPECT_EQ(import(""), "a.reg is empty.");
  EXPECT_EQ(Get(*store, "K", "a"), "(no key)");
  EXPECT_EQ(import(text), "");
  EXPECT_EQ(Get(*store, "K", "a"), std::string_view("1\0", 2));
}

}  // namespace
}  // namespace kestrune::platform::portable
