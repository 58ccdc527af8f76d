// A grip table serves places, drags, clicks and glyphs of an entity from its rows.
#include "TrfcGripTable.h"

#include "AppFixture.h"

#include "AcGiReceivers.h"

namespace {
class GrippedEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(GrippedEntity);
    std::vector<std::wstring> heard;
    int pairs = 2;
    bool hidden = false;
    std::wstring active;
    void setActiveGrip(const TrfcGripAppData& grip) { active = grip.name; }
    void clearActiveGrip() { active.clear(); }

    static std::span<const TrfcGripGroup<GrippedEntity>> gripGroups() {
        using E = GrippedEntity;
        using Data = TrfcGripAppData;
        static const TrfcGripRow<E> kRows[] = {
            {.name = L"move", .place = [](const E&, int) { return TrfcGripPlace{{1.0, 2.0, 0.0}, {0.0, 1.0, 0.0}}; }, .parts = kGripStatus,
             .drag = [](E& e, const Data& grip, const AcGeVector3d& v) { e.heard.push_back(acFormat(L"%s %d by %g", grip.name.c_str(), grip.index, v.x)); }},
            {.name = L"click", .place = [](const E&, int) { return TrfcGripPlace{{3.0, 0.0, 0.0}}; }, .parts = kGripNoRubberBand | kGripNoKeywords | kGripHalfSize,
             .glyph = gripGlyph<drawGripCircle>, .shown = [](const E& e) { return !e.hidden; }, .click = [](E& e, const Data&) { e.heard.push_back(L"clicked"); }},
        };
        static const TrfcGripRow<E> kPairRows[] = {
            {.name = L"a", .place = [](const E&, int i) { return TrfcGripPlace{{0.0, static_cast<double>(i), 0.0}, {}, AcGePoint3d(9.0, 9.0, 0.0)}; }},
            {.name = L"b", .place = [](const E&, int i) { return TrfcGripPlace{{1.0, static_cast<double>(i), 0.0}}; }},
        };
        static const TrfcGripGroup<E> kGroups[] = {{kRows}, {kPairRows, [](const E& e) { return e.pairs; }}};
        return kGroups;
    }
};
ACRX_DXF_DEFINE_MEMBERS(GrippedEntity, AcDbEntity, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"GrippedEntity", L"tests")

class GripTable : public AppFixture {
protected:
    GripTable() {
        GrippedEntity::rxInit();
        acrxBuildClassHierarchy();
    }
    ~GripTable() override {
        for (int i = 0; i < grips.length(); ++i)
            delete grips[i];
    }
    void show() { TrfcGripTable<GrippedEntity>::append(entity, grips); }
    const TrfcGripAppData& dataOf(int i) const { return *static_cast<const TrfcGripAppData*>(grips[i]->appData()); }
    std::wstring names() const {
        std::wstring text;
        for (int i = 0; i < grips.length(); ++i)
            text += dataOf(i).name + acFormat(L"%d ", dataOf(i).index);
        return text;
    }
    GrippedEntity entity;
    AcDbGripDataPtrArray grips;
};
} // namespace

TEST_F(GripTable, rows_stand_in_their_order_and_repeated_rows_side_by_side) {
    show();
    EXPECT_EQ(names(), L"move-1 click-1 a0 b0 a1 b1 ");
    EXPECT_EQ(grips[0]->gripPoint(), AcGePoint3d(1.0, 2.0, 0.0));
    EXPECT_EQ(dataOf(0).vector, AcGeVector3d(0.0, 1.0, 0.0));
    EXPECT_EQ(grips[4]->gripPoint(), AcGePoint3d(0.0, 1.0, 0.0));
}

TEST_F(GripTable, a_row_that_is_not_shown_leaves_no_grip) {
    entity.hidden = true;
    entity.pairs = 0;
    show();
    EXPECT_EQ(names(), L"move-1 ");
}

TEST_F(GripTable, the_data_hold_the_place_unless_the_row_says_another_point) {
    show();
    EXPECT_EQ(dataOf(0).point, AcGePoint3d(1.0, 2.0, 0.0));
    EXPECT_EQ(dataOf(2).point, AcGePoint3d(9.0, 9.0, 0.0));
}

TEST_F(GripTable, a_grip_has_the_hooks_and_flags_of_its_row) {
    show();
    EXPECT_NE(grips[0]->gripOpStatFunc(), nullptr);
    EXPECT_EQ(grips[0]->hotGripFunc(), nullptr);
    EXPECT_EQ(grips[0]->worldDraw(), nullptr);
    EXPECT_FALSE(grips[0]->isRubberBandLineDisabled());
    EXPECT_FALSE(grips[0]->areModeKeywordsDisabled());
    EXPECT_EQ(grips[1]->gripOpStatFunc(), nullptr);
    EXPECT_NE(grips[1]->hotGripFunc(), nullptr);
    EXPECT_NE(grips[1]->worldDraw(), nullptr);
    EXPECT_TRUE(grips[1]->isRubberBandLineDisabled());
    EXPECT_TRUE(grips[1]->areModeKeywordsDisabled());
}

TEST_F(GripTable, a_drag_goes_to_the_row_of_the_first_grip_and_the_entity_knows_it) {
    show();
    AcDbVoidPtrArray dragged;
    dragged.append(grips[0]->appData());
    TrfcGripTable<GrippedEntity>::move(entity, dragged, {5.0, 0.0, 0.0});
    EXPECT_EQ(entity.heard, std::vector<std::wstring>{L"move -1 by 5"});
    EXPECT_EQ(entity.active, L"move");
    TrfcGripTable<GrippedEntity>::move(entity, AcDbVoidPtrArray(), {5.0, 0.0, 0.0});
    EXPECT_EQ(entity.heard.size(), 1u);
}

TEST_F(GripTable, a_glyph_of_half_the_size_is_drawn_so) {
    show();
    const auto drawnAt = [this](double size) {
        GiDisplayListBuilder builder;
        grips[1]->worldDraw()(grips[1], &builder.worldDraw(), AcDbObjectId(), AcDbGripOperations::DrawType{}, nullptr, size);
        return giRecord(builder.list(), [](AcDbObjectId) { return std::wstring(L"-"); });
    };
    GiDisplayListBuilder circle;
    drawGripCircle(&circle.worldDraw(), circle.worldDraw().geometry(), 0, {3.0, 0.0, 0.0}, 2.0);
    EXPECT_EQ(drawnAt(4.0), giRecord(circle.list(), [](AcDbObjectId) { return std::wstring(L"-"); }));
}
