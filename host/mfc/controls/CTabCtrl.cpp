#include "CTabCtrl.h"

#include "controls/AfxControlFactory.h"
#include "controls/AfxTabWidget.h"
#include "core/QtText.h"

namespace {
AfxTabWidget* widgetOf(const CTabCtrl& tabs) {
    return afxWidgetAs<AfxTabWidget>(tabs);
}
} // namespace

BEGIN_MESSAGE_MAP(CTabCtrl, CWnd)
END_MESSAGE_MAP()

BOOL CTabCtrl::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"SysTabControl32", nullptr, style | WS_CHILD, rect, parent, id);
}

int CTabCtrl::InsertItem(int index, LPCTSTR text) {
    AfxTabWidget* tabs = widgetOf(*this);
    return tabs == nullptr ? -1 : tabs->insertTab(index, new QWidget, toQt(text));
}

BOOL CTabCtrl::DeleteItem(int index) {
    AfxTabWidget* tabs = widgetOf(*this);
    if (tabs == nullptr || index < 0 || index >= tabs->count())
        return FALSE;
    const QWidget* page = tabs->widget(index);
    tabs->removeTab(index);
    delete page;
    return TRUE;
}

BOOL CTabCtrl::DeleteAllItems() {
    while (GetItemCount() > 0)
        DeleteItem(GetItemCount() - 1);
    return TRUE;
}

int CTabCtrl::GetItemCount() const {
    const AfxTabWidget* tabs = widgetOf(*this);
    return tabs == nullptr ? 0 : tabs->count();
}

CString CTabCtrl::itemText(int index) const {
    const AfxTabWidget* tabs = widgetOf(*this);
    return tabs == nullptr ? CString() : CString(toWide(tabs->tabText(index)));
}

int CTabCtrl::GetCurSel() const {
    const AfxTabWidget* tabs = widgetOf(*this);
    return tabs == nullptr ? -1 : tabs->currentIndex();
}

int CTabCtrl::SetCurSel(int index) {
    AfxTabWidget* tabs = widgetOf(*this);
    if (tabs == nullptr)
        return -1;
    const int earlier = tabs->currentIndex();
    tabs->setCurrentIndex(index);
    return earlier;
}

void CTabCtrl::AdjustRect(BOOL larger, CRect* rect) const {
    const AfxTabWidget* tabs = widgetOf(*this);
    if (tabs == nullptr)
        return;
    const CRect whole = fromQt(tabs->rect()), page = fromQt(tabs->pageRect());
    const int sign = larger ? -1 : 1;
    rect->left += sign * (page.left - whole.left);
    rect->top += sign * (page.top - whole.top);
    rect->right -= sign * (whole.right - page.right);
    rect->bottom -= sign * (whole.bottom - page.bottom);
}
