// The windows that compare an earlier scale list with the drawing's annotation scales.
#include "CEditScaleDialog.h"
#include "CScaleComparisonDialog.h"

#include "AcDbAnnotationScale.h"
#include "AfxApp.h"
#include "DialogUser.h"
#include "Resource.h"
#include "WindowLook.h"

#include <gtest/gtest.h>

#include <limits>

namespace {
ScaleComparisonItem item(const wchar_t* scaleText, const wchar_t* name, double paper, double drawing, const wchar_t* source = kScaleOfList, bool current = false) {
    ScaleComparisonItem made;
    made.matchesCurrent = current;
    made.scaleText = scaleText;
    made.name = name;
    made.paperUnits = paper;
    made.drawingUnits = drawing;
    made.source = source;
    return made;
}

class ScaleWindows : public testing::Test {
protected:
    ScaleWindows() { acdbHostApplicationServices()->setWorkingDatabase(&drawing); }
    ~ScaleWindows() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

    AcDbObjectContextCollection& scales() { return *drawing.objectContextManager()->contextCollection(acdbAnnotationScaleCollectionName); }
    std::unique_ptr<AcDbAnnotationScale> scaleNamed(const wchar_t* name) {
        return std::unique_ptr<AcDbAnnotationScale>(AcDbAnnotationScale::cast(scales().getContext(name)));
    }
    int scaleCount() {
        int count = 0;
        const std::unique_ptr<AcDbObjectContextCollectionIterator> iterator(scales().newIterator());
        for (iterator->start(); !iterator->done(); iterator->next())
            ++count;
        return count;
    }
    // Opens the comparison of the items; the user's steps are given before.
    INT_PTR compare(std::vector<ScaleComparisonItem> items) {
        CScaleComparisonDialog dialog(std::move(items));
        return dialog.DoModal();
    }
    CListCtrl& list() { return static_cast<CListCtrl&>(*topWindow()->GetDlgItem(IDC_SCALE_LIST)); }
    static std::wstring titleOfTop() {
        CString title;
        topWindow()->GetWindowText(title);
        return title.text();
    }
    static std::wstring fieldOfTop(int id) {
        CString text;
        topWindow()->GetDlgItemText(id, text);
        return text.text();
    }
    std::vector<ScaleComparisonItem> threeItems() {
        return {item(L"1 : 500", L"1:500", 1.0, 0.5, kScaleOfDrawing, true), item(L"1 : 200", L"1:200", 1.0, 0.2, kScaleOfDrawing),
                item(L"1 : 300", L"KV 1 : 300", 3.0, 1.0)};
    }

    DialogUser user;
    AcDbDatabase drawing;
};
} // namespace

TEST_F(ScaleWindows, the_comparison_has_its_title_and_its_six_columns_with_their_widths) {
    user.sees([&] {
        EXPECT_EQ(titleOfTop(), L"Korvant - Lépték kezelés");
        const std::pair<const wchar_t*, int> columns[] = {{L"Aktív", 45}, {L"Korvant lépték", 110}, {L"ACAD lépték", 110}, {L"Papír", 60}, {L"Rajz", 60}, {L"Állapot", 80}};
        ASSERT_EQ(list().GetColumnCount(), 6);
        for (int column = 0; column < 6; ++column) {
            EXPECT_EQ(list().columnTitle(column).text(), columns[column].first);
            EXPECT_EQ(list().GetColumnWidth(column), columns[column].second);
        }
        EXPECT_NE(list().GetExtendedStyle() & LVS_EX_FULLROWSELECT, 0u);
        ASSERT_NE(list().GetImageList(LVSIL_SMALL), nullptr);
        EXPECT_EQ(list().GetImageList(LVSIL_SMALL)->GetImageCount(), 2);
        EXPECT_EQ(list().GetImageList(LVSIL_SMALL)->GetIconSize(), CSize(16, 16));
    });
    user.does(L"@ok");
    EXPECT_EQ(compare(threeItems()), IDOK);
}

TEST_F(ScaleWindows, a_row_holds_both_scales_the_units_without_trailing_zeros_and_the_source) {
    user.sees([&] {
        ASSERT_EQ(list().GetItemCount(), 3);
        const wchar_t* const expected[3][6] = {{L"", L"1 : 500", L"1:500", L"1", L"0.5", L"beépített"},
                                               {L"", L"1 : 200", L"1:200", L"1", L"0.2", L"beépített"},
                                               {L"", L"1 : 300", L"KV 1 : 300", L"3", L"1", L"Korvant"}};
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 6; ++column)
                EXPECT_EQ(list().GetItemText(row, column).text(), expected[row][column]) << row << ", " << column;
    });
    user.does(L"@cancel");
    compare(threeItems());
}

TEST_F(ScaleWindows, the_current_scale_alone_has_the_picture_of_an_active_one) {
    CBitmap active, inactive;
    ASSERT_TRUE(active.LoadBitmap(IDB_SCALE_ACTIVE));
    ASSERT_TRUE(inactive.LoadBitmap(IDB_SCALE_INACTIVE));
    EXPECT_EQ(active.GetSize(), CSize(16, 16));
    EXPECT_EQ(inactive.GetSize(), CSize(16, 16));
    const COLORREF green = active.GetPixel(4, 4);
    user.sees([&] {
        AfxPumpMessages();
        EXPECT_GT(countPixels(list(), green), 30) << "one active row";
        EXPECT_LT(countPixels(list(), green), 100);
        CRect row, cell;
        list().GetItemRect(0, row);
        EXPECT_LT(row.Height(), 24) << "a row is no higher than its picture";
        list().GetSubItemRect(0, 0, LVIR_BOUNDS, cell);
        EXPECT_EQ(pixelOf(list(), {cell.left + cell.Width() / 2 - 4, cell.top + cell.Height() / 2 - 4}), green) << "the picture stands in the middle";
    });
    user.does(L"@cancel");
    compare(threeItems());
}

TEST_F(ScaleWindows, a_scale_of_the_drawing_does_not_open_the_editor) {
    user.does(L"@select 410 0").sees([&] { EXPECT_EQ(titleOfTop(), L"Korvant - Lépték kezelés"); }).does(L"@select 410 1");
    user.sees([&] { EXPECT_EQ(titleOfTop(), L"Korvant - Lépték kezelés"); }).does(L"@cancel");
    compare(threeItems());
}

TEST_F(ScaleWindows, a_new_scale_opens_the_editor_when_its_row_is_selected) {
    user.does(L"@select 410 2").sees([&] {
        EXPECT_EQ(titleOfTop(), L"Korvant - Léptékszerkesztő");
        EXPECT_EQ(fieldOfTop(IDC_SCALE_NAME), L"KV 1 : 300");
        EXPECT_EQ(fieldOfTop(IDC_SCALE_PAPER), L"3");
        EXPECT_EQ(fieldOfTop(IDC_SCALE_DRAWING), L"1");
    });
    user.does(L"@set 411 \"1:300\"").does(L"@set 412 \"1\"").does(L"@set 413 \"0.3\"").does(L"@ok").sees([&] {
        EXPECT_EQ(titleOfTop(), L"Korvant - Lépték kezelés");
        EXPECT_EQ(list().GetItemText(2, 1).text(), L"1 : 300") << "the list's own scale stays";
        EXPECT_EQ(list().GetItemText(2, 2).text(), L"1:300");
        EXPECT_EQ(list().GetItemText(2, 3).text(), L"1");
        EXPECT_EQ(list().GetItemText(2, 4).text(), L"0.3");
    });
    user.does(L"@ok");
    EXPECT_EQ(compare(threeItems()), IDOK);
    const auto added = scaleNamed(L"1:300");
    ASSERT_NE(added, nullptr);
    double drawn = 0.0;
    added->getDrawingUnits(drawn);
    EXPECT_DOUBLE_EQ(drawn, 0.3);
}

TEST_F(ScaleWindows, a_cancelled_editor_changes_nothing) {
    user.does(L"@select 410 2").does(L"@set 411 \"más\"").does(L"@set 412 \"7\"").does(L"@cancel");
    user.sees([&] {
        EXPECT_EQ(list().GetItemText(2, 2).text(), L"KV 1 : 300");
        EXPECT_EQ(list().GetItemText(2, 3).text(), L"3");
    });
    user.does(L"@cancel");
    compare(threeItems());
}

TEST_F(ScaleWindows, the_editor_takes_a_comma_for_a_point_and_reads_junk_as_zero) {
    CEditScaleDialog editor(item(L"1 : 300", L"KV 1 : 300", 3.0, 1.0));
    user.does(L"@set 412 \"0,5\"").does(L"@set 413 \"sok\"").does(L"@ok");
    EXPECT_EQ(editor.DoModal(), IDOK);
    EXPECT_DOUBLE_EQ(editor.item().paperUnits, 0.5);
    EXPECT_DOUBLE_EQ(editor.item().drawingUnits, 0.0);
}

TEST_F(ScaleWindows, the_editor_shows_numbers_without_trailing_zeros) {
    CEditScaleDialog editor(item(L"", L"x", 0.5, 1200.0));
    user.sees([&] {
        EXPECT_EQ(fieldOfTop(IDC_SCALE_PAPER), L"0.5");
        EXPECT_EQ(fieldOfTop(IDC_SCALE_DRAWING), L"1200");
    });
    user.does(L"@cancel");
    EXPECT_EQ(editor.DoModal(), IDCANCEL);
}

TEST_F(ScaleWindows, help_of_both_windows_opens_the_page_of_scales) {
    user.does(L"@click \"Súgó\"").sees([&] { EXPECT_TRUE(hasLineWith(user.printed(), L"Súgó: Settings_Scale.html")); });
    user.does(L"@select 410 2").does(L"@click \"Súgó\"").does(L"@cancel").does(L"@cancel");
    compare(threeItems());
    const std::size_t first = user.printed().find(L"Settings_Scale.html");
    ASSERT_NE(first, std::wstring::npos);
    EXPECT_NE(user.printed().find(L"Settings_Scale.html", first + 1), std::wstring::npos);
}

// ---- what OK puts into the drawing
TEST_F(ScaleWindows, ok_adds_the_new_scales_and_leaves_those_of_the_drawing) {
    const int before = scaleCount();
    user.does(L"@ok");
    EXPECT_EQ(compare(threeItems()), IDOK);
    EXPECT_EQ(scaleCount(), before + 1);
    const auto added = scaleNamed(L"KV 1 : 300");
    ASSERT_NE(added, nullptr);
    double paper = 0.0, drawn = 0.0;
    added->getPaperUnits(paper);
    added->getDrawingUnits(drawn);
    EXPECT_DOUBLE_EQ(paper, 3.0);
    EXPECT_DOUBLE_EQ(drawn, 1.0);
}

TEST_F(ScaleWindows, cancel_adds_nothing) {
    const int before = scaleCount();
    user.does(L"@cancel");
    EXPECT_EQ(compare(threeItems()), IDCANCEL);
    EXPECT_EQ(scaleCount(), before);
}

TEST_F(ScaleWindows, a_name_that_the_drawing_has_already_is_skipped_without_a_message) {
    const int before = scaleCount();
    user.does(L"@ok");
    EXPECT_EQ(compare({item(L"1 : 500", L"1:500", 7.0, 7.0)}), IDOK);
    EXPECT_EQ(scaleCount(), before);
    double paper = 0.0;
    scaleNamed(L"1:500")->getPaperUnits(paper);
    EXPECT_DOUBLE_EQ(paper, 1.0);
    EXPECT_TRUE(user.printed().empty());
}

TEST_F(ScaleWindows, a_scale_without_a_name_or_with_a_length_of_nothing_is_lost_without_a_message) {
    const int before = scaleCount();
    user.does(L"@ok");
    EXPECT_EQ(compare({item(L"1 : 0", L"KV 1 : 0", 0.0, 1.0), item(L"1 : -5", L"KV 1 : -5", -200.0, 1.0), item(L"1 : 9", L"", 1.0, 9.0),
                       item(L"1 : 8", L"KV 1 : 8", 1.0, std::numeric_limits<double>::infinity())}),
              IDOK);
    EXPECT_EQ(scaleCount(), before);
    EXPECT_TRUE(user.printed().empty());
}

TEST_F(ScaleWindows, of_two_rows_of_one_name_the_first_enters_the_drawing) {
    user.does(L"@ok");
    compare({item(L"1 : 300", L"egy", 3.0, 1.0), item(L"1 : 400", L"egy", 2.0, 1.0)});
    double paper = 0.0;
    scaleNamed(L"egy")->getPaperUnits(paper);
    EXPECT_DOUBLE_EQ(paper, 3.0);
}

TEST_F(ScaleWindows, without_a_drawing_ok_just_ends) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    user.does(L"@ok");
    EXPECT_EQ(compare(threeItems()), IDOK);
}

// ---- what they look like
TEST_F(ScaleWindows, nothing_is_cut_off_overlaid_or_in_another_language) {
    user.sees([] { lookAt(*topWindow(), "364-scale-comparison"); });
    user.does(L"@select 410 2").sees([] { lookAt(*topWindow(), "366-edit-scale"); }).does(L"@cancel").does(L"@cancel");
    std::vector<ScaleComparisonItem> items = threeItems();
    items.push_back(item(L"1 : 32000", L"KV 1 : 32000", 1.0, 32.0));
    compare(items);
}
