#include "AfxFolderDialog.h"

#include "AfxDialogDriver.h"
#include "CDialog.h"
#include "CTreeCtrl.h"
#include "WinFiles.h"
#include "app/AfxTemplate.h"
#include "core/AfxWindow.h"
#include "dialog/AfxModal.h"

#include <QTreeWidget>

namespace {
constexpr int kPathId = 0x3744, kTreeId = 0x3741, kStatusId = 0x3743;

bool isFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::wstring joined(const std::wstring& folder, const std::wstring& name) {
    return folder.empty() || folder.back() == L'\\' ? folder + name : folder + L"\\" + name;
}

std::vector<std::wstring> subfolders(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(joined(folder, L"*.*").c_str(), &data);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do {
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && data.cFileName[0] != L'.')
            names.push_back(data.cFileName);
    } while (FindNextFileW(search, &data));
    FindClose(search);
    return names;
}

class FolderDialog : public CDialog {
public:
    FolderDialog(const std::wstring& start, AfxFolderStatus status) : mPath(start), mStatus(status) {}
    std::wstring path() const { return mPath; }

protected:
    BOOL OnInitDialog() override {
        mTree = static_cast<CTreeCtrl*>(GetDlgItem(kTreeId));
        HTREEITEM root = mTree->InsertItem(L"\\");
        fill(root, L"\\");
        mTree->Expand(root, TVE_EXPAND);
        reveal(root);
        showPath();
        return TRUE;
    }
    void OnOK() override {
        if (isFolder(mPath))
            EndDialog(IDOK);
    }
    void OnSelected(NMHDR*, LRESULT*) {
        HTREEITEM item = mTree == nullptr ? nullptr : mTree->GetSelectedItem();
        if (item == nullptr || mIsTyping)
            return;
        mPath = pathOf(item);
        fill(item, mPath);
        showPath();
    }
    void OnTyped() {
        if (mIsShowing)
            return;
        CString text;
        GetDlgItemText(kPathId, text);
        mPath = text.text();
        enableOk();
    }
    DECLARE_MESSAGE_MAP()

private:
    // The folders of one level; done when the item is first reached.
    void fill(HTREEITEM item, const std::wstring& folder) {
        if (mTree->ItemHasChildren(item))
            return;
        for (const std::wstring& name : subfolders(folder))
            mTree->InsertItem(name.c_str(), item);
    }
    std::wstring pathOf(HTREEITEM item) const {
        std::wstring path;
        for (; mTree->GetParentItem(item) != nullptr; item = mTree->GetParentItem(item))
            path = L"\\" + mTree->GetItemText(item).text() + path;
        return path.empty() ? L"\\" : path;
    }
    void reveal(HTREEITEM item) {
        const CString path(mPath);
        int start = 0;
        for (CString name = path.Tokenize(L"\\/", start); start != -1; name = path.Tokenize(L"\\/", start)) {
            HTREEITEM child = mTree->GetChildItem(item);
            while (child != nullptr && mTree->GetItemText(child).CompareNoCase(name) != 0)
                child = mTree->GetNextSiblingItem(child);
            if (child == nullptr)
                break;
            item = child;
            fill(item, pathOf(item));
            mTree->Expand(item, TVE_EXPAND);
        }
        mIsTyping = true; // the start folder stays what the caller gave, if it does not exist too
        mTree->SelectItem(item);
        mTree->EnsureVisible(item);
        mIsTyping = false;
    }
    void showPath() {
        mIsShowing = true;
        SetDlgItemText(kPathId, mPath.c_str());
        mIsShowing = false;
        SetDlgItemText(kStatusId, mStatus == nullptr ? mPath.c_str() : mStatus(mPath.c_str()).GetString());
        enableOk();
    }
    void enableOk() {
        if (CWnd* ok = GetDlgItem(IDOK))
            ok->EnableWindow(isFolder(mPath));
    }
    std::wstring mPath;
    AfxFolderStatus mStatus;
    CTreeCtrl* mTree = nullptr;
    bool mIsTyping = false, mIsShowing = false;
};

BEGIN_MESSAGE_MAP(FolderDialog, CDialog)
    ON_NOTIFY(TVN_SELCHANGED, kTreeId, &FolderDialog::OnSelected)
    ON_EN_CHANGE(kPathId, &FolderDialog::OnTyped)
END_MESSAGE_MAP()

RcDialog folderTemplate(const std::wstring& title) {
    RcDialog source = afxWindow(L"Mappa kiválasztása", 0, 220, 214);
    source.controls = {afxItem(L"Static", title, IDC_STATIC, 0, 7, 7, 206, 10),
                       afxItem(L"Static", L"", kStatusId, SS_NOPREFIX, 7, 20, 206, 10),
                       afxItem(L"SysTreeView32", L"", kTreeId, WS_TABSTOP | WS_BORDER | TVS_HASBUTTONS | TVS_LINESATROOT, 7, 34, 206, 132),
                       afxItem(L"Static", L"&Mappa:", IDC_STATIC, 0, 7, 174, 30, 8),
                       afxItem(L"Edit", L"", kPathId, WS_TABSTOP | ES_AUTOHSCROLL, 40, 172, 173, 13),
                       afxItem(L"Button", L"OK", IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, 109, 193, 50, 14),
                       afxItem(L"Button", L"Mégse", IDCANCEL, WS_TABSTOP, 163, 193, 50, 14)};
    return source;
}
} // namespace

BOOL SHBrowseForFolderW(CWnd* owner, LPCTSTR title, LPCTSTR startFolder, AfxFolderStatus statusText, CString& folder) {
    AfxInitToolkit();
    FolderDialog dialog(startFolder == nullptr ? L"" : startFolder, statusText);
    if (afxRunTemplate(dialog, folderTemplate(title == nullptr ? L"" : title), owner) != IDOK)
        return FALSE;
    folder = dialog.path();
    while (folder.GetLength() > 1 && folder.Right(1) == L"\\")
        folder = folder.Left(folder.GetLength() - 1);
    return TRUE;
}
