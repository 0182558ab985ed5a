// DeskDriver: a plug-in that works the real orvan-desk without a screen, for the sweeps over system calls and kills.
//
// Qt loads it where QT_QPA_GENERIC_PLUGINS names "desk-driver". It does the steps of ORVAN_DESK_STEPS, separated by
// ";", one after the other, whenever no dialog is open:
//
//     type TEXT       into the customer's field
//     trigger TEXT    the menu command of that caption
//     await MS        goes on after that many milliseconds
//     copied          goes on when there is a recovery copy, or a status message since the last step
//     again N         goes back to the first step, N times
//     signal NUMBER   sends a signal to this process
//     end             ends the process without asking
//
// "copied" waits for at most 20 seconds. A dialog is refused (its Escape button), or answered with the button whose
// caption ORVAN_DESK_ANSWER names. What a user would read goes to the standard output, a line each: "box: TEXT",
// "status: TEXT", and "saved" or "unsaved" when the window's mark has changed after a step.
#pragma once

#include <QGenericPlugin>

class DeskDriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "DeskDriver.json")

public:
    QObject* create(const QString& name, const QString& specification) override;
};
