#include "CComboBox.h"

#include "controls/AfxComboWidget.h"
#include "controls/AfxControlFactory.h"
#include "core/QtText.h"

#include <QAbstractItemView>
#include <QPixmap>
#include <QSignalBlocker>

namespace {
AfxComboWidget* widgetOf(const CComboBox& combo) {
    return afxWidgetAs<AfxComboWidget>(combo);
}

int find(const CComboBox& combo, int after, LPCTSTR text, bool isWhole) {
    const AfxComboWidget* widget = widgetOf(combo);
    const int count = widget == nullptr ? 0 : widget->count();
    const QString wanted = toQt(text);
    for (int step = 1; step <= count; ++step) { // round to the beginning, as far as the start itself
        const int index = (std::max(after, -1) + step) % count;
        const QString entry = widget->itemText(index);
        if (isWhole ? entry.compare(wanted, Qt::CaseInsensitive) == 0 : entry.startsWith(wanted, Qt::CaseInsensitive))
            return index;
    }
    return CB_ERR;
}
} // namespace

BEGIN_MESSAGE_MAP(CComboBox, CWnd)
END_MESSAGE_MAP()

BOOL CComboBox::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"ComboBox", nullptr, style | WS_CHILD, rect, parent, id);
}

int CComboBox::AddString(LPCTSTR text) {
    AfxComboWidget* combo = widgetOf(*this);
    if (combo == nullptr)
        return CB_ERR;
    int index = combo->count();
    if ((GetStyle() & CBS_SORT) != 0)
        for (index = 0; index < combo->count() && combo->itemText(index).compare(toQt(text), Qt::CaseInsensitive) <= 0;)
            ++index;
    return InsertString(index, text);
}

int CComboBox::InsertString(int index, LPCTSTR text) {
    AfxComboWidget* combo = widgetOf(*this);
    if (combo == nullptr)
        return CB_ERR;
    const int at = index < 0 ? combo->count() : std::min(index, combo->count());
    const QSignalBlocker quiet(combo);
    const int selected = combo->currentIndex();
    const QString edited = combo->currentText();
    combo->insertItem(at, toQt(text));
    combo->setCurrentIndex(selected >= at ? selected + 1 : selected); // adding selects nothing
    if (combo->isEditable())
        combo->setEditText(edited);
    return at;
}

int CComboBox::DeleteString(UINT index) {
    AfxComboWidget* combo = widgetOf(*this);
    if (combo == nullptr || static_cast<int>(index) >= combo->count())
        return CB_ERR;
    const QSignalBlocker quiet(combo);
    const int selected = combo->currentIndex();
    combo->removeItem(static_cast<int>(index));
    const int gone = static_cast<int>(index);
    combo->setCurrentIndex(selected == gone ? -1 : selected > gone ? selected - 1 : selected);
    return combo->count();
}

void CComboBox::ResetContent() {
    AfxComboWidget* combo = widgetOf(*this);
    if (combo == nullptr)
        return;
    const QSignalBlocker quiet(combo);
    combo->clear();
    if (combo->isEditable())
        combo->clearEditText();
}

int CComboBox::GetCount() const {
    const AfxComboWidget* combo = widgetOf(*this);
    return combo == nullptr ? CB_ERR : combo->count();
}

int CComboBox::GetCurSel() const {
    const AfxComboWidget* combo = widgetOf(*this);
    return combo == nullptr ? CB_ERR : combo->currentIndex();
}

int CComboBox::SetCurSel(int index) {
    AfxComboWidget* combo = widgetOf(*this);
    if (combo == nullptr)
        return CB_ERR;
    const QSignalBlocker quiet(combo);
    const int wanted = index < combo->count() ? std::max(index, -1) : -1;
    combo->setCurrentIndex(wanted);
    if (wanted < 0 && combo->isEditable())
        combo->clearEditText();
    return wanted;
}

int CComboBox::GetLBText(int index, CString& text) const {
    const AfxComboWidget* combo = widgetOf(*this);
    text.Empty();
    if (combo == nullptr || index < 0 || index >= combo->count())
        return CB_ERR;
    text = toWide(combo->itemText(index));
    return text.GetLength();
}

int CComboBox::GetLBTextLen(int index) const {
    CString text;
    return GetLBText(index, text);
}

int CComboBox::FindString(int after, LPCTSTR prefix) const {
    return find(*this, after, prefix, false);
}

int CComboBox::FindStringExact(int after, LPCTSTR text) const {
    return find(*this, after, text, true);
}

int CComboBox::SelectString(int after, LPCTSTR prefix) {
    const int index = FindString(after, prefix);
    return index == CB_ERR ? CB_ERR : SetCurSel(index);
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
    AfxComboWidget* combo = widgetOf(*this);
    if (combo == nullptr || index < 0 || index >= combo->count())
        return CB_ERR;
    combo->setItemData(index, static_cast<qulonglong>(data));
    return 0;
}

DWORD_PTR CComboBox::GetItemData(int index) const {
    const AfxComboWidget* combo = widgetOf(*this);
    return combo == nullptr ? 0 : static_cast<DWORD_PTR>(combo->itemData(index).toULongLong());
}

void CComboBox::setItemSwatch(int index, COLORREF color) {
    AfxComboWidget* combo = widgetOf(*this);
    if (combo == nullptr)
        return;
    QPixmap square(14, 14);
    square.fill(Qt::darkGray); // a frame, so that white shows on white
    QImage inside = square.toImage();
    for (int y = 1; y < 13; ++y)
        for (int x = 1; x < 13; ++x)
            inside.setPixelColor(x, y, toQt(color));
    combo->setItemIcon(index, QIcon(QPixmap::fromImage(inside)));
}

void CComboBox::ShowDropDown(BOOL show) {
    if (AfxComboWidget* combo = widgetOf(*this))
        show ? combo->showPopup() : combo->hidePopup();
}

BOOL CComboBox::GetDroppedState() const {
    const AfxComboWidget* combo = widgetOf(*this);
    return combo != nullptr && combo->view()->isVisible() ? TRUE : FALSE;
}
