// Recovery copies: the input is read as the file of a copy, and its lines are taken for what a desk keeps. What was
// read is written and read again.

#include "apps/fuzzing/FuzzTarget.h"
#include "apps/orvan-desk/RecoveryCopy.h"

namespace orvan::fuzz {
namespace {

using desk::RecoveryCopy;

void requireSame(const RecoveryCopy& a, const RecoveryCopy& b)
{
    require(a.work == b.work, "the work and its path");
    require(a.time == b.time, "the time");
    require(a.host == b.host && a.process == b.process && a.processIdentity == b.processIdentity, "the desk");
}

QString textOf(std::string_view line)
{
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
}

/// What a desk keeps, with texts from the input's lines.
RecoveryCopy keptCopy(std::string_view input)
{
    RecoveryCopy copy;
    copy.time = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000 + static_cast<qint64>(input.size()), Qt::UTC);
    copy.process = static_cast<qint64>(input.size());
    copy.work.quote.date = QDate(2026, 11, 20);
    copy.host = textOf(takeLine(input));
    copy.processIdentity = textOf(takeLine(input));
    copy.work.path = textOf(takeLine(input));
    copy.work.quote.customer = textOf(takeLine(input));
    copy.work.quote.products = textOf(input).toStdString();
    return copy;
}

} // namespace

void runTarget(std::string_view input)
{
    const RecoveryCopy kept = keptCopy(input);
    requireSame(desk::copyFromBytes(desk::copyToBytes(kept)), kept);
    try {
        const RecoveryCopy read = desk::copyFromBytes(QByteArray(input.data(), static_cast<qsizetype>(input.size())));
        requireSame(desk::copyFromBytes(desk::copyToBytes(read)), read);
    } catch (const desk::QuoteFileError& error) {
        require(*error.what() != '\0', "the error tells what is wrong");
    }
}

} // namespace orvan::fuzz
