// Prints the texts of the library that stand in designs and tables, one in a line, in the form in which they are
// translated: a caption has "&" before its mnemonic. scripts/translations.py finds the other texts in the sources.

#include "orvan/base/RuntimeError.h"
#include "orvan/core/Command.h"
#include "orvan/editor/frmProductDesign.h"
#include "orvan/ui/qt/QtText.h"
#include "orvan/view/ProductColumnTable.h"
#include "orvan/view/ProductViewDesign.h"

#include <iostream>

namespace {

void print(std::string_view caption, char mnemonic = 0)
{
    // Without a translator the marked caption is the English one.
    std::cout << orvan::qt::fromQt(orvan::qt::markedCaption(caption, mnemonic)) << '\n';
}

} // namespace

int main()
{
    for (const orvan::ui::FormDesign* design :
         {&orvan::kProductFormDesign, &orvan::kProductReadDesign, &orvan::kProductViewDesign}) {
        for (const orvan::ui::ControlDesign& control : design->controls) {
            print(control.caption, control.mnemonic);
            print(control.toolTip);
            for (const orvan::ui::ToolDesign& tool : control.tools) {
                print(tool.caption, tool.mnemonic);
            }
        }
    }
    for (const orvan::CommandRow& command : orvan::kCommands) {
        print(command.text);
        print(command.readOnlyText);
    }
    for (const auto& column : orvan::kColumns) {
        print(column.caption);
    }
    constexpr std::int32_t kNumbers = 1000; // more than any number of an error with a text of its own
    for (std::int32_t number = 0; number < kNumbers; ++number) {
        print(orvan::standardErrorText(number));
    }
}
