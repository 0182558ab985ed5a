#include "orvan/replay/Replay.h"

#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/core/modInit.h"
#include "orvan/hosting/ComponentRegistry.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace orvan::replay {

namespace {

using recording::CallLine;
using recording::ClosedLine;
using recording::DoneLine;
using recording::EventLine;
using recording::FormLine;
using recording::Line;
using recording::MeasureLine;
using recording::Outcome;
using recording::ReturnsLine;
using recording::TraceLine;
using End = ReplayResult::End;

/// A thread makes its trace object once; where the replay is the first in its thread to use the library, it is this
/// one.
class NoTrace final : public Trace {
public:
    std::int32_t LastErrorNumber() override { return 0; }
    void TraceError(std::string_view /*sText*/) override {}
    void TraceEnter(std::string_view /*label*/) override {}
    void TraceExit(std::string_view /*label*/) override {}
    std::int32_t AppErrorNumber() override { return 0; }
    void ShowLastError(std::int32_t /*hWnd*/) override {}
};

std::string textOf(const Line* line)
{
    return line ? recording::lineText(*line) : "(the end of the recording)";
}

Outcome gave(std::string_view text)
{
    return {.what = Outcome::What::values, .values = {std::string(text)}};
}

} // namespace

/// Makes the components of the recording.
class Replay::Components final : public ui::ComponentFactory {
public:
    Components(const recording::Heading& heading, Replay& replay) : replay_(replay), lists(registry_)
    {
        if (heading.ownManager) {
            registry_.registerClass(std::string(kProductMgrClassName),
                                    productMgrFactory({.maxDataSize = heading.maxDataSize}));
        } else {
            registry_.registerClass(std::string(kProductMgrClassName), [&replay]() -> std::shared_ptr<ui::Component> {
                return outside::watched(std::shared_ptr<ProductMgr>(), replay);
            });
        }
        registry_.registerClass(std::string(kTraceClassName), [] { return std::make_shared<NoTrace>(); });
    }

    std::shared_ptr<ui::Component> create(std::string_view className) override
    {
        if (className == kProductMgrClassName && replay_.options_.fail) {
            // The library's own manager is not in the recording call by call, but its calls can fail.
            return outside::watched(std::dynamic_pointer_cast<ProductMgr>(lists.create(className)), replay_.failing_);
        }
        if (className != kProductLkpMgrClassName) {
            return lists.create(className);
        }
        return replay_.options_.liveCatalogue ? replay_.options_.liveCatalogue()
                                              : outside::watched(std::shared_ptr<ProductLkpMgr>(), replay_);
    }

private:
    Replay& replay_;
    ComponentRegistry registry_;

public:
    recording::OwnLists lists;
};

class Replay::Site final : public ui::ContainerSite {
public:
    std::string typeName;

    std::string parentTypeName() override { return typeName; }
    std::int32_t parentWindow() override { return 0; }
    void propertyChanged(std::string_view /*property*/) override {}
};

struct Replay::View {
    View(Stage& stage) : surface(stage.makeView()), hosted(stage.platform(), *surface, site) {}

    Site site;
    std::unique_ptr<ui::Surface> surface;
    HostedView hosted;
};

Replay::Replay(const RecordedLines& lines, Stage& stage, ReplayOptions options)
    : lines_(lines), stage_(stage), options_(std::move(options)),
      components_(std::make_unique<Components>(lines.heading(), *this))
{
    if (options_.fail) {
        failing_.fail(*options_.fail);
    }
    ui::Platform& platform = stage_.platform();
    platform.editing = lines.heading().careful ? ui::EditingWay::careful : ui::EditingWay::classic;
    const outside::WatchedPlatform::Own own{.components = *components_,
                                            .messageBox = platform.messageBox(),
                                            .locale = platform.locale(),
                                            .unwatchedClass = "*"};
    watched_ = std::make_unique<outside::WatchedPlatform>(platform, own, *this);
    testkit::OutsideCalls unheard;
    outside::WatchedPlatform beginning(platform, own, unheard); // making the trace object is no part of a recording
    enterLibrary(beginning);
    platform.tap = std::shared_ptr<EventTap>(std::shared_ptr<void>(), this); // which outlives its stay there
    formerTrace_ = exchangeTrace(outside::watched(std::shared_ptr<Trace>(), *this));
}

Replay::~Replay()
{
    exchangeTrace(formerTrace_);
    stage_.platform().tap = nullptr;
}

ReplayResult Replay::run()
{
    playEvents();
    if (!over() && next()) {
        stopAt(End::different, "(nothing)");
    }
    if (!over()) {
        result_.line = lines_.size() == 0 ? 1 : lines_.number(lines_.size() - 1);
    }
    ReplayResult result = result_;
    options_.onLine = nullptr;
    stopAt(End::stopped, {}); // what is destroyed now is not compared
    views_.clear();
    return result;
}

void Replay::stopAt(End end, std::string replayed)
{
    if (!over()) {
        result_.end = end;
        result_.line = next() ? lines_.number(at_) : lines_.size() == 0 ? 1 : lines_.number(lines_.size() - 1) + 1;
        result_.recorded = textOf(next());
        result_.replayed = std::move(replayed);
    }
}

void Replay::advance()
{
    ++at_;
    while (!over()) {
        if (options_.untilLine > 0 && next() && lines_.number(at_) >= options_.untilLine) {
            stopAt(End::stopped, {});
        }
        const auto* const event = nextAs<EventLine>();
        if (!event || !event->nested) {
            return;
        }
        play(*event);
    }
}

void Replay::expect(const Line& line)
{
    tell(line);
    if (over()) {
        return;
    }
    if (!isExpected(line)) {
        stopAt(End::different, recording::lineText(line));
        return;
    }
    if (const auto* trace = std::get_if<TraceLine>(&line)) {
        noteTrace(*trace);
    }
    advance();
}

void Replay::tell(const Line& line) const
{
    if (options_.onLine) {
        options_.onLine(line);
    }
}

/// Whether the next line of the recording is this one.
bool Replay::isExpected(const Line& line) const
{
    if (!next() || next()->index() != line.index()) {
        return false;
    }
    if (!options_.namesOnly) {
        return recording::lineText(*next()) == recording::lineText(line);
    }
    if (const auto* const trace = std::get_if<TraceLine>(&line)) {
        const auto& recorded = std::get<TraceLine>(*next());
        return recorded.what == trace->what && recorded.number == trace->number &&
               (trace->what == TraceLine::What::error || recorded.text == trace->text);
    }
    if (const auto* const call = std::get_if<CallLine>(&line)) {
        return std::get<CallLine>(*next()).name == call->name;
    }
    if (const auto* const returns = std::get_if<ReturnsLine>(&line)) {
        return std::get<ReturnsLine>(*next()).outcome.what == returns->outcome.what;
    }
    return true;
}

void Replay::noteTrace(const TraceLine& line)
{
    auto& open = result_.open;
    if (line.what == TraceLine::What::enter) {
        open.push_back(line.text);
    } else if (line.what == TraceLine::What::exit) {
        const auto found = std::find(open.rbegin(), open.rend(), line.text);
        open.erase(found == open.rend() ? open.end() : std::prev(found.base()), open.end());
    } else {
        if (options_.untilError != 0 && line.number == options_.untilError) {
            stopAt(End::stopped, {});
        } else if (!open.empty()) {
            open.pop_back();
        }
    }
}

void Replay::playEvents()
{
    while (!over()) {
        const auto* const event = nextAs<EventLine>();
        if (!event) {
            return;
        }
        play(*event);
        if (!over() && next() && !std::holds_alternative<EventLine>(*next()) &&
            !std::holds_alternative<DoneLine>(*next()) && !std::holds_alternative<ClosedLine>(*next())) {
            stopAt(End::different, "(nothing)");
        }
    }
}

void Replay::play(const EventLine& line)
{
    if (playing_.size() == kMostNested) {
        stopAt(End::different, "the events stand too deep in each other");
        return;
    }
    struct Playing {
        Playing(std::vector<int>& playing, int surface) : all(playing) { all.push_back(surface); }
        ~Playing() { all.pop_back(); }
        std::vector<int>& all;
    } const playing(playing_, line.surface);
    playWithin(line);
}

void Replay::playWithin(const EventLine& line)
{
    const EventLine event = line;
    ++result_.events;
    tell(event);
    advance();
    if (over()) {
        return;
    }
    try {
        if (event.event.kind >= ui::EventKind::created) {
            playHosts(event);
            return;
        }
        const auto form = forms_.find(event.surface);
        const auto view = views_.find(event.surface);
        ui::Surface* const surface = form != forms_.end()   ? form->second
                                     : view != views_.end() ? view->second->surface.get()
                                                            : nullptr;
        if (!surface) {
            stopAt(End::different, "there is no surface " + std::to_string(event.surface));
            return;
        }
        if (options_.beforeEvent) {
            options_.beforeEvent(event, *surface);
        }
        ui::Event played = event.event;
        played.control = event.control;
        surface->play(played);
    } catch (...) {
        stopAt(End::different, "the event cannot happen: " + std::string(currentError().text()));
    }
}

void Replay::playHosts(const EventLine& line)
{
    const ui::Event& event = line.event;
    const auto found = views_.find(line.surface);
    const bool created = event.kind == ui::EventKind::created;
    const bool atWork = std::count(playing_.begin(), playing_.end(), line.surface) > 1; // this event is among them
    if (created == (found != views_.end()) || (atWork && event.kind == ui::EventKind::destroyed)) {
        stopAt(End::different, "this cannot happen to list view " + std::to_string(line.surface) + " now");
        return;
    }
    if (created) {
        views_[line.surface] = std::make_unique<View>(stage_);
        return;
    }
    View& view = *found->second;
    try {
        switch (event.kind) {
        case ui::EventKind::placed:
            view.site.typeName = event.text;
            view.hosted.placed();
            break;
        case ui::EventKind::show: view.hosted.Show(event.text); break;
        case ui::EventKind::products:
            result_.products = view.hosted.Products();
            expect(ReturnsLine{gave(result_.products)});
            break;
        case ui::EventKind::total: expect(ReturnsLine{gave(std::to_string(view.hosted.TotalValue().scaled()))}); break;
        case ui::EventKind::readOnly: view.hosted.setReadOnly(event.first != 0); break;
        case ui::EventKind::refresh:
            // Only a list that the host has changed is loaded anew, because records belong to the list that they came
            // from.
            if (lines_.heading().ownManager && components_->lists.products() != event.text) {
                components_->lists.setProducts(event.text);
            }
            view.hosted.refresh();
            break;
        case ui::EventKind::run: {
            const auto* const row = std::find_if(kCommands.begin(), kCommands.end(),
                                                 [&](const CommandRow& each) { return each.id == event.text; });
            if (row == kCommands.end()) {
                throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, "no command \"" + event.text + "\"");
            }
            view.hosted.run(row->command);
            break;
        }
        case ui::EventKind::current: view.hosted.setCurrentProduct(event.first); break;
        case ui::EventKind::fitted: view.hosted.layOut(); break;
        case ui::EventKind::destroyed: views_.erase(found); break;
        default: break;
        }
    } catch (...) {
        expect(ReturnsLine{{.what = Outcome::What::error, .error = RuntimeError(currentError().number())}});
    }
}

std::int32_t Replay::measured(std::string_view what, std::int32_t value)
{
    const auto* const line = nextAs<MeasureLine>();
    if (over() || !line || line->what != what) {
        expect(MeasureLine{std::string(what), value});
        return value;
    }
    const MeasureLine recorded = *line;
    tell(recorded);
    advance();
    return recorded.value;
}

void Replay::waitForForm(const ui::Surface& form)
{
    const auto* const line = nextAs<FormLine>();
    const int number = line ? line->surface : 0;
    expect(FormLine{number == 0 ? static_cast<int>(views_.size() + forms_.size()) + 1 : number});
    shown_.push_back(number);
    // The library hands out its own form, which is not a constant one.
    auto* const shown = const_cast<ui::Form*>(dynamic_cast<const ui::Form*>(&form));
    forms_[number] = shown;
    stage_.whenShown(*shown, [this, shown] {
        playEvents();
        if (!over() && shown->loaded()) {
            stopAt(End::different, "(the form stays open)");
        }
        if (shown->loaded()) {
            shown->unload(ui::UnloadMode::session);
        }
    });
}

void Replay::formClosed() noexcept
{
    forms_.erase(shown_.back());
    shown_.pop_back();
    try {
        expect(ClosedLine());
    } catch (...) {
        stopAt(End::different, {});
    }
}

} // namespace orvan::replay
