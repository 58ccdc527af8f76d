// The rows of SETTINGS are the drawing's settings, in the order and forms that readers expect.
#include "../app/AppFixture.h"
#include "schema.h"

using namespace exchange;

namespace {
class SettingsRows : public AppFixture {
protected:
    SettingsRows() {
        TrfcDocSettings::setDocString(DOC_SCALE_LIST, L"200/500");
        TrfcDocSettings::setDocDouble(DOC_BASEPOINTD, 0.0035);
        TrfcDocSettings::setDocDouble(DOC_POST_ALPHA0, 45);
        TrfcDocSettings::setDocInt(DOC_POST_DEFAULT_TYPE, 1);
        TrfcDocSettings::setDocString(DOC_POST_DEFAULT_DWG, L"Oszlopok\\őr.dwg");
        TrfcDocSettings::setDocInt(DOC_ANNO_LINE_WEIGHT, -3);
    }
    static std::string all() {
        std::string text;
        for (const std::wstring& statement : settingsStatements())
            text += acToUtf8(statement) + "\n";
        return text;
    }
};
} // namespace

TEST_F(SettingsRows, are_literal_statements_in_a_fixed_order) {
    std::string expected;
    for (const char* row : {"VERSION', '11.0.0", "SCALE_LIST', '200/500", "CURRENT_SCALE', '500", "BASEPOINTD', '0.003500", "POST_ALPHA0', '45.000000",
                            "POST_MIN_AB', '0.000000", "POST_MIN_CD', '0.000000", "POST_OVERLAP_ERR', '0.000000", "POST_DEFAULT_TYPE', '1",
                            "POST_DEFAULT_DWG', 'Oszlopok\\őr.dwg", "POST_ALIEN_DWG', '", "CROSSWALK_DEFAULT_TYPE', '0", "ANNO_MIN_DIST', '0.000000",
                            "ANNO_HEIGHT', '0.002500", "ANNO_COLOR', '0", "ANNO_TYPE', 'Standard", "ANNO_LINE_COLOR', '0", "ANNO_LINE_TYPE', '",
                            "ANNO_LINE_WEIGHT', '-3", "EXISTING_TABLE_D', '0.000000", "PLANNED_TABLE_D', '0.000000", "EXISTING_LAMP_D', '0.000000",
                            "PLANNED_LAMP_D', '0.000000", "BLOCK_DEFAULT_TYPE', '0", "BLOCK_ENT_DEFAULT_TYPE', '0", "USE_OTHER_COLOR_TABLES', '0",
                            "USE_GRAYSCALE_TABLES', '0", "USE_WHITESCALE_TABLES', '0", "AUTO_ORDER_TABLES', '0"})
        expected += std::string("INSERT INTO SETTINGS (NEV,ERTEK) VALUES ('") + row + "')\n";
    EXPECT_EQ(all(), expected);
}

TEST_F(SettingsRows, show_each_key_of_the_drawing_in_its_own_row) {
    // Each key gets a value of its own, so that no two rows can be mixed up.
    const TrfcRealKey reals[] = {DOC_BASEPOINTD, DOC_POST_ALPHA0, DOC_POST_MIN_AB, DOC_POST_MIN_CD, DOC_POST_OVERLAP_ERR, DOC_ANNO_MIN_DIST, DOC_ANNO_HEIGHT,
                                  DOC_EXISTING_TABLE_D, DOC_PLANNED_TABLE_D, DOC_EXISTING_LAMP_D, DOC_PLANNED_LAMP_D};
    const TrfcIntKey integers[] = {DOC_CURRENT_SCALE, DOC_POST_DEFAULT_TYPE, DOC_CROSSWALK_DEFAULT_TYPE, DOC_ANNO_COLOR, DOC_ANNO_LINE_COLOR, DOC_ANNO_LINE_WEIGHT,
                                     DOC_BLOCK_DEFAULT_TYPE, DOC_BLOCK_ENT_DEFAULT_TYPE, DOC_USE_OTHER_COLOR_TABLES, DOC_USE_GRAYSCALE_TABLES,
                                     DOC_USE_WHITESCALE_TABLES, DOC_AUTO_ORDER_TABLES};
    const TrfcTextKey texts[] = {DOC_SCALE_LIST, DOC_POST_DEFAULT_DWG, DOC_POST_ALIEN_DWG, DOC_ANNO_TYPE, DOC_ANNO_LINE_TYPE};
    int value = 100;
    std::vector<std::pair<std::wstring, std::wstring>> wanted; // key without DOC_, value
    for (const TrfcRealKey key : reals) {
        TrfcDocSettings::setDocDouble(key, ++value);
        wanted.emplace_back(key.name + 4, acFormat(L"%d.000000", value));
    }
    for (const TrfcIntKey key : integers) {
        TrfcDocSettings::setDocInt(key, ++value);
        wanted.emplace_back(key.name + 4, acFormat(L"%d", value));
    }
    for (const TrfcTextKey key : texts) {
        TrfcDocSettings::setDocString(key, acFormat(L"t%d", ++value));
        wanted.emplace_back(key.name + 4, acFormat(L"t%d", value));
    }
    const std::string rows = all();
    for (const auto& [name, shown] : wanted)
        EXPECT_NE(rows.find(acToUtf8(L"VALUES ('" + name + L"', '" + shown + L"')")), std::string::npos) << acToUtf8(name);
    EXPECT_EQ(wanted.size() + 1, settingsStatements().size());
}
