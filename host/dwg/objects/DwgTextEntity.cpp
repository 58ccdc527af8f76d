// TEXT.
#include "DwgTexts.h"

extern const DwgClassRow kDwgText = dwgClassRow<AcDbText>(0x01);
