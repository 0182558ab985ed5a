// The lines of a quote, written into a file for a spreadsheet and read from one.

#include "MainWindow.h"
#include "WatchedProducts.h"
#include "exchange/ExchangeActions.h"
#include "exchange/ImportDialog.h"
#include "exchange/LineFiles.h"

#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "tests/support/QtEnvironment.h"
#include "tests/support/Rows.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

namespace orvan::desk {
namespace {

using test::forEachRow;
using testing::HasSubstr;

/// "part|name|qty|unit price|discount|extended price|note" of each line.
std::vector<std::string> texts(const std::vector<ProductValues>& lines)
{
    std::vector<std::string> result;
    result.reserve(lines.size());
    for (const ProductValues& line : lines) {
        result.push_back(line.partNum + '|' + line.name + '|' + line.qty.toText() + '|' + line.unitPrice.toText() +
                         '|' + line.discPrcnt.toText() + '|' + line.extPrice.toText() + '|' + line.note);
    }
    return result;
}

class ExchangeTest : public testing::Test {
protected:
    ExchangeTest()
        : manager(std::dynamic_pointer_cast<ProductMgr>(productMgrFactory()())), rules(manager->AddNewProduct())
    {
    }

    LinesRead read(const std::string& bytes, const LineReading& how = {})
    {
        return readLines(bytes, "lines.csv", how, *rules);
    }

    std::shared_ptr<ProductMgr> manager;
    std::shared_ptr<ProductRecord> rules;
};

TEST_F(ExchangeTest, WhatAFileSaysIsUnderstood)
{
    struct Row {
        const char* name;
        const char* bytes;
        std::vector<std::string> lines;
        LineReading how = {};
    };
    const std::vector<std::string> bolt{"B-1|Bolt|3|1234.5|10|3333.15|"};
    const LineColumns noteFirst{LineField::note, std::nullopt, LineField::name};
    const Row rows[] = {
        {"names", "Part#,Product,Qty,Unit Price,Disc%\nB-1,Bolt,3,1234.5,10\n", bolt},
        {"names of a price list", "quantity;SKU;Article;list price;discount\n3;B-1;Bolt;1234,5;10\n", bolt},
        {"a byte order mark, tabs, groups", "\xEF\xBB\xBFpart\tname\tqty\tprice\tdisc\nB-1\tBolt\t3\t1.234,50\t10 %\n",
         bolt},
        {"no names", "B-1,Bolt,3,1234.5,10,,\n", bolt},
        {"another encoding, German names, currencies",
         "sep=;\nArtikelnr;Bezeichnung;Menge;Preis\nT-1;T\xFCr;3;12,- \x80\n",
         {"T-1|Tür|1|12|0|12|"}},
        {"other columns", "stock,name,part,price,qty,disc\n7,Bolt,B-1,1234.5,3,10\n", bolt},
        {"its own price", "name,qty,price,Ext Price\nBolt,2,10,15\n", {"|Bolt|2|10|0|15|"}},
        {"blank lines", "\n , \nname,qty\n,\nBolt,2\n,\n", {"|Bolt|2|0|0|0|"}},
        {"nothing but a name", "name,qty\nBolt,\n", {"|Bolt|1|0|0|0|"}},
        {"guarded texts",
         "name,note\n'=SUM(A1),''quoted\n'plain,-\n",
         {"|=SUM(A1)|1|0|0|0|'quoted", "|'plain|1|0|0|0|-"}},
        {"a negative amount is no formula", "name,price,extprice\nCredit,5,-5\n", {"|Credit|1|5|0|-5|"}},
        {"a quoted line break", "name,note\nBolt,\"a\nb\"\n", {"|Bolt|1|0|0|0|a\nb"}},
        {"the locale decides what nothing tells",
         "name,price\nBolt,\"1,234\"\n",
         {"|Bolt|1|1.234|0|1.234|"},
         {.usualDecimal = ','}},
        {"another amount tells",
         "name,price\nBolt,\"1,234\"\nNut,0.5\n",
         {"|Bolt|1|1234|0|1234|", "|Nut|1|0.5|0|0.5|"},
         {.usualDecimal = ','}},
        {"the user decides", "name;price\nBolt;1.234\n", {"|Bolt|1|1.234|0|1.234|"}, {.decimalSeparator = '.'}},
        {"names as a line", "name,qty\nBolt,2\n", {"name|qty|1|0|0|0|", "Bolt|2|1|0|0|0|"}, {.hasHeader = false}},
        {"chosen columns",
         "A,B,C\nD,E,F\n",
         {"|C|1|0|0|0|A", "|F|1|0|0|0|D"},
         {.hasHeader = false, .columns = noteFirst}},
        {"a name twice", "name,name\nBolt,Nut\n", {"|Bolt|1|0|0|0|"}},
    };
    forEachRow(rows, [&](const Row& row) {
        const LinesRead understood = read(row.bytes, row.how);
        EXPECT_EQ(texts(understood.lines), row.lines);
        EXPECT_EQ(understood.refusedCount, 0U);
    });
}

TEST_F(ExchangeTest, WhatCannotBeUnderstoodIsRefusedWithItsPlace)
{
    struct Row {
        const char* name;
        const char* bytes;
        std::uint64_t line;
        const char* reason;
        LineReading how = {};
    };
    const Row rows[] = {
        {"no amount", "name,qty\nBolt,two\n", 2, "Qty “two”: this is no amount with a decimal point"},
        {"another separator", "name;price\nBolt;1,5\nNut;1.50\n", 3, "“1.50”: this is no amount with a decimal comma"},
        {"after a long line", "name,note,qty\nBolt,\"a\nb\nc\",1\nNut,,x\n", 5, "Qty “x”"},
        {"below nothing", "name,price\nBolt,-1\n", 2, "Unit Price “-1”: no product can have this"},
        {"above all", "name,disc\nBolt,101\n", 2, "Disc% “101”: no product can have this"},
        {"too large", "name,price\nBolt,922337203685478\n", 2, "“922337203685478”"},
        {"a product too large", "name,price,qty\nBolt,900000000000000,2\n", 2, "price of this quantity"},
        {"too few", "name,qty\nBolt\n", 2, "1 fields where the first line has 2"},
        {"too many", "name,qty\nBolt,1,2\n", 2, "3 fields"},
        {"an open quote", "name,qty\n\"Bolt,1\n", 2, "never closed"},
        {"bytes", "name,qty\nÄÖ\xFF,1\n", 2, "not UTF-8"},
    };
    forEachRow(rows, [&](const Row& row) {
        const LinesRead understood = read(row.bytes, row.how);
        ASSERT_EQ(understood.refusedCount, 1U);
        EXPECT_EQ(understood.refused.front().line, row.line);
        EXPECT_THAT(understood.refused.front().reason.english(), HasSubstr(row.reason));
    });
    static const std::string kWide = std::string(66, ',') + "x";
    const test::Example files[] = {
        {"", "lines.csv: it has no lines"},
        {"\n,,\n", "lines.csv: it has no lines"},
        {"\"a", "lines.csv: its first line cannot be read"},
        {kWide.c_str(), "67 columns, and at most 64"},
    };
    forEachRow(files, [&](const test::Example& row) {
        try {
            static_cast<void>(read(row.text));
            ADD_FAILURE() << "read";
        } catch (const RuntimeError& error) {
            EXPECT_THAT(error.what(), HasSubstr(row.result));
        }
    });
    std::string many = "name,qty\n";
    for (int at = 0; at < 200; ++at) {
        many += "Bolt,x\n";
    }
    EXPECT_EQ(read(many).refused.size(), 100U);
    EXPECT_EQ(read(many).refusedCount, 200U);
}

TEST_F(ExchangeTest, WhatIsWrittenIsReadAgain)
{
    const char* const texts[] = {"",           "Bolt",     "=1+1", "+1",     "-1",  "@x",  "'x",  "''",   "\tx", "\rx",
                                 "a,b;c|d\te", "5\" pipe", "\"",   "a\r\nb", " x ", "007", "Ä €", "name", "1,5"};
    std::vector<ProductValues> lines;
    for (const char* const text : texts) {
        lines.push_back({.name = text,
                         .key = text,
                         .partNum = text,
                         .unitPrice = Currency::fromText("1234.5678"),
                         .qty = Currency::fromText("0.5"),
                         .discPrcnt = Currency::fromText("12.5"),
                         .extPrice = Currency::fromText("-922337203685477.5808"),
                         .note = text});
    }
    for (const LineFormat format : {LineFormat{',', '.'}, LineFormat{';', ','}, LineFormat{'\t', ','},
                                    LineFormat{'|', '.'}, LineFormat{',', ','}}) {
        const std::string bytes = linesToCsv(lines, format);
        EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBFPart#")) << "a spreadsheet needs the mark for the Ä";
        const LinesRead understood = read(bytes);
        EXPECT_EQ(understood.lines, lines) << format.delimiter << format.decimalSeparator;
        EXPECT_EQ(understood.format.delimiter, format.delimiter);
    }
    EXPECT_TRUE(linesToCsv({}, {}).starts_with("Part#,Product,"));
    EXPECT_THAT(linesToCsv({lines[2]}, {}),
                HasSubstr("\r\n'=1+1,'=1+1,0.5,1234.5678,12.5,-922337203685477.5808,'=1+1,'=1+1\r\n"));
}

class ImportTest : public ExchangeTest {
protected:
    ImportTest()
    {
        window.show();
        products = window.findChild<ProductViewWidget*>();
        history = window.findChild<QuoteHistory*>();
        window.onProblem = [this](const QString& problem) { problems << problem; };
        products->Show("2~Desk::D-1:489:2:0:978:~Lamp::L-7:74.95:1:0:74.95:~");
        history->restart();
    }

    /// Imports a file of these bytes; `user` works in the dialog, which is cancelled if it is still open then.
    bool import(const std::string& bytes, const std::function<void(ImportDialog& dialog)>& user)
    {
        test::writeText(folder / "lines.csv", bytes);
        test::whenModal([&](QWidget& modal) {
            auto& dialog = dynamic_cast<ImportDialog&>(modal);
            user(dialog);
            dialog.isVisible() ? dialog.reject() : static_cast<void>(0);
        });
        const bool imported =
            window.findChild<ExchangeActions*>()->importFrom(QString::fromStdString((folder / "lines.csv").string()));
        QCoreApplication::processEvents();
        return imported;
    }
    static QAbstractButton& importButton(ImportDialog& dialog)
    {
        for (auto* const button : dialog.findChildren<QAbstractButton*>()) {
            if (button->text().startsWith(QStringLiteral("&Import"))) {
                return *button;
            }
        }
        throw std::logic_error("no such button");
    }
    static std::string summary(ImportDialog& dialog)
    {
        std::string text;
        for (const auto* const label : dialog.findChildren<QLabel*>()) {
            text += label->wordWrap() ? label->text().toStdString() : "";
        }
        return text;
    }
    static void press(ImportDialog& dialog) { importButton(dialog).click(); }
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const ProductValues& values : watchedValues()) {
            found.push_back(values.name);
        }
        return found;
    }

    test::TemporaryFolder folder;
    MainWindow window;
    ProductViewWidget* products;
    QuoteHistory* history;
    QStringList problems;
};

TEST_F(ImportTest, AnImportIsOneStepOfTheHistory)
{
    struct Row {
        const char* name;
        const char* bytes;
        const char* choice; ///< Of the radio buttons.
        std::vector<std::string> names;
        const char* step;
    };
    const Row rows[] = {
        {"append", "name,price\nRug,5\nVase,7\n", "Append", {"Desk", "Lamp", "Rug", "Vase"}, "Import 2 Lines"},
        {"replace", "name,price\nRug,5\nVase,7\n", "Replace", {"Rug", "Vase"}, "Import 2 Lines"},
        {"one", "name\nRug\n", "Append", {"Desk", "Lamp", "Rug"}, "Import 1 Line"},
    };
    const std::string before = products->Products();
    forEachRow(rows, [&](const Row& row) {
        EXPECT_TRUE(import(row.bytes, [&](ImportDialog& dialog) {
            for (auto* const choice : dialog.findChildren<QRadioButton*>()) {
                if (choice->text().contains(QLatin1String(row.choice))) {
                    choice->click();
                }
            }
            press(dialog);
        }));
        EXPECT_EQ(names(), row.names);
        EXPECT_TRUE(window.isWindowModified());
        EXPECT_EQ(history->stack().undoText().toStdString(), row.step);
        const std::string after = products->Products();
        history->stack().undo();
        EXPECT_EQ(products->Products(), before);
        history->stack().redo();
        EXPECT_EQ(products->Products(), after);
        history->stack().undo();
    });
    EXPECT_EQ(problems, QStringList());
}

TEST_F(ImportTest, WhileALineIsRefusedNothingCanBeImported)
{
    EXPECT_FALSE(import("name,qty,size\nRug,1,x\nVase,two,y\n", [](ImportDialog& dialog) {
        EXPECT_FALSE(importButton(dialog).isEnabled());
        EXPECT_EQ(summary(dialog), "Nothing can be imported, because 1 line cannot be understood.");
        EXPECT_EQ(dialog.findChild<QPlainTextEdit*>()->toPlainText().toStdString(),
                  "Line 3: Qty “two”: this is no amount with a decimal point");
        auto& table = *dialog.findChild<QTableWidget*>();
        EXPECT_EQ(table.item(1, 1)->text(), u"1");
        EXPECT_EQ(table.item(2, 1)->text(), u"two");
        // The user takes the column for something else: all can be read now.
        auto& choice = dynamic_cast<QComboBox&>(*table.cellWidget(0, 1));
        Q_EMIT choice.activated(0);
        QCoreApplication::processEvents();
        EXPECT_TRUE(importButton(dialog).isEnabled());
        EXPECT_EQ(summary(dialog), "2 lines understood.");
        Q_EMIT dynamic_cast<QComboBox&>(*table.cellWidget(0, 2)).activated(2); // the name, which another column had
        QCoreApplication::processEvents();
        ASSERT_EQ(dialog.lines().size(), 2U);
        EXPECT_EQ(dialog.lines()[0].name, "x");
        Q_EMIT dynamic_cast<QComboBox&>(*table.cellWidget(0, 2)).activated(0);
        QCoreApplication::processEvents();
        EXPECT_EQ(summary(dialog), "Choose above what the columns have.");
    }));
    EXPECT_EQ(names(), (std::vector<std::string>{"Desk", "Lamp"}));
    EXPECT_FALSE(history->stack().canUndo());
}

TEST_F(ImportTest, WhatTheQuoteCannotHoldIsRefusedWhole)
{
    const std::string note(600'000, 'n');
    const auto refuses = [](const char* text) {
        return [text](ImportDialog& dialog) {
            EXPECT_FALSE(importButton(dialog).isEnabled());
            EXPECT_THAT(summary(dialog), HasSubstr(text));
        };
    };
    EXPECT_TRUE(import("name,note\nRug," + note + "\n", press));
    EXPECT_FALSE(import("name,note\nVase," + note + "\n", refuses("1,200,083")));
    EXPECT_FALSE(import("name,note\nVase," + note + "\n", refuses("at most 1,048,576 are possible")));
    EXPECT_FALSE(import("name,extprice\nRug,922337203685477\n", refuses("total would be too large")));
    EXPECT_EQ(names(), (std::vector<std::string>{"Desk", "Lamp", "Rug"}));
    EXPECT_NO_THROW(static_cast<void>(products->Products()));
}

TEST_F(ImportTest, AFileThatCannotBeReadIsTold)
{
    const auto import = [&](const char* name) {
        EXPECT_FALSE(
            window.findChild<ExchangeActions*>()->importFrom(QString::fromStdString((folder / name).string())));
        return problems.isEmpty() ? std::string() : problems.takeLast().toStdString();
    };
    test::writeText(folder / "open.csv", "\"name,qty\n");
    EXPECT_THAT(import("open.csv"), HasSubstr("open.csv: its first line cannot be read"));
    EXPECT_THAT(import("missing.csv"), HasSubstr("missing.csv” could not be imported"));
    EXPECT_THAT(import("."), HasSubstr("could not be imported"));
}

TEST_F(ImportTest, ExportedLinesAreImportedAgain)
{
    auto& exchange = *window.findChild<ExchangeActions*>();
    const QString file = QString::fromStdString((folder / "out.csv").string());
    ASSERT_TRUE(exchange.exportTo(file, {';', ','}));
    const std::string before = products->Products();
    EXPECT_TRUE(import(test::readText(folder / "out.csv"), [](ImportDialog& dialog) {
        dialog.findChildren<QRadioButton*>().constLast()->click();
        EXPECT_TRUE(dialog.replaces());
        press(dialog);
    }));
    EXPECT_EQ(products->Products(), before);
    EXPECT_FALSE(exchange.exportTo(QString::fromStdString((folder / "none/out.csv").string()), {}));
    ASSERT_EQ(problems.size(), 1);
    EXPECT_THAT(problems.front().toStdString(), HasSubstr("out.csv” could not be written."));
}

} // namespace
} // namespace orvan::desk
