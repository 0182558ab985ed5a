// LookUpBench: the look-up boxes on a form in memory, with everything around them that tests look at.
//
// Catalogue, product record and session write their calls into one list, in which any one can fail.
#pragma once

#include "orvan/base/Text.h"
#include "orvan/editor/frmProductDesign.h"
#include "orvan/hosting/ComponentRegistry.h"
#include "orvan/lookup/LookUpBoxes.h"
#include "orvan/ui/headless/HeadlessForm.h"
#include "orvan/ui/headless/HeadlessPlatform.h"
#include "orvan/ui/icu/IcuLocaleService.h"
#include "tests/support/Raised.h"
#include "tests/support/RecordingTrace.h"
#include "tests/support/Rows.h"

namespace orvan::test {

inline constexpr std::int32_t kScripted = 1000;

/// The calls so far. Before the one named `actAt`, `act` runs.
struct Script {
    std::string calls;
    std::string actAt;
    std::function<void()> act = [] { throw RuntimeError(kScripted); };

    void call(const std::string& name)
    {
        calls.append(calls.empty() ? "" : ", ").append(name);
        if (name == actAt) {
            act();
        }
    }
};

/// Entry 11 is the only one that can be sought.
struct ScriptedCatalogue final : ProductLkpMgr {
    explicit ScriptedCatalogue(Script& shared) : script(shared) {}
    LookUpList list(std::string call, std::string_view text, bool whole)
    {
        script.call(call.append(whole ? "All " : " ").append(text));
        return whole ? all : matches;
    }
    LookUpList GetPartNumList(std::string_view text, bool whole) override { return list("Part", text, whole); }
    LookUpList GetProductNameList(std::string_view text, bool whole) override { return list("Name", text, whole); }
    void SeekItem(std::int32_t itemId) override { script.call("SeekItem"), sought = itemId; }
    bool IsEOF() override { return script.call("IsEOF"), sought != 11; }
    LookUpValue GetFieldValue(std::int32_t column) override
    {
        script.call("field " + std::to_string(column));
        return columns.at(static_cast<std::size_t>(column - 3));
    }

    std::optional<LookUpSummary> summary(std::int64_t itemId) override
    {
        return itemId == 11 ? std::optional(LookUpSummary{columns[2], columns[0], columns[3]}) : std::nullopt;
    }
    std::size_t mostMatches() const override { return 3; }

    Script& script;
    LookUpList matches, all;
    std::int32_t sought = -1;
    std::vector<LookUpValue> columns{"Desk", std::int64_t{42}, "ABC-1", "1,234.50", "blue"};
};

struct ScriptedRecord final : ProductRecord {
    explicit ScriptedRecord(Script& shared) : script(shared) {}
    std::string Name() const override { return name; }
    std::string Key() const override { return key; }
    std::string PartNum() const override { return partNum; }
    std::string Note() const override { return script.call("Note"), note; }
    Currency UnitPrice() const override { return price; }
    void SetName(std::string_view value) override { script.call("SetName"), name = value; }
    void SetKey(std::string_view value) override { script.call("SetKey"), key = value; }
    void SetPartNum(std::string_view value) override { script.call("SetPartNum"), partNum = value; }
    void SetUnitPrice(Currency value) override { script.call("SetUnitPrice"), price = value; }
    void SetNote(std::string_view value) override { script.call("SetNote"), note = value; }
    // The look-up neither reads nor writes these.
    Currency Qty() const override { return {}; }
    Currency DiscPrcnt() const override { return {}; }
    Currency ExtPrice() const override { return {}; }
    void SetQty(Currency) override { ADD_FAILURE(); }
    void SetDiscPrcnt(Currency) override { ADD_FAILURE(); }
    void SetExtPrice(Currency) override { ADD_FAILURE(); }
    bool IsValidUnitPrice(Currency) const override { return true; }
    bool IsValidQty(Currency) const override { return true; }
    bool IsValidDiscPrcnt(Currency) const override { return true; }

    std::string text() const { return name + '|' + key + '|' + partNum + '|' + price.toText() + '|' + note; }

    Script& script;
    std::string name = "n", key = "k", partNum = "p", note = "own";
    Currency price = Currency::fromInteger(1);
};

/// The session, and its user at one of the two boxes.
class LookUpBench final : public EditorSession {
public:
    explicit LookUpBench(bool part)
        : box(form.comboBox(part ? "cboPartNum" : "cboProductName")),
          left_(part ? &LookUpBoxes::State::bPartNumBoxLeft : &LookUpBoxes::State::bNameBoxLeft)
    {
        heldProduct = record;
        boxes.productLkpMgr = catalogue;
        platform_.onUnhandledError = [](const RuntimeError& error) { ADD_FAILURE() << "unhandled " << error.number(); };
    }
    ~LookUpBench() override { EXPECT_EQ(platform_.messageBox().unusedAnswers(), 0U); }

    headless::HeadlessPlatform& platform() override { return platform_; }
    std::int32_t window() override { return 7; }
    void PrvSetDirty(bool bDirty) override { script.call("Dirty"), dirty = bDirty; }
    void PrvLoadProductInfo() override
    {
        script.call("Load");
        form.comboBox("cboPartNum").setText(record->partNum);
        form.comboBox("cboProductName").setText(record->name);
    }
    void PrvCloseOnError() override { ++closings, close(); }
    /// The form is unloaded, for whatever reason.
    void close()
    {
        form.unload();
        catalogue.reset();
        heldProduct.reset();
        boxes.productLkpMgr.reset();
    }

    bool left() const { return boxes.state().*left_; }
    /// The user chooses the list's only row.
    void choose()
    {
        box.addItem("Desk X");
        box.setItemData(0, 11);
        box.chooseRow(0);
        box.select(2, 3);
        script.calls.clear();
    }
    /// What the box shows, with bars around the selected part.
    std::string shown() const
    {
        std::string text = box.text();
        const auto at = [&](std::int32_t characters) { return firstCharacters(text, std::size_t(characters)).size(); };
        text.insert(at(box.selectionStart() + box.selectionLength()), "|");
        return text.insert(at(box.selectionStart()), "|");
    }
    std::string list() const
    {
        std::string text;
        for (std::int32_t row = 0; row < box.count(); ++row) {
            text.append(box.itemText(row)).append("=").append(std::to_string(box.itemData(row))).append(" ");
        }
        return text;
    }
    ScopedTrace trace;
    Script script;
    ComponentRegistry components;
    icu::IcuLocaleService userLocale{{.monetary = "en_US", .numeric = "en_US"}};

private:
    headless::HeadlessPlatform platform_{userLocale, components};

public:
    headless::HeadlessForm form{kProductFormDesign, platform_};
    std::shared_ptr<ScriptedCatalogue> catalogue = std::make_shared<ScriptedCatalogue>(script);
    std::shared_ptr<ScriptedRecord> record = std::make_shared<ScriptedRecord>(script);
    LookUpBoxes boxes{*this, form};
    headless::HeadlessComboBox& box;
    bool dirty = false;
    int closings = 0;

private:
    bool LookUpBoxes::State::*left_;
};

} // namespace orvan::test
