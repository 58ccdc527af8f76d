// The exchange database: its files, tables, words and the forms of its values, and how it is connected.
// Names, orders and words are an outside format: other programs read and write them as they stand here.
// Every fault of the database is a CDBException*, which the job's outermost handler reports.
#pragma once

#include "AcDbObjectId.h"
#include "CDatabase.h"
#include "CRecordset.h"

#include <string>
#include <string_view>
#include <vector>

namespace exchange {

// ---- files -------------------------------------------------------------------------------------
inline constexpr const ACHAR* kWrongMdbName = L"A fájlnév nem megfelelő. Adjon meg egy .mdb kiterjesztésű fájlnevet!";
bool isMdbPath(const std::wstring& path); // the last four characters, whatever their case
// The workbook beside an .mdb: the path with its last three characters exchanged.
std::wstring twinPath(const std::wstring& mdbPath);

// ---- tables ------------------------------------------------------------------------------------
struct Table {
    const ACHAR* name;
    std::wstring create; // the CREATE TABLE text
};
// In the order in which a new database gets them.
const std::vector<Table>& tables();

// The version that this module writes into SETTINGS.
inline constexpr const ACHAR* kVersion = L"11.0.0";
// True for a version whose databases have no tables of crossings (GYALOGATKELO and its companions).
bool isVersionWithoutCrossings(std::wstring_view version);
// The rows of SETTINGS as statements, in their order, from the settings of the working drawing.
std::vector<std::wstring> settingsStatements();

// ---- words -------------------------------------------------------------------------------------
// The state of an object (TRFC_BLOCK_TYPE and its like): 0 to 3; the last one is of signs and lamps
// alone. A value without a word gives an empty text, and a text that is no word reads as 0.
const ACHAR* stateWord(int state);
int stateOfWord(std::wstring_view word);
inline constexpr const ACHAR* kPostWord = L"oszlop";
inline constexpr const ACHAR* kSignWord = L"tábla";
inline constexpr const ACHAR* kLampWord = L"lámpa";
// The type of a post pair, 0 to 2. Empty for another value; -1 for a text that is no such word.
const ACHAR* pairTypeWord(int type);
int pairTypeOfWord(std::wstring_view word);
const ACHAR* yesNoWord(bool value);
bool isYesWord(std::wstring_view word);
// The horizontal mode of a text: 0 to 5; empty for any other.
const ACHAR* alignmentWord(int mode);

// ---- values in statements ----------------------------------------------------------------------
std::wstring integerValue(int value);
// Six decimals with a point, whatever the user's decimal sign is.
std::wstring realValue(double value);
// Between apostrophes as it stands: one inside is not doubled, and breaks the statement.
std::wstring textValue(const std::wstring& text);
// Upper-case hexadecimal without leading zeros, without apostrophes.
std::wstring handleText(AcDbHandle handle);

// A library path as its two columns hold it: what stands before the last backslash and what behind
// it. A path without one is all file.
struct LibraryPath {
    std::wstring folder, file;
    static LibraryPath split(const std::wstring& path);
    std::wstring joined() const { return folder + L"\\" + file; }
};

// ---- drivers and connections -------------------------------------------------------------------
inline constexpr const ACHAR* kNoExcelDriver = L"Az exportáláshoz Excel ODBC driver szükséges.";
inline constexpr const ACHAR* kNoAccessDriver = L"Az exportáláshoz Access ODBC driver szükséges.";
// The first installed driver whose name has "Excel" or "*.mdb" in it; empty where there is none.
std::wstring findExcelDriver();
std::wstring findAccessDriver();

// Has the Access driver make a new database at the path, or make an existing one known.
void configureNewDatabase(const std::wstring& accessDriver, const std::wstring& mdbPath);
void configureExistingDatabase(const std::wstring& accessDriver);
// FALSE, or a fault, where the file cannot be connected.
BOOL openMdb(CDatabase& database, const std::wstring& accessDriver, const std::wstring& mdbPath);
BOOL openXls(CDatabase& database, const std::wstring& excelDriver, const std::wstring& xlsPath);
// The tables and the rows of SETTINGS of a new database, each statement on both connections.
void createTables(CDatabase& mdb, CDatabase& xls);

// ---- row access --------------------------------------------------------------------------------
// A read-only snapshot of what a SELECT gives, standing on its first row.
void openRows(CRecordset& rows, const std::wstring& select);
// Fields of the current row by name. An empty one is 0 or an empty text; a number is cut toward
// zero where a whole one is asked for. A field read behind the last row throws.
int integerField(const CRecordset& rows, const ACHAR* name);
double realField(const CRecordset& rows, const ACHAR* name);
std::wstring textField(const CRecordset& rows, const ACHAR* name);

} // namespace exchange
