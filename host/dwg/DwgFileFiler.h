// The filer of drawing files: a class's typed calls as bit codes, ids in the handle stream with the code
// of their kind. A call of the wrong direction gives eNotApplicable.
#pragma once

#include "DwgFieldStreams.h"

class DwgFileFiler : public AcDbDwgFiler {
public:
    explicit DwgFileFiler(DwgIn& in) : mIn(&in) {}
    explicit DwgFileFiler(DwgOut& out) : mOut(&out) {}
    ACDB_FILER_OVERRIDES;

private:
    // Runs the action on the stream of its direction, unless an error stands already.
    template <class Action> Acad::ErrorStatus put(Action action);
    template <class Action> Acad::ErrorStatus get(Action action);
    DwgIn* mIn = nullptr;
    DwgOut* mOut = nullptr;
    Acad::ErrorStatus mStatus = Acad::eOk;
};
