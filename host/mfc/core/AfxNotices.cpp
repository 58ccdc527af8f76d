#include "core/AfxNotices.h"

#include "CListCtrl.h"
#include "core/AfxDispatch.h"

namespace {
UINT clickCode(bool right, bool isDouble) {
    return right ? NM_RCLICK : isDouble ? NM_DBLCLK : NM_CLICK;
}
} // namespace

void afxNotifyFocus(AfxWindow& window, bool gained) {
    CWnd& control = *window.owner;
    NMHDR header;
    switch (window.kind) {
    case AfxKind::Edit:
    case AfxKind::MultiEdit: AfxDispatch::command(control, gained ? EN_SETFOCUS : EN_KILLFOCUS); return;
    case AfxKind::Combo: AfxDispatch::command(control, gained ? CBN_SETFOCUS : CBN_KILLFOCUS); return;
    case AfxKind::List:
    case AfxKind::Tree: AfxDispatch::notify(control, header, gained ? NM_SETFOCUS : NM_KILLFOCUS); return;
    case AfxKind::None:
    case AfxKind::Dialog:
    case AfxKind::Static:
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio:
    case AfxKind::Group:
    case AfxKind::ListBox:
    case AfxKind::Tab:
    case AfxKind::Progress:
    case AfxKind::Custom: return;
    }
}

bool afxHasClickNotices(const AfxWindow& window) {
    return window.kind == AfxKind::List || window.kind == AfxKind::Tree;
}

void afxNotifyClick(AfxWindow& window, CPoint point, bool right, bool isDouble) {
    if (window.kind == AfxKind::Tree) {
        NMHDR header;
        AfxDispatch::notify(*window.owner, header, clickCode(right, isDouble));
        return;
    }
    LVHITTESTINFO hit;
    hit.pt = point;
    static_cast<CListCtrl*>(window.owner)->SubItemHitTest(&hit);
    NMITEMACTIVATE click;
    click.iItem = hit.iItem;
    click.iSubItem = hit.iSubItem;
    click.x = point.x;
    click.y = point.y;
    AfxDispatch::notify(*window.owner, click.hdr, clickCode(right, isDouble));
}
