#include "DbUndoLog.h"

#include "AcDbDatabase.h"
#include "DbDatabaseData.h"

void DbUndoLog::renewTick() {
    mTick = mEnabled && !mGroups.empty() ? ++mLastTick : 0;
}
void DbUndoLog::setEnabled(bool enabled) {
    mEnabled = enabled;
    if (!enabled) // what is done meanwhile cannot be taken back, nor what was done before it
        clear();
    renewTick();
}
void DbUndoLog::clear() {
    mGroups.clear();
    mRedo.clear();
    renewTick();
}
void DbUndoLog::startGroup() {
    if (!mEnabled)
        return;
    if (mGroups.empty() || !mGroups.back()->isEmpty()) {
        if (!mGroups.empty())
            mGroups.back()->releaseSpare();
        dropOldest();
        mGroups.push_back(std::make_unique<Group>());
    }
    renewTick();
}
void DbUndoLog::setLimit(std::size_t bytes) {
    mLimit = bytes;
    dropOldest();
}
void DbUndoLog::dropOldest() {
    std::size_t size = byteSize();
    std::size_t dropped = 0, end = mGroups.size();
    while (end > 0 && mGroups[end - 1]->isEmpty())
        --end;
    while (size > mLimit && dropped + 1 < end)
        size -= mGroups[dropped++]->byteSize();
    mGroups.erase(mGroups.begin(), mGroups.begin() + static_cast<std::ptrdiff_t>(dropped));
}

DbUndoLog::Group* DbUndoLog::recording() {
    if (mTick == 0)
        return nullptr;
    mRedo.clear();
    return mGroups.back().get();
}

void DbUndoLog::file(Group& group, AcDbObject& object, bool withState) {
    AcDbStub* const stub = object.objectId().stub();
    Entry& entry = group.entries.emplace_back();
    entry.stub = stub;
    entry.erased = stub->erased;
    if (const AcDbObjectImpData* const data = DbObjectAccess::dataIfAny(object)) {
        entry.owner = data->owner;
        entry.extensionDictionary = data->extensionDictionary;
        entry.reactors = data->reactors;
    }
    if (!withState)
        return;
    constexpr std::size_t kEnough = 1 << 20; // a longer stream costs more to grow than to begin anew
    if (group.streams.empty() || group.streams.back()->byteSize() > kEnough) {
        if (!group.streams.empty())
            group.streams.back()->releaseSpare();
        group.streams.push_back(std::make_unique<AcDbDeepCloneFiler>(AcDb::kUndoFiler));
    }
    AcDbDeepCloneFiler& stream = *group.streams.back();
    entry.hasState = true;
    entry.stream = group.streams.size() - 1;
    entry.at = stream.tell();
    object.dwgOut(&stream);
}

void DbUndoLog::recordState(AcDbObject& object) {
    Group* const group = recording();
    object.objectId().stub()->undoTick = mTick;
    if (group != nullptr)
        file(*group, object, true);
}
void DbUndoLog::recordCreation(AcDbStub& stub) {
    Group* const group = recording();
    stub.undoTick = mTick;
    if (group == nullptr)
        return;
    Entry& entry = group->entries.emplace_back();
    entry.stub = &stub;
    entry.erased = true; // before it was made it was not there
    if (const AcDbObjectImpData* const data = DbObjectAccess::dataIfAny(*stub.object))
        entry.owner = data->owner;
}
void DbUndoLog::recordHeader() {
    Group* const group = recording();
    if (group != nullptr && !group->header)
        group->header = DbObjectAccess::header(mDb);
}

void DbUndoLog::restore(Group& group, const Entry& entry) {
    AcDbObject& object = *entry.stub->object;
    entry.stub->erased = entry.erased;
    DbObjectAccess::modified(object) = true;
    if (!entry.hasState)
        return;
    AcDbObjectImpData& data = DbObjectAccess::data(object);
    data.owner = entry.owner;
    data.extensionDictionary = entry.extensionDictionary;
    data.reactors = entry.reactors;
    AcDbDeepCloneFiler& stream = *group.streams[entry.stream];
    stream.seek(entry.at, AcDb::kSeekFromStart);
    object.dwgIn(&stream);
}

// Either the entities of a group or all its other objects, the last changed first.
void DbUndoLog::takeBack(Group& group, Group& inverse, bool entities) {
    for (auto entry = group.entries.rbegin(); entry != group.entries.rend(); ++entry) {
        if ((AcDbEntity::cast(entry->stub->object) != nullptr) != entities)
            continue;
        const DbForcedWrite write(*entry->stub);
        entry->stub->undoTick = 0;
        file(inverse, *entry->stub->object, entry->hasState);
        restore(group, *entry);
        entry->stub->modified = false;
        entry->stub->undoTick = 0;
    }
}

bool DbUndoLog::step(Groups& from, Groups& to) {
    while (!from.empty() && from.back()->isEmpty())
        from.pop_back();
    if (from.empty()) {
        startGroup();
        return false;
    }
    const std::unique_ptr<Group> group = std::move(from.back());
    from.pop_back();
    auto inverse = std::make_unique<Group>();
    mTick = 0; // restoring records nothing
    // A class may look into the drawing's dictionaries and tables while an entity of it reads itself
    // (what scale its fields are for, say): they must show what they showed when it was filed.
    takeBack(*group, *inverse, false);
    takeBack(*group, *inverse, true);
    if (group->header) {
        inverse->header = std::move(DbObjectAccess::header(mDb));
        DbObjectAccess::header(mDb) = std::move(*group->header);
    }
    while (!to.empty() && to.back()->isEmpty())
        to.pop_back();
    to.push_back(std::move(inverse));
    DbObjectAccess::namesChanged();
    DbObjectAccess::data(mDb).changed = true;
    mGroups.push_back(std::make_unique<Group>());
    renewTick();
    return true;
}

void DbUndoLog::Group::releaseSpare() {
    entries.shrink_to_fit();
    if (!streams.empty())
        streams.back()->releaseSpare(); // the others are done with already
}
std::size_t DbUndoLog::Group::byteSize() const {
    std::size_t size = entries.capacity() * sizeof(Entry);
    for (const auto& stream : streams)
        size += stream->byteSize();
    return size;
}
std::size_t DbUndoLog::byteSize() const {
    std::size_t size = 0;
    for (const Groups* const groups : {&mGroups, &mRedo})
        for (const auto& group : *groups)
            size += group->byteSize();
    return size;
}
