#include "AcDbLayout.h"

#include "DbFieldFiling.h"

HOST_RX_DEFINE(AcDbLayout, AcDbObject, L"LAYOUT")
HOST_RX_DEFINE(AcDbMlineStyle, AcDbObject, L"MLINESTYLE")
HOST_RX_DEFINE(AcDbPlaceHolder, AcDbObject, L"ACDBPLACEHOLDER")

namespace {
// One list of fields for both directions.
template <class Filing, class Data> void fileLayout(Filing& f, Data& d) {
    f.text(d.pageSetupName), f.text(d.printerName), f.value(d.plotFlags);
    f.value(d.leftMargin), f.value(d.bottomMargin), f.value(d.rightMargin), f.value(d.topMargin);
    f.value(d.paperWidth), f.value(d.paperHeight), f.text(d.paperSizeName), f.value(d.plotOrigin);
    f.value(d.paperUnits), f.value(d.plotRotation), f.value(d.plotType), f.value(d.windowMin), f.value(d.windowMax);
    f.text(d.plotViewName), f.value(d.realWorldUnits), f.value(d.drawingUnits), f.text(d.styleSheet);
    f.value(d.scaleType), f.value(d.scaleFactor), f.value(d.paperImageOrigin);
    f.text(d.name), f.value(d.tabOrder), f.value(d.layoutFlags), f.value(d.ucsOrigin), f.value(d.limitsMin);
    f.value(d.limitsMax), f.value(d.insertionPoint), f.value(d.ucsXAxis), f.value(d.ucsYAxis), f.value(d.elevation);
    f.value(d.orthographicView), f.value(d.extentsMin), f.value(d.extentsMax);
    f.softPointer(d.block), f.softPointer(d.activeViewport), f.hardPointer(d.baseUcs), f.hardPointer(d.namedUcs);
}
template <class Filing, class Data> void fileStyle(Filing& f, Data& d) {
    f.text(d.name), f.text(d.description), f.value(d.flags), f.value(d.fillColor), f.value(d.startAngle), f.value(d.endAngle);
    f.sequence(d.lines, [](Filing& g, auto& line) { g.value(line.offset), g.value(line.color), g.value(line.linetypeIndex); });
}
} // namespace

Acad::ErrorStatus AcDbLayout::setLayoutData(const Data& data) {
    assertWriteEnabled();
    mLayout = data;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLayout::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    fileLayout(out, mLayout);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbLayout::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    DbFieldsIn in(*filer);
    fileLayout(in, mLayout);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbMlineStyle::setStyleData(const Data& data) {
    assertWriteEnabled();
    mStyle = data;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMlineStyle::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    fileStyle(out, mStyle);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbMlineStyle::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    DbFieldsIn in(*filer);
    fileStyle(in, mStyle);
    return filer->filerStatus();
}
