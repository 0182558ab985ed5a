#include "CurrencyDialog.h"

#include "FilterLine.h"

#include "orvan/base/RuntimeError.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <unicode/ucurr.h>
#include <unicode/uenum.h>

#include <algorithm>
#include <memory>

namespace orvan::desk {

std::vector<CurrencyName> currencies(const std::string& localeId)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UEnumeration, decltype(&uenum_close)> codes(
        ucurr_openISOCurrencies(UCURR_COMMON | UCURR_NON_DEPRECATED, &status), &uenum_close);
    std::vector<CurrencyName> found;
    const char* code = nullptr;
    while (U_SUCCESS(status) && (code = uenum_next(codes.get(), nullptr, &status))) {
        const QString iso = QString::fromLatin1(code);
        std::int32_t length = 0;
        const UChar* const name = ucurr_getName(reinterpret_cast<const UChar*>(iso.utf16()), localeId.c_str(),
                                                UCURR_LONG_NAME, nullptr, &length, &status);
        if (U_SUCCESS(status)) {
            found.push_back({iso, QString::fromUtf16(name, length)});
        }
    }
    if (U_FAILURE(status)) {
        throw RuntimeError(ErrorNumber::internalError, {}, "The names of the currencies cannot be read");
    }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.code < b.code; });
    return found;
}

CurrencyDialog::CurrencyDialog(const std::vector<CurrencyName>& currencies, const QString& present, QWidget* parent)
    : QDialog(parent), list_(new QTreeWidget)
{
    setWindowTitle(tr("Quote Currency"));
    list_->setHeaderLabels({tr("Code"), tr("Currency")});
    list_->setRootIsDecorated(false);
    list_->setAllColumnsShowFocus(true);
    list_->setAccessibleName(windowTitle());
    for (const CurrencyName& currency : currencies) {
        new QTreeWidgetItem(list_, {currency.code, currency.name});
    }
    QList<QTreeWidgetItem*> chosen = list_->findItems(present, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (chosen.isEmpty()) {
        chosen << new QTreeWidgetItem(list_, {present});
    }
    list_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    list_->setCurrentItem(chosen.constFirst());
    auto* const filter = new FilterLine(*list_);
    filter->setPlaceholderText(tr("Find a currency by its code or name"));
    filter->setAccessibleName(filter->placeholderText());
    auto* const about = new QLabel(tr("The amounts stay as they are: nothing is converted."));
    about->setWordWrap(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QTreeWidget::itemActivated, this, &QDialog::accept);
    connect(list_, &QTreeWidget::currentItemChanged, this, [buttons](const QTreeWidgetItem* current) {
        buttons->button(QDialogButtonBox::Ok)->setEnabled(current != nullptr);
    });
    auto* const column = new QVBoxLayout(this);
    column->addWidget(filter);
    column->addWidget(list_, 1);
    column->addWidget(about);
    column->addWidget(buttons);
    const int em = fontMetrics().averageCharWidth();
    resize(QSize(55 * em, 24 * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() * 4 / 5));
    list_->scrollToItem(chosen.constFirst(), QAbstractItemView::PositionAtCenter);
}

QString CurrencyDialog::currency() const
{
    return list_->currentItem() ? list_->currentItem()->text(0) : QString();
}

} // namespace orvan::desk
