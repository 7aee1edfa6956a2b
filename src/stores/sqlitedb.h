#pragma once
// A database of the station: one SQLite connection with the function val() registered.
#include "station/ports.h"

#include <stdexcept>
#include <string>

struct sqlite3;

namespace orvane::stores {

// A statement or an open failed; the text names the database file.
class DbError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class SqliteDb : public Db {
  public:
    // Opens an existing database and checks that the file is one.
    explicit SqliteDb(const std::string& path);
    ~SqliteDb() override;
    SqliteDb(const SqliteDb&) = delete;
    SqliteDb& operator=(const SqliteDb&) = delete;

    const std::string& path() const override { return path_; }
    void exec(const std::string& sql, const std::vector<std::string>& params = {}) override;
    DbValue scalar(const std::string& sql, const std::vector<std::string>& params = {}) override;
    std::vector<DbRow> rows(const std::string& sql, const std::vector<std::string>& params = {}) override;

    // Runs a script of several statements (the seed of a new database).
    void script(const std::string& sql);

    // Creates the database at path from its seed script, whole or not at all.
    static void create(const std::string& path, const std::string& seed);

  private:
    SqliteDb(const std::string& path, int flags);
    [[noreturn]] void fail(const std::string& what) const;
    std::string path_;
    sqlite3* db_ = nullptr;
};

} // namespace orvane::stores
