// Library drawings become anonymous blocks of the working drawing, once per file and version of
// the file; TRFC_BLOCK_TEMPLATE remembers which block came from which file.
#pragma once

#include "AcDbDatabase.h"

#include <string>

inline constexpr const ACHAR* TRFC_BLOCK_TEMPLATE = L"TRFC_BLOCK_TEMPLATE";

// Names one loaded library block. Copied by value; the texts live as long as the process.
struct S_BLOCK_DESCRIPTOR {
    const ACHAR* blockKey = L"";  // relative path with each backslash replaced by an underscore
    const ACHAR* blockFile = L""; // path relative to the library root
    const ACHAR* fileStamp = L""; // length and last write time of the file
    AcDbObjectId blockId;         // the block definition in the working drawing, or null
};
// A text that lives as long as the process; equal texts share one copy.
const ACHAR* internText(const std::wstring& text);

// The type of a report line that belongs to no object; its id is a name and no handle.
inline constexpr const ACHAR* kReportWithoutObject = L"$$$";
// Receives the report lines of a long job; implemented by its progress window.
class TrfcTaskReport {
public:
    virtual ~TrfcTaskReport() = default;
    virtual void addReport(const std::wstring& objectType, const std::wstring& description, const std::wstring& id) = 0;
};

// The path of a library's file; empty where the library is not set, since "\\" alone would be the root folder.
std::wstring libraryFilePath(const std::wstring& folder, const std::wstring& file);
// A descriptor without a block; length and time stay empty when the file is missing.
S_BLOCK_DESCRIPTOR describeBlockFile(const std::wstring& folder, const std::wstring& file);
// The descriptor with its block. A missing file is told on the command line, and the symbol
// TrfcBlockNotFound.dwg stands in its place. Null block id only when that is missing or unreadable too.
S_BLOCK_DESCRIPTOR loadBlockTemplate(const std::wstring& folder, const std::wstring& file, TrfcTaskReport* report = nullptr);

enum TrfcBuiltInBlock {
    kBlockSelect = 0,
    kTableEliminate = 1,
    kTableCovered = 2,
    kPostBaseExisting = 3,
    kPostBasePlanned = 4,
    kPostBaseEliminate = 5,
    kPostBaseAlien = 6,
};
// Null for an index outside 0 to 6.
AcDbObjectId builtInBlockId(int index);
// What was by layer in the drawing becomes by block, so that it takes the properties of what draws it.
void prepareTemplateDatabase(AcDbDatabase& side);
