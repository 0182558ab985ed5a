// ProductViewWidget: the list view as a QWidget that any Qt program can place.
//
//     QApplication application(argc, argv);
//     orvan::ProductViewWidget view;
//     view.load(products);
//     view.show();
//
// `load` shows products, `show` makes the widget visible. The signals come from the event loop, after the procedure
// that caused them has ended, so a slot may do anything, also destroy the widget. Several changes in one procedure give
// one signal. Thread: the user-interface thread, once there is a QApplication.
//
// Errors: the constructor, Show, Products and TotalValue raise RuntimeError (orvan/base/RuntimeError.h). Qt ends the
// program when an exception leaves a slot, so a slot calls `load`, `products` and `total` instead. They do the same as
// Show, Products and TotalValue, but raise nothing: after an error, `load` returns false, and `products` and `total`
// return an empty optional. Each can say the reason:
//
//     QString reason;
//     if (!view.load(products, &reason)) {
//         QMessageBox::warning(&view, tr("Quote"), reason);
//     }
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "orvan/base/Currency.h"
#include "orvan/core/Command.h"
#include "orvan/qt_export.h"
#endif

#include <QString>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class QAction;

namespace orvan {

enum class Command : std::uint8_t;

namespace qt {
class QtPlatform;
}

class ORVAN_QT_EXPORT ProductViewWidget : public QWidget {
    Q_OBJECT
    /// As set by setHostTypeName; empty at first.
    Q_PROPERTY(QString hostTypeName READ hostTypeName WRITE setHostTypeName NOTIFY hostTypeNameChanged)
    // What a form in Qt Designer cannot set is not designable.
    Q_PROPERTY(bool dirty READ Dirty NOTIFY dirtyChanged DESIGNABLE false STORED false)
    /// The total as the list shows it, with the user's money format. The amount itself is that of total().
    Q_PROPERTY(QString total READ totalText NOTIFY totalChanged DESIGNABLE false STORED false)
    /// Counts from 1, as the positions of a product manager do; 0 if there is no current row.
    Q_PROPERTY(int currentRow READ currentProduct WRITE setCurrentProduct NOTIFY currentProductChanged
                   DESIGNABLE false STORED false)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly NOTIFY readOnlyChanged)

public:
    /// Makes the widget on the application's own host (orvan/hosting/QtHost.h).
    explicit ProductViewWidget(QWidget* parent = nullptr);
    /// Makes the widget on a platform that the caller owns and that must outlive the widget. Errors in the user's
    /// commands are shown by the trace component. The library's own trace component shows them in the message box of
    /// the thread's ThreadMessages (orvan/hosting/ThreadMessages.h); a Host (orvan/hosting/Host.h) contains one.
    explicit ProductViewWidget(qt::QtPlatform& platform, QWidget* parent = nullptr);
    ~ProductViewWidget() override;

    /// Sets the name under which the user's choice of columns is kept; by default it is the class name of the window
    /// that the widget is in. The choice is read when the widget is first shown; later calls have no effect.
    void setHostTypeName(const QString& name);
    QString hostTypeName() const;

    /// The same as Show, but never throws. A false result means that the products could not be loaded, and the view is
    /// then left as Show leaves it after an error; `reason`, if not null, gets a sentence that says why in the user's
    /// language, and is left alone otherwise. A text that holds half a character (a surrogate that stands alone) is
    /// refused, and the list stays.
    bool load(const QString& products, QString* reason = nullptr) noexcept;
    /// The same as Products. Nothing where that raises, and where the list has bytes that are not UTF-8, which a
    /// QString cannot hold.
    std::optional<QString> products(QString* reason = nullptr) const noexcept;
    /// The same as TotalValue; nothing where that raises.
    std::optional<Currency> total(QString* reason = nullptr) const noexcept;

    /// Loads the products (UTF-8) and fills the grid; the dirty flag stays as it is.
    void Show(std::string_view sProducts);
    std::string Products() const;
    Currency TotalValue() const;
    /// Whether the user changed anything since the widget was made.
    bool Dirty() const;

    /// The total as it is shown; empty until a list has been shown.
    QString totalText() const;

    /// Whether the user can only look at the list and copy from it; false at first. Adding, deleting, moving, dragging,
    /// cutting and pasting are then off, and the editor opens to read: Enter and a double click show a product in boxes
    /// that take no input. An editor that is open when this is switched goes on as it was opened, so that nobody's
    /// entry is lost; a question that is open then changes nothing any more. What the host does itself is not affected.
    bool isReadOnly() const;
    void setReadOnly(bool readOnly);

    /// Makes the list view anew, with the list, the current product and the switches that it has. A recording that is
    /// started while the list is shown (orvan/recording/Recording.h) has the list view from then on. Not to be called
    /// from within the list view, such as while its editor is open. Raises what Products and Show raise.
    void renew();
    /// Shows the list anew, after the host has changed it through the product manager itself.
    void refresh();
    /// The position of the product in the current row, from 1 on; 0 if there is none.
    int currentProduct() const;
    /// Makes the product's row the current one, as far as there is one: 0 and positions beyond the end are no errors.
    void setCurrentProduct(int position);

    /// What the user can do with the list, for menus and tool bars of the host. The action does the same as the
    /// command's key, is disabled while the command would do nothing, and shows the key; the key itself acts only while
    /// the list has the focus. The widget owns the action.
    QAction* action(Command command);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has changed the list. While the editor is open: what the user did there may have changed it.
    void changed();
    /// The total that is shown has changed, also by Show.
    void totalChanged();
    /// Another row has become the current one; `position` is its product's, from 1 on, or 0 if there is none.
    void currentProductChanged(int position);
    void editorOpened();
    void editorClosed();
    void hostTypeNameChanged(const QString& hostTypeName);
    /// Dirty has become true; it stays so.
    void dirtyChanged(bool dirty);
    void readOnlyChanged(bool readOnly);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    class Site;
    std::unique_ptr<Site> site_;
};

} // namespace orvan
