// A symbol taken from a block library: a sign plate, a lamp, a post foot, a road marking. Holds a
// block reference by value and adds measured size, stacking direction, attribute values and parameters.
#pragma once

#include "AcDbBlockReference.h"
#include "TrfcBlockLoader.h"

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

template <class E> struct TrfcGripGroup;

class TrfcBlock : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(TrfcBlock);
    TrfcBlock(); // direction upward, no definition
    // position in drawing units, rotation in radians.
    TrfcBlock(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double scale);
    ~TrfcBlock() override;

    // Takes the library block: measures it, places it, makes its attributes anew. A negative scale mirrors it.
    virtual void init(const S_BLOCK_DESCRIPTOR& descriptor, const AcGePoint3d& position, double rotation, double scale);
    virtual bool hasMTextAttribute() const;
    virtual AcGePoint3d position() const;
    virtual AcGePoint3d centroid() const;
    virtual double rotation() const;
    virtual double scaleFactor() const; // of the reference, the unique scale included; negative for a mirrored symbol
    virtual void setRotation(double radians);
    virtual void rotateBy(double radians);
    virtual void setPosition(const AcGePoint3d& point);
    virtual void offset(const AcGeVector3d& vector);
    // The reference takes factor times the unique scale; a mirrored symbol stays mirrored.
    virtual void setScaleFactor(double factor);
    // The reference's factor alone: width, height and top stay. For a foot, on which nothing stacks.
    void setReferenceScale(double factor);
    virtual double uniqueScaleFactor() const;
    virtual void setUniqueScaleFactor(double factor);
    virtual void setAttributeText(int index, const ACHAR* text); // no range check
    virtual void setAttributeText(const ACHAR* tag, const ACHAR* text); // every attribute of exactly that tag
    virtual void setUserParam(const ACHAR* key, const ACHAR* value);
    virtual const ACHAR* getUserParam(const ACHAR* key) const; // empty text when absent; valid until it is set
    // Places the attributes anew after a change of the reference; their texts stay.
    virtual void regen();
    // gray and white fade the colours; outline leaves line work only. Public for the preview.
    virtual bool subWorldDraw(AcGiWorldDraw* worldDraw, bool gray, bool white, bool outline);
    virtual Acad::ErrorStatus PlusExplode(AcDbVoidPtrArray& entities, bool gray, bool white, bool outline) const;
    virtual Acad::ErrorStatus PlusTransformBy(const AcGeMatrix3d& matrix);
    virtual Acad::ErrorStatus getBoundingBox(AcGePoint3dArray& corners) const; // appends four, about the symbol

    const S_BLOCK_DESCRIPTOR& descriptor() const { return mDescriptor; }
    const AcDbBlockReference& blockRef() const { return mBlockRef; }
    double width() const { return mWidth; }   // drawing units at the present scale
    double height() const { return mHeight; } // stacking height
    Adesk::Int16 direction() const { return mDirection; } // +1 above, -1 below the insertion point
    AcGeVector3d upVector() const { return mUpVector; }
    AcGePoint3d topPoint() const { return mTopPoint; } // where the next symbol of a stack begins
    int attributeCount() const { return static_cast<int>(mAttributes.size()); }
    const AcDbAttribute* attributeAt(int index) const; // no range check
    AcDbObjectId attributeDefAt(int index) const { return mAttributeDefs[index]; }
    const std::map<std::wstring, std::wstring>& userParams() const { return mUserParams; }
    Adesk::UInt32 exchangeId() const { return mExchangeId; } // 0: not in the exchange database
    void setExchangeId(Adesk::UInt32 id);
    static std::span<const TrfcGripGroup<TrfcBlock>> gripGroups();

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    double mirrorSign() const; // -1 for a mirrored symbol, otherwise 1
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
    Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
    using AcDbEntity::subGetGripPoints;
    using AcDbEntity::subMoveGripPointsAt;
    Acad::ErrorStatus subGetGripPoints(AcDbGripDataPtrArray& grips, double viewUnitSize, int gripSize, const AcGeVector3d& viewDirection, int bitflags) const override;
    Acad::ErrorStatus subMoveGripPointsAt(const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& vector, int bitflags) override;

private:
    template <class Self, class Fields> static void plainFields(Self& self, Fields&& field);
    void turnTop(const AcGeVector3d& vector);
    void measure();
    void measureAgain();
    void resize(double ratio);
    void makeAttributes();
    void makeAttribute(const AcDbAttributeDefinition& definition, AcDbObjectId id);
    void placeAttribute(AcDbAttribute& attribute, const AcDbAttributeDefinition& definition) const;
    void replaceAttributes() const;
    void completeAttributes() const;
    void updateUp();
    void updateTop() { mTopPoint = mBlockRef.position() + mUpVector * mHeight; }
    void writeAttributes(AcDbDwgFiler* filer) const;
    void readAttributes(AcDbDwgFiler* filer);
    void readPlace(AcDbDwgFiler* filer);
    void readDescriptor(AcDbDwgFiler* filer);
    void drawParts(AcGiWorldDraw* worldDraw, bool gray, bool white, bool outline) const;
    void drawAttributes(AcGiWorldDraw* worldDraw, bool gray, bool white) const;

    AcDbBlockReference mBlockRef; // in no database
    S_BLOCK_DESCRIPTOR mDescriptor;
    double mWidth = 0.0;
    double mHeight = 0.0;
    double mUniqueScale = 1.0;
    Adesk::Int16 mDirection = 1;
    AcGeVector3d mUpVector{0.0, 1.0, 0.0};
    AcGePoint3d mTopPoint;
    std::vector<std::unique_ptr<AcDbAttribute>> mAttributes; // in no database
    AcDbObjectIdArray mAttributeDefs;                        // the definition behind each
    mutable bool mAttributesPending = false;                 // read before their definitions
    std::map<std::wstring, std::wstring> mUserParams;
    Adesk::UInt32 mExchangeId = 0;
};

// A symbol with a multiline attribute cannot be placed: false, with a line on the command line.
bool canBePlaced(const TrfcBlock& symbol);
