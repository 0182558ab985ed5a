// orvan-felt-peer: small windows of Qt's own widgets, which the desk is compared with. Usage: orvan-felt-peer KIND
// PRODUCTS. They do what a host's developer would write, and nothing that the comparison does not need.

#include "apps/orvan-desk/PlacePrinter.h"
#include "benchmarks/felt/PeerList.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace {

using Window = std::unique_ptr<QWidget>;

/// About the size of the editor's window.
constexpr QSize kEditorSize(560, 420);
constexpr QSize kWindowSize(780, 560);

Window plainWindow(QSize size)
{
    auto window = std::make_unique<QWidget>();
    window->resize(size);
    return window;
}

/// A quantity, its extended price and the list's total.
Window lines(int products)
{
    Window window = plainWindow(kEditorSize);
    auto* const form = new QFormLayout(window.get());
    auto* const quantity = new QLineEdit(QStringLiteral("12"));
    auto* const extended = new QLineEdit;
    auto* const total = new QLineEdit;
    quantity->setObjectName(QStringLiteral("txtQty"));
    extended->setReadOnly(true);
    total->setReadOnly(true);
    form->addRow(QStringLiteral("Quantity"), quantity);
    form->addRow(QStringLiteral("Extended"), extended);
    form->addRow(QStringLiteral("Total"), total);
    QObject::connect(quantity, &QLineEdit::textChanged, extended, [=](const QString& text) {
        const double price = QLocale().toDouble(text) * 489 * 0.92;
        extended->setText(QLocale().toCurrencyString(price));
        total->setText(QLocale().toCurrencyString(price + products * 1'000.0));
    });
    return window;
}

Window combo(int /*products*/)
{
    Window window = plainWindow(kEditorSize);
    auto* const form = new QFormLayout(window.get());
    auto* const name = new QComboBox;
    name->setObjectName(QStringLiteral("cboProductName"));
    name->setEditable(true);
    name->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    form->addRow(QStringLiteral("Name"), name);
    return window;
}

Window text(int /*products*/)
{
    Window window = plainWindow(kEditorSize);
    auto* const form = new QFormLayout(window.get());
    auto* const note = new QPlainTextEdit(QStringLiteral("Oak top, white frame"));
    note->setObjectName(QStringLiteral("txtNote"));
    note->setFixedHeight(80);
    form->addRow(QStringLiteral("Note"), note);
    return window;
}

/// Four tool buttons, eight boxes with their labels, and four buttons.
void showDialog(QWidget* parent)
{
    QDialog dialog(parent);
    dialog.resize(kEditorSize);
    auto* const rows = new QVBoxLayout(&dialog);
    auto* const tools = new QHBoxLayout;
    for (const char* const text : {"|<", "<", ">", ">|"}) {
        auto* const button = new QToolButton;
        button->setText(QString::fromLatin1(text));
        tools->addWidget(button);
    }
    rows->addLayout(tools);
    auto* const form = new QFormLayout;
    const char* const names[] = {"Part", "Name", "Price", "Quantity", "Discount", "Extended", "Total"};
    for (const char* const name : names) {
        form->addRow(QString::fromLatin1(name), new QLineEdit(QStringLiteral("489.00")));
    }
    form->addRow(QStringLiteral("Note"), new QPlainTextEdit(QStringLiteral("Oak top, white frame")));
    rows->addLayout(form);
    auto* const buttons = new QHBoxLayout;
    for (const char* const text : {"New", "Delete", "Save", "Cancel"}) {
        buttons->addWidget(new QPushButton(QString::fromLatin1(text)));
    }
    rows->addLayout(buttons);
    dialog.exec();
}

Window dialog(int products)
{
    Window window = plainWindow(kWindowSize);
    auto* const list = new orvan::felt::PeerList(products, window.get());
    (new QVBoxLayout(window.get()))->addWidget(list);
    QObject::connect(list, &QTableView::doubleClicked, list, [list] { showDialog(list); });
    return window;
}

/// Eight line edits and a title, which the keys of the editor fill with the next and the former product.
Window product(int products)
{
    Window window = plainWindow(kEditorSize);
    auto* const form = new QFormLayout(window.get());
    std::vector<QLineEdit*> edits;
    for (int i = 0; i < 8; ++i) {
        edits.push_back(new QLineEdit);
        form->addRow(QStringLiteral("Field"), edits.back());
    }
    const auto at = std::make_shared<int>(1);
    const auto show = [=, window = window.get()](int by) {
        *at += by;
        for (std::size_t i = 0; i < edits.size(); ++i) {
            edits[i]->setText(i < 3 ? QStringLiteral("Task chair, mesh back %1").arg(*at)
                                    : QLocale().toCurrencyString(*at * 279.5));
        }
        window->setWindowTitle(QStringLiteral("Task chair, mesh back (%1/%2)").arg(*at).arg(products));
    };
    show(0);
    const auto onKey = [&](Qt::Key key, int by) {
        auto* const shortcut = new QShortcut(QKeySequence(key | Qt::ControlModifier), window.get());
        QObject::connect(shortcut, &QShortcut::activated, window.get(), [=] { show(by); });
    };
    onKey(Qt::Key_PageDown, 1);
    onKey(Qt::Key_PageUp, -1);
    return window;
}

Window list(int products)
{
    Window window = plainWindow(kWindowSize);
    (new QVBoxLayout(window.get()))->addWidget(new orvan::felt::PeerList(products, window.get()));
    return window;
}

/// A main window with three line edits and a list.
Window window(int products)
{
    auto main = std::make_unique<QMainWindow>();
    main->resize(kWindowSize);
    auto* const middle = new QWidget;
    auto* const rows = new QVBoxLayout(middle);
    auto* const form = new QFormLayout;
    for (const char* const name : {"Customer", "Number", "Date"}) {
        form->addRow(QString::fromLatin1(name), new QLineEdit(QStringLiteral("Lindqvist & Partners")));
    }
    rows->addLayout(form);
    rows->addWidget(new orvan::felt::PeerList(products, middle));
    main->setCentralWidget(middle);
    return main;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const std::map<std::string, std::function<Window(int)>> kinds = {
        {"lines", lines},     {"combo", combo}, {"text", text},    {"dialog", dialog},
        {"product", product}, {"list", list},   {"window", window}};
    const auto kind = argc == 3 ? kinds.find(argv[1]) : kinds.end();
    if (kind == kinds.end()) {
        std::fputs("usage: orvan-felt-peer KIND PRODUCTS\n", stderr);
        return 2;
    }
    const Window shown = kind->second(std::stoi(argv[2]));
    shown->show();
    const orvan::desk::PlacePrinter places;
    return QApplication::exec();
}
