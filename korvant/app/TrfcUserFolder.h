// The per-user folder that holds the two settings files and what was installed beside them.
#pragma once

#include <string>

// Its path with the closing backslash; nothing is made. Empty where the user has no folder for it.
std::wstring userFolder();
// Why the user has none, as a part of a sentence; null where there is one.
const wchar_t* userFolderFault();
// Makes the folder when it is absent (not its parent) and copies the six installed files into it
// whenever any one of them is missing. Returns its path as userFolder() does.
std::wstring prepareUserFolder(const std::wstring& installationFolder);
