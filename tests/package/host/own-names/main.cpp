// A host whose own headers are named like headers of the library. It takes the place of the list's user, then prints
// the list's first row, and the total with its own currency's name.

#include "base/Currency.h"
#include "base/Text.h"
#include "ui/Control.h"
#include "ui/Form.h"

#include "all_installed_headers.h" // made by CMakeLists.txt

#include <iostream>

namespace {

/// The user opens the editor on the first product, types a quantity, and saves.
void editFirstProduct(orvan::headless::HeadlessPlatform& platform, orvan::HeadlessProductView& view)
{
    platform.drive([](orvan::headless::FormDriver& editor) {
        editor.focus("txtQty");
        editor.textBox("txtQty").type("2");
        editor.button("cmdSaveClose").click();
    });
    platform.messageBox().answer(orvan::ui::MessageResult::yes);
    view.flexGrid().doubleClick(1);
}

} // namespace

int main()
{
    const Currency euro{"EUR"};
    const Form order{0.5, 2};
    const Control dial = order.dial;
    const Text text = Text::rich;

    orvan::HeadlessHost host;
    const auto list = orvan::ui::createComponent<orvan::ProductMgr>(host.components(), orvan::kProductMgrClassName);
    const auto lamp = list->AddNewProduct();
    lamp->SetName("Desk lamp");
    lamp->SetUnitPrice(orvan::Currency::fromText("74.95"));
    orvan::HeadlessProductView view(host.platform());
    view.Show(list->GetProductsString(orvan::kRecordSeparator, orvan::kFieldSeparator));
    editFirstProduct(host.platform(), view);
    for (const std::string& cell : view.flexGrid().visibleTexts(1)) {
        std::cout << cell << "  ";
    }
    std::cout << view.txtTotal().text() << '\n'
              << view.TotalValue().toText() << ' ' << euro.code << ", " << order.pages << " pages, dial " << dial
              << (text == Text::rich ? ", rich\n" : ", plain\n");
}
