// TemporaryFolder: a folder of one test's own, so that tests can run beside each other; it goes with the object.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <unistd.h>

namespace orvan::test {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = testing::TempDir() + "orvan-test-XXXXXX";
        path_ = ::mkdtemp(name.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }
    /// How many files, links and folders stand in it.
    std::ptrdiff_t count() const
    {
        return std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path path_;
};

inline void writeText(const std::filesystem::path& file, std::string_view text)
{
    std::ofstream(file, std::ios::binary) << text;
}

inline std::string readText(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace orvan::test
