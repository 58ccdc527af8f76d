#include "EdAliases.h"

#include "input/EdParse.h"

namespace {
constexpr const wchar_t* kAliases[][2] = {
    {L"A", L"ARC"},     {L"AA", L"AREA"},   {L"ATT", L"ATTDEF"}, {L"B", L"BLOCK"},   {L"C", L"CIRCLE"},    {L"COL", L"COLOR"},
    {L"CO", L"COPY"},   {L"CP", L"COPY"},   {L"DI", L"DIST"},    {L"DT", L"TEXT"},   {L"DTEXT", L"TEXT"},  {L"E", L"ERASE"},
    {L"EL", L"ELLIPSE"}, {L"H", L"HATCH"},  {L"BHATCH", L"HATCH"}, {L"I", L"INSERT"}, {L"L", L"LINE"},     {L"LA", L"LAYER"},
    {L"LI", L"LIST"},   {L"LT", L"LINETYPE"}, {L"M", L"MOVE"},   {L"MI", L"MIRROR"}, {L"MT", L"MTEXT"},    {L"T", L"MTEXT"},
    {L"PL", L"PLINE"},  {L"PO", L"POINT"},  {L"PRINT", L"PLOT"}, {L"RE", L"REGEN"},  {L"RO", L"ROTATE"},   {L"SC", L"SCALE"},
    {L"SAVE", L"SAVEAS"}, {L"SET", L"SETVAR"}, {L"SO", L"SOLID"}, {L"SPL", L"SPLINE"}, {L"ST", L"STYLE"},  {L"X", L"EXPLODE"},
    {L"Z", L"ZOOM"},    {L"EXIT", L"QUIT"}, {L"END", L"QUIT"},   {L"DDINSERT", L"INSERT"}, {L"COLOUR", L"COLOR"},
    {L"SWITCH", L"SWITCHWINDOWS"}, {L"SW", L"SWITCHWINDOWS"},
};
} // namespace

std::wstring edAliasOf(const std::wstring& word) {
    for (const auto& row : kAliases)
        if (edSameWord(word, row[0]))
            return row[1];
    return L"";
}
