// Cloning: all objects of a set are filed first, with what they own and need; then their copies
// read, with every id turned into the copy's or into its counterpart in the other drawing.
#pragma once

#include "AcDbDatabase.h"
#include "DbIdTranslation.h"
#include "DbObjectAccess.h"

#include <deque>
#include <memory>
#include <unordered_map>

class DbCloner : public DbIdTranslation {
public:
    // Within one drawing pointers keep their targets and only what is owned is copied. From another
    // drawing what is pointed to hard comes along; table records by name, the target's own winning.
    DbCloner(AcDbDatabase& source, AcDbDatabase& target, bool replaceRecords = false);
    // What stands for a source object without being its copy, such as a block for a space.
    void map(AcDbObjectId from, AcDbObjectId to) { mMap[from] = to; }
    // Files the object and what it needs. Its copy will be owned by `owner`, which lists it.
    Acad::ErrorStatus add(AcDbObjectId id, AcDbObjectId owner);
    // Lets the copies read. The mapping gets every pair; those given to add are primary.
    Acad::ErrorStatus finish(AcDbIdMapping* mapping);
    AcDbObjectId translate(AcDbObjectId id) const override;

private:
    struct Item {
        AcDbObjectId from, to;
        AcDbDeepCloneFiler filer;
        bool primary, replaces;
        Item(AcDb::FilerType type, bool isPrimary, bool isReplacing) : filer(type), primary(isPrimary), replaces(isReplacing) {}
    };
    bool isKnown(AcDbObjectId id) const { return mMap.find(id) != mMap.end(); }
    Acad::ErrorStatus file(AcDbObjectId id, AcDbObjectId owner, bool primary, AcDbObjectId existing = {});
    void nameCopy(AcDbObjectId to, AcDbObjectId from) const;
    void follow(const Item& item);
    void followPointer(AcDbObjectId id);
    Acad::ErrorStatus addRecord(AcDbObjectId id, bool primary);
    Acad::ErrorStatus addEntry(AcDbObjectId id, AcDbObjectId dictionary, bool primary);
    AcDbObjectId dictionaryInTarget(AcDbObjectId dictionary, int depth) const;
    Acad::ErrorStatus read(Item& item);
    void finishData(const AcDbObject& from, AcDbObject& to, AcDbObjectId owner) const;
    void finishHandles(AcDbObject& to) const;

    AcDbDatabase& mSource;
    AcDbDatabase& mTarget;
    bool mSameDatabase, mReplaceRecords;
    std::unordered_map<AcDbObjectId, AcDbObjectId> mMap;
    std::deque<std::unique_ptr<Item>> mItems;
    std::size_t mFollowed = 0;
};

// The name of the next anonymous block that begins with "*U", "*D" ….
std::wstring dbAnonymousBlockName(const AcDbDatabase& db, const std::wstring& prefix);
// Erases a block's entities before it is defined anew.
void dbEmptyBlock(AcDbBlockTableRecord& block);
