// Points, sizes and rectangles in pixels. A rectangle's right and bottom lie just outside it.
#pragma once

#include "WinTypes.h"

struct CSize {
    int cx = 0, cy = 0;
    CSize() = default;
    CSize(int x, int y) : cx(x), cy(y) {}
    bool operator==(const CSize&) const = default;
};
struct CPoint {
    int x = 0, y = 0;
    CPoint() = default;
    CPoint(int px, int py) : x(px), y(py) {}
    void Offset(int dx, int dy) { x += dx; y += dy; }
    bool operator==(const CPoint&) const = default;
};
struct CRect {
    int left = 0, top = 0, right = 0, bottom = 0;
    CRect() = default;
    CRect(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}
    CRect(CPoint corner, CSize size) : left(corner.x), top(corner.y), right(corner.x + size.cx), bottom(corner.y + size.cy) {}
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    bool IsRectEmpty() const { return Width() <= 0 || Height() <= 0; }
    bool PtInRect(CPoint p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    void SetRect(int l, int t, int r, int b) { *this = CRect(l, t, r, b); }
    void SetRectEmpty() { *this = CRect(); }
    void OffsetRect(int dx, int dy) { left += dx; right += dx; top += dy; bottom += dy; }
    void InflateRect(int dx, int dy) { left -= dx; right += dx; top -= dy; bottom += dy; }
    void DeflateRect(int dx, int dy) { InflateRect(-dx, -dy); }
    void DeflateRect(int l, int t, int r, int b) { left += l; top += t; right -= r; bottom -= b; }
    void NormalizeRect() {
        if (left > right) { int k = left; left = right; right = k; }
        if (top > bottom) { int k = top; top = bottom; bottom = k; }
    }
    bool operator==(const CRect&) const = default;
};
