// What holds of every entity: made by name, filed and read back, cloned, moved with its picture.
#include "EntitySamples.h"
#include "EntityTestSupport.h"

#include "AcUtText.h"

#include <algorithm>

namespace {
AcGeMatrix3d movedAndTurned() {
    return AcGeMatrix3d::translation({10, -20, 5}) * AcGeMatrix3d::rotation(0.7, AcGeVector3d(0.2, 0.3, 0.9).normal());
}
std::unique_ptr<AcDbEntity> cloned(const AcDbEntity& entity) {
    return std::unique_ptr<AcDbEntity>(AcDbEntity::cast(entity.clone()));
}

class EveryEntity : public testing::TestWithParam<std::size_t> {
protected:
    EntitySample sample = entitySamples()[GetParam()];
    std::unique_ptr<AcDbEntity> entity = sample.make();

    // True when the entity under the matrix shows what the matrix makes of its picture.
    testing::AssertionResult follows(const AcGeMatrix3d& matrix) {
        const std::unique_ptr<AcDbEntity> image = cloned(*entity);
        const Acad::ErrorStatus es = image->transformBy(matrix);
        if (es != Acad::eOk)
            return testing::AssertionFailure() << acToUtf8(acadErrorStatusText(es));
        return looksAlike(*image, {}, *entity, matrix, sample.tolerance);
    }
};

std::string sampleName(const testing::TestParamInfo<std::size_t>& info) {
    return acToUtf8(entitySamples()[info.param].name) + "_" + std::to_string(info.param);
}
} // namespace

TEST_P(EveryEntity, is_registered_and_made_by_name) {
    const AcRxClass* type = acrxFindClass(sample.name);
    ASSERT_NE(type, nullptr);
    ASSERT_NE(type->dxfName(), nullptr);
    const std::unique_ptr<AcRxObject> made(type->create());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->isA(), type);
    EXPECT_EQ(entity->isA(), type);
}

TEST_P(EveryEntity, as_made_files_and_reads_back_unchanged) {
    const std::unique_ptr<AcRxObject> made(entity->isA()->create()), read(entity->isA()->create());
    AcDbDeepCloneFiler filer;
    ASSERT_EQ(AcDbObject::cast(made.get())->dwgOut(&filer), Acad::eOk);
    filer.seek(0, AcDb::kSeekFromStart);
    ASSERT_EQ(AcDbObject::cast(read.get())->dwgIn(&filer), Acad::eOk);
    EXPECT_EQ(filed(*AcDbObject::cast(read.get())), filed(*AcDbObject::cast(made.get())));
}

TEST_P(EveryEntity, files_and_reads_back_unchanged) {
    AcDbDeepCloneFiler filer;
    ASSERT_EQ(entity->dwgOut(&filer), Acad::eOk);
    filer.seek(0, AcDb::kSeekFromStart);
    const std::unique_ptr<AcRxObject> read(entity->isA()->create());
    ASSERT_EQ(AcDbObject::cast(read.get())->dwgIn(&filer), Acad::eOk);
    EXPECT_EQ(filed(*AcDbObject::cast(read.get())), filed(*entity));
}

TEST_P(EveryEntity, a_clone_equals_it_and_looks_like_it) {
    const std::unique_ptr<AcDbEntity> clone = cloned(*entity);
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(filed(*clone), filed(*entity));
    EXPECT_EQ(drawn(*clone), drawn(*entity));
}

TEST_P(EveryEntity, a_stream_that_ends_early_is_an_error) {
    AcDbDeepCloneFiler filer;
    filer.writeInt32(7);
    filer.seek(0, AcDb::kSeekFromStart);
    const std::unique_ptr<AcRxObject> read(entity->isA()->create());
    EXPECT_NE(AcDbObject::cast(read.get())->dwgIn(&filer), Acad::eOk);
}

TEST_P(EveryEntity, moves_and_turns_with_its_picture) {
    EXPECT_TRUE(follows(AcGeMatrix3d::translation({3, 4, 5})));
    EXPECT_TRUE(follows(AcGeMatrix3d::rotation(1.1, {0, 0, 1}, {2, 2, 0})));
    EXPECT_TRUE(follows(movedAndTurned()));
}

TEST_P(EveryEntity, grows_with_its_picture) {
    EXPECT_TRUE(follows(AcGeMatrix3d::scaling(2.5, {1, 1, 0})));
}

TEST_P(EveryEntity, is_mirrored_with_its_picture_or_stays_legible) {
    if (!sample.mirrors) {
        EXPECT_FALSE(follows(AcGeMatrix3d::mirroring({1, 0, 0}, {1, 0, 0}))) << "its letters are not turned round";
        return;
    }
    EXPECT_TRUE(follows(AcGeMatrix3d::mirroring({1, 0, 0}, {1, 0, 0})));
    EXPECT_TRUE(follows(AcGeMatrix3d::mirroring({0, 2, 0}, {0, 1, 0})));
    EXPECT_TRUE(follows(AcGeMatrix3d::mirroring({0, 0, 1}, {0, 0, 1})));
    EXPECT_TRUE(follows(AcGeMatrix3d::mirroring({1, 1, 0}, AcGeVector3d(0.6, -0.5, 0.3).normal())));
}

TEST_P(EveryEntity, takes_an_unequal_scale_with_its_picture_or_refuses_it_unchanged) {
    const AcGeMatrix3d unequal = AcGeMatrix3d::scaling(AcGeScale3d(2.0, 0.5, 1.5), {1, 1, 0});
    if (sample.takesUnequal) {
        EXPECT_TRUE(follows(unequal));
        return;
    }
    const std::vector<std::wstring> before = filed(*entity);
    const Acad::ErrorStatus es = entity->transformBy(unequal);
    if (es != Acad::eOk) {
        EXPECT_EQ(es, Acad::eCannotScaleNonUniformly);
        EXPECT_EQ(filed(*entity), before);
    }
}

TEST_P(EveryEntity, its_extents_are_those_of_its_picture) {
    const AcDbExtents own = extentsOf(*entity), picture = giExtentsOf(*entity);
    expectBox(own, picture.minPoint(), picture.maxPoint(), 1e-12);
}

TEST_P(EveryEntity, a_grip_dragged_and_dragged_back_leaves_it_as_it_was) {
    AcGePoint3dArray grips;
    AcIntArray none, ids;
    ASSERT_EQ(entity->getGripPoints(grips, none, ids), Acad::eOk);
    ASSERT_GT(grips.length(), 0);
    const AcGeVector3d offset(0.25, -0.5, 0.0);
    AcIntArray first;
    first.append(0);
    const AcDbExtents before = giExtentsOf(*entity);
    ASSERT_EQ(entity->moveGripPointsAt(first, offset), Acad::eOk);
    AcGePoint3dArray moved;
    ASSERT_EQ(entity->getGripPoints(moved, none, ids), Acad::eOk);
    EXPECT_EQ(moved.length(), grips.length());
    ASSERT_EQ(entity->moveGripPointsAt(first, -offset), Acad::eOk);
    const AcDbExtents after = giExtentsOf(*entity);
    expectBox(after, before.minPoint(), before.maxPoint());
}

TEST_P(EveryEntity, lists_itself) {
    std::wstring printed;
    const AcPrintSink before = acSetPrintSink([&](std::wstring_view text) { printed += text; });
    entity->list();
    acSetPrintSink(before);
    EXPECT_NE(printed.find(entity->isA()->dxfName()), std::wstring::npos);
    EXPECT_GT(std::count(printed.begin(), printed.end(), L'\n'), 2);
}

INSTANTIATE_TEST_SUITE_P(Samples, EveryEntity, testing::Range<std::size_t>(0, entitySamples().size()), sampleName);
