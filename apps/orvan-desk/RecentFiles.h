// RecentFiles: the menu of the quotes that this user has opened or saved last, and the folder of the last one.
//
// The list is kept in the settings and read again each time the menu opens, because other desks add to it, too. A file
// stands in it once, by its own path, whatever links lead to it. Samples are not in it. What is noted is written a
// moment later, or when the menu opens or ends before that: writing settings waits for the disk, and a desk that has
// just opened a quote shows it first. Thread: the user-interface thread. Errors: none is raised.
#pragma once

#include <QMenu>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace orvan::desk {

class RecentFiles : public QMenu {
    Q_OBJECT

public:
    /// `open` is called with the path of the quote that the user chooses.
    RecentFiles(QWidget* window, std::function<void(const QString& path)> open);
    ~RecentFiles() override;

    /// Puts a quote that has been opened or saved first in the list.
    void note(const QString& path);

private:
    void writeNoted();
    void fill();
    void choose(const QString& path);

    const std::function<void(const QString& path)> open_;
    QStringList noted_; ///< Not written yet, the last one first.
    QTimer writing_;
};

/// Whether two paths lead to the same file. False if either leads nowhere.
[[nodiscard]] bool isSameFile(const QString& one, const QString& other);

/// Where a file dialog begins: the folder that was used last for this purpose, or the user's documents.
inline constexpr std::string_view kQuoteFolder = "QuoteFolder", kPriceListFolder = "PriceListFolder",
                                  kLinesFolder = "LinesFolder";
[[nodiscard]] QString lastFolder(std::string_view purpose);
void keepFolderOf(const QString& file, std::string_view purpose);

} // namespace orvan::desk
