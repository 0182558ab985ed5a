#include "RecentFiles.h"

#include "DeskSettings.h"
#include "OutsideText.h"
#include "PlainBox.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace orvan::desk {

namespace {

constexpr std::string_view kRecentKey = "RecentFiles";
constexpr qsizetype kMostFiles = 9;      // one for each digit that can be a mnemonic
constexpr qsizetype kMostOfAFolder = 40; // characters
constexpr int kBeforeWriting = 300;      // milliseconds; a quote is on the screen by then

QStringList keptFiles()
{
    QStringList files;
    for (const auto& file : keptList(kRecentKey)) {
        if (file.isString() && QDir::isAbsolutePath(file.toString()) && files.size() < kMostFiles) {
            files << file.toString();
        }
    }
    return files;
}

void keepFiles(const QStringList& files)
{
    keepList(kRecentKey, QJsonArray::fromStringList(files));
}

/// The end of a folder's path, which tells more than its beginning.
QString folderText(const QString& file)
{
    QString folder = QDir::toNativeSeparators(QFileInfo(file).path());
    if (const QString home = QDir::toNativeSeparators(QDir::homePath()); folder.startsWith(home)) {
        folder.replace(0, home.size(), u'~');
    }
    return shortened(folder.size() > kMostOfAFolder ? u'…' + folder.right(kMostOfAFolder) : folder);
}

/// The file's name, and its folder where another file of the list has the same name.
QString captionOf(const QString& file, const QStringList& files)
{
    const QString name = QFileInfo(file).fileName();
    const bool ambiguous = std::any_of(files.begin(), files.end(), [&](const QString& other) {
        return other != file && QFileInfo(other).fileName() == name;
    });
    return ambiguous ? RecentFiles::tr("%1 in %2").arg(shortened(name), folderText(file)) : shortened(name);
}

} // namespace

RecentFiles::RecentFiles(QWidget* window, std::function<void(const QString& path)> open)
    : QMenu(tr("Open &Recent"), window), open_(std::move(open))
{
    writing_.setSingleShot(true);
    writing_.setInterval(kBeforeWriting);
    connect(&writing_, &QTimer::timeout, this, &RecentFiles::writeNoted);
    fill();
    connect(this, &QMenu::aboutToShow, this, &RecentFiles::fill);
}

RecentFiles::~RecentFiles()
{
    writeNoted();
}

void RecentFiles::note(const QString& path)
{
    const QFileInfo info(path);
    const QString own = info.canonicalFilePath();
    const QString file = own.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : own;
    noted_.removeAll(file);
    noted_.prepend(file);
    writing_.start();
}

void RecentFiles::writeNoted()
{
    writing_.stop();
    if (noted_.isEmpty()) {
        return;
    }
    QStringList files = std::exchange(noted_, {});
    const QString last = files.constFirst();
    files << keptFiles(); // read only now: another desk may have written since
    files.removeDuplicates();
    keepFiles(files.mid(0, kMostFiles));
    keepFolderOf(last, kQuoteFolder);
}

void RecentFiles::fill()
{
    writeNoted();
    clear();
    const QStringList files = keptFiles();
    for (qsizetype at = 0; at < files.size(); ++at) {
        const QString& file = files[at];
        QAction* const action = addAction(
            QStringLiteral("&%1  %2").arg(at + 1).arg(captionOf(file, files).replace(u'&', QStringLiteral("&&"))), this,
            [this, file] { choose(file); });
        action->setStatusTip(shortened(folderText(file)));
    }
    if (files.isEmpty()) {
        addAction(tr("No Quotes Yet"))->setEnabled(false);
    }
    addSeparator();
    addAction(tr("&Clear This List"), this, [] { keepFiles({}); })->setEnabled(!files.isEmpty());
}

/// Whether a file is there is asked only now: a drive that is not connected could hold up the menu for seconds.
void RecentFiles::choose(const QString& path)
{
    if (QFileInfo::exists(path)) {
        open_(path);
        return;
    }
    PlainBox box(
        QMessageBox::Warning,
        tr("“%1” is not in %2 any more, or its drive is not connected.").arg(shortFileName(path), folderText(path)),
        QMessageBox::NoButton, parentWidget());
    const QPushButton* const remove = box.addButton(tr("&Remove from the List"), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(tr("&Keep"), QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == remove) {
        QStringList files = keptFiles();
        files.removeAll(path);
        keepFiles(files);
    }
}

bool isSameFile(const QString& one, const QString& other)
{
    const QString file = QFileInfo(one).canonicalFilePath();
    return !file.isEmpty() && file == QFileInfo(other).canonicalFilePath();
}

QString lastFolder(std::string_view purpose)
{
    const QString kept = keptText(purpose);
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return !kept.isEmpty() && QFileInfo(kept).isDir() ? kept
           : QFileInfo(documents).isDir()             ? documents
                                                      : QDir::homePath();
}

void keepFolderOf(const QString& file, std::string_view purpose)
{
    keepText(purpose, QFileInfo(file).absolutePath());
}

} // namespace orvan::desk
