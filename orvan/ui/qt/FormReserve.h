// FormReserve: makes a form before it is asked for, so that a user who opens a form again does not wait for its
// widgets.
//
// When a form of a design that is `openedAgain` has been released, the reserve makes the next one while the program is
// idle. That form is a new one in every respect: it has only been made earlier. It is handed out if a form that is made
// now would be the same; after a change of the font, style, language, direction, screen or number formats, a new one is
// made instead. Ownership: the platform's. Thread: the user-interface thread.
#pragma once

#include "orvan/ui/qt/QtForm.h"

#include <QFont>
#include <QObject>
#include <QSize>
#include <QTimer>

#include <memory>
#include <string>

namespace orvan::qt {

class FormReserve final : public QObject {
public:
    explicit FormReserve(ui::Platform& platform);
    ~FormReserve() override;

    /// The form that has been made in advance, else a new one. Raises what the constructor of QtForm does.
    [[nodiscard]] std::unique_ptr<QtForm> load(const ui::FormDesign& design, QWidget* owner);

private:
    /// What a form is made for, beside its design and what Qt reports to its widgets.
    struct Circumstances {
        const QScreen* screen;
        QSize available;
        qreal pixelRatio;
        std::string keypadDecimals;
        QFont font;
        bool operator==(const Circumstances& other) const = default;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;
    [[nodiscard]] std::unique_ptr<QtForm> takeReady(const ui::FormDesign& design, QWidget* owner);
    [[nodiscard]] Circumstances circumstances(QWidget* owner) const;
    void prepare();
    void giveUp();
    static void giveUpAll();

    ui::Platform& platform_;
    QTimer idle_;
    const ui::FormDesign* design_ = nullptr; ///< Of the form that was released last.
    std::unique_ptr<QtForm> ready_;          ///< Null where none has been made in advance.
    Circumstances madeFor_ = {};
    bool outdated_ = false; ///< Qt has reported to ready_ that it would be made otherwise now.
};

} // namespace orvan::qt
