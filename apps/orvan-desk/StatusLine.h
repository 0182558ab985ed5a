// StatusLine: what the desk's status bar always shows: how many products the quote has and how many of them lack a
// price or a name, since when it is unsaved, and the catalogue with its age.
//
// The products are counted some time after the last change, because a long list takes time to read, and without a word
// in the trace (WatchedProducts.h). The texts have the user's number and date formats. Where the window is too narrow,
// the line is cut at its end, and the tool tip shows the whole line. A message in the status bar gets the space that it
// needs.
// Thread: the user-interface thread. Errors: none is raised.
#pragma once

#include "WatchedProducts.h"

#include "orvan/components/catalogue/CatalogueFactory.h"

#include <QDateTime>
#include <QLabel>
#include <QTimer>

#include <optional>
#include <tuple>

class QStatusBar;

namespace orvan::desk {

/// "12 days ago", "today"; a date for what is older than some weeks.
[[nodiscard]] QString ageText(const QDateTime& time, const QDateTime& now);

/// "“prices.csv”: 312 entries, imported 3 days ago"
[[nodiscard]] QString catalogueText(const QString& file, const QDateTime& now);

/// What a user who has saved should know: "Saved. 2 without price (#3, #7)."
[[nodiscard]] QString savedText(const ProductCounts& counts);

class StatusLine : public QLabel {
    Q_OBJECT

public:
    explicit StatusLine(QStatusBar& bar);

    /// The catalogue's file; empty where a server has the catalogue, and setCopy() says how its copy stands.
    void setCatalogue(const QString& file);
    void setCopy(const CatalogueCopyState& state);
    /// To be called when another quote is shown, before its first change is noticed.
    void startAnew() { unsavedSince_.reset(); }
    /// To be called when the quote that is shown has been unsaved for longer than it has been shown.
    void setUnsavedSince(const QDateTime& time);
    /// Empty where nothing is unsaved.
    [[nodiscard]] const std::optional<QDateTime>& unsavedSince() const { return unsavedSince_; }
    /// To be called when the quote may have changed.
    void notice(bool unsaved);
    /// Says what the quote that has just been saved lacks.
    void tellSaved();
    /// Reads the products and the catalogue now.
    void lookAgain();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showParts();
    void fit();
    [[nodiscard]] const QString& presentCatalogue();

    QStatusBar& bar_;
    QTimer timer_; ///< Runs from the last change to the counting.
    ProductCounts counts_;
    std::optional<QDateTime> unsavedSince_;
    QString catalogue_;
    QString catalogueText_;
    std::tuple<QDateTime, qint64, QDate> catalogueKey_; ///< Of the catalogue that the text is about.
    QString copyText_;                                  ///< In place of the catalogue's.
    QStringList quoteParts_;                            ///< About the quote, the most important one first.
    QStringList parts_;                                 ///< Those and that about the catalogue.
};

} // namespace orvan::desk
