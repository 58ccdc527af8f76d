// VPORT: Open Design description of DWG, chapter "VPORT (65)", R2000 form. The view's centre and size are
// modelled, the rest is kept.
#include "DwgKept.h"
#include "DwgRecordName.h"

template <> struct DbObjectAccess::DwgFields<AcDbViewportTableRecord> {
    template <class Stream> static void head(Stream& s, AcDbViewportTableRecord& view) {
        DwgRecordName name;
        name.file(s, DbObjectAccess::name(view));
        s.BD(view.mHeight);
        s.BD(view.mWidth);
        s.RD2(view.mCenter);
    }
    static void file(DwgIn& s, AcDbViewportTableRecord& view) {
        head(s, view);
        dwgPassKept(s);
    }
    static void file(DwgOut& s, AcDbViewportTableRecord& view) {
        head(s, view);
        DwgKeptRest rest(view);
        rest.fields().TV();
        rest.fields().B();
        rest.fields().BS();
        rest.fields().B();
        rest.fields().BD();
        rest.fields().BD();
        rest.fields().RD2();
        if (!rest.write(s))
            writeNew(s);
    }
    static void writeNew(DwgOut& s) {
        s.BD3(AcGePoint3d());               // target
        s.BD3(AcGeVector3d(0.0, 0.0, 1.0)); // direction
        s.BD(0.0);                          // twist
        s.BD(50.0);                         // lens length
        s.BD(0.0);                          // front clip
        s.BD(0.0);                          // back clip
        s.data().bits(0, 4);                // view mode
        s.RC(0);                            // render mode
        s.RD2(AcGePoint2d(0.0, 0.0));       // lower left corner on the screen
        s.RD2(AcGePoint2d(1.0, 1.0));       // upper right corner
        s.B(false);                         // UCSFOLLOW
        s.BS(1000);                         // circle zoom percent
        s.B(true);                          // fast zoom
        s.data().bits(3, 2);                // UCSICON
        s.B(false);                         // grid
        s.RD2(AcGePoint2d(10.0, 10.0));     // grid spacing
        s.B(false);                         // snap
        s.B(false);                         // snap style
        s.BS(0);                            // snap pair
        s.BD(0.0);                          // snap turn
        s.RD2(AcGePoint2d());               // snap base
        s.RD2(AcGePoint2d(10.0, 10.0));     // snap spacing
        s.B(false);
        s.B(true);                          // UCS saved with the viewport
        s.BD3(AcGePoint3d());
        s.BD3(AcGeVector3d(1.0, 0.0, 0.0));
        s.BD3(AcGeVector3d(0.0, 1.0, 0.0));
        s.BD(0.0);                          // UCS elevation
        s.BS(0);                            // orthographic view
        s.H(5, AcDbObjectId());             // external reference block
        s.H(5, AcDbObjectId());             // named UCS
        s.H(5, AcDbObjectId());             // base UCS
    }
};
extern const DwgClassRow kDwgViewport = dwgKeptRow(dwgClassRow<AcDbViewportTableRecord>(0x41));
