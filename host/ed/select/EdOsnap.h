// Object snap by word: the points of entities near a picked place.
#pragma once

#include "AcDbEntity.h"

#include <optional>
#include <string>

// end mid cen nod qua ins per tan nea (three letters or more); nothing for other words.
std::optional<AcDb::OsnapMode> edOsnapModeOf(const std::wstring& word);
// The snap point nearest to the pick of the entities whose picture passes the pick box; nothing when
// there is none.
std::optional<AcGePoint3d> edSnap(AcDb::OsnapMode mode, const AcGePoint3d& pick, const AcGePoint3d& last);
