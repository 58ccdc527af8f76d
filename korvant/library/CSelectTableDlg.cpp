#include "CSelectTableDlg.h"

#include "AcEdAds.h"
#include "AfxApp.h"
#include "BlockThumbnails.h"
#include "CDataExchange.h"
#include "LibraryWalk.h"
#include "Resource.h"
#include "TrfcAppSettings.h"
#include "WinFiles.h"
#include "folderIcons.h"
#include "orderFile.h"
#include "setProductTitle.h"

namespace {
constexpr LPCTSTR kProfileSection = L"SelectTablesDlg";
constexpr COLORREF kWhite = RGB(255, 255, 255);
enum TreeImage { kClosedFolder = 0, kOpenFolder = 1 };

// Absolute folder of the last choice, so that the next selection begins where the last one ended.
std::wstring& lastFolder() {
    static std::wstring folder;
    return folder;
}

std::wstring orderFileOf(const std::wstring& userFolder) {
    return userFolder.empty() ? userFolder : userFolder + L"orders.xml";
}

// The window itself stays empty where there is nothing to choose from; why is told beside it.
void tellOfEmptyLibrary(const std::wstring& root) {
    if (root.empty())
        acedPrompt(L"A könyvtár nincs beállítva.\n");
    else if (GetFileAttributesW(root.c_str()) == INVALID_FILE_ATTRIBUTES)
        acedPrompt((L"A könyvtár nem található: " + root + L"\n").c_str());
}
} // namespace

BEGIN_MESSAGE_MAP(CSelectTableDlg, CDialog)
    ON_NOTIFY(TVN_SELCHANGED, IDC_LIBRARY_TREE, &CSelectTableDlg::OnTreeSelection)
    ON_NOTIFY(LVN_ITEMCHANGED, IDC_LIBRARY_LIST, &CSelectTableDlg::OnListSelection)
    ON_NOTIFY(NM_DBLCLK, IDC_LIBRARY_LIST, &CSelectTableDlg::OnListDoubleClick)
    ON_WM_SIZE()
    ON_WM_DESTROY()
END_MESSAGE_MAP()

CSelectTableDlg::CSelectTableDlg(const std::wstring& rootFolder, CWnd* parent)
    : CDialog(IDD_SELECT_TABLE, parent), mRoot(rootFolder), mOrderFile(orderFileOf(TrfcAppSettings::perUserFolder())) {}

void CSelectTableDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LIBRARY_LIST, mList);
    DDX_Control(exchange, IDC_LIBRARY_TREE, mTree);
    DDX_Control(exchange, IDOK, mOkButton);
}

BOOL CSelectTableDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    setProductTitle(*this);
    mResizer.Attach(this);
    mResizer.Add(IDOK, CResizer::kBottomRight);
    mResizer.Add(IDCANCEL, CResizer::kBottomRight);
    mResizer.Add(IDC_LIBRARY_TREE, CResizer::kLeft | CResizer::kTop | CResizer::kBottom);
    mResizer.Add(IDC_LIBRARY_LIST, CResizer::kAll);
    clearChoice();
    createTreeImages();
    LibraryWalk walk(mRoot);
    fillTree(walk, mRoot, TVI_ROOT);
    tellOfEmptyLibrary(mRoot);
    if (walk.wasCutShort())
        acedPrompt((L"A könyvtár túl nagy, nem minden mappája látható: " + mRoot + L"\n").c_str());
    AfxRestorePlacement(*this, kProfileSection);
    const HTREEITEM first = mTree.GetRootItem();
    if (first != nullptr && mTree.GetNextSiblingItem(first) == nullptr)
        mTree.Expand(first, TVE_EXPAND);
    return TRUE;
}

void CSelectTableDlg::createTreeImages() {
    mTreeImages.Create(kFolderIconWidth, kFolderIconHeight, ILC_COLOR16 | ILC_MASK, 2, 2);
    const CBitmap closed = closedFolderIcon(), open = openFolderIcon();
    mTreeImages.Add(&closed, kWhite);
    mTreeImages.Add(&open, kWhite);
    mTree.SetImageList(&mTreeImages, TVSIL_NORMAL);
}

void CSelectTableDlg::fillTree(LibraryWalk& walk, const std::wstring& folder, HTREEITEM parent) {
    for (const LibraryWalk::Folder& found : walk.foldersOf(folder)) {
        const HTREEITEM item = insertFolder(found.path, found.name, parent);
        if (lastFolder() == found.path) {
            mTree.SelectItem(item);
            mTree.EnsureVisible(item);
        }
        if (found.goesDown)
            fillTree(walk, found.path, item);
    }
}

HTREEITEM CSelectTableDlg::insertFolder(const std::wstring& folder, const std::wstring& name, HTREEITEM parent) {
    const int closed = folderImage(folder + L"\\folder.bmp", kClosedFolder);
    const int open = folderImage(folder + L"\\folder_open.bmp", kOpenFolder);
    return mTree.InsertItem(name.c_str(), closed, open, parent, TVI_LAST);
}

int CSelectTableDlg::folderImage(const std::wstring& bitmapPath, int standard) {
    CBitmap bitmap;
    if (GetFileAttributesW(bitmapPath.c_str()) == INVALID_FILE_ATTRIBUTES || !bitmap.LoadFile(bitmapPath.c_str()))
        return standard;
    const int added = mTreeImages.Add(&bitmap, kWhite);
    return added >= 0 ? added : standard;
}

std::wstring CSelectTableDlg::treeItemPath(HTREEITEM item) const {
    std::wstring path;
    for (; item != nullptr; item = mTree.GetParentItem(item)) {
        const std::wstring label = mTree.GetItemText(item).text();
        path = path.empty() ? label : label + L"\\" + path;
    }
    return path;
}

// What is chosen is always a row that can be seen: another folder begins without a choice.
void CSelectTableDlg::clearChoice() {
    mSelectedPath.clear();
    mSelectedRow = 0;
    mOkButton.EnableWindow(FALSE);
}

void CSelectTableDlg::OnTreeSelection(NMHDR*, LRESULT* result) {
    *result = 0;
    const HTREEITEM item = mTree.GetSelectedItem();
    clearChoice();
    if (item == nullptr)
        return;
    mTree.Expand(item, TVE_EXPAND);
    fillThumbnails(mRoot + L"\\" + treeItemPath(item) + L"\\*.dwg");
}

void CSelectTableDlg::fillThumbnails(const std::wstring& mask) {
    const CSize size = blockThumbnailSize(mask, TrfcAppSettings::getAppInt(BLOCK_VIEW_SIZE));
    mList.DeleteAllItems();
    mThumbnails.DeleteImageList();
    mThumbnails.Create(size.cx, size.cy, ILC_COLOR24 | ILC_MASK, 0, 8);
    mList.SetImageList(&mThumbnails, LVSIL_NORMAL);
    mList.SetBkColor(kWhite);
    int row = 0;
    for (const BlockThumbnail& thumbnail : blockThumbnails(mask, size)) {
        const int image = mThumbnails.Add(&thumbnail.picture, kWhite);
        mList.InsertItem(row++, thumbnail.title.c_str(), image);
    }
}

void CSelectTableDlg::OnListSelection(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto* const change = reinterpret_cast<const NMLISTVIEW*>(header);
    const bool chosen = (change->uNewState & LVIS_SELECTED) != 0 && (change->uOldState & LVIS_SELECTED) == 0;
    const HTREEITEM item = mTree.GetSelectedItem();
    if (!chosen || change->iItem < 0 || item == nullptr)
        return;
    mOkButton.EnableWindow(TRUE);
    const std::wstring folder = treeItemPath(item);
    mSelectedPath = folder + L"\\" + mList.GetItemText(change->iItem, 0).text() + L".dwg";
    mSelectedRow = change->iItem;
    lastFolder() = mRoot + L"\\" + folder;
}

void CSelectTableDlg::OnListDoubleClick(NMHDR*, LRESULT* result) {
    *result = 0;
    if (!mSelectedPath.empty())
        OnOK();
}

void CSelectTableDlg::OnSize(UINT, int, int) { mResizer.Resize(); }

void CSelectTableDlg::OnCancel() {
    mSelectedPath.clear();
    CDialog::OnCancel();
}

void CSelectTableDlg::OnDestroy() {
    AfxSavePlacement(*this, kProfileSection);
    CDialog::OnDestroy();
}

void CSelectTableDlg::forgetLastFolder() { lastFolder().clear(); }

bool CSelectTableDlg::swapBlocks(const std::wstring& folderMask, int row, int distance) const {
    return swapInOrderFile(mOrderFile, folderMask, row, distance);
}
