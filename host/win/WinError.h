// The reason of the last failure, from the system's error number.
#pragma once

#include "WinFiles.h"

#include <string>

// Sets GetLastError from errno; ENOENT is told apart by whether the parent folder stands.
void winSetErrorFor(const std::string& fileSystemPath, int errorNumber);
// The file-system path of a host path without backslashes at its end.
std::string winFileSystemPath(LPCWSTR path);
