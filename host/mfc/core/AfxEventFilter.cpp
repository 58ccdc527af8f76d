#include "core/AfxEventFilter.h"

#include "core/AfxDispatch.h"
#include "core/AfxInput.h"
#include "core/AfxNotices.h"
#include "core/QtText.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>

namespace {
bool isMouse(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick ||
           type == QEvent::MouseMove;
}
} // namespace

AfxEventFilter& AfxEventFilter::instance() {
    static AfxEventFilter filter;
    return filter;
}

bool AfxEventFilter::eventFilter(QObject* watched, QEvent* event) {
    AfxWindow* window = event == sPassed ? nullptr : afxFind(watched);
    if (window == nullptr)
        return false;
    const QEvent::Type type = event->type();
    if (isMouse(type))
        return mouse(*window, watched, static_cast<QMouseEvent*>(event));
    if (type == QEvent::KeyPress)
        return key(*window, watched, static_cast<QKeyEvent*>(event));
    if (type == QEvent::FocusIn || type == QEvent::FocusOut)
        return focus(watched, event, type == QEvent::FocusIn);
    if (type == QEvent::Resize && watched == window->widget)
        return resized(watched, event);
    if (type == QEvent::Close && watched == window->widget && window->isTopLevel) {
        event->ignore(); // the window decides itself when it goes
        AfxDispatch::close(*window->owner);
        return true;
    }
    if (type == QEvent::Leave) {
        AfxMessage leave;
        leave.message = WM_MOUSELEAVE;
        return message(*window, watched, event, leave);
    }
    if (type == QEvent::Show && watched == window->widget) {
        AfxMessage shown;
        shown.message = WM_SHOWWINDOW;
        shown.wParam = 1;
        AfxDispatch::handle(*window->owner, shown);
    }
    return false;
}

// True where a handler of the program took it; whether the widget has it too is the handler's choice.
bool AfxEventFilter::message(AfxWindow& window, QObject* watched, QEvent* event, AfxMessage& message) {
    if (!AfxDispatch::handles(*window.owner, message.message))
        return false;
    AfxEventInHand inHand{watched, event};
    AfxEventInHand* const earlier = window.inHand;
    window.inHand = &inHand;
    AfxDispatch::handle(*window.owner, message);
    if (AfxWindow* const present = afxFind(watched)) // the handler may have destroyed it
        present->inHand = earlier;
    return true;
}

bool AfxEventFilter::mouse(AfxWindow& window, QObject* watched, QMouseEvent* event) {
    if (!window.owner->IsWindowEnabled())
        return false;
    AfxMessage m;
    m.message = afxMouseMessage(*event);
    const auto* part = static_cast<QWidget*>(watched);
    m.point = fromQt(part->mapTo(window.widget, event->position().toPoint()));
    if (message(window, watched, event, m))
        return true;
    const bool isClick = event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick;
    if (!isClick || !afxHasClickNotices(window))
        return false;
    AfxDispatch::deliver(watched, event); // the selection changes first
    if (AfxWindow* present = afxFind(watched))
        afxNotifyClick(*present, m.point, event->button() == Qt::RightButton, event->type() == QEvent::MouseButtonDblClick);
    return true;
}

bool AfxEventFilter::key(AfxWindow& window, QObject* watched, QKeyEvent* event) {
    if (QApplication::focusWidget() != watched) // it has been offered to the focused window before
        return false;
    MSG msg{window.owner, WM_KEYDOWN, afxVirtualKey(event->key()), 0};
    for (CWnd* at = window.owner; at != nullptr; at = at->GetParent()) {
        if (AfxDispatch::translate(*at, &msg) || afxFind(watched) == nullptr)
            return true;
    }
    AfxMessage down;
    down.message = WM_KEYDOWN;
    down.wParam = msg.wParam;
    if (message(window, watched, event, down))
        return true;
    const QString text = event->text();
    AfxMessage character;
    character.message = WM_CHAR;
    character.wParam = text.isEmpty() ? 0 : static_cast<WPARAM>(text.at(0).unicode());
    return !text.isEmpty() && message(window, watched, event, character);
}

bool AfxEventFilter::focus(QObject* watched, QEvent* event, bool gained) {
    if (static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason)
        return false; // the drop-down of a combo belongs to it
    AfxDispatch::deliver(watched, event);
    AfxMessage m;
    m.message = gained ? WM_SETFOCUS : WM_KILLFOCUS;
    if (AfxWindow* present = afxFind(watched))
        AfxDispatch::handle(*present->owner, m);
    if (AfxWindow* present = afxFind(watched))
        afxNotifyFocus(*present, gained);
    return true;
}

bool AfxEventFilter::resized(QObject* watched, QEvent* event) {
    AfxDispatch::deliver(watched, event);
    AfxWindow* window = afxFind(watched);
    if (window == nullptr)
        return true;
    AfxMessage m;
    m.message = WM_SIZE;
    m.flags = SIZE_RESTORED;
    m.point = CPoint(window->widget->width(), window->widget->height());
    AfxDispatch::handle(*window->owner, m);
    return true;
}
