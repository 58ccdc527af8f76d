// LAYOUT, MLINESTYLE and ACDBPLACEHOLDER: Open Design description of DWG, chapters of these names, R2000 form.
#include "AcDbLayout.h"
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbLayout> {
    template <class Stream> static void file(Stream& s, AcDbLayout& object) {
        AcDbLayout::Data& d = object.mLayout;
        plotSettings(s, d);
        s.TV(d.name);
        s.BL(d.tabOrder);
        s.BS(d.layoutFlags);
        s.BD3(d.ucsOrigin);
        s.RD2(d.limitsMin);
        s.RD2(d.limitsMax);
        s.BD3(d.insertionPoint);
        s.BD3(d.ucsXAxis);
        s.BD3(d.ucsYAxis);
        s.BD(d.elevation);
        s.BS(d.orthographicView);
        s.BD3(d.extentsMin);
        s.BD3(d.extentsMax);
        s.H(4, d.block);
        s.H(4, d.activeViewport);
        s.H(5, d.baseUcs);
        s.H(5, d.namedUcs);
    }

    template <class Stream> static void plotSettings(Stream& s, AcDbLayout::Data& d) {
        s.TV(d.pageSetupName);
        s.TV(d.printerName);
        s.BS(d.plotFlags);
        s.BD(d.leftMargin);
        s.BD(d.bottomMargin);
        s.BD(d.rightMargin);
        s.BD(d.topMargin);
        s.BD(d.paperWidth);
        s.BD(d.paperHeight);
        s.TV(d.paperSizeName);
        s.BD2(d.plotOrigin);
        s.BS(d.paperUnits);
        s.BS(d.plotRotation);
        s.BS(d.plotType);
        s.BD2(d.windowMin);
        s.BD2(d.windowMax);
        s.TV(d.plotViewName);
        s.BD(d.realWorldUnits);
        s.BD(d.drawingUnits);
        s.TV(d.styleSheet);
        s.BS(d.scaleType);
        s.BD(d.scaleFactor);
        s.BD2(d.paperImageOrigin);
    }
};
extern const DwgClassRow kDwgLayout = dwgClassRow<AcDbLayout>(0, L"LAYOUT");

template <> struct DbObjectAccess::DwgFields<AcDbMlineStyle> {
    template <class Stream> static void file(Stream& s, AcDbMlineStyle& object) {
        AcDbMlineStyle::Data& d = object.mStyle;
        s.TV(d.name);
        s.TV(d.description);
        s.BS(d.flags);
        s.BS(d.fillColor);
        s.BD(d.startAngle);
        s.BD(d.endAngle);
        auto count = static_cast<Adesk::UInt8>(d.lines.size());
        s.RC(count);
        s.sized(d.lines, count, 6);
        for (AcDbMlineStyle::Line& line : d.lines) {
            s.BD(line.offset);
            s.BS(line.color);
            s.BS(line.linetypeIndex);
        }
    }
};
extern const DwgClassRow kDwgMlineStyle = dwgClassRow<AcDbMlineStyle>(0x49);

template <> struct DbObjectAccess::DwgFields<AcDbPlaceHolder> {
    template <class Stream> static void file(Stream&, AcDbPlaceHolder&) {}
};
extern const DwgClassRow kDwgPlaceHolder = dwgClassRow<AcDbPlaceHolder>(0, L"ACDBPLACEHOLDER");
