// The outer form of drawing files: real ones are read whole, damaged ones are refused in one sentence.
#include "Drawings.h"
#include "DwgClasses.h"
#include "DwgHeaderVars.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

TEST(DwgContainer, every_record_of_real_drawings_has_its_checksum_right) {
    SKIP_WITHOUT_DRAWINGS();
    for (const IndexedDrawing& drawing : indexedDrawings("AC1015")) {
        SCOPED_TRACE(drawing.path);
        DwgFile file;
        DwgError error;
        ASSERT_TRUE(file.load(drawing.path, error));
        std::vector<DwgRecordView> records;
        EXPECT_TRUE(file.records(records, error)) << std::string(error.text.begin(), error.text.end());
        EXPECT_GT(records.size(), 50U);
    }
}

TEST(DwgContainer, the_header_variables_of_real_drawings_are_read_to_their_last_bit_and_written_the_same) {
    SKIP_WITHOUT_DRAWINGS();
    for (const IndexedDrawing& drawing : indexedDrawings("AC1015")) {
        SCOPED_TRACE(drawing.path);
        DwgFile file;
        DwgError error;
        ASSERT_TRUE(file.load(drawing.path, error));
        const DwgTextCodec text(file.codePage());
        std::optional<DwgBitReader> section = file.guardedSection(kDwgHeaderVars, &text, L"", error);
        ASSERT_TRUE(section);
        DwgHeaderVars vars;
        vars.read(*section);
        EXPECT_FALSE(section->failed());
        EXPECT_LE(section->left(), 8U);
        DwgBitWriter out(&text);
        vars.write(out);
        const std::vector<Adesk::UInt8>& bytes = out.finish();
        DwgBitReader again(bytes.data(), bytes.size(), &text);
        DwgHeaderVars second;
        second.read(again);
        for (int row = 0; row < static_cast<int>(DwgHeaderVars::rows().size()); ++row) {
            EXPECT_EQ(vars.at(row).integer, second.at(row).integer);
            EXPECT_EQ(vars.at(row).real, second.at(row).real);
            EXPECT_EQ(vars.at(row).handle, second.at(row).handle);
            EXPECT_EQ(vars.at(row).text, second.at(row).text);
        }
    }
}

TEST(DwgContainer, class_numbers_of_real_drawings_begin_at_500_without_a_gap) {
    SKIP_WITHOUT_DRAWINGS();
    for (const IndexedDrawing& drawing : indexedDrawings("AC1015")) {
        DwgFile file;
        DwgError error;
        ASSERT_TRUE(file.load(drawing.path, error));
        std::vector<DwgClassEntry> classes;
        ASSERT_TRUE(dwgReadClasses(file, DwgTextCodec(file.codePage()), classes, error));
        for (std::size_t i = 0; i < classes.size(); ++i)
            EXPECT_EQ(classes[i].number, static_cast<int>(500 + i)) << drawing.path;
    }
}

TEST(DwgContainer, newer_versions_are_named) {
    SKIP_WITHOUT_DRAWINGS();
    const std::pair<const char*, const wchar_t*> expected[] = {
        {"AC1018", L"AC1018 (2004) drawings cannot be opened yet"}, {"AC1021", L"AC1021 (2007) drawings cannot be opened yet"},
        {"AC1024", L"AC1024 (2010) drawings cannot be opened yet"}, {"AC1027", L"AC1027 (2013) drawings cannot be opened yet"},
        {"AC1032", L"AC1032 (2018) drawings cannot be opened yet"},
    };
    for (const auto& [version, sentence] : expected)
        for (const IndexedDrawing& drawing : indexedDrawings(version)) {
            DwgFile file;
            DwgError error;
            EXPECT_FALSE(file.load(drawing.path, error));
            EXPECT_EQ(error.text, sentence);
            EXPECT_EQ(error.status, Acad::eInvalidDwgVersion);
        }
}

TEST(DwgContainer, a_version_is_named_by_its_first_bytes_alone) {
    const std::string path = testTempPath() + "/a.dwg";
    writeBytes(path, {'A', 'C', '1', '0', '1', '4', 0});
    DwgFile file;
    DwgError error;
    EXPECT_FALSE(file.load(path, error));
    EXPECT_EQ(error.text, L"AC1014 (R14) drawings cannot be opened yet");
}

TEST(DwgContainer, a_text_file_is_no_drawing) {
    DwgFile file;
    DwgError error;
    const std::string words = "Dear reader, this is a letter.";
    EXPECT_FALSE(file.load(std::vector<Adesk::UInt8>(words.begin(), words.end()), error));
    EXPECT_EQ(error.text, L"The file is no drawing.");
    DwgError empty;
    EXPECT_FALSE(file.load(std::vector<Adesk::UInt8>(), empty));
    EXPECT_EQ(empty.text, L"The file is too short to be a drawing.");
    DwgError absent;
    EXPECT_FALSE(file.load("/nowhere/at/all.dwg", absent));
    EXPECT_EQ(absent.status, Acad::eFileNotFound);
}

TEST(DwgContainer, a_changed_byte_of_an_object_is_found_by_its_checksum) {
    SKIP_WITHOUT_DRAWINGS();
    const std::vector<IndexedDrawing> drawings = indexedDrawings("AC1015");
    ASSERT_FALSE(drawings.empty());
    std::vector<unsigned char> bytes = fileBytes(drawings[0].path);
    DwgFile file;
    DwgError error;
    ASSERT_TRUE(file.load(bytes, error));
    std::vector<DwgMapEntry> entries;
    ASSERT_TRUE(file.objectMap(entries, error));
    bytes[entries[5].offset + 8] ^= 0x10;
    ASSERT_TRUE(file.load(bytes, error));
    std::vector<DwgRecordView> records;
    EXPECT_FALSE(file.records(records, error));
    EXPECT_EQ(error.status, Acad::eDwgCRCDoesNotMatch);
    EXPECT_NE(error.text.find(L"has a wrong checksum."), std::wstring::npos);
}

TEST(DwgContainer, a_drawing_cut_anywhere_is_refused) {
    SKIP_WITHOUT_DRAWINGS();
    const std::vector<IndexedDrawing> drawings = indexedDrawings("AC1015");
    ASSERT_FALSE(drawings.empty());
    const std::vector<unsigned char> bytes = fileBytes(drawings[0].path);
    for (std::size_t length = 0; length < bytes.size() - 4; length += 97) {
        DwgFile file;
        DwgError error;
        std::vector<DwgRecordView> records;
        const bool good = file.load(std::vector<unsigned char>(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)), error) && file.records(records, error);
        EXPECT_FALSE(good) << length;
        EXPECT_FALSE(error.text.empty());
    }
}
