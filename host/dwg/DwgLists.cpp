// Puts blocks, attributes and vertices in order after all records have been read.
#include "DwgReader.h"

#include <unordered_set>

namespace {
class Lists {
public:
    Lists(AcDbDatabase& db, const std::unordered_map<Adesk::UInt64, Adesk::UInt64>& next) : mDb(db), mNext(next) {}

    // From the first item of the list to its last, by the links. Every item is used once, so that a
    // ring of links ends.
    void follow(AcDbObjectIdArray& list) {
        if (list.isEmpty())
            return;
        const AcDbObjectId first = list.first(), last = list.last();
        list.removeAll();
        AcDbObjectId id = first;
        while (DbObjectAccess::peek(id) != nullptr && mUsed.insert(id.handle()).second) {
            list.append(id);
            const auto next = mNext.find(id.handle());
            if (id == last || next == mNext.end() || next->second == 0)
                return;
            Acad::ErrorStatus es = mDb.getAcDbObjectId(id, false, AcDbHandle(next->second));
            if (es != Acad::eOk)
                return;
        }
    }
    bool isUsed(AcDbObjectId id) const { return mUsed.count(id.handle()) != 0; }
    void use(AcDbObjectId id) { mUsed.insert(id.handle()); }

private:
    AcDbDatabase& mDb;
    const std::unordered_map<Adesk::UInt64, Adesk::UInt64>& mNext;
    std::unordered_set<Adesk::UInt64> mUsed;
};
} // namespace

void dwgResolveLists(AcDbDatabase& db, const std::unordered_map<Adesk::UInt64, Adesk::UInt64>& next) {
    Lists lists(db, next);
    const std::vector<AcDbObjectId> ids = DbObjectAccess::allIds(db);
    for (const AcDbObjectId id : ids) {
        AcDbObject* object = DbObjectAccess::peek(id);
        if (auto* block = AcDbBlockTableRecord::cast(object)) {
            lists.use(block->blockBeginId());
            lists.use(block->blockEndId());
            lists.follow(DbObjectAccess::entities(*block));
        } else if (auto* reference = AcDbBlockReference::cast(object)) {
            lists.follow(DbObjectAccess::attributeIds(*reference));
        } else if (auto* flat = AcDb2dPolyline::cast(object)) {
            lists.follow(DbObjectAccess::vertexIds(*flat));
        } else if (auto* spatial = AcDb3dPolyline::cast(object)) {
            lists.follow(DbObjectAccess::vertexIds(*spatial));
        }
    }
    for (const AcDbObjectId id : ids) {
        const auto* entity = AcDbEntity::cast(DbObjectAccess::peek(id));
        if (entity == nullptr || lists.isUsed(id))
            continue;
        const AcDbObjectImpData* data = DbObjectAccess::dataIfAny(*entity);
        auto* block = data != nullptr ? AcDbBlockTableRecord::cast(DbObjectAccess::peek(data->owner)) : nullptr;
        if (block != nullptr)
            DbObjectAccess::entities(*block).append(id);
    }
}
