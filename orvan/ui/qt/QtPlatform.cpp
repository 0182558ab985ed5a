#include "orvan/ui/qt/QtPlatform.h"

#include "orvan/ui/qt/QtForm.h"
#include "orvan/ui/qt/QtText.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QtDebug>

namespace orvan::qt {

QtPlatform::QtPlatform(ui::LocaleService& locale, ui::ComponentFactory& components, const std::string& settingsPath)
    : locale_(locale), components_(components), settings_(settingsPath)
{
    onUnhandledError = [this](const RuntimeError& error) { showUnhandled(error); };
}

std::unique_ptr<ui::Form> QtPlatform::loadForm(const ui::FormDesign& design)
{
    return std::make_unique<QtForm>(design, *this);
}

void QtPlatform::showUnhandled(const RuntimeError& error) noexcept
{
    try {
        const std::string text = "Error " + std::to_string(error.number()) + ": " + std::string(error.text());
        const std::string source = error.source().empty() ? std::string() : " (" + error.source() + ")";
        qWarning("%s%s", text.c_str(), source.c_str());
        if (showing_) {
            return; // while one error is being shown, a further one goes to the log alone
        }
        const QScopedValueRollback shown(showing_, true);
        messageBox_.show({.text = text,
                          .title = fromQt(QApplication::applicationDisplayName()),
                          .buttons = ui::MessageButtons::ok,
                          .icon = ui::MessageIcon::critical,
                          .ownerWindow = windowHandle(QApplication::activeWindow())});
    } catch (...) {
        qWarning("an error could not be shown");
    }
}

} // namespace orvan::qt
