// Basic types of the API: wide text, sized integers, status codes, message codes.
#pragma once

#include <cstddef>
#include <cstdint>

using ACHAR = wchar_t; // every text of the API is wide
using ACRX_T_CHAR = wchar_t;
#ifndef ACRX_T
#define ACRX_T(x) L##x
#endif
#ifndef _T
#define _T(x) L##x
#endif

namespace Adesk {
using Boolean = bool;
using Int8 = std::int8_t;
using Int16 = std::int16_t;
using Int32 = std::int32_t;
using Int64 = std::int64_t;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UInt64 = std::uint64_t;
using IntDbId = std::intptr_t;
constexpr bool kTrue = true;
constexpr bool kFalse = false;
} // namespace Adesk

namespace Acad {
// The numbers are part of the API: modules compare and print them.
enum ErrorStatus {
    eOk = 0,
    eNotImplementedYet = 1,
    eNotApplicable = 2,
    eInvalidInput = 3,
    eAmbiguousInput = 4,
    eAmbiguousOutput = 5,
    eOutOfMemory = 6,
    eBufferTooSmall = 7,
    eInvalidOpenState = 8,
    eHandleExists = 10,
    eNullHandle = 11,
    eBrokenHandle = 12,
    eUnknownHandle = 13,
    eHandleInUse = 14,
    eNullObjectPointer = 15,
    eNullObjectId = 16,
    eNullBlockName = 17,
    eContainerNotEmpty = 18,
    eNullEntityPointer = 19,
    eIllegalEntityType = 20,
    eKeyNotFound = 21,
    eDuplicateKey = 22,
    eDuplicateIndex = 23,
    eInvalidIndex = 24,
    eEndOfObject = 25,
    eOutOfRange = 26,
    eInvalidKey = 27,
    eInvalidExtents = 28,
    eWrongObjectType = 29,
    eWrongDatabase = 30,
    eNoDatabase = 31,
    eNotInDatabase = 32,
    eDegenerateGeometry = 33,
    eNullPtr = 34,
    eInvalidDwgVersion = 35,
    eDwgNeedsRecovery = 36,
    eFilerError = 37,
    eFileAccessErr = 38,
    eFileNotFound = 39,
    eFileSharingViolation = 40,
    eDwgCRCDoesNotMatch = 41,
    eDwgObjectImproperlyRead = 42,
    eCannotScaleNonUniformly = 43,
    eCannotExplodeEntity = 44,
    eNotThatKindOfClass = 45,
    eWasOpenForRead = 46,
    eWasOpenForWrite = 47,
    eWasOpenForNotify = 48,
    eWasErased = 49,
    eAtMaxReaders = 50,
    eNotOpenForRead = 51,
    eNotOpenForWrite = 52,
    eObjectToBeDeleted = 53,
    eIsWriteProtected = 54,
    eWasNotifying = 55,
    eAlreadyInDb = 56,
    eIteratorDone = 57,
    eUserBreak = 58,
    eMissingSymbolTableRec = 59,
    eUndefinedLineType = 60,
    eBadLinetypeFile = 61,
    eSelfReference = 62,
    eOnLockedLayer = 63,
    eMakeMeProxy = 301,
};
} // namespace Acad

// The code's name, such as L"eKeyNotFound". Never null; static storage.
const ACHAR* acadErrorStatusText(Acad::ErrorStatus es);

namespace AcRx {
// A host may send codes that are not listed; a module answers them with kRetOK.
enum AppMsgCode : int {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
};
enum AppRetCode { kRetOK = 0, kRetError = 3 };
} // namespace AcRx

namespace AcDb {
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
// Drawing format versions as a class registers them.
enum AcDbDwgVersion { kDHL_1012 = 21, kDHL_1013 = 22, kDHL_1014 = 23, kDHL_1015 = 29, kDHL_1800a = 30, kDHL_1021 = 31 };
constexpr int kMReleaseCurrent = 125;
} // namespace AcDb
