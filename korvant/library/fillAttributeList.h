// The attribute lists of library folders: the names, default values and choices of the user
// parameters that the blocks of a folder have.
#pragma once

#include "AcAdesk.h"

#include <functional>
#include <string>

class CListCtrlEd;

// The value that the block in view holds under a name; empty text where it has none.
using AttributeLookup = std::function<std::wstring(const ACHAR* name)>;

// Adds a row for each attribute of the file to the list; the row shows the block's own value or
// else the default one. A missing or broken file adds nothing.
void fillAttributeList(CListCtrlEd& list, const std::wstring& path, const AttributeLookup& stored);

// The rows of the library's own "attributes.xml", then those of the folder that the block's file
// lies in. blockFile: path relative to baseFolder.
void fillAttributeLists(CListCtrlEd& list, const std::wstring& baseFolder, const std::wstring& blockFile,
                        const AttributeLookup& stored);
