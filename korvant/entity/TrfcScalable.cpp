// Live fields for the current scale, filed snapshots for the others.
#include "TrfcScalable.h"

#include "AcUtText.h"
#include "TrfcDocSettings.h"
#include "TrfcFields.h"

ACRX_DXF_DEFINE_MEMBERS(TrfcScalable, AcDbEntity, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"TrfcScalable",
                        L"TRFCSIGNARXAPP |Product Desc: Scalable Custom Entity |Company: Tessaron Ltd |WEB Address:")

TrfcScalable::TrfcScalable() : mCurrentScale(TrfcDocSettings::getDocInt(DOC_CURRENT_SCALE)) {}
TrfcScalable::~TrfcScalable() = default;

Acad::ErrorStatus TrfcScalable::dwgOutScale(AcDbDwgFiler* filer) const {
    return filer->filerStatus();
}
Acad::ErrorStatus TrfcScalable::dwgInScale(AcDbDwgFiler* filer) {
    return filer->filerStatus();
}
Acad::ErrorStatus TrfcScalable::copyFiler(AcDbDwgFiler*, AcDbDwgFiler* target) const {
    return target->filerStatus();
}
void TrfcScalable::createNewScale(int, int) {}
void TrfcScalable::geometryChanged() {}

int TrfcScalable::currentScale() const {
    assertReadEnabled();
    return mCurrentScale;
}

std::vector<int> TrfcScalable::recordedScales() const {
    assertReadEnabled();
    std::vector<int> scales;
    scales.reserve(mScaleRecords.size());
    for (const auto& [scale, record] : mScaleRecords)
        scales.push_back(scale);
    return scales;
}

void TrfcScalable::setScale(int newScale) {
    assertWriteEnabled();
    if (newScale != mCurrentScale) {
        auto snapshot = std::make_unique<AcDbDeepCloneFiler>();
        dwgOutScale(snapshot.get());
        snapshot->seek(0, AcDb::kSeekFromStart);
        mScaleRecords[mCurrentScale] = std::move(snapshot);
        // The record that becomes live stays behind, read to its end: leaving the scale replaces it.
        const auto known = mScaleRecords.find(newScale);
        if (known != mScaleRecords.end() && known->second != nullptr)
            dwgInScale(known->second.get());
        else
            createNewScale(mCurrentScale, newScale);
    }
    // Sizes come from the drawing's settings, which hold the new scale already; the field follows last.
    geometryChanged();
    mCurrentScale = newScale;
}

Acad::ErrorStatus TrfcScalable::subTransformBy(const AcGeMatrix3d&) {
    assertWriteEnabled();
    mScaleRecords.clear();
    return Acad::eOk;
}

// ---- filing ---------------------------------------------------------------------------
namespace {
// The low 16 bits of a zeroed number: denominators from 32768 to 65535 come back positive.
Adesk::Int32 readLowHalf(AcDbDwgFiler& filer) {
    Adesk::Int16 bits = 0;
    filer.readInt16(&bits);
    return static_cast<Adesk::UInt16>(bits);
}
} // namespace

Acad::ErrorStatus TrfcScalable::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    AcDbEntity::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    filer->writeInt16(static_cast<Adesk::Int16>(mScaleRecords.size()));
    for (const auto& [scale, record] : mScaleRecords) {
        filer->writeInt16(static_cast<Adesk::Int16>(scale));
        // The record of the scale that is live now has been read to its end: begin at its start, or its
        // fields would be missing from the file.
        record->resetFilerStatus();
        record->seek(0, AcDb::kSeekFromStart);
        const AcDbFilerNest nest(filer, L"ScaleRecord");
        const Acad::ErrorStatus es = copyFiler(record.get(), filer);
        if (es != Acad::eOk)
            acutPrintf(L"TrfcScalable::dwgOutFields error: %s\n", acadErrorStatusText(es));
        record->seek(0, AcDb::kSeekFromStart);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcScalable::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    AcDbEntity::dwgInFields(filer);
    mScaleRecords.clear();
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus versionStatus = trfcReadVersion(*filer, version);
    if (versionStatus != Acad::eOk)
        return versionStatus;
    // The live fields are taken to belong to the drawing's current scale; the file does not tell.
    mCurrentScale = TrfcDocSettings::getDocInt(DOC_CURRENT_SCALE);
    if (version == 0)
        return filer->filerStatus();
    for (Adesk::Int32 count = readLowHalf(*filer); count > 0; --count) {
        const Adesk::Int32 scale = readLowHalf(*filer);
        auto record = std::make_unique<AcDbDeepCloneFiler>();
        const Acad::ErrorStatus es = copyFiler(filer, record.get());
        if (es != Acad::eOk)
            acutPrintf(L"TrfcScalable::dwgInFields error: %s\n", acadErrorStatusText(es));
        record->seek(0, AcDb::kSeekFromStart);
        mScaleRecords[scale] = std::move(record);
        if (filer->filerStatus() != Acad::eOk)
            break; // nothing more can be read; the count may be anything
    }
    return filer->filerStatus();
}
