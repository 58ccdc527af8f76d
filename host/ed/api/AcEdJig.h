// A jig: an entity that follows the cursor until its point is given. drag() runs sampler and
// update in turn for each sampled point and shows the entity; the console samples each
// answer once.
#pragma once

#include "AcDbEntity.h"

#include <string>

class AcEdDimData;
using AcDbDimDataPtrArray = AcArray<AcEdDimData*>;

class AcEdJig : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdJig);
    enum UserInputControls {
        kGovernedByOrthoMode = 0x0001, kNullResponseAccepted = 0x0002, kDontEchoCancelForCtrlC = 0x0004, kDontUpdateLastPoint = 0x0008,
        kNoDwgLimitsChecking = 0x0010, kNoZeroResponseAccepted = 0x0020, kNoNegativeResponseAccepted = 0x0040, kAccept3dCoordinates = 0x0080,
        kAcceptMouseUpAsPoint = 0x0100, kAnyBlankTerminatesInput = 0x0200, kInitialBlankTerminatesInput = 0x0400
    };
    enum DragStatus { kModeless = -17, kNoChange = -6, kCancel = -4, kOther = -3, kNull = -1, kNormal = 0, kKW1, kKW2, kKW3, kKW4, kKW5, kKW6, kKW7, kKW8, kKW9 };
    enum CursorType { kNoSpecialCursor = -1, kCrosshair = 0, kRectCursor, kRubberBand, kNotRotated, kTargetBox, kRotatedCrosshair, kCrosshairNoRotate, kInvisible, kEntitySelect };

    // The status of the last sampled answer: kNormal when a point was given, kNull for Enter alone,
    // kCancel for a cancel.
    DragStatus drag();
    // Appends the entity to the current space; its id, null on failure. The database owns the entity, which is closed.
    AcDbObjectId append();
    const ACHAR* dispPrompt() const { return mPrompt.c_str(); }
    void setDispPrompt(const ACHAR* format, ...);
    const ACHAR* keywordList() const { return mKeywords.c_str(); }
    void setKeywordList(const ACHAR* keywords) { mKeywords = keywords; }
    UserInputControls userInputControls() const { return mControls; }
    void setUserInputControls(UserInputControls controls) { mControls = controls; }
    CursorType specialCursorType() const { return mCursor; }
    void setSpecialCursorType(CursorType type) { mCursor = type; }

    virtual DragStatus sampler() { return kNormal; }
    virtual bool update() { return true; }
    virtual AcDbEntity* entity() const { return nullptr; }
    virtual AcDbDimDataPtrArray* dimData(double /*dimScale*/) { return nullptr; }
    virtual Acad::ErrorStatus setDimValue(const AcEdDimData*, double) { return Acad::eOk; }

protected:
    DragStatus acquirePoint(AcGePoint3d& value);
    DragStatus acquirePoint(AcGePoint3d& value, const AcGePoint3d& base);
    DragStatus acquireAngle(double& value, const AcGePoint3d& base);
    DragStatus acquireAngle(double& value);
    DragStatus acquireDist(double& value, const AcGePoint3d& base);
    DragStatus acquireString(ACHAR* value, std::size_t size);

private:
    std::wstring mPrompt, mKeywords;
    UserInputControls mControls = static_cast<UserInputControls>(0);
    CursorType mCursor = kNoSpecialCursor;
};
