// ListCommands: runs the commands of a list view (orvan/core/Command.h) by key, menu or program.
//
// The keys act while the list has the focus. A key or menu runs the same procedure of ProductView as the button it
// stands for, so that the question, the trace and the dirty flag are the same. What is typed in the list finds a row
// (orvan/view/ListFind.h). Right clicks on rows, and the keys of the context menu, open the menu of the row.
//
// Ownership: ProductView, which outlives it as the grid and the menu do. Thread: the user-interface thread. Errors:
// those of a command are recorded and shown to the user, as those of a button are.
#pragma once

#include "orvan/core/Command.h"
#include "orvan/core_export.h"
#include "orvan/view/ListFind.h"

#include <string_view>

namespace orvan {

class ProductColumns;
class ProductView;
class ScopedHandlers;

namespace ui {
class Grid;
class PopupMenu;
class Surface;
struct KeyStroke;
} // namespace ui

class ORVAN_CORE_INTERNAL ListCommands {
public:
    ListCommands(ProductView& view, ProductColumns& columns, const ui::Surface& surface, ui::LocaleService& locale);
    ListCommands(const ListCommands&) = delete;
    ListCommands& operator=(const ListCommands&) = delete;

    void takeEvents(ScopedHandlers& handlers);
    /// Does nothing for a command that is not enabled. The view may be destroyed meanwhile.
    void run(Command command);
    /// Whether the command would do anything now.
    [[nodiscard]] bool enabled(Command command) const;

private:
    /// Whether the list may be changed, or the command does not change it.
    [[nodiscard]] bool mayRun(Command command) const;

    /// How a command is run, and when it can be.
    struct Binding {
        Command command;
        void (ListCommands::*handler)();
        bool (ListCommands::*enabled)() const;
    };
    static const Binding& bindingOf(Command command);

    void flexGrid_KeyDown(ui::KeyStroke& key);
    void flexGrid_RightClick();
    void prepareRowMenu();
    [[nodiscard]] bool takesKey(const ui::KeyStroke& key) const;
    void mnuRow_Click(std::string_view item);

    void edit();
    void add();
    void duplicate();
    void remove();
    void moveUp();
    void moveDown();
    void cut();
    void copy();
    void paste();
    void selectAll();
    void findNext();
    void findPrevious();
    void showRowMenu();

    [[nodiscard]] bool always() const { return true; }
    [[nodiscard]] bool hasRows() const;
    [[nodiscard]] bool hasCurrentRow() const;
    [[nodiscard]] bool canMoveUp() const;
    [[nodiscard]] bool canMoveDown() const;
    [[nodiscard]] bool hasSearched() const { return find_.hasText(); }

    ProductView& view_;
    ProductColumns& columns_;
    ui::Grid& flexGrid_;
    ui::PopupMenu& mnuRow_;
    ListFind find_;
};

} // namespace orvan
