#include "orvan/components/catalogue/CatalogueFactory.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/NoCatalogue.h"

#include <iostream>
#include <mutex>
#include <string>
#include <utility>

namespace orvan {

namespace {

/// Reports why the file cannot be used, and remembers the last reason for all objects of one factory.
class Reports {
public:
    explicit Reports(const std::function<void(const UserText&)>& report) : report_(report) {}

    void tell(const UserText& text)
    {
        const std::string reason = text.english();
        {
            const std::lock_guard lock(mutex_);
            if (last_ == reason) {
                return;
            }
            last_ = reason;
        }
        if (report_) { // called without the lock, because it may show a message box for minutes
            report_(text);
        } else {
            std::cerr << reason << std::endl;
        }
    }

private:
    const std::function<void(const UserText&)> report_;
    std::mutex mutex_;
    std::string last_;
};

/// Works as the catalogue in the file. A call that fails finds no entries; the next list tries the file again.
class CatalogueOrNone final : public ProductLkpMgr {
public:
    CatalogueOrNone(CatalogueOptions options, std::shared_ptr<Reports> reports)
        : options_(std::move(options)), reports_(std::move(reports))
    {
        orNone([&] { open(); });
    }

    LookUpList GetPartNumList(std::string_view sText, bool all) override
    {
        LookUpList rows;
        orNone([&] { rows = open().GetPartNumList(sText, all); });
        return rows;
    }
    LookUpList GetProductNameList(std::string_view sText, bool all) override
    {
        LookUpList rows;
        orNone([&] { rows = open().GetProductNameList(sText, all); });
        return rows;
    }
    void SeekItem(std::int32_t itemId) override
    {
        if (inner_) {
            orNone([&] { inner_->SeekItem(itemId); });
        }
    }
    bool IsEOF() override { return !inner_ || inner_->IsEOF(); }
    LookUpValue GetFieldValue(std::int32_t column) override
    {
        return inner_ ? inner_->GetFieldValue(column) : NoCatalogue().GetFieldValue(column);
    }
    // A failure is not reported: the list is being painted, and the next look-up fails, too, and is.
    std::optional<LookUpSummary> summary(std::int64_t itemId) override
    {
        return inner_ ? inner_->summary(itemId) : std::nullopt;
    }
    std::size_t mostMatches() const override { return options_.mostMatches; }

private:
    SqliteCatalogue& open()
    {
        if (!inner_) {
            inner_ = std::make_unique<SqliteCatalogue>(options_);
        }
        return *inner_;
    }

    template <class Action>
    void orNone(Action&& action)
    {
        try {
            action();
        } catch (...) {
            reports_->tell(currentError().userText());
        }
    }

    const CatalogueOptions options_;
    std::shared_ptr<Reports> reports_;
    std::unique_ptr<SqliteCatalogue> inner_; ///< Null where the file could not be opened yet.
};

} // namespace

std::function<std::shared_ptr<ui::Component>()> catalogueFactory(CatalogueOptions options)
{
    if (options.file.empty()) {
        return [] { return std::make_shared<NoCatalogue>(); };
    }
    auto reports = std::make_shared<Reports>(options.report);
    return [options = std::move(options), reports = std::move(reports)] {
        return std::make_shared<CatalogueOrNone>(options, reports);
    };
}

} // namespace orvan
