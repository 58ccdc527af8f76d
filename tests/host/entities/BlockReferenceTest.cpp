// Block references: transform, picture, extents, attributes, explode.
#include "DbObjectAccess.h"
#include "EntityTestSupport.h"

#include <algorithm>

namespace {
class BlockReferenceTest : public DrawingTest {
protected:
    AcDbLine* line(const AcGePoint3d& from, const AcGePoint3d& to, int color = 0) {
        auto* e = new AcDbLine(from, to);
        e->setColorIndex(static_cast<Adesk::UInt16>(color));
        return e;
    }
    AcDbAttributeDefinition* definition(const wchar_t* tag, const AcGePoint3d& at) {
        auto* e = new AcDbAttributeDefinition;
        e->setTag(tag);
        e->setTextString(L"text");
        e->setHeight(1.0);
        e->setPosition(at);
        return e;
    }
    AcDbAttribute* attribute(const wchar_t* text, const AcGePoint3d& at) {
        auto* e = new AcDbAttribute;
        e->setTag(L"T");
        e->setTextString(text);
        e->setHeight(1.0);
        e->setPosition(at);
        return e;
    }
    void append(AcDbObjectId reference, AcDbAttribute* a) {
        const AcDbObjectPointer<AcDbBlockReference> r(reference, AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(r->appendAttribute(id, a), Acad::eOk);
        a->close();
    }
};
} // namespace

// ---- transform
TEST_F(BlockReferenceTest, carries_the_blocks_base_point_to_its_position) {
    const AcDbObjectId block = addBlock(L"B", {line({1, 1, 0}, {3, 1, 0})}, {1, 1, 0});
    AcDbBlockReference reference({10, 20, 5}, block);
    reference.setScaleFactors(AcGeScale3d(2, 3, 1));
    reference.setRotation(kHalfPi);
    expectPoint(reference.blockTransform() * AcGePoint3d(1, 1, 0), {10, 20, 5});
    expectPoint(reference.blockTransform() * AcGePoint3d(3, 1, 0), {10, 24, 5});
    expectBox(extentsOf(reference), {10, 20, 5}, {10, 24, 5});
}

TEST_F(BlockReferenceTest, its_transform_set_back_leaves_it_as_it_was) {
    const AcDbObjectId block = addBlock(L"B", {line({1, 1, 0}, {3, 1, 0})}, {1, 1, 0});
    AcDbBlockReference reference({10, 20, 5}, block);
    reference.setNormal(AcGeVector3d(0.2, 0.3, 0.9).normal());
    reference.setRotation(0.8);
    reference.setScaleFactors(AcGeScale3d(2, -3, 1.5));
    const AcGeMatrix3d matrix = reference.blockTransform();
    ASSERT_EQ(reference.setBlockTransform(matrix), Acad::eOk);
    EXPECT_TRUE(reference.blockTransform().isEqualTo(matrix));
    EXPECT_NEAR(reference.rotation(), 0.8, 1e-9);
    EXPECT_NEAR(reference.scaleFactors().sy, -3, 1e-9);
    expectPoint(reference.position(), {10, 20, 5});
}

TEST_F(BlockReferenceTest, mirrored_it_turns_a_scale_factor_negative_and_keeps_its_turn) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {3, 1, 0})});
    AcDbBlockReference reference({1, 0, 0}, block);
    ASSERT_EQ(reference.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {1, 0, 0})), Acad::eOk);
    EXPECT_NEAR(reference.scaleFactors().sx, -1, 1e-12);
    EXPECT_NEAR(reference.scaleFactors().sy, 1, 1e-12);
    EXPECT_NEAR(reference.rotation(), 0, 1e-12);
    expectBox(extentsOf(reference), {-4, 0, 0}, {-1, 1, 0});
    ASSERT_EQ(reference.transformBy(AcGeMatrix3d::mirroring({0, 0, 0}, {0, 1, 0})), Acad::eOk);
    EXPECT_NEAR(reference.scaleFactors().sy, -1, 1e-12);
    expectBox(extentsOf(reference), {-4, -1, 0}, {-1, 0, 0});
}

TEST_F(BlockReferenceTest, follows_moves_turns_growth_and_mirrors_with_its_picture) {
    auto* arc = new AcDbArc({1, 1, 0}, 2, 0.4, 3.0);
    const AcDbObjectId block = addBlock(L"B", {line({1, 0, 0}, {3, 1, 2}), arc, new AcDbText({1, 2, 0}, L"Ag", {}, 1.5, 0.4)});
    AcDbBlockReference reference({1, 2, 3}, block);
    reference.setRotation(0.6);
    reference.setScaleFactors(AcGeScale3d(2, 1, 0.5));
    const AcGeMatrix3d matrices[] = {
        AcGeMatrix3d::translation({1, 2, 3}), AcGeMatrix3d::rotation(1.0, AcGeVector3d(1, 2, 3).normal(), {4, 5, 6}),
        AcGeMatrix3d::scaling(2.5, {1, 1, 1}), AcGeMatrix3d::mirroring({1, 0, 0}, AcGeVector3d(1, 0.4, 0.2).normal()),
        AcGeMatrix3d::mirroring({0, 0, 1}, {0, 0, 1})};
    for (const AcGeMatrix3d& matrix : matrices) {
        const std::unique_ptr<AcDbEntity> image(AcDbEntity::cast(reference.clone()));
        ASSERT_EQ(image->transformBy(matrix), Acad::eOk);
        EXPECT_TRUE(looksAlike(*image, {}, reference, matrix, 1e-8));
    }
}

TEST_F(BlockReferenceTest, a_matrix_that_would_slant_it_is_refused) {
    AcDbBlockReference reference({1, 2, 3}, addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})}));
    reference.setRotation(kPi / 4);
    EXPECT_EQ(reference.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(2, 1, 1))), Acad::eCannotScaleNonUniformly);
    expectPoint(reference.position(), {1, 2, 3});
    reference.setRotation(0.0);
    EXPECT_EQ(reference.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(0, 1, 1))), Acad::eInvalidInput);
    expectPoint(reference.position(), {1, 2, 3});
    EXPECT_EQ(reference.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(2, 1, 1))), Acad::eOk);
    EXPECT_NEAR(reference.scaleFactors().sx, 2, 1e-12);
}

// ---- picture
TEST_F(BlockReferenceTest, without_a_block_draws_nothing) {
    AcDbBlockReference reference;
    EXPECT_TRUE(pictureOf(reference).primitives.empty());
    AcDbExtents extents;
    EXPECT_EQ(reference.getGeomExtents(extents), Acad::eInvalidExtents);
    EXPECT_EQ(Exploded(reference).status, Acad::eNullObjectId);
}

TEST_F(BlockReferenceTest, of_a_block_without_entities_has_no_extents) {
    const AcDbBlockReference reference({0, 0, 0}, addBlock(L"B", {}));
    AcDbExtents extents;
    EXPECT_EQ(reference.getGeomExtents(extents), Acad::eInvalidExtents);
}

TEST_F(BlockReferenceTest, curves_and_texts_count_exactly_in_its_extents) {
    auto* ring = new AcDbPolyline;
    ring->addVertexAt(0, {-1, 0}, 1.0);
    ring->addVertexAt(1, {1, 0}, 1.0);
    ring->setClosed(true);
    const AcDbObjectId block = addBlock(L"B", {ring});
    AcDbBlockReference reference({5, 5, 0}, block);
    reference.setRotation(0.37);
    reference.setScaleFactors(AcGeScale3d(3));
    expectBox(extentsOf(reference), {2, 2, 0}, {8, 8, 0});
}

TEST_F(BlockReferenceTest, attribute_definitions_are_neither_drawn_nor_measured) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 1, 0}), definition(L"FAR", {100, 100, 0})});
    AcDbBlockReference reference({0, 0, 0}, block);
    expectBox(extentsOf(reference), {0, 0, 0}, {1, 1, 0});
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
    AcDbExtents extents;
    ASSERT_EQ(record->getGeomExtents(extents), Acad::eOk);
    expectBox(extents, {0, 0, 0}, {1, 1, 0});
    EXPECT_EQ(pictureOf(*record.object()).primitives.size(), 1u);
}

TEST_F(BlockReferenceTest, a_nested_blocks_attribute_definitions_do_not_count_either) {
    const AcDbObjectId inner = addBlock(L"INNER", {line({0, 0, 0}, {1, 1, 0}), definition(L"FAR", {100, 100, 0})});
    const AcDbObjectId outer = addBlock(L"OUTER", {new AcDbBlockReference({2, 0, 0}, inner)});
    expectBox(extentsOf(AcDbBlockReference({0, 0, 0}, outer)), {2, 0, 0}, {3, 1, 0});
}

TEST_F(BlockReferenceTest, visible_attributes_count_and_invisible_ones_do_not) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})});
    const AcDbObjectId id = addToModel(new AcDbBlockReference({0, 0, 0}, block));
    AcDbAttribute* hidden = attribute(L"HH", {500, 0, 0});
    hidden->setInvisible(true);
    append(id, hidden);
    append(id, attribute(L"HH", {0, 5, 0}));
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    const AcDbExtents box = extentsOf(*reference.object());
    EXPECT_NEAR(box.maxPoint().y, 6, 1e-6);
    EXPECT_LT(box.maxPoint().x, 100);
    EXPECT_EQ(pictureOf(*reference.object()).primitives.size(), 2u);
}

TEST_F(BlockReferenceTest, erased_and_invisible_entities_are_left_out) {
    AcDbLine* erased = line({0, 0, 0}, {50, 0, 0});
    AcDbLine* invisible = line({0, 0, 0}, {0, 50, 0});
    invisible->setVisibility(AcDb::kInvisible);
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 1, 0}), erased, invisible});
    {
        AcDbObjectPointer<AcDbBlockTableRecord> record(block);
        const AcDbObjectPointer<AcDbLine> open(record->entityIds()[1], AcDb::kForWrite);
        open->erase();
    }
    expectBox(extentsOf(AcDbBlockReference({0, 0, 0}, block)), {0, 0, 0}, {1, 1, 0});
}

TEST_F(BlockReferenceTest, entities_are_drawn_in_their_order) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 0, 0}, 1), line({0, 0, 0}, {2, 0, 0}, 2), line({0, 0, 0}, {3, 0, 0}, 3)});
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
    const GiDisplayList picture = pictureOf(*record.object());
    ASSERT_EQ(picture.primitives.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(picture.primitives[i].traits.color.colorIndex(), i + 1);
}

TEST_F(BlockReferenceTest, what_the_block_leaves_to_it_takes_its_own_properties) {
    AcDbBlockReference reference({0, 0, 0}, addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})}));
    reference.setColorIndex(4);
    reference.setLineWeight(AcDb::kLnWt070);
    const GiDisplayList picture = pictureOf(reference);
    ASSERT_EQ(picture.primitives.size(), 1u);
    EXPECT_EQ(picture.primitives[0].traits.color.colorIndex(), 4);
    EXPECT_EQ(picture.primitives[0].traits.lineWeight, AcDb::kLnWt070);
    const auto& instance = std::get<GiInstance>(picture.primitives[0].shape);
    EXPECT_TRUE(instance.picture->primitives[0].traits.color.isByBlock());
}

TEST_F(BlockReferenceTest, an_attribute_takes_by_block_properties_from_its_reference) {
    auto* coloured = new AcDbBlockReference({0, 0, 0}, addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})}));
    coloured->setColorIndex(4);
    coloured->setLineWeight(AcDb::kLnWt070);
    const AcDbObjectId id = addToModel(coloured);
    AcDbAttribute* byBlock = attribute(L"one", {0, 5, 0});
    byBlock->setColorIndex(0);
    byBlock->setLineWeight(AcDb::kLnWtByBlock);
    append(id, byBlock);
    AcDbAttribute* own = attribute(L"two", {0, 7, 0});
    own->setColorIndex(1);
    append(id, own);
    AcDbAttribute* unseen = attribute(L"three", {0, 9, 0});
    unseen->setVisibility(AcDb::kInvisible);
    append(id, unseen);
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    const GiDisplayList picture = pictureOf(*reference.object());
    ASSERT_EQ(picture.primitives.size(), 3u);
    EXPECT_EQ(picture.primitives[1].traits.color.colorIndex(), 4);
    EXPECT_EQ(picture.primitives[1].traits.lineWeight, AcDb::kLnWt070);
    EXPECT_EQ(picture.primitives[2].traits.color.colorIndex(), 1);
    EXPECT_EQ(picture.primitives[2].traits.lineWeight, AcDb::kLnWtByLayer);
}

TEST_F(BlockReferenceTest, held_by_value_shows_in_the_properties_of_its_owner) {
    class Owner : public AcGiDrawable {
    public:
        AcDbBlockReference held;

    protected:
        bool subWorldDraw(AcGiWorldDraw* wd) override {
            wd->subEntityTraits().setColor(6);
            wd->subEntityTraits().setLineWeight(AcDb::kLnWt100);
            const bool whole = held.worldDraw(wd);
            EXPECT_EQ(wd->subEntityTraits().color(), 6) << "the traits are put back";
            return whole;
        }
    } owner;
    owner.held.setBlockTableRecord(addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})}));
    EXPECT_EQ(pictureOf(owner).primitives.at(0).traits.color.colorIndex(), 6);
    EXPECT_EQ(pictureOf(owner).primitives.at(0).traits.lineWeight, AcDb::kLnWt100);
    owner.held.setColorIndex(2);
    EXPECT_EQ(pictureOf(owner).primitives.at(0).traits.color.colorIndex(), 2);
    EXPECT_EQ(pictureOf(owner).primitives.at(0).traits.lineWeight, AcDb::kLnWt100);
}

TEST_F(BlockReferenceTest, equal_references_share_one_picture) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})});
    AcDbBlockReference a({0, 0, 0}, block), b({5, 0, 0}, block);
    GiDisplayListBuilder builder;
    builder.add(a);
    builder.add(b);
    ASSERT_EQ(builder.list().primitives.size(), 2u);
    EXPECT_EQ(std::get<GiInstance>(builder.list().primitives[0].shape).picture, std::get<GiInstance>(builder.list().primitives[1].shape).picture);
}

TEST_F(BlockReferenceTest, a_block_that_holds_itself_ends) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})});
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
        auto* self = new AcDbBlockReference({10, 0, 0}, block);
        record->appendAcDbEntity(self);
        self->close();
    }
    expectBox(extentsOf(AcDbBlockReference({0, 0, 0}, block)), {0, 0, 0}, {1, 0, 0});
}

TEST_F(BlockReferenceTest, a_block_under_construction_can_be_measured) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})});
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    ASSERT_TRUE(record);
    expectBox(extentsOf(AcDbBlockReference({5, 0, 0}, block)), {5, 0, 0}, {6, 0, 0});
    EXPECT_EQ(Exploded(AcDbBlockReference({5, 0, 0}, block)).size(), 1u);
}

// ---- attributes
TEST_F(BlockReferenceTest, outside_a_drawing_takes_no_attributes) {
    AcDbBlockReference reference;
    AcDbAttribute a;
    AcDbObjectId id;
    EXPECT_EQ(reference.appendAttribute(id, &a), Acad::eNotInDatabase);
    EXPECT_EQ(reference.appendAttribute(id, nullptr), Acad::eNullObjectPointer);
}

TEST_F(BlockReferenceTest, its_attributes_are_its_own_and_go_where_it_goes) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})});
    const AcDbObjectId id = addToModel(new AcDbBlockReference({0, 0, 0}, block));
    append(id, attribute(L"one", {0, 5, 0}));
    append(id, attribute(L"two", {0, 9, 0}));
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
    ASSERT_EQ(reference->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    const std::unique_ptr<AcDbObjectIterator> iterator(reference->attributeIterator());
    int count = 0;
    for (iterator->start(); !iterator->done(); iterator->step(), ++count) {
        const AcDbObjectPointer<AcDbAttribute> a(iterator->objectId());
        EXPECT_EQ(a->ownerId(), id);
        EXPECT_NEAR(a->position().x, 10, 1e-12);
    }
    EXPECT_EQ(count, 2);
}

TEST_F(BlockReferenceTest, the_iterator_passes_over_erased_attributes) {
    const AcDbObjectId id = addToModel(new AcDbBlockReference({0, 0, 0}, addBlock(L"B", {})));
    append(id, attribute(L"one", {0, 5, 0}));
    append(id, attribute(L"two", {0, 9, 0}));
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    {
        const AcDbObjectPointer<AcDbAttribute> first(reference->attributeIds()[0], AcDb::kForWrite);
        first->erase();
    }
    const std::unique_ptr<AcDbObjectIterator> iterator(reference->attributeIterator());
    ASSERT_FALSE(iterator->done());
    EXPECT_EQ(iterator->objectId(), reference->attributeIds()[1]);
    iterator->step();
    EXPECT_TRUE(iterator->done());
    EXPECT_TRUE(iterator->objectId().isNull());
}

TEST_F(BlockReferenceTest, a_copy_does_not_move_the_attributes_of_the_first) {
    const AcDbObjectId id = addToModel(new AcDbBlockReference({0, 0, 0}, addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})})));
    append(id, attribute(L"one", {0, 5, 0}));
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    const std::unique_ptr<AcDbEntity> copy(AcDbEntity::cast(reference->clone()));
    ASSERT_EQ(copy->transformBy(AcGeMatrix3d::translation({10, 0, 0})), Acad::eOk);
    const AcDbObjectPointer<AcDbAttribute> a(reference->attributeIds()[0]);
    expectPoint(a->position(), {0, 5, 0});
    expectBox(extentsOf(*copy), {10, 0, 0}, {11, 0, 0});
}

// ---- explode
TEST_F(BlockReferenceTest, explodes_to_copies_in_world_coordinates_definitions_among_them) {
    const AcDbObjectId block = addBlock(L"B", {line({0, 0, 0}, {1, 0, 0}), definition(L"D", {0, 2, 0}), new AcDbCircle({0, 0, 0}, {0, 0, 1}, 1)});
    AcDbBlockReference reference({10, 0, 0}, block);
    reference.setScaleFactors(AcGeScale3d(2));
    const Exploded pieces(reference);
    ASSERT_EQ(pieces.status, Acad::eOk);
    ASSERT_EQ(pieces.size(), 3u);
    expectPoint(pieces.as<AcDbLine>(0)->endPoint(), {12, 0, 0});
    EXPECT_TRUE(pieces[0].color().isByBlock()) << "left to whoever puts it in the drawing";
    ASSERT_NE(pieces.as<AcDbAttributeDefinition>(1), nullptr);
    expectPoint(pieces.as<AcDbAttributeDefinition>(1)->position(), {10, 4, 0});
    EXPECT_NEAR(pieces.as<AcDbCircle>(2)->radius(), 2, 1e-12);
    EXPECT_TRUE(pieces[2].objectId().isNull());
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
    const AcDbObjectPointer<AcDbLine> source(record->entityIds()[0]);
    expectPoint(source->endPoint(), {1, 0, 0});
}

TEST_F(BlockReferenceTest, an_unequal_scale_makes_circles_and_arcs_elliptic) {
    auto* bent = new AcDbPolyline;
    bent->addVertexAt(0, {0, 0});
    bent->addVertexAt(1, {4, 0}, 1.0);
    bent->addVertexAt(2, {4, 2});
    const AcDbObjectId block = addBlock(L"B", {new AcDbCircle({0, 0, 0}, {0, 0, 1}, 1), new AcDbArc({0, 0, 0}, 2, 0, kHalfPi), bent});
    AcDbBlockReference reference({10, 0, 0}, block);
    reference.setScaleFactors(AcGeScale3d(2, 1, 1));
    const Exploded pieces(reference);
    ASSERT_EQ(pieces.status, Acad::eOk);
    ASSERT_EQ(pieces.size(), 4u);
    ASSERT_NE(pieces.as<AcDbEllipse>(0), nullptr);
    EXPECT_NEAR(pieces.as<AcDbEllipse>(0)->majorAxis().length(), 2, 1e-12);
    EXPECT_NEAR(pieces.as<AcDbEllipse>(0)->radiusRatio(), 0.5, 1e-12);
    ASSERT_NE(pieces.as<AcDbEllipse>(1), nullptr);
    expectBox(extentsOf(pieces[1]), {10, 0, 0}, {14, 2, 0});
    EXPECT_NE(pieces.as<AcDbLine>(2), nullptr);
    ASSERT_NE(pieces.as<AcDbEllipse>(3), nullptr);
    AcDbExtents all;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        all.addExt(extentsOf(pieces[i]));
    const AcDbExtents own = extentsOf(reference);
    expectBox(all, own.minPoint(), own.maxPoint());
}

TEST_F(BlockReferenceTest, a_part_that_cannot_be_carried_along_keeps_it_whole) {
    AcDbBlockReference reference({5, 0, 0}, addBlock(L"B", {line({0, 0, 0}, {1, 0, 0}), new AcDbProxyEntity}));
    const Exploded pieces(reference);
    EXPECT_NE(pieces.status, Acad::eOk);
    EXPECT_EQ(pieces.size(), 0u);
}

TEST_F(BlockReferenceTest, attributes_of_a_nested_reference_come_out_as_texts) {
    const AcDbObjectId outer = addBlock(L"OUTER", {new AcDbBlockReference({1, 0, 0}, addBlock(L"INNER", {line({0, 0, 0}, {1, 0, 0})}))});
    AcDbObjectId nested;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(outer);
        nested = record->entityIds()[0];
    }
    append(nested, attribute(L"seen", {0, 3, 0}));
    AcDbAttribute* hidden = attribute(L"hidden", {0, 9, 0});
    hidden->setInvisible(true);
    append(nested, hidden);
    const AcDbBlockReference reference({10, 0, 0}, outer);
    const Exploded pieces(reference);
    ASSERT_EQ(pieces.size(), 2u);
    ASSERT_NE(pieces.as<AcDbBlockReference>(0), nullptr);
    EXPECT_TRUE(pieces.as<AcDbBlockReference>(0)->attributeIds().isEmpty());
    ASSERT_NE(pieces.as<AcDbText>(1), nullptr);
    EXPECT_EQ(pieces[1].isA(), AcDbText::desc());
    EXPECT_STREQ(pieces.as<AcDbText>(1)->textStringConst(), L"seen");
    expectPoint(pieces.as<AcDbText>(1)->position(), {10, 3, 0});
    AcDbExtents all = extentsOf(pieces[0]);
    all.addExt(extentsOf(pieces[1]));
    const AcDbExtents own = extentsOf(reference);
    expectBox(all, own.minPoint(), own.maxPoint());
}

TEST_F(BlockReferenceTest, a_nested_reference_is_exploded_where_it_would_slant) {
    auto* slanted = new AcDbBlockReference({0, 0, 0}, addBlock(L"INNER", {line({0, 0, 0}, {1, 0, 0})}));
    slanted->setRotation(kPi / 4);
    AcDbBlockReference reference({0, 0, 0}, addBlock(L"B", {slanted}));
    reference.setScaleFactors(AcGeScale3d(2, 1, 1));
    const Exploded pieces(reference);
    ASSERT_EQ(pieces.size(), 1u);
    ASSERT_NE(pieces.as<AcDbLine>(0), nullptr);
    expectPoint(pieces.as<AcDbLine>(0)->endPoint(), {std::sqrt(2.0), std::sqrt(0.5), 0});
}

TEST_F(BlockReferenceTest, heavy_polylines_explode_to_light_ones_and_to_lines) {
    const AcDbObjectId block = addBlock(L"B", {new AcDb2dPolyline, new AcDb3dPolyline});
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
        const AcDbObjectPointer<AcDb2dPolyline> plane(record->entityIds()[0], AcDb::kForWrite);
        const AcDbObjectPointer<AcDb3dPolyline> space(record->entityIds()[1], AcDb::kForWrite);
        for (int i = 0; i < 3; ++i) {
            auto* flat = new AcDb2dVertex;
            flat->setPosition({1.0 * i, 0, 0});
            flat->setBulge(i == 1 ? 1.0 : 0.0);
            auto* free = new AcDb3dPolylineVertex;
            free->setPosition({0, 0, 1.0 * i});
            AcDbObjectId id;
            plane->appendVertex(id, flat);
            space->appendVertex(id, free);
            flat->close();
            free->close();
        }
    }
    AcDbBlockReference reference({10, 0, 0}, block);
    const Exploded pieces(reference);
    ASSERT_EQ(pieces.size(), 3u);
    ASSERT_NE(pieces.as<AcDbPolyline>(0), nullptr);
    EXPECT_EQ(pieces.as<AcDbPolyline>(0)->numVerts(), 3u);
    ASSERT_NE(pieces.as<AcDbLine>(2), nullptr);
    expectPoint(pieces.as<AcDbLine>(2)->endPoint(), {10, 0, 2});
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
    const AcDbObjectPointer<AcDb2dPolyline> source(record->entityIds()[0]);
    expectBox(extentsOf(*source.object()), {0, -0.5, 0}, {2, 0, 0});
    reference.setScaleFactors(AcGeScale3d(1, 3, 1));
    EXPECT_EQ(Exploded(reference).size(), 4u) << "a line and an elliptic arc of the bent one";
}

TEST_F(BlockReferenceTest, snaps_to_what_the_block_shows) {
    AcDbBlockReference reference({10, 0, 0}, addBlock(L"B", {line({0, 0, 0}, {4, 0, 0}), definition(L"D", {7, 7, 0})}));
    reference.setScaleFactors(AcGeScale3d(2));
    AcGePoint3dArray insertion, middle;
    reference.getOsnapPoints(AcDb::kOsModeIns, insertion);
    ASSERT_EQ(insertion.length(), 1);
    expectPoint(insertion[0], {10, 0, 0});
    reference.getOsnapPoints(AcDb::kOsModeMid, middle);
    ASSERT_EQ(middle.length(), 1);
    expectPoint(middle[0], {14, 0, 0});
}

TEST_F(BlockReferenceTest, files_and_reads_back_unchanged) {
    AcDbBlockReference reference({1, 2, 3}, addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})}));
    reference.setRotation(0.4);
    reference.setScaleFactors(AcGeScale3d(1, 2, 3));
    const std::unique_ptr<AcDbObject> copy(reference.clone());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(filed(*copy), filed(reference));
    EXPECT_EQ(AcDbBlockReference::cast(copy.get())->blockTableRecord(), reference.blockTableRecord());
}

TEST_F(BlockReferenceTest, undo_takes_back_a_move_with_its_attributes) {
    const AcDbObjectId id = addToModel(new AcDbBlockReference({0, 0, 0}, addBlock(L"B", {line({0, 0, 0}, {1, 0, 0})})));
    append(id, attribute(L"one", {0, 5, 0}));
    db.startUndoRecord();
    {
        const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
        reference->transformBy(AcGeMatrix3d::translation({10, 0, 0}));
    }
    ASSERT_TRUE(db.undo());
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    expectPoint(reference->position(), {0, 0, 0});
    const AcDbObjectPointer<AcDbAttribute> a(reference->attributeIds()[0]);
    expectPoint(a->position(), {0, 5, 0});
}
