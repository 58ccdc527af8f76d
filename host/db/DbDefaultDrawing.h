// What every drawing holds: made for a new drawing, completed in one that was read.
#pragma once

#include "AcDbDatabase.h"

#include <string>
#include <vector>

void dbBuildDefaultDrawing(AcDbDatabase& db);
// Makes what is missing and finds the standard records; tells what it made, one a line.
std::vector<std::wstring> dbCompleteDrawing(AcDbDatabase& db);
