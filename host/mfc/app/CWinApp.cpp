#include "AcUtText.h"
#include "AfxApp.h"
#include "AfxDialogDriver.h"
#include "CWnd.h"
#include "WinFiles.h"
#include "WinProfile.h"
#include "WinShell.h"
#include "core/AfxWindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <cwchar>

std::wstring CWinApp::profilePath() const {
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, folder)))
        return {};
    const std::wstring own = std::wstring(folder) + L"\\Korvant Host";
    CreateDirectoryW(own.c_str(), nullptr); // it stands already, or the write will tell
    return own + L"\\profile.ini";
}

CString CWinApp::GetProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR defaultValue) const {
    return winProfileString(section, entry, defaultValue, profilePath().c_str());
}

BOOL CWinApp::WriteProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR value) {
    return WritePrivateProfileStringW(section, entry, value, profilePath().c_str());
}

UINT CWinApp::GetProfileInt(LPCTSTR section, LPCTSTR entry, int defaultValue) const {
    return GetPrivateProfileIntW(section, entry, defaultValue, profilePath().c_str());
}

BOOL CWinApp::WriteProfileInt(LPCTSTR section, LPCTSTR entry, int value) {
    return WriteProfileString(section, entry, std::to_wstring(value).c_str());
}

namespace {
// A screen in memory is smaller than any real one; it must not shrink what a user's window would keep.
QRect screenOf(const QWidget& widget) {
    const QRect usual(0, 0, 1920, 1200);
    return QGuiApplication::platformName() == QStringLiteral("offscreen") ? usual : widget.screen()->availableGeometry();
}
} // namespace

CWinApp* AfxGetApp() {
    static CWinApp application;
    return &application;
}

void AfxSavePlacement(const CWnd& window, LPCTSTR section) {
    const AfxWindow& state = *window.window();
    if (state.widget == nullptr)
        return;
    const QRect place = state.widget->geometry();
    const std::wstring text = acFormat(L"%d,%d,%d,%d", place.x(), place.y(), place.width(), place.height());
    AfxGetApp()->WriteProfileString(section, L"Placement", text.c_str());
}

BOOL AfxRestorePlacement(CWnd& window, LPCTSTR section) {
    int x = 0, y = 0, width = 0, height = 0;
    const CString text = AfxGetApp()->GetProfileString(section, L"Placement");
    AfxWindow& state = *window.window();
    if (state.widget == nullptr || std::swscanf(text, L"%d,%d,%d,%d", &x, &y, &width, &height) != 4)
        return FALSE;
    const QRect screen = screenOf(*state.widget);
    const QSize least = state.widget->minimumSize();
    QRect place(x, y, std::clamp(width, std::max(least.width(), 1), std::max(least.width(), screen.width())),
                std::clamp(height, std::max(least.height(), 1), std::max(least.height(), screen.height())));
    place.moveLeft(std::clamp(place.left(), screen.left(), std::max(screen.left(), screen.right() - place.width())));
    place.moveTop(std::clamp(place.top(), screen.top(), std::max(screen.top(), screen.bottom() - place.height())));
    if (state.widget->minimumSize() == state.widget->maximumSize())
        state.widget->move(place.topLeft());
    else
        state.widget->setGeometry(place);
    return TRUE;
}
