// The count of open objects and the reporting of breaches of the open rules.
#pragma once

#include "AcDbObject.h"

extern int gDbOpenObjects; // databases are used by the main thread alone

[[noreturn]] void dbReportBreach(const AcDbObject& object, Acad::ErrorStatus status);
