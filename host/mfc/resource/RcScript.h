// A resource script as data: dialog templates, strings, pictures, symbols. Knows no toolkit.
#pragma once

#include "WinTypes.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct RcControl {
    std::wstring className; // Button, Static, Edit, ComboBox, ListBox, SysListView32 ...; or the program's own
    std::wstring text;
    int id = -1;
    DWORD style = 0;
    int x = 0, y = 0, w = 0, h = 0; // dialog units
};
struct RcDialog {
    std::wstring key;
    std::wstring caption;
    std::wstring fontFamily;
    int fontSize = 8; // points
    DWORD style = 0;
    int w = 0, h = 0; // dialog units of the client area
    std::vector<RcControl> controls;
};
// A picture: the name of a file, or its rows in the XPM form ("width height colours chars",
// the colours, the rows), which keeps small pictures readable and in the script.
struct RcPicture {
    std::wstring file;
    std::vector<std::string> rows;
};
// A name that is no symbol keeps its text; a number is kept as decimal text.
struct RcScript {
    std::map<std::wstring, RcDialog> dialogs;
    std::map<int, std::wstring> strings;
    std::map<std::wstring, RcPicture> pictures;
    std::map<std::wstring, int> symbols;
};
struct RcError {
    int line = 0; // 1 is the first; 0: no error
    std::wstring reason;
};

// Reads a script in UTF-8. On an error the script holds what came before it.
RcError rcRead(std::string_view utf8, RcScript& script);
std::wstring rcKey(int id);
