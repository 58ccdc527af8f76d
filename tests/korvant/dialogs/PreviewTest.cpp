// The live view of the pages: what it draws, in which colours, and what the mouse does over it.
#include "PostDialogTest.h"

#include "AcGiReceivers.h"
#include "AfxApp.h"
#include "TrfcDrawingUtils.h"
#include "WindowLook.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr COLORREF kBackground = RGB(0, 0, 0), kHover = RGB(30, 80, 100), kHighlight = RGB(255, 140, 0);
constexpr int kTables = 1;

class Preview : public PostDialog {
protected:
    Preview() {
        library.add(L"Tábla\\Teli\\Kék.dwg", "fill 5 -0.5 0 0.5 0 0.5 1 -0.5 1\n");
        library.add(L"Tábla\\Teli\\Zöld.dwg", "fill 3 -0.5 0 0.5 0 0.5 1 -0.5 1\n");
        library.add(L"Tábla\\Teli\\Réteges.dwg", "fill 256 -0.5 0 0.5 0 0.5 1 -0.5 1\n");
    }
    TrfcBlock& block(int index) { return *post->signChain().getAt(index); }
    CPoint middleOf(int index) { return preview().placeOf(block(index).centroid()); }
    // The rectangle of the model that the view shows.
    AcGePoint2d shownSize() {
        CRect client;
        preview().GetClientRect(client);
        return {client.Width() * preview().pixelSize(), client.Height() * preview().pixelSize()};
    }
    AcDbExtents drawnExtents() { return giExtentsOf(*preview().displayList()); }
    void expectFitted() {
        const AcGePoint2d shown = shownSize();
        const AcDbExtents drawn = drawnExtents();
        const double width = (drawn.maxPoint().x - drawn.minPoint().x) * 1.2, height = (drawn.maxPoint().y - drawn.minPoint().y) * 1.2;
        const double pixel = preview().pixelSize();
        EXPECT_GE(shown.x, width - pixel);
        EXPECT_GE(shown.y, height - pixel);
        EXPECT_NEAR(std::min(shown.x / width, shown.y / height), 1.0, 0.01) << "one of the sides is filled";
    }
};

std::vector<std::wstring> recordOf(const GiDisplayList& list) {
    return giRecord(list, [](AcDbObjectId) { return std::wstring(); });
}
} // namespace

// ---- what is drawn
TEST_F(Preview, draws_a_post_by_the_same_primitives_as_the_drawing) {
    addTable(L"Teli\\Kék.dwg");
    open(0);
    user.sees([&] {
        GiDisplayListBuilder drawingOf;
        drawingOf.worldDraw().geometry().draw(post.get());
        ASSERT_NE(preview().displayList(), nullptr);
        EXPECT_GT(preview().displayList()->primitives.size(), 3u);
        EXPECT_EQ(recordOf(*preview().displayList()), recordOf(drawingOf.list()));
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, draws_all_blocks_of_a_chain_in_order) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Jelzés\\A-010.dwg");
    addTable(L"Teli\\Zöld.dwg");
    open(kTables);
    user.sees([&] {
        GiDisplayListBuilder inOrder;
        inOrder.worldDraw().geometry().pushModelTransform(
            AcGeMatrix3d::rotation(post->signChain().axis().angleTo(AcGeVector3d::kYAxis, AcGeVector3d::kZAxis), AcGeVector3d::kZAxis));
        for (int i = 0; i < post->signChain().size(); ++i)
            inOrder.worldDraw().geometry().draw(&block(i));
        EXPECT_EQ(recordOf(*preview().displayList()), recordOf(inOrder.list()));
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, by_layer_colours_are_those_of_the_drawings_layers) {
    AcDbObjectPointer<AcDbLayerTableRecord>(drawing.layerZero(), AcDb::kForWrite)->setColor(AcCmColor(200, 10, 20));
    addTable(L"Teli\\Réteges.dwg");
    open(kTables);
    user.sees([&] {
        EXPECT_GT(countPixels(preview(), RGB(200, 10, 20)), 1000);
        EXPECT_EQ(countPixels(preview(), RGB(255, 255, 255)), 0);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, what_lies_on_a_layer_that_is_off_is_not_seen_as_in_the_drawing) {
    AcDbObjectPointer<AcDbLayerTableRecord>(drawing.layerZero(), AcDb::kForWrite)->setIsOff(true);
    addTable(L"Teli\\Réteges.dwg");
    open(kTables);
    user.sees([&] {
        CRect client;
        preview().GetClientRect(client);
        EXPECT_EQ(pixelOf(preview(), middleOf(0)), kBackground);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, an_empty_chain_shows_the_symbol_of_a_choice) {
    open(kTables);
    user.sees([&] {
        ASSERT_NE(preview().displayList(), nullptr);
        EXPECT_EQ(preview().displayList()->primitives.size(), 1u);
        expectFitted();
        EXPECT_EQ(countPixels(preview(), kHover, 8), 0);
    });
    user.does(L"@ok");
    run();
}

// ---- the view
TEST_F(Preview, the_view_is_fitted_with_a_border_of_a_fifth) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Teli\\Zöld.dwg");
    open(kTables);
    user.sees([&] { expectFitted(); });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, a_resize_of_the_window_fits_the_view_again) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Teli\\Zöld.dwg");
    open(kTables);
    user.sees([&] {
        const double before = preview().pixelSize();
        for (const CRect& place : {CRect(0, 0, 60, 400), CRect(0, 0, 400, 60), CRect(10, 10, 90, 90)}) {
            preview().MoveWindow(place);
            AfxPumpMessages();
            CRect client;
            preview().GetClientRect(client);
            ASSERT_EQ(client.Width(), place.Width());
            expectFitted();
            EXPECT_NE(preview().pixelSize(), before);
        }
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, a_click_on_a_plate_does_not_move_the_view) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Teli\\Zöld.dwg");
    open(kTables);
    user.sees([&] {
        const double before = preview().pixelSize();
        const CPoint place = middleOf(0);
        clickMouse(preview(), place);
        CRect rect;
        preview().GetClientRect(rect);
        preview().MoveWindow(CRect(6, 6, 6 + rect.Width(), 6 + rect.Height() + 1)); // fitted anew, a hair taller
        AfxPumpMessages();
        EXPECT_NEAR(preview().pixelSize(), before, before / 100.0);
        EXPECT_EQ(chainPage().selectedIndex(), 0);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, a_view_about_a_foot_keeps_its_height_when_the_window_is_resized) {
    open(0);
    user.sees([&] {
        preview().MoveWindow(CRect(0, 0, 300, 90));
        AfxPumpMessages();
        EXPECT_NEAR(shownSize().y, 0.004 * 500.0 * 4.5, preview().pixelSize());
        const CPoint foot = preview().placeOf(post->pointA());
        EXPECT_NEAR(foot.x, 150, 1);
        EXPECT_NEAR(foot.y, 45, 1);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, the_symbol_of_an_empty_view_can_be_changed) {
    open(kTables);
    user.sees([&] {
        const auto before = recordOf(*preview().displayList());
        preview().setBlockId(loadBlockTemplate(library.path(L"Tábla"), L"Teli\\Kék.dwg").blockId);
        EXPECT_NE(recordOf(*preview().displayList()), before);
        EXPECT_GT(countPixels(preview(), RGB(0, 0, 255)), 1000);
        expectFitted();
        moveMouse(preview(), preview().placeOf({0.0, 0.5, 0.0}));
        EXPECT_EQ(preview().hovered(), -1) << "it is no block that could be picked";
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, a_ring_in_a_symbol_one_unit_wide_is_round_at_the_size_of_the_view) {
    open(kTables);
    user.sees([&] {
        AcDbObjectId id;
        AcDbObjectPointer<AcDbBlockTable> blocks(drawing.blockTableId(), AcDb::kForWrite);
        auto record = std::make_unique<AcDbBlockTableRecord>();
        record->setName(L"Gyűrű");
        ASSERT_EQ(blocks->add(id, record.get()), Acad::eOk);
        auto ring = std::make_unique<AcDbPolyline>();
        ring->addVertexAt(0, {-0.4, 0.0}, 1.0, 0.1, 0.1);
        ring->addVertexAt(1, {0.4, 0.0}, 1.0, 0.1, 0.1);
        ring->setClosed(true);
        ASSERT_EQ(record->appendAcDbEntity(ring.get()), Acad::eOk);
        ring.release()->close();
        record.release()->close();
        preview().setBlockId(id);
        int chords = 0;
        const auto* const instance = std::get_if<GiInstance>(&preview().displayList()->primitives.at(0).shape);
        ASSERT_NE(instance, nullptr);
        for (const GiPrimitive& primitive : instance->picture->primitives)
            for (const auto& loop : std::get<GiFill>(primitive.shape).loops)
                for (std::size_t i = 1; i < loop.size(); ++i) {
                    const AcGePoint3d middle = AcGePoint3d::kOrigin + ((loop[i - 1] - AcGePoint3d::kOrigin) + (loop[i] - AcGePoint3d::kOrigin)) * 0.5;
                    const double radius = (loop[i] - AcGePoint3d::kOrigin).length();
                    if (loop[i - 1].distanceTo(loop[i]) > 0.09)
                        continue; // across the band
                    EXPECT_LT((radius - (middle - AcGePoint3d::kOrigin).length()) / preview().pixelSize(), 0.5);
                    ++chords;
                }
        EXPECT_GT(chords, 40);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, what_is_edited_is_seen_at_once) {
    addTable(L"Teli\\Kék.dwg");
    open(kTables);
    user.does(L"@select 217 0").sees([&] { EXPECT_GT(countPixels(preview(), RGB(0, 0, 255)), 1000); });
    user.does(L"@click \"Törlés\"").sees([&] { EXPECT_EQ(countPixels(preview(), RGB(0, 0, 255)), 0); });
    user.does(L"@ok");
    run();
}

// ---- the mouse
TEST_F(Preview, the_plate_under_the_mouse_takes_the_hover_colour_and_the_others_keep_their_own) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Teli\\Zöld.dwg");
    open(kTables);
    user.sees([&] {
        const COLORREF lower = pixelOf(preview(), middleOf(0)), upper = pixelOf(preview(), middleOf(1));
        EXPECT_EQ(lower, RGB(0, 0, 255));
        EXPECT_EQ(upper, RGB(0, 255, 0));
        moveMouse(preview(), middleOf(1));
        EXPECT_EQ(preview().hovered(), 1);
        EXPECT_EQ(pixelOf(preview(), middleOf(0)), lower);
        EXPECT_EQ(pixelOf(preview(), middleOf(1)), kHover);
        moveMouse(preview(), middleOf(0));
        EXPECT_EQ(pixelOf(preview(), middleOf(0)), kHover);
        EXPECT_EQ(pixelOf(preview(), middleOf(1)), upper);
        moveMouse(preview(), {2, 2});
        EXPECT_EQ(preview().hovered(), -1);
        EXPECT_EQ(countPixels(preview(), kHover), 0);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, a_plate_stays_lit_no_longer_than_the_mouse_is_over_the_view) {
    addTable(L"Teli\\Kék.dwg");
    open(kTables);
    user.sees([&] {
        moveMouse(preview(), middleOf(0));
        ASSERT_EQ(preview().hovered(), 0);
        moveMouseAway(preview());
        EXPECT_EQ(preview().hovered(), -1);
        EXPECT_EQ(pixelOf(preview(), middleOf(0)), RGB(0, 0, 255));
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, the_copies_that_light_up_are_drawn_in_thin_continuous_lines) {
    addTable(L"Jelzés\\A-010.dwg");
    open(kTables);
    user.sees([&] {
        moveMouse(preview(), middleOf(0));
        const GiDisplayList* const list = preview().displayList();
        ASSERT_FALSE(list->primitives.empty());
        for (const GiPrimitive& primitive : list->primitives) {
            EXPECT_EQ(primitive.traits.color.red(), 30);
            EXPECT_EQ(primitive.traits.color.green(), 80);
            EXPECT_EQ(primitive.traits.color.blue(), 100);
            EXPECT_EQ(primitive.traits.lineWeight, AcDb::kLnWt000);
            EXPECT_EQ(primitive.traits.lineType, drawing.continuousLinetype());
        }
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, where_plates_overlap_the_later_one_lights_up) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Teli\\Zöld.dwg");
    block(1).setPosition(block(0).position());
    open(kTables);
    user.sees([&] {
        moveMouse(preview(), middleOf(0));
        EXPECT_EQ(preview().hovered(), 1);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, the_view_is_painted_again_only_when_another_plate_comes_under_the_mouse) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Teli\\Zöld.dwg");
    open(kTables);
    user.sees([&] {
        PaintCounter painted(preview());
        painted.count();
        const CPoint middle = middleOf(0);
        moveMouse(preview(), middle);
        EXPECT_EQ(painted.count(), 1);
        for (const int step : {1, 2, 3})
            moveMouse(preview(), {middle.x + step, middle.y});
        EXPECT_EQ(painted.count(), 0);
        moveMouse(preview(), middleOf(1));
        EXPECT_EQ(painted.count(), 1);
        moveMouse(preview(), {2, 2});
        EXPECT_EQ(painted.count(), 1);
        moveMouse(preview(), {3, 3});
        EXPECT_EQ(painted.count(), 0);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, a_click_selects_the_plate_and_frames_it_in_the_highlight_colour) {
    addTable(L"Teli\\Kék.dwg");
    addTable(L"Teli\\Zöld.dwg");
    open(kTables);
    user.sees([&] {
        EXPECT_EQ(countPixels(preview(), kHighlight, 60), 0);
        clickMouse(preview(), middleOf(1));
        EXPECT_EQ(chainPage().selectedIndex(), 1);
        EXPECT_EQ(pathTree(), L"Teli/Zöld.dwg");
        EXPECT_GT(countPixels(preview(), kHighlight, 60), 50);
        clickMouse(preview(), {2, 2});
        EXPECT_EQ(chainPage().selectedIndex(), -1);
        EXPECT_EQ(countPixels(preview(), kHighlight, 60), 0);
    });
    user.does(L"@ok");
    run();
}

TEST_F(Preview, the_mouse_over_a_post_that_lists_no_blocks_does_nothing) {
    open(0);
    user.sees([&] {
        PaintCounter painted(preview());
        painted.count();
        CRect client;
        preview().GetClientRect(client);
        moveMouse(preview(), client.CenterPoint());
        clickMouse(preview(), client.CenterPoint());
        EXPECT_EQ(preview().hovered(), -1);
        EXPECT_EQ(painted.count(), 0);
    });
    user.does(L"@ok");
    run();
}

// ---- without anything to draw with
namespace {
constexpr char kBareTemplate[] = R"rc(
9201 DIALOGEX 0, 0, 120, 80
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    CONTROL "", 9202, "Static", SS_BLACKFRAME | SS_NOTIFY, 10, 10, 100, 60
END
)rc";
class BareDialog : public CDialog {
public:
    BareDialog() : CDialog(9201u) {}
    CGsPreviewCtrl preview;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        preview.SubclassDlgItem(9202, this);
        return TRUE;
    }
};
} // namespace

TEST_F(Preview, without_a_graphics_kernel_the_control_is_empty_and_says_nothing) {
    addTable(L"Teli\\Kék.dwg");
    AfxSetResourceText(kBareTemplate, std::strlen(kBareTemplate));
    for (const bool isTried : {false, true}) { // never begun, or begun with no drawing to draw from
        BareDialog dialog;
        user.sees([&] {
            if (isTried) {
                acdbHostApplicationServices()->setWorkingDatabase(nullptr);
                dialog.preview.init(AcGeVector3d::kYAxis);
                acdbHostApplicationServices()->setWorkingDatabase(&drawing);
            }
            dialog.preview.showChain(post->signChain());
            dialog.preview.showBlock(&block(0));
            dialog.preview.setSelected(0);
            dialog.preview.zoomExtents();
            dialog.preview.zoomAbout(post->pointA(), 10.0);
            moveMouse(dialog.preview, {60, 40});
            clickMouse(dialog.preview, {60, 40});
            EXPECT_EQ(dialog.preview.displayList(), nullptr);
            EXPECT_EQ(dialog.preview.hovered(), -1);
            EXPECT_EQ(countPixels(dialog.preview, RGB(0, 0, 255)), 0);
        });
        user.does(L"@close");
        dialog.DoModal();
    }
    EXPECT_TRUE(user.printed().empty());
}

TEST_F(Preview, lights_up_in_dark_blue_and_frames_in_orange) {
    const CGsPreviewCtrl preview;
    EXPECT_EQ(preview.highlightColor().red(), 255);
    EXPECT_EQ(preview.highlightColor().green(), 140);
    EXPECT_EQ(preview.highlightColor().blue(), 0);
    EXPECT_EQ(preview.hoverColor().red(), 30);
    EXPECT_EQ(preview.hoverColor().green(), 80);
    EXPECT_EQ(preview.hoverColor().blue(), 100);
}
