// Windows: the library in Qt's windows, which are off-screen, and keys as a user would press them.
// Thread: the program's first.
#pragma once

#include "orvan/core/ProductMgr.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/qt/SurfaceWidgets.h"

#include <QLineEdit>
#include <QWidget>

#include <functional>
#include <memory>
#include <string_view>

namespace orvan::bench {

/// The thread's host with windows; the first call makes it. It does not use the user's settings.
QtHost& windowHost();

/// Opens the editor on the list's first product, calls `act` while it is shown, then closes it and saves. Throws what
/// `act` throws.
void editInWindow(const std::shared_ptr<ProductMgr>& manager, const std::function<void(ui::Form&)>& act);

/// The widget that shows a box of an open form.
template <class Widget, class Box>
Widget& widgetIn(ui::Form& form, std::string_view box)
{
    return dynamic_cast<Widget&>(*qt::widgetOf(form.control<Box>(box)));
}

void pressKey(QWidget& box, int key, const QString& text = {});

/// A line edit in which keys alternately type a digit and remove it, so that every second key restores the text.
class KeyedLine {
public:
    /// Gives the focus to the line and sets its text.
    KeyedLine(QLineEdit& line, const QString& text);
    void press();

private:
    QLineEdit& line_;
    bool typed_ = false;
};

} // namespace orvan::bench
