// The annotation text of a post.
#pragma once

#include "AcDbFiler.h"

#include <string>

class TrfcPostText {
public:
    virtual ~TrfcPostText() = default;
    virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);

    std::wstring text;
};
