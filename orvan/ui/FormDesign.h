// FormDesign: which controls a form or an embedded control has, as constant data.
//
// The logic keeps one design beside its procedures and a platform realises it (orvan/ui/Surface.h), so
// that captions, tool tips, tab order and positions are written once. All texts are UTF-8 literals that
// outlive every control made from them. Lengths are in twips (1/1440 inch; 15 to a
// device-independent pixel), measured inside the parent.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orvan::ui {

enum class ControlKind { button, comboBox, frame, grid, label, line, popupMenu, textBox, timer, toolBar };

/// The kind's name in error texts: "button", "text box", ...
std::string_view controlKindName(ControlKind kind);

enum class Alignment { left, right };

/// What a text box is for; this decides which separator the keypad's decimal key types.
enum class TextUse { plain, number, money };

/// The row and column of a control in its frame, from 0. A platform whose fonts have different sizes places the
/// controls of such a frame by their cells; the in-memory platform uses their positions.
struct LayoutCell {
    std::int32_t row = -1; ///< -1: the control has no cell and is placed by its position.
    std::int32_t column = 0;
    std::int32_t rowSpan = 1;
    std::int32_t columnSpan = 1;
    bool stretch = false; ///< The control's row takes the height that the other rows leave free.
};

/// One tool of a tool bar or a pop-up menu. A tool whose ID is the `menu` of other tools opens a menu with them; a tool
/// without an ID is a separator.
struct ToolDesign {
    std::string_view id = {};
    std::string_view caption = {};
    std::string_view menu = {}; ///< ID of the menu that holds the tool; empty: the menu bar or the pop-up menu itself.
    char mnemonic = 0;
    std::string_view key = {}; ///< Shown beside the caption: the key that does the same (see orvan/ui/KeyStroke.h).
    std::string_view category = "General";
};

struct ControlDesign {
    std::string_view name;
    ControlKind kind;
    std::string_view parent = {}; ///< Name of the frame that holds the control; empty: the surface itself.
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    std::string_view caption = {}; ///< "&&" shows one ampersand. Of a tool bar, a menu or a grid: its name.
    char mnemonic = 0;             ///< Alt with this letter presses a button; of a label, goes to its control. 0: none.
    std::string_view toolTip = {};
    std::string_view picture = {}; ///< A button's picture by name: "add", "delete", "up", "first", "save", ...
    std::int32_t tabIndex = -1;    ///< Place in the order of Tab, from 0; -1: Tab does not reach the control.
    bool cancels = false;          ///< A button: Escape presses it, whatever control has the focus.
    bool readOnly = false;         ///< Text boxes: the user can select and copy, not change.
    bool multiLine = false;        ///< Text boxes: Enter makes a new line, long lines are wrapped.
    bool announced = false;        ///< Text boxes: when the text has changed, a screen reader says it.
    TextUse use = TextUse::plain;
    Alignment alignment = Alignment::left;
    LayoutCell cell = {};
    std::int32_t gridColumns = 0;           ///< Grids: number of columns at first, until the logic sets another.
    std::span<const ToolDesign> tools = {}; ///< Tool bars and pop-up menus: a menu comes before the tools in it.
};

struct FormDesign {
    std::string_view name;
    float width = 0; ///< Of the area inside the border and below the caption.
    float height = 0;
    std::span<const ControlDesign> controls; ///< A frame comes before the controls in it, a label before its control.
    std::string_view caption = {};           ///< Forms only.
    /// Users open the form again and again, so a platform may make the next one in advance. The design must then live
    /// as long as the program.
    bool openedAgain = false;
};

} // namespace orvan::ui
