// Curves in plots: circles and arcs come as such, wherever they stand, and other people's programs see what we see.
#include "GiPlot.h"
#include "PaintScene.h"
#include "TestSupport.h"

#include "AcPath.h"

#include <QImage>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>

namespace {
GiDisplayList listOf(const DrawFunction& draw) {
    TestDrawable drawable(draw);
    return drawnList(drawable);
}
// 1000 by 600 pixels, and whole pixels at the resolutions of other programs. One unit is a millimetre, and the
// point (50, 30) lies in the middle, at (6350, 3810) in an SVG.
const GiPlotPage kPage{127.0, 76.2, 0.0, 0xFFFFFF, false, 200.0};
const GiPlotWindow kWindow{{-13.5, -8.1}, {113.5, 68.1}};

std::wstring plotTo(const std::wstring& name, const GiDisplayList& list) {
    const std::wstring path = testTempDir() + L"/" + name;
    std::wstring error;
    EXPECT_TRUE(giPlot(list, TestResolver(), kWindow, kPage, 1.0, path, error));
    EXPECT_EQ(error, L"");
    return path;
}
std::string bytesOf(const std::wstring& path) {
    std::ifstream file(acFileSystemPath(path), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}
std::string svgOf(const GiDisplayList& list) {
    return bytesOf(plotTo(L"curves.svg", list));
}
// What the page of a PDF file draws, unpacked.
std::string pdfPageOf(const GiDisplayList& list) {
    const std::string pdf = bytesOf(plotTo(L"curves.pdf", list));
    std::string page;
    const std::string begin = "\nstream\n";
    for (std::size_t at = pdf.find(begin); at != std::string::npos; at = pdf.find(begin, at + 1)) {
        const std::size_t start = at + begin.size(), end = pdf.find("endstream", start);
        const QByteArray packed(pdf.data() + start, static_cast<qsizetype>(end - start));
        page += qUncompress(QByteArray("\x00\x10\x00\x00", 4) + packed).toStdString(); // with a guess at its size
    }
    return page;
}
int countOf(const std::string& text, const std::string& pattern) {
    const std::regex sought(pattern);
    return static_cast<int>(
        std::distance(std::sregex_iterator(text.begin(), text.end(), sought), std::sregex_iterator()));
}
int arcsIn(const std::string& svg) {
    return countOf(svg, "A[0-9.]+ [0-9.]+ ");
}
int linesIn(const std::string& svg) {
    return countOf(svg, "L-?[0-9]");
}

// Arcs under every kind of placing: turned, mirrored, drawn out, in a block, as areas and as lines.
void drawCurves(AcGiWorldDraw& wd, AcGiDrawable& block) {
    AcGiGeometry& g = wd.geometry();
    AcGiSubEntityTraits& t = wd.subEntityTraits();
    const AcGeVector3d up = AcGeVector3d::kZAxis;
    t.setColor(1);
    t.setLineWeight(AcDb::kLnWt100);
    g.circle({12, 48, 0}, 9, up);
    g.circularArc({32, 48, 0}, 9, up, AcGeVector3d::kXAxis, 4.5);
    g.circularArc({52, 48, 0}, 9, up, AcGeVector3d::kYAxis, -2.0);
    g.ellipticalArc({72, 48, 0}, up, {8, 4, 0}, 0.4, 0.5, 5.5);
    g.circularArc({92, 48, 0}, 6, -up, AcGeVector3d::kXAxis, 1.0);
    for (int i = 0; i < 4; ++i) {
        t.setColor(static_cast<Adesk::UInt16>(i + 2));
        AcGeMatrix3d drawnOut;
        drawnOut.entry[0][0] = i % 2 == 0 ? 1.0 : -1.6; // mirrored in every other
        drawnOut.entry[1][1] = 0.8 + 0.3 * i;
        g.pushModelTransform(AcGeMatrix3d::translation({14.0 + 24 * i, 20, 0}) * AcGeMatrix3d::rotation(i * 0.7, up) *
                             drawnOut);
        g.draw(&block);
        g.popModelTransform();
    }
}
void drawCurvedBlock(AcGiWorldDraw& wd) {
    const AcGeVector3d up = AcGeVector3d::kZAxis;
    wd.subEntityTraits().setFillType(kAcGiFillAlways);
    wd.geometry().circularArc({0, 0, 0}, 6, up, AcGeVector3d::kXAxis, 2.2, kAcGiArcSector);
    wd.geometry().circularArc({0, 0, 0}, 6, up, {1, -3, 0}, 1.2, kAcGiArcChord);
    wd.subEntityTraits().setColor(0);
    wd.geometry().circle({-3, 1, 0}, 2, up);
    wd.subEntityTraits().setFillType(kAcGiFillNever);
    wd.geometry().circularArc({0, 0, 0}, 7, up, AcGeVector3d::kXAxis, 2.2, kAcGiArcSector);
}
GiDisplayList curvesList() {
    TestDrawable block(drawCurvedBlock, true);
    return listOf([&](AcGiWorldDraw& wd) { drawCurves(wd, block); });
}

bool isInstalled(const char* program) {
    return std::system((std::string("command -v ") + program + " >/dev/null 2>&1").c_str()) == 0;
}
// The share of places where one picture is dark and the other is light, a place of doubt at edges aside.
double differenceOf(const QImage& a, const QImage& b) {
    EXPECT_EQ(a.size(), b.size());
    int different = 0;
    for (int y = 0; y < std::min(a.height(), b.height()); ++y)
        for (int x = 0; x < std::min(a.width(), b.width()); ++x)
            different += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 100 ? 1 : 0;
    return different / (1.0 * a.width() * a.height());
}
void expectSeenAlike(const std::wstring& file, const std::string& command, const std::string& picture) {
    ASSERT_EQ(std::system((command + " >/dev/null 2>&1").c_str()), 0) << command;
    const QImage theirs(QString::fromStdString(picture)),
        ours(QString::fromStdString(acFileSystemPath(plotTo(L"ours.png", curvesList()))));
    ASSERT_FALSE(theirs.isNull()) << command;
    QImage onWhite(theirs.size(), QImage::Format_RGB32); // one of the programs leaves the ground clear
    onWhite.fill(Qt::white);
    for (int y = 0; y < theirs.height(); ++y)
        for (int x = 0; x < theirs.width(); ++x)
            if (qAlpha(theirs.pixel(x, y)) == 255)
                onWhite.setPixel(x, y, theirs.pixel(x, y));
    EXPECT_LT(differenceOf(onWhite, ours), 5.0e-4) << acFileSystemPath(file) << ", " << picture;
}
} // namespace

TEST(PlotCurves, a_circle_in_an_svg_is_three_arcs_of_its_radius) {
    const std::string svg = svgOf(listOf([](AcGiWorldDraw& wd) {
        wd.geometry().circle({50, 30, 0}, 20.0, AcGeVector3d::kZAxis);
    }));
    EXPECT_EQ(countOf(svg, "A2000 2000 0 0 0 "), 3) << svg;
    EXPECT_NE(svg.find("M8350 3810A"), std::string::npos) << svg;
    EXPECT_NE(svg.find(" 8350 3810Z"), std::string::npos) << svg;
    EXPECT_EQ(linesIn(svg), 0) << svg;
}
TEST(PlotCurves, a_circle_drawn_out_is_an_ellipse_in_an_svg) {
    const std::string svg = svgOf(listOf([](AcGiWorldDraw& wd) {
        AcGeMatrix3d drawnOut;
        drawnOut.entry[0][0] = 2.0;
        wd.geometry().pushModelTransform(AcGeMatrix3d::translation({50, 30, 0}) *
                                         AcGeMatrix3d::rotation(kPi / 6.0, AcGeVector3d::kZAxis) * drawnOut);
        wd.geometry().circle({0, 0, 0}, 10.0, AcGeVector3d::kZAxis);
    }));
    // Turned by 30 degrees to the left: Y runs down in the file.
    EXPECT_EQ(countOf(svg, "A2000 1000 -30 0 0 ") + countOf(svg, "A2000 1000 150 0 0 "), 3) << svg;
}
TEST(PlotCurves, an_arc_runs_the_same_way_when_it_is_mirrored_twice) {
    const auto drawn = [](bool mirrored) {
        return svgOf(listOf([&](AcGiWorldDraw& wd) {
            AcGeMatrix3d mirror;
            mirror.entry[0][0] = -1.0;
            if (mirrored)
                wd.geometry().pushModelTransform(AcGeMatrix3d::translation({100, 0, 0}) * mirror);
            wd.geometry().circularArc({50, 30, 0}, 20.0, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, 1.5);
        }));
    };
    EXPECT_EQ(countOf(drawn(false), "A2000 2000 0 0 0 "), 1);
    EXPECT_EQ(countOf(drawn(true), "A2000 2000 0 0 1 "), 1);
}
TEST(PlotCurves, a_circle_seen_from_its_edge_is_a_line_to_its_ends) {
    const std::string svg = svgOf(listOf([](AcGiWorldDraw& wd) {
        wd.geometry().circle({50, 30, 0}, 20.0, AcGeVector3d::kXAxis);
    }));
    EXPECT_EQ(arcsIn(svg), 0) << svg;
    EXPECT_NE(svg.find("6350 1810"), std::string::npos) << svg;
    EXPECT_NE(svg.find("6350 5808"), std::string::npos) << svg; // within the deviation of chords, 0.02 mm
}
TEST(PlotCurves, a_disc_in_a_pdf_is_four_cubic_curves) {
    const std::string page = pdfPageOf(listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setFillType(kAcGiFillAlways);
        wd.geometry().circle({50, 30, 0}, 20.0, AcGeVector3d::kZAxis);
    }));
    EXPECT_EQ(countOf(page, " c\n"), 4) << page;
    EXPECT_LT(countOf(page, " l\n"), 8) << page; // the sheet and the clip
    // The control points of a quarter turn lie 0.5522847 of the radius from its ends.
    EXPECT_NE(page.find("2705.43"), std::string::npos) << page;  // 3810 - 2000 * 0.5522847
    EXPECT_NE(page.find("7454.569"), std::string::npos) << page; // 6350 + 2000 * 0.5522847
}
TEST(PlotCurves, a_dashed_circle_keeps_its_dashes_as_arcs) {
    const GiDisplayList list = listOf([](AcGiWorldDraw& wd) {
        wd.subEntityTraits().setLineType(kDashed); // 2 on, 1 off
        wd.geometry().circle({50, 30, 0}, 20.0, AcGeVector3d::kZAxis);
    });
    const std::string svg = svgOf(list);
    // A length of 125.66 units: 41 whole patterns and a dash more, begun and ended half a dash each.
    EXPECT_EQ(arcsIn(svg), 42) << svg;
    EXPECT_EQ(linesIn(svg), 0) << svg;
    const std::regex piece("M([0-9.]+) ([0-9.]+)A2000 2000 0 0 0 ([0-9.]+) ([0-9.]+)");
    int whole = 0;
    for (std::sregex_iterator at(svg.begin(), svg.end(), piece); at != std::sregex_iterator(); ++at) {
        const auto number = [&](std::size_t i) { return std::stod((*at)[i]); };
        for (const std::size_t i : {1u, 3u})
            EXPECT_NEAR(std::hypot(number(i) - 6350.0, number(i + 1) - 3810.0), 2000.0, 0.02);
        whole += std::abs(std::hypot(number(1) - number(3), number(2) - number(4)) - 200.0) < 0.5 ? 1 : 0;
    }
    EXPECT_EQ(whole, 40);
}
TEST(PlotCurves, a_file_of_many_circles_does_not_grow_with_their_size) {
    const auto sizeOf = [](double radius) {
        return svgOf(listOf([&](AcGiWorldDraw& wd) {
                   for (int i = 0; i < 100; ++i)
                       wd.geometry().circle({50, 30, 0}, radius + i * 0.01, AcGeVector3d::kZAxis);
               }))
            .size();
    };
    EXPECT_LT(static_cast<double>(sizeOf(25.0)), static_cast<double>(sizeOf(2.0)) * 1.2);
}
TEST(PlotCurves, an_svg_is_cut_off_at_the_window) {
    const std::string svg = svgOf(listOf([](AcGiWorldDraw& wd) {
        wd.geometry().circle({50, 30, 0}, 200.0, AcGeVector3d::kZAxis);
    }));
    EXPECT_NE(svg.find("clip-path=\"url(#sheet)\""), std::string::npos);
}
TEST(PlotCurves, another_program_sees_the_same_in_the_svg) {
    const std::wstring svg = plotTo(L"theirs.svg", curvesList());
    const std::string file = acFileSystemPath(svg), picture = testTempPath() + "/svg.png";
    if (isInstalled("rsvg-convert"))
        expectSeenAlike(svg, "rsvg-convert -w 1000 -h 600 -o " + picture + " " + file, picture);
    else if (isInstalled("gdk-pixbuf-thumbnailer"))
        expectSeenAlike(svg, "gdk-pixbuf-thumbnailer -s 1000 " + file + " " + picture, picture);
    else
        GTEST_SKIP() << "neither rsvg-convert nor gdk-pixbuf-thumbnailer is installed";
}
TEST(PlotCurves, another_program_sees_the_same_in_the_pdf) {
    if (!isInstalled("pdftoppm"))
        GTEST_SKIP() << "pdftoppm is not installed";
    const std::wstring pdf = plotTo(L"theirs.pdf", curvesList());
    const std::string stem = testTempPath() + "/pdf";
    expectSeenAlike(pdf, "pdftoppm -r 200 -png -singlefile " + acFileSystemPath(pdf) + " " + stem, stem + ".png");
}
