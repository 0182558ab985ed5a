#include "orvan/replay/Redaction.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/base/Text.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/core/ProductMgr.h"
#include "orvan/replay/Replay.h"
#include "orvan/ui/Grid.h"
#include "orvan/ui/TextEntry.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <set>
#include <utility>

namespace orvan::replay {

namespace {

using recording::CallLine;
using recording::DoneLine;
using recording::EventLine;
using recording::Line;
using recording::ReturnsLine;

/// Boxes of texts; the editor's other boxes are for amounts.
constexpr std::array kTextBoxes = {std::string_view("cboPartNum"), std::string_view("cboProductName"),
                                   std::string_view("txtNote")};
/// The column of a catalogue that has amounts, also where it has them as a text.
constexpr auto kPriceColumn = static_cast<std::int64_t>(LookUpColumn::unitPrice);

/// Replaces the texts of a recording's inputs. Is told of each event before it is played, because the text of a box is
/// masked as a whole.
class Masker {
public:
    Masker(const RecordedLines& lines, const TextMask& mask) : lines_(lines), mask_(mask) {}

    /// The texts that were replaced.
    const std::set<std::string>& texts() const { return texts_; }

    void beforeEvent(const EventLine& line, const ui::Surface& surface)
    {
        EventLine masked = line;
        if (line.event.kind == ui::EventKind::typed && isTextBox(line.control)) {
            const std::string& old = surface.control<ui::TextEntry>(line.control).text();
            // A damaged recording may have any numbers here; TextEntry::play takes them in the same way.
            const auto start = static_cast<std::size_t>(std::max(line.event.first, 0));
            const std::string_view before = firstCharacters(old, start);
            const std::size_t end = start + static_cast<std::size_t>(std::max(line.event.second, 0));
            const std::string whole =
                std::string(before) + line.event.text + old.substr(firstCharacters(old, end).size());
            masked.event.first = 0;
            masked.event.second = static_cast<std::int32_t>(characterCount(old));
            masked.event.text = text(whole);
        } else if (line.event.kind == ui::EventKind::typed) {
            masked.event.text = amount(line.event.text);
        } else if (line.event.kind == ui::EventKind::gridKey) {
            masked.event.text = searched(line.event.text, surface.control<ui::Grid>(line.control));
        }
        typed_.push_back(std::move(masked));
    }

    /// The recording with other inputs. To be called when the events have been told.
    std::string result()
    {
        std::string text = recording::headingText(lines_.heading()) + "\n";
        std::size_t next = 0;
        const std::multimap<std::size_t, CallLine> questions = lines_.questions();
        for (std::size_t at = 0; at < lines_.size(); ++at) {
            for (auto [asked, end] = questions.equal_range(at); asked != end; ++asked) {
                CallLine question = asked->second;
                if (question.name.starts_with("catalogue.")) {
                    question.outcome = outcome(std::move(question.outcome), question);
                }
                text += recording::lineText(question) + "\n";
            }
            Line line = lines_[at];
            if (auto* const event = std::get_if<EventLine>(&line)) {
                if (event->event.kind == ui::EventKind::show || event->event.kind == ui::EventKind::refresh) {
                    event->event.text = products(event->event.text);
                } else if (event->event.kind == ui::EventKind::key && isTextBox(event->control)) {
                    event->event.first = key(event->event.first);
                } else if (next < typed_.size() && event->event.kind < ui::EventKind::created) {
                    *event = typed_[next];
                }
                next += event->event.kind < ui::EventKind::created ? 1 : 0;
            } else if (auto* const call = std::get_if<CallLine>(&line)) {
                open_.push_back(call->name);
                call->outcome = outcome(std::move(call->outcome), *call);
                if (call->outcome.what != recording::Outcome::What::open) {
                    open_.pop_back();
                }
            } else if (auto* const done = std::get_if<DoneLine>(&line); done && !open_.empty()) {
                done->outcome = outcome(std::move(done->outcome), {.name = open_.back()});
                open_.pop_back();
            }
            text += recording::lineText(line) + "\n";
        }
        return text;
    }

private:
    static bool isTextBox(std::string_view control)
    {
        return std::find(kTextBoxes.begin(), kTextBoxes.end(), control) != kTextBoxes.end();
    }

    std::string text(std::string_view input)
    {
        texts_.emplace(input);
        return mask_.masked(input);
    }

    /// What is typed or pasted into an amount's box: only its letters are masked.
    std::string amount(const std::string& input)
    {
        std::string masked = text(input);
        for (std::size_t i = 0, j = 0; i < input.size(); i += characterSize(input, i), j += characterSize(masked, j)) {
            if (input[i] >= '0' && input[i] <= '9') {
                masked[j] = input[i];
            }
        }
        return masked;
    }

    /// A key alone does nothing in a box of text, but where it is a control character; what is typed is an event of its
    /// own.
    static std::int32_t key(std::int32_t character)
    {
        const bool letter = (character >= 'a' && character <= 'z') || character >= 0x80;
        return letter ? 'x' : character >= 'A' && character <= 'Z' ? 'X' : character;
    }

    /// A key of a search in the list: the search text is masked as a whole.
    std::string searched(const std::string& key, const ui::Grid& grid)
    {
        if (grid.searchText().empty()) {
            search_.clear();
        }
        if (key == "Backspace" && !search_.empty()) {
            search_.resize(firstCharacters(search_, characterCount(search_) - 1).size());
        }
        if (characterCount(key) != 1) {
            return key;
        }
        search_ += key;
        const std::string masked = text(search_);
        return std::string(masked.substr(firstCharacters(masked, characterCount(masked) - 1).size()));
    }

    /// The products string with other names, part numbers, keys and notes. One that cannot be read is masked as it is.
    std::string products(const std::string& string)
    {
        try {
            const auto manager = std::dynamic_pointer_cast<ProductMgr>(
                productMgrFactory({.maxDataSize = std::numeric_limits<std::int32_t>::max()})());
            manager->SetProductsString(string, kRecordSeparator, kFieldSeparator, false);
            for (std::int32_t i = 1; i <= manager->GetProductCount(); ++i) {
                const auto record = manager->GetProduct(i);
                record->SetName(text(record->Name()));
                record->SetKey(text(record->Key()));
                record->SetPartNum(text(record->PartNum()));
                record->SetNote(text(record->Note()));
            }
            return manager->GetProductsString(kRecordSeparator, kFieldSeparator);
        } catch (const RuntimeError&) {
            return text(string);
        }
    }

    /// The cells of a table as text, but for the amounts.
    std::string table(const std::string& cells)
    {
        std::string masked;
        for (std::size_t at = 0; at <= cells.size();) {
            const std::size_t end = std::min(cells.find_first_of("\t\n", at), cells.size());
            const std::string cell = cells.substr(at, end - at);
            const bool amount = cell.find_first_not_of("0123456789.,-+ %$") == std::string::npos;
            masked += amount ? cell : text(cell);
            masked += cells.substr(end, 1);
            at = end + 1;
        }
        return masked;
    }

    recording::Outcome outcome(recording::Outcome outcome, const CallLine& call)
    {
        const bool ofCatalogue = call.name.starts_with("catalogue.");
        const bool price = call.name == "catalogue.GetFieldValue" && !call.arguments.empty() &&
                           outside::partOf<std::int64_t>(call.arguments) == kPriceColumn;
        if (call.name == "settings.get" || call.name.starts_with("trace.") || price) {
            return outcome;
        }
        for (outside::CallValue& value : outcome.values) {
            auto* const held = std::get_if<std::string>(&value);
            if (held && !(ofCatalogue && *held == "list")) {
                *held = call.name == "manager.GetProductsString" ? products(*held)
                        : call.name == "clipboard.text"          ? table(*held)
                                                                 : text(*held);
            }
        }
        if (outcome.what == recording::Outcome::What::error) {
            outcome.error =
                RuntimeError(outcome.error.number(), text(outcome.error.source()), text(outcome.error.text()));
        }
        return outcome;
    }

    const RecordedLines& lines_;
    const TextMask& mask_;
    std::vector<EventLine> typed_; ///< Each of the user's events, as it becomes.
    std::string search_;
    std::vector<std::string> open_; ///< The calls that are not answered yet.
    std::set<std::string> texts_;
};

/// The words of four letters and more, in small letters.
std::set<std::string> wordsOf(std::string_view text)
{
    std::set<std::string> words;
    std::string word;
    const auto take = [&] {
        if (characterCount(word) >= 4) {
            words.insert(word);
        }
        word.clear();
    };
    for (const char c : text) {
        const char small = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        if ((small >= 'a' && small <= 'z') || static_cast<unsigned char>(c) >= 0x80) {
            word += small;
        } else {
            take();
        }
    }
    take();
    return words;
}

/// What stands in a line and is neither a label nor a sentence of the library.
std::string inputOf(const Line& line)
{
    if (const auto* const event = std::get_if<EventLine>(&line)) {
        return event->event.kind == ui::EventKind::placed || event->event.kind == ui::EventKind::tool ||
                       event->event.kind == ui::EventKind::run || event->event.kind == ui::EventKind::gridKey ||
                       event->event.kind == ui::EventKind::formKey
                   ? std::string()
                   : event->event.text;
    }
    if (const auto* const call = std::get_if<CallLine>(&line);
        call && call->name != "box.show" && !call->name.starts_with("settings.") && call->name != "components.create" &&
        call->name != "timer.schedule" && call->name != "platform.loadForm") {
        return recording::lineText(CallLine{.name = "x", .arguments = call->arguments, .outcome = call->outcome});
    }
    const auto* const returned = std::get_if<ReturnsLine>(&line);
    return returned && !returned->outcome.values.empty() ? outside::partOf<std::string>(returned->outcome.values)
                                                         : std::string();
}

[[noreturn]] void refuse(const std::string& why, const ReplayResult& result)
{
    throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                       "Line " + std::to_string(result.line) + ": " + why + ". Recorded: " + result.recorded +
                           ". Replayed: " + result.replayed);
}

} // namespace

std::string redacted(std::string_view recording, std::uint64_t key)
{
    const TextMask mask(key);
    const RecordedLines lines(recording);
    Masker masker(lines, mask);
    const ReplayResult original = replayInMemory(
        lines,
        {.beforeEvent = [&](const EventLine& line, const ui::Surface& surface) { masker.beforeEvent(line, surface); }});
    if (original.end != ReplayResult::End::same) {
        refuse("the recording does not replay as it was recorded, so it cannot be redacted", original);
    }
    std::string text = recording::headingText(lines.heading()) + "\n";
    std::set<std::string> questions; // each answer stands there once
    const ReplayResult anew =
        replayInMemory(RecordedLines(masker.result()),
                       {.namesOnly = true, .onLine = [&](const Line& line) {
                            const auto* const call = std::get_if<CallLine>(&line);
                            if (!call || !call->knowledge || questions.insert(recording::lineText(line)).second) {
                                text += recording::lineText(line) + "\n";
                            }
                        }});
    if (anew.end != ReplayResult::End::same) {
        refuse("without the texts, something else happens", anew);
    }
    const RecordedLines made(text);
    if (const ReplayResult again = replayInMemory(made); again.end != ReplayResult::End::same) {
        refuse("the redacted recording does not replay alike", again);
    }
    std::set<std::string> words;
    for (const std::string& input : masker.texts()) {
        words.merge(wordsOf(input));
    }
    for (std::size_t at = 0; at < made.size(); ++at) {
        for (const std::string& word : wordsOf(inputOf(made[at]))) {
            if (words.contains(word)) {
                throw RuntimeError(ErrorNumber::invalidFileFormat, {},
                                   "Line " + std::to_string(made.number(at)) +
                                       " of the redacted recording still has a word of the original");
            }
        }
    }
    return text;
}

} // namespace orvan::replay
