// C, H and I: the editor without a window: a keystroke, the next product, the extended price.

#include "benchmarks/Allocations.h"
#include "benchmarks/Comparison.h"
#include "benchmarks/Samples.h"
#include "benchmarks/Subjects.h"
#include "orvan/editor/ProductDlg.h"
#include "orvan/editor/frmProductDesign.h"
#include "orvan/fields/FieldEntry.h"
#include "orvan/ui/headless/HeadlessForm.h"

#include <cmath>
#include <utility>

namespace orvan::bench {

namespace {

using headless::FormDriver;
using Manager = std::shared_ptr<ProductMgr>;

/// Opens the editor on the product at lIndex, calls `act`, then closes the editor and saves.
void edit(const Manager& manager, std::int32_t lIndex, const std::function<void(FormDriver&)>& act)
{
    headless::HeadlessPlatform& platform = headlessHost().platform();
    platform.messageBox().answer(ui::MessageResult::yes);
    platform.drive([&](FormDriver& form) {
        act(form);
        form.clickCloseBox();
    });
    ProductDlg(platform).Show(manager, lIndex);
}

/// A side whose figure is measured while the editor is open.
Side inEditor(const Manager& manager, std::function<double(FormDriver&)> measure)
{
    return {"", [manager, measure = std::move(measure)] {
                double figure = 0;
                edit(manager, 1, [&](FormDriver& form) { figure = measure(form); });
                return figure;
            }};
}

/// A box in which keys alternately type a digit and remove it, so that every second key restores the text.
class KeyedBox {
public:
    KeyedBox(FormDriver& form, std::string_view name, std::string_view text) : box_(form.textBox(name))
    {
        form.focus(name);
        box_.select(0, static_cast<std::int32_t>(box_.text().size()));
        box_.type(text);
    }

    void press()
    {
        if (std::exchange(typed_, !typed_)) {
            box_.backspace();
        } else {
            box_.type("7");
        }
    }

private:
    headless::EntryDriver& box_;
    bool typed_ = false;
};

/// The time of one key in the quantity box: keys alternately add a digit to `text` and remove it.
Side keystroke(const Manager& manager, const std::string& text)
{
    const auto pressed = std::make_shared<KeyedBox*>();
    const Side loop = timed("", [pressed](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state) {
            (*pressed)->press();
        }
    });
    return inEditor(manager, [=](FormDriver& form) {
        KeyedBox box(form, "txtQty", text);
        *pressed = &box;
        return loop.repeat();
    });
}

/// The number of calls of operator new in two thousand keystrokes; before each thousand, as many are not counted.
Side keystrokeAllocations(const Manager& manager)
{
    return inEditor(manager, [](FormDriver& form) {
        constexpr int kKeys = 1'000;
        std::uint64_t calls = 0;
        for (const char* const text : {"12", ""}) {
            KeyedBox box(form, "txtQty", text);
            for (int key = 0; key < kKeys; ++key) {
                box.press();
            }
            const std::uint64_t warm = allocationCount();
            for (int key = 0; key < kKeys; ++key) {
                box.press();
            }
            calls += allocationCount() - warm;
        }
        return static_cast<double>(calls);
    });
}

/// Types a quantity, then chooses the tool that saves and moves to the next product; the next iteration moves back.
Side nextProduct(const Manager& manager)
{
    const auto open = std::make_shared<FormDriver*>();
    const Side loop = timed("", [open](benchmark::State& state) {
        auto& tools = (*open)->toolBar("atbMain");
        auto& quantity = (*open)->textBox("txtQty");
        (*open)->focus("txtQty");
        std::size_t i = 0;
        for ([[maybe_unused]] auto _ : state) {
            quantity.select(0, static_cast<std::int32_t>(quantity.text().size()));
            quantity.type(i % 4 < 2 ? "7" : "8");
            tools.choose(i++ % 2 == 0 ? "ID_GotoNext" : "ID_GotoPrevious");
        }
    });
    return inEditor(manager, [=](FormDriver& form) {
        *open = &form;
        return loop.repeat();
    });
}

/// An editing session without the editor's form, for measuring the fields alone.
class FieldsAlone final : public EditorSession {
public:
    FieldsAlone()
    {
        objProductMgr = sampleManager(1'000);
        heldProduct = objProductMgr->GetProduct(17);
    }

    ui::Platform& platform() override { return headlessHost().platform(); }
    std::int32_t window() override { return 0; }
    void PrvSetDirty(bool bDirty) override { dirty = dirty || bDirty; }
    void PrvLoadProductInfo() override {}
    void PrvCloseOnError() override {}

    /// Changes the quantity, so that each computed price differs from the last one and has to be stored.
    void setQuantity(std::size_t i)
    {
        currentProduct()->SetQty(Currency::fromScaled((1 + static_cast<std::int64_t>(i % 64)) * Currency::kScale));
    }

    /// Does the same as PrvCalcExtPrice, but with two operations in double instead of exact arithmetic.
    void priceInDouble()
    {
        ProductRecord& product = *currentProduct();
        const double gross = product.Qty().toDouble() * product.UnitPrice().toDouble();
        const double price = (1 - product.DiscPrcnt().toDouble() / 100) * gross;
        const Currency extPrice = Currency::fromScaled(std::llround(price * double(Currency::kScale)));
        if (product.ExtPrice() != extPrice) {
            PrvSetDirty(true);
        }
        product.SetExtPrice(extPrice);
    }

    bool dirty = false;

private:
    headless::HeadlessForm form_{kProductFormDesign, headlessHost().platform()};

public:
    FieldEntry fields{*this, form_};
};

Sides extendedPrice()
{
    const auto session = std::make_shared<FieldsAlone>();
    for (std::size_t i = 0; i < 64; ++i) {
        session->setQuantity(i);
        session->fields.PrvCalcExtPrice();
        const Currency ours = session->currentProduct()->ExtPrice();
        session->priceInDouble();
        requireSame(ours, session->currentProduct()->ExtPrice(), "extended price");
    }
    const auto priced = [session](std::string name, auto price) {
        return timed(std::move(name), [session, price](benchmark::State& state) {
            std::size_t i = 0;
            for ([[maybe_unused]] auto _ : state) {
                session->setQuantity(i++);
                price(*session);
            }
        });
    };
    return {priced("", [](FieldsAlone& each) { each.fields.PrvCalcExtPrice(); }),
            priced("in double", [](FieldsAlone& each) { each.priceInDouble(); })};
}

/// The time to change one record's price and then ask for the total.
Side totalAfterChange(const std::string& name, std::size_t products)
{
    const Manager manager = sampleManager(products);
    const std::shared_ptr<ProductRecord> record = manager->GetProduct(static_cast<std::int32_t>(products / 2));
    return timed(name, [manager, record](benchmark::State& state) {
        std::int64_t scaled = 0;
        for ([[maybe_unused]] auto _ : state) {
            record->SetExtPrice(Currency::fromScaled(++scaled));
            benchmark::DoNotOptimize(manager->GetTotalValue());
        }
    });
}

Side renamed(Side side, std::string name)
{
    side.name = std::move(name);
    return side;
}

} // namespace

void addEditor(Suite& suite)
{
    constexpr double kMicrosecond = 1'000;
    suite.add(Row{"C keystroke, 1,000 products", atMost(kMicrosecond),
                  [] { return Sides{keystroke(sampleManager(1'000), "12")}; }});
    suite.add(Row{"C keystroke, 100,000 products", atMost(kMicrosecond),
                  [] { return Sides{keystroke(sampleManager(100'000), "12")}; }});
    suite.add(Row{"C keystroke that empties the box or ends that", atMost(kMicrosecond),
                  [] { return Sides{keystroke(sampleManager(1'000), "")}; }});
    suite.add(Row{"C keystroke, 100,000 products beside 1,000", atMostTimes(1.2), [] {
                      return Sides{keystroke(sampleManager(100'000), "12"),
                                   renamed(keystroke(sampleManager(1'000), "12"), "1,000")};
                  }});
    suite.add(Row{"C allocations in 2,000 keystrokes", atMost(0),
                  [] { return Sides{keystrokeAllocations(sampleManager(100'000))}; }, Unit::count, 1});
    suite.add(
        Row{"H next product after a change, 100,000 products", atMostTimes(1.5), [] {
                return Sides{nextProduct(sampleManager(100'000)), renamed(nextProduct(sampleManager(1'000)), "1,000")};
            }});
    suite.add(Row{"H next product after a change, 100,000 products", atMost(5 * kMicrosecond),
                  [] { return Sides{nextProduct(sampleManager(100'000))}; }});
    suite.add(Row{"I extended price", atMostTimes(1.5), extendedPrice});
    suite.add(Row{"I total after a change, 100,000 products", atMostTimes(1.2), [] {
                      return Sides{totalAfterChange("", 100'000), totalAfterChange("1,000", 1'000)};
                  }});
    suite.add(Growth{"C keystroke", [](std::size_t size) { return keystroke(sampleManager(size), "12"); }});
    suite.add(Growth{"H next product", [](std::size_t size) { return nextProduct(sampleManager(size)); }});
    suite.add(Growth{"I total after a change", [](std::size_t size) { return totalAfterChange("", size); }});
}

} // namespace orvan::bench
