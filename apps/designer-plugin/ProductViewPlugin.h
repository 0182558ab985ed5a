// ProductViewPlugin: offers ProductViewWidget in Qt Designer, and to programs that load forms by QUiLoader.
//
// Designer calls initialize() before anything else. QUiLoader never calls it. So the object knows which of the two it
// serves: in Designer the widget shows a sample list and keeps the choice of columns in memory; in a program it is
// empty and belongs to the program's own host (orvan/hosting/QtHost.h).
//
// Ownership: the caller of createWidget owns the widget. Thread: the user-interface thread. Errors: createWidget
// returns null where the widget cannot be made, because an exception must not leave a plug-in.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QObject>

#include <memory>

namespace orvan::designer {

class ProductViewPlugin final : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ProductViewPlugin(QObject* parent = nullptr);
    ~ProductViewPlugin() override;

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    /// The form's text for a new widget: its size, and its properties as Designer lists them.
    QString domXml() const override;
    bool isContainer() const override { return false; }
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override { return designing_ != nullptr; }
    void initialize(QDesignerFormEditorInterface* editor) override;

private:
    struct Designing;
    std::unique_ptr<Designing> designing_; ///< Null in a program.
};

} // namespace orvan::designer
