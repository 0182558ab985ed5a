// MemoryFiles: from the first call on, every database that SQLite opens in this process is a text in memory.
//
// A database's name is any path; no file of that name is looked at or made. Thread: one.
#pragma once

#include <string>

namespace orvan::fuzz {

/// The bytes of the database with that name.
std::string& memoryFile(const std::string& path);

} // namespace orvan::fuzz
