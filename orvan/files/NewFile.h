// NewFile: a file that takes the place of another one, at once or not at all.
//
// It is made beside the other one, under a name that nobody else can have made, and renamed when it is
// complete: a program that has the old file open keeps it, one that opens the name gets the old file or
// the new one, and a crash leaves the old one. An unfinished file that a crash leaves behind is removed by
// the next NewFile for the same target. Symbolic links to the target are followed; a link that leads nowhere is
// refused. The new file gets the permissions of the old one.
//
// The order of the steps (write, flush, rename, flush the folder) is what POSIX file systems need so that
// a power cut leaves either the old content or the new one.
//
// Thread: any, one at a time. Errors: 75 with the reason in the description ("No space left on device");
// the old file is then as it was.
#pragma once

#include "orvan/base/UserText.h"
#include "orvan/core_export.h"
#include "orvan/files/Descriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvan::files {

/// The path of the file that `target` leads to, with symbolic links resolved. The file need not exist. Raises 75 for a
/// link that leads nowhere.
[[nodiscard]] std::filesystem::path resolvedTarget(const std::filesystem::path& target);

class ORVAN_CORE_INTERNAL NewFile {
public:
    /// Whether other programs may make new files for the same target at the same time.
    enum class Others { allowed, refused };

    /// With Others::refused it raises 75 ("another program is replacing it") while another program is making a new
    /// file for the same target.
    explicit NewFile(const std::filesystem::path& target, Others others = Others::allowed);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    /// Removes the new file if commit has not given it its target's name.
    ~NewFile();

    /// The file that is replaced, with symbolic links resolved.
    const std::filesystem::path& target() const { return target_; }
    /// The new file, for a library that opens it by name. It must be closed again before commit.
    const std::filesystem::path& path() const { return path_; }
    /// Appends bytes. All of them are handed to the system when it returns.
    void write(std::string_view bytes);
    /// What becomes of the file that is replaced. It can be kept (FormerFile.h) only with Others::refused.
    enum class Former { dropped, kept };

    /// Writes the content to the disk, then gives the new file its target's name. Returns an empty text, or a warning
    /// for the user if the folder could not be flushed: the file has been replaced then, but a power cut could undo it.
    [[nodiscard]] UserText commit(Former former = Former::dropped);

    /// The system's information about the new file; can be called after commit, too.
    [[nodiscard]] struct stat status() const { return file_.status(); }

private:
    void removeLeftovers(const std::string& prefix, Others others);

    std::filesystem::path target_;
    std::filesystem::path path_;
    Descriptor file_;
    bool committed_ = false;
};

/// Removes the unfinished files that programs which have ended have left in the folder, whatever their targets are. For
/// a folder whose targets have names that do not come again.
ORVAN_CORE_INTERNAL void removeUnfinishedFiles(const std::filesystem::path& folder);

} // namespace orvan::files
