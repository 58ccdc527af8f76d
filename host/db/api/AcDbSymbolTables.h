// Symbol tables: blocks, layers, line types, text styles, registered applications, and the
// tables that are kept as they came (dimension styles, views, UCSs, viewports).
#pragma once

#include "AcDbEntity.h"

#include <unordered_map>

class AcDbBlockBegin;
class AcDbBlockEnd;

class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);
    Acad::ErrorStatus getName(ACHAR*& name) const; // a copy, acutDelString
    std::wstring name() const { return mName; }
    Acad::ErrorStatus setName(const ACHAR* name);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    std::wstring mName;
};

class AcDbSymbolTableIterator {
public:
    virtual ~AcDbSymbolTableIterator() = default;
    virtual void start() = 0;
    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual Acad::ErrorStatus getRecordId(AcDbObjectId& id) const = 0;
    virtual Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead) const = 0;
};

class AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);
    // eKeyNotFound when absent. Names compare without regard to case.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    template <class T> Acad::ErrorStatus getAt(const ACHAR* name, T*& record, AcDb::OpenMode mode, bool openErased = false) const {
        record = nullptr;
        AcDbObjectId id;
        const Acad::ErrorStatus es = getAt(name, id, openErased);
        return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : es;
    }
    bool has(const ACHAR* name) const;
    // The table owns the record, which is open for write afterwards. eDuplicateKey when the name is taken.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record) { AcDbObjectId id; return add(id, record); }
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator) const; // the caller's
    const AcDbObjectIdArray& recordIds() const { return mRecords; } // in order of adding, erased ones too
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    AcDbObjectId find(const ACHAR* name) const; // not erased; null when absent
    AcDbObjectIdArray mRecords;
    // Folded names to records, made anew when a name has changed anywhere.
    mutable std::unordered_map<std::wstring, AcDbObjectId> mIndex;
    mutable Adesk::UInt64 mIndexedAt = 0;
    mutable int mIndexedCount = -1;
};
#define ACDB_SYMBOL_TABLE(CLASS)                                                                                       \
    class CLASS : public AcDbSymbolTable {                                                                             \
    public:                                                                                                            \
        ACRX_DECLARE_MEMBERS(CLASS);                                                                                   \
    }
ACDB_SYMBOL_TABLE(AcDbBlockTable);
ACDB_SYMBOL_TABLE(AcDbLayerTable);
ACDB_SYMBOL_TABLE(AcDbTextStyleTable);
ACDB_SYMBOL_TABLE(AcDbLinetypeTable);
ACDB_SYMBOL_TABLE(AcDbRegAppTable);
ACDB_SYMBOL_TABLE(AcDbDimStyleTable);
ACDB_SYMBOL_TABLE(AcDbViewTable);
ACDB_SYMBOL_TABLE(AcDbUCSTable);
ACDB_SYMBOL_TABLE(AcDbViewportTable);
ACDB_SYMBOL_TABLE(AcDbVXTable);

class AcDbBlockTableRecordIterator {
public:
    virtual ~AcDbBlockTableRecordIterator() = default;
    virtual void start() = 0;
    virtual bool done() const = 0;
    virtual void step(bool forward = true, bool skipDeleted = true) = 0;
    virtual Acad::ErrorStatus getEntityId(AcDbObjectId& id) const = 0;
    virtual Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                                        bool openOnLockedLayer = false) const = 0;
};

inline constexpr const ACHAR* ACDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const ACHAR* ACDB_PAPER_SPACE = L"*Paper_Space";

// A block definition; also model space and the paper spaces. Draws its entities, attribute
// definitions left out.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    // Adds the entity to the database, owned by this block and open for write until the caller closes it.
    // Properties that it was never given become the database's current ones.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity) { AcDbObjectId id; return appendAcDbEntity(id, entity); }
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true, bool skipDeleted = true) const;
    const AcDbObjectIdArray& entityIds() const { return mEntities; } // in drawing order, erased ones too
    AcGePoint3d origin() const { return mOrigin; }
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    bool isAnonymous() const;
    bool isLayout() const;
    bool hasAttributeDefinitions() const;
    AcDbObjectId layoutId() const { return mLayout; }
    AcDbObjectId blockBeginId() const { return mBlockBegin; }
    AcDbObjectId blockEndId() const { return mBlockEnd; }
    // Ids of the references to this block that stand in the drawing.
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids) const;
    std::wstring comments() const { return mComments; }
    Acad::ErrorStatus setComments(const ACHAR* text);
    // Extents of what the block draws, in its own coordinates; attribute definitions do not count.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    bool isShareable() const override { return !isLayout(); }
    // Takes the block's entities along.
    Acad::ErrorStatus subErase(bool erasing) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;

private:
    friend struct DbObjectAccess;
    AcDbObjectIdArray mEntities;
    AcDbObjectId mBlockBegin, mBlockEnd, mLayout;
    AcGePoint3d mOrigin;
    std::wstring mComments;
    Adesk::UInt16 mInsertUnits = 0;
    Adesk::UInt16 mFlags = 0;        // as the file keeps them
    std::vector<Adesk::UInt8> mPreview;
    std::wstring mXrefPath;
};

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcCmColor color() const { return mColor; }
    Acad::ErrorStatus setColor(const AcCmColor& color);
    bool isOff() const { return mOff; }
    Acad::ErrorStatus setIsOff(bool off);
    bool isFrozen() const { return mFrozen; }
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isLocked() const { return mLocked; }
    Acad::ErrorStatus setIsLocked(bool locked);
    bool VPDFLT() const { return mFrozenInNew; } // frozen in new viewports
    Acad::ErrorStatus setVPDFLT(bool frozen);
    bool isPlottable() const { return mPlottable; }
    Acad::ErrorStatus setIsPlottable(bool plottable);
    AcDb::LineWeight lineWeight() const { return mLineWeight; }
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
    AcDbObjectId linetypeObjectId() const { return mLinetype; }
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    AcCmColor mColor = AcCmEntityColor::fromIndex(7);
    bool mOff = false, mFrozen = false, mLocked = false, mFrozenInNew = false, mPlottable = true;
    AcDb::LineWeight mLineWeight = AcDb::kLnWtByLwDefault;
    AcDbObjectId mLinetype, mPlotStyle;
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    std::wstring fileName() const { return mFont; }
    Acad::ErrorStatus setFileName(const ACHAR* font);
    std::wstring bigFontFileName() const { return mBigFont; }
    Acad::ErrorStatus setBigFontFileName(const ACHAR* font);
    double textSize() const { return mTextSize; } // 0: asked for at each text
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const { return mXScale; }
    Acad::ErrorStatus setXScale(double scale);
    double obliquingAngle() const { return mOblique; } // radians
    Acad::ErrorStatus setObliquingAngle(double angle);
    bool isShapeFile() const { return (mFlags & 1) != 0; }
    AcGiTextStyle giStyle() const;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    std::wstring mFont = L"txt", mBigFont;
    double mTextSize = 0.0, mXScale = 1.0, mOblique = 0.0, mPriorSize = 2.5;
    Adesk::UInt8 mGeneration = 0; // 2 backward, 4 upside down
    Adesk::UInt16 mFlags = 0;     // 1 shape file, 4 vertical
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    std::wstring comments() const { return mComments; }
    Acad::ErrorStatus setComments(const ACHAR* text);
    int numDashes() const { return static_cast<int>(mDashes.size()); }
    double dashLengthAt(int i) const { return mDashes[static_cast<std::size_t>(i)]; } // + dash, - gap, 0 dot
    double patternLength() const;
    const std::vector<double>& dashes() const { return mDashes; }
    Acad::ErrorStatus setDashes(const std::vector<double>& dashes);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    std::wstring mComments;
    std::vector<double> mDashes;
    // Embedded shapes and texts of a dash, kept as they came.
    struct Complex { Adesk::UInt16 shape = 0; double xOffset = 0, yOffset = 0, scale = 1, rotation = 0; Adesk::UInt16 flags = 0; AcDbObjectId style; };
    std::vector<Complex> mComplex;
    std::vector<Adesk::UInt8> mStrings;
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
};

// A record of a table that is kept as it came (see AcDbRaw.h for its bits).
#define ACDB_KEPT_RECORD(CLASS)                                                                                        \
    class CLASS : public AcDbSymbolTableRecord {                                                                       \
    public:                                                                                                            \
        ACRX_DECLARE_MEMBERS(CLASS);                                                                                   \
    }
ACDB_KEPT_RECORD(AcDbViewTableRecord);
ACDB_KEPT_RECORD(AcDbUCSTableRecord);
ACDB_KEPT_RECORD(AcDbDimStyleTableRecord);
ACDB_KEPT_RECORD(AcDbVXTableRecord);

class AcDbViewportTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord);
    AcGePoint2d centerPoint() const { return mCenter; }
    Acad::ErrorStatus setCenterPoint(const AcGePoint2d& p);
    double height() const { return mHeight; } // drawing units
    Acad::ErrorStatus setHeight(double height);
    double width() const { return mWidth; }
    Acad::ErrorStatus setWidth(double width);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct DbObjectAccess;
    AcGePoint2d mCenter;
    double mHeight = 297.0, mWidth = 420.0;
};
