#include "AfxUserVariables.h"

#include "AfxApp.h"
#include "core/EdSysVars.h"

namespace {
constexpr LPCTSTR kSection = L"Variables";
}

void AfxKeepUserVariables() {
    EdUserProfile profile;
    profile.read = [](const wchar_t* name) { return AfxGetApp()->GetProfileString(kSection, name).text(); };
    profile.write = [](const wchar_t* name, const std::wstring& value) { AfxGetApp()->WriteProfileString(kSection, name, value.c_str()); };
    EdSysVars::instance().useProfile(profile);
}
