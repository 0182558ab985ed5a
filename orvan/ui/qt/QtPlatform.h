// QtPlatform: the library's platform on Qt 6 Widgets.
//
// It must be made after QApplication and outlive every surface made on it. Until the host sets
// onUnhandledError, an error that leaves an event handler is written to Qt's log and shown in a message
// box. Thread: the
// user-interface thread.
#pragma once

#include "orvan/qt_export.h"
#include "orvan/ui/Platform.h"

#include <memory>
#include <string>

namespace orvan::qt {

class ORVAN_QT_EXPORT QtPlatform final : public ui::Platform {
public:
    /// The locale and the components must outlive the platform. The user's settings are kept in the file
    /// "Orvan/settings.ini" of the user's configuration folder, or in `settingsPath` (UTF-8).
    QtPlatform(ui::LocaleService& locale, ui::ComponentFactory& components);
    QtPlatform(ui::LocaleService& locale, ui::ComponentFactory& components, const std::string& settingsPath);
    ~QtPlatform() override;

    ui::MessageBox& messageBox() override;
    ui::SettingsStore& settings() override;
    ui::LocaleService& locale() override { return locale_; }
    ui::ComponentFactory& components() override { return components_; }
    ui::ScreenPointer& pointer() override;
    ui::Clipboard& clipboard() override;
    std::unique_ptr<ui::Form> loadForm(const ui::FormDesign& design, std::int32_t ownerWindow) override;

    /// Uses the host's services from now on.
    void useServices(ui::HostServices services);

private:
    struct Services;

    void showUnhandled(const RuntimeError& error) noexcept;

    ui::LocaleService& locale_;
    ui::ComponentFactory& components_;
    std::unique_ptr<Services> services_;
    bool showing_ = false;
};

} // namespace orvan::qt
