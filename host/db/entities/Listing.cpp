// Lines of the LIST command.
#include "Listing.h"

#include "AcUtText.h"

void dbListPoint(const wchar_t* name, const AcGePoint3d& p) {
    acutPrintf(L"%20s  X=%.4f  Y=%.4f  Z=%.4f\n", name, p.x, p.y, p.z);
}

void dbListNumber(const wchar_t* name, double value) {
    acutPrintf(L"%20s  %.4f\n", name, value);
}

void dbListAngle(const wchar_t* name, double radians) {
    acutPrintf(L"%20s  %.4f\n", name, radians * 180.0 / kPi);
}

void dbListText(const wchar_t* name, const wchar_t* value) {
    acutPrintf(L"%20s  %s\n", name, value);
}

void dbListNormal(const AcGeVector3d& normal) {
    if (!normal.isEqualTo(AcGeVector3d(0.0, 0.0, 1.0)))
        dbListPoint(L"extrusion direction", AcGePoint3d(normal.x, normal.y, normal.z));
}
