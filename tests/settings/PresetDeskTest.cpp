// The desk's window on a computer whose administrator has set the catalogue for all users, and has made a mistake.

#include "MainWindow.h"

#include "apps/orvan-desk/printing/PrintOptions.h"
#include "apps/orvan-desk/settings/LayeredSettings.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

namespace orvan::desk {
namespace {

using testing::HasSubstr;

/// The settings of a computer are read once in a process, so all tests here have the same.
class PresetEnvironment final : public testing::Environment {
public:
    void SetUp() override
    {
        std::filesystem::create_directories(folder_ / "orvan");
        test::writeText(folder_ / "orvan/defaults.conf", "colour = red\ncatalogue = /srv/goods.catalogue\n"
                                                         "locked = catalogue\nclosing-text = Thank you\n");
        qputenv("XDG_CONFIG_DIRS", QByteArray::fromStdString(folder_.path().string()));
    }

private:
    test::TemporaryFolder folder_;
};

const testing::Environment* const kPresets = testing::AddGlobalTestEnvironment(new PresetEnvironment);

TEST(PresetDeskTest, ALockedCatalogueIsNotTheUsersToReplace)
{
    ASSERT_TRUE(kPresets);
    MainWindow window;
    window.useCatalogue(QStringLiteral("/srv/goods.catalogue"), false);
    QMenu* const menu = window.menuBar()->actions().at(window.menuBar()->actions().size() - 2)->menu();
    ASSERT_TRUE(menu);
    emit menu->aboutToShow(); // which looks whether there is a former catalogue
    int entries = 0;
    for (const QAction* const action : menu->actions()) {
        if (!action->isSeparator()) {
            EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
            EXPECT_THAT(action->toolTip().toStdString(), HasSubstr("administrator")) << action->text().toStdString();
            ++entries;
        }
    }
    EXPECT_EQ(entries, 4) << "import, samples, former catalogue, company catalogue";
    EXPECT_TRUE(menu->toolTipsVisible());
}

TEST(PresetDeskTest, AMistakeInTheComputersSettingsIsTold)
{
    MainWindow window;
    window.show();
    std::string told;
    test::whenModal([&](QWidget& box) {
        told = dynamic_cast<QMessageBox&>(box).text().toStdString();
        box.findChild<QAbstractButton*>()->click();
    });
    window.tellSettingsProblems();
    EXPECT_THAT(told, HasSubstr("Some settings of this computer cannot be used."));
    EXPECT_THAT(told, HasSubstr("orvan/defaults.conf:1: there is no setting \"colour\""));
}

TEST(PresetDeskTest, AUserWhoEmptiesALineOfTheLetterheadHasNone)
{
    QStringList problems;
    PrintOptions options = readPrintOptions(*deskSettings(), problems);
    EXPECT_EQ(options.closingText, QStringLiteral("Thank you"));
    options.closingText.clear();
    writePrintOptions(*deskSettings(), options);
    EXPECT_EQ(readPrintOptions(*deskSettings(), problems).closingText, QString());
}

} // namespace
} // namespace orvan::desk
