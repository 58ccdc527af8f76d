// The count of open objects and the reporting of breaches of the open rules.
#pragma once

#include "AcDbObject.h"

extern int gDbOpenObjects; // databases are used by the main thread alone

// Closes what a command that was broken off by an exception has left open, and counts the openings. Nobody is
// told of the changes: they are halves, and undo holds what was before them.
int dbCloseOpenObjects(AcDbDatabase& db);

[[noreturn]] void dbReportBreach(const AcDbObject& object, Acad::ErrorStatus status);
