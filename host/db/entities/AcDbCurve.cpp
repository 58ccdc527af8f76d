// The abstract base of curves, and the small classes that only mark places in a file.
#include "AcDbBlockReference.h"

HOST_RX_DEFINE_ABSTRACT(AcDbCurve, AcDbEntity)
HOST_RX_DEFINE(AcDbSequenceEnd, AcDbEntity, L"SEQEND")
HOST_RX_DEFINE(AcDbBlockBegin, AcDbEntity, L"BLOCK")
HOST_RX_DEFINE(AcDbBlockEnd, AcDbEntity, L"ENDBLK")
