// PrintOptions: what the user has chosen for printed quotes, and where it is kept.
//
// Thread: the user-interface thread. Errors: RuntimeError 75 where the settings cannot be read or written.
#pragma once

#include "orvan/base/Currency.h"
#include "orvan/ui/SettingsStore.h"

#include <QPageLayout>
#include <QString>
#include <QStringList>

#include <set>

namespace orvan::desk {

/// The columns of the table, in their order on paper. The name cannot be left out; the note stands below it.
enum class PrintColumn { position, partNumber, name, note, quantity, unitPrice, discount, extendedPrice };
inline constexpr PrintColumn kPrintColumns[] = {
    PrintColumn::position, PrintColumn::partNumber, PrintColumn::name,     PrintColumn::note,
    PrintColumn::quantity, PrintColumn::unitPrice,  PrintColumn::discount, PrintColumn::extendedPrice};

struct PrintOptions {
    QString sellerName = {};
    QString sellerAddress = {}; ///< May have several lines; so may the closing text.
    QString logoFile = {};      ///< A picture; empty for none.
    QString closingText = {};
    std::set<PrintColumn> leftOut = {};
    bool showTax = false;
    Currency taxRate = {}; ///< Percent: 19 means 19 %.
    QPageLayout page = {};
};

/// A tax rate is 0 to 100 percent.
[[nodiscard]] bool isTaxRate(Currency rate);

/// The paper that users of this machine's locale have, with margins of 15 mm.
[[nodiscard]] QPageLayout usualPage();

/// A stored value that cannot be used is replaced by its default, and `problems` says so.
[[nodiscard]] PrintOptions readPrintOptions(ui::SettingsStore& settings, QStringList& problems);
void writePrintOptions(ui::SettingsStore& settings, const PrintOptions& options);

} // namespace orvan::desk
