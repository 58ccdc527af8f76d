// The names of window styles and of the standard ids, as resource scripts write them.
#pragma once

#include "WinTypes.h"

#include <optional>
#include <string>

std::optional<DWORD> rcStyle(const std::wstring& name);
std::optional<int> rcStandardId(const std::wstring& name);
const wchar_t* rcStandardName(int id); // null where the id is no standard one
