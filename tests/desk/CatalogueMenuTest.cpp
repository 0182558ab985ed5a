// The desk's catalogue: what the user is asked before it is replaced, and how the replaced one is kept and comes back.

#include "CatalogueMenu.h"
#include "pricelists/KeptChoices.h"
#include "pricelists/PriceListDialog.h"

#include "orvan/components/catalogue/CatalogueFile.h"
#include "orvan/files/FormerFile.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>

namespace orvan::desk {
namespace {

using test::forEachRow;
using testing::HasSubstr;

/// Presses a button in each window that comes up: the one with the given caption, or else OK or Import. Keeps all
/// texts.
class User {
public:
    explicit User(const char* press) : press_(press)
    {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            if (QWidget* const window = QApplication::activeModalWidget()) {
                answer(*window);
            }
        });
        timer_.start(10);
    }

    std::string told;
    std::function<void(PriceListDialog&)> inDialog;

private:
    void answer(QWidget& window)
    {
        if (const auto* const box = qobject_cast<QMessageBox*>(&window)) {
            told += box->text().toStdString() + '\n';
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
        }
        if (qobject_cast<QProgressDialog*>(&window)) {
            const auto* const label = window.findChild<QLabel*>();
            told += label->text().toStdString() + '\n';
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
        if (auto* const dialog = qobject_cast<PriceListDialog*>(&window)) {
            for (const auto* const label : dialog->findChildren<QLabel*>()) {
                told += label->wordWrap() ? label->text().toStdString() + '\n' : "";
            }
            if (inDialog) {
                inDialog(*dialog);
            }
        }
        QAbstractButton* pressed = nullptr;
        for (auto* each : window.findChildren<QAbstractButton*>()) {
            const QString text = each->text().remove(u'&');
            const bool usual = text == u"OK" || (text.startsWith(u"Import") && each->isEnabled());
            pressed = text == QLatin1String(press_) || (!pressed && usual) ? each : pressed;
        }
        if (pressed) {
            QTest::mouseClick(pressed, Qt::LeftButton);
        }
    }

    const char* press_;
    QTimer timer_;
};

class CatalogueMenuTest : public testing::Test {
protected:
    QString list(const char* name, const QByteArray& rows) const
    {
        QString csv = folder.filePath(QString::fromUtf8(name));
        QFile file(csv);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("part number,product,price\n" + rows);
        return csv;
    }
    /// "present, former", as numbers of entries.
    std::string state() const
    {
        const auto count = [](const std::filesystem::path& file) {
            SqliteFile opened = openCatalogue(file);
            return std::to_string(catalogueStatistics(opened).entries);
        };
        const auto former = files::formerFileOf(file());
        return count(file()) + ", " + (former ? count(*former) : "none");
    }
    std::filesystem::path file() const { return path.toStdString(); }
    bool canBringBack()
    {
        emit menu.aboutToShow();
        return menu.actions().constLast()->isEnabled();
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("goods.catalogue"));
    std::string problem;
    CatalogueMenu menu{path, nullptr, [this](const QString& what, const QString& why, const QString& details) {
                           problem = (what + why + details).toStdString();
                       }};
};

TEST_F(CatalogueMenuTest, ReplacingIsAskedAboutAndTheFormerCatalogueComesBack)
{
    const QString two = list("two.csv", "A,Alpha,1\nB,Beta,2.5\n"), one = list("<b>.csv", "A,Alpha,1.5\n");
    menu.importSampleIfNone();
    EXPECT_EQ(state(), "296, none");
    EXPECT_FALSE(canBringBack());
    const auto import = [this](const QString& source) { return [this, source] { menu.importFrom(source); }; };
    const auto sample = [this] { menu.useSample(); };
    const auto bringBack = [this] { menu.bringBackFormer(); };
    struct Row {
        const char* name;
        std::function<void()> action;
        const char* press;
        std::vector<const char*> told;
        const char* state;
    };
    const Row rows[] = {
        {"the sample, Cancel",
         sample,
         "Cancel",
         {"296 products from “sample products”", "with the sample products?"},
         "296, none"},
        {"a list, Cancel", import(two), "Cancel", {"with the products of “two.csv”?"}, "296, none"},
        {"a list", import(two), "Replace", {"now contains 2 products"}, "2, 296"},
        {"another list",
         import(one),
         "Replace",
         {"2 products from “two.csv”", "“<b>.csv”?", "is deleted: 296 products from “sample products”."},
         "1, 2"},
        {"bring back", bringBack, "", {"now contains 2 products from “two.csv”"}, "2, 1"},
        {"bring back again", bringBack, "", {"now contains 1 product from “<b>.csv”"}, "1, 2"},
        {"the sample", sample, "Replace", {"1 product from “<b>.csv”"}, "296, 1"},
    };
    forEachRow(rows, [&](const Row& row) {
        User user(row.press);
        row.action();
        for (const char* const text : row.told) {
            EXPECT_THAT(user.told, HasSubstr(text));
        }
        EXPECT_EQ(state(), row.state);
        EXPECT_EQ(canBringBack(), !QLatin1String(row.state).endsWith(QLatin1String("none")));
    });
    EXPECT_EQ(problem, "");
}

TEST_F(CatalogueMenuTest, ADamagedCatalogueIsAskedAboutAndDoesNotComeBack)
{
    menu.importSampleIfNone();
    QFile(path).resize(8192);
    {
        User user("Replace");
        menu.useSample();
        EXPECT_THAT(user.told, HasSubstr("contains products that cannot be read"));
    }
    menu.bringBackFormer();
    EXPECT_THAT(problem, HasSubstr("it is damaged"));
    SqliteFile opened = openCatalogue(file());
    EXPECT_EQ(catalogueStatistics(opened).entries, 296);
}

TEST_F(CatalogueMenuTest, ACatalogueOfAnEarlierProgramIsCountedToo)
{
    menu.importSampleIfNone();
    SqliteFile(file(), SqliteFile::Access::create).run("DROP TABLE origin");
    User user("Cancel");
    menu.useSample();
    EXPECT_THAT(user.told, HasSubstr("The catalogue contains 296 products.\n"));
}

TEST_F(CatalogueMenuTest, APriceIsCutWhereItIsAskedAbout)
{
    User user("Cancel");
    menu.importFrom(list("wide.csv", "A,Alpha,\"1,234" + QByteArray(50'000, ' ') + "\"\n"));
    EXPECT_THAT(user.told, HasSubstr("Prices such as “1,234"));
    EXPECT_LT(user.told.size(), 400U) << "a sentence, and not a page";
}

TEST_F(CatalogueMenuTest, AnImportIsCancelledWhenTheProgramEnds)
{
    menu.importSampleIfNone();
    const QString source = list("long.csv", QByteArray("A,Alpha,1.5\n").repeated(400'000));
    QTimer ends;
    QObject::connect(&ends, &QTimer::timeout, [] {
        if (qobject_cast<QProgressDialog*>(QApplication::activeModalWidget())) {
            QApplication::exit();
        }
    });
    ends.start(10);
    QTimer::singleShot(0, qApp, [&] {
        const User user("Replace");
        EXPECT_FALSE(menu.importFrom(source));
    });
    QApplication::exec();
    EXPECT_EQ(state(), "296, none");
}

/// What the user chooses in the box above a column.
void chooseColumn(PriceListDialog& dialog, int column, const char* caption)
{
    auto& box = dynamic_cast<QComboBox&>(*dialog.findChild<QTableWidget*>()->cellWidget(0, column));
    Q_EMIT box.activated(box.findText(QString::fromUtf8(caption)));
    QCoreApplication::processEvents();
}

TEST_F(CatalogueMenuTest, AListIsReadAsTheUserSaysAndTheNextOneOfItsShapeToo)
{
    const auto write = [this](const char* name, const QByteArray& bytes) {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    };
    const QByteArray header = "Ding;Wert\n";
    const QString first = write("first.csv", header + "T\xFCr;1,234\nTisch;2\n;;x\n");
    const QString next = write("next.csv", header + "Stuhl;1,234\n");
    const auto texts = [this](const char* column) {
        SqliteFile opened = openCatalogue(file());
        SqliteStatement query(opened, std::string("SELECT ") + column + " FROM product ORDER BY item_id");
        std::string found;
        for (SqliteRows rows = query.query(); rows.next();) {
            found.append(rows.text(0)).append(";");
        }
        return found;
    };
    {
        User user("Replace");
        bool done = false;
        user.inDialog = [&](PriceListDialog& dialog) {
            if (!std::exchange(done, true)) {
                EXPECT_THAT(user.told, HasSubstr("Choose above which column has the name or the part number."));
                chooseColumn(dialog, 0, "Name");
                chooseColumn(dialog, 1, "Unit price");
                for (auto* const box : dialog.findChildren<QComboBox*>()) {
                    if (const int comma = box->findData(QChar(u',')); comma == 1) { // of the decimals
                        box->setCurrentIndex(comma);
                        Q_EMIT box->activated(comma);
                    }
                }
                EXPECT_FALSE(dialog.findChild<QCheckBox*>()->isHidden());
                dialog.findChild<QCheckBox*>()->click();
            }
        };
        EXPECT_TRUE(menu.importFrom(first));
        EXPECT_THAT(user.told, HasSubstr("now contains 2 products"));
        EXPECT_THAT(user.told, HasSubstr("1 row with errors was left out"));
        EXPECT_EQ(texts("name || unit_price"), "Tür12340;Tisch20000;");
    }
    EXPECT_EQ(keptChoices(shapeOf({"Sache", "Wert"})).columns.name, "") << "another shape";
    User user("Replace");
    EXPECT_TRUE(menu.importFrom(next)); // which alone tells neither the columns nor the decimals
    EXPECT_EQ(texts("name || unit_price"), "Stuhl12340;");
}

TEST_F(CatalogueMenuTest, TheProgressShowsAFilesNameAsItIs)
{
    User user("OK"); // and Import
    menu.importFrom(list("<h1>long<h1>.csv", QByteArray("A,Alpha,1.5\n").repeated(100'000)));
    EXPECT_THAT(user.told, HasSubstr("“<h1>long<h1>.csv”"));
}

} // namespace
} // namespace orvan::desk
