// ImportParts: what the dialogs that show how a file is understood have in common: a table whose row 0 has the boxes in
// which the user says what the columns have, and a box for the problems. Thread: the user-interface thread.
#pragma once

#include <QComboBox>
#include <QString>

#include <string>

class QPlainTextEdit;
class QTableWidget;
class QWidget;

namespace orvan::desk {

inline constexpr int kFirstImportRow = 1; ///< Of the table, below the boxes.

/// A box in a cell of the table. The mouse wheel scrolls the table unless the box has the focus.
class FieldChoice final : public QComboBox {
public:
    FieldChoice(QTableWidget& table, int column) : table_(table), column_(column) { setFocusPolicy(Qt::StrongFocus); }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QTableWidget& table_;
    const int column_;
};

/// A text from the file, short, with its words in its own order where the window runs from right to left.
[[nodiscard]] QString importedText(const std::string& text);

void setUpImportTable(QTableWidget& table);
/// Gives the columns their widths once the table is filled.
void fitImportTable(QTableWidget& table);
void setUpProblems(QPlainTextEdit& problems);
/// A frame in which the contents scroll, for a large font on a small screen.
[[nodiscard]] QWidget* scrolling(QWidget* contents);

} // namespace orvan::desk
