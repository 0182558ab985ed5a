// The function that libFuzzer calls, which runs a target. Without libFuzzer there is a main program instead, which runs
// the target over files.

#include "apps/fuzzing/FuzzTarget.h"

#include <cstddef>
#include <cstdint>

// libFuzzer calls the function by this name.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
// NOLINTEND(readability-identifier-naming)
{
    orvan::fuzz::runTarget({reinterpret_cast<const char*>(data), size});
    return 0;
}

#ifndef ORVAN_FUZZ
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

/// Runs the target over each file of a folder, or over one file.
int main(int argc, char** argv)
{
    namespace fs = std::filesystem;
    int count = 0;
    const auto run = [&](const fs::path& file) {
        std::cout << file.string() << std::endl; // flushed, because the target may end the program
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    };
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            run(argv[i]);
            continue;
        }
        for (const fs::directory_entry& file : fs::directory_iterator(argv[i])) {
            run(file.path());
        }
    }
    return count > 0 ? 0 : 1;
}
#endif
