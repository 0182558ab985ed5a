// The library's implementations on Qt pass the conformance suites.

#include "orvan/testing/MessageBoxConformance.h"
#include "orvan/testing/SettingsStoreConformance.h"
#include "orvan/ui/qt/QtMessageBox.h"
#include "orvan/ui/qt/QtSettingsStore.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/TemporaryFolder.h"

#include <QMessageBox>
#include <QPushButton>

namespace orvan::test {
namespace {

using namespace conformance;

QString shownText;

QMessageBox& boxOf(QWidget& window)
{
    auto& box = dynamic_cast<QMessageBox&>(window);
    shownText = box.textFormat() == Qt::PlainText ? box.text() : QStringLiteral("markup");
    return box;
}

void press(ui::MessageBox& /*box*/, ui::MessageResult button)
{
    whenModal([button](QWidget& window) {
        const auto wanted = button == ui::MessageResult::ok    ? QMessageBox::Ok
                            : button == ui::MessageResult::yes ? QMessageBox::Yes
                            : button == ui::MessageResult::no  ? QMessageBox::No
                                                               : QMessageBox::Cancel;
        boxOf(window).button(wanted)->click();
    });
}

/// A store on the file with that number.
std::shared_ptr<ui::SettingsStore> store(int number)
{
    static const TemporaryFolder folder;
    return std::make_shared<qt::QtSettingsStore>((folder / (std::to_string(number) + ".ini")).string());
}

int stores = 0;

const std::size_t kTests[] = {
    addMessageBoxTests("Qt",
                       {.make = [] { return std::make_shared<qt::QtMessageBox>(); },
                        .press = press,
                        .close = [](ui::MessageBox&) { whenModal([](QWidget& window) { boxOf(window).close(); }); },
                        .shownText = [] { return shownText.toStdString(); }}),
    addSettingsStoreTests("Qt",
                          {.makeEmpty = [] { return store(++stores); }, .makeAgain = [] { return store(stores); }}),
};

} // namespace
} // namespace orvan::test
