// What belongs to one window: its widget, its place in the tree of windows, its timers. The
// wrapper (CWnd) may change under it when the program binds a control to an object of its own.
#pragma once

#include "CWnd.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <map>
#include <vector>

enum class AfxKind { None, Dialog, Static, Push, Check, Radio, Group, Edit, MultiEdit, Combo, ListBox, List, Tree, Tab, Progress, Custom };

// An event that a handler of the program is looking at; Default() lets the widget have it.
struct AfxEventInHand {
    QObject* watched = nullptr;
    QEvent* event = nullptr;
    bool delivered = false;
};

struct AfxWindow {
    CWnd* owner = nullptr;
    QPointer<QWidget> widget;
    AfxKind kind = AfxKind::None;
    int id = 0;
    DWORD style = 0;
    std::wstring text; // of a static control, with its marks
    CWnd* parent = nullptr;
    std::vector<CWnd*> children;             // in the order made
    std::vector<std::unique_ptr<CWnd>> made; // wrappers of template controls that the program has not bound
    std::vector<QObject*> watched;           // the widget and its parts whose events count as its own
    std::map<UINT_PTR, std::unique_ptr<QTimer>> timers;
    AfxEventInHand* inHand = nullptr;
    bool isTopLevel = false;
    bool isDestroying = false;
};

// ---- the tree of windows -------------------------------------------------------------
// Binds the widget to the wrapper, under the parent; parts are widgets whose events are its own.
void afxAttach(CWnd& owner, QWidget* widget, AfxKind kind, int id, DWORD style, CWnd* parent);
void afxWatch(AfxWindow& window, QObject* part);
// Unbinds; the widget stays and no event reaches the wrapper any more.
void afxDetach(AfxWindow& window);
// Moves the window from a wrapper made by the template to one of the program's.
void afxRebind(CWnd& from, CWnd& to);
// The window that an object's events belong to; null for others.
AfxWindow* afxFind(const QObject* object);
template <class Widget> Widget* afxWidget(const CWnd& wnd) {
    return wnd.window()->widget == nullptr ? nullptr : static_cast<Widget*>(wnd.window()->widget.data());
}
// The widget behind a window as a class that it may or may not be.
template <class Widget> Widget* afxWidgetAs(const CWnd& wnd) {
    return dynamic_cast<Widget*>(wnd.window()->widget.data());
}
// Tears a window down: tells it and its children, unbinds them, removes the widget.
void afxDestroy(CWnd& wnd, bool atOnce);
