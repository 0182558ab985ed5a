#include "orvan/components/catalogue/lists/xlsx/Package.h"

#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace orvan::xlsx {

namespace {

constexpr int kChunk = 64 * 1024;
constexpr std::uint64_t kHarmless = std::uint64_t{64} * 1024 * 1024; // bytes: parts up to this size may be packed well
constexpr std::uint64_t kMostTimes = 300; // sheets of equal rows unpack to about a hundred times their size
constexpr std::uint64_t kLongestTag = std::uint64_t{4} * 1024 * 1024;
constexpr int kDeepest = 100;

std::string_view withoutPrefix(const XML_Char* name)
{
    const std::string_view whole(name);
    return whole.substr(whole.find(':') + 1); // npos + 1 is 0
}

} // namespace

void refuse(const UserText& reason)
{
    throw RuntimeError(ErrorNumber::invalidFileFormat, {}, reason);
}

Package::Package(WorkbookBytes& bytes) : bytes_(bytes)
{
    zip_error_init(&error_);
    const auto callback = [](void* self, void* data, zip_uint64_t size, zip_source_cmd_t command) -> zip_int64_t {
        return static_cast<Package*>(self)->answer(data, size, command);
    };
    zip_source_t* const source = zip_source_function_create(callback, this, &error_);
    if (!source) {
        throw std::bad_alloc();
    }
    archive_ = zip_open_from_source(source, ZIP_RDONLY, &error_);
    if (!archive_) {
        zip_source_free(source);
        refuse(userText("it is a ZIP file that is damaged or incomplete (%1)", zip_error_strerror(&error_)));
    }
}

Package::~Package()
{
    if (archive_) {
        zip_discard(archive_);
    }
    zip_error_fini(&error_);
}

/// What libzip asks for the bytes of the archive.
std::int64_t Package::answer(void* data, std::uint64_t size, zip_source_cmd_t command)
{
    switch (command) {
    case ZIP_SOURCE_OPEN: place_ = 0; return 0;
    case ZIP_SOURCE_READ: {
        const std::uint64_t left = bytes_.size() - std::min(bytes_.size(), place_);
        const std::int64_t read = bytes_.readAt(place_, static_cast<char*>(data), std::min(size, left));
        if (read < 0) {
            zip_error_set(&error_, ZIP_ER_READ, 0);
            return -1;
        }
        place_ += static_cast<std::uint64_t>(read);
        return read;
    }
    case ZIP_SOURCE_CLOSE: return 0;
    case ZIP_SOURCE_STAT: {
        auto* const stat = static_cast<zip_stat_t*>(data);
        zip_stat_init(stat);
        stat->valid = ZIP_STAT_SIZE;
        stat->size = bytes_.size();
        return sizeof *stat;
    }
    case ZIP_SOURCE_ERROR: return zip_error_to_data(&error_, data, size);
    case ZIP_SOURCE_SEEK: {
        const zip_int64_t place = zip_source_seek_compute_offset(place_, bytes_.size(), data, size, &error_);
        place_ = place < 0 ? place_ : static_cast<std::uint64_t>(place);
        return place < 0 ? -1 : 0;
    }
    case ZIP_SOURCE_TELL: return static_cast<std::int64_t>(place_);
    case ZIP_SOURCE_SUPPORTS:
        return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                              ZIP_SOURCE_ERROR, ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_SUPPORTS,
                                              ZIP_SOURCE_FREE, -1);
    case ZIP_SOURCE_FREE: return 0;
    default: zip_error_set(&error_, ZIP_ER_OPNOTSUPP, 0); return -1;
    }
}

bool Package::has(const std::string& part) const
{
    return zip_name_locate(archive_, part.c_str(), ZIP_FL_NOCASE) >= 0;
}

std::string_view attribute(const XML_Char** attributes, std::string_view name)
{
    for (; *attributes; attributes += 2) {
        if (withoutPrefix(attributes[0]) == name) {
            return attributes[1];
        }
    }
    return {};
}

template <class Act>
void Part::guard(Act&& act) noexcept
{
    lastEvent_ = unpacked_;
    if (failure_) {
        return;
    }
    try {
        act();
    } catch (...) {
        failure_ = std::current_exception();
        XML_StopParser(parser_, XML_FALSE);
    }
}

Part::Part(Package& package, const std::string& name, Events events) : events_(std::move(events)), name_(name)
{
    const zip_int64_t index = zip_name_locate(package.archive_, name.c_str(), ZIP_FL_NOCASE);
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (index < 0 || zip_stat_index(package.archive_, static_cast<zip_uint64_t>(index), 0, &stat) != 0) {
        refuse(userText("its part \"%1\" is missing", name));
    }
    packed_ = (stat.valid & ZIP_STAT_COMP_SIZE) != 0 ? stat.comp_size : 0;
    file_ = zip_fopen_index(package.archive_, static_cast<zip_uint64_t>(index), 0);
    if (!file_) {
        refuse(userText("its part \"%1\" cannot be unpacked (%2)", name, zip_strerror(package.archive_)));
    }
    parser_ = XML_ParserCreate(nullptr);
    if (!parser_) {
        zip_fclose(file_);
        throw std::bad_alloc();
    }
    XML_SetUserData(parser_, this);
    XML_SetElementHandler(
        parser_,
        [](void* data, const XML_Char* element, const XML_Char** attributes) {
            auto& part = *static_cast<Part*>(data);
            part.guard([&] {
                if (++part.depth_ > kDeepest) {
                    refuse(userText("the elements of its part \"%1\" are nested too deeply", part.name_));
                }
                part.events_.begin(withoutPrefix(element), attributes);
            });
        },
        [](void* data, const XML_Char* element) {
            auto& part = *static_cast<Part*>(data);
            --part.depth_;
            part.guard([&] {
                if (part.events_.end) {
                    part.events_.end(withoutPrefix(element));
                }
            });
        });
    XML_SetCharacterDataHandler(parser_, [](void* data, const XML_Char* text, int size) {
        auto& part = *static_cast<Part*>(data);
        part.guard([&] {
            if (part.events_.text) {
                part.events_.text({text, static_cast<std::size_t>(size)});
            }
        });
    });
    XML_SetStartDoctypeDeclHandler(parser_, [](void* data, const XML_Char*, const XML_Char*, const XML_Char*, int) {
        auto& part = *static_cast<Part*>(data);
        part.guard(
            [&] { refuse(userText("its part \"%1\" declares a document type, as no workbook does", part.name_)); });
    });
}

Part::~Part()
{
    XML_ParserFree(parser_);
    zip_fclose(file_);
}

void Part::checkSize()
{
    if (unpacked_ > kHarmless && unpacked_ / kMostTimes > packed_) {
        refuse(userText("its part \"%1\" unpacks to more than %2 times its size", name_, kMostTimes));
    }
    if (unpacked_ - lastEvent_ > kLongestTag) { // the parser keeps a tag until it ends
        refuse(userText("a tag in its part \"%1\" is too long", name_));
    }
}

bool Part::parse()
{
    void* const buffer = XML_GetBuffer(parser_, kChunk);
    if (!buffer) {
        throw std::bad_alloc();
    }
    const zip_int64_t read = zip_fread(file_, buffer, kChunk);
    if (read < 0) {
        refuse(userText("its part \"%1\" is damaged (%2)", name_, zip_file_strerror(file_)));
    }
    unpacked_ += static_cast<std::uint64_t>(read);
    const XML_Status status = XML_ParseBuffer(parser_, static_cast<int>(read), read == 0 ? XML_TRUE : XML_FALSE);
    if (failure_) {
        std::rethrow_exception(failure_);
    }
    if (status == XML_STATUS_ERROR) {
        const XML_Error error = XML_GetErrorCode(parser_);
        if (error == XML_ERROR_NO_MEMORY) {
            throw std::bad_alloc();
        }
        refuse(userText("line %1 of its part \"%2\" is no XML (%3)", XML_GetCurrentLineNumber(parser_), name_,
                        XML_ErrorString(error)));
    }
    checkSize();
    return read > 0;
}

} // namespace orvan::xlsx
