// The scale list of a drawing: the objects of ACAD_SCALELIST seen as contexts.
#pragma once

#include "AcDbAnnotationScale.h"

#include <memory>
#include <vector>

std::unique_ptr<AcDbObjectContextManager> dbNewContextManager(AcDbDatabase& db);
// Fills the list with the usual metric scales of a drawing in metres; those that are there stay.
void dbAddUsualScales(AcDbDatabase& db);
// A dictionary of the named objects dictionary, open for the mode; made when absent and wanted.
AcDbDictionary* dbNamedDictionary(AcDbDatabase& db, const ACHAR* name, AcDb::OpenMode mode, bool create);
std::wstring dbDrawingVariable(const AcDbDatabase& db, const ACHAR* name);
void dbSetDrawingVariable(AcDbDatabase& db, const ACHAR* name, const std::wstring& value);
// Who is told of a change of the scale, in the order of the telling.
const std::vector<AcDbAnnotationScaleReactor*>& dbScaleReactors();
