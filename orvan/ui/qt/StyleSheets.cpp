#include "orvan/ui/qt/StyleSheets.h"

#include <QApplication>
#include <QWidget>

namespace orvan::qt {

bool namedInStyleSheets(const QWidget& widget, QLatin1String name)
{
    for (const QWidget* around = &widget; around; around = around->parentWidget()) {
        if (around->styleSheet().contains(name)) {
            return true;
        }
    }
    return qApp->styleSheet().contains(name);
}

bool hasStyleSheets(const QWidget& widget)
{
    return namedInStyleSheets(widget, QLatin1String(":")); // which every declaration has
}

} // namespace orvan::qt
