// PageChecksums: makes SQLite check each page of a catalogue file when it reads it.
//
// Each page has kCheckedPage bytes. SQLite does not use the last 16 of them. They hold a number, which all pages of one
// file share, and a checksum, which is computed from the page, from this number and from the page's position. So the
// check finds a page that was damaged, a page that stands in the position of another one, and a page that belongs to
// another file, as it happens while another catalogue is copied over this one. Each of these is an error, and the
// search never goes on with wrong data. The check reads only what the search has to read anyway, and takes about a
// microsecond for 4 KiB. A file whose header does not reserve these bytes is read without a check.
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
