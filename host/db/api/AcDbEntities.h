// The built-in entities. Points are world drawing units unless a member says "in the plane",
// which means the coordinate system of the entity's normal (AcGeMatrix3d::planeToWorld).
#pragma once

#include "AcDbEntity.h"

// The one list of a class's stored fields, which both filing and reading walk.
#define ACDB_FIELD_LIST template <class Self, class Archive> static void fields(Self& self, Archive& archive)
#define ACDB_ENTITY_COMMON(CLASS)                                                                                      \
    ACRX_DECLARE_MEMBERS(CLASS);                                                                                       \
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;                                                \
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;                                                       \
                                                                                                                       \
protected:                                                                                                             \
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;                                                              \
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;                                             \
    Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t gsMarker, const AcGePoint3d& pick,         \
                                        const AcGePoint3d& last, const AcGeMatrix3d& viewTransform,                    \
                                        AcGePoint3dArray& points, AcIntArray& geomIds) const override;                 \
    Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcIntArray& osnapModes, AcIntArray& geomIds) const override; \
    Acad::ErrorStatus subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) override;             \
    void subList() const override;                                                                                     \
                                                                                                                       \
private:                                                                                                               \
    friend struct DbObjectAccess;                                                                                      \
    ACDB_FIELD_LIST;                                                                                                   \
                                                                                                                       \
public:                                                                                                                \
    using AcDbEntity::getGripPoints;                                                                                   \
    static_assert(true)
// A plain value with getter and setter.
#define ACDB_FIELD(TYPE, GETTER, SETTER, MEMBER, INITIAL)                                                              \
    TYPE GETTER() const { assertReadEnabled(); return MEMBER; }                                                        \
    Acad::ErrorStatus SETTER(const TYPE& value) { assertWriteEnabled(); MEMBER = value; return Acad::eOk; }            \
                                                                                                                       \
private:                                                                                                               \
    TYPE MEMBER = INITIAL;                                                                                             \
                                                                                                                       \
public:                                                                                                                \
    static_assert(true)
#define ACDB_NORMAL ACDB_FIELD(AcGeVector3d, normal, setNormal, mNormal, AcGeVector3d(0.0, 0.0, 1.0))
#define ACDB_THICKNESS ACDB_FIELD(double, thickness, setThickness, mThickness, 0.0)

class AcDbCurve : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbCurve);
};

class AcDbLine : public AcDbCurve {
public:
    ACDB_ENTITY_COMMON(AcDbLine);
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : mStart(start), mEnd(end) {}
    ACDB_FIELD(AcGePoint3d, startPoint, setStartPoint, mStart, {});
    ACDB_FIELD(AcGePoint3d, endPoint, setEndPoint, mEnd, {});
    ACDB_THICKNESS;
    ACDB_NORMAL;
};
class AcDbPoint : public AcDbEntity {
public:
    ACDB_ENTITY_COMMON(AcDbPoint);
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position) : mPosition(position) {}
    ACDB_FIELD(AcGePoint3d, position, setPosition, mPosition, {});
    ACDB_THICKNESS;
    ACDB_NORMAL;
    ACDB_FIELD(double, ecsRotation, setEcsRotation, mEcsRotation, 0.0);
};
class AcDbCircle : public AcDbCurve {
public:
    ACDB_ENTITY_COMMON(AcDbCircle);
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) : mCenter(center), mRadius(radius), mNormal(normal) {}
    ACDB_FIELD(AcGePoint3d, center, setCenter, mCenter, {});
    ACDB_FIELD(double, radius, setRadius, mRadius, 0.0);
    ACDB_THICKNESS;
    ACDB_NORMAL;
};
class AcDbArc : public AcDbCurve { // counter-clockwise about the normal
public:
    ACDB_ENTITY_COMMON(AcDbArc);
    AcDbArc() = default;
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle) : mCenter(center), mRadius(radius), mStartAngle(startAngle), mEndAngle(endAngle) {}
    ACDB_FIELD(AcGePoint3d, center, setCenter, mCenter, {});
    ACDB_FIELD(double, radius, setRadius, mRadius, 0.0);
    ACDB_FIELD(double, startAngle, setStartAngle, mStartAngle, 0.0);
    ACDB_FIELD(double, endAngle, setEndAngle, mEndAngle, 0.0);
    ACDB_THICKNESS;
    ACDB_NORMAL;
};
class AcDbEllipse : public AcDbCurve { // parameters in radians
public:
    ACDB_ENTITY_COMMON(AcDbEllipse);
    AcDbEllipse() = default;
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis, double radiusRatio, double startParam = 0.0, double endParam = kTwoPi)
        : mCenter(center), mMajorAxis(majorAxis), mRatio(radiusRatio), mStartParam(startParam), mEndParam(endParam), mNormal(normal) {}
    ACDB_FIELD(AcGePoint3d, center, setCenter, mCenter, {});
    ACDB_FIELD(AcGeVector3d, majorAxis, setMajorAxis, mMajorAxis, AcGeVector3d(1.0, 0.0, 0.0));
    ACDB_FIELD(double, radiusRatio, setRadiusRatio, mRatio, 1.0);
    ACDB_FIELD(double, startParam, setStartParam, mStartParam, 0.0);
    ACDB_FIELD(double, endParam, setEndParam, mEndParam, kTwoPi);
    ACDB_NORMAL;
};
class AcDbSolid : public AcDbEntity { // corners in the order of the command: 0 1 3 2 around the edge
public:
    ACDB_ENTITY_COMMON(AcDbSolid);
    AcGePoint3d pointAt(int i) const { return mPoints[i]; }
    Acad::ErrorStatus setPointAt(int i, const AcGePoint3d& p);
    ACDB_THICKNESS;
    ACDB_NORMAL;
private:
    AcGePoint3d mPoints[4];
};

// ---- texts
namespace AcDb {
enum TextHorzMode { kTextLeft = 0, kTextCenter = 1, kTextRight = 2, kTextAlign = 3, kTextMid = 4, kTextFit = 5 };
enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
}
class AcDbText : public AcDbEntity {
public:
    ACDB_ENTITY_COMMON(AcDbText);
    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull, double height = 0.0, double rotation = 0.0)
        : mPosition(position), mHeight(height), mRotation(rotation), mText(text ? text : L""), mStyle(style) {}
    ACDB_FIELD(AcGePoint3d, position, setPosition, mPosition, {});                 // left end of the base line
    ACDB_FIELD(AcGePoint3d, alignmentPoint, setAlignmentPoint, mAlignmentPoint, {}); // used by all modes but left on base line
    ACDB_FIELD(double, height, setHeight, mHeight, 0.0);
    ACDB_FIELD(double, rotation, setRotation, mRotation, 0.0); // radians
    ACDB_FIELD(double, widthFactor, setWidthFactor, mWidthFactor, 1.0);
    ACDB_FIELD(double, oblique, setOblique, mOblique, 0.0);
    ACDB_FIELD(AcDb::TextHorzMode, horizontalMode, setHorizontalMode, mHorizontalMode, AcDb::kTextLeft);
    ACDB_FIELD(AcDb::TextVertMode, verticalMode, setVerticalMode, mVerticalMode, AcDb::kTextBase);
    ACDB_THICKNESS;
    ACDB_NORMAL;
    ACHAR* textString() const;                            // a copy, acutDelString
    const ACHAR* textStringConst() const { return mText.c_str(); }
    virtual Acad::ErrorStatus setTextString(const ACHAR* text);
    AcDbObjectId textStyle() const;                       // the working database's Standard when none was set
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    bool isDefaultAlignment() const { return mHorizontalMode == AcDb::kTextLeft && mVerticalMode == AcDb::kTextBase; }
    // Moves the position so that the text meets its alignment point.
    virtual Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr);
    bool isMirroredInX() const { return (mGeneration & 2) != 0; } // set backward
    bool isMirroredInY() const { return (mGeneration & 4) != 0; } // set upside down
    Acad::ErrorStatus mirrorInX(bool on);
    Acad::ErrorStatus mirrorInY(bool on);
protected:
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray&) const override { return Acad::eCannotExplodeEntity; }
    AcGiTextStyle giStyle() const;
private:
    std::wstring mText;
    AcDbObjectId mStyle;
    Adesk::UInt8 mGeneration = 0;
};
class AcDbMText : public AcDbEntity {
public:
    ACDB_ENTITY_COMMON(AcDbMText);
    ACDB_FIELD(AcGePoint3d, location, setLocation, mLocation, {});
    ACDB_FIELD(AcGeVector3d, direction, setDirection, mDirection, AcGeVector3d(1.0, 0.0, 0.0));
    ACDB_FIELD(double, textHeight, setTextHeight, mTextHeight, 0.0);
    ACDB_FIELD(double, width, setWidth, mWidth, 0.0); // reference width, 0 none
    ACDB_FIELD(int, attachment, setAttachment, mAttachment, 1); // 1 top left .. 9 bottom right
    ACDB_FIELD(double, lineSpacingFactor, setLineSpacingFactor, mLineSpacing, 1.0);
    ACDB_NORMAL;
    ACHAR* contents() const; // a copy, acutDelString; with its format codes
    std::wstring contentsText() const { return mContents; }
    Acad::ErrorStatus setContents(const ACHAR* contents);
    std::vector<std::wstring> plainLines() const; // codes resolved, wrapped to the width
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    Acad::ErrorStatus setRotation(double angle);
    double rotation() const;
protected:
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
private:
    std::wstring mContents;
    AcDbObjectId mStyle;
    Adesk::Int16 mDrawingDirection = 1, mSpacingStyle = 1;
    double mExtentsHeight = 0.0, mExtentsWidth = 0.0;
};
class AcDbAttributeDefinition : public AcDbText { // drawn nowhere but in its own block's editing
public:
    ACDB_ENTITY_COMMON(AcDbAttributeDefinition);
    std::wstring tag() const { return mTag; }
    Acad::ErrorStatus setTag(const ACHAR* tag);
    std::wstring prompt() const { return mPrompt; }
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    bool isInvisible() const { return (mFlags & 1) != 0; }
    bool isConstant() const { return (mFlags & 2) != 0; }
    bool isVerifiable() const { return (mFlags & 4) != 0; }
    bool isPreset() const { return (mFlags & 8) != 0; }
    bool isMTextAttributeDefinition() const { return mMText; }
    Acad::ErrorStatus setInvisible(bool on);
    Acad::ErrorStatus setConstant(bool on);
    Acad::ErrorStatus setVerifiable(bool on);
    Acad::ErrorStatus setPreset(bool on);
    Acad::ErrorStatus convertIntoMTextAttributeDefinition(bool on = true);
private:
    std::wstring mTag, mPrompt;
    Adesk::UInt8 mFlags = 0;
    Adesk::Int16 mFieldLength = 0;
    bool mMText = false;
};
class AcDbAttribute : public AcDbText {
public:
    ACDB_ENTITY_COMMON(AcDbAttribute);
    ~AcDbAttribute() override;
    std::wstring tagConst() const { return mTag; }
    ACHAR* tag() const; // a copy, acutDelString
    Acad::ErrorStatus setTag(const ACHAR* tag);
    bool isInvisible() const { return (mFlags & 1) != 0; }
    Acad::ErrorStatus setInvisible(bool on);
    bool isConstant() const { return (mFlags & 2) != 0; }
    // Takes text, tag, flags, style, height, position and turn of the definition, carried through the
    // block's transform.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* definition, const AcGeMatrix3d& blockTransform);
    // The text of a multiline attribute is its contents, with their format codes.
    Acad::ErrorStatus setTextString(const ACHAR* text) override;
    Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr) override;
    bool isMTextAttribute() const { return mMText != nullptr; }
    AcDbMText* getMTextAttribute() const; // a copy, the caller's; null when it is no multiline attribute
    Acad::ErrorStatus setMTextAttribute(const AcDbMText* text);
private:
    std::wstring mTag;
    Adesk::UInt8 mFlags = 0;
    Adesk::Int16 mFieldLength = 0;
    std::unique_ptr<AcDbMText> mMText;
};

// ---- polylines
class AcDbPolyline : public AcDbCurve { // lightweight; points in the plane
public:
    ACDB_ENTITY_COMMON(AcDbPolyline);
    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int count) { mVertices.reserve(count); }
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& p, double bulge = 0.0, double startWidth = -1.0, double endWidth = -1.0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    unsigned int numVerts() const { return static_cast<unsigned int>(mVertices.size()); }
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& p) const;
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& p) const; // world
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& p);
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    bool isClosed() const { return mClosed; }
    Acad::ErrorStatus setClosed(bool closed);
    ACDB_FIELD(double, constantWidth, setConstantWidth, mConstantWidth, 0.0);
    ACDB_FIELD(double, elevation, setElevation, mElevation, 0.0);
    ACDB_THICKNESS;
    ACDB_NORMAL;
    double getArea() const;
    struct Vertex { AcGePoint2d point; double bulge = 0.0, startWidth = 0.0, endWidth = 0.0; };
    const std::vector<Vertex>& vertices() const { return mVertices; }
protected:
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override; // lines and arcs
private:
    std::vector<Vertex> mVertices;
    bool mClosed = false, mPlinegen = false;
};
// A vertex of the heavy polylines.
class AcDbVertex : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbVertex);
    ACDB_FIELD(AcGePoint3d, position, setPosition, mPosition, {}); // of a 2D vertex in the plane
    ACDB_FIELD(int, flags, setFlags, mFlags, 0);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
private:
    ACDB_FIELD_LIST;
};
class AcDb2dVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dVertex);
    ACDB_FIELD(double, bulge, setBulge, mBulge, 0.0);
    ACDB_FIELD(double, startWidth, setStartWidth, mStartWidth, 0.0);
    ACDB_FIELD(double, endWidth, setEndWidth, mEndWidth, 0.0);
    ACDB_FIELD(double, tangent, setTangent, mTangent, 0.0);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
private:
    ACDB_FIELD_LIST;
};
class AcDb3dPolylineVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolylineVertex);
};
class AcDbSequenceEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd);
};
// Both heavy polylines own their vertices, which stand in the database.
class AcDb2dPolyline : public AcDbCurve {
public:
    ACDB_ENTITY_COMMON(AcDb2dPolyline);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex);
    const AcDbObjectIdArray& vertexIds() const { return mVertices; }
    AcDbObjectId sequenceEndId() const { return mSequenceEnd; }
    bool isClosed() const { return (mFlags & 1) != 0; }
    Acad::ErrorStatus setClosed(bool closed);
    ACDB_FIELD(int, flags, setFlags, mFlags, 0);
    ACDB_FIELD(int, curveType, setCurveType, mCurveType, 0);
    ACDB_FIELD(double, defaultStartWidth, setDefaultStartWidth, mStartWidth, 0.0);
    ACDB_FIELD(double, defaultEndWidth, setDefaultEndWidth, mEndWidth, 0.0);
    ACDB_FIELD(double, elevation, setElevation, mElevation, 0.0);
    ACDB_THICKNESS;
    ACDB_NORMAL;
protected:
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
private:
    AcDbObjectIdArray mVertices;
    AcDbObjectId mSequenceEnd;
};
class AcDb3dPolyline : public AcDbCurve {
public:
    ACDB_ENTITY_COMMON(AcDb3dPolyline);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex);
    const AcDbObjectIdArray& vertexIds() const { return mVertices; }
    AcDbObjectId sequenceEndId() const { return mSequenceEnd; }
    ACDB_FIELD(int, flags, setFlags, mFlags, 0);
    ACDB_FIELD(int, curveFlags, setCurveFlags, mCurveFlags, 0);
protected:
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
private:
    AcDbObjectIdArray mVertices;
    AcDbObjectId mSequenceEnd;
};
class AcDbSpline : public AcDbCurve {
public:
    ACDB_ENTITY_COMMON(AcDbSpline);
    ACDB_FIELD(int, degree, setDegree, mDegree, 3);
    ACDB_FIELD(bool, isRational, setRational, mRational, false);
    ACDB_FIELD(bool, isClosed, setClosed, mClosed, false);
    ACDB_FIELD(bool, isPeriodic, setPeriodic, mPeriodic, false);
    ACDB_FIELD(std::vector<double>, knots, setKnots, mKnots, {});
    ACDB_FIELD(std::vector<AcGePoint3d>, controlPoints, setControlPoints, mControl, {});
    ACDB_FIELD(std::vector<double>, weights, setWeights, mWeights, {});
    ACDB_FIELD(std::vector<AcGePoint3d>, fitPoints, setFitPoints, mFit, {}); // given by fit data when not empty and no control points
    ACDB_FIELD(AcGeVector3d, startTangent, setStartTangent, mStartTangent, {});
    ACDB_FIELD(AcGeVector3d, endTangent, setEndTangent, mEndTangent, {});
    // Points on the curve within the chord error, by de Boor's rule; of fit data through a cubic interpolation.
    std::vector<AcGePoint3d> sample(double deviation) const;
private:
    double mFitTolerance = 0.0, mKnotTolerance = 1e-7, mControlTolerance = 1e-7;
};

// ---- hatches: loops in the plane at the elevation
class AcDbHatch : public AcDbEntity {
public:
    ACDB_ENTITY_COMMON(AcDbHatch);
    enum LoopType { kDefault = 0, kExternal = 1, kPolyline = 2, kDerived = 4, kTextbox = 8, kOutermost = 16 };
    struct Edge { // of a loop that is no polyline
        enum Kind { kLine = 1, kCircArc = 2, kEllArc = 3, kSpline = 4 } kind = kLine;
        AcGePoint2d start, end;            // line
        AcGePoint2d center;                // arcs
        AcGeVector2d majorAxis;            // elliptic arc
        double radius = 0.0, ratio = 1.0, startAngle = 0.0, endAngle = 0.0;
        bool counterClockwise = true;      // of a clockwise arc both angles count clockwise, as files keep them
        int degree = 0;                    // spline
        bool rational = false, periodic = false;
        std::vector<double> knots, weights;
        std::vector<AcGePoint2d> control;
    };
    struct Loop {
        Adesk::Int32 type = kDefault;
        bool closed = true, hasBulges = false;
        std::vector<AcGePoint2d> vertices; // polyline loop
        std::vector<double> bulges;
        std::vector<Edge> edges;
        AcDbObjectIdArray associated;      // source objects of an associative hatch
    };
    struct PatternLine { double angle = 0.0; AcGePoint2d base; AcGeVector2d offset; std::vector<double> dashes; };
    const std::vector<Loop>& loops() const { return mLoops; }
    Acad::ErrorStatus appendLoop(const Loop& loop);
    // A polyline loop; a last vertex that repeats the first is dropped. No bulges, or one a vertex.
    Acad::ErrorStatus appendLoop(Adesk::Int32 type, const AcGePoint2dArray& vertices, const AcGeDoubleArray& bulges = {});
    // The picture follows the loops at once; this only tells whether there is anything to fill:
    // eInvalidInput without a loop.
    Acad::ErrorStatus evaluateHatch(bool underestimateLines = false);
    std::wstring patternName() const { return mPatternName; }
    bool isSolidFill() const { return mSolid; }
    Acad::ErrorStatus setSolid();
    enum HatchPatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    // By name alone only "SOLID" can be set; other patterns need their lines (eInvalidInput).
    Acad::ErrorStatus setPattern(HatchPatternType type, const ACHAR* name);
    // A pattern by its definition lines, already scaled and turned.
    Acad::ErrorStatus setPattern(const ACHAR* name, double scale, double angle, const std::vector<PatternLine>& lines);
    const std::vector<PatternLine>& patternLines() const { return mPatternLines; }
    bool associative() const { return mAssociative; }
    Acad::ErrorStatus setAssociative(bool associative);
    // Area between the loops by the even-odd rule, in square units.
    Acad::ErrorStatus getArea(double& area) const;
    ACDB_FIELD(double, elevation, setElevation, mElevation, 0.0);
    ACDB_FIELD(double, patternAngle, setPatternAngle, mPatternAngle, 0.0);
    ACDB_FIELD(double, patternScale, setPatternScale, mPatternScale, 1.0);
    ACDB_FIELD(int, hatchStyle, setHatchStyle, mStyle, 0);
    ACDB_NORMAL;
protected:
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
private:
    std::vector<Loop> mLoops;
    std::vector<PatternLine> mPatternLines;
    std::vector<AcGePoint2d> mSeeds;
    std::wstring mPatternName = L"SOLID";
    bool mSolid = true, mAssociative = false, mDouble = false;
    Adesk::Int16 mPatternType = 1;
    double mPixelSize = 0.0;
};
