#include "benchmarks/Windows.h"

#include "benchmarks/Samples.h"
#include "benchmarks/TemporaryFiles.h"
#include "orvan/editor/ProductDlg.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

#include <exception>
#include <stdexcept>
#include <utility>

namespace orvan::bench {

namespace {

/// Answers Yes to every question, so that the editor saves.
class YesToAll final : public ui::MessageBox {
public:
    ui::MessageResult show(const ui::Message& /*message*/) override { return ui::MessageResult::yes; }
};

/// The host's platform, except that nobody has to answer message boxes and that the open form can be accessed.
class WatchedPlatform final : public ui::Platform {
public:
    ui::MessageBox& messageBox() override { return messageBox_; }
    ui::SettingsStore& settings() override { return qt().settings(); }
    ui::LocaleService& locale() override { return qt().locale(); }
    ui::ComponentFactory& components() override { return qt().components(); }
    ui::ScreenPointer& pointer() override { return qt().pointer(); }
    std::unique_ptr<ui::Form> loadForm(const ui::FormDesign& design, std::int32_t ownerWindow) override
    {
        auto loaded = qt().loadForm(design, ownerWindow);
        form = loaded.get();
        return loaded;
    }

    ui::Form* form = nullptr; ///< The form that was loaded last.

private:
    static qt::QtPlatform& qt() { return windowHost().platform(); }

    YesToAll messageBox_;
};

} // namespace

QtHost& windowHost()
{
    static QtHost host(hostOptions(), (temporaryFiles() / "settings").string());
    static const bool once = (registerSilentTrace(host.components()), true);
    static_cast<void>(once);
    return host;
}

void editInWindow(const std::shared_ptr<ProductMgr>& manager, const std::function<void(ui::Form&)>& act)
{
    WatchedPlatform platform;
    std::exception_ptr failure = std::make_exception_ptr(std::runtime_error("the editor did not open"));
    QTimer::singleShot(0, qApp, [&] { // an exception must not pass through the form's event loop
        try {
            act(*platform.form);
            failure = nullptr;
        } catch (...) {
            failure = std::current_exception();
        }
        platform.form->unload(ui::UnloadMode::closeBox);
    });
    ProductDlg(platform).Show(manager, 1);
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void pressKey(QWidget& box, int key, const QString& text)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&box, &event);
}

KeyedLine::KeyedLine(QLineEdit& line, const QString& text) : line_(line)
{
    line_.setFocus();
    line_.selectAll();
    if (text.isEmpty()) {
        pressKey(line_, Qt::Key_Backspace, QStringLiteral("\b"));
    }
    for (const QChar digit : text) {
        pressKey(line_, digit.unicode(), digit);
    }
}

void KeyedLine::press()
{
    if (std::exchange(typed_, !typed_)) {
        pressKey(line_, Qt::Key_Backspace, QStringLiteral("\b"));
    } else {
        pressKey(line_, Qt::Key_7, QStringLiteral("7"));
    }
}

} // namespace orvan::bench
