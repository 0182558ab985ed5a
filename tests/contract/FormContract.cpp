// Forms on both platforms: focus, closing, tools, timers.
#include "ContractDriver.h"

namespace orvan::contract {

using ui::ControlKind;
using ui::UnloadMode;

constexpr ui::ToolDesign kTools[] = {
    {.id = "menu", .caption = "Menu", .mnemonic = 'M'},
    {.id = "new", .caption = "New", .menu = "menu", .mnemonic = 'N'},
    {.menu = "menu"},
    {.id = "go", .caption = "Go to", .menu = "menu"},
    {.id = "last", .caption = "Last", .menu = "go"},
};
// clang-format off
constexpr ui::ControlDesign kFormControls[] = {
    {.name = "timer", .kind = ControlKind::timer},
    {.name = "bar", .kind = ControlKind::toolBar, .width = 4000, .height = 345, .caption = "Main", .tools = kTools},
    {.name = "fields", .kind = ControlKind::frame, .left = 240, .top = 465, .width = 4000, .height = 1500},
    {.name = "heading", .kind = ControlKind::label, .parent = "fields", .width = 900, .height = 315,
     .caption = "All of it", .cell = {.row = 0, .columnSpan = 2}},
    {.name = "lblOne", .kind = ControlKind::label, .parent = "fields", .top = 400, .width = 900, .height = 315,
     .caption = "Bone && one", .mnemonic = 'o', .cell = {.row = 1}},
    {.name = "one", .kind = ControlKind::textBox, .parent = "fields", .left = 1000, .top = 400, .width = 2000,
     .height = 315, .tabIndex = 0, .cell = {.row = 1, .column = 1}},
    {.name = "lblTwo", .kind = ControlKind::label, .parent = "fields", .top = 800, .width = 900, .height = 315,
     .caption = "Two", .mnemonic = 'T', .cell = {.row = 2}},
    {.name = "two", .kind = ControlKind::textBox, .parent = "fields", .left = 1000, .top = 800, .width = 2000,
     .height = 315, .tabIndex = 1, .cell = {.row = 2, .column = 1, .stretch = true}},
    {.name = "steps", .kind = ControlKind::frame, .left = 240, .top = 2100, .width = 1300, .height = 375},
    {.name = "a", .kind = ControlKind::button, .parent = "steps", .width = 375, .height = 375, .picture = "first",
     .tabIndex = 2},
    {.name = "b", .kind = ControlKind::button, .parent = "steps", .left = 420, .width = 375, .height = 375,
     .picture = "previous", .tabIndex = 3},
    {.name = "c", .kind = ControlKind::button, .parent = "steps", .left = 840, .width = 375, .height = 375,
     .picture = "last", .tabIndex = 4},
    {.name = "cancel", .kind = ControlKind::button, .left = 3000, .top = 2100, .width = 1240, .height = 375,
     .caption = "Cancel it all", .mnemonic = 'C', .tabIndex = 5, .cancels = true},
};
// clang-format on
const ui::FormDesign kFormDesign{
    .name = "frmContract", .width = 4480, .height = 2715, .controls = kFormControls, .caption = "Contract"};

void FormContract::SetUp()
{
    PlatformContract::SetUp();
    form = driver->platform().loadForm(kFormDesign, 0);
    for (const ui::ControlDesign& design : kFormDesign.controls) {
        auto& control = form->control<ui::Control>(design.name);
        control.onGotFocus = [this, &control] { log += control.name() + "+ "; };
        control.onLostFocus = [this, &control] { log += control.name() + "- "; };
        if (auto* button = dynamic_cast<ui::Button*>(&control)) {
            button->onClick = [this, button] { log += button->name() + "! "; };
        }
    }
    form->onQueryUnload = [this](UnloadMode mode) {
        log += "ask" + std::to_string(static_cast<int>(mode)) + ' ';
        return stays;
    };
    form->onUnload = [this] { log += "gone "; };
}

namespace {

TEST_P(FormContract, TheFocusMovesBetweenControlsAlone)
{
    EXPECT_EQ(form->focused(), nullptr);
    driver->showModal(*form, [&] {
        EXPECT_EQ(taken(), "one+ ");
        driver->goTo(*form, "two");
        EXPECT_EQ(taken(), "one- two+ ");
        driver->goTo(*form, "two");
        EXPECT_EQ(taken(), "");
        driver->click(button("b"));
        driver->click(button("b"));
        EXPECT_EQ(taken(), "two- b+ b! b! ");
        box("one").setFocus();
        log += "back ";
        box("one").setFocus();
        driver->choose(bar(), "last");
        for (const std::int32_t owner : {0, 4711, form->window()}) { // 4711 is no window
            const auto answer = owner == 0 ? ui::MessageResult::yes : ui::MessageResult::cancel;
            driver->answer(answer);
            const ui::Message message{.buttons = ui::MessageButtons::yesNoCancel, .ownerWindow = owner};
            EXPECT_EQ(driver->platform().messageBox().show(message), answer);
        }
        EXPECT_EQ(taken(), "b- one+ back ") << "neither a tool nor a message takes the focus";
        box("one").onLostFocus = [&] {
            log += "one- ";
            button("c").setFocus();
        };
        driver->goTo(*form, "two");
        EXPECT_EQ(taken(), "one- two- c+ ") << "moved on by a handler";
        EXPECT_EQ(errorOf([&] { form->control<ui::Control>("fields").setFocus(); }), 5);
        form->unload();
        box("two").setFocus();
        EXPECT_EQ(taken(), "ask1 gone ") << "a form that is gone raises nothing";
    });
}

TEST_P(FormContract, ADisabledButtonHandsTheFocusOn)
{
    driver->showModal(*form, [&] {
        for (const auto& [from, to] : {std::pair("c", "b"), std::pair("a", "b"), std::pair("b", "one")}) {
            driver->click(button(from));
            taken();
            button(from).setEnabled(false);
            EXPECT_EQ(taken(), std::string(from) + "- " + to + "+ ");
        }
        EXPECT_EQ(errorOf([&] { button("b").setFocus(); }), 5);
        form->unload();
    });
}

TEST_P(FormContract, EveryWayToCloseAsksFirst)
{
    driver->showModal(*form, [&] {
        stays = true;
        taken();
        driver->clickCloseBox(*form);
        form->unload();
        driver->pressEscape(*form);
        button("cancel").setEnabled(false);
        driver->pressEscape(*form);
        EXPECT_EQ(taken(), "ask0 ask1 cancel! ");
        EXPECT_TRUE(form->loaded());
        stays = false;
        driver->clickCloseBox(*form);
        EXPECT_EQ(taken(), "ask0 gone ");
        EXPECT_FALSE(form->loaded());
        form->unload();
        EXPECT_EQ(taken(), "") << "gone already";
    });
    EXPECT_EQ(errorOf([&] { form->showModal(); }), 364);
}

TEST_P(FormContract, AHandlerThreeDeepMayUnloadItsForm)
{
    ui::Message question{.buttons = ui::MessageButtons::yesNo};
    button("a").onClick = [&] {
        box("two").setFocus();
        box("two").setText("after");
    };
    box("two").onGotFocus = [&] {
        question.ownerWindow = form->window();
        EXPECT_EQ(driver->platform().messageBox().show(question), ui::MessageResult::no);
        EXPECT_FALSE(form->loaded());
    };
    box("two").onChange = [&] { log += "changed "; };
    driver->showModal(*form, [&] {
        EXPECT_EQ(errorOf([&] { form->showModal(); }), 400);
        driver->answer(ui::MessageResult::no, [&] { form->unload(); });
        driver->click(button("a"));
        EXPECT_EQ(taken(), "one+ one- a+ a- ask1 gone ");
    });
    EXPECT_EQ(box("two").text(), "after") << "state outlives the window";
    EXPECT_EQ(form->window(), 0);
}

TEST_P(FormContract, ToolsAreChosenWhileTheyAreEnabled)
{
    bar().onToolClick = [&](std::string_view id) { log += std::string(id) + ' '; };
    driver->showModal(*form, [&] {
        taken();
        for (const char* tool : {"menu", "go", "new", "last"}) {
            driver->choose(bar(), tool);
        }
        EXPECT_EQ(taken(), "new last ") << "opening a menu chooses nothing";
        bar().setToolEnabled("last", false);
        EXPECT_FALSE(bar().toolEnabled("last"));
        errorOf([&] { driver->choose(bar(), "last"); });
        EXPECT_EQ(taken(), "");
        for (const char* none : {"LAST", ""}) {
            EXPECT_EQ(errorOf([&] { bar().setToolEnabled(none, true); }), 5);
        }
        bar().onToolClick = [&](std::string_view) { form->unload(); };
        driver->choose(bar(), "new");
    });
}

TEST_P(FormContract, TimersAreNeverEarly)
{
    std::int64_t start = 0;
    std::vector<std::int64_t> passed;
    timer().onTimer = [&] { passed.push_back(driver->now() - start); };
    const auto firings = [&](std::int64_t wait) {
        passed.clear();
        driver->wait(wait);
        return passed.size();
    };
    driver->showModal(*form, [&] {
        EXPECT_EQ(firings(5), 0U) << "an interval of 0 never passes";
        for (const bool byInterval : {true, false, true}) {
            driver->wait(20);
            start = driver->now();
            timer().setEnabled(byInterval);
            byInterval ? timer().setInterval(70) : timer().setEnabled(true);
            const std::size_t count = firings(240);
            EXPECT_TRUE(count >= 1 && count <= 3) << count;
            for (std::size_t nth = 0; nth < count; ++nth) {
                EXPECT_GE(passed[nth], 70 * std::int64_t(nth + 1)) << "the wait begins anew, " << byInterval;
            }
        }
        timer().setEnabled(false);
        EXPECT_EQ(firings(100), 0U);
        EXPECT_EQ(errorOf([&] { timer().setInterval(-1); }), 380);
        timer().setEnabled(true);
        timer().onTimer = [&] { form->unload(); };
        driver->wait(100);
        timer().onTimer = [&] { log += "late "; };
        timer().setInterval(10);
        driver->wait(30);
        EXPECT_EQ(taken(), "one+ ask1 gone ");
    });
}

TEST_P(FormContract, ErrorsOfHandlersStopNothing)
{
    timer().onTimer = [&] {
        timer().setEnabled(false);
        throw RuntimeError(1);
    };
    bar().onToolClick = [](std::string_view) { throw RuntimeError(2); };
    button("a").onClick = [] { throw RuntimeError(3); };
    box("one").onLostFocus = [] { throw RuntimeError(4); };
    form->onQueryUnload = [](UnloadMode) -> bool { throw RuntimeError(5); };
    form->onUnload = [] { throw RuntimeError(6); };
    driver->showModal(*form, [&] {
        timer().setInterval(1);
        for (int waits = 0; waits < 100 && unhandled.empty(); ++waits) { // a machine under load is late
            driver->wait(20);
        }
        driver->choose(bar(), "new");
        driver->click(button("a"));
        driver->clickCloseBox(*form);
    });
    EXPECT_FALSE(form->loaded()) << "a question that fails keeps no form";
    expectedUnhandled = {1, 2, 4, 3, 5, 6};
}

TEST_P(FormContract, AKeyGoesToTheFormBeforeTheBox)
{
    std::string seen;
    form->takesKey = [](const ui::KeyStroke& key) { return key == ui::keyStroke("Ctrl+D"); };
    form->onKeyDown = [&](ui::KeyStroke& key) {
        seen += "form ";
        key.key = ui::Key::none;
    };
    box("one").onKeyPress = [&](std::int16_t& /*KeyAscii*/) { seen += "box "; };
    driver->showModal(*form, [&] {
        driver->goTo(*form, "one");
        driver->pressControl(box("one"), 'D');
        driver->pressControl(box("one"), 'E');
        form->unload();
    });
    EXPECT_EQ(seen, "form box ");
}

} // namespace
} // namespace orvan::contract
