// What the commands know of posts and road markings.
#pragma once

#include "TrfcEntityFamily.h"

extern const TrfcEntityFamily kPostFamily;
extern const TrfcEntityFamily kMarkingFamily;
