// ImportCommand: the commands of orvan-catalogue that read a price list.
#pragma once

#include <string>
#include <vector>

namespace orvan::tool {

/// What --help says about them.
extern const char kImportHelp[];

/// Each takes the words behind the command, and returns the exit status. They throw WrongUse and RuntimeError.
int import(const std::vector<std::string>& words);
int preview(const std::vector<std::string>& words);

} // namespace orvan::tool
