// Libraries that are looked up at run time by name. This host loads no foreign ones: a layer offers
// its own functions under the file name and the function names that programs ask for.
#pragma once

#include "WinTypes.h"

#include <utility>
#include <vector>

using HMODULE = void*;
using FARPROC = void (*)(); // cast to the function's own type before it is called

constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
constexpr DWORD ERROR_PROC_NOT_FOUND = 127;

// name: a file name without regard to case, ".dll" may be left out, folders before it are ignored.
// Null with ERROR_MOD_NOT_FOUND where no layer offers it.
HMODULE LoadLibraryW(LPCWSTR name);
HMODULE GetModuleHandleW(LPCWSTR name); // the same; null as the name gives null
BOOL FreeLibrary(HMODULE library);      // what is offered stays; FALSE for null
// The name as the library spells it. Null with ERROR_PROC_NOT_FOUND.
FARPROC GetProcAddress(HMODULE library, const char* name);

// Offers functions under a library's file name ("odbccp32.dll"); kept to the program's end.
void winOfferLibrary(LPCWSTR fileName, std::vector<std::pair<const char*, FARPROC>> functions);
