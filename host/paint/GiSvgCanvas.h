// A canvas that writes an SVG file, circles and arcs as elliptic arcs. Lines of one look become one path, and what
// shares its look one group.
#pragma once

#include "GiCanvas.h"

#include <string>

class GiSvgCanvas final : public GiCanvas {
public:
    GiSvgCanvas(double widthMm, double heightMm, double unitsPerMm);
    std::string finish(); // the file

    bool drawsCurves() const override { return true; }
    void fillRect(double left, double top, double right, double bottom, Adesk::UInt32 rgb) override;
    void clip(double left, double top, double right, double bottom) override;
    void stroke(const GiOutline& outline, const GiPen& pen) override;
    void fill(const std::vector<GiOutline>& outlines, Adesk::UInt32 rgb, double edge) override;

private:
    void useGroup(const std::string& look);
    void closePath();
    void closeGroup();
    std::string mText;
    std::string mLook; // of the open group; empty without one
    bool mPathOpen = false, mClipped = false;
};
