// ProductViewWidget: the list view as a QWidget that any Qt program can place.
//
//     QApplication application(argc, argv);
//     orvan::ProductViewWidget view;
//     view.Show(products);
//     view.show();
//
// `Show` loads products, `show` makes the widget visible. Nothing is signalled: read Dirty, Products
// and TotalValue when they are needed. Thread: the user-interface thread, after QApplication.
// Errors: the constructor, Show, Products and TotalValue raise RuntimeError (orvan/base/RuntimeError.h).
#pragma once

#ifndef Q_MOC_RUN // the meta-object compiler cannot read the standard library's concepts
#include "orvan/base/Currency.h"
#endif

#include <QWidget>

#include <memory>
#include <string>
#include <string_view>

namespace orvan {

namespace qt {
class QtPlatform;
}

class ProductViewWidget : public QWidget {
    Q_OBJECT

public:
    /// On the application's own host (orvan/hosting/QtHost.h).
    explicit ProductViewWidget(QWidget* parent = nullptr);
    /// On a platform of the host's, which must outlive the widget. Errors of the user's commands are
    /// shown by the trace component; the library's own shows them where a ThreadMessages or a Host
    /// (orvan/hosting/ThreadMessages.h, orvan/hosting/Host.h) of the thread says.
    explicit ProductViewWidget(qt::QtPlatform& platform, QWidget* parent = nullptr);
    ~ProductViewWidget() override;

    /// The user's column choice is kept under this name, read when the widget is first shown. By
    /// default the class name of the window the widget then stands in. Later calls have no effect.
    void setHostTypeName(const QString& name);

    /// Loads the products (UTF-8) and fills the grid; the dirty flag stays as it is.
    void Show(std::string_view sProducts);
    std::string Products() const;
    Currency TotalValue() const;
    /// Whether the user changed anything since the widget was made.
    bool Dirty() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    class Site;
    std::unique_ptr<Site> site_;
};

} // namespace orvan
