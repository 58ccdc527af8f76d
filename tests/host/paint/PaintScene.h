// A small plan in the manner of road-sign plans: the subject of the pictures.
#pragma once

#include "GiTestDrawing.h"

inline void drawRing(AcGiWorldDraw& wd, double left, double bottom, double right, double top, bool filled) {
    const AcGePoint3d points[] = {{left, bottom, 0}, {right, bottom, 0}, {right, top, 0}, {left, top, 0}};
    wd.subEntityTraits().setFillType(filled ? kAcGiFillAlways : kAcGiFillNever);
    wd.geometry().polygon(4, points);
}
inline void drawText(AcGiWorldDraw& wd, double x, double y, double height, const wchar_t* text, const wchar_t* font = L"txt") {
    AcGiTextStyle style;
    style.fontName = font;
    style.height = height;
    wd.geometry().text({x, y, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, text, style);
}
// A plate of 10 by 10 units: a blue disc with a white bar, the rim by block.
inline void drawPlate(AcGiWorldDraw& wd) {
    AcGiSubEntityTraits& traits = wd.subEntityTraits();
    traits.setColor(5);
    traits.setFillType(kAcGiFillAlways);
    wd.geometry().circle({5, 5, 0}, 4.5, AcGeVector3d::kZAxis);
    traits.setColor(255);
    drawRing(wd, 2, 4, 8, 6, true);
    traits.setColor(0);
    traits.setFillType(kAcGiFillNever);
    drawRing(wd, 0, 0, 10, 10, false);
}
inline void drawPlan(AcGiWorldDraw& wd, AcGiDrawable& plate) {
    AcGiSubEntityTraits& traits = wd.subEntityTraits();
    traits.setLineType(kDashed);
    drawLine(wd, {0, 0, 0}, {100, 0, 0});
    drawLine(wd, {100, 0, 0}, {100, 60, 0});
    traits.setLineType(kContinuous);
    traits.setLineWeight(AcDb::kLnWt070);
    drawLine(wd, {0, 60, 0}, {100, 60, 0});
    traits.setLineWeight(AcDb::kLnWt025);
    for (int i = 0; i < 4; ++i) {
        traits.setColor(static_cast<Adesk::UInt16>(i + 1));
        wd.geometry().pushModelTransform(AcGeMatrix3d::translation({10.0 + 12 * i, 10, 0}) *
                                         AcGeMatrix3d::rotation(i * 0.2, AcGeVector3d::kZAxis));
        wd.geometry().draw(&plate);
        wd.geometry().popModelTransform();
    }
    traits.setColor(1);
    for (int i = 0; i < 6; ++i) // areas that meet: no seams between them
        drawRing(wd, 64 + i * 3.3, 10, 64 + (i + 1) * 3.3, 30, true);
    traits.setColor(7);
    traits.setFillType(kAcGiFillNever);
    wd.geometry().circularArc({30, 40, 0}, 10, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, 4.0);
    wd.geometry().ellipticalArc({55, 40, 0}, AcGeVector3d::kZAxis, {8, 4, 0}, 0.4, 0.0, kTwoPi);
    drawText(wd, 66, 35, 4.0, L"Őrség út 12%%d");
    drawText(wd, 66, 45, 4.0, L"Árvíztűrő", L"Arial");
    drawText(wd, 2, 52, 2.5, L"%%c60 R=5.00 tükörfúrógép AaBbGgQq 0123456789");
}
