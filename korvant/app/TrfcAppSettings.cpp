// The application table and the drawing-defaults table, with the rules of their files.
#include "TrfcAppSettings.h"

#include "AcUtText.h"
#include "TrfcIniText.h"
#include "TrfcUserFolder.h"
#include "WinFiles.h"
#include "WinTextFile.h"

#include <array>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace {

constexpr int kFileVersion = 7; // what the writers write, whatever version was read
constexpr int kLineBuffer = 1000;

struct KeyLess {
    using is_transparent = void;
    bool operator()(const std::wstring& a, const std::wstring& b) const { return a < b; }
    bool operator()(const std::wstring& a, const ACHAR* b) const { return a.compare(b) < 0; }
    bool operator()(const ACHAR* a, const std::wstring& b) const { return b.compare(a) > 0; }
};
using Table = std::map<std::wstring, std::wstring, KeyLess>;

struct Store {
    Table app;
    Table defaults;
    // Of the library keys whose folder was gone at the start: that folder, and the one that stands for it.
    std::map<std::wstring, std::pair<std::wstring, std::wstring>, KeyLess> substitutes;
    std::wstring moduleDirectory;
};
Store& store() {
    static Store instance;
    return instance;
}

// An absent key comes into being with an empty value.
std::wstring& valueOf(Table& table, const ACHAR* key) {
    const auto found = table.find(key);
    return found != table.end() ? found->second : table[key];
}

// ---- reading ------------------------------------------------------------------------------

// One piece of at most 999 characters with its last character taken off, which is meant for the
// line end. Nothing at the end of the file; a last line without a line end meets the end of the
// file while it is read and so is lost.
std::optional<std::wstring> readPiece(WinTextFile& file) {
    std::array<wchar_t, kLineBuffer> buffer;
    if (file.gets(buffer.data(), kLineBuffer) == nullptr)
        return std::nullopt;
    std::wstring piece(buffer.data());
    const bool metEnd = piece.size() < kLineBuffer - 1 && (piece.empty() || piece.back() != L'\n');
    if (metEnd)
        return std::nullopt;
    piece.pop_back();
    return piece;
}

std::wstring trimBlanks(const std::wstring& text) {
    constexpr const wchar_t* kBlanks = L" \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::wstring::npos ? std::wstring() : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The comment test looks at the untrimmed line, the key is cut from the trimmed one.
void takeLine(const std::wstring& line, Table& table) {
    const std::wstring text = trimBlanks(line);
    if (text.size() <= 2 || line.front() == L';' || line.front() == L'[')
        return;
    const std::size_t equals = text.find(L'=');
    if (equals != std::wstring::npos && equals > 0)
        table[text.substr(0, equals)] = fromIniText(text.substr(equals + 1));
}

bool readTable(const std::wstring& path, Table& table) {
    table.clear();
    WinTextFile file;
    if (!file.open(path.c_str(), L"r"))
        return false;
    while (const auto line = readPiece(file))
        takeLine(*line, table);
    return true;
}

int versionOf(Table& table) {
    return acWtoi(valueOf(table, VERSION_NUMBER).c_str());
}

// A key of a file older than the version that brought it takes the installed value.
void migrate(Table& table, std::span<const TrfcSetting> settings) {
    const int version = versionOf(table);
    for (const TrfcSetting& setting : settings)
        if (version < setting.since)
            table[setting.key] = setting.value;
}

// ---- writing ------------------------------------------------------------------------------

// The choice of the user interface counts from the next start: its working copy is what is written.
const ACHAR* valueKeyOf(const TrfcSetting& setting) {
    return acutWcscmp(setting.key, USER_INTERFACE_TYPE) == 0 ? USER_INTERFACE_TYPE_TEMP : setting.key;
}

// A path so full of foreign letters that its line would be read in pieces is left out: the key then reads as not
// set, which every reader has a rule for, where a piece of a path would be a path to nowhere.
std::wstring lineOf(const ACHAR* key, const std::wstring& value) {
    const std::wstring text = toIniText(value);
    const bool isTooLong = text != value && std::wcslen(key) + 1 + text.size() > kLineBuffer - 2;
    return std::wstring(key) + L"=" + (isTooLong ? std::wstring() : text) + L"\n";
}

bool writeTable(const std::wstring& path, Table& table, std::span<const TrfcSetting> settings) {
    WinTextFile file;
    if (!file.open(path.c_str(), L"w"))
        return false;
    file.puts(L"[version]\n");
    file.printf(L"VERSION_NUMBER=%d\n", kFileVersion);
    std::wstring_view section;
    for (const TrfcSetting& setting : settings) {
        if (section != setting.section)
            file.printf(L"\n[%s]\n", setting.section);
        section = setting.section;
        file.puts(lineOf(setting.key, valueOf(table, valueKeyOf(setting))));
    }
    return file.close();
}

} // namespace

const std::wstring& TrfcAppSettings::moduleDirectory() {
    return store().moduleDirectory;
}

void TrfcAppSettings::setModuleDirectory(const std::wstring& modulePath) {
    std::array<wchar_t, MAX_PATH> buffer{};
    const DWORD length = GetFullPathNameW(modulePath.c_str(), MAX_PATH, buffer.data(), nullptr);
    const std::wstring full = length > 0 && length < MAX_PATH ? std::wstring(buffer.data(), length) : modulePath;
    store().moduleDirectory = full.substr(0, full.find_last_of(L'\\') + 1);
}

std::wstring TrfcAppSettings::settingsFilePath() {
    const std::wstring folder = prepareUserFolder(installationFolder());
    return folder.empty() ? folder : folder + L"settings.ini";
}

std::wstring TrfcAppSettings::installationFolder() {
    return moduleDirectory() + L"bin\\";
}

std::wstring TrfcAppSettings::perUserFolder() {
    return userFolder();
}

bool TrfcAppSettings::loadAppSettings(const std::wstring& path) {
    Table& table = store().app;
    store().substitutes.clear();
    if (!readTable(path, table))
        return false;
    migrate(table, trfcAppSettings());
    valueOf(table, USER_INTERFACE_TYPE_TEMP) = valueOf(table, USER_INTERFACE_TYPE);
    return true;
}

bool TrfcAppSettings::saveAppSettings(const std::wstring& path) {
    return writeTable(path, store().app, trfcAppSettings());
}

bool TrfcAppSettings::loadDocDefaults(const std::wstring& path) {
    Table& table = store().defaults;
    if (!readTable(path, table))
        return false;
    migrate(table, trfcDocSettings());
    // Annotation scales are the source of truth: a list in the file must never reach a drawing.
    valueOf(table, DOC_SCALE_LIST).clear();
    return true;
}

bool TrfcAppSettings::saveDocDefaults(const std::wstring& path) {
    return writeTable(path, store().defaults, trfcDocSettings());
}

const std::wstring& TrfcAppSettings::getAppString(const ACHAR* key) {
    return valueOf(store().app, key);
}

Adesk::Int32 TrfcAppSettings::getAppInt(const ACHAR* key) {
    return acWtoi(getAppString(key).c_str());
}

// ---- libraries ----------------------------------------------------------------------------

namespace {
constexpr const ACHAR* kLibraryKeys[] = {
    APP_SYMBOL_BASE_PATH, APP_POSTS_BASE_PATH, APP_TABLES_BASE_PATH, APP_LAMPS_BASE_PATH, APP_BLOCK_BASE_PATH, APP_TEMP_DIR_PATH,
};

bool isFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The running installation's folder for the key: the one its own settings name, or, where the installation has been
// moved since, the folder of that name in its library. Empty when there is neither.
std::wstring folderOfRunningInstallation(Table& installed, const ACHAR* key) {
    const std::wstring& named = valueOf(installed, key);
    if (named.empty() || isFolder(named))
        return named;
    const std::wstring beside = TrfcAppSettings::moduleDirectory() + L"library\\" + named.substr(named.find_last_of(L"\\/") + 1);
    return isFolder(beside) ? beside : std::wstring();
}
} // namespace

std::wstring TrfcAppSettings::substituteAbsentLibraries() {
    Table installed;
    if (!readTable(installationFolder() + L"settings.ini", installed))
        return std::wstring();
    std::wstring firstAbsent;
    for (const ACHAR* key : kLibraryKeys) {
        const std::wstring& set = getAppString(key);
        const std::wstring substitute = set.empty() || isFolder(set) ? std::wstring() : folderOfRunningInstallation(installed, key);
        if (substitute.empty())
            continue;
        store().substitutes[key] = {set, substitute};
        if (firstAbsent.empty())
            firstAbsent = set;
    }
    return firstAbsent;
}

const std::wstring& TrfcAppSettings::libraryFolder(const ACHAR* key) {
    const std::wstring& set = getAppString(key);
    const auto found = store().substitutes.find(key);
    return found != store().substitutes.end() && found->second.first == set ? found->second.second : set;
}

void TrfcAppSettings::setAppString(const ACHAR* key, const std::wstring& value) {
    valueOf(store().app, key) = value;
}

void TrfcAppSettings::setAppInt(const ACHAR* key, Adesk::Int32 value) {
    setAppString(key, std::to_wstring(value));
}

const std::wstring& TrfcAppSettings::getDocDefault(const ACHAR* key) {
    return valueOf(store().defaults, key);
}

void TrfcAppSettings::setDocDefault(const ACHAR* key, const std::wstring& value) {
    valueOf(store().defaults, key) = value;
}

void TrfcAppSettings::clearDocDefaults() {
    store().defaults.clear();
}
