#include "orvan/components/catalogue/CsvReader.h"

#include "orvan/base/RuntimeError.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orvan {

namespace {

constexpr std::size_t kLongestRecord = std::size_t{1024} * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kDelimiters = ",;\t|";
constexpr char kQuote = '"';

char smallLetter(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool isLineBreak(char c)
{
    return c == '\n' || c == '\r';
}

/// The number of line breaks; CRLF counts as one.
std::uint64_t lineBreaks(std::string_view text)
{
    std::uint64_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        count += text[at] == '\n' || (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] != '\n')) ? 1 : 0;
    }
    return count;
}

} // namespace

CsvReader::CsvReader(std::istream& input, std::string name, char delimiter, std::size_t readSize)
    : input_(input), name_(std::move(name)), delimiter_(delimiter), readSize_(readSize)
{
}

void CsvReader::raise(std::int32_t number, const UserText& reason) const
{
    throw RuntimeError(number, {}, userText("%1: %2", name_, reason));
}

bool CsvReader::fill()
{
    std::memmove(buffer_.data(), buffer_.data() + at_, end_ - at_);
    end_ -= at_;
    at_ = 0;
    if (end_ > kLongestRecord) {
        raise(ErrorNumber::invalidFileFormat, userText("a quote in line %1 is never closed", nextLine_));
    }
    buffer_.resize(std::max(buffer_.size(), end_ + readSize_));
    input_.read(buffer_.data() + end_, static_cast<std::streamsize>(buffer_.size() - end_));
    if (input_.bad()) {
        raise(ErrorNumber::pathFileAccess, userText("it cannot be read"));
    }
    end_ += static_cast<std::size_t>(input_.gcount());
    atEnd_ = input_.gcount() == 0;
    return !atEnd_;
}

void CsvReader::begin()
{
    constexpr std::size_t kLongestStart = 10; // bytes of a mark and "sep=;" with its line break
    begun_ = true;
    while (end_ < kLongestStart && fill()) {
    }
    const std::string_view start(buffer_.data(), end_);
    if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF")) {
        raise(ErrorNumber::invalidFileFormat, userText("it is in UTF-16; save it as UTF-8"));
    }
    if (start.starts_with(kByteOrderMark)) {
        at_ = kByteOrderMark.size();
        bytesRead_ = at_;
    }
    const char named = namedDelimiter();
    if (delimiter_ == 0) {
        delimiter_ = named != 0 ? named : foundDelimiter();
    }
}

char CsvReader::namedDelimiter()
{
    constexpr std::string_view kNaming = "sep=";
    const std::string_view start(buffer_.data() + at_, end_ - at_);
    const bool names = start.size() > kNaming.size() + 1 && isLineBreak(start[kNaming.size() + 1]) &&
                       !isLineBreak(start[kNaming.size()]) && start[kNaming.size()] != kQuote &&
                       start[kNaming.size()] != '\0' &&
                       std::equal(kNaming.begin(), kNaming.end(), start.begin(),
                                  [](char wanted, char c) { return wanted == smallLetter(c); });
    if (!names) {
        return 0;
    }
    const std::size_t skipped = kNaming.size() + (start.substr(kNaming.size() + 1).starts_with("\r\n") ? 3 : 2);
    at_ += skipped;
    bytesRead_ += skipped;
    ++nextLine_;
    return start[kNaming.size()];
}

char CsvReader::foundDelimiter() const
{
    std::size_t counts[kDelimiters.size()] = {};
    bool quoted = false;
    for (std::size_t at = at_; at < end_ && (quoted || !isLineBreak(buffer_[at])); ++at) {
        quoted = quoted != (buffer_[at] == kQuote);
        if (const auto which = kDelimiters.find(buffer_[at]); !quoted && which != kDelimiters.npos) {
            ++counts[which];
        }
    }
    return kDelimiters[static_cast<std::size_t>(std::max_element(std::begin(counts), std::end(counts)) - counts)];
}

/// The place of the line break that ends the record; end_ when that line break has not been read yet.
std::size_t CsvReader::recordEnd() const
{
    bool fieldStart = true, quotedField = false, open = false;
    for (std::size_t at = at_; at < end_; ++at) {
        const char c = buffer_[at];
        if (c == kQuote) {
            quotedField = quotedField || fieldStart;
            open = quotedField && !open; // a doubled quote closes the field and opens it again, which has no effect
        } else if (!open) {
            if (isLineBreak(c)) {
                return at;
            }
            if (c == delimiter_) {
                fieldStart = true;
                quotedField = false;
                continue;
            }
        }
        fieldStart = false;
    }
    return end_;
}

/// Splits the bytes from at_ up to `end` into fields. The quotes of a quoted field are removed within the buffer.
void CsvReader::split(std::size_t end)
{
    char* from = buffer_.data() + at_;
    char* const last = buffer_.data() + end;
    for (;;) {
        char* to = from; // where the next byte of the field is written, over the quotes that are removed
        const char* const start = from;
        if (from < last && *from == kQuote) {
            ++from;
            for (;; ++from) {
                if (from == last) {
                    problem_ = userText("a quote that is never closed");
                    break;
                }
                if (*from == kQuote && (from + 1 == last || from[1] != kQuote)) {
                    ++from;
                    break;
                }
                from += *from == kQuote ? 1 : 0;
                *to++ = *from;
            }
            if (from < last && *from != delimiter_) {
                problem_ = userText("text behind a closing quote");
                from = std::find(from, last, delimiter_);
            }
        } else {
            to = from = std::find(from, last, delimiter_);
        }
        cells_.emplace_back(start, static_cast<std::size_t>(to - start));
        if (from == last) {
            return;
        }
        ++from;
    }
}

bool CsvReader::next()
{
    if (!begun_) {
        begin();
    }
    for (;;) {
        std::size_t end = recordEnd();
        // A CR that is the last byte read so far may be half of a CRLF, so more is read first.
        while (end + 1 >= end_ && !atEnd_) {
            fill();
            end = recordEnd();
        }
        if (at_ == end_) {
            return false;
        }
        cells_.clear();
        problem_ = {};
        line_ = nextLine_;
        std::size_t after = end;
        if (end < end_) {
            after += buffer_[end] == '\r' && end + 1 < end_ && buffer_[end + 1] == '\n' ? 2 : 1;
        }
        const std::string_view record(buffer_.data() + at_, after - at_);
        nextLine_ += lineBreaks(record);
        bytesRead_ += record.size();
        const bool blank = end == at_;
        if (!blank) {
            split(end);
        }
        at_ = after;
        if (!blank) {
            return true;
        }
    }
}

} // namespace orvan
