// What the commands of a drawing changed: the state of each object before its first change in a
// group. Taking a group back files the present states first, which makes the group of redo.
//
// The history is bounded by bytes: when a group is complete and all of them together are larger than
// the limit, the oldest are dropped. The newest always stays, however large, so that the last command
// can be taken back.
#pragma once

#include "AcDbFiler.h"
#include "DbObjectAccess.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

class AcDbObject;

class DbUndoLog {
public:
    explicit DbUndoLog(AcDbDatabase& db) : mDb(db) {}
    void setEnabled(bool enabled);
    bool isEnabled() const { return mEnabled; }
    void startGroup();
    // 0 while nothing is recorded; otherwise an object whose stub carries it has been filed already.
    Adesk::UInt32 tick() const { return mTick; }
    void recordState(AcDbObject& object);
    void recordCreation(AcDbStub& stub);
    void recordHeader();
    bool undo() { return step(mGroups, mRedo); }
    bool redo() { return step(mRedo, mGroups); }
    void clear();
    std::size_t byteSize() const;
    void setLimit(std::size_t bytes);
    static constexpr std::size_t kUsualLimit = std::size_t{128} << 20; // four changes of scale over 10,000 posts

private:
    struct Entry {
        AcDbStub* stub = nullptr;
        AcDbObjectId owner, extensionDictionary;
        AcDbObjectIdArray reactors;
        std::size_t stream = 0;
        Adesk::Int64 at = 0;
        bool erased = false, hasState = false;
    };
    struct Group {
        std::vector<Entry> entries;
        std::vector<std::unique_ptr<AcDbDeepCloneFiler>> streams; // of a megabyte or so each
        std::optional<std::map<std::wstring, DbHeaderValue>> header;
        bool isEmpty() const { return entries.empty() && !header; }
        std::size_t byteSize() const;
        void releaseSpare(); // nothing more comes
    };
    using Groups = std::vector<std::unique_ptr<Group>>;

    Group* recording(); // null when nothing is recorded; a new record ends what could be redone
    static void file(Group& group, AcDbObject& object, bool withState);
    bool step(Groups& from, Groups& to);
    void takeBack(Group& group, Group& inverse, bool entities);
    void restore(Group& group, const Entry& entry);
    void dropOldest();
    void renewTick();

    AcDbDatabase& mDb;
    Groups mGroups, mRedo;
    std::size_t mLimit = kUsualLimit;
    bool mEnabled = true;
    Adesk::UInt32 mTick = 0, mLastTick = 0;
};
