// CurrencyDialog: the user chooses the currency of the quote.
//
// Thread: the user-interface thread. Errors: currencies() raises 51 where ICU's data is missing.
#pragma once

#include <QDialog>
#include <QString>

#include <string>
#include <vector>

class QTreeWidget;

namespace orvan::desk {

struct CurrencyName {
    QString code; ///< ISO 4217.
    QString name; ///< In the language of the locale.
};

/// The currencies that are in use today, by their codes.
[[nodiscard]] std::vector<CurrencyName> currencies(const std::string& localeId);

class CurrencyDialog : public QDialog {
    Q_OBJECT

public:
    /// `present` is chosen at first. A code that is in none of today's lists is added, so that it can be kept.
    CurrencyDialog(const std::vector<CurrencyName>& currencies, const QString& present, QWidget* parent);

    /// The chosen ISO code.
    [[nodiscard]] QString currency() const;

private:
    QTreeWidget* const list_;
};

} // namespace orvan::desk
