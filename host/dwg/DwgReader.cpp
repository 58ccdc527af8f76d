// Reading of a whole drawing.
#include "DwgReader.h"

#include "DwgFileFiler.h"
#include "DwgRaw.h"


namespace {
bool isEntityClass(const void* context, int type) {
    const auto& classes = *static_cast<const std::vector<DwgClassEntry>*>(context);
    for (const DwgClassEntry& entry : classes)
        if (entry.number == type)
            return entry.isEntity;
    return false;
}
constexpr int kLayerType = 0x33, kAppType = 0x43;
} // namespace

DwgReader::DwgReader(AcDbDatabase& db, const DwgFile& file) : mDb(db), mFile(file), mText(dwgTextCodec(file.codePage())), mIds(db) {}

bool DwgReader::read(DwgError& error) {
    if (!mVars.read(mFile, mText, error) || !dwgReadClasses(mFile, mText, mClasses, error) || !mFile.records(mRecords, error) || !readNames(error))
        return false;
    mNext.reserve(mRecords.size());
    for (const DwgRecordView& record : mRecords)
        if (!readObject(record, error))
            return false;
    if (!setTables(error))
        return false;
    setHeader();
    setBlockNames();
    dwgResolveLists(mDb, mNext);
    DbObjectAccess::classes(mDb) = mClasses;
    mDb.setThumbnailBitmap(mFile.preview());
    DbObjectAccess::finishLoading(mDb);
    readCustomFields();
    return true;
}

// Extended data names layers and applications, so their names come first.
bool DwgReader::readNames(DwgError& error) {
    for (const DwgRecordView& record : mRecords) {
        DwgBitReader bits(record.bytes, record.size, &mText);
        const int type = DwgBitReader(bits).BS();
        if (type != kLayerType && type != kAppType)
            continue;
        DwgCommonData common;
        DwgRecordLayout layout;
        if (!dwgReadCommon(bits, isEntityClass, &mClasses, common, layout))
            return error.set(Acad::eDwgObjectImproperlyRead, L"The drawing file is damaged: object " + AcDbHandle(record.handle).text() + L" cannot be understood.");
        bits.setPosition(layout.fields);
        if (type == kLayerType)
            mNames.addLayer(record.handle, bits.TV());
        else
            mNames.addApplication(record.handle, bits.TV());
    }
    return true;
}

const DwgClassEntry* DwgReader::classOf(int type) const {
    const auto guess = static_cast<std::size_t>(type - 500); // numbers count from 500 in every drawing seen
    if (guess < mClasses.size() && mClasses[guess].number == type)
        return &mClasses[guess];
    for (const DwgClassEntry& entry : mClasses)
        if (entry.number == type)
            return &entry;
    return nullptr;
}

DwgIn DwgReader::fieldsOf(const DwgRecordView& record, const DwgCommonData& common, const DwgRecordLayout& layout) const {
    DwgBitReader data(record.bytes, record.size, &mText), handles(record.bytes, record.size);
    data.setEnd(layout.dataEnd);
    data.setPosition(layout.fields);
    handles.setPosition(layout.handles);
    return DwgIn(mIds, data, handles, common.handle);
}

bool DwgReader::readObject(const DwgRecordView& record, DwgError& error) {
    Custom now;
    now.record = record;
    const auto damaged = [&record, &error](const wchar_t* how) {
        return error.set(Acad::eDwgObjectImproperlyRead, L"The drawing file is damaged: object " + AcDbHandle(record.handle).text() + how);
    };
    if (!dwgReadCommon(DwgBitReader(record.bytes, record.size, &mText), isEntityClass, &mClasses, now.common, now.layout))
        return damaged(L" cannot be understood.");
    if (now.common.handle != record.handle || record.handle == 0 || record.handle >= DwgIdSource::kLargestHandle)
        return damaged(L" is filed under a wrong handle.");
    now.id = mIds.id(record.handle);
    if (DbObjectAccess::peek(now.id) != nullptr)
        return damaged(L" stands twice in the file.");
    if (now.common.isEntity)
        mNext[record.handle] = now.common.noLinks ? record.handle + 1 : now.common.next;

    const DwgClassEntry* fileClass = classOf(now.common.type);
    const DwgClassRow* row = fileClass != nullptr ? dwgRowOfClassName(fileClass->cppName) : dwgRowOfType(now.common.type);
    if (row != nullptr && row->isEntity == now.common.isEntity) {
        std::unique_ptr<AcDbObject> object = row->make();
        if (readModelled(*row, *object, record, now.common, now.layout)) {
            DbObjectAccess::place(mDb, now.id, std::move(object));
            return true;
        }
    }
    const AcRxClass* known = fileClass != nullptr && row == nullptr ? acrxFindClass(fileClass->cppName.c_str()) : nullptr;
    const AcRxClass* base = now.common.isEntity ? AcDbEntity::desc() : AcDbObject::desc();
    resbuf* xdata = nullptr;
    if (known != nullptr && known->isDerivedFrom(base) && known->appName() != nullptr && dwgReadExtended(now.common.extended, mNames, mText, xdata)) {
        std::unique_ptr<AcDbObject> object(AcDbObject::cast(known->create()));
        if (object) {
            setCommon(*object, now.common, xdata);
            DbObjectAccess::place(mDb, now.id, std::move(object));
            mCustom.push_back(std::move(now));
            return true;
        }
        acutRelRb(xdata);
    }
    DbObjectAccess::place(mDb, now.id, makeProxy(record, now.common, now.layout));
    return true;
}

// A record counts as understood when its last bit has been read: whatever else it held would be lost.
bool DwgReader::readModelled(const DwgClassRow& row, AcDbObject& object, const DwgRecordView& record, const DwgCommonData& common, const DwgRecordLayout& layout) {
    resbuf* xdata = nullptr;
    if (!dwgReadExtended(common.extended, mNames, mText, xdata))
        return false;
    setCommon(object, common, xdata);
    if (row.keepsBits)
        DbObjectAccess::data(object).raw = dwgKeepRaw(common, layout, record.bytes, record.size, mIds);
    DwgIn in = fieldsOf(record, common, layout);
    row.read(in, object);
    return !in.failed() && in.data().left() == 0 && in.handles().left() < 8;
}

void DwgReader::setCommon(AcDbObject& object, const DwgCommonData& common, resbuf* xdata) const {
    AcDbObjectImpData& data = DbObjectAccess::data(object);
    data.owner = mIds.id(common.owner);
    data.extensionDictionary = mIds.id(common.dictionary);
    for (const Adesk::UInt64 reactor : common.reactors)
        data.reactors.append(mIds.id(reactor));
    acutRelRb(data.xdata);
    data.xdata = xdata;
    if (!common.isEntity)
        return;
    if (common.entityMode != DwgCommonData::kHasOwner)
        data.owner = mIds.id(mVars[common.entityMode == DwgCommonData::kPaperSpace ? L"BLOCK_PAPER_SPACE" : L"BLOCK_MODEL_SPACE"].handle);
    auto& entity = static_cast<AcDbEntity&>(object);
    DbObjectAccess::color(entity) = DwgIn::dwgColor(common.color);
    DbObjectAccess::layer(entity) = mIds.id(common.layer);
    DbObjectAccess::linetypeScale(entity) = common.lineTypeScale;
    DbObjectAccess::lineWeight(entity) = static_cast<AcDb::LineWeight>(dwgLineWeight(common.lineWeight));
    DbObjectAccess::invisible(entity) = (common.invisible & 1) != 0;
    AcDbObjectId& lineType = DbObjectAccess::linetype(entity);
    switch (common.lineTypeFlags) {
    case DwgCommonData::kByLayer: lineType = mIds.id(mVars[L"LTYPE_BYLAYER"].handle); break;
    case DwgCommonData::kByBlock: lineType = mIds.id(mVars[L"LTYPE_BYBLOCK"].handle); break;
    case DwgCommonData::kContinuous: lineType = mIds.id(mVars[L"LTYPE_CONTINUOUS"].handle); break;
    default: lineType = mIds.id(common.lineType); break;
    }
}

std::unique_ptr<AcDbObject> DwgReader::makeProxy(const DwgRecordView& record, const DwgCommonData& common, const DwgRecordLayout& layout) const {
    const DwgClassEntry* fileClass = classOf(common.type);
    const std::wstring name = fileClass != nullptr ? fileClass->dxfName : dwgTypeName(common.type);
    std::unique_ptr<AcDbObject> object;
    if (common.isEntity) {
        auto proxy = std::make_unique<AcDbProxyEntity>();
        proxy->setOriginalClassName(name);
        object = std::move(proxy);
    } else {
        auto proxy = std::make_unique<AcDbProxyObject>();
        proxy->setOriginalClassName(name);
        object = std::move(proxy);
    }
    resbuf* xdata = nullptr;
    dwgReadExtended(common.extended, mNames, mText, xdata); // what cannot be shown stays in the bits
    setCommon(*object, common, xdata);
    AcDbObjectImpData& data = DbObjectAccess::data(*object);
    data.raw = dwgKeepRaw(common, layout, record.bytes, record.size, mIds);
    data.raw->dxfName = fileClass != nullptr ? fileClass->dxfName : std::wstring();
    data.proxyGraphics = common.graphics;
    return object;
}

// Custom objects of loaded modules; one that cannot take its record becomes a proxy with all its bits.
void DwgReader::readCustomFields() {
    for (const Custom& custom : mCustom) {
        AcDbObject* object = DbObjectAccess::peek(custom.id);
        DwgIn in = fieldsOf(custom.record, custom.common, custom.layout);
        DwgFileFiler filer(in);
        const Acad::ErrorStatus es = object->dwgIn(&filer);
        if (es != Acad::eOk || filer.filerStatus() != Acad::eOk)
            DbObjectAccess::replace(custom.id, makeProxy(custom.record, custom.common, custom.layout));
    }
}
