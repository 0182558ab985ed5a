#include "LetterheadDialog.h"

#include "apps/orvan-desk/OutsideText.h"
#include "apps/orvan-desk/settings/SystemSettings.h"

#include "orvan/base/RuntimeError.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFontMetrics>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace orvan::desk {

namespace {

QPlainTextEdit* textField(const QString& text, int lines)
{
    auto* const field = new QPlainTextEdit(text);
    field->setTabChangesFocus(true);
    const int height = field->fontMetrics().lineSpacing() * lines;
    field->setMinimumHeight(height + 2 * field->frameWidth() + int(2 * field->document()->documentMargin()));
    field->setMaximumHeight(2 * field->minimumHeight());
    return field;
}

QLabel* problemLabel()
{
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText); // a file's name may be in it
    label->setWordWrap(true);
    return label;
}

} // namespace

LetterheadDialog::LetterheadDialog(const PrintOptions& options, ui::LocaleService& locale, QWidget* window)
    : QDialog(window), options_(options), locale_(locale), sellerName_(new QLineEdit(options.sellerName)),
      sellerAddress_(textField(options.sellerAddress, 4)), logoFile_(new QLineEdit(options.logoFile)),
      logoState_(problemLabel()), closingText_(textField(options.closingText, 3)),
      showTax_(new QCheckBox(tr("Print &tax of"))), taxRate_(new QLineEdit), taxProblem_(problemLabel())
{
    setWindowTitle(tr("Letterhead and Columns"));
    auto* const form = new QFormLayout;
    form->addRow(tr("&Seller"), sellerName_);
    form->addRow(tr("&Address"), sellerAddress_);
    form->addRow(tr("&Logo"), makeLogo());
    form->addRow(QString(), logoState_);
    form->addRow(tr("&Closing text"), closingText_);
    form->addRow(tr("Columns"), makeColumns());
    form->addRow(tr("Tax"), makeTax());
    form->addRow(QString(), taxProblem_);
    form->setRowVisible(logoState_, false);
    form->setRowVisible(taxProblem_, false);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &LetterheadDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &LetterheadDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(buttons);
    sellerName_->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    connect(logoFile_, &QLineEdit::textChanged, this, &LetterheadDialog::showLogoState);
    showLogoState();
    const std::pair<const char*, QWidget*> presets[] = {{"seller-name", sellerName_},
                                                        {"seller-address", sellerAddress_},
                                                        {"logo", logoFile_->parentWidget()},
                                                        {"closing-text", closingText_}};
    for (const auto& [name, field] : presets) {
        if (systemSettings().locks(name)) {
            field->setEnabled(false);
            field->setToolTip(tr("This is set for all users of this computer."));
        }
    }
}

QWidget* LetterheadDialog::makeLogo()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    auto* const choose = new QPushButton(tr("C&hoose…"));
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, &LetterheadDialog::chooseLogo);
    layout->addWidget(logoFile_);
    layout->addWidget(choose);
    row->setFocusProxy(logoFile_);
    return row;
}

QWidget* LetterheadDialog::makeColumns()
{
    const std::pair<PrintColumn, QString> names[] = {{PrintColumn::position, tr("&Position")},
                                                     {PrintColumn::partNumber, tr("Part nu&mber")},
                                                     {PrintColumn::note, tr("&Note")},
                                                     {PrintColumn::quantity, tr("&Quantity")},
                                                     {PrintColumn::unitPrice, tr("&Unit price")},
                                                     {PrintColumn::discount, tr("&Discount")},
                                                     {PrintColumn::extendedPrice, tr("&Extended price")}};
    auto* const box = new QWidget;
    auto* const grid = new QGridLayout(box);
    grid->setContentsMargins({});
    int at = 0;
    for (const auto& [column, name] : names) {
        auto* const check = new QCheckBox(name);
        check->setChecked(!options_.leftOut.contains(column));
        columns_[column] = check;
        grid->addWidget(check, at / 4, at % 4);
        ++at;
    }
    return box;
}

QWidget* LetterheadDialog::makeTax()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    showTax_->setChecked(options_.showTax);
    std::string rate = locale_.formatNumber(options_.taxRate, Currency::kDecimals);
    while (rate.ends_with('0')) {
        rate.pop_back();
    }
    while (!rate.empty() && (rate.back() < '0' || rate.back() > '9')) {
        rate.pop_back(); // the separator; it may have several bytes
    }
    taxRate_->setText(options_.taxRate == Currency() ? QString() : QString::fromStdString(rate));
    taxRate_->setAlignment(Qt::AlignRight);
    taxRate_->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
    taxRate_->setEnabled(options_.showTax);
    connect(showTax_, &QCheckBox::toggled, taxRate_, &QWidget::setEnabled);
    layout->addWidget(showTax_);
    layout->addWidget(taxRate_);
    layout->addWidget(new QLabel(QStringLiteral("%")));
    layout->addStretch();
    return row;
}

void LetterheadDialog::chooseLogo()
{
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        patterns << QStringLiteral("*.") + QString::fromLatin1(format);
    }
    const QString file = QFileDialog::getOpenFileName(this, tr("Choose Logo"), logoFile_->text(),
                                                      tr("Pictures (%1);;All files (*)").arg(patterns.join(u' ')));
    if (!file.isEmpty()) {
        logoFile_->setText(file);
    }
}

void LetterheadDialog::showLogoState()
{
    const QString file = logoFile_->text();
    QImageReader reader(file);
    const bool bad = !file.isEmpty() && !reader.canRead();
    if (bad) {
        logoState_->setText(tr("This picture cannot be printed: %1.").arg(reader.errorString()));
    }
    static_cast<QFormLayout*>(layout()->itemAt(0)->layout())->setRowVisible(logoState_, bad);
}

bool LetterheadDialog::readTaxRate(Currency& rate) const
{
    try {
        rate = locale_.textToCurrency(taxRate_->text().trimmed().toStdString());
        return isTaxRate(rate);
    } catch (const RuntimeError&) {
        return false;
    }
}

void LetterheadDialog::accept()
{
    Currency rate = options_.taxRate;
    if (showTax_->isChecked() && !readTaxRate(rate)) {
        taxProblem_->setText(
            tr("“%1” is not a rate: 0 to 100 percent, with at most four decimals.").arg(shortened(taxRate_->text())));
        static_cast<QFormLayout*>(layout()->itemAt(0)->layout())->setRowVisible(taxProblem_, true);
        taxRate_->setFocus();
        taxRate_->selectAll();
        return;
    }
    options_.sellerName = sellerName_->text();
    options_.sellerAddress = sellerAddress_->toPlainText();
    options_.logoFile = logoFile_->text();
    options_.closingText = closingText_->toPlainText();
    options_.leftOut.clear();
    for (const auto& [column, check] : columns_) {
        if (!check->isChecked()) {
            options_.leftOut.insert(column);
        }
    }
    options_.showTax = showTax_->isChecked();
    options_.taxRate = rate;
    QDialog::accept();
}

} // namespace orvan::desk
