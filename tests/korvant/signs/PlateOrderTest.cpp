// The rules by which a plate finds its place, without a window.
#include "SignsFixture.h"

#include "plateOrder.h"

namespace {
class PlateOrder : public SignsFixture {
protected:
    PlateOrder() {
        set(DOC_AUTO_ORDER_TABLES, L"1");
        TrfcAppSettings::setAppString(APP_TABLES_COMPL_DIR, L"4 kiegészítő");
    }
    int add(const std::wstring& file) { return addPlate(chain, std::make_unique<TrfcTable>(plate(file)), file); }
    TrfcBlockChain chain{AcGePoint3d(), 0.0, kSignChain};
};
} // namespace

TEST_F(PlateOrder, the_greatest_file_name_goes_lowest) {
    EXPECT_EQ(add(L"2\\B.dwg"), 0);
    EXPECT_EQ(add(L"1\\A.dwg"), 1);
    EXPECT_EQ(add(L"3\\C.dwg"), 0);
    EXPECT_EQ(upFiles(chain), (std::vector<std::wstring>{L"3\\C.dwg", L"2\\B.dwg", L"1\\A.dwg"}));
    expectLaidWithoutGap(chain);
}

TEST_F(PlateOrder, without_automatic_order_a_plate_stays_on_top) {
    set(DOC_AUTO_ORDER_TABLES, L"0");
    add(L"1\\A.dwg");
    EXPECT_EQ(add(L"3\\C.dwg"), 1);
    EXPECT_EQ(upFiles(chain), (std::vector<std::wstring>{L"1\\A.dwg", L"3\\C.dwg"}));
}

TEST_F(PlateOrder, a_plate_of_the_supplementary_folder_points_to_the_main_sign_above_it) {
    add(L"1\\A.dwg");
    EXPECT_EQ(add(L"4 kiegészítő\\100 m.dwg"), 0);
    EXPECT_EQ(upComplIndices(chain), (std::vector<int>{1, -1}));
}

TEST_F(PlateOrder, a_supplementary_plate_that_came_first_waits_for_its_main_sign) {
    add(L"4 kiegészítő\\100 m.dwg");
    EXPECT_EQ(upComplIndices(chain), (std::vector<int>{0}));
    EXPECT_EQ(add(L"1\\A.dwg"), 1);
    EXPECT_EQ(upComplIndices(chain), (std::vector<int>{1, -1}));
}

TEST_F(PlateOrder, without_the_name_of_the_folder_no_plate_is_supplementary) {
    TrfcAppSettings::setAppString(APP_TABLES_COMPL_DIR, L"");
    add(L"1\\A.dwg");
    add(L"4 kiegészítő\\100 m.dwg");
    EXPECT_EQ(upComplIndices(chain), (std::vector<int>{-1, -1}));
}
