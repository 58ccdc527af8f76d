// The message pump of a program that works on the main thread while its window stands open.
#include "SampleDialog.h"

#include "core/AfxWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

namespace {
// The sample dialog as a modeless window.
class Window : public SampleDialog {
public:
    Window() { Create(static_cast<UINT>(IDD_SAMPLE)); }
    ~Window() override { DestroyWindow(); }
    // A click of the mouse in the middle of a control, as the system tells the window of it.
    void click(int id) {
        QWidget* const control = GetDlgItem(id)->window()->widget;
        QWidget* const top = window()->widget;
        const QPointF at = control->mapTo(top, control->rect().center());
        const QPointF screen = top->mapToGlobal(at);
        QCoreApplication::postEvent(top->windowHandle(), new QMouseEvent(QEvent::MouseButtonPress, at, screen, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
        QCoreApplication::postEvent(top->windowHandle(), new QMouseEvent(QEvent::MouseButtonRelease, at, screen, Qt::LeftButton, Qt::NoButton, Qt::NoModifier));
    }
    void key(int code) {
        QCoreApplication::postEvent(window()->widget->windowHandle(), new QKeyEvent(QEvent::KeyPress, code, Qt::NoModifier));
        QCoreApplication::postEvent(window()->widget->windowHandle(), new QKeyEvent(QEvent::KeyRelease, code, Qt::NoModifier));
    }
};

struct Pump : testing::Test {
    void SetUp() override {
        useResources(kSampleResources);
        window = std::make_unique<Window>();
        window->ShowWindow(SW_SHOW);
        window->window()->widget->activateWindow();
        AfxPumpMessages();
        window->events.clear();
    }
    // Takes all that waits; the messages as they came.
    std::vector<MSG> take(bool dispatch = true) const {
        std::vector<MSG> taken;
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) {
            taken.push_back(message);
            if (dispatch && !window->IsDialogMessage(&message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
        return taken;
    }
    DialogScript user;
    std::unique_ptr<Window> window;
};
} // namespace

TEST_F(Pump, nothing_waits_when_nothing_has_happened) {
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(Pump, a_click_comes_as_messages_and_presses_the_button_when_they_are_dispatched) {
    window->click(IDC_APPLY);
    const std::vector<MSG> taken = take();
    ASSERT_EQ(taken.size(), 2u);
    EXPECT_EQ(taken[0].message, WM_LBUTTONDOWN);
    EXPECT_EQ(taken[1].message, WM_LBUTTONUP);
    EXPECT_EQ(taken[0].pWnd, window->GetDlgItem(IDC_APPLY));
    EXPECT_EQ(window->count("apply"), 1);
}

TEST_F(Pump, a_message_that_is_not_dispatched_does_nothing) {
    window->click(IDC_APPLY);
    EXPECT_EQ(take(false).size(), 2u);
    EXPECT_EQ(window->count("apply"), 0);
}

TEST_F(Pump, a_message_that_is_only_looked_at_waits_on) {
    window->click(IDC_APPLY);
    MSG looked, taken;
    ASSERT_TRUE(PeekMessageW(&looked, nullptr, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(PeekMessageW(&taken, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(looked.serial, taken.serial);
    take(false);
}

TEST_F(Pump, a_message_belongs_to_the_dialog_of_its_window_alone) {
    Window other;
    window->click(IDC_APPLY);
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_FALSE(other.IsDialogMessage(&message));
    EXPECT_TRUE(window->IsDialogMessage(&message));
    take();
    EXPECT_EQ(window->count("apply"), 1);
}

TEST_F(Pump, escape_cancels_the_dialog_that_has_the_focus) {
    window->GetDlgItem(IDC_NAME)->SetFocus();
    take();
    window->key(Qt::Key_Escape);
    const std::vector<MSG> taken = take();
    ASSERT_FALSE(taken.empty());
    EXPECT_EQ(taken[0].message, WM_KEYDOWN);
    EXPECT_EQ(taken[0].wParam, VK_ESCAPE);
    EXPECT_EQ(window->count("cancel"), 1);
}

TEST_F(Pump, posted_messages_and_timers_come_while_the_program_looks) {
    window->PostMessage(WM_USER + 1, 5, 6);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(window->count("user 5 6"), 1);
}

TEST_F(Pump, a_window_that_goes_takes_its_messages_with_it) {
    window->click(IDC_APPLY);
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    window.reset();
    AfxCancelAllDialogs(); // the widget is gone for good
    EXPECT_EQ(DispatchMessageW(&message), 0);
    AfxPumpMessages();
}
