#include "resource/AfxResources.h"

#include "AcUtText.h"
#include "AfxApp.h"
#include "resource/RcStyles.h"

#include <algorithm>
#include <cwctype>

namespace {
RcScript& resources() {
    static RcScript script;
    return script;
}

template <class Map> void adopt(Map& target, Map& source) {
    source.merge(target); // a later one wins, what only the earlier held is kept
    target.swap(source);
}
} // namespace

BOOL AfxSetResourceText(const char* utf8, std::size_t size, std::wstring* reason) {
    RcScript script;
    const RcError error = rcRead(std::string_view(utf8, size), script);
    if (error.line != 0) {
        if (reason != nullptr)
            *reason = acFormat(L"line %d: %s", error.line, error.reason.c_str());
        return FALSE;
    }
    RcScript& all = resources();
    adopt(all.dialogs, script.dialogs);
    adopt(all.strings, script.strings);
    adopt(all.pictures, script.pictures);
    adopt(all.symbols, script.symbols);
    return TRUE;
}

void AfxClearResources() {
    resources() = RcScript();
}

UINT AfxResourceId(LPCTSTR symbol) {
    const auto found = resources().symbols.find(symbol);
    if (found != resources().symbols.end())
        return static_cast<UINT>(found->second);
    return static_cast<UINT>(rcStandardId(symbol).value_or(0));
}

std::wstring AfxResourceString(UINT id) {
    const auto found = resources().strings.find(static_cast<int>(id));
    return found == resources().strings.end() ? L"" : found->second;
}

BOOL AfxHasDialogTemplate(UINT id) {
    return afxDialogTemplate(rcKey(static_cast<int>(id))) != nullptr ? TRUE : FALSE;
}

HINSTANCE AfxGetResourceHandle() {
    return &resources();
}

HINSTANCE AfxGetInstanceHandle() {
    return &resources();
}

const RcDialog* afxDialogTemplate(const std::wstring& key) {
    const auto found = resources().dialogs.find(key);
    return found == resources().dialogs.end() ? nullptr : &found->second;
}

const RcPicture* afxPictureResource(const std::wstring& key) {
    const auto found = resources().pictures.find(key);
    return found == resources().pictures.end() ? nullptr : &found->second;
}

std::wstring afxControlSymbol(int id) {
    if (const wchar_t* standard = rcStandardName(id))
        return standard;
    static const wchar_t* kOthers[] = {L"IDD_", L"IDS_", L"IDB_", L"IDI_", L"IDR_"}; // the same number may name another thing
    for (const auto& [name, number] : resources().symbols) {
        const auto begins = [&name = name](const wchar_t* prefix) { return name.rfind(prefix, 0) == 0; };
        if (number == id && std::none_of(std::begin(kOthers), std::end(kOthers), begins))
            return name;
    }
    return {};
}

std::wstring afxResourceKey(LPCTSTR name) {
    std::wstring key = name == nullptr ? L"" : name;
    if (const UINT id = AfxResourceId(key.c_str()))
        return rcKey(static_cast<int>(id));
    for (wchar_t& c : key)
        c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    return key;
}
