#include "orvan/editor/frmProductDesign.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace orvan {

namespace {

using ui::Alignment;
using ui::ControlKind;
using ui::TextUse;

constexpr std::string_view kFields = "fraWizProducts";
constexpr std::string_view kRecord = "fraLeftButtons";
constexpr float kRow = 315;        ///< Height of a box and of its label.
constexpr float kButton = 375;     ///< Height of every button, and width of the square record buttons.
constexpr float kButtonStep = 420; ///< Distance from the left edge of one record button to that of the next.
constexpr float kLabels = 180;     ///< From here on: the left edges of the two columns of labels and boxes.
constexpr float kBoxes = 1215;
constexpr float kRightLabels = 3375;
constexpr float kRightBoxes = 4410;
constexpr float kRightWidth = 1830;

constexpr ui::ToolDesign kTools[] = {
    {.id = "ID_Product", .caption = "Product", .mnemonic = 'P'},
    {.id = "ID_NewProduct", .caption = "New Product", .menu = "ID_Product", .mnemonic = 'N', .key = "Ctrl+N"},
    {.id = "ID_DuplicateProduct",
     .caption = "Duplicate Product",
     .menu = "ID_Product",
     .mnemonic = 'u',
     .key = "Ctrl+D"},
    {.menu = "ID_Product"},
    {.id = "ID_DeleteProduct", .caption = "Delete Product", .menu = "ID_Product", .mnemonic = 'D'},
    {.menu = "ID_Product"},
    {.id = "ID_SaveClose", .caption = "Save && Close", .menu = "ID_Product", .mnemonic = 'S', .key = "Ctrl+Return"},
    {.id = "ID_Goto", .caption = "Goto Product", .menu = "ID_Product", .mnemonic = 'G'},
    {.id = "ID_GotoFirst", .caption = "First", .menu = "ID_Goto", .mnemonic = 'F', .key = "Ctrl+Home"},
    {.id = "ID_GotoPrevious", .caption = "Previous", .menu = "ID_Goto", .mnemonic = 'P', .key = "Ctrl+PgUp"},
    {.id = "ID_GotoNext", .caption = "Next", .menu = "ID_Goto", .mnemonic = 'N', .key = "Ctrl+PgDown"},
    {.id = "ID_GotoLast", .caption = "Last", .menu = "ID_Goto", .mnemonic = 'L', .key = "Ctrl+End"},
};

// The Tab key goes through the fields in reading order, then to the record buttons, then to the two that close. It
// leaves out the read-only boxes, in which nobody types; a click or their mnemonic reaches them.
// clang-format off
constexpr ui::ControlDesign kControls[] = {
    {.name = "tmrPartNum", .kind = ControlKind::timer},
    {.name = "tmrProdLkp", .kind = ControlKind::timer},
    {.name = "atbMain", .kind = ControlKind::toolBar, .width = 6720, .height = 345, .caption = "Main", .tools = kTools},

    {.name = kFields, .kind = ControlKind::frame, .left = 240, .top = 465, .width = 6480, .height = 4035},
    {.name = "lblFrameHeader", .kind = ControlKind::label, .parent = kFields, .left = kLabels, .top = 60,
     .width = 6060, .height = kRow, .caption = "Product Information", .cell = {.row = 0, .columnSpan = 4}},
    {.name = "lblPartNum", .kind = ControlKind::label, .parent = kFields, .left = kLabels, .top = 465,
     .width = 975, .height = kRow, .caption = "Part#", .mnemonic = 'a', .cell = {.row = 1}},
    {.name = "cboPartNum", .kind = ControlKind::comboBox, .parent = kFields, .left = kBoxes, .top = 465,
     .width = 5025, .height = kRow, .tabIndex = 0, .cell = {.row = 1, .column = 1, .columnSpan = 3}},
    {.name = "lblProductName", .kind = ControlKind::label, .parent = kFields, .left = kLabels, .top = 870,
     .width = 975, .height = kRow, .caption = "Product", .mnemonic = 'r', .cell = {.row = 2}},
    {.name = "cboProductName", .kind = ControlKind::comboBox, .parent = kFields, .left = kBoxes, .top = 870,
     .width = 5025, .height = kRow, .tabIndex = 1, .cell = {.row = 2, .column = 1, .columnSpan = 3}},
    {.name = "lblUnitPrice", .kind = ControlKind::label, .parent = kFields, .left = kLabels, .top = 1275,
     .width = 975, .height = kRow, .caption = "Unit Price", .mnemonic = 'U', .cell = {.row = 3}},
    {.name = "txtUnitPrice", .kind = ControlKind::textBox, .parent = kFields, .left = kBoxes, .top = 1275,
     .width = kRightWidth, .height = kRow, .tabIndex = 2, .use = TextUse::money, .alignment = Alignment::right,
     .cell = {.row = 3, .column = 1}},
    {.name = "lblQty", .kind = ControlKind::label, .parent = kFields, .left = kRightLabels, .top = 1275,
     .width = 975, .height = kRow, .caption = "Quantity", .mnemonic = 'Q', .cell = {.row = 3, .column = 2}},
    {.name = "txtQty", .kind = ControlKind::textBox, .parent = kFields, .left = kRightBoxes, .top = 1275,
     .width = kRightWidth, .height = kRow, .tabIndex = 3, .use = TextUse::number, .alignment = Alignment::right,
     .cell = {.row = 3, .column = 3}},
    {.name = "lblDiscount", .kind = ControlKind::label, .parent = kFields, .left = kLabels, .top = 1680,
     .width = 975, .height = kRow, .caption = "Discount%", .mnemonic = 'D', .cell = {.row = 4}},
    {.name = "txtDiscount", .kind = ControlKind::textBox, .parent = kFields, .left = kBoxes, .top = 1680,
     .width = kRightWidth, .height = kRow, .tabIndex = 4, .use = TextUse::number, .alignment = Alignment::right,
     .cell = {.row = 4, .column = 1}},
    {.name = "lblExtPrice", .kind = ControlKind::label, .parent = kFields, .left = kRightLabels, .top = 1680,
     .width = 975, .height = kRow, .caption = "Ext Price", .mnemonic = 'E', .cell = {.row = 4, .column = 2}},
    {.name = "txtExtPrice", .kind = ControlKind::textBox, .parent = kFields, .left = kRightBoxes, .top = 1680,
     .width = kRightWidth, .height = kRow, .readOnly = true, .alignment = Alignment::right,
     .cell = {.row = 4, .column = 3}},
    {.name = "lblNote", .kind = ControlKind::label, .parent = kFields, .left = kLabels, .top = 2085,
     .width = 975, .height = kRow, .caption = "Note", .mnemonic = 'N', .cell = {.row = 5}},
    {.name = "txtNote", .kind = ControlKind::textBox, .parent = kFields, .left = kBoxes, .top = 2085,
     .width = 5025, .height = 1335, .tabIndex = 5, .multiLine = true,
     .cell = {.row = 5, .column = 1, .columnSpan = 3, .stretch = true}},
    {.name = "Line1", .kind = ControlKind::line, .parent = kFields, .left = kLabels, .top = 3510, .width = 6060,
     .height = 15, .cell = {.row = 6, .columnSpan = 4}},
    {.name = "lblTotal", .kind = ControlKind::label, .parent = kFields, .left = kRightLabels, .top = 3615,
     .width = 975, .height = kRow, .caption = "Total", .mnemonic = 'T', .cell = {.row = 7, .column = 2}},
    {.name = "txtTotal", .kind = ControlKind::textBox, .parent = kFields, .left = kRightBoxes, .top = 3615,
     .width = kRightWidth, .height = kRow, .readOnly = true, .announced = true, .alignment = Alignment::right,
     .cell = {.row = 7, .column = 3}},

    {.name = kRecord, .kind = ControlKind::frame, .left = 240, .top = 4620, .width = 2595, .height = kButton},
    {.name = "cmdGotoFirst", .kind = ControlKind::button, .parent = kRecord, .width = kButton, .height = kButton,
     .toolTip = "Go to first product", .picture = "first", .tabIndex = 6},
    {.name = "cmdPrevious", .kind = ControlKind::button, .parent = kRecord, .left = kButtonStep, .width = kButton,
     .height = kButton, .toolTip = "Go to previous product", .picture = "previous", .tabIndex = 7},
    {.name = "cmdNext", .kind = ControlKind::button, .parent = kRecord, .left = 2 * kButtonStep, .width = kButton,
     .height = kButton, .toolTip = "Go to next product", .picture = "next", .tabIndex = 8},
    {.name = "cmdGotoLast", .kind = ControlKind::button, .parent = kRecord, .left = 3 * kButtonStep, .width = kButton,
     .height = kButton, .toolTip = "Go to last product", .picture = "last", .tabIndex = 9},
    {.name = "cmdNew", .kind = ControlKind::button, .parent = kRecord, .left = 1800, .width = kButton,
     .height = kButton, .toolTip = "Add new product", .picture = "add", .tabIndex = 10},
    {.name = "cmdDelete", .kind = ControlKind::button, .parent = kRecord, .left = 1800 + kButtonStep, .width = kButton,
     .height = kButton, .toolTip = "Delete current product", .picture = "delete", .tabIndex = 11},

    {.name = "cmdSaveClose", .kind = ControlKind::button, .left = 3840, .top = 4620, .width = 1560, .height = kButton,
     .caption = "Save && Close", .mnemonic = 'S', .picture = "save", .tabIndex = 12},
    {.name = "cmdCancel", .kind = ControlKind::button, .left = 5520, .top = 4620, .width = 1200, .height = kButton,
     .caption = "Cancel", .mnemonic = 'C', .picture = "cancel", .tabIndex = 13, .cancels = true},
};
// clang-format on

// The form of a read-only list has the controls of the form above, without those that only serve to edit. It is
// computed from that form, so that a control that is added there appears in both forms.
constexpr std::string_view kControlsThatEdit[] = {"tmrPartNum", "tmrProdLkp", "cmdNew", "cmdDelete", "cmdSaveClose"};
constexpr std::string_view kToolsThatEdit[] = {"ID_NewProduct", "ID_DuplicateProduct", "ID_DeleteProduct",
                                               "ID_SaveClose", ""}; // "": the separators, which stand between these

constexpr bool isAmong(std::span<const std::string_view> names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr auto toolsThatRead()
{
    constexpr auto kReads = [](const ui::ToolDesign& tool) { return !isAmong(kToolsThatEdit, tool.id); };
    std::array<ui::ToolDesign, std::count_if(std::begin(kTools), std::end(kTools), kReads)> tools{};
    std::copy_if(std::begin(kTools), std::end(kTools), tools.begin(), kReads);
    return tools;
}

constexpr auto kToolsThatRead = toolsThatRead();

constexpr auto readControls()
{
    constexpr auto kReads = [](const ui::ControlDesign& row) { return !isAmong(kControlsThatEdit, row.name); };
    std::array<ui::ControlDesign, std::count_if(std::begin(kControls), std::end(kControls), kReads)> controls{};
    std::copy_if(std::begin(kControls), std::end(kControls), controls.begin(), kReads);
    for (ui::ControlDesign& row : controls) {
        if (row.kind == ControlKind::comboBox || row.kind == ControlKind::textBox) {
            row.kind = ControlKind::textBox;
            row.readOnly = true;
        } else if (row.kind == ControlKind::toolBar) {
            row.tools = kToolsThatRead;
        } else if (row.name == "lblFrameHeader") {
            row.caption = "Product Information (Read Only)";
        } else if (row.cancels) {
            row.caption = "Close"; // there is nothing to cancel
        }
    }
    return controls;
}

constexpr auto kReadControls = readControls();

} // namespace

const ui::FormDesign kProductFormDesign = {.name = "frmProduct",
                                           .width = 6960,
                                           .height = 5115,
                                           .controls = kControls,
                                           .caption = "Product (1/2)",
                                           .openedAgain = true};

const ui::FormDesign kProductReadDesign = {.name = "frmProduct",
                                           .width = 6960,
                                           .height = 5115,
                                           .controls = kReadControls,
                                           .caption = "Product (1/2)",
                                           .openedAgain = true};

} // namespace orvan
