// Writes a whole database as an AC1015 file.
#pragma once

#include "DwgChains.h"
#include "DwgClassRow.h"
#include "DwgClasses.h"
#include "DwgCommonData.h"
#include "DwgContainer.h"
#include "DwgExtents.h"
#include "DwgHeaderVars.h"

struct DwgRawParts;
class DwgPictureRecorder;

class DwgWriter {
public:
    explicit DwgWriter(AcDbDatabase& db);
    ~DwgWriter();
    DwgWriter(const DwgWriter&) = delete;
    DwgWriter& operator=(const DwgWriter&) = delete;
    // Beside the target, then in its place; what stood there before is kept with the ending .bak.
    bool write(const std::string& fileSystemPath, DwgError& error);
    // The file's bytes; for tests, and for the above.
    std::vector<Adesk::UInt8> bytes();

private:
    struct Links {
        Adesk::UInt64 previous = 0, next = 0;
    };
    // ---- before the first bit
    void completeDrawing(); // end markers, registered applications
    void makeSequenceEnds();
    void registerApplications();
    void collect();         // names, links, references, classes
    void linkList(const std::vector<AcDbObjectId>& list);
    void collectReference(AcDbObject& object, AcDbObjectId id);
    int classNumber(const std::wstring& cppName, const std::wstring& dxfName, const std::wstring& appName, int proxyFlags, bool isEntity);
    int typeOf(AcDbObject& object, const DwgClassRow* row);

    // ---- objects
    void writeObject(AcDbObject& object);
    void writeRaw(AcDbObject& object, const DbRawRecord& raw);
    void writeFields(AcDbObject& object, const DwgClassRow* row);
    DwgCommonData commonOf(AcDbObject& object, int type);
    void commonOfEntity(AcDbEntity& entity, DwgCommonData& common);
    void recordGraphics(AcDbEntity& entity, DwgCommonData& common);
    void recordPicture(AcDbEntity& entity, DwgCommonData& common);
    bool sameAsRaw(const DwgCommonData& common, const DwgRawParts& parts) const;
    bool keptAsItCame(AcDbObject& object, const DwgClassRow& row, const DbRawRecord& raw);
    void finishRecord(std::size_t sizeAt);
    void appendRecord(const Adesk::UInt8* bytes, std::size_t size);

    AcDbDatabase& mDb;
    bool mWasLoading = false;
    const DwgTextCodec& mText;
    DwgWriteContext mContext;
    DwgHeaderVars mVars;
    DwgNames mNames;
    std::vector<DwgClassEntry> mClasses;
    std::unordered_map<std::wstring, int> mClassNumbers; // by C++ name
    std::unordered_map<AcDbObjectId, Links> mLinks;
    std::vector<AcDbObjectId> mIds;
    std::unique_ptr<DwgPictureRecorder> mRecorder;
    DwgExtents mExtents;
    DwgBitWriter mData, mHandles; // of the record being written
    std::vector<DwgMapEntry> mMap;
    std::vector<Adesk::UInt8> mObjects; // all records with sizes and checksums
};

// The outer form around written objects.
struct DwgFileParts {
    const DwgTextCodec* text = nullptr;
    const DwgHeaderVars* vars = nullptr;
    const std::vector<DwgClassEntry>* classes = nullptr;
    const std::vector<Adesk::UInt8>* objects = nullptr;
    const std::vector<DwgMapEntry>* map = nullptr; // offsets within objects, by ascending handle
    std::vector<Adesk::UInt8> preview;
    int measurement = 1;
};
std::vector<Adesk::UInt8> dwgAssembleFile(const DwgFileParts& parts);
// Replaces a file so that at every moment either the old or the new one stands whole.
bool dwgReplaceFile(const std::string& path, const std::vector<Adesk::UInt8>& bytes, DwgError& error);
