// The window "Lépték kezelés": the scales of a drawing from before annotation scales beside those
// that the drawing holds. The user corrects the new ones; OK adds them to the drawing.
#pragma once

#include "CDialog.h"
#include "CImageList.h"
#include "CListCtrl.h"
#include "ScaleComparisonItem.h"

#include <vector>

class CScaleComparisonDialog : public CDialog {
public:
    // On the working drawing.
    explicit CScaleComparisonDialog(std::vector<ScaleComparisonItem> items, CWnd* parent = nullptr);

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnRowChanged(NMHDR* header, LRESULT* result);
    void OnHelp();
    DECLARE_MESSAGE_MAP()

private:
    enum Column { kActive, kListScale, kName, kPaper, kDrawing, kSource };
    enum Image { kActiveImage, kInactiveImage };
    void addColumns();
    void addRow(const ScaleComparisonItem& item);
    void showEdited(int row);
    void editRow(int row);

    std::vector<ScaleComparisonItem> mItems; // in the order of the rows
    CListCtrl mList;
    CImageList mImages;
};
