#include "InPlaceNotify.h"

void notifyCellEdited(CWnd& editor, int row, int column, const CString* text) {
    CWnd* const list = editor.GetParent();
    if (list == nullptr)
        return;
    std::wstring copy = text != nullptr ? text->text() : std::wstring();
    NMLVDISPINFO info;
    info.hdr.hwndFrom = editor.GetSafeHwnd();
    info.hdr.idFrom = static_cast<UINT_PTR>(editor.GetDlgCtrlID());
    info.hdr.code = LVN_ENDLABELEDIT;
    info.item.iItem = row;
    info.item.iSubItem = column;
    info.item.pszText = text != nullptr ? copy.data() : nullptr;
    info.item.cchTextMax = static_cast<int>(copy.size());
    list->SendMessage(WM_NOTIFY, info.hdr.idFrom, reinterpret_cast<LPARAM>(&info));
}
