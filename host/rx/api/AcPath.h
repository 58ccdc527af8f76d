// Host paths and the file system: drawings, settings and exchange files keep paths as they come from
// Windows (backslashes, any case); they are mapped to this machine's files at the last moment.
#pragma once

#include "AcAdesk.h"

#include <string>
#include <string_view>

// The file-system path (UTF-8) of a host path: backslashes become slashes, and where the exact name is
// absent each part is looked for without regard to case. A path that names nothing comes back
// with slashes and its existing folders found, so that it can be created.
std::string acFileSystemPath(std::wstring_view hostPath);
// The host's spelling of a file-system path: slashes become backslashes.
std::wstring acHostPath(std::string_view fileSystemPath);
// The part of a host path behind its last slash of either kind; the whole where there is none.
std::wstring acFileName(std::wstring_view hostPath);
// Waits until the names in the folder of that file are on the disk: behind a rename, the file under
// its new name. A folder that cannot be opened is left alone; only the name may then come late.
void acSyncFolderOf(const std::string& fileSystemPath);
