// What the module notes in a drawing by itself (a setting it read for the first time, the scale brought in line, a
// symbol fetched from the library) is no work of the user's: within the scope it does not make the drawing one that
// has to be saved. A drawing that had changed before stays changed.
#pragma once

#include "AcDbDatabase.h"

class TrfcUnchangedScope {
public:
    explicit TrfcUnchangedScope(AcDbDatabase* drawing) : mDrawing(drawing != nullptr && !drawing->hasChangedSinceSave() ? drawing : nullptr) {}
    ~TrfcUnchangedScope() {
        if (mDrawing != nullptr)
            mDrawing->markSaved();
    }
    TrfcUnchangedScope(const TrfcUnchangedScope&) = delete;
    TrfcUnchangedScope& operator=(const TrfcUnchangedScope&) = delete;

private:
    AcDbDatabase* mDrawing;
};
