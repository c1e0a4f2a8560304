// The running copy's part in a second start: answering it from the event loop, and coming up.

#include "desktop/desktop_fixture.h"
#include "desktop/single_instance.h"
#include "platform/posix/running_copy.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <optional>
#include <thread>

namespace {

/// Starts beside the program whose loop runs here, and tells whether that answered.
bool Raises(std::filesystem::path const& folder)
{
    std::atomic<bool> isDecided = false;
    bool raised = false;
    std::thread start([&] {
        raised = RunningCopy(folder, "name", std::chrono::seconds(10)).HasRaisedAnother();
        isDecided = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDecided.load(); }, 5000))
        << "not waiting until its patience ends";
    start.join();
    return raised;
}

} // namespace

TEST_F(DesktopTest, ASecondStartBringsAMinimisedWindowUp)
{
    QTemporaryDir const user;
    auto const folder = std::filesystem::path(user.path().toStdString()) / "running";
    RunningCopy copy(folder, "name");
    SingleInstance const instance(
        copy, [this] { return host.MayComeUp(); }, [this] { host.ComeUp(); });
    Open();
    for (auto const before : { FormState::Normal, FormState::Maximised }) {
        Input(screen).ChangeState(form, before);
        Settle();
        Shown(form).showMinimized();
        Settle();
        ASSERT_EQ(form.WindowState(), FormState::Minimised);
        EXPECT_TRUE(Raises(folder));
        Settle();
        EXPECT_EQ(form.WindowState(), before);
        EXPECT_EQ(QApplication::activeWindow(), &Shown(form));
    }
    host.CloseAll();
    EXPECT_FALSE(Raises(folder)) << "a program that has ended can't be raised";
}

TEST_F(DesktopTest, AMessageComesUpWithItsWindow)
{
    Open();
    bool cameUp = false;
    QTimer::singleShot(0, &host, [&] {
        auto* const box = QApplication::activeModalWidget();
        ASSERT_TRUE(qobject_cast<QMessageBox*>(box));
        Shown(form).showMinimized();
        Settle();
        host.ComeUp();
        Settle();
        cameUp = !Shown(form).isMinimized() && QApplication::activeWindow() == box;
        box->close();
    });
    screen.Message(u"wait");
    EXPECT_TRUE(cameUp);
}

TEST(InstanceName, DependsOnEachFolder)
{
    auto const name = InstanceName("1", "2");
    EXPECT_EQ(name, InstanceName("1", "2"));
    for (auto const& other :
        { InstanceName("1", "3"), InstanceName("3", "2"), InstanceName("12", "") })
        EXPECT_NE(name, other);
    EXPECT_EQ(name.find('/'), std::string::npos);
}
