// PlacePrinter: tells a test where things stand on the screen, so that it clicks them whatever the fonts are.
//
// For each line on the standard input it prints one line on the standard output: a JSON object with the places of what
// can be seen of the window in front. A widget has its object's name; "flexGrid row 2" is the second row of a table,
// "flexGrid header Qty" the header of a column. A place is [left, top, width, height] in pixels of the screen.
// Thread: the user-interface thread; one object per process.
#pragma once

#include <QSocketNotifier>

namespace orvan::desk {

class PlacePrinter {
public:
    PlacePrinter();

private:
    void answer();

    QSocketNotifier notifier_;
};

} // namespace orvan::desk
