// A mirrored marking: whatever is done to it afterwards, its grips and its overlay stay on its symbol.
#include "SignsFixture.h"

#include "TrfcBlockEnt.h"

#include <rapidcheck/gtest.h>

namespace {
using Points = std::vector<AcGePoint3d>;
constexpr double kLength = 3.0;

double any(double low, double high) {
    return low + (high - low) * *rc::gen::inRange(0, 1000001) / 1e6;
}

class Mirror : public SignsFixture {
public:
    void TestBody() override {}

    // A flag that no mirror and no turn brings onto itself, to one side of its insertion point.
    S_BLOCK_DESCRIPTOR flag(double direction) {
        auto* line = new AcDbPolyline(5);
        const AcGePoint2d corners[] = {
            {0.0, 0.0}, {1.0, direction}, {0.0, 2.0 * direction}, {-1.0, kLength * direction}, {0.0, direction}};
        for (unsigned int i = 0; i < 5; ++i)
            line->addVertexAt(i, corners[i]);
        return descriptor(L"zaszlo.dwg", makeBlock({line}));
    }
    std::unique_ptr<TrfcBlockEnt> anyMarking() {
        const S_BLOCK_DESCRIPTOR symbol = flag(*rc::gen::element(1.0, -1.0));
        auto marking =
            std::make_unique<TrfcBlockEnt>(symbol, AcGePoint3d(any(-9, 9), any(-9, 9), 0.0), any(-4, 4), any(0.5, 3));
        marking->setType(kBlockEntToBeRemoved);
        return marking;
    }
    static AcGeMatrix3d anyMirror() {
        const AcGePoint3d at(any(-9, 9), any(-9, 9), 0.0);
        AcGeVector3d along = AcGeVector3d::kXAxis;
        along.rotateBy(any(-4, 4), AcGeVector3d::kZAxis);
        // About the plane through the line, or turned over about the line: in the plan it is the same.
        return *rc::gen::arbitrary<bool>() ? AcGeMatrix3d::mirroring(at, along.perpVector())
                                           : AcGeMatrix3d::rotation(kPi, along, at);
    }
};

// Where a marking shows: its corners, its grips, and a few points of its overlay.
Points looks(const TrfcBlockEnt& marking) {
    Points points;
    const auto parts = exploded(marking);
    const auto* const line = AcDbPolyline::cast(parts.at(0).get());
    for (unsigned int i = 0; line != nullptr && i < line->numVerts(); ++i) {
        AcGePoint3d corner;
        line->getPointAt(i, corner);
        points.push_back(corner);
    }
    const Grips grips(marking);
    for (int i = 0; i < 3; ++i)
        points.push_back(grips.at(i)->gripPoint());
    for (const AcGePoint3d& p : {AcGePoint3d(-0.5, 0.0, 0.0), AcGePoint3d(0.5, 0.0, 0.0), AcGePoint3d(0.2, 1.0, 0.0)})
        points.push_back(marking.overlay().blockTransform() * p);
    return points;
}

Points images(const Points& points, const AcGeMatrix3d& matrix) {
    Points result;
    for (const AcGePoint3d& point : points)
        result.push_back(matrix * point);
    return result;
}

void checkSame(const Points& actual, const Points& expected) {
    RC_ASSERT(actual.size() == expected.size());
    RC_ASSERT(actual.size() == 11u);
    for (std::size_t i = 0; i < actual.size(); ++i)
        RC_ASSERT(actual[i].distanceTo(expected[i]) < 1e-6);
}

// What the next edit, the next opening or the next choice of the symbol makes of it is the same picture.
void checkSettled(TrfcBlockEnt& marking, const Points& expected) {
    checkSame(looks(marking), expected);
    checkSame(looks(*std::unique_ptr<TrfcBlockEnt>(marking.clone())), expected);
    dragGrip(marking, L"grip1", {0.0, 0.0, 0.0});
    checkSame(looks(marking), expected);
    marking.rotateBy(kTwoPi);
    checkSame(looks(marking), expected);
    marking.setBlock(marking.descriptor());
    checkSame(looks(marking), expected);
    marking.setType(kBlockEntExisting);
    marking.setType(kBlockEntToBeRemoved);
    checkSame(looks(marking), expected);
}
} // namespace

RC_GTEST_FIXTURE_PROP(Mirror, keeps_grips_and_overlay_on_the_symbol, ()) {
    const auto marking = anyMarking();
    Points expected = looks(*marking);
    for (int mirrors = *rc::gen::inRange(1, 4); mirrors > 0; --mirrors) {
        const AcGeMatrix3d mirror = anyMirror();
        RC_ASSERT(marking->transformBy(mirror) == Acad::eOk);
        expected = images(expected, mirror);
        checkSettled(*marking, expected);
    }
    RC_ASSERT(!testing::Test::HasFailure());
}

RC_GTEST_FIXTURE_PROP(Mirror, a_mirrored_marking_turns_by_its_grip_to_where_that_is_dragged, ()) {
    const auto marking = anyMarking();
    marking->transformBy(anyMirror());
    const Points before = looks(*marking);
    const double turn = any(-3, 3);
    const AcGeMatrix3d rotation = AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis, marking->position());
    dragGrip(*marking, L"grip2", rotation * marking->topPoint() - marking->topPoint());
    checkSettled(*marking, images(before, rotation));
    RC_ASSERT(!testing::Test::HasFailure());
}

TEST_F(Mirror, the_sizes_of_a_mirrored_block_stay_positive) {
    TrfcBlock block(flag(-1.0), {}, 0.0, 2.0);
    block.transformBy(AcGeMatrix3d::mirroring({}, AcGeVector3d::kYAxis));
    block.setUniqueScaleFactor(1.5);
    expectNear(block.blockRef().blockTransform() * AcGePoint3d(1.0, -1.0, 0.0), {3.0, 3.0, 0.0});
    block.setScaleFactor(4.0);
    EXPECT_DOUBLE_EQ(block.height(), kLength * 6.0);
    EXPECT_DOUBLE_EQ(block.width(), 2.0 * 6.0);
    expectNear(block.topPoint(), {0.0, kLength * 6.0, 0.0});
    block.setReferenceScale(1.0);
    expectNear(block.blockRef().blockTransform() * AcGePoint3d(1.0, -1.0, 0.0), {1.0, 1.0, 0.0});
}

TEST_F(Mirror, the_cover_of_a_mirrored_plate_is_mirrored_with_it_and_stays_so) {
    TrfcTable table(plate(L"a.dwg"));
    table.setType(kBlockCovered);
    const AcGePoint3d corner(0.5, 1.0, 0.0), before = table.overlay().blockTransform() * corner;
    const AcGeMatrix3d mirror = AcGeMatrix3d::mirroring({1.0, 2.0, 0.0}, AcGeVector3d(0.6, 0.8, 0.0));
    table.transformBy(mirror);
    expectNear(table.overlay().blockTransform() * corner, mirror * before);
    table.regen();
    expectNear(table.overlay().blockTransform() * corner, mirror * before);
}

TEST_F(Mirror, an_earlier_drawing_with_the_mirror_on_the_other_axis_is_read_with_its_picture) {
    TrfcBlockEnt source(flag(-1.0), {3.0, 4.0, 0.0}, 0.5, 1.0);
    source.setType(kBlockEntToBeRemoved);
    source.transformBy(AcGeMatrix3d::mirroring({}, AcGeVector3d::kYAxis));
    AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
    source.AcDbEntity::dwgOutFields(&memory);
    memory.writeUInt32(7);
    AcDbBlockReference reference({3.0, -4.0, 0.0}, source.descriptor().blockId);
    reference.dwgOutFields(&memory);
    memory.writePoint3d({3.0, -4.0, 0.0});
    memory.writeDouble(-0.5);
    memory.writeScale3d(AcGeScale3d(1.0, -1.0, 1.0));
    for (int i = 0; i < 3; ++i)
        memory.writeString(L"zaszlo.dwg");
    for (const double value : {2.0, kLength, 1.0})
        memory.writeDouble(value);
    memory.writeInt16(-1);
    memory.writeVector3d(source.upVector());
    memory.writePoint3d(source.topPoint());
    memory.writeInt32(0);
    memory.writeInt32(0);
    memory.writeUInt32(0);
    memory.writeUInt32(7);
    memory.writeBool(true);
    AcDbBlockReference({}, builtInBlockId(kTableEliminate)).dwgOutFields(&memory);
    memory.writeUInt16(2);
    memory.seek(0, AcDb::kSeekFromStart);
    TrfcBlockEnt marking;
    ASSERT_EQ(marking.dwgInFields(&memory), Acad::eOk);
    const Points expected = looks(source);
    for (const bool edited : {false, true}) {
        if (edited)
            marking.setRotation(marking.rotation());
        const Points actual = looks(marking);
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i)
            expectNear(actual[i], expected[i]);
    }
}
