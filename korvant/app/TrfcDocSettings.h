// The settings of the working drawing, kept in its dictionary TRFC_DOC_DATA, one xrecord a key.
// A key is filled from the defaults the first time it is read. No cache: a changed value is
// seen at the next read. Every call opens and closes its objects itself.
#pragma once

#include "TrfcAppSettings.h"

inline constexpr const ACHAR* TRFC_DOC_DATA = L"TRFC_DOC_DATA";

namespace TrfcDocSettings {
Adesk::Int32 getDocInt(TrfcIntKey key); // stored in 16 bits
double getDocDouble(TrfcRealKey key);
double getDocDoubleIn(TrfcRealKey key, const ACHAR* unit);
std::wstring getDocString(TrfcTextKey key);
void setDocInt(TrfcIntKey key, Adesk::Int32 value);
void setDocDouble(TrfcRealKey key, double value);
void setDocString(TrfcTextKey key, const std::wstring& value);
// Paper metres to drawing units ("wcs", times the current scale) or millimetres ("mm"); any other
// unit name leaves the value as it is. fromUnits is the inverse; a current scale of 0 gives a
// non-finite result.
double toUnits(double value, const ACHAR* unit);
double fromUnits(double value, const ACHAR* unit);
} // namespace TrfcDocSettings
