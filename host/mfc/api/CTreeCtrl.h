// A tree of labels with pictures.
#pragma once

#include "CWnd.h"

class CImageList;

#define TVI_ROOT (static_cast<HTREEITEM>(nullptr))
#define TVI_LAST (static_cast<HTREEITEM>(nullptr))
constexpr UINT TVE_COLLAPSE = 1, TVE_EXPAND = 2, TVE_TOGGLE = 3;
constexpr UINT TVIS_SELECTED = 2, TVIS_EXPANDED = 0x20;
constexpr int TVSIL_NORMAL = 0;

class CTreeCtrl : public CWnd {
public:
    BOOL Create(DWORD style, const CRect& rect, CWnd* parent, UINT id);

    HTREEITEM InsertItem(LPCTSTR text, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
    HTREEITEM InsertItem(LPCTSTR text, int image, int selectedImage, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
    BOOL DeleteItem(HTREEITEM item);
    BOOL DeleteAllItems();
    UINT GetCount() const;
    CString GetItemText(HTREEITEM item) const;
    BOOL SetItemText(HTREEITEM item, LPCTSTR text);
    BOOL SetItemImage(HTREEITEM item, int image, int selectedImage);
    BOOL GetItemImage(HTREEITEM item, int& image, int& selectedImage) const;
    BOOL SetItemData(HTREEITEM item, DWORD_PTR data);
    DWORD_PTR GetItemData(HTREEITEM item) const;
    HTREEITEM GetRootItem() const; // the first top item
    HTREEITEM GetParentItem(HTREEITEM item) const; // null for a top item
    HTREEITEM GetChildItem(HTREEITEM item) const;  // null as item: the first top item
    HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
    BOOL ItemHasChildren(HTREEITEM item) const;
    HTREEITEM GetSelectedItem() const;
    BOOL SelectItem(HTREEITEM item); // sends TVN_SELCHANGED where the selection changes; null clears
    BOOL Expand(HTREEITEM item, UINT code);
    UINT GetItemState(HTREEITEM item, UINT mask) const;
    BOOL EnsureVisible(HTREEITEM item);
    CImageList* SetImageList(CImageList* images, int kind = TVSIL_NORMAL);
    COLORREF SetBkColor(COLORREF color);

    DECLARE_MESSAGE_MAP()
};
