#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/portable/store.h"
#include "platform/portable/store_query.h"

// How a store comes into being and is opened.
namespace kestrune::platform::portable {
namespace {

constexpr std::int64_t kApplicationId = 0x4B535452;
constexpr std::int64_t kSchemaVersion = 1;

// A key's path is its whole folded path from the root on, so that opening it is one look-up.
constexpr const char* kSchema = R"(
  CREATE TABLE registry_key(
    id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, path TEXT NOT NULL UNIQUE, name TEXT NOT NULL);
  CREATE INDEX registry_key_by_parent ON registry_key(parent);
  CREATE TABLE registry_value(
    key INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL,
    data BLOB NOT NULL, PRIMARY KEY(key, folded)) WITHOUT ROWID;
  CREATE TABLE machine_state(name TEXT PRIMARY KEY, text TEXT NOT NULL) WITHOUT ROWID;
  INSERT INTO registry_key VALUES
    (1, 0, 'HKEY_CLASSES_ROOT', 'HKEY_CLASSES_ROOT'),
    (2, 0, 'HKEY_CURRENT_USER', 'HKEY_CURRENT_USER'),
    (3, 0, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE');
  PRAGMA application_id = 1263752274;
  PRAGMA user_version = 1;
)";
static_assert(kApplicationId == 1263752274 && kSchemaVersion == 1);

/// The same path as an address that tells SQLite to take the file as it is, without its
/// companions.
std::string ImmutableAddress(const std::string& path) {
  std::string address = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#') {
      constexpr char kDigits[] = "0123456789ABCDEF";
      address.append({'%', kDigits[c >> 4], kDigits[c & 15]});
    } else {
      address.push_back(c);
    }
  }
  return address + "?immutable=1";
}

bool LacksPermission(int code) {
  const int kind = code & 0xFF;
  return kind == SQLITE_CANTOPEN || kind == SQLITE_READONLY || kind == SQLITE_PERM;
}

bool HasBytes(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && status.st_size > 0;
}

/// Makes the folder for a new store.
Result<void> MakeFolderFor(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    return Fail("The folder " + folder + " for the store can't be made: " + error.message() + ".");
  }
  if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0) return {};
  const std::string reason = std::generic_category().message(errno);
  return Fail("The store " + path + " can't be made: " + reason + ".");
}

}  // namespace

Result<std::unique_ptr<Store>> Store::Open(const StoreOptions& options) {
  StoreOptions absolute = options;
  std::error_code error;
  absolute.path = std::filesystem::absolute(options.path, error).string();
  if (error || options.path.empty()) return Fail("The store's path is empty.");
  const bool is_folder = std::filesystem::is_directory(absolute.path, error);
  if (is_folder) return Fail("The store " + absolute.path + " can't be opened: it is a folder.");
  if (!options.dry_run) return OpenFile(absolute);

  // What stands where nothing can be found is told by OpenFile; what isn't there is made in memory.
  if (!HasBytes(absolute.path)) return NewInMemory(absolute);
  Result<std::unique_ptr<Store>> file = OpenFile(absolute);
  if (!file.Ok()) return file;
  if (file.Value() == nullptr) return NewInMemory(absolute);
  return file.Value()->CopyToMemory();
}

/// In a dry run, no store at all for a file that has yet to become one.
Result<std::unique_ptr<Store>> Store::OpenFile(const StoreOptions& options) {
  if (!options.dry_run && !std::filesystem::exists(options.path)) {
    if (auto made = MakeFolderFor(options.path); !made) return Fail(made.Reason());
  }
  std::unique_ptr<Store> store(new Store(options.path));
  const int create = options.dry_run ? 0 : SQLITE_OPEN_CREATE;
  bool is_empty = false;
  std::optional<std::string> refusal;
  int code = store->Connect(options.path, SQLITE_OPEN_READWRITE | create, options.busy_timeout);
  if (code == SQLITE_OK) code = store->Inspect(is_empty, refusal);
  if (LacksPermission(code) && HasBytes(options.path) && !HasBytes(options.path + "-wal")) {
    // The file can be read, but what accompanies an open store can't be made beside it.
    code = store->Connect(ImmutableAddress(options.path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI,
                          options.busy_timeout);
    if (code == SQLITE_OK) code = store->Inspect(is_empty, refusal);
  }
  if (code == SQLITE_OK && !refusal && !is_empty) code = store->CheckPages(refusal);
  if (refusal) return Fail(*refusal);
  if (code != SQLITE_OK) return Fail(store->OpeningFailed(code));
  if (is_empty && options.dry_run) return std::unique_ptr<Store>();
  if (is_empty) {
    if (auto created = store->Create(options); !created) return Fail(created.Reason());
  }
  if (!options.dry_run && !store->IsReadOnly()) {
    store->UseWriteAheadLog(std::chrono::milliseconds(0));
  }
  return store;
}

Result<std::unique_ptr<Store>> Store::NewInMemory(const StoreOptions& options) {
  std::unique_ptr<Store> store(new Store(options.path));
  const int code =
      store->Connect(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, options.busy_timeout);
  if (code != SQLITE_OK) return Fail(store->OpeningFailed(code));
  if (auto created = store->Create(options); !created) return Fail(created.Reason());
  return store;
}

Result<std::unique_ptr<Store>> Store::CopyToMemory() {
  EndView();
  std::unique_ptr<Store> copy(new Store(path_));
  int code = copy->Connect(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, busy_timeout_);
  if (code == SQLITE_OK) {
    sqlite3_backup* backup = sqlite3_backup_init(copy->database_, "main", database_, "main");
    if (backup != nullptr) sqlite3_backup_step(backup, -1);
    code = backup != nullptr ? sqlite3_backup_finish(backup) : sqlite3_errcode(copy->database_);
  }
  if (code != SQLITE_OK) return Fail(OpeningFailed(code));
  return copy;
}

Store::~Store() { Disconnect(); }

int Store::Connect(const std::string& file, int flags, std::chrono::milliseconds busy_timeout) {
  Disconnect();
  busy_timeout_ = busy_timeout;
  const int code = sqlite3_open_v2(file.c_str(), &database_,
                                   flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  if (code != SQLITE_OK) return code;
  sqlite3_busy_timeout(database_, static_cast<int>(busy_timeout.count()));
  // A store may come from anyone, so what its schema says isn't run as code.
  sqlite3_db_config(database_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(database_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  return Run("PRAGMA synchronous = FULL");
}

void Store::Disconnect() {
  for (sqlite3_stmt*& statement : statements_) sqlite3_finalize(std::exchange(statement, nullptr));
  sqlite3_close_v2(std::exchange(database_, nullptr));
}

/// Finds out what the file is: empty, a store that can be used, or something to be refused.
int Store::Inspect(bool& is_empty, std::optional<std::string>& refusal) {
  std::int64_t application = 0;
  std::int64_t version = 0;
  int code = ReadNumber("PRAGMA application_id", application);
  if (code == SQLITE_OK) code = ReadNumber("PRAGMA user_version", version);
  if (code == SQLITE_OK && application == 0 && version == 0) {
    std::int64_t tables = 0;
    code = ReadNumber("SELECT count(*) FROM sqlite_schema", tables);
    is_empty = code == SQLITE_OK && tables == 0;
    if (is_empty) return code;
  }
  if (code == SQLITE_OK && application != kApplicationId) {
    refusal = OpeningFailed(SQLITE_NOTADB);
  } else if (code == SQLITE_OK && version > kSchemaVersion) {
    refusal = "The store " + path_ + " was written by a newer version of this program.";
  }
  return code;
}

int Store::CheckPages(std::optional<std::string>& refusal) {
  sqlite3_stmt* check = nullptr;
  int code = sqlite3_prepare_v2(database_, "PRAGMA quick_check(1)", -1, &check, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(check);
  const auto* text = code == SQLITE_ROW ? sqlite3_column_text(check, 0) : nullptr;
  const bool sound = text != nullptr && std::strcmp(reinterpret_cast<const char*>(text), "ok") == 0;
  sqlite3_finalize(check);
  if (code != SQLITE_ROW && (code & 0xFF) != SQLITE_CORRUPT) return code;
  // A sound file that lacks a table isn't one that this program can have left behind.
  bool complete = sound;
  for (const Sql sql : {kFindKey, kGetValue}) {
    complete = complete && Query(*this, sql).Step() == SQLITE_DONE;
  }
  if (!complete) refusal = OpeningFailed(SQLITE_CORRUPT);
  return SQLITE_OK;
}

/// Makes an empty database a store. Where another program was faster, its store is the one.
Result<void> Store::Create(const StoreOptions& options) {
  if (const int code = UseWriteAheadLog(options.busy_timeout); code != SQLITE_OK) {
    return Fail(OpeningFailed(code));
  }
  Transaction creation(*this);
  if (!creation.IsOpen()) return Fail(*first_failure_);
  bool is_empty = false;
  std::optional<std::string> refusal;
  int code = Inspect(is_empty, refusal);
  if (refusal) return Fail(*refusal);
  if (code == SQLITE_OK && !is_empty) return {};
  if (code == SQLITE_OK) code = Run(kSchema);
  if (code != SQLITE_OK) return Fail(OpeningFailed(code));
  if (options.fill) {
    if (auto filled = options.fill(*this); !filled) return filled;
  }
  if (!creation.Commit()) return Fail(*first_failure_);
  is_new_ = true;
  return {};
}

/// SQLite doesn't wait by itself when two programs ask for this of a new file at the same time.
int Store::UseWriteAheadLog(std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  int code = Run("PRAGMA journal_mode = WAL");
  while ((code & 0xFF) == SQLITE_BUSY && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    code = Run("PRAGMA journal_mode = WAL");
  }
  return code;
}

int Store::Run(const char* sql) { return sqlite3_exec(database_, sql, nullptr, nullptr, nullptr); }

int Store::ReadNumber(const char* sql, std::int64_t& number) {
  sqlite3_stmt* statement = nullptr;
  int code = sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr);
  if (code == SQLITE_OK) code = sqlite3_step(statement);
  if (code == SQLITE_ROW) number = sqlite3_column_int64(statement, 0);
  sqlite3_finalize(statement);
  return code == SQLITE_ROW ? SQLITE_OK : code;
}

std::string Store::OpeningFailed(int code) const {
  if (code == SQLITE_NOTADB) return "The file " + path_ + " isn't a registry store.";
  if ((code & 0xFF) == SQLITE_CORRUPT) return "The store " + path_ + " is damaged.";
  return "The store " + path_ + " can't be opened: " + Reason(code) + ".";
}

}  // namespace kestrune::platform::portable
