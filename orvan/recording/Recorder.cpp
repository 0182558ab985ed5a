#include "orvan/recording/Recorder.h"

#include "orvan/core/modInit.h"
#include "orvan/version.h"

#include <fcntl.h>

#include <utility>

namespace orvan::recording {

namespace {

Outcome gave(outside::CallValues values)
{
    return {.what = Outcome::What::values, .values = std::move(values)};
}

} // namespace

template <class Work>
void Recorder::record(const Work& work) noexcept
{
    try {
        work();
    } catch (...) {
        giveUp();
    }
}

std::shared_ptr<Recorder> Recorder::start(ui::Platform& platform, RecordingOptions options)
{
    enterLibrary(options.services ? *options.services
                                  : platform); // makes the thread's trace object, which is recorded, too
    return asRuntimeError([&] {
        std::shared_ptr<Recorder> recorder(new Recorder(platform, std::move(options)));
        platform.tap = recorder;
        if (auto own = exchangeTrace(nullptr)) {
            recorder->trace_ = own;
            exchangeTrace(outside::watched(std::move(own), *recorder));
        }
        return recorder;
    });
}

Recorder::Recorder(ui::Platform& platform, RecordingOptions options)
    : inner_(platform), options_(std::move(options)), services_(options_.services ? *options_.services : platform),
      lists_(services_.components()),
      watched_(services_,
               {options_.ownManager ? static_cast<ui::ComponentFactory&>(lists_) : services_.components(),
                services_.messageBox(), services_.locale(),
                options_.ownManager ? kProductMgrClassName : std::string_view()},
               *this),
      file_(files::Descriptor::open(options_.file, O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_NOFOLLOW, 0600))
{
    Heading heading{.libraryVersion = ORVAN_VERSION_TEXT,
                    .careful = services_.editing == ui::EditingWay::careful,
                    .ownManager = options_.ownManager};
    if (options_.ownManager) {
        heading.maxDataSize =
            ui::createComponent<ProductMgr>(services_.components(), kProductMgrClassName)->GetMaxDataSize();
    }
    buffer_ = headingText(heading) + "\n";
    flush();
}

Recorder::~Recorder()
{
    stop();
}

void Recorder::stop()
{
    if (std::exchange(running_, false)) {
        record([this] { flush(); });
    }
    if (trace_) {
        exchangeTrace(std::exchange(trace_, nullptr));
    }
    if (inner_.tap.get() == this) {
        inner_.tap = nullptr;
    }
}

void Recorder::begin(const ui::Surface& surface, const ui::Event& event)
{
    const bool nested = busy_++ > 0;
    if (!running_ || ignored_ > 0) {
        ignored_ += ignored_ > 0 ? 1 : 0;
        return;
    }
    if (event.kind == ui::EventKind::created) {
        surfaces_[&surface] = ++surfaceCount_;
    }
    const auto found = surfaces_.find(&surface);
    if (found == surfaces_.end()) {
        ignored_ = 1;
        return;
    }
    record([&] {
        const auto now = std::chrono::steady_clock::now();
        const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - last_).count();
        last_ = now;
        EventLine line{.milliseconds = passed, .nested = nested, .surface = found->second};
        line.control = event.control;
        line.event = event;
        line.event.control = {};
        if (event.kind == ui::EventKind::refresh && options_.ownManager) {
            line.event.text = lists_.products();
        }
        write(line);
        flush();
    });
    if (event.kind == ui::EventKind::destroyed) {
        surfaces_.erase(&surface);
    }
}

void Recorder::returned(std::string_view result)
{
    if (hears()) {
        record([&] { write(ReturnsLine{gave(outside::callValues(result))}); });
    }
}

void Recorder::raised(std::int32_t errorNumber) noexcept
{
    if (hears()) {
        record([&] { write(ReturnsLine{{.what = Outcome::What::error, .error = RuntimeError(errorNumber)}}); });
    }
}

void Recorder::end() noexcept
{
    --busy_;
    ignored_ -= ignored_ > 0 ? 1 : 0;
    if (running_ && busy_ == 0) {
        record([this] { flush(); });
    }
}

std::int32_t Recorder::measured(std::string_view what, std::int32_t value)
{
    if (hears() && busy_ > 0) {
        record([&] { write(MeasureLine{std::string(what), value}); });
    }
    return value;
}

void Recorder::waitForForm(const ui::Surface& form)
{
    if (hears()) {
        record([&] {
            surfaces_[&form] = ++surfaceCount_;
            write(FormLine{surfaceCount_});
        });
    }
    waits_.push_back({&form, std::exchange(busy_, 0)});
}

void Recorder::formClosed() noexcept
{
    busy_ = waits_.back().busy;
    surfaces_.erase(waits_.back().surface); // another form may come to stand at the same place
    waits_.pop_back();
    if (hears()) {
        record([this] { write(ClosedLine()); });
    }
}

bool Recorder::begin(std::string_view name, outside::CallArguments arguments, outside::CallValues& /*answer*/)
{
    OpenCall call{.line = {}, .busy = busy_};
    if (running_ && (hears() || outside::isQuestion(name))) {
        record([&] {
            call.line = {.name = std::string(name),
                         .arguments = outside::valuesOf(arguments),
                         .knowledge = outside::isQuestion(name)};
        });
    }
    calls_.push_back(std::move(call));
    busy_ = 0;
    return true;
}

void Recorder::end(const outside::CallValues& answer)
{
    endCall(gave(answer));
}

void Recorder::threw() noexcept
{
    if (running_) {
        record([this] { endCall({.what = Outcome::What::error, .error = currentError()}); });
    } else if (!calls_.empty()) {
        endCall({});
    }
}

void Recorder::endCall(Outcome outcome)
{
    if (calls_.empty()) {
        return; // the recording was started or stopped during the call
    }
    OpenCall call = std::move(calls_.back());
    calls_.pop_back();
    busy_ = call.busy;
    if (!running_ || ignored_ > 0 || call.line.name.empty()) {
        return;
    }
    record([&] {
        const bool failedCall = outcome.what == Outcome::What::error;
        if (call.written) {
            write(DoneLine{std::move(outcome)});
        } else if (call.line.knowledge) {
            CallLine question = call.line;
            call.line.outcome = std::move(outcome);
            std::string text = lineText(call.line);
            std::string& known = known_[lineText(question)];
            if (known != text) {
                known = std::move(text);
                write(call.line);
            }
        } else if (call.line.name == "trace.TraceEnter" && !failedCall) {
            write(TraceLine{TraceLine::What::enter, outside::partOf<std::string>(call.line.arguments)});
        } else if (call.line.name == "trace.TraceExit" && !failedCall) {
            write(TraceLine{TraceLine::What::exit, outside::partOf<std::string>(call.line.arguments)});
        } else if (call.line.name == "trace.TraceError" && !failedCall) {
            write(TraceLine{TraceLine::What::error, outside::partOf<std::string>(call.line.arguments, 1),
                            outside::partOf<std::int32_t>(call.line.arguments)});
        } else {
            call.line.outcome = std::move(outcome);
            write(call.line);
        }
    });
}

void Recorder::write(const Line& line)
{
    for (OpenCall& call : calls_) {
        if (!call.written && !call.line.name.empty() && !call.line.knowledge) {
            call.written = true;
            buffer_.append(lineText(call.line)).append("\n");
        }
    }
    buffer_.append(lineText(line)).append("\n");
    constexpr std::size_t kMostBuffered = std::size_t{1} << 16;
    if (buffer_.size() > kMostBuffered) {
        flush();
    }
}

void Recorder::flush()
{
    if (!buffer_.empty()) {
        file_.write(buffer_);
        buffer_.clear();
    }
}

void Recorder::giveUp() noexcept
{
    const RuntimeError error = currentError();
    running_ = false;
    try {
        if (options_.report) {
            options_.report(userText("The recording has ended, because \"%1\" cannot be written: %2.",
                                     options_.file.string(), error.userText()));
        }
    } catch (...) { // no memory for a text either
    }
}

} // namespace orvan::recording

namespace orvan {

void startRecording(ui::Platform& platform, RecordingOptions options)
{
    stopRecording(platform);
    static_cast<void>(recording::Recorder::start(platform, std::move(options)));
}

void stopRecording(ui::Platform& platform)
{
    if (const auto recorder = std::dynamic_pointer_cast<recording::Recorder>(platform.tap)) {
        recorder->stop();
    }
}

bool isRecording(const ui::Platform& platform)
{
    const auto recorder = std::dynamic_pointer_cast<recording::Recorder>(platform.tap);
    return recorder && recorder->running();
}

} // namespace orvan
