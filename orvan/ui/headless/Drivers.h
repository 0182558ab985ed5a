// Drivers: what a user does with a form or a list view in memory, and what this user sees.
//
// A program plays the user. HeadlessPlatform::drive gives it the FormDriver of each form that is shown, and
// HeadlessProductView::surface the SurfaceDriver of a list view. These give it the drivers of their controls by name.
//
// An action does what the user's action does in a window: it raises the same events, and an error that leaves a handler
// reaches the platform's onUnhandledError. What a user could not do, such as pressing a greyed button, raises 5.
//
// Rows, columns, and characters of a text count from 0; -1 stands for no row or no column. Lengths in a text are in
// characters, all others in twips (1/1440 inch). Texts are UTF-8. Ownership: the form or the list view owns its
// drivers. A handler may destroy it while an action runs; its drivers must not be used after that. Thread: the
// platform's.
#pragma once

#include "orvan/core_export.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvan::headless {

/// What buttons, boxes and grids have in common.
class ORVAN_CORE_EXPORT ControlDriver {
public:
    virtual ~ControlDriver() = default;

    /// False while the control, or a frame around it, is greyed.
    virtual bool canTakeFocus() const = 0;
};

class ORVAN_CORE_EXPORT ButtonDriver : public ControlDriver {
public:
    /// Clicks the button with the mouse: it gets the focus and is pressed.
    virtual void click() = 0;
    /// Presses the button without moving the focus: with its mnemonic, or with the mouse on a platform where a click
    /// does not move the focus.
    virtual void press() = 0;
};

class ORVAN_CORE_EXPORT ToolBarDriver {
public:
    virtual ~ToolBarDriver() = default;

    /// Opens the menus and chooses the tool. A tool that only opens a menu does nothing more.
    virtual void choose(std::string_view id) = 0;
    /// Raises 5 for an ID that no tool has.
    virtual bool toolEnabled(std::string_view id) const = 0;
};

/// A menu that opens at the mouse pointer or at the current row. The user of an open menu has to choose or dismiss:
/// otherwise error 51 reaches the platform's onUnhandledError when the menu is to open again, or is destroyed.
class ORVAN_CORE_EXPORT PopupMenuDriver {
public:
    virtual ~PopupMenuDriver() = default;

    virtual bool isUp() const = 0;
    /// The IDs of the tools that can be chosen, separated by blanks.
    virtual std::string offered() const = 0;
    /// The IDs of the tools that have a mark, separated by blanks.
    virtual std::string checked() const = 0;
    /// What the menu shows for the tool. Raises 5 for an ID that no tool has.
    virtual std::string caption(std::string_view id) const = 0;
    /// Chooses the tool, which closes the menu. Raises 5 if the menu is not open.
    virtual void choose(std::string_view id) = 0;
    /// Presses Escape or clicks elsewhere, which closes the menu. Raises 5 if the menu is not open.
    virtual void dismiss() = 0;
};

/// The numbers of rows and columns include headers and hidden columns. In the list view row 0 is the header, and the
/// hidden columns are the last ones. Raises 9 for a row or column outside the grid.
class ORVAN_CORE_EXPORT GridDriver : public ControlDriver {
public:
    /// Drags the column's right edge until it is `twips` wide. Raises 5 where the grid does not let columns be resized
    /// or the column is hidden.
    virtual void dragColumn(std::int32_t column, std::int32_t twips) = 0;
    /// Double clicks the column's right edge, which fits its width to its texts. Raises 5 where dragColumn does.
    virtual void fitColumn(std::int32_t column) = 0;
    /// Clicks a row below the header. Raises 5 for a header row.
    virtual void chooseRow(std::int32_t row) = 0;
    /// Clicks a row with Shift, which selects the rows from the one chosen before up to this one.
    virtual void chooseUpTo(std::int32_t row) = 0;
    /// Clicks a row with Ctrl, which adds it to the selected rows or takes it out of them.
    virtual void toggleRow(std::int32_t row) = 0;
    /// Drags the selected rows to the place above the row `before`; the row count stands for the end of the list.
    /// Raises 5 where no row is selected or rows cannot be dragged.
    virtual void dragRows(std::int32_t before) = 0;
    /// Double clicks a row (-1: where there is no row). The first click chooses the row unless it is a header.
    virtual void doubleClick(std::int32_t row) = 0;
    /// Clicks a cell or header with the right button (-1: where there is no row or column). Raises 5 for a hidden
    /// column.
    virtual void rightClick(std::int32_t row, std::int32_t column) = 0;

    virtual std::int32_t rowCount() const = 0;
    /// The chosen row; 0 (the header) until the user or the program chooses one.
    virtual std::int32_t currentRow() const = 0;
    /// From the first to the last.
    virtual std::vector<std::int32_t> selectedRows() const = 0;
    /// What has been typed to find a row, as long as it is shown.
    virtual std::string searchText() const = 0;
    /// What the grid shows instead of rows; empty while it has rows.
    virtual std::string shownEmptyText() const = 0;
    virtual std::int32_t columnWidth(std::int32_t column) const = 0;
    /// The texts that are seen in a row, hidden columns left out.
    virtual std::vector<std::string> visibleTexts(std::int32_t row) const = 0;
    /// How often the grid has been painted since it was made.
    virtual int paintCount() const = 0;
};

/// A text box. A user who types or pastes moves the focus to the box first, and so do these actions. A read-only box
/// takes no text.
class ORVAN_CORE_EXPORT EntryDriver : public ControlDriver {
public:
    /// Types each character in turn. A "\n" presses Enter, which puts a line end only into a box of several lines.
    virtual void type(std::string_view text) = 0;
    virtual void backspace() = 0;
    virtual void deleteForward() = 0;
    /// Presses Ctrl with a letter. onKeyPress gets its control character first; then C, X and V work on `clipboard`, A
    /// selects all, and other letters do nothing.
    virtual void pressControl(char letter, std::string& clipboard) = 0;
    /// Pastes without a key, as a menu, the middle mouse button or a drop does; onKeyPress is not raised.
    virtual void paste(std::string_view text) = 0;
    /// Presses the keypad's decimal key, which types the separator for what the box is used for.
    virtual void pressKeypadDecimal() = 0;
    /// Selects part of the text. Raises 5 for characters that are not there.
    virtual void select(std::int32_t start, std::int32_t length) = 0;

    virtual const std::string& text() const = 0;
    virtual std::int32_t selectionStart() const = 0;
    virtual std::int32_t selectionLength() const = 0;
    /// The most characters that the box takes; 0 is no limit.
    virtual std::int32_t maxLength() const = 0;
};

/// A line of text with a list that drops down. Raises 9 for a row that is not in the list.
class ORVAN_CORE_EXPORT ComboBoxDriver : public EntryDriver {
public:
    /// Chooses a row of the list, by mouse or keyboard.
    virtual void chooseRow(std::int32_t row) = 0;

    /// How many rows the list has.
    virtual std::int32_t count() const = 0;
    virtual const std::string& itemText(std::int32_t row) const = 0;
    /// What the open list shows of a row; nothing where that is the row's text.
    virtual std::vector<std::string> columns(std::int32_t row) const = 0;
    /// The quiet word at the end of the box, such as "3 match".
    virtual std::string remark() const = 0;
};

/// The controls of a form or a list view, by name. Raises 424 for a name that no control has, and 13 for a control of
/// another kind.
class ORVAN_CORE_EXPORT SurfaceDriver {
public:
    virtual ~SurfaceDriver() = default;

    virtual ButtonDriver& button(std::string_view name) = 0;
    virtual EntryDriver& textBox(std::string_view name) = 0;
    virtual ComboBoxDriver& comboBox(std::string_view name) = 0;
    virtual GridDriver& grid(std::string_view name) = 0;
    virtual ToolBarDriver& toolBar(std::string_view name) = 0;
    virtual PopupMenuDriver& popupMenu(std::string_view name) = 0;

    /// Moves the focus to the control by mouse or with Tab.
    virtual void focus(std::string_view name) = 0;
    /// The name of the control with the focus; empty until a control has had it.
    virtual std::string_view focusedControl() const = 0;
    /// Presses a key in the form, and where the form does not take it, in the grid or button that has the focus:
    /// "Return", "Alt+Up", "Ctrl+D", "Shift+F10", or a character, which is typed. Other controls have drivers for their
    /// keys. Raises 5 for a key that does not exist.
    virtual void pressKey(std::string_view key) = 0;
    /// Gives the area of the controls another size: the form's window is resized, or the list view by its container.
    virtual void resize(float width, float height) = 0;
};

class ORVAN_CORE_EXPORT FormDriver : public SurfaceDriver {
public:
    virtual void clickCloseBox() = 0;
    virtual void pressEscape() = 0;

    virtual const std::string& caption() const = 0;
    /// False once the form has closed. Its controls then still have their texts, but raise no events.
    virtual bool loaded() const = 0;
    /// The handle of the window that the form belongs to, as ProductDlg was given it; 0: none was named.
    virtual std::int32_t ownerWindow() const = 0;
};

} // namespace orvan::headless
