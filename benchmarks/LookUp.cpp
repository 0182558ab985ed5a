// J, K and M: the editor's look-up in its window. J searches and shows the result, K drops the list down, M measures
// the wait between the last key and the search.

#include "benchmarks/Comparison.h"
#include "benchmarks/SampleCatalogue.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "benchmarks/Table.h"
#include "benchmarks/Windows.h"
#include "orvan/base/Text.h"
#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Timer.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <future>
#include <random>
#include <thread>

namespace orvan::bench {

namespace {

using Clock = std::chrono::steady_clock;

double nanosecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double, std::nano>(Clock::now() - begin).count();
}

/// The value that is not exceeded by the given part of the samples (0.99 for the 99th percentile).
double percentile(std::vector<double> samples, double part)
{
    const auto at = samples.begin() + std::lround(std::ceil(part * static_cast<double>(samples.size()))) - 1;
    std::nth_element(samples.begin(), at, samples.end());
    return *at;
}

/// A catalogue that can be opened again while the editor uses it, and that reports when it is searched.
class OpenedAnew final : public ProductLkpMgr {
public:
    explicit OpenedAnew(std::filesystem::path file) : file_(std::move(file)) { open(); }

    /// Opens the file again as on a machine that has not read it yet: none of its pages are in memory.
    void openCold()
    {
        open();
        dropFromCache(file_);
    }

    LookUpList GetPartNumList(std::string_view sText, bool all) override
    {
        searched();
        return inner_->GetPartNumList(sText, all);
    }
    LookUpList GetProductNameList(std::string_view sText, bool all) override
    {
        searched();
        return inner_->GetProductNameList(sText, all);
    }
    void SeekItem(std::int32_t itemId) override { inner_->SeekItem(itemId); }
    bool IsEOF() override { return inner_->IsEOF(); }
    LookUpValue GetFieldValue(std::int32_t column) override { return inner_->GetFieldValue(column); }

    std::function<void()> onSearch;

private:
    void open()
    {
        inner_ = std::dynamic_pointer_cast<ProductLkpMgr>(catalogueFactory({.file = file_, .report = {}})());
    }
    void searched()
    {
        if (onSearch) {
            onSearch();
        }
    }

    const std::filesystem::path file_;
    std::shared_ptr<ProductLkpMgr> inner_;
};

/// Opens the editor on a product of a short list, with a catalogue that has that many entries.
void lookUpInWindow(std::size_t entries, const std::function<void(ui::Form&, OpenedAnew&)>& act)
{
    auto catalogue = std::make_shared<OpenedAnew>(catalogueFile(entries));
    windowHost().components().registerClass(std::string(kProductLkpMgrClassName), [=] { return catalogue; });
    editInWindow(sampleManager(10), [&](ui::Form& form) { act(form, *catalogue); });
}

// --- J ----------------------------------------------------------------------------------------------

enum class Typed { partNumber, name, nothingThatMatches, nothing };

struct LookUpCase {
    const char* name;
    Typed typed;
};
constexpr LookUpCase kCases[] = {{"a part number", Typed::partNumber},
                                 {"a name", Typed::name},
                                 {"no match", Typed::nothingThatMatches},
                                 {"the whole list", Typed::nothing}};

std::string inSmallLetters(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c); });
    return text;
}

/// A text that a user may have typed: the beginning of an entry, every second time in small letters.
std::string beginning(const std::string& text, std::mt19937& random)
{
    std::string typed(firstCharacters(text, 1 + random() % 12));
    return random() % 2 == 0 ? inSmallLetters(std::move(typed)) : typed;
}

std::string textFor(Typed typed, std::size_t entries, std::mt19937& random)
{
    const PriceListRow row = priceListRow(random() % entries);
    switch (typed) {
    case Typed::partNumber: return beginning(row.partNum, random);
    case Typed::name: return beginning(row.name, random);
    case Typed::nothingThatMatches: return beginning(row.partNum, random) + "qzq";
    case Typed::nothing: break;
    }
    return {};
}

void requireShown(const ui::ComboBox& combo, const std::string& typed, bool matches)
{
    // Case does not count: where it differs, the box shows the entry as the catalogue spells it.
    requireSame(inSmallLetters(combo.text()).starts_with(inSmallLetters(typed)), true, "the typed text stands");
    requireSame(combo.text() == typed || matches, true, "only a match completes it");
    requireSame(combo.count() <= 250, matches, "the list holds the matches, or all there is");
}

/// The times that the whole procedure of the box's timer takes with a catalogue that is not in memory.
std::vector<double> coldLookUps(Typed typed, std::size_t entries, int samples)
{
    std::vector<double> times;
    static_cast<void>(catalogueFile(entries));
    settleDisk();
    lookUpInWindow(entries, [&](ui::Form& form, OpenedAnew& catalogue) {
        const bool name = typed == Typed::name;
        auto& combo = form.control<ui::ComboBox>(name ? "cboProductName" : "cboPartNum");
        const auto& timer = form.control<ui::Timer>(name ? "tmrProdLkp" : "tmrPartNum");
        std::mt19937 random(17);
        for (int i = 0; i < samples; ++i) {
            const std::string text = textFor(typed, entries, random);
            combo.setText("-"); // so that the next text is another one, and setting it starts the timer
            combo.setText(text);
            catalogue.openCold();
            const auto begin = Clock::now();
            timer.onTimer();
            times.push_back(nanosecondsSince(begin));
            requireShown(combo, text, typed == Typed::partNumber || name);
            QApplication::processEvents(); // paints, which is not part of the look-up's time
        }
    });
    return times;
}

Side coldLookUp(std::string name, Typed typed, std::size_t entries, double part, int samples)
{
    return {std::move(name), [=] { return percentile(coldLookUps(typed, entries, samples), part); }};
}

// --- K ----------------------------------------------------------------------------------------------

/// The time to drop the list down and paint it, after a look-up has filled it again.
Side dropDown(std::string name, std::size_t entries)
{
    const auto box = std::make_shared<std::pair<ui::ComboBox*, QComboBox*>>();
    const Side loop = timed(
        name,
        [box](benchmark::State& state) {
            for ([[maybe_unused]] auto _ : state) {
                box->first->refresh();
                timePart(state, [&] {
                    box->second->showPopup();
                    QApplication::processEvents();
                });
                requireSame(box->second->view()->isVisible(), true, "the list is open");
                box->second->hidePopup();
                QApplication::processEvents();
            }
        },
        Timing::parts);
    return {std::move(name), [=] {
                double figure = 0;
                lookUpInWindow(entries, [&](ui::Form& form, OpenedAnew& /*catalogue*/) {
                    *box = {&form.control<ui::ComboBox>("cboPartNum"),
                            &widgetIn<QComboBox, ui::ComboBox>(form, "cboPartNum")};
                    requireSame(box->first->count(), 1'000, "rows of the whole list");
                    figure = loop.repeat();
                });
                return figure;
            }};
}

// --- M ----------------------------------------------------------------------------------------------

constexpr std::chrono::milliseconds kPauseTime(500);
constexpr double kPause = std::chrono::nanoseconds(kPauseTime).count();

/// The times from the last of several keys to the search, in a program and on a machine that do nothing else. A second
/// thread sleeps until the search is due; if that thread wakes late, the machine was busy and the wait is measured
/// again.
const std::vector<double>& waits()
{
    constexpr std::size_t kWaits = 16;
    constexpr double kBusy = 2e6; // by how many nanoseconds the second thread may wake late
    static std::vector<double> times;
    if (!times.empty()) {
        return times;
    }
    lookUpInWindow(1'000, [&](ui::Form& form, OpenedAnew& catalogue) {
        QLineEdit& line = *widgetIn<QComboBox, ui::ComboBox>(form, "cboPartNum").lineEdit();
        line.setFocus();
        for (std::size_t discarded = 0; times.size() < kWaits;) {
            QEventLoop loop;
            Clock::time_point lastKey;
            std::future<double> machineLate;
            for (int key = 0; key < 3; ++key) {
                QTimer::singleShot(key * (90 + 7 * static_cast<int>(times.size())), Qt::PreciseTimer, &loop, [&, key] {
                    lastKey = Clock::now();
                    if (key == 2) {
                        machineLate = std::async(std::launch::async, [due = lastKey + kPauseTime] {
                            std::this_thread::sleep_until(due);
                            return nanosecondsSince(due);
                        });
                    }
                    pressKey(line, Qt::Key_A, QStringLiteral("a"));
                });
            }
            double wait = 0;
            catalogue.onSearch = [&] {
                wait = nanosecondsSince(lastKey);
                loop.quit();
                // Only the first search counts; without a match there is a second one, for the whole list.
                catalogue.onSearch = nullptr;
            };
            loop.exec();
            const bool busy = machineLate.valid() && machineLate.get() > kBusy;
            if (busy && wait >= kPause && discarded < kWaits) {
                ++discarded;
            } else {
                times.push_back(wait);
            }
        }
    });
    return times;
}

double waitsTooShort()
{
    return static_cast<double>(
        std::count_if(waits().begin(), waits().end(), [](double wait) { return wait < kPause; }));
}

double latest()
{
    return *std::max_element(waits().begin(), waits().end()) - kPause;
}

} // namespace

void addLookUp(Suite& suite)
{
    constexpr double kFrame = 16e6; // nanoseconds: one picture of a screen with 60 per second
    constexpr int kSamples = 300;
    for (const LookUpCase& each : kCases) {
        const std::string path = std::string("J cold look-up, ").append(each.name);
        suite.add(Row{path + ", 99th percentile", atMost(kFrame),
                      [=, typed = each.typed] { return Sides{coldLookUp("", typed, 1'000'000, 0.99, kSamples)}; },
                      Unit::nanoseconds, 1});
        suite.add(Row{path + ", median", atMostTimes(4),
                      [=, typed = each.typed] {
                          return Sides{coldLookUp("", typed, 1'000'000, 0.5, kSamples / 5),
                                       coldLookUp("10,000", typed, 10'000, 0.5, kSamples / 5)};
                      },
                      Unit::nanoseconds, 3});
        suite.add(Growth{path + ", median",
                         [typed = each.typed](std::size_t size) { return coldLookUp("", typed, size, 0.5, 100); },
                         {10'000, 100'000, 1'000'000},
                         Unit::nanoseconds,
                         3});
    }
    suite.add(Row{"K drop-down, 1,000,000 beside 1,000", atMostTimes(3), [] {
                      return Sides{dropDown("", 1'000'000), dropDown("1,000", 1'000)};
                  }});
    suite.add(Growth{"K drop-down", [](std::size_t size) { return dropDown("", size); }, {10'000, 100'000, 1'000'000}});
    suite.add(Row{"M look-ups before 500 ms", atMost(0), [] { return Sides{{"", waitsTooShort}}; }, Unit::count, 1});
    suite.add(Row{"M latest look-up after 500 ms", atMost(5e6),
                  [] {
                      return Sides{{"", latest}};
                  },
                  Unit::nanoseconds, 1});
}

} // namespace orvan::bench
