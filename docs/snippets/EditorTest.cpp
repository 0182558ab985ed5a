// The editor without a list view.

#include "tests/support/QtEnvironment.h"

#include <orvan/editor/ProductDlg.h>
#include <orvan/hosting/QtHost.h>

#include <gtest/gtest.h>

#include <QWidget>

namespace {

TEST(Editor, OpensOnAManagerOfTheHost)
{
    const auto list =
        orvan::ui::createComponent<orvan::ProductMgr>(orvan::qtHost().components(), orvan::kProductMgrClassName);
    list->AddNewProduct()->SetName("Lamp");
    QString title;
    orvan::test::whenModal([&](QWidget& editor) {
        title = editor.windowTitle();
        editor.close();
    });
    bool listHasChanged = false;
    //! [dialog]
    orvan::ProductDlg dialog(orvan::qtHost().platform());
    dialog.Show(list, 1);
    if (dialog.Dirty()) {
        listHasChanged = true;
    }
    //! [dialog]
    EXPECT_EQ(title, "Lamp (1/1)");
    EXPECT_FALSE(listHasChanged);
}

} // namespace
