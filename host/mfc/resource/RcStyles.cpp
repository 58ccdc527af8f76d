#include "resource/RcStyles.h"

#include "AfxMessages.h"

namespace {
struct Style {
    const wchar_t* name;
    DWORD value;
};
#define S(name) {L## #name, name}
#define N(name, value) {L## #name, value} // known to scripts, without a meaning here
const Style kStyles[] = {
    S(WS_POPUP), S(WS_CHILD), S(WS_VISIBLE), S(WS_DISABLED), S(WS_CAPTION), S(WS_BORDER), S(WS_VSCROLL), S(WS_HSCROLL),
    S(WS_SYSMENU), S(WS_THICKFRAME), S(WS_GROUP), S(WS_TABSTOP), S(WS_MINIMIZEBOX), S(WS_MAXIMIZEBOX),
    N(WS_POPUPWINDOW, WS_POPUP | WS_BORDER | WS_SYSMENU), N(WS_CLIPCHILDREN, 0x02000000), N(WS_CLIPSIBLINGS, 0x04000000),
    N(WS_DLGFRAME, 0x00400000), N(WS_SIZEBOX, WS_THICKFRAME),
    N(DS_SETFONT, 0x40), N(DS_MODALFRAME, 0x80), N(DS_FIXEDSYS, 8), N(DS_SHELLFONT, 0x48), N(DS_CONTROL, 0x400), N(DS_CENTER, 0x800),
    N(WS_EX_APPWINDOW, 0), N(WS_EX_CLIENTEDGE, 0), N(WS_EX_STATICEDGE, 0), N(WS_EX_TRANSPARENT, 0), N(WS_EX_TOPMOST, 0),
    N(WS_EX_CONTROLPARENT, 0), N(WS_EX_CONTEXTHELP, 0), N(WS_EX_TOOLWINDOW, 0), N(WS_EX_DLGMODALFRAME, 0), N(WS_EX_WINDOWEDGE, 0),
    S(SS_LEFT), S(SS_CENTER), S(SS_RIGHT), S(SS_ICON), S(SS_WHITERECT), S(SS_BLACKFRAME), S(SS_ETCHEDHORZ), S(SS_ETCHEDFRAME), S(SS_BITMAP),
    S(SS_NOPREFIX), S(SS_NOTIFY), S(SS_CENTERIMAGE), S(SS_SUNKEN), N(SS_LEFTNOWORDWRAP, 0x0C), N(SS_REALSIZEIMAGE, 0),
    N(SS_ENDELLIPSIS, 0), N(SS_PATHELLIPSIS, 0), N(SS_WORDELLIPSIS, 0), N(SS_GRAYFRAME, SS_BLACKFRAME),
    S(BS_PUSHBUTTON), S(BS_DEFPUSHBUTTON), S(BS_CHECKBOX), S(BS_AUTOCHECKBOX), S(BS_RADIOBUTTON), S(BS_GROUPBOX),
    S(BS_AUTORADIOBUTTON), S(BS_BITMAP), N(BS_ICON, 0x40), N(BS_CENTER, 0x300), N(BS_LEFT, 0x100), N(BS_RIGHT, 0x200), N(BS_VCENTER, 0xC00),
    N(BS_MULTILINE, 0), N(BS_FLAT, 0), N(BS_NOTIFY, 0), N(BS_PUSHLIKE, 0x1000), N(BS_TOP, 0x400),
    S(ES_LEFT), S(ES_CENTER), S(ES_RIGHT), S(ES_MULTILINE), S(ES_AUTOVSCROLL), S(ES_AUTOHSCROLL), S(ES_READONLY), S(ES_WANTRETURN), S(ES_NUMBER),
    S(CBS_SIMPLE), S(CBS_DROPDOWN), S(CBS_DROPDOWNLIST), S(CBS_SORT), N(CBS_AUTOHSCROLL, 0), N(CBS_HASSTRINGS, 0),
    N(CBS_OWNERDRAWFIXED, 0), N(CBS_NOINTEGRALHEIGHT, 0),
    N(LBS_NOTIFY, 1), N(LBS_STANDARD, 3), N(LBS_SORT, 2), N(LBS_NOINTEGRALHEIGHT, 0),
    S(LVS_ICON), S(LVS_REPORT), S(LVS_SMALLICON), S(LVS_LIST), S(LVS_SINGLESEL), S(LVS_SHOWSELALWAYS), S(LVS_AUTOARRANGE),
    S(LVS_EDITLABELS), S(LVS_NOCOLUMNHEADER), N(LVS_NOSORTHEADER, 0x8000), N(LVS_SHAREIMAGELISTS, 0x40), N(LVS_ALIGNLEFT, 0x800), N(LVS_ALIGNTOP, 0),
    S(TVS_HASBUTTONS), S(TVS_HASLINES), S(TVS_LINESATROOT), S(TVS_SHOWSELALWAYS), N(TVS_DISABLEDRAGDROP, 0x10), N(TVS_FULLROWSELECT, 0x1000),
    N(TCS_TABS, 0), N(TCS_SINGLELINE, 0), N(TCS_MULTILINE, 0x200), S(PBS_SMOOTH),
};
#undef S
#undef N
struct Id {
    const wchar_t* name;
    int value;
};
const Id kIds[] = {{L"IDOK", IDOK}, {L"IDCANCEL", IDCANCEL}, {L"IDABORT", IDABORT}, {L"IDRETRY", IDRETRY}, {L"IDIGNORE", IDIGNORE},
                   {L"IDYES", IDYES}, {L"IDNO", IDNO}, {L"IDCLOSE", IDCLOSE}, {L"IDHELP", IDHELP}, {L"IDC_STATIC", IDC_STATIC}};
} // namespace

std::optional<DWORD> rcStyle(const std::wstring& name) {
    for (const Style& style : kStyles)
        if (name == style.name)
            return style.value;
    return std::nullopt;
}

std::optional<int> rcStandardId(const std::wstring& name) {
    for (const Id& id : kIds)
        if (name == id.name)
            return id.value;
    return std::nullopt;
}

const wchar_t* rcStandardName(int number) {
    for (const Id& id : kIds)
        if (id.value == number)
            return id.name;
    return nullptr;
}
