// NewFile: a file that takes the place of another one, at once or not at all.
//
// It is made beside the other one, under a name that nobody else can have made, and renamed when it is
// complete: a program that has the old file open keeps it, one that opens the name gets the old file or
// the new one, and a crash leaves the old one. What a crash left beside is removed by the next NewFile
// for the same target. Symbolic links to the target are followed; a link that leads nowhere is refused.
// The new file gets the permissions of the old one.
//
// The convention (write, flush, rename, flush the folder) is the one that POSIX file systems need so that
// a power cut leaves the old content or the new one.
//
// Thread: any, one at a time. Errors: 75 with the reason in the description ("No space left on device");
// the old file is then as it was.
#pragma once

#include "orvan/files/Descriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvan::files {

class NewFile {
public:
    /// Whether other programs may make new files for the same target at the same time.
    enum class Others { allowed, refused };

    /// With Others::refused: raises 75 while another program is making one ("another program is
    /// replacing it").
    explicit NewFile(const std::filesystem::path& target, Others others = Others::allowed);
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    /// Removes the new file where it has not taken its target's place.
    ~NewFile();

    /// The file that is replaced, with symbolic links resolved.
    const std::filesystem::path& target() const { return target_; }
    /// The new file, for a library that opens it by name. It must be closed again before commit.
    const std::filesystem::path& path() const { return path_; }
    /// Appends bytes. All of them are handed to the system when it returns.
    void write(std::string_view bytes);
    /// Gives the new file its target's name. Its content is on the disk before that. Returns a warning for
    /// the user where the name may not survive a power cut, because the folder could not be flushed; the
    /// new content stands then, too. "" otherwise.
    [[nodiscard]] std::string commit();

    /// What the system says of the new file, also after commit.
    [[nodiscard]] struct stat status() const { return file_.status(); }

private:
    void removeLeftovers(const std::string& prefix, Others others);

    std::filesystem::path target_;
    std::filesystem::path path_;
    Descriptor file_;
    bool committed_ = false;
};

} // namespace orvan::files
