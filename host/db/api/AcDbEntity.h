// Entities: objects of a block definition, with layer, colour, line type and a picture.
#pragma once

#include "AcDbObject.h"
#include "AcGiReceivers.h"

class AcDbEntity;
using AcDbEntityPtrArray = AcArray<AcDbEntity*>;
using AcDbVoidPtrArray = AcArray<void*>;
class AcDbGripData;
using AcDbGripDataPtrArray = AcArray<AcDbGripData*>;
class AcDbBlockReference;

namespace AcDb {
enum Visibility { kInvisible = 1, kVisible = 0 };
enum OsnapMode { kOsModeEnd = 1, kOsModeMid = 2, kOsModeCen = 3, kOsModeNode = 4, kOsModeQuad = 5, kOsModeIns = 7, kOsModePerp = 8, kOsModeTan = 9, kOsModeNear = 10 };
}

class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);
    AcDbEntity();

    // ---- properties. Ids are null until the entity stands in a database or is given defaults;
    // a null layer or line type reads as layer "0" and ByLayer of the working database. What was never
    // set, on the entity or on the one it is a copy of, becomes the database's current value when it is
    // appended; the parts of an explosion keep what they show.
    AcCmColor color() const;
    AcCmEntityColor entityColor() const { return color(); }
    Adesk::UInt16 colorIndex() const { return color().colorIndex(); }
    virtual Acad::ErrorStatus setColor(const AcCmColor& color, bool doSubents = true);
    virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16 index, bool doSubents = true);
    ACHAR* layer() const; // the caller's, acutDelString
    std::wstring layerName() const;
    AcDbObjectId layerId() const;
    Acad::ErrorStatus setLayer(const ACHAR* name, bool doSubents = true); // eKeyNotFound when absent
    Acad::ErrorStatus setLayer(AcDbObjectId id, bool doSubents = true);
    ACHAR* linetype() const;
    std::wstring linetypeName() const;
    AcDbObjectId linetypeId() const;
    Acad::ErrorStatus setLinetype(const ACHAR* name, bool doSubents = true);
    Acad::ErrorStatus setLinetype(AcDbObjectId id, bool doSubents = true);
    double linetypeScale() const;
    Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);
    AcDb::LineWeight lineWeight() const;
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);
    AcDb::Visibility visibility() const;
    Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, bool doSubents = true);
    // Layer, colour, line type, scale, weight and visibility of another entity.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* other, bool doSubents = true);
    // Current layer, colour, line type and weight of the database (the working one when null).
    void setDatabaseDefaults(AcDbDatabase* database = nullptr);
    AcDbObjectId blockId() const { return ownerId(); }

    // ---- behaviour; the sub operations are what a class overrides
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);
    // Appends new entities, the caller's. eCannotExplodeEntity when the class cannot.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const;
    // The box of what is drawn (attribute definitions in a block left out). eInvalidExtents when empty.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& points, AcIntArray& osnapModes, AcIntArray& geomIds) const;
    Acad::ErrorStatus moveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset);
    Acad::ErrorStatus getGripPoints(AcDbGripDataPtrArray& grips, double viewUnitSize, int gripSize, const AcGeVector3d& viewDirection, int bitflags) const;
    Acad::ErrorStatus moveGripPointsAt(const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& offset, int bitflags);
    Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode mode, AcGePoint3dArray& points, const AcGePoint3d& pick = {}, const AcGePoint3d& last = {}) const;
    Acad::ErrorStatus highlight() const;
    Acad::ErrorStatus unhighlight() const;
    bool isHighlighted() const;
    // Marks the picture as changed, or not.
    void recordGraphicsModified(bool setModified = true);
    bool isGraphicsModified() const;
    Acad::ErrorStatus list() const { subList(); return Acad::eOk; }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    // The traits with which the entity's picture begins: its own properties.
    GiTraits startTraits() const;

protected:
    virtual Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) { return Acad::eNotImplementedYet; }
    virtual Acad::ErrorStatus subExplode(AcDbVoidPtrArray&) const { return Acad::eCannotExplodeEntity; }
    virtual Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const; // measures the picture
    virtual Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray&, AcIntArray&, AcIntArray&) const { return Acad::eNotImplementedYet; }
    virtual Acad::ErrorStatus subMoveGripPointsAt(const AcIntArray&, const AcGeVector3d&) { return Acad::eNotImplementedYet; }
    virtual Acad::ErrorStatus subGetGripPoints(AcDbGripDataPtrArray&, double, int, const AcGeVector3d&, int) const { return Acad::eNotImplementedYet; }
    virtual Acad::ErrorStatus subMoveGripPointsAt(const AcDbVoidPtrArray&, const AcGeVector3d&, int) { return Acad::eNotImplementedYet; }
    virtual Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode, std::intptr_t /*gsMarker*/, const AcGePoint3d& pick, const AcGePoint3d& last,
                                                const AcGeMatrix3d& viewTransform, AcGePoint3dArray& points, AcIntArray& geomIds) const;
    virtual void subList() const;
    // The entity's own properties become the traits with which its picture begins.
    Adesk::UInt32 subSetAttributes(AcGiSubEntityTraits* traits) override;

private:
    friend struct DbObjectAccess;
    enum Given : Adesk::UInt8 { kLayerGiven = 1, kColorGiven = 2, kLinetypeGiven = 4, kScaleGiven = 8, kWeightGiven = 16, kAllGiven = 31 };
    bool hasAllGiven() const { return mGiven == kAllGiven || !objectId().isNull(); }
    void takeCurrentProperties(const AcDbDatabase& database); // those not given
    AcCmColor mColor;
    AcDbObjectId mLayer, mLinetype;
    double mLinetypeScale = 1.0;
    AcDb::LineWeight mLineWeight = AcDb::kLnWtByLayer;
    bool mInvisible = false;
    mutable bool mHighlighted = false;
    Adesk::UInt8 mGiven = 0; // which properties were set, of an entity that stands in no database yet
};

// The same as acdbOpenObject for an entity.
inline Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false,
                                            bool forceOpenOnLockedLayer = false) {
    return acdbOpenObject(entity, id, mode, openErased, forceOpenOnLockedLayer);
}

// ---- grips ------------------------------------------------------------------------------
namespace AcDbGripOperations {
enum ReturnStatus { OK = 0, Failure = 1, IgnoreGrip = 2, GripHotToWarm = 3, GetNewGripPoints = 4 };
enum GripStatus { kGripStart = 0, kGripEnd = 1, kGripAbort = 2, kStretch, kMove, kRotate, kScale, kMirror, kDimFocusChanged, kPopUpMenu };
enum DrawType { kWarmGrip = 0, kHoverGrip = 1, kHotGrip = 2, kDragImageGrip = 3 };
}

// A grip hook gets the grip and the id of its entity.
using GripOpStatusPtr = void (*)(AcDbGripData* grip, const AcDbObjectId& entity, AcDbGripOperations::GripStatus status);
using GripHotGripPtr = AcDbGripOperations::ReturnStatus (*)(AcDbGripData* grip, const AcDbObjectId& entity, int contextFlags);
// gripSize in drawing units. Returns true when it drew the glyph itself.
using GripWorldDrawPtr = bool (*)(AcDbGripData* grip, AcGiWorldDraw* worldDraw, const AcDbObjectId& entity, AcDbGripOperations::DrawType type,
                                  AcGePoint3d* imageGripPoint, double gripSize);
using GripViewportDrawPtr = void (*)(AcDbGripData* grip, AcGiViewportDraw* viewportDraw, const AcDbObjectId& entity, AcDbGripOperations::DrawType type,
                                     AcGePoint3d* imageGripPoint, int gripSize);
using AppDataFreePtr = void (*)(void* appData);

class AcDbGripData {
public:
    AcDbGripData() = default;
    ~AcDbGripData() {
        if (mFree != nullptr)
            mFree(mAppData);
    }
    AcDbGripData(const AcDbGripData&) = delete;
    AcDbGripData& operator=(const AcDbGripData&) = delete;
    const AcGePoint3d& gripPoint() const { return mPoint; }
    void setGripPoint(const AcGePoint3d& p) { mPoint = p; }
    void* appData() const { return mAppData; }
    void setAppData(void* data) { mAppData = data; } // released with the function below, if one is set
    void setAppDataFreeFunc(AppDataFreePtr f) { mFree = f; }
    // What listings call the grip; empty where its class gives it no name.
    const ACHAR* gripName() const { return mName.c_str(); }
    void setGripName(const ACHAR* name) { mName = name != nullptr ? name : L""; }
    GripOpStatusPtr gripOpStatFunc() const { return mStatus; }
    void setGripOpStatFunc(GripOpStatusPtr f) { mStatus = f; }
    GripHotGripPtr hotGripFunc() const { return mHot; }
    void setHotGripFunc(GripHotGripPtr f) { mHot = f; }
    GripWorldDrawPtr worldDraw() const { return mWorldDraw; }
    void setWorldDraw(GripWorldDrawPtr f) { mWorldDraw = f; }
    GripViewportDrawPtr viewportDraw() const { return mViewportDraw; }
    void setViewportDraw(GripViewportDrawPtr f) { mViewportDraw = f; }
    // The flag word: bit 2 rubber band off, bit 4 mode keywords off.
    Adesk::UInt32 bitFlags() const { return mFlags; }
    bool isRubberBandLineDisabled() const { return (mFlags & kRubberBandOff) != 0; }
    void setRubberBandLineDisabled(bool on) { setFlag(kRubberBandOff, on); }
    bool areModeKeywordsDisabled() const { return (mFlags & kKeywordsOff) != 0; }
    void setAreModeKeywordsDisabled(bool on) { setFlag(kKeywordsOff, on); }

private:
    enum Flag : Adesk::UInt32 { kRubberBandOff = 2, kKeywordsOff = 4 };
    void setFlag(Adesk::UInt32 flag, bool on) { mFlags = on ? (mFlags | flag) : (mFlags & ~flag); }
    AcGePoint3d mPoint;
    std::wstring mName;
    void* mAppData = nullptr;
    AppDataFreePtr mFree = nullptr;
    GripOpStatusPtr mStatus = nullptr;
    GripHotGripPtr mHot = nullptr;
    GripWorldDrawPtr mWorldDraw = nullptr;
    GripViewportDrawPtr mViewportDraw = nullptr;
    Adesk::UInt32 mFlags = 0;
};
