#include "CBitmap.h"
#include "CResizer.h"
#include "CStatic.h"
#include "SampleDialog.h"
#include "TestSupport.h"
#include "WinFiles.h"
#include "core/AfxWindow.h"

#include <QAbstractButton>
#include <QLabel>

namespace {
const char* const kWide = R"rc(
1 DIALOGEX 0, 0, 200, 130
STYLE WS_POPUP | WS_CAPTION | WS_THICKFRAME
FONT 8, "MS Shell Dlg"
BEGIN
    LTEXT "Oszlopegyezés hibahatára:", 10, 7, 7, 30, 9
    AUTOCHECKBOX "Kiválasztott objektum automatikus megmutatása", 11, 7, 20, 40, 11
    RTEXT "Jobbra igazított felirat", 12, 150, 35, 30, 9
    LTEXT "Rövid", 13, 7, 50, 20, 9
    EDITTEXT 14, 40, 48, 60, 14
    LTEXT "Ez a felirat nem fér el a mező előtt", 15, 7, 70, 30, 9
    EDITTEXT 16, 40, 68, 60, 14
    CONTROL "", 17, "SysListView32", LVS_REPORT, 110, 48, 80, 40
END
)rc";

class Resizable : public CDialog {
public:
    Resizable() : CDialog(1u) {}
    CResizer resizer;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        resizer.Attach(this);
        resizer.Add(17, CResizer::kAll);
        resizer.Add(16, CResizer::kBottomLeft);
        resizer.Add(4711, CResizer::kAll); // absent
        return TRUE;
    }
    void OnSize(UINT, int, int) { resizer.Resize(); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Resizable, CDialog)
    ON_WM_SIZE()
END_MESSAGE_MAP()
} // namespace

TEST(Layout, texts_grow_into_free_room_and_are_not_cut) {
    useResources(kWide);
    DialogScript user({L"check", L"@close"});
    CDialog dialog(1u);
    user.look(L"check", [&] {
        for (const int id : {10, 11, 12, 13}) {
            const QWidget* widget = dialog.GetDlgItem(id)->window()->widget;
            EXPECT_GE(widget->width(), widget->sizeHint().width()) << id;
            EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << id;
        }
        const QRect label = dialog.GetDlgItem(15)->window()->widget->geometry(), field = dialog.GetDlgItem(16)->window()->widget->geometry();
        EXPECT_FALSE(label.intersects(field));
        EXPECT_GE(label.height(), static_cast<QLabel*>(dialog.GetDlgItem(15)->window()->widget.data())->heightForWidth(label.width()));
    });
    dialog.DoModal();
    EXPECT_TRUE(user.refusals.empty());
}

TEST(Layout, anchored_controls_follow_the_window) {
    useResources(kWide);
    DialogScript user({L"check", L"@close"});
    Resizable dialog;
    user.look(L"check", [&] {
        CRect client, before, after, field;
        dialog.GetClientRect(client);
        dialog.GetDlgItem(17)->GetClientRect(before);
        dialog.GetDlgItem(16)->GetWindowRect(field);
        dialog.ScreenToClient(&field);
        dialog.SetWindowPos(nullptr, 0, 0, client.Width() + 50, client.Height() + 30, SWP_NOMOVE);
        AfxPumpMessages();
        dialog.GetDlgItem(17)->GetClientRect(after);
        EXPECT_EQ(after.Width(), before.Width() + 50);
        EXPECT_EQ(after.Height(), before.Height() + 30);
        CRect moved;
        dialog.GetDlgItem(16)->GetWindowRect(moved);
        dialog.ScreenToClient(&moved);
        EXPECT_EQ(moved.top, field.top + 30);
        EXPECT_EQ(moved.left, field.left);
    });
    dialog.DoModal();
}

TEST(Layout, a_picture_of_the_window_is_saved) {
    useResources(kSampleResources);
    const std::wstring file = testTempDir() + L"\\sample.png";
    DialogScript user({L"@shot \"" + file + L"\"", L"@shot \"\\none\\x.png\""});
    SampleDialog dialog;
    dialog.DoModal();
    WinFileStatus status;
    ASSERT_TRUE(winFileStatus(file.c_str(), status));
    EXPECT_GT(status.length, 1000u);
    ASSERT_EQ(user.refusals.size(), 1u);
    EXPECT_EQ(user.refusals[0], L"@shot \"\\none\\x.png\": the picture cannot be saved");
}

namespace {
const char* const kBackdrop = R"rc(
500 DIALOGEX 0, 0, 120, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
CAPTION "Fehér"
FONT 8, "MS Shell Dlg"
BEGIN
    CONTROL         "", -1, "Static", SS_WHITERECT, 0, 0, 120, 40
    GROUPBOX        "Keret", -1, 4, 2, 60, 30
    CONTROL         "NEVE", 15, "Button", BS_PUSHBUTTON | BS_BITMAP | WS_TABSTOP, 70, 10, 40, 14
END
600 BITMAP
BEGIN
    "2 2 1 1"
    "# c #FF0000"
    "##"
    "##"
END
)rc";
} // namespace

TEST(Layout, a_white_rectangle_lies_behind_every_control) {
    useResources(kBackdrop);
    const std::wstring file = testTempDir() + L"\\white.png";
    DialogScript user({L"@shot \"" + file + L"\"", L"@click \"NEVE\"", L"@close"});
    CDialog dialog(500u);
    dialog.DoModal();
    EXPECT_TRUE(user.refusals.empty());
    CBitmap picture;
    ASSERT_TRUE(picture.LoadFile(file.c_str()));
    const CSize size = picture.GetSize();
    const COLORREF white = RGB(255, 255, 255);
    EXPECT_EQ(picture.GetPixel(1, 1), white);
    EXPECT_EQ(picture.GetPixel(size.cx / 4, size.cy / 3), white) << "inside the frame";
    EXPECT_NE(picture.GetPixel(1, size.cy - 2), white);
    bool hasFrame = false;
    for (int y = 2; y < size.cy / 2; ++y)
        hasFrame = hasFrame || picture.GetPixel(size.cx / 4, y) != white;
    EXPECT_TRUE(hasFrame) << "the frame is not hidden";
}

TEST(Layout, a_button_of_a_picture_keeps_its_text_as_a_name) {
    useResources(kBackdrop);
    DialogScript user({L"check", L"@close"});
    CDialog dialog(500u);
    user.look(L"check", [&] {
        auto* button = static_cast<CButton*>(dialog.GetDlgItem(15));
        CBitmap picture;
        ASSERT_TRUE(picture.LoadBitmap(600u));
        button->SetBitmap(&picture);
        CString text;
        button->GetWindowText(text);
        EXPECT_STREQ(text, L"NEVE");
        EXPECT_TRUE(static_cast<QAbstractButton*>(button->window()->widget.data())->text().isEmpty()) << "the name is not shown";
        EXPECT_FALSE(static_cast<QAbstractButton*>(button->window()->widget.data())->icon().isNull());
    });
    dialog.DoModal();
}
