// What the boxes let a user type, what they show with and without the focus, and what they save.
#include "FieldsFixture.h"
#include "orvan/base/Text.h"

namespace orvan {
namespace {

using test::FieldsFixture;
using test::Rows;

TEST(AmountBoxes, DigitsSeparatorsAndEditingKeysPassAndNothingElse)
{
    for (const auto& [locale, numbers, money] :
         Rows<const char*, const char*, const char*>{{"en_US", ",.0123456789", ",.0123456789"},
                                                     {"de_DE", ",.0123456789", ",.0123456789"},
                                                     {"fr_CH", ",0123456789\u202F", ".0123456789\u202F"},
                                                     {"pt_CV", ",0123456789\u00A0", "$0123456789\u00A0"},
                                                     {"de_CH", ".0123456789’", ".0123456789’"}}) {
        FieldsFixture fixture(locale);
        for (const auto& [name, others] :
             Rows<const char*, const char*>{{"txtQty", numbers}, {"txtUnitPrice", money}, {"txtDiscount", numbers}}) {
            std::string passed;
            for (std::int16_t key = -300; key < 0x2500; ++key) {
                std::int16_t iKeyAscii = key;
                fixture.box(name).onKeyPress(iKeyAscii);
                passed += iKeyAscii == 0 ? "" : toUtf8(static_cast<char32_t>(iKeyAscii));
            }
            EXPECT_EQ(passed, std::string("\x03\x08\x16\x18").append(others)) << locale << ' ' << name;
        }
    }
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
    for (const auto& [name, value, edited, displayed] :
         Rows<const char*, const char*, const char*, const char*>{{"txtQty", "3", "3", "3"},
                                                                  {"txtQty", "1002.5", "1,002.5000", "1,002.5000"},
                                                                  {"txtUnitPrice", "1234.5", "1,234.50", "$1,234.50"},
                                                                  {"txtUnitPrice", "7", "7", "$7"},
                                                                  {"txtDiscount", "10", "10", "10%"},
                                                                  {"txtDiscount", "12.5", "12.5000", "12.5000%"}}) {
        FieldsFixture fixture;
        fixture.setProduct(value, value, value);
        fixture.initializing = true;
        fixture.box(name).setFocus();
        EXPECT_EQ(fixture.box(name).text(), edited);
        EXPECT_EQ(fixture.box(name).selectionLength(), static_cast<std::int32_t>(std::string(edited).size()));
        EXPECT_FALSE(std::exchange(fixture.initializing, true)) << "cleared, not restored";
        fixture.box("txtNote").setFocus();
        EXPECT_EQ(fixture.box(name).text(), displayed);
        EXPECT_FALSE(fixture.initializing);
    }
    FieldsFixture german("de_DE");
    german.locale.currencySymbol = ","; // the default of one that could not be read: takes the decimal comma away
    german.setProduct("1", "1.5", "0");
    german.box("txtUnitPrice").setFocus();
    EXPECT_EQ(german.box("txtUnitPrice").text(), "150\u00A0€");
}

TEST(AmountBoxes, NothingDriftsAfterTheFirstVisit)
{
    for (const char* locale :
         {"en_US", "en_IN", "en_AT", "de_DE", "de_CH", "fr_FR", "fr_CH", "es_CL", "es_ES", "pt_CV", "da_DK",
          "nb_NO", "sv_SE", "pl_PL", "cs_CZ", "tr_TR", "hi_IN", "ar_EG", "ar_BH", "fa_IR", "ja_JP", "en_US_POSIX"}) {
        FieldsFixture fixture(locale);
        fixture.setProduct("1234.5678", "98765.4321", "12.0625");
        fixture.fields.PrvCalcExtPrice();
        for (const auto& [name, product, rounded] : Rows<const char*, const char*, bool>{
                 {"txtQty", "1234.5678 98765.4321 12.0625 107224499.668", false},
                 {"txtDiscount", "1234.5678 98765.4321 12.0625 107224499.668", false},
                 {"txtUnitPrice", "1234.5678 98765.43 12.0625 107224497.3882", true}}) { // shown in hundredths
            SCOPED_TRACE(std::string(locale) + ' ' + name);
            std::string shown;
            for (int visit = 0; visit < 100; ++visit) {
                fixture.PrvSetDirty(false);
                fixture.box(name).setFocus();
                fixture.box("txtNote").setFocus();
                EXPECT_EQ(fixture.dirty, rounded && visit == 0) << visit;
                ASSERT_EQ(fixture.product(), product) << visit;
                shown = visit == 0 ? fixture.box(name).text() : shown;
                EXPECT_EQ(fixture.box(name).text(), shown) << visit;
            }
        }
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
    for (const auto& [name, stored, text, question, result, dirty] :
         Rows<const char*, const char*, const char*, const char*, const char*, bool>{
             {"txtQty", "2", "2", "2", "2 2 2 0", false},
             {"txtQty", "2", "2.5", "2.5!", "2.5 2 2 0", true},
             {"txtQty", "2", "101", "101!", "0 2 2 0", true},
             {"txtQty", "101", "101", "101", "0 101 101 0", false},
             {"txtQty", "2", "abc", "0!", "0 2 2 0", true},
             {"txtUnitPrice", "2", "$2.00", "2", "2 2 2 0", false},
             {"txtUnitPrice", "2", "101", "101!", "2 0 2 0", true},
             {"txtDiscount", "2", "2%", "2", "2 2 2 0", false},
             {"txtDiscount", "2", "100", "100!", "2 2 100 0", true},
             {"txtDiscount", "2", "100.0001", "0!", "2 2 0 0", true}, // 0 before the record is asked
             {"txtDiscount", "0", "150", "0", "0 0 0 0", false}}) {
        FieldsFixture fixture("en_US", {.isValidUnitPrice = rule, .isValidQty = rule, .isValidDiscPrcnt = rule});
        current = &fixture;
        fixture.setProduct(stored, stored, stored);
        fixture.initializing = true;
        fixture.box(name).setText(text);
        fixture.initializing = false;
        name == std::string("txtQty")         ? fixture.fields.PrvSaveQtyFld()
        : name == std::string("txtUnitPrice") ? fixture.fields.PrvSaveUnitPriceFld()
                                              : fixture.fields.PrvSaveDiscountPrcntFld();
        EXPECT_EQ(asked, question) << name << ' ' << text;
        EXPECT_EQ(fixture.product(), result) << name << ' ' << text;
        EXPECT_EQ(fixture.dirty, dirty) << name << ' ' << text;
    }
}

TEST(FieldSaves, EqualTextsWriteNothingAndTheNoteIsSavedWhileInitializingToo)
{
    FieldsFixture fixture;
    ProductRecord& record = fixture.currentProduct();
    fixture.initializing = true;
    fixture.box("txtNote").setText("Note");
    EXPECT_EQ(record.Note(), "Note");
    EXPECT_FALSE(std::exchange(fixture.initializing, false) && fixture.dirty);
    for (const auto& [name, save] :
         Rows<const char*, void (FieldEntry::*)()>{{"cboProductName", &FieldEntry::PrvSaveNameFld},
                                                   {"cboPartNum", &FieldEntry::PrvSavePartNumFld},
                                                   {"txtNote", &FieldEntry::PrvSaveNoteFld}}) {
        for (const auto& [text, dirty] : Rows<const char*, bool>{{"new", true}, {"new", false}, {"New", true}}) {
            fixture.form.control<ui::TextEntry>(name).setText(text + std::string(name));
            (fixture.fields.*save)();
            EXPECT_EQ(fixture.dirty, dirty) << name;
            fixture.PrvSetDirty(false);
        }
    }
    EXPECT_EQ(record.Name() + record.PartNum() + record.Note(), "NewcboProductNameNewcboPartNumNewtxtNote");
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
