// CsvReader: the records of a CSV or TSV file, one after the other, in constant memory.
//
// The format is that of RFC 4180: fields are separated by a delimiter; a field in quotes may hold delimiters, line
// breaks and doubled quotes. Lines end with CRLF, LF or CR; the last line may lack its line break. A byte order mark is
// skipped. Beyond the RFC: in a field that does not begin with a quote, a quote is a character like any other (5"
// pipe); tab-separated files follow the same rules; empty lines are skipped; a first line such as "sep=;", which
// spreadsheets write and read, names the delimiter and is no record.
//
// The text is UTF-8; orvan/components/catalogue/lists/Encoding.h converts others. Ownership: the stream outlives the
// reader. Thread: one at a time. Errors: 321 for UTF-16, and for a record of more than a megabyte, because a quote was
// then probably never closed; 75 when reading fails. The description begins with the file's name.
#pragma once

#include "orvan/catalogue_export.h"
#include "orvan/components/catalogue/lists/RowSource.h"

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

class ORVAN_CATALOGUE_INTERNAL CsvReader final : public RowSource {
public:
    static constexpr std::size_t kReadSize = std::size_t{256} * 1024;

    /// With the delimiter 0, the reader takes the one that "sep=" names, or else the one that is most frequent in the
    /// first line: comma, semicolon, tab or vertical bar. `readSize` is how many bytes are read at a time: at least
    /// three, the size of a byte order mark, and with the delimiter 0 the whole first line. A short file needs no large
    /// buffer.
    CsvReader(std::istream& input, std::string name, char delimiter = 0, std::size_t readSize = kReadSize);

    bool next() override;
    const std::vector<std::string_view>& cells() const override { return cells_; }
    const UserText& problem() const override { return problem_; }
    std::uint64_t line() const override { return line_; }
    /// The number of bytes from the beginning of the file to the end of the current record.
    std::uint64_t bytesRead() const override { return bytesRead_; }
    char delimiter() const { return delimiter_; }

private:
    /// Reads more of the stream into the buffer, after the bytes not used yet; false at the end of the stream.
    bool fill();
    void begin();
    char foundDelimiter() const;
    /// Skips a line such as "sep=;". Returns the delimiter that it names, and 0 where there is no such line.
    char namedDelimiter();
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
    std::vector<std::string_view> cells_;
    UserText problem_;
};

} // namespace orvan
