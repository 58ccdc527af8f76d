// The window in which a block is picked from a library: the folder tree on the left, the
// thumbnails of the chosen folder on the right. It knows nothing of what kind the blocks are.
//
//   CSelectTableDlg dialog(libraryFolder(APP_TABLES_BASE_PATH));
//   dialog.DoModal();
//   if (!dialog.selectedPath().empty()) ... loadBlockTemplate(base, dialog.selectedPath())
#pragma once

#include "CDialog.h"
#include "CImageList.h"
#include "CListCtrl.h"
#include "CResizer.h"
#include "CTreeCtrl.h"

#include <string>

class LibraryWalk;

class CSelectTableDlg : public CDialog {
public:
    // rootFolder without a closing backslash; a folder that is empty or absent gives an empty tree.
    explicit CSelectTableDlg(const std::wstring& rootFolder, CWnd* parent = nullptr);

    // Path of the chosen block relative to the root, with ".dwg"; empty after a cancel.
    const std::wstring& selectedPath() const { return mSelectedPath; }
    // Moves a row of the user's order file; see orderFile.h.
    bool swapBlocks(const std::wstring& folderMask, int row, int distance) const;
    // The next selection begins without a folder.
    static void forgetLastFolder();
    const std::wstring& orderFilePath() const { return mOrderFile; }

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnCancel() override;
    void OnTreeSelection(NMHDR* header, LRESULT* result);
    void OnListSelection(NMHDR* header, LRESULT* result);
    void OnListDoubleClick(NMHDR* header, LRESULT* result);
    void OnSize(UINT kind, int width, int height);
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    void createTreeImages();
    void fillTree(LibraryWalk& walk, const std::wstring& folder, HTREEITEM parent);
    HTREEITEM insertFolder(const std::wstring& folder, const std::wstring& name, HTREEITEM parent);
    int folderImage(const std::wstring& bitmapPath, int standard);
    std::wstring treeItemPath(HTREEITEM item) const;
    void fillThumbnails(const std::wstring& mask);
    void clearChoice();

    CResizer mResizer;
    std::wstring mRoot;
    std::wstring mOrderFile;
    std::wstring mSelectedPath;
    CListCtrl mList;
    CTreeCtrl mTree;
    CWnd mOkButton;
    int mSelectedRow = 0;
    CImageList mTreeImages, mThumbnails;
};
