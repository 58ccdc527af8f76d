// The post's record and its scale records; the foot of earlier versions.
#include "TrfcPost.h"

#include "TrfcDocSettings.h"
#include "TrfcFieldFiler.h"

// ---- one scale --------------------------------------------------------------------------------

template <class Self, class Fields> void TrfcPost::scaleFields(Self& self, Fields&& field) {
    field(1, self.mPointA);
    field(1, self.mPointB);
    field(1, self.mPointC);
    field(1, self.mPointD);
    field(6, self.mPointE);
    field(1, self.mVectorAB);
    field(1, self.mRotation);
    field(1, self.mBendAngle);
    field(1, self.mHasBend);
}

Acad::ErrorStatus TrfcPost::dwgOutScale(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    filer->writeUInt32(kTrfcFileVersion);
    scaleFields(*this, TrfcFieldWriter{*filer});
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcPost::dwgInScale(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus es = trfcReadVersion(*filer, version);
    if (es == Acad::eOk && version > 0)
        scaleFields(*this, TrfcFieldReader{*filer, version});
    return es != Acad::eOk ? es : filer->filerStatus();
}

// The record keeps the version it has.
Acad::ErrorStatus TrfcPost::copyFiler(AcDbDwgFiler* source, AcDbDwgFiler* target) const {
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus es = trfcReadVersion(*source, version);
    if (es != Acad::eOk)
        return es;
    target->writeUInt32(version);
    if (version > 0)
        scaleFields(*this, TrfcFieldCopier{*source, *target, version});
    return source->filerStatus() != Acad::eOk ? source->filerStatus() : target->filerStatus();
}

// ---- the post -----------------------------------------------------------------------------------

template <class Self, class Fields> void TrfcPost::ownFields(Self& self, Fields&& field) {
    field(1, trfcShort(self.mPlacementPhase));
    field(1, self.mPointA);
    field(1, self.mPointB);
    field(1, self.mPointC);
    field(1, self.mPointD);
    field(6, self.mPointE);
    field(1, self.mVectorAB);
    field(1, self.mArmRatio);
    field(1, self.mRotation);
    field(1, self.mBendAngle);
    field(1, self.mHasBend);
    field(1, self.mLampsFollowRotation);
}

namespace {
template <class Part> void writePart(AcDbDwgFiler* filer, const Part& part, const ACHAR* name) {
    const AcDbFilerNest nest(filer, name);
    part.dwgOutFields(filer);
}
} // namespace

Acad::ErrorStatus TrfcPost::dwgOutFields(AcDbDwgFiler* filer) const {
    TrfcScalable::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    ownFields(*this, TrfcFieldWriter{*filer});
    writePart(filer, mPostData, L"TrfcPostData");
    writePart(filer, mPostText, L"TrfcPostText");
    writePart(filer, *mBaseBlock, L"TrfcBlock");
    writePart(filer, mSignChain, L"TrfcBlockChain");
    filer->writeInt16(static_cast<Adesk::Int16>(mLampChains.size()));
    for (const auto& chain : mLampChains)
        writePart(filer, *chain, L"TrfcBlockChain");
    filer->writeUInt32(mExchangeId);
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcPost::dwgInFields(AcDbDwgFiler* filer) {
    Acad::ErrorStatus es = TrfcScalable::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    Adesk::UInt32 version = 0;
    es = trfcReadVersion(*filer, version);
    if (es != Acad::eOk || version == 0)
        return es != Acad::eOk ? es : filer->filerStatus();
    ownFields(*this, TrfcFieldReader{*filer, version});
    readSizes(); // not in the file: the drawing's settings say how large things are
    mPostData.dwgInFields(filer);
    if (version >= 6)
        mPostText.dwgInFields(filer);
    es = readFoot(filer, version);
    if (es == Acad::eOk)
        es = mSignChain.dwgInFields(filer);
    if (es == Acad::eOk)
        es = readLampChains(filer);
    if (es != Acad::eOk)
        return es;
    if (version >= 2)
        filer->readUInt32(&mExchangeId);
    if (version < 6)
        resetAnnotation();
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcPost::readLampChains(AcDbDwgFiler* filer) {
    mLampChains.clear();
    Adesk::Int16 count = 0;
    filer->readInt16(&count);
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        mLampChains.push_back(std::make_unique<TrfcBlockChain>());
        const Acad::ErrorStatus es = mLampChains.back()->dwgInFields(filer);
        if (es != Acad::eOk)
            return es;
    }
    return filer->filerStatus();
}

// ---- foot -----------------------------------------------------------------------------------------

Acad::ErrorStatus TrfcPost::readFoot(AcDbDwgFiler* filer, Adesk::UInt32 version) {
    if (version >= 7)
        return mBaseBlock->dwgInFields(filer);
    // A bare block reference stood here, which says less than the state does.
    constexpr int kNoFoot = 4;
    if (mPostData.postType != kNoFoot)
        AcDbBlockReference().dwgInFields(filer);
    const S_BLOCK_DESCRIPTOR foot = footOfEarlierVersions();
    mBaseBlock = std::make_unique<TrfcBlock>(foot, mPointA, mRotation, mBasePointD);
    return filer->filerStatus();
}

namespace {
std::wstring markedFile(const std::wstring& file, const ACHAR* mark) {
    std::wstring marked = file;
    return marked.insert(marked.find_last_of(L'\\') + 1, mark);
}
} // namespace

S_BLOCK_DESCRIPTOR TrfcPost::footOfEarlierVersions() {
    constexpr int kAlien = 3; // a post of another owner, an existing one since version 7
    const std::wstring existing = TrfcDocSettings::getDocString(DOC_POST_DEFAULT_DWG);
    std::wstring file = L"Error.dwg";
    if (mPostData.postType == kBlockExisting) {
        file = existing;
    } else if (mPostData.postType == kBlockPlanned) {
        file = markedFile(existing, L"$");
    } else if (mPostData.postType == kBlockToBeRemoved) {
        file = markedFile(existing, L"$$");
    } else if (mPostData.postType == kAlien) {
        file = TrfcDocSettings::getDocString(DOC_POST_ALIEN_DWG);
        mPostData.postType = kBlockExisting;
    }
    return loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_POSTS_BASE_PATH), file);
}
