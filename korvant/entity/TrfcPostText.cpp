// The annotation text of a post.
#include "TrfcPostText.h"

Acad::ErrorStatus TrfcPostText::dwgOutFields(AcDbDwgFiler* filer) const {
    return filer->writeString(text.c_str());
}

Acad::ErrorStatus TrfcPostText::dwgInFields(AcDbDwgFiler* filer) {
    return filer->readString(text);
}
