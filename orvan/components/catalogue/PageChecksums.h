// PageChecksums: makes SQLite check each page of a catalogue file when it reads it.
//
// Each page has kCheckedPage bytes. SQLite leaves the last 16 of them alone, and they hold a number that all pages of
// one file share, and a checksum of the page, this number and the page's place. So a damaged page, a page in another's
// place, and a page of another file (one that is being copied over this one) are an error and never other data. The
// check reads nothing that the search does not read anyway, and takes about a microsecond for 4 KiB. A file whose
// header reserves no such bytes is read without a check.
//
// Thread: any. Errors: a failed check is SQLITE_IOERR_DATA.
#pragma once

struct sqlite3;

namespace orvan {

/// Bytes. With smaller pages, a search that has to read from the disk waits for more of them, and an import takes
/// longer.
inline constexpr int kCheckedPage = 8192;

/// Name of the SQLite file system that checks pages; registered at the first call, above the default one.
[[nodiscard]] const char* checkingFileSystem();

/// To be called for a connection of that file system to an empty file: its pages get that size and checksums. Returns
/// SQLite's code.
[[nodiscard]] int beginChecksums(sqlite3* connection);

/// Whether the pages of a file that the connection has read from are checked.
[[nodiscard]] bool hasChecksums(sqlite3* connection);

/// Whether the thread's last failed call of that file system was about a temporary file of SQLite. Forgets it.
[[nodiscard]] bool takeTemporaryFileFailed();

} // namespace orvan
