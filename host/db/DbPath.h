// Paths as drawings write them (backslashes, any case) and as the file system knows them.
#pragma once

#include <string>

// The file-system path of an existing regular file; a name is tried as given, then without regard
// to case, part by part. Empty when there is none.
std::wstring dbExistingFile(const std::wstring& path);
std::wstring dbHostPath(std::wstring path); // with backslashes
std::wstring dbFolderOf(const std::wstring& path); // without the last separator; empty when there is none
