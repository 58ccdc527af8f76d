// The report list of the progress windows: rows, the object of a selected row, the saved list.
#include "ProgressWindows.h"

#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcPath.h"
#include "TestSupport.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {
class ProgressReport : public ProgressWindow {
protected:
    ProgressReport() { acdbHostApplicationServices()->setWorkingDatabase(&drawing); }
    ~ProgressReport() override {
        AfxCancelAllDialogs();
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    AcDbObjectId add(AcDbEntity* entity) {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.modelSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }
    AcDbObjectId addLine() { return add(new AcDbLine(AcGePoint3d(1, 2, 0), AcGePoint3d(3, 4, 0))); }
    static bool isHighlighted(AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        return entity->isHighlighted();
    }
    std::string savedText() const {
        std::ifstream file(acFileSystemPath(path), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
    void save(const std::wstring& answer) {
        user.willChooseFile(answer);
        line(L"@click \"Lista mentése\"");
    }
    AcDbDatabase drawing;
    std::wstring folder = testTempDir(), path = folder + L"\\lista.txt";
};
constexpr const char* kHead = "\xEF\xBB\xBFSorszám,Korvant objektum,Leírás,ID\r\n";
} // namespace

TEST_F(ProgressReport, rows_are_appended_as_they_come) {
    auto& window = open<CTaskProgressReportDialog>();
    EXPECT_EQ(window.reports().GetItemCount(), 0);
    window.addReport(L"Korvant Oszlop", L"első hiba", L"2F");
    window.addReport(L"Korvant Blokk", L"második hiba", L"30");
    ASSERT_EQ(window.reports().GetItemCount(), 2);
    EXPECT_EQ(window.report(0), L"Korvant Oszlop|első hiba");
    EXPECT_EQ(window.report(1), L"Korvant Blokk|második hiba");
}

TEST_F(ProgressReport, rows_that_come_before_the_window_stand_in_it) {
    auto* window = new Probe<CTaskProgressReportDialog>;
    window->addReport(L"Korvant Oszlop", L"hiba", L"2F");
    ASSERT_TRUE(window->create(nullptr));
    EXPECT_EQ(window->report(0), L"Korvant Oszlop|hiba");
    window->DestroyWindow();
}

TEST_F(ProgressReport, a_row_without_an_object_names_the_file_and_shows_nothing) {
    const AcDbObjectId object = addLine();
    auto& window = open<CTaskProgressReportDialog>();
    // Its name would read as the handle of the object.
    static_cast<TrfcTaskReport&>(window).addReport(L"$$$", L"Blokk definíció nem található", object.handle().text());
    EXPECT_EQ(window.report(0), object.handle().text() + L"|Blokk definíció nem található");
    line(L"@select 271 0");
    EXPECT_FALSE(isHighlighted(object));
    save(path);
    EXPECT_EQ(savedText(), kHead + std::string("1,") + acToUtf8(object.handle().text()) + ",Blokk definíció nem található,\r\n");
}

// ---- the object of a row --------------------------------------------------------------------------
TEST_F(ProgressReport, a_selected_row_highlights_its_object) {
    const AcDbObjectId first = addLine(), second = addLine();
    auto& window = open<CCheckProgressDialog>();
    window.addReport(L"vonal", L"egy", first.handle().text());
    window.addReport(L"vonal", L"kettő", second.handle().text());
    EXPECT_TRUE(window.IsDlgButtonChecked(IDC_SHOW_SELECTED));
    line(L"@select 271 0");
    EXPECT_TRUE(isHighlighted(first));
    line(L"@select 271 1");
    EXPECT_FALSE(isHighlighted(first)) << "the earlier one is let go";
    EXPECT_TRUE(isHighlighted(second));
    window.finish();
    line(L"@click \"Bezár\"");
    EXPECT_FALSE(isHighlighted(second));
}

TEST_F(ProgressReport, without_its_tick_a_selection_shows_nothing) {
    const AcDbObjectId object = addLine();
    auto& window = open<CTaskProgressReportDialog>();
    window.addReport(L"vonal", L"egy", object.handle().text());
    line(L"@check \"Kiválasztott objektum automatikus megmutatása\" off");
    line(L"@select 271 0");
    EXPECT_FALSE(isHighlighted(object));
}

TEST_F(ProgressReport, an_object_that_was_erased_shows_nothing) {
    const AcDbObjectId object = addLine();
    auto& window = open<CTaskProgressReportDialog>();
    window.addReport(L"vonal", L"egy", object.handle().text());
    AcDbObjectPointer<AcDbEntity>(object, AcDb::kForWrite)->erase();
    line(L"@select 271 0");
    EXPECT_EQ(user.printed(), L"");
}

TEST_F(ProgressReport, junk_in_place_of_a_handle_shows_nothing) {
    auto& window = open<CTaskProgressReportDialog>();
    for (const wchar_t* id : {L"", L"FFFFFF", L"nem szám", L"-1"})
        window.addReport(L"vonal", L"egy", id);
    for (const wchar_t* row : {L"0", L"1", L"2", L"3"})
        line(std::wstring(L"@select 271 ") + row);
    EXPECT_EQ(user.printed(), L"");
}

TEST_F(ProgressReport, a_drawing_that_went_before_the_window_shows_nothing) {
    const AcDbObjectId object = addLine();
    auto& window = open<CTaskProgressReportDialog>();
    window.addReport(L"vonal", L"egy", object.handle().text());
    window.addReport(L"vonal", L"kettő", object.handle().text());
    line(L"@select 271 0");
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    line(L"@select 271 1");
    window.finish();
    line(L"@click \"Bezár\"");
    acdbHostApplicationServices()->setWorkingDatabase(&drawing);
}

TEST_F(ProgressReport, an_object_without_an_extent_is_told_in_a_box) {
    const AcDbObjectId object = add(new AcDbBlockReference); // of no block
    auto& window = open<CTaskProgressReportDialog>();
    window.addReport(L"blokk", L"egy", object.handle().text());
    user.does(L"@ok");
    line(L"@select 271 0");
    EXPECT_TRUE(isHighlighted(object));
    EXPECT_NE(user.printed().find(L"ERROR (acdbOpenObject): "), std::wstring::npos);
}

// ---- the saved list ---------------------------------------------------------------------------------
TEST_F(ProgressReport, the_list_is_saved_with_its_mark_its_head_and_numbered_rows) {
    auto& window = open<CCheckProgressDialog>();
    window.addReport(L"Korvant Oszlop", L"Helytelen tábla sorrend", L"2F");
    window.addReport(L"Korvant Oszlop", L"őű", L"A30");
    save(path);
    EXPECT_EQ(savedText(), std::string(kHead) + "1,Korvant Oszlop,Helytelen tábla sorrend,2F\r\n2,Korvant Oszlop,őű,A30\r\n");
}

TEST_F(ProgressReport, a_comma_in_a_value_stays_as_it_is) {
    auto& window = open<CTaskProgressReportDialog>();
    window.addReport(L"a,b", L"\"c\", d", L"2F");
    save(path);
    EXPECT_EQ(savedText(), std::string(kHead) + "1,a,b,\"c\", d,2F\r\n");
}

TEST_F(ProgressReport, an_empty_list_is_saved_with_its_head_alone) {
    open<CTaskProgressReportDialog>();
    save(path);
    EXPECT_EQ(savedText(), kHead);
}

TEST_F(ProgressReport, a_name_without_an_ending_gets_one) {
    open<CTaskProgressReportDialog>();
    save(folder + L"\\lista");
    EXPECT_EQ(savedText(), kHead);
}

TEST_F(ProgressReport, a_file_that_stands_is_replaced_only_when_the_user_agrees) {
    auto& window = open<CTaskProgressReportDialog>();
    save(path);
    window.addReport(L"a", L"b", L"c");
    user.does(L"@click \"Nem\"");
    save(path);
    EXPECT_EQ(savedText(), kHead);
    user.does(L"@click \"Igen\"");
    save(path);
    EXPECT_EQ(savedText(), std::string(kHead) + "1,a,b,c\r\n");
}

TEST_F(ProgressReport, giving_up_the_name_writes_nothing) {
    open<CTaskProgressReportDialog>();
    save(L"");
    EXPECT_TRUE(std::filesystem::is_empty(acFileSystemPath(folder)));
}

TEST_F(ProgressReport, a_path_that_cannot_be_written_changes_nothing_and_says_nothing) {
    auto& window = open<CTaskProgressReportDialog>();
    window.addReport(L"a", L"b", L"c");
    save(folder + L"\\absent\\lista.txt");
    EXPECT_EQ(user.printed(), L"");
    EXPECT_TRUE(std::filesystem::is_empty(acFileSystemPath(folder)));
    EXPECT_EQ(window.report(0), L"a|b");
}

// ---- the check's own end ------------------------------------------------------------------------------
TEST_F(ProgressReport, the_check_with_rows_stays_open_at_its_end) {
    auto& window = open<CCheckProgressDialog>();
    window.setCurrentTask(2);
    window.addReport(L"Korvant Oszlop", L"Helytelen tábla sorrend", L"2F");
    window.finish();
    EXPECT_EQ(gWindowsAlive, 1);
    EXPECT_EQ(window.textOf(IDCANCEL), L"Bezár");
    EXPECT_EQ(window.report(0), L"Korvant Oszlop|Helytelen tábla sorrend");
}

TEST_F(ProgressReport, the_check_without_rows_closes_and_says_so) {
    auto& window = open<CCheckProgressDialog>();
    user.sees([] { EXPECT_EQ(gWindowsAlive, 0) << "the window has gone when the box opens"; }).does(L"@show").does(L"@ok");
    window.finish();
    EXPECT_EQ(gWindowsAlive, 0);
    EXPECT_TRUE(hasLineWith(user.printed(), L"Korvant - Táblasorrend: Nincs táblasorrend hiba!"));
}

TEST_F(ProgressReport, a_check_that_was_broken_off_stays_open_without_rows) {
    auto& window = open<CCheckProgressDialog>();
    window.setCurrentTask(1);
    window.abort();
    EXPECT_EQ(gWindowsAlive, 1);
    EXPECT_EQ(window.task(1), L"2|második|Megszakítva");
}

TEST_F(ProgressReport, an_import_without_rows_stays_open_at_its_end) {
    auto& window = open<CTaskProgressReportDialog>();
    window.finish();
    EXPECT_EQ(gWindowsAlive, 1);
}
