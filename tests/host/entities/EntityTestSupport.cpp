// What the tests of the built-in entities share.
#include "EntityTestSupport.h"

DrawingTest::DrawingTest() : mBefore(acdbHostApplicationServices()->workingDatabase()) {
    acdbHostApplicationServices()->setWorkingDatabase(&db);
}
DrawingTest::~DrawingTest() {
    acdbHostApplicationServices()->setWorkingDatabase(mBefore);
}

AcDbObjectId DrawingTest::addBlock(const wchar_t* name, std::vector<AcDbEntity*> entities, const AcGePoint3d& origin) {
    AcDbObjectId id;
    AcDbBlockTable* table = nullptr;
    EXPECT_EQ(db.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbBlockTableRecord;
    record->setName(name);
    record->setOrigin(origin);
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    table->close();
    for (AcDbEntity* entity : entities) {
        EXPECT_EQ(record->appendAcDbEntity(entity), Acad::eOk);
        entity->close();
    }
    record->close();
    return id;
}

AcDbObjectId DrawingTest::addToModel(AcDbEntity* entity) {
    AcDbObjectId id;
    AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    EXPECT_EQ(space.openStatus(), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

Exploded::Exploded(const AcDbEntity& entity) {
    AcDbVoidPtrArray pieces;
    status = entity.explode(pieces);
    for (void* piece : pieces)
        mPieces.emplace_back(static_cast<AcDbEntity*>(piece));
}

std::vector<std::wstring> filed(const AcDbObject& object) {
    AcDbRecordingFiler filer;
    EXPECT_EQ(object.dwgOut(&filer), Acad::eOk);
    return filer.lines();
}

std::vector<std::wstring> drawn(AcDbEntity& entity) {
    return giRecord(entity, {});
}

GiDisplayList pictureOf(AcGiDrawable& drawable, double deviation) {
    GiDisplayListBuilder builder(false, kAcGiStandardDisplay, deviation);
    builder.add(drawable);
    return builder.take();
}

namespace {
class Placed : public AcGiDrawable {
public:
    Placed(const AcGeMatrix3d& matrix, AcGiDrawable& drawable) : mMatrix(matrix), mDrawable(drawable) {}

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override {
        worldDraw->geometry().pushModelTransform(mMatrix);
        worldDraw->geometry().draw(&mDrawable);
        worldDraw->geometry().popModelTransform();
        return true;
    }

private:
    AcGeMatrix3d mMatrix;
    AcGiDrawable& mDrawable;
};
} // namespace

AcDbExtents extentsUnder(const AcGeMatrix3d& matrix, AcGiDrawable& drawable) {
    Placed placed(matrix, drawable);
    return giExtentsOf(placed);
}

AcDbExtents extentsOf(const AcDbEntity& entity) {
    AcDbExtents extents;
    EXPECT_EQ(entity.getGeomExtents(extents), Acad::eOk);
    return extents;
}

testing::AssertionResult looksAlike(AcGiDrawable& a, const AcGeMatrix3d& ofA, AcGiDrawable& b, const AcGeMatrix3d& ofB,
                                    double tolerance) {
    for (int i = 0; i < 14; ++i) {
        const AcGeVector3d axis(std::sin(i * 0.7), std::cos(i * 1.3), i < 7 ? 4.0 : std::sin(i * 2.1));
        const AcGeMatrix3d turn = i == 0 ? AcGeMatrix3d() : AcGeMatrix3d::rotation(0.45 * i, axis.normal());
        const AcDbExtents boxA = extentsUnder(turn * ofA, a), boxB = extentsUnder(turn * ofB, b);
        if (!boxA.isValid() || !boxB.isValid())
            return testing::AssertionFailure() << "nothing is drawn";
        const double off = std::max(boxA.minPoint().distanceTo(boxB.minPoint()), boxA.maxPoint().distanceTo(boxB.maxPoint()));
        if (!(off <= tolerance))
            return testing::AssertionFailure() << "the pictures differ by " << off << " as seen in direction " << i;
    }
    return testing::AssertionSuccess();
}

void expectPoint(const AcGePoint3d& actual, const AcGePoint3d& expected, double tolerance) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

void expectBox(const AcDbExtents& box, const AcGePoint3d& lower, const AcGePoint3d& upper, double tolerance) {
    ASSERT_TRUE(box.isValid());
    expectPoint(box.minPoint(), lower, tolerance);
    expectPoint(box.maxPoint(), upper, tolerance);
}
