#include "ExplainDialog.h"

#include "orvan/core/modLocale.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <span>

namespace orvan::desk {

namespace {

constexpr std::size_t kMostRows = 200;     ///< A long quote's rows, of which each adds at most half a cent.
constexpr std::size_t kMostPositions = 10; ///< In a sentence.

/// Right also where the writing runs from right to left, so that digits of the same value stand below each other.
constexpr Qt::Alignment kNumberSide = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;

/// Writes numbers in the user's format. Exact values have all their digits, so they are not grouped.
class Writer {
public:
    Writer(ui::LocaleService& money, int decimals)
        : money_(money), decimals_(decimals), point_(QString::fromStdString(PrvInitLocale(money).decimalSep))
    {
    }

    QString exact(const std::string& text) const
    {
        // Before a sign, a mark keeps it on the left of its number where the writing runs from right to left.
        QString number = QString::fromStdString(text).replace(u'.', point_);
        return number.startsWith(u'-') ? QChar(0x200E) + number : number;
    }
    QString exact(Currency amount) const { return exact(amount.toText()); }
    /// As the list shows it.
    QString shown(Currency amount) const { return QString::fromStdString(money_.formatCurrency(amount, decimals_)); }
    /// The same of an exact sum; one that is too large for an amount is written as it is.
    QString shown(const std::string& sum) const
    {
        const auto amount = Currency::fromShortestText(sum);
        return amount ? shown(*amount) : exact(sum);
    }
    /// In units of the last decimal shown. Such a count can be half a unit more than the largest amount.
    QString shown(std::int64_t units) const
    {
        const auto unit = static_cast<std::int64_t>(Currency::kPowersOfTen[Currency::kDecimals - decimals_]);
        std::int64_t scaled = 0;
        return __builtin_mul_overflow(units, unit, &scaled) ? QString::number(units)
                                                            : shown(Currency::fromScaled(scaled));
    }

private:
    ui::LocaleService& money_;
    int decimals_;
    QString point_;
};

QString roundingOf(const PriceStep& step)
{
    if (!step.amount) {
        return ExplainDialog::tr("too large for an amount");
    }
    switch (step.rounding) {
    case PriceRounding::none: return ExplainDialog::tr("exact");
    case PriceRounding::halfToEven: return ExplainDialog::tr("rounded, a half to the even digit");
    case PriceRounding::binary: return ExplainDialog::tr("rounded in binary arithmetic");
    }
    return {};
}

QTreeWidgetItem* addHeading(QTreeWidget& list, const QString& text)
{
    auto* const heading = new QTreeWidgetItem(&list, {text});
    heading->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    heading->setFirstColumnSpanned(true);
    QFont bold = list.font();
    bold.setBold(true);
    heading->setFont(0, bold);
    return heading;
}

void addRow(QTreeWidgetItem& heading, const QStringList& cells)
{
    auto* const row = new QTreeWidgetItem(&heading, cells);
    for (const int number : {1, 2}) {
        row->setTextAlignment(number, kNumberSide);
    }
}

void addPrice(QTreeWidget& list, const ExplainedQuote& quote, const Writer& writer)
{
    const PriceExplanation& price = quote.price;
    auto& heading = *addHeading(
        list,
        ExplainDialog::tr("Price of product %1: %2").arg(QString::number(quote.position), quote.name.simplified()));
    const auto addStep = [&](const QString& name, const PriceStep& step) {
        if (!step.exact.empty()) {
            const QString amount = step.amount ? writer.exact(*step.amount) : QString();
            addRow(heading, {name, writer.exact(step.exact), amount, roundingOf(step)});
        }
    };
    const QString discount = writer.exact(price.discPrcnt);
    addStep(price.discountIgnored ? ExplainDialog::tr("Percent to pay: a discount of %1% counts as none").arg(discount)
                                  : ExplainDialog::tr("Percent to pay: 100% − %1%").arg(discount),
            price.share);
    addStep(
        ExplainDialog::tr("Quantity × unit price: %1 × %2").arg(writer.exact(price.qty), writer.exact(price.unitPrice)),
        price.gross);
    if (price.gross.amount) {
        addStep(
            ExplainDialog::tr("%1% of %2").arg(writer.exact(*price.share.amount), writer.exact(*price.gross.amount)),
            price.price);
    }
    addRow(heading, {ExplainDialog::tr("Price"), writer.exact(price.unrounded), writer.exact(price.stored),
                     ExplainDialog::tr("shown as %1").arg(writer.shown(price.stored))});
}

void addTotal(QTreeWidget& list, const TotalExplanation& total, const Writer& writer)
{
    auto& heading = *addHeading(list, ExplainDialog::tr("Total"));
    const std::span rows = std::span(total.rounded).first(std::min(total.rounded.size(), kMostRows));
    for (const RoundedRow& row : rows) {
        const QString added = writer.exact(Currency::fromScaled(row.added));
        addRow(heading,
               {ExplainDialog::tr("Product %1").arg(row.position), writer.exact(row.extPrice), writer.shown(row.shown),
                ExplainDialog::tr("rounded to be shown: %1")
                    .arg(row.added > 0 ? QChar(0x200E) + QStringLiteral("+") + added : added)});
    }
    if (const std::size_t more = total.rounded.size() - rows.size(); more > 0) {
        addRow(heading, {ExplainDialog::tr("Further products: %L1").arg(more)});
    }
    addRow(heading, {ExplainDialog::tr("Sum of all prices"), writer.exact(total.exactSum),
                     writer.shown(total.sumOfShown), ExplainDialog::tr("the prices as they are shown, added up")});
    if (total.total) {
        addRow(heading, {ExplainDialog::tr("Total"), writer.exact(*total.total), writer.shown(*total.shownTotal),
                         total.totalIsSum ? ExplainDialog::tr("the exact sum, rounded to be shown")
                                          : ExplainDialog::tr("not the sum of the prices")});
    }
}

/// "1, 2 and more" of a list of rows.
template <class Rows, class Position>
QString positions(const Rows& rows, Position position)
{
    QStringList texts;
    for (const auto& row : rows) {
        if (texts.size() == static_cast<qsizetype>(kMostPositions)) {
            texts << QStringLiteral("…");
            break;
        }
        texts << QString::number(position(row));
    }
    return texts.join(QStringLiteral(", "));
}

QString whyTheColumnDiffers(const TotalExplanation& total, const Writer& writer)
{
    if (!total.total) {
        return ExplainDialog::tr("The prices add up to %1, which is too large for an amount, so there is no total.")
            .arg(writer.exact(total.exactSum));
    }
    if (total.difference && *total.difference == 0) {
        return ExplainDialog::tr("The prices as they are shown add up to the total as it is shown.");
    }
    return ExplainDialog::tr("The prices as they are shown add up to %1, but the total is shown as %2. Each amount is "
                             "rounded for itself to be shown; the total is the sum of the exact prices.")
        .arg(writer.shown(total.sumOfShown), writer.shown(*total.shownTotal));
}

QStringList sentencesOf(const ExplainedQuote& quote, const Writer& writer)
{
    const TotalExplanation& total = quote.total;
    QStringList sentences{whyTheColumnDiffers(total, writer)};
    const PriceExplanation& price = quote.price;
    if (quote.position > 0 && price.stored != price.computed) {
        sentences << ExplainDialog::tr(
                         "The price of product %1 is %2, but its quantity, unit price and discount give "
                         "%3. It was stored like this; changing one of them in the editor computes it anew.")
                         .arg(QString::number(quote.position), writer.exact(price.stored),
                              writer.exact(price.computed));
    }
    if (!total.deviating.empty()) {
        sentences << ExplainDialog::tr(
                         "Products whose price is not what their quantity, unit price and discount give: %1.")
                         .arg(positions(total.deviating, [](const DeviatingRow& row) { return row.position; }));
    }
    if (!total.overflowed.empty()) {
        sentences << ExplainDialog::tr("Products whose price is 0 because it is too large for an amount: %1.")
                         .arg(positions(total.overflowed, [](std::int32_t position) { return position; }));
    }
    return sentences;
}

} // namespace

ExplainDialog::ExplainDialog(const ExplainedQuote& quote, ui::LocaleService& money, QWidget* parent)
    : QDialog(parent), list_(new QTreeWidget)
{
    setWindowTitle(tr("Explain"));
    list_->setHeaderLabels({tr("Step"), tr("Exact value"), tr("Amount"), tr("How")});
    for (const int number : {1, 2}) {
        list_->headerItem()->setTextAlignment(number, kNumberSide);
    }
    list_->setRootIsDecorated(false);
    list_->setItemsExpandable(false);
    list_->setAllColumnsShowFocus(true);
    list_->setAccessibleName(windowTitle());
    const Writer writer(money, quote.total.decimals);
    if (quote.position > 0) {
        addPrice(*list_, quote, writer);
    }
    addTotal(*list_, quote.total, writer);
    list_->expandAll();
    list_->setCurrentItem(list_->topLevelItem(0));
    sentences_ = sentencesOf(quote, writer);

    auto* const sentences = new QLabel(sentences_.join(u'\n'));
    sentences->setTextFormat(Qt::PlainText);
    sentences->setWordWrap(true);
    sentences->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setAutoDefault(false);
    const auto copyAll = [this] { QGuiApplication::clipboard()->setText(text()); };
    connect(copy, &QPushButton::clicked, this, copyAll);
    auto* const copyKey = new QAction(list_);
    copyKey->setShortcut(QKeySequence::Copy);
    copyKey->setShortcutContext(Qt::WidgetShortcut); // in the sentences the key copies what is selected there
    list_->addAction(copyKey);
    connect(copyKey, &QAction::triggered, this, copyAll);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(list_, 1);
    column->addWidget(sentences);
    column->addWidget(buttons);
    const int em = fontMetrics().averageCharWidth();
    int width = 6 * em; // around the list
    for (int i = 0; i < list_->columnCount(); ++i) {
        list_->resizeColumnToContents(i);
        if (i + 1 < list_->columnCount()) {
            list_->setColumnWidth(i, list_->columnWidth(i) + 2 * em); // apart from the next column
        }
        width += list_->columnWidth(i);
    }
    resize(QSize(std::max(width, 80 * em), 30 * fontMetrics().lineSpacing())
               .boundedTo(screen()->availableSize() * 9 / 10));
}

QString ExplainDialog::text() const
{
    QStringList lines;
    for (QTreeWidgetItemIterator at(list_); *at; ++at) {
        QStringList cells;
        for (int i = 0; i < list_->columnCount(); ++i) {
            cells << (*at)->text(i).remove(QChar(0x200E));
        }
        while (!cells.isEmpty() && cells.constLast().isEmpty()) {
            cells.removeLast();
        }
        lines << cells.join(u'\t');
    }
    return (lines + sentences_).join(u'\n') + u'\n';
}

} // namespace orvan::desk
