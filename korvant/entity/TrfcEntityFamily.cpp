#include "TrfcEntityFamily.h"

#include <map>
#include <memory>

namespace {
std::map<const AcRxClass*, const TrfcEntityFamily*>& families() {
    static std::map<const AcRxClass*, const TrfcEntityFamily*> byClass;
    return byClass;
}
} // namespace

void registerEntityFamily(const AcRxClass* type, const TrfcEntityFamily* family) {
    families()[type] = family;
}

const TrfcEntityFamily* familyOf(const AcDbEntity& entity) {
    for (const AcRxClass* type = entity.isA(); type != nullptr; type = type->myParent())
        if (const auto found = families().find(type); found != families().end())
            return found->second;
    return nullptr;
}

bool editClone(AcDbEntity& clone, int page) {
    const TrfcEntityFamily* family = familyOf(clone);
    return family != nullptr && family->edit(clone, page);
}

bool editOnClone(AcDbEntity& entity, int page) {
    entity.assertWriteEnabled(false, false); // a window that is given up leaves nothing to save or to take back
    const std::unique_ptr<AcRxObject> copy(entity.clone());
    AcDbEntity* clone = AcDbEntity::cast(copy.get());
    const bool confirmed = clone != nullptr && editClone(*clone, page);
    if (confirmed) {
        entity.assertWriteEnabled();
        entity.copyFrom(clone);
    }
    return confirmed;
}
