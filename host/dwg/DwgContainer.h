// The outer form of an AC1015 file: header with section locators, object map, records with checksums.
#pragma once

#include "DwgBits.h"
#include "DwgError.h"

#include <optional>

struct DwgSection {
    Adesk::UInt32 offset = 0, size = 0;
};
// Numbers of the section locator records (Open Design description of DWG, chapter "R13-R15 DWG file format
// organization").
enum DwgSectionNumber { kDwgHeaderVars = 0, kDwgClasses = 1, kDwgObjectMap = 2, kDwgFreeSpace = 3, kDwgTemplate = 4, kDwgAuxHeader = 5, kDwgSectionCount = 6 };

struct DwgMapEntry {
    Adesk::UInt64 handle = 0;
    Adesk::UInt32 offset = 0;
};
// An object's bits without size and checksum; a view into the file.
struct DwgRecordView {
    Adesk::UInt64 handle = 0;
    const Adesk::UInt8* bytes = nullptr;
    std::size_t size = 0;
};

// A drawing file in memory. load() checks version, locators and the header's checksum; the rest is
// checked where it is read.
class DwgFile {
public:
    bool load(const std::string& fileSystemPath, DwgError& error);
    bool load(std::vector<Adesk::UInt8> bytes, DwgError& error);
    int codePage() const { return mCodePage; }
    int maintenance() const { return mMaintenance; }
    Adesk::UInt32 previewOffset() const { return mPreview; }
    const std::vector<Adesk::UInt8>& bytes() const { return mBytes; }
    const DwgSection& section(DwgSectionNumber number) const { return mSections[number]; }
    // The bits of a section between sentinels, its size and checksum checked and left out.
    std::optional<DwgBitReader> guardedSection(DwgSectionNumber number, const DwgTextCodec* text, const wchar_t* name, DwgError& error) const;
    // All entries of the object map, as they stand.
    bool objectMap(std::vector<DwgMapEntry>& entries, DwgError& error) const;
    // All records in map order, each with its checksum right; no two share bytes to excess.
    bool records(std::vector<DwgRecordView>& records, DwgError& error) const;
    // 0 imperial, 1 metric.
    int measurement() const;
    // A device-independent bitmap; empty when there is none.
    std::vector<Adesk::UInt8> preview() const;

private:
    bool readLocators(DwgError& error);
    bool record(const DwgMapEntry& entry, DwgRecordView& view, DwgError& error) const;
    std::vector<Adesk::UInt8> mBytes;
    int mCodePage = 30, mMaintenance = 0;
    Adesk::UInt32 mPreview = 0;
    DwgSection mSections[kDwgSectionCount];
};

// Sentinels of sixteen bytes; an end sentinel is the begin sentinel with every bit turned.
struct DwgSentinel {
    Adesk::UInt8 bytes[16];
    DwgSentinel inverted() const {
        DwgSentinel other = *this;
        for (Adesk::UInt8& b : other.bytes)
            b = static_cast<Adesk::UInt8>(~b);
        return other;
    }
};
// Open Design description of DWG, at the head of each section's chapter.
inline constexpr DwgSentinel kDwgFileHeaderEnd = {{0x95, 0xA0, 0x4E, 0x28, 0x99, 0x82, 0x1A, 0xE5, 0x5E, 0x41, 0xE0, 0x5F, 0x9D, 0x3A, 0x4D, 0x00}};
inline constexpr DwgSentinel kDwgHeaderVarsBegin = {{0xCF, 0x7B, 0x1F, 0x23, 0xFD, 0xDE, 0x38, 0xA9, 0x5F, 0x7C, 0x68, 0xB8, 0x4E, 0x6D, 0x33, 0x5F}};
inline constexpr DwgSentinel kDwgClassesBegin = {{0x8D, 0xA1, 0xC4, 0xB8, 0xC4, 0xA9, 0xF8, 0xC5, 0xC0, 0xDC, 0xF4, 0x5F, 0xE7, 0xCF, 0xB6, 0x8A}};
inline constexpr DwgSentinel kDwgSecondHeaderBegin = {{0xD4, 0x7B, 0x21, 0xCE, 0x28, 0x93, 0x9F, 0xBF, 0x53, 0x24, 0x40, 0x09, 0x12, 0x3C, 0xAA, 0x01}};
inline constexpr DwgSentinel kDwgPreviewBegin = {{0x1F, 0x25, 0x6D, 0x07, 0xD4, 0x36, 0x28, 0x28, 0x9D, 0x57, 0xCA, 0x3F, 0x9D, 0x44, 0x10, 0x2B}};
