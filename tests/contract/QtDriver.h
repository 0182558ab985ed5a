// QtDriver: the Qt platform under the contract, driven with the events of mouse and keyboard.
#pragma once

#include "ContractDriver.h"
#include "tests/support/QtEnvironment.h"
#include "ui/qt/QtPlatform.h"
#include "ui/qt/QtSurface.h"

#include <QTableView>
#include <QWidget>

namespace orvan::contract {

using test::whenModal;

class QtDriver final : public Driver {
public:
    ui::Platform& platform() override { return platform_; }
    std::unique_ptr<ui::Surface> load(const ui::FormDesign& design) override;
    void resize(ui::Surface& surface, int widthTwips, int heightTwips) override;
    void click(ui::Button& button) override;
    void dragColumn(ui::Grid& grid, std::int32_t column, std::int32_t twips) override;
    void chooseRow(ui::Grid& grid, std::int32_t row) override;
    std::vector<std::string> shown(ui::Grid& grid, std::int32_t row) override;
    void answer(ui::MessageResult result) override;

    /// Where the surface loaded last stands.
    QWidget& host() { return *hosts_.back(); }
    template <class T = QWidget>
    T& widget(const char* name)
    {
        return *hosts_.back()->findChild<T*>(QString::fromLatin1(name));
    }
    QTableView& table() { return widget<QTableView>("grid"); }
    void destroyHost() { hosts_.pop_back(); }
    std::string settingsPath() const { return folder_.filePath(QStringLiteral("new/settings.ini")).toStdString(); }
    const QTemporaryDir& folder() const { return folder_; }

private:
    QTemporaryDir folder_;
    qt::QtPlatform platform_{locale, components, settingsPath()};
    std::vector<std::unique_ptr<QWidget>> hosts_;
};

} // namespace orvan::contract
