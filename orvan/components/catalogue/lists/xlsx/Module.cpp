// The module orvan_workbooks: opens workbooks for the library that has loaded it.

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/lists/WorkbookModule.h"
#include "orvan/components/catalogue/lists/xlsx/Sheet.h"

#include <algorithm>
#include <map>
#include <new>
#include <optional>
#include <utility>

namespace orvan::xlsx {

namespace {

/// Runs an act. Returns false, and keeps the failure, where it throws.
template <class Act>
bool attempt(WorkbookFailure& failure, Act&& act) noexcept
{
    try {
        act();
        return true;
    } catch (...) {
        const RuntimeError error = currentError();
        failure = {error.number(), error.userText()};
        return false;
    }
}

class OpenSheet final : public WorkbookSheet {
public:
    OpenSheet(Package& package, const std::string& part, const SharedTexts& texts) : sheet_(package, part, texts) {}

    bool next() noexcept override
    {
        bool more = false;
        return attempt(failure_, [&] { more = sheet_.next(); }) && more;
    }
    const std::vector<std::string_view>& cells() const noexcept override { return sheet_.cells(); }
    bool isNumber(std::size_t cell) const noexcept override { return sheet_.isNumber(cell); }
    std::uint64_t line() const noexcept override { return sheet_.line(); }
    const WorkbookFailure& failure() const noexcept override { return failure_; }

private:
    Sheet sheet_;
    WorkbookFailure failure_;
};

/// The other parts that a part names, by their ids.
struct Relations {
    struct Target {
        std::string type, part;
    };
    std::map<std::string, Target, std::less<>> targets;

    Relations(Package& package, const std::string& part, const std::string& folder)
    {
        Part::Events events;
        events.begin = [&](std::string_view name, const XML_Char** attributes) {
            if (name != "Relationship" || attribute(attributes, "TargetMode") == "External") {
                return;
            }
            const std::string_view target = attribute(attributes, "Target"), type = attribute(attributes, "Type");
            targets[std::string(attribute(attributes, "Id"))] = {
                std::string(type.substr(type.rfind('/') + 1)),
                target.starts_with('/') ? std::string(target.substr(1)) : folder + std::string(target)};
        };
        Part(package, part, std::move(events)).parseAll();
    }

    std::string partOfType(std::string_view type) const
    {
        const auto found =
            std::find_if(targets.begin(), targets.end(), [type](const auto& each) { return each.second.type == type; });
        return found == targets.end() ? std::string() : found->second.part;
    }
};

class Workbook final : public WorkbookParts {
public:
    explicit Workbook(WorkbookBytes& bytes)
    {
        attempt(failure_, [&] {
            package_.emplace(bytes);
            read();
        });
    }

    const std::vector<std::string>& sheets() const noexcept override { return sheets_; }
    const WorkbookFailure& failure() const noexcept override { return failure_; }
    std::unique_ptr<WorkbookSheet> open(std::size_t sheet) noexcept override
    {
        std::unique_ptr<WorkbookSheet> opened;
        attempt(failure_, [&] {
            if (!textsPart_.empty()) {
                texts_.read(*package_, textsPart_);
                textsPart_.clear();
            }
            opened = std::make_unique<OpenSheet>(*package_, parts_.at(sheet), texts_);
        });
        return opened;
    }

private:
    void read()
    {
        if (!package_->has("_rels/.rels")) {
            refuse(userText("it is a ZIP file, but no workbook (.xlsx)"));
        }
        const std::string main = Relations(*package_, "_rels/.rels", "").partOfType("officeDocument");
        if (!main.ends_with(".xml")) {
            refuse(userText("it is no workbook (.xlsx); save it as .xlsx or CSV"));
        }
        const std::size_t slash = main.rfind('/') + 1; // 0 where there is none
        const std::string folder = main.substr(0, slash);
        const Relations relations(*package_, folder + "_rels/" + main.substr(slash) + ".rels", folder);
        textsPart_ = relations.partOfType("sharedStrings");
        Part::Events events;
        events.begin = [&](std::string_view name, const XML_Char** attributes) {
            if (name != "sheet" || attribute(attributes, "state").ends_with("idden")) {
                return; // hidden and veryHidden sheets are not meant for a reader
            }
            const auto target = relations.targets.find(attribute(attributes, "id"));
            if (target == relations.targets.end()) {
                refuse(userText("its sheet \"%1\" is missing", attribute(attributes, "name")));
            }
            if (target->second.type == "worksheet") { // and no chart
                sheets_.emplace_back(attribute(attributes, "name"));
                parts_.push_back(target->second.part);
            }
        };
        Part(*package_, main, std::move(events)).parseAll();
        if (sheets_.empty()) {
            refuse(userText("it has no sheet"));
        }
    }

    WorkbookFailure failure_;
    std::optional<Package> package_;
    std::string textsPart_; ///< The shared texts, while they have not been read.
    SharedTexts texts_;
    std::vector<std::string> sheets_, parts_;
};

} // namespace

} // namespace orvan::xlsx

extern "C" ORVAN_EXPORT orvan::WorkbookParts* orvanOpenWorkbookParts(orvan::WorkbookBytes& bytes)
{
    return new (std::nothrow) orvan::xlsx::Workbook(bytes);
}
