// Layers, text styles, line types, viewports and the records that are kept as they came.
#include "AcDbSymbolTables.h"

#include "DbDatabaseData.h"
#include "DbFieldFiling.h"

#include <cmath>

HOST_RX_DEFINE(AcDbLayerTableRecord, AcDbSymbolTableRecord, L"LAYER")
HOST_RX_DEFINE(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, L"STYLE")
HOST_RX_DEFINE(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, L"LTYPE")
HOST_RX_DEFINE(AcDbRegAppTableRecord, AcDbSymbolTableRecord, L"APPID")
HOST_RX_DEFINE(AcDbViewTableRecord, AcDbSymbolTableRecord, L"VIEW")
HOST_RX_DEFINE(AcDbUCSTableRecord, AcDbSymbolTableRecord, L"UCS")
HOST_RX_DEFINE(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, L"DIMSTYLE")
HOST_RX_DEFINE(AcDbVXTableRecord, AcDbSymbolTableRecord, L"VX_TABLE_RECORD")
HOST_RX_DEFINE(AcDbViewportTableRecord, AcDbSymbolTableRecord, L"VPORT")

#define DB_SETTER(CLASS, SETTER, TYPE, MEMBER)                                                                         \
    Acad::ErrorStatus CLASS::SETTER(TYPE value) {                                                                      \
        assertWriteEnabled();                                                                                          \
        MEMBER = value;                                                                                                \
        return Acad::eOk;                                                                                              \
    }
#define DB_TEXT_SETTER(CLASS, SETTER, MEMBER)                                                                          \
    Acad::ErrorStatus CLASS::SETTER(const ACHAR* text) {                                                               \
        assertWriteEnabled();                                                                                          \
        MEMBER = text != nullptr ? text : L"";                                                                         \
        return Acad::eOk;                                                                                              \
    }

// ---- layers
DB_SETTER(AcDbLayerTableRecord, setColor, const AcCmColor&, mColor)
DB_SETTER(AcDbLayerTableRecord, setIsOff, bool, mOff)
DB_SETTER(AcDbLayerTableRecord, setIsFrozen, bool, mFrozen)
DB_SETTER(AcDbLayerTableRecord, setVPDFLT, bool, mFrozenInNew)
DB_SETTER(AcDbLayerTableRecord, setIsPlottable, bool, mPlottable)
DB_SETTER(AcDbLayerTableRecord, setLineWeight, AcDb::LineWeight, mLineWeight)
DB_SETTER(AcDbLayerTableRecord, setLinetypeObjectId, AcDbObjectId, mLinetype)

Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked) {
    assertWriteEnabled();
    mLocked = locked;
    if (database() != nullptr)
        DbObjectAccess::data(*database()).noteLock(*this);
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLayerTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    out.value(mColor), out.value(mOff), out.value(mFrozen), out.value(mLocked), out.value(mFrozenInNew);
    out.value(mPlottable), out.value(mLineWeight), out.hardPointer(mLinetype), out.hardPointer(mPlotStyle);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbLayerTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    DbFieldsIn in(*filer);
    in.value(mColor), in.value(mOff), in.value(mFrozen), in.value(mLocked), in.value(mFrozenInNew);
    in.value(mPlottable), in.value(mLineWeight), in.hardPointer(mLinetype), in.hardPointer(mPlotStyle);
    if (database() != nullptr)
        DbObjectAccess::data(*database()).noteLock(*this);
    return filer->filerStatus();
}

// ---- text styles
DB_TEXT_SETTER(AcDbTextStyleTableRecord, setFileName, mFont)
DB_TEXT_SETTER(AcDbTextStyleTableRecord, setBigFontFileName, mBigFont)
DB_SETTER(AcDbTextStyleTableRecord, setXScale, double, mXScale)
DB_SETTER(AcDbTextStyleTableRecord, setObliquingAngle, double, mOblique)

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
    if (!(size >= 0.0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    mTextSize = size;
    return Acad::eOk;
}
AcGiTextStyle AcDbTextStyleTableRecord::giStyle() const {
    AcGiTextStyle style;
    style.fontName = mFont;
    style.height = mTextSize > 0.0 ? mTextSize : mPriorSize;
    style.widthFactor = mXScale;
    style.obliqueAngle = mOblique;
    style.backward = (mGeneration & 2) != 0;
    style.upsideDown = (mGeneration & 4) != 0;
    return style;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    out.text(mFont), out.text(mBigFont), out.value(mTextSize), out.value(mXScale), out.value(mOblique);
    out.value(mPriorSize), out.value(mGeneration), out.value(mFlags);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbTextStyleTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    DbFieldsIn in(*filer);
    in.text(mFont), in.text(mBigFont), in.value(mTextSize), in.value(mXScale), in.value(mOblique);
    in.value(mPriorSize), in.value(mGeneration), in.value(mFlags);
    return filer->filerStatus();
}

// ---- line types
DB_TEXT_SETTER(AcDbLinetypeTableRecord, setComments, mComments)

double AcDbLinetypeTableRecord::patternLength() const {
    double length = 0.0;
    for (const double dash : mDashes)
        length += std::fabs(dash);
    return length;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setDashes(const std::vector<double>& dashes) {
    assertWriteEnabled();
    mDashes = dashes;
    mComplex.clear();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    out.text(mComments);
    out.sequence(mDashes, [](DbFieldsOut& o, double dash) { o.value(dash); });
    out.sequence(mComplex, [](DbFieldsOut& o, const Complex& c) {
        o.value(c.shape), o.value(c.xOffset), o.value(c.yOffset), o.value(c.scale), o.value(c.rotation), o.value(c.flags);
        o.hardPointer(c.style);
    });
    out.sequence(mStrings, [](DbFieldsOut& o, Adesk::UInt8 b) { o.value(b); });
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbLinetypeTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    DbFieldsIn in(*filer);
    in.text(mComments);
    in.sequence(mDashes, [](DbFieldsIn& i, double& dash) { i.value(dash); });
    in.sequence(mComplex, [](DbFieldsIn& i, Complex& c) {
        i.value(c.shape), i.value(c.xOffset), i.value(c.yOffset), i.value(c.scale), i.value(c.rotation), i.value(c.flags);
        i.hardPointer(c.style);
    });
    in.sequence(mStrings, [](DbFieldsIn& i, Adesk::UInt8& b) { i.value(b); });
    return filer->filerStatus();
}

// ---- viewports
DB_SETTER(AcDbViewportTableRecord, setCenterPoint, const AcGePoint2d&, mCenter)
DB_SETTER(AcDbViewportTableRecord, setHeight, double, mHeight)
DB_SETTER(AcDbViewportTableRecord, setWidth, double, mWidth)

Acad::ErrorStatus AcDbViewportTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbSymbolTableRecord::dwgOutFields(filer);
    DbFieldsOut out(*filer);
    out.value(mCenter), out.value(mHeight), out.value(mWidth);
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbViewportTableRecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbSymbolTableRecord::dwgInFields(filer);
    DbFieldsIn in(*filer);
    in.value(mCenter), in.value(mHeight), in.value(mWidth);
    return filer->filerStatus();
}
