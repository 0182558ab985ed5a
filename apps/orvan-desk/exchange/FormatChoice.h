// FormatChoice: combo boxes in which the user chooses the separators of a file that holds a quote's lines: the one
// between two fields, and the decimal separator. Thread: the user-interface thread.
#pragma once

#include <QComboBox>
#include <QCoreApplication>

#include <initializer_list>
#include <utility>

namespace orvan::desk {

/// A box with some characters to choose from.
[[nodiscard]] inline QComboBox* characterChoice(std::initializer_list<std::pair<char, QString>> choices)
{
    auto* const box = new QComboBox;
    for (const auto& [character, name] : choices) {
        box->addItem(name, QChar::fromLatin1(character));
    }
    return box;
}

[[nodiscard]] inline QComboBox* delimiterChoice()
{
    return characterChoice({{',', QCoreApplication::translate("FormatChoice", "Comma  ,")},
                            {';', QCoreApplication::translate("FormatChoice", "Semicolon  ;")},
                            {'\t', QCoreApplication::translate("FormatChoice", "Tab")},
                            {'|', QCoreApplication::translate("FormatChoice", "Bar  |")}});
}

[[nodiscard]] inline QComboBox* decimalChoice()
{
    return characterChoice({{'.', QCoreApplication::translate("FormatChoice", "Point  1.5")},
                            {',', QCoreApplication::translate("FormatChoice", "Comma  1,5")}});
}

[[nodiscard]] inline char chosenCharacter(const QComboBox& box)
{
    return box.currentData().toChar().toLatin1();
}

inline void choose(QComboBox& box, char character)
{
    box.setCurrentIndex(box.findData(QChar::fromLatin1(character)));
}

} // namespace orvan::desk
