// What went wrong with a file: a status and one sentence for the user.
#pragma once

#include "AcAdesk.h"

#include <string>

struct DwgError {
    Acad::ErrorStatus status = Acad::eOk;
    std::wstring text;
    bool good() const { return status == Acad::eOk; }
    // Notes the first error; later ones tell less.
    bool set(Acad::ErrorStatus es, std::wstring sentence) {
        if (good()) {
            status = es;
            text = std::move(sentence);
        }
        return false;
    }
};
