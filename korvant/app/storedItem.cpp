// Items of the chains that a drawing stores.
#include "storedItem.h"

#include "AcDbObject.h"

namespace {
bool isTextCode(short code) {
    return (code >= 0 && code <= 9) || (code >= 100 && code <= 105) || (code >= 300 && code <= 309) || (code >= 410 && code <= 419) ||
           (code >= 430 && code <= 439) || (code >= 470 && code <= 479) || (code >= 999 && code <= 1003) || (code >= 1005 && code <= 1009);
}

bool isObjectCode(short code) {
    return code >= 320 && code <= 369;
}
} // namespace

const ACHAR* storedText(const resbuf* item) {
    return item != nullptr && isTextCode(item->restype) && item->resval.rstring != nullptr ? item->resval.rstring : L"";
}

AcDbObjectId storedObjectId(const resbuf* item) {
    AcDbObjectId id;
    if (item != nullptr && isObjectCode(item->restype))
        acdbGetObjectId(id, item->resval.rlname);
    return id;
}
