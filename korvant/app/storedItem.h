// Items of the chains that a drawing stores. A drawing comes from anywhere: only the group code tells
// what an item's value is, and the wrong member of it would be a pointer into nowhere.
#pragma once

#include "adsdef.h"

// Empty where there is no item or its value is no text; valid as long as the chain.
const ACHAR* storedText(const resbuf* item);
// Null where there is no item or its value is no object.
AcDbObjectId storedObjectId(const resbuf* item);
