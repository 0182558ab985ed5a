// FileReplacement: a new file that takes the place of another one, at once or not at all.
//
// It is written beside the other one, under the same name with ".importing" behind it, and renamed: a
// program that has the old file open keeps it, one that opens the name gets the old file or the new one, and
// a crash leaves the old one. What a crash left is written over by the next replacement. Of two at the same
// time, in any processes, the second is refused. Symbolic links are followed, and the new file has the
// permissions of the old one. Thread: one at a time.
// Errors: 75 with the file and the reason in the description.
#pragma once

#include <filesystem>

namespace orvan {

class FileReplacement {
public:
    explicit FileReplacement(const std::filesystem::path& file);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    /// Removes the new file when it has not taken its place.
    ~FileReplacement();

    /// The new file: empty at first, to be written and closed by the caller.
    const std::filesystem::path& newFile() const { return newFile_; }
    /// What has been written is on the disk when the name changes hands.
    void commit();

private:
    [[noreturn]] void raise(const char* doing) const;

    std::filesystem::path file_;
    std::filesystem::path newFile_;
    int lock_ = -1; ///< Descriptor of the new file, locked.
};

} // namespace orvan
