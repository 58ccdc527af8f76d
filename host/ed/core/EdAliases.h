// Short names that CAD users type.
#pragma once

#include <string>

// The command an alias stands for; empty where it is none.
std::wstring edAliasOf(const std::wstring& word);
