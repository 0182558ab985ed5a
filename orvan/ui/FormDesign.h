// FormDesign: which controls a form or an embedded control has, as constant data.
//
// The logic keeps one design beside its procedures and a platform realises it (orvan/ui/Surface.h), so
// that captions, tool tips, tab order and positions stand once. All texts are UTF-8 literals that
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

/// Where a control stands in its frame's rows and columns, from 0. A platform with fonts of its own
/// size lays such a frame out by cells; one without goes by the positions.
struct LayoutCell {
    std::int32_t row = -1; ///< -1: placed by its position alone.
    std::int32_t column = 0;
    std::int32_t rowSpan = 1;
    std::int32_t columnSpan = 1;
    bool stretch = false; ///< Takes the space that the frame has to spare, in height too.
};

/// One tool of a tool bar or a pop-up menu. A tool that others name as their menu is that menu; a tool without an ID is
/// a separator.
struct ToolDesign {
    std::string_view id = {};
    std::string_view caption = {};
    std::string_view menu = {}; ///< ID of the menu it stands in; empty: the menu bar or the pop-up menu itself.
    char mnemonic = 0;
    std::string_view category = "General";
};

struct ControlDesign {
    std::string_view name;
    ControlKind kind;
    std::string_view parent = {}; ///< Name of the frame it stands in; empty: the surface itself.
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    std::string_view caption = {}; ///< "&&" shows one ampersand. A tool bar's or a menu's: its name.
    char mnemonic = 0;             ///< The caption's letter that presses it, or its label's control, with Alt; 0: none.
    std::string_view toolTip = {};
    std::string_view picture = {}; ///< A button's picture by name: "add", "delete", "up", "first", "save", ...
    std::int32_t tabIndex = -1;    ///< Order of the keyboard focus, from 0; -1: never reached by Tab.
    bool cancels = false;          ///< A button: Escape presses it, wherever the focus is.
    bool readOnly = false;         ///< Text boxes: the user can select and copy, not change.
    bool multiLine = false;        ///< Text boxes: Enter makes a new line, long lines are wrapped.
    TextUse use = TextUse::plain;
    Alignment alignment = Alignment::left;
    LayoutCell cell = {};
    std::int32_t gridColumns = 0;           ///< Grids: columns before the logic sets any.
    std::span<const ToolDesign> tools = {}; ///< Tool bars and pop-up menus: a menu stands before what it holds.
};

struct FormDesign {
    std::string_view name;
    float width = 0; ///< Inside, without border and caption.
    float height = 0;
    std::span<const ControlDesign> controls; ///< A frame stands before what it holds, a label before its control.
    std::string_view caption = {};           ///< Forms only.
};

} // namespace orvan::ui
