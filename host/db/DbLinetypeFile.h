// Line type files: lines of `*NAME,description` each followed by `A,0.5,-0.25`.
#pragma once

#include <string>
#include <vector>

struct DbLinetypeDefinition {
    std::wstring name, description;
    std::vector<double> dashes; // + dash, - gap, 0 dot
};
// A definition that holds shapes or texts, or no pattern, is left out: it cannot be drawn by dashes alone.
std::vector<DbLinetypeDefinition> dbParseLinetypes(const std::wstring& text);
