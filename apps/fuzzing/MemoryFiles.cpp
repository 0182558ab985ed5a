#include "apps/fuzzing/MemoryFiles.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <new>

namespace orvan::fuzz {
namespace {

using Files = std::map<std::string, std::string>;

Files& files()
{
    static Files all;
    return all;
}

/// An open file. SQLite allocates it, and knows only its first member.
struct OpenFile {
    sqlite3_file base;
    std::string* bytes;
};

std::string& bytesOf(sqlite3_file* file)
{
    return *reinterpret_cast<OpenFile*>(file)->bytes;
}

int readBytes(sqlite3_file* file, void* to, int size, sqlite3_int64 at)
{
    const std::string& bytes = bytesOf(file);
    const auto begin = std::min(bytes.size(), static_cast<std::size_t>(at));
    const std::size_t count = std::min(bytes.size() - begin, static_cast<std::size_t>(size));
    std::memset(to, 0, static_cast<std::size_t>(size)); // SQLite wants what is missing as zeros
    std::memcpy(to, bytes.data() + begin, count);
    return count == static_cast<std::size_t>(size) ? SQLITE_OK : SQLITE_IOERR_SHORT_READ;
}

int writeBytes(sqlite3_file* file, const void* from, int size, sqlite3_int64 at)
{
    std::string& bytes = bytesOf(file);
    bytes.resize(std::max(bytes.size(), static_cast<std::size_t>(at + size)));
    std::memcpy(bytes.data() + at, from, static_cast<std::size_t>(size));
    return SQLITE_OK;
}

const sqlite3_io_methods& methods()
{
    static const sqlite3_io_methods all = [] {
        sqlite3_io_methods io = {}; // SQLite calls only the first methods: iVersion is 0
        io.xClose = [](sqlite3_file* /*file*/) { return SQLITE_OK; };
        io.xRead = readBytes;
        io.xWrite = writeBytes;
        io.xTruncate = [](sqlite3_file* file, sqlite3_int64 size) {
            bytesOf(file).resize(static_cast<std::size_t>(size));
            return SQLITE_OK;
        };
        io.xSync = [](sqlite3_file* /*file*/, int /*flags*/) { return SQLITE_OK; };
        io.xFileSize = [](sqlite3_file* file, sqlite3_int64* size) {
            *size = static_cast<sqlite3_int64>(bytesOf(file).size());
            return SQLITE_OK;
        };
        io.xLock = [](sqlite3_file* /*file*/, int /*level*/) { return SQLITE_OK; };
        io.xUnlock = io.xLock;
        io.xCheckReservedLock = [](sqlite3_file* /*file*/, int* reserved) {
            *reserved = 0;
            return SQLITE_OK;
        };
        io.xFileControl = [](sqlite3_file* /*file*/, int /*operation*/, void* /*argument*/) { return SQLITE_NOTFOUND; };
        io.xSectorSize = [](sqlite3_file* /*file*/) { return 512; };
        io.xDeviceCharacteristics = [](sqlite3_file* /*file*/) { return 0; };
        return io;
    }();
    return all;
}

int openFile(sqlite3_vfs* /*system*/, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    new (file) OpenFile{{&methods()}, &files()[name != nullptr ? name : "temporary"]};
    if (outFlags != nullptr) {
        *outFlags = flags;
    }
    return SQLITE_OK;
}

/// A file system with the clock and the random numbers of the usual one, and with files in memory.
sqlite3_vfs memorySystem()
{
    sqlite3_initialize();
    sqlite3_vfs system = *sqlite3_vfs_find(nullptr);
    system.zName = "memory";
    system.szOsFile = sizeof(OpenFile);
    system.xOpen = openFile;
    system.xDelete = [](sqlite3_vfs* /*system*/, const char* name, int /*sync*/) {
        files().erase(name);
        return SQLITE_OK;
    };
    system.xAccess = [](sqlite3_vfs* /*system*/, const char* name, int /*flags*/, int* exists) {
        *exists = files().count(name) != 0 ? 1 : 0;
        return SQLITE_OK;
    };
    system.xFullPathname = [](sqlite3_vfs* /*system*/, const char* name, int size, char* full) {
        sqlite3_snprintf(size, full, "%s", name);
        return SQLITE_OK;
    };
    return system;
}

} // namespace

std::string& memoryFile(const std::string& path)
{
    static sqlite3_vfs system = memorySystem();
    static const int registered = sqlite3_vfs_register(&system, 1);
    static_cast<void>(registered);
    return files()[path];
}

} // namespace orvan::fuzz
