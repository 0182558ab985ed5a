#include "orvan/recording/RecordingLine.h"

#include "orvan/base/Integer.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace orvan::recording {

namespace {

constexpr std::string_view kMagic = "orvan-recording";
constexpr std::string_view kHex = "0123456789ABCDEF";

std::string amountText(Currency amount)
{
    const std::uint64_t size = amount.magnitude();
    char text[64];
    std::snprintf(text, sizeof text, "%s%llu.%04llu", amount.scaled() < 0 ? "-" : "",
                  static_cast<unsigned long long>(size / Currency::kScale),
                  static_cast<unsigned long long>(size % Currency::kScale));
    return text;
}

std::string valueText(const outside::CallValue& value)
{
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        return std::to_string(*number);
    }
    if (const auto* amount = std::get_if<Currency>(&value)) {
        return amountText(*amount);
    }
    if (const auto* number = std::get_if<double>(&value)) {
        char text[64];
        const auto end = std::to_chars(text, text + sizeof text, *number).ptr;
        return "d" + std::string(text, end);
    }
    if (const auto* text = std::get_if<std::string>(&value)) {
        return quoted(*text);
    }
    return "null";
}

std::string valuesText(const outside::CallValues& values)
{
    std::string text;
    for (const outside::CallValue& value : values) {
        text.append(" ").append(valueText(value));
    }
    return text;
}

std::string outcomeText(const Outcome& outcome)
{
    switch (outcome.what) {
    case Outcome::What::open: return {};
    case Outcome::What::values: return " =" + valuesText(outcome.values);
    case Outcome::What::error:
        return " ! " + std::to_string(outcome.error.number()) + " " + quoted(outcome.error.text()) + " " +
               quoted(outcome.error.source());
    }
    return {};
}

/// Reads the parts of a line, from the left to the right.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) { skipBlanks(); }

    bool atEnd() const { return rest_.empty(); }
    bool takes(std::string_view word)
    {
        if (!rest_.starts_with(word) || (rest_.size() > word.size() && rest_[word.size()] != ' ')) {
            return false;
        }
        rest_.remove_prefix(word.size());
        skipBlanks();
        return true;
    }
    std::string_view word()
    {
        const std::string_view word = rest_.substr(0, rest_.find(' '));
        if (word.empty()) {
            fail("the line ends too early");
        }
        rest_.remove_prefix(word.size());
        skipBlanks();
        return word;
    }
    /// The rest of the line as it is.
    std::string_view rest() { return std::exchange(rest_, {}); }
    template <class Number>
    Number number()
    {
        return numberOf<Number>(word());
    }
    std::string text()
    {
        if (rest_.empty() || rest_.front() != '"') {
            fail("a text in quotation marks is missing");
        }
        std::string text;
        std::size_t at = 1;
        for (; at < rest_.size() && rest_[at] != '"'; ++at) {
            if (rest_[at] == '\\') {
                ++at;
                text += escaped(at);
            } else {
                text += rest_[at];
            }
        }
        if (at >= rest_.size()) {
            fail("a quotation mark is missing");
        }
        rest_.remove_prefix(at + 1);
        skipBlanks();
        return text;
    }
    outside::CallValues values()
    {
        outside::CallValues values;
        while (!rest_.empty() && !rest_.starts_with("= ") && !rest_.starts_with("! ") && rest_ != "=") {
            values.push_back(value());
        }
        return values;
    }
    Outcome outcome()
    {
        Outcome outcome;
        if (takes("=")) {
            outcome.what = Outcome::What::values;
            outcome.values = values();
        } else if (takes("!")) {
            outcome.what = Outcome::What::error;
            const auto errorNumber = number<std::int32_t>();
            std::string errorText = text();
            outcome.error = RuntimeError(errorNumber, text(), errorText);
        }
        return outcome;
    }
    void end() const
    {
        if (!rest_.empty()) {
            fail("nothing was expected at \"" + std::string(rest_.substr(0, 40)) + "\"");
        }
    }

    [[noreturn]] static void fail(const std::string& why)
    {
        throw RuntimeError(ErrorNumber::invalidFileFormat, {}, why);
    }

private:
    void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

    template <class Number>
    static Number numberOf(std::string_view word)
    {
        Number number{};
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (error != std::errc() || end != word.data() + word.size()) {
            fail("\"" + std::string(word.substr(0, 40)) + "\" is no number");
        }
        return number;
    }
    outside::CallValue value()
    {
        if (rest_.front() == '"') {
            return text();
        }
        const std::string_view read = word();
        if (read == "null") {
            return {};
        }
        if (read.front() == 'd') {
            return numberOf<double>(read.substr(1));
        }
        const std::size_t point = read.find('.');
        if (point == std::string_view::npos) {
            return numberOf<std::int64_t>(read);
        }
        if (point + 5 != read.size()) {
            fail("the amount \"" + std::string(read.substr(0, 40)) + "\" has not four decimals");
        }
        return Currency::fromScaled(
            numberOf<std::int64_t>(std::string(read.substr(0, point)).append(read.substr(point + 1))));
    }
    char escaped(std::size_t& at) const
    {
        switch (at < rest_.size() ? rest_[at] : '\0') {
        case '\\': return '\\';
        case '"': return '"';
        case 'n': return '\n';
        case 'r': return '\r';
        case 't': return '\t';
        case 'x':
            if (at + 2 < rest_.size() && kHex.find(rest_[at + 1]) != std::string_view::npos &&
                kHex.find(rest_[at + 2]) != std::string_view::npos) {
                at += 2;
                return static_cast<char>(kHex.find(rest_[at - 1]) * 16 + kHex.find(rest_[at]));
            }
            break;
        default: break;
        }
        fail("a backslash stands before nothing that it changes");
    }

    std::string_view rest_;
};

EventLine eventOf(Reader& reader, std::string_view time)
{
    EventLine line;
    line.nested = time.front() == '~';
    Reader milliseconds(time.substr(1));
    line.milliseconds = milliseconds.number<std::int64_t>();
    line.surface = reader.number<int>();
    line.control = reader.word();
    if (line.control == "-") {
        line.control.clear();
    }
    const std::string_view kind = reader.word();
    const auto* const found = std::find(ui::kEventNames.begin(), ui::kEventNames.end(), kind);
    if (found == ui::kEventNames.end()) {
        Reader::fail("there is no event \"" + std::string(kind.substr(0, 40)) + "\"");
    }
    line.event.kind = static_cast<ui::EventKind>(found - ui::kEventNames.begin());
    line.event.first = reader.number<std::int32_t>();
    line.event.second = reader.number<std::int32_t>();
    line.event.text = reader.text();
    return line;
}

} // namespace

std::string quoted(std::string_view text)
{
    std::string result = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        switch (c) {
        case '\\': result += "\\\\"; break;
        case '"': result += "\\\""; break;
        case '\n': result += "\\n"; break;
        case '\r': result += "\\r"; break;
        case '\t': result += "\\t"; break;
        default:
            if (byte < 0x20 || byte == 0x7F) {
                result += {'\\', 'x', kHex[byte >> 4], kHex[byte & 0xF]};
            } else {
                result += c;
            }
        }
    }
    return result += '"';
}

std::string lineText(const Line& line)
{
    struct Writer {
        std::string operator()(const EventLine& l) const
        {
            return (l.nested ? "~" : "+") + std::to_string(l.milliseconds) + " " + std::to_string(l.surface) + " " +
                   (l.control.empty() ? "-" : l.control) + " " +
                   std::string(ui::kEventNames[static_cast<std::size_t>(l.event.kind)]) + " " +
                   std::to_string(l.event.first) + " " + std::to_string(l.event.second) + " " + quoted(l.event.text);
        }
        std::string operator()(const TraceLine& l) const
        {
            switch (l.what) {
            case TraceLine::What::enter: return "  enter " + l.text;
            case TraceLine::What::exit: return "  exit " + l.text;
            case TraceLine::What::error: break;
            }
            return "  error " + std::to_string(l.number) + " " + quoted(l.text);
        }
        std::string operator()(const CallLine& l) const
        {
            return (l.knowledge ? "  know " : "  call ") + l.name + valuesText(l.arguments) + outcomeText(l.outcome);
        }
        std::string operator()(const DoneLine& l) const { return "  done" + outcomeText(l.outcome); }
        std::string operator()(const FormLine& l) const { return "  form " + std::to_string(l.surface); }
        std::string operator()(const ClosedLine& /*l*/) const { return "  closed"; }
        std::string operator()(const MeasureLine& l) const
        {
            return "  measure " + l.what + " " + std::to_string(l.value);
        }
        std::string operator()(const ReturnsLine& l) const { return "  returns" + outcomeText(l.outcome); }
    };
    return std::visit(Writer(), line);
}

Line lineOfText(std::string_view text)
{
    Reader reader(text);
    const std::string_view first = reader.word();
    Line line;
    if (first.front() == '+' || first.front() == '~') {
        line = eventOf(reader, first);
    } else if (first == "enter" || first == "exit") {
        line =
            TraceLine{first == "enter" ? TraceLine::What::enter : TraceLine::What::exit, std::string(reader.rest()), 0};
    } else if (first == "error") {
        const auto number = reader.number<std::int32_t>();
        line = TraceLine{TraceLine::What::error, reader.text(), number};
    } else if (first == "call" || first == "know") {
        CallLine call{.name = std::string(reader.word()), .knowledge = first == "know"};
        call.arguments = reader.values();
        call.outcome = reader.outcome();
        line = std::move(call);
    } else if (first == "done") {
        line = DoneLine{reader.outcome()};
    } else if (first == "form") {
        line = FormLine{reader.number<int>()};
    } else if (first == "closed") {
        line = ClosedLine{};
    } else if (first == "measure") {
        std::string what(reader.word());
        line = MeasureLine{std::move(what), reader.number<std::int32_t>()};
    } else if (first == "returns") {
        line = ReturnsLine{reader.outcome()};
    } else {
        Reader::fail("a line does not begin with \"" + std::string(first.substr(0, 40)) + "\"");
    }
    reader.end();
    return line;
}

std::string headingText(const Heading& heading)
{
    return std::string(kMagic) + " " + std::to_string(kVersion) + " " + quoted(heading.libraryVersion) +
           " editing=" + (heading.careful ? "careful" : "classic") +
           " manager=" + (heading.ownManager ? "own" : "host") + " " + std::to_string(heading.maxDataSize);
}

Heading headingOfText(std::string_view text)
{
    Reader reader(text);
    if (!reader.takes(kMagic)) {
        Reader::fail("this is no recording");
    }
    if (const int version = reader.number<int>(); version != kVersion) {
        Reader::fail("this is a recording of version " + std::to_string(version) + ", and only version " +
                     std::to_string(kVersion) + " is known");
    }
    Heading heading{.libraryVersion = reader.text()};
    const auto choice = [&reader](std::string_view one, std::string_view other) {
        const bool first = reader.takes(one);
        if (!first && !reader.takes(other)) {
            Reader::fail("the heading has neither \"" + std::string(one) + "\" nor \"" + std::string(other) + "\"");
        }
        return first;
    };
    heading.careful = choice("editing=careful", "editing=classic");
    heading.ownManager = choice("manager=own", "manager=host");
    heading.maxDataSize = reader.number<std::int32_t>();
    reader.end();
    return heading;
}

} // namespace orvan::recording
