// The editor's keys. A key that a menu entry shows runs the same procedure as that entry. The form's design holds the
// entries and their keys.

#include "orvan/core/ProductValues.h"
#include "orvan/editor/frmProduct.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/TextEntry.h"
#include "orvan/ui/ToolSet.h"

namespace orvan {

const ui::ToolDesign* frmProduct::toolOf(const ui::KeyStroke& key) const
{
    const bool inNote = form_->focused() && form_->focused()->name() == "txtNote";
    for (const ui::ToolDesign& tool : atbMain_.tools()) {
        if (!tool.key.empty() && ui::keyStroke(tool.key) == key) {
            const bool movesCaret = key.key == ui::Key::home || key.key == ui::Key::end;
            return inNote && movesCaret ? nullptr : &tool; // a note of several lines needs these keys itself
        }
    }
    return nullptr;
}

void frmProduct::Form_KeyDown(ui::KeyStroke& key)
{
    const ui::ToolDesign* const tool = toolOf(key);
    if (!tool) {
        return;
    }
    key.key = ui::Key::none; // also where the entry is greyed: the key must not do something else then
    if (!atbMain_.toolEnabled(tool->id)) {
        return;
    }
    atbMain_ToolClick(tool->id);
    if (tool->id == "ID_NewProduct" && form_->loaded() && cboPartNum_.canTakeFocus()) {
        cboPartNum_.setFocus(); // the next line of a quote begins with its part number
    }
}

void frmProduct::PrvDuplicateProduct()
{
    tracePropagate("KTVOrvanProduct.frmProduct::PrvDuplicateProduct", [&] {
        bool bOk = false;
        PrvSaveCurrentProduct(bOk);
        if (!bOk) {
            return;
        }
        const ProductValues values = valuesOf(*currentProduct());
        const auto copy = productMgr()->AddNewProduct();
        listTouched_ = true;
        dirty_ = true;
        if (!copy) {
            throw RuntimeError(ErrorNumber::objectNotSet);
        }
        setValues(*copy, values);
        for (std::int32_t position = productMgr()->GetProductCount(); position > currentIndex_ + 1; --position) {
            productMgr()->MoveProduct(position, position - 1);
        }
        PrvSeekProduct(1);
    });
}

} // namespace orvan
