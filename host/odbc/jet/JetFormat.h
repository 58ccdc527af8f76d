// The figures of the Jet file format that the writer, the reader and the checker all stand on.
// Sources: HACKING.md of the mdbtools project (prose), and what was observed in databases that
// Access 2000 and 2007 had saved. All numbers in a file are little-endian, but for index keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace odbc::jet {

inline constexpr std::size_t kPageSize = 4096; // Jet 4; 2048 in Jet 3

enum class PageType : std::uint8_t { Header = 0, Data = 1, Definition = 2, IndexNode = 3, IndexLeaf = 4, Bitmap = 5 };

enum class ColumnType : std::uint8_t {
    Bool = 1,
    Byte,
    Short,
    Long,
    Currency,
    Single,
    Double,
    Date,
    Binary,
    Text,
    Ole,
    Memo,
    Guid = 15,
    Numeric = 16
};

namespace columnbit {
inline constexpr std::uint8_t kFixed = 0x01; // lies in the fixed part of the row
inline constexpr std::uint8_t kNullable = 0x02;
inline constexpr std::uint8_t kSystem = 0x10;
inline constexpr std::uint8_t kMasked = 0x20;     // the two columns that hold security identifiers
inline constexpr std::uint8_t kCompressed = 0x01; // in the second byte: compressed Unicode allowed
} // namespace columnbit

// Page 0.
namespace header {
inline constexpr std::size_t kVersion = 0x14; // 0 Jet 3, 1 Jet 4
inline constexpr std::size_t kMasked = 0x18, kMaskedSize = 128, kMaskedSizeJet3 = 126;
inline constexpr std::size_t kMapPointer = 0x18; // of the map of free pages: page 1, row 0
inline constexpr std::size_t kSortOrderJet3 = 0x3A;
inline constexpr std::size_t kCodePage = 0x3C;
inline constexpr std::size_t kKey = 0x3E; // 4 bytes, not zero in an encrypted file
inline constexpr std::size_t kPassword = 0x42, kPasswordSize = 40, kPasswordSizeJet3 = 20;
inline constexpr std::size_t kEngineBuild = 0x6A;
inline constexpr std::size_t kSortOrder = 0x6E; // Jet 4
inline constexpr std::size_t kCreated = 0x72;   // a date as a double; its whole days mask the password
// Two bytes for each of 256 users, 0x0100 at rest; 0 means that the user died while writing, and
// Access then calls the file damaged.
inline constexpr std::size_t kCommitBytes = 0xE00, kCommitCount = 256;
inline constexpr std::uint16_t kCommitAtRest = 0x0100;
} // namespace header

// Masks or unmasks the part of page 0 from 0x18 on (the mask is its own inverse).
void maskHeader(std::span<std::uint8_t> page, std::size_t maskedSize);

// A data page: header, one 2-byte offset a row, rows from the end of the page downward.
namespace data {
inline constexpr std::size_t kFree = 2, kOwner = 4, kRowCount = 12, kRows = 14;
inline constexpr std::size_t kRowCountJet3 = 8, kRowsJet3 = 10;
inline constexpr std::uint16_t kDeleted = 0x8000;  // deleted, or the far end of an overflow
inline constexpr std::uint16_t kOverflow = 0x4000; // holds the pointer to where the row went
inline constexpr std::uint16_t kOffset = 0x1FFF;
inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C; // "LVAL"
inline constexpr std::size_t kMaxRows = 255;                 // a row number is one byte
inline constexpr std::size_t kMaxRow = 4060;                 // what Access allows a row to be
} // namespace data

// A table definition, Jet 4 (offsets from the start of the first page).
namespace definition {
inline constexpr std::size_t kFree = 2, kNext = 4, kLength = 8, kMark = 12, kRowCount = 16, kAutonumberFlag = 24;
inline constexpr std::size_t kTableType = 40, kMaxColumns = 41, kVariableColumns = 43, kColumns = 45;
inline constexpr std::size_t kIndexes = 47, kRealIndexes = 51, kUsedMap = 55, kFreeMap = 59, kBody = 63;
inline constexpr std::size_t kPageHeader = 8; // of every page of the definition
inline constexpr std::size_t kIndexCountSize = 12, kColumnSize = 25, kRealIndexSize = 52, kIndexSize = 28;
inline constexpr std::uint32_t kMarkValue = 1625;      // stands in the definition, its columns and its indexes
inline constexpr std::uint32_t kIndexMarkValue = 1923; // stands in the real indexes
inline constexpr std::uint8_t kUserTable = 0x4E, kSystemTable = 0x53;
inline constexpr std::uint16_t kNoColumn = 0xFFFF;
inline constexpr std::size_t kIndexColumns = 10;
} // namespace definition

// Index pages: a header, a bit mask of where entries begin, then the entries.
namespace index {
inline constexpr std::size_t kFree = 2, kOwner = 4, kPrevious = 12, kNext = 16, kTail = 20, kPrefix = 24;
inline constexpr std::size_t kMask = 27, kEntries = 480, kCapacity = kPageSize - kEntries;
inline constexpr std::uint8_t kAscendingValue = 0x7F, kAscendingNull = 0x00;
inline constexpr std::uint8_t kUnique = 0x01, kIgnoreNulls = 0x02, kRequired = 0x08, kAlways = 0x80;
} // namespace index

// Usage maps: rows of 69 bytes in data pages, holding bits or pointers to pages of bits.
namespace usage {
inline constexpr std::size_t kRowSize = 69, kInlineBytes = 64, kInlinePages = 512;
inline constexpr std::size_t kReferences = 17, kBitmapHeader = 4;
inline constexpr std::size_t kPagesPerBitmap = (kPageSize - kBitmapHeader) * 8;
inline constexpr std::uint8_t kInline = 0, kReference = 1;
} // namespace usage

// A long value's twelve bytes in its row.
namespace longvalue {
inline constexpr std::size_t kHeader = 12;
inline constexpr std::uint32_t kInline = 0x80000000, kSinglePage = 0x40000000, kLengthMask = 0x3FFFFFFF;
inline constexpr std::size_t kMaxInline = 64;
inline constexpr std::size_t kMaxRow = 4076;          // of one page
inline constexpr std::size_t kMaxPiece = kMaxRow - 4; // of a chain, whose rows begin with a pointer
} // namespace longvalue

// The catalogue.
inline constexpr std::uint32_t kRootId = 0x0F000000, kTablesId = 0x0F000001, kDatabasesId = 0x0F000002;
inline constexpr std::uint32_t kRelationshipsId = 0x0F000003, kDatabaseObjectId = 0x10000000;
inline constexpr std::uint32_t kObjectsPage = 2, kAcesPage = 3, kQueriesPage = 4, kRelationshipsPage = 5;
inline constexpr std::int16_t kTableObject = 1, kDatabaseObject = 2, kContainerObject = 3;
inline constexpr std::uint32_t kSystemObject = 0x80000000, kSystemObjectOfAccess = 0x00000002;

inline constexpr std::uint16_t kGeneralSortOrder = 1033;
inline constexpr std::size_t kMaxNameLength = 64, kMaxColumns = 255, kMaxTextLength = 255;
inline constexpr std::uint32_t kMaxPages = 0x7FFFFFFF / kPageSize; // 2 GB

inline std::uint16_t get16(const std::uint8_t* at) {
    return static_cast<std::uint16_t>(at[0] | at[1] << 8);
}
inline std::uint32_t get32(const std::uint8_t* at) {
    return get16(at) | static_cast<std::uint32_t>(get16(at + 2)) << 16;
}
inline std::uint64_t get64(const std::uint8_t* at) {
    return get32(at) | static_cast<std::uint64_t>(get32(at + 4)) << 32;
}
inline void put16(std::uint8_t* at, std::size_t value) {
    at[0] = static_cast<std::uint8_t>(value);
    at[1] = static_cast<std::uint8_t>(value >> 8);
}
inline void put32(std::uint8_t* at, std::uint32_t value) {
    put16(at, value & 0xFFFF);
    put16(at + 2, value >> 16);
}
inline void put64(std::uint8_t* at, std::uint64_t value) {
    put32(at, static_cast<std::uint32_t>(value));
    put32(at + 4, static_cast<std::uint32_t>(value >> 32));
}

} // namespace odbc::jet
