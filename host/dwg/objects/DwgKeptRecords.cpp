// DIMSTYLE, VIEW, UCS and the viewport header's records are kept as they came, but for their names.
#include "DwgKept.h"

#define DWG_KEPT_RECORD(CLASS, TYPE, ROW)                                                                              \
    template <> struct DbObjectAccess::DwgFields<CLASS> {                                                              \
        static void file(DwgIn& s, CLASS& record) {                                                                    \
            s.TV(DbObjectAccess::name(record));                                                                        \
            dwgPassKept(s);                                                                                            \
        }                                                                                                              \
        static void file(DwgOut& s, CLASS& record) {                                                                   \
            DwgKeptRest rest(record);                                                                                  \
            s.TV(DbObjectAccess::name(record));                                                                        \
            rest.fields().TV();                                                                                        \
            if (!rest.write(s))                                                                                        \
                dwgWriteNew(s, record);                                                                                \
        }                                                                                                              \
    };                                                                                                                 \
    extern const DwgClassRow ROW = dwgKeptRow(dwgClassRow<CLASS>(TYPE))

namespace {
// A record of a new drawing has no bits yet. Views and UCSs come with drawings only.
void writeRecordFlags(DwgOut& s) {
    s.B(true); // referenced
    s.BS(0);
    s.B(false);
}
void dwgWriteNew(DwgOut& s, AcDbViewTableRecord&) {
    // A plan view of the origin (Open Design description of DWG, chapter "VIEW (61)").
    writeRecordFlags(s);
    s.BD(1.0);                          // height
    s.BD(1.0);                          // width
    s.RD2(AcGePoint2d());               // centre
    s.BD3(AcGePoint3d());               // target
    s.BD3(AcGeVector3d(0.0, 0.0, 1.0)); // direction
    s.BD(0.0);                          // twist
    s.BD(50.0);                         // lens length
    s.BD(0.0);                          // front clip
    s.BD(0.0);                          // back clip
    s.data().bits(0, 4);                // view mode
    s.RC(0);                            // render mode
    s.B(false);                         // paper space
    s.B(false);                         // associated UCS
    s.H(5, AcDbObjectId());
}
void dwgWriteNew(DwgOut& s, AcDbUCSTableRecord&) {
    // The world's axes (Open Design description of DWG, chapter "UCS (63)").
    writeRecordFlags(s);
    s.BD3(AcGePoint3d());
    s.BD3(AcGeVector3d(1.0, 0.0, 0.0));
    s.BD3(AcGeVector3d(0.0, 1.0, 0.0));
    s.BD(0.0); // elevation
    s.BS(0);   // orthographic view
    s.BS(0);   // orthographic types of its own
    s.H(5, AcDbObjectId());
    s.H(5, AcDbObjectId());
    s.H(5, AcDbObjectId());
}
void dwgWriteNew(DwgOut& s, AcDbVXTableRecord&) {
    // Open Design description of DWG, chapter "VP ENT HDR (71)".
    writeRecordFlags(s);
    s.B(false);
    s.H(5, AcDbObjectId());
    s.H(4, AcDbObjectId());
    s.H(5, AcDbObjectId());
}
} // namespace
DWG_KEPT_RECORD(AcDbViewTableRecord, 0x3D, kDwgView);
DWG_KEPT_RECORD(AcDbUCSTableRecord, 0x3F, kDwgUcs);
DWG_KEPT_RECORD(AcDbVXTableRecord, 0x47, kDwgVxRecord);
