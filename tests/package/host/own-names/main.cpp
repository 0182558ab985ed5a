// A host whose own headers are named like headers of the library. Prints a total with its own currency's name.

#include "base/Currency.h"
#include "base/Text.h"
#include "ui/Control.h"
#include "ui/Form.h"

#include "all_installed_headers.h" // made by CMakeLists.txt

#include <iostream>

int main()
{
    const Currency euro{"EUR"};
    const Form order{0.5, 2};
    const Control dial = order.dial;
    const Text text = Text::rich;

    orvan::HeadlessHost host;
    const auto list = orvan::ui::createComponent<orvan::ProductMgr>(host.components(), orvan::kProductMgrClassName);
    list->AddNewProduct()->SetExtPrice(orvan::Currency::fromText("74.95"));
    orvan::HeadlessProductView view(host.platform());
    view.Show(list->GetProductsString(orvan::kRecordSeparator, orvan::kFieldSeparator));
    std::cout << view.TotalValue().toText() << ' ' << euro.code << ", " << order.pages << " pages, dial " << dial
              << (text == Text::rich ? ", rich\n" : ", plain\n");
}
