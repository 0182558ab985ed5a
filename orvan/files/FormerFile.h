// FormerFile: the file that another one has replaced, kept beside it until it is replaced the next time.
//
// The former file of "goods.catalogue" is "goods.catalogue.former". A replacement has three steps: the present file
// gets a second, hidden name; the new file takes the present file's name; the second name becomes the former file's.
// So neither a crash nor a full disk loses a file. If the steps end before the second one, nothing has changed; if they
// end after it, the hidden file is the former one, and the next call finishes the third step.
//
// Thread: any, one at a time. Errors: 75 with the reason in the description; all files are then as they were.
#pragma once

#include "orvan/core_export.h"

#include <filesystem>
#include <optional>

namespace orvan::files {

/// The former file of `file`; empty if there is none. Symbolic links to `file` are followed.
[[nodiscard]] ORVAN_CORE_INTERNAL std::optional<std::filesystem::path> formerFileOf(const std::filesystem::path& file);

/// Gives `next` the name of `target`, and makes the file that had this name the former one. Both stand in one folder,
/// and `target` is no link. The caller makes sure that nobody else replaces `target` meanwhile (NewFile.h).
void replaceKeepingFormer(const std::filesystem::path& next, const std::filesystem::path& target);

/// Exchanges a file and its former one; a second call exchanges them back. Raises 75 also when there is no former
/// file, and while another program replaces the file.
ORVAN_CORE_INTERNAL void swapWithFormer(const std::filesystem::path& file);

} // namespace orvan::files
