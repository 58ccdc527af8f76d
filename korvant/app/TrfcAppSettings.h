// What the module remembers outside a drawing: the application table (settings.ini) and the
// drawing-defaults table (defaults.ini). Process-wide; main thread only; text keys and values.
#pragma once

#include "TrfcSettings.h"

#include <string>

namespace TrfcAppSettings {
// Folder of the loaded module with its closing backslash; computed once at start by setModuleDirectory.
const std::wstring& moduleDirectory();
// From the module's full path (what acedGetAppName gives), expanded to at most 260 characters.
void setModuleDirectory(const std::wstring& modulePath);
// Prepares the per-user folder (made if absent; the six installed files copied whenever one of
// them is missing) and returns <folder>settings.ini; empty for a user who has no folder.
std::wstring settingsFilePath();
// The per-user folder with its closing backslash; empty for a user who has none.
std::wstring perUserFolder();
// The folder with its closing backslash that the six files are installed in.
std::wstring installationFolder();

// Load clears its table first and leaves it cleared when the file cannot be opened; both apply the
// rules for files of earlier versions.
bool loadAppSettings(const std::wstring& path);
bool saveAppSettings(const std::wstring& path);
bool loadDocDefaults(const std::wstring& path);
bool saveDocDefaults(const std::wstring& path);

// The folder of a library (a key APP_..._BASE_PATH or APP_TEMP_DIR_PATH) as it is to be used: what the settings say,
// or what was found to stand for it. The table keeps what the user set: a share that is not there today must not be
// forgotten when the settings are saved. The reference stays valid as that of getAppString does.
const std::wstring& libraryFolder(const ACHAR* key);
// Finds, once the application table is loaded, for each library folder that is set but gone the running
// installation's own, for this session or until the setting changes. Gives the first such folder, empty for none.
std::wstring substituteAbsentLibraries();

// An absent key reads as empty text and 0, and is in the table from then on. The reference stays
// valid until the table is loaded or cleared.
const std::wstring& getAppString(const ACHAR* key);
Adesk::Int32 getAppInt(const ACHAR* key);
void setAppString(const ACHAR* key, const std::wstring& value);
void setAppInt(const ACHAR* key, Adesk::Int32 value);
const std::wstring& getDocDefault(const ACHAR* key);
void setDocDefault(const ACHAR* key, const std::wstring& value);
void clearDocDefaults();
} // namespace TrfcAppSettings
