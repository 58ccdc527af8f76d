// What every record holds before its class's own fields: handle, extended data, and of an entity its
// proxy graphics, place, colour and line. Read from and written to bits; handles are plain numbers here.
#pragma once

#include "DwgBits.h"

struct DwgExtendedItem {
    Adesk::UInt64 application = 0;
    std::vector<Adesk::UInt8> bytes; // packed values, see DwgXdata
    bool operator==(const DwgExtendedItem&) const = default;
};

struct DwgCommonData {
    enum EntityMode { kHasOwner = 0, kPaperSpace = 1, kModelSpace = 2 };
    enum LineTypeFlags { kByLayer = 0, kByBlock = 1, kContinuous = 2, kByHandle = 3 };

    int type = 0;
    bool isEntity = false;
    Adesk::UInt64 handle = 0;
    std::vector<DwgExtendedItem> extended;
    bool hasGraphics = false;
    std::vector<Adesk::UInt8> graphics;
    unsigned entityMode = kModelSpace;
    bool noLinks = true; // the neighbours in the block have the handles one below and one above
    Adesk::Int16 color = 256;
    double lineTypeScale = 1.0;
    unsigned lineTypeFlags = kByLayer, plotStyleFlags = kByLayer;
    Adesk::Int16 invisible = 0;
    Adesk::UInt8 lineWeight = 29; // the file's own number, see dwgLineWeight

    Adesk::UInt64 owner = 0;
    std::vector<Adesk::UInt64> reactors;
    Adesk::UInt64 dictionary = 0; // the extension dictionary
    Adesk::UInt64 previous = 0, next = 0;
    Adesk::UInt64 layer = 0, lineType = 0, plotStyle = 0;

    bool operator==(const DwgCommonData&) const = default;
};

// Where the parts of a record's bits lie.
struct DwgRecordLayout {
    std::size_t dataEnd = 0;   // bit at which the handles begin
    std::size_t fields = 0;    // first bit of the class's own fields
    std::size_t handles = 0;   // first bit of the class's own handles
};

// Numbers of record types (Open Design description of DWG, chapter "Object types").
bool dwgIsEntityType(int type); // of a built-in type
const wchar_t* dwgTypeName(int type); // such as DIMENSION_ALIGNED; empty for an unknown number

// Reads the head of a record; `isEntity` is asked for types from 500 on. False when the bits make no sense.
bool dwgReadCommon(DwgBitReader bits, bool (*isEntityClass)(const void*, int), const void* context, DwgCommonData& data, DwgRecordLayout& layout);
// Writes the head. The size in bits is left 0; its place comes back, for DwgBitWriter::patchRL.
std::size_t dwgWriteCommon(DwgBitWriter& data, DwgBitWriter& handles, const DwgCommonData& common);

// Line weights: the file holds a number of a list, the API hundredths of a millimetre.
int dwgLineWeight(unsigned fileNumber);
unsigned dwgLineWeightNumber(int weight);
