// SqliteFile: an SQLite database file and the statements run on it.
//
// A thin layer over SQLite that owns the connection and the statements. Every failure is a RuntimeError whose
// description names the file and says what is wrong: 75 for a file that cannot be accessed (it is missing or locked,
// there is no permission, the disk is full), 321 for a file that cannot be understood or that is damaged, which the
// pages' checksums tell where a file has them (PageChecksums.h). Texts are UTF-8. Thread: one at a time.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/catalogue_export.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace orvan {

/// Raises the error with the given number; its description names the catalogue file and the reason.
[[noreturn]] void raiseCatalogueError(std::int32_t number, const std::filesystem::path& file, const UserText& reason);

class ORVAN_CATALOGUE_INTERNAL SqliteFile {
public:
    enum class Access { readOnly, create };

    /// Opens the file. This and each statement wait at most a quarter of a second for another program's lock.
    SqliteFile(const std::filesystem::path& file, Access access);

    const std::filesystem::path& path() const { return path_; }
    /// Runs statements that yield no result, separated by ';'.
    void run(const char* sql);
    /// The same as run(), but calls `goOn` now and then. When `goOn` returns false, this stops and returns false.
    bool runWhile(const char* sql, const std::function<bool()>& goOn);
    /// Runs a query that yields one number, and returns it.
    std::int64_t number(const char* sql);
    /// Gives the pages of a file that is still empty checksums.
    void addChecksums();
    [[nodiscard]] bool hasChecksums() const;
    /// Writes to `result` what an SQL function of this file makes of its arguments.
    using Function = std::function<void(const std::vector<std::string_view>& arguments, std::string& result)>;
    /// Statements of this file can call the function from now on. Its result is a text, or bytes.
    void addFunction(const char* name, int arguments, bool givesText, Function function);

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

/// The rows that a statement yields. The destructor ends the query, because an unfinished query keeps the file locked.
class ORVAN_CATALOGUE_INTERNAL SqliteRows {
public:
    explicit SqliteRows(SqliteStatement& statement) : statement_(statement) {}
    SqliteRows(const SqliteRows&) = delete;
    SqliteRows& operator=(const SqliteRows&) = delete;
    ~SqliteRows();

    /// Goes to the next row. Returns false when there is none.
    bool next();
    /// The value in a column, counted from 0. A text's view is valid until the next call of next().
    std::string_view text(int column) const;
    std::int64_t integer(int column) const;
    double real(int column) const;
    /// The type that the value has in the file.
    SqliteType type(int column) const;

private:
    SqliteStatement& statement_;
};

/// A prepared statement; to be destroyed before its SqliteFile.
class ORVAN_CATALOGUE_INTERNAL SqliteStatement {
public:
    SqliteStatement(SqliteFile& file, std::string_view sql);
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    /// Binds the values to the parameters and starts the query. Texts are not copied and must outlive the rows.
    template <class... Values>
    SqliteRows query(const Values&... values)
    {
        int index = 0;
        (bind(++index, values), ...);
        return SqliteRows(*this);
    }
    /// Binds the values, runs the statement to its end and returns how many rows it changed.
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
