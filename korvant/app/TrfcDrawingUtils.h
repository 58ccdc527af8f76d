// Small shared drawing functions: table look-ups, traits, display properties, fading colours.
#pragma once

#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"

#include <functional>
#include <string>

// The record is open in the given mode; the caller closes it.
Acad::ErrorStatus openBlockRecord(AcDbDatabase* database, const ACHAR* name, AcDbBlockTableRecord*& record, AcDb::OpenMode mode);
// Shows the entities of the working database's model space one by one, each open in that mode and
// closed afterwards; one that cannot be opened is passed by. The visitor ends the walk with false.
// Model space stays open for read meanwhile; eNoDatabase or the status of its opening.
Acad::ErrorStatus walkModelSpace(AcDb::OpenMode mode, const std::function<bool(AcDbEntity&)>& visit);
// Adds to model space of the working database; the entity is closed. Failure goes through reportError.
Acad::ErrorStatus addToModelSpace(AcDbEntity* entity, AcDbObjectId& id);
// Loads a missing line type from ACADISO.LIN (metric drawings) or ACAD.LIN.
Acad::ErrorStatus linetypeId(const ACHAR* name, AcDbObjectId& id);
Acad::ErrorStatus textStyleId(const ACHAR* name, AcDbObjectId& id);
void ensureLayer(const ACHAR* name);
void zoomToExtents(const AcDbExtents& extents);
// Message box "ERROR (<context>): <status>" when the status is not eOk.
void reportError(Acad::ErrorStatus es, const ACHAR* context);
// Without trailing zeros behind a decimal point, and without a point left alone.
std::wstring trimNumber(const std::wstring& text);

// One process-wide set of saved traits: a save inside a save overwrites the outer one, so calls do not nest.
void saveTraits(AcGiCommonDraw* draw);
void restoreTraits(AcGiCommonDraw* draw);
void applyEntityToTraits(const AcDbEntity* entity, AcGiCommonDraw* draw);
void copyDisplayProperties(const AcDbEntity* source, AcDbEntity* target);
// The array holds AcDbEntity pointers of an explosion.
void applyOwnerProperties(AcDbVoidPtrArray& entities, const ACHAR* layer, const AcCmColor& color, AcDb::LineWeight lineWeight, const ACHAR* lineType);
AcCmColor grayColorOf(const AcDbEntity* entity);
AcCmColor whiteColorOf(const AcDbEntity* entity);
