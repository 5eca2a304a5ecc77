#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/portable/store.h"

/// The statements that the store's own files share.
namespace kestrune::platform::portable {

enum Store::Sql : std::size_t {
  kBeginReading,
  kBeginChange,
  kCommit,
  kRollback,
  kFindKey,
  kInsertKey,
  kGetValue,
  kPutValue,
  kDropValue,
  kKeepHighestKey,
  kDropValuesBelow,
  kDropKeysBelow,
  kHasKey,
  kListKeys,
  kListValues,
  kGetState,
  kPutState,
  kSqlEnd,
};

inline constexpr const char* kStatements[] = {
    "BEGIN",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "SELECT id FROM registry_key WHERE path = ?1",
    // The number of a key that was deleted isn't given again.
    R"(INSERT INTO registry_key VALUES(1 + max((SELECT max(id) FROM registry_key),
         coalesce((SELECT CAST(text AS INTEGER) FROM machine_state WHERE name = ?4), 0)),
         ?1, ?2, ?3))",
    "SELECT type, data FROM registry_value WHERE key = ?1 AND folded = ?2",
    // A row of its own instead of a selected one needs no journal of the statement.
    R"(INSERT INTO registry_value(key, folded, name, type, data) VALUES(?1, ?2, ?3, ?4, ?5)
       ON CONFLICT DO UPDATE SET type = excluded.type, data = excluded.data
       WHERE type <> excluded.type OR data <> excluded.data)",
    "DELETE FROM registry_value WHERE key = ?1 AND folded = ?2",
    R"(INSERT INTO machine_state SELECT ?1, max(id) FROM registry_key WHERE true
       ON CONFLICT DO UPDATE SET text = excluded.text
       WHERE CAST(text AS INTEGER) < CAST(excluded.text AS INTEGER))",
    R"(DELETE FROM registry_value WHERE key IN
       (SELECT id FROM registry_key WHERE path = ?1 OR (path > ?2 AND path < ?3)))",
    "DELETE FROM registry_key WHERE path = ?1 OR (path > ?2 AND path < ?3)",
    "SELECT 1 FROM registry_key WHERE id = ?1",
    "SELECT name FROM registry_key WHERE parent = ?1 ORDER BY path",
    "SELECT name, type, data FROM registry_value WHERE key = ?1 ORDER BY folded",
    "SELECT text FROM machine_state WHERE name = ?1",
    "INSERT INTO machine_state VALUES(?1, ?2) ON CONFLICT DO UPDATE SET text = excluded.text",
};

/// One use of a prepared statement, which is made on its first use. It ends, with its read lock,
/// when this goes out of scope. What is bound must live as long.
class Store::Query {
 public:
  Query(Store& store, Sql sql) : statement_(store.statements_[sql]) {
    static_assert(std::size(kStatements) == kSqlEnd && kSqlEnd <= kSqlCount);
    if (statement_ != nullptr) return;
    prepared_ = sqlite3_prepare_v3(store.database_, kStatements[sql], -1, SQLITE_PREPARE_PERSISTENT,
                                   &statement_, nullptr);
    store.statements_[sql] = statement_;
  }
  ~Query() { sqlite3_reset(statement_); }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  Query& Bind(int place, std::int64_t number) {
    sqlite3_bind_int64(statement_, place, number);
    return *this;
  }
  Query& Bind(int place, std::string_view text) {
    // A null pointer would be bound as NULL, which is no text.
    sqlite3_bind_text64(statement_, place, text.data() == nullptr ? "" : text.data(), text.size(),
                        SQLITE_STATIC, SQLITE_UTF8);
    return *this;
  }
  Query& Bind(int place, std::span<const std::byte> data) {
    if (data.empty()) {
      sqlite3_bind_zeroblob(statement_, place, 0);
    } else {
      sqlite3_bind_blob64(statement_, place, data.data(), data.size(), SQLITE_STATIC);
    }
    return *this;
  }
  int Step() { return prepared_ == SQLITE_OK ? sqlite3_step(statement_) : prepared_; }

  std::int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
  RegType Type(int column) const {
    return static_cast<RegType>(static_cast<std::uint32_t>(Number(column)));
  }
  std::span<const std::byte> Data(int column) const {
    const auto* bytes = static_cast<const std::byte*>(sqlite3_column_blob(statement_, column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
  }
  std::string Text(int column) const {
    const std::span<const std::byte> data = Data(column);
    return {reinterpret_cast<const char*>(data.data()), data.size()};
  }

 private:
  sqlite3_stmt* statement_;
  int prepared_ = SQLITE_OK;
};

}  // namespace kestrune::platform::portable
