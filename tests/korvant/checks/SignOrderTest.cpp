// The sign order check over a drawing.
#include "ChecksFixture.h"

#include "AcPath.h"
#include "checkSignOrder.h"

#include <filesystem>
#include <sstream>

namespace {
class SignOrder : public ChecksFixture {
protected:
    // Runs the check to its end; the handles of the posts that it reports.
    std::vector<std::wstring> faults() {
        DialogUser user;
        mHandles.clear();
        if (!runs(user))
            return {L"broken off"};
        return mHandles;
    }
    bool isReported(const std::vector<std::wstring>& files) {
        const AcDbObjectId id = addPost(files);
        const std::vector<std::wstring> found = faults();
        AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->erase();
        EXPECT_LE(found.size(), 1u);
        return !found.empty() && found[0] == id.handle().text();
    }
    // The saved list is read back: it holds what the window shows and the handles.
    bool runs(DialogUser& user) {
        user.does(L"@ok"); // the box that says that there is nothing
        const bool cameToEnd = checkSignOrder();
        if (AfxIsDialogOpen()) {
            readRows(user);
            EXPECT_EQ(AfxApplyDialogLine(L"@click \"Bezár\""), L"");
            user.nextDialogLine(mUnused); // no box was shown
        }
        return cameToEnd;
    }
    void readRows(DialogUser& user) {
        user.willChooseFile(library.path(L"lista.txt"));
        EXPECT_EQ(AfxApplyDialogLine(L"@click \"Lista mentése\""), L"");
        std::istringstream lines(library.contentOf(L"lista.txt"));
        std::string row;
        std::getline(lines, row);
        while (std::getline(lines, row)) {
            rows.push_back(acFromUtf8(row.substr(0, row.size() - 1)));
            mHandles.push_back(rows.back().substr(rows.back().rfind(L',') + 1));
        }
        library.add(L"lista.txt", "");
        std::filesystem::remove(acFileSystemPath(library.path(L"lista.txt")));
    }
    std::vector<std::wstring> rows;

private:
    std::vector<std::wstring> mHandles;
    std::wstring mUnused;
};
using Texts = std::vector<std::wstring>;
} // namespace

// ---- the rule ------------------------------------------------------------------------------------
TEST_F(SignOrder, plates_whose_names_fall_towards_the_top_are_in_order) {
    EXPECT_FALSE(isReported({L"3\\c.dwg", L"2\\b.dwg", L"1\\a.dwg"}));
    EXPECT_TRUE(isReported({L"2\\b.dwg", L"3\\c.dwg", L"1\\a.dwg"}));
}

TEST_F(SignOrder, a_lamp_between_plates_neither_breaks_the_order_nor_serves_for_comparison) {
    for (const bool ordered : {true, false}) {
        auto mixed = newPost(0);
        mixed->signChain().appendBlockUpward(newTable(ordered ? L"B" : L"A"));
        mixed->signChain().appendBlockUpward(newLamp(L"Z"));
        mixed->signChain().appendBlockUpward(newTable(ordered ? L"A" : L"B"));
        const AcDbObjectId id = resident(std::move(mixed));
        EXPECT_EQ(faults().empty(), ordered);
        AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->erase();
    }
}

TEST_F(SignOrder, two_plates_of_one_file_are_in_order) {
    EXPECT_FALSE(isReported({L"1\\a.dwg", L"1\\a.dwg"}));
}

TEST_F(SignOrder, a_supplementary_plate_above_its_neighbours_in_name_is_no_fault) {
    auto withSupplement = newPost(0);
    TrfcBlockChain& chain = withSupplement->signChain();
    chain.appendBlockUpward(newTable(L"2\\b.dwg"));
    chain.appendBlockUpward(newTable(L"9\\z.dwg"));
    chain.appendBlockUpward(newTable(L"1\\a.dwg"));
    ASSERT_EQ(chain.setComplementary(1, true), Acad::eOk);
    chain.resetComplIndices();
    resident(std::move(withSupplement));
    EXPECT_TRUE(faults().empty());
}

TEST_F(SignOrder, names_compare_by_character_code) {
    EXPECT_TRUE(isReported({L"z.dwg", L"á.dwg"})) << "an accented letter stands behind z";
    EXPECT_FALSE(isReported({L"á.dwg", L"z.dwg"}));
    EXPECT_TRUE(isReported({L"Z.dwg", L"a.dwg"})) << "a small letter stands behind all capitals";
}

TEST_F(SignOrder, the_folder_orders_whole_groups_of_signs) {
    EXPECT_FALSE(isReported({L"2 veszély\\A-01.dwg", L"1 elsőbbség\\Z-99.dwg"}));
    EXPECT_TRUE(isReported({L"1 elsőbbség\\A-01.dwg", L"2 veszély\\Z-99.dwg"}));
}

// ---- the report --------------------------------------------------------------------------------------
TEST_F(SignOrder, each_post_at_fault_is_one_row_with_its_type_and_handle) {
    const AcDbObjectId first = addPost({L"a", L"b", L"c"});
    addPost({L"b", L"a"});
    const AcDbObjectId second = addPost({L"a", L"b"});
    EXPECT_EQ(faults(), (Texts{first.handle().text(), second.handle().text()}));
    EXPECT_EQ(rows[0], L"1,Korvant Oszlop,Helytelen tábla sorrend," + first.handle().text());
    EXPECT_EQ(rows[1], L"2,Korvant Oszlop,Helytelen tábla sorrend," + second.handle().text());
}

TEST_F(SignOrder, without_a_post_the_box_says_that_nothing_was_found) {
    addEntity(new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 1, 0)));
    addMarking(kBlockEntPlanned);
    DialogUser user;
    user.does(L"@ok");
    EXPECT_TRUE(checkSignOrder());
    EXPECT_TRUE(hasLineWith(user.printed(), L"Korvant - Táblasorrend: Nincs táblasorrend hiba!"));
    EXPECT_FALSE(AfxIsDialogOpen());
    EXPECT_EQ(cancelTests, 0);
}

TEST_F(SignOrder, the_tasks_are_told_in_their_order) {
    addPost({L"a", L"b"});
    DialogUser user;
    EXPECT_TRUE(checkSignOrder());
    EXPECT_EQ(user.printed(), L"Korvant - Ellenőrzés állapota: Modelltér analizálása\nKorvant - Ellenőrzés állapota: Tábla sorrend ellenőrzése\n");
    ASSERT_EQ(AfxApplyDialogLine(L"@show"), L"");
    EXPECT_TRUE(hasLineWith(user.printed(), L"Modelltér analizálása | Kész"));
    EXPECT_TRUE(hasLineWith(user.printed(), L"Tábla sorrend ellenőrzése | Kész"));
}

TEST_F(SignOrder, erased_objects_and_objects_in_use_are_passed_by) {
    const AcDbObjectId erased = addPost({L"a", L"b"}), inUse = addPost({L"a", L"b"}), free = addPost({L"a", L"b"});
    AcDbObjectPointer<AcDbEntity>(erased, AcDb::kForWrite)->erase();
    const AcDbObjectPointer<AcDbEntity> user(inUse, AcDb::kForWrite);
    EXPECT_EQ(faults(), Texts{free.handle().text()});
}

TEST_F(SignOrder, the_check_changes_no_object) {
    const AcDbObjectId id = addPost({L"a", L"b"});
    const std::vector<std::wstring> before = filed(*post(id).object());
    EXPECT_EQ(faults().size(), 1u);
    EXPECT_EQ(filed(*post(id).object()), before);
}

TEST_F(SignOrder, without_a_drawing_nothing_is_found) {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_TRUE(faults().empty());
    acdbHostApplicationServices()->setWorkingDatabase(drawing);
}

// ---- cancel ---------------------------------------------------------------------------------------------
TEST_F(SignOrder, a_cancel_at_any_object_keeps_the_rows_found_before_it) {
    for (int i = 0; i < 3; ++i)
        addPost({L"a", L"b"});
    for (int at = 1; at <= 3; ++at) {
        DialogUser user;
        cancelTests = 0;
        cancelsAt = at;
        EXPECT_FALSE(checkSignOrder());
        EXPECT_EQ(cancelTests, at) << "no object behind it is looked at";
        ASSERT_EQ(AfxApplyDialogLine(L"@show"), L"");
        EXPECT_TRUE(hasLineWith(user.printed(), L"Tábla sorrend ellenőrzése | Megszakítva"));
        EXPECT_TRUE(hasLineWith(user.printed(), acFormat(L"271 IDC_REPORT_LIST list %d rows", at - 1)));
        ASSERT_EQ(AfxApplyDialogLine(L"@click \"Bezár\""), L"");
        EXPECT_FALSE(AfxIsDialogOpen());
    }
}

TEST_F(SignOrder, one_cancel_test_is_made_for_each_post) {
    for (int i = 0; i < 4; ++i)
        addPost({L"b", L"a"});
    addMarking(kBlockEntPlanned);
    EXPECT_TRUE(faults().empty());
    EXPECT_EQ(cancelTests, 4);
}
