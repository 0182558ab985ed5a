// CsvReader: the records of a CSV or TSV file, one after the other, in constant memory.
//
// The format is that of RFC 4180: fields are separated by a delimiter; a field in quotes may hold delimiters, line
// breaks and doubled quotes. Lines end with CRLF, LF or CR; the last line may lack its line break. A byte order mark is
// skipped. Beyond the RFC: in a field that does not begin with a quote, a quote is a character like any other (5"
// pipe); tab-separated files follow the same rules; empty lines are skipped.
//
// Ownership: the stream outlives the reader. Thread: one at a time. Errors: 321 for UTF-16, and for a record of more
// than a megabyte, because a quote was then probably never closed; 75 when reading fails. The description begins with
// the file's name.
#pragma once

#include "orvan/base/UserText.h"

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

class CsvReader {
public:
    static constexpr std::size_t kReadSize = std::size_t{256} * 1024;

    /// With the delimiter 0, the reader takes the one that is most frequent in the first line: comma, semicolon, tab or
    /// vertical bar. `readSize` is how many bytes are read at a time: at least three, the size of a byte order mark,
    /// and with the delimiter 0 the whole first line. A short file needs no large buffer.
    CsvReader(std::istream& input, std::string name, char delimiter = 0, std::size_t readSize = kReadSize);

    /// Reads the next record. Returns false at the end of the file.
    bool next();
    /// The fields of the current record; the views are valid until the next call of next().
    const std::vector<std::string_view>& fields() const { return fields_; }
    /// Why the current record is malformed, in which case its fields are not to be used; empty if it is not.
    const UserText& problem() const { return problem_; }
    /// The number of the line in which the current record begins, from 1.
    std::uint64_t line() const { return line_; }
    /// The number of bytes from the beginning of the file to the end of the current record.
    std::uint64_t bytesRead() const { return bytesRead_; }
    char delimiter() const { return delimiter_; }

private:
    /// Reads more of the stream into the buffer, after the bytes not used yet; false at the end of the stream.
    bool fill();
    void begin();
    char foundDelimiter() const;
    std::size_t recordEnd() const;
    void split(std::size_t end);

    [[noreturn]] void raise(std::int32_t number, const UserText& reason) const;

    std::istream& input_;
    const std::string name_;
    char delimiter_;
    const std::size_t readSize_;
    std::string buffer_;
    std::size_t at_ = 0;  ///< Where the next record begins in the buffer.
    std::size_t end_ = 0; ///< Where the bytes that have been read end in the buffer.
    bool begun_ = false;
    bool atEnd_ = false;
    std::uint64_t line_ = 0;
    std::uint64_t nextLine_ = 1;
    std::uint64_t bytesRead_ = 0;
    std::vector<std::string_view> fields_;
    UserText problem_;
};

} // namespace orvan
