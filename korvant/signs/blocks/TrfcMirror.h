// How the reference of a symbol holds a mirror. The module reads a symbol's up axis from the reference's turn,
// while the host may lay a mirror on either axis or turn the normal over: so it is always brought to the X axis.
#pragma once

#include "AcDbBlockReference.h"

// The same picture with the mirror, if there is one, in the X factor. A reference that leans out of the plan stays.
void trfcLayMirrorOnWidth(AcDbBlockReference& reference);
// -1 for a mirrored reference, otherwise 1.
double trfcMirrorSign(const AcDbBlockReference& reference);
// One size on all axes; a negative one is that of a mirrored symbol.
AcGeScale3d trfcUniformScale(double factor);
