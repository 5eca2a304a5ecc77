#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "failure.h"

namespace kestrune::bench {

/// The prepared statements behind the registry's operations and nothing else, on an open store's
/// file, with the durability of the store.
class BareStore {
 public:
  explicit BareStore(const std::string& path) {
    Check(sqlite3_open_v2(path.c_str(), &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                          nullptr));
    Check(sqlite3_exec(database_, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr));
    for (std::size_t i = 0; i < kSql.size(); ++i) {
      Check(sqlite3_prepare_v3(database_, kSql[i], -1, SQLITE_PREPARE_PERSISTENT, &statements_[i],
                               nullptr));
    }
  }
  ~BareStore() {
    for (sqlite3_stmt* statement : statements_) sqlite3_finalize(statement);
    sqlite3_close_v2(database_);
  }
  BareStore(const BareStore&) = delete;
  BareStore& operator=(const BareStore&) = delete;

  void Begin() { Run(statements_[0]); }
  void BeginChange() { Run(statements_[1]); }
  void Commit() { Run(statements_[2]); }

  /// A key by its whole path, root and all, in capitals; 0 when there is none.
  std::int64_t FindKey(const std::string& path) {
    sqlite3_stmt* find = statements_[3];
    BindText(find, 1, path);
    const std::int64_t key = sqlite3_step(find) == SQLITE_ROW ? sqlite3_column_int64(find, 0) : 0;
    sqlite3_reset(find);
    return key;
  }

  std::int64_t AddKey(std::int64_t parent, const std::string& path, const std::string& name) {
    sqlite3_stmt* add = statements_[6];
    sqlite3_bind_int64(add, 1, parent);
    BindText(add, 2, path);
    BindText(add, 3, name);
    Run(add);
    return sqlite3_last_insert_rowid(database_);
  }

  /// A value by its name in capitals. False when it isn't set.
  bool GetValue(std::int64_t key, const std::string& name, std::vector<unsigned char>& data) {
    sqlite3_stmt* get = statements_[4];
    sqlite3_bind_int64(get, 1, key);
    BindText(get, 2, name);
    const bool found = sqlite3_step(get) == SQLITE_ROW;
    if (found) {
      const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(get, 1));
      data.assign(bytes, bytes + sqlite3_column_bytes(get, 1));
    }
    sqlite3_reset(get);
    return found;
  }

  void PutValue(std::int64_t key, const std::string& name, std::uint32_t number) {
    sqlite3_stmt* put = statements_[5];
    sqlite3_bind_int64(put, 1, key);
    BindText(put, 2, name);
    BindText(put, 3, name);
    sqlite3_bind_int64(put, 4, 3);
    sqlite3_bind_blob(put, 5, &number, sizeof number, SQLITE_STATIC);
    Run(put);
  }

 private:
  static constexpr std::array kSql = {
      "BEGIN",
      "BEGIN IMMEDIATE",
      "COMMIT",
      "SELECT id FROM registry_key WHERE path = ?1",
      "SELECT type, data FROM registry_value WHERE key = ?1 AND folded = ?2",
      "INSERT INTO registry_value(key, folded, name, type, data) VALUES(?1, ?2, ?3, ?4, ?5) "
      "ON CONFLICT DO UPDATE SET type = excluded.type, data = excluded.data",
      "INSERT INTO registry_key(parent, path, name) VALUES(?1, ?2, ?3)",
  };

  void Check(int code) const {
    if (code != SQLITE_OK) GiveUp(sqlite3_errmsg(database_));
  }
  void Run(sqlite3_stmt* statement) const {
    if (sqlite3_step(statement) != SQLITE_DONE) GiveUp(sqlite3_errmsg(database_));
    sqlite3_reset(statement);
  }
  static void BindText(sqlite3_stmt* statement, int place, const std::string& text) {
    sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
  }

  sqlite3* database_ = nullptr;
  std::array<sqlite3_stmt*, kSql.size()> statements_{};
};

}  // namespace kestrune::bench
