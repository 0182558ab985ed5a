// SqliteFile: an SQLite database file and the statements run on it.
//
// A thin layer: it owns the connection and the statements, and every failure is a RuntimeError that
// names the file and says what is wrong with it: 75 for a file that cannot be reached (missing, not
// permitted, locked, disk full), 321 for one that cannot be understood. Texts are UTF-8.
// Thread: one at a time.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace orvan {

/// "The catalogue <file>: <reason>", with the error number given.
[[noreturn]] void raiseCatalogueError(std::int32_t number, const std::filesystem::path& file, std::string_view reason);

class SqliteFile {
public:
    enum class Access { readOnly, create };

    /// Waits a quarter of a second at most for another program's lock; so does each statement.
    SqliteFile(const std::filesystem::path& file, Access access);

    const std::filesystem::path& path() const { return path_; }
    /// Statements without a result, separated by ';'.
    void run(const char* sql);
    /// As run; `goOn` is asked now and then, and false ends the statement. Returns false then.
    bool runWhile(const char* sql, const std::function<bool()>& goOn);
    /// The one number that a query yields.
    std::int64_t number(const char* sql);

private:
    friend class SqliteStatement;
    struct Close {
        void operator()(sqlite3* connection) const noexcept;
    };

    [[noreturn]] void raise(int code) const;

    std::filesystem::path path_;
    std::unique_ptr<sqlite3, Close> connection_;
};

class SqliteStatement;

enum class SqliteType { null, integer, real, text };

/// The rows of one execution. Ends it when it goes: an unfinished query keeps the file locked.
class SqliteRows {
public:
    explicit SqliteRows(SqliteStatement& statement) : statement_(statement) {}
    SqliteRows(const SqliteRows&) = delete;
    SqliteRows& operator=(const SqliteRows&) = delete;
    ~SqliteRows();

    /// False when there is no further row.
    bool next();
    /// Columns count from 0. A view is good until the next row.
    std::string_view text(int column) const;
    std::int64_t integer(int column) const;
    double real(int column) const;
    /// The type that the file holds.
    SqliteType type(int column) const;

private:
    SqliteStatement& statement_;
};

/// Goes before its file does.
class SqliteStatement {
public:
    SqliteStatement(SqliteFile& file, std::string_view sql);
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    /// Gives the parameters their values and starts; texts are not copied and must outlive the rows.
    template <class... Values>
    SqliteRows query(const Values&... values)
    {
        int index = 0;
        (bind(++index, values), ...);
        return SqliteRows(*this);
    }
    /// Runs to its end; returns how many rows it changed.
    template <class... Values>
    std::int32_t execute(const Values&... values)
    {
        SqliteRows rows = query(values...);
        while (rows.next()) {
        }
        return changes();
    }

private:
    friend class SqliteRows;
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };

    void bind(int index, std::string_view text);
    void bind(int index, std::int64_t value);
    void bind(int index, std::nullptr_t null);
    void check(int code) const;
    std::int32_t changes() const;

    SqliteFile& file_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

} // namespace orvan
