#include "orvan/fields/FieldEntry.h"

#include "orvan/base/Text.h"
#include "orvan/core/modConversion.h"
#include "orvan/ui/ComboBox.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/TextBox.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace orvan {

namespace {

constexpr std::int16_t kMoneyDigits = 2;
constexpr std::int16_t kNumberDigits = 4;
constexpr Currency kHundred = Currency::fromScaled(100 * Currency::kScale);
constexpr Currency kMostCurrency = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());

/// What passes beside digits and separators: backspace, Ctrl+C, Ctrl+X and Ctrl+V.
constexpr std::int16_t kEditingKeys[] = {8, 3, 24, 22};

bool isValidKey(std::int16_t iKeyAscii, const std::string& sDecimalSep, const std::string& sThousandSep)
{
    if (iKeyAscii >= '0' && iKeyAscii <= '9') {
        return true;
    }
    const std::string character = toUtf8(static_cast<char16_t>(iKeyAscii));
    if (character == sDecimalSep || character == sThousandSep) {
        return true;
    }
    return std::find(std::begin(kEditingKeys), std::end(kEditingKeys), iKeyAscii) != std::end(kEditingKeys);
}

} // namespace

struct FieldEntry::TextField {
    std::string_view sSaveLabel;
    std::string (ProductRecord::*value)() const;
    void (ProductRecord::*setValue)(std::string_view);
};

const FieldEntry::TextField FieldEntry::kName = {"KTVOrvanProduct.frmProduct::PrvSaveNameFld", &ProductRecord::Name,
                                                 &ProductRecord::SetName};
const FieldEntry::TextField FieldEntry::kPartNum = {"KTVOrvanProduct.frmProduct::PrvSavePartNumFld",
                                                    &ProductRecord::PartNum, &ProductRecord::SetPartNum};
const FieldEntry::TextField FieldEntry::kNote = {"KTVOrvanProduct.frmProduct::PrvSaveNoteFld", &ProductRecord::Note,
                                                 &ProductRecord::SetNote};

struct FieldEntry::AmountField {
    std::string_view sKeyPressLabel;
    std::string_view sGotFocusLabel;
    std::string_view sLostFocusLabel;
    std::string_view sChangeLabel;
    std::string_view sSaveLabel;
    bool (FieldEntry::*isValidKey)(std::int16_t) const;
    Currency (*fromText)(ui::LocaleService& locale, std::string_view sText, std::string_view sDecimalSep);
    std::string LocaleStrings::*decimalSep;
    Currency cyMost; ///< More than that in the box counts as 0, before the record is asked.
    Currency (ProductRecord::*value)() const;
    void (ProductRecord::*setValue)(Currency);
    bool (ProductRecord::*isValid)(Currency) const;
    /// Without bDisplayForm for a box that has the focus: no currency symbol, no "%".
    std::string (*toText)(ui::LocaleService& locale, const LocaleStrings& texts, Currency cyValue, bool bDisplayForm);
};

// Three labels are another handler's. Support staff read traces by them: they stay as they are.
const FieldEntry::AmountField FieldEntry::kQty = {
    .sKeyPressLabel = "KTVOrvanProduct.frmProduct::txtQty_KeyPress",
    .sGotFocusLabel = "KTVOrvanProduct.frmProduct::txtQty_GotFocus",
    .sLostFocusLabel = "KTVOrvanProduct.frmProduct::txtQty_LostFocus",
    .sChangeLabel = "KTVOrvanProduct.frmProduct::txtQty_LostFocus", // not txtQty_Change
    .sSaveLabel = "KTVOrvanProduct.frmProduct::PrvSaveQtyFld",
    .isValidKey = &FieldEntry::PrvIsValidNumberKey,
    .fromText = NumberTextToValue,
    .decimalSep = &LocaleStrings::decimalSep,
    .cyMost = kMostCurrency,
    .value = &ProductRecord::Qty,
    .setValue = &ProductRecord::SetQty,
    .isValid = &ProductRecord::IsValidQty,
    .toText = [](ui::LocaleService& locale, const LocaleStrings& /*texts*/, Currency cyValue, bool /*bDisplayForm*/) {
        return FormatNumberValue(locale, cyValue, kNumberDigits);
    }};

const FieldEntry::AmountField FieldEntry::kUnitPrice = {
    .sKeyPressLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_KeyPress",
    .sGotFocusLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_GotFocus",
    .sLostFocusLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_GotFocus", // not txtUnitPrice_LostFocus
    .sChangeLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_Change",
    .sSaveLabel = "KTVOrvanProduct.frmProduct::PrvSaveUnitPriceFld",
    .isValidKey = &FieldEntry::PrvIsValidCurrencyKey,
    .fromText = CurrencyTextToValue,
    .decimalSep = &LocaleStrings::monDecimalSep,
    .cyMost = kMostCurrency,
    .value = &ProductRecord::UnitPrice,
    .setValue = &ProductRecord::SetUnitPrice,
    .isValid = &ProductRecord::IsValidUnitPrice,
    .toText = [](ui::LocaleService& locale, const LocaleStrings& texts, Currency cyValue, bool bDisplayForm) {
        return FormatCurrencyValue(locale, cyValue, kMoneyDigits, texts.currencySymbol, bDisplayForm);
    }};

const FieldEntry::AmountField FieldEntry::kDiscount = {
    .sKeyPressLabel = "KTVOrvanProduct.frmProduct::txtDiscount_KeyPress",
    .sGotFocusLabel = "KTVOrvanProduct.frmProduct::txtUnitPrice_GotFocus", // not txtDiscount_GotFocus
    .sLostFocusLabel = "KTVOrvanProduct.frmProduct::txtDiscount_LostFocus",
    .sChangeLabel = "KTVOrvanProduct.frmProduct::txtDiscount_Change",
    .sSaveLabel = "KTVOrvanProduct.frmProduct::PrvSaveDiscountPrcntFld",
    .isValidKey = &FieldEntry::PrvIsValidNumberKey,
    .fromText = PercentTextToValue,
    .decimalSep = &LocaleStrings::decimalSep,
    .cyMost = kHundred,
    .value = &ProductRecord::DiscPrcnt,
    .setValue = &ProductRecord::SetDiscPrcnt,
    .isValid = &ProductRecord::IsValidDiscPrcnt,
    .toText = [](ui::LocaleService& locale, const LocaleStrings& /*texts*/, Currency cyValue, bool bDisplayForm) {
        return FormatPercentValue(locale, cyValue, kNumberDigits, bDisplayForm);
    }};

FieldEntry::FieldEntry(EditorSession& session, ui::Surface& surface)
    : session_(session), cboProductName_(surface.control<ui::ComboBox>("cboProductName")),
      cboPartNum_(surface.control<ui::ComboBox>("cboPartNum")), txtQty_{kQty, surface.control<ui::TextBox>("txtQty")},
      txtUnitPrice_{kUnitPrice, surface.control<ui::TextBox>("txtUnitPrice")},
      txtDiscount_{kDiscount, surface.control<ui::TextBox>("txtDiscount")},
      txtNote_(surface.control<ui::TextBox>("txtNote")), txtExtPrice_(surface.control<ui::TextBox>("txtExtPrice")),
      txtTotal_(surface.control<ui::TextBox>("txtTotal"))
{
    takeEvents(txtQty_);
    takeEvents(txtUnitPrice_);
    takeEvents(txtDiscount_);
    txtNote_.onChange = [this] { txtNote_Change(); };
}

void FieldEntry::takeEvents(const AmountBox& amount)
{
    amount.box.onKeyPress = [this, &amount](std::int16_t& iKeyAscii) { amount_KeyPress(amount, iKeyAscii); };
    amount.box.onGotFocus = [this, &amount] { amount_GotFocus(amount); };
    amount.box.onLostFocus = [this, &amount] { amount_LostFocus(amount); };
    amount.box.onChange = [this, &amount] { amount_Change(amount); };
}

bool FieldEntry::PrvIsValidNumberKey(std::int16_t iKeyAscii) const
{
    return isValidKey(iKeyAscii, session_.locale.decimalSep, session_.locale.thousandSep);
}

bool FieldEntry::PrvIsValidCurrencyKey(std::int16_t iKeyAscii) const
{
    return isValidKey(iKeyAscii, session_.locale.monDecimalSep, session_.locale.monThousandSep);
}

void FieldEntry::amount_KeyPress(const AmountBox& amount, std::int16_t& iKeyAscii)
{
    session_.handleEvent(amount.field.sKeyPressLabel, [&] {
        if (!(this->*amount.field.isValidKey)(iKeyAscii)) {
            iKeyAscii = 0;
        }
    });
}

void FieldEntry::amount_GotFocus(const AmountBox& amount)
{
    session_.handleEvent(amount.field.sGotFocusLabel, [&] {
        const ScopedFlag rewriting(session_.bInitializing); // off afterwards, whatever it was before
        showAmount(amount, false);
        amount.box.setSelectionStart(0);
        amount.box.setSelectionLength(static_cast<std::int32_t>(characterCount(amount.box.text())));
    });
}

void FieldEntry::amount_LostFocus(const AmountBox& amount)
{
    session_.handleEvent(amount.field.sLostFocusLabel, [&] {
        const std::shared_ptr<ProductRecord> objKept = session_.objCurrentProduct; // as in amount_Change
        saveAmount(amount);
        {
            const ScopedFlag rewriting(session_.bInitializing);
            showAmount(amount, true);
        }
        PrvCalcExtPrice();
        PrvShowExtPriceAndTotal();
    });
}

void FieldEntry::amount_Change(const AmountBox& amount)
{
    session_.handleEvent(amount.field.sChangeLabel, [&] {
        if (!session_.bInitializing) {
            // A record may ask the user, and meanwhile the dialog may close and let go of it.
            const std::shared_ptr<ProductRecord> objKept = session_.objCurrentProduct;
            saveAmount(amount);
            PrvCalcExtPrice();
            PrvShowExtPriceAndTotal();
        }
    });
}

void FieldEntry::txtNote_Change()
{
    // Unlike the amounts, the note is saved while the session initializes, too. A note that the box
    // cuts when it is loaded is thereby cut in the record, and nothing is marked dirty.
    session_.handleEvent("KTVOrvanProduct.frmProduct::txtNote_Change", [&] {
        const std::shared_ptr<ProductRecord> objKept = session_.objCurrentProduct; // as in amount_Change
        PrvSaveNoteFld();
    });
}

void FieldEntry::PrvSaveNameFld()
{
    saveText(kName, cboProductName_);
}

void FieldEntry::PrvSavePartNumFld()
{
    saveText(kPartNum, cboPartNum_);
}

void FieldEntry::PrvSaveNoteFld()
{
    saveText(kNote, txtNote_);
}

void FieldEntry::PrvSaveQtyFld()
{
    saveAmount(txtQty_);
}

void FieldEntry::PrvSaveUnitPriceFld()
{
    saveAmount(txtUnitPrice_);
}

void FieldEntry::PrvSaveDiscountPrcntFld()
{
    saveAmount(txtDiscount_);
}

void FieldEntry::saveText(const TextField& field, const ui::TextEntry& entry)
{
    tracePropagate(field.sSaveLabel, [&] {
        ProductRecord& product = session_.currentProduct();
        if ((product.*field.value)() != entry.text()) {
            (product.*field.setValue)(entry.text());
            session_.PrvSetDirty(true);
        }
    });
}

void FieldEntry::saveAmount(const AmountBox& amount)
{
    const AmountField& field = amount.field;
    tracePropagate(field.sSaveLabel, [&] {
        Currency cyValue =
            field.fromText(session_.platform().locale(), amount.box.text(), session_.locale.*field.decimalSep);
        if (cyValue > field.cyMost) {
            cyValue = Currency();
        }
        if ((session_.currentProduct().*field.value)() != cyValue) {
            session_.PrvSetDirty(true); // also for an amount that the record is about to reject
        }
        const bool bValid = (session_.currentProduct().*field.isValid)(cyValue);
        (session_.currentProduct().*field.setValue)(bValid ? cyValue : Currency());
    });
}

void FieldEntry::showAmount(const AmountBox& amount, bool bDisplayForm)
{
    const Currency cyValue = (session_.currentProduct().*amount.field.value)();
    amount.box.setText(amount.field.toText(session_.platform().locale(), session_.locale, cyValue, bDisplayForm));
}

void FieldEntry::PrvCalcExtPrice()
{
    try {
        calcExtPrice();
    } catch (...) {
        // No trace of it: prices that are too large are a user's typing, not a failure.
        const ResumeNext<false> step;
        step([&] {
            if (session_.currentProduct().ExtPrice() != Currency()) {
                session_.PrvSetDirty(true);
            }
        });
        step([&] { session_.currentProduct().SetExtPrice(Currency()); });
    }
}

void FieldEntry::calcExtPrice()
{
    ProductRecord& product = session_.currentProduct();
    Currency cyDiscount = product.DiscPrcnt();
    if (cyDiscount > kHundred) {
        cyDiscount = Currency(); // a record's own doing; it keeps its discount
    }
    const Currency cyRest = kHundred - cyDiscount;
    const Currency cyGross = product.Qty() * product.UnitPrice();
    // In double, and divided first: quotes that were priced this way must come out the same again.
    // fromDouble raises for what is no number or beyond the range.
    const Currency cyExtPrice = Currency::fromDouble(cyRest.toDouble() / 100.0 * cyGross.toDouble());
    if (product.ExtPrice() != cyExtPrice) {
        session_.PrvSetDirty(true);
    }
    product.SetExtPrice(cyExtPrice);
}

void FieldEntry::PrvShowExtPriceAndTotal()
{
    const auto show = [this](ui::TextBox& box, Currency cyValue) {
        FormatCurrencyValue(sShownMoney_, session_.platform().locale(), cyValue, kMoneyDigits,
                            session_.locale.currencySymbol, true);
        box.setText(sShownMoney_);
    };
    show(txtExtPrice_, session_.currentProduct().ExtPrice());
    show(txtTotal_, session_.productMgr().GetTotalValue());
}

} // namespace orvan
