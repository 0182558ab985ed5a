#include "orvan/hosting/HostedView.h"

#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/EventTap.h"
#include "orvan/ui/Surface.h"

#include <algorithm>

namespace orvan {

namespace {

using ui::EventKind;

ui::Platform& servicesOf(ui::Platform& platform)
{
    return platform.tap ? platform.tap->platform() : platform;
}

/// Runs the work, of which the host gets the result or the error.
template <class Work>
auto told(const ui::Surface& surface, const ui::Event& event, const Work& work)
{
    const ui::Tapped tapped(&surface, [&] { return event; });
    try {
        return work(tapped);
    } catch (...) {
        tapped.raised(currentError().number());
        throw;
    }
}

} // namespace

HostedView::HostedView(ui::Platform& platform, ui::Surface& surface, ui::ContainerSite& site)
    : tap_(platform.tap), surface_(surface), site_(site)
{
    told(surface_, {.kind = EventKind::created},
         [&](const auto& /*tapped*/) { view_.emplace(servicesOf(platform), surface_, site_); });
}

HostedView::~HostedView()
{
    const ui::Tapped tapped(&surface_, [] { return ui::Event{.kind = EventKind::destroyed}; });
    view_.reset();
}

void HostedView::Show(std::string_view sProducts)
{
    const bool heard = surface_.platform().tap != nullptr; // a long list is not copied for nobody
    told(surface_, {.kind = EventKind::show, .text = std::string(heard ? sProducts : std::string_view())},
         [&](const auto& /*tapped*/) { view_->Show(sProducts); });
}

std::string HostedView::Products()
{
    return told(surface_, {.kind = EventKind::products}, [&](const auto& tapped) {
        std::string products = view_->Products();
        tapped.returned(products);
        return products;
    });
}

Currency HostedView::TotalValue()
{
    return told(surface_, {.kind = EventKind::total}, [&](const auto& tapped) {
        const Currency total = view_->TotalValue();
        tapped.returned(std::to_string(total.scaled()));
        return total;
    });
}

void HostedView::setReadOnly(bool readOnly)
{
    told(surface_, {.kind = EventKind::readOnly, .first = readOnly ? 1 : 0},
         [&](const auto& /*tapped*/) { view_->setReadOnly(readOnly); });
}

void HostedView::run(Command command)
{
    told(surface_, {.kind = EventKind::run, .text = std::string(rowOf(command).id)},
         [&](const auto& /*tapped*/) { view_->run(command); });
}

void HostedView::setCurrentProduct(std::int32_t position)
{
    told(surface_, {.kind = EventKind::current, .first = position},
         [&](const auto& /*tapped*/) { view_->setCurrentProduct(position); });
}

void HostedView::refresh()
{
    told(surface_, {.kind = EventKind::refresh}, [&](const auto& /*tapped*/) { view_->refresh(); });
}

void HostedView::placed()
{
    const bool heard = surface_.platform().tap != nullptr;
    told(surface_, {.kind = EventKind::placed, .text = heard ? site_.parentTypeName() : std::string()},
         [&](const auto& /*tapped*/) { view_->UserControl_ReadProperties(); });
}

void HostedView::layOut()
{
    // Controls may need another size because of what the view shows, while it shows it; in memory they never do.
    const ui::Tapped tapped(
        &surface_, [] { return ui::Event{.kind = EventKind::fitted}; }, ui::Tapped::Consequences::told);
    runHandler(surface_.onResize);
}

} // namespace orvan
