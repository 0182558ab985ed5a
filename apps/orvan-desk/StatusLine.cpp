#include "StatusLine.h"

#include "CatalogueMenu.h"
#include "OpenQuote.h"
#include "OutsideText.h"
#include "servers/ServerCatalogue.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueFile.h"

#include <QEvent>
#include <QFileInfo>
#include <QLocale>
#include <QStatusBar>

#include <algorithm>
#include <limits>
#include <utility>

namespace orvan::desk {

namespace {

constexpr int kBeforeCounting = 400;  // milliseconds
constexpr int kMessageTime = 8000;    // milliseconds
constexpr int kAround = 40;           // pixels: the margins of the bar, and the grip in its corner
constexpr int kFewestCharacters = 12; // of a part that is worth showing
constexpr qint64 kMostDays = 60;
const QString kSeparator = QStringLiteral("   ·   ");

/// The products that lack something: "2 without price", "1 without name".
QStringList lacking(const ProductCounts& counts, bool withPositions)
{
    QStringList parts;
    const auto add = [&](const ProductsWithout& products, const QString& text) {
        QStringList positions;
        for (const std::int32_t position : products.first) {
            positions << u'#' + QLocale().toString(position); // as the list's first column shows it
        }
        if (products.count > positions.size()) {
            positions << QStringLiteral("…");
        }
        if (products.count > 0) {
            parts << (withPositions ? text + QStringLiteral(" (%1)").arg(positions.join(QStringLiteral(", "))) : text);
        }
    };
    add(counts.price, StatusLine::tr("%Ln without price", nullptr, counts.price.count));
    add(counts.name, StatusLine::tr("%Ln without name", nullptr, counts.name.count));
    return parts;
}

/// A warning before the quote cannot take any more; first, because the end of the line may be cut.
QStringList fullness(int percent)
{
    constexpr int kWorthSaying = 90, kAll = 100;
    return percent > kAll ? QStringList{StatusLine::tr("The quote holds more than can be saved")}
           : percent >= kWorthSaying
               ? QStringList{StatusLine::tr("The quote holds %L1 % of what it can hold").arg(percent)}
               : QStringList();
}

} // namespace

QString ageText(const QDateTime& time, const QDateTime& now)
{
    const qint64 days = time.date().daysTo(now.date());
    return days <= 0           ? StatusLine::tr("today") // a clock that was put back gives no age
           : days == 1         ? StatusLine::tr("yesterday")
           : days <= kMostDays ? StatusLine::tr("%Ln days ago", nullptr, static_cast<int>(days))
                               : StatusLine::tr("on %1").arg(QLocale().toString(time.date(), QLocale::ShortFormat));
}

QString catalogueText(const QString& file, const QDateTime& now)
{
    const QFileInfo info(file);
    if (!info.exists()) {
        return StatusLine::tr("No catalogue");
    }
    try {
        SqliteFile catalogue = openCatalogue(pathOf(file));
        const CatalogueOrigin origin = catalogueOrigin(catalogue);
        const int entries = static_cast<int>(std::min<std::int64_t>(origin.entries, std::numeric_limits<int>::max()));
        return StatusLine::tr("“%1”: %2, imported %3")
            .arg(origin.source.empty() ? shortFileName(file) : sourceName(origin.source),
                 entries == 1 ? StatusLine::tr("1 entry") : StatusLine::tr("%Ln entries", nullptr, entries),
                 ageText(info.lastModified(), now));
    } catch (const RuntimeError&) {
        return StatusLine::tr("“%1” cannot be read").arg(shortFileName(file)); // the editor tells why
    }
}

QString savedText(const ProductCounts& counts)
{
    const QStringList parts = lacking(counts, true);
    return parts.isEmpty() ? StatusLine::tr("Saved.")
                           : StatusLine::tr("Saved. %1.").arg(parts.join(QStringLiteral(", ")));
}

StatusLine::StatusLine(QStatusBar& bar) : bar_(bar)
{
    setObjectName(QStringLiteral("statusLine"));
    setTextFormat(Qt::PlainText);
    setMinimumWidth(1); // by default a label is never narrower than its text, and would keep the window from shrinking
    bar.addPermanentWidget(this);
    bar.installEventFilter(this);
    connect(&bar, &QStatusBar::messageChanged, this, &StatusLine::fit);
    timer_.setSingleShot(true);
    timer_.setInterval(kBeforeCounting);
    connect(&timer_, &QTimer::timeout, this, &StatusLine::lookAgain);
}

void StatusLine::setUnsavedSince(const QDateTime& time)
{
    unsavedSince_ = time;
    timer_.start();
}

void StatusLine::notice(bool unsaved)
{
    if (!unsaved) {
        unsavedSince_.reset();
    } else if (!unsavedSince_) {
        unsavedSince_ = QDateTime::currentDateTime();
    }
    timer_.start();
}

void StatusLine::tellSaved()
{
    lookAgain();
    // The marks keep the words in order where the window runs from right to left and the text does not.
    bar_.showMessage(u'\u2068' + savedText(counts_) + u'\u2069', kMessageTime);
}

void StatusLine::lookAgain()
{
    timer_.stop();
    try {
        counts_ = countWatchedProducts();
    } catch (...) {
        return; // a manager of a component library failed; the numbers before it stay
    }
    quoteParts_ = fullness(counts_.percentFull);
    quoteParts_ << (counts_.products == 1 ? tr("1 product") : tr("%Ln products", nullptr, counts_.products));
    quoteParts_ += lacking(counts_, false);
    if (unsavedSince_) {
        quoteParts_ << tr("Unsaved since %1").arg(timeText(*unsavedSince_));
    }
    showParts();
}

void StatusLine::setCatalogue(const QString& file)
{
    catalogue_ = file;
    copyText_.clear();
}

void StatusLine::setCopy(const CatalogueCopyState& state)
{
    if (catalogue_.isEmpty()) { // otherwise the user has chosen a file meanwhile
        copyText_ = copyText(state, QDateTime::currentDateTime());
        showParts();
    }
}

void StatusLine::showParts()
{
    parts_ = quoteParts_;
    if (!catalogue_.isEmpty()) {
        parts_ << presentCatalogue();
    } else if (!copyText_.isEmpty()) {
        parts_ << copyText_;
    }
    setToolTip(qt::toolTipText(parts_.join(kSeparator)));
    fit();
}

/// Opens the catalogue only where it is another one than the last time, or where a day has passed.
const QString& StatusLine::presentCatalogue()
{
    const QFileInfo info(catalogue_);
    const QDateTime now = QDateTime::currentDateTime();
    if (auto key = std::tuple(info.lastModified(), info.size(), now.date()); key != catalogueKey_) {
        catalogueText_ = catalogueText(catalogue_, now);
        catalogueKey_ = std::move(key);
    }
    return catalogueText_;
}

bool StatusLine::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange) {
        fit();
    }
    return QLabel::eventFilter(watched, event);
}

void StatusLine::fit()
{
    const auto width = [this](const QString& text) { return fontMetrics().horizontalAdvance(text); };
    const QString message = bar_.currentMessage();
    const int space = bar_.width() - kAround - (message.isEmpty() ? 0 : width(message) + kAround);
    QString shown;
    for (const QString& part : parts_) {
        const QString before = shown.isEmpty() ? QString() : shown + kSeparator;
        if (width(before + part) > space) {
            const bool worthShowing = space - width(before) > kFewestCharacters * fontMetrics().averageCharWidth();
            shown = worthShowing ? fontMetrics().elidedText(before + part, Qt::ElideRight, space) : shown;
            break;
        }
        shown = before + part;
    }
    setText(shown);
}

} // namespace orvan::desk
