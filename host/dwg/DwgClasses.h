// The class section: which class a record's number of 500 and above stands for.
#pragma once

#include "DbObjectAccess.h"
#include "DwgContainer.h"

using DwgClassEntry = DbFileClass;
bool dwgReadClasses(const DwgFile& file, const DwgTextCodec& text, std::vector<DwgClassEntry>& classes, DwgError& error);
void dwgWriteClasses(DwgBitWriter& out, const std::vector<DwgClassEntry>& classes);
