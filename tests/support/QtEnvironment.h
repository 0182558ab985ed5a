// QtEnvironment: the application of a test program, on settings of its own, and a user who answers.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

namespace orvan::test {

/// Made before the first test and gone before the process ends its static objects.
class QtEnvironment final : public testing::Environment {
public:
    void SetUp() override
    {
        qputenv("XDG_CONFIG_HOME", home_.path().toUtf8());
        qputenv("XDG_STATE_HOME", home_.path().toUtf8());
        qputenv("LC_ALL", "en_US.UTF-8");
        application_ = std::make_unique<QApplication>(argc_, argv_);
    }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    char name_[5] = "test";
    char* argv_[2] = {name_, nullptr};
    QTemporaryDir home_;
    std::unique_ptr<QApplication> application_;
};

inline testing::Environment* const kQtEnvironment = testing::AddGlobalTestEnvironment(new QtEnvironment);

/// Runs as soon as a modal window waits for the user. The test fails when none comes up.
inline void whenModal(const std::function<void(QWidget& window)>& act)
{
    QTimer::singleShot(0, qApp, [act] {
        QWidget* const window = QApplication::activeModalWidget();
        ASSERT_TRUE(window) << "no modal window came";
        act(*window);
    });
}

} // namespace orvan::test
