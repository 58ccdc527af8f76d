// What host code above the database may do that a module may not: reach an object's record,
// give it an id, keep foreign bits with it. The DWG codec, undo and cloning work through this.
#pragma once

#include "AcDbAnnotationScale.h"
#include "AcDbBlockReference.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

// An object's file record as it came, for what is not modelled. The bits are written back as they
// are while every reference keeps its handle; after a cloning the references are coded anew.
struct DbRawRecord {
    int objectType = 0;              // number in the file: built-in type or class number
    std::wstring dxfName;            // of the class section, empty for a built-in type
    std::vector<Adesk::UInt8> bytes; // data and handle bits, without size and CRC
    Adesk::UInt32 dataBits = 0;      // where the handle stream begins
    struct Reference {
        Adesk::UInt8 code = 0; // 2 soft owner, 3 hard owner, 4 soft pointer, 5 hard pointer
        AcDbObjectId id;
    };
    std::vector<Reference> references; // in stream order
    bool referencesChanged = false;
};

// A class of the file's class section.
struct DbFileClass {
    int number = 500;
    int proxyFlags = 0;
    std::wstring appName, cppName, dxfName;
    bool wasProxy = false;
    bool isEntity = false; // item class 0x1F2; objects are 0x1F3
};

struct AcDbObjectImpData {
    AcDbObjectId owner;
    AcDbObjectId extensionDictionary;
    AcDbObjectIdArray reactors;
    resbuf* xdata = nullptr; // applications in order, each a 1001 item and its data
    std::optional<DbRawRecord> raw;
    std::vector<Adesk::UInt8> proxyGraphics; // as the file holds them
    ~AcDbObjectImpData() { acutRelRb(xdata); }
};

// An entity or object whose class nobody knows: a foreign custom object, a built-in type that is not
// modelled, or a record of a later version that a class answered with eMakeMeProxy. Its bits stay
// with it; an entity shows its proxy graphics.
class AcDbProxyEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbProxyEntity);
    std::wstring originalClassName() const; // DXF name, or the built-in type's name such as DIMENSION_ALIGNED
    void setOriginalClassName(const std::wstring& name) { mName = name; }
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override; // plays the proxy graphics through DbProxyPlayer

private:
    std::wstring mName;
};
class AcDbProxyObject : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbProxyObject);
    std::wstring originalClassName() const { return mName; }
    void setOriginalClassName(const std::wstring& name) { mName = name; }
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    std::wstring mName;
};
// Draws proxy graphics; set by the DWG codec, which knows their layout.
using DbProxyPlayer = void (*)(const std::vector<Adesk::UInt8>& graphics, AcDbDatabase* database, AcGiWorldDraw& worldDraw);
void dbSetProxyPlayer(DbProxyPlayer player);

// Header variables that are not modelled as members: by name, in the file's order.
struct DbHeaderValue {
    enum Kind { kInt, kDouble, kText, kPoint, kHandle } kind = kInt;
    Adesk::Int64 integer = 0;
    double real = 0.0;
    std::wstring text;
    AcGePoint3d point;
    AcDbObjectId id;
};

struct DbIdTranslation;

struct DbObjectAccess {
    // ---- ids and records
    // Gives a new object an id of this database, owned as told and open for write.
    static Acad::ErrorStatus adopt(AcDbDatabase& db, AcDbObject& object, AcDbObjectId owner, AcDbObjectId& id);
    // While a drawing is loading its objects need no opening, and nothing is recorded for undo.
    static void setLoading(AcDbDatabase& db, bool loading);
    // Ids are turned by the translation while the stream is read; null ends that.
    static void setTranslation(AcDbDeepCloneFiler& filer, const DbIdTranslation* translation) { filer.mTranslation = translation; }
    // Every id that the stream holds, with the kind of reference, in order of writing.
    struct FiledId {
        enum Kind { kHardOwner, kSoftOwner, kHardPointer, kSoftPointer } kind;
        AcDbObjectId id;
    };
    static std::vector<FiledId> filedIds(const AcDbDeepCloneFiler& filer);
    // The record of that name that is not erased, whoever has the table open; null when absent.
    static AcDbObjectId findRecord(const AcDbSymbolTable& table, const ACHAR* name) { return table.find(name); }
    // Names of table records have changed without setName or add.
    static void namesChanged();
    static auto& modified(AcDbObject& object) { return object.mModified; }
    // The id of a handle, made when absent; an id without object is valid to point to.
    static AcDbObjectId idFor(AcDbDatabase& db, AcDbHandle handle);
    // Puts an object that a file holds under its handle, closed; the database owns it.
    static void place(AcDbDatabase& db, AcDbObjectId id, std::unique_ptr<AcDbObject> object);
    // Replaces the object behind an id (a record that became a proxy).
    static void replace(AcDbObjectId id, std::unique_ptr<AcDbObject> object);
    // The object behind an id without opening it; null when there is none.
    static AcDbObject* peek(AcDbObjectId id);
    // An object that hangs on another entity (an attribute, a vertex) is locked with that one too.
    static bool isOnLockedLayer(const AcDbEntity& entity);
    // What a new entity was given, as bits; the rest becomes current properties when it is appended.
    static auto& given(AcDbEntity& e) { return e.mGiven; }
    static constexpr Adesk::UInt8 kAllGiven = AcDbEntity::kAllGiven;
    static void takeCurrentProperties(AcDbEntity& e, const AcDbDatabase& db) { e.takeCurrentProperties(db); }
    // All ids with an object that is not erased, by ascending handle.
    static std::vector<AcDbObjectId> allIds(const AcDbDatabase& db);
    static void setHandseed(AcDbDatabase& db, AcDbHandle seed);
    static AcDbObjectImpData& data(AcDbObject& object);             // made when absent
    static const AcDbObjectImpData* dataIfAny(const AcDbObject& object);
    static void setId(AcDbObject& object, AcDbObjectId id) { object.mId = id; }

    // ---- database
    static AcDbDatabaseImpData& data(AcDbDatabase& db) { return *db.mData; }
    static const AcDbDatabaseImpData& data(const AcDbDatabase& db) { return *db.mData; }
    static void setTableId(AcDbDatabase& db, const AcRxClass* tableClass, AcDbObjectId id);
    static void setNamedObjects(AcDbDatabase& db, AcDbObjectId id);
    static std::map<std::wstring, DbHeaderValue>& header(AcDbDatabase& db); // upper-case names with the $ left out
    static std::vector<DbFileClass>& classes(AcDbDatabase& db);
    static void setFilename(AcDbDatabase& db, const std::wstring& path);
    static void setLastError(AcDbDatabase& db, const std::wstring& error);
    // After a file has been read: references resolved, spaces found, scales built, missing
    // standard objects made. The repairs made are told one a line.
    static std::vector<std::wstring> finishLoading(AcDbDatabase& db);

    // ---- members of classes, for the codec
    static auto& color(AcDbEntity& e) { return e.mColor; }
    static auto& layer(AcDbEntity& e) { return e.mLayer; }
    static auto& linetype(AcDbEntity& e) { return e.mLinetype; }
    static auto& linetypeScale(AcDbEntity& e) { return e.mLinetypeScale; }
    static auto& lineWeight(AcDbEntity& e) { return e.mLineWeight; }
    static auto& invisible(AcDbEntity& e) { return e.mInvisible; }
    static auto& origin(AcDbBlockTableRecord& b) { return b.mOrigin; }
    static auto& comments(AcDbBlockTableRecord& b) { return b.mComments; }
    static auto& hard(AcDbDictionary& d) { return d.mHard; }
    static auto& mergeStyle(AcDbDictionary& d) { return d.mMergeStyle; }
    static auto& mergeStyle(AcDbXrecord& x) { return x.mMergeStyle; }
    static auto& color(AcDbLayerTableRecord& l) { return l.mColor; }
    static auto& linetype(AcDbLayerTableRecord& l) { return l.mLinetype; }
    static auto& plotStyle(AcDbLayerTableRecord& l) { return l.mPlotStyle; }
    static auto& off(AcDbLayerTableRecord& l) { return l.mOff; }
    static auto& frozen(AcDbLayerTableRecord& l) { return l.mFrozen; }
    static auto& locked(AcDbLayerTableRecord& l) { return l.mLocked; }
    static auto& frozenInNew(AcDbLayerTableRecord& l) { return l.mFrozenInNew; }
    static auto& plottable(AcDbLayerTableRecord& l) { return l.mPlottable; }
    static auto& lineWeight(AcDbLayerTableRecord& l) { return l.mLineWeight; }
    static auto& font(AcDbTextStyleTableRecord& s) { return s.mFont; }
    static auto& bigFont(AcDbTextStyleTableRecord& s) { return s.mBigFont; }
    static auto& textSize(AcDbTextStyleTableRecord& s) { return s.mTextSize; }
    static auto& xScale(AcDbTextStyleTableRecord& s) { return s.mXScale; }
    static auto& oblique(AcDbTextStyleTableRecord& s) { return s.mOblique; }
    static auto& priorSize(AcDbTextStyleTableRecord& s) { return s.mPriorSize; }
    static auto& generation(AcDbTextStyleTableRecord& s) { return s.mGeneration; }
    static auto& flags(AcDbTextStyleTableRecord& s) { return s.mFlags; }
    using LinetypeComplex = AcDbLinetypeTableRecord::Complex;
    static auto& comments(AcDbLinetypeTableRecord& l) { return l.mComments; }
    static auto& dashes(AcDbLinetypeTableRecord& l) { return l.mDashes; }
    static auto& complex(AcDbLinetypeTableRecord& l) { return l.mComplex; }
    static auto& strings(AcDbLinetypeTableRecord& l) { return l.mStrings; }
    static auto& center(AcDbViewportTableRecord& v) { return v.mCenter; }
    static auto& height(AcDbViewportTableRecord& v) { return v.mHeight; }
    static auto& width(AcDbViewportTableRecord& v) { return v.mWidth; }
    static auto& name(AcDbScale& s) { return s.mName; }
    static auto& paper(AcDbScale& s) { return s.mPaper; }
    static auto& drawing(AcDbScale& s) { return s.mDrawing; }
    static auto& unitScale(AcDbScale& s) { return s.mUnitScale; }
    static auto& name(AcDbAnnotationScale& s) { return s.mName; }
    static auto& paper(AcDbAnnotationScale& s) { return s.mPaper; }
    static auto& drawing(AcDbAnnotationScale& s) { return s.mDrawing; }
    static auto& object(AcDbAnnotationScale& s) { return s.mObject; }
    static auto& value(AcDbDictionaryVar& v) { return v.mValue; }
    static auto& schema(AcDbDictionaryVar& v) { return v.mSchema; }
    static auto& name(AcDbSymbolTableRecord& r) { return r.mName; }
    static auto& records(AcDbSymbolTable& t) { return t.mRecords; }
    static auto& entries(AcDbDictionary& d) { return d.mEntries; }
    static auto& chain(AcDbXrecord& x) { return x.mChain; }
    static auto& entities(AcDbBlockTableRecord& b) { return b.mEntities; }
    static auto& blockBegin(AcDbBlockTableRecord& b) { return b.mBlockBegin; }
    static auto& blockEnd(AcDbBlockTableRecord& b) { return b.mBlockEnd; }
    static auto& layout(AcDbBlockTableRecord& b) { return b.mLayout; }
    static auto& flags(AcDbBlockTableRecord& b) { return b.mFlags; }
    static auto& insertUnits(AcDbBlockTableRecord& b) { return b.mInsertUnits; }
    static auto& preview(AcDbBlockTableRecord& b) { return b.mPreview; }
    static auto& xrefPath(AcDbBlockTableRecord& b) { return b.mXrefPath; }
    static auto& vertexIds(AcDb2dPolyline& p) { return p.mVertices; }
    static auto& sequenceEnd(AcDb2dPolyline& p) { return p.mSequenceEnd; }
    static auto& vertexIds(AcDb3dPolyline& p) { return p.mVertices; }
    static auto& sequenceEnd(AcDb3dPolyline& p) { return p.mSequenceEnd; }
    static auto& attributeIds(AcDbBlockReference& r) { return r.mAttributes; }
    static auto& sequenceEnd(AcDbBlockReference& r) { return r.mSequenceEnd; }

    // The DWG codec names the fields of a built-in class once, for reading and writing, in a
    // specialisation of this; it sees the class's members as this struct does.
    template <class T> struct DwgFields;
};
