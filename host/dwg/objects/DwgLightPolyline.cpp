// LWPOLYLINE: Open Design description of DWG, chapter "LWPOLYLINE", R2000 form: points after the first
// are stored as differences to the one before.
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbPolyline> {
    enum Flag { kNormal = 1, kThickness = 2, kWidth = 4, kElevation = 8, kBulges = 16, kWidths = 32, kLinetypeThrough = 256, kClosed = 512 };
    static constexpr std::size_t kLeastPointBits = 4;

    static int flagsOf(const AcDbPolyline& line) {
        int flags = 0;
        const auto note = [&flags](bool is, Flag flag) { flags |= is ? static_cast<int>(flag) : 0; };
        note(!(line.mNormal.x == 0.0 && line.mNormal.y == 0.0 && line.mNormal.z == 1.0), kNormal);
        note(line.mThickness != 0.0, kThickness);
        note(line.mConstantWidth != 0.0, kWidth);
        note(line.mElevation != 0.0, kElevation);
        note(line.mPlinegen, kLinetypeThrough);
        note(line.mClosed, kClosed);
        for (const AcDbPolyline::Vertex& v : line.mVertices) {
            note(v.bulge != 0.0, kBulges);
            note(v.startWidth != 0.0 || v.endWidth != 0.0, kWidths);
        }
        return flags;
    }

    template <class Stream> static void file(Stream& s, AcDbPolyline& line) {
        int flags = flagsOf(line);
        s.BS(flags);
        if ((flags & kWidth) != 0)
            s.BD(line.mConstantWidth);
        if ((flags & kElevation) != 0)
            s.BD(line.mElevation);
        if ((flags & kThickness) != 0)
            s.BD(line.mThickness);
        if ((flags & kNormal) != 0)
            s.BD3(line.mNormal);
        line.mPlinegen = (flags & kLinetypeThrough) != 0;
        line.mClosed = (flags & kClosed) != 0;
        Adesk::Int32 points = static_cast<Adesk::Int32>(line.mVertices.size()), bulges = points, widths = points;
        s.BL(points);
        s.sized(line.mVertices, points, kLeastPointBits);
        if ((flags & kBulges) != 0)
            s.BL(bulges);
        if ((flags & kWidths) != 0)
            s.BL(widths);
        vertices(s, line.mVertices, (flags & kBulges) != 0 ? bulges : 0, (flags & kWidths) != 0 ? widths : 0);
    }

    template <class Stream> static void vertices(Stream& s, std::vector<AcDbPolyline::Vertex>& list, Adesk::Int32 bulges, Adesk::Int32 widths) {
        const AcDbPolyline::Vertex* before = nullptr;
        for (AcDbPolyline::Vertex& v : list) {
            if (before == nullptr) {
                s.RD2(v.point);
            } else {
                s.DD(v.point.x, before->point.x);
                s.DD(v.point.y, before->point.y);
            }
            before = &v;
        }
        const auto size = static_cast<Adesk::Int32>(list.size());
        if constexpr (Stream::kReading)
            if (bulges > size || widths > size || bulges < 0 || widths < 0)
                return s.fail();
        for (Adesk::Int32 i = 0; i < bulges; ++i)
            s.BD(list[static_cast<std::size_t>(i)].bulge);
        for (Adesk::Int32 i = 0; i < widths; ++i) {
            s.BD(list[static_cast<std::size_t>(i)].startWidth);
            s.BD(list[static_cast<std::size_t>(i)].endWidth);
        }
    }
};
extern const DwgClassRow kDwgLightPolyline = dwgClassRow<AcDbPolyline>(0x4D);
