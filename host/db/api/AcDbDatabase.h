// A drawing database. Owns every object in it; ids stay valid while it lives.
#pragma once

#include "AcDbDictionary.h"
#include "AcDbSymbolTables.h"

#include <memory>

class AcDbObjectContextManager;
class AcDbAnnotationScale;
struct AcDbDatabaseImpData;

class AcDbDatabase {
public:
    // buildDefaultDrawing: with the tables, dictionaries, layer "0", line types Continuous, ByLayer and
    // ByBlock, style Standard, layouts and the usual metric scale list of a new drawing; without,
    // an empty shell that readDwgFile fills. noDocument: not tied to the editor.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase();
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    // ---- files (work done by the DWG codec). The path is the host's: backslashes, any case.
    // On failure the database is left an empty shell and lastError tells in one sentence.
    Acad::ErrorStatus readDwgFile(const ACHAR* path);
    Acad::ErrorStatus saveAs(const ACHAR* path);
    std::wstring lastError() const;
    Acad::ErrorStatus getFilename(const ACHAR*& name) const; // empty text for an unsaved drawing

    // ---- tables: opened for the mode, to be closed by the caller
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    template <class T> Acad::ErrorStatus getSymbolTable(T*& table, AcDb::OpenMode mode = AcDb::kForRead) { return acdbOpenObject(table, tableId(T::desc()), mode); }
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    AcDbObjectId tableId(const AcRxClass* tableClass) const;
    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId namedObjectsDictionaryId() const;
    AcDbObjectId modelSpaceId() const;
    AcDbObjectId paperSpaceId() const;
    AcDbObjectId currentSpaceId() const;
    AcDbObjectId layerZero() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;
    AcDbObjectId continuousLinetype() const;
    AcDbObjectId textStyleStandard() const;

    // ---- objects
    // Adds an object that is owned by nothing yet; it is open for write afterwards.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);
    // The id of a handle. createIfNotFound makes an id without an object. eUnknownHandle when absent.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle) const;
    AcDbHandle handseed() const;

    // ---- blocks
    // Copies the other database's model space as a block definition of that name ("*U" makes an anonymous
    // one, named *U1, *U2 …; an existing name is redefined), with the layers, styles, line types and blocks it
    // needs, which keep this drawing's own definition where the name is taken. preserveSource false may empty the source.
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* destinationName, AcDbDatabase* source, bool preserveSource = true);
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* sourceName, const ACHAR* destinationName, AcDbDatabase* source, bool preserveSource = true);
    // Copies objects of this database under another owner of this database. The map gets old and new ids.
    Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner, AcDbIdMapping& map);
    // Copies objects of another database, with what they point to, under an owner of this database.
    Acad::ErrorStatus wblockCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner, AcDbIdMapping& map, AcDb::DuplicateRecordCloning drc);

    // ---- line types: eFileNotFound, eUndefinedLineType when the file lacks the name. "*" loads all.
    Acad::ErrorStatus loadLineTypeFile(const ACHAR* name, const ACHAR* file);

    // ---- header values (names as the system variables)
    Adesk::Int16 measurement() const; // 0 imperial, 1 metric
    Acad::ErrorStatus setMeasurement(Adesk::Int16 value);
    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId id);
    AcDbObjectId celtype() const;
    Acad::ErrorStatus setCeltype(AcDbObjectId id);
    AcCmColor cecolor() const;
    Acad::ErrorStatus setCecolor(const AcCmColor& color);
    double celtscale() const;
    Acad::ErrorStatus setCeltscale(double value);
    AcDb::LineWeight celweight() const;
    Acad::ErrorStatus setCelweight(AcDb::LineWeight weight);
    AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId id);
    double textsize() const;
    Acad::ErrorStatus setTextsize(double value);
    double ltscale() const;
    Acad::ErrorStatus setLtscale(double value);
    AcDbExtents extents() const; // of model space, measured now
    AcGePoint3d insbase() const;
    Acad::ErrorStatus setInsbase(const AcGePoint3d& p);

    // ---- annotation scales
    AcDbObjectContextManager* objectContextManager() const; // owned by the database
    AcDbAnnotationScale* cannoscale() const;                 // a copy, the caller's
    // Accepts a scale whose name is in the drawing's list; fires the scale reactors.
    Acad::ErrorStatus setCannoscale(const AcDbAnnotationScale* scale);

    // ---- undo; a group is what one U takes back
    void disableUndoRecording(bool disable);
    bool undoRecording() const;
    void startUndoRecord();          // begins a group; the editor calls it for each command
    bool undo();                     // false when there is nothing to take back
    bool redo();
    bool hasChangedSinceSave() const;
    void markSaved();

    std::vector<Adesk::UInt8> thumbnailBitmap() const; // a DIB (header, palette, bits), empty when none
    Acad::ErrorStatus setThumbnailBitmap(const std::vector<Adesk::UInt8>& dib);

private:
    friend struct DbObjectAccess;
    void makeEmpty();
    std::unique_ptr<AcDbDatabaseImpData> mData;
};

// Old and new ids of a cloning.
struct AcDbIdPair {
    AcDbObjectId key, value;
    bool isPrimary = false;
};
class AcDbIdMapping {
public:
    void assign(const AcDbIdPair& pair);
    bool compute(AcDbIdPair& pair) const; // fills value by key
    const std::vector<AcDbIdPair>& pairs() const { return mPairs; }

private:
    std::vector<AcDbIdPair> mPairs;
    std::map<AcDbObjectId, std::size_t> mIndex;
};

// Services of the program that runs the database.
class AcDbHostApplicationServices {
public:
    virtual ~AcDbHostApplicationServices() = default;
    AcDbDatabase* workingDatabase() const { return mWorking; }
    void setWorkingDatabase(AcDbDatabase* database) { mWorking = database; }
    // Finds a support file (line type file, font) by name: as given, beside the drawing, in the
    // support folders. The path as the host writes it, or eFileNotFound.
    virtual Acad::ErrorStatus findFile(std::wstring& pathOut, const ACHAR* fileName, AcDbDatabase* database = nullptr);
    // The folders findFile searches; the program sets them.
    void setSupportPath(std::vector<std::wstring> folders) { mSupport = std::move(folders); }
    const std::vector<std::wstring>& supportPath() const { return mSupport; }

private:
    AcDbDatabase* mWorking = nullptr;
    std::vector<std::wstring> mSupport;
};
AcDbHostApplicationServices* acdbHostApplicationServices();

// The preview of a drawing file without reading the drawing; false when it has none or the file
// cannot be read. dib: header, palette and bits of a device-independent bitmap.
bool acdbGetPreviewBitmapFromDwg(const ACHAR* path, std::vector<Adesk::UInt8>& dib);

// The registered reading and writing of files; set by the DWG codec when it is loaded.
struct AcDbFileCodec {
    Acad::ErrorStatus (*read)(AcDbDatabase&, const ACHAR* path, std::wstring& error) = nullptr;
    Acad::ErrorStatus (*write)(AcDbDatabase&, const ACHAR* path, std::wstring& error) = nullptr;
    bool (*preview)(const ACHAR* path, std::vector<Adesk::UInt8>& dib) = nullptr;
};
void acdbSetFileCodec(const AcDbFileCodec& codec);
