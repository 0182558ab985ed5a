#include "orvan/ui/ToolSet.h"

#include "orvan/base/RuntimeError.h"

#include <algorithm>

namespace orvan::ui {

ToolSet::ToolSet(const ControlDesign& design)
    : Control(design), tools_(design.tools), enabled_(design.tools.size(), true), checked_(design.tools.size(), false)
{
    captions_.reserve(tools_.size());
    for (const ToolDesign& tool : tools_) {
        captions_.push_back(tool.caption);
    }
}

std::size_t ToolSet::indexOf(std::string_view id) const
{
    const auto found =
        std::find_if(tools_.begin(), tools_.end(), [&](const ToolDesign& tool) { return tool.id == id; });
    if (id.empty() || found == tools_.end()) {
        throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, name() + ": no tool \"" + std::string(id) + "\"");
    }
    return static_cast<std::size_t>(found - tools_.begin());
}

void ToolSet::setToolEnabled(std::string_view id, bool enabled)
{
    const std::size_t index = indexOf(id);
    enabled_[index] = enabled;
    doSetToolEnabled(index, enabled);
}

void ToolSet::setToolCaption(std::string_view id, std::string_view caption)
{
    const std::size_t index = indexOf(id);
    if (caption != captions_[index]) {
        captions_[index] = caption;
        doSetToolCaption(index, caption);
    }
}

void ToolSet::setToolChecked(std::string_view id, bool checked)
{
    const std::size_t index = indexOf(id);
    checked_[index] = checked;
    doSetToolChecked(index, checked);
}

bool ToolSet::opensMenu(std::string_view id) const
{
    return std::any_of(tools_.begin(), tools_.end(), [&](const ToolDesign& tool) { return tool.menu == id; });
}

void ToolSet::userChoseTool(std::string_view id)
{
    if (toolEnabled(id)) {
        const Tapped tapped(surface(), [&] { return told(EventKind::tool, 0, 0, std::string(id)); });
        raise(onToolClick, std::string(id)); // a copy: the ID may be the text of a control that the handler destroys
    }
}

void ToolSet::play(const Event& event)
{
    if (event.kind != EventKind::tool) {
        raiseUnplayable(name(), event);
    }
    userChoseTool(event.text);
}

} // namespace orvan::ui
