// The fields that TEXT, ATTRIB and ATTDEF share.
#pragma once

#include "DwgClassRow.h"
#include "DwgPlane.h"

// Open Design description of DWG, chapter "TEXT (1)", R2000 form: a flag byte tells which fields have
// their usual value and are left out.
template <> struct DbObjectAccess::DwgFields<AcDbText> {
    enum Flag { kNoElevation = 1, kNoAlignment = 2, kNoOblique = 4, kNoRotation = 8, kNoWidth = 16, kNoGeneration = 32, kNoHorizontal = 64, kNoVertical = 128 };

    static unsigned flagsOf(const AcDbText& text, const AcGePoint3d& place, const AcGePoint3d& alignment) {
        unsigned flags = 0;
        const auto note = [&flags](bool usual, Flag flag) { flags |= usual ? static_cast<unsigned>(flag) : 0U; };
        note(place.z == 0.0, kNoElevation);
        note(text.isDefaultAlignment() && alignment.x == 0.0 && alignment.y == 0.0, kNoAlignment);
        note(text.mOblique == 0.0, kNoOblique);
        note(text.mRotation == 0.0, kNoRotation);
        note(text.mWidthFactor == 1.0, kNoWidth);
        note(text.mGeneration == 0, kNoGeneration);
        note(text.mHorizontalMode == AcDb::kTextLeft, kNoHorizontal);
        note(text.mVerticalMode == AcDb::kTextBase, kNoVertical);
        return flags;
    }

    template <class Stream> static void file(Stream& s, AcDbText& text) {
        common(s, text);
        s.style(text.mStyle);
    }

    // All but the style's handle, which comes behind the handles of no other field.
    template <class Stream> static void common(Stream& s, AcDbText& text) {
        AcGePoint3d place = dwgToPlane(text.mPosition, text.mNormal);
        AcGePoint3d alignment = dwgToPlane(text.mAlignmentPoint, text.mNormal);
        unsigned flags = flagsOf(text, place, alignment);
        s.RC(flags);
        if ((flags & kNoElevation) == 0)
            s.RD(place.z);
        AcGePoint2d flat(place.x, place.y);
        s.RD2(flat);
        AcGePoint2d second(alignment.x, alignment.y);
        if ((flags & kNoAlignment) == 0) {
            s.DD(second.x, flat.x);
            s.DD(second.y, flat.y);
        }
        s.BE(text.mNormal);
        s.BT(text.mThickness);
        if ((flags & kNoOblique) == 0)
            s.RD(text.mOblique);
        if ((flags & kNoRotation) == 0)
            s.RD(text.mRotation);
        s.RD(text.mHeight);
        if ((flags & kNoWidth) == 0)
            s.RD(text.mWidthFactor);
        s.TV(text.mText);
        if ((flags & kNoGeneration) == 0)
            s.BS(text.mGeneration);
        if ((flags & kNoHorizontal) == 0)
            s.enumBS(text.mHorizontalMode, AcDb::kTextFit);
        if ((flags & kNoVertical) == 0)
            s.enumBS(text.mVerticalMode, AcDb::kTextTop);
        if constexpr (Stream::kReading) {
            text.mPosition = dwgToWorld({flat.x, flat.y, place.z}, text.mNormal);
            // A text that needs no alignment point has none, even where a file spells out zeros.
            if ((flags & kNoAlignment) == 0 && !(text.isDefaultAlignment() && second.x == 0.0 && second.y == 0.0))
                text.mAlignmentPoint = dwgToWorld({second.x, second.y, place.z}, text.mNormal);
        }
    }
};
