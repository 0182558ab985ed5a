// FormDesign: which controls a form or an embedded control has, as constant data.
//
// The logic keeps one design beside its procedures and a platform realises it (ui/Surface.h), so
// that captions, tool tips, tab order and positions stand once. All texts are UTF-8 literals that
// outlive every control made from them. Lengths are in twips (1/1440 inch; 15 to a
// device-independent pixel), measured inside the parent.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace orvan::ui {

enum class ControlKind { button, frame, grid, label, textBox };

/// The kind's name in error texts: "button", "text box", ...
std::string_view controlKindName(ControlKind kind);

enum class Alignment { left, right };

struct ControlDesign {
    std::string_view name;
    ControlKind kind;
    std::string_view parent = {}; ///< Name of the frame it stands in; empty: the surface itself.
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    std::string_view caption = {}; ///< '&' marks the mnemonic, "&&" shows one ampersand.
    std::string_view toolTip = {};
    std::string_view picture = {}; ///< A button's picture by name: "add", "delete", "up", "down".
    std::int32_t tabIndex = -1;    ///< Order of the keyboard focus, from 0; -1: never reached by Tab.
    bool readOnly = false;         ///< Text boxes: the user can select and copy, not change.
    Alignment alignment = Alignment::left;
    std::int32_t gridColumns = 0; ///< Grids: columns before the logic sets any.
};

struct FormDesign {
    std::string_view name;
    float width = 0;
    float height = 0;
    std::span<const ControlDesign> controls; ///< A frame stands before what it holds.
};

} // namespace orvan::ui
