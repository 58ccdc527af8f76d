// The polylines whose vertices stand in the drawing beside them.
#include "EntityTestSupport.h"

namespace {
class HeavyPolylineTest : public DrawingTest {
protected:
    AcDbObjectId plane(const std::vector<AcDbPolyline::Vertex>& vertices, bool closed) {
        auto* p = new AcDb2dPolyline;
        const AcDbObjectId id = addToModel(p);
        const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForWrite);
        polyline->setClosed(closed);
        for (const AcDbPolyline::Vertex& v : vertices) {
            auto* vertex = new AcDb2dVertex;
            vertex->setPosition({v.point.x, v.point.y, 0});
            vertex->setBulge(v.bulge);
            AcDbObjectId vertexId;
            EXPECT_EQ(polyline->appendVertex(vertexId, vertex), Acad::eOk);
            vertex->close();
        }
        return id;
    }
    AcDbObjectId space(const std::vector<AcGePoint3d>& points) {
        const AcDbObjectId id = addToModel(new AcDb3dPolyline);
        const AcDbObjectPointer<AcDb3dPolyline> polyline(id, AcDb::kForWrite);
        for (const AcGePoint3d& p : points) {
            auto* vertex = new AcDb3dPolylineVertex;
            vertex->setPosition(p);
            AcDbObjectId vertexId;
            EXPECT_EQ(polyline->appendVertex(vertexId, vertex), Acad::eOk);
            vertex->close();
        }
        return id;
    }
};
} // namespace

TEST_F(HeavyPolylineTest, draws_its_vertices_with_exact_arcs) {
    const AcDbObjectPointer<AcDb2dPolyline> p(plane({{{-2, 0}, 1.0}, {{2, 0}, 1.0}}, true));
    expectBox(extentsOf(*p.object()), {-2, -2, 0}, {2, 2, 0});
}

TEST_F(HeavyPolylineTest, owns_its_vertices) {
    const AcDbObjectPointer<AcDb2dPolyline> p(plane({{{0, 0}}, {{1, 0}}}, false));
    const AcDbObjectPointer<AcDb2dVertex> vertex(p->vertexIds()[1]);
    ASSERT_TRUE(vertex);
    EXPECT_EQ(vertex->ownerId(), p->objectId());
}

TEST_F(HeavyPolylineTest, outside_a_drawing_takes_no_vertices) {
    AcDb2dPolyline p;
    AcDb2dVertex vertex;
    AcDbObjectId id;
    EXPECT_EQ(p.appendVertex(id, &vertex), Acad::eNotInDatabase);
    EXPECT_EQ(p.appendVertex(id, nullptr), Acad::eNullObjectPointer);
}

TEST_F(HeavyPolylineTest, moves_its_vertices_and_turns_its_bulges_when_mirrored) {
    const AcDbObjectPointer<AcDb2dPolyline> p(plane({{{0, 0}, 0.5}, {{4, 0}}}, false), AcDb::kForWrite);
    ASSERT_EQ(p->transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0}) * AcGeMatrix3d::translation({1, 2, 3})), Acad::eOk);
    expectBox(extentsOf(*p.object()), {1, -2, 3}, {5, -1, 3}); // the sagitta is half the chord times the bulge
    EXPECT_NEAR(p->elevation(), 3, 1e-12);
    const AcDbObjectPointer<AcDb2dVertex> vertex(p->vertexIds()[0]);
    EXPECT_NEAR(vertex->bulge(), -0.5, 1e-12);
}

TEST_F(HeavyPolylineTest, unequal_scale_would_bend_its_arcs) {
    const AcDbObjectPointer<AcDb2dPolyline> p(plane({{{0, 0}, 0.5}, {{4, 0}}}, false), AcDb::kForWrite);
    EXPECT_EQ(p->transformBy(AcGeMatrix3d::scaling(AcGeScale3d(1, 2, 1))), Acad::eCannotScaleNonUniformly);
}

TEST_F(HeavyPolylineTest, a_copy_outside_the_drawing_cannot_move_the_vertices_of_the_first) {
    const AcDbObjectPointer<AcDb2dPolyline> p(plane({{{0, 0}}, {{4, 0}}}, false));
    const std::unique_ptr<AcDbEntity> copy(AcDbEntity::cast(p->clone()));
    EXPECT_EQ(copy->transformBy(AcGeMatrix3d::translation({1, 1, 1})), Acad::eNotInDatabase);
    expectBox(extentsOf(*p.object()), {0, 0, 0}, {4, 0, 0});
}

TEST_F(HeavyPolylineTest, control_points_of_a_splined_one_are_not_drawn) {
    const AcDbObjectId id = plane({{{0, 0}}, {{2, 50}}, {{4, 0}}}, false);
    const AcDbObjectPointer<AcDb2dPolyline> p(id);
    {
        const AcDbObjectPointer<AcDb2dVertex> vertex(p->vertexIds()[1], AcDb::kForWrite);
        vertex->setFlags(16);
    }
    expectBox(extentsOf(*p.object()), {0, 0, 0}, {4, 0, 0});
}

TEST_F(HeavyPolylineTest, explodes_to_lines_and_arcs) {
    const AcDbObjectPointer<AcDb2dPolyline> p(plane({{{0, 0}}, {{4, 0}, 1.0}, {{4, 2}}}, true));
    const Exploded pieces(*p.object());
    ASSERT_EQ(pieces.size(), 3u);
    EXPECT_NE(pieces.as<AcDbLine>(0), nullptr);
    EXPECT_NE(pieces.as<AcDbArc>(1), nullptr);
    EXPECT_NE(pieces.as<AcDbLine>(2), nullptr);
}

TEST_F(HeavyPolylineTest, a_grip_moves_one_vertex) {
    const AcDbObjectPointer<AcDb2dPolyline> p(plane({{{0, 0}}, {{4, 0}}}, false), AcDb::kForWrite);
    AcIntArray second;
    second.append(1);
    ASSERT_EQ(p->moveGripPointsAt(second, {1, 3, 0}), Acad::eOk);
    expectBox(extentsOf(*p.object()), {0, 0, 0}, {5, 3, 0});
}

TEST_F(HeavyPolylineTest, in_space_draws_moves_and_explodes) {
    const AcDbObjectPointer<AcDb3dPolyline> p(space({{0, 0, 0}, {1, 2, 3}, {4, 4, 4}}), AcDb::kForWrite);
    expectBox(extentsOf(*p.object()), {0, 0, 0}, {4, 4, 4});
    ASSERT_EQ(p->transformBy(AcGeMatrix3d::scaling(AcGeScale3d(1, 2, 3))), Acad::eOk);
    expectBox(extentsOf(*p.object()), {0, 0, 0}, {4, 8, 12});
    const Exploded open(*p.object());
    EXPECT_EQ(open.size(), 2u);
    p->setFlags(1);
    const Exploded closed(*p.object());
    ASSERT_EQ(closed.size(), 3u);
    expectPoint(closed.as<AcDbLine>(2)->endPoint(), {0, 0, 0});
    AcIntArray first;
    first.append(0);
    ASSERT_EQ(p->moveGripPointsAt(first, {-1, 0, 0}), Acad::eOk);
    EXPECT_NEAR(extentsOf(*p.object()).minPoint().x, -1, 1e-12);
}
