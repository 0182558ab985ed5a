#include "orvan/ui/qt/FormReserve.h"

#include "orvan/ui/LocaleSeparators.h"
#include "orvan/ui/Platform.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <chrono>
#include <utility>
#include <vector>

namespace orvan::qt {

namespace {

/// After a form has been released, so long is left for what the user sees then, such as the list that is painted anew.
constexpr std::chrono::milliseconds kPause(100);

/// All reserves. A platform may live longer than QApplication, but a widget must not. The list itself is never
/// destroyed, because a platform may be a static object that is destroyed later than this source's own.
std::vector<FormReserve*>& reserves()
{
    static auto* const all = new std::vector<FormReserve*>;
    return *all;
}

} // namespace

FormReserve::FormReserve(ui::Platform& platform) : platform_(platform)
{
    idle_.setSingleShot(true);
    idle_.setInterval(kPause);
    idle_.callOnTimeout([this] { prepare(); });
    if (reserves().empty()) {
        qAddPostRoutine(giveUpAll); // runs while QApplication is being destroyed
    }
    reserves().push_back(this);
}

FormReserve::~FormReserve()
{
    std::erase(reserves(), this);
    if (reserves().empty()) {
        qRemovePostRoutine(giveUpAll);
    }
}

void FormReserve::giveUpAll()
{
    for (FormReserve* const reserve : reserves()) {
        reserve->giveUp();
    }
}

void FormReserve::giveUp()
{
    idle_.stop();
    ready_.reset();
}

std::unique_ptr<QtForm> FormReserve::load(const ui::FormDesign& design, QWidget* owner)
{
    std::unique_ptr<QtForm> form = takeReady(design, owner);
    if (!form) {
        form = std::make_unique<QtForm>(design, platform_, owner);
    }
    if (design.openedAgain) {
        form->onReleased = [this, &design] {
            design_ = &design;
            idle_.start();
        };
    }
    return form;
}

std::unique_ptr<QtForm> FormReserve::takeReady(const ui::FormDesign& design, QWidget* owner)
{
    // A recording, or its replay, has to hear of each event of a form, those while it is made among them.
    if (!ready_ || &ready_->design() != &design || platform_.tap) {
        return nullptr;
    }
    std::unique_ptr<QtForm> form = std::exchange(ready_, nullptr);
    QCoreApplication::sendPostedEvents(form->widget(), QEvent::LanguageChange);
    if (!form->widget() || outdated_ || madeFor_ != circumstances(owner)) {
        return nullptr;
    }
    for (QWidget* const widget : form->widget()->findChildren<QWidget*>()) {
        widget->removeEventFilter(this);
    }
    form->widget()->removeEventFilter(this);
    form->setOwner(owner);
    return form;
}

FormReserve::Circumstances FormReserve::circumstances(QWidget* owner) const
{
    const QScreen* const screen = screenOfForm(owner);
    return {.screen = screen,
            .available = screen->availableSize(),
            .pixelRatio = screen->devicePixelRatio(),
            .keypadDecimals = keypadDecimal(platform_.locale(), ui::TextUse::number) +
                              keypadDecimal(platform_.locale(), ui::TextUse::money),
            .font = QApplication::font()}; // widgets that were never shown do not hear of it
}

void FormReserve::prepare()
{
    if (ready_ || platform_.tap || QApplication::activeModalWidget()) {
        return; // after the modal window there may be another occasion
    }
    try {
        madeFor_ = circumstances(nullptr);
        ready_ = std::make_unique<QtForm>(*design_, platform_, nullptr);
        ready_->prepareToShow();
        outdated_ = false;
        ready_->widget()->installEventFilter(this);
        for (QWidget* const widget : ready_->widget()->findChildren<QWidget*>()) {
            widget->installEventFilter(this); // a font may be set for one class of widgets
        }
    } catch (...) {
        ready_.reset(); // the user has asked for nothing; where the form is asked for, the error comes again
    }
}

bool FormReserve::eventFilter(QObject* /*watched*/, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::LanguageChange:
    case QEvent::LayoutDirectionChange:
    case QEvent::LocaleChange:
    case QEvent::PaletteChange:
    case QEvent::ScreenChangeInternal:
    case QEvent::StyleChange: outdated_ = true; break;
    default: break;
    }
    return false;
}

} // namespace orvan::qt
