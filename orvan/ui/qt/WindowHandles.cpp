#include "orvan/ui/qt/WindowHandles.h"

#include "orvan/base/RuntimeError.h"

#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <limits>
#include <vector>

namespace orvan::qt {

namespace {

struct Entry {
    std::int32_t handle;
    QPointer<QWidget> widget;
};

struct Table {
    std::vector<Entry> entries; ///< There are only a few, because adding one removes those of destroyed windows.
    std::int32_t last = 0;
};

Table& table()
{
    static Table windows;
    return windows;
}

} // namespace

std::int32_t windowHandle(QWidget* widget)
{
    if (!widget) {
        return 0;
    }
    Table& windows = table();
    for (const Entry& entry : windows.entries) {
        if (entry.widget == widget) {
            return entry.handle;
        }
    }
    if (windows.last == std::numeric_limits<std::int32_t>::max()) {
        throw RuntimeError(ErrorNumber::outOfMemory, {}, "no window handle is left");
    }
    std::erase_if(windows.entries, [](const Entry& entry) { return entry.widget.isNull(); });
    windows.entries.push_back({windows.last + 1, widget});
    return ++windows.last;
}

QWidget* windowOf(std::int32_t handle)
{
    for (const Entry& entry : table().entries) {
        if (entry.handle == handle) {
            return entry.widget;
        }
    }
    return nullptr;
}

} // namespace orvan::qt
