// State, height and material of a post.
#include "TrfcPostData.h"

#include "TrfcFields.h"

namespace {
template <class Data, class Fields> void visit(Data& data, Fields&& field) {
    field(1, trfcShort(data.postType));
    field(1, data.height);
    field(1, data.material);
}
} // namespace

Acad::ErrorStatus TrfcPostData::dwgOutFields(AcDbDwgFiler* filer) const {
    visit(*this, TrfcFieldWriter<TrfcUnsignedKind>{*filer});
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcPostData::dwgInFields(AcDbDwgFiler* filer) {
    visit(*this, TrfcFieldReader<TrfcUnsignedKind>{*filer, kTrfcFileVersion});
    return filer->filerStatus();
}
