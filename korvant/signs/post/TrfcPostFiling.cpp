// The post's record and its scale records.
#include "TrfcPost.h"

#include "TrfcFields.h"

// ---- one scale --------------------------------------------------------------------------------

template <class Self, class Fields> void TrfcPost::ScaleFields::operator()(Self& post, Fields&& field) const {
    field(1, post.mPointA);
    field(1, post.mPointB);
    field(1, post.mPointC);
    field(1, post.mPointD);
    field(6, post.mNote.anchor);
    field(1, post.mVectorAB);
    field(1, post.mRotation);
    field(1, post.mBendAngle);
    field(1, post.mHasBend);
}

Acad::ErrorStatus TrfcPost::dwgOutScale(AcDbDwgFiler* filer) const {
    assertReadEnabled();
    return trfcWriteRecord<TrfcUnsignedKind>(*filer, *this, ScaleFields());
}

Acad::ErrorStatus TrfcPost::dwgInScale(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    return trfcReadRecord<TrfcUnsignedKind>(*filer, *this, ScaleFields());
}

Acad::ErrorStatus TrfcPost::copyFiler(AcDbDwgFiler* source, AcDbDwgFiler* target) const {
    return trfcCopyRecord<TrfcUnsignedKind>(*source, *target, *this, ScaleFields());
}

// ---- the post -----------------------------------------------------------------------------------

template <class Self, class Fields> void TrfcPost::OwnFields::operator()(Self& post, Fields&& field) const {
    field(1, trfcShort(post.mPlacementPhase));
    field(1, post.mPointA);
    field(1, post.mPointB);
    field(1, post.mPointC);
    field(1, post.mPointD);
    field(6, post.mNote.anchor);
    field(1, post.mVectorAB);
    field(1, post.mArmRatio);
    field(1, post.mRotation);
    field(1, post.mBendAngle);
    field(1, post.mHasBend);
    field(1, post.mLampsFollowRotation);
}

Acad::ErrorStatus TrfcPost::dwgOutFields(AcDbDwgFiler* filer) const {
    TrfcScalable::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    OwnFields()(*this, TrfcFieldWriter<TrfcUnsignedKind>{*filer});
    trfcWritePart(*filer, mPostData, L"TrfcPostData");
    trfcWritePart(*filer, mNote.text, L"TrfcPostText");
    mFoot.dwgOutFields(filer);
    trfcWritePart(*filer, mSignChain, L"TrfcBlockChain");
    mLampChains.dwgOutFields(filer);
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
    OwnFields()(*this, TrfcFieldReader<TrfcUnsignedKind>{*filer, version});
    readSizes(); // not in the file: the drawing's settings say how large things are
    mPostData.dwgInFields(filer);
    if (version >= 6)
        mNote.text.dwgInFields(filer);
    es = version >= 7 ? mFoot.dwgInFields(filer) : mFoot.readEarlier(filer, mPostData, footPlace());
    if (es == Acad::eOk)
        es = mSignChain.dwgInFields(filer);
    if (es == Acad::eOk)
        es = mLampChains.dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    if (version >= 2)
        filer->readUInt32(&mExchangeId);
    if (version < 6)
        resetAnnotation();
    return filer->filerStatus();
}
