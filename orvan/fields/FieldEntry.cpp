#include "orvan/fields/FieldEntry.h"

#include "orvan/base/Text.h"
#include "orvan/core/Deviations.h"
#include "orvan/core/ProductValues.h"
#include "orvan/core/modConversion.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/TextEntry.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace orvan {

namespace {

constexpr std::int16_t kMoneyDigits = 2;
constexpr std::int16_t kNumberDigits = 4;
constexpr Currency kHundred = Currency::fromScaled(100 * Currency::kScale);
constexpr Currency kMostCurrency = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());

/// The keys that an amount box accepts besides digits and separators: backspace, Ctrl+C, Ctrl+X and Ctrl+V.
constexpr std::int16_t kEditingKeys[] = {8, 3, 24, 22};

bool isValidKey(std::int16_t KeyAscii, const std::string& decimalSep, const std::string& thousandSep)
{
    if (KeyAscii >= '0' && KeyAscii <= '9') {
        return true;
    }
    const std::string character = toUtf8(static_cast<char16_t>(KeyAscii));
    if (character == decimalSep || character == thousandSep) {
        return true;
    }
    return std::find(std::begin(kEditingKeys), std::end(kEditingKeys), KeyAscii) != std::end(kEditingKeys);
}

} // namespace

struct FieldEntry::TextField {
    std::string_view saveLabel;
    std::int32_t mostShown; ///< Characters. A longer text is shown cut, and saving the field then cuts the record's.
    std::string (ProductRecord::*value)() const;
    void (ProductRecord::*setValue)(std::string_view);
};

const FieldEntry::TextField FieldEntry::kName = {.saveLabel = "KTVOrvanProduct.frmProduct::PrvSaveNameFld",
                                                 .mostShown = 255,
                                                 .value = &ProductRecord::Name,
                                                 .setValue = &ProductRecord::SetName};

const FieldEntry::TextField FieldEntry::kPartNum = {.saveLabel = "KTVOrvanProduct.frmProduct::PrvSavePartNumFld",
                                                    .mostShown = 255,
                                                    .value = &ProductRecord::PartNum,
                                                    .setValue = &ProductRecord::SetPartNum};

const FieldEntry::TextField FieldEntry::kNote = {.saveLabel = "KTVOrvanProduct.frmProduct::PrvSaveNoteFld",
                                                 .mostShown = 4095,
                                                 .value = &ProductRecord::Note,
                                                 .setValue = &ProductRecord::SetNote};

struct FieldEntry::AmountField {
    std::string_view keyPressLabel;
    std::string_view gotFocusLabel;
    std::string_view lostFocusLabel;
    std::string_view changeLabel;
    std::string_view saveLabel;
    bool (FieldEntry::*isValidKey)(std::int16_t) const;
    Currency (*fromText)(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep);
    std::string LocaleStrings::*decimalSep;
    Currency most; ///< A larger amount in the box counts as 0; the record is not asked whether it accepts that one.
    Currency (ProductRecord::*value)() const;
    void (ProductRecord::*setValue)(Currency);
    bool (ProductRecord::*isValid)(Currency) const;
    std::string (*toText)(ui::LocaleService& locale, const LocaleStrings& texts, Currency cyValue, AmountForm form);
};

// Three of the labels below name another handler than their own, on purpose: support staff are used to traces with
// these labels.
const FieldEntry::AmountField FieldEntry::kQty = {
    .keyPressLabel = "KTVOrvanProduct.frmProduct::txtQty_KeyPress",
    .gotFocusLabel = "KTVOrvanProduct.frmProduct::txtQty_GotFocus",
    .lostFocusLabel = "KTVOrvanProduct.frmProduct::txtQty_LostFocus",
    .changeLabel = "KTVOrvanProduct.frmProduct::txtQty_LostFocus", // not txtQty_Change
    .saveLabel = "KTVOrvanProduct.frmProduct::PrvSaveQtyFld",
    .isValidKey = &FieldEntry::PrvIsValidNumberKey,
    .fromText = NumberTextToValue,
    .decimalSep = &LocaleStrings::decimalSep,
    .most = kMostCurrency,
    .value = &ProductRecord::Qty,
    .setValue = &ProductRecord::SetQty,
    .isValid = &ProductRecord::IsValidQty,
    .toText = [](ui::LocaleService& locale, const LocaleStrings& /*texts*/, Currency cyValue, AmountForm /*form*/) {
        return FormatNumberValue(locale, cyValue, kNumberDigits);
    }};

const FieldEntry::AmountField FieldEntry::kUnitPrice = {
    .keyPressLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_KeyPress",
    .gotFocusLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_GotFocus",
    .lostFocusLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_GotFocus", // not txtUnitPrice_LostFocus
    .changeLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_Change",
    .saveLabel = "KTVOrvanProduct.frmProduct::PrvSaveUnitPriceFld",
    .isValidKey = &FieldEntry::PrvIsValidCurrencyKey,
    .fromText = CurrencyTextToValue,
    .decimalSep = &LocaleStrings::monDecimalSep,
    .most = kMostCurrency,
    .value = &ProductRecord::UnitPrice,
    .setValue = &ProductRecord::SetUnitPrice,
    .isValid = &ProductRecord::IsValidUnitPrice,
    .toText = [](ui::LocaleService& locale, const LocaleStrings& texts, Currency cyValue, AmountForm form) {
        return FormatCurrencyValue(locale, cyValue, kMoneyDigits, texts.currencySymbol, form == AmountForm::display);
    }};

const FieldEntry::AmountField FieldEntry::kDiscount = {
    .keyPressLabel = "KTVOrvanProduct.frmProduct::txtDiscount_KeyPress",
    .gotFocusLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_GotFocus", // not txtDiscount_GotFocus
    .lostFocusLabel = "KTVOrvanProduct.frmProduct::txtDiscount_LostFocus",
    .changeLabel = "KTVOrvanProduct.frmProduct::txtDiscount_Change",
    .saveLabel = "KTVOrvanProduct.frmProduct::PrvSaveDiscountPrcntFld",
    .isValidKey = &FieldEntry::PrvIsValidNumberKey,
    .fromText = PercentTextToValue,
    .decimalSep = &LocaleStrings::decimalSep,
    .most = kHundred,
    .value = &ProductRecord::DiscPrcnt,
    .setValue = &ProductRecord::SetDiscPrcnt,
    .isValid = &ProductRecord::IsValidDiscPrcnt,
    .toText = [](ui::LocaleService& locale, const LocaleStrings& /*texts*/, Currency cyValue, AmountForm form) {
        return FormatPercentValue(locale, cyValue, kNumberDigits, form == AmountForm::display);
    }};

FieldEntry::FieldEntry(EditorSession& session, ui::Surface& surface)
    : session_(session), cboProductName_{kName, surface.control<ui::TextEntry>("cboProductName")},
      cboPartNum_{kPartNum, surface.control<ui::TextEntry>("cboPartNum")},
      txtNote_{kNote, surface.control<ui::TextBox>("txtNote")}, txtQty_{kQty, surface.control<ui::TextBox>("txtQty")},
      txtUnitPrice_{kUnitPrice, surface.control<ui::TextBox>("txtUnitPrice")},
      txtDiscount_{kDiscount, surface.control<ui::TextBox>("txtDiscount")},
      txtExtPrice_(surface.control<ui::TextBox>("txtExtPrice")), txtTotal_(surface.control<ui::TextBox>("txtTotal"))
{
    if (session.readOnly) {
        return; // showing a product raises change events, and their procedures would write it back, rounded and cut
    }
    takeEvents(txtQty_);
    takeEvents(txtUnitPrice_);
    takeEvents(txtDiscount_);
    handlers_.set(txtNote_.box.onChange, [this] { txtNote_Change(); });
}

void FieldEntry::takeEvents(AmountBox& amount)
{
    handlers_.set(amount.box.onKeyPress, [this, &amount](std::int16_t& KeyAscii) { keyPressed(amount, KeyAscii); });
    handlers_.set(amount.box.onGotFocus, [this, &amount] { gotFocus(amount); });
    handlers_.set(amount.box.onLostFocus, [this, &amount] { lostFocus(amount); });
    handlers_.set(amount.box.onChange, [this, &amount] { changed(amount); });
}

bool FieldEntry::PrvIsValidNumberKey(std::int16_t KeyAscii) const
{
    return isValidKey(KeyAscii, session_.locale.decimalSep, session_.locale.thousandSep);
}

bool FieldEntry::PrvIsValidCurrencyKey(std::int16_t KeyAscii) const
{
    return isValidKey(KeyAscii, session_.locale.monDecimalSep, session_.locale.monThousandSep);
}

void FieldEntry::keyPressed(const AmountBox& amount, std::int16_t& KeyAscii)
{
    session_.handleEvent(amount.field.keyPressLabel, [&] {
        if (!(this->*amount.field.isValidKey)(KeyAscii)) {
            KeyAscii = 0;
        }
    });
}

void FieldEntry::gotFocus(AmountBox& amount)
{
    session_.handleEvent(amount.field.gotFocusLabel, [&] {
        const ScopedFlag rewriting(session_.initializing); // its end clears the flag, even if it was set before
        showAmount(amount, *session_.currentProduct(), AmountForm::edit);
        amount.box.setSelectionStart(0);
        amount.box.setSelectionLength(static_cast<std::int32_t>(characterCount(amount.box.text())));
    });
}

void FieldEntry::lostFocus(AmountBox& amount)
{
    session_.handleEvent(amount.field.lostFocusLabel, [&] {
        const bool unvisited = keepsUnvisited(amount);
        saveAmount(amount);
        {
            const ScopedFlag rewriting(session_.initializing);
            showAmount(amount, *session_.currentProduct(), AmountForm::display);
        }
        if (!unvisited) {
            PrvCalcExtPrice();
        }
        PrvShowExtPriceAndTotal();
    });
}

void FieldEntry::changed(AmountBox& amount)
{
    session_.handleEvent(amount.field.changeLabel, [&] {
        const bool shows = session_.showingProduct && differs(session_.platform(), Deviation::openingChangesNothing);
        if (!session_.initializing && !shows) {
            amount.edited = true;
            saveAmount(amount);
            PrvCalcExtPrice();
            PrvShowExtPriceAndTotal();
        }
    });
}

void FieldEntry::txtNote_Change()
{
    // Unlike an amount, the note is saved even while the session initializes, on purpose. So where the box cuts a
    // long note while a product is loaded, the record's note is cut, too; the session is not marked dirty by that.
    session_.handleEvent("KTVOrvanProduct.frmProduct::txtNote_Change", [&] { PrvSaveNoteFld(); });
}

std::string_view FieldEntry::shownPart(const TextField& field, const std::string& value)
{
    return firstCharacters(value, static_cast<std::size_t>(field.mostShown));
}

bool FieldEntry::mustNotSave() const
{
    return session_.halfShown && differs(session_.platform(), Deviation::halfShownProductIsNotSaved);
}

void FieldEntry::saveText(const TextFieldBox& text)
{
    tracePropagate(text.field.saveLabel, [&] {
        if (mustNotSave()) {
            return;
        }
        const auto product = session_.currentProduct();
        const std::string value = ((*product).*text.field.value)();
        const bool asShown = text.box.text() == shownPart(text.field, value);
        if (asShown && differs(session_.platform(), Deviation::openingChangesNothing)) {
            return; // what is beyond the box's limit stays
        }
        if (value != text.box.text()) {
            const std::string typed = text.box.text(); // the record's own code may change the box
            ((*product).*text.field.setValue)(typed);
            session_.PrvSetDirty(true);
        }
    });
}

bool FieldEntry::keepsUnvisited(const AmountBox& amount) const
{
    return !amount.edited && differs(session_.platform(), Deviation::unvisitedPriceIsKept);
}

void FieldEntry::saveAmount(const AmountBox& amount)
{
    const AmountField& field = amount.field;
    tracePropagate(field.saveLabel, [&] {
        if (mustNotSave() || keepsUnvisited(amount)) {
            return;
        }
        Currency cyValue =
            field.fromText(session_.platform().locale(), amount.box.text(), session_.locale.*field.decimalSep);
        if (cyValue > field.most) {
            cyValue = Currency();
        }
        if (((*session_.currentProduct()).*field.value)() != cyValue) {
            session_.PrvSetDirty(true); // on purpose also for an amount that the record rejects below
        }
        const bool valid = ((*session_.currentProduct()).*field.isValid)(cyValue);
        ((*session_.currentProduct()).*field.setValue)(valid ? cyValue : Currency());
    });
}

void FieldEntry::PrvCalcExtPrice()
{
    if (mustNotSave()) {
        return;
    }
    try {
        calcExtPrice();
    } catch (...) {
        // The error is not traced: a price that is too large comes from what the user types and is not a failure.
        const ResumeNext<false> step;
        step([&] {
            if (session_.currentProduct()->ExtPrice() != Currency()) {
                session_.PrvSetDirty(true);
            }
        });
        step([&] { session_.currentProduct()->SetExtPrice(Currency()); });
    }
}

void FieldEntry::calcExtPrice()
{
    const auto product = session_.currentProduct();
    // Three statements on purpose: in one expression each compiler would choose its own order of the reads, and a
    // host's record sees the order.
    const Currency discount = product->DiscPrcnt();
    const Currency unitPrice = product->UnitPrice();
    const Currency qty = product->Qty();
    // A discount above 100 counts as none, but stays in the record: it did not come from the discount box.
    const Currency extPrice = extendedPrice(unitPrice, qty, discount);
    if (product->ExtPrice() != extPrice) {
        session_.PrvSetDirty(true);
    }
    product->SetExtPrice(extPrice);
}

void FieldEntry::showProduct()
{
    const ScopedFlag showing(session_.showingProduct);
    const auto product = session_.currentProduct(); // setting a text raises a change event, which may end the session
    if (!session_.readOnly) {                       // a box that takes no input can show more than it would take
        txtNote_.box.setMaxLength(kNote.mostShown);
    }
    showText(cboProductName_, *product);
    showText(cboPartNum_, *product);
    showAmount(txtUnitPrice_, *product, AmountForm::display);
    showAmount(txtDiscount_, *product, AmountForm::display);
    showAmount(txtQty_, *product, AmountForm::display);
    showMoney(txtExtPrice_, product->ExtPrice());
    showText(txtNote_, *product);
    showMoney(txtTotal_, session_.productMgr()->GetTotalValue());
}

void FieldEntry::PrvShowExtPriceAndTotal()
{
    showMoney(txtExtPrice_, session_.currentProduct()->ExtPrice());
    showMoney(txtTotal_, session_.productMgr()->GetTotalValue());
}

void FieldEntry::showText(const TextFieldBox& text, const ProductRecord& product) const
{
    const std::string value = (product.*text.field.value)();
    text.box.setText(session_.readOnly ? value : shownPart(text.field, value));
}

void FieldEntry::showAmount(AmountBox& amount, const ProductRecord& product, AmountForm form)
{
    const Currency cyValue = (product.*amount.field.value)();
    amount.box.setText(amount.field.toText(session_.platform().locale(), session_.locale, cyValue, form));
    amount.edited = false;
}

void FieldEntry::showMoney(ui::TextBox& box, Currency cyValue)
{
    FormatCurrencyValue(shownMoney_, session_.platform().locale(), cyValue, kMoneyDigits,
                        session_.locale.currencySymbol, true);
    box.setText(shownMoney_);
}

} // namespace orvan
