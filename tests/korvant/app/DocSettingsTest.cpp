// Settings of a drawing: filled from the defaults key by key, and from then on the drawing's own.
#include "AppFixture.h"

#include <cmath>

using namespace TrfcAppSettings;
using namespace TrfcDocSettings;

class DocSettings : public AppFixture {
protected:
    // Runs with the settings dictionary open for write.
    template <class Look> void look(Look see) {
        const AcDbObjectPointer<AcDbDictionary> named(database().namedObjectsDictionaryId(), AcDb::kForRead);
        AcDbDictionary* settings = nullptr;
        ASSERT_EQ(named->getAt(TRFC_DOC_DATA, settings, AcDb::kForWrite), Acad::eOk);
        see(*settings);
        settings->close();
    }
    // What the drawing holds under the key, as "group code value"; items of a chain behind one another.
    std::wstring stored(const ACHAR* key) {
        std::wstring text;
        look([&](AcDbDictionary& settings) {
            AcDbXrecord* record = nullptr;
            ASSERT_EQ(settings.getAt(key, record, AcDb::kForRead), Acad::eOk);
            for (const resbuf* item = record->firstItem(); item != nullptr; item = item->rbnext)
                text += item->restype == 1    ? acFormat(L"[1 %s]", item->resval.rstring)
                        : item->restype == 40 ? acFormat(L"[40 %g]", item->resval.rreal)
                                              : acFormat(L"[%d %d]", item->restype, item->resval.rint);
            record->close();
        });
        return text;
    }
    // The record of a key as another program left it; a null chain leaves a record without items.
    void leave(const ACHAR* key, resbuf* chain) {
        getDocInt(DOC_POST_DEFAULT_TYPE); // the dictionary is there afterwards
        look([&](AcDbDictionary& settings) {
            AcDbObjectId id;
            auto* record = new AcDbXrecord;
            ASSERT_EQ(settings.setAt(key, record, id), Acad::eOk);
            if (chain != nullptr)
                record->setFromRbChain(*chain);
            record->close();
        });
        acutRelRb(chain);
    }
};

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

TEST_F(DocSettings, each_kind_of_setting_is_one_item_of_its_group_code) {
    setDocInt(DOC_CURRENT_SCALE, 200);
    setDocDouble(DOC_POST_MIN_AB, 0.01);
    setDocString(DOC_ANNO_TYPE, L"Romans");
    EXPECT_EQ(stored(DOC_CURRENT_SCALE), L"[70 200]");
    EXPECT_EQ(stored(DOC_POST_MIN_AB), L"[40 0.01]");
    EXPECT_EQ(stored(DOC_ANNO_TYPE), L"[1 Romans]");
}

TEST_F(DocSettings, a_first_read_leaves_the_value_of_the_defaults_in_the_drawing) {
    getDocInt(DOC_CURRENT_SCALE);
    getDocDouble(DOC_ANNO_HEIGHT);
    getDocString(DOC_ANNO_TYPE);
    getDocString(DOC_POST_DEFAULT_DWG);
    EXPECT_EQ(stored(DOC_CURRENT_SCALE), L"[70 500]");
    EXPECT_EQ(stored(DOC_ANNO_HEIGHT), L"[40 0.0025]");
    EXPECT_EQ(stored(DOC_ANNO_TYPE), L"[1 Standard]");
    EXPECT_EQ(stored(DOC_POST_DEFAULT_DWG), L"[1 ]");
}

TEST_F(DocSettings, keys_appear_one_at_a_time) {
    getDocDoubleIn(DOC_ANNO_HEIGHT, L"mm");
    look([](AcDbDictionary& settings) { EXPECT_EQ(settings.numEntries(), 1u); });
    getDocDoubleIn(DOC_ANNO_HEIGHT, L"wcs"); // reads the scale too
    look([](AcDbDictionary& settings) { EXPECT_EQ(settings.numEntries(), 2u); });
}

TEST_F(DocSettings, a_value_set_again_replaces_the_item_whatever_it_was) {
    leave(DOC_ANNO_COLOR, acutBuildList(1, L"piros", 0));
    setDocInt(DOC_ANNO_COLOR, 3);
    EXPECT_EQ(stored(DOC_ANNO_COLOR), L"[70 3]");
}

TEST_F(DocSettings, a_first_read_of_a_default_beyond_16_bits_agrees_with_later_ones) {
    setDocDefault(DOC_ANNO_COLOR, L"70000");
    const Adesk::Int32 first = getDocInt(DOC_ANNO_COLOR);
    EXPECT_EQ(first, 70000 - 65536);
    EXPECT_EQ(getDocInt(DOC_ANNO_COLOR), first);
}

TEST_F(DocSettings, a_value_under_another_group_code_of_its_kind_is_read_as_if_it_had_the_right_one) {
    leave(DOC_ANNO_COLOR, acutBuildList(71, 5, 0));
    leave(DOC_POST_MIN_AB, acutBuildList(41, 0.25, 0));
    leave(DOC_ANNO_TYPE, acutBuildList(300, L"Romans", 0));
    EXPECT_EQ(getDocInt(DOC_ANNO_COLOR), 5);
    EXPECT_DOUBLE_EQ(getDocDouble(DOC_POST_MIN_AB), 0.25);
    EXPECT_EQ(getDocString(DOC_ANNO_TYPE), L"Romans");
}

TEST_F(DocSettings, a_text_setting_under_which_no_text_lies_reads_empty) {
    leave(DOC_ANNO_TYPE, acutBuildList(40, 2.5, 0));
    leave(DOC_ANNO_LINE_TYPE, acutBuildList(70, 7, 0));
    leave(DOC_POST_DEFAULT_DWG, nullptr);
    EXPECT_EQ(getDocString(DOC_ANNO_TYPE), L"");
    EXPECT_EQ(getDocString(DOC_ANNO_LINE_TYPE), L"");
    EXPECT_EQ(getDocString(DOC_POST_DEFAULT_DWG), L"");
}

TEST_F(DocSettings, reading_a_setting_makes_no_drawing_one_that_has_to_be_saved) {
    database().markSaved();
    getDocDouble(DOC_ANNO_HEIGHT);
    getDocInt(DOC_CURRENT_SCALE);
    getDocString(DOC_ANNO_TYPE);
    EXPECT_TRUE(hasDictionary(TRFC_DOC_DATA));
    EXPECT_FALSE(database().hasChangedSinceSave());
    setDocDouble(DOC_ANNO_HEIGHT, 0.005);
    EXPECT_TRUE(database().hasChangedSinceSave());
    getDocInt(DOC_POST_DEFAULT_TYPE);
    EXPECT_TRUE(database().hasChangedSinceSave()); // what the user changed before is not forgotten
}
