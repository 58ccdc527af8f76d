// The class section: which class a record's number of 500 and above stands for.
#pragma once

#include "DwgContainer.h"

struct DwgClassEntry {
    int number = 500;
    int proxyFlags = 0;
    std::wstring appName, cppName, dxfName;
    bool wasProxy = false;
    bool isEntity = false;
};
bool dwgReadClasses(const DwgFile& file, const DwgTextCodec& text, std::vector<DwgClassEntry>& classes, DwgError& error);
void dwgWriteClasses(DwgBitWriter& out, const std::vector<DwgClassEntry>& classes);
