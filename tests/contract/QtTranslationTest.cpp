// The texts of designs, message boxes and headers in the language of an installed translator.

#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"
#include "tests/contract/QtDriver.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTranslator>

namespace orvan::contract {
namespace {

/// Writes each text of the library backwards, except its placeholders and numbers; a "~" stands in front of it.
class Backwards final : public QTranslator {
public:
    Backwards() { QCoreApplication::installTranslator(this); }

    QString translate(const char* context, const char* source, const char* /*disambiguation*/, int n) const override
    {
        if (qstrcmp(context, "orvan") != 0 || qstrcmp(source, "unknown %n") == 0 || qstrcmp(source, "unknown") == 0) {
            return {};
        }
        return (n == 2 ? u'~' + QStringLiteral("two ") : QStringLiteral("~")) + QString::fromUtf8(source);
    }
    bool isEmpty() const override { return false; }
};

class QtTranslationTest : public testing::Test {
protected:
    QtDriver driver;
    Backwards translator;
};

TEST_F(QtTranslationTest, DesignsHeadersAndBoxesAreTranslatedAndDataIsNot)
{
    const auto surface = driver.load(kDesign);
    auto& grid = surface->control<ui::Grid>("grid");
    grid.setRowCount(2);
    grid.setValue(0, 1, std::string("Product"));
    grid.setValue(1, 1, std::string("Product"));
    EXPECT_EQ(driver.shown(grid, 0).at(1), "~Product");
    EXPECT_EQ(driver.shown(grid, 1).at(1), "Product") << "the user's own text";
    whenModal([](QWidget& window) {
        EXPECT_EQ(dynamic_cast<QMessageBox&>(window).text(), QStringLiteral("~Delete Save?"));
        window.close();
    });
    driver.platform().messageBox().show({.text = userText("Delete %1?", "Save")});
}

TEST_F(QtTranslationTest, MnemonicsBelongToTheTranslation)
{
    EXPECT_EQ(qt::markedCaption("Product", 'r'), QStringLiteral("~P&roduct"));
    EXPECT_EQ(qt::plainCaption("Product", 'r'), QStringLiteral("~Product"));
    EXPECT_EQ(qt::plainCaption("Save && Close", 'S'), QStringLiteral("~Save & Close"));
    EXPECT_EQ(qt::withoutMnemonic(QStringLiteral("Ab && c (&D)…")), QStringLiteral("Ab & c…"));
}

TEST_F(QtTranslationTest, ATextWithoutTranslationIsEnglish)
{
    struct Row {
        const char* name;
        UserText text;
        const char* shown;
    };
    const Row rows[] = {
        {"one", countedText(1, "one unknown", "unknown %n"), "one unknown"},
        {"several", countedText(5, "one unknown", "unknown %n"), "unknown 5"},
        {"no number", userText("unknown"), "unknown"},
        {"a form of its own", countedText(2, "1 product", "%n products"), "~two 2 products"},
    };
    forEachRow(rows, [](const Row& row) { EXPECT_EQ(qt::translated(row.text).toStdString(), row.shown); });
}

} // namespace
} // namespace orvan::contract
