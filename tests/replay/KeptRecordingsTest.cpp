// Recordings of sessions in which something went wrong once, and of the typical edit. They are kept in
// tests/replay/recordings, and come out the same in memory and in windows. With ORVAN_MAKE_RECORDINGS=1 the sessions
// below make them anew.

#include "tests/replay/FourEntries.h"
#include "tests/support/Rows.h"
#ifdef ORVAN_REPLAY_QT
#include "tests/contract/QtDriver.h"
#endif

#include "orvan/files/Descriptor.h"
#include "orvan/hosting/HeadlessProductView.h"
#include "orvan/replay/Replay.h"
#include "orvan/view/ProductViewDesign.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace orvan::replay {
namespace {

using headless::FormDriver;

constexpr std::string_view kList =
    "3~Desk::D-1:400:2:0:800:~Table::T-9:55.5:1.5:0:83.25:round~Lamp::L-7:74.95:1:10:67.455:~";

struct Session {
    const char* name;
    ui::EditingWay editing;
    void (*play)(HeadlessHost& host);
};

/// Opens the editor on the product in a row.
void edit(HeadlessHost& host, HeadlessProductView& view, std::int32_t row, const std::function<void(FormDriver&)>& user)
{
    host.platform().drive(user);
    view.flexGrid().doubleClick(row);
}

void typicalEdit(HeadlessHost& host)
{
    HeadlessProductView view(host.platform(), "frmQuote");
    view.Show(kList);
    host.platform().messageBox().answer(ui::MessageResult::yes); // to the note of the catalogue
    edit(host, view, 2, [&host](FormDriver& form) {
        std::string clipboard;
        form.focus("cboPartNum");
        form.comboBox("cboPartNum").pressControl('A', clipboard);
        form.comboBox("cboPartNum").type("T-1");
        host.platform().clock().advance(500);
        form.focus("txtQty");
        form.textBox("txtQty").pressControl('A', clipboard);
        form.textBox("txtQty").type("3");
        form.focus("txtDiscount");
        form.textBox("txtDiscount").type("5");
        form.focus("txtNote");
        form.textBox("txtNote").type("by\nThursday");
        form.button("cmdNext").click();
        form.button("cmdSaveClose").click();
    });
    static_cast<void>(view.Products());
    static_cast<void>(view.TotalValue());
}

/// The next product's price was once replaced by the catalogue's, because its name had been written into the box.
void deletedBeforeAnother(HeadlessHost& host)
{
    HeadlessProductView view(host.platform(), "frmQuote");
    view.Show(kList);
    for (int i = 0; i < 2; ++i) {
        host.platform().messageBox().answer(ui::MessageResult::yes);
    }
    edit(host, view, 1, [&host](FormDriver& form) {
        form.button("cmdDelete").click();
        host.platform().clock().advance(600);
        form.button("cmdNext").click();
        form.button("cmdSaveClose").click();
    });
    static_cast<void>(view.Products());
}

/// A row that was chosen for one product was once applied to the product that was shown next.
void rowOfAnotherProduct(HeadlessHost& host)
{
    HeadlessProductView view(host.platform(), "frmQuote");
    view.Show(kList);
    edit(host, view, 1, [&host](FormDriver& form) {
        form.focus("cboProductName");
        form.comboBox("cboProductName").type("L");
        host.platform().clock().advance(500);
        form.comboBox("cboProductName").type("x");
        form.button("cmdNext").click();
        form.focus("cboPartNum");
        form.focus("txtQty");
        form.button("cmdSaveClose").click();
    });
    static_cast<void>(view.Products());
}

/// The widths of columns once came back at other columns.
void widthsAfterRestart(HeadlessHost& host)
{
    for (int run = 0; run < 2; ++run) {
        HeadlessProductView view(host.platform(), "frmQuote");
        view.Show(kList);
        if (run == 0) {
            view.flexGrid().rightClick(0, 2);
            view.surface().popupMenu("mnuViewCboOne").choose("mnuViewCboOneDiscPrcnt");
            view.flexGrid().dragColumn(2, 2100);
            view.flexGrid().dragColumn(3, 900);
        }
    }
}

constexpr Session kSessions[] = {
    {"typical-edit", ui::EditingWay::classic, typicalEdit},
    {"typical-edit-careful", ui::EditingWay::careful, typicalEdit},
    {"deleted-before-another", ui::EditingWay::careful, deletedBeforeAnother},
    {"row-of-another-product", ui::EditingWay::careful, rowOfAnotherProduct},
    {"widths-after-restart", ui::EditingWay::classic, widthsAfterRestart},
};

std::filesystem::path fileOf(const Session& session)
{
    return std::filesystem::path(ORVAN_SOURCE_ROOT) / "tests/replay/recordings" /
           (std::string(session.name) + ".recording");
}

void makeAnew(const Session& session)
{
    std::filesystem::create_directories(fileOf(session).parent_path());
    std::filesystem::remove(fileOf(session));
    HostOptions options;
    options.editing = session.editing;
    options.locale = {.monetary = "en_US", .numeric = "en_US"};
    options.makeCatalogue = [] { return std::make_shared<FourEntries>(); };
    options.components.trace.file.clear();
    options.recording.file = fileOf(session);
    HeadlessHost host(options);
    session.play(host);
}

void expectSame(const ReplayResult& result)
{
    EXPECT_EQ(result.end, ReplayResult::End::same)
        << "line " << result.line << "\n recorded " << result.recorded << "\n replayed " << result.replayed;
}

TEST(KeptRecordingsTest, ComeOutTheSameInMemory)
{
    test::forEachRow(kSessions, [](const Session& session) {
        if (std::getenv("ORVAN_MAKE_RECORDINGS")) {
            makeAnew(session);
        }
        expectSame(replayInMemory(RecordedLines(files::Descriptor::openRegular(fileOf(session)).readAll())));
    });
}

#ifdef ORVAN_REPLAY_QT
class QtStage final : public Stage {
public:
    QtStage() { driver_.platform().onUnhandledError = nullptr; }

    ui::Platform& platform() override { return driver_.platform(); }
    std::unique_ptr<ui::Surface> makeView() override { return driver_.load(kProductViewDesign); }
    void whenShown(ui::Form& form, std::function<void()> play) override { driver_.whenShown(form, std::move(play)); }

private:
    contract::QtDriver driver_;
};

TEST(KeptRecordingsTest, ComeOutTheSameInWindows)
{
    test::forEachRow(kSessions, [](const Session& session) {
        const RecordedLines lines(files::Descriptor::openRegular(fileOf(session)).readAll());
        QtStage stage;
        expectSame(Replay(lines, stage).run());
    });
}
#endif

} // namespace
} // namespace orvan::replay
