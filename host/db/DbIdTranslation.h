// How the ids of a memory stream are turned into others on reading.
#pragma once

#include "AcDbObjectId.h"

struct DbIdTranslation {
    virtual ~DbIdTranslation() = default;
    virtual AcDbObjectId translate(AcDbObjectId id) const = 0;
};
