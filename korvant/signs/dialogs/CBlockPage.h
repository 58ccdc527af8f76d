// What the pages of a post, a chain and a road marking share: the preview, the two levels of the
// block's path, the state and the grid of the block's attributes and user parameters.
#pragma once

#include "CComboBox.h"
#include "CGsPreviewCtrl.h"
#include "CListCtrlEd.h"
#include "CPropertyPage.h"
#include "CTreeCtrl.h"

#include <string>

class TrfcBlock;

class CBlockPage : public CPropertyPage {
public:
    explicit CBlockPage(UINT templateId) : CPropertyPage(templateId) {}
    void commit() override { mGrid.commitEdit(); }

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;

    // The block whose attributes the grid shows now; null when it shows none.
    virtual TrfcBlock* gridBlock() = 0;
    // Draws the picture anew after a change of what is edited.
    virtual void refreshPreview() = 0;
    // A row of the page's own was edited. The page may put the value in the form it shows.
    virtual void writePageField(int row) { (void)row; }

    // Folder and file of a library path; an empty path clears the tree.
    void showPath(const std::wstring& blockFile);
    void addPageField(const std::wstring& name, const std::wstring& value);
    // Appends the block's attributes, then the parameters that the library's attribute lists name.
    void addBlockRows(const TrfcBlock& block, const std::wstring& baseFolder);
    // The library block picked by the user; empty where none was. base: key of the library's folder.
    std::wstring chooseBlock(const ACHAR* base);

    void OnGridEdited(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

    CGsPreviewCtrl mPreview;
    CTreeCtrl mPathTree;
    CComboBox mType;
    CListCtrlEd mGrid;
};
