// Traits, instances and nesting in display lists, and how the recorder tells them.
#include "GiTestDrawing.h"

#include <gtest/gtest.h>

namespace {
GiTraits traitsOf(int color, AcDbObjectId layer = kLayerZero) {
    GiTraits traits;
    traits.color = AcCmEntityColor::fromIndex(color);
    traits.layer = layer;
    return traits;
}
} // namespace

TEST(Traits, begin_with_the_drawables_own_and_end_with_it) {
    TestDrawable line([](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 0, 0}); });
    line.attributes = [](AcGiSubEntityTraits& t) { t.setColor(3), t.setLayer(kLayerRed); };
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(2);
        wd.geometry().draw(&line);
        EXPECT_EQ(wd.subEntityTraits().color(), 2);
        drawLine(wd, {}, {0, 1, 0});
    });
    GiDisplayListBuilder builder;
    builder.add(whole);
    const GiDisplayList list = builder.take();
    ASSERT_EQ(list.primitives.size(), 2u);
    EXPECT_EQ(list.primitives[0].traits.color.colorIndex(), 3);
    EXPECT_EQ(list.primitives[0].traits.layer, kLayerRed);
    EXPECT_EQ(list.primitives[1].traits.color.colorIndex(), 2);
    EXPECT_TRUE(builder.list().primitives.empty());
}
TEST(Traits, every_setter_has_its_getter) {
    TestDrawable any([](AcGiWorldDraw& wd) {
        AcGiSubEntityTraits& t = wd.subEntityTraits();
        t.setTrueColor(AcCmEntityColor(1, 2, 3));
        t.setLineType(kDashed);
        t.setLineTypeScale(2.5);
        t.setLineWeight(AcDb::kLnWt035);
        t.setFillType(kAcGiFillAlways);
        t.setLayer(kLayerBlue);
        t.setThickness(3.0);
        EXPECT_EQ(t.thickness(), 3.0);
        EXPECT_EQ(t.trueColor(), AcCmEntityColor(1, 2, 3));
        EXPECT_EQ(t.lineTypeId(), kDashed);
        EXPECT_EQ(t.lineTypeScale(), 2.5);
        EXPECT_EQ(t.lineWeight(), AcDb::kLnWt035);
        EXPECT_EQ(t.fillType(), kAcGiFillAlways);
        EXPECT_EQ(t.layerId(), kLayerBlue);
    });
    EXPECT_TRUE(drawnList(any).primitives.empty());
    EXPECT_EQ(any.drawn, 1);
}
TEST(Traits, the_callers_fill_does_not_leak_into_a_nested_drawable) {
    TestDrawable circle([](AcGiWorldDraw& wd) { wd.geometry().circle({}, 1.0, AcGeVector3d::kZAxis); });
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setFillType(kAcGiFillAlways);
        wd.geometry().draw(&circle);
        EXPECT_EQ(wd.subEntityTraits().fillType(), kAcGiFillAlways);
    });
    EXPECT_FALSE(flattened(drawnList(whole)).shapes.at(0).filled);
}
TEST(DisplayList, the_owner_is_the_top_level_drawable) {
    TestDrawable part([](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 0, 0}); });
    part.own = testId(70);
    TestDrawable whole([&](AcGiWorldDraw& wd) { wd.geometry().draw(&part); });
    whole.own = testId(71);
    EXPECT_EQ(drawnList(whole).primitives.at(0).owner, testId(71));
}
TEST(DisplayList, an_invisible_drawable_is_left_out) {
    TestDrawable part([](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 0, 0}); });
    part.flags = AcGiDrawable::kDrawableIsInvisible;
    TestDrawable whole([&](AcGiWorldDraw& wd) { wd.geometry().draw(&part); });
    EXPECT_TRUE(drawnList(whole).primitives.empty());
    EXPECT_TRUE(drawnList(part).primitives.empty());
    EXPECT_FALSE(giExtentsOf(whole).isValid());
}
TEST(DisplayList, pushed_transforms_nest_and_a_forgotten_pop_ends_with_its_drawable) {
    TestDrawable part([](AcGiWorldDraw& wd) {
        wd.geometry().pushModelTransform(AcGeMatrix3d::scaling(2.0));
        drawLine(wd, {}, {1, 0, 0});
    });
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        wd.geometry().pushModelTransform(AcGeMatrix3d::translation({10, 0, 0}));
        wd.geometry().draw(&part);
        drawLine(wd, {}, {1, 0, 0});
        wd.geometry().popModelTransform();
        wd.geometry().popModelTransform();
        drawLine(wd, {}, {1, 0, 0});
    });
    const TestSink sink = flattened(drawnList(whole));
    ASSERT_EQ(sink.shapes.size(), 3u);
    EXPECT_EQ(sink.shapes[0].loops[0][1], AcGePoint3d(12, 0, 0));
    EXPECT_EQ(sink.shapes[1].loops[0][1], AcGePoint3d(11, 0, 0));
    EXPECT_EQ(sink.shapes[2].loops[0][1], AcGePoint3d(1, 0, 0));
}

TEST(Instances, a_shareable_drawable_is_drawn_once_and_repeated) {
    TestDrawable block([](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 0, 0}); }, true);
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        for (int i = 0; i < 5; ++i) {
            wd.geometry().pushModelTransform(AcGeMatrix3d::translation({0.0, 1.0 * i, 0.0}));
            wd.geometry().draw(&block);
            wd.geometry().popModelTransform();
        }
    });
    const GiDisplayList list = drawnList(whole);
    EXPECT_EQ(block.drawn, 1);
    EXPECT_EQ(list.primitives.size(), 5u);
    const TestSink sink = flattened(list);
    ASSERT_EQ(sink.shapes.size(), 5u);
    EXPECT_EQ(sink.shapes[4].loops[0][0], AcGePoint3d(0, 4, 0));
    EXPECT_EQ(giExtentsOf(list).maxPoint(), AcGePoint3d(1, 4, 0));
}
TEST(Instances, the_picture_does_not_depend_on_where_it_was_drawn_first) {
    TestDrawable block([](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 0, 0}); }, true);
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(5);
        wd.geometry().draw(&block);
    });
    const GiDisplayList list = drawnList(whole);
    const auto& instance = std::get<GiInstance>(list.primitives.at(0).shape);
    EXPECT_TRUE(instance.picture->primitives.at(0).traits.color.isByLayer());
    EXPECT_TRUE(instance.picture->primitives.at(0).owner.isNull());
}
TEST(Instances, by_block_parts_take_the_look_of_the_reference) {
    TestDrawable block(
        [](AcGiWorldDraw& wd) {
            wd.subEntityTraits().setColor(0);
            wd.subEntityTraits().setLineType(kByBlockType);
            wd.subEntityTraits().setLineWeight(AcDb::kLnWtByBlock);
            wd.subEntityTraits().setLayer(kLayerBlue);
            drawLine(wd, {}, {1, 0, 0});
            wd.subEntityTraits().setColor(256);
            drawLine(wd, {}, {0, 1, 0});
        },
        true);
    TestDrawable whole([&](AcGiWorldDraw& wd) { wd.geometry().draw(&block); });
    GiTraits start = traitsOf(4);
    start.lineType = kDotted;
    start.lineWeight = AcDb::kLnWt070;
    const TestSink sink = flattened(drawnList(whole, start));
    EXPECT_EQ(sink.shapes.at(0).style.rgb, 0x00FFFFu);
    EXPECT_EQ(sink.shapes.at(0).style.lineWeight, 70);
    EXPECT_EQ(sink.shapes.at(0).style.dashes, (std::vector<double>{0.0, -1.0}));
    EXPECT_EQ(sink.shapes.at(1).style.rgb, 0x0000FFu); // by the layer it lies on
}
TEST(Instances, parts_on_layer_zero_take_the_layer_of_the_reference) {
    TestDrawable block(
        [](AcGiWorldDraw& wd) {
            wd.subEntityTraits().setLayer(kLayerZero);
            drawLine(wd, {}, {1, 0, 0});
            wd.subEntityTraits().setLayer(kLayerBlue);
            drawLine(wd, {}, {0, 1, 0});
        },
        true);
    TestDrawable whole([&](AcGiWorldDraw& wd) { wd.geometry().draw(&block); });
    const TestSink sink = flattened(drawnList(whole, traitsOf(2, kLayerRed)));
    EXPECT_EQ(sink.shapes.at(0).style.rgb, 0xFF0000u);
    EXPECT_EQ(sink.shapes.at(0).style.lineWeight, 50);
    EXPECT_EQ(sink.shapes.at(0).style.dashes, (std::vector<double>{2.0, -1.0}));
    EXPECT_EQ(sink.shapes.at(1).style.rgb, 0x0000FFu);
    EXPECT_TRUE(sink.shapes.at(1).style.dashes.empty());
}
TEST(Instances, inheritance_passes_through_nested_references) {
    TestDrawable inner([](AcGiWorldDraw& wd) { wd.subEntityTraits().setColor(0), drawLine(wd, {}, {1, 0, 0}); }, true);
    TestDrawable reference([&](AcGiWorldDraw& wd) { wd.geometry().draw(&inner); });
    reference.attributes = [](AcGiSubEntityTraits& t) { t.setColor(0), t.setLayer(kLayerZero); };
    TestDrawable outer([&](AcGiWorldDraw& wd) { wd.geometry().draw(&reference); }, true);
    TestDrawable whole([&](AcGiWorldDraw& wd) { wd.geometry().draw(&outer); });
    whole.own = testId(80);
    const TestSink byColor = flattened(drawnList(whole, traitsOf(6)));
    EXPECT_EQ(byColor.shapes.at(0).style.rgb, 0xFF00FFu);
    EXPECT_EQ(byColor.shapes.at(0).style.owner, testId(80));
    const TestSink byLayer = flattened(drawnList(whole, traitsOf(256, kLayerRed)));
    EXPECT_EQ(byLayer.shapes.at(0).style.rgb, 0xFF0000u);
}
TEST(Instances, a_block_that_holds_itself_ends) {
    TestDrawable* self = nullptr;
    TestDrawable block(
        [&](AcGiWorldDraw& wd) {
            drawLine(wd, {}, {1, 0, 0});
            wd.geometry().pushModelTransform(AcGeMatrix3d::scaling(0.5));
            wd.geometry().draw(self);
            wd.geometry().popModelTransform();
        },
        true);
    self = &block;
    TestDrawable whole([&](AcGiWorldDraw& wd) { wd.geometry().draw(&block); });
    EXPECT_EQ(flattened(drawnList(whole)).shapes.size(), 1u);
    EXPECT_EQ(giExtentsOf(whole).maxPoint(), AcGePoint3d(1, 0, 0));
}
TEST(Instances, two_blocks_that_hold_each_other_end) {
    TestDrawable *first = nullptr, *second = nullptr;
    const auto drawing = [](TestDrawable*& other) {
        return [&other](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 0, 0}), wd.geometry().draw(other); };
    };
    TestDrawable a(drawing(second), true), b(drawing(first), true);
    first = &a, second = &b;
    EXPECT_EQ(flattened(drawnList(a)).shapes.size(), 2u);
    EXPECT_TRUE(giExtentsOf(b).isValid());
}

TEST(Instances, nesting_without_end_is_cut_off) {
    std::vector<std::unique_ptr<TestDrawable>> chain;
    for (int i = 0; i < 100000; ++i)
        chain.push_back(std::make_unique<TestDrawable>(
            [&chain, i](AcGiWorldDraw& wd) {
                drawLine(wd, {}, {1, 0, 0});
                if (i > 0)
                    wd.geometry().draw(chain[static_cast<std::size_t>(i - 1)].get());
            },
            true));
    const std::size_t shown = flattened(drawnList(*chain.back())).shapes.size();
    EXPECT_GE(shown, 100u);
    EXPECT_LT(shown, 1000u);
    EXPECT_TRUE(giExtentsOf(*chain.back()).isValid());
}

TEST(Flatten, layers_off_and_frozen_are_left_out) {
    TestDrawable whole([](AcGiWorldDraw& wd) {
        for (const AcDbObjectId layer : {kLayerOff, kLayerFrozen, kLayerBlue}) {
            wd.subEntityTraits().setLayer(layer);
            drawLine(wd, {}, {1, 0, 0});
        }
    });
    EXPECT_EQ(flattened(drawnList(whole)).shapes.size(), 1u);
}
TEST(Flatten, a_frozen_reference_hides_all_and_one_that_is_off_only_its_own_layer) {
    TestDrawable block(
        [](AcGiWorldDraw& wd) {
            drawLine(wd, {}, {1, 0, 0});
            wd.subEntityTraits().setLayer(kLayerBlue);
            drawLine(wd, {}, {0, 1, 0});
        },
        true);
    TestDrawable whole([&](AcGiWorldDraw& wd) { wd.geometry().draw(&block); });
    EXPECT_EQ(flattened(drawnList(whole, traitsOf(256, kLayerOff))).shapes.size(), 1u);
    EXPECT_EQ(flattened(drawnList(whole, traitsOf(256, kLayerFrozen))).shapes.size(), 0u);
}
TEST(Flatten, weights_and_dashes_are_resolved_and_scaled) {
    TestDrawable whole([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setLineType(kDashed);
        wd.subEntityTraits().setLineTypeScale(3.0);
        wd.subEntityTraits().setLineWeight(AcDb::kLnWtByLwDefault);
        drawLine(wd, {}, {1, 0, 0});
    });
    TestResolver resolver;
    resolver.drawingScale = 0.5;
    const TestSink sink = flattened(drawnList(whole), resolver);
    EXPECT_EQ(sink.shapes.at(0).style.lineWeight, 25);
    EXPECT_EQ(sink.shapes.at(0).style.dashes, (std::vector<double>{3.0, -1.5}));
}
TEST(Flatten, index_seven_is_the_foreground_and_white_255_is_not) {
    TestDrawable whole([](AcGiWorldDraw& wd) {
        for (const Adesk::UInt16 color : std::initializer_list<Adesk::UInt16>{7, 255, 1}) {
            wd.subEntityTraits().setColor(color);
            drawLine(wd, {}, {1, 0, 0});
        }
    });
    const TestSink sink = flattened(drawnList(whole));
    EXPECT_TRUE(sink.shapes.at(0).style.foreground);
    EXPECT_FALSE(sink.shapes.at(1).style.foreground);
    EXPECT_FALSE(sink.shapes.at(2).style.foreground);
}
TEST(Flatten, polygons_fill_or_outline_by_the_fill_type) {
    TestDrawable whole([](AcGiWorldDraw& wd) {
        const AcGePoint3d triangle[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
        wd.geometry().polygon(3, triangle);
        wd.subEntityTraits().setFillType(kAcGiFillAlways);
        wd.geometry().polygon(3, triangle);
        wd.geometry().circle({}, 1.0, AcGeVector3d::kZAxis);
        wd.subEntityTraits().setFillType(kAcGiFillNever);
        wd.geometry().filledLoops({{triangle, triangle + 3}});
    });
    const TestSink sink = flattened(drawnList(whole));
    ASSERT_EQ(sink.shapes.size(), 4u);
    EXPECT_FALSE(sink.shapes[0].filled);
    EXPECT_TRUE(sink.shapes[0].closed);
    EXPECT_TRUE(sink.shapes[1].filled);
    EXPECT_TRUE(sink.shapes[2].filled);
    EXPECT_TRUE(sink.shapes[3].filled);
}
TEST(Flatten, chords_keep_within_the_deviation) {
    TestDrawable whole([](AcGiWorldDraw& wd) { wd.geometry().circle({}, 100.0, AcGeVector3d::kZAxis); });
    for (const double deviation : {1.0, 0.1, 0.001}) {
        const TestSink sink = flattened(drawnList(whole), {}, deviation);
        const auto& ring = sink.shapes.at(0).loops.at(0);
        const AcGePoint3d middle = ring[0] + (ring[1] - ring[0]) * 0.5;
        EXPECT_LE(100.0 - middle.asVector().length(), deviation * 1.000001);
        EXPECT_NEAR(ring[0].distanceTo(ring[1]), ring[0].distanceTo(ring.back()), 1e-9);
    }
}
TEST(Flatten, sectors_and_chord_segments_close) {
    TestDrawable whole([](AcGiWorldDraw& wd) {
        for (const AcGiArcType type : {kAcGiArcSimple, kAcGiArcSector, kAcGiArcChord})
            wd.geometry().circularArc({}, 1.0, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kHalfPi, type);
    });
    const TestSink sink = flattened(drawnList(whole));
    EXPECT_FALSE(sink.shapes.at(0).closed);
    EXPECT_TRUE(sink.shapes.at(1).closed);
    EXPECT_EQ(sink.shapes.at(1).loops[0].back(), AcGePoint3d(0, 0, 0));
    EXPECT_TRUE(sink.shapes.at(2).closed);
    EXPECT_EQ(sink.shapes.at(2).loops[0].back(), AcGePoint3d(0, 1, 0));
}
TEST(Flatten, a_window_leaves_out_what_lies_beyond_it) {
    TestDrawable block([](AcGiWorldDraw& wd) { drawLine(wd, {}, {1, 1, 0}); }, true);
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        for (int i = 0; i < 10; ++i) {
            wd.geometry().pushModelTransform(AcGeMatrix3d::translation({10.0 * i, 0, 0}));
            wd.geometry().draw(&block);
            drawLine(wd, {0, 2, 0}, {1, 2, 0});
            wd.geometry().popModelTransform();
        }
    });
    TestSink sink;
    const AcDbExtents window({19, 0, 0}, {32, 5, 0});
    giFlatten(drawnList(whole), TestResolver(), 0.01, sink, &window);
    EXPECT_EQ(sink.shapes.size(), 4u);
}
TEST(Flatten, the_resolver_is_asked_once_about_each_line_type) {
    TestDrawable whole([](AcGiWorldDraw& wd) {
        for (int i = 0; i < 1000; ++i) {
            wd.subEntityTraits().setLineType(i % 2 == 0 ? kDashed : kDotted);
            drawLine(wd, {}, {1, 0, 0});
        }
    });
    const TestResolver resolver;
    flattened(drawnList(whole), resolver);
    EXPECT_EQ(resolver.asked, 2);
}

TEST(Recorder, lists_primitives_with_their_traits) {
    TestDrawable block([](AcGiWorldDraw& wd) { drawLine(wd, {}, {0.1 + 0.2, -0.0, 0}); }, true);
    TestDrawable whole([&](AcGiWorldDraw& wd) {
        drawLine(wd, {1, 2, 0}, {3, 4, 0});
        wd.subEntityTraits().setLayer(kLayerRed);
        wd.subEntityTraits().setTrueColor(AcCmEntityColor(255, 140, 0));
        wd.subEntityTraits().setLineType(kDashed);
        wd.subEntityTraits().setLineWeight(AcDb::kLnWt035);
        wd.geometry().circle({1, 1, 0}, 2.5, AcGeVector3d::kZAxis);
        wd.geometry().circularArc({}, 1.0, -AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kHalfPi);
        wd.geometry().text({1, 2, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, L"Őr %%d", {L"txt", 2.5, 0.8});
        wd.geometry().pushModelTransform(AcGeMatrix3d::translation({5, 0, 0}));
        wd.geometry().draw(&block);
    });
    const GiNamer namer = [](AcDbObjectId id) {
        return id == kLayerRed ? std::wstring(L"Red") : id == kDashed ? std::wstring(L"DASHED") : std::wstring();
    };
    const std::wstring tail = L" color=rgb(255,140,0) layer=Red ltype=DASHED lw=35";
    const std::vector<std::wstring> expected{
        L"polyline (1,2,0) (3,4,0) color=256 layer=0 ltype=ByLayer lw=-1",
        L"circle (1,1,0) radius=2.5" + tail,
        L"arc (0,0,0) radius=1 start=180 end=270 normal=(0,0,-1)" + tail,
        L"text (1,2,0) \"Őr %%d\" height=2.5 direction=(0,1,0) width=0.8 font=txt" + tail,
        L"instance at=(5,0,0) x=(1,0,0) y=(0,1,0) z=(0,0,1)" + tail,
        L"  polyline (0,0,0) (0.3,0,0) color=256 layer=0 ltype=ByLayer lw=-1",
    };
    EXPECT_EQ(giRecord(whole, namer), expected);
}
TEST(Recorder, tells_dragging_to_the_drawable) {
    TestDrawable whole([](AcGiWorldDraw& wd) {
        if (wd.isDragging())
            drawLine(wd, {}, {1, 0, 0});
    });
    EXPECT_EQ(giRecord(whole, {}, true).size(), 1u);
    EXPECT_EQ(giRecord(whole, {}).size(), 0u);
}
