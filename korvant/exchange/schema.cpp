#include "schema.h"

#include "AcUtText.h"
#include "TrfcDocSettings.h"

#include <algorithm>
#include <iterator>

namespace exchange {

namespace {
// The columns that an object and its scale records share.
constexpr const ACHAR* kObjectPoints =
    L", AX NUMBER, AY NUMBER, BX NUMBER, BY NUMBER, CX NUMBER, CY NUMBER, DX NUMBER, DY NUMBER, UTIRANY NUMBER";

struct TableRow {
    const ACHAR* name;
    const ACHAR* pieces[3]; // of the CREATE TABLE text
};
constexpr TableRow kTables[] = {
    {L"SETTINGS", {L"CREATE TABLE SETTINGS (NEV TEXT, ERTEK TEXT)", L"", L""}},
    {L"KORVANT_OBJ",
     {L"CREATE TABLE KORVANT_OBJ (ID NUMBER, HANDLE TEXT, OBJ_TIP TEXT", kObjectPoints,
      L", FORG_KOVET TEXT, KULSO_ID NUMBER, MODOSITVA TEXT, RETEG TEXT, TABLA_SZAM NUMBER, LAMPA_SZAM NUMBER)"}},
    {L"KORVANT_OBJ_SCALE",
     {L"CREATE TABLE KORVANT_OBJ_SCALE (ID NUMBER, OBJ_ID NUMBER", kObjectPoints,
      L", VECX NUMBER, VECY NUMBER, E0X NUMBER, E0Y NUMBER, E1X NUMBER, E1Y NUMBER, SZOG NUMBER, TORT TEXT, LEPTEK NUMBER)"}},
    {L"OSZLOP",
     {L"CREATE TABLE OSZLOP (ID NUMBER, OBJ_ID NUMBER, OSZLOP_SZAM NUMBER, OSZLOPEGYEZES NUMBER, OSZLOPE_SZAM NUMBER",
      L", PX NUMBER, PY NUMBER, SZELESSEG NUMBER, MAGASSAG NUMBER, ELFORG NUMBER",
      L", KIHELY_TIP TEXT, ANYAG TEXT, HOSSZ NUMBER, KONYVTAR_TIP1 TEXT, KONYVTAR_TIP2 TEXT)"}},
    {L"OSZLOP_FELIRAT",
     {L"CREATE TABLE OSZLOP_FELIRAT (ID NUMBER, OSZLOP_ID NUMBER, ERTEK TEXT, AX NUMBER, AY NUMBER, BX NUMBER, BY NUMBER, CX NUMBER, CY NUMBER, FX NUMBER, FY NUMBER",
      L", FONT TEXT, MERET NUMBER, ELFORG NUMBER)", L""}},
    {L"OSZLOP_ATTRIBUTUM", {L"CREATE TABLE OSZLOP_ATTRIBUTUM (ID NUMBER, OSZLOP_ID NUMBER, NEV TEXT, ERTEK TEXT)", L"", L""}},
    {L"TABLA",
     {L"CREATE TABLE TABLA (ID NUMBER, OBJ_ID NUMBER, TIPUS TEXT, CSOPORT NUMBER, SORSZAM NUMBER, KIEG_SORSZAM NUMBER, KONYVTAR_TIP1 TEXT, KONYVTAR_TIP2 TEXT",
      L", PX NUMBER, PY NUMBER, ELTOLAS NUMBER, SZELESSEG NUMBER, MAGASSAG NUMBER, ELFORG NUMBER, LEPTEK NUMBER", L", KIHELY_TIP TEXT)"}},
    {L"BLOKK",
     {L"CREATE TABLE BLOKK (ID NUMBER, HANDLE TEXT, KONYVTAR_TIP1 TEXT, KONYVTAR_TIP2 TEXT, PX NUMBER, PY NUMBER, SZELESSEG NUMBER, MAGASSAG NUMBER, ELFORG NUMBER, KULSO_ID NUMBER, MODOSITVA TEXT, RETEG TEXT, KIHELY_TIP TEXT)",
      L"", L""}},
    {L"FELIRAT",
     {L"CREATE TABLE FELIRAT (ID NUMBER, TABLA_ID NUMBER, NEV TEXT, ERTEK TEXT, PX NUMBER, PY NUMBER, FONT TEXT, IGAZITAS TEXT, MERET NUMBER, ELFORG NUMBER)",
      L"", L""}},
    {L"ATTRIBUTUM", {L"CREATE TABLE ATTRIBUTUM (ID NUMBER, TABLA_ID NUMBER, NEV TEXT, ERTEK TEXT)", L"", L""}},
    {L"BLOKK_ATTRIBUTUM", {L"CREATE TABLE BLOKK_ATTRIBUTUM (ID NUMBER, BLOKK_ID NUMBER, NEV TEXT, ERTEK TEXT)", L"", L""}},
    {L"BLOKK_FELIRAT",
     {L"CREATE TABLE BLOKK_FELIRAT (ID NUMBER, BLOKK_ID NUMBER, NEV TEXT, ERTEK TEXT, PX NUMBER, PY NUMBER, FONT TEXT, IGAZITAS TEXT, MERET NUMBER, ELFORG NUMBER)",
      L"", L""}},
    {L"ZEBRA",
     {L"CREATE TABLE ZEBRA (ID NUMBER, TIPUS NUMBER, HOSSZ NUMBER, SZELESSEG NUMBER, BX NUMBER, BY NUMBER, ELFORG NUMBER, KULSO_ID NUMBER)", L"", L""}},
    {L"ZEBRA_ELEMEK", {L"CREATE TABLE ZEBRA_ELEMEK (ID NUMBER, ZEBRA_ID NUMBER, HANDLE TEXT)", L"", L""}},
    {L"ZEBRA_PONTOK", {L"CREATE TABLE ZEBRA_PONTOK (ID NUMBER, ELEM_ID NUMBER, PX NUMBER, PY NUMBER)", L"", L""}},
    {L"GYALOGATKELO",
     {L"CREATE TABLE GYALOGATKELO (ID NUMBER, HANDLE TEXT, KIHELY_TIP TEXT, HOSSZ NUMBER, SZELESSEG NUMBER, AX NUMBER, AY NUMBER, BX NUMBER, BY NUMBER, CX NUMBER, CY NUMBER, EX NUMBER, EY NUMBER, ELFORG NUMBER, RETEG TEXT, TERULET NUMBER, MODOSITVA TEXT, KULSO_ID NUMBER, KEREKPAROS TEXT)",
      L"", L""}},
    {L"GYALOGATKELO_ELEMEK", {L"CREATE TABLE GYALOGATKELO_ELEMEK (ID NUMBER, GYALOGATKELO_ID NUMBER, ELEM_TERULET NUMBER)", L"", L""}},
    {L"GYALOGATKELO_PONTOK",
     {L"CREATE TABLE GYALOGATKELO_PONTOK (ID NUMBER, ELEM_ID NUMBER, GYALOGATKELO_ID NUMBER, PX NUMBER, PY NUMBER)", L"", L""}},
};

constexpr const ACHAR* kVersionsWithoutCrossings[] = {L"8.0.0", L"8.1.0", L"8.2.0", L"8.3.0", L"8.4.0", L"9.0.0", L"9.1.0", L"9.2.0",
                                                      L"9.3.0", L"9.4.0", L"9.5.0", L"9.6.0", L"9.7.0", L"9.8.0", L"9.9.0"};

constexpr const ACHAR* kStateWords[] = {L"meglévő", L"tervezett", L"megszüntetendő", L"letakart"};
constexpr const ACHAR* kPairTypeWords[] = {L"portál", L"nagy benyúlású", L"konzol"};
constexpr const ACHAR* kAlignmentWords[] = {L"left", L"center", L"right", L"align", L"mid", L"fit"};

template <std::size_t size> const ACHAR* wordOf(const ACHAR* const (&words)[size], int value) {
    return value >= 0 && value < static_cast<int>(size) ? words[value] : L"";
}
template <std::size_t size> int valueOf(const ACHAR* const (&words)[size], std::wstring_view word, int none) {
    const auto found = std::find(std::begin(words), std::end(words), word);
    return found == std::end(words) ? none : static_cast<int>(found - words);
}
} // namespace

bool isMdbPath(const std::wstring& path) {
    return path.size() >= 4 && acutWcsicmp(path.c_str() + path.size() - 4, L".mdb") == 0;
}

std::wstring twinPath(const std::wstring& mdbPath) { return mdbPath.substr(0, mdbPath.size() - std::min<std::size_t>(3, mdbPath.size())) + L"xls"; }

const std::vector<Table>& tables() {
    static const std::vector<Table> all = [] {
        std::vector<Table> made;
        for (const TableRow& row : kTables)
            made.push_back({row.name, std::wstring(row.pieces[0]) + row.pieces[1] + row.pieces[2]});
        return made;
    }();
    return all;
}

bool isVersionWithoutCrossings(std::wstring_view version) {
    return std::find(std::begin(kVersionsWithoutCrossings), std::end(kVersionsWithoutCrossings), version) != std::end(kVersionsWithoutCrossings);
}

const ACHAR* stateWord(int state) { return wordOf(kStateWords, state); }
int stateOfWord(std::wstring_view word) { return valueOf(kStateWords, word, 0); }
const ACHAR* pairTypeWord(int type) { return wordOf(kPairTypeWords, type); }
int pairTypeOfWord(std::wstring_view word) { return valueOf(kPairTypeWords, word, -1); }
const ACHAR* yesNoWord(bool value) { return value ? L"igen" : L"nem"; }
bool isYesWord(std::wstring_view word) { return word == L"igen"; }
const ACHAR* alignmentWord(int mode) { return wordOf(kAlignmentWords, mode); }

std::wstring integerValue(int value) { return acFormat(L"%d", value); }

std::wstring realValue(double value) {
    std::wstring text = acFormat(L"%f", value);
    std::replace(text.begin(), text.end(), L',', L'.');
    return text;
}

std::wstring textValue(const std::wstring& text) { return L"'" + text + L"'"; }

std::wstring handleText(AcDbHandle handle) { return handle.text(); }

LibraryPath LibraryPath::split(const std::wstring& path) {
    const std::size_t cut = path.rfind(L'\\');
    if (cut == std::wstring::npos)
        return {{}, path};
    return {path.substr(0, cut), path.substr(cut + 1)};
}

} // namespace exchange
