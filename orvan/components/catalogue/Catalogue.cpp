#include "orvan/components/catalogue/Catalogue.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/CatalogueVersion.h"

#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

namespace orvan {

namespace {

constexpr int kTries = 3;
constexpr std::chrono::milliseconds kPause(20); // the user interface does not react for that time

/// Whether somebody may be writing the file at present; the clocks of network folders differ a little.
bool isBeingChanged(const std::filesystem::path& file)
{
    constexpr std::chrono::seconds kLately(5);
    std::error_code error;
    const auto age = std::filesystem::file_time_type::clock::now() - std::filesystem::last_write_time(file, error);
    return !error && age < kLately && age > -kLately;
}

} // namespace

SqliteCatalogue::SqliteCatalogue(CatalogueOptions options) : options_(std::move(options))
{
    listed_[0].version = listed_[1].version = tried([&] { return present(); });
}

SqliteCatalogue::~SqliteCatalogue() = default;

template <class Step>
auto SqliteCatalogue::tried(Step&& step) -> decltype(step())
{
    for (int left = kTries - 1;; --left) {
        try {
            return step();
        } catch (const RuntimeError& error) {
            const bool wasOpen = std::exchange(last_, nullptr) != nullptr; // it is opened anew with the next step
            const bool mayPass = error.number() == ErrorNumber::invalidFileFormat && isBeingChanged(options_.file);
            if (left == 0 || error.number() == ErrorNumber::outOfMemory || !(wasOpen || mayPass)) {
                throw;
            }
        }
        std::this_thread::sleep_for(kPause);
    }
}

SqliteCatalogue::Version SqliteCatalogue::present()
{
    if (!last_ || !last_->isPresent()) {
        last_ = std::make_shared<CatalogueVersion>(options_.file);
    }
    return last_;
}

LookUpList SqliteCatalogue::list(LookUpText text, std::string_view sText, bool all)
{
    const auto place = static_cast<std::size_t>(text);
    const std::optional<std::string> missed = std::exchange(missed_, {})[place];
    if (!all && sText.empty()) {
        return {};
    }
    std::vector<LookUpRow> rows = tried([&] {
        listed_[place].version = present();
        return all ? last_->all(text, options_.mostListed, missed)
                   : last_->matches(text, sText, options_.mostMatches, options_.completionAsTyped);
    });
    lastText_ = place;
    listed_[place].ids.clear();
    for (const LookUpRow& row : rows) {
        listed_[place].ids.insert(row.itemId);
    }
    if (!all && rows.empty()) {
        missed_[place] = sText;
    }
    return rows.empty() ? LookUpList() : std::move(rows);
}

LookUpList SqliteCatalogue::GetPartNumList(std::string_view sText, bool all)
{
    return list(LookUpText::partNum, sText, all);
}

LookUpList SqliteCatalogue::GetProductNameList(std::string_view sText, bool all)
{
    return list(LookUpText::name, sText, all);
}

void SqliteCatalogue::SeekItem(std::int32_t itemId)
{
    missed_ = {};
    entry_.clear();
    entry_ = read(itemId);
}

bool SqliteCatalogue::IsEOF()
{
    missed_ = {};
    return entry_.empty();
}

std::optional<LookUpSummary> SqliteCatalogue::summary(std::int64_t itemId)
{
    missed_ = {};
    const std::vector<LookUpValue> values = read(itemId);
    if (values.empty()) {
        return std::nullopt;
    }
    const auto value = [&](LookUpColumn column) { return values[static_cast<std::size_t>(column)]; };
    return LookUpSummary{value(LookUpColumn::partNum), value(LookUpColumn::name), value(LookUpColumn::unitPrice)};
}

std::vector<LookUpValue> SqliteCatalogue::read(std::int64_t itemId)
{
    const std::size_t other = 1 - lastText_;
    // A list that has the id comes first, because the user may have chosen its row.
    const bool otherFirst = !listed_[lastText_].ids.contains(itemId) && listed_[other].ids.contains(itemId);
    std::vector<LookUpValue> values = readFrom(listed_[otherFirst ? other : lastText_].version, itemId);
    return values.empty() ? readFrom(listed_[otherFirst ? lastText_ : other].version, itemId) : values;
}

std::vector<LookUpValue> SqliteCatalogue::readFrom(const Version& version, std::int64_t itemId)
{
    if (!version->isOverwritten()) {
        try {
            return version->entry(itemId);
        } catch (const RuntimeError&) {
            if (version->isPresent()) {
                throw;
            }
        }
    }
    const Version now = tried([&] { return present(); });
    return now->isOfSameLineage(*version) ? now->entry(itemId) : std::vector<LookUpValue>();
}

LookUpValue SqliteCatalogue::GetFieldValue(std::int32_t column)
{
    missed_ = {};
    if (entry_.empty()) {
        throw RuntimeError(ErrorNumber::objectNotSet, {}, "The catalogue has no current entry");
    }
    if (column < 0 || static_cast<std::size_t>(column) >= entry_.size()) {
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    }
    return entry_[static_cast<std::size_t>(column)];
}

} // namespace orvan
