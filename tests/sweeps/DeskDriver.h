// DeskDriver: a plug-in that plays the user of the real orvan-desk without a screen, for the sweeps over system calls
// and kills.
//
// Qt loads it if the environment variable QT_QPA_GENERIC_PLUGINS names "desk-driver". It does the steps that
// ORVAN_DESK_STEPS lists, separated by ";", one after the other, whenever no dialog is open:
//
//     type TEXT       types the text into the customer's field
//     trigger TEXT    chooses the menu command with this caption
//     await MS        waits for this many milliseconds
//     copied          waits until there is a recovery copy, or a status message since this step began
//                     (at most 20 seconds)
//     again N         goes back to the first step, N times in all
//     signal NUMBER   sends this signal to the process
//     end             ends the process without asking
//
// A dialog is closed as with Escape, or by the button whose caption is in ORVAN_DESK_ANSWER. The plug-in writes what a
// user would read to the standard output, a line each: "box: TEXT" and "status: TEXT". After a step that changes the
// window's mark for unsaved changes it writes "saved" or "unsaved".
#pragma once

#include <QGenericPlugin>

class DeskDriverPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "DeskDriver.json")

public:
    QObject* create(const QString& name, const QString& arguments) override;
};
