// ExportCommand: the command of orvan-catalogue that writes a catalogue's entries as a price list.
#pragma once

#include <string>
#include <vector>

namespace orvan::tool {

/// What --help says about it.
extern const char kExportHelp[];

/// Takes the words behind the command, and returns the exit status. Throws WrongUse and RuntimeError.
int exportCatalogue(const std::vector<std::string>& words);

} // namespace orvan::tool
