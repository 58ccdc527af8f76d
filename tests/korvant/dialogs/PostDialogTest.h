// What the tests of the property dialogs stand on: a drawing, settings, a library and a post in it.
#pragma once

#include "CButton.h"
#include "CComboBox.h"
#include "CEditBlockChainDlg.h"
#include "CListCtrlEd.h"
#include "CPostPropertiesDlg.h"
#include "DialogUser.h"
#include "Resource.h"
#include "TextLibrary.h"
#include "TrfcPost.h"
#include "TrfcTable.h"

#include "AcDbDatabase.h"

#include <gtest/gtest.h>

class PostDialog : public testing::Test {
protected:
    PostDialog();
    ~PostDialog() override;

    // Adds a sign by its path below the sign library, as a placed post would have it.
    void addTable(const std::wstring& file);
    // File titles of the signs, from the base upwards.
    std::vector<std::wstring> tables() const;
    const TrfcTable& table(int index) const { return *TrfcTable::cast(post->signChain().getAt(index)); }

    // ---- the open window
    CPostPropertiesDlg& open(int page); // to be run with run()
    INT_PTR run() { return mDialog->DoModal(); }
    CWnd& control(int id);
    bool isEnabled(int id) { return control(id).IsWindowEnabled() != FALSE; }
    bool isChecked(int id) { return mDialog->visiblePage()->IsDlgButtonChecked(id) == BST_CHECKED; }
    std::wstring textOf(int id);
    int selectedType() { return static_cast<CComboBox&>(control(IDC_TYPE_COMBO)).GetCurSel(); }
    CListCtrlEd& grid() { return static_cast<CListCtrlEd&>(control(IDC_ATTRIBUTE_LIST)); }
    std::wstring gridValue(const std::wstring& name); // "(nincs)" without such a row
    std::wstring pathTree();                          // "folder/file"
    CEditBlockChainDlg& chainPage() { return dynamic_cast<CEditBlockChainDlg&>(*mDialog->visiblePage()); }
    CGsPreviewCtrl& preview() { return static_cast<CGsPreviewCtrl&>(control(IDC_PREVIEW)); }
    // A click of the mouse on a block of the chain.
    void clickBlock(int index);
    // The window is opened, does what the steps say, and ends with OK.
    void runPage(int page) {
        open(page);
        user.does(L"@ok");
        EXPECT_EQ(run(), IDOK);
    }

    DialogUser user;
    TextLibrary library;
    AcDbDatabase drawing;
    std::unique_ptr<TrfcPost> post;

private:
    void makeSettings();
    void makeLibrary();
    std::unique_ptr<CPostPropertiesDlg> mDialog;
    AcDbDatabase* mEarlierDrawing;
};
