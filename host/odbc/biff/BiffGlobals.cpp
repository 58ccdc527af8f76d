#include "BiffGlobals.h"

#include "BiffBytes.h"

#include <string_view>

namespace odbc::biff {

namespace {
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

constexpr U16 kBoldFont = 5; // the fifth font: no font has the number 4
constexpr U16 kDateTime = 22, kAsText = kTextFormat, kTwoDecimals = 4; // numbers of built-in formats

void appendFirstRecords(std::string& out, std::size_t sheets) {
    appendRecord(out, Record::InterfaceHdr, {kUnicodePage});
    appendRecord(out, Record::Mms, {0});
    appendRecord(out, Record::InterfaceEnd);
    std::string user(112, ' '); // a name of one blank; the rest of the field is unused
    user[0] = 1;
    user[1] = user[2] = 0;
    appendRecord(out, Record::WriteAccess, user);
    appendRecord(out, Record::CodePage, {kUnicodePage});
    appendRecord(out, Record::Dsf, {0});
    std::string ids;
    for (std::size_t i = 1; i <= sheets; ++i)
        append(ids, static_cast<U16>(i));
    appendRecord(out, Record::RrTabId, ids);
    for (const Record id : {Record::WinProtect, Record::Protect, Record::Password, Record::Prot4Rev, Record::Prot4RevPass})
        appendRecord(out, id, {0});
    // Place and size of the window in twips, scroll bars and tabs shown, the first sheet in front.
    appendRecord(out, Record::Window1, {480, 90, 16335, 10830, 0x0038, 0, 0, 1, 600});
    appendRecord(out, Record::Backup, {0});
    appendRecord(out, Record::HideObj, {0});
    appendRecord(out, Record::Date1904, {0});
    appendRecord(out, Record::CalcPrecision, {1});
    appendRecord(out, Record::RefreshAll, {0});
    appendRecord(out, Record::BookBool, {0});
}

void appendFont(std::string& out, U16 weight) {
    std::string body;
    for (const U16 word : {U16{200}, U16{0}, U16{0x7FFF}, weight, U16{0}}) // 10 points, automatic colour
        append(body, word);
    for (const U8 byte : {U8{0}, U8{2}, U8{238}, U8{0}}) // no underline, sans serif, Central European
        append(body, byte);
    append(body, U8{5});
    appendString(body, u"Arial");
    appendRecord(out, Record::Font, body);
}

// The eight currency formats, which a workbook defines for itself, and those of columns.
void appendFormats(std::string& out) {
    const auto format = [&](U16 number, std::u16string_view text) {
        std::string body;
        append(body, number);
        append(body, static_cast<U16>(text.size()));
        appendString(body, text);
        appendRecord(out, Record::Format, body);
    };
    format(5, u"#,##0\\ \"Ft\";\\-#,##0\\ \"Ft\"");
    format(6, u"#,##0\\ \"Ft\";[Red]\\-#,##0\\ \"Ft\"");
    format(7, u"#,##0.00\\ \"Ft\";\\-#,##0.00\\ \"Ft\"");
    format(8, u"#,##0.00\\ \"Ft\";[Red]\\-#,##0.00\\ \"Ft\"");
    format(42, u"_-* #,##0\\ \"Ft\"_-;\\-* #,##0\\ \"Ft\"_-;_-* \"-\"\\ \"Ft\"_-;_-@_-");
    format(41, u"_-* #,##0\\ _F_t_-;\\-* #,##0\\ _F_t_-;_-* \"-\"\\ _F_t_-;_-@_-");
    format(44, u"_-* #,##0.00\\ \"Ft\"_-;\\-* #,##0.00\\ \"Ft\"_-;_-* \"-\"??\\ \"Ft\"_-;_-@_-");
    format(43, u"_-* #,##0.00\\ _F_t_-;\\-* #,##0.00\\ _F_t_-;_-* \"-\"??\\ _F_t_-;_-@_-");
    format(kNumberFormat, kNumberFormatText);
    format(kLogicalFormat, kLogicalFormatText);
    format(kMemoFormat, kMemoFormatText);
}

// `own` are the bits of what the format sets for itself instead of taking it from its parent.
void appendXf(std::string& out, U16 font, U16 format, U16 typeAndParent, U8 own) {
    constexpr U8 kBottom = 0x20;
    constexpr U16 kNoPatternColours = 0x20C0;
    appendRecord(out, Record::Xf, font, format, typeAndParent, kBottom, U8{0}, U8{0}, own, U32{0}, U32{0}, kNoPatternColours);
}

void appendCellFormats(std::string& out) {
    constexpr U16 kStyle = 0xFFF5, kCell = 0x0001; // a style has no parent, a cell's parent is style 0
    constexpr U8 kOwnNumber = 0x04, kOwnFont = 0x08;
    appendXf(out, 0, 0, kStyle, 0);
    for (U16 level = 1; level < 15; ++level) // the outline styles: two each of the first four rows and columns
        appendXf(out, level < 3 ? 1 : level < 5 ? 2 : 0, 0, kStyle, 0xF4);
    appendXf(out, 0, 0, kCell, 0);                       // CellFormat::General
    appendXf(out, kBoldFont, kAsText, kCell, kOwnNumber | kOwnFont); // Heading
    appendXf(out, 0, kAsText, kCell, kOwnNumber);        // Text
    appendXf(out, 0, kDateTime, kCell, kOwnNumber);      // Date
    appendXf(out, 0, kTwoDecimals, kCell, kOwnNumber);   // Money
    appendXf(out, 0, kNumberFormat, kCell, kOwnNumber);  // NumberColumn
    appendXf(out, 0, kLogicalFormat, kCell, kOwnNumber); // LogicalColumn
    appendXf(out, 0, kMemoFormat, kCell, kOwnNumber);    // MemoColumn
    appendRecord(out, Record::Style, U16{0x8000}, U8{0}, U8{0xFF}); // format 0 is the style Normal
}
} // namespace

void appendBof(std::string& out, std::uint16_t substream) {
    constexpr U16 kBuild = 0x0DBB, kYear = 1996;
    constexpr U32 kWindows = 0x09, kLowestVersion = 6;
    appendRecord(out, Record::Bof, kVersion8, substream, kBuild, kYear, kWindows, kLowestVersion);
}

std::string globals(const std::vector<std::u16string>& sheetNames, const Strings& strings, std::vector<std::size_t>& places) {
    std::string out;
    out.reserve(4096 + strings.bytes() * 2);
    appendBof(out, static_cast<U16>(Substream::Globals));
    appendFirstRecords(out, sheetNames.size());
    for (const U16 weight : {U16{400}, U16{400}, U16{400}, U16{400}, U16{700}})
        appendFont(out, weight);
    appendFormats(out);
    appendCellFormats(out);
    appendRecord(out, Record::UsesElfs, {0});
    places.clear();
    for (const std::u16string& name : sheetNames) {
        std::string body;
        append(body, U32{0}); // the place, patched later
        append(body, U16{0}); // a visible worksheet
        append(body, static_cast<U8>(name.size()));
        appendString(body, name);
        places.push_back(out.size() + 4);
        appendRecord(out, Record::BoundSheet, body);
    }
    appendRecord(out, Record::Country, {1, 36}); // formats are named in English, the user's are Hungarian
    strings.write(out);
    appendRecord(out, Record::Eof);
    return out;
}

} // namespace odbc::biff
