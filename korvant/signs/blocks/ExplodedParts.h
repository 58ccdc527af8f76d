// The entities an explosion gives, owned until they are handed on.
#pragma once

#include "AcDbEntity.h"

#include <memory>
#include <vector>

using ExplodedParts = std::vector<std::unique_ptr<AcDbEntity>>;

inline ExplodedParts explodedPartsOf(const AcDbEntity& entity) {
    AcDbVoidPtrArray raw;
    entity.explode(raw);
    ExplodedParts parts;
    parts.reserve(static_cast<std::size_t>(raw.length()));
    for (void* part : raw)
        parts.emplace_back(static_cast<AcDbEntity*>(part));
    return parts;
}
