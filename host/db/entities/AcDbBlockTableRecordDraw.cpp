// The picture and the extents of a block definition.
#include "AcDbEntities.h"
#include "AcDbSymbolTables.h"
#include "ReadAccess.h"

// Attribute definitions are forms to fill in; a reference shows the attributes made from them instead. Erased
// entities do not open; an invisible one tells so when its traits are asked for.
bool AcDbBlockTableRecord::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    AcGiGeometry& geometry = worldDraw->geometry();
    for (const AcDbObjectId& id : mEntities) {
        const DbReadAccess<AcDbEntity> entity(id);
        if (!entity || entity->isKindOf(AcDbAttributeDefinition::desc()))
            continue;
        if (geometry.draw(entity.get()))
            return false;
    }
    return true;
}

Acad::ErrorStatus AcDbBlockTableRecord::getGeomExtents(AcDbExtents& extents) const {
    assertReadEnabled();
    const AcDbExtents measured = giExtentsOf(const_cast<AcDbBlockTableRecord&>(*this));
    if (!measured.isValid())
        return Acad::eInvalidExtents;
    extents = measured;
    return Acad::eOk;
}
