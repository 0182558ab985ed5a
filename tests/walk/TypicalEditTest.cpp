#include "orvan/components/catalogue/CatalogueImport.h"
#include "orvan/hosting/HeadlessProductView.h"
#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <map>
#include <sstream>

namespace orvan {
namespace {

using Sections = std::map<std::string, std::vector<std::string>>;

Sections readSections(const std::filesystem::path& path)
{
    Sections sections;
    std::ifstream file(path);
    std::string section;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('[')) {
            section = line.substr(1, line.size() - 2);
        } else if (!line.starts_with('#')) {
            sections[section].push_back(line);
        }
    }
    return sections;
}

/// The user of the typical edit, with the mouse and the keys of the in-memory platform.
class Player {
public:
    Player(HeadlessProductView& view, headless::HeadlessPlatform& platform, const std::vector<std::string>& steps)
        : view_(view), platform_(platform), steps_(steps)
    {
    }

    void play()
    {
        for (const std::string& step : steps_) {
            if (step == "answer yes") {
                platform_.messageBox().answer(ui::MessageResult::yes);
            }
        }
        platform_.drive([this](headless::FormDriver& form) {
            while (++at_ < steps_.size()) {
                inEditor(form);
            }
        });
        std::istringstream first(steps_.front());
        std::string doubleClick;
        std::int32_t row = 0;
        first >> doubleClick >> row;
        view_.flexGrid().doubleClick(row);
    }

private:
    void inEditor(headless::FormDriver& form)
    {
        const std::string& step = steps_[at_];
        const std::string verb = step.substr(0, step.find(' '));
        const std::string what = step.substr(std::min(verb.size() + 1, step.size()));
        if (verb == "title") {
            EXPECT_EQ(form.caption(), what);
        } else if (verb == "go" || verb == "tab") {
            form.focus(what);
            box_ = what.starts_with("cbo") ? &form.comboBox(what) : &form.textBox(what);
        } else if (verb == "all") {
            box_->pressControl('A', clipboard_);
        } else if (verb == "type") {
            box_->type(what);
        } else if (verb == "pause") {
            platform_.clock().advance(500);
        } else if (verb == "save") {
            form.button("cmdSaveClose").click();
        } else if (verb != "answer") { // given in advance
            FAIL() << step;
        }
    }

    HeadlessProductView& view_;
    headless::HeadlessPlatform& platform_;
    const std::vector<std::string>& steps_;
    std::size_t at_ = 0;
    headless::EntryDriver* box_ = nullptr;
    std::string clipboard_;
};

/// The trace without times, threads and depths.
std::vector<std::string> traced(const std::filesystem::path& path)
{
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string date, time, thread, depth, line;
         file >> date >> time >> thread >> depth && std::getline(file >> std::ws, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(TypicalEdit, GivesTheSameProductsAndTraceAsInARealWindow)
{
    const test::TemporaryFolder folder;
    const std::filesystem::path source(ORVAN_SOURCE_ROOT);
    HostOptions options;
    options.components.catalogue.file = folder / "products.catalogue";
    options.components.trace.file = folder / "trace.log";
    importCatalogue(source / "apps/orvan-desk/samples/products.csv", options.components.catalogue.file);
    Sections sections = readSections(source / "tests/walk/typical_edit.txt");
    HeadlessHost host(options);
    HeadlessProductView view(host.platform());
    view.Show(sections["list"].front());
    const std::size_t tracedBefore = traced(options.components.trace.file).size();
    Player(view, host.platform(), sections["steps"]).play();
    const std::string products = view.Products();

    std::vector<std::string> lines = traced(options.components.trace.file);
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(tracedBefore));
    lines.resize(lines.size() - 2); // without the two lines of reading the products
    EXPECT_EQ(products, sections["products"].front());
    EXPECT_EQ(lines, sections["trace"]);
}

} // namespace
} // namespace orvan
