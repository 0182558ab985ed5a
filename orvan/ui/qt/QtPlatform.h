// QtPlatform: the library's platform on Qt 6 Widgets.
//
// Made after QApplication and outlives every surface made on it. An error that no handler took is
// written to Qt's log and shown in a message box until the host sets onUnhandledError. Thread: the
// user-interface thread.
#pragma once

#include "orvan/ui/Platform.h"
#include "orvan/ui/qt/QtMessageBox.h"
#include "orvan/ui/qt/QtScreenPointer.h"
#include "orvan/ui/qt/QtSettingsStore.h"
#include "orvan/ui/qt/WindowHandles.h"

namespace orvan::qt {

class QtPlatform final : public ui::Platform {
public:
    /// Locale and components must outlive the platform. `settingsPath`: the file of the user's
    /// settings (UTF-8).
    QtPlatform(ui::LocaleService& locale, ui::ComponentFactory& components,
               const std::string& settingsPath = QtSettingsStore::defaultPath());

    QtMessageBox& messageBox() override { return messageBox_; }
    QtSettingsStore& settings() override { return settings_; }
    ui::LocaleService& locale() override { return locale_; }
    ui::ComponentFactory& components() override { return components_; }
    QtScreenPointer& pointer() override { return pointer_; }
    std::unique_ptr<ui::Form> loadForm(const ui::FormDesign& design) override;

private:
    void showUnhandled(const RuntimeError& error) noexcept;

    ui::LocaleService& locale_;
    ui::ComponentFactory& components_;
    QtMessageBox messageBox_;
    QtSettingsStore settings_;
    QtScreenPointer pointer_;
    bool showing_ = false;
};

} // namespace orvan::qt
