// What stands ready before the first record is written: end markers, applications, links between
// entities, references to blocks, and numbers of classes.
#include "DwgWriter.h"

#include "DwgRaw.h"

namespace {
constexpr int kFirstClassNumber = 500;
constexpr int kMinsertType = 0x08;
// Of classes every program knows (observed in the class sections of the drawings).
constexpr const wchar_t* kStandardApp = L"ObjectDBX Classes";
constexpr int kScaleProxyFlags = 1153;
constexpr short kApplicationCode = 1001;

AcDbObjectIdArray* itemsOf(AcDbObject* object, AcDbObjectId*& end) {
    if (auto* reference = AcDbBlockReference::cast(object)) {
        end = &DbObjectAccess::sequenceEnd(*reference);
        return &DbObjectAccess::attributeIds(*reference);
    }
    if (auto* flat = AcDb2dPolyline::cast(object)) {
        end = &DbObjectAccess::sequenceEnd(*flat);
        return &DbObjectAccess::vertexIds(*flat);
    }
    if (auto* spatial = AcDb3dPolyline::cast(object)) {
        end = &DbObjectAccess::sequenceEnd(*spatial);
        return &DbObjectAccess::vertexIds(*spatial);
    }
    return nullptr;
}
} // namespace

void DwgWriter::completeDrawing() {
    mContext.standardStyle = mDb.textStyleStandard();
    mContext.continuous = mDb.continuousLinetype();
    if (auto* named = AcDbDictionary::cast(DbObjectAccess::peek(mDb.namedObjectsDictionaryId())))
        if (const auto found = DbObjectAccess::entries(*named).find(L"ACAD_PLOTSTYLENAME"); found != DbObjectAccess::entries(*named).end())
            if (const auto* styles = AcDbDictionaryWithDefault::cast(DbObjectAccess::peek(found->second)))
                mContext.normalPlotStyle = styles->defaultId();
    makeSequenceEnds();
    registerApplications();
}

// Entities with parts end with a marker in files; the database makes none by itself.
void DwgWriter::makeSequenceEnds() {
    for (const AcDbObjectId id : DbObjectAccess::allIds(mDb)) {
        AcDbObjectId* end = nullptr;
        AcDbObject* object = DbObjectAccess::peek(id);
        const AcDbObjectIdArray* items = itemsOf(object, end);
        const bool needed = items != nullptr && (!items->isEmpty() || AcDbBlockReference::cast(object) == nullptr);
        if (!needed || (end->isValid() && !end->isErased()))
            continue;
        auto marker = std::make_unique<AcDbSequenceEnd>();
        DbObjectAccess::layer(*marker) = DbObjectAccess::layer(*AcDbEntity::cast(object));
        DbObjectAccess::data(*marker).owner = id;
        *end = DbObjectAccess::idFor(mDb, mDb.handseed());
        DbObjectAccess::place(mDb, *end, std::move(marker));
    }
}

void DwgWriter::registerApplications() {
    auto* table = AcDbRegAppTable::cast(DbObjectAccess::peek(mDb.tableId(AcDbRegAppTable::desc())));
    for (const AcDbObjectId id : DbObjectAccess::allIds(mDb)) {
        const AcDbObjectImpData* data = DbObjectAccess::dataIfAny(*DbObjectAccess::peek(id));
        for (const resbuf* item = data != nullptr ? data->xdata : nullptr; item != nullptr; item = item->rbnext) {
            if (item->restype != kApplicationCode || item->resval.rstring == nullptr || table == nullptr || table->has(item->resval.rstring))
                continue;
            auto* record = new AcDbRegAppTableRecord;
            record->setName(item->resval.rstring);
            if (table->add(record) == Acad::eOk)
                record->close();
            else
                delete record;
        }
    }
}

void DwgWriter::collect() {
    mClasses = DbObjectAccess::classes(mDb);
    for (const DwgClassEntry& entry : mClasses)
        mClassNumbers.emplace(entry.cppName, entry.number);
    mIds = DbObjectAccess::allIds(mDb);
    mLinks.reserve(mIds.size());
    for (const AcDbObjectId id : mIds) {
        AcDbObject& object = *DbObjectAccess::peek(id);
        AcDbObjectId* end = nullptr;
        if (const auto* app = AcDbRegAppTableRecord::cast(&object))
            mNames.addApplication(id.handle(), app->name());
        else if (const auto* layer = AcDbLayerTableRecord::cast(&object))
            mNames.addLayer(id.handle(), layer->name());
        else if (auto* block = AcDbBlockTableRecord::cast(&object))
            linkList(dwgLiveIds(DbObjectAccess::entities(*block)));
        else if (const AcDbObjectIdArray* items = itemsOf(&object, end))
            linkList(dwgLiveIds(*items));
        collectReference(object, id);
    }
    DbObjectAccess::classes(mDb) = mClasses;
}

void DwgWriter::linkList(const std::vector<AcDbObjectId>& list) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        Links& links = mLinks[list[i]];
        links.previous = i == 0 ? 0 : static_cast<Adesk::UInt64>(list[i - 1].handle());
        links.next = i + 1 == list.size() ? 0 : static_cast<Adesk::UInt64>(list[i + 1].handle());
    }
}

void DwgWriter::collectReference(AcDbObject& object, AcDbObjectId id) {
    if (const auto* reference = AcDbBlockReference::cast(&object)) {
        mContext.references[reference->blockTableRecord()].push_back(id);
        return;
    }
    const AcDbObjectImpData* data = DbObjectAccess::dataIfAny(object);
    DwgRawParts parts;
    if (data == nullptr || !data->raw || data->raw->objectType != kMinsertType || !dwgCutRaw(*data->raw, true, parts))
        return;
    if (parts.ownReferences < data->raw->references.size()) // the block stands first among its own handles
        mContext.references[data->raw->references[parts.ownReferences].id].push_back(id);
}

int DwgWriter::classNumber(const std::wstring& cppName, const std::wstring& dxfName, const std::wstring& appName, int proxyFlags, bool isEntity) {
    const auto known = mClassNumbers.find(cppName);
    if (known != mClassNumbers.end())
        return known->second;
    DwgClassEntry entry;
    entry.number = kFirstClassNumber;
    for (const DwgClassEntry& other : mClasses)
        entry.number = std::max(entry.number, other.number + 1);
    entry.proxyFlags = proxyFlags;
    entry.appName = appName;
    entry.cppName = cppName;
    entry.dxfName = dxfName;
    entry.isEntity = isEntity;
    mClasses.push_back(entry);
    mClassNumbers.emplace(cppName, entry.number);
    return entry.number;
}

int DwgWriter::typeOf(AcDbObject& object, const DwgClassRow* row) {
    const AcRxClass* type = object.isA();
    if (row != nullptr && row->type != 0)
        return row->type;
    if (row != nullptr)
        return classNumber(type->name(), row->dxfName, kStandardApp, row->desc() == AcDbScale::desc() ? kScaleProxyFlags : 0, row->isEntity);
    const bool isEntity = AcDbEntity::cast(&object) != nullptr;
    const AcDbObjectImpData* data = DbObjectAccess::dataIfAny(object);
    const bool isProxy = AcDbProxyEntity::cast(&object) != nullptr || AcDbProxyObject::cast(&object) != nullptr;
    if (!isProxy || data == nullptr || !data->raw)
        return classNumber(type->name(), type->dxfName() != nullptr ? type->dxfName() : type->name(), type->appName() != nullptr ? type->appName() : kStandardApp, type->proxyFlags(), isEntity);
    const DbRawRecord& raw = *data->raw;
    if (raw.dxfName.empty())
        return raw.objectType;
    // A number of another drawing's class section may mean another class here.
    for (const DwgClassEntry& entry : mClasses)
        if (entry.number == raw.objectType && entry.dxfName == raw.dxfName && entry.isEntity == isEntity)
            return entry.number;
    for (const DwgClassEntry& entry : mClasses)
        if (entry.dxfName == raw.dxfName && entry.isEntity == isEntity)
            return entry.number;
    return classNumber(L"AcDb" + raw.dxfName, raw.dxfName, kStandardApp, 0, isEntity);
}
