// Carries messages to handlers: a window's own map, and a control's notifications to its parent.
#pragma once

#include "CWnd.h"

class QEvent;
class QObject;

struct AfxDispatch {
    // Looks the message up in the window's map and its bases'; true where a handler ran. The window may
    // be gone afterwards.
    static bool handle(CWnd& wnd, AfxMessage& message);
    static bool handles(const CWnd& wnd, UINT message);
    // A control's WM_COMMAND: the control's own (reflected) handler, else its parent.
    static void command(CWnd& control, UINT code);
    // A control's WM_NOTIFY, likewise; fills in the header's window and id.
    static LRESULT notify(CWnd& control, NMHDR& header, UINT code);
    static BOOL onCommand(CWnd& wnd, WPARAM wParam, LPARAM lParam);
    static BOOL onNotify(CWnd& wnd, WPARAM wParam, LPARAM lParam, LRESULT* result);
    static BOOL translate(CWnd& wnd, MSG* message); // PreTranslateMessage
    static void exchange(CWnd& wnd, CDataExchange& data) { wnd.DoDataExchange(&data); }
    static void postNcDestroy(CWnd& wnd) { wnd.PostNcDestroy(); }
    static std::unique_ptr<AfxWindow>& slot(CWnd& wnd) { return wnd.mWindow; }
    // Gives the widget an event without asking the program again.
    static void deliver(QObject* watched, QEvent* event);
    // WM_CLOSE: the map's handler, else cancel for a dialog.
    static void close(CWnd& wnd);
};
