// FieldEntry: the editor's fields: how a product is shown in their boxes and saved from them, what the user
// does in the amount and note boxes, and the prices that follow.
//
// Every change is written to the session's current product at once, so the boxes never hold input
// that is not saved; the extended price and the total follow. What sets the fields apart stands in one table
// for texts and one for amounts (orvan/fields/FieldEntry.cpp). What the user does in the part-number and name
// boxes is the business of the look-up boxes.
//
// Amounts are Currency (ten-thousandths); a discount of 10 means 10 %. Ownership: the editor; the session and
// the surface outlive it. Thread: the user-interface thread. Errors: showProduct, the PrvSave procedures and
// PrvShowExtPriceAndTotal raise; event handlers close the dialog.
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
    /// Takes the boxes of kProductFormDesign (orvan/editor/frmProductDesign.h) and their events.
    FieldEntry(EditorSession& session, ui::Surface& surface);
    FieldEntry(const FieldEntry&) = delete;
    FieldEntry& operator=(const FieldEntry&) = delete;

    /// The current product in all boxes, and the list's total. Raises the change events.
    void showProduct();

    // The caller keeps a copy of EditorSession::heldProduct while these run.

    /// The texts: written, and the session marked dirty, only where box and record differ.
    void PrvSaveNameFld() { saveText(cboProductName_); }
    void PrvSavePartNumFld() { saveText(cboPartNum_); }
    void PrvSaveNoteFld() { saveText(txtNote_); }
    /// The amounts: what the record does not accept is stored as 0. The session is marked dirty where the amount
    /// in the box, accepted or not, differs from the record's.
    void PrvSaveQtyFld() { saveAmount(txtQty_); }
    void PrvSaveUnitPriceFld() { saveAmount(txtUnitPrice_); }
    void PrvSaveDiscountPrcntFld() { saveAmount(txtDiscount_); }
    /// Never raises: an extended price that cannot be computed is 0.
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
    /// Whether a save leaves the record's amount as it is: the box may show less of it than the record holds.
    [[nodiscard]] bool keepsUnvisited(const AmountBox& amount) const;
    void saveAmount(const AmountBox& amount);
    /// The part of the record's text that the box takes; a view into value.
    [[nodiscard]] static std::string_view shownPart(const TextField& field, const std::string& value);
    static void showText(const TextFieldBox& text, const ProductRecord& product);
    void showAmount(AmountBox& amount, const ProductRecord& product, AmountForm form);
    void showMoney(ui::TextBox& box, Currency cyValue);
    /// PrvCalcExtPrice without its recovery.
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
