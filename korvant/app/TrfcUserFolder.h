// The per-user folder that holds the two settings files and what was installed beside them.
#pragma once

#include <string>

// Its path with the closing backslash; nothing is made.
std::wstring userFolder();
// Makes the folder when it is absent (not its parent) and copies the six installed files into it
// whenever any one of them is missing. Returns its path with the closing backslash.
std::wstring prepareUserFolder(const std::wstring& installationFolder);
