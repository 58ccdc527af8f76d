// Messages, notifications, styles and their numbers: what passes between controls and dialogs.
#pragma once

#include "WinTypes.h"

class CWnd;

// ---- messages ------------------------------------------------------------------------
constexpr UINT WM_NULL = 0x0000, WM_DESTROY = 0x0002, WM_SIZE = 0x0005, WM_SETFOCUS = 0x0007, WM_KILLFOCUS = 0x0008,
               WM_PAINT = 0x000F, WM_CLOSE = 0x0010, WM_SHOWWINDOW = 0x0018, WM_NEXTDLGCTL = 0x0028, WM_SETFONT = 0x0030,
               WM_NOTIFY = 0x004E, WM_GETDLGCODE = 0x0087, WM_KEYDOWN = 0x0100, WM_KEYUP = 0x0101, WM_CHAR = 0x0102, WM_INITDIALOG = 0x0110,
               WM_COMMAND = 0x0111, WM_TIMER = 0x0113, WM_CTLCOLOR = 0x0019, WM_MOUSEMOVE = 0x0200, WM_LBUTTONDOWN = 0x0201,
               WM_LBUTTONUP = 0x0202, WM_LBUTTONDBLCLK = 0x0203, WM_RBUTTONDOWN = 0x0204, WM_RBUTTONUP = 0x0205,
               WM_MOUSELEAVE = 0x02A3, WM_USER = 0x0400, WM_APP = 0x8000;
constexpr UINT VK_BACK = 0x08, VK_TAB = 0x09, VK_RETURN = 0x0D, VK_ESCAPE = 0x1B, VK_END = 0x23, VK_HOME = 0x24, VK_LEFT = 0x25,
               VK_UP = 0x26, VK_RIGHT = 0x27, VK_DOWN = 0x28, VK_DELETE = 0x2E, VK_F1 = 0x70, VK_F2 = 0x71;

// A key on its way to the focused window, as PreTranslateMessage sees it; or any input that waits, as
// PeekMessageW gives it.
struct MSG {
    CWnd* pWnd = nullptr;     // the focused window, or the one under the mouse; null where it is none of the API's
    UINT message = 0;         // WM_KEYDOWN or WM_CHAR; of input that waits also WM_KEYUP, the mouse's and WM_NULL for the rest
    WPARAM wParam = 0;        // VK_... or the character
    LPARAM lParam = 0;
    std::uint64_t serial = 0; // host use: which input that waits it stands for
};

// ---- notification codes of WM_COMMAND ------------------------------------------------
constexpr UINT BN_CLICKED = 0, BN_DOUBLECLICKED = 5, STN_CLICKED = 0, STN_DBLCLK = 1;
constexpr UINT EN_SETFOCUS = 0x0100, EN_KILLFOCUS = 0x0200, EN_CHANGE = 0x0300, EN_UPDATE = 0x0400;
constexpr UINT CBN_SELCHANGE = 1, CBN_DBLCLK = 2, CBN_SETFOCUS = 3, CBN_KILLFOCUS = 4, CBN_EDITCHANGE = 5, CBN_DROPDOWN = 7,
               CBN_CLOSEUP = 8, CBN_SELENDOK = 9;
constexpr UINT LBN_SELCHANGE = 1, LBN_DBLCLK = 2;

// ---- notification codes of WM_NOTIFY -------------------------------------------------
constexpr UINT NM_FIRST = 0u, NM_CLICK = NM_FIRST - 2, NM_DBLCLK = NM_FIRST - 3, NM_RETURN = NM_FIRST - 4, NM_RCLICK = NM_FIRST - 5,
               NM_SETFOCUS = NM_FIRST - 7, NM_KILLFOCUS = NM_FIRST - 8;
constexpr UINT LVN_FIRST = 0u - 100, LVN_ITEMCHANGING = LVN_FIRST - 0, LVN_ITEMCHANGED = LVN_FIRST - 1,
               LVN_COLUMNCLICK = LVN_FIRST - 8, LVN_ITEMACTIVATE = LVN_FIRST - 14, LVN_ENDLABELEDIT = LVN_FIRST - 76,
               LVN_KEYDOWN = LVN_FIRST - 55;
constexpr UINT TVN_FIRST = 0u - 400, TVN_SELCHANGED = TVN_FIRST - 51, TVN_ITEMEXPANDED = TVN_FIRST - 55;
constexpr UINT TCN_FIRST = 0u - 550, TCN_SELCHANGE = TCN_FIRST - 1, TCN_SELCHANGING = TCN_FIRST - 2;

struct NMHDR {
    HWND hwndFrom = nullptr;
    UINT_PTR idFrom = 0;
    UINT code = 0;
};
struct NMITEMACTIVATE { // NM_CLICK, NM_DBLCLK, NM_RCLICK of a list
    NMHDR hdr;
    int iItem = -1, iSubItem = -1;
    int x = 0, y = 0; // client coordinates of the list
};
struct NMLISTVIEW { // LVN_ITEMCHANGED
    NMHDR hdr;
    int iItem = -1, iSubItem = 0;
    UINT uNewState = 0, uOldState = 0, uChanged = 0;
    LPARAM lParam = 0;
};
struct LVITEM {
    UINT mask = 0;
    int iItem = 0, iSubItem = 0;
    UINT state = 0, stateMask = 0;
    LPTSTR pszText = nullptr;
    int cchTextMax = 0;
    int iImage = -1;
    LPARAM lParam = 0;
};
struct NMLVDISPINFO { // LVN_ENDLABELEDIT; pszText null where the edit was given up
    NMHDR hdr;
    LVITEM item;
};
using LV_DISPINFO = NMLVDISPINFO;
using HTREEITEM = struct AfxTreeItem*;
struct TVITEM {
    HTREEITEM hItem = nullptr;
    LPARAM lParam = 0;
};
struct NMTREEVIEW { // TVN_SELCHANGED, TVN_ITEMEXPANDED
    NMHDR hdr;
    UINT action = 0;
    TVITEM itemOld, itemNew;
};

// ---- styles --------------------------------------------------------------------------
constexpr DWORD WS_POPUP = 0x80000000u, WS_CHILD = 0x40000000u, WS_VISIBLE = 0x10000000u, WS_DISABLED = 0x08000000u,
                WS_CAPTION = 0x00C00000u, WS_BORDER = 0x00800000u, WS_VSCROLL = 0x00200000u, WS_HSCROLL = 0x00100000u,
                WS_SYSMENU = 0x00080000u, WS_THICKFRAME = 0x00040000u, WS_GROUP = 0x00020000u, WS_TABSTOP = 0x00010000u,
                WS_MINIMIZEBOX = 0x00020000u, WS_MAXIMIZEBOX = 0x00010000u;
constexpr DWORD SS_LEFT = 0, SS_CENTER = 1, SS_RIGHT = 2, SS_ICON = 3, SS_WHITERECT = 6, SS_BLACKFRAME = 7, SS_ETCHEDHORZ = 0x10, SS_ETCHEDFRAME = 0x12,
                SS_BITMAP = 0x0E, SS_NOPREFIX = 0x80, SS_NOTIFY = 0x100, SS_CENTERIMAGE = 0x200, SS_SUNKEN = 0x1000;
constexpr DWORD BS_PUSHBUTTON = 0, BS_DEFPUSHBUTTON = 1, BS_CHECKBOX = 2, BS_AUTOCHECKBOX = 3, BS_RADIOBUTTON = 4, BS_GROUPBOX = 7,
                BS_AUTORADIOBUTTON = 9, BS_BITMAP = 0x80;
constexpr DWORD ES_LEFT = 0, ES_CENTER = 1, ES_RIGHT = 2, ES_MULTILINE = 4, ES_AUTOVSCROLL = 0x40, ES_AUTOHSCROLL = 0x80,
                ES_READONLY = 0x800, ES_WANTRETURN = 0x1000, ES_NUMBER = 0x2000;
constexpr DWORD CBS_SIMPLE = 1, CBS_DROPDOWN = 2, CBS_DROPDOWNLIST = 3, CBS_SORT = 0x100;
constexpr DWORD LVS_ICON = 0, LVS_REPORT = 1, LVS_SMALLICON = 2, LVS_LIST = 3, LVS_SINGLESEL = 4, LVS_SHOWSELALWAYS = 8,
                LVS_AUTOARRANGE = 0x100, LVS_EDITLABELS = 0x200, LVS_NOCOLUMNHEADER = 0x4000;
constexpr DWORD LVS_EX_GRIDLINES = 1, LVS_EX_SUBITEMIMAGES = 2, LVS_EX_FULLROWSELECT = 0x20, LVS_EX_DOUBLEBUFFER = 0x10000;
constexpr DWORD TVS_HASBUTTONS = 1, TVS_HASLINES = 2, TVS_LINESATROOT = 4, TVS_SHOWSELALWAYS = 0x20;
constexpr DWORD PBS_SMOOTH = 1;

constexpr int SW_HIDE = 0, SW_SHOW = 5;
constexpr UINT SWP_NOSIZE = 1, SWP_NOMOVE = 2, SWP_NOZORDER = 4, SWP_NOACTIVATE = 0x10, SWP_SHOWWINDOW = 0x40, SWP_HIDEWINDOW = 0x80;
constexpr int IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6, IDNO = 7, IDCLOSE = 8, IDHELP = 9, IDC_STATIC = -1;
constexpr UINT SIZE_RESTORED = 0, SIZE_MINIMIZED = 1, SIZE_MAXIMIZED = 2;
