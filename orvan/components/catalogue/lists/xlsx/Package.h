// Package: the parts of a workbook's file, which is a ZIP archive of XML files, each read as a stream.
//
// Hostile files are refused: a part that unpacks to hundreds of times its size, a document type (with which entities
// are declared that expand without end), a tag or a nesting without end. The memory needed does not depend on the
// file's length. Thread: one at a time. Errors: 321, 75.
#pragma once

#include "orvan/components/catalogue/lists/WorkbookModule.h"

#include <expat.h>
#include <zip.h>

#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace orvan::xlsx {

[[noreturn]] void refuse(const UserText& reason);

class Package {
public:
    explicit Package(WorkbookBytes& bytes);
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;
    ~Package();

    [[nodiscard]] bool has(const std::string& part) const;

private:
    friend class Part;
    WorkbookBytes& bytes_;
    std::uint64_t place_ = 0; ///< Where libzip reads next.
    zip_error_t error_ = {};
    zip_t* archive_ = nullptr;

    std::int64_t answer(void* data, std::uint64_t size, zip_source_cmd_t command);
};

/// The value of an attribute, "" where the element does not have it. The names are compared without their prefix.
[[nodiscard]] std::string_view attribute(const XML_Char** attributes, std::string_view name);

/// A part that is parsed as XML.
class Part {
public:
    struct Events {
        std::function<void(std::string_view name, const XML_Char** attributes)> begin;
        std::function<void(std::string_view name)> end = {};
        std::function<void(std::string_view text)> text = {};
    };

    /// Refuses a part that the package does not have. The names of elements come without their prefix.
    Part(Package& package, const std::string& name, Events events);
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;
    ~Part();

    /// Parses some more of it, and raises its events. Returns false after the last of it.
    bool parse();
    void parseAll()
    {
        while (parse()) {
        }
    }

private:
    template <class Act>
    void guard(Act&& act) noexcept;
    void checkSize();

    const Events events_;
    const std::string name_;
    zip_file_t* file_ = nullptr;
    XML_Parser parser_ = nullptr;
    std::uint64_t packed_ = 0, unpacked_ = 0;
    std::uint64_t lastEvent_ = 0; ///< How much had been unpacked then.
    int depth_ = 0;
    std::exception_ptr failure_; ///< What an event threw; the parser is C, and is not left by an exception.
};

} // namespace orvan::xlsx
