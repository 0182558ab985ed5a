// QtTools: the tools of a tool bar or a pop-up menu as Qt's actions.
//
// Thread: the user-interface thread.
#pragma once

#include "orvan/ui/ToolSet.h"

#include <functional>
#include <string_view>
#include <vector>

class QAction;
class QObject;
class QWidget;

namespace orvan::qt {

/// Puts the tools, with their sub-menus, into a menu bar or a menu, which owns them. Returns one
/// action per tool, in the design's order. `chosen` is called for as long as `context` lives.
std::vector<QAction*> addTools(QWidget& to, const ui::ToolSet& set, QObject* context,
                               const std::function<void(std::string_view id)>& chosen);

} // namespace orvan::qt
