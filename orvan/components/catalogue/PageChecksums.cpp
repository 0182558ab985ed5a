#include "orvan/components/catalogue/PageChecksums.h"

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>

namespace orvan {

namespace {

constexpr int kPage = kCheckedPage;
constexpr int kReserved = 16;
constexpr int kChecked = kPage - 8; ///< The checksum's place; it covers what is before it.
constexpr int kSalt = kPage - kReserved;
constexpr int kHeader = 100;
constexpr int kReservedAt = 20;        ///< SQLite's header has the number of reserved bytes here.
constexpr int kCounterAt = 24;         ///< SQLite reads this part of the header alone, to notice changes; it reads the
constexpr int kCounterSize = 16;       ///< page again, and checked, when that has changed.
thread_local bool temporaryFileFailed; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): errno's kind

std::uint64_t wordAt(const unsigned char* bytes)
{
    std::uint64_t word = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&word, bytes, sizeof word);
    } else {
        for (int i = 7; i >= 0; --i) {
            word = word << 8 | bytes[i];
        }
    }
    return word;
}

void putWord(unsigned char* bytes, std::uint64_t word)
{
    for (int i = 0; i < 8; ++i, word >>= 8) {
        bytes[i] = static_cast<unsigned char>(word);
    }
}

/// Each step can be undone, so pages that differ in one word always have different checksums.
std::uint64_t checksum(const unsigned char* page, std::uint64_t place)
{
    std::uint64_t sum = place + 1;
    for (int at = 0; at < kChecked; at += 8) {
        sum = (sum ^ wordAt(page + at)) * 0x9E3779B97F4A7C15U;
        sum ^= sum >> 32U;
    }
    return sum;
}

/// What SQLite knows as its open file; the default file system's own follows it in memory.
struct File {
    sqlite3_file base;
    sqlite3_file* inner;
    std::uint64_t salt; ///< 0 until it is known.
    bool checked;       ///< Whether the pages have checksums.
    bool temporary;
};

File& of(sqlite3_file* file)
{
    return *reinterpret_cast<File*>(file);
}

int noted(const File& file, int code)
{
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ) {
        temporaryFileFailed = file.temporary;
    }
    return code;
}

int checkPage(File& file, const unsigned char* page, sqlite3_int64 offset)
{
    const std::uint64_t salt = wordAt(page + kSalt);
    if (wordAt(page + kChecked) != checksum(page, static_cast<std::uint64_t>(offset))) {
        return SQLITE_IOERR_DATA;
    }
    if (file.salt == 0) {
        file.salt = salt;
    }
    return salt == file.salt ? SQLITE_OK : SQLITE_IOERR_DATA;
}

int readFile(sqlite3_file* base, void* buffer, int amount, sqlite3_int64 offset)
{
    File& file = of(base);
    const int code = noted(file, file.inner->pMethods->xRead(file.inner, buffer, amount, offset));
    if (file.temporary || (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)) {
        return code;
    }
    const auto* const bytes = static_cast<const unsigned char*>(buffer);
    if (offset == 0 && amount >= kHeader && code == SQLITE_OK && bytes[kReservedAt] == kReserved) {
        file.checked = true;
    }
    const bool partOfHeader = (offset == 0 && amount == kHeader) || (offset == kCounterAt && amount == kCounterSize);
    if (!file.checked || partOfHeader) {
        return code;
    }
    if (code != SQLITE_OK || amount != kPage || offset % kPage != 0) {
        return SQLITE_IOERR_DATA;
    }
    return checkPage(file, bytes, offset);
}

int writeFile(sqlite3_file* base, const void* buffer, int amount, sqlite3_int64 offset)
{
    File& file = of(base);
    if (file.checked) {
        if (amount != kPage || offset % kPage != 0) {
            return SQLITE_IOERR_WRITE;
        }
        // SQLite does not use the reserved bytes of its own page, so they can be filled in where they are.
        auto* const page = static_cast<unsigned char*>(const_cast<void*>(buffer));
        putWord(page + kSalt, file.salt);
        putWord(page + kChecked, checksum(page, static_cast<std::uint64_t>(offset)));
    }
    return noted(file, file.inner->pMethods->xWrite(file.inner, buffer, amount, offset));
}

/// Passes a call on to the default file system.
template <auto method, class... Arguments>
int pass(sqlite3_file* base, Arguments... arguments)
{
    File& file = of(base);
    return noted(file, (file.inner->pMethods->*method)(file.inner, arguments...));
}

/// "Not supported" is no failure here: SQLite asks the file system many things that it need not know.
int control(sqlite3_file* base, int operation, void* argument)
{
    return of(base).inner->pMethods->xFileControl(of(base).inner, operation, argument);
}

constexpr sqlite3_io_methods kMethods = {
    1, // the version without shared memory and mapped pages, which would pass by the check
    pass<&sqlite3_io_methods::xClose>,
    readFile,
    writeFile,
    pass<&sqlite3_io_methods::xTruncate, sqlite3_int64>,
    pass<&sqlite3_io_methods::xSync, int>,
    pass<&sqlite3_io_methods::xFileSize, sqlite3_int64*>,
    pass<&sqlite3_io_methods::xLock, int>,
    pass<&sqlite3_io_methods::xUnlock, int>,
    pass<&sqlite3_io_methods::xCheckReservedLock, int*>,
    control,
    [](sqlite3_file* file) { return of(file).inner->pMethods->xSectorSize(of(file).inner); },
    [](sqlite3_file* file) { return of(file).inner->pMethods->xDeviceCharacteristics(of(file).inner); },
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

int openFile(sqlite3_vfs* system, const char* name, sqlite3_file* base, int flags, int* outFlags)
{
    auto* const inner = static_cast<sqlite3_vfs*>(system->pAppData);
    constexpr int kTemporary =
        SQLITE_OPEN_TEMP_DB | SQLITE_OPEN_TRANSIENT_DB | SQLITE_OPEN_TEMP_JOURNAL | SQLITE_OPEN_SUBJOURNAL;
    if ((flags & (SQLITE_OPEN_MAIN_DB | kTemporary)) == 0) {
        return inner->xOpen(inner, name, base, flags, outFlags); // a journal; SQLite checks those itself
    }
    File& file = *new (base) File{};
    file.inner = reinterpret_cast<sqlite3_file*>(&file + 1);
    file.temporary = (flags & kTemporary) != 0;
    const int code = noted(file, inner->xOpen(inner, name, file.inner, flags, outFlags));
    base->pMethods = file.inner->pMethods ? &kMethods : nullptr; // SQLite closes what has methods
    return code;
}

File& mainFile(sqlite3* connection)
{
    sqlite3_file* base = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&base));
    return of(base);
}

sqlite3_vfs fileSystem()
{
    sqlite3_vfs* const inner = sqlite3_vfs_find(nullptr);
    sqlite3_vfs system = *inner;
    system.zName = "orvan-checked";
    system.pNext = nullptr;
    system.pAppData = inner;
    system.szOsFile += static_cast<int>(sizeof(File));
    system.xOpen = openFile;
    return system;
}

} // namespace

const char* checkingFileSystem()
{
    // Of the default file system's functions only xOpen looks at its object; the others are taken over as they are.
    static sqlite3_vfs system = fileSystem();
    static const int registered = sqlite3_vfs_register(&system, 0);
    return registered == SQLITE_OK ? system.zName : nullptr;
}

int beginChecksums(sqlite3* connection)
{
    const std::string setPage = "PRAGMA page_size = " + std::to_string(kPage);
    int reserved = kReserved;
    int code = sqlite3_exec(connection, setPage.c_str(), nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) {
        code = sqlite3_file_control(connection, "main", SQLITE_FCNTL_RESERVE_BYTES, &reserved);
    }
    if (code != SQLITE_OK) {
        return code;
    }
    File& file = mainFile(connection);
    sqlite3_randomness(sizeof file.salt, &file.salt);
    file.salt |= 1U; // so that it is not 0
    file.checked = true;
    return SQLITE_OK;
}

bool hasChecksums(sqlite3* connection)
{
    return mainFile(connection).checked;
}

bool takeTemporaryFileFailed()
{
    const bool failed = temporaryFileFailed;
    temporaryFileFailed = false;
    return failed;
}

} // namespace orvan
