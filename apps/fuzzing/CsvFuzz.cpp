// CSV with prices: the first byte is the delimiter, or "?" if the reader is to find it. The second byte says how many
// bytes are read at a time, or "?" for all at once. The rest is the file. Each field is also read as a price.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/fuzzing/PlainPriceList.h"
#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CsvReader.h"
#include "orvan/components/catalogue/PriceText.h"

#include <sstream>

namespace orvan::fuzz {
namespace {

std::optional<std::int64_t> scaled(const std::optional<Currency>& amount)
{
    return amount ? std::optional(amount->scaled()) : std::nullopt;
}

void checkPrice(std::string_view text)
{
    const auto point = readPlainPrice(text, '.'), comma = readPlainPrice(text, ',');
    require(scaled(readPrice(text, '.')) == point, "a price with a decimal point is read");
    require(scaled(readPrice(text, ',')) == comma, "a price with a decimal comma is read");
    const DecimalEvidence evidence = point == comma   ? DecimalEvidence::none
                                     : point && comma ? DecimalEvidence::ambiguous
                                     : point          ? DecimalEvidence::point
                                                      : DecimalEvidence::comma;
    // Where the text is no plain amount, a currency or dashes around it may still tell more.
    require((!point && !comma) || decimalEvidence(text) == evidence, "a price tells the right decimal separator");
}

void checkRecords(CsvReader& reader, std::string_view text, char delimiter)
{
    std::uint64_t bytes = 0;
    for (const PlainRecord& record : readPlainCsv(text, delimiter)) {
        require(reader.next(), "no record is lost");
        require(reader.line() == record.line, "a record has the right line");
        require(reader.problem().empty() == !record.malformed, "a malformed record is told");
        require(reader.bytesRead() > bytes && reader.bytesRead() <= text.size(), "the bytes grow to the file's size");
        bytes = reader.bytesRead();
        if (record.malformed) {
            continue;
        }
        const auto& fields = reader.cells();
        require(std::equal(fields.begin(), fields.end(), record.fields.begin(), record.fields.end()),
                "the fields are read");
        for (const std::string_view field : fields) {
            checkPrice(field);
        }
    }
    require(!reader.next(), "no record is invented");
    require(reader.bytesRead() == text.size() || text.empty(), "all bytes were read");
}

} // namespace

void runTarget(std::string_view input)
{
    const char given = takeByte(input);
    const char step = takeByte(input);
    if (given == '"' || given == '\n' || given == '\r' || given == '\0') {
        return;
    }
    const bool found = given == '?';
    // The reader looks at a record again from its beginning whenever it has read more, so long inputs get larger steps.
    const std::size_t small = 3 + static_cast<unsigned char>(step) % 64 + input.size() / 16;
    const std::size_t readSize = found || step == '?' ? input.size() + 3 : small;
    std::istringstream stream{std::string(input)};
    CsvReader reader(stream, "list", found ? '\0' : given, readSize);
    try {
        checkRecords(reader, input, found ? plainDelimiter(input) : given);
    } catch (const RuntimeError& error) {
        const bool utf16 = input.starts_with("\xFF\xFE") || input.starts_with("\xFE\xFF");
        require(utf16 && error.number() == ErrorNumber::invalidFileFormat, "only UTF-16 is refused");
    }
}

} // namespace orvan::fuzz
