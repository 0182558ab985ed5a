#include "orvan/ui/qt/QtEntry.h"

#include "orvan/base/Text.h"
#include "orvan/ui/LocaleSeparators.h"
#include "orvan/ui/Platform.h"
#include "orvan/ui/qt/KeyFilter.h"
#include "orvan/ui/qt/QtText.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <optional>

namespace orvan::qt {

namespace {

std::u32string decimalOf(ui::Platform& platform, ui::TextUse use)
{
    if (use == ui::TextUse::plain) {
        return {};
    }
    return toQt(ui::keypadDecimal(platform.locale(), use)).toStdU32String();
}

QString toText(const std::u32string& characters)
{
    return QString::fromStdU32String(characters);
}

} // namespace

EntryWidget::EntryWidget(const ui::ControlDesign& design, ui::Platform& platform, bool lines)
    : text_(lines), lines_(lines), keypadDecimal_(decimalOf(platform, design.use))
{
}

void EntryWidget::showText()
{
    if (!port_) {
        return;
    }
    const QScopedValueRollback quiet(quiet_, true);
    holdText(toQt(port_->entry().text()));
    text_.set(port_->entry().text(), heldText());
    holdCaretAtStart();
}

void EntryWidget::showSelection()
{
    if (!port_) {
        return;
    }
    const QScopedValueRollback quiet(quiet_, true);
    const ui::TextEntry& entry = port_->entry();
    const qsizetype start = text_.positionAt(entry.text(), entry.selectionStart());
    const qsizetype end = text_.positionAt(entry.text(), entry.selectionStart() + entry.selectionLength());
    holdSelection({start, end - start});
}

void EntryWidget::reportChange()
{
    if (quiet_ || !port_ || heldIsReported()) {
        return;
    }
    std::string edited = text_.edit(port_->entry().text(), heldChange());
    // The selection is reported before the text, so that a handler of onChange finds the caret in its new place.
    const WidgetRange range = heldSelection();
    const std::int32_t start = text_.characterAt(edited, range.start);
    port_->reportSelection(start, text_.characterAt(edited, range.start + range.length) - start);
    const std::int32_t limit = port_->entry().maxLength();
    if (limit > 0 && text_.characters(edited) > limit &&
        characterCount(edited) > characterCount(port_->entry().text())) {
        // Assistive technology can write into the widget without fit(), so the text is cut here.
        edited.resize(firstCharacters(edited, static_cast<std::size_t>(limit)).size());
        const QScopedValueRollback quiet(quiet_, true);
        holdText(toQt(edited));
        text_.set(edited, heldText());
    }
    port_->reportText(std::move(edited));
}

void EntryWidget::reportSelection()
{
    if (quiet_ || !port_ || !heldIsReported()) {
        return; // reportChange is about to report the text, and the selection with it
    }
    const WidgetRange range = heldSelection();
    const std::string& text = port_->entry().text();
    const std::int32_t start = text_.characterAt(text, range.start);
    port_->reportSelection(start, text_.characterAt(text, range.start + range.length) - start);
}

std::u32string EntryWidget::filtered(const std::u32string& characters)
{
    std::u32string typed;
    for (const char32_t character : characters) {
        const char32_t put = port_ ? port_->reportKey(character) : 0;
        if (put != 0) {
            typed += put;
        }
    }
    return typed;
}

void EntryWidget::pressKey(QKeyEvent& key)
{
    const bool decimal = !keypadDecimal_.empty() && isKeypadDecimal(key);
    const std::u32string offered = decimal ? keypadDecimal_ : charactersOf(key);
    if (offered.empty()) {
        nativeKeyPress(key);
        return;
    }
    const std::u32string typed = filtersKeys() ? filtered(offered) : offered;
    if (!port_) {
        key.accept(); // the handler has destroyed the box
    } else if (typed == offered && isControl(offered)) {
        nativeKeyPress(key);
    } else {
        const QString text = toText(typed);
        const QString fits = fit(text, heldSelection());
        if (fits == text && fits == key.text()) {
            nativeKeyPress(key);
        } else {
            type(fits);
            key.accept(); // even if nothing is typed: the key has been handled
        }
    }
}

void EntryWidget::type(const QString& text)
{
    if (!text.isEmpty()) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
        nativeKeyPress(key);
    }
}

bool EntryWidget::claims(const QKeyEvent& key) const
{
    return filtersKeys() && goesBeforeShortcuts(key);
}

void EntryWidget::input(QInputMethodEvent& input)
{
    const QString written = input.commitString();
    if (written.isEmpty()) {
        nativeInput(input);
        return;
    }
    const std::u32string offered = written.toStdU32String();
    const QString typed = filtersKeys() ? toText(filtered(offered)) : written;
    if (!port_) {
        input.accept();
        return;
    }
    WidgetRange replaced = heldSelection();
    if (replaced.length == 0 && input.replacementLength() > 0) {
        replaced = {replaced.start + input.replacementStart(), input.replacementLength()};
    }
    const QString fits = fit(typed, replaced);
    if (fits == written) {
        nativeInput(input);
        return;
    }
    QInputMethodEvent changed(input.preeditString(), input.attributes());
    changed.setCommitString(fits, input.replacementStart(), input.replacementLength());
    nativeInput(changed);
    input.accept();
}

QString EntryWidget::fit(const QString& piece, WidgetRange replaced) const
{
    if (!port_) {
        return piece;
    }
    const ui::TextEntry& entry = port_->entry();
    std::optional<std::int64_t> capacity;
    if (entry.maxLength() > 0) {
        const auto capacityOf = [&](const EntryText& map, const std::string& now) {
            const std::int32_t going =
                map.characterAt(now, replaced.start + replaced.length) - map.characterAt(now, replaced.start);
            return std::int64_t{entry.maxLength()} - map.characters(now) + going;
        };
        if (heldIsReported()) {
            capacity = capacityOf(text_, entry.text());
        } else { // the user is dragging text to another place: the widget has removed it, and not reported that
            EntryText map = text_;
            const std::string now = map.edit(entry.text(), map.changeTo(heldText()));
            capacity = capacityOf(map, now);
        }
    }
    return toQt(ui::fitForEntry(fromQt(piece), lines_ ? text_.lineEnd() : std::string_view(" "), capacity));
}

} // namespace orvan::qt
