// Library drawings as blocks: once per file and version, with the placeholder for a missing file.
#include "AppFixture.h"

#include "AcDbBlockReference.h"
#include "TestSupport.h"
#include "TrfcBlockLoader.h"
#include "WinFiles.h"

#include <filesystem>

namespace {

struct Report : TrfcTaskReport {
    std::vector<std::wstring> rows;
    void addReport(const std::wstring& type, const std::wstring& description, const std::wstring& id) override {
        rows.push_back(type + L"|" + description + L"|" + id);
    }
};

// Saves a drawing with one circle by layer of that radius.
void saveSymbol(const std::wstring& path, double radius, bool onLockedLayer = false) {
    AcDbDatabase symbol(true, true);
    AcDbObjectPointer<AcDbBlockTableRecord> space(symbol.modelSpaceId(), AcDb::kForWrite);
    auto* circle = new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, radius);
    circle->setDatabaseDefaults(&symbol);
    space->appendAcDbEntity(circle);
    circle->close();
    space.close();
    AcDbObjectPointer<AcDbLayerTableRecord>(symbol.layerZero(), AcDb::kForWrite)->setIsLocked(onLockedLayer);
    ASSERT_EQ(symbol.saveAs(path.c_str()), Acad::eOk) << acToUtf8(symbol.lastError());
}

} // namespace

class BlockLoader : public AppFixture {
protected:
    BlockLoader() : mFolder(testTempDir()) {
        std::filesystem::create_directory(acToUtf8(mFolder) + "/Oszlopok");
        std::filesystem::create_directory(acToUtf8(mFolder) + "/jel");
        saveSymbol(mFolder + L"/jel/TrfcBlockNotFound.dwg", 9.0);
        TrfcAppSettings::setAppString(APP_SYMBOL_BASE_PATH, mFolder + L"\\jel");
    }
    void touch(const std::string& file) {
        const std::filesystem::path path = acToUtf8(mFolder) + "/Oszlopok/" + file;
        std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) + std::chrono::hours(24));
    }
    double radiusOf(AcDbObjectId block) {
        AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
        if (!record || record->entityIds().isEmpty())
            return -1.0;
        AcDbObjectPointer<AcDbCircle> circle(record->entityIds()[0], AcDb::kForRead);
        return circle ? circle->radius() : -1.0;
    }
    // Runs with the dictionary of the templates open for write.
    template <class Look> void look(Look see) {
        const AcDbObjectPointer<AcDbDictionary> named(database().namedObjectsDictionaryId(), AcDb::kForRead);
        AcDbDictionary* templates = nullptr;
        ASSERT_EQ(named->getAt(TRFC_BLOCK_TEMPLATE, templates, AcDb::kForWrite), Acad::eOk);
        see(*templates);
        templates->close();
    }
    std::wstring mFolder;
};

TEST_F(BlockLoader, a_file_becomes_an_anonymous_block_with_its_key_file_and_stamp) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    const S_BLOCK_DESCRIPTOR d = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg");
    EXPECT_STREQ(d.blockKey, L"Oszlopok_a.dwg");
    EXPECT_STREQ(d.blockFile, L"Oszlopok\\a.dwg");
    EXPECT_NE(std::wstring(d.fileStamp).find(L' '), std::wstring::npos);
    AcDbObjectPointer<AcDbBlockTableRecord> record(d.blockId, AcDb::kForRead);
    ASSERT_EQ(record.openStatus(), Acad::eOk);
    EXPECT_TRUE(record->isAnonymous());
    EXPECT_EQ(record->name().substr(0, 2), L"*U");
}

TEST_F(BlockLoader, what_was_by_layer_in_the_file_is_by_block_in_the_drawing) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    const S_BLOCK_DESCRIPTOR d = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg");
    AcDbObjectPointer<AcDbBlockTableRecord> record(d.blockId, AcDb::kForRead);
    AcDbObjectPointer<AcDbEntity> entity(record->entityIds()[0], AcDb::kForRead);
    EXPECT_TRUE(entity->color().isByBlock());
    EXPECT_EQ(entity->lineWeight(), AcDb::kLnWtByBlock);
    EXPECT_EQ(entity->linetypeName(), L"ByBlock");
}

TEST_F(BlockLoader, a_lock_in_the_file_does_not_keep_its_symbol_from_following_the_block) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0, true);
    const S_BLOCK_DESCRIPTOR d = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg");
    AcDbObjectPointer<AcDbBlockTableRecord> record(d.blockId, AcDb::kForRead);
    AcDbObjectPointer<AcDbEntity> entity(record->entityIds()[0], AcDb::kForRead);
    EXPECT_TRUE(entity->color().isByBlock());
}

TEST_F(BlockLoader, a_second_load_of_the_same_version_uses_the_same_block) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    EXPECT_EQ(loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId, loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId);
}

TEST_F(BlockLoader, a_changed_time_with_the_same_content_counts_as_a_new_version) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    const AcDbObjectId first = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId;
    touch("a.dwg");
    const AcDbObjectId second = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId;
    EXPECT_NE(first, second);
    EXPECT_DOUBLE_EQ(radiusOf(first), 1.0);
    EXPECT_DOUBLE_EQ(radiusOf(second), 1.0);
}

TEST_F(BlockLoader, a_missing_file_is_told_and_the_placeholder_stands_under_its_key) {
    Report report;
    const S_BLOCK_DESCRIPTOR d = loadBlockTemplate(mFolder, L"Oszlopok\\none.dwg", &report);
    EXPECT_EQ(mPrinted, L"Blokk definíció nem található: " + mFolder + L"\\Oszlopok\\none.dwg\n");
    EXPECT_STREQ(d.blockFile, L"Oszlopok\\none.dwg");
    EXPECT_STREQ(d.fileStamp, L"");
    EXPECT_DOUBLE_EQ(radiusOf(d.blockId), 9.0);
    ASSERT_EQ(report.rows.size(), 1u);
    EXPECT_EQ(report.rows[0], L"$$$|Blokk definíció nem található|Oszlopok\\none.dwg");
}

TEST_F(BlockLoader, a_stored_placeholder_is_current_and_the_report_still_tells_of_the_loss) {
    const AcDbObjectId first = loadBlockTemplate(mFolder, L"none.dwg").blockId;
    Report report;
    EXPECT_EQ(loadBlockTemplate(mFolder, L"none.dwg", &report).blockId, first);
    EXPECT_EQ(report.rows.size(), 1u);
}

TEST_F(BlockLoader, a_file_that_returns_replaces_its_placeholder) {
    const AcDbObjectId placeholder = loadBlockTemplate(mFolder, L"Oszlopok\\b.dwg").blockId;
    saveSymbol(mFolder + L"/Oszlopok/b.dwg", 2.0);
    const AcDbObjectId real = loadBlockTemplate(mFolder, L"Oszlopok\\b.dwg").blockId;
    EXPECT_NE(real, placeholder);
    EXPECT_DOUBLE_EQ(radiusOf(real), 2.0);
}

TEST_F(BlockLoader, a_folder_of_that_name_is_no_file) {
    std::filesystem::create_directory(acToUtf8(mFolder) + "/Oszlopok/a.dwg");
    EXPECT_DOUBLE_EQ(radiusOf(loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId), 9.0);
    EXPECT_NE(mPrinted.find(L"Blokk definíció nem található: "), std::wstring::npos);
}

TEST_F(BlockLoader, without_a_placeholder_the_block_id_is_null) {
    TrfcAppSettings::setAppString(APP_SYMBOL_BASE_PATH, mFolder + L"\\nowhere");
    EXPECT_TRUE(loadBlockTemplate(mFolder, L"none.dwg").blockId.isNull());
}

TEST_F(BlockLoader, an_unreadable_file_gives_no_block_and_no_entry) {
    const std::wstring path = mFolder + L"/Oszlopok/text.dwg";
    ASSERT_TRUE(CopyFileW(acFromUtf8(testSourceDir() + "/CMakeLists.txt").c_str(), path.c_str(), FALSE));
    EXPECT_TRUE(loadBlockTemplate(mFolder, L"Oszlopok\\text.dwg").blockId.isNull());
    AcDbObjectPointer<AcDbDictionary> named(database().namedObjectsDictionaryId(), AcDb::kForRead);
    AcDbDictionary* templates = nullptr;
    ASSERT_EQ(named->getAt(TRFC_BLOCK_TEMPLATE, templates, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(templates->numEntries(), 0u);
    templates->close();
}

TEST_F(BlockLoader, an_entry_holds_one_the_block_the_file_and_the_stamp) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    const S_BLOCK_DESCRIPTOR d = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg");
    AcDbObjectPointer<AcDbDictionary> named(database().namedObjectsDictionaryId(), AcDb::kForRead);
    AcDbDictionary* templates = nullptr;
    ASSERT_EQ(named->getAt(TRFC_BLOCK_TEMPLATE, templates, AcDb::kForRead), Acad::eOk);
    AcDbXrecord* record = nullptr;
    ASSERT_EQ(templates->getAt(L"Oszlopok_a.dwg", record, AcDb::kForRead), Acad::eOk);
    const resbuf* item = record->firstItem();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->restype, 70);
    EXPECT_EQ(item->resval.rint, 1);
    item = item->rbnext;
    EXPECT_EQ(item->restype, 340);
    AcDbObjectId block;
    acdbGetObjectId(block, item->resval.rlname);
    EXPECT_EQ(block, d.blockId);
    item = item->rbnext;
    EXPECT_STREQ(item->resval.rstring, L"Oszlopok\\a.dwg");
    EXPECT_STREQ(item->rbnext->resval.rstring, d.fileStamp);
    EXPECT_EQ(item->rbnext->rbnext, nullptr);
    record->close();
    templates->close();
}

TEST_F(BlockLoader, built_in_blocks_are_found_by_index_and_7_or_above_reads_no_file) {
    const ACHAR* names[] = {L"TrfcBlockSelect",      L"TrfcTableEliminate",    L"TrfcTableCovered", L"TrfcPostBaseExisting",
                            L"TrfcPostBasePlanned", L"TrfcPostBaseEliminate", L"TrfcPostBaseAlien"};
    for (int i = 0; i < 7; ++i)
        saveSymbol(mFolder + L"/jel/" + names[i] + L".dwg", i + 1.0);
    for (int i = 0; i < 7; ++i)
        EXPECT_DOUBLE_EQ(radiusOf(builtInBlockId(i)), i + 1.0);
    EXPECT_TRUE(builtInBlockId(7).isNull());
    EXPECT_TRUE(builtInBlockId(-1).isNull());
    EXPECT_EQ(mPrinted, L"");
}

TEST_F(BlockLoader, the_stamp_is_the_files_length_and_its_last_write_time) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    const std::string path = acToUtf8(mFolder) + "/Oszlopok/a.dwg";
    const std::wstring stamp = describeBlockFile(mFolder, L"Oszlopok\\a.dwg").fileStamp;
    const std::size_t blank = stamp.find(L' ');
    EXPECT_EQ(stamp.substr(0, blank), std::to_wstring(std::filesystem::file_size(path)));
    const std::wstring time = stamp.substr(blank + 1); // yy/mm/dd hh:mm:ss
    ASSERT_EQ(time.size(), 17u) << acToUtf8(stamp);
    EXPECT_EQ(time[2], L'/');
    EXPECT_EQ(time[5], L'/');
    EXPECT_EQ(time[8], L' ');
    EXPECT_EQ(time[11], L':');
    EXPECT_EQ(time[14], L':');
}

TEST_F(BlockLoader, describing_a_file_loads_nothing) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    EXPECT_TRUE(describeBlockFile(mFolder, L"Oszlopok\\a.dwg").blockId.isNull());
    EXPECT_STREQ(describeBlockFile(mFolder, L"none.dwg").fileStamp, L"");
    EXPECT_FALSE(hasDictionary(TRFC_BLOCK_TEMPLATE));
}

TEST_F(BlockLoader, what_the_file_sets_itself_stays) {
    {
        AcDbDatabase symbol(true, true);
        AcDbObjectPointer<AcDbBlockTableRecord> space(symbol.modelSpaceId(), AcDb::kForWrite);
        auto* circle = new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 1.0);
        circle->setDatabaseDefaults(&symbol);
        circle->setColorIndex(1);
        circle->setLineWeight(AcDb::kLnWt050);
        circle->setLinetype(symbol.continuousLinetype());
        space->appendAcDbEntity(circle);
        circle->close();
        space.close();
        ASSERT_EQ(symbol.saveAs((mFolder + L"/Oszlopok/own.dwg").c_str()), Acad::eOk);
    }
    const S_BLOCK_DESCRIPTOR d = loadBlockTemplate(mFolder, L"Oszlopok\\own.dwg");
    const AcDbObjectPointer<AcDbBlockTableRecord> record(d.blockId, AcDb::kForRead);
    const AcDbObjectPointer<AcDbEntity> entity(record->entityIds()[0], AcDb::kForRead);
    EXPECT_EQ(entity->colorIndex(), 1);
    EXPECT_EQ(entity->lineWeight(), AcDb::kLnWt050);
    EXPECT_EQ(entity->linetypeName(), L"Continuous");
}

TEST_F(BlockLoader, a_block_that_can_no_longer_be_opened_is_read_from_its_file_again) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    const AcDbObjectId first = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(first, AcDb::kForWrite);
        ASSERT_EQ(record->erase(true), Acad::eOk);
    }
    const AcDbObjectId second = loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId;
    EXPECT_NE(second, first);
    EXPECT_DOUBLE_EQ(radiusOf(second), 1.0);
    EXPECT_EQ(loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId, second);
}

TEST_F(BlockLoader, an_entry_that_holds_something_else_is_made_anew) {
    saveSymbol(mFolder + L"/Oszlopok/a.dwg", 1.0);
    const auto damage = [this](resbuf* chain) {
        loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg");
        look([&](AcDbDictionary& templates) {
            AcDbXrecord* record = nullptr;
            ASSERT_EQ(templates.getAt(L"Oszlopok_a.dwg", record, AcDb::kForWrite), Acad::eOk);
            record->setFromRbChain(*chain);
            record->close();
        });
        acutRelRb(chain);
    };
    damage(acutBuildList(70, 1, 0));
    EXPECT_DOUBLE_EQ(radiusOf(loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId), 1.0);
    damage(acutBuildList(70, 1, 1, L"no block", 1, L"Oszlopok\\a.dwg", 40, 2.5, 0));
    EXPECT_DOUBLE_EQ(radiusOf(loadBlockTemplate(mFolder, L"Oszlopok\\a.dwg").blockId), 1.0);
}
