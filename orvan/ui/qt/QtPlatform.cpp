#include "orvan/ui/qt/QtPlatform.h"

#include "orvan/ui/qt/Assistance.h"
#include "orvan/ui/qt/FormReserve.h"
#include "orvan/ui/qt/QtMessageBox.h"
#include "orvan/ui/qt/QtScreenPointer.h"
#include "orvan/ui/qt/QtSettingsStore.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/WindowHandles.h"

#include <QApplication>
#include <QClipboard>
#include <QScopedValueRollback>
#include <QtDebug>

#include <utility>

namespace orvan::qt {

namespace {

/// The clipboard of the system.
class QtClipboard final : public ui::Clipboard {
public:
    std::string text() override { return fromQt(QApplication::clipboard()->text()); }
    void setText(std::string_view text) override { QApplication::clipboard()->setText(toQt(text)); }
};

} // namespace

/// The parts of the platform. They are not in its header, because hosts include that.
struct QtPlatform::Services {
    ui::HostServices host = {};
    QtSettingsStore settings;
    QtMessageBox messageBox = {};
    QtScreenPointer pointer = {};
    QtClipboard clipboard = {};
    std::unique_ptr<FormReserve> forms = {};
};

QtPlatform::QtPlatform(ui::LocaleService& locale, ui::ComponentFactory& components)
    : QtPlatform(locale, components, QtSettingsStore::defaultPath())
{
}

QtPlatform::QtPlatform(ui::LocaleService& locale, ui::ComponentFactory& components, const std::string& settingsPath)
    : locale_(locale), components_(components), services_(new Services{.settings = QtSettingsStore(settingsPath)})
{
    services_->forms = std::make_unique<FormReserve>(*this);
    installAssistance();
    onUnhandledError = [this](const RuntimeError& error) { showUnhandled(error); };
}

QtPlatform::~QtPlatform() = default;

ui::MessageBox& QtPlatform::messageBox()
{
    return services_->host.messageBox ? *services_->host.messageBox : services_->messageBox;
}

ui::SettingsStore& QtPlatform::settings()
{
    return services_->host.settings ? *services_->host.settings : services_->settings;
}

ui::ScreenPointer& QtPlatform::pointer()
{
    return services_->pointer;
}

ui::Clipboard& QtPlatform::clipboard()
{
    return services_->clipboard;
}

std::unique_ptr<ui::Form> QtPlatform::loadForm(const ui::FormDesign& design, std::int32_t ownerWindow)
{
    return services_->forms->load(design, windowOf(ownerWindow));
}

void QtPlatform::useServices(ui::HostServices services)
{
    services_->host = std::move(services);
}

void QtPlatform::showUnhandled(const RuntimeError& error) noexcept
{
    try {
        const UserText text = userText("Error %1: %2", error.number(), error.userText());
        const std::string source = error.source().empty() ? std::string() : " (" + error.source() + ")";
        qWarning("%s%s", text.english().c_str(), source.c_str());
        if (showing_) {
            return; // while one error is shown, another one goes only to the log
        }
        const QScopedValueRollback shown(showing_, true);
        messageBox().show({.text = text,
                           .title = fromQt(QApplication::applicationDisplayName()),
                           .buttons = ui::MessageButtons::ok,
                           .icon = ui::MessageIcon::critical,
                           .ownerWindow = windowHandle(QApplication::activeWindow())});
    } catch (...) {
        qWarning("an error could not be shown");
    }
}

} // namespace orvan::qt
