// The message pump: keys and mouse events on their way to a window are held back as messages, and
// given to it when they are dispatched.
#include "AfxApp.h"
#include "CWnd.h"
#include "core/AfxInput.h"
#include "core/AfxWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <deque>

namespace {
struct Waiting {
    MSG message;
    QPointer<QObject> receiver;
    std::unique_ptr<QEvent> event;
};

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel: return true;
    default: return false;
    }
}

CWnd* ownerOf(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget())
        if (const AfxWindow* window = afxFind(widget))
            return window->owner;
    return nullptr;
}

CWnd* ownerUnder(const QWindow& place, const QMouseEvent& event) {
    QWidget* const top = QWidget::find(place.winId());
    QWidget* const part = top == nullptr ? nullptr : top->childAt(event.position().toPoint());
    return ownerOf(part == nullptr ? top : part);
}

MSG messageOf(const QWindow& place, const QEvent& event) {
    MSG message;
    if (event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease) {
        message.pWnd = ownerOf(QApplication::focusWidget());
        message.message = event.type() == QEvent::KeyPress ? WM_KEYDOWN : WM_KEYUP;
        message.wParam = afxVirtualKey(static_cast<const QKeyEvent&>(event).key());
    } else if (event.type() != QEvent::Wheel) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        message.pWnd = ownerUnder(place, mouse);
        message.message = afxMouseMessage(mouse);
    }
    return message;
}

// Holds input back that is on its way to a window of the screen, while it is in force.
class Catcher : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWindowType() || !isInput(event->type()))
            return false;
        MSG message = messageOf(*static_cast<QWindow*>(watched), *event);
        message.serial = ++mSerial;
        waiting.push_back({message, watched, std::unique_ptr<QEvent>(event->clone())});
        event->accept();
        return true;
    }
    std::deque<Waiting> waiting;

private:
    std::uint64_t mSerial = 0;
};

Catcher& catcher() {
    static Catcher* const theCatcher = new Catcher; // the application may outlive the statics of this layer
    return *theCatcher;
}
Waiting& removed() {
    static Waiting message; // taken, and not yet dispatched
    return message;
}

void fetch() {
    QCoreApplication& application = *QCoreApplication::instance();
    application.installEventFilter(&catcher());
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    application.removeEventFilter(&catcher());
}
} // namespace

BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    std::deque<Waiting>& waiting = catcher().waiting;
    if (QCoreApplication::instance() == nullptr || window != nullptr || first != 0 || last != 0)
        return FALSE;
    if (waiting.empty())
        fetch();
    if (waiting.empty())
        return FALSE;
    *message = waiting.front().message;
    if ((remove & PM_REMOVE) != 0) {
        removed() = std::move(waiting.front());
        waiting.pop_front();
    }
    return TRUE;
}

BOOL TranslateMessage(const MSG*) {
    return FALSE;
}

LRESULT DispatchMessageW(const MSG* message) {
    const Waiting taken = std::move(removed());
    removed() = Waiting();
    if (taken.event != nullptr && taken.message.serial == message->serial && taken.receiver != nullptr)
        QCoreApplication::sendEvent(taken.receiver, taken.event.get());
    return 0;
}

BOOL CWnd::IsDialogMessage(MSG* message) {
    for (const CWnd* at = message->pWnd; at != nullptr; at = at->GetParent())
        if (at == this) {
            DispatchMessageW(message);
            return TRUE;
        }
    return FALSE;
}

void AfxPumpMessages() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageW(&message);
}
