// Windows: the library in Qt's windows, and a user at the keyboard. The windows are off-screen ones.
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

/// The thread's host with windows, made when it is first asked for; its settings are no user's.
QtHost& windowHost();

/// Opens the editor on the list's first product, lets `act` work in it while it is shown, and closes it,
/// saving. Throws what `act` throws.
void editInWindow(const std::shared_ptr<ProductMgr>& manager, const std::function<void(ui::Form&)>& act);

/// The widget of a box of an open form.
template <class Widget, class Box>
Widget& widgetIn(ui::Form& form, std::string_view box)
{
    return dynamic_cast<Widget&>(*qt::widgetOf(form.control<Box>(box)));
}

void pressKey(QWidget& box, int key, const QString& text = {});

/// A line that gets a digit and loses it again, so that every second key leaves it as it was.
class KeyedLine {
public:
    /// The line takes the focus and holds `text`.
    KeyedLine(QLineEdit& line, const QString& text);
    void press();

private:
    QLineEdit& line_;
    bool typed_ = false;
};

} // namespace orvan::bench
