// A catalogue file that is made from a price list, and a host that looks products up in it.

#include "HeadlessEnvironment.h"

#include <orvan/components/catalogue/CatalogueImport.h>
#include <orvan/hosting/HeadlessProductView.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>

namespace {

using Outcome = orvan::CatalogueImportResult::Outcome;

//! [import]
/// Returns what to tell the user; empty if the catalogue has been made.
std::string makeCatalogue(const std::filesystem::path& priceList, const std::filesystem::path& catalogue)
{
    const orvan::CatalogueImportResult result = orvan::importCatalogue(priceList, catalogue);
    switch (result.outcome) {
    case Outcome::imported: return {};
    case Outcome::refused:
        return "Line " + std::to_string(result.refused.front().line) + ": " + result.refused.front().reason.english();
    case Outcome::ambiguous: return result.ambiguousPrice + " can be read in two ways";
    case Outcome::cancelled: return "Cancelled";
    }
    return {};
}
//! [import]

class CatalogueFile : public testing::Test {
protected:
    /// Returns the name of a price list with this text.
    std::filesystem::path list(const char* text) const
    {
        orvan::test::writeText(folder / "prices.csv", text);
        return folder / "prices.csv";
    }

    const orvan::test::TemporaryFolder folder;
    const std::filesystem::path goods = folder / "goods.catalogue";
};

TEST_F(CatalogueFile, TellsWhichLineIsWrong)
{
    const std::string problem = makeCatalogue(list("part number,name,price\nL-1,Lamp,74.95\nL-2,Lamp,cheap\n"), goods);
    EXPECT_EQ(problem.substr(0, 8), "Line 3: ") << problem;
    EXPECT_FALSE(std::filesystem::exists(goods));
}

TEST_F(CatalogueFile, ANameIsCompletedFromIt)
{
    ASSERT_EQ(makeCatalogue(list("part number,name,price\nL-1,Lamp,74.95\n"), goods), "");
    //! [options]
    orvan::HostOptions options;
    options.components.catalogue.file = goods; // or "postgresql://buyer@host/goods"
    options.components.catalogue.report = [](const orvan::UserText& reason) {
        std::clog << "The catalogue is not used: " << reason.english() << '\n';
    };
    orvan::HeadlessHost host(options);
    //! [options]
    orvan::HeadlessProductView view(host.platform());
    view.Show("");
    host.platform().messageBox().answer(orvan::ui::MessageResult::yes); // to the question whether to save
    host.platform().drive([&](orvan::headless::FormDriver& editor) {
        editor.comboBox("cboProductName").type("La");
        host.platform().clock().advance(500); // the look-up waits for the last key
        EXPECT_EQ(editor.comboBox("cboProductName").text(), "Lamp");
        editor.button("cmdSaveClose").click();
    });
    view.surface().button("cmdNew").click();
    EXPECT_EQ(view.flexGrid().visibleTexts(1), (std::vector<std::string>{"1", "Lamp", "1", "$74.95"}));
}

} // namespace
