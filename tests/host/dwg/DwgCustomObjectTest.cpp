// Objects of loaded modules: filed by their own calls, drawn by others through their proxy graphics, and
// kept whole where their module is absent or too old.
#include "AcPath.h"
#include "AcUtText.h"
#include "DbObjectAccess.h"
#include "DwgClasses.h"
#include "DwgCodec.h"
#include "Samples.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {
struct DwgCustomObject : testing::Test {
    DwgCustomObject() : path(testTempDir() + L"\\custom.dwg"), copy(testTempDir() + L"\\copy.dwg") { dwgInstallCodec(); }
    ~DwgCustomObject() override { SampleMarker::sVersion = 1; }

    // A drawing with two markers, the second of the twin class and pointing to the first.
    void save() {
        const SampleModule module;
        AcDbDatabase db;
        const AcDbObjectId block = sampleBlock(db, L"SIGN");
        sampleAppend(db, new AcDbLine({0.0, 0.0, 0.0}, {0.0, 3.0, 0.0}), L"SIGN");
        auto* marker = new SampleMarker;
        marker->block = block;
        marker->filler = {1.0, 0.0, -2.5};
        first = sampleAppend(db, marker).handle();
        auto* twin = new SampleMarkerTwin;
        twin->block = block;
        twin->partner = AcDbObjectId();
        db.getAcDbObjectId(twin->partner, false, first);
        twin->number = 8;
        second = sampleAppend(db, twin).handle();
        ASSERT_EQ(db.saveAs(path.c_str()), Acad::eOk) << acToUtf8(db.lastError());
    }
    static AcDbObject* objectOf(AcDbDatabase& db, AcDbHandle handle) {
        AcDbObjectId id;
        db.getAcDbObjectId(id, false, handle);
        return DbObjectAccess::peek(id);
    }
    static std::vector<std::wstring> picture(AcDbDatabase& db, AcDbHandle handle) {
        DbObjectAccess::setLoading(db, true);
        std::vector<std::wstring> lines = giRecord(*static_cast<AcDbEntity*>(objectOf(db, handle)), [](AcDbObjectId) { return std::wstring(); });
        DbObjectAccess::setLoading(db, false);
        return lines;
    }
    std::wstring path, copy;
    AcDbHandle first, second;
};
bool contains(const std::vector<std::wstring>& lines, const wchar_t* word) {
    for (const std::wstring& line : lines)
        if (line.find(word) != std::wstring::npos)
            return true;
    return false;
}
} // namespace

TEST_F(DwgCustomObject, comes_back_with_its_fields_and_the_objects_it_points_to) {
    save();
    const SampleModule module;
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk) << acToUtf8(db.lastError());
    const auto* marker = SampleMarker::cast(objectOf(db, first));
    ASSERT_NE(marker, nullptr);
    EXPECT_EQ(marker->number, 7);
    EXPECT_EQ(marker->name, L"jelző");
    EXPECT_TRUE(marker->place.isEqualTo({10.0, 20.0, 0.0}));
    EXPECT_EQ(marker->filler, (std::vector<double>{1.0, 0.0, -2.5}));
    EXPECT_EQ(marker->blockNameWhileReading, L"SIGN"); // blocks stand and open before custom objects are read
}

TEST_F(DwgCustomObject, classes_that_share_a_dxf_name_are_told_apart_by_their_class_names) {
    save();
    const SampleModule module;
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
    EXPECT_EQ(objectOf(db, first)->isA(), SampleMarker::desc());
    EXPECT_EQ(objectOf(db, second)->isA(), SampleMarkerTwin::desc());
    EXPECT_EQ(SampleMarker::cast(objectOf(db, second))->partner.handle(), first);
}

TEST_F(DwgCustomObject, class_section_names_application_and_proxy_flags) {
    save();
    DwgFile file;
    DwgError error;
    ASSERT_TRUE(file.load(acFileSystemPath(path), error));
    std::vector<DwgClassEntry> classes;
    ASSERT_TRUE(dwgReadClasses(file, DwgTextCodec(file.codePage()), classes, error));
    int found = 0;
    for (const DwgClassEntry& entry : classes) {
        EXPECT_GE(entry.number, 500);
        for (const DwgClassEntry& other : classes)
            EXPECT_TRUE(&other == &entry || other.number != entry.number);
        if (entry.dxfName != L"Sample Marker")
            continue;
        ++found;
        EXPECT_EQ(entry.appName, L"SampleApp|A sample");
        EXPECT_EQ(entry.proxyFlags, 1025);
        EXPECT_TRUE(entry.isEntity);
    }
    EXPECT_EQ(found, 2);
}

TEST_F(DwgCustomObject, becomes_a_proxy_without_its_module_and_shows_its_picture) {
    save();
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
    const auto* proxy = AcDbProxyEntity::cast(objectOf(db, first));
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy->originalClassName(), L"Sample Marker");
    const std::vector<std::wstring> lines = picture(db, first);
    EXPECT_TRUE(contains(lines, L"circle")) << lines.size();
    EXPECT_TRUE(contains(lines, L"jelző"));
    AcDbExtents extents;
    const AcDbObjectPointer<AcDbEntity> open(proxy->objectId());
    EXPECT_EQ(open->getGeomExtents(extents), Acad::eOk);
    EXPECT_NEAR(extents.minPoint().x, 5.0, 1e-6); // the line of the block, under its pushed transform
    EXPECT_GE(extents.maxPoint().y, 22.0 - 1e-6);
}

TEST_F(DwgCustomObject, proxy_is_written_back_bit_for_bit_and_read_by_its_module_later) {
    save();
    std::vector<Adesk::UInt8> bits;
    {
        AcDbDatabase db(false);
        ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
        bits = DbObjectAccess::data(*objectOf(db, first)).raw->bytes;
        ASSERT_EQ(db.saveAs(copy.c_str()), Acad::eOk);
    }
    {
        AcDbDatabase db(false);
        ASSERT_EQ(db.readDwgFile(copy.c_str()), Acad::eOk);
        EXPECT_EQ(DbObjectAccess::data(*objectOf(db, first)).raw->bytes, bits);
    }
    const SampleModule module;
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(copy.c_str()), Acad::eOk);
    ASSERT_NE(SampleMarker::cast(objectOf(db, second)), nullptr);
    EXPECT_EQ(SampleMarker::cast(objectOf(db, second))->number, 8);
}

TEST_F(DwgCustomObject, a_record_of_a_later_version_becomes_a_proxy_and_stays_whole) {
    SampleMarker::sVersion = 9;
    save();
    SampleMarker::sVersion = 1;
    const SampleModule module;
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
    ASSERT_NE(AcDbProxyEntity::cast(objectOf(db, first)), nullptr);
    const std::vector<Adesk::UInt8> bits = DbObjectAccess::data(*objectOf(db, first)).raw->bytes;
    EXPECT_TRUE(contains(picture(db, first), L"circle"));
    ASSERT_EQ(db.saveAs(copy.c_str()), Acad::eOk);
    SampleMarker::sVersion = 9;
    AcDbDatabase later(false);
    ASSERT_EQ(later.readDwgFile(copy.c_str()), Acad::eOk);
    ASSERT_NE(SampleMarker::cast(objectOf(later, first)), nullptr);
    EXPECT_EQ(SampleMarker::cast(objectOf(later, first))->name, L"jelző");
}

TEST_F(DwgCustomObject, a_proxy_moved_to_another_layer_keeps_its_own_bits) {
    save();
    {
        AcDbDatabase db(false);
        ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
        AcDbLayerTable* layers = nullptr;
        db.getLayerTable(layers, AcDb::kForWrite);
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(L"Elsewhere");
        layers->add(layer);
        layer->close();
        layers->close();
        const AcDbObjectPointer<AcDbEntity> open(objectOf(db, first)->objectId(), AcDb::kForWrite);
        ASSERT_EQ(open->setLayer(L"Elsewhere"), Acad::eOk);
        ASSERT_EQ(db.saveAs(copy.c_str()), Acad::eOk);
    }
    const SampleModule module;
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(copy.c_str()), Acad::eOk);
    const auto* marker = SampleMarker::cast(objectOf(db, first));
    ASSERT_NE(marker, nullptr);
    EXPECT_EQ(marker->name, L"jelző");
    EXPECT_EQ(marker->filler, (std::vector<double>{1.0, 0.0, -2.5}));
    const AcDbObjectPointer<AcDbEntity> open(marker->objectId());
    EXPECT_EQ(open->layerName(), L"Elsewhere");
}

TEST_F(DwgCustomObject, the_order_in_a_block_survives_the_loss_of_a_neighbour_of_a_proxy) {
    save();
    {
        AcDbDatabase db(false);
        ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
        const AcDbObjectId line = sampleAppend(db, new AcDbLine({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}));
        const AcDbObjectPointer<AcDbEntity> open(objectOf(db, first)->objectId(), AcDb::kForWrite);
        open->erase();
        ASSERT_FALSE(line.isNull());
        ASSERT_EQ(db.saveAs(copy.c_str()), Acad::eOk);
    }
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(copy.c_str()), Acad::eOk);
    const auto* space = AcDbBlockTableRecord::cast(DbObjectAccess::peek(db.modelSpaceId()));
    ASSERT_EQ(space->entityIds().length(), 2);
    EXPECT_EQ(space->entityIds()[0].handle(), second);
    EXPECT_NE(AcDbLine::cast(DbObjectAccess::peek(space->entityIds()[1])), nullptr);
}
