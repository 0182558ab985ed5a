// FieldsFixture: the fields on a form in memory, without the editor: a session of the test's own.
#pragma once

#include "orvan/core/modLocale.h"
#include "orvan/editor/frmProductDesign.h"
#include "orvan/fields/FieldEntry.h"
#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/ui/headless/HeadlessForm.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/icu/IcuLocaleService.h"
#include "tests/products/ProductMgrFixture.h"
#include "tests/support/RecordingTrace.h"
#include "tests/support/Rows.h"

namespace orvan::test {

class FieldsFixture final : public EditorSession {
public:
    explicit FieldsFixture(const char* localeName = "en_US", ProductRules rules = {})
        : locales({.monetary = localeName, .numeric = localeName})
    {
        platform_.onUnhandledError = [](const RuntimeError& error) { ADD_FAILURE() << error.number(); };
        locale = PrvInitLocale(locales);
        objProductMgr = makeManager({.rules = std::move(rules)});
        heldProduct = objProductMgr->AddNewProduct();
    }

    ui::Platform& platform() override { return platform_; }
    std::int32_t window() override { return 0; }
    void PrvSetDirty(bool bDirty) override { dirty = bDirty && (dirty || !initializing); }
    void PrvLoadProductInfo() override {}
    void PrvCloseOnError() override
    {
        ++closed;
        form.unload();
        heldProduct.reset();
        objProductMgr.reset();
    }

    void setProduct(const char* qty, const char* unitPrice, const char* discPrcnt)
    {
        currentProduct()->SetQty(Currency::fromText(qty));
        currentProduct()->SetUnitPrice(Currency::fromText(unitPrice));
        currentProduct()->SetDiscPrcnt(Currency::fromText(discPrcnt));
    }
    /// Quantity, unit price, discount and extended price.
    std::string product() const
    {
        const ProductRecord& record = *currentProduct();
        return record.Qty().toText() + ' ' + record.UnitPrice().toText() + ' ' + record.DiscPrcnt().toText() + ' ' +
               record.ExtPrice().toText();
    }
    headless::HeadlessTextBox& box(std::string_view name) { return form.textBox(name); }

    ScopedTrace trace;
    icu::IcuLocaleService locales;
    bool dirty = false;
    int closed = 0;

private:
    ComponentRegistry components_;
    headless::HeadlessPlatform platform_{locales, components_};

public:
    headless::HeadlessForm form{kProductFormDesign, platform_};
    FieldEntry fields{*this, form};
};

} // namespace orvan::test
