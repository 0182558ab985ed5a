// What the boxes let a user type, what they show with and without the focus, and what they save.
#include "FieldsFixture.h"
#include "orvan/base/Text.h"
#include "tests/support/FaultyProductMgr.h"

namespace orvan {
namespace {

using test::FieldsFixture;
using test::forEachRow;

TEST(AmountBoxes, DigitsSeparatorsAndEditingKeysPassAndNothingElse)
{
    struct Row {
        const char *name, *numbers, *money;
    };
    const Row rows[] = {
        {"en_US", ",.0123456789", ",.0123456789"},           {"de_DE", ",.0123456789", ",.0123456789"},
        {"fr_CH", ",0123456789\u202F", ".0123456789\u202F"}, {"pt_CV", ",0123456789\u00A0", "$0123456789\u00A0"},
        {"de_CH", ".0123456789’", ".0123456789’"},
    };
    forEachRow(rows, [](const Row& row) {
        FieldsFixture fixture(row.name);
        for (const std::string name : {"txtQty", "txtUnitPrice", "txtDiscount"}) {
            std::string passed;
            for (std::int16_t key = -300; key < 0x2500; ++key) {
                std::int16_t keyAscii = key;
                fixture.box(name).onKeyPress(keyAscii);
                passed += keyAscii == 0 ? "" : toUtf8(static_cast<char32_t>(keyAscii));
            }
            const char* const separatorsAndDigits = name == "txtUnitPrice" ? row.money : row.numbers;
            EXPECT_EQ(passed, std::string("\x03\x08\x16\x18").append(separatorsAndDigits)) << name;
        }
    });
}

TEST(AmountBoxes, WhatIsTypedIsSavedAtOnceAndStandsAsTyped)
{
    FieldsFixture fixture;
    auto& box = fixture.box("txtQty");
    std::string clipboard = "-$1,2.75 %";
    box.type("-1+ e€2\n%.");
    EXPECT_EQ(box.text(), "12.");
    EXPECT_EQ(fixture.product(), "12 0 0 0");
    EXPECT_TRUE(fixture.dirty);
    box.pressControl('A', clipboard);
    EXPECT_EQ(box.selectionLength(), 0);
    box.select(0, 3);
    box.pressControl('V', clipboard); // pasted as it is; what makes no number is dropped when it is read
    EXPECT_EQ(box.text(), clipboard);
    EXPECT_EQ(fixture.product(), "12.75 0 0 0");
    box.paste(".");
    EXPECT_EQ(fixture.product(), "0 0 0 0") << "two points are no number: " << box.text();
    fixture.initializing = true;
    box.setText("5");
    EXPECT_EQ(fixture.product(), "0 0 0 0") << "not saved while initializing";
    fixture.box("txtUnitPrice").type("1,000.129");
    EXPECT_EQ(fixture.product(), "5 1000.129 0 5000.645") << "saved by leaving the box";
}

TEST(AmountBoxes, ShowOneFormWithTheFocusAndAnotherWithout)
{
    struct Row {
        const char *name, *box, *value, *edited, *displayed;
    };
    const Row rows[] = {
        {"whole quantity", "txtQty", "3", "3", "3"},
        {"quantity", "txtQty", "1002.5", "1,002.5000", "1,002.5000"},
        {"price", "txtUnitPrice", "1234.5", "1,234.50", "$1,234.50"},
        {"whole price", "txtUnitPrice", "7", "7", "$7"},
        {"whole discount", "txtDiscount", "10", "10", "10%"},
        {"discount", "txtDiscount", "12.5", "12.5000", "12.5000%"},
    };
    forEachRow(rows, [](const Row& row) {
        FieldsFixture fixture;
        fixture.setProduct(row.value, row.value, row.value);
        fixture.initializing = true;
        auto& box = fixture.box(row.box);
        box.setFocus();
        EXPECT_EQ(box.text(), row.edited);
        EXPECT_EQ(box.selectionLength(), static_cast<std::int32_t>(box.text().size()));
        EXPECT_FALSE(std::exchange(fixture.initializing, true)) << "cleared, not restored";
        fixture.box("txtNote").setFocus();
        EXPECT_EQ(box.text(), row.displayed);
        EXPECT_FALSE(fixture.initializing);
    });
    FieldsFixture german("de_DE");
    german.locale.currencySymbol = ","; // as when the symbol could not be read: it removes the decimal comma
    german.setProduct("1", "1.5", "0");
    german.box("txtUnitPrice").setFocus();
    EXPECT_EQ(german.box("txtUnitPrice").text(), "150\u00A0€");
}

TEST(AmountBoxes, VisitingABoxAgainChangesNothing)
{
    struct Row {
        const char *name, *product;
        bool rounded;
    };
    const Row rows[] = {
        {"txtQty", "1234.5678 98765.4321 12.0625 107224499.668", false},
        {"txtDiscount", "1234.5678 98765.4321 12.0625 107224499.668", false},
        {"txtUnitPrice", "1234.5678 98765.43 12.0625 107224497.3882", true}, // shown in hundredths
    };
    for (const char* locale :
         {"en_US", "en_IN", "en_AT", "de_DE", "de_CH", "fr_FR", "fr_CH", "es_CL", "es_ES", "pt_CV", "da_DK",
          "nb_NO", "sv_SE", "pl_PL", "cs_CZ", "tr_TR", "hi_IN", "ar_EG", "ar_BH", "fa_IR", "ja_JP", "en_US_POSIX"}) {
        SCOPED_TRACE(locale);
        FieldsFixture fixture(locale);
        fixture.setProduct("1234.5678", "98765.4321", "12.0625");
        fixture.fields.PrvCalcExtPrice();
        forEachRow(rows, [&](const Row& row) {
            auto& box = fixture.box(row.name);
            std::string shown;
            for (int visit = 0; visit < 100; ++visit) {
                fixture.PrvSetDirty(false);
                box.setFocus();
                fixture.box("txtNote").setFocus();
                ASSERT_EQ(fixture.dirty, row.rounded && visit == 0) << visit;
                ASSERT_EQ(fixture.product(), row.product) << visit;
                shown = visit == 0 ? box.text() : shown;
                ASSERT_EQ(box.text(), shown) << visit;
            }
        });
    }
}

TEST(FieldSaves, MarkDirtyWhatDiffersAndStoreNothingForWhatIsRejected)
{
    FieldsFixture* current = nullptr;
    std::string asked; // "!": dirty was marked before
    const auto rule = [&](Currency value) {
        asked = value.toText() + (current->dirty ? "!" : "");
        return value <= Currency::fromInteger(100);
    };
    struct Row {
        const char *name, *box = "txtQty", *stored = "2", *text, *asked, *product;
        bool dirty = true;
    };
    // clang-format off
    const Row rows[] = {
        {.name = "quantity, equal", .text = "2", .asked = "2", .product = "2 2 2 0", .dirty = false},
        {.name = "quantity, another", .text = "2.5", .asked = "2.5!", .product = "2.5 2 2 0"},
        {.name = "quantity, rejected", .text = "101", .asked = "101!", .product = "0 2 2 0"},
        {.name = "quantity, equal but rejected", .stored = "101", .text = "101", .asked = "101",
         .product = "0 101 101 0", .dirty = false},
        {.name = "quantity, no number", .text = "abc", .asked = "0!", .product = "0 2 2 0"},
        {.name = "price, equal", .box = "txtUnitPrice", .text = "$2.00", .asked = "2", .product = "2 2 2 0",
         .dirty = false},
        {.name = "price, rejected", .box = "txtUnitPrice", .text = "101", .asked = "101!", .product = "2 0 2 0"},
        {.name = "discount, equal", .box = "txtDiscount", .text = "2%", .asked = "2", .product = "2 2 2 0",
         .dirty = false},
        {.name = "discount, another", .box = "txtDiscount", .text = "100", .asked = "100!", .product = "2 2 100 0"},
        // More than 100 becomes 0 before the record is asked.
        {.name = "discount, too much", .box = "txtDiscount", .text = "100.0001", .asked = "0!", .product = "2 2 0 0"},
        {.name = "discount, too much for a stored 0", .box = "txtDiscount", .stored = "0", .text = "150", .asked = "0",
         .product = "0 0 0 0", .dirty = false},
    };
    // clang-format on
    forEachRow(rows, [&](const Row& row) {
        FieldsFixture fixture("en_US", {.isValidUnitPrice = rule, .isValidQty = rule, .isValidDiscPrcnt = rule});
        current = &fixture;
        fixture.setProduct(row.stored, row.stored, row.stored);
        fixture.initializing = true;
        fixture.box(row.box).setText(row.text);
        fixture.initializing = false;
        const std::string_view box = row.box;
        box == "txtQty"         ? fixture.fields.PrvSaveQtyFld()
        : box == "txtUnitPrice" ? fixture.fields.PrvSaveUnitPriceFld()
                                : fixture.fields.PrvSaveDiscountPrcntFld();
        EXPECT_EQ(asked, row.asked);
        EXPECT_EQ(fixture.product(), row.product);
        EXPECT_EQ(fixture.dirty, row.dirty);
    });
}

TEST(FieldSaves, EqualTextsWriteNothingAndTheNoteIsSavedWhileInitializingToo)
{
    FieldsFixture fixture;
    ProductRecord& record = *fixture.currentProduct();
    std::string saved;
    fixture.initializing = true;
    fixture.box("txtNote").setText("Note");
    EXPECT_EQ(record.Note(), "Note");
    EXPECT_FALSE(std::exchange(fixture.initializing, false) && fixture.dirty);
    struct Row {
        const char* name;
        void (FieldEntry::*save)();
    };
    const Row rows[] = {
        {"cboProductName", &FieldEntry::PrvSaveNameFld},
        {"cboPartNum", &FieldEntry::PrvSavePartNumFld},
        {"txtNote", &FieldEntry::PrvSaveNoteFld},
    };
    forEachRow(rows, [&](const Row& row) {
        for (const char* text : {"new", "new", "New"}) {
            auto& box = fixture.form.control<ui::TextEntry>(row.name);
            const std::string before = std::exchange(saved, text + std::string(row.name));
            box.setText(saved);
            (fixture.fields.*row.save)();
            EXPECT_EQ(fixture.dirty, saved != before) << text;
            fixture.PrvSetDirty(false);
        }
    });
    EXPECT_EQ(record.Name() + record.PartNum() + record.Note(), "NewcboProductNameNewcboPartNumNewtxtNote");
}

TEST(FieldSaves, ARecordThatChangesTheBoxIsGivenWhatWasTyped)
{
    test::Faults faults;
    FieldsFixture fixture;
    const auto record = fixture.heldProduct;
    fixture.heldProduct = std::make_shared<test::FaultyRecord>(record, faults);
    auto& box = fixture.form.control<ui::TextEntry>("cboProductName");
    box.setText("Desk");
    faults.failAtCall = 2; // the name is read first, and then set
    faults.act = [&] { box.setText("Lamp"); };
    fixture.fields.PrvSaveNameFld();
    EXPECT_EQ(record->Name(), "Desk");
}

TEST(FieldSaves, ARuleThatClosesTheDialogEndsTheKeystroke)
{
    FieldsFixture* open = nullptr;
    FieldsFixture fixture("en_US", {.isValidQty = [&](Currency) { return open->PrvCloseOnError(), true; }});
    open = &fixture;
    fixture.trace->declareError(91, 2); // the save, and the handler that it ends
    fixture.box("txtQty").type("7");
    EXPECT_EQ(fixture.closed, 2);
}

} // namespace
} // namespace orvan
