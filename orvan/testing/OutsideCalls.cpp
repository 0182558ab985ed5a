#include "orvan/testing/OutsideCalls.h"

#include "orvan/core/ProductMgr.h"
#include "orvan/core/Trace.h"
#include "orvan/lookup/ProductLkpMgr.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/ScreenPointer.h"
#include "orvan/ui/Timer.h"

#include <utility>

namespace orvan::testkit {

namespace {

/// A wrapper's own part: it reports a call, then gives the wrapped object to pass the call on to.
template <class Pointer>
class Wrapped {
public:
    Wrapped(Pointer inner, OutsideCalls& calls) : inner_(std::move(inner)), calls_(calls) {}

protected:
    auto& inner(std::string_view name) const
    {
        calls_.report(name);
        return *inner_;
    }
    OutsideCalls& calls() const { return calls_; }

private:
    Pointer inner_;
    OutsideCalls& calls_;
};

class WrappedRecord final : public ProductRecord, Wrapped<std::shared_ptr<ProductRecord>> {
public:
    using Wrapped::Wrapped;

    std::string Name() const override { return inner("ProductRecord::Name").Name(); }
    void SetName(std::string_view name) override { inner("ProductRecord::SetName").SetName(name); }
    std::string Key() const override { return inner("ProductRecord::Key").Key(); }
    void SetKey(std::string_view key) override { inner("ProductRecord::SetKey").SetKey(key); }
    std::string PartNum() const override { return inner("ProductRecord::PartNum").PartNum(); }
    void SetPartNum(std::string_view partNum) override { inner("ProductRecord::SetPartNum").SetPartNum(partNum); }
    Currency UnitPrice() const override { return inner("ProductRecord::UnitPrice").UnitPrice(); }
    void SetUnitPrice(Currency value) override { inner("ProductRecord::SetUnitPrice").SetUnitPrice(value); }
    Currency Qty() const override { return inner("ProductRecord::Qty").Qty(); }
    void SetQty(Currency value) override { inner("ProductRecord::SetQty").SetQty(value); }
    Currency DiscPrcnt() const override { return inner("ProductRecord::DiscPrcnt").DiscPrcnt(); }
    void SetDiscPrcnt(Currency value) override { inner("ProductRecord::SetDiscPrcnt").SetDiscPrcnt(value); }
    Currency ExtPrice() const override { return inner("ProductRecord::ExtPrice").ExtPrice(); }
    void SetExtPrice(Currency value) override { inner("ProductRecord::SetExtPrice").SetExtPrice(value); }
    std::string Note() const override { return inner("ProductRecord::Note").Note(); }
    void SetNote(std::string_view note) override { inner("ProductRecord::SetNote").SetNote(note); }
    bool IsValidUnitPrice(Currency value) const override
    {
        return inner("ProductRecord::IsValidUnitPrice").IsValidUnitPrice(value);
    }
    bool IsValidQty(Currency value) const override { return inner("ProductRecord::IsValidQty").IsValidQty(value); }
    bool IsValidDiscPrcnt(Currency value) const override
    {
        return inner("ProductRecord::IsValidDiscPrcnt").IsValidDiscPrcnt(value);
    }
};

class WrappedProductMgr final : public ProductMgr, Wrapped<std::shared_ptr<ProductMgr>> {
public:
    using Wrapped::Wrapped;

    std::int32_t GetProductCount() override { return inner("ProductMgr::GetProductCount").GetProductCount(); }
    Currency GetTotalValue() override { return inner("ProductMgr::GetTotalValue").GetTotalValue(); }
    void SeekIndex(std::int32_t& lIndex, std::int32_t lOffset, bool& found) override
    {
        inner("ProductMgr::SeekIndex").SeekIndex(lIndex, lOffset, found);
    }
    std::shared_ptr<ProductRecord> AddNewProduct() override
    {
        return std::make_shared<WrappedRecord>(inner("ProductMgr::AddNewProduct").AddNewProduct(), calls());
    }
    std::shared_ptr<ProductRecord> GetProduct(std::int32_t lIndex) override
    {
        return std::make_shared<WrappedRecord>(inner("ProductMgr::GetProduct").GetProduct(lIndex), calls());
    }
    void DeleteProduct(std::int32_t lIndex) override { inner("ProductMgr::DeleteProduct").DeleteProduct(lIndex); }
    void MoveProduct(std::int32_t from, std::int32_t to) override
    {
        inner("ProductMgr::MoveProduct").MoveProduct(from, to);
    }
    void SetProductsString(std::string_view sProducts, const std::string& recordSeparator,
                           const std::string& fieldSeparator, bool flag) override
    {
        inner("ProductMgr::SetProductsString").SetProductsString(sProducts, recordSeparator, fieldSeparator, flag);
    }
    std::string GetProductsString(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        return inner("ProductMgr::GetProductsString").GetProductsString(recordSeparator, fieldSeparator);
    }
    std::int32_t GetMaxDataSize() override { return inner("ProductMgr::GetMaxDataSize").GetMaxDataSize(); }
    void CheckDataSize(const std::string& recordSeparator, const std::string& fieldSeparator) override
    {
        inner("ProductMgr::CheckDataSize").CheckDataSize(recordSeparator, fieldSeparator);
    }
};

class WrappedLookUp final : public ProductLkpMgr, Wrapped<std::shared_ptr<ProductLkpMgr>> {
public:
    using Wrapped::Wrapped;

    LookUpList GetPartNumList(std::string_view sText, bool all) override
    {
        return inner("ProductLkpMgr::GetPartNumList").GetPartNumList(sText, all);
    }
    LookUpList GetProductNameList(std::string_view sText, bool all) override
    {
        return inner("ProductLkpMgr::GetProductNameList").GetProductNameList(sText, all);
    }
    void SeekItem(std::int32_t itemId) override { inner("ProductLkpMgr::SeekItem").SeekItem(itemId); }
    bool IsEOF() override { return inner("ProductLkpMgr::IsEOF").IsEOF(); }
    LookUpValue GetFieldValue(std::int32_t column) override
    {
        return inner("ProductLkpMgr::GetFieldValue").GetFieldValue(column);
    }
    std::optional<LookUpSummary> summary(std::int64_t itemId) override
    {
        return inner("ProductLkpMgr::summary").summary(itemId);
    }
    std::size_t mostMatches() const override { return inner("ProductLkpMgr::mostMatches").mostMatches(); }
};

class WrappedTrace final : public Trace, Wrapped<std::shared_ptr<Trace>> {
public:
    using Wrapped::Wrapped;

    std::int32_t LastErrorNumber() override { return inner("Trace::LastErrorNumber").LastErrorNumber(); }
    void TraceError(std::string_view sText) override { inner("Trace::TraceError").TraceError(sText); }
    void TraceEnter(std::string_view label) override { inner("Trace::TraceEnter").TraceEnter(label); }
    void TraceExit(std::string_view label) override { inner("Trace::TraceExit").TraceExit(label); }
    std::int32_t AppErrorNumber() override { return inner("Trace::AppErrorNumber").AppErrorNumber(); }
    void ShowLastError(std::int32_t hWnd) override { inner("Trace::ShowLastError").ShowLastError(hWnd); }
};

class WrappedMessageBox final : public ui::MessageBox, Wrapped<ui::MessageBox*> {
public:
    using Wrapped::Wrapped;

    ui::MessageResult show(const ui::Message& message) override { return inner("MessageBox::show").show(message); }
};

class WrappedSettings final : public ui::SettingsStore, Wrapped<ui::SettingsStore*> {
public:
    using Wrapped::Wrapped;

    std::string get(std::string_view application, std::string_view section, std::string_view key) override
    {
        return inner("SettingsStore::get").get(application, section, key);
    }
    void set(std::string_view application, std::string_view section, std::string_view key,
             std::string_view value) override
    {
        inner("SettingsStore::set").set(application, section, key, value);
    }
};

class WrappedLocale final : public ui::LocaleService, Wrapped<ui::LocaleService*> {
public:
    using Wrapped::Wrapped;

    std::int32_t getLocaleInfo(std::int32_t localeId, ui::LocaleItem item, std::span<char> buffer) override
    {
        return inner("LocaleService::getLocaleInfo").getLocaleInfo(localeId, item, buffer);
    }
    void appendCurrency(std::string& text, Currency value, int digits) override
    {
        inner("LocaleService::appendCurrency").appendCurrency(text, value, digits);
    }
    void appendNumber(std::string& text, Currency value, int digits) override
    {
        inner("LocaleService::appendNumber").appendNumber(text, value, digits);
    }
    Currency textToCurrency(std::string_view text) override
    {
        return inner("LocaleService::textToCurrency").textToCurrency(text);
    }
    char32_t foldCase(char32_t character) override { return inner("LocaleService::foldCase").foldCase(character); }
};

class WrappedPointer final : public ui::ScreenPointer, Wrapped<ui::ScreenPointer*> {
public:
    using Wrapped::Wrapped;

    ui::PointerCode code() const override { return inner("ScreenPointer::code").code(); }
    void setCode(ui::PointerCode code) override { inner("ScreenPointer::setCode").setCode(code); }
};

/// The wrapper if the object has the interface; otherwise null.
template <class Interface, class Wrapper>
std::shared_ptr<ui::Component> wrapped(const std::shared_ptr<ui::Component>& object, OutsideCalls& calls)
{
    auto inner = std::dynamic_pointer_cast<Interface>(object);
    return inner ? std::make_shared<Wrapper>(std::move(inner), calls) : nullptr;
}

} // namespace

void OutsideCalls::failAt(std::size_t number, Repeat repeat, Failure failure)
{
    count_ = 0;
    failAt_ = number;
    repeat_ = repeat;
    failure_ = failure;
    failed_.clear();
}

void OutsideCalls::report(std::string_view name)
{
    ++count_;
    if (failAt_ == 0 || (repeat_ == Repeat::once ? count_ != failAt_ : count_ < failAt_)) {
        return;
    }
    if (failed_.empty()) {
        failed_ = name;
    }
    if (failure_ == Failure::foreign) {
        throw std::string(name); // the library must catch even what is not derived from std::exception
    }
    throw RuntimeError(kErrorNumber, "OutsideCalls", std::string(name) + " was told to fail");
}

std::shared_ptr<ui::Component> WrappedFactory::create(std::string_view className)
{
    calls_.report("ComponentFactory::create");
    std::shared_ptr<ui::Component> object = inner_.create(className);
    for (const auto wrap : {wrapped<ProductMgr, WrappedProductMgr>, wrapped<ProductLkpMgr, WrappedLookUp>,
                            wrapped<Trace, WrappedTrace>}) {
        if (std::shared_ptr<ui::Component> wrapper = wrap(object, calls_)) {
            return wrapper;
        }
    }
    return object;
}

struct WrappedPlatform::Services {
    Services(ui::Platform& inner, const Own& own, OutsideCalls& calls)
        : messageBox(&own.messageBox, calls), settings(&inner.settings(), calls), locale(&own.locale, calls),
          components(own.components, calls), pointer(&inner.pointer(), calls)
    {
    }

    WrappedMessageBox messageBox;
    WrappedSettings settings;
    WrappedLocale locale;
    WrappedFactory components;
    WrappedPointer pointer;
};

WrappedPlatform::WrappedPlatform(ui::Platform& inner, const Own& own, OutsideCalls& calls)
    : inner_(inner), calls_(calls), services_(std::make_unique<Services>(inner, own, calls))
{
    editing = inner.editing;
    onUnhandledError = [&inner](const RuntimeError& error) {
        if (inner.onUnhandledError) {
            inner.onUnhandledError(error);
        }
    };
}

WrappedPlatform::~WrappedPlatform() = default;

ui::MessageBox& WrappedPlatform::messageBox()
{
    return services_->messageBox;
}

ui::SettingsStore& WrappedPlatform::settings()
{
    return services_->settings;
}

ui::LocaleService& WrappedPlatform::locale()
{
    return services_->locale;
}

ui::ComponentFactory& WrappedPlatform::components()
{
    return services_->components;
}

ui::Clipboard& WrappedPlatform::clipboard()
{
    return inner_.clipboard();
}

ui::ScreenPointer& WrappedPlatform::pointer()
{
    return services_->pointer;
}

std::unique_ptr<ui::Form> WrappedPlatform::loadForm(const ui::FormDesign& design, std::int32_t ownerWindow)
{
    calls_.report("Platform::loadForm");
    std::unique_ptr<ui::Form> form = inner_.loadForm(design, ownerWindow);
    for (const ui::ControlDesign& control : design.controls) {
        if (control.kind == ui::ControlKind::timer) {
            form->control<ui::Timer>(control.name).beforeSchedule = [this] { calls_.report("Timer::schedule"); };
        }
    }
    if (onFormLoaded) {
        onFormLoaded(*form);
    }
    return form;
}

} // namespace orvan::testkit
