// Filing of result buffer chains: xrecords and extended data.
#pragma once

#include "AcDbFiler.h"
#include "adsdef.h"

void dbWriteChain(AcDbDwgFiler& filer, const resbuf* chain);
// The caller owns the chain; null for an empty one.
resbuf* dbReadChain(AcDbDwgFiler& filer);
// The object an item of the kind kName points to.
AcDbObjectId dbIdOf(const resbuf& item);
