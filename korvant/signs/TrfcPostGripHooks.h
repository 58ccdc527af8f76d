// What the host calls for the grips of a post, which all share these three.
#pragma once

#include "AcDbEntity.h"

// End and abort of a drag.
void postGripStatus(AcDbGripData* grip, const AcDbObjectId& entity, AcDbGripOperations::GripStatus status);
// A click on a grip that is a command.
AcDbGripOperations::ReturnStatus postGripHot(AcDbGripData* grip, const AcDbObjectId& entity, int contextFlags);
bool postGripDraw(AcDbGripData* grip, AcGiWorldDraw* worldDraw, const AcDbObjectId& entity, AcDbGripOperations::DrawType type, AcGePoint3d* imageGripPoint,
                  double gripSize);
