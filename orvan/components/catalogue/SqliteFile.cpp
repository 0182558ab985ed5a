#include "orvan/components/catalogue/SqliteFile.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/PageChecksums.h"
#include "orvan/files/Descriptor.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstdlib>
#include <exception>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <unistd.h>

namespace orvan {

namespace {

constexpr int kWaitForLocks = 250;              // milliseconds; the user interface does not react for that time
constexpr int kStepsBetweenQuestions = 100'000; // instructions of SQLite's virtual machine; they take some milliseconds

/// The function that runWhile calls, and the exception that it threw, which must not pass through SQLite's C code.
struct Question {
    const std::function<bool()>& goOn;
    std::exception_ptr thrown;
};

int isToEnd(void* context) noexcept
{
    auto& question = *static_cast<Question*>(context);
    try {
        return question.goOn() ? 0 : 1;
    } catch (...) {
        question.thrown = std::current_exception();
        return 1;
    }
}

/// The reason why a file cannot be used. The system's own is preferred: SQLite's is often just "unable to open" or
/// "disk I/O error". `systemError` is what SQLite remembers of it, 0 if nothing.
UserText whyUnreachable(const std::filesystem::path& file, int code, int systemError)
{
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) {
        return userText("it is a folder");
    }
    const int needed = std::filesystem::exists(file, error) ? R_OK : F_OK;
    if (::access(file.c_str(), needed) != 0) {
        systemError = errno;
    }
    return UserText(systemError == 0 ? sqlite3_errstr(code) : std::system_category().message(systemError));
}

/// The folder in which SQLite sorts what it does not sort in memory: the first of these that can be written to.
std::string temporaryFolder()
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here sets the environment
    const char* const folders[] = {std::getenv("SQLITE_TMPDIR"), std::getenv("TMPDIR"), "/var/tmp", "/usr/tmp", "/tmp"};
    for (const char* const folder : folders) {
        if (folder && ::access(folder, W_OK | X_OK) == 0) {
            return folder;
        }
    }
    return ".";
}

UserText whyNoTemporaryFile(bool full)
{
    const std::string folder = temporaryFolder();
    return full ? userText("the folder for temporary files, \"%1\", is full", folder)
                : userText("a temporary file in \"%1\" cannot be used", folder);
}

struct AddedFunction {
    SqliteFile::Function function;
    bool givesText;
    std::vector<std::string_view> arguments; // Scratch buffers; members so that their capacity is reused.
    std::string result;
};

void callFunction(sqlite3_context* context, int count, sqlite3_value** values) noexcept
{
    auto& added = *static_cast<AddedFunction*>(sqlite3_user_data(context));
    try {
        added.arguments.clear();
        added.result.clear();
        for (int i = 0; i < count; ++i) {
            const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(values[i]));
            added.arguments.emplace_back(text ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(values[i])));
        }
        added.function(added.arguments, added.result);
        if (added.givesText) {
            sqlite3_result_text64(context, added.result.data(), added.result.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
        } else {
            sqlite3_result_blob64(context, added.result.data(), added.result.size(), SQLITE_TRANSIENT);
        }
    } catch (...) { // no exception may pass through SQLite's C code
        sqlite3_result_error_nomem(context);
    }
}

} // namespace

void raiseCatalogueError(std::int32_t number, const std::filesystem::path& file, const UserText& reason)
{
    throw RuntimeError(number, {}, userText("The catalogue \"%1\" cannot be used: %2.", file.string(), reason));
}

// --- SqliteFile -------------------------------------------------------------------------------------

void SqliteFile::Close::operator()(sqlite3* connection) const noexcept
{
    sqlite3_close_v2(connection); // unlike sqlite3_close, allows statements that outlive the connection
}

SqliteFile::SqliteFile(const std::filesystem::path& file, Access access)
    : path_(std::filesystem::absolute(file)) // a relative name may mean something else to SQLite (":memory:")
{
    if (std::error_code error; !std::filesystem::is_directory(path_, error)) { // SQLite itself refuses a folder
        try {
            files::refuseOtherThanFile(path_); // SQLite would wait at a pipe for another program
        } catch (const RuntimeError& notAFile) {
            raiseCatalogueError(notAFile.number(), path_, notAFile.userText());
        }
    }
    const int flags = access == Access::readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3* connection = nullptr;
    const int code = sqlite3_open_v2(path_.c_str(), &connection, flags, checkingFileSystem());
    connection_.reset(connection);
    if (code != SQLITE_OK) {
        raise(code);
    }
    sqlite3_extended_result_codes(connection, 1);
    sqlite3_busy_timeout(connection, kWaitForLocks);
}

void SqliteFile::raise(int code) const
{
    const bool temporary = takeTemporaryFileFailed();
    if (code == SQLITE_IOERR_DATA) { // a page's checksum
        raiseCatalogueError(ErrorNumber::invalidFileFormat, path_,
                            userText("it is damaged (%1)", "a page is not as it was written"));
    }
    switch (code & 0xFF) {
    case SQLITE_NOMEM: throw RuntimeError(ErrorNumber::outOfMemory);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        raiseCatalogueError(ErrorNumber::pathFileAccess, path_, userText("another program has locked it"));
    case SQLITE_FULL:
        raiseCatalogueError(ErrorNumber::pathFileAccess, path_,
                            temporary ? whyNoTemporaryFile(true) : userText("the disk is full"));
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
    case SQLITE_PERM:
    case SQLITE_READONLY: {
        const int systemError = connection_ ? sqlite3_system_errno(connection_.get()) : 0;
        raiseCatalogueError(ErrorNumber::pathFileAccess, path_,
                            temporary || code == SQLITE_IOERR_GETTEMPPATH ? whyNoTemporaryFile(systemError == ENOSPC)
                                                                          : whyUnreachable(path_, code, systemError));
    }
    case SQLITE_NOTADB: raiseCatalogueError(ErrorNumber::invalidFileFormat, path_, userText("it is no catalogue file"));
    default:
        raiseCatalogueError(
            ErrorNumber::invalidFileFormat, path_,
            userText("it is damaged (%1)", connection_ ? sqlite3_errmsg(connection_.get()) : sqlite3_errstr(code)));
    }
}

void SqliteFile::run(const char* sql)
{
    const int code = sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        raise(code);
    }
}

bool SqliteFile::runWhile(const char* sql, const std::function<bool()>& goOn)
{
    Question question{goOn, {}};
    sqlite3_progress_handler(connection_.get(), kStepsBetweenQuestions, isToEnd, &question);
    const int code = sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr);
    sqlite3_progress_handler(connection_.get(), 0, nullptr, nullptr);
    if (question.thrown) {
        std::rethrow_exception(question.thrown);
    }
    if (code != SQLITE_OK && code != SQLITE_INTERRUPT) {
        raise(code);
    }
    return code == SQLITE_OK;
}

std::int64_t SqliteFile::number(const char* sql)
{
    SqliteStatement statement(*this, sql);
    SqliteRows rows = statement.query();
    return rows.next() ? rows.integer(0) : 0;
}

void SqliteFile::addChecksums()
{
    if (const int code = beginChecksums(connection_.get()); code != SQLITE_OK) {
        raise(code);
    }
}

bool SqliteFile::hasChecksums() const
{
    return orvan::hasChecksums(connection_.get());
}

void SqliteFile::addFunction(const char* name, int arguments, bool givesText, Function function)
{
    auto added = std::make_unique<AddedFunction>(AddedFunction{std::move(function), givesText, {}, {}});
    const int code = sqlite3_create_function_v2(connection_.get(), name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                                added.release(), callFunction, nullptr, nullptr,
                                                [](void* pointer) { delete static_cast<AddedFunction*>(pointer); });
    if (code != SQLITE_OK) { // SQLite has deleted the function
        raise(code);
    }
}

// --- SqliteStatement --------------------------------------------------------------------------------

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const noexcept
{
    sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(SqliteFile& file, std::string_view sql) : file_(file)
{
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v3(file.connection_.get(), sql.data(), static_cast<int>(sql.size()),
                             SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
    statement_.reset(statement);
}

void SqliteStatement::check(int code) const
{
    if (code != SQLITE_OK) {
        file_.raise(code);
    }
}

void SqliteStatement::bind(int index, std::string_view text)
{
    const char* const start = text.data() ? text.data() : ""; // SQLite takes a null pointer for Null
    check(sqlite3_bind_text64(statement_.get(), index, start, text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void SqliteStatement::bind(int index, std::int64_t value)
{
    check(sqlite3_bind_int64(statement_.get(), index, value));
}

void SqliteStatement::bind(int index, std::nullptr_t /*null*/)
{
    check(sqlite3_bind_null(statement_.get(), index));
}

std::int32_t SqliteStatement::changes() const
{
    return sqlite3_changes(file_.connection_.get());
}

// --- SqliteRows -------------------------------------------------------------------------------------

SqliteRows::~SqliteRows()
{
    sqlite3_reset(statement_.statement_.get()); // it repeats the last failure, which next() has already raised
}

bool SqliteRows::next()
{
    const int code = sqlite3_step(statement_.statement_.get());
    statement_.check(code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_OK : code);
    return code == SQLITE_ROW;
}

std::string_view SqliteRows::text(int column) const
{
    sqlite3_stmt* const statement = statement_.statement_.get();
    const unsigned char* const start =
        sqlite3_column_text(statement, column); // called before sqlite3_column_bytes, whose result it may change
    const int size = sqlite3_column_bytes(statement, column);
    return start ? std::string_view(reinterpret_cast<const char*>(start), static_cast<std::size_t>(size))
                 : std::string_view();
}

std::int64_t SqliteRows::integer(int column) const
{
    return sqlite3_column_int64(statement_.statement_.get(), column);
}

double SqliteRows::real(int column) const
{
    return sqlite3_column_double(statement_.statement_.get(), column);
}

SqliteType SqliteRows::type(int column) const
{
    switch (sqlite3_column_type(statement_.statement_.get(), column)) {
    case SQLITE_NULL: return SqliteType::null;
    case SQLITE_INTEGER: return SqliteType::integer;
    case SQLITE_FLOAT: return SqliteType::real;
    default: return SqliteType::text;
    }
}

} // namespace orvan
