#include "scaleNumber.h"

#include "AcUtText.h"
#include "TrfcDrawingUtils.h"

std::wstring scaleNumber(double units) { return trimNumber(acFormat(L"%.6f", units)); }
