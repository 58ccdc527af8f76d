// Settings of a drawing: filled from the defaults key by key, and from then on the drawing's own.
#include "AppFixture.h"

#include <cmath>

using namespace TrfcAppSettings;
using namespace TrfcDocSettings;

class DocSettings : public AppFixture {};

TEST_F(DocSettings, a_drawing_gains_the_dictionary_at_the_first_read_with_the_value_of_the_defaults) {
    ASSERT_FALSE(hasDictionary(TRFC_DOC_DATA));
    EXPECT_DOUBLE_EQ(getDocDouble(DOC_ANNO_HEIGHT), 0.0025);
    EXPECT_TRUE(hasDictionary(TRFC_DOC_DATA));
}

TEST_F(DocSettings, a_later_read_no_longer_consults_the_defaults) {
    EXPECT_DOUBLE_EQ(getDocDouble(DOC_ANNO_HEIGHT), 0.0025);
    setDocDefault(DOC_ANNO_HEIGHT, L"0.005");
    EXPECT_DOUBLE_EQ(getDocDouble(DOC_ANNO_HEIGHT), 0.0025);
}

TEST_F(DocSettings, a_changed_value_is_seen_at_the_next_read) {
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 500);
    setDocInt(DOC_CURRENT_SCALE, 1000);
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 1000);
    EXPECT_DOUBLE_EQ(getDocDoubleIn(DOC_ANNO_HEIGHT, L"wcs"), 2.5);
}

TEST_F(DocSettings, an_absent_default_reads_as_nothing) {
    EXPECT_DOUBLE_EQ(getDocDouble(DOC_POST_MIN_AB), 0.0);
    EXPECT_EQ(getDocInt(DOC_POST_DEFAULT_TYPE), 0);
    EXPECT_EQ(getDocString(DOC_POST_DEFAULT_DWG), L"");
}

TEST_F(DocSettings, an_integer_is_stored_in_16_bits) {
    setDocInt(DOC_CURRENT_SCALE, 32767);
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 32767);
    setDocInt(DOC_CURRENT_SCALE, 40000);
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 40000 - 65536);
}

TEST_F(DocSettings, an_empty_text_is_stored_and_read_back_empty) {
    setDocDefault(DOC_POST_DEFAULT_DWG, L"x.dwg");
    setDocString(DOC_POST_DEFAULT_DWG, L"");
    EXPECT_EQ(getDocString(DOC_POST_DEFAULT_DWG), L"");
}

TEST_F(DocSettings, lengths_convert_to_drawing_units_and_millimetres_and_back) {
    EXPECT_DOUBLE_EQ(toUnits(0.0025, L"wcs"), 1.25);
    EXPECT_DOUBLE_EQ(toUnits(0.0025, L"WCS"), 1.25);
    EXPECT_DOUBLE_EQ(toUnits(0.0025, L"mm"), 2.5);
    EXPECT_DOUBLE_EQ(toUnits(0.0025, L"MM"), 2.5);
    EXPECT_DOUBLE_EQ(fromUnits(1.25, L"wcs"), 0.0025);
    EXPECT_DOUBLE_EQ(fromUnits(2.5, L"mm"), 0.0025);
}

TEST_F(DocSettings, an_unknown_unit_leaves_the_value_as_it_is) {
    EXPECT_DOUBLE_EQ(toUnits(0.5, L"m"), 0.5);
    EXPECT_DOUBLE_EQ(fromUnits(0.5, L"Wcs"), 0.5);
}

TEST_F(DocSettings, a_current_scale_of_0_gives_a_value_that_is_not_finite) {
    setDocInt(DOC_CURRENT_SCALE, 0);
    EXPECT_FALSE(std::isfinite(fromUnits(1.0, L"wcs")));
}

TEST_F(DocSettings, each_drawing_keeps_its_own_values) {
    setDocInt(DOC_CURRENT_SCALE, 200);
    AcDbDatabase other;
    AcDbDatabase* first = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(&other);
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 500);
    acdbHostApplicationServices()->setWorkingDatabase(first);
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 200);
}

TEST_F(DocSettings, without_a_drawing_every_setting_reads_as_nothing) {
    AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 0);
    EXPECT_DOUBLE_EQ(getDocDouble(DOC_ANNO_HEIGHT), 0.0);
    EXPECT_EQ(getDocString(DOC_ANNO_TYPE), L"");
    setDocInt(DOC_CURRENT_SCALE, 200);
    acdbHostApplicationServices()->setWorkingDatabase(drawing);
    EXPECT_EQ(getDocInt(DOC_CURRENT_SCALE), 500);
}
