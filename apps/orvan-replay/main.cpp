// orvan-replay: replays a recording in memory and says whether the same came of it, or makes one without its texts.

#include <orvan/components/catalogue/CatalogueFactory.h>
#include <orvan/files/Descriptor.h>
#include <orvan/hosting/Version.h>
#include <orvan/replay/Redaction.h>
#include <orvan/replay/Replay.h>

#include <shared/TerminalText.h>

#include <charconv>
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>

namespace {

using namespace orvan;

constexpr const char* kHelp =
    R"(usage: orvan-replay [--live CATALOGUE] [--until LINE|error:NUMBER] [--fail CALL:N] recording
       orvan-replay --redact recording output
       orvan-replay --help | --version

Replays in memory what was recorded, with the recorded answers of the catalogue and of everything else outside of the
library, and says whether products, messages and trace came out the same. At the first difference it stops and prints
both sides, and the procedures that were open.

  --live CATALOGUE   looks up in this catalogue, and not in the recorded answers
  --until LINE       stops before the line of the recording, and prints the open procedures
  --until error:91   stops where the trace has recorded this error
  --fail CALL:N      has the N-th call fail ("manager.GetProduct:3"), each N-th ("settings.get:2/"), or the N-th and
                     all that follow ("box.show:1+"), and prints what the library then does until the event has ended
  --redact           writes a recording in which other texts of the same kind stand for those of products and catalogue,
                     and which replays alike

Exit status: 0 all came out the same, or the recording was redacted, or the replay stopped where it was told to; 1 the
command line or the recording is wrong; 2 something came out differently.
)";

[[noreturn]] void refuse(const std::string& problem)
{
    throw RuntimeError(ErrorNumber::invalidProcedureCall, {}, problem);
}

struct Arguments {
    replay::ReplayOptions options = {};
    bool live = false;
    bool redacts = false;
    std::vector<std::string> files = {};
};

template <class Number>
Number numberOf(std::string_view text, std::string_view option)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number == 0) {
        refuse(std::string(option) + ": \"" + std::string(text) + "\" is no number that it takes");
    }
    return number;
}

void takeUntil(std::string_view text, replay::ReplayOptions& options)
{
    constexpr std::string_view kError = "error:";
    if (text.starts_with(kError)) {
        options.untilError = numberOf<std::int32_t>(text.substr(kError.size()), "--until");
    } else {
        options.untilLine = numberOf<std::size_t>(text, "--until");
    }
}

testkit::OutsideCalls::Rule ruleOf(std::string_view text)
{
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos || text.find('.') > colon) {
        refuse("--fail: \"" + std::string(text) + "\" has not the form manager.GetProduct:3");
    }
    testkit::OutsideCalls::Rule rule{.name = std::string(text.substr(0, colon))};
    std::string_view number = text.substr(colon + 1);
    if (number.ends_with('+') || number.ends_with('/')) {
        rule.repeat =
            number.ends_with('+') ? testkit::OutsideCalls::Repeat::fromThenOn : testkit::OutsideCalls::Repeat::every;
        number.remove_suffix(1);
    }
    rule.number = numberOf<std::size_t>(number, "--fail");
    return rule;
}

Arguments argumentsOf(const std::vector<std::string>& words)
{
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto value = [&]() -> const std::string& {
            if (i + 1 == words.size()) {
                refuse(words[i] + ": its value is missing");
            }
            return words[++i];
        };
        if (words[i] == "--live") {
            arguments.options.liveCatalogue = catalogueFactory({.file = value()});
            arguments.live = true;
        } else if (words[i] == "--until") {
            takeUntil(value(), arguments.options);
        } else if (words[i] == "--fail") {
            arguments.options.fail = ruleOf(value());
        } else if (words[i] == "--redact") {
            arguments.redacts = true;
        } else if (words[i].starts_with("--")) {
            refuse("there is no option " + words[i]);
        } else {
            arguments.files.push_back(words[i]);
        }
    }
    if (arguments.files.size() != (arguments.redacts ? 2 : 1)) {
        refuse(arguments.redacts ? "--redact takes a recording and the file that it is to write"
                                 : "one recording is to be named");
    }
    return arguments;
}

/// As much of a line as tells what it is.
std::string shown(std::string_view line)
{
    constexpr std::size_t kMost = 400;
    std::string text = shared::terminalText(line.substr(0, kMost));
    return line.size() > kMost ? text + "..." : text;
}

std::string contentOf(const std::string& file)
{
    try {
        return files::Descriptor::openRegular(file).readAll();
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), error.source(), file + ": " + std::string(error.text()));
    }
}

void redact(const std::string& recording, const std::string& output)
{
    std::random_device device;
    const std::uint64_t key = std::uint64_t{device()} << 32U | device();
    const std::string text = replay::redacted(contentOf(recording), key);
    files::Descriptor file = files::Descriptor::open(output, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    file.write(text);
    file.sync();
    file.close();
}

int play(Arguments& arguments)
{
    replay::RecordedLines lines(contentOf(arguments.files[0]));
    if (arguments.live) {
        lines.dropCalls("catalogue");
    }
    std::vector<std::string> since; // the lines of the present event
    if (arguments.options.fail) {
        arguments.options.onLine = [&since](const recording::Line& line) {
            if (const auto* event = std::get_if<recording::EventLine>(&line); event && !event->nested) {
                since.clear();
            }
            since.push_back(recording::lineText(line));
        };
    }
    const replay::ReplayResult result = replay::replayInMemory(lines, arguments.options);
    using End = replay::ReplayResult::End;
    const char* const how = result.end == End::same      ? "the same came out"
                            : result.end == End::stopped ? "stopped"
                                                         : "something else came out";
    std::cout << "Line " << result.line << ", after " << result.events << " events: " << how << '\n';
    if (result.end == End::different) {
        std::cout << "recorded: " << shown(result.recorded) << "\nreplayed: " << shown(result.replayed) << '\n';
        if (arguments.options.fail) {
            std::cout << "the event:\n";
            for (const std::string& line : since) {
                std::cout << "  " << shown(line) << '\n';
            }
        }
    }
    if (result.end != End::same) {
        for (const std::string& procedure : result.open) {
            std::cout << "open: " << shown(procedure) << '\n';
        }
    }
    return result.end == End::different ? 2 : 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 1 && words[0] == "--version") {
        std::cout << "orvan-replay " << libraryVersion() << '\n';
        return 0;
    }
    if (words.empty() || words[0] == "--help") {
        (words.empty() ? std::cerr : std::cout) << kHelp;
        return words.empty() ? 1 : 0;
    }
    try {
        Arguments arguments = argumentsOf(words);
        if (arguments.redacts) {
            redact(arguments.files[0], arguments.files[1]);
            return 0;
        }
        return play(arguments);
    } catch (...) {
        std::cerr << "orvan-replay: " << shared::terminalText(std::string(currentError().text())) << '\n';
        return 1;
    }
}
