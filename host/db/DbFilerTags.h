// The type tags of the memory stream.
#pragma once

#include "AcDbFiler.h"

#include <cstring>

// NAME, TYPE: values of fixed size whose bytes are stored as they stand.
#define DB_FILER_PLAIN_TYPES(X)                                                                                        \
    X(Bool, bool)                                                                                                      \
    X(Int8, Adesk::Int8)                                                                                               \
    X(Int16, Adesk::Int16)                                                                                             \
    X(Int32, Adesk::Int32)                                                                                             \
    X(Int64, Adesk::Int64)                                                                                             \
    X(UInt8, Adesk::UInt8)                                                                                             \
    X(UInt16, Adesk::UInt16)                                                                                           \
    X(UInt32, Adesk::UInt32)                                                                                           \
    X(UInt64, Adesk::UInt64)                                                                                           \
    X(Double, double)                                                                                                  \
    X(AcDbHandle, AcDbHandle)
#define DB_FILER_GEOMETRY_TYPES(X)                                                                                     \
    X(Point2d, AcGePoint2d)                                                                                            \
    X(Point3d, AcGePoint3d)                                                                                            \
    X(Vector2d, AcGeVector2d)                                                                                          \
    X(Vector3d, AcGeVector3d)                                                                                          \
    X(Scale3d, AcGeScale3d)
#define DB_FILER_ID_TYPES(X)                                                                                           \
    X(HardOwnershipId, AcDbHardOwnershipId)                                                                            \
    X(SoftOwnershipId, AcDbSoftOwnershipId)                                                                            \
    X(HardPointerId, AcDbHardPointerId)                                                                                \
    X(SoftPointerId, AcDbSoftPointerId)

namespace DbFilerTag {
enum Tag : Adesk::UInt8 {
#define DB_TAG(NAME, TYPE) k##NAME,
    kNone,
    DB_FILER_PLAIN_TYPES(DB_TAG) DB_FILER_GEOMETRY_TYPES(DB_TAG) DB_FILER_ID_TYPES(DB_TAG) kString,
    kBytes,
#undef DB_TAG
};
} // namespace DbFilerTag
