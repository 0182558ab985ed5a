#include "Theme.h"

#include "DeskStyle.h"

#include <QApplication>
#include <QPalette>

namespace orvan::desk {

namespace {

struct Colours {
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb text;
    QRgb placeholder;
    QRgb disabled;
    QRgb highlight;
    QRgb highlightedText;
    QRgb mid;
};

// clang-format off
constexpr Colours kLight = {.window = 0xfff4f5f7, .base = 0xffffffff, .alternate = 0xfff8f9fb, .button = 0xffffffff,
                            .text = 0xff1f2430, .placeholder = 0xff687082, .disabled = 0xffa4abb8,
                            .highlight = 0xff2f6fde, .highlightedText = 0xffffffff, .mid = 0xffd5d9e0};
constexpr Colours kDark = {.window = 0xff23262d, .base = 0xff1b1d23, .alternate = 0xff20232a, .button = 0xff2e323b,
                           .text = 0xffe6e8ec, .placeholder = 0xff8089a0, .disabled = 0xff6a7180,
                           .highlight = 0xff4c8dff, .highlightedText = 0xff0f1115, .mid = 0xff3b404b};
// clang-format on

QPalette paletteOf(const Colours& colours)
{
    QPalette palette(QColor::fromRgb(colours.button), QColor::fromRgb(colours.window));
    const auto set = [&](QPalette::ColorRole role, QRgb colour) { palette.setColor(role, QColor::fromRgb(colour)); };
    set(QPalette::Base, colours.base);
    set(QPalette::AlternateBase, colours.alternate);
    set(QPalette::ToolTipBase, colours.base);
    set(QPalette::Mid, colours.mid);
    set(QPalette::Highlight, colours.highlight);
    set(QPalette::HighlightedText, colours.highlightedText);
    set(QPalette::Link, colours.highlight);
    set(QPalette::PlaceholderText, colours.placeholder);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        set(role, colours.text);
        palette.setColor(QPalette::Disabled, role, QColor::fromRgb(colours.disabled));
    }
    return palette;
}

} // namespace

Theme themeNamed(const QString& name)
{
    return name == u"light" ? Theme::light : name == u"dark" ? Theme::dark : Theme::system;
}

QString themeName(Theme theme)
{
    return theme == Theme::light  ? QStringLiteral("light")
           : theme == Theme::dark ? QStringLiteral("dark")
                                  : QStringLiteral("system");
}

void applyTheme(Theme theme)
{
    static const QPalette systemPalette = [] {
        QApplication::setStyle(new DeskStyle);
        return QApplication::palette();
    }();
    const bool systemIsDark = systemPalette.window().color().lightness() < 128;
    const bool dark = theme == Theme::dark || (theme == Theme::system && systemIsDark);
    QApplication::setPalette(paletteOf(dark ? kDark : kLight));
}

} // namespace orvan::desk
