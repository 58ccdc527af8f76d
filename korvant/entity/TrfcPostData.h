// State, height and material of a post.
#pragma once

#include "AcDbFiler.h"

#include <string>

class TrfcPostData {
public:
    virtual ~TrfcPostData() = default;
    virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);

    Adesk::Int32 postType = 0; // 0 existing, 1 planned, 2 to be removed; 16 bits in the file
    double height = 0.0;       // metres
    std::wstring material;
};
