#include "stores/sqlitedb.h"

#include "station/vbval.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <sqlite3.h>

namespace orvane::stores {

namespace {

// val(x): Val of the text of x; null stays null, numbers stay as they are.
void sqlval(sqlite3_context* ctx, int, sqlite3_value** argv) {
    switch (sqlite3_value_type(argv[0])) {
    case SQLITE_NULL:
        sqlite3_result_null(ctx);
        return;
    case SQLITE_INTEGER:
        sqlite3_result_int64(ctx, sqlite3_value_int64(argv[0]));
        return;
    case SQLITE_FLOAT:
        sqlite3_result_double(ctx, sqlite3_value_double(argv[0]));
        return;
    default:
        break;
    }
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(argv[0]));
    double v = vbval(text ? text : "");
    if (v == std::trunc(v) && std::fabs(v) < 9e15)
        sqlite3_result_int64(ctx, static_cast<sqlite3_int64>(v));
    else
        sqlite3_result_double(ctx, v);
}

// A prepared statement that finalizes itself.
struct Statement {
    sqlite3_stmt* stmt = nullptr;
    ~Statement() { sqlite3_finalize(stmt); }
};

DbValue columnvalue(sqlite3_stmt* stmt, int i) {
    DbValue v;
    switch (sqlite3_column_type(stmt, i)) {
    case SQLITE_INTEGER:
        v.kind = DbValue::Kind::integer;
        v.integer = sqlite3_column_int64(stmt, i);
        break;
    case SQLITE_FLOAT:
        v.kind = DbValue::Kind::real;
        v.real = sqlite3_column_double(stmt, i);
        break;
    case SQLITE_NULL:
        break;
    default: {
        v.kind = DbValue::Kind::text;
        const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(stmt, i));
        v.text = t ? t : "";
    }
    }
    return v;
}

} // namespace

SqliteDb::SqliteDb(const std::string& path) : SqliteDb(path, SQLITE_OPEN_READWRITE) {}

SqliteDb::SqliteDb(const std::string& path, int flags) : path_(path) {
    // The destructor does not run for a connection that failed to open: close it here.
    try {
        if (sqlite3_open_v2(path.c_str(), &db_, flags, nullptr) != SQLITE_OK) fail("无法打开数据库");
        sqlite3_create_function(db_, "val", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, sqlval, nullptr,
                                nullptr);
        // A file that is not a database fails on its first read, so read once now.
        char* err = nullptr;
        if (sqlite3_exec(db_, "select count(*) from sqlite_master", nullptr, nullptr, &err) != SQLITE_OK) {
            sqlite3_free(err);
            fail("不是可用的数据库");
        }
    } catch (...) {
        sqlite3_close(db_);
        throw;
    }
}

SqliteDb::~SqliteDb() {
    sqlite3_close(db_);
}

void SqliteDb::fail(const std::string& what) const {
    std::string reason = db_ ? sqlite3_errmsg(db_) : "out of memory";
    throw DbError(what + "：" + path_ + "（" + reason + "）");
}

std::vector<DbRow> SqliteDb::rows(const std::string& sql, const std::vector<std::string>& params) {
    Statement s;
    if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &s.stmt, nullptr) != SQLITE_OK)
        fail("语句有误 [" + sql + "]");
    for (std::size_t i = 0; i < params.size(); ++i)
        sqlite3_bind_text(s.stmt, static_cast<int>(i + 1), params[i].c_str(), -1, SQLITE_TRANSIENT);
    std::vector<DbRow> out;
    for (;;) {
        int rc = sqlite3_step(s.stmt);
        if (rc == SQLITE_DONE) break;
        if (rc != SQLITE_ROW) fail("语句执行失败 [" + sql + "]");
        DbRow row;
        int n = sqlite3_column_count(s.stmt);
        for (int i = 0; i < n; ++i) row.push_back(columnvalue(s.stmt, i));
        out.push_back(std::move(row));
    }
    return out;
}

void SqliteDb::exec(const std::string& sql, const std::vector<std::string>& params) {
    rows(sql, params);
}

DbValue SqliteDb::scalar(const std::string& sql, const std::vector<std::string>& params) {
    auto result = rows(sql, params);
    if (result.empty() || result[0].empty()) return {};
    return result[0][0];
}

void SqliteDb::script(const std::string& sql) {
    char* err = nullptr;
    if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &err) != SQLITE_OK) {
        std::string reason = err ? err : "";
        sqlite3_free(err);
        throw DbError("数据库初始化失败：" + path_ + "（" + reason + "）");
    }
}

void SqliteDb::create(const std::string& path, const std::string& seed) {
    // Built beside the target and renamed into place, so that a failed start leaves no half database.
    const std::string partial = path + ".partial";
    std::remove(partial.c_str());
    try {
        SqliteDb fresh(partial, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        fresh.script("begin;" + seed + "\ncommit;");
    } catch (...) {
        std::remove(partial.c_str());
        throw;
    }
    std::error_code ec;
    std::filesystem::rename(partial, path, ec);
    if (ec) {
        std::remove(partial.c_str());
        throw DbError("无法建立数据库：" + path + "（" + ec.message() + "）");
    }
}

} // namespace orvane::stores
