// Command: what a user can tell a list view to do.
//
// A command's key, its menu entry and its button, if it has one, all run the same handler. The names and keys stand in
// one table, from which menus and lists of keys are made. Keys are written as toolkits and manuals write them
// ("Ctrl+D", "Alt+Up", "Return", "Del"). Texts are UTF-8. Thread: any.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvan {

enum class Command : std::uint8_t {
    edit,
    add,
    duplicate,
    remove,
    moveUp,
    moveDown,
    cut,
    copy,
    paste,
    selectAll,
    findNext,
    findPrevious,
    rowMenu,
};

struct CommandRow {
    Command command;
    std::string_view id;   ///< "moveUp"; the same in every version.
    std::string_view text; ///< As a menu shows it: "Move Up".
    std::string_view key;  ///< "" for a command without a key.
    std::string_view otherKey = {};
    bool changesList = true;
    std::string_view readOnlyText = {}; ///< As a menu shows it where the list can only be read; "": as elsewhere.
};

/// In the order of Command. Where the list can only be read, `edit` opens the editor to read.
inline constexpr std::array kCommands = {
    CommandRow{Command::edit, "edit", "Edit", "Return", "F2", false, "View Product"},
    CommandRow{Command::add, "add", "Add", "Ins"},
    CommandRow{Command::duplicate, "duplicate", "Duplicate", "Ctrl+D"},
    CommandRow{Command::remove, "delete", "Delete", "Del"},
    CommandRow{Command::moveUp, "moveUp", "Move Up", "Alt+Up"},
    CommandRow{Command::moveDown, "moveDown", "Move Down", "Alt+Down"},
    CommandRow{Command::cut, "cut", "Cut", "Ctrl+X"},
    CommandRow{Command::copy, "copy", "Copy", "Ctrl+C", {}, false},
    CommandRow{Command::paste, "paste", "Paste", "Ctrl+V"},
    CommandRow{Command::selectAll, "selectAll", "Select All", "Ctrl+A", {}, false},
    CommandRow{Command::findNext, "findNext", "Find Next", "F3", {}, false},
    CommandRow{Command::findPrevious, "findPrevious", "Find Previous", "Shift+F3", {}, false},
    CommandRow{Command::rowMenu, "rowMenu", "Menu of the Row", "Menu", "Shift+F10", false},
};
static_assert([] {
    for (std::size_t i = 0; i < kCommands.size(); ++i) {
        if (kCommands[i].command != static_cast<Command>(i)) {
            return false;
        }
    }
    return true;
}());

[[nodiscard]] constexpr const CommandRow& rowOf(Command command)
{
    return kCommands[static_cast<std::size_t>(command)];
}

/// What a menu shows for the command.
[[nodiscard]] constexpr std::string_view textOf(const CommandRow& row, bool readOnly)
{
    return readOnly && !row.readOnlyText.empty() ? row.readOnlyText : row.text;
}

} // namespace orvan
