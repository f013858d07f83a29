// The Qt toolkit: message boxes and their answers, window placement and order answered from the
// real windows, timers, posted work, the pointer, the screen and the mail composer.

#include "base/runtime_error.h"
#include "platform/form.h"
#include "platform/timer.h"
#include "qtui/host/native_windows.h"
#include "qtui/toolkit/desk_automation.h"
#include "qtui/toolkit/qt_toolkit.h"
#include "support/session_fixture.h"

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <deque>
#include <fstream>
#include <gtest/gtest.h>

namespace vellant::qtui {
namespace {

// Answers blocking things with real clicks, and remembers what it was asked.
class ClickingUser : public DeskAutomation {
public:
    std::optional<int> messageBoxAnswer(const std::string& prompt, const std::vector<int>& buttons,
                                        int defaultAnswer) override {
        asked.push_back(prompt);
        offered = buttons;
        if (answers.empty()) return defaultAnswer;
        const int answer = answers.front();
        answers.pop_front();
        if (std::find(buttons.begin(), buttons.end(), answer) == buttons.end())
            throw std::invalid_argument("no such button");
        return answer;
    }
    std::optional<std::string> popupChoice(const std::string&) override { return std::string(); }
    void click(QWidget& widget, QPoint at) override {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
    }
    void key(QWidget& widget, int qtKey) override {
        QTest::keyClick(&widget, static_cast<Qt::Key>(qtKey));
    }

    std::deque<int> answers;
    std::vector<std::string> asked;
    std::vector<int> offered;
};

class QtToolkitTest : public ::testing::Test {
protected:
    QtToolkitTest() { toolkit.setAutomation(&user); }

    NativeWindows windows;
    QtToolkit toolkit{windows};
    ClickingUser user;
};

TEST_F(QtToolkitTest, AMessageBoxAnswersWithTheButtonClickedOrItsDefault) {
    std::vector<int> told;
    toolkit.onMessage = [&](const std::string&, int, const std::string&, int answer) {
        told.push_back(answer);
    };
    user.answers.push_back(platform::vbNo);
    EXPECT_EQ(toolkit.MsgBox("Save?", platform::vbYesNoCancel | platform::vbQuestion),
              platform::vbNo);
    EXPECT_EQ(user.offered,
              (std::vector<int>{platform::vbYes, platform::vbNo, platform::vbCancel}));
    // Nobody answers: the default button, here the second.
    EXPECT_EQ(toolkit.MsgBox("Go on?", platform::vbOKCancel | platform::vbDefaultButton2),
              platform::vbCancel);
    EXPECT_EQ(told, (std::vector<int>{platform::vbNo, platform::vbCancel}));
    // An answer the box has no button for fails the call before anything shows.
    user.answers.push_back(platform::vbRetry);
    EXPECT_THROW(toolkit.MsgBox("Done", platform::vbOKOnly), std::invalid_argument);
    EXPECT_EQ(told.size(), 2u);
    EXPECT_THROW(toolkit.MsgBox("Bad", 7), RuntimeError);
}

TEST_F(QtToolkitTest, PlacementIsAnsweredFromTheRealWindow) {
    QWidget host;
    windows.add(4242, &host);
    host.setGeometry(40, 30, 600, 400);
    host.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    platform::WindowPlacement placement;
    ASSERT_TRUE(toolkit.GetWindowPlacement(4242, placement));
    EXPECT_EQ(placement.showCmd, platform::SW_SHOWNORMAL);
    const QRect frame = host.frameGeometry();
    EXPECT_EQ(placement.rcNormalPosition.left, frame.left());
    EXPECT_EQ(placement.rcNormalPosition.bottom, frame.top() + frame.height());

    host.showMaximized();
    QCoreApplication::processEvents();
    ASSERT_TRUE(toolkit.GetWindowPlacement(4242, placement));
    EXPECT_EQ(placement.showCmd, platform::SW_SHOWMAXIMIZED);
    // The normal place is kept for the window's return.
    EXPECT_EQ(placement.rcNormalPosition.left, frame.left());
    EXPECT_EQ(placement.rcNormalPosition.right, frame.left() + frame.width());

    host.hide();
    ASSERT_TRUE(toolkit.GetWindowPlacement(4242, placement));
    EXPECT_EQ(placement.showCmd, 0);
    EXPECT_FALSE(toolkit.GetWindowPlacement(999999, placement));
}

TEST_F(QtToolkitTest, WindowOrderGoesToTheRealWindow) {
    QWidget window;
    windows.add(77, &window);
    window.show();
    EXPECT_TRUE(toolkit.SetWindowPos(77, platform::HWND_TOPMOST, 0, 0, 0, 0, 3));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(toolkit.SetWindowPos(77, platform::HWND_NOTOPMOST, 0, 0, 0, 0, 3));
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    // Sized to nothing, the window goes out of sight; the next order brings it back.
    EXPECT_TRUE(toolkit.SetWindowPos(77, platform::HWND_BOTTOM, 0, 0, 0, 0, platform::SWP_NOMOVE));
    EXPECT_TRUE(window.isMinimized());
    toolkit.SetWindowPos(77, platform::HWND_TOPMOST, 0, 0, 0, 0, 3);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_FALSE(toolkit.SetWindowPos(78, platform::HWND_TOP, 0, 0, 0, 0, 3));
}

TEST_F(QtToolkitTest, TimersTickByTheClockOrByHand) {
    platform::Timer timer("Timer1", toolkit);
    int ticks = 0;
    timer.onTimer = [&] { ++ticks; };
    timer.setInterval(5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }, 2000));
    EXPECT_GE(ticks, 2);
    timer.setEnabled(false);
    EXPECT_FALSE(toolkit.isTimerRunning(timer));

    toolkit.setTimersByHand(true);
    timer.setEnabled(true);
    ticks = 0;
    QTest::qWait(30);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(toolkit.fireTimers(), 1u);
    EXPECT_EQ(ticks, 1);
}

TEST_F(QtToolkitTest, PostedWorkRunsWhenTheLoopComesRound) {
    std::string order;
    toolkit.post([&] {
        order += "a";
        toolkit.post([&] { order += "c"; });
    });
    order += "b";
    EXPECT_EQ(order, "b");
    toolkit.DoEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(order, "bac");
}

TEST_F(QtToolkitTest, ThePointerAndTheCursorAreTheApplications) {
    toolkit.setMousePointer(platform::vbHourglass);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(toolkit.ShowCursor(false), -1);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
    EXPECT_EQ(toolkit.ShowCursor(true), 0);
    toolkit.setMousePointer(platform::vbDefault);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(QtToolkitTest, TheScreenIsMeasuredInTwipsFromItsResolution) {
    const platform::ScreenMetrics screen = toolkit.Screen();
    const QScreen* real = QGuiApplication::primaryScreen();
    const int perPixel = static_cast<int>(std::lround(1440.0 / real->logicalDotsPerInchX()));
    EXPECT_EQ(screen.TwipsPerPixelX, perPixel);
    EXPECT_EQ(screen.Width, real->geometry().width() * perPixel);
    EXPECT_EQ(screen.Height, real->geometry().height() * perPixel);
}

TEST_F(QtToolkitTest, MailGoesToTheComposerOrTheSignOnFails) {
    toolkit.setMailProgram("/nonexistent/xdg-email");
    try {
        toolkit.mailSignOn();
        ADD_FAILURE() << "signed on without a mail program";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 32002);
    }
    EXPECT_FALSE(toolkit.mailSessionOpen());

    vellant::testing::TempDir dir;
    const std::string composer = dir.file("composer");
    const std::string record = dir.file("arguments");
    std::ofstream(composer) << "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > " << record
                            << "\n";
    std::filesystem::permissions(composer, std::filesystem::perms::owner_all);
    toolkit.setMailProgram(composer);
    toolkit.mailSignOn();
    EXPECT_TRUE(toolkit.mailSessionOpen());
    platform::MailMessage mail;
    mail.RecipAddress = "support@vellant.example";
    mail.MsgSubject = "Vellant PROBLEM REPORT [CMP: desk]";
    mail.MsgNoteText = "line one\nline two\n";
    toolkit.composeMail(mail);
    ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(record); }, 5000));
    QTest::qWait(100);
    const std::string arguments = vellant::testing::readText(record);
    EXPECT_NE(arguments.find("--subject\nVellant PROBLEM REPORT [CMP: desk]\n"), std::string::npos);
    EXPECT_NE(arguments.find("--body\nline one\nline two\n"), std::string::npos);
    EXPECT_NE(arguments.find("support@vellant.example"), std::string::npos);
}

TEST_F(QtToolkitTest, AModalShowRunsItsOwnLoopAndLeavesOtherWindowsUsable) {
    QWidget other;
    other.show();
    platform::Form form("Probe", toolkit);
    form.Move(1500, 1500, 3000, 2000);
    bool otherUsable = false;
    QTimer::singleShot(0, [&] {
        otherUsable = other.isEnabled() && !QApplication::activeModalWidget();
        form.Hide();
    });
    form.Show(platform::vbModal);
    EXPECT_TRUE(otherUsable);
    ASSERT_NE(toolkit.viewOf(form), nullptr);
    // Its outer edge is the form's place and size.
    EXPECT_EQ(toolkit.viewOf(form)->frameGeometry(), QRect(100, 100, 200, 133));
    form.Unload();
    EXPECT_EQ(toolkit.viewOf(form), nullptr);
}

} // namespace
} // namespace vellant::qtui
