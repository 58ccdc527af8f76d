// The road marking: state, overlay, picture, filing.
#include "SignsFixture.h"

#include "DialogUser.h"
#include "TrfcBlockEnt.h"
#include "TrfcStateChangeData.h"

#include <cmath>
#include <ostream>

namespace {
class BlockEnt : public SignsFixture {
protected:
    // A marking hangs below its insertion point.
    S_BLOCK_DESCRIPTOR box(double width, double height) { return descriptor(L"jel.dwg", boxBlock(-width / 2.0, -height, width / 2.0, 0.0)); }
    // The overlay on the paper, as a share of the symbol's own box.
    struct Cover {
        double left, bottom, right, top;
        friend bool operator==(const Cover&, const Cover&) = default;
        friend std::ostream& operator<<(std::ostream& out, const Cover& c) { return out << c.left << ' ' << c.bottom << ' ' << c.right << ' ' << c.top; }
    };
    static AcDbExtents boxOf(const AcDbEntity& entity) {
        AcDbExtents extents;
        EXPECT_EQ(entity.getGeomExtents(extents), Acad::eOk);
        return extents;
    }
    static Cover cover(const TrfcBlockEnt& marking) {
        const AcDbExtents symbol = boxOf(marking.blockRef()), overlay = boxOf(marking.overlay());
        const AcGeVector3d size = symbol.maxPoint() - symbol.minPoint();
        const AcGeVector3d low = overlay.minPoint() - symbol.minPoint(), high = overlay.maxPoint() - symbol.minPoint();
        const auto share = [](double part, double whole) { return std::round(part / whole * 1e9) / 1e9; };
        return {share(low.x, size.x), share(low.y, size.y), share(high.x, size.x), share(high.y, size.y)};
    }
    S_BLOCK_DESCRIPTOR filledBox() {
        auto* hatch = new AcDbHatch;
        AcDbHatch::Loop loop;
        loop.type = AcDbHatch::kPolyline;
        loop.vertices = {{-0.5, 0.0}, {0.5, 0.0}, {0.5, 1.0}, {-0.5, 1.0}};
        hatch->appendLoop(loop);
        return descriptor(L"teli.dwg", makeBlock({hatch, new AcDbLine({0.0, 0.0, 0.0}, {0.0, 1.0, 0.0})}));
    }
};
} // namespace

TEST_F(BlockEnt, a_new_marking_in_the_default_state_2_has_no_overlay_until_the_state_is_set_again) {
    set(DOC_BLOCK_ENT_DEFAULT_TYPE, L"2");
    TrfcBlockEnt marking(box(1.0, 1.0), {1.0, 2.0, 0.0}, 0.5, 3.0);
    EXPECT_EQ(marking.entType(), kBlockEntToBeRemoved);
    EXPECT_FALSE(marking.hasOverlay());
    marking.setType(kBlockEntToBeRemoved);
    EXPECT_TRUE(marking.hasOverlay());
    EXPECT_EQ(marking.overlay().blockTableRecord(), builtInBlockId(kTableEliminate));
    EXPECT_DOUBLE_EQ(marking.scaleFactor(), 3.0);
}

TEST_F(BlockEnt, the_size_does_not_change_with_the_state) {
    TrfcBlockEnt marking(box(1.0, 1.0), 2.0);
    marking.setType(kBlockEntPlanned);
    EXPECT_DOUBLE_EQ(marking.scaleFactor(), 2.0);
    marking.setType(kBlockEntExisting);
    EXPECT_DOUBLE_EQ(marking.scaleFactor(), 2.0);
}

TEST_F(BlockEnt, the_overlay_of_a_wide_marking_is_twice_its_height_in_the_middle_of_it) {
    TrfcBlockEnt marking(box(5.0, 1.0));
    marking.setType(kBlockEntToBeRemoved);
    EXPECT_EQ(marking.overlay().scaleFactors(), AcGeScale3d(2.0, 1.0, 1.0));
    expectNear(marking.overlay().position(), marking.topPoint());
    EXPECT_EQ(cover(marking), (Cover{0.3, 0.0, 0.7, 1.0}));
}

TEST_F(BlockEnt, the_overlay_of_a_tall_marking_is_twice_its_width_in_the_middle_of_it) {
    TrfcBlockEnt marking(box(1.0, 5.0));
    marking.setType(kBlockEntToBeRemoved);
    EXPECT_EQ(marking.overlay().scaleFactors(), AcGeScale3d(1.0, 2.0, 1.0));
    expectNear(marking.overlay().position(), {0.0, -5.0 + 1.5, 0.0});
    EXPECT_EQ(cover(marking), (Cover{0.0, 0.3, 1.0, 0.7}));
}

TEST_F(BlockEnt, a_marking_of_sane_proportion_is_covered_whole_and_its_overlay_follows) {
    TrfcBlockEnt marking(box(2.0, 1.0));
    marking.setType(kBlockEntToBeRemoved);
    EXPECT_EQ(marking.overlay().scaleFactors(), AcGeScale3d(2.0, 1.0, 1.0));
    EXPECT_EQ(cover(marking), (Cover{0.0, 0.0, 1.0, 1.0}));
    marking.setRotation(kHalfPi);
    marking.setScaleFactor(2.0);
    marking.setPosition({10.0, 0.0, 0.0});
    EXPECT_EQ(marking.overlay().scaleFactors(), AcGeScale3d(4.0, 2.0, 1.0));
    expectNear(marking.overlay().position(), {12.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(marking.overlay().rotation(), kHalfPi);
    EXPECT_EQ(cover(marking), (Cover{0.0, 0.0, 1.0, 1.0}));
}

TEST_F(BlockEnt, exactly_twice_as_long_as_wide_counts_as_sane) {
    for (const auto& [width, height] : {std::pair(2.0, 1.0), std::pair(1.0, 2.0)}) {
        TrfcBlockEnt marking(box(width, height));
        marking.setType(kBlockEntToBeRemoved);
        EXPECT_EQ(marking.overlay().scaleFactors(), AcGeScale3d(width, height, 1.0));
        EXPECT_EQ(cover(marking), (Cover{0.0, 0.0, 1.0, 1.0}));
    }
}

TEST_F(BlockEnt, only_a_planned_marking_shows_its_fill) {
    TrfcBlockEnt marking(filledBox());
    EXPECT_TRUE(linesWith(drawn(marking), L"fill").empty());
    EXPECT_EQ(exploded(marking).size(), 1u);
    marking.setType(kBlockEntPlanned);
    EXPECT_EQ(linesWith(drawn(marking), L"fill").size(), 1u);
    EXPECT_EQ(exploded(marking).size(), 2u);
}

TEST_F(BlockEnt, a_state_change_to_existing_keeps_the_size_and_loses_the_fill) {
    stateChangeData().marking.plannedToExisting = stateChangeData().marking.existingToBeRemoved = true;
    TrfcBlockEnt marking(filledBox(), 2.0);
    marking.setType(kBlockEntPlanned);
    marking.stateChanges();
    EXPECT_EQ(marking.entType(), kBlockEntExisting);
    EXPECT_DOUBLE_EQ(marking.scaleFactor(), 2.0);
    EXPECT_TRUE(linesWith(drawn(marking), L"fill").empty());
    marking.stateChanges();
    EXPECT_EQ(marking.entType(), kBlockEntToBeRemoved);
    EXPECT_TRUE(marking.hasOverlay());
}

TEST_F(BlockEnt, a_marking_to_be_removed_is_erased_when_its_question_is_answered_with_OK) {
    stateChangeData().marking.toBeRemovedDeleted = true;
    auto made = std::make_unique<TrfcBlockEnt>(box(1.0, 1.0));
    made->setType(kBlockEntToBeRemoved);
    const AcDbObjectId id = resident(std::move(made));
    DialogUser user;
    user.does(L"@cancel").does(L"@ok");
    for (const bool erased : {false, true}) {
        {
            const AcDbObjectPointer<TrfcBlockEnt> marking(id, AcDb::kForWrite);
            marking->stateChanges();
        }
        EXPECT_EQ(id.isErased(), erased);
    }
    EXPECT_NE(user.printed().find(L"Biztosan törölni akarja a kiemelt burkolati jelet?"), std::wstring::npos);
}

TEST_F(BlockEnt, snaps_at_its_insertion_point_alone) {
    const TrfcBlockEnt marking(box(1.0, 1.0), {3.0, 4.0, 0.0}, 0.0, 1.0);
    AcGePoint3dArray points;
    for (const AcDb::OsnapMode mode : {AcDb::kOsModeMid, AcDb::kOsModeCen, AcDb::kOsModeIns, AcDb::kOsModeEnd})
        EXPECT_EQ(marking.getOsnapPoints(mode, points), Acad::eOk);
    ASSERT_EQ(points.length(), 1);
    expectNear(points[0], {3.0, 4.0, 0.0});
}

TEST_F(BlockEnt, grip2_dragged_onto_its_insertion_point_does_nothing) {
    TrfcBlockEnt marking(box(1.0, 3.0), {3.0, 4.0, 0.0}, 0.5, 1.0);
    const auto before = filed(marking);
    dragGrip(marking, L"grip2", marking.position() - marking.topPoint());
    EXPECT_EQ(filed(marking), before);
}

TEST_F(BlockEnt, its_grips_take_the_overlay_along) {
    TrfcBlockEnt marking(box(5.0, 1.0));
    marking.setType(kBlockEntToBeRemoved);
    dragGrip(marking, L"grip1", {2.0, 3.0, 0.0});
    expectNear(marking.overlay().position(), {2.0, 2.0, 0.0});
    EXPECT_EQ(cover(marking), (Cover{0.3, 0.0, 0.7, 1.0}));
    dragGrip(marking, L"grip2", {1.0, 1.0, 0.0}); // a quarter turn to the left
    expectNear(marking.overlay().position(), {3.0, 3.0, 0.0});
    EXPECT_NEAR(marking.overlay().rotation(), kHalfPi, 1e-12);
    EXPECT_EQ(cover(marking), (Cover{0.0, 0.3, 1.0, 0.7}));
}

TEST_F(BlockEnt, a_new_symbol_keeps_place_turn_scale_and_state) {
    TrfcBlockEnt marking(box(1.0, 1.0), {3.0, 4.0, 0.0}, 0.5, 2.0);
    marking.setType(kBlockEntToBeRemoved);
    marking.setBlock(box(5.0, 1.0));
    expectNear(marking.position(), {3.0, 4.0, 0.0});
    EXPECT_DOUBLE_EQ(marking.rotation(), 0.5);
    EXPECT_DOUBLE_EQ(marking.scaleFactor(), 2.0);
    EXPECT_EQ(marking.overlay().scaleFactors(), AcGeScale3d(4.0, 2.0, 1.0));
}

TEST_F(BlockEnt, a_transformation_takes_the_overlay_along) {
    TrfcBlockEnt marking(box(1.0, 1.0));
    marking.setType(kBlockEntToBeRemoved);
    marking.transformBy(AcGeMatrix3d::translation({5.0, 0.0, 0.0}));
    expectNear(marking.overlay().position(), {5.0, -1.0, 0.0});
    EXPECT_EQ(cover(marking), (Cover{0.0, 0.0, 1.0, 1.0}));
}

TEST_F(BlockEnt, its_dialog_works_on_a_clone) {
    const AcDbObjectId id = resident(std::make_unique<TrfcBlockEnt>(box(1.0, 1.0)));
    bool confirm = false;
    dialogAnswers().blockEnt = [&](TrfcBlockEnt& clone) {
        clone.setType(kBlockEntPlanned);
        return confirm;
    };
    for (const bool answer : {false, true}) {
        confirm = answer;
        AcDbObjectPointer<TrfcBlockEnt> marking(id);
        const Grips grips(*marking.object());
        marking.close();
        EXPECT_EQ(grips.find(L"grip3")->hotGripFunc()(grips.find(L"grip3"), id, 0), 3);
        const AcDbObjectPointer<TrfcBlockEnt> after(id);
        EXPECT_EQ(after->entType(), answer ? kBlockEntPlanned : kBlockEntExisting);
        EXPECT_EQ(after->objectId(), id);
    }
}

TEST_F(BlockEnt, comes_back_from_memory_unchanged) {
    TrfcBlockEnt marking(box(1.0, 3.0), {3.0, 4.0, 0.0}, 0.5, 2.0);
    marking.setColorIndex(4);
    marking.setType(kBlockEntToBeRemoved);
    const std::unique_ptr<TrfcBlockEnt> copy(marking.clone());
    EXPECT_EQ(filed(*copy), filed(marking));
    EXPECT_EQ(copy->colorIndex(), 4);
    TrfcBlockEnt target(box(9.0, 9.0));
    target.copyFromClone(copy.get());
    EXPECT_EQ(filed(target), filed(marking));
    target.copyFromClone(nullptr);
    EXPECT_EQ(filed(target), filed(marking));
}

TEST_F(BlockEnt, a_file_of_version_5_has_no_overlay_whatever_the_default_state) {
    for (const wchar_t* const state : {L"0", L"1", L"2"}) {
        set(DOC_BLOCK_ENT_DEFAULT_TYPE, state);
        const TrfcBlockEnt source(box(1.0, 1.0));
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        source.AcDbEntity::dwgOutFields(&memory);
        source.TrfcBlock::dwgOutFields(&memory);
        memory.writeUInt32(5);
        memory.seek(0, AcDb::kSeekFromStart);
        TrfcBlockEnt marking;
        EXPECT_EQ(marking.dwgInFields(&memory), Acad::eOk);
        EXPECT_EQ(marking.entType(), acWtoi(state));
        EXPECT_FALSE(marking.hasOverlay());
    }
}

TEST_F(BlockEnt, reads_its_state_and_overlay_from_version_6_on) {
    const TrfcBlockEnt source(box(1.0, 1.0));
    for (const Adesk::UInt32 version : {1u, 5u, 6u, 7u, 8u}) {
        SCOPED_TRACE(version);
        AcDbDeepCloneFiler memory(AcDb::kCopyFiler);
        source.AcDbEntity::dwgOutFields(&memory);
        source.TrfcBlock::dwgOutFields(&memory);
        memory.writeUInt32(version);
        if (version >= 6) {
            memory.writeBool(true);
            AcDbBlockReference(AcGePoint3d(), builtInBlockId(kTableEliminate)).dwgOutFields(&memory);
            memory.writeUInt16(2);
        }
        memory.seek(0, AcDb::kSeekFromStart);
        TrfcBlockEnt marking;
        EXPECT_EQ(marking.dwgInFields(&memory), version == 8 ? Acad::eMakeMeProxy : Acad::eOk);
        EXPECT_EQ(marking.hasOverlay(), version == 6 || version == 7);
        EXPECT_EQ(marking.entType(), version == 6 || version == 7 ? kBlockEntToBeRemoved : kBlockEntExisting);
    }
}
