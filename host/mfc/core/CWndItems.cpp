// A window's controls by id.
#include "AcUtText.h"
#include "CButton.h"
#include "core/AfxWindow.h"

namespace {
std::vector<CWnd*>::const_iterator itemOf(const AfxWindow& window, int id) {
    auto at = window.children.begin();
    while (at != window.children.end() && ((*at)->window()->id != id || (*at)->window()->isTopLevel))
        ++at;
    return at;
}

CButton* buttonOf(const CWnd& wnd, int id) {
    return dynamic_cast<CButton*>(wnd.GetDlgItem(id));
}
} // namespace

CWnd* CWnd::GetDlgItem(int id) const {
    const auto found = itemOf(*mWindow, id);
    return found == mWindow->children.end() ? nullptr : *found;
}

void CWnd::SetDlgItemText(int id, LPCTSTR text) {
    if (CWnd* item = GetDlgItem(id))
        item->SetWindowText(text);
}

int CWnd::GetDlgItemText(int id, CString& text) const {
    text.Empty();
    if (const CWnd* item = GetDlgItem(id))
        item->GetWindowText(text);
    return text.GetLength();
}

void CWnd::SetDlgItemInt(int id, int value) {
    SetDlgItemText(id, std::to_wstring(value).c_str());
}

int CWnd::GetDlgItemInt(int id) const {
    CString text;
    GetDlgItemText(id, text);
    return acWtoi(text);
}

void CWnd::CheckDlgButton(int id, UINT check) {
    if (CButton* button = buttonOf(*this, id))
        button->SetCheck(static_cast<int>(check));
}

UINT CWnd::IsDlgButtonChecked(int id) const {
    const CButton* button = buttonOf(*this, id);
    return button == nullptr ? 0u : static_cast<UINT>(button->GetCheck());
}

void CWnd::CheckRadioButton(int first, int last, int check) {
    for (int id = first; id <= last; ++id)
        if (id != check)
            CheckDlgButton(id, BST_UNCHECKED);
    CheckDlgButton(check, BST_CHECKED);
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    CWnd* present = parent == nullptr ? nullptr : parent->GetDlgItem(static_cast<int>(id));
    if (present == nullptr || present == this || IsWindow())
        return FALSE;
    afxRebind(*present, *this);
    PreSubclassWindow();
    return TRUE;
}
