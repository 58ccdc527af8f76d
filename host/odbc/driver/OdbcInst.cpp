#include "OdbcInst.h"

#include "AcUtText.h"
#include "WinLibrary.h"
#include "driver/DriverList.h"
#include "session/FileSession.h"

#include <algorithm>
#include <cstring>
#include <cwchar>

namespace {
// Names one behind the other, each and the whole ended by a null; those that do not fit are left out.
template <class Char> BOOL putList(const std::vector<std::basic_string<Char>>& names, Char* buffer, WORD size, WORD* used) {
    if (buffer == nullptr || size < 2)
        return FALSE;
    std::size_t at = 0;
    for (const auto& name : names) {
        if (at + name.size() + 2 > size)
            break;
        std::copy(name.begin(), name.end(), buffer + at);
        at += name.size();
        buffer[at++] = 0;
    }
    buffer[at] = 0;
    if (at == 0)
        buffer[1] = 0; // an empty list has its two nulls too
    if (used != nullptr)
        *used = static_cast<WORD>(at);
    return TRUE;
}

BOOL installedDriversAnsi(char* buffer, WORD size, WORD* used) {
    std::vector<std::string> names;
    for (const std::wstring& name : odbc::installedDrivers())
        names.push_back(acToAnsi(name));
    return putList(names, buffer, size, used);
}

// The value of CREATE_DB, with or without quotes; false where the attribute is not there.
bool createPath(std::wstring_view attributes, std::wstring& path) {
    constexpr std::wstring_view key = L"CREATE_DB=";
    const auto found = std::search(attributes.begin(), attributes.end(), key.begin(), key.end(),
                                   [](wchar_t a, wchar_t b) { return acFoldCase(a) == acFoldCase(b); });
    if (found == attributes.end())
        return false;
    attributes.remove_prefix(static_cast<std::size_t>(found - attributes.begin()) + key.size());
    const bool quoted = !attributes.empty() && attributes.front() == L'"';
    if (quoted)
        attributes.remove_prefix(1);
    path = attributes.substr(0, attributes.find(quoted ? L'"' : L' '));
    return true;
}

BOOL configDataSourceAnsi(HWND parent, WORD request, const char* driver, const char* attributes) {
    const std::wstring wideDriver = driver == nullptr ? L"" : acFromAnsi(driver);
    const std::wstring wideAttributes = attributes == nullptr ? L"" : acFromAnsi(attributes);
    return SQLConfigDataSource(parent, request, wideDriver.c_str(), wideAttributes.c_str());
}

// Offered as the layer is loaded, before a module asks.
[[maybe_unused]] const bool gOffered = [] {
    winOfferLibrary(L"odbccp32.dll", {{"SQLGetInstalledDriversW", reinterpret_cast<FARPROC>(&SQLGetInstalledDrivers)},
                                      {"SQLConfigDataSourceW", reinterpret_cast<FARPROC>(&SQLConfigDataSource)},
                                      {"SQLGetInstalledDrivers", reinterpret_cast<FARPROC>(&installedDriversAnsi)},
                                      {"SQLConfigDataSource", reinterpret_cast<FARPROC>(&configDataSourceAnsi)}});
    return true;
}();
} // namespace

BOOL SQLGetInstalledDrivers(LPWSTR buffer, WORD size, WORD* used) {
    return putList(odbc::installedDrivers(), buffer, size, used);
}

BOOL SQLConfigDataSource(HWND, WORD request, LPCWSTR driver, LPCWSTR attributes) {
    if (request != ODBC_ADD_DSN || driver == nullptr || attributes == nullptr || !odbc::isAccessDriver(driver))
        return FALSE;
    std::wstring path;
    if (!createPath(attributes, path))
        return TRUE;
    try {
        odbc::createAccessFile(path);
        return TRUE;
    } catch (const odbc::StoreError&) {
        return FALSE; // the API has no place for the reason; opening the file gives one
    }
}
