// TemporaryFolder: a folder of one test's own, so that tests can run beside each other; it goes with the object.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

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

private:
    std::filesystem::path path_;
};

} // namespace orvan::test
