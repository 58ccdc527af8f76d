#include "core/AfxDispatch.h"

#include "core/AfxEventFilter.h"
#include "core/AfxFault.h"
#include "core/AfxWindow.h"

#include <QCoreApplication>

namespace {
const AFX_MSGMAP_ENTRY* find(const AFX_MSGMAP* map, const AfxMessage& m) {
    for (; map != nullptr; map = map->base == nullptr ? nullptr : map->base())
        for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->message != 0; ++entry)
            if (entry->message == m.message && entry->code == m.code && m.id >= entry->id && m.id <= entry->lastId)
                return entry;
    return nullptr;
}
} // namespace

bool AfxDispatch::handle(CWnd& wnd, AfxMessage& message) {
    const AFX_MSGMAP_ENTRY* entry = find(wnd.GetMessageMap(), message);
    if (entry == nullptr)
        return false;
    afxGuarded([&] { entry->handler(&wnd, message); });
    return true;
}

bool AfxDispatch::handles(const CWnd& wnd, UINT message) {
    AfxMessage wanted;
    wanted.message = message;
    return find(wnd.GetMessageMap(), wanted) != nullptr;
}

BOOL AfxDispatch::onCommand(CWnd& wnd, WPARAM wParam, LPARAM lParam) {
    BOOL taken = TRUE; // by a handler that threw
    afxGuarded([&] { taken = wnd.OnCommand(wParam, lParam); });
    return taken;
}

BOOL AfxDispatch::onNotify(CWnd& wnd, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    BOOL taken = TRUE;
    afxGuarded([&] { taken = wnd.OnNotify(wParam, lParam, result); });
    return taken;
}

BOOL AfxDispatch::translate(CWnd& wnd, MSG* message) {
    BOOL taken = TRUE;
    afxGuarded([&] { taken = wnd.PreTranslateMessage(message); });
    return taken;
}

void AfxDispatch::command(CWnd& control, UINT code) {
    AfxMessage reflected;
    reflected.message = AFX_WM_REFLECT + WM_COMMAND;
    reflected.code = code;
    CWnd* parent = control.GetParent();
    const UINT id = static_cast<UINT>(control.GetDlgCtrlID());
    const LPARAM window = reinterpret_cast<LPARAM>(control.GetSafeHwnd());
    if (!handle(control, reflected) && parent != nullptr)
        onCommand(*parent, MAKEWPARAM(id, code), window);
}

LRESULT AfxDispatch::notify(CWnd& control, NMHDR& header, UINT code) {
    header.hwndFrom = control.GetSafeHwnd();
    header.idFrom = static_cast<UINT_PTR>(control.GetDlgCtrlID());
    header.code = code;
    AfxMessage reflected;
    reflected.message = AFX_WM_REFLECT + WM_NOTIFY;
    reflected.code = code;
    reflected.header = &header;
    CWnd* parent = control.GetParent();
    if (handle(control, reflected))
        return reflected.result;
    LRESULT result = 0;
    if (parent != nullptr)
        onNotify(*parent, header.idFrom, reinterpret_cast<LPARAM>(&header), &result);
    return result;
}

void AfxDispatch::deliver(QObject* watched, QEvent* event) {
    AfxEventFilter::Bypass bypass(event);
    QCoreApplication::sendEvent(watched, event);
}

void AfxDispatch::close(CWnd& wnd) {
    AfxMessage message;
    message.message = WM_CLOSE;
    if (!handle(wnd, message))
        afxGuarded([&] { wnd.OnClose(); });
}
