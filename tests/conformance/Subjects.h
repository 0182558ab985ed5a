// Subjects: the library's own implementations, as the conformance suites take them.
#pragma once

#include "orvan/components/catalogue/CatalogueFactory.h"
#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/components/products/InProcessProductMgr.h"
#include "orvan/components/trace/TraceLog.h"
#include "orvan/hosting/Host.h"
#include "orvan/testing/LocaleServiceConformance.h"
#include "orvan/testing/MessageBoxConformance.h"
#include "orvan/testing/ProductLkpMgrConformance.h"
#include "orvan/testing/ProductRecordConformance.h"
#include "orvan/testing/SettingsStoreConformance.h"
#include "orvan/testing/TraceConformance.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "tests/support/TemporaryFolder.h"

namespace orvan::test {

/// Files of the test, made when the first subject needs them.
inline const TemporaryFolder& conformanceFolder()
{
    static const TemporaryFolder folder;
    return folder;
}

/// The limit is low, so that the rows about lists beyond it are quick.
inline conformance::ProductMgrFactory productMgrs()
{
    return productMgrFactory({.maxDataSize = 4096, .rules = {}});
}

inline conformance::ProductLkpMgrFactory catalogue()
{
    static const auto make = [] {
        const std::filesystem::path list = conformanceFolder() / "list.csv",
                                    file = conformanceFolder() / "goods.catalogue";
        writeText(list,
                  "Part number,Name,Key,Price,Note\nA-1,Anchor,1,2.50,\nA-2,Anvil,2,99.00,heavy\nB-1,Bolt,3,0.25,\n");
        importCatalogue(list, file, {});
        return catalogueFactory({.file = file});
    }();
    return make;
}

inline headless::HeadlessMessageBox& traceMessages()
{
    static headless::HeadlessMessageBox box;
    return box;
}

inline conformance::TraceSubject traceLog()
{
    return {.make = [] { return traceLogFactory({.file = conformanceFolder() / "trace.log"}, traceMessages())(); },
            .beforeShow = [] { traceMessages().answer(ui::MessageResult::ok); },
            .messages = [] { return traceMessages().shown().size(); }};
}

inline conformance::LocaleServiceFactory locale(const std::string& name)
{
    return [name] { return makeLocaleService({.monetary = name, .numeric = name}); };
}

} // namespace orvan::test
