#include "CResizer.h"

void CResizer::Attach(CWnd* dialog) {
    mDialog = dialog;
    mItems.clear();
    CRect client;
    dialog->GetClientRect(&client);
    mSize = client.Size();
}

void CResizer::Add(int id, UINT anchors) {
    CWnd* control = mDialog == nullptr ? nullptr : mDialog->GetDlgItem(id);
    if (control == nullptr)
        return;
    CRect rect;
    control->GetWindowRect(&rect);
    mDialog->ScreenToClient(&rect);
    mItems.push_back({id, anchors, rect});
}

void CResizer::Resize() {
    if (mDialog == nullptr || !mDialog->IsWindow())
        return;
    CRect client;
    mDialog->GetClientRect(&client);
    const int dx = client.Width() - mSize.cx, dy = client.Height() - mSize.cy;
    for (const Item& item : mItems) {
        CRect rect = item.rect;
        const bool right = (item.anchors & kRight) != 0, bottom = (item.anchors & kBottom) != 0;
        rect.left += right && (item.anchors & kLeft) == 0 ? dx : 0;
        rect.right += right ? dx : 0;
        rect.top += bottom && (item.anchors & kTop) == 0 ? dy : 0;
        rect.bottom += bottom ? dy : 0;
        if (CWnd* control = mDialog->GetDlgItem(item.id))
            control->MoveWindow(rect);
    }
}
