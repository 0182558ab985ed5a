#include "orvan/files/WholeFile.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/NewFile.h"

#include <functional>

namespace orvan::files {

namespace {

FileStamp stampOf(const struct stat& status, std::string_view bytes)
{
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    return {.device = status.st_dev,
            .inode = status.st_ino,
            .size = static_cast<std::int64_t>(bytes.size()),
            .modified = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec,
            .content = std::hash<std::string_view>()(bytes)};
}

} // namespace

WholeFile readFile(const std::filesystem::path& path, std::int64_t most)
{
    const Descriptor file = Descriptor::openRegular(path);
    if (file.status().st_size > most) {
        throw RuntimeError(ErrorNumber::pathFileAccess, {},
                           userText("it is larger than %1 MiB", most / (std::int64_t{1024} * 1024)));
    }
    WholeFile whole{.bytes = file.readAll(), .stamp = {}};
    whole.stamp = stampOf(file.status(), whole.bytes);
    return whole;
}

std::optional<FileStamp> currentStamp(const std::filesystem::path& path, std::int64_t most)
{
    std::error_code error;
    if (std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found) {
        return std::nullopt;
    }
    return readFile(path, most).stamp;
}

ReplacedFile replaceFile(const std::filesystem::path& path, std::string_view bytes)
{
    NewFile file(path);
    file.write(bytes);
    ReplacedFile replaced{.stamp = {}, .warning = file.commit()};
    replaced.stamp = stampOf(file.status(), bytes);
    return replaced;
}

} // namespace orvan::files
