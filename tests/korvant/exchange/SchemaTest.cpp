// Names, words and forms of the exchange database as other programs know them.
#include "AcUtText.h"
#include "TestSupport.h"
#include "schema.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace exchange;

namespace {
std::string utf8(const std::wstring& text) { return acToUtf8(text); }
std::string names() {
    std::string all;
    for (const Table& table : tables())
        all += utf8(table.name) + " ";
    return all;
}
std::wstring createText(const std::wstring& name) {
    for (const Table& table : tables())
        if (table.name == name)
            return table.create;
    return {};
}
} // namespace

TEST(ExchangeFiles, only_an_mdb_is_taken_whatever_its_case) {
    EXPECT_TRUE(isMdbPath(L"C:\\tervek\\leltár.mdb"));
    EXPECT_TRUE(isMdbPath(L"x.MdB"));
    EXPECT_TRUE(isMdbPath(L".mdb"));
    for (const wchar_t* path : {L"", L"mdb", L"x.mdbx", L"xmdb", L"x.accdb", L"x.mdb "})
        EXPECT_FALSE(isMdbPath(path));
}

TEST(ExchangeFiles, the_twin_has_the_same_path_with_another_ending) {
    EXPECT_EQ(twinPath(L"C:\\tervek.mdb\\őr.MDB"), L"C:\\tervek.mdb\\őr.xls");
}

TEST(ExchangeTables, stand_in_the_order_in_which_they_are_created) {
    EXPECT_EQ(names(), "SETTINGS KORVANT_OBJ KORVANT_OBJ_SCALE OSZLOP OSZLOP_FELIRAT OSZLOP_ATTRIBUTUM TABLA BLOKK FELIRAT ATTRIBUTUM BLOKK_ATTRIBUTUM "
                       "BLOKK_FELIRAT ZEBRA ZEBRA_ELEMEK ZEBRA_PONTOK GYALOGATKELO GYALOGATKELO_ELEMEK GYALOGATKELO_PONTOK ");
}

TEST(ExchangeTables, are_created_by_texts_joined_of_their_pieces) {
    EXPECT_EQ(createText(L"KORVANT_OBJ"), L"CREATE TABLE KORVANT_OBJ (ID NUMBER, HANDLE TEXT, OBJ_TIP TEXT, AX NUMBER, AY NUMBER, BX NUMBER, BY NUMBER, CX NUMBER, CY NUMBER, "
                                          L"DX NUMBER, DY NUMBER, UTIRANY NUMBER, FORG_KOVET TEXT, KULSO_ID NUMBER, MODOSITVA TEXT, RETEG TEXT, TABLA_SZAM NUMBER, LAMPA_SZAM NUMBER)");
    EXPECT_EQ(createText(L"KORVANT_OBJ_SCALE"), L"CREATE TABLE KORVANT_OBJ_SCALE (ID NUMBER, OBJ_ID NUMBER, AX NUMBER, AY NUMBER, BX NUMBER, BY NUMBER, CX NUMBER, CY NUMBER, "
                                                L"DX NUMBER, DY NUMBER, UTIRANY NUMBER, VECX NUMBER, VECY NUMBER, E0X NUMBER, E0Y NUMBER, E1X NUMBER, E1Y NUMBER, SZOG NUMBER, TORT TEXT, LEPTEK NUMBER)");
    EXPECT_EQ(createText(L"OSZLOP"), L"CREATE TABLE OSZLOP (ID NUMBER, OBJ_ID NUMBER, OSZLOP_SZAM NUMBER, OSZLOPEGYEZES NUMBER, OSZLOPE_SZAM NUMBER, PX NUMBER, PY NUMBER, SZELESSEG NUMBER, "
                                     L"MAGASSAG NUMBER, ELFORG NUMBER, KIHELY_TIP TEXT, ANYAG TEXT, HOSSZ NUMBER, KONYVTAR_TIP1 TEXT, KONYVTAR_TIP2 TEXT)");
    EXPECT_EQ(createText(L"TABLA"), L"CREATE TABLE TABLA (ID NUMBER, OBJ_ID NUMBER, TIPUS TEXT, CSOPORT NUMBER, SORSZAM NUMBER, KIEG_SORSZAM NUMBER, KONYVTAR_TIP1 TEXT, KONYVTAR_TIP2 TEXT, "
                                    L"PX NUMBER, PY NUMBER, ELTOLAS NUMBER, SZELESSEG NUMBER, MAGASSAG NUMBER, ELFORG NUMBER, LEPTEK NUMBER, KIHELY_TIP TEXT)");
    for (const Table& table : tables()) {
        EXPECT_EQ(table.create.rfind(L"CREATE TABLE " + std::wstring(table.name) + L" (", 0), 0u);
        EXPECT_EQ(table.create.back(), L')');
    }
}

TEST(ExchangeTables, versions_8_and_9_have_no_crossings) {
    for (const wchar_t* version : {L"8.0.0", L"8.4.0", L"9.0.0", L"9.9.0"})
        EXPECT_TRUE(isVersionWithoutCrossings(version));
    for (const wchar_t* version : {L"", L"8.5.0", L"9.10.0", L"10.0.0", L"11.0.0", L"9.9"})
        EXPECT_FALSE(isVersionWithoutCrossings(version));
    EXPECT_FALSE(isVersionWithoutCrossings(kVersion));
}

TEST(ExchangeWords, states_go_both_ways_and_an_unknown_word_is_existing) {
    const wchar_t* const words[] = {L"meglévő", L"tervezett", L"megszüntetendő", L"letakart"};
    for (int state = 0; state < 4; ++state) {
        EXPECT_EQ(std::wstring(stateWord(state)), words[state]);
        EXPECT_EQ(stateOfWord(words[state]), state);
    }
    for (const wchar_t* word : {L"", L"Tervezett", L"bontandó", L"tervezett "})
        EXPECT_EQ(stateOfWord(word), 0);
    EXPECT_EQ(std::wstring(stateWord(4)), L"");
    EXPECT_EQ(std::wstring(stateWord(-1)), L"");
}

TEST(ExchangeWords, kinds_of_objects_and_blocks) {
    EXPECT_EQ(std::wstring(kPostWord), L"oszlop");
    EXPECT_EQ(std::wstring(kSignWord), L"tábla");
    EXPECT_EQ(std::wstring(kLampWord), L"lámpa");
    const wchar_t* const words[] = {L"portál", L"nagy benyúlású", L"konzol"};
    for (int type = 0; type < 3; ++type) {
        EXPECT_EQ(std::wstring(pairTypeWord(type)), words[type]);
        EXPECT_EQ(pairTypeOfWord(words[type]), type);
    }
    EXPECT_EQ(pairTypeOfWord(L"oszlop"), -1);
    EXPECT_EQ(std::wstring(pairTypeWord(3)), L"");
}

TEST(ExchangeWords, yes_and_no) {
    EXPECT_EQ(std::wstring(yesNoWord(true)), L"igen");
    EXPECT_EQ(std::wstring(yesNoWord(false)), L"nem");
    EXPECT_TRUE(isYesWord(L"igen"));
    EXPECT_FALSE(isYesWord(L"nem"));
    EXPECT_FALSE(isYesWord(L"Igen"));
    EXPECT_FALSE(isYesWord(L""));
}

TEST(ExchangeWords, alignments_of_texts) {
    const wchar_t* const words[] = {L"left", L"center", L"right", L"align", L"mid", L"fit", L""};
    for (int mode = 0; mode < 7; ++mode)
        EXPECT_EQ(std::wstring(alignmentWord(mode)), words[mode]);
    EXPECT_EQ(std::wstring(alignmentWord(-1)), L"");
}

TEST(ExchangeValues, numbers_have_six_decimals_and_a_point) {
    EXPECT_EQ(utf8(realValue(0)), "0.000000");
    EXPECT_EQ(utf8(realValue(650123.1234567)), "650123.123457");
    EXPECT_EQ(utf8(realValue(-0.0000004)), "-0.000000");
    EXPECT_EQ(utf8(realValue(1e21)), "1000000000000000000000.000000");
    EXPECT_EQ(utf8(integerValue(-2147483647 - 1)), "-2147483648");
}

// A user's locale with a decimal comma, made on the spot.
TEST(ExchangeValues, a_decimal_comma_of_the_users_never_reaches_a_statement) {
    const std::string folder = testTempPath();
    if (std::system(("localedef -i hu_HU -f UTF-8 '" + folder + "/hu_HU.UTF-8' > /dev/null 2>&1").c_str()) != 0)
        GTEST_SKIP() << "skipped: localedef and its sources are not installed";
    ::setenv("LOCPATH", folder.c_str(), 1);
    ASSERT_NE(std::setlocale(LC_ALL, "hu_HU.UTF-8"), nullptr);
    char shown[32];
    std::snprintf(shown, sizeof shown, "%f", 1.5);
    const std::wstring value = realValue(1.5);
    std::setlocale(LC_ALL, "C");
    ::unsetenv("LOCPATH");
    EXPECT_STREQ(shown, "1,500000"); // the locale is in force
    EXPECT_EQ(utf8(value), "1.500000");
}

TEST(ExchangeValues, a_text_is_not_doctored) {
    EXPECT_EQ(utf8(textValue(L"őrző út")), "'őrző út'");
    EXPECT_EQ(utf8(textValue(L"")), "''");
    EXPECT_EQ(utf8(textValue(L"O'Connell")), "'O'Connell'"); // which breaks the statement, as it always has
}

TEST(ExchangeValues, a_handle_is_hexadecimal_without_zeros_before_it) {
    EXPECT_EQ(utf8(handleText(AcDbHandle(0x2F))), "2F");
    EXPECT_EQ(utf8(handleText(AcDbHandle(0xABCDEF012))), "ABCDEF012");
}

TEST(ExchangeValues, a_library_path_is_cut_at_its_last_backslash) {
    const LibraryPath path = LibraryPath::split(L"KRESZ\\tilto táblák\\C-031.dwg");
    EXPECT_EQ(path.folder, L"KRESZ\\tilto táblák");
    EXPECT_EQ(path.file, L"C-031.dwg");
    EXPECT_EQ(path.joined(), L"KRESZ\\tilto táblák\\C-031.dwg");
    EXPECT_EQ(LibraryPath::split(L"C-031.dwg").folder, L"");
    EXPECT_EQ(LibraryPath::split(L"C-031.dwg").file, L"C-031.dwg");
    EXPECT_EQ(LibraryPath::split(L"KRESZ\\").file, L"");
    EXPECT_EQ(LibraryPath::split(L"").file, L"");
}
