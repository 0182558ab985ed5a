// CsvReader: the records of a CSV or TSV file, one after the other, in constant memory.
//
// RFC 4180: fields apart by a delimiter; a field in quotes may hold delimiters, line breaks and doubled
// quotes. Lines end with CRLF, LF or CR, the last one with or without. A byte order mark is skipped. Beyond
// the RFC: a quote within a field that does not begin with one is a character like others (5" pipe); the
// same holds for tab-separated files; lines without any character are skipped.
//
// Ownership: the stream outlives the reader. Thread: one at a time. Errors: 321 for UTF-16, and for a record
// of more than a megabyte, which is a quote that was never closed; 75 when reading fails. The description
// begins with the file's name.
#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace orvan {

class CsvReader {
public:
    /// Delimiter 0: the one of comma, semicolon, tab and vertical bar that the first line has most of.
    CsvReader(std::istream& input, std::string name, char delimiter = 0);

    /// False at the end.
    bool next();
    /// Of the current record; views until the next one.
    const std::vector<std::string_view>& fields() const { return fields_; }
    /// What is malformed about the record; empty for nothing. Its fields are then not to be used.
    std::string_view problem() const { return problem_; }
    /// The record's first line, from 1.
    std::uint64_t line() const { return line_; }
    /// Up to the end of the record.
    std::uint64_t bytesRead() const { return bytesRead_; }
    char delimiter() const { return delimiter_; }

private:
    /// Reads more behind what is left; false at the end of the stream.
    bool fill();
    void begin();
    char foundDelimiter() const;
    std::size_t recordEnd() const;
    void split(std::size_t end);

    [[noreturn]] void raise(std::int32_t number, const std::string& reason) const;

    std::istream& input_;
    const std::string name_;
    char delimiter_;
    std::string buffer_;
    std::size_t at_ = 0;  ///< Where the next record begins in the buffer.
    std::size_t end_ = 0; ///< Of what has been read.
    bool begun_ = false;
    bool atEnd_ = false;
    std::uint64_t line_ = 0;
    std::uint64_t nextLine_ = 1;
    std::uint64_t bytesRead_ = 0;
    std::vector<std::string_view> fields_;
    std::string_view problem_;
};

} // namespace orvan
