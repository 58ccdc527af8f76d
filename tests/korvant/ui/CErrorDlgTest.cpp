#include "CErrorDlg.h"

#include "DialogUser.h"
#include "Resource.h"

#include <gtest/gtest.h>

TEST(ErrorDialog, shows_its_text_under_the_products_title) {
    DialogUser user;
    CErrorDlg dialog(L"A 'C:\\settings.ini' fájl sérült");
    user.sees([&] {
        CString title, text;
        dialog.GetWindowText(title);
        dialog.GetDlgItemText(IDC_ERROR_TEXT, text);
        EXPECT_EQ(title.text(), L"Korvant - Figyelmeztetés");
        EXPECT_EQ(text.text(), L"A 'C:\\settings.ini' fájl sérült");
    });
    user.does(L"@click \"Bezár\"");
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST(ErrorDialog, closes_by_its_title_bar) {
    DialogUser user;
    CErrorDlg dialog(L"hiba");
    user.does(L"@close");
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}
