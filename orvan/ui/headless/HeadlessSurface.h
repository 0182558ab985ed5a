// HeadlessSurface and HeadlessSite: the surface and the container of a control without a window.
//
// Ownership: the host. Thread: the platform's.
#pragma once

#include "orvan/base/Text.h"
#include "orvan/core_export.h"
#include "orvan/ui/ContainerSite.h"
#include "orvan/ui/Form.h"
#include "orvan/ui/Surface.h"
#include "orvan/ui/headless/HeadlessControls.h"
#include "orvan/ui/headless/HeadlessEntries.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orvan::headless {

/// A surface or a form that is its own driver. It gives its controls as in-memory controls, which are drivers, too.
template <class Kind, class Driver>
class DrivenSurface : public Kind, public Driver {
public:
    using Kind::Kind;

    HeadlessButton& button(std::string_view name) final { return find<HeadlessButton>(name); }
    HeadlessTextBox& textBox(std::string_view name) final { return find<HeadlessTextBox>(name); }
    HeadlessComboBox& comboBox(std::string_view name) final { return find<HeadlessComboBox>(name); }
    HeadlessGrid& grid(std::string_view name) final { return find<HeadlessGrid>(name); }
    HeadlessToolBar& toolBar(std::string_view name) final { return find<HeadlessToolBar>(name); }
    HeadlessPopupMenu& popupMenu(std::string_view name) final { return find<HeadlessPopupMenu>(name); }

    void focus(std::string_view name) final { this->userMovedFocus(find<ui::Control>(name)); }
    std::string_view focusedControl() const final
    {
        return this->focused() ? std::string_view(this->focused()->name()) : std::string_view();
    }
    void pressKey(std::string_view key) final
    {
        const bool typed = characterCount(key) == 1;
        const ui::KeyStroke stroke =
            typed ? ui::KeyStroke{.key = ui::Key::character, .character = characterAt(key, 0)} : ui::keyStroke(key);
        if constexpr (std::is_base_of_v<ui::Form, Kind>) {
            if (this->userPressedKey(stroke)) {
                return;
            }
        }
        if (auto* grid = dynamic_cast<HeadlessGrid*>(this->focused())) {
            grid->press(stroke);
        } else if (auto* button = dynamic_cast<HeadlessButton*>(this->focused())) {
            if (stroke == ui::keyStroke("Return") || stroke == ui::keyStroke("Space")) {
                button->press();
            }
        }
    }
    void resize(float width, float height) final { this->setInnerSize(width, height); }

private:
    template <class Control>
    Control& find(std::string_view name) const
    {
        return this->template control<Control>(name);
    }
    void doSetFocus(ui::Control& /*to*/) final {}
};

class ORVAN_CORE_INTERNAL HeadlessSurface final : public DrivenSurface<ui::Surface, SurfaceDriver> {
public:
    /// Makes every control of the design. The platform must outlive the surface. Raises 51 for a timer:
    /// only a form has a clock for timers.
    HeadlessSurface(const ui::FormDesign& design, ui::Platform& platform);

private:
    std::unique_ptr<ui::Control> make(const ui::ControlDesign& design, ui::Control* parent) override;
};

class HeadlessSite final : public ui::ContainerSite {
public:
    explicit HeadlessSite(std::string typeName, std::int32_t window = 0)
        : typeName_(std::move(typeName)), window_(window)
    {
    }

    std::string parentTypeName() override { return typeName_; }
    std::int32_t parentWindow() override { return window_; }
    void propertyChanged(std::string_view property) override { changedProperties_.emplace_back(property); }

    const std::vector<std::string>& changedProperties() const { return changedProperties_; }

private:
    std::string typeName_;
    std::int32_t window_;
    std::vector<std::string> changedProperties_;
};

} // namespace orvan::headless
