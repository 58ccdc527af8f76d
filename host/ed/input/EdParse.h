// Reading of what a user types: numbers, points, keywords, parenthesised forms. Knows no state,
// trusts nothing.
#pragma once

#include "AcGe.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A decimal number, all of the text; nothing for anything else, infinities included.
std::optional<double> edParseReal(std::wstring_view text);
std::optional<int> edParseInt(std::wstring_view text);
// x,y  x,y,z  @dx,dy  @dx,dy,dz  @d<angle  d<angle  @ (the last point itself); angles in degrees.
std::optional<AcGePoint3d> edParsePoint(std::wstring_view text, const AcGePoint3d& last);

// The words of a prompt: L"Open Close eXit". Capitals are the part that must be typed. From a
// word with an underscore on, the words are the answers of those before it, in order.
struct EdKeyword {
    std::wstring shown, answer;
};
std::vector<EdKeyword> edParseKeywords(std::wstring_view list);
// The answer of the word that the text stands for (any case, a leading underscore allowed); its index too.
std::optional<std::wstring> edMatchKeyword(const std::vector<EdKeyword>& words, std::wstring_view text, int* index = nullptr);

// The first answer of a typed line and the rest: blanks part answers, a parenthesised form and a text in
// quotes hold together.
struct EdSplitLine {
    std::wstring first, rest;
};
EdSplitLine edSplitLine(std::wstring_view line);

// A form such as (command "LINE" "0,0" 5 ""): its words. Texts know their escapes \" and \\. Nothing
// for what is no single flat form.
struct EdForm {
    std::wstring head;
    std::vector<std::wstring> items;
};
std::optional<EdForm> edParseForm(std::wstring_view text);

std::wstring edTrim(std::wstring_view text);
std::wstring edUpper(std::wstring_view text);
bool edSameWord(std::wstring_view a, std::wstring_view b); // without regard to case
// Wildcards * and ?, and a comma between alternatives; without regard to case.
bool edMatchesPattern(std::wstring_view text, std::wstring_view pattern);
std::vector<std::wstring> edSplitAt(std::wstring_view text, wchar_t separator);

// A number as a listing shows it: up to `decimals` places, without trailing zeros.
std::wstring edNumber(double value, int decimals = 4);
std::wstring edPointText(const AcGePoint3d& p, int decimals = 4); // x,y or x,y,z where z is not 0
