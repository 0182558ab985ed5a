#include "orvan/components/trace/TraceLog.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/trace/TraceFile.h"
#include "orvan/core/KeptError.h"
#include "orvan/core/modInit.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>
#include <utility>

namespace orvan {

namespace {

constexpr std::size_t kMostCharacters = 2000; // a longer text is cut when it is written into a line

/// The procedures of a thread that have been entered and not left. See the head of TraceLog.h.
class OpenProcedures {
public:
    std::size_t depth() const noexcept { return depth_; }

    /// Returns the depth of the procedure that is entered.
    std::size_t enter(std::string_view label)
    {
        const std::size_t at = depth_ == labels_.size() ? 0 : depth_;
        labels_[at] = label; // reuses the element's memory, so that nothing is allocated after the first few calls
        depth_ = at + 1;
        known_ = depth_;
        return at;
    }

    void exit(std::string_view label)
    {
        // The open procedures are searched first. If an error has closed the inner of two procedures with the same
        // label, this exit is the outer one's, and searching the closed ones first would leave the outer open for good.
        for (std::size_t at = depth_; at > 0; --at) {
            if (labels_[at - 1] == label) {
                depth_ = at - 1;
                known_ = depth_;
                return;
            }
        }
        for (std::size_t at = depth_; at < known_; ++at) {
            if (labels_[at] == label) { // this procedure went on after its error, so the ones around it never ended
                depth_ = at;
                known_ = at;
                return;
            }
        }
    }

    void fail() noexcept
    {
        if (depth_ > 0) {
            --depth_;
        }
    }

private:
    std::array<std::string, 64> labels_;
    std::size_t depth_ = 0;
    std::size_t known_ = 0; // the procedures from depth_ up to here were closed by errors, and none was entered since
};

void appendOnOneLine(std::string& line, std::string_view text)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    const std::string_view shown =
        text.size() <= kMostCharacters ? text : firstCharacters(text, kMostCharacters); // bytes >= characters
    const auto isControl = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    };
    if (std::none_of(shown.begin(), shown.end(), isControl)) { // every label, so that it is copied as a whole
        line += shown;
    } else {
        for (const char c : shown) {
            if (isControl(c)) {
                const auto byte = static_cast<unsigned char>(c);
                line += {'\\', 'x', kHex[byte >> 4], kHex[byte & 0xF]};
            } else {
                line += c;
            }
        }
    }
    if (shown.size() < text.size()) {
        line += "...";
    }
}

class TraceLog final : public Trace {
public:
    TraceLog(std::shared_ptr<TraceFile> file, ui::MessageBox& messageBox)
        : file_(std::move(file)), messageBox_(messageBox)
    {
    }

    std::int32_t LastErrorNumber() override { return last_.error() ? last_.error()->number() : 0; }
    std::int32_t AppErrorNumber() override { return kAppErrorNumber; }
    void TraceError(std::string_view sText) override;
    void TraceEnter(std::string_view label) override;
    void TraceExit(std::string_view label) override;
    void ShowLastError(std::int32_t hWnd) override;

private:
    void beginLine(std::string_view kind, std::size_t depth);
    void appendLastError();

    std::shared_ptr<TraceFile> file_;
    ui::MessageBox& messageBox_;
    OpenProcedures open_;
    KeptError last_;   // of two calls of TraceError in a row, the second one may be about the same error
    std::string line_; // a member, so that its capacity is reused and a call allocates nothing
};

void TraceLog::TraceEnter(std::string_view label)
{
    last_.goOn();
    beginLine("enter ", open_.enter(label));
    appendOnOneLine(line_, label);
    file_->write(line_, false);
}

void TraceLog::TraceExit(std::string_view label)
{
    last_.goOn();
    open_.exit(label);
    beginLine("exit  ", open_.depth());
    appendOnOneLine(line_, label);
    file_->write(line_, open_.depth() == 0);
}

void TraceLog::TraceError(std::string_view sText)
{
    if (std::current_exception()) {
        last_.note(currentError());
        last_.passOn();
    } else {
        last_.forget(); // no exception is being handled, so there is no error to record
    }
    open_.fail();
    beginLine("error ", open_.depth());
    appendLastError();
    if (!sText.empty()) {
        line_ += ' ';
        appendOnOneLine(line_, sText);
    }
    file_->write(line_, true);
}

void TraceLog::ShowLastError(std::int32_t hWnd)
{
    last_.goOn();
    beginLine("show  ", open_.depth());
    appendLastError();
    file_->write(line_, true);
    if (const auto& error = last_.error()) {
        messageBox_.show({.text = userText("Error %1: %2", error->number(), error->userText()),
                          .buttons = ui::MessageButtons::ok,
                          .icon = ui::MessageIcon::exclamation,
                          .ownerWindow = hWnd});
    }
}

void TraceLog::beginLine(std::string_view kind, std::size_t depth)
{
    line_.clear();
    if (depth < 10) {
        line_ += ' ';
    }
    line_ += std::to_string(depth);
    line_.append(1 + 2 * depth, ' ');
    line_ += kind;
}

void TraceLog::appendLastError()
{
    const auto& error = last_.error();
    if (!error) {
        line_ += "none";
        return;
    }
    line_ += std::to_string(error->number());
    line_ += ' ';
    appendOnOneLine(line_, error->text());
    if (!error->source().empty()) {
        line_ += " [";
        appendOnOneLine(line_, error->source());
        line_ += ']';
    }
}

} // namespace

std::function<std::shared_ptr<ui::Component>()> traceLogFactory(TraceLogOptions options, ui::MessageBox& messageBox)
{
    return [file = TraceFile::forFile(std::move(options)), &messageBox]() -> std::shared_ptr<ui::Component> {
        return std::make_shared<TraceLog>(file, messageBox);
    };
}

} // namespace orvan
