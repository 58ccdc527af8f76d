// What the module remembers outside a drawing: the application table (settings.ini) and the
// drawing-defaults table (defaults.ini). Process-wide; main thread only; text keys and values.
#pragma once

#include "AcAdesk.h"

#include <string>

// ---- keys of the application table
inline constexpr const ACHAR* VERSION_NUMBER = L"VERSION_NUMBER";
inline constexpr const ACHAR* DEFAULTS_INI_PATH = L"DEFAULTS_INI_PATH";
inline constexpr const ACHAR* APP_SYMBOL_BASE_PATH = L"APP_SYMBOL_BASE_PATH";
inline constexpr const ACHAR* APP_POSTS_BASE_PATH = L"APP_POSTS_BASE_PATH";
inline constexpr const ACHAR* APP_TABLES_BASE_PATH = L"APP_TABLES_BASE_PATH";
inline constexpr const ACHAR* APP_TABLES_COMPL_DIR = L"APP_TABLES_COMPL_DIR";
inline constexpr const ACHAR* APP_LAMPS_BASE_PATH = L"APP_LAMPS_BASE_PATH";
inline constexpr const ACHAR* APP_BLOCK_BASE_PATH = L"APP_BLOCK_BASE_PATH";
inline constexpr const ACHAR* APP_TABLES_UNIQ_DIR = L"APP_TABLES_UNIQ_DIR";
inline constexpr const ACHAR* APP_TEMP_DIR_PATH = L"APP_TEMP_DIR_PATH";
inline constexpr const ACHAR* USER_INTERFACE_TYPE = L"USER_INTERFACE_TYPE";
inline constexpr const ACHAR* USER_INTERFACE_TYPE_TEMP = L"USER_INTERFACE_TYPE_TEMP";
inline constexpr const ACHAR* BLOCK_VIEW_SIZE = L"BLOCK_VIEW_SIZE";
// ---- keys of the drawing settings; lengths are metres on the printed sheet, angles degrees
inline constexpr const ACHAR* DOC_SCALE_LIST = L"DOC_SCALE_LIST";
inline constexpr const ACHAR* DOC_CURRENT_SCALE = L"DOC_CURRENT_SCALE";
inline constexpr const ACHAR* DOC_BASEPOINTD = L"DOC_BASEPOINTD";
inline constexpr const ACHAR* DOC_POST_ALPHA0 = L"DOC_POST_ALPHA0";
inline constexpr const ACHAR* DOC_POST_MIN_AB = L"DOC_POST_MIN_AB";
inline constexpr const ACHAR* DOC_POST_MIN_CD = L"DOC_POST_MIN_CD";
inline constexpr const ACHAR* DOC_POST_OVERLAP_ERR = L"DOC_POST_OVERLAP_ERR";
inline constexpr const ACHAR* DOC_POST_DEFAULT_TYPE = L"DOC_POST_DEFAULT_TYPE";
inline constexpr const ACHAR* DOC_POST_DEFAULT_DWG = L"DOC_POST_DEFAULT_DWG";
inline constexpr const ACHAR* DOC_POST_ALIEN_DWG = L"DOC_POST_ALIEN_DWG";
inline constexpr const ACHAR* DOC_ANNO_MIN_DIST = L"DOC_ANNO_MIN_DIST";
inline constexpr const ACHAR* DOC_ANNO_HEIGHT = L"DOC_ANNO_HEIGHT";
inline constexpr const ACHAR* DOC_ANNO_COLOR = L"DOC_ANNO_COLOR";
inline constexpr const ACHAR* DOC_ANNO_TYPE = L"DOC_ANNO_TYPE";
inline constexpr const ACHAR* DOC_ANNO_LINE_COLOR = L"DOC_ANNO_LINE_COLOR";
inline constexpr const ACHAR* DOC_ANNO_LINE_TYPE = L"DOC_ANNO_LINE_TYPE";
inline constexpr const ACHAR* DOC_ANNO_LINE_WEIGHT = L"DOC_ANNO_LINE_WEIGHT";
inline constexpr const ACHAR* DOC_EXISTING_TABLE_D = L"DOC_EXISTING_TABLE_D";
inline constexpr const ACHAR* DOC_PLANNED_TABLE_D = L"DOC_PLANNED_TABLE_D";
inline constexpr const ACHAR* DOC_EXISTING_LAMP_D = L"DOC_EXISTING_LAMP_D";
inline constexpr const ACHAR* DOC_PLANNED_LAMP_D = L"DOC_PLANNED_LAMP_D";
inline constexpr const ACHAR* DOC_BLOCK_DEFAULT_TYPE = L"DOC_BLOCK_DEFAULT_TYPE";
inline constexpr const ACHAR* DOC_BLOCK_ENT_DEFAULT_TYPE = L"DOC_BLOCK_ENT_DEFAULT_TYPE";
inline constexpr const ACHAR* DOC_USE_OTHER_COLOR_TABLES = L"DOC_USE_OTHER_COLOR_TABLES";
inline constexpr const ACHAR* DOC_USE_GRAYSCALE_TABLES = L"DOC_USE_GRAYSCALE_TABLES";
inline constexpr const ACHAR* DOC_USE_WHITESCALE_TABLES = L"DOC_USE_WHITESCALE_TABLES";
inline constexpr const ACHAR* DOC_AUTO_ORDER_TABLES = L"DOC_AUTO_ORDER_TABLES";
inline constexpr const ACHAR* DOC_CROSSWALK_DEFAULT_TYPE = L"DOC_CROSSWALK_DEFAULT_TYPE";

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
