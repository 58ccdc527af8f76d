// The records and limits of a workbook (BIFF8) that the writer and the reader share. Source: the
// public descriptions MS-XLS and MS-CFB.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace odbc::biff {

constexpr std::size_t kMaxBody = 8224; // bytes of one record; what is longer goes on in CONTINUE
constexpr std::uint32_t kMaxRows = 65536;
constexpr std::uint32_t kMaxColumns = 256;
constexpr std::size_t kMaxSheetName = 31;    // characters
constexpr std::size_t kMaxCellText = 32767;  // characters
constexpr std::size_t kMaxSheets = 4112;     // the list of sheet ids is one record without CONTINUE
constexpr std::uint32_t kRowsOfBlock = 32;   // rows between two DBCELL records
constexpr std::uint16_t kVersion8 = 0x0600;
constexpr std::uint16_t kUnicodePage = 1200; // CODEPAGE of every BIFF8 file

// Number formats that we define for columns, so that a workbook opened again knows the kind of one that is empty. They
// show what the general format shows.
constexpr std::uint16_t kNumberFormat = 164, kLogicalFormat = 165, kMemoFormat = 166;
constexpr std::u16string_view kNumberFormatText = u"General", kLogicalFormatText = u"General;General;General",
                              kMemoFormatText = u"General;General;General;@";
constexpr std::uint16_t kTextFormat = 49; // built in

enum class Substream : std::uint16_t { Globals = 0x0005, Worksheet = 0x0010 };

enum class Record : std::uint16_t {
    Formula = 0x0006, Eof = 0x000A, CalcCount = 0x000C, CalcMode = 0x000D, CalcPrecision = 0x000E, CalcRefMode = 0x000F,
    CalcDelta = 0x0010, CalcIter = 0x0011, Protect = 0x0012, Password = 0x0013, Header = 0x0014, Footer = 0x0015,
    WinProtect = 0x0019, Selection = 0x001D, Date1904 = 0x0022, PrintRowCol = 0x002A, PrintGrid = 0x002B, FilePass = 0x002F,
    Font = 0x0031, Continue = 0x003C, Window1 = 0x003D, Backup = 0x0040, Pane = 0x0041, CodePage = 0x0042, DefColWidth = 0x0055,
    WriteAccess = 0x005C, CalcSaveRecalc = 0x005F, ColInfo = 0x007D, Guts = 0x0080, WsBool = 0x0081, GridSet = 0x0082,
    HCenter = 0x0083, VCenter = 0x0084, BoundSheet = 0x0085, Country = 0x008C, HideObj = 0x008D, Setup = 0x00A1, MulRk = 0x00BD,
    MulBlank = 0x00BE, Mms = 0x00C1, RString = 0x00D6, DbCell = 0x00D7, BookBool = 0x00DA, Xf = 0x00E0, InterfaceHdr = 0x00E1,
    InterfaceEnd = 0x00E2, Sst = 0x00FC, LabelSst = 0x00FD, ExtSst = 0x00FF, RrTabId = 0x013D, UsesElfs = 0x0160, Dsf = 0x0161,
    Prot4Rev = 0x01AF, RefreshAll = 0x01B7, Prot4RevPass = 0x01BC, Dimensions = 0x0200, Blank = 0x0201, Number = 0x0203,
    Label = 0x0204, BoolErr = 0x0205, String = 0x0207, Row = 0x0208, Index = 0x020B, DefaultRowHeight = 0x0225,
    Window2 = 0x023E, Rk = 0x027E, Style = 0x0293, Format = 0x041E, Bof = 0x0809
};

} // namespace odbc::biff
