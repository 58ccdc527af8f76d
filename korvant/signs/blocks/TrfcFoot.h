// The foot symbol of a post: a library block whose file shows the post's state.
#pragma once

#include "TrfcBlock.h"
#include "TrfcPostData.h"

// Where a foot stands. Drawing units, radians.
struct TrfcFootPlace {
    AcGePoint3d position;
    double rotation;
    double size; // the drawn diameter
};

// The file of a state, relative to the library: a "$" before the file's name stands for planned, "$$" for to
// be removed. A library need not have these forms: where one is absent on the disk the plain file serves.
std::wstring footFileOfState(const std::wstring& library, const std::wstring& file, int state);

class TrfcFoot {
public:
    TrfcFoot(); // a block without a symbol
    TrfcFoot(const S_BLOCK_DESCRIPTOR& descriptor, const TrfcFootPlace& place);

    TrfcBlock& block() const { return *mBlock; } // never null
    // The symbol's form of that state takes its place.
    void showState(int state, const TrfcFootPlace& place);

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) { return mBlock->dwgInFields(filer); }
    // A record of before version 7 holds a bare block reference, unless the state said that there is no foot.
    // It says less than the state does: it is passed over and the foot made anew from the settings. A post of
    // another owner is an existing one since then.
    Acad::ErrorStatus readEarlier(AcDbDwgFiler* filer, TrfcPostData& data, const TrfcFootPlace& place);

private:
    std::unique_ptr<TrfcBlock> mBlock;
};
