// The sign post: one entity that owns its foot symbol, its signs, its lamps and its note.
//
// A is the foot, B gives the direction of the post, C is the bend of the arm, D the base of the sign
// chain and E the anchor of the note. All lengths are drawing units, angles radians.
#pragma once

#include "TrfcFoot.h"
#include "TrfcGripTable.h"
#include "TrfcLampChains.h"
#include "TrfcNote.h"
#include "TrfcScalable.h"

#include <optional>

class TrfcPost : public TrfcScalable {
public:
    ACRX_DECLARE_MEMBERS(TrfcPost);
    TrfcPost();
    // The arguments make the foot.
    TrfcPost(const S_BLOCK_DESCRIPTOR& foot, const AcGePoint3d& position, double rotation, double scale);
    ~TrfcPost() override;

    // ---- placement: each sets what hangs on its point, and placementPhase to at least its number
    void setPointA(const AcGePoint3d& point); // the state becomes DOC_POST_DEFAULT_TYPE
    void setPointB(const AcGePoint3d& point); // not nearer to A than DOC_POST_MIN_AB
    void setPointC(const AcGePoint3d& point);
    // constrain: C is derived from the bend angle, and the arm is kept from folding back.
    void setPointD(const AcGePoint3d& point, bool constrain);
    void setPointE(const AcGePoint3d& point); // not inside the foot
    void setPostType(int type); // the foot changes to the file of the state
    void setBaseBlock(const S_BLOCK_DESCRIPTOR& foot);
    void resetAnnotation(); // E to its computed place, on the arm's side

    // ---- changes in every scale, which keep the records of the others
    void moveAllScales(const AcGeVector3d& vector);
    void rotateAllScales(double angle);

    // ---- lamps
    // A chain that hangs on the foot's rim away from the point; its index.
    int addLampChain(const AcGePoint3d& point);
    int lampChainCount() const { return mLampChains.count(); }
    TrfcBlockChain& lampChain(int index) const { return mLampChains.at(index); }

    // ---- copies
    TrfcPost* clone() const override { return TrfcPost::cast(TrfcScalable::clone()); } // the caller's
    void copyFromClone(const TrfcPost* other) { copyFrom(other); }                     // null does nothing
    void stateChanges();
    void erasePost();

    // ---- fields
    int placementPhase() const { return mPlacementPhase; } // 1 to 4: A to D given; 5 finished
    void setPlacementPhase(int phase);
    AcGePoint3d pointA() const { return mPointA; }
    AcGePoint3d pointB() const { return mPointB; }
    AcGePoint3d pointC() const { return mPointC; }
    AcGePoint3d pointD() const { return mPointD; }
    AcGePoint3d pointE() const { return mNote.anchor; }
    AcGeVector3d vectorAB() const { return mVectorAB; }
    double armRatio() const { return mArmRatio; }
    double rotation() const { return mRotation; }
    double bendAngle() const { return mBendAngle; }
    double basePointD() const { return mBasePointD; } // diameter of the foot
    double annoHeight() const { return mAnnoHeight; }
    bool hasBend() const { return mHasBend; }
    bool lampsFollowRotation() const { return mLampsFollowRotation; }
    void setLampsFollowRotation(bool follow);
    Adesk::UInt32 exchangeId() const { return mExchangeId; }
    void setExchangeId(Adesk::UInt32 id);
    TrfcPostData& postData() { return mPostData; }
    const TrfcPostData& postData() const { return mPostData; }
    TrfcPostText& postText() { return mNote.text; }
    const TrfcPostText& postText() const { return mNote.text; }
    TrfcBlock& baseBlock() const { return mFoot.block(); }
    TrfcBlockChain& signChain() { return mSignChain; }
    const TrfcBlockChain& signChain() const { return mSignChain; }

    // ---- geometry of the note
    bool isTextRight() const { return mNote.isRight(noteFrame()); } // E lies right of the post direction as seen from A
    bool isArmRight() const { return isRightOf(mVectorAB, mPointD - mPointB); }
    double textWidth() const { return mNote.width(noteFrame()); }
    AcGeVector3d textVector() const { return mNote.shelf(noteFrame()); }       // the shelf, from E away from the post
    AcGePoint3d leaderStart() const { return mNote.leaderStart(noteFrame()); } // on the foot's rim towards E
    AcGePoint3d textPosition() const { return mNote.textPosition(noteFrame()); }

    // ---- the grip that is being dragged
    const TrfcGripAppData* activeGrip() const { return mActiveGrip ? &*mActiveGrip : nullptr; }
    void setActiveGrip(const TrfcGripAppData& grip) { mActiveGrip = grip; }
    void clearActiveGrip() { mActiveGrip.reset(); }
    static std::span<const TrfcGripGroup<TrfcPost>> gripGroups();
    // The dialog of the lamp whose place was dragged out; the chain is added on OK.
    void addLampFromGrip();
    // The dialog on a clone, at that page; the post takes the clone on OK. True then.
    bool editProperties(int page);

    // ---- scale records
    Acad::ErrorStatus dwgOutScale(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInScale(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus copyFiler(AcDbDwgFiler* source, AcDbDwgFiler* target) const override;
    void createNewScale(int oldScale, int newScale) override;
    void geometryChanged() override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t gsMarker, const AcGePoint3d& pick, const AcGePoint3d& last,
                                        const AcGeMatrix3d& viewTransform, AcGePoint3dArray& points, AcIntArray& geomIds) const override;
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    using AcDbEntity::subGetGripPoints;
    using AcDbEntity::subMoveGripPointsAt;
    Acad::ErrorStatus subGetGripPoints(AcDbGripDataPtrArray& grips, double viewUnitSize, int gripSize, const AcGeVector3d& viewDirection, int bitflags) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& vector, int bitflags) override;

private:
    // What is kept for each scale, and what the record itself begins with.
    struct ScaleFields {
        template <class Self, class Fields> void operator()(Self& post, Fields&& field) const;
    };
    struct OwnFields {
        template <class Self, class Fields> void operator()(Self& post, Fields&& field) const;
    };
    static double defaultBendAngle();
    struct Arm { AcGeVector3d ab, bc, cd, ae; };
    Arm arm() const;
    void setArm(const Arm& arm);
    AcGeVector3d unitAB() const { return mVectorAB.normal(); }
    double radius() const { return mBasePointD / 2.0; }
    void readSizes();
    void raisePhase(int phase);
    void updateRotation();
    TrfcNoteFrame noteFrame() const { return {mPointA, mVectorAB, radius(), mAnnoHeight, mRotation}; }
    TrfcFootPlace footPlace() const { return {mPointA, mRotation, mBasePointD}; }
    bool canBend() const;
    void bendTowardsD(double distance);
    void keepArmForward();
    void rotateScale(double angle);
    void hangLamp(TrfcBlockChain& chain) const; // on the rim, against its axis
    AcGePoint3d rimTowards(const AcGePoint3d& point) const;
    // drawing
    void drawArm(AcGiWorldDraw* worldDraw) const;
    void explodeArm(AcDbVoidPtrArray& entities) const;
    bool isDragging(const ACHAR* grip) const;
    // grips
    AcGeVector3d gripOffset() const;
    TrfcGripPlace lampTurnPlace(int lamp) const;
    TrfcGripPlace lampEditPlace(int lamp) const;
    void moveArmLength(const AcGeVector3d& vector);
    void setLengthAB(double length, double minAB);
    void moveBend(const AcGeVector3d& vector);
    void turnPost(const AcGeVector3d& vector);
    void moveNote(const AcGePoint3d& point);
    void turnLamp(const TrfcGripAppData& grip, const AcGeVector3d& vector);

    Adesk::Int32 mPlacementPhase = 0;
    AcGePoint3d mPointA, mPointB, mPointC, mPointD;
    AcGeVector3d mVectorAB;
    double mArmRatio = 0.5;
    double mRotation = 0.0;
    double mBendAngle = 0.0;
    double mBasePointD = 0.0;
    double mAnnoHeight = 0.0;
    bool mHasBend = true;
    bool mLampsFollowRotation = true;
    Adesk::UInt32 mExchangeId = 0;
    TrfcPostData mPostData;
    TrfcNote mNote; // its anchor is E
    TrfcFoot mFoot;
    TrfcBlockChain mSignChain;
    TrfcLampChains mLampChains;
    std::optional<TrfcGripAppData> mActiveGrip; // of the drag under way; a copy, since the grip may go first
    AcGePoint3d mLampDragPoint;
};
