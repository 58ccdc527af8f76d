#include "CDataExchange.h"

#include "AcUtText.h"
#include "CButton.h"
#include "CComboBox.h"
#include "CListBox.h"

#include <vector>

namespace {
CString textOf(const CDataExchange& exchange, int id) {
    CString text;
    exchange.m_pDlgWnd->GetDlgItemText(id, text);
    return text;
}

template <class Control> Control* controlOf(const CDataExchange& exchange, int id) {
    return dynamic_cast<Control*>(exchange.m_pDlgWnd->GetDlgItem(id));
}

// The option buttons from the first one up to the next group, by their place in the template.
std::vector<CButton*> radioGroup(const CDataExchange& exchange, int firstId) {
    std::vector<CButton*> group;
    for (int id = firstId;; ++id) {
        auto* button = controlOf<CButton>(exchange, id);
        const DWORD kind = button == nullptr ? 0 : button->GetStyle() & 0xF;
        const bool isRadio = kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
        if (!isRadio || (id != firstId && (button->GetStyle() & WS_GROUP) != 0))
            return group;
        group.push_back(button);
    }
}
} // namespace

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (!control.IsWindow() && !control.SubclassDlgItem(static_cast<UINT>(id), exchange->m_pDlgWnd))
        exchange->Fail();
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    if (exchange->m_bSaveAndValidate)
        value = textOf(*exchange, id);
    else
        exchange->m_pDlgWnd->SetDlgItemText(id, value);
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
    if (exchange->m_bSaveAndValidate)
        value = acWtoi(textOf(*exchange, id));
    else
        exchange->m_pDlgWnd->SetDlgItemInt(id, value);
}

void DDX_Text(CDataExchange* exchange, int id, double& value) {
    if (exchange->m_bSaveAndValidate)
        value = acWtof(textOf(*exchange, id));
    else
        exchange->m_pDlgWnd->SetDlgItemText(id, acFormat(L"%g", value).c_str());
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(exchange->m_pDlgWnd->IsDlgButtonChecked(id));
    else
        exchange->m_pDlgWnd->CheckDlgButton(id, static_cast<UINT>(value));
}

void DDX_Radio(CDataExchange* exchange, int firstId, int& value) {
    const std::vector<CButton*> group = radioGroup(*exchange, firstId);
    if (exchange->m_bSaveAndValidate)
        value = -1;
    for (std::size_t i = 0; i < group.size(); ++i) {
        if (!exchange->m_bSaveAndValidate)
            group[i]->SetCheck(static_cast<int>(i) == value ? BST_CHECKED : BST_UNCHECKED);
        else if (group[i]->GetCheck() == BST_CHECKED)
            value = static_cast<int>(i);
    }
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& value) {
    auto* combo = controlOf<CComboBox>(*exchange, id);
    if (combo == nullptr)
        exchange->Fail();
    else if (exchange->m_bSaveAndValidate)
        value = combo->GetCurSel();
    else
        combo->SetCurSel(value);
}

void DDX_CBString(CDataExchange* exchange, int id, CString& value) {
    auto* combo = controlOf<CComboBox>(*exchange, id);
    if (combo == nullptr)
        exchange->Fail();
    else if (exchange->m_bSaveAndValidate)
        combo->GetWindowText(value);
    else if (combo->SetCurSel(combo->FindStringExact(-1, value)) == CB_ERR)
        combo->SetWindowText(value);
}

void DDX_LBIndex(CDataExchange* exchange, int id, int& value) {
    auto* list = controlOf<CListBox>(*exchange, id);
    if (list == nullptr)
        exchange->Fail();
    else if (exchange->m_bSaveAndValidate)
        value = list->GetCurSel();
    else
        list->SetCurSel(value);
}
