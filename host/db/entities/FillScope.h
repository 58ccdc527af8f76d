// Fills the areas drawn while it lives, whatever the fill type of the drawing was.
#pragma once

#include "AcGi.h"

class DbFillScope {
public:
    explicit DbFillScope(AcGiSubEntityTraits& traits) : mTraits(traits), mBefore(traits.fillType()) {
        mTraits.setFillType(kAcGiFillAlways);
    }
    ~DbFillScope() { mTraits.setFillType(mBefore); }
    DbFillScope(const DbFillScope&) = delete;
    DbFillScope& operator=(const DbFillScope&) = delete;

private:
    AcGiSubEntityTraits& mTraits;
    AcGiFillType mBefore;
};
