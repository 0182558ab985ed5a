// FileReplacement: a new file that takes the place of another one, in one step or not at all.
//
// The new file is written beside the old one, under the same name with ".importing" added, and is renamed at the end.
// A program that has the old file open keeps it; a program that opens the name gets the old file or the new one, never
// a part. After a crash the old file is still there, and the next replacement overwrites the unfinished one. While one
// replacement of a file runs, another one is refused, in whatever process. Symbolic links are followed, and the new
// file gets the permissions of the old one. Thread: one at a time.
// Errors: 75 with the file and the reason in the description.
#pragma once

#include <filesystem>

namespace orvan {

class FileReplacement {
public:
    explicit FileReplacement(const std::filesystem::path& file);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    /// Removes the new file unless commit() has put it in place of the old one.
    ~FileReplacement();

    /// The new file: empty at first, to be written and closed by the caller.
    const std::filesystem::path& newFile() const { return newFile_; }
    /// Puts the new file in place of the old one, after all that was written to it has reached the disk.
    void commit();

private:
    [[noreturn]] void raise(const char* doing) const;

    std::filesystem::path file_;
    std::filesystem::path newFile_;
    int lock_ = -1; ///< Descriptor of the new file, locked.
};

} // namespace orvan
