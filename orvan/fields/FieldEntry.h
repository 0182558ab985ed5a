// FieldEntry: the editor's amount boxes, its note box, and the prices that follow from them.
//
// Every change is written to the session's current product at once, so the boxes never hold input
// that is not saved; the extended price and the total follow. The three amount boxes share one set of
// handlers, and their differences stand side by side in one table (orvan/fields/FieldEntry.cpp).
//
// Ownership: the editor; the session and the surface outlive it. Thread: the user-interface thread.
// Errors: the PrvSave procedures and PrvShowExtPriceAndTotal raise; event handlers close the dialog.
#pragma once

#include "orvan/core/EditorSession.h"

#include <string>

namespace orvan {

namespace ui {
class ComboBox;
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

    // The caller keeps the current product meanwhile: a record may ask the user, and the dialog may close and
    // let go of it.

    /// The texts: written, and the session marked dirty, only where box and record differ.
    void PrvSaveNameFld();
    void PrvSavePartNumFld();
    void PrvSaveNoteFld();
    /// The amounts: what the record does not accept is stored as 0. Dirty is marked where the amount
    /// in the box, accepted or not, differs from the record's.
    void PrvSaveQtyFld();
    void PrvSaveUnitPriceFld();
    void PrvSaveDiscountPrcntFld();
    /// Never raises: an extended price that cannot be computed is 0.
    void PrvCalcExtPrice();
    void PrvShowExtPriceAndTotal();

private:
    /// What sets one field apart from the others of its kind.
    struct TextField;
    struct AmountField;
    static const TextField kName, kPartNum, kNote;
    static const AmountField kQty, kUnitPrice, kDiscount;

    struct AmountBox {
        const AmountField& field;
        ui::TextBox& box;
    };

    bool PrvIsValidNumberKey(std::int16_t iKeyAscii) const;
    bool PrvIsValidCurrencyKey(std::int16_t iKeyAscii) const;

    /// The events of txtQty, txtUnitPrice and txtDiscount.
    void takeEvents(const AmountBox& amount);
    void amount_KeyPress(const AmountBox& amount, std::int16_t& iKeyAscii);
    void amount_GotFocus(const AmountBox& amount);
    void amount_LostFocus(const AmountBox& amount);
    void amount_Change(const AmountBox& amount);
    void txtNote_Change();

    void saveText(const TextField& field, const ui::TextEntry& entry);
    void saveAmount(const AmountBox& amount);
    void showAmount(const AmountBox& amount, bool bDisplayForm);
    /// PrvCalcExtPrice without its recovery.
    void calcExtPrice();

    EditorSession& session_;
    ui::ComboBox& cboProductName_;
    ui::ComboBox& cboPartNum_;
    AmountBox txtQty_;
    AmountBox txtUnitPrice_;
    AmountBox txtDiscount_;
    ui::TextBox& txtNote_;
    ui::TextBox& txtExtPrice_;
    ui::TextBox& txtTotal_;
    std::string sShownMoney_; ///< PrvShowExtPriceAndTotal's, kept for its room.
};

} // namespace orvan
