// Plots and bitmaps: what stands where, in which colour, and that the same drawing gives the same file.
#include "GiPlot.h"
#include "PaintScene.h"
#include "TestSupport.h"

#include "AcPath.h"
#include "AcUtText.h"

#include <QImage>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {
std::string fileText(const std::wstring& path) {
    std::ifstream file(acFileSystemPath(path), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}
GiDisplayList planList() {
    TestDrawable plate(drawPlate, true);
    TestDrawable plan([&](AcGiWorldDraw& wd) { drawPlan(wd, plate); });
    return drawnList(plan);
}
GiDisplayList listOf(const DrawFunction& draw) {
    TestDrawable drawable(draw);
    return drawnList(drawable);
}
const GiPlotWindow kPlan{{0, 0}, {100, 60}};

std::wstring plotTo(const std::wstring& name, const GiDisplayList& list, const GiPlotPage& page = {},
                    const GiPlotWindow& window = kPlan, double scale = 0.0) {
    const std::wstring path = testTempDir() + L"/" + name;
    std::wstring error;
    EXPECT_TRUE(giPlot(list, TestResolver(), window, page, scale, path, error));
    EXPECT_EQ(error, L"");
    return path;
}
QImage imageOf(const std::wstring& path) {
    return QImage(QString::fromStdString(acFileSystemPath(path)));
}
// The pixels of a row or column that are not white, from the first to the last.
int inkWidth(const QImage& image, int x, int fromY, int toY) {
    int count = 0;
    for (int y = fromY; y <= toY; ++y)
        count += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    return count;
}
} // namespace

TEST(Bitmap, shapes_stand_in_their_place_and_colour) {
    const GiBitmap bitmap = giRenderBitmap(planList(), TestResolver(), kPlan, 1000, 600, 0x000000);
    ASSERT_EQ(bitmap.pixels.size(), 600000u);
    const auto at = [&](double x, double y) { return bitmap.at(static_cast<int>(x * 10), 599 - static_cast<int>(y * 10)); };
    EXPECT_EQ(at(80, 20), 0xFFFF0000u);   // the red areas
    EXPECT_EQ(at(15, 17.5), 0xFF0000FFu); // the first plate's disc, above its bar
    EXPECT_EQ(at(15, 15), 0xFFFFFFFFu);   // and its bar
    EXPECT_EQ(at(5, 30), 0xFF000000u);    // nothing
}
TEST(Bitmap, the_foreground_is_white_on_dark_and_black_on_light) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(7);
        drawRing(wd, 0, 0, 10, 10, true);
        wd.subEntityTraits().setColor(255);
        drawRing(wd, 2, 2, 4, 4, true);
    });
    const GiPlotWindow window{{0, 0}, {10, 10}};
    const GiBitmap dark = giRenderBitmap(list, TestResolver(), window, 100, 100, 0x000000);
    const GiBitmap light = giRenderBitmap(list, TestResolver(), window, 100, 100, 0xFFFFFF);
    EXPECT_EQ(dark.at(80, 20), 0xFFFFFFFFu);
    EXPECT_EQ(light.at(80, 20), 0xFF000000u);
    EXPECT_EQ(light.at(30, 70), 0xFFFFFFFFu);
}
TEST(Bitmap, areas_that_meet_show_no_seam) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(1);
        for (int i = 0; i < 7; ++i)
            drawRing(wd, i * 1.37, 0, (i + 1) * 1.37, 10, true);
    });
    const GiBitmap bitmap = giRenderBitmap(list, TestResolver(), {{0, 0}, {9, 9}}, 233, 233, 0xFFFFFF);
    for (int x = 5; x < 228; ++x) {
        EXPECT_GT((bitmap.at(x, 100) >> 16) & 0xFF, 250u) << x;
        EXPECT_LT(bitmap.at(x, 100) & 0xFF, 20u) << x;
    }
}
TEST(Bitmap, holes_stay_open) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(1);
        wd.geometry().filledLoops({{{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 9, 0}}, {{3, 3, 0}, {6, 3, 0}, {6, 6, 0}, {3, 6, 0}}});
    });
    const GiBitmap bitmap = giRenderBitmap(list, TestResolver(), {{0, 0}, {9, 9}}, 90, 90, 0xFFFFFF);
    EXPECT_EQ(bitmap.at(10, 10), 0xFFFF0000u);
    EXPECT_EQ(bitmap.at(45, 45), 0xFFFFFFFFu);
}
TEST(Bitmap, a_dashed_line_has_its_gaps) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setLineType(kDashed); // 2 on, 1 off
        drawLine(wd, {0, 5, 0}, {30, 5, 0});
    });
    const GiBitmap bitmap = giRenderBitmap(list, TestResolver(), {{0, 0}, {30, 10}}, 300, 100, 0xFFFFFF);
    int changes = 0;
    for (int x = 1; x < 300; ++x)
        changes += (bitmap.at(x, 50) == 0xFFFFFFFFu) != (bitmap.at(x - 1, 50) == 0xFFFFFFFFu) ? 1 : 0;
    EXPECT_EQ(changes, 20); // ten gaps, each with two ends
}
TEST(Bitmap, lines_and_areas_that_run_far_beyond_the_view_are_in_place) {
    for (const double far : {1.0e3, 1.0e5, 1.0e8}) {
        const GiDisplayList list = listOf([&](AcGiWorldDraw& wd) {
            wd.subEntityTraits().setColor(1);
            drawRing(wd, -far, -far, far, 2, true);
            wd.subEntityTraits().setColor(3);
            drawLine(wd, {-far, -far + 5, 0}, {far, far + 5, 0});
        });
        const GiBitmap bitmap = giRenderBitmap(list, TestResolver(), {{0, 0}, {10, 10}}, 100, 100, 0);
        EXPECT_EQ(bitmap.at(50, 85), 0xFFFF0000u) << far;
        EXPECT_EQ(bitmap.at(50, 70), 0xFF000000u) << far;
        EXPECT_GT((bitmap.at(20, 29) >> 8 & 0xFF) + (bitmap.at(20, 30) >> 8 & 0xFF), 200u) << far;
    }
}
TEST(Bitmap, a_window_without_size_shows_a_unit_about_its_point) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(1);
        drawRing(wd, 4.75, 4.75, 5.25, 5.25, true);
    });
    const GiBitmap bitmap = giRenderBitmap(list, TestResolver(), {{5, 5}, {5, 5}}, 100, 100, 0);
    EXPECT_EQ(bitmap.at(30, 30), 0xFFFF0000u);
    EXPECT_EQ(bitmap.at(20, 20), 0xFF000000u);
}
TEST(Bitmap, of_no_size_is_empty) {
    EXPECT_TRUE(giRenderBitmap(planList(), TestResolver(), kPlan, 0, 10, 0).pixels.empty());
    EXPECT_TRUE(giThumbnailDib(planList(), TestResolver(), kPlan, 10, -1).empty());
}
TEST(Thumbnail, is_a_bitmap_with_a_colour_table) {
    const std::vector<Adesk::UInt8> dib = giThumbnailDib(planList(), TestResolver(), kPlan, 181, 120);
    ASSERT_EQ(dib.size(), 40u + 1024u + 184u * 120u);
    EXPECT_EQ(dib[0], 40);
    EXPECT_EQ(dib[4], 181);
    EXPECT_EQ(dib[8], 120);
    EXPECT_EQ(dib[14], 8);
    const auto colourAt = [&](unsigned x, unsigned yFromBottom) {
        const unsigned index = dib[1064 + yFromBottom * 184 + x];
        return (dib[40 + index * 4 + 2] << 16) | (dib[40 + index * 4 + 1] << 8) | dib[40 + index * 4];
    };
    EXPECT_EQ(colourAt(144, 41), 0xFF0000);
    EXPECT_EQ(colourAt(8, 60), 0xFFFFFF);
}

TEST(Plot, areas_that_meet_show_no_seam) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(1);
        for (int i = 0; i < 40; ++i)
            drawRing(wd, i * 2.47, 0, (i + 1) * 2.47, 60, true);
    });
    for (const double dpi : {96.0, 200.0, 433.0}) {
        const GiPlotPage page{90.0, 60.0, 10.0, 0xFFFFFF, false, dpi};
        const QImage image = imageOf(plotTo(L"seams.png", list, page));
        for (int x = image.width() / 6; x < image.width() * 5 / 6; ++x)
            EXPECT_LT(qBlue(image.pixel(x, image.height() / 2)), 20) << x << " at " << dpi;
    }
}
TEST(Plot, line_weights_are_real_on_paper) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setLineWeight(AcDb::kLnWt200);
        drawLine(wd, {0, 10, 0}, {100, 10, 0});
        wd.subEntityTraits().setLineWeight(AcDb::kLnWt000);
        drawLine(wd, {0, 30, 0}, {100, 30, 0});
    });
    const GiPlotPage page{120.0, 60.0, 10.0, 0xFFFFFF, false, 508.0}; // 20 pixels a millimetre
    const QImage image = imageOf(plotTo(L"weights.png", list, page, {{0, 0}, {100, 40}}, 1.0));
    ASSERT_EQ(image.width(), 2400);
    ASSERT_EQ(image.height(), 1200);
    EXPECT_NEAR(inkWidth(image, 1200, 600, 999), 40, 1); // 2 mm
    EXPECT_NEAR(inkWidth(image, 1200, 200, 599), 2, 1);  // the thinnest, 0.1 mm
}
TEST(Plot, a_scale_sets_paper_millimetres_a_unit_about_the_middle) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(1);
        drawRing(wd, 0, 0, 20, 10, true);
    });
    GiPlotPage page{100.0, 50.0, 5.0, 0xFFFFFF, false, 254.0}; // 10 pixels a millimetre
    const QImage image = imageOf(plotTo(L"scale.png", list, page, {{0, 0}, {20, 10}}, 2.0));
    // 20 by 10 units at 2 mm: 40 by 20 mm in the middle of the sheet.
    EXPECT_EQ(image.pixel(310, 160), 0xFFFF0000u);
    EXPECT_EQ(image.pixel(690, 340), 0xFFFF0000u);
    EXPECT_EQ(image.pixel(280, 250), 0xFFFFFFFFu);
    EXPECT_EQ(image.pixel(500, 370), 0xFFFFFFFFu);
}
TEST(Plot, what_lies_outside_the_window_is_cut_off) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setColor(1);
        drawRing(wd, -1000, -1000, 1000, 1000, true);
    });
    GiPlotPage page{100.0, 50.0, 5.0, 0xFFFFFF, false, 254.0};
    const QImage image = imageOf(plotTo(L"window.png", list, page, {{0, 0}, {10, 10}}, 2.0));
    EXPECT_EQ(image.pixel(500, 250), 0xFFFF0000u);
    EXPECT_EQ(image.pixel(350, 250), 0xFFFFFFFFu);
    EXPECT_EQ(image.pixel(20, 20), 0xFFFFFFFFu);
}
TEST(Plot, dashes_beyond_the_sheet_stay_out_of_the_file) {
    const auto sizeWith = [](double far) {
        const GiDisplayList list = listOf([&](AcGiWorldDraw& wd) {
            wd.subEntityTraits().setLineType(kDashed);
            drawLine(wd, {-far, 5, 0}, {far, 5, 0});
        });
        return fileText(plotTo(L"dashes.svg", list, {}, {{0, 0}, {100, 60}})).size();
    };
    EXPECT_GT(sizeWith(100.0), sizeWith(3.0) + 500);
    EXPECT_NEAR(static_cast<double>(sizeWith(10000.0)), static_cast<double>(sizeWith(100.0)), 100.0);
}
TEST(Plot, layers_not_plottable_are_left_out) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setLayer(kLayerRed);
        drawRing(wd, 0, 0, 10, 10, true);
    });
    TestResolver resolver;
    resolver.unplotted = kLayerRed;
    const std::wstring path = testTempDir() + L"/layer.png";
    std::wstring error;
    ASSERT_TRUE(giPlot(list, resolver, {{0, 0}, {10, 10}}, {}, 0.0, path, error));
    const QImage image = imageOf(path);
    EXPECT_EQ(image.pixel(image.width() / 2, image.height() / 2), 0xFFFFFFFFu);
    EXPECT_EQ(giRenderBitmap(list, resolver, {{0, 0}, {10, 10}}, 10, 10, 0).at(5, 5), 0xFFFF0000u);
}
TEST(Plot, the_same_drawing_gives_the_same_bytes) {
    for (const wchar_t* name : {L"plan.pdf", L"plan.svg", L"plan.PNG"}) {
        const std::string first = fileText(plotTo(name, planList())), second = fileText(plotTo(name, planList()));
        EXPECT_GT(first.size(), 2000u);
        EXPECT_TRUE(first == second) << acToUtf8(name);
    }
}
TEST(Plot, files_carry_no_time) {
    const std::string pdf = fileText(plotTo(L"plan.pdf", planList()));
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
    EXPECT_EQ(pdf.find("CreationDate"), std::string::npos);
    EXPECT_EQ(pdf.find("(D:"), std::string::npos);
    EXPECT_EQ(pdf.find("/Producer"), std::string::npos);
}
TEST(Plot, an_svg_has_the_size_of_the_sheet) {
    const std::string svg = fileText(plotTo(L"plan.svg", planList()));
    EXPECT_NE(svg.find("width=\"297mm\" height=\"210mm\""), std::string::npos) << svg.substr(0, 400);
    EXPECT_NE(svg.find("viewBox=\"0 0 29700 21000\""), std::string::npos);
    EXPECT_EQ(svg.find("<text"), std::string::npos);
}
TEST(Plot, a_refused_file_says_why_and_leaves_the_earlier_one) {
    std::wstring error;
    EXPECT_FALSE(giPlot(planList(), TestResolver(), kPlan, {}, 0.0, testTempDir() + L"/plan.txt", error));
    EXPECT_NE(error.find(L".pdf"), std::wstring::npos);
    EXPECT_FALSE(giPlot(planList(), TestResolver(), kPlan, {}, 0.0, testTempDir() + L"/none/plan.svg", error));
    EXPECT_NE(error.find(L"Cannot write"), std::wstring::npos);
    GiPlotPage narrow;
    narrow.marginMm = 150.0;
    EXPECT_FALSE(giPlot(planList(), TestResolver(), kPlan, narrow, 0.0, testTempDir() + L"/plan.svg", error));
    GiPlotPage huge;
    huge.widthMm = huge.heightMm = 1.0e6;
    const std::wstring kept = plotTo(L"kept.png", planList());
    const std::string before = fileText(kept);
    EXPECT_FALSE(giPlot(planList(), TestResolver(), kPlan, huge, 0.0, kept, error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fileText(kept) == before);
}
TEST(Plot, the_window_of_a_list_is_its_box) {
    const GiPlotWindow window = giPlotWindowOf(listOf([](AcGiWorldDraw& wd) { drawLine(wd, {1, 2, 3}, {4, 6, 3}); }));
    EXPECT_EQ(window.lower, AcGePoint2d(1, 2));
    EXPECT_EQ(window.upper, AcGePoint2d(4, 6));
    EXPECT_EQ(giPlotWindowOf({}).upper, AcGePoint2d(0.5, 0.5));
}
