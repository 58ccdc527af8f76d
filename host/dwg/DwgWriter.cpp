// Writing of objects: the common head from the object's state, then its fields, its kept bits, or what
// its own dwgOutFields puts out.
#include "DwgWriter.h"

#include "DwgCrc.h"
#include "DwgFileFiler.h"
#include "DwgHeaderMapping.h"
#include "DwgProxyGraphics.h"
#include "DwgRaw.h"

namespace {
int codePageOf(AcDbDatabase& db) {
    const auto& header = DbObjectAccess::header(db);
    const auto known = header.find(L"DWGCODEPAGE");
    return known == header.end() ? DwgTextCodec::kAnsi1250 : static_cast<int>(known->second.integer);
}
} // namespace

// Objects are read while they may stand open elsewhere; nothing of this is a change of the drawing.
DwgWriter::DwgWriter(AcDbDatabase& db) : mDb(db), mText(dwgTextCodec(codePageOf(db))), mExtents(db), mData(&mText), mHandles(&mText) {
    mContext.database = &db;
    DbObjectAccess::setLoading(db, true);
}
DwgWriter::~DwgWriter() {
    DbObjectAccess::setLoading(mDb, false);
}

bool DwgWriter::write(const std::string& path, DwgError& error) {
    return dwgReplaceFile(path, bytes(), error);
}

std::vector<Adesk::UInt8> DwgWriter::bytes() {
    completeDrawing();
    collect();
    mRecorder = std::make_unique<DwgPictureRecorder>(mDb, mText);
    mMap.reserve(mIds.size());
    for (const AcDbObjectId id : mIds)
        writeObject(*DbObjectAccess::peek(id));
    mExtents.finish();
    dwgHeaderFromDatabase(mDb, mVars);
    DwgFileParts parts;
    parts.text = &mText;
    parts.vars = &mVars;
    parts.classes = &mClasses;
    parts.objects = &mObjects;
    parts.map = &mMap;
    parts.preview = mDb.thumbnailBitmap();
    parts.measurement = mDb.measurement();
    return dwgAssembleFile(parts);
}

void DwgWriter::writeObject(AcDbObject& object) {
    mData.clear();
    mHandles.clear();
    mMap.push_back({object.objectId().handle(), static_cast<Adesk::UInt32>(mObjects.size())});
    const DwgClassRow* row = dwgRowOf(object.isA());
    const AcDbObjectImpData* data = DbObjectAccess::dataIfAny(object);
    if (row == nullptr && data != nullptr && data->raw)
        writeRaw(object, *data->raw);
    else if (row != nullptr && row->keepsBits && data != nullptr && data->raw && keptAsItCame(object, *row, *data->raw))
        appendRecord(data->raw->bytes.data(), data->raw->bytes.size());
    else
        writeFields(object, row);
}

void DwgWriter::writeFields(AcDbObject& object, const DwgClassRow* row) {
    const DwgCommonData common = commonOf(object, typeOf(object, row));
    const std::size_t sizeAt = dwgWriteCommon(mData, mHandles, common);
    DwgOut out(mContext, mData, mHandles);
    if (row != nullptr) {
        row->write(out, object);
    } else {
        DwgFileFiler filer(out);
        object.dwgOut(&filer);
    }
    finishRecord(sizeAt);
}

// Bit for bit while the object stands as it came; where its place, its links, its layer or what hangs
// on it has changed the head is written anew before the class's own bits.
void DwgWriter::writeRaw(AcDbObject& object, const DbRawRecord& raw) {
    DwgRawParts parts;
    const bool isEntity = AcDbEntity::cast(&object) != nullptr;
    if (!dwgCutRaw(raw, isEntity, parts))
        return appendRecord(raw.bytes.data(), raw.bytes.size());
    DwgCommonData common = commonOf(object, typeOf(object, nullptr));
    // What objects do not model stays as it was.
    common.plotStyleFlags = parts.common.plotStyleFlags;
    common.plotStyle = parts.common.plotStyle;
    if (isEntity && mLinks.find(object.objectId()) == mLinks.end()) { // a part of a kept complex entity
        common.noLinks = parts.common.noLinks;
        common.previous = parts.common.previous;
        common.next = parts.common.next;
    }
    if (!raw.referencesChanged && sameAsRaw(common, parts))
        return appendRecord(raw.bytes.data(), raw.bytes.size());
    const std::size_t sizeAt = dwgWriteCommon(mData, mHandles, common);
    mData.copyBits(raw.bytes.data(), parts.layout.fields, parts.layout.dataEnd);
    dwgWriteOwnReferences(mHandles, raw, parts);
    finishRecord(sizeAt);
}

// Whether neither the head nor a field that is modelled has changed since the record was read.
bool DwgWriter::keptAsItCame(AcDbObject& object, const DwgClassRow& row, const DbRawRecord& raw) {
    DwgRawParts parts;
    if (raw.referencesChanged || !dwgCutRaw(raw, row.isEntity, parts) || !sameAsRaw(commonOf(object, typeOf(object, &row)), parts))
        return false;
    DwgBitReader data(raw.bytes.data(), raw.bytes.size(), &mText), handles(raw.bytes.data(), raw.bytes.size());
    data.setEnd(parts.layout.dataEnd);
    data.setPosition(parts.layout.fields);
    handles.setPosition(parts.layout.handles);
    const DwgIdSource ids(mDb);
    DwgIn in(ids, data, handles, parts.common.handle);
    const std::unique_ptr<AcDbObject> was = row.make();
    row.read(in, *was);
    AcDbRecordingFiler before, now;
    was->dwgOutFields(&before);
    object.dwgOutFields(&now);
    return before.lines() == now.lines();
}

// Equal in meaning: the bits of a stranger may spell the same value otherwise.
bool DwgWriter::sameAsRaw(const DwgCommonData& common, const DwgRawParts& parts) const {
    DwgCommonData was = parts.common;
    resbuf* xdata = nullptr;
    if (dwgReadExtended(was.extended, mNames, mText, xdata))
        was.extended = dwgWriteExtended(xdata, mNames, mText);
    else
        was.extended = common.extended; // not understood: the object shows none and has changed none
    acutRelRb(xdata);
    if (was.isEntity) {
        was.color = static_cast<Adesk::Int16>(DwgIn::dwgColor(was.color).colorIndex());
        was.lineWeight = static_cast<Adesk::UInt8>(dwgLineWeightNumber(dwgLineWeight(was.lineWeight)));
        was.invisible &= 1;
        was.hasGraphics = !was.graphics.empty();
    }
    return was == common;
}

DwgCommonData DwgWriter::commonOf(AcDbObject& object, int type) {
    DwgCommonData common;
    common.type = type;
    common.handle = object.objectId().handle();
    const AcDbObjectImpData& data = DbObjectAccess::data(object);
    common.owner = data.owner.handle();
    common.dictionary = data.extensionDictionary.isErased() ? 0 : static_cast<Adesk::UInt64>(data.extensionDictionary.handle());
    for (const AcDbObjectId reactor : data.reactors)
        if (!reactor.isErased())
            common.reactors.push_back(reactor.handle());
    if (data.xdata != nullptr)
        common.extended = dwgWriteExtended(data.xdata, mNames, mText);
    if (AcDbEntity* entity = AcDbEntity::cast(&object))
        commonOfEntity(*entity, common);
    return common;
}

void DwgWriter::commonOfEntity(AcDbEntity& entity, DwgCommonData& common) {
    common.isEntity = true;
    const AcDbObjectId owner = DbObjectAccess::data(entity).owner;
    common.entityMode = owner == mDb.modelSpaceId() ? DwgCommonData::kModelSpace : owner == mDb.paperSpaceId() ? DwgCommonData::kPaperSpace : DwgCommonData::kHasOwner;
    if (common.entityMode != DwgCommonData::kHasOwner)
        common.owner = 0;
    const auto links = mLinks.find(entity.objectId());
    if (links != mLinks.end()) {
        common.previous = links->second.previous;
        common.next = links->second.next;
    }
    common.noLinks = common.previous + 1 == common.handle && common.next == common.handle + 1;
    if (common.noLinks)
        common.previous = common.next = 0;
    common.color = static_cast<Adesk::Int16>(DbObjectAccess::color(entity).colorIndex());
    const AcDbObjectId layer = DbObjectAccess::layer(entity);
    common.layer = (layer.isNull() ? mDb.layerZero() : layer).handle();
    const AcDbObjectId lineType = DbObjectAccess::linetype(entity);
    if (lineType.isNull() || lineType == mDb.byLayerLinetype())
        common.lineTypeFlags = DwgCommonData::kByLayer;
    else if (lineType == mDb.byBlockLinetype())
        common.lineTypeFlags = DwgCommonData::kByBlock;
    else if (lineType == mDb.continuousLinetype())
        common.lineTypeFlags = DwgCommonData::kContinuous;
    else
        common.lineTypeFlags = DwgCommonData::kByHandle;
    if (common.lineTypeFlags == DwgCommonData::kByHandle)
        common.lineType = lineType.handle();
    common.lineTypeScale = DbObjectAccess::linetypeScale(entity);
    common.lineWeight = static_cast<Adesk::UInt8>(dwgLineWeightNumber(DbObjectAccess::lineWeight(entity)));
    common.invisible = DbObjectAccess::invisible(entity) ? 1 : 0;
    recordGraphics(entity, common);
}

// Proxies keep the picture they came with; an object of a loaded module draws itself.
void DwgWriter::recordGraphics(AcDbEntity& entity, DwgCommonData& common) {
    if (AcDbProxyEntity::cast(&entity) != nullptr)
        common.graphics = DbObjectAccess::data(entity).proxyGraphics;
    else if (entity.isA()->appName() != nullptr)
        recordPicture(entity, common);
    common.hasGraphics = !common.graphics.empty();
}

// An object that draws itself is drawn once, for its picture and for the drawing's extents.
void DwgWriter::recordPicture(AcDbEntity& entity, DwgCommonData& common) {
    common.graphics = mRecorder->record(entity);
    mExtents.addDrawn(entity, mRecorder->lastPicture());
}

// The handles follow the data without a gap; the head tells where.
void DwgWriter::finishRecord(std::size_t sizeAt) {
    const std::size_t dataBits = mData.position(), handleBits = mHandles.position();
    const std::vector<Adesk::UInt8>& handles = mHandles.finish();
    mData.copyBits(handles.data(), 0, handleBits);
    mData.alignToByte();
    mData.patchRL(sizeAt, static_cast<Adesk::UInt32>(dataBits));
    const std::vector<Adesk::UInt8>& bytes = mData.finish();
    appendRecord(bytes.data(), bytes.size());
}

// Open Design description of DWG, chapter "Objects": size, bits, checksum over both.
void DwgWriter::appendRecord(const Adesk::UInt8* bytes, std::size_t size) {
    const std::size_t start = mObjects.size();
    const auto put16 = [this](std::size_t number) {
        mObjects.push_back(static_cast<Adesk::UInt8>(number));
        mObjects.push_back(static_cast<Adesk::UInt8>(number >> 8U));
    };
    if (size > 0x7FFF) {
        put16((size & 0x7FFFU) | 0x8000U);
        put16(size >> 15U);
    } else {
        put16(size);
    }
    mObjects.insert(mObjects.end(), bytes, bytes + size);
    put16(dwgCrc(kDwgCrcSeed, mObjects.data() + start, mObjects.size() - start));
}
