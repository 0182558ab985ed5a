// OpenQuote: the file of the quote that the desk shows.
//
// It knows what was read or saved last, so that the desk can tell what is unsaved and whether another program has
// changed the file meanwhile, and it keeps the lock that tells other desks that the quote is open here.
// Thread: the user-interface thread.
#pragma once

#include "QuoteFile.h"

#include "orvan/files/EditLock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

class QWidget;

namespace orvan::desk {

class OpenQuote {
    Q_DECLARE_TR_FUNCTIONS(OpenQuote)

public:
    /// Empty for a quote that has no file yet.
    [[nodiscard]] const QString& path() const { return path_; }
    /// As last shown or saved: what differs from it is unsaved.
    [[nodiscard]] const Quote& saved() const { return saved_; }

    /// A quote without a file.
    void setNew(const Quote& quote);
    /// A quote that has just been read from a file, with the lock that was taken before.
    void setRead(const QString& path, const QuoteOnDisk& onDisk, files::EditLock lock);
    /// Other desks may have the quote from now on.
    void unlock() { lock_ = {}; }
    /// What the list view gives back is what counts as saved: it may write a list in another way than the file.
    void setShown(const Quote& quote) { saved_ = quote; }

    /// Asks the user where the file was changed or deleted by somebody else, or is open elsewhere, and saves. Raises
    /// QuoteFileError. Returns what became of it.
    enum class Saving { saved, saveElsewhere, cancelled };
    [[nodiscard]] Saving save(const QString& path, const Quote& quote, QWidget* window, QString& warning);

private:
    [[nodiscard]] Saving askAboutTheDisk(const QString& path, QWidget* window) const;

    QString path_;
    Quote saved_;
    files::FileStamp stamp_;
    files::EditLock lock_;
};

enum class OpeningChoice { open, openAnyway, openToRead, cancel };

/// Asks how a quote is to be opened that another desk has open.
[[nodiscard]] OpeningChoice askAboutHolder(const QString& path, const files::LockHolder& holder, QWidget* window);

/// The time of day; with the date where it is not today's.
[[nodiscard]] QString timeText(const QDateTime& time);

/// "anna on pc7 since 10:42"
[[nodiscard]] QString describe(const files::LockHolder& holder);

} // namespace orvan::desk
