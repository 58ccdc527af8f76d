// A list of named values that are edited in place: the grid of the property pages. A click on a value
// opens a field or a drop-down over it. The parent gets LVN_ENDLABELEDIT from the list after the
// row has taken its new value.
#pragma once

#include "CListCtrl.h"
#include "attributeRow.h"

#include <memory>
#include <vector>

class CListCtrlEd : public CListCtrl {
public:
    enum Column { kNameColumn = 0, kValueColumn = 1 };

    // The two columns over the list's width, full row selection and grid lines. Once a window.
    void addColumns();
    // The list keeps the row; the row of the list points to it as its item data.
    int addRow(const attributeRow& row);
    const attributeRow& rowAt(int row) const;
    void setRowValue(int row, const std::wstring& value);
    // Ends an open edit without keeping it: its row goes.
    void removeRows();
    // Opens the editor of a cell. Nothing for a row that does not exist, is read-only, or for the
    // column of names.
    void showCellEditor(int row, int column);
    // Keeps what an open editor holds; a page calls it before it goes.
    void commitEdit();
    bool isEditing() const;

protected:
    void OnClick(NMHDR* header, LRESULT* result);
    void OnCellEdited(NMHDR* header, LRESULT* result);
    void OnSize(UINT kind, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    int valueWidth(int listWidth) const;
    CRect cellRect(int row, int column) const;
    attributeRow& row(int index) const;
    void endEdit(bool keep);
    std::vector<std::unique_ptr<attributeRow>> mRows;
};
