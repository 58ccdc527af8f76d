// STYLE: Open Design description of DWG, chapter "SHAPEFILE (53)".
#include "DwgRecordName.h"

template <> struct DbObjectAccess::DwgFields<AcDbTextStyleTableRecord> {
    enum Flag { kShapeFile = 1, kVertical = 4 };

    template <class Stream> static void file(Stream& s, AcDbTextStyleTableRecord& style) {
        DwgRecordName head;
        head.file(s, DbObjectAccess::name(style));
        bool vertical = (style.mFlags & kVertical) != 0, shape = (style.mFlags & kShapeFile) != 0;
        s.B(vertical);
        s.B(shape);
        s.BD(style.mTextSize);
        s.BD(style.mXScale);
        s.BD(style.mOblique);
        s.RC(style.mGeneration);
        s.BD(style.mPriorSize);
        s.TV(style.mFont);
        s.TV(style.mBigFont);
        AcDbObjectId external;
        s.H(5, external);
        style.mFlags = static_cast<Adesk::UInt16>((style.mFlags & ~(kVertical | kShapeFile)) | (vertical ? kVertical : 0) | (shape ? kShapeFile : 0));
    }
};
extern const DwgClassRow kDwgTextStyle = dwgClassRow<AcDbTextStyleTableRecord>(0x35);
