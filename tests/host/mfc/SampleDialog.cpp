#include "SampleDialog.h"

const char* const kSampleResources = R"rc(
#define IDD_SAMPLE 500
#define IDD_PAGE 501
#define IDC_NAME 1001
#define IDC_MULTI 1002
#define IDC_READONLY 1003
#define IDC_TYPE 1004
#define IDC_FREE 1005
#define IDC_CHECK 1006
#define IDC_FIRST 1007
#define IDC_SECOND 1008
#define IDC_THIRD 1009
#define IDC_APPLY 1010
#define IDC_OFF 1011
#define IDC_HIDDEN 1012
#define IDC_LIST 1013
#define IDC_TREE 1014
#define IDC_TABS 1015
#define IDC_BAR 1016
#define IDC_BOX 1017
#define IDC_LABEL 1018
#define IDC_PICTURE 1019
#define IDC_INNER 1101
IDD_SAMPLE DIALOGEX 0, 0, 380, 270
STYLE DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU
CAPTION "Minta ablak"
FONT 8, "MS Shell Dlg", 400, 0, 0x1
BEGIN
    LTEXT           "&Név:", IDC_STATIC, 7, 9, 40, 9
    EDITTEXT        IDC_NAME, 60, 7, 110, 14, ES_AUTOHSCROLL
    LTEXT           "Leírás:", IDC_STATIC, 7, 27, 40, 9
    EDITTEXT        IDC_MULTI, 60, 25, 110, 34, ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN
    EDITTEXT        IDC_READONLY, 60, 63, 110, 14, ES_READONLY
    LTEXT           "&Típus:", IDC_STATIC, 7, 83, 40, 9
    COMBOBOX        IDC_TYPE, 60, 81, 110, 80, CBS_DROPDOWNLIST | WS_TABSTOP
    COMBOBOX        IDC_FREE, 60, 99, 110, 80, CBS_DROPDOWN | WS_TABSTOP
    AUTOCHECKBOX    "Oszlop elforgatás &követése", IDC_CHECK, 7, 117, 60, 11
    GROUPBOX        "Választás", IDC_STATIC, 7, 131, 163, 50
    AUTORADIOBUTTON "szürkítés", IDC_FIRST, 14, 142, 80, 11, WS_GROUP
    AUTORADIOBUTTON "fehérítés", IDC_SECOND, 14, 154, 80, 11
    AUTORADIOBUTTON "egyik sem", IDC_THIRD, 14, 166, 80, 11
    PUSHBUTTON      "&Alkalmaz", IDC_APPLY, 7, 186, 60, 14, WS_GROUP
    PUSHBUTTON      "Tiltott", IDC_OFF, 70, 186, 50, 14, WS_DISABLED
    PUSHBUTTON      "Rejtett", IDC_HIDDEN, 122, 186, 50, 14, NOT WS_VISIBLE
    CONTROL         "", IDC_LIST, "SysListView32", LVS_REPORT | LVS_SINGLESEL | WS_BORDER | WS_TABSTOP, 180, 7, 190, 70
    CONTROL         "", IDC_TREE, "SysTreeView32", TVS_HASBUTTONS | TVS_LINESATROOT | WS_BORDER | WS_TABSTOP, 180, 81, 90, 70
    CONTROL         "", IDC_TABS, "SysTabControl32", WS_TABSTOP, 275, 81, 97, 70
    CONTROL         "", IDC_BAR, "msctls_progress32", WS_BORDER, 180, 157, 190, 10
    LISTBOX         IDC_BOX, 180, 171, 90, 40, WS_TABSTOP
    LTEXT           "Egy hosszabb felirat, amely több sorban fér el", IDC_LABEL, 275, 171, 60, 30
    CONTROL         "", IDC_PICTURE, "Static", SS_BITMAP, 340, 171, 30, 30
    DEFPUSHBUTTON   "OK", IDOK, 266, 249, 50, 14
    PUSHBUTTON      "Mégse", IDCANCEL, 320, 249, 50, 14
END
IDD_PAGE DIALOGEX 0, 0, 80, 40
STYLE DS_SETFONT | DS_CONTROL | WS_CHILD | WS_VISIBLE
FONT 8, "MS Shell Dlg"
BEGIN
    LTEXT           "Belső:", IDC_STATIC, 4, 6, 30, 9
    EDITTEXT        IDC_INNER, 36, 4, 36, 14
END
STRINGTABLE
BEGIN
    103 "Az alapértelmezett beállítások mentése sikeres!"
    119 "(A '%s' fájl)\n%d"
END
900 BITMAP
BEGIN
    "4 2 2 1"
    ". c #FFFFFF"
    "# c #FF0000"
    "#..#"
    ".##."
END
)rc";

BEGIN_MESSAGE_MAP(SampleDialog, CDialog)
    ON_BN_CLICKED(IDC_APPLY, &SampleDialog::OnApply)
    ON_EN_CHANGE(IDC_NAME, &SampleDialog::OnNameChange)
    ON_EN_KILLFOCUS(IDC_NAME, &SampleDialog::OnNameKillFocus)
    ON_BN_CLICKED(IDC_CHECK, &SampleDialog::OnCheck)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_FIRST, IDC_THIRD, &SampleDialog::OnOption)
    ON_CBN_SELCHANGE(IDC_TYPE, &SampleDialog::OnType)
    ON_NOTIFY(TVN_SELCHANGED, IDC_TREE, &SampleDialog::OnTree)
    ON_NOTIFY(LVN_ITEMCHANGED, IDC_LIST, &SampleDialog::OnListChanged)
    ON_NOTIFY(NM_CLICK, IDC_LIST, &SampleDialog::OnListClick)
    ON_NOTIFY(TCN_SELCHANGE, IDC_TABS, &SampleDialog::OnTab)
    ON_NOTIFY(TCN_SELCHANGING, IDC_TABS, &SampleDialog::OnTabLeaving)
    ON_MESSAGE(WM_USER + 1, &SampleDialog::OnUser)
    ON_WM_SIZE()
    ON_WM_DESTROY()
    ON_WM_TIMER()
END_MESSAGE_MAP()

void SampleDialog::DoDataExchange(CDataExchange* dx) {
    CDialog::DoDataExchange(dx);
    DDX_Control(dx, IDC_LIST, list);
    DDX_Control(dx, IDC_TREE, tree);
    DDX_Control(dx, IDC_TABS, tabs);
    DDX_Control(dx, IDC_BAR, bar);
    DDX_Control(dx, IDC_NAME, nameEdit);
    DDX_Text(dx, IDC_NAME, name);
    DDX_Check(dx, IDC_CHECK, check);
    DDX_Radio(dx, IDC_FIRST, option);
}

BOOL SampleDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    auto* combo = static_cast<CComboBox*>(GetDlgItem(IDC_TYPE));
    for (const wchar_t* text : {L"Meglévő", L"Tervezett", L"Megszüntetendő"})
        combo->AddString(text);
    combo->SetCurSel(type);
    auto* box = static_cast<CListBox*>(GetDlgItem(IDC_BOX));
    box->AddString(L"alma");
    box->AddString(L"körte");
    list.InsertColumn(0, L"Paraméter Neve", LVCFMT_LEFT, 120);
    list.InsertColumn(1, L"Paraméter Értéke", LVCFMT_CENTER, 100);
    for (int row = 0; row < 3; ++row) {
        list.InsertItem(row, acFormat(L"név %d", row).c_str());
        list.SetItemText(row, 1, acFormat(L"érték %d", row).c_str());
        list.SetItemData(row, static_cast<DWORD_PTR>(100 + row));
    }
    HTREEITEM top = tree.InsertItem(L"Rajz");
    tree.InsertItem(L"Oszlop", top);
    tree.InsertItem(L"Tábla", top);
    tree.InsertItem(L"Alkalmazás");
    tabs.InsertItem(0, L"Általános");
    tabs.InsertItem(1, L"Táblák");
    bar.SetRange32(0, 200);
    events.clear();
    if (atStart)
        atStart(*this);
    return TRUE;
}

void SampleDialog::OnOK() {
    note("ok");
    CDialog::OnOK();
}
void SampleDialog::OnCancel() {
    note("cancel");
    CDialog::OnCancel();
}
void SampleDialog::OnApply() {
    note("apply");
    if (onApply)
        onApply(*this);
}
void SampleDialog::OnTree(NMHDR* header, LRESULT*) {
    const auto* notice = reinterpret_cast<NMTREEVIEW*>(header);
    events.push_back("tree " + acToUtf8(tree.GetItemText(notice->itemNew.hItem).text()));
}
void SampleDialog::OnListChanged(NMHDR* header, LRESULT*) {
    const auto* notice = reinterpret_cast<NMLISTVIEW*>(header);
    events.push_back(((notice->uNewState & LVIS_SELECTED) != 0 ? "selected " : "deselected ") + std::to_string(notice->iItem) + " data " +
                     std::to_string(notice->lParam));
}
void SampleDialog::OnListClick(NMHDR* header, LRESULT*) {
    const auto* click = reinterpret_cast<NMITEMACTIVATE*>(header);
    events.push_back("click " + std::to_string(click->iItem) + " " + std::to_string(click->iSubItem));
}
void SampleDialog::OnSize(UINT kind, int cx, int cy) {
    CDialog::OnSize(kind, cx, cy);
    note("size");
}
