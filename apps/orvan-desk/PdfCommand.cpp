#include "PdfCommand.h"

#include "OutsideText.h"
#include "QuoteLocale.h"
#include "WatchedProducts.h"
#include "exchange/LineFiles.h"
#include "printing/QuotePdf.h"
#include "settings/SettingsCommand.h"
#include "support/SupportDetails.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/files/WholeFile.h"
#include "orvan/hosting/Host.h"
#include "orvan/ui/qt/Translation.h"

#include <algorithm>
#include <string_view>

namespace orvan::desk {

namespace {

/// The user's choices; what is usual where the settings cannot be read, which is told.
PrintOptions chosenOptions(QStringList& notices)
{
    try {
        return readPrintOptions(*deskSettings(), notices);
    } catch (const RuntimeError& error) {
        notices << qt::translated(error);
        PrintOptions options;
        options.page = usualPage();
        return options;
    }
}

} // namespace

void needNoDisplayForFiles(int argc, char** argv)
{
    const auto isOption = [](std::string_view word, const QString& name) {
        const std::string option = "-" + name.toStdString();
        word.remove_prefix(word.starts_with("--") ? 1 : 0); // Qt takes one dash or two
        return word == option || word.starts_with(option + "=");
    };
    const bool asked = std::any_of(argv, argv + argc, [&](std::string_view word) {
        return isOption(word, kPdfOption) || isOption(word, kCsvOption) || isOption(word, kSettingsOption) ||
               isOption(word, kDetailsOption) || word == "--help" || word == "-h" || word == "--version" ||
               word == "-v";
    });
    if (asked && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

QStringList convertToPdf(const QString& quoteFile, const QString& pdfFile)
{
    QStringList notices;
    Quote quote = readQuote(quoteFile, checkProducts).quote;
    icu::LocaleNames locale = icu::localeNamesFromEnvironment();
    if (quote.currency.isEmpty()) {
        quote.currency = userCurrency(locale);
        notices << noCurrencyNotice(quote.currency);
    }
    locale.currency = quote.currency.toStdString();
    const PrintOptions options = chosenOptions(notices);
    const PrintedQuote printed = makePrintedQuote(quote, options, *makeLocaleService(locale), QLocale());
    notices << printed.problems;
    const QString warning = qt::translated(writePdf(pdfFile, printed, options.page));
    return warning.isEmpty() ? notices : notices << warning;
}

QStringList convertToCsv(const QString& quoteFile, const QString& csvFile)
{
    const std::vector<ProductValues> lines = valuesIn(readQuote(quoteFile, checkProducts).quote.products);
    LineFormat format = usualFormat(*makeLocaleService(icu::localeNamesFromEnvironment()));
    if (csvFile.endsWith(QStringLiteral(".tsv"), Qt::CaseInsensitive)) {
        format.delimiter = '\t';
    }
    const UserText warning = files::replaceFile(pathOf(csvFile), linesToCsv(lines, format)).warning;
    return warning.empty() ? QStringList() : QStringList{qt::translated(warning)};
}

QString sampleFile(const QString& name)
{
    return QStringLiteral(":/samples/%1.quote.json").arg(name);
}

} // namespace orvan::desk
