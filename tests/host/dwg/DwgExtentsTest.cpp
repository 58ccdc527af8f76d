// The extents that a saved drawing's header tells, by which other programs zoom.
#include "AcPath.h"
#include "AcUtText.h"
#include "DbObjectAccess.h"
#include "Drawings.h"
#include "DwgCodec.h"
#include "Samples.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {
struct Corners {
    AcGePoint3d lower, upper;
};
struct DwgExtentsOfDrawing : testing::Test {
    DwgExtentsOfDrawing() : path(testTempDir() + L"\\extents.dwg") { dwgInstallCodec(); }
    static Corners told(AcDbDatabase& db, const std::wstring& space = L"EXT") {
        auto& header = DbObjectAccess::header(db);
        return {header[space + L"MIN"].point, header[space + L"MAX"].point};
    }
    // What the header of the file says after a save.
    Corners saved(AcDbDatabase& db, const std::wstring& space = L"EXT") {
        EXPECT_EQ(db.saveAs(path.c_str()), Acad::eOk) << acToUtf8(db.lastError());
        AcDbDatabase again(false);
        EXPECT_EQ(again.readDwgFile(path.c_str()), Acad::eOk) << acToUtf8(again.lastError());
        return told(again, space);
    }
    static void expectBox(const Corners& corners, const AcGePoint3d& lower, const AcGePoint3d& upper, double tolerance = 1.0e-9) {
        EXPECT_LE(corners.lower.distanceTo(lower), tolerance) << corners.lower.x << "," << corners.lower.y << "," << corners.lower.z;
        EXPECT_LE(corners.upper.distanceTo(upper), tolerance) << corners.upper.x << "," << corners.upper.y << "," << corners.upper.z;
    }
    static void expectEmpty(const Corners& corners) {
        EXPECT_EQ(corners.lower, AcGePoint3d(1.0e20, 1.0e20, 1.0e20));
        EXPECT_EQ(corners.upper, AcGePoint3d(-1.0e20, -1.0e20, -1.0e20));
    }
    static AcDbObjectId line(AcDbDatabase& db, const AcGePoint3d& from, const AcGePoint3d& to, const wchar_t* block = L"*Model_Space") {
        return sampleAppend(db, new AcDbLine(from, to), block);
    }
    static void erase(AcDbObjectId id) { AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->erase(); }
    // A change that moves nothing.
    static void touch(AcDbDatabase& db) { AcDbObjectPointer<AcDbLayerTableRecord>(db.layerZero(), AcDb::kForWrite)->setColor(AcCmEntityColor::fromIndex(7)); }
    std::wstring path;
};
} // namespace

TEST_F(DwgExtentsOfDrawing, are_the_box_of_what_each_space_shows) {
    AcDbDatabase db;
    line(db, {-3.0, 2.0, 0.0}, {7.0, 5.0, 1.5});
    sampleAppend(db, new AcDbCircle({20.0, 10.0, 0.0}, AcGeVector3d::kZAxis, 4.0));
    line(db, {1.0, 1.0, 0.0}, {2.0, 3.0, 0.0}, L"*Paper_Space");
    expectBox(saved(db), {-3.0, 2.0, 0.0}, {24.0, 14.0, 1.5});
    expectBox(saved(db, L"PEXT"), {1.0, 1.0, 0.0}, {2.0, 3.0, 0.0});
}
TEST_F(DwgExtentsOfDrawing, of_nothing_are_those_of_an_empty_drawing) {
    AcDbDatabase db;
    expectEmpty(saved(db));
    expectEmpty(saved(db, L"PEXT"));
    const AcDbObjectId id = line(db, {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    expectBox(saved(db), {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    erase(id);
    expectEmpty(saved(db));
}
TEST_F(DwgExtentsOfDrawing, shrink_when_what_reached_out_is_gone) {
    AcDbDatabase db;
    line(db, {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    const AcDbObjectId far = line(db, {0.0, 0.0, 0.0}, {100.0, 100.0, 0.0});
    expectBox(saved(db), {0.0, 0.0, 0.0}, {100.0, 100.0, 0.0});
    erase(far);
    expectBox(saved(db), {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
}
// The box of a turned symbol is larger than the symbol: such references are measured, not estimated.
TEST_F(DwgExtentsOfDrawing, of_references_are_exact_however_they_are_turned) {
    AcDbDatabase db;
    const AcDbObjectId block = sampleBlock(db, L"SIGN");
    sampleAppend(db, new AcDbCircle({0.0, 0.0, 0.0}, AcGeVector3d::kZAxis, 1.0), L"SIGN");
    for (int i = 0; i < 3; ++i) {
        auto* const reference = new AcDbBlockReference({10.0 * i, 0.0, 0.0}, block);
        reference->setRotation(kPi / 4.0);
        sampleAppend(db, reference);
    }
    expectBox(saved(db), {-1.0, -1.0, 0.0}, {21.0, 1.0, 0.0});
}
TEST_F(DwgExtentsOfDrawing, an_attribute_counts_wherever_it_stands) {
    AcDbDatabase db;
    const AcDbObjectId block = sampleBlock(db, L"SIGN");
    sampleAppend(db, new AcDbPoint(AcGePoint3d()), L"SIGN");
    line(db, {-1.0, -1.0, 0.0}, {1.0, 1.0, 0.0});
    const AcDbObjectId id = sampleAppend(db, new AcDbBlockReference(AcGePoint3d(), block));
    {
        AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
        auto* const attribute = new AcDbAttribute;
        attribute->setTextString(L"I");
        attribute->setHeight(2.0);
        attribute->setPosition({50.0, 0.0, 0.0});
        AcDbObjectId attributeId;
        reference->appendAttribute(attributeId, attribute);
        attribute->close();
    }
    EXPECT_GT(saved(db).upper.x, 50.0);
}
TEST_F(DwgExtentsOfDrawing, count_a_module_s_object_by_its_picture) {
    const SampleModule module;
    AcDbDatabase db;
    auto* const marker = new SampleMarker;
    marker->place = {100.0, 50.0, 0.0};
    const AcDbExtents picture = giExtentsOf(*marker);
    sampleAppend(db, marker);
    line(db, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    expectBox(saved(db), {0.0, 0.0, 0.0}, picture.maxPoint());
    ASSERT_GT(picture.maxPoint().x, 100.0);
}
TEST_F(DwgExtentsOfDrawing, of_a_module_s_object_without_its_module_are_those_of_the_kept_picture) {
    AcGePoint3d upper;
    {
        const SampleModule module;
        AcDbDatabase db;
        sampleAppend(db, new SampleMarker);
        upper = saved(db).upper;
    }
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
    line(db, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    expectBox(saved(db), {0.0, 0.0, 0.0}, upper);
}
TEST_F(DwgExtentsOfDrawing, of_an_unchanged_drawing_are_those_it_came_with) {
    AcDbDatabase first;
    line(first, {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    saved(first);
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
    DbObjectAccess::header(db)[L"EXTMAX"].point = {9.0, 9.0, 9.0};
    DbObjectAccess::header(db)[L"PEXTMIN"].point = DbObjectAccess::header(db)[L"PEXTMAX"].point = {}; // a layout never shown
    expectBox(saved(db), {0.0, 0.0, 0.0}, {9.0, 9.0, 9.0});
    EXPECT_EQ(told(db, L"PEXT").upper, AcGePoint3d());
    touch(db);
    expectBox(saved(db), {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    expectEmpty(saved(db, L"PEXT"));
}
// A module brings its objects in line with the drawing's scale at a load, which is no change of the drawing.
TEST_F(DwgExtentsOfDrawing, follow_a_module_s_objects_without_a_change) {
    const SampleModule module;
    AcDbDatabase first;
    const AcDbHandle handle = sampleAppend(first, new SampleMarker).handle();
    const Corners before = saved(first);
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
    AcDbObjectId id;
    db.getAcDbObjectId(id, false, handle);
    SampleMarker::cast(DbObjectAccess::peek(id))->place.x += 100.0;
    ASSERT_FALSE(db.hasChangedSinceSave());
    expectBox(saved(db), before.lower + AcGeVector3d(100.0, 0.0, 0.0), before.upper + AcGeVector3d(100.0, 0.0, 0.0), 1.0e-6);
}
TEST_F(DwgExtentsOfDrawing, that_came_empty_are_mended_without_a_change) {
    AcDbDatabase first;
    line(first, {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    saved(first);
    AcDbDatabase db(false);
    ASSERT_EQ(db.readDwgFile(path.c_str()), Acad::eOk);
    DbObjectAccess::header(db)[L"EXTMIN"].point = {1.0e20, 1.0e20, 1.0e20};
    DbObjectAccess::header(db)[L"EXTMAX"].point = {-1.0e20, -1.0e20, -1.0e20};
    expectBox(saved(db), {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
}
TEST_F(DwgExtentsOfDrawing, are_not_made_smaller_than_an_object_that_cannot_be_drawn) {
    AcDbDatabase db;
    sampleAppend(db, new AcDbProxyEntity);
    line(db, {0.0, 0.0, 0.0}, {1.0, 1.0, 0.0});
    DbObjectAccess::header(db)[L"EXTMIN"].point = {-5.0, -5.0, 0.0};
    DbObjectAccess::header(db)[L"EXTMAX"].point = {5.0, 5.0, 0.0};
    ASSERT_EQ(db.saveAs(path.c_str()), Acad::eOk);
    expectBox(told(db), {-5.0, -5.0, 0.0}, {5.0, 5.0, 0.0});
}
// Programs that knew what they had drawn told these extents; we come to the same by measuring.
TEST_F(DwgExtentsOfDrawing, agree_with_what_other_programs_told) {
    SKIP_WITHOUT_DRAWINGS();
    int compared = 0;
    for (const IndexedDrawing& drawing : indexedDrawings("AC1015"))
        for (const char* name : {"ezdwg-arc_2000.dwg", "ezdxf-807_1.dwg", "opencad-4solids.dwg"}) {
            if (drawing.path.find(name) == std::string::npos)
                continue;
            SCOPED_TRACE(name);
            AcDbDatabase db(false);
            ASSERT_EQ(db.readDwgFile(acHostPath(drawing.path).c_str()), Acad::eOk);
            const Corners theirs = told(db);
            touch(db);
            expectBox(saved(db), theirs.lower, theirs.upper, 1.0e-6);
            ++compared;
        }
    EXPECT_EQ(compared, 3);
}
