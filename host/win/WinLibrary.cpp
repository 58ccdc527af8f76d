#include "WinLibrary.h"

#include "AcPath.h"
#include "AcUtText.h"
#include "WinFiles.h"

#include <cstring>
#include <list>
#include <string>

namespace {
struct Library {
    std::wstring name; // small letters, without folder and ".dll"
    std::vector<std::pair<const char*, FARPROC>> functions;
};

std::list<Library>& libraries() { // a list: handles point to its elements
    static std::list<Library> offered;
    return offered;
}

std::wstring plainName(LPCWSTR fileName) {
    std::wstring name = acFileName(fileName == nullptr ? L"" : fileName);
    for (wchar_t& c : name)
        c = acFoldCase(c);
    constexpr std::wstring_view ending = L".dll";
    if (name.size() > ending.size() && name.ends_with(ending))
        name.resize(name.size() - ending.size());
    return name;
}
} // namespace

HMODULE LoadLibraryW(LPCWSTR name) {
    const std::wstring wanted = plainName(name);
    for (Library& library : libraries())
        if (library.name == wanted)
            return &library;
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

HMODULE GetModuleHandleW(LPCWSTR name) {
    return LoadLibraryW(name);
}

BOOL FreeLibrary(HMODULE library) {
    return library != nullptr ? TRUE : FALSE;
}

FARPROC GetProcAddress(HMODULE library, const char* name) {
    if (library != nullptr && name != nullptr)
        for (const auto& [known, function] : static_cast<const Library*>(library)->functions)
            if (std::strcmp(known, name) == 0)
                return function;
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

void winOfferLibrary(LPCWSTR fileName, std::vector<std::pair<const char*, FARPROC>> functions) {
    libraries().push_back({plainName(fileName), std::move(functions)});
}
