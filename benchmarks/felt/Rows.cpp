#include "benchmarks/felt/Rows.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>
#include <stdexcept>
#include <thread>

namespace orvan::felt {

namespace {

using bench::atMostTimes;

/// Lists of two lengths: that of the sample, and a long one.
constexpr int kShort = 14, kLong = 10'000;

/// What is written by the key for the next product, and what takes it back.
constexpr const char* kNext = "Control_L+Next";
constexpr const char* kPrevious = "Control_L+Prior";
constexpr const char* kMoveDown = "Alt_L+Down";
constexpr const char* kMoveUp = "Alt_L+Up";
constexpr const char* kYes = "Alt_L+y";

/// A question is not answered by keys that somebody typed ahead, so it takes none at first.
constexpr Milliseconds kQuestionSeen{400};

/// How a program is brought to where it is measured, and what is done then.
struct Play {
    std::function<void(Actor&)> setUp;
    std::function<double(Actor&)> once;
};

/// A side that plays in one run of a program.
Side played(const std::string& name, const Command& command, const Play& play)
{
    return {name, [=](const Stage& stage) -> Sampler {
                const auto actor = std::make_shared<Actor>(stage, command);
                play.setUp(*actor);
                return [=] { return play.once(*actor); };
            }};
}

/// A side that starts a program again each time.
Side started(const std::string& name, const Command& command)
{
    return {name, [=](const Stage& stage) -> Sampler { return [=] { return Actor(stage, command).startTime(); }; }};
}

/// Types a character and takes it back, in turn.
std::function<double(Actor&)> typing(const std::string& character)
{
    return [=, typed = std::make_shared<bool>(false)](Actor& actor) {
        *typed = !*typed;
        return actor.answerTo(*typed ? character : "BackSpace");
    };
}

/// Measures a stroke, and takes its effect back without measuring.
std::function<double(Actor&)> thereAndBack(const std::string& stroke, const std::string& back)
{
    return [=](Actor& actor) {
        const double time = actor.answerTo(stroke);
        actor.press(back);
        return time;
    };
}

const char* const kFirstRow = "flexGrid row 1";

void openEditor(Actor& actor)
{
    actor.answerToDoubleClick(kFirstRow);
    actor.awaitWindows(2);
}

/// The box gets the focus, and a text that nothing is looked up for where it is a look-up box.
Play typingInto(const std::string& box, const std::string& character, bool inEditor, bool clear)
{
    return {[=](Actor& actor) {
                if (inEditor) {
                    openEditor(actor);
                }
                actor.click(box);
                if (clear) {
                    actor.press("Control_L+a");
                    actor.press("q");
                    actor.press("x");
                } else {
                    actor.press("End");
                }
            },
            typing(character)};
}

Play opening()
{
    return {[](Actor&) {},
            [](Actor& actor) {
                const double time = actor.answerToDoubleClick(kFirstRow);
                actor.awaitWindows(2);
                actor.press("Escape");
                actor.awaitWindows(1);
                return time;
            }};
}

Play nextProduct(bool inEditor)
{
    return {[=](Actor& actor) {
                if (inEditor) {
                    openEditor(actor);
                }
            },
            thereAndBack(kNext, kPrevious)};
}

Play movingDown()
{
    // The first move stays, so that the list is never the saved one again, and the window's title stays as it is.
    return {[](Actor& actor) {
                actor.click(kFirstRow);
                actor.press(kMoveDown);
            },
            thereAndBack(kMoveDown, kMoveUp)};
}

Play deleting()
{
    return {[](Actor& actor) { actor.click(kFirstRow); },
            [](Actor& actor) {
                actor.press("Delete");
                actor.awaitWindows(2);
                Actor::pause(kQuestionSeen);
                const double work = actor.workFor(kYes);
                actor.awaitWindows(1);
                return work;
            }};
}

/// One row at a time, where each scrolls the list.
Play scrolling()
{
    return {[](Actor& actor) {
                actor.click(kFirstRow);
                for (int page = 0; page < 3; ++page) {
                    actor.press("Next"); // the current row is then the last one in sight
                }
            },
            [](Actor& actor) { return actor.answerTo("Down"); }};
}

/// The sample quote with so many products.
QJsonObject quoteOf(int products)
{
    QFile file(QStringLiteral(":/samples/office-refit.quote.json"));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("the sample quote is missing");
    }
    QJsonObject quote = QJsonDocument::fromJson(file.readAll()).object();
    // The count stands first, and each record ends with the separator.
    const QStringList records =
        quote.value(QStringLiteral("products")).toString().split(u'~', Qt::SkipEmptyParts).mid(1);
    QString list = QString::number(products) + u'~';
    for (int i = 0; i < products; ++i) {
        list += records.at(i % records.size()) + u'~';
    }
    quote[QStringLiteral("products")] = list;
    return quote;
}

QString quoteName(int products)
{
    return QStringLiteral("%1.quote.json").arg(products);
}

void writeQuote(const std::filesystem::path& folder, int products)
{
    QFile file(QString::fromStdString(folder.string()) + u'/' + quoteName(products));
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(quoteOf(products)).toJson()) < 0) {
        throw std::runtime_error("a quote cannot be written: " + file.errorString().toStdString());
    }
}

/// Makes the home directory of a user who has started the desk before, and so has a catalogue and settings. The quotes
/// are in it, too, so that each run has its own: two desks do not edit the same file.
std::filesystem::path makeHome(const std::filesystem::path& desk, Screen& screen, const std::filesystem::path& folder)
{
    std::filesystem::path home = folder / "home";
    Actor actor({screen, folder / "first", Measure::toPixels}, {.program = desk, .arguments = {}, .home = {}});
    const auto limit = Clock::now() + kPatience;
    while (!std::filesystem::exists(actor.home() / "orvan-desk" / "products.catalogue")) {
        if (Clock::now() > limit) {
            throw std::runtime_error("the desk made no catalogue of the sample price list");
        }
        Actor::pause(Milliseconds(50));
    }
    actor.quit("Control_L+q");
    std::filesystem::copy(actor.home(), home, std::filesystem::copy_options::recursive);
    writeQuote(home, kShort);
    writeQuote(home, kLong);
    return home;
}

/// Makes a copy of the home directory where the desk cannot write a trace: a file stands in the place of its folder.
std::filesystem::path makeUntracedHome(const std::filesystem::path& home, const std::filesystem::path& folder)
{
    std::filesystem::path untraced = folder / "untraced";
    std::filesystem::copy(home, untraced, std::filesystem::copy_options::recursive);
    std::filesystem::remove_all(untraced / "orvan");
    QFile file(QString::fromStdString((untraced / "orvan").string()));
    if (!file.open(QIODevice::WriteOnly)) {
        throw std::runtime_error("a file cannot be made: " + file.errorString().toStdString());
    }
    return untraced;
}

/// Makes both sides of rows.
class Sides {
public:
    Sides(const Programs& programs, const std::filesystem::path& home) : programs_(programs), home_(home) {}

    [[nodiscard]] Command desk(int products) const
    {
        return {.program = programs_.desk,
                .arguments = {QStringLiteral("--print-places"), quoteName(products)},
                .home = home_};
    }
    /// The small program's command; that of the former desk where there is one.
    [[nodiscard]] Command peer(const char* kind, int products) const
    {
        if (programs_.formerDesk) {
            Command command = desk(products);
            command.program = *programs_.formerDesk;
            return command;
        }
        return {
            .program = programs_.peer, .arguments = {QString::fromLatin1(kind), QString::number(products)}, .home = {}};
    }
    [[nodiscard]] Side ours(int products, const Play& play) const { return played("", desk(products), play); }
    [[nodiscard]] Side peer(const char* name, const char* kind, int products, const Play& peerPlay,
                            const Play& deskPlay) const
    {
        return played(peerName(name), peer(kind, products), programs_.formerDesk ? deskPlay : peerPlay);
    }
    [[nodiscard]] std::string peerName(const char* name) const
    {
        return programs_.formerDesk ? "the other desk" : name;
    }

private:
    const Programs& programs_;
    std::filesystem::path home_;
};

void addKeys(std::vector<Row>& rows, const Sides& sides)
{
    const Play ours = typingInto("txtQty", "7", true, false), peers = typingInto("txtQty", "7", false, false);
    for (const auto& [products, name] :
         {std::pair(kShort, "quantity key, 14 products"), std::pair(kLong, "quantity key, 10,000 products")}) {
        rows.push_back({name,
                        {{atMostTimes(1.0)}, {atMostTimes(1.2), true}},
                        sides.ours(products, ours),
                        sides.peer("three line edits", "lines", products, peers, ours),
                        400,
                        20});
    }
    const Play ourName = typingInto("cboProductName", "z", true, true);
    rows.push_back(
        {"name key",
         {{atMostTimes(1.2)}},
         sides.ours(kShort, ourName),
         sides.peer("an editable combo box", "combo", kShort, typingInto("cboProductName", "z", false, true), ourName),
         200,
         20});
    const Play ourNote = typingInto("txtNote", "z", true, false);
    rows.push_back({"note key",
                    {{atMostTimes(1.2)}},
                    sides.ours(kShort, ourNote),
                    sides.peer("a text box", "text", kShort, typingInto("txtNote", "z", false, false), ourNote),
                    200,
                    20});
}

void addTrace(std::vector<Row>& rows, const Sides& sides, const std::filesystem::path& untracedHome)
{
    Command untraced = sides.desk(kShort);
    untraced.home = untracedHome;
    const Play play = typingInto("txtQty", "7", true, false);
    rows.push_back({"quantity key, with the trace log",
                    {{atMostTimes(1.05)}},
                    sides.ours(kShort, play),
                    played("without the log", untraced, play),
                    400,
                    20});
}

void addEditor(std::vector<Row>& rows, const Sides& sides, bool besideFormer)
{
    for (const auto& [products, name] :
         {std::pair(kShort, "editor opens, 14 products"), std::pair(kLong, "editor opens, 10,000 products")}) {
        rows.push_back({name,
                        {{atMostTimes(1.25)}},
                        sides.ours(products, opening()),
                        sides.peer("a dialog with 24 widgets", "dialog", products, opening(), opening()),
                        40,
                        5});
    }
    if (!besideFormer) {
        rows.push_back({"editor opens, 10,000 products beside 14",
                        {{atMostTimes(1.02)}},
                        sides.ours(kLong, opening()),
                        played("14", sides.desk(kShort), opening()),
                        60,
                        5});
    }
    for (const auto& [products, name] :
         {std::pair(kShort, "next product, 14 products"), std::pair(kLong, "next product, 10,000 products")}) {
        rows.push_back(
            {name,
             {{atMostTimes(1.05)}},
             sides.ours(products, nextProduct(true)),
             sides.peer("eight line edits and a title", "product", products, nextProduct(false), nextProduct(true)),
             150,
             10});
    }
}

void addList(std::vector<Row>& rows, const Sides& sides)
{
    rows.push_back({"move down, 10,000 products",
                    {{atMostTimes(1.0)}},
                    sides.ours(kLong, movingDown()),
                    sides.peer("beginMoveRows", "list", kLong, movingDown(), movingDown()),
                    150,
                    10});
    rows.push_back({"delete, 10,000 products, processor time",
                    {{atMostTimes(1.1)}},
                    sides.ours(kLong, deleting()),
                    sides.peer("removeRow", "list", kLong, deleting(), deleting()),
                    30,
                    5});
    rows.push_back({"arrow down, scrolling",
                    {{atMostTimes(1.05)}},
                    sides.ours(kLong, scrolling()),
                    sides.peer("a table view", "list", kLong, scrolling(), scrolling()),
                    200,
                    20});
}

} // namespace

std::vector<Row> makeRows(const Programs& programs, Screen& screen, const std::filesystem::path& folder)
{
    const std::filesystem::path home = makeHome(programs.desk, screen, folder);
    const Sides sides(programs, home);
    std::vector<Row> rows;
    addKeys(rows, sides);
    if (!programs.formerDesk) {
        addTrace(rows, sides, makeUntracedHome(home, folder));
    }
    addEditor(rows, sides, programs.formerDesk.has_value());
    addList(rows, sides);
    rows.push_back({"start with a sample",
                    {{atMostTimes(1.1)}},
                    started("", sides.desk(kShort)),
                    started(sides.peerName("a window with three line edits and a table"), sides.peer("window", kShort)),
                    31,
                    1});
    return rows;
}

} // namespace orvan::felt
