// The bytes that other programs rely on: keys of the index, the head of the file, usage maps.
#include "JetTestSupport.h"
#include "jet/JetCollation.h"
#include "jet/JetIndexBuilder.h"
#include "jet/JetValues.h"
#include "store/StoreText.h"

#include <gtest/gtest.h>

using namespace odbc;
using namespace odbc::jet;
using namespace jettest;

namespace {
std::string hex(const std::string& bytes) {
    std::string out;
    for (const char byte : bytes) {
        char text[3];
        std::snprintf(text, sizeof text, "%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        out += text;
    }
    return out;
}
std::string textKey(const std::string& utf8) {
    std::u16string wide;
    std::string key;
    EXPECT_TRUE(appendUtf16(utf8, wide));
    return appendTextKey(wide, key) ? hex(key) : "none";
}
} // namespace

// Observed in indexes that Access 2000 and 2007 had written.
TEST(JetFormat, keys_are_those_that_access_writes) {
    EXPECT_EQ(textKey("MSysObjects"), "7f606b766b644c5b514d6d6b0100");
    EXPECT_EQ(textKey("Fruit Salad"), "7f53696f596d076b4a5e4a4f0100");
    EXPECT_EQ(textKey("Mandarin/Tangerine"), "7f604a624f4a6959621e6d4a6255516959625101"
                                             "00");
    EXPECT_EQ(textKey("Pepper, Red Bell"), "7f6651666651691a0769514f074c515e5e0100");
    EXPECT_EQ(textKey("~sq_fFruit"), "7f2b0f6b682b03535369"
                                     "6f596d0100");
    EXPECT_EQ(textKey("PROJECTwm"), "7f6669645b514d6d73600100");
    EXPECT_EQ(textKey("Kumquat"), "7f5c6f60686f4a6d0100");
    EXPECT_EQ(textKey("ImExSpecs"), "7f59605175"
                                    "6b66514d6b0100");
    EXPECT_EQ(textKey("0"), "7f360100");
}
TEST(JetFormat, keys_know_no_case_and_put_accents_behind_the_letters) {
    EXPECT_EQ(textKey("OSZLOP_FELIRAT"), textKey("oszlop_felirat"));
    EXPECT_EQ(textKey("Ő"), "7f64011d00");
    EXPECT_EQ(textKey("Közút"), "7f5c64786f6d010213020e00");
    EXPECT_EQ(textKey("űá"), "7f6f4a011d0e00");
    EXPECT_LT(textKey("oszlop"), textKey("öszlop"));
    EXPECT_LT(textKey("öszlop"), textKey("őszlop"));
    EXPECT_LT(textKey("őszlop"), textKey("oszlopa"));
    EXPECT_EQ(textKey("Ж"), "none");
}
TEST(JetFormat, numbers_sort_as_their_keys_do) {
    std::string before;
    for (const std::int32_t value : {INT32_MIN, -5, -1, 0, 1, 0x0F000001, INT32_MAX}) {
        std::string key;
        appendLongKey(value, key);
        EXPECT_LT(hex(before), hex(key));
        before = key;
    }
    EXPECT_EQ(hex(before), "7fffffffff");
}

TEST(JetFormat, the_head_is_that_of_an_access_2000_file) {
    const std::string path = newFile();
    write(path, {});
    FileBytes file(path);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(file.page(0)), 21), std::string("\0\1\0\0Standard Jet DB\0\1", 21));
    for (std::size_t user = 0; user < 256; ++user)
        EXPECT_EQ(get16(file.page(0) + 0xE00 + 2 * user), 0x0100);
    file.mask();
    EXPECT_EQ(get32(file.page(0) + header::kMapPointer), 0x100u);
    EXPECT_EQ(get32(file.page(0) + header::kKey), 0u);
    EXPECT_EQ(get16(file.page(0) + header::kCodePage), 1252);
    EXPECT_EQ(get32(file.page(0) + header::kSortOrder), 1033u);
}
TEST(JetFormat, the_catalogue_holds_what_access_expects) {
    const std::string path = newFile();
    write(path, {{{"T", {number("ID")}}, {}}});
    FileBytes file(path);
    const auto row = [&](const std::string& name) { return file.row(file.catalogueRow(name)); };
    for (const std::string name : {"Tables", "Databases", "Relationships"})
        EXPECT_EQ(get32(row(name) + 6), 0x0F000000u) << name;
    EXPECT_EQ(get32(row("Tables") + 2), 0x0F000001u);
    EXPECT_EQ(get32(row("MSysDb") + 2), 0x10000000u);
    EXPECT_EQ(get32(row("MSysDb") + 6), 0x0F000002u);
    for (const std::string name : {"MSysObjects", "MSysACEs", "MSysQueries", "MSysRelationships", "T"})
        EXPECT_EQ(get32(row(name) + 6), 0x0F000001u) << name;
    EXPECT_EQ(get32(row("MSysACEs") + 2 + 26), 0x80000000u);
    EXPECT_EQ(get32(row("T") + 2 + 26), 0u);
}
TEST(JetFormat, columns_carry_the_running_index_and_the_sort_order) {
    const std::string path = newFile();
    write(path,
          {{{"T",
             {number("a"), text("b", 40), number("c"), text("d"), column("e", ColumnKind::Bool), decimal("f", 12, 3)}},
            {}}});
    FileBytes file(path);
    const std::vector<std::uint16_t> running{0, 0, 1, 1, 2, 2};
    const char* names = "abcdef";
    for (std::size_t i = 0; i < 6; ++i) {
        const std::uint8_t* at = file.columnBytes("T", std::string(1, names[i]));
        EXPECT_EQ(get16(at + 7), running[i]) << names[i];
        EXPECT_EQ(get16(at + 11), i == 5 ? 12 + (3 << 8) : 1033) << names[i];
        EXPECT_EQ(at[16], names[i] == 'b' || names[i] == 'd' ? 1 : 0) << names[i];
    }
    EXPECT_EQ(get16(file.columnBytes("T", "b") + 23), 80); // bytes, two a character
}
TEST(JetFormat, maps_lie_in_their_row_up_to_512_pages_and_on_pages_of_their_own_behind) {
    const std::string path = newFile();
    Table wide{{"T", {number("ID"), column("B", ColumnKind::Binary, 510)}}, {}};
    const auto kindOfMap = [&](std::size_t rows) {
        wide.rows.assign(rows, {1.0, Cell::blob(std::string(510, 'b'))}); // seven rows a page
        expectComesBack({wide}, path);
        FileBytes file(path);
        EXPECT_EQ(file.rowPages("T").size(), (rows + 6) / 7);
        return file.row(file.definition(file.tablePage("T")).usedMap)[0];
    };
    EXPECT_EQ(kindOfMap(7 * 500), usage::kInline);
    EXPECT_EQ(kindOfMap(7 * 520), usage::kReference);
}
TEST(JetFormat, a_small_table_behind_many_pages_keeps_its_map_in_its_row) {
    const std::string path = newFile();
    write(path, {signTable(12000), {{"KICSI", {number("ID")}}, {{1.0}}}});
    FileBytes file(path);
    const std::uint8_t* map = file.row(file.definition(file.tablePage("KICSI")).usedMap);
    EXPECT_EQ(map[0], usage::kInline);
    EXPECT_GT(get32(map + 1), 512u);
}

TEST(JetFormat, decimals_are_read_and_written_without_loss) {
    const auto again = [](const char* text, unsigned scale) {
        return formatDecimal(*parseDecimal(text, scale), scale);
    };
    EXPECT_EQ(again("-922337203685477.5808", 4), "-922337203685477.5808");
    EXPECT_EQ(again("0", 4), "0.0000");
    EXPECT_EQ(again("-0.00004", 4), "0.0000");
    EXPECT_EQ(again("-0.00005", 4), "-0.0001");
    EXPECT_EQ(again(".5", 0), "1");
    EXPECT_EQ(again("+12", 2), "12.00");
    EXPECT_EQ(again("007", 0), "7");
    EXPECT_EQ(again("9999999999999999999999999999", 0), "9999999999999999999999999999");
    for (const char* text : {"", "-", ".", "1e5", "1,5", "x", "--1", "123456789012345678901234567890123456789"})
        EXPECT_FALSE(parseDecimal(text, 0)) << text;
}
TEST(JetFormat, guids_are_read_with_and_without_braces) {
    const auto bytes = parseGuid("{00112233-4455-6677-8899-aabbccddeeff}");
    ASSERT_TRUE(bytes);
    EXPECT_EQ(hex(std::string(bytes->begin(), bytes->end())), "33221100554477668899aabbccddeeff");
    EXPECT_EQ(formatGuid(bytes->data()), "{00112233-4455-6677-8899-AABBCCDDEEFF}");
    EXPECT_TRUE(parseGuid("00112233-4455-6677-8899-AABBCCDDEEFF"));
    for (const char* text : {"", "{00112233-4455-6677-8899-aabbccddeef}", "0011223344556677-8899-AABBCCDDEEFF--",
                             "{0011223g-4455-6677-8899-aabbccddeeff}"})
        EXPECT_FALSE(parseGuid(text)) << text;
}
