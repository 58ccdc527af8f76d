// The checker: each rule is broken once, and the checker must say which.
#include "rules/JetCheck.h"
#include "JetTestSupport.h"

#include <gtest/gtest.h>

using namespace odbc;
using namespace odbc::jet;
using namespace jettest;

namespace {
// A file with a bit of everything: several tables, text, long values in chains.
std::string sampleFile() {
    const std::string path = newFile();
    Table notes{{"JEGYZET",
                 {column("ID", ColumnKind::Long), text("CIM"), column("SZOVEG", ColumnKind::Memo),
                  column("KEP", ColumnKind::Ole)}},
                {}};
    for (int i = 0; i < 40; ++i)
        notes.rows.push_back({i, "Cím " + std::to_string(i), std::string(static_cast<std::size_t>(i) * 300, 'm'),
                              Cell::blob(std::string(200, 'k'))});
    write(path, {signTable(200), notes, {{"OSZLOP_FELIRAT", {number("ID"), text("ERTEK")}}, {{1.0, "felirat"}}}});
    expectClean(path);
    return path;
}

// Spoils a fresh sample and expects the checker's word for it.
void expectFound(const std::string& part, const std::function<void(FileBytes&)>& spoil) {
    const std::string path = sampleFile();
    FileBytes file(path);
    spoil(file);
    file.save(path);
    expectViolation(path, part);
}

void flipBit(std::uint8_t* bits, std::size_t bit) {
    bits[bit / 8] = static_cast<std::uint8_t>(bits[bit / 8] ^ 1u << (bit % 8));
}
// A bit of an inline map; the map's start is 0 in files as small as these.
void flipInMap(FileBytes& file, std::uint32_t pointer, std::uint32_t page) {
    ASSERT_EQ(file.row(pointer)[0], usage::kInline);
    ASSERT_EQ(get32(file.row(pointer) + 1), 0u);
    flipBit(file.row(pointer) + 5, page);
}
std::uint8_t* rowEntry(FileBytes& file, std::uint32_t pointer) {
    return file.page(pointer >> 8) + data::kRows + 2 * (pointer & 0xFF);
}
void changeRowCount(FileBytes& file, std::uint32_t table, int by) {
    std::uint8_t* at = file.page(table) + definition::kRowCount;
    put32(at, static_cast<std::uint32_t>(static_cast<int>(get32(at)) + by));
}
// The root of an index of a system table, which is one leaf here.
std::uint32_t indexRoot(FileBytes& file, std::uint32_t table, std::size_t number) {
    const JetDefinition found = file.definition(table);
    return get32(found.bytes.data() + found.columnsEnd + definition::kRealIndexSize * number + 38);
}
std::uint32_t indexMap(FileBytes& file, std::uint32_t table, std::size_t number) {
    const JetDefinition found = file.definition(table);
    return get32(found.bytes.data() + found.columnsEnd + definition::kRealIndexSize * number + 34);
}
// The null mask of a row of the catalogue or of the access rows.
std::uint8_t* nullMask(FileBytes& file, std::uint32_t pointer) {
    return file.row(pointer) + file.rowSize(pointer) - (get16(file.row(pointer)) + 7u) / 8;
}
} // namespace

TEST(JetCheck, the_sample_is_clean) {
    sampleFile();
}

TEST(JetCheck, a_page_of_the_wrong_type) {
    expectFound("and is not a data page", [](FileBytes& file) { file.page(file.rowPages("TABLA").front())[0] = 9; });
}
TEST(JetCheck, a_page_whose_second_byte_is_not_1) {
    expectFound("second byte of the page is not 1", [](FileBytes& file) { file.page(file.tablePage("TABLA"))[1] = 0; });
}
TEST(JetCheck, a_data_page_of_another_owner) {
    expectFound("is listed by the table \"TABLA\", but belongs to the table", [](FileBytes& file) {
        put32(file.page(file.rowPages("TABLA").front()) + data::kOwner, file.tablePage("JEGYZET"));
    });
}
TEST(JetCheck, a_page_that_its_table_does_not_list) {
    expectFound("holds rows of the table \"TABLA\", which does not list it", [](FileBytes& file) {
        flipInMap(file, file.definition(file.tablePage("TABLA")).usedMap, file.rowPages("TABLA").front());
    });
}
TEST(JetCheck, a_page_that_two_tables_list) {
    expectFound("The page serves the rows of the table", [](FileBytes& file) {
        flipInMap(file, file.definition(file.tablePage("TABLA")).usedMap, file.rowPages("JEGYZET").front());
    });
}
TEST(JetCheck, a_map_that_lists_a_page_behind_the_end) {
    expectFound("There is no page", [](FileBytes& file) {
        flipInMap(file, file.definition(file.tablePage("TABLA")).usedMap, file.pageCount() + 3);
    });
}
TEST(JetCheck, a_page_with_room_that_is_not_the_tables_own) {
    expectFound("is said to have room for the table \"TABLA\", but does not belong to it", [](FileBytes& file) {
        flipInMap(file, file.definition(file.tablePage("TABLA")).freeMap, file.rowPages("JEGYZET").front());
    });
}
TEST(JetCheck, a_page_in_use_that_is_called_free) {
    expectFound("is in use, but the map of free pages lists it",
                [](FileBytes& file) { flipInMap(file, 0x100, file.rowPages("TABLA").front()); });
}
TEST(JetCheck, a_page_behind_the_end_that_is_called_used) {
    expectFound("calls a page used that lies behind the end",
                [](FileBytes& file) { flipInMap(file, 0x100, file.pageCount() + 1); });
}
TEST(JetCheck, a_page_that_belongs_to_nothing) {
    expectFound("belongs to nothing and is not free", [](FileBytes& file) {
        flipInMap(file, 0x100, file.pageCount());
        file.bytes.resize(file.bytes.size() + 4096);
    });
}
TEST(JetCheck, a_map_page_of_the_type_of_bitmaps) {
    expectFound("The page serves usage maps and is not a data page",
                [](FileBytes& file) { file.page(file.definition(file.tablePage("TABLA")).usedMap >> 8)[0] = 5; });
}
TEST(JetCheck, a_map_page_that_belongs_to_a_table) {
    expectFound("A page of usage maps belongs to the table 2", [](FileBytes& file) {
        put32(file.page(file.definition(file.tablePage("TABLA")).usedMap >> 8) + data::kOwner, 2);
    });
}
TEST(JetCheck, a_map_that_two_share) {
    expectFound("The same usage map is", [](FileBytes& file) {
        std::uint8_t* table = file.page(file.tablePage("TABLA"));
        put32(table + definition::kFreeMap, get32(table + definition::kUsedMap));
    });
}
TEST(JetCheck, a_map_of_an_unknown_type) {
    expectFound("is of an unknown type",
                [](FileBytes& file) { file.row(file.definition(file.tablePage("TABLA")).usedMap)[0] = 2; });
}
TEST(JetCheck, a_pointer_to_a_map_that_leads_nowhere) {
    expectFound("leads nowhere",
                [](FileBytes& file) { put32(file.page(file.tablePage("TABLA")) + definition::kUsedMap, 0); });
}
TEST(JetCheck, a_row_count_that_disagrees) {
    expectFound("says that it has 199 rows, but there are 200",
                [](FileBytes& file) { changeRowCount(file, file.tablePage("TABLA"), -1); });
}
TEST(JetCheck, rows_that_overlap) {
    expectFound("does not lie behind the rows before it",
                [](FileBytes& file) { put16(rowEntry(file, file.rowPages("TABLA").front() << 8 | 3), 4095); });
}
TEST(JetCheck, a_row_count_of_a_page_that_does_not_fit) {
    expectFound("counts more rows than it can hold",
                [](FileBytes& file) { put16(file.page(file.rowPages("TABLA").front()) + data::kRowCount, 5000); });
}
TEST(JetCheck, a_wrong_figure_of_free_bytes) {
    expectFound("bytes are free, but there are",
                [](FileBytes& file) { file.page(file.rowPages("TABLA").front())[data::kFree] ^= 1; });
}
TEST(JetCheck, offsets_of_variable_columns_that_do_not_rise) {
    expectFound("offsets of variable columns that do not rise", [](FileBytes& file) {
        const std::uint32_t row = file.rowPages("TABLA").front() << 8;
        put16(file.row(row) + file.rowSize(row) - 2 - 2 - 4, 3000); // of the second text
    });
}
TEST(JetCheck, a_count_of_variable_columns_that_does_not_fit) {
    expectFound("table of offsets that does not fit", [](FileBytes& file) {
        const std::uint32_t row = file.rowPages("TABLA").front() << 8;
        put16(file.row(row) + file.rowSize(row) - 4, 999);
    });
}
TEST(JetCheck, a_row_of_more_columns_than_the_table) {
    expectFound("number of columns that the table does not have",
                [](FileBytes& file) { put16(file.row(file.rowPages("TABLA").front() << 8), 17); });
}
TEST(JetCheck, a_moved_row_that_is_not_where_it_went) {
    expectFound("moved to row 9 of page 0, where it is not", [](FileBytes& file) {
        const std::uint32_t row = file.rowPages("TABLA").front() << 8;
        put32(file.row(row), 9);
        rowEntry(file, row)[1] |= 0x40;
    });
}

TEST(JetCheck, a_fixed_column_without_the_running_variable_index) {
    expectFound("The column \"PX\" of the table \"TABLA\" has the variable index 0 instead of 3",
                [](FileBytes& file) { put16(file.columnBytes("TABLA", "PX") + 7, 0); });
}
TEST(JetCheck, a_column_of_another_sort_order) {
    expectFound("The column \"TIPUS\" of the table \"TABLA\" has the sort order 0, not that of the database",
                [](FileBytes& file) { put16(file.columnBytes("TABLA", "TIPUS") + 11, 0); });
}
TEST(JetCheck, a_column_with_a_wrong_length) {
    expectFound("The column \"ID\" of the table \"TABLA\" has the length 4 instead of 8",
                [](FileBytes& file) { put16(file.columnBytes("TABLA", "ID") + 23, 4); });
}
TEST(JetCheck, a_column_that_overlaps_another) {
    expectFound("The column \"OBJ_ID\" of the table \"TABLA\" overlaps the one before it",
                [](FileBytes& file) { put16(file.columnBytes("TABLA", "OBJ_ID") + 21, 4); });
}
TEST(JetCheck, a_column_of_an_unknown_type) {
    expectFound("is of an unknown type", [](FileBytes& file) { file.columnBytes("TABLA", "ID")[0] = 14; });
}
TEST(JetCheck, a_column_without_the_mark) {
    expectFound("The column \"ID\" of the table \"TABLA\" lacks the mark",
                [](FileBytes& file) { put32(file.columnBytes("TABLA", "ID") + 1, 0); });
}
TEST(JetCheck, a_column_number_that_stands_twice) {
    expectFound("Two columns of the table \"TABLA\" have the same number",
                [](FileBytes& file) { put16(file.columnBytes("TABLA", "OBJ_ID") + 5, 0); });
}
TEST(JetCheck, compressed_text_where_the_column_does_not_allow_it) {
    expectFound("is compressed, though the column does not allow it",
                [](FileBytes& file) { file.columnBytes("TABLA", "TIPUS")[16] = 0; });
}
TEST(JetCheck, compressed_text_of_two_characters) {
    const std::string path = newFile();
    write(path, {{{"T", {text("C")}}, {{"ab"}}}});
    FileBytes file(path);
    std::uint8_t* row = file.row(file.rowPages("T").front() << 8);
    row[2] = 0xFF, row[3] = 0xFE; // FF FE 'b' 00: one character and a turn to wide ones
    file.save(path);
    expectViolation(path, "holds characters that are not below 0x100");
    row[5] = 'a';
    file.save(path);
    expectViolation(path, "has no more than two characters");
}
TEST(JetCheck, text_longer_than_its_column) {
    expectFound("is longer than the column",
                [](FileBytes& file) { put16(file.columnBytes("TABLA", "TIPUS") + 23, 8); });
}
TEST(JetCheck, text_that_ends_in_the_middle_of_a_character) {
    const std::string path = newFile();
    write(path, {{{"T", {text("C"), text("D")}}, {{"ő", "őő"}}}});
    FileBytes file(path);
    const std::uint32_t row = file.rowPages("T").front() << 8;
    put16(file.row(row) + file.rowSize(row) - 1 - 2 - 4, 3); // D begins a byte early
    file.save(path);
    expectViolation(path, "ends in the middle of a character");
}
TEST(JetCheck, a_definition_without_the_mark) {
    expectFound("lacks the mark 1625",
                [](FileBytes& file) { put32(file.page(file.tablePage("TABLA")) + definition::kMark, 7); });
}
TEST(JetCheck, a_definition_of_a_wrong_length) {
    expectFound("bytes long, but it has",
                [](FileBytes& file) { file.page(file.tablePage("TABLA"))[definition::kLength] ^= 1; });
}
TEST(JetCheck, a_table_that_is_neither_the_users_nor_the_engines) {
    expectFound("neither a user's nor a system table",
                [](FileBytes& file) { file.page(file.tablePage("TABLA"))[definition::kTableType] = 0; });
}
TEST(JetCheck, a_users_table_that_poses_as_a_system_table) {
    expectFound("do not agree whether \"TABLA\" is a system table", [](FileBytes& file) {
        file.page(file.tablePage("TABLA"))[definition::kTableType] = definition::kSystemTable;
    });
}

TEST(JetCheck, a_page_of_long_values_that_is_not_marked) {
    expectFound("is not marked as one of long values", [](FileBytes& file) {
        for (std::uint32_t page = 0; page < file.pageCount(); ++page)
            if (file.page(page)[0] == 1 && get32(file.page(page) + data::kOwner) == data::kLongValueOwner) {
                put32(file.page(page) + data::kOwner, 0);
                return;
            }
    });
}
namespace {
// The twelve bytes of the memo in the last row of JEGYZET, whose chain takes several pages.
std::uint8_t* lastMemo(FileBytes& file) {
    const std::uint32_t page = file.rowPages("JEGYZET").back();
    const std::uint32_t row = page << 8 | (get16(file.page(page) + data::kRowCount) - 1u);
    std::uint8_t* begin = file.row(row);
    return begin + get16(begin + file.rowSize(row) - 1 - 2 - 4); // the second variable column
}
} // namespace
TEST(JetCheck, a_long_value_of_a_wrong_length) {
    expectFound("says that it has", [](FileBytes& file) { lastMemo(file)[0] ^= 1; });
}
TEST(JetCheck, a_long_value_that_leads_nowhere) {
    expectFound("where there is none", [](FileBytes& file) { put32(lastMemo(file) + 4, 0x100); });
}
TEST(JetCheck, a_long_value_that_belongs_to_no_row) {
    expectFound("is a long value that belongs to no row",
                [](FileBytes& file) { put32(lastMemo(file), longvalue::kInline); });
}
TEST(JetCheck, a_long_value_of_two_rows) {
    const std::string path = newFile();
    write(path, {{{"T", {column("M", ColumnKind::Memo)}}, {{std::string(3000, 'a')}, {std::string(3000, 'b')}}}});
    FileBytes file(path);
    const std::uint32_t rows = file.rowPages("T").front() << 8;
    put32(file.row(rows | 1) + 2 + 4, get32(file.row(rows) + 2 + 4));
    file.save(path);
    expectViolation(path, "which belongs to another value");
}

TEST(JetCheck, a_table_outside_its_container) {
    expectFound("is a table, but does not lie in the container",
                [](FileBytes& file) { put32(file.row(file.catalogueRow("TABLA")) + 6, 0); });
}
TEST(JetCheck, a_container_outside_the_root) {
    expectFound("is a container, but does not lie in the root",
                [](FileBytes& file) { put32(file.row(file.catalogueRow("Databases")) + 6, kTablesId); });
}
TEST(JetCheck, a_system_object_that_is_missing) {
    expectFound("The catalogue lacks the object \"Relationships\"", [](FileBytes& file) {
        rowEntry(file, file.catalogueRow("Relationships"))[1] |= 0x80;
        changeRowCount(file, kObjectsPage, -1);
    });
}
TEST(JetCheck, a_table_that_the_catalogue_lost) {
    expectFound("defines a table that the catalogue does not list", [](FileBytes& file) {
        rowEntry(file, file.catalogueRow("TABLA"))[1] |= 0x80;
        changeRowCount(file, kObjectsPage, -1);
    });
}
TEST(JetCheck, a_table_whose_definition_does_not_exist) {
    expectFound("which does not exist",
                [](FileBytes& file) { put32(file.row(file.catalogueRow("TABLA")) + 2, 99999); });
}
TEST(JetCheck, two_objects_of_the_same_number) {
    expectFound("have the same number",
                [](FileBytes& file) { put32(file.row(file.catalogueRow("TABLA")) + 2, file.tablePage("JEGYZET")); });
}
TEST(JetCheck, an_object_without_an_owner) {
    expectFound("The object \"TABLA\" has no owner",
                [](FileBytes& file) { nullMask(file, file.catalogueRow("TABLA"))[0] &= 0xBF; });
}
TEST(JetCheck, an_object_on_which_nobody_has_rights) {
    expectFound("Nobody has rights on the object \"TABLA\"", [](FileBytes& file) {
        const std::uint32_t table = file.tablePage("TABLA");
        for (const std::uint32_t page : file.rowPages("MSysACEs"))
            for (std::uint32_t row = 0; row < get16(file.page(page) + data::kRowCount); ++row)
                if (get32(file.row(page << 8 | row) + 2) == table)
                    put32(file.row(page << 8 | row) + 2, kTablesId);
    });
}
TEST(JetCheck, rights_on_an_object_that_does_not_exist) {
    expectFound("grants rights on the object 4711, which does not exist",
                [](FileBytes& file) { put32(file.row(file.rowPages("MSysACEs").front() << 8) + 2, 4711); });
}
TEST(JetCheck, rights_of_nobody) {
    expectFound("grants rights to nobody",
                [](FileBytes& file) { nullMask(file, file.rowPages("MSysACEs").front() << 8)[0] &= 0xFD; });
}

TEST(JetCheck, an_index_key_that_is_not_that_of_the_row) {
    expectFound("in the index \"ParentIdName\" of the table \"MSysObjects\" is not that of its values",
                [](FileBytes& file) { file.page(indexRoot(file, kObjectsPage, 0))[index::kEntries + 6] ^= 1; });
}
TEST(JetCheck, a_number_key_that_is_not_that_of_the_row) {
    expectFound("in the index \"Id\" of the table \"MSysObjects\" is not that of its values",
                [](FileBytes& file) { file.page(indexRoot(file, kObjectsPage, 1))[index::kEntries + 1] ^= 0x40; });
}
TEST(JetCheck, an_index_that_lacks_a_row) {
    expectFound("is missing from the index \"Id\"", [](FileBytes& file) {
        std::uint8_t* page = file.page(indexRoot(file, kObjectsPage, 1));
        const std::size_t end = index::kCapacity - get16(page + index::kFree);
        flipBit(page + index::kMask, end); // the last entry's end
        put16(page + index::kFree, index::kCapacity - (end - 9));
    });
}
TEST(JetCheck, an_entry_whose_row_is_gone) {
    expectFound("of the page, which is not there", [](FileBytes& file) {
        rowEntry(file, file.catalogueRow("TABLA"))[1] |= 0x80;
        changeRowCount(file, kObjectsPage, -1);
    });
}
TEST(JetCheck, a_row_that_stands_twice_in_an_index) {
    expectFound("stands more than once in the index", [](FileBytes& file) {
        std::uint8_t* entries = file.page(indexRoot(file, kObjectsPage, 1)) + index::kEntries;
        std::memcpy(entries + 5, entries + 9 + 5, 4); // the first entry leads to the second's row
    });
}
TEST(JetCheck, entries_out_of_order) {
    expectFound("does not stand behind the one before it", [](FileBytes& file) {
        std::uint8_t* entries = file.page(indexRoot(file, kObjectsPage, 1)) + index::kEntries;
        std::swap_ranges(entries, entries + 9, entries + 9);
    });
}
TEST(JetCheck, a_key_that_stands_twice_where_it_may_stand_once) {
    expectFound("which allows each once", [](FileBytes& file) {
        std::uint8_t* entries = file.page(indexRoot(file, kObjectsPage, 1)) + index::kEntries;
        std::memcpy(entries + 9, entries, 5);
    });
}
TEST(JetCheck, an_index_that_counts_too_few_keys) {
    expectFound("The definition counts 3 keys in the index",
                [](FileBytes& file) { put32(file.page(kObjectsPage) + definition::kBody + 4, 3); });
}
TEST(JetCheck, an_index_page_of_another_owner) {
    expectFound("serves the index \"Id\" of the table \"MSysObjects\", but belongs to the table 3",
                [](FileBytes& file) { put32(file.page(indexRoot(file, kObjectsPage, 1)) + index::kOwner, 3); });
}
TEST(JetCheck, an_index_page_of_the_wrong_type) {
    expectFound("is not an index leaf", [](FileBytes& file) { file.page(indexRoot(file, kObjectsPage, 1))[0] = 1; });
}
TEST(JetCheck, an_index_page_that_its_map_does_not_list) {
    expectFound("but not in its map",
                [](FileBytes& file) { flipInMap(file, indexMap(file, kAcesPage, 0), indexRoot(file, kAcesPage, 0)); });
}
TEST(JetCheck, a_page_in_the_map_of_an_index_that_is_not_in_its_tree) {
    expectFound("but not in its tree", [](FileBytes& file) {
        flipInMap(file, indexMap(file, kAcesPage, 0), indexRoot(file, kObjectsPage, 0));
    });
}
TEST(JetCheck, an_index_page_with_a_wrong_figure_of_free_bytes) {
    expectFound("bytes are free, but there are",
                [](FileBytes& file) { file.page(indexRoot(file, kAcesPage, 0))[index::kFree] ^= 2; });
}
TEST(JetCheck, an_index_over_a_column_that_does_not_exist) {
    expectFound("over a column that does not exist", [](FileBytes& file) {
        const JetDefinition found = file.definition(kAcesPage);
        put16(file.page(kAcesPage) + found.columnsEnd + 4, 77);
    });
}
TEST(JetCheck, a_system_table_without_its_index) {
    expectFound("lacks the index \"ObjectId\"", [](FileBytes& file) {
        const JetDefinition found = file.definition(kAcesPage);
        put16(file.page(kAcesPage) + found.columnsEnd + 4, 2);
    });
}

namespace {
// A catalogue that takes index trees of several levels, and a table behind the reach of inline maps.
std::string largeFile() {
    const std::string path = newFile();
    std::vector<Table> tables;
    for (int i = 0; i < 200; ++i)
        tables.push_back(
            {{"Egy elég hosszú táblanév ahhoz hogy sok hely kelljen " + std::to_string(i), {number("ID")}}, {}});
    tables.push_back(signTable(12000));
    write(path, tables);
    expectClean(path);
    return path;
}
void expectFoundInLarge(const std::string& part, const std::function<void(FileBytes&)>& spoil) {
    const std::string path = largeFile();
    FileBytes file(path);
    spoil(file);
    file.save(path);
    expectViolation(path, part);
}
} // namespace
TEST(JetCheck, a_bitmap_page_of_the_wrong_type) {
    expectFoundInLarge("and is not a page of a usage map", [](FileBytes& file) {
        const std::uint32_t map = file.definition(file.tablePage("TABLA")).usedMap;
        ASSERT_EQ(file.row(map)[0], usage::kReference);
        file.page(get32(file.row(map) + 1))[0] = 1;
    });
}
TEST(JetCheck, a_map_of_free_pages_that_does_not_reach_the_end) {
    expectFoundInLarge("does not reach the end of the file", [](FileBytes& file) { put32(file.row(0x100) + 1, 0); });
}
TEST(JetCheck, leaves_that_are_not_chained) {
    expectFoundInLarge("is not chained to its neighbours", [](FileBytes& file) {
        std::uint8_t* root = file.page(indexRoot(file, kObjectsPage, 0));
        ASSERT_EQ(root[0], static_cast<int>(PageType::IndexNode));
        put32(file.page(get32(root + index::kTail)) + index::kPrevious, 0);
    });
}
TEST(JetCheck, a_node_that_does_not_tell_the_bounds_of_its_children) {
    expectFoundInLarge("does not tell the bounds of its child",
                       [](FileBytes& file) { file.page(indexRoot(file, kObjectsPage, 0))[index::kEntries + 1] = 0; });
}

TEST(JetCheck, a_header_that_does_not_lead_to_the_system_tables) {
    expectFound("does not lead to the system table on page 3", [](FileBytes& file) {
        file.mask();
        put32(file.page(0) + header::kMapPointer + 12, 9);
        file.mask();
    });
}
TEST(JetCheck, a_user_who_was_cut_off_while_writing) {
    expectFound("user 5 was cut off while writing",
                [](FileBytes& file) { put16(file.page(0) + header::kCommitBytes + 10, 0); });
}
TEST(JetCheck, the_columns_follow_the_sort_order_of_the_database) {
    expectFound("has the sort order 1033, not that of the database", [](FileBytes& file) {
        file.mask();
        put32(file.page(0) + header::kSortOrder, 1038);
        file.mask();
    });
}

TEST(JetCheck, a_spoiled_byte_anywhere_never_brings_the_checker_down) {
    const std::string path = sampleFile();
    const FileBytes clean(path);
    std::uint32_t random = 12345;
    const auto next = [&] { return random = random * 1664525 + 1013904223, random >> 8; };
    for (int round = 0; round < 400; ++round) {
        FileBytes file = clean;
        for (int i = 0; i < 6; ++i) {
            const std::uint32_t page = 1 + next() % (file.pageCount() - 1);
            file.page(page)[next() % (i % 2 != 0 ? 64 : 4096)] = static_cast<std::uint8_t>(next());
        }
        file.save(path);
        EXPECT_NO_THROW(checkJet(path)) << round;
    }
}
