// The settings files at start, with the windows that tell what is wrong with them.
#include "TrfcStartup.h"

#include "AcUtText.h"
#include "AfxApp.h"
#include "CErrorDlg.h"
#include "CFileDialog.h"
#include "Resource.h"
#include "TrfcAppSettings.h"
#include "TrfcUserFolder.h"

using namespace TrfcAppSettings;

// korvant.rc and the numbers it uses, embedded at build time.
extern const char* const korvant_rc;
extern const std::size_t korvant_rc_size;
extern const char* const korvant_resource_h;
extern const std::size_t korvant_resource_h_size;

namespace {

constexpr const ACHAR* kSettingsName = L"settings.ini";
constexpr const ACHAR* kDefaultsName = L"defaults.ini";

std::wstring defaultsBeside(std::wstring settingsPath) {
    const std::size_t at = settingsPath.find(kSettingsName);
    return at == std::wstring::npos ? settingsPath : settingsPath.replace(at, std::wstring(kSettingsName).size(), kDefaultsName);
}

void showError(const std::wstring& text) {
    CErrorDlg dialog(text.c_str());
    dialog.DoModal();
}

// False when the user gave up.
bool askDefaultsPath(std::wstring& path) {
    CFileDialog dialog(TRUE, L"ini", path.c_str(), OFN_HIDEREADONLY, L"INI files (*.ini)|*.ini||");
    if (dialog.DoModal() != IDOK)
        return false;
    path = static_cast<LPCTSTR>(dialog.GetPathName());
    return true;
}

void tellOfSubstitutes() {
    const std::wstring absent = substituteAbsentLibraries();
    if (!absent.empty())
        acutPrintf(L"A beállított könyvtár nem található: %s. A futó telepítés könyvtára érvényes.\n", absent.c_str());
}

} // namespace

void registerModuleResources() {
    const std::string script = std::string(korvant_resource_h, korvant_resource_h_size) + std::string(korvant_rc, korvant_rc_size);
    std::wstring reason;
    if (AfxSetResourceText(script.data(), script.size(), &reason) == FALSE)
        acutPrintf(L"korvant.rc: %s\n", reason.c_str());
}

bool loadSettingsAtStart() {
    std::wstring path = settingsFilePath();
    if (path.empty()) { // a user without a folder works with what is installed, and keeps nothing
        path = installationFolder() + kSettingsName;
        acutPrintf(L"A felhasználói mappa hiányzik: %s. A telepített beállítások érvényesek, és nem menthetők.\n", userFolderFault());
    }
    if (loadAppSettings(path)) {
        tellOfSubstitutes();
        return true;
    }
    CString text;
    text.Format(AfxResourceString(IDS_SETTINGS_FAULT).c_str(), path.c_str());
    showError(static_cast<LPCTSTR>(text));
    return false;
}

bool loadDefaultsAtStart() {
    std::wstring path = getAppString(DEFAULTS_INI_PATH);
    bool changed = path.empty();
    const std::wstring settings = settingsFilePath();
    if (changed)
        path = settings.empty() ? installationFolder() + kDefaultsName : defaultsBeside(settings);
    if (!loadDocDefaults(path)) {
        showError(AfxResourceString(IDS_DEFAULTS_FAULT));
        changed = true;
        do {
            if (!askDefaultsPath(path))
                return false;
        } while (!loadDocDefaults(path));
    }
    if (changed) {
        setAppString(DEFAULTS_INI_PATH, path);
        if (!settings.empty())
            saveAppSettings(settings);
    }
    return true;
}
