#include "orvan/components/catalogue/CatalogueFactory.h"

#include "orvan/base/RuntimeError.h"
#include "orvan/components/catalogue/Catalogue.h"
#include "orvan/components/catalogue/NoCatalogue.h"
#include "orvan/components/catalogue/server/CatalogueSync.h"

#include <cstdlib>
#include <iostream>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>
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

/// The local copy of a server's catalogue, which is kept up to date as long as this object lives.
class ServerCatalogue {
public:
    ServerCatalogue(const std::string& uri, const CatalogueOptions& options)
    {
        try {
            const ServerUri server(uri);
            sync_ = std::make_unique<CatalogueSync>(
                CatalogueSyncOptions{.uri = server,
                                     .folder = copiesFolder(options.copies) / server.identity(),
                                     .changed = options.copyChanged});
        } catch (...) {
            failure_.emplace(currentError());
        }
    }

    /// The copy's file. Raises an error that says why there is none.
    std::filesystem::path file() const
    {
        if (failure_) {
            throw RuntimeError(*failure_);
        }
        const CatalogueCopyState state = sync_->state();
        if (std::error_code error; !std::filesystem::exists(state.copy, error)) {
            throw RuntimeError(
                ErrorNumber::pathFileAccess, {},
                state.problem.empty()
                    ? userText("The products of %1 are being copied; until that is done, none is found.", state.server)
                    : userText("The products of %1 cannot be copied: %2.", state.server, state.problem));
        }
        return state.copy;
    }

    void tellFailure(std::int32_t number)
    {
        if (sync_ && number == ErrorNumber::invalidFileFormat) {
            sync_->replaceDamaged();
        }
    }

private:
    static std::filesystem::path copiesFolder(const std::filesystem::path& named)
    {
        if (!named.empty()) {
            return named;
        }
        // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing here sets the environment
        const char *const data = std::getenv("XDG_DATA_HOME"), *const home = std::getenv("HOME");
        if (!(data && *data) && !(home && *home)) {
            throw RuntimeError(ErrorNumber::pathFileAccess, {}, userText("there is no folder for the user's data"));
        }
        return (data && *data ? std::filesystem::path(data) : std::filesystem::path(home) / ".local/share") /
               "orvan/catalogues";
    }

    std::unique_ptr<CatalogueSync> sync_;
    std::optional<RuntimeError> failure_; ///< Why there is no thread.
};

/// Works as the catalogue in the file. A call that fails finds no entries; the next list tries the file again.
class CatalogueOrNone final : public ProductLkpMgr {
public:
    /// `server` is null for a file.
    CatalogueOrNone(CatalogueOptions options, std::shared_ptr<Reports> reports, std::shared_ptr<ServerCatalogue> server)
        : options_(std::move(options)), reports_(std::move(reports)), server_(std::move(server))
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
            CatalogueOptions options = options_;
            options.file = server_ ? server_->file() : options.file;
            inner_ = std::make_unique<SqliteCatalogue>(std::move(options));
        }
        return *inner_;
    }

    template <class Action>
    void orNone(Action&& action)
    {
        try {
            action();
        } catch (...) {
            const RuntimeError error = currentError();
            reports_->tell(error.userText());
            if (server_) {
                server_->tellFailure(error.number());
            }
        }
    }

    const CatalogueOptions options_;
    std::shared_ptr<Reports> reports_;
    std::shared_ptr<ServerCatalogue> server_;
    std::unique_ptr<SqliteCatalogue> inner_; ///< Null where the file could not be opened yet.
};

} // namespace

std::function<std::shared_ptr<ui::Component>()> catalogueFactory(CatalogueOptions options)
{
    if (options.file.empty()) {
        return [] { return std::make_shared<NoCatalogue>(); };
    }
    auto reports = std::make_shared<Reports>(options.report);
    std::shared_ptr<ServerCatalogue> server;
    if (const std::string file = options.file.string(); ServerUri::isUri(file)) {
        server = std::make_shared<ServerCatalogue>(file, options);
        options.file.clear(); // it may have a password
    }
    return [options = std::move(options), reports = std::move(reports), server = std::move(server)] {
        return std::make_shared<CatalogueOrNone>(options, reports, server);
    };
}

} // namespace orvan
