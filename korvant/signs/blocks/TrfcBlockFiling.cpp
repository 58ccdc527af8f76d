// The record of a block, which lies inside the record of its owner.
#include "TrfcBlock.h"

#include "TrfcFields.h"
#include "TrfcMirror.h"

namespace {
void writeUserParams(AcDbDwgFiler* filer, const std::map<std::wstring, std::wstring>& params) {
    filer->writeInt32(static_cast<Adesk::Int32>(params.size()));
    for (const auto& [key, value] : params) {
        filer->writeString(key.c_str());
        filer->writeString(value.c_str());
    }
}

void readUserParams(AcDbDwgFiler* filer, std::map<std::wstring, std::wstring>& params) {
    Adesk::Int32 count = 0;
    filer->readInt32(&count);
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        std::wstring key, value;
        filer->readString(key);
        filer->readString(value);
        params[key] = value;
    }
}
} // namespace

// Between the reference's place and the parameters.
template <class Self, class Fields> void TrfcBlock::plainFields(Self& self, Fields&& field) {
    field(1, self.mWidth);
    field(1, self.mHeight);
    field(6, self.mUniqueScale);
    field(2, self.mDirection);
    field(1, self.mUpVector);
    field(1, self.mTopPoint);
}

// No fields of an entity of its own: a block lies inside its owner, and what identifies it is the
// reference's filing, which holds the hard pointer of the definition too.
Acad::ErrorStatus TrfcBlock::dwgOutFields(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    filer->writeUInt32(kTrfcFileVersion);
    {
        const AcDbFilerNest nest(filer, L"AcDbBlockReference");
        mBlockRef.dwgOutFields(filer);
    }
    filer->writePoint3d(mBlockRef.position());
    filer->writeDouble(mBlockRef.rotation());
    filer->writeScale3d(mBlockRef.scaleFactors());
    filer->writeString(mDescriptor.blockKey);
    filer->writeString(mDescriptor.blockFile);
    filer->writeString(mDescriptor.fileStamp);
    plainFields(*this, TrfcFieldWriter<TrfcUnsignedKind>{*filer});
    writeUserParams(filer, mUserParams);
    writeAttributes(filer);
    filer->writeUInt32(mExchangeId);
    return filer->filerStatus();
}

// By hand where reading differs: place, turn and scale go through the reference, the texts become
// process-wide ones, and fields a file is too old for take the values of that time.
Acad::ErrorStatus TrfcBlock::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus versionStatus = trfcReadVersion(*filer, version);
    if (versionStatus != Acad::eOk || version == 0)
        return versionStatus != Acad::eOk ? versionStatus : filer->filerStatus();
    mBlockRef.dwgInFields(filer);
    readPlace(filer);
    readDescriptor(filer);
    mUniqueScale = 1.0;
    plainFields(*this, TrfcFieldReader<TrfcUnsignedKind>{*filer, version});
    mUserParams.clear();
    if (version > 2)
        readUserParams(filer, mUserParams);
    readAttributes(filer);
    if (version > 3)
        filer->readUInt32(&mExchangeId);
    return filer->filerStatus();
}

void TrfcBlock::readPlace(AcDbDwgFiler* filer) {
    AcGePoint3d position;
    double rotation = 0.0;
    AcGeScale3d scale;
    filer->readPoint3d(&position);
    filer->readDouble(&rotation);
    filer->readScale3d(&scale);
    mBlockRef.setPosition(position);
    mBlockRef.setRotation(rotation);
    mBlockRef.setScaleFactors(scale);
    trfcLayMirrorOnWidth(mBlockRef);
}

void TrfcBlock::readDescriptor(AcDbDwgFiler* filer) {
    std::wstring text;
    for (const ACHAR** part : {&mDescriptor.blockKey, &mDescriptor.blockFile, &mDescriptor.fileStamp}) {
        filer->readString(text);
        *part = internText(text);
    }
    mDescriptor.blockId = mBlockRef.blockTableRecord();
}
