// PlainBox: a message box of the desk. Its text may come from a file: it is never taken for markup, and never makes the
// box larger than the screen. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/qt/QtText.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace orvan::desk {

class PlainBox : public QMessageBox {
public:
    PlainBox(Icon icon, const QString& text, StandardButtons buttons, QWidget* window)
        : QMessageBox(icon, QCoreApplication::translate("PlainBox", "Orvan Desk"), {}, buttons, window)
    {
        setTextFormat(Qt::PlainText);
        setText(qt::boundedText(text));
    }
};

} // namespace orvan::desk
