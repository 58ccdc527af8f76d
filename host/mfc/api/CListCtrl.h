// A list of rows in columns (LVS_REPORT) or of pictures with a title (LVS_ICON).
// Client coordinates include the column header.
#pragma once

#include "CWnd.h"

class CImageList;

constexpr int LVCFMT_LEFT = 0, LVCFMT_RIGHT = 1, LVCFMT_CENTER = 2;
constexpr UINT LVIF_TEXT = 1, LVIF_IMAGE = 2, LVIF_PARAM = 4, LVIF_STATE = 8;
constexpr UINT LVIS_FOCUSED = 1, LVIS_SELECTED = 2;
constexpr int LVNI_ALL = 0, LVNI_FOCUSED = 1, LVNI_SELECTED = 2;
constexpr int LVSIL_NORMAL = 0, LVSIL_SMALL = 1, LVSIL_STATE = 2;
constexpr int LVIR_BOUNDS = 0, LVIR_ICON = 1, LVIR_LABEL = 2;
struct LVHITTESTINFO {
    CPoint pt;
    UINT flags = 0;
    int iItem = -1, iSubItem = -1;
};
using POSITION = std::intptr_t;

class CListCtrl : public CWnd {
public:
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);

    int InsertColumn(int column, LPCTSTR title, int format = LVCFMT_LEFT, int width = -1, int subItem = -1);
    BOOL DeleteColumn(int column);
    int GetColumnCount() const;
    CString columnTitle(int column) const;
    int GetColumnWidth(int column) const;
    BOOL SetColumnWidth(int column, int width); // LVSCW_AUTOSIZE -1, -2: to the title too

    int InsertItem(int row, LPCTSTR text, int image = -1); // the new row's index, at most the count
    int InsertItem(const LVITEM* item);
    BOOL DeleteItem(int row);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    BOOL SetItemText(int row, int subItem, LPCTSTR text);
    CString GetItemText(int row, int subItem) const;
    // Sets text, image (of the sub item too), state or data, as the mask says.
    BOOL SetItem(const LVITEM* item);
    BOOL SetItem(int row, int subItem, UINT mask, LPCTSTR text, int image, UINT state, UINT stateMask, LPARAM data);
    // Fills in image, state and data, as the mask says; a text is asked for with GetItemText.
    BOOL GetItem(LVITEM* item) const;
    BOOL SetItemData(int row, DWORD_PTR data);
    DWORD_PTR GetItemData(int row) const;
    int FindItemText(LPCTSTR text) const; // the first row of that text, -1

    BOOL SetItemState(int row, UINT state, UINT mask); // row -1: all; tells the parent as a click would
    UINT GetItemState(int row, UINT mask) const;
    // The next row after `after` (-1: from the start) with the state; -1 where there is none.
    int GetNextItem(int after, int flags) const;
    POSITION GetFirstSelectedItemPosition() const; // 0: none
    int GetNextSelectedItem(POSITION& position) const;
    UINT GetSelectedCount() const;
    int GetSelectionMark() const;

    BOOL EnsureVisible(int row, BOOL partly);
    int GetTopIndex() const;
    int GetCountPerPage() const;
    BOOL GetItemRect(int row, CRect& rect, int kind = LVIR_BOUNDS) const;
    BOOL GetSubItemRect(int row, int subItem, int kind, CRect& rect) const; // sub item 0: its own column
    int HitTest(CPoint point, UINT* flags = nullptr) const;
    int SubItemHitTest(LVHITTESTINFO* info) const;

    // The list is shared with the control, which keeps it alive.
    CImageList* SetImageList(CImageList* images, int kind); // the earlier one
    CImageList* GetImageList(int kind) const;
    DWORD SetExtendedStyle(DWORD style);
    DWORD GetExtendedStyle() const;
    COLORREF GetBkColor() const;
    BOOL SetBkColor(COLORREF color);
    CSize SetIconSpacing(int cx, int cy);

    DECLARE_MESSAGE_MAP()
};
constexpr int LVSCW_AUTOSIZE = -1, LVSCW_AUTOSIZE_USEHEADER = -2;
