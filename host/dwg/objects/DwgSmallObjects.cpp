// Objects of one or two fields that stand in the class section: SCALE and DICTIONARYVAR (Open Design
// description of DWG, chapters of these names).
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbScale> {
    template <class Stream> static void file(Stream& s, AcDbScale& scale) {
        int unknown = 0; // 0 in the drawings seen
        s.BS(unknown);
        s.TV(scale.mName);
        s.BD(scale.mPaper);
        s.BD(scale.mDrawing);
        s.B(scale.mUnitScale);
    }
};
extern const DwgClassRow kDwgScale = dwgClassRow<AcDbScale>(0, L"SCALE");

template <> struct DbObjectAccess::DwgFields<AcDbDictionaryVar> {
    template <class Stream> static void file(Stream& s, AcDbDictionaryVar& variable) {
        s.RC(variable.mSchema);
        s.TV(variable.mValue);
    }
};
extern const DwgClassRow kDwgDictionaryVar = dwgClassRow<AcDbDictionaryVar>(0, L"DICTIONARYVAR");
