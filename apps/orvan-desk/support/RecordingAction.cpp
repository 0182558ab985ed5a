#include "RecordingAction.h"

#include "apps/orvan-desk/PlainBox.h"

#include "orvan/components/trace/TraceLog.h"
#include "orvan/hosting/ProductViewWidget.h"
#include "orvan/hosting/QtHost.h"
#include "orvan/recording/Recording.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/ui/qt/Translation.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

#include <filesystem>

namespace orvan::desk {

namespace {

constexpr int kSignMargin = 8; // pixels

/// A file that does not exist yet. Makes its folder. Raises 75 where there can be none.
QString newFile()
{
    const std::filesystem::path trace = defaultTraceFile();
    if (trace.empty()) {
        throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("You have no home folder."));
    }
    const QString folder = QString::fromStdString((trace.parent_path() / "recordings").string());
    if (!QDir().mkpath(folder)) {
        throw RuntimeError(ErrorNumber::pathFileAccess, {},
                           userText("The folder \"%1\" cannot be made.", folder.toStdString()));
    }
    const QString beginning = folder + QDateTime::currentDateTime().toString(QStringLiteral("/yyyy-MM-dd hh-mm-ss"));
    QString file = beginning + QStringLiteral(".recording");
    for (int i = 2; QFile::exists(file); ++i) {
        file = beginning + QStringLiteral(" %1.recording").arg(i);
    }
    return file;
}

} // namespace

RecordingAction::RecordingAction(ProductViewWidget& list, QMainWindow& window)
    : QAction(tr("&Record What I Do"), &window), list_(list), window_(window)
{
    setCheckable(true);
    connect(this, &QAction::triggered, this, [this](bool on) { on ? start() : stop(); });
}

RecordingAction::~RecordingAction()
{
    if (sign_) {
        stopRecording(qtHost().platform());
    }
}

void RecordingAction::start()
{
    setChecked(false);
    try {
        file_ = newFile();
        PlainBox question(QMessageBox::Information, tr("Record what you do with the products?"), QMessageBox::Cancel,
                          &window_);
        question.setInformativeText(
            tr("The recording holds all keys and clicks in the list and the editor, the products with their prices and "
               "notes, and what the catalogue answers. Customer and quote number are not in it. It is kept in “%1”, "
               "where only you can read it, and goes to nobody by itself.\n\nIt ends when you choose this command "
               "again, "
               "or close the window.")
                .arg(QDir::toNativeSeparators(file_)));
        const auto* const record = question.addButton(tr("&Record"), QMessageBox::AcceptRole);
        question.exec();
        if (question.clickedButton() != record) {
            return;
        }
        startRecording(qtHost().platform(), {.file = std::filesystem::path(file_.toStdString()),
                                             .report = [this](const UserText& why) { tellEnd(why); }});
        list_.renew();
        setChecked(true);
        sign_ = new QLabel(QStringLiteral("●  ") + tr("Recording"));
        sign_->setObjectName(QStringLiteral("recordingSign"));
        sign_->setContentsMargins(kSignMargin, 0, kSignMargin, 0);
        sign_->setToolTip(QDir::toNativeSeparators(file_));
        window_.statusBar()->addPermanentWidget(sign_);
    } catch (const std::exception& error) {
        stopRecording(qtHost().platform());
        PlainBox(QMessageBox::Warning,
                 tr("The recording could not be started.") + QStringLiteral("\n\n") + qt::translated(error),
                 QMessageBox::Ok, &window_)
            .exec();
    }
}

void RecordingAction::stop()
{
    delete sign_;
    setChecked(false);
    stopRecording(qtHost().platform());
    list_.renew(); // so that the list view is as it was before the recording
    PlainBox(QMessageBox::Information,
             tr("The recording has ended. It is kept in “%1”.").arg(QDir::toNativeSeparators(file_)), QMessageBox::Ok,
             &window_)
        .exec();
}

void RecordingAction::tellEnd(const UserText& why)
{
    delete sign_;
    setChecked(false);
    window_.statusBar()->showMessage(qt::boundedText(qt::translated(why)));
}

} // namespace orvan::desk
