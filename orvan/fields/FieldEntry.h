// FieldEntry: shows a product in the editor's boxes, saves it from them, handles the events of the amount and note
// boxes, and computes the extended price.
//
// Every change in these boxes is written to the session's current product at once; the extended price and the total
// follow it. The differences between the fields stand in one table for texts and one for amounts
// (orvan/fields/FieldEntry.cpp). The events of the part-number and name boxes belong to orvan/lookup/LookUpBoxes.h.
//
// Amounts are Currency (ten-thousandths); a discount of 10 means 10 %. Ownership: the editor owns it; the session and
// the surface outlive it. Thread: the user-interface thread. Errors: showProduct, the PrvSave procedures and
// PrvShowExtPriceAndTotal raise errors; an error in an event handler closes the dialog.
#pragma once

#include "orvan/base/ScopedHandlers.h"
#include "orvan/core/EditorSession.h"

#include <string>

namespace orvan {

namespace ui {
class Surface;
class TextBox;
class TextEntry;
} // namespace ui

class FieldEntry {
public:
    /// The surface must have the boxes of kProductFormDesign or kProductReadDesign (orvan/editor/frmProductDesign.h).
    FieldEntry(EditorSession& session, ui::Surface& surface);
    FieldEntry(const FieldEntry&) = delete;
    FieldEntry& operator=(const FieldEntry&) = delete;

    /// Shows the current product in all boxes, and the list's total. The boxes raise their change events.
    void showProduct();

    /// Saves a text. Where box and record are equal, nothing is written and the session is not marked dirty.
    void PrvSaveNameFld() { saveText(cboProductName_); }
    void PrvSavePartNumFld() { saveText(cboPartNum_); }
    void PrvSaveNoteFld() { saveText(txtNote_); }
    /// Saves an amount. An amount that the record does not accept is stored as 0. The session is marked dirty where
    /// the amount in the box, accepted or not, differs from the record's.
    void PrvSaveQtyFld() { saveAmount(txtQty_); }
    void PrvSaveUnitPriceFld() { saveAmount(txtUnitPrice_); }
    void PrvSaveDiscountPrcntFld() { saveAmount(txtDiscount_); }
    /// Computes and stores the extended price. Never raises: a price that cannot be computed is stored as 0.
    void PrvCalcExtPrice();
    void PrvShowExtPriceAndTotal();

private:
    /// What sets one field apart from the others of its kind.
    struct TextField;
    struct AmountField;
    static const TextField kName, kPartNum, kNote;
    static const AmountField kQty, kUnitPrice, kDiscount;
    struct TextFieldBox {
        const TextField& field;
        ui::TextEntry& box;
    };
    struct AmountBox {
        const AmountField& field;
        ui::TextBox& box;
        bool edited = false; ///< The user has changed the text since the program last wrote it.
    };
    /// How an amount box shows its amount: as it is edited, without currency symbol and "%", or as it is read.
    enum class AmountForm { edit, display };

    void takeEvents(AmountBox& amount);

    bool PrvIsValidNumberKey(std::int16_t KeyAscii) const;
    bool PrvIsValidCurrencyKey(std::int16_t KeyAscii) const;

    /// The events of txtQty, txtUnitPrice and txtDiscount; the table of amounts names each handler.
    void keyPressed(const AmountBox& amount, std::int16_t& KeyAscii);
    void gotFocus(AmountBox& amount);
    void lostFocus(AmountBox& amount);
    void changed(AmountBox& amount);
    void txtNote_Change();

    void saveText(const TextFieldBox& text);
    /// Whether nothing is saved, because the boxes still show another product (Deviation::halfShownProductIsNotSaved).
    [[nodiscard]] bool mustNotSave() const;
    /// Whether a save leaves the record's amount as it is: the box may show less of it than the record holds.
    [[nodiscard]] bool keepsUnvisited(const AmountBox& amount) const;
    void saveAmount(const AmountBox& amount);
    /// The part of the record's text that the box takes; a view into value.
    [[nodiscard]] static std::string_view shownPart(const TextField& field, const std::string& value);
    void showText(const TextFieldBox& text, const ProductRecord& product) const;
    void showAmount(AmountBox& amount, const ProductRecord& product, AmountForm form);
    void showMoney(ui::TextBox& box, Currency cyValue);
    /// Does the work of PrvCalcExtPrice, but raises where the price cannot be computed.
    void calcExtPrice();

    EditorSession& session_;
    TextFieldBox cboProductName_;
    TextFieldBox cboPartNum_;
    TextFieldBox txtNote_;
    AmountBox txtQty_;
    AmountBox txtUnitPrice_;
    AmountBox txtDiscount_;
    ui::TextBox& txtExtPrice_;
    ui::TextBox& txtTotal_;
    std::string shownMoney_; ///< showMoney's scratch buffer; a member so that its capacity is reused.
    ScopedHandlers handlers_;
};

} // namespace orvan
