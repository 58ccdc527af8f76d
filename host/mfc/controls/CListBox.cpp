#include "CListBox.h"

#include "controls/AfxControlFactory.h"
#include "core/QtText.h"

#include <QListWidget>
#include <QSignalBlocker>

namespace {
QListWidget* widgetOf(const CListBox& list) {
    return afxWidgetAs<QListWidget>(list);
}
} // namespace

BEGIN_MESSAGE_MAP(CListBox, CWnd)
END_MESSAGE_MAP()

BOOL CListBox::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"ListBox", nullptr, style | WS_CHILD, rect, parent, id);
}

int CListBox::AddString(LPCTSTR text) {
    QListWidget* list = widgetOf(*this);
    if (list == nullptr)
        return LB_ERR;
    list->addItem(toQt(text));
    return list->count() - 1;
}

int CListBox::DeleteString(UINT index) {
    QListWidget* list = widgetOf(*this);
    if (list == nullptr || static_cast<int>(index) >= list->count())
        return LB_ERR;
    const QSignalBlocker quiet(list);
    delete list->takeItem(static_cast<int>(index));
    return list->count();
}

void CListBox::ResetContent() {
    if (QListWidget* list = widgetOf(*this)) {
        const QSignalBlocker quiet(list);
        list->clear();
    }
}

int CListBox::GetCount() const {
    const QListWidget* list = widgetOf(*this);
    return list == nullptr ? LB_ERR : list->count();
}

int CListBox::GetCurSel() const {
    const QListWidget* list = widgetOf(*this);
    return list == nullptr ? LB_ERR : list->currentRow();
}

int CListBox::SetCurSel(int index) {
    QListWidget* list = widgetOf(*this);
    if (list == nullptr || index >= list->count())
        return LB_ERR;
    const QSignalBlocker quiet(list);
    list->setCurrentRow(std::max(index, -1));
    return list->currentRow();
}

int CListBox::GetText(int index, CString& text) const {
    const QListWidget* list = widgetOf(*this);
    text.Empty();
    if (list == nullptr || index < 0 || index >= list->count())
        return LB_ERR;
    text = toWide(list->item(index)->text());
    return text.GetLength();
}

int CListBox::SetItemData(int index, DWORD_PTR data) {
    QListWidget* list = widgetOf(*this);
    if (list == nullptr || index < 0 || index >= list->count())
        return LB_ERR;
    list->item(index)->setData(Qt::UserRole, static_cast<qulonglong>(data));
    return 0;
}

DWORD_PTR CListBox::GetItemData(int index) const {
    const QListWidget* list = widgetOf(*this);
    const bool isRow = list != nullptr && index >= 0 && index < list->count();
    return isRow ? static_cast<DWORD_PTR>(list->item(index)->data(Qt::UserRole).toULongLong()) : 0;
}
