// Lines of the LIST command: points, lengths and angles as drawing programs print them.
#pragma once

#include "AcGe.h"

// "      name  X=1.0000  Y=2.0000  Z=0.0000"
void dbListPoint(const wchar_t* name, const AcGePoint3d& p);
void dbListNumber(const wchar_t* name, double value);
void dbListAngle(const wchar_t* name, double radians); // printed in degrees
void dbListText(const wchar_t* name, const wchar_t* value);
// The extrusion direction, only where it is not the Z axis.
void dbListNormal(const AcGeVector3d& normal);
