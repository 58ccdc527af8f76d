// LINE: Open Design description of DWG, chapter "LINE (19)".
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbLine> {
    template <class Stream> static void file(Stream& s, AcDbLine& line) {
        bool flat = line.mStart.z == 0.0 && line.mEnd.z == 0.0;
        s.B(flat);
        s.RD(line.mStart.x);
        s.DD(line.mEnd.x, line.mStart.x);
        s.RD(line.mStart.y);
        s.DD(line.mEnd.y, line.mStart.y);
        if (!flat) {
            s.RD(line.mStart.z);
            s.DD(line.mEnd.z, line.mStart.z);
        }
        s.BT(line.mThickness);
        s.BE(line.mNormal);
    }
};
extern const DwgClassRow kDwgLine = dwgClassRow<AcDbLine>(0x13);
