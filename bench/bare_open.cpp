// Opens the SQLite file that its argument names and reads one row of it.
#include <sqlite3.h>

int main(int argument_count, char** arguments) {
  if (argument_count != 2) return 2;
  sqlite3* database = nullptr;
  sqlite3_stmt* query = nullptr;
  int code = sqlite3_open_v2(arguments[1], &database, SQLITE_OPEN_READWRITE, nullptr);
  if (code == SQLITE_OK) {
    code = sqlite3_prepare_v2(database, "SELECT name, type, data FROM registry_value LIMIT 1", -1,
                              &query, nullptr);
  }
  if (code == SQLITE_OK) code = sqlite3_step(query);
  sqlite3_finalize(query);
  sqlite3_close_v2(database);
  return code == SQLITE_ROW ? 0 : 3;
}
