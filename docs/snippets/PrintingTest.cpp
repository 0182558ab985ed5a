// How a host prints a list: the library gives the products and the user's formats, Qt the paper.

#include "tests/support/QtEnvironment.h"

#include <orvan/core/ProductMgr.h>
#include <orvan/hosting/QtHost.h>

#include <gmock/gmock.h>

#include <QFile>
#include <QPdfWriter>
#include <QTextDocument>

namespace {

//! [table]
/// The products as a table in HTML, with the user's formats.
QString tableOf(const QString& products)
{
    orvan::ui::LocaleService& formats = orvan::qtHost().platform().locale();
    const auto list =
        orvan::ui::createComponent<orvan::ProductMgr>(orvan::qtHost().components(), orvan::kProductMgrClassName);
    list->SetProductsString(products.toStdString(), orvan::kRecordSeparator, orvan::kFieldSeparator, false);

    QString rows;
    const auto addRow = [&rows](const std::string& name, const std::string& amount) {
        rows += QStringLiteral("<tr><td>%1</td><td align='right'>%2</td></tr>")
                    .arg(QString::fromStdString(name).toHtmlEscaped(), QString::fromStdString(amount).toHtmlEscaped());
    };
    for (std::int32_t position = 1; position <= list->GetProductCount(); ++position) {
        const auto product = list->GetProduct(position);
        addRow(product->Name(), formats.formatCurrency(product->ExtPrice(), 2));
    }
    addRow("Total", formats.formatCurrency(list->GetTotalValue(), 2));
    return QStringLiteral("<table width='100%'>%1</table>").arg(rows);
}
//! [table]

//! [print]
void print(const QString& products, QPagedPaintDevice& paper) // a QPrinter, or a QPdfWriter for a PDF file
{
    QTextDocument document;
    document.setHtml(tableOf(products));
    document.print(&paper);
}
//! [print]

const QString kQuote = QStringLiteral("2~Lamp <dimmable>:::74.95:2:0:149.9:~Chair:::1100:1:0:1100:~");

TEST(Printing, TheTableHasTheUsersFormats)
{
    QTextDocument document;
    document.setHtml(tableOf(kQuote));
    const QStringList texts = document.toPlainText().split(u'\n', Qt::SkipEmptyParts);
    EXPECT_EQ(texts, QStringList({"Lamp <dimmable>", "$149.90", "Chair", "$1,100.00", "Total", "$1,249.90"}));
}

TEST(Printing, ThePaperHasPages)
{
    QTemporaryDir folder;
    const QString name = folder.filePath("quote.pdf");
    {
        QPdfWriter paper(name);
        print(kQuote, paper);
    }
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.contains("/Count 1\n") || pdf.contains("/Count 1\r")) << "one page";
}

} // namespace
